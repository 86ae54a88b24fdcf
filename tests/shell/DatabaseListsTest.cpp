#include "shell/DatabaseLists.h"

#include "shell/Globals.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QString mdb(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/mdb/"_s + name;
}
} // namespace

TEST(DatabaseLists, ADbaseTableFillsTheFieldListsByItsFileName) {
    Globals g;
    const QString folder = QStringLiteral(QUORVANE_GENERATED_TABLES);
    ASSERT_FALSE(DatabaseLists::ReadTableInfo(g, u"dBASE 5.0;"_s, folder, u"SALES.DBF"_s));
    EXPECT_EQ(g.gFieldCount, 5);
    EXPECT_EQ(g.gFieldNames[0], u"NAME"_s);
    EXPECT_EQ(g.gFieldSizes[0], 20);
    EXPECT_EQ(g.gFieldTypes[5], 12);
    EXPECT_EQ(g.gIndexCount, 0);
}

TEST(DatabaseLists, AccessTablesAreListedWithoutSystemObjects) {
    if (!QFileInfo::exists(mdb(u"testV1997.mdb"_s)))
        GTEST_SKIP() << "the shared Access samples are absent";
    Globals g;
    EXPECT_EQ(DatabaseLists::ListTables(g, mdb(u"testV1997.mdb"_s), u"Access"_s, {}), u"Table1"_s);
    EXPECT_EQ(g.gTableCount, 4);
    EXPECT_EQ(g.gTableNames[3], u"Table4"_s);
    ASSERT_FALSE(
        DatabaseLists::ReadTableInfo(g, u"Access"_s, mdb(u"testV1997.mdb"_s), u"table1"_s));
    EXPECT_EQ(g.gFieldCount, 8);
    EXPECT_EQ(g.gFieldTypes[8], 1);
    EXPECT_EQ(g.gIndexCount, 2);

    // A second table overwrites the lists.
    ASSERT_FALSE(
        DatabaseLists::ReadTableInfo(g, u"Access"_s, mdb(u"testV1997.mdb"_s), u"Table2"_s));
    EXPECT_EQ(g.gFieldCount, 88);
    EXPECT_EQ(g.gFieldNames[0], u"column1"_s);
}

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
