#include "platform/imaging/PixelOps.h"

#include <gtest/gtest.h>

namespace {

// 4 x 3: red top-left, green top-right, blue bottom-left, grey elsewhere.
QImage sample() {
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(qRgb(100, 100, 100));
    image.setPixel(0, 0, qRgb(255, 0, 0));
    image.setPixel(3, 0, qRgb(0, 255, 0));
    image.setPixel(0, 2, qRgb(0, 0, 255));
    return image;
}

QRgb at(const QImage& image, int x, int y) {
    return image.pixel(x, y) | 0xFF000000;
}

} // namespace

TEST(PixelOps, FlipAndReverseMirrorThePicture) {
    QImage image = sample();
    PixelOps::flip(image);
    EXPECT_EQ(at(image, 0, 2), qRgb(255, 0, 0));
    EXPECT_EQ(at(image, 0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(at(image, 3, 2), qRgb(0, 255, 0));
    image = sample();
    PixelOps::reverse(image);
    EXPECT_EQ(at(image, 3, 0), qRgb(255, 0, 0));
    EXPECT_EQ(at(image, 0, 0), qRgb(0, 255, 0));
    EXPECT_EQ(at(image, 3, 2), qRgb(0, 0, 255));
}

TEST(PixelOps, InvertTurnsEveryColourToItsOpposite) {
    QImage image = sample();
    PixelOps::invert(image);
    EXPECT_EQ(at(image, 0, 0), qRgb(0, 255, 255));
    EXPECT_EQ(at(image, 1, 1), qRgb(155, 155, 155));
    // A picture with a colour table inverts its colours, not its indexes.
    QImage indexed = sample().convertToFormat(QImage::Format_Indexed8);
    PixelOps::invert(indexed);
    EXPECT_EQ(at(indexed, 0, 0), qRgb(0, 255, 255));
    EXPECT_EQ(at(indexed, 2, 1), qRgb(155, 155, 155));
}

TEST(PixelOps, StretchSpreadsEachChannelOverTheWholeRange) {
    QImage image(3, 1, QImage::Format_RGB32);
    image.setPixel(0, 0, qRgb(50, 60, 70));
    image.setPixel(1, 0, qRgb(100, 110, 120));
    image.setPixel(2, 0, qRgb(150, 160, 170));
    PixelOps::stretchIntensity(image);
    EXPECT_EQ(at(image, 0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(at(image, 2, 0), qRgb(255, 255, 255));
    EXPECT_EQ(qRed(image.pixel(1, 0)), 128);
}

TEST(PixelOps, IntensityAndContrastMoveTheColours) {
    QImage image = sample();
    PixelOps::changeIntensity(image, 200); // + 51
    EXPECT_EQ(at(image, 1, 1), qRgb(151, 151, 151));
    EXPECT_EQ(at(image, 0, 0), qRgb(255, 51, 51));
    PixelOps::changeIntensity(image, -1000);
    EXPECT_EQ(at(image, 1, 1), qRgb(0, 0, 0));

    image = sample();
    PixelOps::changeContrast(image, 1000); // twice the distance from the middle
    EXPECT_EQ(at(image, 1, 1), qRgb(72, 72, 72));
    EXPECT_EQ(at(image, 0, 0), qRgb(255, 0, 0));
    image = sample();
    PixelOps::changeContrast(image, -1000);
    EXPECT_EQ(at(image, 0, 0), qRgb(128, 128, 128));
    EXPECT_EQ(at(image, 1, 1), qRgb(128, 128, 128));
}

TEST(PixelOps, RotateTurnsClockwiseAndFillsWhatIsUncovered) {
    QImage image = sample();
    PixelOps::rotate(image, 9000, true, Qt::white);
    EXPECT_EQ(image.size(), QSize(3, 4));
    EXPECT_EQ(at(image, 2, 0), qRgb(255, 0, 0)); // top-left went top-right
    EXPECT_EQ(at(image, 0, 0), qRgb(0, 0, 255));
    EXPECT_EQ(at(image, 2, 3), qRgb(0, 255, 0));

    QImage big(40, 40, QImage::Format_RGB32);
    big.fill(Qt::black);
    PixelOps::rotate(big, 4500, false, QColor(Qt::yellow));
    EXPECT_EQ(big.size(), QSize(40, 40));
    EXPECT_EQ(at(big, 0, 0), qRgb(255, 255, 0));
    EXPECT_EQ(at(big, 20, 20), qRgb(0, 0, 0));
    QImage grown(40, 40, QImage::Format_RGB32);
    grown.fill(Qt::black);
    PixelOps::rotate(grown, 4500, true, QColor(Qt::yellow));
    EXPECT_NEAR(grown.width(), 57, 1);

    QImage same = sample();
    PixelOps::rotate(same, 36000, true, Qt::white);
    EXPECT_EQ(same, sample());
}

TEST(PixelOps, ResizeGivesTheNewSizeWithOrWithoutResampling) {
    QImage plain = sample();
    PixelOps::resize(plain, 8, 6, false);
    EXPECT_EQ(plain.size(), QSize(8, 6));
    EXPECT_EQ(at(plain, 1, 1), qRgb(255, 0, 0)); // nearest pixel, no blending
    QImage smooth = sample();
    PixelOps::resize(smooth, 2, 2, true);
    EXPECT_EQ(smooth.size(), QSize(2, 2));
    QImage untouched = sample();
    PixelOps::resize(untouched, 0, 5, true);
    EXPECT_EQ(untouched, sample());
}
