#include "platform/tables/TableReader.h"

#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString generatedTables() {
    return QStringLiteral(QUORVANE_GENERATED_TABLES);
}

QString sharedFixtures() {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES);
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        EXPECT_EQ(fields[0].type, TableTypes::Text);
        EXPECT_EQ(fields[0].size, 20);
        EXPECT_EQ(fields[1].type, TableTypes::Long);
        EXPECT_EQ(fields[2].type, TableTypes::Double);
        EXPECT_EQ(fields[3].type, TableTypes::Date);
        EXPECT_EQ(fields[4].type, TableTypes::Boolean);
        EXPECT_EQ(fields[5].type, TableTypes::Memo);

        std::unique_ptr<TableRows> rows = opened.reader->rows(defs.first().name, QString());
        ASSERT_EQ(rows->count(), 3);
        const QStringList first = rows->row(0);
        ASSERT_EQ(first.size(), 6);
        EXPECT_EQ(first[0], u"Widget"_s);
        EXPECT_EQ(first[1], u"12"_s);
        EXPECT_EQ(first[2], u"2.50"_s);
        EXPECT_EQ(first[3], u"20240301"_s);
        EXPECT_EQ(first[4], u"T"_s);
        EXPECT_EQ(first[5], u"First order of the year"_s);
        EXPECT_EQ(rows->row(2)[0], u"Sprocket"_s);
        EXPECT_TRUE(rows->row(3).isEmpty());
    }
    EXPECT_EQ(bytesOf(path), before); // reading changes nothing
}

TEST(DbaseReader, FindsTheMemoFileWhateverItsLetterCase) {
    if (!QFileInfo(sharedFixtures()).isDir())
        GTEST_SKIP() << "the shared fixtures folder is absent: " << sharedFixtures().toStdString();
    for (const QString& name :
         {u"dbase/class.DBF"_s, u"dbase/dbase_83.dbf"_s, u"dbase/dbase_8b.dbf"_s}) {
        const QString path = sharedFixtures() + u'/' + name;
        TableReader::Opened opened = TableReader::open(u"dBASE 5.0;"_s, path, QString());
        ASSERT_FALSE(opened.error) << name.toStdString();
        const TableDef def = opened.reader->tableDefs().first();
        EXPECT_FALSE(def.fields.isEmpty()) << name.toStdString();
        std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
        EXPECT_GT(rows->count(), 0) << name.toStdString();
        EXPECT_EQ(rows->row(0).size(), def.fields.size()) << name.toStdString();
    }
}

TEST(DbaseReader, DamagedOrMissingTablesFailWithoutACrash) {
    TempFolder dir;
    EXPECT_EQ(TableReader::open(u"dBASE 5.0;"_s, dir.file(u"none.dbf"_s), QString()).error.number(),
              53);
    dir.write(u"empty.dbf"_s, QByteArray());
    EXPECT_TRUE(TableReader::open(u"dBASE 5.0;"_s, dir.file(u"empty.dbf"_s), QString()).error);
    const QByteArray good = bytesOf(QDir(generatedTables()).filePath(u"SALES.DBF"_s));
    for (qsizetype cut : {qsizetype(10), qsizetype(40), good.size() / 2, good.size() - 1}) {
        dir.write(u"cut.dbf"_s, good.left(cut));
        TableReader::Opened opened =
            TableReader::open(u"dBASE 5.0;"_s, dir.file(u"cut.dbf"_s), QString());
        if (opened.error)
            continue;
        std::unique_ptr<TableRows> rows =
            opened.reader->rows(opened.reader->tableDefs().first().name, QString());
        for (qint64 i = 0; i < std::min<qint64>(rows->count(), 10); ++i)
            rows->row(i);
    }
}
