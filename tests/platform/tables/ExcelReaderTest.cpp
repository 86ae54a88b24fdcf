#include "platform/tables/BiffWorkbook.h"
#include "platform/tables/TableReader.h"

#include <QDir>
#include <QFileInfo>

#include <freexl.h>
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
    EXPECT_EQ(TableReader::open(u"Excel 8.0;"_s, path + u"-none.xls"_s, {}).error.number(), 53);
}

namespace {

QString sharedXls(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/xls/"_s + name;
}

// A cell's text as FreeXL gives it.
QString freexlText(const void* handle, unsigned int row, unsigned short column) {
    FreeXL_CellValue cell{};
    if (freexl_get_cell_value(handle, row, column, &cell) != FREEXL_OK)
        return {};
    switch (cell.type) {
    case FREEXL_CELL_INT:
        return QString::number(cell.value.int_value);
    case FREEXL_CELL_DOUBLE:
        return QString::number(cell.value.double_value, 'g', 15);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME:
        return QString::fromUtf8(cell.value.text_value);
    default:
        return {};
    }
}

QStringList fieldNames(const TableDef& def) {
    QStringList names;
    for (const TableField& field : def.fields)
        names.append(field.name);
    return names;
}

} // namespace

// Values checked against python3-xlrd's reading of the same files.
// FreeXL 1.0.6 finds no sheets in these two.
TEST(ExcelReader, ReadsWorkbooksWithUnicodeAndCodePageNames) {
    if (!QFileInfo::exists(sharedXls(u"Formate.xls"_s)))
        GTEST_SKIP() << "the shared Excel samples are absent";
    TableReader::Opened opened =
        TableReader::open(u"Excel 8.0;"_s, sharedXls(u"Formate.xls"_s), {});
    ASSERT_FALSE(opened.error);
    const QList<TableDef> defs = opened.reader->tableDefs();
    QStringList names;
    for (const TableDef& def : defs)
        names.append(def.name);
    EXPECT_EQ(names, (QStringList{u"Blätt1$"_s, u"ÖÄÜ$"_s, u"Blätt3$"_s, u"Formate$"_s}));

    // Dates and times by the cells' formats (a time of day alone where the format shows only
    // that); the field names are the first row, the number of fields the sheet's extent.
    EXPECT_EQ(fieldNames(defs[0]), (QStringList{u"Huber"_s, u"1907-07-03 00:00:00"_s, u"F3"_s}));
    EXPECT_EQ(defs[0].fields[1].type, TableTypes::Date);
    std::unique_ptr<TableRows> first = opened.reader->rows(u"Blätt1$"_s, QString());
    ASSERT_TRUE(first);
    ASSERT_EQ(first->count(), 9);
    EXPECT_EQ(first->row(0), (QStringList{u"Äcker"_s, u"2005-02-23 00:00:00"_s, QString()}));
    EXPECT_EQ(first->row(1), (QStringList{u"Öcker"_s, u"1988-05-03 00:00:00"_s, QString()}));
    EXPECT_EQ(first->row(2), (QStringList{u"Morgen"_s, u"06:34:00"_s, QString()}));
    EXPECT_EQ(first->row(4), (QStringList{u"Abends"_s, u"17:47:13"_s, QString()}));
    EXPECT_EQ(first->row(5), (QStringList{u"gut"_s, u"0.974"_s, QString()}));
    EXPECT_EQ(first->row(7), (QStringList{u"viel"_s, u"1000.3"_s, QString()}));
    EXPECT_TRUE(first->row(9).isEmpty());

    // C3:E5 merged: the value in its top-left cell, the others empty.
    std::unique_ptr<TableRows> merged = opened.reader->rows(u"ÖÄÜ"_s, QString());
    ASSERT_TRUE(merged);
    EXPECT_EQ(fieldNames(defs[1]), (QStringList{u"-100"_s, u"F2"_s, u"F3"_s, u"F4"_s, u"F5"_s}));
    ASSERT_EQ(merged->count(), 4);
    EXPECT_EQ(merged->row(1), (QStringList{{}, {}, u"MERGED CELLS"_s, {}, {}}));
    EXPECT_EQ(merged->row(2), QStringList(5, QString()));

    std::unique_ptr<TableRows> third = opened.reader->rows(u"Blätt3$"_s, QString());
    ASSERT_TRUE(third);
    ASSERT_EQ(third->count(), 11);
    EXPECT_EQ(defs[2].fields.value(0).name, u"100"_s);
    EXPECT_EQ(defs[2].fields.value(0).type, TableTypes::Double);
    EXPECT_EQ(third->row(10), QStringList{u"1200"_s});
    std::unique_ptr<TableRows> colours = opened.reader->rows(u"Formate$"_s, QString());
    ASSERT_TRUE(colours);
    EXPECT_EQ(colours->row(1), (QStringList{u"BLUE"_s, u"BLUE"_s}));
}

