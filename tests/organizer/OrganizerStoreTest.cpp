#include "organizer/OrganizerBatch.h"
#include "organizer/OrganizerDates.h"
#include "organizer/OrganizerDb.h"
#include "organizer/OrganizerMaintenance.h"
#include "organizer/Recordset.h"
#include "shell/Globals.h"
#include "support/TempFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Store : ::testing::Test {
    TempFolder dir;
    std::shared_ptr<OrganizerDb> db;

    void SetUp() override {
        OrganizerDb::Opened opened = OrganizerDb::open(dir.file(u"FileTabl"_s));
        ASSERT_FALSE(opened.error) << opened.error.number();
        db = opened.db;
    }
    std::unique_ptr<Recordset> open(const QString& source,
                                    Recordset::Type type = Recordset::TableType) {
        Recordset::Opened opened = Recordset::open(db, source, type);
        EXPECT_FALSE(opened.error) << opened.error.number();
        return std::move(opened.recordset);
    }
    // Adds rows of (GroupName, FileName, FileKeyword) to FileTable.
    void addFiles(std::initializer_list<std::array<const char16_t*, 3>> rows) {
        auto files = open(u"FileTable"_s);
        for (const auto& row : rows) {
            files->AddNew();
            files->setValue(u"GroupName"_s, QString::fromUtf16(row[0]));
            files->setValue(u"FileName"_s, QString::fromUtf16(row[1]));
            files->setValue(u"FileKeyword"_s, QString::fromUtf16(row[2]));
            ASSERT_FALSE(files->Update());
        }
    }
    QStringList namesInOrder(Recordset& set, const QString& field) {
        QStringList names;
        for (AppError e = set.MoveFirst(); !e && !set.isEOF(); set.MoveNext())
            names.append(set.text(field)), e = {};
        return names;
    }
};

} // namespace

TEST(OrganizerDates, StampsAndSortableDatesFollowTheOrganizersRules) {
    const struct {
        QTime time;
        const char* stampTime;
        const char* shown;
    } stamps[] = {{QTime(12, 30, 5), "123005", " 12:30:05 AM"},
                  {QTime(13, 30, 5), "133005", " 0:30:05 PM"},
                  {QTime(23, 59, 59), "235959", " 10:59:59 PM"},
                  {QTime(0, 5, 0), "000500", " 0:05:00 AM"}};
    for (const auto& s : stamps) {
        OrganizerDates::SetDateStamps(QDateTime(QDate(2026, 2, 6), s.time));
        const Globals& g = globals();
        EXPECT_EQ(g.gStampTime, QLatin1StringView(s.stampTime));
        EXPECT_TRUE(g.gStampDisplay.endsWith(QLatin1StringView(s.shown)))
            << g.gStampDisplay.toStdString();
        EXPECT_EQ(g.gStampFull, u"20260206"_s + QLatin1StringView(s.stampTime));
    }
    const std::pair<const char*, const char*> dates[] = {{"2/16/00", "20000216"},
                                                         {"12/31/81", "19811231"},
                                                         {"12/31/80", "20801231"},
                                                         {"1/5/2000", "1920000105"},
                                                         {"11/3/26", "20261103"}};
    for (const auto& [date, sortable] : dates)
        EXPECT_EQ(OrganizerDates::ToSortableDate(QLatin1StringView(date)),
                  QLatin1StringView(sortable));
    // The file date text comes back to eight digits through the same two steps.
    TempFolder dir;
    dir.write(u"f.txt"_s, "x");
    const auto [date, time] =
        OrganizerDates::splitAtFirstBlank(OrganizerDates::fileDateText(dir.file(u"f.txt"_s)).text);
    EXPECT_EQ(OrganizerDates::ToSortableDate(date), QDate::currentDate().toString(u"yyyyMMdd"_s));
    EXPECT_TRUE(time.endsWith(u"M"_s));
    EXPECT_EQ(OrganizerDates::fileDateText(dir.file(u"gone"_s)).error.number(), 53);
}

