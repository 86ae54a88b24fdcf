#include "documents/DatabaseLayout.h"

#include <gtest/gtest.h>

TEST(DatabaseLayout, AColumnIsAsWideAsItsValuesOrItsNameWithinBounds) {
    struct Case {
        qsizetype name;
        qint32 size;
        double width;
    };
    const Case cases[] = {
        {4, 20, 2400},  // the values are wider than the name
        {4, 21, 2500},  // 2520 is cut to 2500
        {10, 10, 1200}, // a name as long as the values still counts the values
        {12, 5, 1200},  // a longer name counts the name
        {30, 2, 2500},  // a long name is cut too
        {1, 2, 800},    // 240 is under 250: raised to 800
        {1, 1, 800},    // 120 is raised to 800
        {0, 0, 800},    // an attached table's columns have no names and no sizes
        {2, 0, 800},    // a memo has no size: its name's 200 is raised
    };
    for (const Case& c : cases)
        EXPECT_EQ(DatabaseLayout::columnWidth(c.name, c.size), c.width) << c.name << " " << c.size;
}

TEST(DatabaseLayout, TheGridFillsTheWindowBelowTheDataControl) {
    DatabaseLayout::Placement p = DatabaseLayout::atOpen(9000, 5500, 300);
    EXPECT_EQ(p.data, QRectF(5, 5, 8910, 300));
    EXPECT_EQ(p.grid, QRectF(5, 310, 8910, 4770));

    DatabaseLayout::resize(p, 6000, 3000);
    EXPECT_EQ(p.data.width(), 5910);
    EXPECT_EQ(p.grid.width(), 5910);
    EXPECT_EQ(p.grid.height(), 2260);
    EXPECT_EQ(p.grid.topLeft(), QPointF(5, 310));

    // Too small to leave room: each side keeps what it had.
    DatabaseLayout::resize(p, 90, 740);
    EXPECT_EQ(p.data.width(), 5910);
    EXPECT_EQ(p.grid.height(), 2260);
    DatabaseLayout::resize(p, 91, 741);
    EXPECT_EQ(p.grid.width(), 1);
    EXPECT_EQ(p.grid.height(), 1);
}

TEST(DatabaseLayout, TheCommentBoxKeepsToTheGridsLowerRight) {
    EXPECT_EQ(DatabaseLayout::commentBoxAt(QRectF(5, 310, 8910, 4770), 4200, 2200),
              QPointF(4610, 2470));
}
