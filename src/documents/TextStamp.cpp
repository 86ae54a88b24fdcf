#include "documents/TextStamp.h"

#include "platform/FontNames.h"
#include "platform/Twips.h"
#include "platform/imaging/PixelOps.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace TextStamp {

namespace {

constexpr std::array<Entry, 13> kEntries{{
    {"TEXTSTYLE_BLOCKSHADOW", BlockShadow},
    {"TEXTSTYLE_DROPSHADOW", DropShadow},
    {"TEXTSTYLE_INSETEXTRAHEAVY", InsetExtraHeavy},
    {"TEXTSTYLE_INSETEXTRALIGHT", InsetExtraLight},
    {"TEXTSTYLE_INSETHEAVY", InsetHeavy},
    {"TEXTSTYLE_INSETLIGHT", InsetLight},
    {"TEXTSTYLE_MAX", Max},
    {"TEXTSTYLE_NORMAL", Normal},
    {"TEXTSTYLE_OUTLINEBLOCK", OutlineBlock},
    {"TEXTSTYLE_RAISEDEXTRAHEAVY", RaisedExtraHeavy},
    {"TEXTSTYLE_RAISEDEXTRALIGHT", RaisedExtraLight},
    {"TEXTSTYLE_RAISEDHEAVY", RaisedHeavy},
    {"TEXTSTYLE_RAISEDLIGHT", RaisedLight},
}};

// Beyond these a font and a place are drawn at the limit: the picture is clipped long before.
constexpr int kMaxFontPixels = 4096;
constexpr double kMaxPlace = 1 << 20;
// A long text is measured piece by piece, and drawn only as far as the picture reaches.
constexpr qsizetype kPiece = 256;

double pixels(double twips) {
    return twips / Twips::PerPixel;
}

// The depth of the effects: 10 twips, at least one pixel.
double depth() {
    return std::max(1.0, std::round(pixels(DepthTwips)));
}

// The part of the text that can reach the picture from `left`: whole pieces up to the first
// that ends beyond the right edge.
QString visiblePart(const QString& text, const QFontMetricsF& metrics, double left, int width) {
    double end = left;
    for (qsizetype at = 0; at < text.size(); at += kPiece) {
        end += metrics.horizontalAdvance(text.mid(at, kPiece));
        if (end > width)
            return text.left(at + kPiece);
    }
    return text;
}

// How far the inset and raised styles reach: extra light one depth, light two, heavy three,
// extra heavy four.
int weightOf(qint32 style) {
    switch (style) {
    case InsetExtraLight:
    case RaisedExtraLight:
        return 1;
    case InsetLight:
    case RaisedLight:
        return 2;
    case InsetHeavy:
    case RaisedHeavy:
        return 3;
    case InsetExtraHeavy:
    case RaisedExtraHeavy:
        return 4;
    default:
        return 0;
    }
}

bool isInset(qint32 style) {
    return style == InsetExtraLight || style == InsetLight || style == InsetHeavy ||
           style == InsetExtraHeavy;
}

class TextPainter {
public:
    TextPainter(QPainter& painter, QPointF baseline, const QString& text)
        : m_painter(painter), m_baseline(baseline), m_text(text) {}

    void at(double dx, double dy, const QColor& color) {
        m_painter.setPen(color);
        m_painter.drawText(m_baseline + QPointF(dx, dy), m_text);
    }

    // Copies stepping down and right, from the farthest in.
    void block(int steps, const QColor& color) {
        for (int i = steps; i >= 1; --i)
            at(i, i, color);
    }

    // Inset: the shadow up and left of the text, the highlight down and right; raised the
    // other way round.
    void bevel(int steps, const QColor& upLeft, const QColor& downRight) {
        for (int i = steps; i >= 1; --i) {
            at(-i, -i, upLeft);
            at(i, i, downRight);
        }
    }

    void outlined(const QColor& fill, const QColor& line, double width) {
        QPainterPath path;
        path.addText(m_baseline, m_painter.font(), m_text);
        m_painter.fillPath(path, fill);
        m_painter.strokePath(path, QPen(line, width));
    }

private:
    QPainter& m_painter;
    QPointF m_baseline;
    const QString& m_text;
};

} // namespace

std::span<const Entry> entries() {
    return kEntries;
}

QFont fontOf(const Stamp& stamp) {
    QFont font(FontNames::familyOf(stamp.fontName));
    font.setStyleHint(QFont::SansSerif);
    const double points = std::isfinite(stamp.fontSize) ? stamp.fontSize : 8;
    font.setPixelSize(
        static_cast<int>(std::clamp(std::round(points * 96 / 72), 1.0, double(kMaxFontPixels))));
    font.setBold(stamp.bold);
    font.setItalic(stamp.italic);
    return font;
}

QRectF draw(QImage& image, QPointF corner, const Stamp& stamp) {
    if (image.isNull())
        return {};
    PixelOps::makeTrueColor(image);
    corner = QPointF(std::clamp(corner.x(), -kMaxPlace, kMaxPlace),
                     std::clamp(corner.y(), -kMaxPlace, kMaxPlace));
    const QFont font = fontOf(stamp);
    const QFontMetricsF metrics(font);
    const double margin = pixels(MarginTwips);
    const QString text = visiblePart(stamp.text, metrics, corner.x() + margin / 2, image.width());
    const QRectF box(corner,
                     QSizeF(metrics.horizontalAdvance(text) + margin, metrics.height() + margin));

    QPainter painter(&image);
    painter.setClipRect(image.rect());
    // Bounded to the picture and a little beyond, so that an edge outside stays outside.
    const QRectF shown = box.intersected(QRectF(image.rect()).adjusted(-4, -4, 4, 4));
    if (stamp.withRectangle && !shown.isEmpty()) {
        painter.setPen(QPen(stamp.color, 1));
        painter.setBrush(stamp.rectangle);
        painter.drawRect(shown);
    }

    painter.setFont(font);
    const QPointF baseline(box.left() + margin / 2, box.top() + margin / 2 + metrics.ascent());
    TextPainter layers(painter, baseline, text);
    const int d = static_cast<int>(depth());
    switch (stamp.style) {
    case DropShadow:
        layers.at(3 * d, 3 * d, stamp.shadow);
        break;
    case BlockShadow:
        layers.block(3 * d, stamp.shadow);
        break;
    case OutlineBlock:
        layers.block(3 * d, stamp.shadow);
        layers.outlined(stamp.highlight, stamp.color, d);
        return box;
    default:
        if (const int weight = weightOf(stamp.style)) {
            if (isInset(stamp.style))
                layers.bevel(weight * d, stamp.shadow, stamp.highlight);
            else
                layers.bevel(weight * d, stamp.highlight, stamp.shadow);
        }
        break;
    }
    layers.at(0, 0, stamp.color);
    return box;
}

} // namespace TextStamp
