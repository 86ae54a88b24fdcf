#include "platform/tables/TableDate.h"
#include "platform/tables/TableRecordset.h"

#include <QDate>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TableDate, EveryStoredFormShowsAsTheLocalesShortDateWithTheTimeOnlyWhenThereIsOne) {
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    const QString pm = us.pmText();
    const struct {
        QString stored;
        QString shown;
    } cases[] = {
        {u"20240301"_s, u"3/1/24"_s},
        {u"2024-03-01"_s, u"3/1/24"_s},
        {u"2024-03-01 00:00:00"_s, u"3/1/24"_s},
        {u"2024-03-01T00:00:00"_s, u"3/1/24"_s},
        {u"2024-12-31 13:30:00"_s,
         u"12/31/24 1:30"_s + us.timeFormat(QLocale::ShortFormat).mid(4, 1) + pm},
        {u"1999-07-04T08:05:09"_s,
         u"7/4/99 8:05:09"_s + us.timeFormat(QLocale::ShortFormat).mid(4, 1) + us.amText()},
        {u"13:30:00"_s, u"1:30"_s + us.timeFormat(QLocale::ShortFormat).mid(4, 1) + pm},
        {u"        "_s, QString()},
        {u"20241301"_s, u"20241301"_s},
        {u"Widget"_s, u"Widget"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stored.toStdString());
        EXPECT_EQ(TableDate::display(c.stored, us), c.shown);
    }
}

TEST(TableDate, ADbaseDateShowsInTheLocalesFormThroughTheRecordset) {
    TableRecordset::Opened opened = TableRecordset::open(
        u"dBASE 5.0;"_s, QStringLiteral(QUORVANE_GENERATED_TABLES), u"SALES.DBF"_s);
    ASSERT_FALSE(opened.error);
    const QStringList first = opened.recordset->row(0);
    ASSERT_GE(first.size(), 4);
    EXPECT_EQ(first[3], QLocale().toString(QDate(2024, 3, 1), QLocale::ShortFormat));
}
