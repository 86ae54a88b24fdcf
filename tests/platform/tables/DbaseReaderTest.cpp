#include "platform/tables/DbaseIndex.h"
#include "platform/tables/TableReader.h"

#include "support/DamagedTables.h"
#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QString generatedTables() {
    return QStringLiteral(QUORVANE_GENERATED_TABLES);
}

QString sharedFixtures() {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES);
}

TableReader::Opened openDbase(const QString& path) {
    return TableReader::open(u"dBASE 5.0;"_s, path, QString());
}

QList<QStringList> allRows(TableReader& reader, const QString& index) {
    std::unique_ptr<TableRows> rows = reader.rows(reader.tableDefs().first().name, index);
    QList<QStringList> all;
    for (qint64 i = 0; i < rows->count(); ++i)
        all.append(rows->row(i));
    return all;
}

// The rows sorted by one column, rows of equal keys in stored order.
QList<QStringList> sortedBy(QList<QStringList> rows, int column, bool numeric) {
    std::stable_sort(rows.begin(), rows.end(), [&](const QStringList& a, const QStringList& b) {
        if (numeric)
            return a[column].toDouble() < b[column].toDouble();
        return a[column] < b[column];
    });
    return rows;
}

// The first cells of the rows, which tell the rows apart.
std::string codes(const QList<QStringList>& rows) {
    QStringList first;
    for (const QStringList& row : rows)
        first.append(row.value(0));
    return first.join(u' ').toStdString();
}

// Copies the files into the folder under the same names.
void copyInto(const TempFolder& dir, const QStringList& paths) {
    for (const QString& path : paths)
        dir.write(QFileInfo(path).fileName(), bytesOf(path));
}

} // namespace

TEST(DbaseReader, ReadsTheFieldsTypesAndRowsThatPythonDbfWrote) {
    const QString path = QDir(generatedTables()).filePath(u"SALES.DBF"_s);
    ASSERT_TRUE(QFileInfo::exists(path)) << "the test tables were not made";
    const QByteArray before = bytesOf(path);
    {
        TableReader::Opened opened = TableReader::open(u"dBASE 5.0;"_s, path, QString());
        ASSERT_FALSE(opened.error) << opened.error.number();
        const QList<TableDef> defs = opened.reader->tableDefs();
        ASSERT_EQ(defs.size(), 1);
        const QList<TableField>& fields = defs.first().fields;
        ASSERT_EQ(fields.size(), 6);
        EXPECT_EQ(fields[0].name, u"NAME"_s);
        EXPECT_EQ(fields[0].size, 20);
        const auto types = {TableTypes::Text, TableTypes::Long,    TableTypes::Double,
                            TableTypes::Date, TableTypes::Boolean, TableTypes::Memo};
        for (int i = 0; const auto type : types)
            EXPECT_EQ(fields[i++].type, type) << i;

        std::unique_ptr<TableRows> rows = opened.reader->rows(defs.first().name, QString());
        ASSERT_EQ(rows->count(), 3);
        EXPECT_EQ(rows->row(0), (QStringList{u"Widget"_s, u"12"_s, u"2.50"_s, u"20240301"_s, u"T"_s,
                                             u"First order of the year"_s}));
        EXPECT_EQ(rows->row(1)[5], QString()); // an empty memo
        EXPECT_EQ(rows->row(2)[0], u"Sprocket"_s);
        EXPECT_EQ(rows->row(2)[5], u"Bulk\r\nsecond line"_s);
        EXPECT_TRUE(rows->row(3).isEmpty());
    }
    EXPECT_EQ(bytesOf(path), before); // reading changes nothing
}

