#include "platform/tables/TableReader.h"

#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString paradox(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/paradox/"_s + name;
}

bool haveSamples() {
    return QFileInfo(paradox(u"AREACODE.DB"_s)).isFile();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TableReader::Opened openParadox(const QString& path) {
    return TableReader::open(u"Paradox 5.x;"_s, path, {});
}

QString fiveLines() {
    return QString(u"01234567890"_s.repeated(10) + u'\n').repeated(5);
}

} // namespace

TEST(ParadoxReader, ReadsTheSampleTablesFieldsAndRows) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TableReader::Opened opened =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"AREACODE.DB"_s), {});
    ASSERT_FALSE(opened.error);
    const TableDef def = opened.reader->tableDefs().first();
    ASSERT_EQ(def.fields.size(), 4);
    EXPECT_EQ(def.fields[0].name, u"Area Code"_s);
    EXPECT_EQ(def.fields[1].type, TableTypes::Text);
    EXPECT_EQ(def.fields[1].size, 30);
    EXPECT_EQ(def.indexes, QStringList{u"PrimaryKey"_s});
    std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
    EXPECT_EQ(rows->count(), 135);
    EXPECT_EQ(rows->row(0), (QStringList{u"201"_s, u"United States"_s, u"New Jersey"_s, u"NJ"_s}));

    TableReader::Opened types =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"TypSammlung.DB"_s), {});
    ASSERT_FALSE(types.error);
    const TableDef all = types.reader->tableDefs().first();
    EXPECT_EQ(all.fields.size(), 14);
    EXPECT_EQ(all.fields[9].type, TableTypes::Memo);
    std::unique_ptr<TableRows> typed = types.reader->rows(all.name, QString());
    EXPECT_EQ(typed->count(), 5);
    EXPECT_EQ(typed->row(0).value(0), u"AAA Irgendein Text"_s);
    EXPECT_EQ(typed->row(0).value(1), u"40"_s);
}

TEST(ParadoxReader, ReadsMemosAndAPasswordProtectedTable) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TableReader::Opened memo = TableReader::open(u"Paradox 5.x;"_s, paradox(u"memo.db"_s), {});
    ASSERT_FALSE(memo.error);
    const TableDef def = memo.reader->tableDefs().first();
    EXPECT_EQ(def.fields.value(1).type, TableTypes::Memo);
    std::unique_ptr<TableRows> rows = memo.reader->rows(def.name, QString());
    ASSERT_EQ(rows->count(), 2);
    // The whole memo from the memo file: five lines of 110 digits.
    EXPECT_EQ(rows->row(0).value(1), fiveLines());
    EXPECT_EQ(rows->row(1).value(1), u"01234567890\n"_s); // kept whole in the record

    TableReader::Opened locked =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"encrypted35.db"_s), {});
    ASSERT_FALSE(locked.error);
    std::unique_ptr<TableRows> secret =
        locked.reader->rows(locked.reader->tableDefs().first().name, QString());
    EXPECT_EQ(secret->row(0).value(1), u"Test 1"_s);
}

TEST(ParadoxReader, DamagedTablesFailOrReadWithoutACrash) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TempFolder dir;
    for (const QString& name : {u"AREACODE.DB"_s, u"TypSammlung.DB"_s}) {
        QFile file(paradox(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray good = file.readAll();
        for (qsizetype cut : {qsizetype(0), qsizetype(50), good.size() / 3, good.size() - 7}) {
            dir.write(u"cut.db"_s, good.left(cut));
            TableReader::Opened opened =
                TableReader::open(u"Paradox 5.x;"_s, dir.file(u"cut.db"_s), {});
            if (opened.error)
                continue;
            std::unique_ptr<TableRows> rows =
                opened.reader->rows(opened.reader->tableDefs().first().name, QString());
            for (qint64 i = 0; i < std::min<qint64>(rows->count(), 20); ++i)
                rows->row(i);
        }
    }
}

TEST(ParadoxReader, ReadsWholeMemosFromTheMemoFileInItsCodePage) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    const QByteArray before = bytesOf(paradox(u"TypSammlung.MB"_s));
    {
        TableReader::Opened opened = openParadox(paradox(u"TypSammlung.DB"_s));
        ASSERT_FALSE(opened.error);
        const TableDef def = opened.reader->tableDefs().first();
        ASSERT_EQ(def.fields[9].name, u"Memo"_s);
        std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
        ASSERT_EQ(rows->count(), 5);
        QMap<QString, QStringList> byFirst;
        for (qint64 i = 0; i < rows->count(); ++i)
            byFirst[rows->row(i).value(0)] = rows->row(i);
        // Code page 1252: the record keeps one byte of it, the memo file the rest.
        const QStringList fifth = byFirst.value(u"F\u00fcnfter Datensatz"_s);
        EXPECT_EQ(fifth.value(9), u"Dies ist eine Memo im 'F\u00fcnften Datensat'"_s);
        EXPECT_EQ(fifth.value(12), QString()); // a binary value has no text
    }
    EXPECT_EQ(bytesOf(paradox(u"TypSammlung.MB"_s)), before);
}

