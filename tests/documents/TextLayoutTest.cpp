#include "documents/TextLayout.h"

#include <gtest/gtest.h>

TEST(TextLayout, TheTextFollowsTheWindowAndKeepsItsSideBelowTheLimits) {
    const QSizeF current(3000, 2000);
    const struct {
        QSizeF window;
        QSizeF text;
    } cases[] = {
        {{6500, 4000}, {6400, 3580}},                              // the size of a new text window
        {{6500, 420}, {6400, 0}},     {{6500, 419}, {6400, 2000}}, // too low: the height stays
        {{101, 4000}, {1, 3580}},     {{100, 4000}, {3000, 3580}}, // too narrow: the width stays
        {{90, 300}, {3000, 2000}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.window.width() << " x " << c.window.height());
        EXPECT_EQ(TextLayout::textSize(c.window, current), c.text);
    }
}
