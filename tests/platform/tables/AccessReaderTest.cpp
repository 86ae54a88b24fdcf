#include "platform/tables/AccessReader.h"

#include "support/TempFolder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString mdb(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/mdb/"_s + name;
}

bool haveSamples() {
    return QFileInfo(mdb(u"testV1997.mdb"_s)).isFile();
}

} // namespace

TEST(AccessReader, ReadsAJet3DatabasesTablesFieldsAndRows) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Access samples are absent";
    TableReader::Opened opened = TableReader::open(u"Access"_s, mdb(u"testV1997.mdb"_s), {});
    ASSERT_FALSE(opened.error);
    const QList<TableDef> defs = opened.reader->tableDefs();
    QStringList user;
    for (const TableDef& def : defs) {
        if (!(def.attributes & static_cast<qint32>(0x80000002U)))
            user.append(def.name);
    }
    EXPECT_EQ(user, (QStringList{u"Table1"_s, u"Table2"_s, u"Table3"_s, u"Table4"_s}));
    EXPECT_GT(defs.size(), user.size()); // the system tables are there, marked

    const TableDef& table1 = *std::find_if(defs.begin(), defs.end(),
                                           [](const TableDef& d) { return d.name == u"Table1"_s; });
    ASSERT_EQ(table1.fields.size(), 9);
    const QList<qint16> types{10, 10, 2, 3, 4, 7, 8, 5, 1};
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(table1.fields[i].type, types[i]) << i;
    EXPECT_EQ(table1.fields[1].size, 100);
    EXPECT_TRUE(table1.indexes.contains(u"PrimaryKey"_s));

    std::unique_ptr<TableRows> rows = opened.reader->rows(u"table1"_s, QString());
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->count(), 2);
    const QStringList second = rows->row(1);
    EXPECT_EQ(second.value(0), u"abcdefg"_s);
    EXPECT_EQ(second.value(4), u"333333333"_s);
    EXPECT_EQ(second.value(6), u"1974-09-21 00:00:00"_s);
    EXPECT_EQ(rows->row(0).value(0), u"a"_s); // back to the first row
    EXPECT_TRUE(rows->row(2).isEmpty());
}

TEST(AccessReader, ThePasswordIsCheckedAgainstTheFile) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Access samples are absent";
    EXPECT_EQ(AccessReader::storedPassword(bytesOf(mdb(u"V2003_with-password.mdb"_s)).left(2048)),
              u"password"_s);
    EXPECT_EQ(AccessReader::storedPassword(bytesOf(mdb(u"adox_jet4.mdb"_s)).left(2048)), QString());
    EXPECT_EQ(AccessReader::storedPassword(bytesOf(mdb(u"testV1997.mdb"_s)).left(2048)), QString());

    const QString locked = mdb(u"V2003_with-password.mdb"_s);
    EXPECT_EQ(TableReader::open(u"Access"_s, locked, QString()).error.number(), 3031);
    EXPECT_EQ(TableReader::open(u"Access"_s, locked, u"Password"_s).error.number(), 3031);
    TableReader::Opened opened = TableReader::open(u"Access"_s, locked, u"password"_s);
    ASSERT_FALSE(opened.error);
    std::unique_ptr<TableRows> rows = opened.reader->rows(u"Table1"_s, QString());
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->row(0), (QStringList{u"1"_s, u"One"_s}));
    // A database without a password refuses one.
    EXPECT_EQ(TableReader::open(u"Access"_s, mdb(u"adox_jet4.mdb"_s), u"x"_s).error.number(), 3031);
}

TEST(AccessReader, MissingShortOrForeignFilesFailQuietly) {
    TempFolder dir;
    EXPECT_EQ(TableReader::open(u"Access"_s, dir.file(u"none.mdb"_s), {}).error.number(), 53);
    dir.write(u"short.mdb"_s, "Standard Jet DB");
    EXPECT_TRUE(TableReader::open(u"Access"_s, dir.file(u"short.mdb"_s), {}).error);
    dir.write(u"text.mdb"_s, QByteArray(8192, 'x'));
    EXPECT_TRUE(TableReader::open(u"Access"_s, dir.file(u"text.mdb"_s), {}).error);
}

namespace {

QList<QStringList> allRows(TableRows& rows) {
    QList<QStringList> all;
    for (qint64 i = 0; i < rows.count(); ++i)
        all.append(rows.row(i));
    return all;
}

} // namespace

