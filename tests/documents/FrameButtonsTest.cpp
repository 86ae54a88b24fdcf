#include "documents/FrameButtons.h"

#include <gtest/gtest.h>

using namespace FrameButtons;

namespace {
std::vector<int> enabled(const States& s) {
    std::vector<int> on;
    for (int n = 1; n <= Count; ++n) {
        if (s[static_cast<size_t>(n)])
            on.push_back(n);
    }
    return on;
}
} // namespace

TEST(FrameButtons, TableOfKeysSeparatorsAndLifts) {
    EXPECT_EQ(numberOf(QStringLiteral("Open")), 1);
    EXPECT_EQ(numberOf(QStringLiteral("Sep4")), 19);
    EXPECT_EQ(numberOf(QStringLiteral("Help")), 20);
    EXPECT_EQ(numberOf(QStringLiteral("Nothing")), 0);
    for (int n : {9, 11, 16, 19})
        EXPECT_EQ(buttons()[static_cast<size_t>(n - 1)].image, 0) << n;
    EXPECT_EQ(buttons()[19].image, 16);
    EXPECT_FALSE(buttons()[11].liftedAfterClick); // Table stays down
    EXPECT_TRUE(buttons()[16].liftedAfterClick);  // Resize
}

TEST(FrameButtons, EnableOperationsTouchOnlyTheirButtons) {
    States s{};
    s.fill(true);
    DisableButtons(s);
    EXPECT_EQ(enabled(s), std::vector<int>{20});
    EnableMDIButtons(s);
    EXPECT_EQ(enabled(s), (std::vector<int>{1, 19, 20}));

    DisableButtons(s);
    EnableTextButtons(s);
    EXPECT_EQ(enabled(s), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 19, 20}));
    EnableDataButtons(s); // adds to what is on
    EXPECT_EQ(enabled(s), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13, 19, 20}));
    EnableButtons(s);
    EXPECT_FALSE(s[12]);
    EXPECT_FALSE(s[13]);
    EXPECT_TRUE(s[14]);
    EXPECT_TRUE(s[9]);

    States off{};
    EnableTextButtons(off);
    EXPECT_FALSE(off[20]); // Help is never switched by these operations
}
