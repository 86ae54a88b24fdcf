#include "platform/tables/TableRecordset.h"
#include "platform/tables/TableGridModel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString generatedTables() {
    return QStringLiteral(QUORVANE_GENERATED_TABLES);
}

QString sharedFile(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u'/' + name;
}

std::unique_ptr<TableRecordset> openSales() {
    TableRecordset::Opened opened =
        TableRecordset::open(u"dBASE 5.0;"_s, generatedTables(), u"SALES.DBF"_s);
    EXPECT_FALSE(opened.error) << opened.error.number();
    return std::move(opened.recordset);
}

} // namespace

TEST(TableRecordset, ADbaseRecordSourceIsTheFileInTheDatabaseFolder) {
    std::unique_ptr<TableRecordset> sales = openSales();
    ASSERT_TRUE(sales);
    EXPECT_EQ(sales->RecordCount(), 3);
    EXPECT_TRUE(sales->row(3).isEmpty());
    EXPECT_TRUE(sales->row(-1).isEmpty());

    // A record source that is not there, or none at all, is item not found.
    EXPECT_EQ(
        TableRecordset::open(u"dBASE 5.0;"_s, generatedTables(), u"NONE.DBF"_s).error.number(), 53);
    EXPECT_EQ(TableRecordset::open(u"Access"_s, generatedTables(), QString()).error.number(), 3265);
}

TEST(TableRecordset, MovesStopAtTheEdgesOfTheTable) {
    std::unique_ptr<TableRecordset> sales = openSales();
    ASSERT_TRUE(sales);
    EXPECT_EQ(sales->AbsolutePosition(), 0);
    EXPECT_FALSE(sales->isBOF());
    sales->MovePrevious();
    EXPECT_TRUE(sales->isBOF());
    sales->MovePrevious();
    EXPECT_EQ(sales->AbsolutePosition(), -1);
    sales->MoveLast();
    EXPECT_EQ(sales->AbsolutePosition(), 2);
    EXPECT_FALSE(sales->isEOF());
    sales->MoveNext();
    EXPECT_TRUE(sales->isEOF());
    sales->MoveNext();
    EXPECT_EQ(sales->AbsolutePosition(), 3);
    sales->MoveFirst();
    EXPECT_EQ(sales->AbsolutePosition(), 0);
}

TEST(TableRecordset, AnUnknownIndexLeavesTheOrderAsItWas) {
    std::unique_ptr<TableRecordset> sales = openSales();
    ASSERT_TRUE(sales);
    EXPECT_EQ(sales->setIndex(u"NoSuchIndex"_s).number(), 3265);
    EXPECT_EQ(sales->Index(), QString());
    EXPECT_EQ(sales->row(0).value(0), u"Widget"_s);
    EXPECT_FALSE(sales->setIndex(QString()));
}

TEST(TableRecordset, TheAccessPasswordIsReadFromTheConnectString) {
    EXPECT_EQ(TableRecordset::passwordOf(u";pwd=secret"_s), u"secret"_s);
    EXPECT_EQ(TableRecordset::passwordOf(u"Access;PWD=a b;x=1"_s), u"a b"_s);
    EXPECT_EQ(TableRecordset::passwordOf(u"Access"_s), QString());
    EXPECT_EQ(TableRecordset::passwordOf(u";pwd="_s), QString());
}

TEST(TableRecordset, AnAccessTableIsChosenByNameWhateverItsLetterCase) {
    const QString file = sharedFile(u"mdb/testV1997.mdb"_s);
    if (!QFileInfo::exists(file))
        GTEST_SKIP() << "the shared Access samples are absent: " << file.toStdString();
    TableRecordset::Opened opened = TableRecordset::open(u"Access"_s, file, u"table2"_s);
    ASSERT_FALSE(opened.error) << opened.error.number();
    EXPECT_EQ(opened.recordset->table().name, u"Table2"_s);
    EXPECT_EQ(opened.recordset->fields().size(), 89);
    EXPECT_EQ(TableRecordset::open(u"Access"_s, file, u"Table9"_s).error.number(), 3265);
}

TEST(TableRecordset, RowsReadInAnyOrderComeOutTheSameAsInOrder) {
    const QString file = QDir(generatedTables()).filePath(u"MANY.DBF"_s);
    if (!QFileInfo::exists(file))
        GTEST_SKIP() << "MANY.DBF was not made";
    TableRecordset::Opened opened =
        TableRecordset::open(u"dBASE 5.0;"_s, generatedTables(), u"MANY.DBF"_s);
    ASSERT_FALSE(opened.error);
    TableRecordset& many = *opened.recordset;
    const qint64 count = many.RecordCount();
    ASSERT_GT(count, TableRecordset::BlockRows * (TableRecordset::KeptBlocks + 2));
    // Each record holds its number as its key. Far apart, backwards and back again: more
    // blocks than are kept.
    auto key = [](qint64 i) { return u"R%1"_s.arg(i, 6, 10, QChar(u'0')); };
    for (qint64 i = 0; i < count; ++i)
        ASSERT_EQ(many.row(i).value(0), key(i)) << i;
    for (qint64 i = count - 1; i >= 0; i -= 97)
        ASSERT_EQ(many.row(i).value(0), key(i)) << i;
    for (qint64 i : {qint64(0), count / 2, count - 1, qint64(1), count - 2})
        ASSERT_EQ(many.row(i).value(0), key(i)) << i;
}

TEST(TableGridModel, ShowsTheFieldsAsColumnsAndTheRecordsAsRows) {
    std::unique_ptr<TableRecordset> sales = openSales();
    ASSERT_TRUE(sales);
    TableGridModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.rowCount(), 0);
    model.setRows(sales.get());
    EXPECT_EQ(model.headerData(5, Qt::Horizontal).toString(), u"NOTES"_s);
    EXPECT_FALSE(model.flags(model.index(0, 0)).testFlag(Qt::ItemIsEditable));

    // One cell carries colours of its own until another takes them.
    model.setCellColors(1, 1, Qt::black, Qt::white);
    EXPECT_EQ(model.index(1, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::black));
    EXPECT_EQ(model.index(1, 1).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
    model.setCellColors(2, 0, Qt::red, Qt::green);
    EXPECT_FALSE(model.index(1, 1).data(Qt::BackgroundRole).isValid());
    model.setCellColors(-1, 0, {}, {});
    EXPECT_FALSE(model.index(2, 0).data(Qt::BackgroundRole).isValid());

    model.setRows(nullptr);
    EXPECT_EQ(model.columnCount(), 0);
}