TEST(DbaseReader, FindsTheMemoFileWhateverItsLetterCase) {
    if (!QFileInfo(sharedFixtures()).isDir())
        GTEST_SKIP() << "the shared fixtures folder is absent: " << sharedFixtures().toStdString();
    // A memo of the first row of each: dBASE III, dBASE III+ and dBASE IV memo files.
    const QList<std::pair<QString, QString>> samples{
        {u"dbase/class.DBF"_s, u"Intro class"_s},
        {u"dbase/dbase_83.dbf"_s, u"Our Original assortment...a little taste of heaven"_s},
        {u"dbase/dbase_8b.dbf"_s, u"First memo"_s}};
    for (const auto& [name, memo] : samples) {
        const QString path = sharedFixtures() + u'/' + name;
        TableReader::Opened opened = TableReader::open(u"dBASE 5.0;"_s, path, QString());
        ASSERT_FALSE(opened.error) << name.toStdString();
        const TableDef def = opened.reader->tableDefs().first();
        EXPECT_FALSE(def.fields.isEmpty()) << name.toStdString();
        std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
        EXPECT_GT(rows->count(), 0) << name.toStdString();
        const QStringList first = rows->row(0);
        EXPECT_EQ(first.size(), def.fields.size()) << name.toStdString();
        const qsizetype memoField =
            std::find_if(def.fields.cbegin(), def.fields.cend(),
                         [](const TableField& field) { return field.type == TableTypes::Memo; }) -
            def.fields.cbegin();
        EXPECT_TRUE(first.value(memoField).startsWith(memo))
            << name.toStdString() << ": " << first.value(memoField).left(80).toStdString();
    }
}

TEST(DbaseReader, AMissingOrEmptyTableFails) {
    TempFolder dir;
    EXPECT_EQ(openDbase(dir.file(u"none.dbf"_s)).error.number(), 53);
    dir.write(u"empty.dbf"_s, QByteArray());
    EXPECT_TRUE(openDbase(dir.file(u"empty.dbf"_s)).error);
}

TEST(DbaseReader, ListsTheNdxFilesOfATableAndReadsRowsInTheirOrder) {
    const QString path = QDir(generatedTables()).filePath(u"ITEMS.DBF"_s);
    ASSERT_TRUE(QFileInfo::exists(path)) << "the test tables were not made";
    const QByteArray before = bytesOf(path);
    const QByteArray ndxBefore = bytesOf(QDir(generatedTables()).filePath(u"itemname.ndx"_s));
    {
        TableReader::Opened opened = openDbase(path);
        ASSERT_FALSE(opened.error);
        const TableDef def = opened.reader->tableDefs().first();
        EXPECT_EQ(def.indexes, (QStringList{u"itemname"_s, u"itemstock"_s}));

        const QList<QStringList> stored = allRows(*opened.reader, QString());
        ASSERT_EQ(stored.size(), 20);
        const QList<QStringList> byName = allRows(*opened.reader, u"itemname"_s);
        EXPECT_EQ(codes(byName), codes(sortedBy(stored, 1, false)));
        EXPECT_EQ(byName.first()[1], u"Anchor"_s);
        EXPECT_EQ(byName.last()[1], u"bolt"_s); // keys compare as bytes
        // The number index holds equal keys out of record order: they come in record order.
        const QList<QStringList> byStock = allRows(*opened.reader, u"ITEMSTOCK"_s);
        EXPECT_EQ(codes(byStock), codes(sortedBy(stored, 2, true)));
        EXPECT_EQ(byStock.first(), stored.first());
        // No such index: the stored order.
        EXPECT_EQ(codes(allRows(*opened.reader, u"nothing"_s)), codes(stored));

        // The indexes beside it name fields SALES.DBF does not have.
        TableReader::Opened sales = openDbase(QDir(generatedTables()).filePath(u"SALES.DBF"_s));
        ASSERT_FALSE(sales.error);
        EXPECT_TRUE(sales.reader->tableDefs().first().indexes.isEmpty());
    }
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(bytesOf(QDir(generatedTables()).filePath(u"itemname.ndx"_s)), ndxBefore);
}

TEST(DbaseReader, AnInfFileNamesTheIndexesOfItsTable) {
    const QString generated = generatedTables();
    ASSERT_TRUE(QFileInfo::exists(generated + u"/ITEMS.DBF"_s)) << "the test tables were not made";
    TempFolder dir;
    copyInto(dir, {generated + u"/ITEMS.DBF"_s, generated + u"/itemname.ndx"_s,
                   generated + u"/itemstock.ndx"_s});
    dir.write(u"items.Inf"_s, "[dbase]\r\nndx1=ITEMSTOCK.NDX\r\nNDX2=GONE.NDX\r\n");
    TableReader::Opened opened = openDbase(dir.file(u"ITEMS.DBF"_s));
    ASSERT_FALSE(opened.error);
    EXPECT_EQ(opened.reader->tableDefs().first().indexes, QStringList{u"itemstock"_s});
    EXPECT_EQ(allRows(*opened.reader, u"itemstock"_s).first()[2], u"-5"_s);
}