// In an index's order the rows are those of the stored order, sorted by the index's columns:
// checked against mdb-export's rows sorted by those columns.
TEST(AccessReader, RowsInTheOrderOfAnIndex) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Access samples are absent";
    TableReader::Opened opened = TableReader::open(u"Access"_s, mdb(u"testV1997.mdb"_s), {});
    ASSERT_FALSE(opened.error);
    const TableDef objects = [&] {
        for (const TableDef& def : opened.reader->tableDefs())
            if (def.name == u"MSysObjects"_s)
                return def;
        return TableDef();
    }();
    EXPECT_EQ(objects.indexes, (QStringList{u"Id"_s, u"ParentIdName"_s}));

    std::unique_ptr<TableRows> stored = opened.reader->rows(u"MSysObjects"_s, QString());
    std::unique_ptr<TableRows> byId = opened.reader->rows(u"MSysObjects"_s, u"Id"_s);
    std::unique_ptr<TableRows> byParent = opened.reader->rows(u"MSysObjects"_s, u"parentidname"_s);
    ASSERT_TRUE(stored && byId && byParent);
    ASSERT_EQ(stored->count(), 22);
    ASSERT_EQ(byId->count(), 22);
    ASSERT_EQ(byParent->count(), 22);
    QStringList names;
    for (qint64 i = 0; i < 9; ++i)
        names.append(byParent->row(i).value(2));
    EXPECT_EQ(names, (QStringList{u"DataAccessPages"_s, u"Databases"_s, u"Forms"_s, u"Modules"_s,
                                  u"Relationships"_s, u"Reports"_s, u"Scripts"_s, u"SysRel"_s,
                                  u"Tables"_s}));
    EXPECT_EQ(byParent->row(21).value(2), u"UserDefined"_s);

    // The same rows sorted by their id, each read at its place backwards and forwards; reading
    // one order leaves the other where it was.
    QList<QStringList> sorted = allRows(*stored);
    std::sort(sorted.begin(), sorted.end(), [](const QStringList& a, const QStringList& b) {
        return a.value(0).toLongLong() < b.value(0).toLongLong();
    });
    EXPECT_EQ(sorted.first().value(0), u"-2147483648"_s);
    EXPECT_EQ(sorted.last().value(0), u"268435456"_s);
    QList<QStringList> backwards;
    for (qint64 i = byId->count() - 1; i >= 0; --i)
        backwards.prepend(byId->row(i));
    EXPECT_EQ(backwards, sorted);
    EXPECT_EQ(stored->row(3).value(2), u"MSysDb"_s);
    EXPECT_EQ(allRows(*byId), sorted);
    EXPECT_EQ(stored->row(4).value(2), u"MSysObjects"_s);

    EXPECT_FALSE(opened.reader->rows(u"MSysObjects"_s, u"NoSuchIndex"_s));
    std::unique_ptr<TableRows> table1 = opened.reader->rows(u"Table1"_s, u"B"_s);
    ASSERT_TRUE(table1);
    EXPECT_EQ(table1->row(1).value(1), u"hijklmnop"_s);
    std::unique_ptr<TableRows> empty = opened.reader->rows(u"Table2"_s, u"PrimaryKey"_s);
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->count(), 0);
}

TEST(AccessReader, IndexOrderInJet4Databases) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Access samples are absent";
    TableReader::Opened jet4 = TableReader::open(u"Access"_s, mdb(u"adox_jet4.mdb"_s), {});
    ASSERT_FALSE(jet4.error);
    // MSysACEs by ObjectId: the key repeats, so only the order of the keys is fixed.
    std::unique_ptr<TableRows> stored = jet4.reader->rows(u"MSysACEs"_s, QString());
    std::unique_ptr<TableRows> byObject = jet4.reader->rows(u"MSysACEs"_s, u"ObjectId"_s);
    ASSERT_TRUE(stored && byObject);
    ASSERT_EQ(byObject->count(), stored->count());
    QList<QStringList> expected = allRows(*stored);
    QList<QStringList> ordered = allRows(*byObject);
    QList<qint64> keys;
    for (const QStringList& row : ordered)
        keys.append(row.value(0).toLongLong());
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
    std::sort(expected.begin(), expected.end());
    std::sort(ordered.begin(), ordered.end());
    EXPECT_EQ(ordered, expected);

    std::unique_ptr<TableRows> objects = jet4.reader->rows(u"MSysObjects"_s, u"ParentIdName"_s);
    ASSERT_TRUE(objects);
    ASSERT_EQ(objects->count(), 8);
    for (qint64 i = 1; i < objects->count(); ++i) {
        const QStringList a = objects->row(i - 1);
        const QStringList b = objects->row(i);
        const qint64 pa = a.value(1).toLongLong();
        const qint64 pb = b.value(1).toLongLong();
        EXPECT_TRUE(pa < pb ||
                    (pa == pb && a.value(2).compare(b.value(2), Qt::CaseInsensitive) < 0))
            << a.value(2).toStdString() << " before " << b.value(2).toStdString();
    }

    TableReader::Opened locked =
        TableReader::open(u"Access"_s, mdb(u"V2003_with-password.mdb"_s), u"password"_s);
    ASSERT_FALSE(locked.error);
    std::unique_ptr<TableRows> byKey = locked.reader->rows(u"Table1"_s, u"PrimaryKey"_s);
    ASSERT_TRUE(byKey);
    EXPECT_EQ(allRows(*byKey),
              (QList<QStringList>{{u"1"_s, u"One"_s}, {u"2"_s, u"Two"_s}, {u"3"_s, u"Three"_s}}));
}
