#include "documents/ShapePainter.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace {

QImage picture(QSize size = QSize(60, 50), QColor color = Qt::white) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

// Twips for a number of pixels.
double twips(double pixels) {
    return pixels * 15;
}

// The family base of a name, by its first word.
int familyOf(const QString& name) {
    static const std::map<QString, int> bases = {
        {u"SQUARE"_s, 1000},    {u"RECTANGLE"_s, 2000}, {u"PARALLELOGRAM"_s, 3000},
        {u"TRAPEZOID"_s, 4000}, {u"TRIANGLE"_s, 5000},  {u"OCTAGON"_s, 6000},
        {u"DIAMOND"_s, 6000},   {u"PENTAGON"_s, 6000},  {u"HEXAGON"_s, 6000},
        {u"LINE"_s, 6000},      {u"REGION"_s, 6000},    {u"OTHER"_s, 6000},
        {u"CIRCLE"_s, 7000},    {u"ELLIPSE"_s, 8000},   {u"STAR"_s, 9000},
        {u"CROSS"_s, 10000},    {u"ARROW"_s, 11000},
    };
    QString word = name.section(u'_', 0, 0);
    while (!word.isEmpty() && word.back().isDigit())
        word.chop(1);
    const auto it = bases.find(word);
    return it == bases.end() ? -1 : it->second;
}

} // namespace

TEST(ShapePainter, TheListHolds91EntriesSortedByNameInTheirFamilies) {
    const auto entries = ShapePainter::entries();
    ASSERT_EQ(entries.size(), 91u);
    // Sorted as the list sorts: the underscore before digits and letters.
    const auto key = [](const char* name) {
        return QString::fromLatin1(name).replace(u'_', u'\1');
    };
    std::map<int, int> lastOfFamily;
    for (size_t i = 0; i < entries.size(); ++i) {
        const QString name = QString::fromLatin1(entries[i].name);
        if (i > 0) {
            EXPECT_LT(key(entries[i - 1].name), key(entries[i].name)) << entries[i].name;
        }
        const int family = familyOf(name);
        EXPECT_EQ(entries[i].code / 1000 * 1000, family) << entries[i].name;
        if (!name.endsWith(u"_MAX"_s))
            lastOfFamily[family] = std::max(lastOfFamily[family], int(entries[i].code));
    }
    for (const auto& entry : entries) {
        if (QString::fromLatin1(entry.name).endsWith(u"_MAX"_s)) {
            EXPECT_EQ(entry.code, lastOfFamily[familyOf(QString::fromLatin1(entry.name))])
                << entry.name;
        }
    }
    const std::map<QString, int> some = {
        {u"ARROW_B"_s, 11003},     {u"ARROW3_L_AND_T_AND_R"_s, 11010},
        {u"CIRCLE_90_LT"_s, 7001}, {u"CIRCLE_270_RB"_s, 7012},
        {u"OCTAGON"_s, 6000},      {u"SQUARE"_s, 1000},
        {u"STAR32"_s, 9005},       {u"TRIANGLE_RIGHT_RB"_s, 5011}};
    for (const auto& entry : entries) {
        if (const auto it = some.find(QString::fromLatin1(entry.name)); it != some.end()) {
            EXPECT_EQ(entry.code, it->second) << entry.name;
        }
    }
    EXPECT_STREQ(entries[0].name, "ARROW_B");
}

TEST(ShapePainter, EveryCodeDrawsAndCodesOfDifferentNamesGiveDifferentPixels) {
    const QImage blank = picture();
    std::set<qint16> codes;
    for (const auto& entry : ShapePainter::entries())
        codes.insert(entry.code);
    ASSERT_EQ(codes.size(), 80u);
    std::vector<std::pair<qint16, QImage>> drawn;
    for (qint16 code : codes) {
        ShapePainter::Shape shape;
        shape.code = code;
        shape.width = twips(48);
        shape.height = twips(36);
        shape.fill = QColor(200, 60, 60);
        QImage image = blank;
        EXPECT_TRUE(ShapePainter::draw(image, QPointF(5, 6), shape)) << code;
        EXPECT_NE(image, blank) << code;
        for (const auto& [other, otherImage] : drawn)
            EXPECT_NE(image, otherImage) << code << " looks like " << other;
        drawn.emplace_back(code, image);
    }
}