TEST(DbaseReader, AnNdxBelongsToATableWhenItsKeyNamesOnlyItsFields) {
    const QStringList fields{u"ITEM"_s, u"STOCK"_s, u"SOLD"_s};
    EXPECT_TRUE(keyNamesOnlyFields(u"item"_s, fields));
    EXPECT_TRUE(keyNamesOnlyFields(u"UPPER(ITEM)+STR(STOCK, 5, 0)"_s, fields));
    EXPECT_TRUE(keyNamesOnlyFields(u"ITEM + \"NAME\" + DTOS(SOLD)"_s, fields));
    EXPECT_TRUE(keyNamesOnlyFields(u"items->ITEM"_s, fields));
    EXPECT_TRUE(keyNamesOnlyFields(u"IIF(STOCK > 0 .AND. .T., ITEM, 'x')"_s, fields));
    EXPECT_FALSE(keyNamesOnlyFields(u"ITEM+NAME"_s, fields));
    EXPECT_FALSE(keyNamesOnlyFields(u"DELETED()"_s, fields)); // names no field
    EXPECT_FALSE(keyNamesOnlyFields(QString(), fields));
}

TEST(DbaseReader, ReadsTheRowsOfTheRealSampleInItsNdxOrder) {
    if (!QFileInfo(sharedFixtures()).isDir())
        GTEST_SKIP() << "the shared fixtures folder is absent: " << sharedFixtures().toStdString();
    const QString path = sharedFixtures() + u"/dbase/class.DBF"_s;
    TableReader::Opened opened = openDbase(path);
    ASSERT_FALSE(opened.error);
    EXPECT_EQ(ndxKeyExpression(sharedFixtures() + u"/dbase/classId.ndx"_s), u"classId"_s);
    EXPECT_EQ(opened.reader->tableDefs().first().indexes, QStringList{u"classId"_s});
    // The index has a fourth key whose record is past the end of the table: it is left out.
    const QList<QStringList> rows = allRows(*opened.reader, u"classId"_s);
    QStringList ids;
    for (const QStringList& row : rows)
        ids.append(row.value(0));
    EXPECT_EQ(ids, (QStringList{u"JAVA10100"_s, u"JAVA10200"_s, u"JAVA501"_s}));
    EXPECT_EQ(rows.value(0).value(1), u"Introduction to JAVA"_s);
}

namespace {

void put32(QByteArray& file, qsizetype at, quint32 v) {
    qToLittleEndian(v, file.data() + at);
}
void put16(QByteArray& file, qsizetype at, quint16 v) {
    qToLittleEndian(v, file.data() + at);
}

// The record numbers (from zero) of the rows sorted by their second cell, in three parts: the
// leaves of a two-level tree. Within a part, records of equal keys come last first.
QList<QList<int>> leavesByName(const QList<QStringList>& stored) {
    QList<int> order(stored.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return stored[a][1] < stored[b][1]; });
    QList<QList<int>> leaves;
    const qsizetype per = (order.size() + 2) / 3;
    for (int l = 0; l < 3; ++l) {
        QList<int> part = order.mid(l * per, per);
        std::stable_sort(part.begin(), part.end(), [&](int a, int b) {
            return stored[a][1] < stored[b][1] || (stored[a][1] == stored[b][1] && a > b);
        });
        leaves.append(part);
    }
    return leaves;
}

QByteArray nameKey(const QList<QStringList>& stored, int record) {
    return stored[record][1].toLatin1().leftJustified(12, ' ');
}