TEST_F(Store, AFirstRunMakesBothTablesInTheirColumnOrderUnderEitherName) {
    EXPECT_TRUE(QFile::exists(dir.file(u"FileTabl.MDB"_s)));
    EXPECT_EQ(db->columns(u"FileTable"_s),
              (QStringList{u"ID"_s, u"GroupName"_s, u"FileName"_s, u"FileLocation"_s,
                           u"FileDescription"_s, u"FileKeyword"_s, u"FileType"_s, u"Comments"_s,
                           u"Date"_s, u"Time"_s, u"DateTimeCreated"_s, u"DateDisp"_s}));
    addFiles({{u"G", u"a.jpg", u"k"}});
    OrganizerDb::Opened again = OrganizerDb::open(dir.file(u"FileTabl.MDB"_s));
    ASSERT_FALSE(again.error);
    EXPECT_EQ(Recordset::open(again.db, u"FileTable"_s).recordset->RecordCount(), 1);
}

TEST_F(Store, GroupsAreKeyedWithoutRegardToCaseAndStoredAsTyped) {
    auto groups = open(u"GroupTable"_s);
    EXPECT_EQ(groups->MoveFirst().number(), 3021); // an empty table
    EXPECT_TRUE(groups->isEOF() && groups->isBOF());
    for (const QString& name : {u"Web Site List"_s, u"O'Brien; 100% \"done\""_s, u"Émile"_s,
                                u"Zebra"_s, u"ÉMILE"_s, u"web site list"_s}) {
        groups->AddNew();
        groups->setValue(1, name);
        const AppError saved = groups->Update();
        EXPECT_EQ(saved.number(),
                  name.startsWith(u"ÉMILE"_s) || name == u"web site list"_s ? 3022 : 0)
            << name.toStdString();
    }
    ASSERT_FALSE(groups->setIndex(u"groupname"_s));
    EXPECT_EQ(
        namesInOrder(*groups, u"GroupName"_s),
        (QStringList{u"O'Brien; 100% \"done\""_s, u"Web Site List"_s, u"Zebra"_s, u"Émile"_s}));
    const struct {
        const char* comparison;
        QString key;
        QString found; // empty for a miss
    } seeks[] = {{"=", u"émile"_s, u"Émile"_s},
                 {">=", u"p"_s, u"Web Site List"_s},
                 {"=", u"O'BRIEN; 100% \"DONE\""_s, u"O'Brien; 100% \"done\""_s},
                 {"=", u"Web"_s, {}},
                 {">=", u"zz"_s, u"Émile"_s},
                 {">=", u"\uFFFF"_s, {}}};
    for (const auto& s : seeks) {
        ASSERT_FALSE(groups->Seek(QLatin1StringView(s.comparison), s.key));
        EXPECT_EQ(groups->NoMatch(), s.found.isEmpty()) << s.key.toStdString();
        AppError error;
        EXPECT_EQ(groups->value(u"GroupName"_s, &error).toString(), s.found);
        EXPECT_EQ(error.number(), s.found.isEmpty() ? 3021 : 0);
    }
    AppError unknown;
    groups->value(u"NoSuchField"_s, &unknown);
    EXPECT_EQ(unknown.number(), 3265);
    EXPECT_EQ(groups->setValue(1, u"x"_s).number(), 3020); // no AddNew or Edit
}

