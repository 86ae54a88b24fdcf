#include "shell/MainLayout.h"

#include <gtest/gtest.h>

using namespace MainLayout;

namespace {
Input standard(double width, double height) {
    Input in;
    in.width = width;
    in.height = height;
    in.treeRatio = 0.35;
    in.listRatio = 0.6;
    in.frame1Left = 60;
    in.listLeft = 2430;
    in.frame3Width = 2000;
    in.frame4Width = 1300;
    return in;
}
} // namespace

TEST(MainLayout, PanesFollowTheRatiosOfTheFrame) {
    const Geometry g = resize(standard(6435, 6570));
    EXPECT_EQ(g.frame1Width, 6295);
    EXPECT_EQ(g.frame1Height, 4940);
    EXPECT_EQ(g.frame5Height, 3920);
    EXPECT_TRUE(g.panes);
    EXPECT_EQ(g.treeLeft, 100);
    EXPECT_DOUBLE_EQ(g.treeWidth, 0.35 * 6295);
    EXPECT_DOUBLE_EQ(g.listLeft, 100 + 0.35 * 6295 + 60 + 100);
    EXPECT_EQ(g.treeHeight, 3840);
    EXPECT_EQ(g.listHeight, 3840);
    EXPECT_EQ(g.comboTop, 4955);
    EXPECT_DOUBLE_EQ(g.frame5Left, 0.35 * 6295 + 100 + 35);
    EXPECT_EQ(g.frame2Width, 6295);
    EXPECT_EQ(g.frame2Top, 5310);
    EXPECT_EQ(g.historyWidth, 5985);
    EXPECT_EQ(g.helpExitLeft, 5785);
    EXPECT_EQ(g.foldrLeft, 5385);
    EXPECT_EQ(g.frame3Left, (6295 - 2000) / 2.0);
    EXPECT_EQ(g.frame4Left[1], g.frame4Left[0] + 1300 + 140);
}

TEST(MainLayout, AListThatFitsFillsTheRestAndOneThatDoesNotKeepsItsEnlargedWidth) {
    Input fits = standard(6435, 6570);
    fits.listRatio = 0.5;
    const Geometry a = resize(fits);
    EXPECT_DOUBLE_EQ(a.listWidth, 6295 - (100 + 0.35 * 6295) - 175);

    Input wide = standard(6435, 6570);
    wide.listRatio = 0.9;
    const Geometry b = resize(wide);
    EXPECT_DOUBLE_EQ(b.listWidth, 6295 * 0.9 * 1.05);
}

TEST(MainLayout, NarrowingHidesTheClockAndEachTopButtonByItsOwnLeft) {
    struct Case {
        double width;
        bool clock;
        std::array<bool, TopButtonCount> buttons;
    };
    const Case cases[] = {
        {6435, true, {true, true, true, true, true, true}},
        {6400, true, {true, true, true, true, true, true}},
        {6399, true, {false, true, true, true, true, true}},
        {6100, true, {false, true, true, true, true, true}},
        {6059, false, {false, true, true, true, true, true}},
        {5600, false, {false, false, true, true, true, true}},
        {4400, false, {false, false, false, false, false, true}},
        {4399, false, {false, false, false, false, false, false}},
    };
    for (const Case& c : cases) {
        const Geometry g = resize(standard(c.width, 6570));
        EXPECT_EQ(g.clockVisible, c.clock) << c.width;
        EXPECT_EQ(g.topButtonVisible, c.buttons) << c.width;
    }
}

TEST(MainLayout, AWindowSqueezedBelowUseKeepsItsPanes) {
    const Geometry g = resize(standard(3000, -3000));
    EXPECT_EQ(g.frame1Height, -4630);
    EXPECT_FALSE(g.panes);
    EXPECT_FALSE(resize(standard(3000, -2871)).panes);
    EXPECT_TRUE(resize(standard(3000, -2870)).panes);
}

TEST(MainLayout, TheSplitterSetsTreeAndListAroundItsPosition) {
    const SplitterGeometry s = dragSplitter(3000, 6435, 60, 100);
    EXPECT_EQ(s.treeWidth, 2900);
    EXPECT_EQ(s.listWidth, 6435 - 60 - 2900 - 440);
    EXPECT_EQ(s.listLeft, 2900 + 100 + 120);
    EXPECT_EQ(s.treeLeft, 90);
    EXPECT_EQ(s.frame5Left, 3025);
}