// An NDX of key ITEM: a root branch on page 1 over leaves on pages 2 to 4. The last leaf also
// names a record past the end of the table and the first record again.
QByteArray makeNdx(const QList<QStringList>& stored) {
    QByteArray file(5 * 512, '\0');
    put32(file, 0, 1);
    put32(file, 4, 5);
    put16(file, 12, 12);
    put16(file, 14, 24);
    put16(file, 18, 20);
    std::memcpy(file.data() + 24, "ITEM", 4);
    const QList<QList<int>> leaves = leavesByName(stored);
    put32(file, 512, 2);
    for (int l = 0; l < 3; ++l) {
        QList<int> part = leaves[l];
        const qsizetype at = (l + 2) * 512;
        put32(file, 512 + 4 + l * 20, quint32(l + 2));
        if (l < 2)
            std::memcpy(file.data() + 512 + 12 + l * 20, nameKey(stored, part.last()).constData(),
                        12);
        QList<std::pair<quint32, QByteArray>> entries;
        for (int record : part)
            entries.append({quint32(record + 1), nameKey(stored, record)});
        if (l == 2) {
            entries.append({99, QByteArray(12, '~')});
            entries.append({1, QByteArray(12, '~')});
        }
        put32(file, at, quint32(entries.size()));
        for (qsizetype i = 0; i < entries.size(); ++i) {
            put32(file, at + 4 + i * 20 + 4, entries[i].first);
            std::memcpy(file.data() + at + 12 + i * 20, entries[i].second.constData(), 12);
        }
    }
    return file;
}

// A production MDX in the dBASE IV layout, blocks of two 512-byte pages: tag NAME (key ITEM)
// whose root branch has three leaves, and tag LOOPED whose root page points at itself.
QByteArray makeMdx(const QList<QStringList>& stored) {
    constexpr int Block = 1024;
    QByteArray file(14 * 512, '\0');
    file[0] = 2;
    put16(file, 20, 2);
    put16(file, 22, Block);
    file[24] = 1;
    file[25] = 48;
    file[26] = 32;
    put16(file, 28, 2);
    auto tag = [&](int slot, const char* name, quint32 headerPage, quint32 root) {
        const qsizetype at = 544 + slot * 32;
        put32(file, at, headerPage);
        std::memcpy(file.data() + at + 4, name, std::strlen(name));
        file[at + 20] = 'C';
        const qsizetype header = headerPage * 512;
        put32(file, header, root);
        put16(file, header + 12, 12);
        put16(file, header + 14, 50);
        put16(file, header + 18, 16);
        std::memcpy(file.data() + header + 24, "ITEM", 4);
    };
    tag(0, "NAME", 2, 4);
    tag(1, "LOOPED", 3, 12);
    const QList<QList<int>> leaves = leavesByName(stored);
    const quint32 pages[] = {6, 8, 10};
    put32(file, 4 * 512, 2);
    for (int l = 0; l < 3; ++l) {
        const QList<int>& part = leaves[l];
        const qsizetype at = pages[l] * 512;
        put32(file, at, quint32(part.size()));
        for (qsizetype i = 0; i < part.size(); ++i) {
            put32(file, at + 8 + i * 16, quint32(part[i] + 1));
            std::memcpy(file.data() + at + 12 + i * 16, nameKey(stored, part[i]).constData(), 12);
        }
        put32(file, 4 * 512 + 8 + l * 16, pages[l]);
        if (l < 2)
            std::memcpy(file.data() + 4 * 512 + 12 + l * 16,
                        nameKey(stored, part.last()).constData(), 12);
    }
    put32(file, 12 * 512, 1);
    put32(file, 12 * 512 + 8, 12);
    put32(file, 12 * 512 + 8 + 16, 12);
    return file;
}

} // namespace

