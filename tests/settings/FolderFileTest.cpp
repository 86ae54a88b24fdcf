#include "settings/FolderFile.h"

#include "settings/SettingsText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FolderFile, EntriesAreReadFromTheEndOfTheLine) {
    const auto entry = FolderFile::parse(u"/data/Data (old) (5)"_s);
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->folder, u"/data/Data (old)"_s);
    EXPECT_EQ(entry->filter, 5);
    EXPECT_EQ(FolderFile::format(entry->folder, entry->filter), u"/data/Data (old) (5)"_s);
    const auto root = FolderFile::parse(FolderFile::format(u"/"_s, 33));
    ASSERT_TRUE(root.has_value());
    EXPECT_EQ(root->folder, u"/"_s);
    EXPECT_EQ(root->filter, 33);
    for (const QString& bad : {QString(), u"/no/brackets"_s, u"/x ()"_s, u"/x (a)"_s, u"(3)"_s})
        EXPECT_FALSE(FolderFile::parse(bad).has_value()) << bad.toStdString();
}

TEST(FolderFile, SavesEntriesAndAnEmptyListAsOneEmptyLine) {
    TempFolder dir;
    const QString path = dir.file(u"FoldFile.INI"_s);
    const QStringList entries{u"/home/u/Pictures (27)"_s, u"/srv/a (b) (3)"_s};
    ASSERT_FALSE(FolderFile::save(path, entries));
    EXPECT_EQ(dir.read(u"FoldFile.INI"_s),
              QByteArray("/home/u/Pictures (27)\r\n/srv/a (b) (3)\r\n"));
    EXPECT_EQ(FolderFile::load(path), entries);

    ASSERT_FALSE(FolderFile::save(path, {}));
    EXPECT_EQ(dir.read(u"FoldFile.INI"_s), QByteArray("\r\n"));
    // Read back after a restart, the empty list holds one empty entry.
    EXPECT_EQ(FolderFile::load(path), QStringList{QString()});
    EXPECT_TRUE(FolderFile::load(dir.file(u"missing.INI"_s)).isEmpty());
}

TEST(SettingsText, ParsesNumbersStrictlyAndRoundsIntegersHalfToEven) {
    double number = -1;
    EXPECT_FALSE(SettingsText::toNumber(u" 6435.5 "_s, number));
    EXPECT_EQ(number, 6435.5);
    EXPECT_FALSE(SettingsText::toNumber(u"+12"_s, number));
    EXPECT_EQ(number, 12);
    for (const QString& bad :
         {QString(), u"12abc"_s, u"1,000"_s, u"inf"_s, u"nan"_s, u"-"_s, u"++1"_s, u"0x10"_s})
        EXPECT_EQ(SettingsText::toNumber(bad, number).number(), 13) << bad.toStdString();
    EXPECT_EQ(number, 12);

    qint32 whole = 0;
    EXPECT_FALSE(SettingsText::toInt32(u"2.5"_s, whole));
    EXPECT_EQ(whole, 2);
    EXPECT_FALSE(SettingsText::toInt32(u"3.5"_s, whole));
    EXPECT_EQ(whole, 4);
    EXPECT_FALSE(SettingsText::toInt32(u"-2147483648"_s, whole));
    EXPECT_EQ(whole, std::numeric_limits<qint32>::min());
    EXPECT_EQ(SettingsText::toInt32(u"2147483648"_s, whole).number(), 6);
    qint16 small = 0;
    EXPECT_EQ(SettingsText::toInt16(u"32768"_s, small).number(), 6);
    EXPECT_EQ(SettingsText::toNumber(u"1e999"_s, number).number(), 6);
}

TEST(SettingsText, ReadsTruthAsWordsOrNumbersAndWritesWords) {
    bool value = false;
    EXPECT_FALSE(SettingsText::toBool(u"True"_s, value));
    EXPECT_TRUE(value);
    EXPECT_FALSE(SettingsText::toBool(u"false"_s, value));
    EXPECT_FALSE(value);
    EXPECT_FALSE(SettingsText::toBool(u"-1"_s, value));
    EXPECT_TRUE(value);
    EXPECT_EQ(SettingsText::toBool(u"Yes"_s, value).number(), 13);
    EXPECT_EQ(SettingsText::fromBool(true), u"True"_s);
    EXPECT_EQ(SettingsText::writeFailureMessage(AppError(61)), u"Error: 61 - Disk full"_s);
}

TEST(SettingsText, WritesNumbersAsPlainDecimalsThatReadBack) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {100000, "100000"}, {5500, "5500"},      {1e15, "1000000000000000"}, {0.1, "0.1"},
        {-75.25, "-75.25"}, {1e-7, "0.0000001"}, {123456.789, "123456.789"}, {8800, "8800"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(SettingsText::fromNumber(c.value), QString::fromLatin1(c.text));
        double back = 0;
        EXPECT_FALSE(SettingsText::toNumber(SettingsText::fromNumber(c.value), back));
        EXPECT_EQ(back, c.value);
    }
}