TEST(ExcelReader, DecodesAnExcel95WorkbookByItsMacCodePage) {
    const QString path = sharedXls(u"maccentraleurope.biff5.xls"_s);
    if (!QFileInfo::exists(path))
        GTEST_SKIP() << "the shared Excel samples are absent";
    TableReader::Opened opened = TableReader::open(u"Excel 5.0;"_s, path, {});
    ASSERT_FALSE(opened.error);
    const QList<TableDef> defs = opened.reader->tableDefs();
    ASSERT_EQ(defs.size(), 1);
    EXPECT_EQ(defs[0].name, u"Ärkusz1$"_s);
    const QStringList names = fieldNames(defs[0]);
    ASSERT_EQ(names.size(), 16);
    EXPECT_EQ(names[0], u"NumerPolisy"_s);
    EXPECT_EQ(names[8], u"Ładowność"_s);
    EXPECT_EQ(names[15], u"WycenaPojazdu"_s);
    std::unique_ptr<TableRows> rows = opened.reader->rows(defs[0].name, QString());
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->count(), 9); // the blank formatted rows below count, as the sheet's extent
    EXPECT_EQ(rows->row(0).mid(0, 5), (QStringList{u"JG1Y1250043"_s, u"0000001"_s, u"NO7963M"_s,
                                                   u"WK0S0002400189599"_s, QString()}));
    const QStringList second = rows->row(1);
    ASSERT_EQ(second.size(), 16);
    EXPECT_EQ(second[0], u"220695536930"_s);
    EXPECT_EQ(second[6], u"Octavia"_s);
    EXPECT_EQ(second[9], u"1598"_s);
    EXPECT_EQ(second[11], QString());
    EXPECT_EQ(second[14], u"2014-12-17"_s);
    EXPECT_EQ(second[15], u"12000"_s);
    EXPECT_EQ(rows->row(2), QStringList(16, QString()));
}

// The generated sheet with a merged block and empty cells; FreeXL checks our BIFF reader's cells
// of it below.
TEST(ExcelReader, MergedAndEmptyCellsOfAGeneratedSheet) {
    const QString path = QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(u"MERGED.XLS"_s);
    ASSERT_TRUE(QFileInfo::exists(path)) << "the test tables were not made";
    const QList<QStringList> expected{
        {u"1"_s, u"Joined"_s, {}, {}}, {u"2"_s, {}, {}, {}},
        {u"3"_s, {}, {}, u"last"_s},   {{}, {}, {}, {}},
        {{}, u"7.5"_s, {}, {}},
    };
    TableReader::Opened opened = TableReader::open(u"Excel 8.0;"_s, path, {});
    ASSERT_FALSE(opened.error);
    const TableDef def = opened.reader->tableDefs().value(0);
    EXPECT_EQ(def.name, u"Grid$"_s);
    EXPECT_EQ(fieldNames(def), (QStringList{u"Key"_s, u"Left"_s, u"Right"_s, u"Note"_s}));
    std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->count(), expected.size());
    for (qsizetype r = 0; r < expected.size(); ++r)
        EXPECT_EQ(rows->row(r), expected[r]) << "row " << r;
}

// Where FreeXL reads a workbook, our reader gives the same texts cell for cell.
TEST(ExcelReader, AgreesWithFreeXLWhereFreeXLReads) {
    QStringList paths{QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(u"BOOK.XLS"_s),
                      QDir(QStringLiteral(QUORVANE_GENERATED_TABLES)).filePath(u"MERGED.XLS"_s)};
    if (QFileInfo::exists(sharedXls(u"oocalc_simple95.xls"_s)))
        paths.append(sharedXls(u"oocalc_simple95.xls"_s));
    for (const QString& path : paths) {
        SCOPED_TRACE(path.toStdString());
        const void* handle = nullptr;
        ASSERT_EQ(freexl_open(QFile::encodeName(path).constData(), &handle), FREEXL_OK);
        QList<BiffWorkbook::Sheet> sheets;
        ASSERT_TRUE(BiffWorkbook::readFile(path, &sheets));
        unsigned int count = 0;
        freexl_get_info(handle, FREEXL_BIFF_SHEET_COUNT, &count);
        ASSERT_EQ(qsizetype(count), sheets.size());
        for (unsigned short s = 0; s < count; ++s) {
            const char* name = nullptr;
            freexl_get_worksheet_name(handle, s, &name);
            EXPECT_EQ(QString::fromUtf8(name), sheets[s].name);
            ASSERT_EQ(freexl_select_active_worksheet(handle, s), FREEXL_OK);
            unsigned int rows = 0;
            unsigned short columns = 0;
            freexl_worksheet_dimensions(handle, &rows, &columns);
            ASSERT_EQ(int(rows), sheets[s].rows);
            ASSERT_EQ(int(columns), sheets[s].columns);
            for (unsigned int r = 0; r < rows; ++r) {
                for (unsigned short c = 0; c < columns; ++c)
                    EXPECT_EQ(freexlText(handle, r, c), sheets[s].cell(int(r), c).text)
                        << r << "," << c;
            }
        }
        freexl_close(handle);
    }
}
