#include "documents/ShapePainter.h"

#include "platform/Twips.h"
#include "platform/imaging/PixelOps.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace ShapePainter {

namespace {

constexpr std::array<Entry, 91> kEntries{{
    {"ARROW_B", 11003},
    {"ARROW_L", 11000},
    {"ARROW_MAX", 11014},
    {"ARROW_R", 11001},
    {"ARROW_T", 11002},
    {"ARROW2_L_AND_B", 11007},
    {"ARROW2_L_AND_R", 11004},
    {"ARROW2_L_AND_T", 11006},
    {"ARROW2_R_AND_B", 11009},
    {"ARROW2_R_AND_T", 11008},
    {"ARROW2_T_AND_B", 11005},
    {"ARROW3_L_AND_B_AND_R", 11012},
    {"ARROW3_L_AND_T_AND_B", 11013},
    {"ARROW3_L_AND_T_AND_R", 11010},
    {"ARROW3_T_AND_R_AND_B", 11011},
    {"ARROW4_L_AND_T_AND_R_AND_B", 11014},
    {"CIRCLE", 7000},
    {"CIRCLE_180_B", 7008},
    {"CIRCLE_180_L", 7005},
    {"CIRCLE_180_R", 7006},
    {"CIRCLE_180_T", 7007},
    {"CIRCLE_270_LB", 7010},
    {"CIRCLE_270_LT", 7009},
    {"CIRCLE_270_RB", 7012},
    {"CIRCLE_270_RT", 7011},
    {"CIRCLE_90_LB", 7002},
    {"CIRCLE_90_LT", 7001},
    {"CIRCLE_90_RB", 7004},
    {"CIRCLE_90_RT", 7003},
    {"CIRCLE_MAX", 7012},
    {"CROSS_LARGE", 10002},
    {"CROSS_MAX", 10002},
    {"CROSS_MEDIUM", 10001},
    {"CROSS_SMALL", 10000},
    {"DIAMOND", 6001},
    {"ELLIPSE", 8000},
    {"ELLIPSE_180_B", 8008},
    {"ELLIPSE_180_L", 8005},
    {"ELLIPSE_180_R", 8006},
    {"ELLIPSE_180_T", 8007},
    {"ELLIPSE_270_LB", 8010},
    {"ELLIPSE_270_LT", 8009},
    {"ELLIPSE_270_RB", 8012},
    {"ELLIPSE_270_RT", 8011},
    {"ELLIPSE_90_LB", 8002},
    {"ELLIPSE_90_LT", 8001},
    {"ELLIPSE_90_RB", 8004},
    {"ELLIPSE_90_RT", 8003},
    {"ELLIPSE_MAX", 8012},
    {"HEXAGON", 6003},
    {"LINE", 6004},
    {"OCTAGON", 6000},
    {"OTHER_MAX", 6005},
    {"PARALLELOGRAM_B", 3003},
    {"PARALLELOGRAM_L", 3000},
    {"PARALLELOGRAM_MAX", 3003},
    {"PARALLELOGRAM_R", 3001},
    {"PARALLELOGRAM_T", 3002},
    {"PENTAGON", 6002},
    {"RECTANGLE", 2000},
    {"RECTANGLE_MAX", 2001},
    {"RECTANGLE_ROUNDED", 2001},
    {"REGION", 6005},
    {"SQUARE", 1000},
    {"SQUARE_MAX", 1001},
    {"SQUARE_ROUNDED", 1001},
    {"STAR_MAX", 9005},
    {"STAR16", 9003},
    {"STAR24", 9004},
    {"STAR32", 9005},
    {"STAR4", 9000},
    {"STAR5", 9001},
    {"STAR8", 9002},
    {"TRAPEZOID_B", 4003},
    {"TRAPEZOID_L", 4000},
    {"TRAPEZOID_MAX", 4003},
    {"TRAPEZOID_R", 4001},
    {"TRAPEZOID_T", 4002},
    {"TRIANGLE_EQUILATERAL_B", 5003},
    {"TRIANGLE_EQUILATERAL_L", 5000},
    {"TRIANGLE_EQUILATERAL_R", 5001},
    {"TRIANGLE_EQUILATERAL_T", 5002},
    {"TRIANGLE_ISOSCELES_B", 5007},
    {"TRIANGLE_ISOSCELES_L", 5004},
    {"TRIANGLE_ISOSCELES_R", 5005},
    {"TRIANGLE_ISOSCELES_T", 5006},
    {"TRIANGLE_MAX", 5011},
    {"TRIANGLE_RIGHT_LB", 5009},
    {"TRIANGLE_RIGHT_LT", 5008},
    {"TRIANGLE_RIGHT_RB", 5011},
    {"TRIANGLE_RIGHT_RT", 5010},
}};

// Beyond these a shape is drawn at the limit: the picture is clipped long before.
constexpr double kMaxSide = 1 << 15;
constexpr double kMaxPlace = 1 << 20;

enum Side { Left, Right, Top, Bottom };
enum Corner { LeftTop, RightTop, LeftBottom, RightBottom };
enum Direction : unsigned { ToLeft = 1, ToRight = 2, ToTop = 4, ToBottom = 8 };

QPainterPath polygon(std::initializer_list<QPointF> points) {
    QPainterPath path;
    path.addPolygon(QPolygonF(points));
    path.closeSubpath();
    return path;
}

// The square of the box's smaller side, at its top-left corner.
QRectF squareOf(const QRectF& box) {
    const double side = std::min(box.width(), box.height());
    return {box.topLeft(), QSizeF(side, side)};
}

QPainterPath square(const QRectF& box) {
    QPainterPath path;
    path.addRect(squareOf(box));
    return path;
}

QPainterPath rectangle(const QRectF& box) {
    QPainterPath path;
    path.addRect(box);
    return path;
}

QPainterPath rounded(const QRectF& box) {
    const double radius = std::min(box.width(), box.height()) / 5;
    QPainterPath path;
    path.addRoundedRect(box, radius, radius);
    return path;
}

// Leans toward its side: the top edge to the left or right, the left edge up or down.
QPainterPath parallelogram(const QRectF& b, Side side) {
    const double x = b.width() / 4, y = b.height() / 4;
    switch (side) {
    case Left:
        return polygon(
            {b.topLeft(), {b.right() - x, b.top()}, b.bottomRight(), {b.left() + x, b.bottom()}});
    case Right:
        return polygon(
            {{b.left() + x, b.top()}, b.topRight(), {b.right() - x, b.bottom()}, b.bottomLeft()});
    case Top:
        return polygon(
            {b.topLeft(), {b.right(), b.top() + y}, b.bottomRight(), {b.left(), b.bottom() - y}});
    case Bottom:
        break;
    }
    return polygon(
        {{b.left(), b.top() + y}, b.topRight(), {b.right(), b.bottom() - y}, b.bottomLeft()});
}

// The short one of its parallel sides on its side.
QPainterPath trapezoid(const QRectF& b, Side side) {
    const double x = b.width() / 4, y = b.height() / 4;
    switch (side) {
    case Left:
        return polygon(
            {{b.left(), b.top() + y}, b.topRight(), b.bottomRight(), {b.left(), b.bottom() - y}});
    case Right:
        return polygon(
            {b.topLeft(), {b.right(), b.top() + y}, {b.right(), b.bottom() - y}, b.bottomLeft()});
    case Top:
        return polygon(
            {{b.left() + x, b.top()}, {b.right() - x, b.top()}, b.bottomRight(), b.bottomLeft()});
    case Bottom:
        break;
    }
    return polygon(
        {b.topLeft(), b.topRight(), {b.right() - x, b.bottom()}, {b.left() + x, b.bottom()}});
}

// Three equal sides, the apex toward its side, as large as the box holds.
QPainterPath equilateral(const QRectF& b, Side side) {
    const double ratio = std::numbers::sqrt3 / 2;
    const double l = b.left(), t = b.top();
    if (side == Top || side == Bottom) {
        const double a = std::min(b.width(), b.height() / ratio), h = a * ratio;
        if (side == Top)
            return polygon({{l + a / 2, t}, {l + a, t + h}, {l, t + h}});
        return polygon({{l, t}, {l + a, t}, {l + a / 2, t + h}});
    }
    const double a = std::min(b.height(), b.width() / ratio), w = a * ratio;
    if (side == Left)
        return polygon({{l, t + a / 2}, {l + w, t}, {l + w, t + a}});
    return polygon({{l, t}, {l + w, t + a / 2}, {l, t + a}});
}

// Two equal sides filling the box, the apex toward its side.
QPainterPath isosceles(const QRectF& b, Side side) {
    const QPointF c = b.center();
    switch (side) {
    case Left:
        return polygon({{b.left(), c.y()}, b.topRight(), b.bottomRight()});
    case Right:
        return polygon({b.topLeft(), {b.right(), c.y()}, b.bottomLeft()});
    case Top:
        return polygon({{c.x(), b.top()}, b.bottomRight(), b.bottomLeft()});
    case Bottom:
        break;
    }
    return polygon({b.topLeft(), b.topRight(), {c.x(), b.bottom()}});
}

// The right angle at its corner.
QPainterPath rightTriangle(const QRectF& b, Corner corner) {
    switch (corner) {
    case LeftTop:
        return polygon({b.topLeft(), b.topRight(), b.bottomLeft()});
    case RightTop:
        return polygon({b.topLeft(), b.topRight(), b.bottomRight()});
    case LeftBottom:
        return polygon({b.topLeft(), b.bottomRight(), b.bottomLeft()});
    case RightBottom:
        break;
    }
    return polygon({b.topRight(), b.bottomRight(), b.bottomLeft()});
}

QPainterPath octagon(const QRectF& b) {
    const double x = b.width() * (1 - std::numbers::sqrt2 / 2);
    const double y = b.height() * (1 - std::numbers::sqrt2 / 2);
    return polygon({{b.left() + x, b.top()},
                    {b.right() - x, b.top()},
                    {b.right(), b.top() + y},
                    {b.right(), b.bottom() - y},
                    {b.right() - x, b.bottom()},
                    {b.left() + x, b.bottom()},
                    {b.left(), b.bottom() - y},
                    {b.left(), b.top() + y}});
}

QPainterPath diamond(const QRectF& b) {
    const QPointF c = b.center();
    return polygon({{c.x(), b.top()}, {b.right(), c.y()}, {c.x(), b.bottom()}, {b.left(), c.y()}});
}

// Corners on the oval of the box, the first at `startDegrees` (0 to the right, turning down),
// alternately at the full and at `inner` times the radii.
QPainterPath onOval(const QRectF& b, int corners, double startDegrees, double inner = 1) {
    const QPointF c = b.center();
    const double rx = b.width() / 2, ry = b.height() / 2;
    const int count = inner == 1 ? corners : 2 * corners;
    QPolygonF points;
    for (int i = 0; i < count; ++i) {
        const double angle = (startDegrees + 360.0 * i / count) * std::numbers::pi / 180;
        const double k = (i % 2 == 1 && inner != 1) ? inner : 1;
        points << QPointF(c.x() + k * rx * std::cos(angle), c.y() + k * ry * std::sin(angle));
    }
    QPainterPath path;
    path.addPolygon(points);
    path.closeSubpath();
    return path;
}

QPainterPath pentagon(const QRectF& b) {
    return onOval(b, 5, -90);
}

QPainterPath hexagon(const QRectF& b) {
    return onOval(b, 6, 0);
}

// From the top-left corner to the bottom-right one.
QPainterPath line(const QRectF& b) {
    QPainterPath path(b.topLeft());
    path.lineTo(b.bottomRight());
    return path;
}

// A free-form area: curves whose control points stay within the box.
QPainterPath region(const QRectF& b) {
    const auto at = [&b](double x, double y) {
        return QPointF(b.left() + x * b.width(), b.top() + y * b.height());
    };
    QPainterPath path(at(0.5, 0));
    path.cubicTo(at(0.95, 0), at(1, 0.3), at(0.8, 0.55));
    path.cubicTo(at(0.6, 0.8), at(0.75, 1), at(0.4, 1));
    path.cubicTo(at(0, 1), at(0, 0.6), at(0.15, 0.35));
    path.cubicTo(at(0.3, 0.1), at(0.2, 0), at(0.5, 0));
    path.closeSubpath();
    return path;
}

QPainterPath oval(const QRectF& b) {
    QPainterPath path;
    path.addEllipse(b);
    return path;
}

// A part of the oval `o` from `start` through `span` degrees (counter-clockwise from the right),
// closed through its centre.
QPainterPath pie(const QRectF& o, double start, double span) {
    QPainterPath path(o.center());
    path.arcTo(o, start, span);
    path.closeSubpath();
    return path;
}

// The quarter of an oval that lies at the corner of `area`, filling it.
QPainterPath quarter(const QRectF& area, Corner corner) {
    const QSizeF size(2 * area.width(), 2 * area.height());
    switch (corner) {
    case LeftTop:
        return pie(QRectF(area.topLeft(), size), 90, 90);
    case RightTop:
        return pie(QRectF(area.topLeft() - QPointF(area.width(), 0), size), 0, 90);
    case LeftBottom:
        return pie(QRectF(area.topLeft() - QPointF(0, area.height()), size), 180, 90);
    case RightBottom:
        break;
    }
    return pie(QRectF(area.topLeft() - QPointF(area.width(), area.height()), size), 270, 90);
}

// The half of an oval on its side, filling `area`.
QPainterPath half(const QRectF& area, Side side) {
    const double w = area.width(), h = area.height();
    switch (side) {
    case Left:
        return pie(QRectF(area.topLeft(), QSizeF(2 * w, h)), 90, 180);
    case Right:
        return pie(QRectF(area.topLeft() - QPointF(w, 0), QSizeF(2 * w, h)), 270, 180);
    case Top:
        return pie(QRectF(area.topLeft(), QSizeF(w, 2 * h)), 0, 180);
    case Bottom:
        break;
    }
    return pie(QRectF(area.topLeft() - QPointF(0, h), QSizeF(w, 2 * h)), 180, 180);
}

// The oval without the quarter at its corner.
QPainterPath threeQuarters(const QRectF& o, Corner missing) {
    switch (missing) {
    case LeftTop:
        return pie(o, 180, 270);
    case RightTop:
        return pie(o, 90, 270);
    case LeftBottom:
        return pie(o, 270, 270);
    case RightBottom:
        break;
    }
    return pie(o, 0, 270);
}

// The largest half circle the box holds on its side.
QPainterPath halfCircle(const QRectF& b, Side side) {
    if (side == Left || side == Right) {
        const double r = std::min(b.width(), b.height() / 2);
        return half(QRectF(b.topLeft(), QSizeF(r, 2 * r)), side);
    }
    const double r = std::min(b.width() / 2, b.height());
    return half(QRectF(b.topLeft(), QSizeF(2 * r, r)), side);
}

// A star of `points` points, the first up; the more points, the shallower.
QPainterPath star(const QRectF& b, int points) {
    const double inner = points <= 5    ? 0.4
                         : points <= 8  ? 0.5
                         : points <= 16 ? 0.65
                         : points <= 24 ? 0.72
                                        : 0.8;
    return onOval(b, points, -90, inner);
}

// A cross of a bar upright and a bar across, each `thickness` of the box's side.
QPainterPath cross(const QRectF& b, double thickness) {
    const QPointF c = b.center();
    const double a = b.width() * thickness / 2, e = b.height() * thickness / 2;
    return polygon({{c.x() - a, b.top()},
                    {c.x() + a, b.top()},
                    {c.x() + a, c.y() - e},
                    {b.right(), c.y() - e},
                    {b.right(), c.y() + e},
                    {c.x() + a, c.y() + e},
                    {c.x() + a, b.bottom()},
                    {c.x() - a, b.bottom()},
                    {c.x() - a, c.y() + e},
                    {b.left(), c.y() + e},
                    {b.left(), c.y() - e},
                    {c.x() - a, c.y() - e}});
}

// One arm of an arrow along an axis, from `from` to its head's tip at `tip`, centred on
// `across`; `vertical` arms run along y.
QPainterPath arm(double from, double tip, double across, double head, double shaft, bool vertical) {
    const double sign = tip < from ? -1 : 1;
    const double length = std::abs(tip - from);
    const double neck = tip - sign * std::min(head * 0.8, length * 0.6);
    const auto p = [vertical](double a, double c) {
        return vertical ? QPointF(c, a) : QPointF(a, c);
    };
    return polygon({p(tip, across), p(neck, across - head / 2), p(neck, across - shaft / 2),
                    p(from, across - shaft / 2), p(from, across + shaft / 2),
                    p(neck, across + shaft / 2), p(neck, across + head / 2)});
}

// An arrow with a head toward each of its directions. The arms meet in the middle between two
// opposite heads, and at the far side from a lone head, so that the arrow fills the box.
QPainterPath arrow(const QRectF& b, unsigned directions) {
    const bool across = directions & (ToLeft | ToRight);
    const bool upright = directions & (ToTop | ToBottom);
    const double side = std::min(b.width(), b.height());
    // Heads of the arms across span the box's height unless arms upright share it.
    const double headAcross = upright ? side / 2 : b.height();
    const double headUpright = across ? side / 2 : b.width();
    const auto hub = [](bool low, bool high, double lo, double hi, double room) {
        if (low == high)
            return (lo + hi) / 2;
        return low ? hi - room : lo + room;
    };
    const double x = hub(directions & ToLeft, directions & ToRight, b.left(), b.right(),
                         upright ? headUpright / 2 : 0);
    const double y = hub(directions & ToTop, directions & ToBottom, b.top(), b.bottom(),
                         across ? headAcross / 2 : 0);
    // The arms reach over the hub to cover the other arms' shafts there.
    const double overX = upright ? headUpright / 4 : 0, overY = across ? headAcross / 4 : 0;
    QPainterPath path;
    const auto add = [&path](const QPainterPath& piece) {
        path = path.isEmpty() ? piece : path.united(piece);
    };
    if (directions & ToLeft)
        add(arm(x + overX, b.left(), y, headAcross, headAcross / 2, false));
    if (directions & ToRight)
        add(arm(x - overX, b.right(), y, headAcross, headAcross / 2, false));
    if (directions & ToTop)
        add(arm(y + overY, b.top(), x, headUpright, headUpright / 2, true));
    if (directions & ToBottom)
        add(arm(y - overY, b.bottom(), x, headUpright, headUpright / 2, true));
    return path;
}

// Each code with the outline it stands for in a box.
struct Drawing {
    qint16 code;
    QPainterPath (*outline)(const QRectF& box);
};

constexpr Drawing kDrawings[] = {
    {1000, [](const QRectF& b) { return square(b); }},
    {1001, [](const QRectF& b) { return rounded(squareOf(b)); }},
    {2000, [](const QRectF& b) { return rectangle(b); }},
    {2001, [](const QRectF& b) { return rounded(b); }},
    {3000, [](const QRectF& b) { return parallelogram(b, Left); }},
    {3001, [](const QRectF& b) { return parallelogram(b, Right); }},
    {3002, [](const QRectF& b) { return parallelogram(b, Top); }},
    {3003, [](const QRectF& b) { return parallelogram(b, Bottom); }},
    {4000, [](const QRectF& b) { return trapezoid(b, Left); }},
    {4001, [](const QRectF& b) { return trapezoid(b, Right); }},
    {4002, [](const QRectF& b) { return trapezoid(b, Top); }},
    {4003, [](const QRectF& b) { return trapezoid(b, Bottom); }},
    {5000, [](const QRectF& b) { return equilateral(b, Left); }},
    {5001, [](const QRectF& b) { return equilateral(b, Right); }},
    {5002, [](const QRectF& b) { return equilateral(b, Top); }},
    {5003, [](const QRectF& b) { return equilateral(b, Bottom); }},
    {5004, [](const QRectF& b) { return isosceles(b, Left); }},
    {5005, [](const QRectF& b) { return isosceles(b, Right); }},
    {5006, [](const QRectF& b) { return isosceles(b, Top); }},
    {5007, [](const QRectF& b) { return isosceles(b, Bottom); }},
    {5008, [](const QRectF& b) { return rightTriangle(b, LeftTop); }},
    {5009, [](const QRectF& b) { return rightTriangle(b, LeftBottom); }},
    {5010, [](const QRectF& b) { return rightTriangle(b, RightTop); }},
    {5011, [](const QRectF& b) { return rightTriangle(b, RightBottom); }},
    {6000, [](const QRectF& b) { return octagon(b); }},
    {6001, [](const QRectF& b) { return diamond(b); }},
    {6002, [](const QRectF& b) { return pentagon(b); }},
    {6003, [](const QRectF& b) { return hexagon(b); }},
    {6004, [](const QRectF& b) { return line(b); }},
    {6005, [](const QRectF& b) { return region(b); }},
    {7000, [](const QRectF& b) { return oval(squareOf(b)); }},
    {7001, [](const QRectF& b) { return quarter(squareOf(b), LeftTop); }},
    {7002, [](const QRectF& b) { return quarter(squareOf(b), LeftBottom); }},
    {7003, [](const QRectF& b) { return quarter(squareOf(b), RightTop); }},
    {7004, [](const QRectF& b) { return quarter(squareOf(b), RightBottom); }},
    {7005, [](const QRectF& b) { return halfCircle(b, Left); }},
    {7006, [](const QRectF& b) { return halfCircle(b, Right); }},
    {7007, [](const QRectF& b) { return halfCircle(b, Top); }},
    {7008, [](const QRectF& b) { return halfCircle(b, Bottom); }},
    {7009, [](const QRectF& b) { return threeQuarters(squareOf(b), LeftTop); }},
    {7010, [](const QRectF& b) { return threeQuarters(squareOf(b), LeftBottom); }},
    {7011, [](const QRectF& b) { return threeQuarters(squareOf(b), RightTop); }},
    {7012, [](const QRectF& b) { return threeQuarters(squareOf(b), RightBottom); }},
    {8000, [](const QRectF& b) { return oval(b); }},
    {8001, [](const QRectF& b) { return quarter(b, LeftTop); }},
    {8002, [](const QRectF& b) { return quarter(b, LeftBottom); }},
    {8003, [](const QRectF& b) { return quarter(b, RightTop); }},
    {8004, [](const QRectF& b) { return quarter(b, RightBottom); }},
    {8005, [](const QRectF& b) { return half(b, Left); }},
    {8006, [](const QRectF& b) { return half(b, Right); }},
    {8007, [](const QRectF& b) { return half(b, Top); }},
    {8008, [](const QRectF& b) { return half(b, Bottom); }},
    {8009, [](const QRectF& b) { return threeQuarters(b, LeftTop); }},
    {8010, [](const QRectF& b) { return threeQuarters(b, LeftBottom); }},
    {8011, [](const QRectF& b) { return threeQuarters(b, RightTop); }},
    {8012, [](const QRectF& b) { return threeQuarters(b, RightBottom); }},
    {9000, [](const QRectF& b) { return star(b, 4); }},
    {9001, [](const QRectF& b) { return star(b, 5); }},
    {9002, [](const QRectF& b) { return star(b, 8); }},
    {9003, [](const QRectF& b) { return star(b, 16); }},
    {9004, [](const QRectF& b) { return star(b, 24); }},
    {9005, [](const QRectF& b) { return star(b, 32); }},
    {10000, [](const QRectF& b) { return cross(b, 0.2); }},
    {10001, [](const QRectF& b) { return cross(b, 1.0 / 3); }},
    {10002, [](const QRectF& b) { return cross(b, 0.5); }},
    {11000, [](const QRectF& b) { return arrow(b, ToLeft); }},
    {11001, [](const QRectF& b) { return arrow(b, ToRight); }},
    {11002, [](const QRectF& b) { return arrow(b, ToTop); }},
    {11003, [](const QRectF& b) { return arrow(b, ToBottom); }},
    {11004, [](const QRectF& b) { return arrow(b, ToLeft | ToRight); }},
    {11005, [](const QRectF& b) { return arrow(b, ToTop | ToBottom); }},
    {11006, [](const QRectF& b) { return arrow(b, ToLeft | ToTop); }},
    {11007, [](const QRectF& b) { return arrow(b, ToLeft | ToBottom); }},
    {11008, [](const QRectF& b) { return arrow(b, ToRight | ToTop); }},
    {11009, [](const QRectF& b) { return arrow(b, ToRight | ToBottom); }},
    {11010, [](const QRectF& b) { return arrow(b, ToLeft | ToTop | ToRight); }},
    {11011, [](const QRectF& b) { return arrow(b, ToTop | ToRight | ToBottom); }},
    {11012, [](const QRectF& b) { return arrow(b, ToLeft | ToBottom | ToRight); }},
    {11013, [](const QRectF& b) { return arrow(b, ToLeft | ToTop | ToBottom); }},
    {11014, [](const QRectF& b) { return arrow(b, ToLeft | ToTop | ToRight | ToBottom); }},
};

const Drawing* drawingOf(qint16 code) {
    const auto it = std::find_if(std::begin(kDrawings), std::end(kDrawings),
                                 [code](const Drawing& d) { return d.code == code; });
    return it == std::end(kDrawings) ? nullptr : it;
}

} // namespace

