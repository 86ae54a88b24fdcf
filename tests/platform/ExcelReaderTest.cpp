#include "platform/tables/TableReader.h"

#include "support/TempFolder.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ExcelReader, EachSheetIsATableWithItsFirstRowAsFieldNames) {
    const QString path = QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(u"BOOK.XLS"_s);
    ASSERT_TRUE(QFileInfo::exists(path)) << "the test tables were not made";
    TableReader::Opened opened = TableReader::open(u"Excel 8.0;"_s, path, {});
    ASSERT_FALSE(opened.error);
    const QList<TableDef> defs = opened.reader->tableDefs();
    ASSERT_EQ(defs.size(), 2);
    EXPECT_EQ(defs[0].name, u"Prices$"_s);
    EXPECT_EQ(defs[1].name, u"People$"_s);
    ASSERT_EQ(defs[0].fields.size(), 3);
    EXPECT_EQ(defs[0].fields[0].name, u"Item"_s);
    EXPECT_EQ(defs[0].fields[0].type, TableTypes::Text);
    EXPECT_EQ(defs[0].fields[1].type, TableTypes::Double);

    std::unique_ptr<TableRows> prices = opened.reader->rows(u"Prices$"_s, QString());
    ASSERT_TRUE(prices);
    ASSERT_EQ(prices->count(), 2);
    EXPECT_EQ(prices->row(0), (QStringList{u"Widget"_s, u"2.5"_s, u"12"_s}));
    EXPECT_EQ(prices->row(1), (QStringList{u"Gadget"_s, u"19.99"_s, u"3"_s}));
    std::unique_ptr<TableRows> people = opened.reader->rows(u"people"_s, QString());
    ASSERT_TRUE(people);
    EXPECT_EQ(people->row(0), QStringList{u"Zoë"_s});
    EXPECT_FALSE(opened.reader->rows(u"Nowhere$"_s, QString()));
}

TEST(ExcelReader, ReadsAWorkbookOfAnotherSpreadsheetProgram) {
    const QString path = QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/xls/oocalc_simple95.xls"_s;
    if (!QFileInfo::exists(path))
        GTEST_SKIP() << "the shared Excel samples are absent";
    TableReader::Opened opened = TableReader::open(u"Excel 8.0;"_s, path, {});
    ASSERT_FALSE(opened.error);
    const TableDef def = opened.reader->tableDefs().value(0);
    EXPECT_EQ(def.name, u"Sheet1$"_s);
    EXPECT_EQ(def.fields.value(0).name, u"Col 1"_s);
    std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->row(0).value(0), u"A"_s);
    EXPECT_EQ(rows->row(0).value(6), u"1967-03-11 00:00:00"_s);
}

TEST(ExcelReader, DamagedWorkbooksFailOrReadWithoutACrash) {
    TempFolder dir;
    EXPECT_EQ(TableReader::open(u"Excel 8.0;"_s, dir.file(u"none.xls"_s), {}).error.number(), 53);
    QFile file(QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(u"BOOK.XLS"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray good = file.readAll();
    for (qsizetype cut : {qsizetype(0), qsizetype(512), good.size() / 2, good.size() - 3}) {
        dir.write(u"cut.xls"_s, good.left(cut));
        TableReader::Opened opened = TableReader::open(u"Excel 8.0;"_s, dir.file(u"cut.xls"_s), {});
        if (opened.error)
            continue;
        for (const TableDef& def : opened.reader->tableDefs()) {
            if (auto rows = opened.reader->rows(def.name, QString()))
                for (qint64 i = 0; i < std::min<qint64>(rows->count(), 10); ++i)
                    rows->row(i);
        }
    }
}