TEST(DbaseReader, ReadsRowsInTheOrderOfBranchingNdxAndMdxTrees) {
    const QString generated = generatedTables();
    ASSERT_TRUE(QFileInfo::exists(generated + u"/ITEMS.DBF"_s)) << "the test tables were not made";
    TableReader::Opened items = openDbase(generated + u"/ITEMS.DBF"_s);
    ASSERT_FALSE(items.error);
    const QList<QStringList> stored = allRows(*items.reader, QString());
    const std::string byName = codes(sortedBy(stored, 1, false));

    TempFolder dir;
    dir.write(u"parts.dbf"_s, bytesOf(generated + u"/ITEMS.DBF"_s));
    dir.write(u"Parts.ndx"_s, makeNdx(stored));
    dir.write(u"PARTS.MDX"_s, makeMdx(stored));
    EXPECT_EQ(mdxTagNames(dir.file(u"PARTS.MDX"_s)), (QStringList{u"NAME"_s, u"LOOPED"_s}));
    TableReader::Opened opened = openDbase(dir.file(u"parts.dbf"_s));
    ASSERT_FALSE(opened.error);
    EXPECT_EQ(opened.reader->tableDefs().first().indexes,
              (QStringList{u"Parts"_s, u"NAME"_s, u"LOOPED"_s}));
    EXPECT_EQ(codes(allRows(*opened.reader, u"Parts"_s)), byName);
    EXPECT_EQ(codes(allRows(*opened.reader, u"NAME"_s)), byName);
    // A tree that loops is damaged: the stored order.
    EXPECT_EQ(codes(allRows(*opened.reader, u"LOOPED"_s)), codes(stored));

    // A tag table that claims more tags than it has slots is not read at all.
    QByteArray bad = makeMdx(stored);
    bad[28] = char(60);
    dir.write(u"PARTS.MDX"_s, bad);
    // A root page past the end of the file: the stored order.
    QByteArray lost = makeNdx(stored);
    put32(lost, 0, 4000);
    dir.write(u"Parts.ndx"_s, lost);
    TableReader::Opened damaged = openDbase(dir.file(u"parts.dbf"_s));
    ASSERT_FALSE(damaged.error);
    EXPECT_EQ(damaged.reader->tableDefs().first().indexes, QStringList{u"Parts"_s});
    EXPECT_EQ(codes(allRows(*damaged.reader, u"Parts"_s)), codes(stored));
}

TEST(DbaseReader, DamagedCopiesOfEveryFileEndInAnErrorOrSomeRows) {
    QList<QStringList> tables{
        {generatedTables() + u"/SALES.DBF"_s, generatedTables() + u"/SALES.DBT"_s},
        {generatedTables() + u"/ITEMS.DBF"_s, generatedTables() + u"/itemname.ndx"_s,
         generatedTables() + u"/itemstock.ndx"_s}};
    if (QFileInfo(sharedFixtures()).isDir()) {
        const QString dbase = sharedFixtures() + u"/dbase/"_s;
        tables.append({dbase + u"class.DBF"_s, dbase + u"class.dbt"_s, dbase + u"classId.ndx"_s});
        tables.append({dbase + u"dbase_83.dbf"_s, dbase + u"dbase_83.dbt"_s});
        tables.append({dbase + u"dbase_8b.dbf"_s, dbase + u"dbase_8b.dbt"_s});
    }
    for (const QStringList& files : tables) {
        for (const QString& damaged : files) {
            const QByteArray good = bytesOf(damaged);
            ASSERT_FALSE(good.isEmpty()) << damaged.toStdString();
            for (const auto& [what, bytes] :
                 damagedCopies(good, {{4, 8}, {16, 32}, {48, 2}, {80, 2}})) {
                TempFolder dir;
                copyInto(dir, files);
                dir.write(QFileInfo(damaged).fileName(), bytes);
                readEveryRow(dir, u"dBASE 5.0;"_s, QFileInfo(files.first()).fileName(),
                             QFileInfo(damaged).fileName().toStdString() + " " + what);
            }
        }
    }
}

// The parts of a dBASE header that a change below touches.
quint16 headerBytes(const QByteArray& table) {
    return qFromLittleEndian<quint16>(table.constData() + 8);
}

quint16 recordBytes(const QByteArray& table) {
    return qFromLittleEndian<quint16>(table.constData() + 10);
}

void setHeaderBytes(QByteArray& table, int value) {
    qToLittleEndian<quint16>(static_cast<quint16>(value), table.data() + 8);
}

void setRecordBytes(QByteArray& table, int value) {
    qToLittleEndian<quint16>(static_cast<quint16>(value), table.data() + 10);
}

// The field descriptors, 32 bytes each from byte 32.
char& fieldByte(QByteArray& table, int field, int at) {
    return table[32 + 32 * field + at];
}

int fieldCount(const QByteArray& table) {
    return (headerBytes(table) - 33) / 32;
}