std::span<const Entry> entries() {
    return kEntries;
}

bool isShape(qint16 code) {
    return drawingOf(code) != nullptr;
}

QPainterPath outline(qint16 code, const QRectF& box) {
    const Drawing* drawing = drawingOf(code);
    return drawing ? drawing->outline(box) : QPainterPath();
}

namespace {

double pixels(double twips) {
    return twips / Twips::PerPixel;
}

// A width given in twips, at least one pixel when there is any.
double lineWidth(double twips) {
    return twips > 0 ? std::max(1.0, std::round(pixels(twips))) : 0;
}

// The colours of a band: above and left, then below and right.
std::pair<QColor, QColor> bandColors(qint16 band) {
    const QColor light(255, 255, 255), dark(128, 128, 128);
    if (band == BandIndent)
        return {dark, light};
    return {light, dark};
}

bool hasBand(qint16 band) {
    return band == BandRaised || band == BandIndent;
}

} // namespace

bool draw(QImage& image, QPointF corner, const Shape& shape) {
    if (!isShape(shape.code))
        return false;
    const double width = std::min(pixels(shape.width), kMaxSide);
    const double height = std::min(pixels(shape.height), kMaxSide);
    if (image.isNull() || !(width > 0) || !(height > 0))
        return true;
    corner = QPointF(std::clamp(corner.x(), -kMaxPlace, kMaxPlace),
                     std::clamp(corner.y(), -kMaxPlace, kMaxPlace));
    const QPainterPath path = outline(shape.code, QRectF(corner, QSizeF(width, height)));
    const double band = lineWidth(BandWidthTwips);

    PixelOps::makeTrueColor(image);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(image.rect());
    if (hasBand(shape.outerBand)) {
        const auto [upLeft, downRight] = bandColors(shape.outerBand);
        painter.fillPath(path.translated(-band, -band), upLeft);
        painter.fillPath(path.translated(band, band), downRight);
    }
    painter.fillPath(path, shape.fill);
    if (hasBand(shape.innerBand)) {
        // Within the shape: the edge whose neighbour above and left is outside takes the first
        // colour, the edge whose neighbour below and right is outside the second.
        const auto [upLeft, downRight] = bandColors(shape.innerBand);
        painter.save();
        painter.setClipPath(path, Qt::IntersectClip);
        painter.fillPath(path, upLeft);
        painter.fillPath(path.translated(band, band), downRight);
        painter.setClipPath(path.translated(band, band), Qt::IntersectClip);
        painter.fillPath(path.translated(-band, -band), shape.fill);
        painter.restore();
    }
    if (const double border = lineWidth(shape.borderWidth); border > 0)
        painter.strokePath(path, QPen(shape.border, border));
    return true;
}

} // namespace ShapePainter
