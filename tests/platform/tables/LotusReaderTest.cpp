#include "platform/tables/LotusReader.h"

#include "support/TempFolder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QString lotus(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/lotus/"_s + name;
}
} // namespace

TEST(LotusReader, ReadsTheWorksheetsOfThreeReleases) {
    if (!QFileInfo::exists(lotus(u"PF.WK1"_s)))
        GTEST_SKIP() << "the shared Lotus samples are absent";
    struct Case {
        const char16_t* file;
        qint64 rows;
        int fields;
    };
    for (const Case& c : {Case{u"PF.WK1", 99, 15}, Case{u"PEYTREND.WK3", 223, 5},
                          Case{u"testLotus123-lotusftp.wk4", 12, 8}}) {
        const QString path = lotus(QString::fromUtf16(c.file));
        TableReader::Opened opened = TableReader::open(u"Lotus WK4;"_s, path, {});
        ASSERT_FALSE(opened.error) << path.toStdString();
        const TableDef def = opened.reader->tableDefs().value(0);
        EXPECT_EQ(def.fields.size(), c.fields) << path.toStdString();
        std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
        ASSERT_TRUE(rows);
        EXPECT_EQ(rows->count(), c.rows) << path.toStdString();
    }
    TableReader::Opened wk4 =
        TableReader::open(u"Lotus WK4;"_s, lotus(u"testLotus123-lotusftp.wk4"_s), {});
    std::unique_ptr<TableRows> staff = wk4.reader->rows(u"Sheet1"_s, QString());
    EXPECT_EQ(staff->row(2).mid(2, 3), (QStringList{u"67543"_s, u"Mordocs"_s, u"Arthur"_s}));
}

TEST(LotusReader, CommaSeparatedTextKeepsQuotedCommasAndQuotes) {
    const QList<QStringList> rows =
        LotusReader::parseCsv(u"a,\"b, c\",\"say \"\"hi\"\"\"\r\n,,\n\"\",x"_s);
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0], (QStringList{u"a"_s, u"b, c"_s, u"say \"hi\""_s}));
    EXPECT_EQ(rows[1], (QStringList{QString(), QString(), QString()}));
    EXPECT_EQ(rows[2], (QStringList{QString(), u"x"_s}));
    EXPECT_TRUE(LotusReader::parseCsv(QString()).isEmpty());
}

TEST(LotusReader, OtherFilesAreRefused) {
    TempFolder dir;
    EXPECT_EQ(TableReader::open(u"Lotus WK4;"_s, dir.file(u"none.wk4"_s), {}).error.number(), 53);
    dir.write(u"text.wk4"_s, "not a worksheet at all");
    EXPECT_TRUE(TableReader::open(u"Lotus WK4;"_s, dir.file(u"text.wk4"_s), {}).error);
}