TEST(DbaseReader, TablesWhoseHeaderOrFieldsLieAreRefused) {
    struct Lie {
        const char* what;
        void (*change)(QByteArray&);
    };
    const Lie lies[] = {
        {"record length one short", [](QByteArray& t) { setRecordBytes(t, recordBytes(t) - 1); }},
        {"record length one long", [](QByteArray& t) { setRecordBytes(t, recordBytes(t) + 1); }},
        {"record length 0", [](QByteArray& t) { setRecordBytes(t, 0); }},
        {"record length 65535", [](QByteArray& t) { setRecordBytes(t, 65535); }},
        {"first field one longer", [](QByteArray& t) { ++fieldByte(t, 0, 16); }},
        {"first field of length 0", [](QByteArray& t) { fieldByte(t, 0, 16) = 0; }},
        {"last field of length 255",
         [](QByteArray& t) { fieldByte(t, fieldCount(t) - 1, 16) = char(255); }},
        {"header one field longer", [](QByteArray& t) { setHeaderBytes(t, headerBytes(t) + 32); }},
        {"header one field shorter", [](QByteArray& t) { setHeaderBytes(t, headerBytes(t) - 32); }},
        {"header of 65535 bytes", [](QByteArray& t) { setHeaderBytes(t, 65535); }},
        {"header of 0 bytes", [](QByteArray& t) { setHeaderBytes(t, 0); }},
        {"header of 31 bytes", [](QByteArray& t) { setHeaderBytes(t, 31); }},
        {"field list without its end", [](QByteArray& t) { t[headerBytes(t) - 1] = 'A'; }},
        {"field of no type", [](QByteArray& t) { fieldByte(t, 0, 11) = 0; }},
        {"cut inside its header", [](QByteArray& t) { t.truncate(headerBytes(t) - 1); }},
    };
    QStringList tables{generatedTables() + u"/SALES.DBF"_s, generatedTables() + u"/ITEMS.DBF"_s};
    if (QFileInfo(sharedFixtures()).isDir())
        for (const char* name : {"dbase_83.dbf", "dbase_8b.dbf", "class.DBF"})
            tables.append(sharedFixtures() + u"/dbase/"_s + QString::fromLatin1(name));
    for (const QString& table : tables) {
        const QByteArray good = bytesOf(table);
        ASSERT_GT(good.size(), 64) << table.toStdString();
        for (const Lie& lie : lies) {
            QByteArray bytes = good;
            lie.change(bytes);
            TempFolder dir;
            dir.write(u"lies.dbf"_s, bytes);
            const std::string what = QFileInfo(table).fileName().toStdString() + ": " + lie.what;
            EXPECT_EQ(openDbase(dir.file(u"lies.dbf"_s)).error.number(), 75) << what;
            readEveryRow(dir, u"dBASE 5.0;"_s, u"lies.dbf"_s, what);
        }
        // The field addresses stored in the descriptors are not looked at: dBASE IV keeps
        // memory addresses there.
        QByteArray addresses = good;
        for (int field = 0; field < fieldCount(good); ++field)
            qToLittleEndian<quint32>(0xFFFFFFF0U, &fieldByte(addresses, field, 12));
        TempFolder dir;
        dir.write(u"good.dbf"_s, good);
        dir.write(u"addresses.dbf"_s, addresses);
        TableReader::Opened expected = openDbase(dir.file(u"good.dbf"_s));
        TableReader::Opened opened = openDbase(dir.file(u"addresses.dbf"_s));
        ASSERT_FALSE(expected.error) << table.toStdString();
        ASSERT_FALSE(opened.error) << table.toStdString();
        EXPECT_EQ(allRows(*opened.reader, QString()), allRows(*expected.reader, QString()))
            << table.toStdString();
    }
}

TEST(DbaseReader, ATableWhoseMemoFileIsMissingOpensWithEmptyMemos) {
    TempFolder dir;
    copyInto(dir, {generatedTables() + u"/SALES.DBF"_s});
    TableReader::Opened opened = openDbase(dir.file(u"SALES.DBF"_s));
    ASSERT_FALSE(opened.error) << opened.error.number();
    const QList<QStringList> rows = allRows(*opened.reader, QString());
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0][0], u"Widget"_s);
    for (const QStringList& row : rows)
        EXPECT_EQ(row[5], QString());
    readEveryRow(dir, u"dBASE 5.0;"_s, u"SALES.DBF"_s, "without its memo file");
}