TEST(ShapePainter, BandsAreBevelsInsideAndOutsideTheBorder) {
    const QColor grey(180, 180, 180);
    const QRgb light = qRgb(255, 255, 255), dark = qRgb(128, 128, 128), fill = qRgb(0, 0, 200);
    const auto drawn = [&](qint16 inner, qint16 outer) {
        ShapePainter::Shape shape;
        shape.code = 2000;
        shape.width = twips(20);
        shape.height = twips(20);
        shape.fill = QColor(fill);
        shape.innerBand = inner;
        shape.outerBand = outer;
        QImage image = picture(QSize(40, 40), grey);
        ShapePainter::draw(image, QPointF(10, 10), shape);
        return image;
    };
    // Inside the border at the top left (11) and bottom right (28); outside it at 8 and 31.
    const struct {
        qint16 inner, outer;
        QRgb in1, in2, out1, out2;
    } cases[] = {
        {ShapePainter::BandNone, ShapePainter::BandNone, fill, fill, grey.rgb(), grey.rgb()},
        {ShapePainter::BandRaised, ShapePainter::BandNone, light, dark, grey.rgb(), grey.rgb()},
        {ShapePainter::BandIndent, ShapePainter::BandRaised, dark, light, light, dark},
        {ShapePainter::BandNone, ShapePainter::BandIndent, fill, fill, dark, light},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.inner << " " << c.outer);
        const QImage image = drawn(c.inner, c.outer);
        EXPECT_EQ(image.pixel(11, 20), c.in1);
        EXPECT_EQ(image.pixel(20, 11), c.in1);
        EXPECT_EQ(image.pixel(28, 20), c.in2);
        EXPECT_EQ(image.pixel(20, 28), c.in2);
        EXPECT_EQ(image.pixel(8, 20), c.out1);
        EXPECT_EQ(image.pixel(31, 20), c.out2);
        EXPECT_EQ(image.pixel(20, 20), fill);
    }
}

TEST(ShapePainter, EmptyHugeOrFarShapesAreHarmlessAndUnknownCodesRefused) {
    const QImage blank = picture();
    ShapePainter::Shape shape;
    QImage image = blank;
    shape.width = 0;
    EXPECT_TRUE(ShapePainter::draw(image, QPointF(5, 5), shape));
    EXPECT_EQ(image, blank);
    shape.width = -700;
    EXPECT_TRUE(ShapePainter::draw(image, QPointF(5, 5), shape));
    EXPECT_EQ(image, blank);

    shape.code = 1234;
    shape.width = 350;
    EXPECT_FALSE(ShapePainter::draw(image, QPointF(5, 5), shape));
    EXPECT_EQ(image, blank);
    EXPECT_FALSE(ShapePainter::isShape(1234));
    EXPECT_TRUE(ShapePainter::outline(1234, QRectF(0, 0, 10, 10)).isEmpty());

    for (qint16 code : {qint16(1000), qint16(11014), qint16(9005), qint16(8010), qint16(6005)}) {
        shape.code = code;
        shape.width = 2147483647.0;
        shape.height = 1e300;
        shape.innerBand = ShapePainter::BandRaised;
        shape.outerBand = ShapePainter::BandIndent;
        image = blank;
        EXPECT_TRUE(ShapePainter::draw(image, QPointF(5, 5), shape));
        EXPECT_EQ(image.size(), blank.size());
        if (code == 1000) { // a square larger than the picture covers it from its corner on
            EXPECT_EQ(image.pixel(40, 40), shape.fill.rgb());
        }
        image = blank;
        EXPECT_TRUE(ShapePainter::draw(image, QPointF(-3e9, -3e9), shape));
        EXPECT_EQ(image, blank);
        image = blank;
        shape.width = shape.height = 350;
        EXPECT_TRUE(ShapePainter::draw(image, QPointF(1e12, 1e12), shape));
        EXPECT_EQ(image, blank);
    }
}
