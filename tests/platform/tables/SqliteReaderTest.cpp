#include "platform/tables/TableReader.h"

#include "support/TempFolder.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// A database of another program, with a collation of its own, under an Access name.
QString makeDatabase(const TempFolder& dir) {
    const QString path = dir.file(u"Shop.MDB"_s);
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    sqlite3_create_collation(db, "SHOP_NOCASE", SQLITE_UTF8, nullptr,
                             [](void*, int an, const void* a, int bn, const void* b) {
                                 return QString::fromUtf8(static_cast<const char*>(a), an)
                                     .compare(QString::fromUtf8(static_cast<const char*>(b), bn),
                                              Qt::CaseInsensitive);
                             });
    sqlite3_exec(db,
                 "CREATE TABLE Items (ID INTEGER PRIMARY KEY, Name TEXT COLLATE SHOP_NOCASE, "
                 "Price REAL, Picture BLOB);"
                 "CREATE INDEX Items_Name ON Items (Name);"
                 "INSERT INTO Items (Name, Price, Picture) VALUES ('bolt', 2.5, x'00'), "
                 "('Anchor', 10, NULL), ('café', NULL, NULL);",
                 nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return path;
}

QStringList firstCells(TableReader& reader, const QString& index) {
    std::unique_ptr<TableRows> rows = reader.rows(u"Items"_s, index);
    QStringList cells;
    for (qint64 i = 0; i < rows->count(); ++i)
        cells.append(rows->row(i).value(1));
    return cells;
}

} // namespace

TEST(SqliteReader, ReadsAnSqliteFileWhateverItsNameSaysInTheOrderOfItsIndexes) {
    TempFolder dir;
    const QString path = makeDatabase(dir);
    const QByteArray before = dir.read(u"Shop.MDB"_s);
    {
        TableReader::Opened opened = TableReader::open(u"Access"_s, path, QString());
        ASSERT_FALSE(opened.error) << opened.error.number();
        const QList<TableDef> defs = opened.reader->tableDefs();
        ASSERT_EQ(defs.size(), 1);
        EXPECT_EQ(defs[0].indexes, QStringList{u"Items_Name"_s});
        QList<qint16> types;
        for (const TableField& field : defs[0].fields)
            types.append(field.type);
        EXPECT_EQ(types, (QList<qint16>{TableTypes::Long, TableTypes::Memo, TableTypes::Double,
                                        TableTypes::LongBinary}));
        EXPECT_EQ(firstCells(*opened.reader, QString()),
                  (QStringList{u"bolt"_s, u"Anchor"_s, u"café"_s}));
        EXPECT_EQ(firstCells(*opened.reader, u"Items_Name"_s),
                  (QStringList{u"Anchor"_s, u"bolt"_s, u"café"_s}));
        std::unique_ptr<TableRows> rows = opened.reader->rows(u"Items"_s, QString());
        EXPECT_EQ(rows->row(0), (QStringList{u"1"_s, u"bolt"_s, u"2.5"_s, QString()}));
        EXPECT_TRUE(rows->row(3).isEmpty());
    }
    EXPECT_EQ(dir.read(u"Shop.MDB"_s), before);

    // A copy cut after its header is refused, not read.
    dir.write(u"Cut.MDB"_s, before.left(120));
    EXPECT_EQ(TableReader::open(u"Access"_s, dir.file(u"Cut.MDB"_s), QString()).error.number(), 75);
}
