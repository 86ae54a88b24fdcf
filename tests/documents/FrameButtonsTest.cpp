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
