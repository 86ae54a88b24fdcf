#include "sending/SendText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(SendText, AddressesAreLinesWhateverTheirEndsAndAFinalLineEndAddsNone) {
    const struct {
        QString text;
        QStringList want;
    } cases[] = {
        {u"a@x.org"_s, {u"a@x.org"_s}},
        {u"a@x.org\r\nb@x.org\r\n"_s, {u"a@x.org"_s, u"b@x.org"_s}},
        {u"a@x.org\nb@x.org"_s, {u"a@x.org"_s, u"b@x.org"_s}},
        {u"a@x.org\n\nb@x.org\n"_s, {u"a@x.org"_s, QString(), u"b@x.org"_s}},
        {QString(), {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SendText::splitAddresses(c.text).addresses, c.want) << c.text.toStdString();
    QString many;
    for (int i = 0; i < 151; ++i)
        many += u"n%1@x.org\n"_s.arg(i);
    EXPECT_TRUE(SendText::splitAddresses(many).tooMany);
    EXPECT_FALSE(SendText::splitAddresses(many.section(u'\n', 1)).tooMany);
}

TEST(SendText, HistoryLinesAndAddressEntriesComeApartAtTheirFirstHyphens) {
    const QString line = SendText::historyLine(u"/pics/a.jpg"_s, u"bo@x.org"_s, QDateTime());
    EXPECT_EQ(SendText::addressOfHistoryLine(line), u"bo@x.org"_s);
    EXPECT_FALSE(SendText::addressOfHistoryLine(u"no hyphen"_s));

    const SendText::NameAndAddress anna =
        SendText::splitAddressEntry(SendText::addressEntry(u"Anna-Lena"_s, u"anna@example.org"_s));
    EXPECT_EQ(anna.name, u"Ann"_s);
    EXPECT_EQ(anna.address, u"ena - anna@example.org"_s);
    const SendText::NameAndAddress bo = SendText::splitAddressEntry(u"Bo - bo@x.org"_s);
    EXPECT_EQ(bo.name, u"Bo"_s);
    EXPECT_EQ(bo.address, u"bo@x.org"_s);
}

TEST(SendText, ADatabaseGoesWithEveryFileOfItsBaseName) {
    TempFolder folder;
    for (const char* name : {"Sales.MDB", "sales.ldb", "SALES.DBT", "Salesman.MDB", "Sales"})
        folder.write(QString::fromLatin1(name), "x");
    EXPECT_EQ(SendText::databaseFamily(folder.file(u"Sales.MDB"_s)),
              (QStringList{folder.file(u"SALES.DBT"_s), folder.file(u"sales.ldb"_s),
                           folder.file(u"Sales.MDB"_s)}));
}
