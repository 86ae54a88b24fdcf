#include "platform/tables/TableReader.h"

#include "support/DamagedTables.h"
#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// Real files cut short or with bytes flipped: every open and every row read ends in an error or
// in some rows, never in a crash or a hang, and no byte of a file changes by reading it.
namespace {

QString shared(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u'/' + name;
}

QString generated(const QString& name) {
    return QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(name);
}

// Opens a file and reads every table's rows, in stored order and in each index's order, forwards
// then a few backwards. Gives how many rows were read.
qint64 readEverything(const QString& connect, const QString& path, const QString& password) {
    TableReader::Opened opened = TableReader::open(connect, path, password);
    if (opened.error)
        return -1;
    EXPECT_TRUE(opened.reader);
    qint64 read = 0;
    for (const TableDef& def : opened.reader->tableDefs()) {
        QStringList orders{QString()};
        orders += def.indexes;
        for (const QString& order : orders) {
            std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, order);
            if (!rows)
                continue;
            const qint64 count = std::min<qint64>(rows->count(), 5000);
            for (qint64 i = 0; i < count; ++i)
                read += rows->row(i).isEmpty() ? 0 : 1;
            for (qint64 i = count - 1; i >= 0 && i >= count - 3; --i)
                rows->row(i);
            rows->row(-1);
            rows->row(rows->count());
        }
    }
    return read;
}

// Damaged copies of a file that reads: every one ends in an error or in some rows and stays as
// it was written, as the file itself does.
void readDamagedCopies(const QString& connect, const QString& original, const QString& password,
                       const QString& suffix) {
    const QByteArray good = bytesOf(original);
    ASSERT_GT(readEverything(connect, original, password), 0) << original.toStdString();
    EXPECT_EQ(bytesOf(original), good) << original.toStdString();
    TempFolder dir;
    const QString name = u"damaged"_s + suffix;
    // Bytes turned over all through the header (the first 2 KiB) and in the middle.
    const auto copies = damagedCopies(
        good, {{0, 8}, {20, 16}, {64, 8}, {200, 4}, {512, 16}, {1024, 8}, {1536, 16}, {2040, 8}});
    for (const auto& [what, bytes] : copies) {
        SCOPED_TRACE(QFileInfo(original).fileName().toStdString() + ", " + what);
        dir.write(name, bytes);
        readEverything(connect, dir.file(name), password);
        EXPECT_EQ(bytesOf(dir.file(name)), bytes);
    }
}

} // namespace

TEST(DamagedFiles, CutAndFlippedDatabasesWorkbooksAndWorksheetsFailOrRead) {
    const struct {
        QString connect, path, password;
    } files[] = {
        {u"Excel 8.0;"_s, generated(u"BOOK.XLS"_s), {}},
        {u"Excel 8.0;"_s, generated(u"MERGED.XLS"_s), {}},
        {u"Access"_s, shared(u"mdb/testV1997.mdb"_s), {}},
        {u"Access"_s, shared(u"mdb/adox_jet4.mdb"_s), {}},
        {u"Access"_s, shared(u"mdb/V2003_with-password.mdb"_s), u"password"_s},
        {u"Excel 8.0;"_s, shared(u"xls/Formate.xls"_s), {}},
        {u"Excel 8.0;"_s, shared(u"xls/maccentraleurope.biff5.xls"_s), {}},
        {u"Excel 8.0;"_s, shared(u"xls/oocalc_simple95.xls"_s), {}},
        {u"Lotus WK4;"_s, shared(u"lotus/PF.WK1"_s), {}},
        {u"Lotus WK4;"_s, shared(u"lotus/PEYTREND.WK3"_s), {}},
        {u"Lotus WK4;"_s, shared(u"lotus/testLotus123-lotusftp.wk4"_s), {}},
    };
    ASSERT_TRUE(QFileInfo::exists(files[0].path)) << "the test tables were not made";
    for (const auto& file : files) {
        if (QFileInfo::exists(file.path))
            readDamagedCopies(file.connect, file.path, file.password,
                              u'.' + QFileInfo(file.path).suffix());
    }
}

// Bytes flipped where libmdb reads the catalog's properties send it round and round for ever;
// such a file is refused after a few seconds, like any other that cannot be read. Whether
// libmdb loops on these bytes depends on what the process did before (after decoding pictures
// it reads them in a few milliseconds), so this test comes after the damaged copies above.
TEST(DamagedFiles, ACatalogThatNeverEndsIsRefused) {
    if (!QFileInfo::exists(shared(u"mdb/testV1997.mdb"_s)))
        GTEST_SKIP() << "the shared Access samples are absent";
    QByteArray bytes = bytesOf(shared(u"mdb/testV1997.mdb"_s));
    const std::pair<qsizetype, char> flips[] = {{44440, '\x64'}, {45560, '\x99'}, {50173, '\x56'},
                                                {68525, '\xAC'}, {95209, '\x47'}, {98373, '\x1B'},
                                                {117004, '\x5C'}};
    for (const auto& [at, value] : flips) {
        ASSERT_LT(at, bytes.size());
        bytes[at] = value;
    }
    TempFolder dir;
    dir.write(u"loops.mdb"_s, bytes);
    TableReader::Opened opened = TableReader::open(u"Access"_s, dir.file(u"loops.mdb"_s), {});
    EXPECT_EQ(opened.error.number(), 75);
    EXPECT_FALSE(opened.reader);
    EXPECT_EQ(dir.read(u"loops.mdb"_s), bytes);
}

// A database left behind by a program that stopped while it had it open, its lock file still
// beside it: it opens read-only and neither file changes.
TEST(DamagedFiles, ADatabaseClosedUncleanly) {
    if (!QFileInfo::exists(shared(u"mdb/adox_jet4.mdb"_s)))
        GTEST_SKIP() << "the shared Access samples are absent";
    for (const QString& sample : {u"mdb/adox_jet4.mdb"_s, u"mdb/testV1997.mdb"_s}) {
        const QByteArray good = bytesOf(shared(sample));
        TempFolder dir;
        dir.write(u"left.mdb"_s, good);
        QByteArray lock(64, ' ');
        lock.replace(0, 9, "MACHINE01");
        lock.replace(32, 5, "Admin");
        dir.write(u"left.ldb"_s, lock);
        TableReader::Opened opened = TableReader::open(u"Access"_s, dir.file(u"left.mdb"_s), {});
        ASSERT_FALSE(opened.error) << sample.toStdString();
        EXPECT_GT(readEverything(u"Access"_s, dir.file(u"left.mdb"_s), {}), 0);
        opened = {};
        EXPECT_EQ(dir.read(u"left.mdb"_s), good);
        EXPECT_EQ(dir.read(u"left.ldb"_s), lock);
    }
}
