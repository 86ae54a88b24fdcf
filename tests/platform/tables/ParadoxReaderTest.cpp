#include "platform/tables/TableReader.h"

#include "support/DamagedTables.h"
#include "support/TempFolder.h"

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

TableReader::Opened openParadox(const QString& path) {
    return TableReader::open(u"Paradox 5.x;"_s, path, {});
}

QString fiveLines() {
    return QString(u"01234567890"_s.repeated(10) + u'\n').repeated(5);
}

// Every test reads the shared samples.
struct ParadoxReader : ::testing::Test {
    void SetUp() override {
        if (!haveSamples())
            GTEST_SKIP() << "the shared Paradox samples are absent";
    }
};

} // namespace

TEST_F(ParadoxReader, ReadsTheSampleTablesFieldsAndRows) {
    TableReader::Opened opened = openParadox(paradox(u"AREACODE.DB"_s));
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
}

TEST_F(ParadoxReader, ReadsWholeMemosFromTheMemoFileInItsCodePage) {
    const QByteArray before = bytesOf(paradox(u"TypSammlung.MB"_s));
    {
        TableReader::Opened opened = openParadox(paradox(u"TypSammlung.DB"_s));
        ASSERT_FALSE(opened.error);
        const TableDef def = opened.reader->tableDefs().first();
        ASSERT_EQ(def.fields.size(), 14);
        EXPECT_EQ(def.fields[9].name, u"Memo"_s);
        EXPECT_EQ(def.fields[9].type, TableTypes::Memo);
        std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
        ASSERT_EQ(rows->count(), 5);
        EXPECT_EQ(rows->row(0).mid(0, 2), (QStringList{u"AAA Irgendein Text"_s, u"40"_s}));
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

TEST_F(ParadoxReader, WithoutItsMemoFileOrWithADamagedOneAMemoIsThePartInTheRecord) {
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

TEST_F(ParadoxReader, DamagedCopiesOfEveryFileEndInAnErrorOrSomeRows) {
    const QList<QStringList> tables{{u"AREACODE.DB"_s, u"AREACODE.PX"_s},
                                    {u"TypSammlung.DB"_s, u"TypSammlung.MB"_s},
                                    {u"memo.db"_s, u"memo.mb"_s, u"memo.px"_s},
                                    {u"encrypted35.db"_s}};
    for (const QStringList& files : tables) {
        for (const QString& damaged : files) {
            const QByteArray good = bytesOf(paradox(damaged));
            ASSERT_FALSE(good.isEmpty()) << damaged.toStdString();
            for (const auto& [what, bytes] : damagedCopies(good, {{0, 8}, {32, 16}, {0x78, 8}})) {
                TempFolder dir;
                for (const QString& name : files)
                    dir.write(name, bytesOf(paradox(name)));
                dir.write(damaged, bytes);
                readEveryRow(dir, u"Paradox 5.x;"_s, files.first(),
                             damaged.toStdString() + " " + what);
            }
        }
    }
}

namespace {

constexpr qsizetype HeaderBytes = 0x800; // of every sample
constexpr qsizetype BlockBytes = 0x800;

qsizetype blockAt(int block) {
    return HeaderBytes + (block - 1) * BlockBytes;
}

void putShort(QByteArray& bytes, qsizetype at, int value) {
    bytes[at] = char(value & 0xFF);
    bytes[at + 1] = char((value >> 8) & 0xFF);
}

// Links a table's data blocks in the given order.
void link(QByteArray& table, const QList<int>& blocks) {
    putShort(table, 0x0E, blocks.first());
    putShort(table, 0x10, blocks.last());
    for (qsizetype i = 0; i < blocks.size(); ++i) {
        putShort(table, blockAt(blocks[i]), i + 1 < blocks.size() ? blocks[i + 1] : 0);
        putShort(table, blockAt(blocks[i]) + 2, i > 0 ? blocks[i - 1] : 0);
    }
}

qsizetype recordAt(int block, int slot, int recordBytes) {
    return blockAt(block) + 6 + qsizetype(slot) * recordBytes;
}

void swapRecords(QByteArray& table, qsizetype a, qsizetype b, int recordBytes) {
    const QByteArray first = table.mid(a, recordBytes);
    table.replace(a, recordBytes, table.mid(b, recordBytes));
    table.replace(b, recordBytes, first);
}

QStringList column(TableRows& rows, int field) {
    QStringList cells;
    for (qint64 i = 0; i < rows.count(); ++i)
        cells.append(rows.row(i).value(field));
    return cells;
}

QStringList primaryKeyColumn(const QString& path, int field) {
    TableReader::Opened opened = openParadox(path);
    if (opened.error)
        return {};
    const TableDef def = opened.reader->tableDefs().first();
    if (!def.indexes.contains(u"PrimaryKey"_s))
        return {};
    return column(*opened.reader->rows(def.name, u"PrimaryKey"_s), field);
}

QStringList storedColumn(const QString& path, int field) {
    TableReader::Opened opened = openParadox(path);
    if (opened.error)
        return {};
    return column(*opened.reader->rows(opened.reader->tableDefs().first().name, {}), field);
}

} // namespace

TEST_F(ParadoxReader, KeyedSamplesListTheirPrimaryKeyAndGiveTheirRowsInItsOrder) {
    // Area codes, one key field of three letters, in four blocks linked in their order.
    const QStringList areas = primaryKeyColumn(paradox(u"AREACODE.DB"_s), 0);
    ASSERT_EQ(areas.size(), 135);
    EXPECT_EQ(areas.first(5), (QStringList{u"201"_s, u"202"_s, u"203"_s, u"204"_s, u"205"_s}));
    EXPECT_EQ(areas[36], u"402"_s); // the first of the second block
    EXPECT_EQ(areas[72], u"602"_s); // the first of the third block
    EXPECT_EQ(areas.last(), u"919"_s);
    EXPECT_EQ(areas, storedColumn(paradox(u"AREACODE.DB"_s), 0));

    // An autoincrement key with its .PX index.
    EXPECT_EQ(primaryKeyColumn(paradox(u"memo.db"_s), 0), (QStringList{u"1"_s, u"2"_s}));

    // Two key fields, an alpha and a number, and no .PX file beside the table.
    EXPECT_EQ(primaryKeyColumn(paradox(u"TypSammlung.DB"_s), 0),
              (QStringList{u"AAA Irgendein Text"_s, u"Erste Zeile"_s, u"F\u00fcnfter Datensatz"_s,
                           u"Null-Werte"_s, u"Zweite Zeile"_s}));

    // No key fields: no index, and the name of one changes nothing.
    TableReader::Opened plain = openParadox(paradox(u"encrypted35.db"_s));
    ASSERT_FALSE(plain.error);
    const TableDef def = plain.reader->tableDefs().first();
    EXPECT_TRUE(def.indexes.isEmpty());
    const QStringList named = column(*plain.reader->rows(def.name, u"PrimaryKey"_s), 1);
    EXPECT_EQ(named.value(0), u"Test 1"_s);
    EXPECT_EQ(named, column(*plain.reader->rows(def.name, QString()), 1));
}

TEST_F(ParadoxReader, RecordsOutOfKeyOrderAreSortedByTheKeyInTheTablesSortOrder) {
    TempFolder dir;
    // The area codes' blocks linked 1, 3, 2, 4, two records of the first block swapped and two
    // codes with letters in them: the "ascii" sort order puts capitals before small letters.
    QByteArray areas = bytesOf(paradox(u"AREACODE.DB"_s));
    link(areas, {1, 3, 2, 4});
    swapRecords(areas, recordAt(1, 0, 56), recordAt(1, 5, 56), 56);
    areas.replace(recordAt(1, 1, 56), 3, "b02");
    areas.replace(recordAt(1, 2, 56), 3, "C03");
    dir.write(u"AREACODE.DB"_s, areas);
    dir.write(u"AREACODE.PX"_s, bytesOf(paradox(u"AREACODE.PX"_s)));
    const QStringList stored = storedColumn(dir.file(u"AREACODE.DB"_s), 0);
    ASSERT_EQ(stored.size(), 135);
    EXPECT_EQ(stored.first(3), (QStringList{u"206"_s, u"b02"_s, u"C03"_s}));
    EXPECT_EQ(stored[36], u"602"_s);
    const QStringList keyed = primaryKeyColumn(dir.file(u"AREACODE.DB"_s), 0);
    ASSERT_EQ(keyed.size(), 135);
    EXPECT_EQ(keyed.first(5), (QStringList{u"201"_s, u"204"_s, u"205"_s, u"206"_s, u"207"_s}));
    EXPECT_EQ(keyed[34], u"402"_s);
    EXPECT_EQ(keyed[70], u"602"_s);
    EXPECT_EQ(keyed.last(3), (QStringList{u"919"_s, u"C03"_s, u"b02"_s}));
    QStringList sorted = keyed;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(keyed, sorted);

    // The memo table's two records swapped: the autoincrement key puts them back.
    QByteArray memo = bytesOf(paradox(u"memo.db"_s));
    swapRecords(memo, recordAt(1, 0, 254), recordAt(1, 1, 254), 254);
    dir.write(u"memo.db"_s, memo);
    dir.write(u"memo.px"_s, bytesOf(paradox(u"memo.px"_s)));
    dir.write(u"memo.mb"_s, bytesOf(paradox(u"memo.mb"_s)));
    EXPECT_EQ(storedColumn(dir.file(u"memo.db"_s), 0), (QStringList{u"2"_s, u"1"_s}));
    TableReader::Opened opened = openParadox(dir.file(u"memo.db"_s));
    ASSERT_FALSE(opened.error);
    std::unique_ptr<TableRows> rows = opened.reader->rows(u"memo.db"_s, u"primarykey"_s);
    EXPECT_EQ(rows->row(0), (QStringList{u"1"_s, fiveLines()}));
    EXPECT_EQ(rows->row(1), (QStringList{u"2"_s, u"01234567890\n"_s}));
}

TEST_F(ParadoxReader, AKeyOfTextAndANumberSortsTheNumbersAsNumbersAndBlanksFirst) {
    constexpr int RecordBytes = 366;
    const QByteArray good = bytesOf(paradox(u"TypSammlung.DB"_s));
    TempFolder dir;
    // Every record's text the same: the numbers 40, 23, 1.34, 0 and -40 decide, the blank
    // first.
    QByteArray same = good;
    for (int i = 0; i < 5; ++i)
        same.replace(recordAt(1, i, RecordBytes), 30, QByteArray("Gleich").leftJustified(30, '\0'));
    same.replace(recordAt(1, 3, RecordBytes) + 30, 8, QByteArray(8, '\0'));
    dir.write(u"same.db"_s, same);
    EXPECT_EQ(storedColumn(dir.file(u"same.db"_s), 1),
              (QStringList{u"40"_s, u"23"_s, u"1.34"_s, QString(), u"-40"_s}));
    EXPECT_EQ(primaryKeyColumn(dir.file(u"same.db"_s), 1),
              (QStringList{QString(), u"-40"_s, u"1.34"_s, u"23"_s, u"40"_s}));

    // The table's sort order is a language's (0x62 in its header): small and capital letters and
    // letters with accents sort together.
    ASSERT_EQ(good[0x29], char(0x62));
    QByteArray cases = good;
    cases.replace(recordAt(1, 0, RecordBytes), 3, "aaa");
    cases.replace(recordAt(1, 1, RecordBytes), 1, "e");
    swapRecords(cases, recordAt(1, 0, RecordBytes), recordAt(1, 4, RecordBytes), RecordBytes);
    dir.write(u"cases.db"_s, cases);
    EXPECT_EQ(primaryKeyColumn(dir.file(u"cases.db"_s), 0),
              (QStringList{u"aaa Irgendein Text"_s, u"erste Zeile"_s, u"F\u00fcnfter Datensatz"_s,
                           u"Null-Werte"_s, u"Zweite Zeile"_s}));
    // In the "ascii" order the capitals come first.
    cases[0x29] = 0;
    dir.write(u"cases.db"_s, cases);
    EXPECT_EQ(primaryKeyColumn(dir.file(u"cases.db"_s), 0),
              (QStringList{u"F\u00fcnfter Datensatz"_s, u"Null-Werte"_s, u"Zweite Zeile"_s,
                           u"aaa Irgendein Text"_s, u"erste Zeile"_s}));
}

TEST_F(ParadoxReader, ADamagedChainOrIndexLeavesTheStoredOrder) {
    QByteArray disordered = bytesOf(paradox(u"AREACODE.DB"_s));
    swapRecords(disordered, recordAt(1, 0, 56), recordAt(1, 5, 56), 56);
    TempFolder dir;
    dir.write(u"AREACODE.PX"_s, QByteArray(3072, char(0xFF))); // an index of nothing readable

    // The chain misses the second block: its records are not where the header counts them.
    QByteArray skipping = disordered;
    link(skipping, {1, 3, 4});
    // The first block claims more records than it can hold.
    QByteArray overfull = disordered;
    putShort(overfull, blockAt(1) + 4, 40 * 56);
    // The header counts more records than the chain holds.
    QByteArray overcounted = disordered;
    putShort(overcounted, 6, 200);
    for (const QByteArray& table : {skipping, overfull, overcounted}) {
        dir.write(u"AREACODE.DB"_s, table);
        const QStringList stored = storedColumn(dir.file(u"AREACODE.DB"_s), 0);
        ASSERT_FALSE(stored.isEmpty());
        EXPECT_EQ(primaryKeyColumn(dir.file(u"AREACODE.DB"_s), 0), stored);
    }
    // The damaged index alone changes nothing: the order is the table's own.
    dir.write(u"AREACODE.DB"_s, disordered);
    EXPECT_EQ(primaryKeyColumn(dir.file(u"AREACODE.DB"_s), 0).first(2),
              (QStringList{u"201"_s, u"202"_s}));
}
