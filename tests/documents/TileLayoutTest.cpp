#include "documents/TileLayout.h"

#include <gtest/gtest.h>

TEST(TileLayout, HorizontalMakesRowsVerticalMakesColumnsAndEveryPixelIsCoveredOnce) {
    const QRect area(10, 20, 600, 401);
    const struct {
        int count;
        bool horizontal;
        QList<QRect> places;
    } cases[] = {
        {1, true, {QRect(10, 20, 600, 401)}},
        {2, true, {QRect(10, 20, 600, 200), QRect(10, 220, 600, 201)}},
        {2, false, {QRect(10, 20, 300, 401), QRect(310, 20, 300, 401)}},
        {3, false, {QRect(10, 20, 200, 401), QRect(210, 20, 200, 401), QRect(410, 20, 200, 401)}},
        // Five windows: three rows, the first two with two windows side by side.
        {5,
         true,
         {QRect(10, 20, 300, 133), QRect(310, 20, 300, 133), QRect(10, 153, 300, 134),
          QRect(310, 153, 300, 134), QRect(10, 287, 600, 134)}},
        {0, true, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << (c.horizontal ? " rows" : " columns"));
        const QList<QRect> places = TileLayout::tile(c.count, area, c.horizontal);
        EXPECT_EQ(places, c.places);
        qint64 covered = 0;
        for (const QRect& place : places)
            covered += qint64(place.width()) * place.height();
        EXPECT_EQ(covered, c.count > 0 ? qint64(area.width()) * area.height() : 0);
    }
}
