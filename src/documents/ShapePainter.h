#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <span>

// The shapes stamped on a picture: the 91 names of the shape window's list with their codes,
// the outline each code stands for, and the drawing of a shape with its fill, its border and the
// bands inside and outside the border. Sizes given in twips count 15 twips to a pixel of the
// picture.
namespace ShapePainter {

struct Entry {
    const char* name;
    qint16 code;
};

// The 91 entries of the list, sorted by name, each with its shape code. An entry ending in
// _MAX repeats the last code of its family.
std::span<const Entry> entries();
// Whether a code is one of the list's.
bool isShape(qint16 code);

enum Band : qint16 { BandNone = 0, BandRaised = 1, BandIndent = 2 };

// The border's width and the bands' width, in twips.
inline constexpr double BorderWidthTwips = 10;
inline constexpr double BandWidthTwips = 30;

struct Shape {
    qint16 code = 1000;
    double width = 350; // twips
    double height = 350;
    QColor fill = Qt::white;
    QColor border = Qt::black;
    double borderWidth = BorderWidthTwips;
    qint16 innerBand = BandNone;
    qint16 outerBand = BandNone;
};

// The outline of a shape code in a box; empty for a code that is not a shape. The letters B, L,
// R and T at the end of a name tell the side (the side an arrow points to, a triangle's apex, a
// trapezoid's short side, a parallelogram's lean, a half circle's side), and the pairs LT, RT,
// LB and RB the corner (a right triangle's right angle, the quarter of a circle's 90 degree part,
// the quarter missing from its 270 degree part).
QPainterPath outline(qint16 code, const QRectF& box);

// Draws the shape with its box's top-left corner at `corner`, in pixels of the picture: the outer
// band, the fill, the inner band and the border. Raised bands are light above and left, dark
// below and right; indented ones the other way round. What falls outside the picture is
// clipped, and a box without width or height draws nothing. False for a code that is not a
// shape.
bool draw(QImage& image, QPointF corner, const Shape& shape);

} // namespace ShapePainter