TEST(ParadoxReader, WithoutItsMemoFileOrWithADamagedOneAMemoIsThePartInTheRecord) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    const QString kept = fiveLines().left(240); // the memo field is 250 bytes with its pointer
    TempFolder dir;
    dir.write(u"memo.db"_s, bytesOf(paradox(u"memo.db"_s)));
    {
        TableReader::Opened opened = openParadox(dir.file(u"memo.db"_s));
        ASSERT_FALSE(opened.error);
        std::unique_ptr<TableRows> rows = opened.reader->rows(u"memo.db"_s, QString());
        EXPECT_EQ(rows->row(0).value(1), kept);
        EXPECT_EQ(rows->row(1).value(1), u"01234567890\n"_s);
    }
    const QByteArray good = bytesOf(paradox(u"memo.mb"_s));
    ASSERT_GT(good.size(), 0x1150);
    QByteArray wrongType = good;
    wrongType[0x1000] = 2; // the block of small memos claims to hold one memo
    QByteArray wrongVersion = good;
    wrongVersion[0x1000 + 12 + 5 * 0x3F + 2] = 9; // the entry was written by another change
    QByteArray pastTheEnd = good;
    pastTheEnd[0x1000 + 12 + 5 * 0x3F] = char(0xF8); // the memo would run past its block
    for (const QByteArray& bytes : {wrongType, wrongVersion, pastTheEnd, good.left(0x1200)}) {
        dir.write(u"MEMO.MB"_s, bytes);
        TableReader::Opened opened = openParadox(dir.file(u"memo.db"_s));
        ASSERT_FALSE(opened.error);
        std::unique_ptr<TableRows> rows = opened.reader->rows(u"memo.db"_s, QString());
        EXPECT_EQ(rows->row(0).value(1), kept);
    }
    dir.write(u"MEMO.MB"_s, good); // any letter case
    TableReader::Opened opened = openParadox(dir.file(u"memo.db"_s));
    ASSERT_FALSE(opened.error);
    EXPECT_EQ(opened.reader->rows(u"memo.db"_s, QString())->row(0).value(1), fiveLines());
}

namespace {

// Copies of a file cut short or with bytes turned over, each with what was done to it.
QList<std::pair<std::string, QByteArray>> damagedCopies(const QByteArray& good) {
    QList<std::pair<std::string, QByteArray>> copies;
    for (qsizetype cut : {qsizetype(0), qsizetype(32), good.size() / 2, good.size() - 1})
        copies.append({"cut to " + std::to_string(cut), good.left(cut)});
    auto flipped = [&](qsizetype from, qsizetype count) {
        QByteArray bytes = good;
        for (qsizetype i = from; i < std::min(from + count, bytes.size()); ++i)
            bytes[i] = char(~bytes[i]);
        copies.append({"flipped at " + std::to_string(from), bytes});
    };
    flipped(0, 8);    // sizes of the record and the header, the kind of file
    flipped(32, 16);  // the field count and more of the header
    flipped(0x78, 8); // the types and lengths of the first fields
    flipped(good.size() / 2, 16);
    return copies;
}

// Opens the table and reads every row; the bytes of its files stay the same.
void readEverything(const TempFolder& dir, const QString& table, const std::string& what) {
    QMap<QString, QByteArray> before;
    for (const QString& name : QDir(dir.path()).entryList(QDir::Files))
        before[name] = dir.read(name);
    {
        TableReader::Opened opened = openParadox(dir.file(table));
        if (!opened.error) {
            ASSERT_TRUE(opened.reader) << what;
            const QList<TableDef> defs = opened.reader->tableDefs();
            ASSERT_EQ(defs.size(), 1) << what;
            std::unique_ptr<TableRows> rows = opened.reader->rows(defs.first().name, QString());
            for (qint64 i = 0; i < rows->count(); ++i) {
                const QStringList row = rows->row(i);
                EXPECT_TRUE(row.isEmpty() || row.size() == defs.first().fields.size()) << what;
            }
        }
    }
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        EXPECT_EQ(dir.read(it.key()), it.value()) << what << ": " << it.key().toStdString();
}

} // namespace

TEST(ParadoxReader, DamagedCopiesOfEveryFileEndInAnErrorOrSomeRows) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    const QList<QStringList> tables{{u"AREACODE.DB"_s, u"AREACODE.PX"_s},
                                    {u"TypSammlung.DB"_s, u"TypSammlung.MB"_s},
                                    {u"memo.db"_s, u"memo.mb"_s, u"memo.px"_s},
                                    {u"encrypted35.db"_s}};
    for (const QStringList& files : tables) {
        for (const QString& damaged : files) {
            const QByteArray good = bytesOf(paradox(damaged));
            ASSERT_FALSE(good.isEmpty()) << damaged.toStdString();
            for (const auto& [what, bytes] : damagedCopies(good)) {
                TempFolder dir;
                for (const QString& name : files)
                    dir.write(name, bytesOf(paradox(name)));
                dir.write(damaged, bytes);
                readEverything(dir, files.first(), damaged.toStdString() + " " + what);
            }
        }
    }
}
