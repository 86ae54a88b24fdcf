#include "settings/OptionsFile.h"
#include "settings/OptionsForm.h"

#include "platform/TextFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray defaultFile() {
    return crlfLines({"75",    "300",  "6570", "6435", "2850", "50",           "7080", "6930",
                      "115",   "115",  "2",    "3390", "2130", "90",           "3390", "3750",
                      "2430",  "0",    "5000", "500",  "R",    "MailAddr.MLS", "",     "",
                      "False", "True", "True", "True", "False"});
}

struct OptionsFileTest : ::testing::Test {
    TempFolder dir;
    OptionSettings options;
    QString computer = u"previous"_s;
    QString path() const { return dir.file(u"Options.INI"_s); }
    QString load() { return OptionsFile::load(path(), options, computer); }
};

} // namespace

TEST_F(OptionsFileTest, DefaultsWriteTheKnownTwentyNineLines) {
    OptionsFile::setDefaults(options, computer);
    EXPECT_TRUE(computer.isEmpty());
    ASSERT_FALSE(OptionsFile::save(path(), options, computer));
    EXPECT_EQ(dir.read(u"Options.INI"_s), defaultFile());
}

TEST_F(OptionsFileTest, EveryLineRoundTripsInItsPlace) {
    OptionSettings written;
    written.gMainLeft = -120.5;
    written.gMainTop = 7000;
    written.gFrameWidth = 8123;
    written.gThumbBits = 4;
    written.gTreeWidth = 2200.25;
    written.gViewMode = 3;
    written.gSearchAdditional = 123456;
    written.gBrowserTextStyle = u"I"_s;
    written.gAddressBook = u"/home/u/Friends (old).MLS"_s;
    written.gFromAddress = u"zoë@example.org"_s;
    written.gBoldType = true;
    written.gGridLines = false;
    written.gQuickTipsOption = false;
    written.gAskComputer = false;
    written.gSeparatorOption = true;
    ASSERT_FALSE(OptionsFile::save(path(), written, u"WORKSTATION 7"_s));

    EXPECT_EQ(load(), QString());
    // Every value comes back through its own line: the lines written from what was read are
    // the lines written first.
    EXPECT_EQ(options.gMainLeft, -120.5);
    EXPECT_EQ(options.gMainTop, 7000); // the loader itself limits nothing
    EXPECT_EQ(options.gFromAddress, u"zoë@example.org"_s);
    EXPECT_EQ(computer, u"WORKSTATION 7"_s);
    EXPECT_EQ(OptionsFile::toLines(options, computer), OptionsFile::toLines(written, computer));
}

TEST_F(OptionsFileTest, TextValuesCannotBreakTheLineOrder) {
    OptionSettings written;
    written.gFromAddress = u"a\r\nb"_s;
    ASSERT_FALSE(OptionsFile::save(path(), written, u"x\ny"_s));
    EXPECT_EQ(TextFile::readLines(path()).lines.size(), OptionsFile::LineCount);
    EXPECT_EQ(load(), QString());
    EXPECT_EQ(options.gFromAddress, u"a  b"_s);
    EXPECT_EQ(computer, u"x y"_s);
}

TEST_F(OptionsFileTest, MissingFileSaysWhichMenuRebuildsItAndChangesNothing) {
    options.gMainLeft = 1234;
    EXPECT_EQ(load(), u"Use the Utility Menu Option - Set Program Options"_s);
    EXPECT_EQ(options.gMainLeft, 1234);
    EXPECT_EQ(computer, u"previous"_s);
}

TEST_F(OptionsFileTest, AShortFileKeepsWhatWasReadAndReportsTheEnd) {
    QList<QByteArray> lines = defaultFile().split('\n');
    lines.removeLast(); // the empty piece behind the last line break
    lines[0] = "111\r";
    lines[27] = "False\r"; // gAskComputer
    lines.removeLast();    // 28 lines
    QByteArray bytes = lines.join('\n') + '\n';
    dir.write(u"Options.INI"_s, bytes);
    options.gSeparatorOption = true;
    EXPECT_EQ(load(), u"Error Loading Application Options - 62 Input past end of file"_s);
    EXPECT_EQ(options.gMainLeft, 111);
    EXPECT_FALSE(options.gAskComputer);
    EXPECT_TRUE(options.gSeparatorOption); // line 29 was never read
}

TEST_F(OptionsFileTest, AnOutOfRangeIntegerIsAnOverflow) {
    QList<QByteArray> lines = defaultFile().split('\n');
    lines[10] = "70000\r"; // gThumbBits, 16 bits
    dir.write(u"Options.INI"_s, lines.join('\n'));
    EXPECT_EQ(load(), u"Error Loading Application Options - 6 Overflow"_s);
    EXPECT_EQ(options.gThumbBits, 2);
}

TEST_F(OptionsFileTest, AFileWrittenWithLfOnlyReadsTheSame) {
    QByteArray bytes = defaultFile();
    bytes.replace("\r\n", "\n");
    dir.write(u"Options.INI"_s, bytes);
    EXPECT_EQ(load(), QString());
    EXPECT_EQ(OptionsFile::toLines(options, computer), OptionsFile::toLines(OptionSettings{}, {}));
}

TEST(OptionsForm, TheBoxesAreCheckedInOrderAndTheFirstFailureIsTold) {
    const struct {
        OptionsForm::Entries entries; // height, width, initial, additional, separator
        const char* message;          // nullptr when accepted
        int focus;
    } cases[] = {
        {{0.1, 3, 5000, 500, 50}, nullptr, 0},
        {{0.1, 0.2, 5000, 500, 50}, "Invalid Sizes for ThumbNail Images", 0},
        {{6, 5.6, 5000, 500, 50}, "Invalid Sizes for ThumbNail Images", 0},
        {{0.5, 5.5, 2500, 2500, 20}, nullptr, 0},
        {{3, 3, 10000, 500, 80}, nullptr, 0},
        {{3, 3, 5000, 500, 19}, "Enter a Percentage between 20 and 80", 6},
        {{3, 3, 0, 0, 81}, "Enter a Percentage between 20 and 80", 6},
        {{3, 3, 0, 500, 50}, "Enter a Number between 2,500 and 10,000", 4},
        {{3, 3, 5000, 2501, 50}, "Enter a Percentage between 500 and 2500", 5},
    };
    for (const auto& c : cases) {
        const std::optional<OptionsForm::Refusal> refusal = OptionsForm::check(c.entries);
        if (!c.message) {
            EXPECT_FALSE(refusal) << refusal->message.toStdString();
            continue;
        }
        ASSERT_TRUE(refusal) << c.message;
        EXPECT_EQ(refusal->message, QString::fromLatin1(c.message));
        EXPECT_EQ(refusal->focus, c.focus) << c.message;
    }
}

TEST(OptionsForm, ThumbnailSizesGoBetweenPixelsAndCentimetresOfTheScreen) {
    const OptionsForm::Scale scale = OptionsForm::scaleFor(9600, 7200);
    EXPECT_EQ(OptionsForm::centimetres(115, scale.cmTwipsY), u"3.4"_s);
    EXPECT_EQ(OptionsForm::centimetres(115, scale.cmTwipsX), u"3.17"_s);
    EXPECT_EQ(OptionsForm::pixels(3.4, scale.cmTwipsY), 115);
    // A tenth of a centimetre is about three pixels.
    EXPECT_EQ(OptionsForm::pixels(0.1, scale.cmTwipsY), 3);
}
