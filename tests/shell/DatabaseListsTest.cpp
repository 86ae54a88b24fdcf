#include "shell/DatabaseLists.h"

#include "shell/Globals.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QString mdb(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/mdb/"_s + name;
}
} // namespace

TEST(DatabaseLists, AProtectedDatabaseAsksUntilThePasswordIsRightOrTheUserGivesUp) {
    if (!QFileInfo::exists(mdb(u"V2003_with-password.mdb"_s)))
        GTEST_SKIP() << "the shared Access samples are absent";
    Globals g;
    const QString locked = mdb(u"V2003_with-password.mdb"_s);
    QStringList answers{u"wrong"_s, u"password"_s};
    int asked = 0;
    auto ask = [&] {
        ++asked;
        g.gDbPassword = answers.takeFirst();
        g.gLoginOK = true;
        return true;
    };
    EXPECT_EQ(DatabaseLists::ListTables(g, locked, u"Access"_s, ask), u"Table1"_s);
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(g.gPasswordAsked);
    EXPECT_EQ(g.gOpenFile, locked);

    Globals other;
    auto cancel = [&] {
        other.gLoginOK = false;
        return false;
    };
    EXPECT_EQ(DatabaseLists::ListTables(other, locked, u"Access"_s, cancel), QString());
    EXPECT_EQ(other.gTableCount, 0);
}