TEST_F(Store, MovesDeletesAndPositionsFollowTheIndex) {
    addFiles({{u"G", u"c.jpg", u"k"},
              {u"G", u"A.jpg", u"k"},
              {u"H", u"b.jpg", u"k"},
              {u"G", u"d.jpg", u"k"}});
    auto files = open(u"FileTable"_s);
    ASSERT_FALSE(files->setIndex(u"FileName"_s));
    EXPECT_EQ(files->setIndex(u"Comments"_s).number(), 3800);
    ASSERT_FALSE(files->Seek(u"="_s, u"b.jpg"_s));
    EXPECT_EQ(files->AbsolutePosition(), 1);
    EXPECT_DOUBLE_EQ(files->PercentPosition(), 25.0);
    ASSERT_FALSE(files->Delete());
    EXPECT_EQ(files->value(2).isValid(), false);
    files->MoveNext();
    EXPECT_EQ(files->text(u"FileName"_s), u"c.jpg"_s);
    EXPECT_EQ(files->AbsolutePosition(), 1);
    files->MoveNext();
    files->MoveNext();
    EXPECT_TRUE(files->isEOF());
    EXPECT_FALSE(files->isBOF());
    EXPECT_EQ(files->MoveNext().number(), 3021);
    ASSERT_FALSE(files->MoveLast());
    EXPECT_EQ(files->text(u"FileName"_s), u"d.jpg"_s);
    ASSERT_FALSE(files->Edit());
    files->setValue(u"FileName"_s, u"0.jpg"_s);
    ASSERT_FALSE(files->Update());
    EXPECT_EQ(files->AbsolutePosition(), 0);
    EXPECT_EQ(files->RecordCount(), 3);
    EXPECT_EQ(files->rows(1, 5).size(), 2);
}

TEST_F(Store, TheGroupQueryFailsOnAnApostropheAndOrdersTheGroupsFiles) {
    addFiles({{u"Web", u"b.txt", u"z"}, {u"web", u"a.txt", u"y"}, {u"Other", u"c.txt", u"x"}});
    const QString query = u"SELECT * FROM [FileTable] WHERE [GroupName] = '%1' ORDER BY [%2]"_s;
    auto byKeyword = open(query.arg(u"WEB"_s, u"FileKeyword"_s), Recordset::DynasetType);
    EXPECT_EQ(byKeyword->RecordCount(), 2);
    EXPECT_EQ(namesInOrder(*byKeyword, u"FileName"_s), (QStringList{u"a.txt"_s, u"b.txt"_s}));
    auto byId = open(query.arg(u"Web"_s, u"ID"_s), Recordset::DynasetType);
    EXPECT_EQ(namesInOrder(*byId, u"FileName"_s), (QStringList{u"b.txt"_s, u"a.txt"_s}));
    for (const QString& bad : {query.arg(u"O'Brien"_s, u"ID"_s), query.arg(u"x"_s, u"Nothing"_s),
                               u"SELECT * FROM [FileTable]; DROP TABLE FileTable"_s})
        EXPECT_TRUE(Recordset::open(db, bad).error) << bad.toStdString();
    EXPECT_EQ(Recordset::open(db, query.arg(u"O'Brien"_s, u"ID"_s)).error.number(), 3075);
    EXPECT_EQ(Recordset::open(db, u"FileTable"_s).recordset->RecordCount(), 3);
}

TEST_F(Store, AnOldFileTableGetsItsCommentsOnceAndClearNeedsFiles) {
    const QString path = dir.file(u"FileTabl.MDB"_s);
    db->exec("DROP TABLE FileTable; CREATE TABLE FileTable (ID INTEGER PRIMARY KEY, GroupName "
             "TEXT, FileName TEXT, FileLocation TEXT, FileDescription TEXT, FileKeyword TEXT, "
             "FileType TEXT, Date TEXT, Time TEXT, DateTimeCreated TEXT, DateDisp TEXT);"
             "INSERT INTO FileTable (GroupName, FileName, Date) VALUES ('G', 'f.jpg', '20000216')");
    db.reset();
    const auto first = OrganizerMaintenance::CheckOrganizerTable(path);
    EXPECT_TRUE(first.updated);
    EXPECT_EQ(first.fileCount, 1);
    EXPECT_FALSE(OrganizerMaintenance::CheckOrganizerTable(path).updated);
    db = OrganizerDb::open(path).db;
    auto files = open(u"FileTable"_s);
    EXPECT_EQ(files->value(8).toString(), u"20000216"_s); // Date stands after Comments
    EXPECT_EQ(files->text(u"Comments"_s), QString());
    files.reset();
    db.reset();

    const QString work = dir.file(u"FileTabl2.MDB"_s);
    EXPECT_FALSE(OrganizerMaintenance::ClearAllFiles(path, work));
    EXPECT_FALSE(QFile::exists(work));
    EXPECT_EQ(OrganizerMaintenance::ClearAllFiles(path, work).number(), 3021); // nothing left
}

