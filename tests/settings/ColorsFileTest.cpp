#include "settings/ColorsFile.h"

#include "platform/SettingColor.h"
#include "platform/TextFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct ColorsFileTest : ::testing::Test {
    TempFolder dir;
    ColorSettings colors;
    QString path() const { return dir.file(u"Colors.INI"_s); }
};
} // namespace

TEST_F(ColorsFileTest, DefaultsKeepTheThumbnailColoursAndResetBoldAndTips) {
    colors.gMainBackColor = 1;
    colors.gThumbBackColor = 0x123456;
    colors.gThumbForeColor = 0x654321;
    OptionSettings options;
    options.gBoldType = true;
    options.gQuickTipsOption = false;
    ColorsFile::setDefaults(colors, options);
    EXPECT_EQ(colors.gMainBackColor, 0xFFD3CE);
    EXPECT_EQ(colors.gThumbBackColor, 0x123456);
    EXPECT_EQ(colors.gThumbForeColor, 0x654321);
    EXPECT_FALSE(options.gBoldType);
    EXPECT_TRUE(options.gQuickTipsOption);
}

TEST_F(ColorsFileTest, ButtonFaceIsWrittenSignedAndReadBackAsTheSystemColour) {
    ASSERT_FALSE(ColorsFile::save(path(), colors));
    const QStringList lines = TextFile::readLines(path()).lines;
    ASSERT_EQ(lines.size(), ColorsFile::LineCount);
    EXPECT_EQ(lines[0], u"16765902"_s); // 0xFFD3CE
    EXPECT_EQ(lines[12], u"0"_s);
    EXPECT_EQ(lines[18], u"-2147483633"_s);
    EXPECT_TRUE(dir.read(u"Colors.INI"_s).endsWith("-2147483633\r\n"));

    ColorSettings loaded;
    loaded.gButtonColor = 0;
    EXPECT_EQ(ColorsFile::load(path(), loaded), QString());
    EXPECT_EQ(loaded.gButtonColor, SettingColor::ButtonFace);
    EXPECT_TRUE(SettingColor::isSystemColor(loaded.gButtonColor));
}

TEST_F(ColorsFileTest, EveryRoleRoundTripsInItsLine) {
    QList<QByteArray> lines;
    for (int i = 1; i <= ColorsFile::LineCount; ++i)
        lines.append(QByteArray::number(0x010101 * i));
    dir.write(u"Colors.INI"_s, crlfLines(lines));
    ASSERT_EQ(ColorsFile::load(path(), colors), QString());
    EXPECT_EQ(colors.gMainBackColor, 0x010101);
    EXPECT_EQ(colors.gThumbBackColor, 0x010101 * 13);
    EXPECT_EQ(colors.gTipForeColor, 0x010101 * 16);
    EXPECT_EQ(colors.gPictureWindowColor, 0x010101 * 18);
    EXPECT_EQ(colors.gButtonColor, 0x010101 * 19);
    ASSERT_FALSE(ColorsFile::save(dir.file(u"again.INI"_s), colors));
    EXPECT_EQ(dir.read(u"again.INI"_s), dir.read(u"Colors.INI"_s));
}

TEST_F(ColorsFileTest, ShortOrMalformedFileKeepsWhatWasReadBeforeIt) {
    QList<QByteArray> lines;
    for (int i = 1; i <= 18; ++i)
        lines.append(QByteArray::number(i));
    dir.write(u"Colors.INI"_s, crlfLines(lines));
    EXPECT_EQ(ColorsFile::load(path(), colors), u"Error Loading Application Window Colors"_s);
    EXPECT_EQ(colors.gMainBackColor, 1);
    EXPECT_EQ(colors.gPictureWindowColor, 18);
    EXPECT_EQ(colors.gButtonColor, SettingColor::ButtonFace);

    ColorSettings other;
    dir.write(u"Colors.INI"_s, crlfLines({"5", "blue", "7"}));
    EXPECT_EQ(ColorsFile::load(path(), other), u"Error Loading Application Window Colors"_s);
    EXPECT_EQ(other.gMainBackColor, 5);
    EXPECT_EQ(other.gMainForeColor, 0);
    EXPECT_EQ(other.gListBackColor, 0xEAFFEA);
}
