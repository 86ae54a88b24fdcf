#include "shell/StartupRules.h"

#include "settings/OptionSettings.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(StartupRules, MainWindowIsKeptOnScreenWithUpperBoundsOnly) {
    struct Case {
        double left, top, wantLeft, wantTop;
    };
    for (const Case& c : {Case{9000, 7000, 8800, 6600},
                          {8800.5, 6600.5, 8800, 6600},
                          {-500, -40, -500, -40},
                          {75, 300, 75, 300}}) {
        OptionSettings options;
        options.gMainLeft = c.left;
        options.gMainTop = c.top;
        options.gMainWidth = 99999;
        StartupRules::clampMainPosition(options);
        EXPECT_EQ(options.gMainLeft, c.wantLeft) << c.left;
        EXPECT_EQ(options.gMainTop, c.wantTop) << c.top;
        EXPECT_EQ(options.gMainWidth, 99999);
    }
}

TEST(StartupRules, ComputerNameLosesTheBufferPaddingFromItsTenthBlank) {
    const std::pair<QString, QString> cases[] = {
        {u"HOST"_s + QString(256, u' '), u"HOST"_s},
        {u"workstation-7"_s, u"workstation-7"_s},
        {u"   "_s, u"   "_s},
        {QString(), QString()},
        // The tenth blank stands at position 19 (0-based); the first ten characters remain.
        {u"a b c d e f g h i j k l"_s, u"a b c d e "_s},
    };
    for (const auto& [name, cut] : cases)
        EXPECT_EQ(StartupRules::cutComputerName(name), cut) << name.toStdString();
}
