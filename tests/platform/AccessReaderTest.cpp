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

QByteArray headerOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(2048) : QByteArray();
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
    EXPECT_EQ(AccessReader::storedPassword(headerOf(mdb(u"V2003_with-password.mdb"_s))),
              u"password"_s);
    EXPECT_EQ(AccessReader::storedPassword(headerOf(mdb(u"adox_jet4.mdb"_s))), QString());
    EXPECT_EQ(AccessReader::storedPassword(headerOf(mdb(u"testV1997.mdb"_s))), QString());

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
