#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <span>

// A text stamped on a picture in one of the styles of the text window's list, with its shadow
// and highlight colours, on a filled rectangle when asked. Sizes given in twips count 15 twips
// to a pixel of the picture; font sizes are points at 96 pixels to the inch.
namespace TextStamp {

enum Style : qint32 {
    Normal = 0,
    InsetLight = 1,
    InsetHeavy = 2,
    RaisedLight = 3,
    RaisedHeavy = 4,
    DropShadow = 5,
    BlockShadow = 6,
    OutlineBlock = 7,
    InsetExtraLight = 8,
    InsetExtraHeavy = 9,
    RaisedExtraLight = 10,
    RaisedExtraHeavy = 11,
    Max = 11,
};

struct Entry {
    const char* name;
    qint32 code;
};

// The thirteen entries of the style list, sorted by name, each with its style code.
std::span<const Entry> entries();

// Room added to the measured text on each side together (width and height), and the depth of
// the shadows and highlights, in twips.
inline constexpr double MarginTwips = 100;
inline constexpr double DepthTwips = 10;

struct Stamp {
    QString text;
    QString fontName = QStringLiteral("MS Sans Serif");
    double fontSize = 8; // points
    bool bold = false;
    bool italic = false;
    QColor color = Qt::black;
    QColor shadow = Qt::darkGray;
    QColor highlight = Qt::white;
    QColor rectangle = Qt::white;
    bool withRectangle = false;
    qint32 style = Normal;
};

// The stamp's font at the picture's scale.
QFont fontOf(const Stamp& stamp);

// Draws the stamp with the top-left corner of its box at `corner`, in pixels of the picture:
// the rectangle first when asked, then the text in its style. What falls outside the picture is
// clipped. A picture kept as a colour table becomes true colour first. Returns the box: the
// measured text and the margin, in pixels.
QRectF draw(QImage& image, QPointF corner, const Stamp& stamp);

} // namespace TextStamp
