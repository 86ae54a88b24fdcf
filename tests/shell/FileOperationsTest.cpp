#include "shell/FileOperations.h"

#include "support/TempFolder.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace FileOperations;

namespace {

QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
}

struct FamilyFixture : ::testing::Test {
    TempFolder dir;
    void SetUp() override {
        for (const char* name :
             {"SALES.DBF", "SALES.dbt", "sales.MDX", "SALES.OLD.BAK", "SALESX.DBF", "OTHER.DBF"})
            dir.write(QString::fromLatin1(name), name);
    }
};

} // namespace

TEST_F(FamilyFixture, AFamilyIsEveryFileOfTheBaseNameWhateverItsCase) {
    QStringList members = family(dir.file(u"SALES.DBF"_s));
    for (QString& m : members)
        m = QFileInfo(m).fileName();
    members.sort(Qt::CaseInsensitive);
    EXPECT_EQ(members,
              (QStringList{u"SALES.DBF"_s, u"SALES.dbt"_s, u"sales.MDX"_s, u"SALES.OLD.BAK"_s}));
    EXPECT_TRUE(isFamilyExtension(u"WK4"_s));
    EXPECT_FALSE(isFamilyExtension(u"wk4"_s));
    EXPECT_FALSE(isFamilyExtension(u"TXT"_s));
}

TEST_F(FamilyFixture, AFamilyMovesWholeWithEachMemberKeepingItsExtension) {
    QDir(dir.path()).mkdir(u"dest"_s);
    const QStringList members = family(dir.file(u"SALES.DBF"_s));
    const QStringList targets = familyTargets(members, dir.file(u"dest/NEW.DBF"_s));
    ASSERT_FALSE(moveAll(members, targets));
    EXPECT_EQ(namesIn(dir.file(u"dest"_s)),
              (QStringList{u"NEW.BAK"_s, u"NEW.DBF"_s, u"NEW.dbt"_s, u"NEW.MDX"_s}));
    EXPECT_EQ(namesIn(dir.path()), (QStringList{u"OTHER.DBF"_s, u"SALESX.DBF"_s}));
    EXPECT_EQ(dir.read(u"dest/NEW.dbt"_s), QByteArray("SALES.dbt"));
}

TEST_F(FamilyFixture, AFailurePartWayPutsBackWhatWasMoved) {
    QDir(dir.path()).mkdir(u"dest"_s);
    const QStringList sources{dir.file(u"SALES.DBF"_s), dir.file(u"SALES.dbt"_s)};
    const QStringList targets{dir.file(u"dest/NEW.DBF"_s), dir.file(u"missing/NEW.DBT"_s)};
    const AppError error = moveAll(sources, targets);
    EXPECT_EQ(error.number(), 76);
    EXPECT_TRUE(namesIn(dir.file(u"dest"_s)).isEmpty());
    EXPECT_EQ(dir.read(u"SALES.DBF"_s), QByteArray("SALES.DBF"));
    EXPECT_EQ(dir.read(u"SALES.dbt"_s), QByteArray("SALES.dbt"));
}

TEST(FileOperations, CopyCanRefuseToOverwrite) {
    TempFolder dir;
    dir.write(u"a.txt"_s, "new");
    dir.write(u"b.txt"_s, "old");
    EXPECT_EQ(copyFile(dir.file(u"a.txt"_s), dir.file(u"b.txt"_s), true).number(), 75);
    EXPECT_EQ(dir.read(u"b.txt"_s), QByteArray("old"));
    EXPECT_FALSE(copyFile(dir.file(u"a.txt"_s), dir.file(u"b.txt"_s), false));
    EXPECT_EQ(dir.read(u"b.txt"_s), QByteArray("new"));
    EXPECT_FALSE(copyFile(dir.file(u"a.txt"_s), dir.file(u"c.txt"_s), true));
    EXPECT_EQ(copyFile(dir.file(u"none.txt"_s), dir.file(u"d.txt"_s), true).number(), 53);
    EXPECT_EQ(copyFile(dir.file(u"a.txt"_s), dir.file(u"no/d.txt"_s), true).number(), 76);
}
