#include "documents/TextStamp.h"
#include "platform/FontNames.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

QImage whitePicture(QSize size = QSize(200, 60)) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

TextStamp::Stamp boldStamp(qint32 style) {
    TextStamp::Stamp stamp;
    stamp.text = u"Stamp"_s;
    stamp.fontSize = 20;
    stamp.bold = true;
    stamp.color = Qt::black;
    stamp.shadow = QColor(40, 40, 160);
    stamp.highlight = QColor(250, 220, 0);
    stamp.style = style;
    return stamp;
}

} // namespace

TEST(TextStamp, TheListHoldsThirteenSortedEntriesAndMaxRepeatsRaisedExtraHeavy) {
    const auto entries = TextStamp::entries();
    const std::vector<std::pair<QString, qint32>> expected = {
        {u"TEXTSTYLE_BLOCKSHADOW"_s, 6},
        {u"TEXTSTYLE_DROPSHADOW"_s, 5},
        {u"TEXTSTYLE_INSETEXTRAHEAVY"_s, 9},
        {u"TEXTSTYLE_INSETEXTRALIGHT"_s, 8},
        {u"TEXTSTYLE_INSETHEAVY"_s, 2},
        {u"TEXTSTYLE_INSETLIGHT"_s, 1},
        {u"TEXTSTYLE_MAX"_s, 11},
        {u"TEXTSTYLE_NORMAL"_s, 0},
        {u"TEXTSTYLE_OUTLINEBLOCK"_s, 7},
        {u"TEXTSTYLE_RAISEDEXTRAHEAVY"_s, 11},
        {u"TEXTSTYLE_RAISEDEXTRALIGHT"_s, 10},
        {u"TEXTSTYLE_RAISEDHEAVY"_s, 4},
        {u"TEXTSTYLE_RAISEDLIGHT"_s, 3},
    };
    ASSERT_EQ(entries.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(QString::fromLatin1(entries[i].name), expected[i].first);
        EXPECT_EQ(entries[i].code, expected[i].second);
    }
}

TEST(TextStamp, EachOfTheTwelveStyleCodesGivesItsOwnPixels) {
    const QImage blank = whitePicture();
    std::set<qint32> codes;
    for (const TextStamp::Entry& entry : TextStamp::entries())
        codes.insert(entry.code);
    ASSERT_EQ(codes.size(), 12u);
    std::vector<std::pair<qint32, QImage>> drawn;
    for (qint32 code : codes) {
        QImage image = blank;
        TextStamp::draw(image, QPointF(10, 5), boldStamp(code));
        EXPECT_NE(image, blank) << code;
        for (const auto& [other, otherImage] : drawn)
            EXPECT_NE(image, otherImage) << code << " looks like " << other;
        drawn.emplace_back(code, image);
    }
}

TEST(TextStamp, TheRectangleIsDrawnFirstAndTheTextLiesOnIt) {
    QImage image = whitePicture();
    TextStamp::Stamp stamp = boldStamp(TextStamp::Normal);
    stamp.withRectangle = true;
    stamp.rectangle = QColor(0, 200, 0);
    const QRectF box = TextStamp::draw(image, QPointF(20, 10), stamp);
    EXPECT_EQ(box.topLeft(), QPointF(20, 10));
    EXPECT_EQ(image.pixel(22, 12), qRgb(0, 200, 0));
    EXPECT_EQ(image.pixel(19, 9), qRgb(255, 255, 255));
    int black = 0, green = 0;
    for (int y = int(box.top()); y < int(box.bottom()); ++y) {
        for (int x = int(box.left()); x < int(box.right()); ++x) {
            black += image.pixel(x, y) == qRgb(0, 0, 0);
            green += image.pixel(x, y) == qRgb(0, 200, 0);
        }
    }
    EXPECT_GT(black, 20);
    EXPECT_GT(green, black);
}

TEST(TextStamp, FontsArePointsAt96ToTheInchAndMsSansSerifIsTheSystemSans) {
    TextStamp::Stamp stamp;
    stamp.fontName = u"Ms Sans Serif"_s;
    stamp.fontSize = 8;
    stamp.italic = true;
    const QFont font = TextStamp::fontOf(stamp);
    EXPECT_EQ(font.pixelSize(), 11);
    EXPECT_EQ(font.family(), u"Sans Serif"_s);
    EXPECT_TRUE(font.italic());
    EXPECT_EQ(FontNames::familyOf(u"DejaVu Serif"_s), u"DejaVu Serif"_s);
}

TEST(TextStamp, HugeTextsAndFarPlacesAreClippedAndPaletteImagesBecomeTrueColour) {
    TextStamp::Stamp stamp = boldStamp(TextStamp::OutlineBlock);
    stamp.text = QString(200000, u'W');
    stamp.fontSize = 32767;
    stamp.withRectangle = true;
    QImage image = whitePicture();
    TextStamp::draw(image, QPointF(30, 20), stamp);
    EXPECT_EQ(image.size(), QSize(200, 60));
    EXPECT_EQ(image.pixel(10, 10), qRgb(255, 255, 255));

    const QImage blank = whitePicture();
    for (QPointF far : {QPointF(-1e12, 5), QPointF(5, 1e12), QPointF(1e6, -1e6)}) {
        image = blank;
        TextStamp::draw(image, far, boldStamp(TextStamp::RaisedExtraHeavy));
        EXPECT_EQ(image, blank);
    }

    QImage indexed = whitePicture().convertToFormat(QImage::Format_Indexed8);
    TextStamp::draw(indexed, QPointF(10, 5), boldStamp(TextStamp::Normal));
    EXPECT_EQ(indexed.format(), QImage::Format_RGB32);
    EXPECT_NE(indexed, whitePicture());
}