TEST_F(Store, ABatchFilesAFoldersFilesUntilOneIsMissingAndAddsOnlyAFirstGroup) {
    const QString path = db->path();
    EXPECT_FALSE(OrganizerBatch::EnsureFirstGroup(path, u"Trips"_s));
    EXPECT_FALSE(OrganizerBatch::EnsureFirstGroup(path, u"Other"_s));
    auto groups = open(u"GroupTable"_s);
    EXPECT_EQ(groups->RecordCount(), 1);
    EXPECT_EQ(groups->text(u"GroupDesc"_s), u"Trips Description"_s);

    QDir(dir.path()).mkdir(u"rome"_s);
    dir.write(u"rome/a.jpg"_s, "a");
    dir.write(u"rome/c.txt"_s, "c");
    const OrganizerBatch::Added added = OrganizerBatch::AddFolderFilesToGroup(
        path, u"Trips"_s, dir.file(u"rome"_s), {u"a.jpg"_s, u"gone.jpg"_s, u"c.txt"_s});
    EXPECT_EQ(added.records, 1);
    EXPECT_EQ(added.error.number(), 53);
    auto files = open(u"FileTable"_s);
    ASSERT_EQ(files->RecordCount(), 1);
    const QDateTime written = QFileInfo(dir.file(u"rome/a.jpg"_s)).lastModified();
    const QStringList expected{
        u"Trips"_s, u"a.jpg"_s,   dir.file(u"rome"_s), u"a.jpg Description"_s,
        u"rome"_s,  u"Picture"_s, QString(),           written.toString(u"yyyyMMdd"_s)};
    for (int field = 1; field <= 8; ++field)
        EXPECT_EQ(files->value(field).toString(), expected[field - 1]) << field;
}

TEST_F(Store, RepairRecoversTheReadableRowsOfADamagedFile) {
    db->exec(
        "BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
        "INSERT INTO FileTable (GroupName, FileName) SELECT 'G', 'file' || i || "
        "'.jpg' FROM n; COMMIT");
    db.reset();
    const QString path = dir.file(u"FileTabl.MDB"_s);
    QByteArray bytes = dir.read(u"FileTabl.MDB"_s);
    ASSERT_GT(bytes.size(), 40 * 4096);
    bytes.replace(20 * 4096, 4096, QByteArray(4096, '\x5A')); // one page in the middle
    dir.write(u"FileTabl.MDB"_s, bytes);
    EXPECT_FALSE(OrganizerMaintenance::RepairDatabase(path));
    EXPECT_TRUE(QFile::exists(path + u".damaged"_s));
    db = OrganizerDb::open(path).db;
    const qint64 kept = open(u"FileTable"_s)->RecordCount();
    EXPECT_GT(kept, 2000);
    EXPECT_FALSE(OrganizerMaintenance::CompactDatabase(path, dir.file(u"copy.MDB"_s)));
}

TEST_F(Store, ABatchAddKilledInItsMiddleLeavesWholeFoldersOnly) {
    QDir(dir.path()).mkdir(u"folder"_s);
    QStringList names;
    for (int i = 0; i < 10000; ++i) {
        names.append(u"f%1.jpg"_s.arg(i));
        dir.write(u"folder/"_s + names.last(), QByteArray());
    }
    const QString path = db->path();
    db.reset();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int batch = 0; batch < 2; ++batch) {
            OrganizerBatch::AddFolderFilesToGroup(path, u"G"_s, dir.file(u"folder"_s), names);
            dir.write(u"batch%1.done"_s.arg(batch), QByteArray());
        }
        _exit(0);
    }
    // The journal exists from the second batch's first record to its commit.
    for (int tries = 0;
         tries < 20000 && !(dir.exists(u"batch0.done"_s) && dir.exists(u"FileTabl.MDB-journal"_s));
         ++tries)
        usleep(500);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    db = OrganizerDb::open(path).db;
    ASSERT_TRUE(db);
    const qint64 count = open(u"FileTable"_s)->RecordCount();
    EXPECT_TRUE(count == 10000 || count == 20000) << count;
}
