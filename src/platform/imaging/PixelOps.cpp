#include "platform/imaging/PixelOps.h"

#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <array>

namespace PixelOps {

void makeTrueColor(QImage& image) {
    switch (image.format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return;
    default:
        image = image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32
                                                              : QImage::Format_RGB32);
    }
}

} // namespace PixelOps

namespace {

using PixelOps::makeTrueColor;

// Applies a table to the red, green and blue of every pixel.
void applyTables(QImage& image, const std::array<std::array<uchar, 256>, 3>& tables) {
    makeTrueColor(image);
    if (image.format() == QImage::Format_ARGB32_Premultiplied)
        image = image.convertToFormat(QImage::Format_ARGB32);
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const QRgb p = line[x];
            line[x] =
                qRgba(tables[0][qRed(p)], tables[1][qGreen(p)], tables[2][qBlue(p)], qAlpha(p));
        }
    }
}

std::array<uchar, 256> table(auto map) {
    std::array<uchar, 256> t{};
    for (int v = 0; v < 256; ++v)
        t[static_cast<size_t>(v)] = static_cast<uchar>(std::clamp(map(v), 0, 255));
    return t;
}

} // namespace

namespace PixelOps {

void flip(QImage& image) {
    image = image.mirrored(false, true);
}

void reverse(QImage& image) {
    image = image.mirrored(true, false);
}

void invert(QImage& image) {
    if (image.format() == QImage::Format_Indexed8 || image.format() == QImage::Format_Mono ||
        image.format() == QImage::Format_MonoLSB) {
        QList<QRgb> colors = image.colorTable();
        for (QRgb& c : colors)
            c = qRgba(255 - qRed(c), 255 - qGreen(c), 255 - qBlue(c), qAlpha(c));
        image.setColorTable(colors);
        return;
    }
    image.invertPixels(QImage::InvertRgb);
}

void stretchIntensity(QImage& image) {
    makeTrueColor(image);
    std::array<int, 3> low{255, 255, 255};
    std::array<int, 3> high{0, 0, 0};
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int channels[3] = {qRed(line[x]), qGreen(line[x]), qBlue(line[x])};
            for (int c = 0; c < 3; ++c) {
                low[c] = std::min(low[c], channels[c]);
                high[c] = std::max(high[c], channels[c]);
            }
        }
    }
    std::array<std::array<uchar, 256>, 3> tables{};
    for (int c = 0; c < 3; ++c) {
        const int span = high[c] - low[c];
        tables[static_cast<size_t>(c)] =
            table([&](int v) { return span <= 0 ? v : ((v - low[c]) * 255 + span / 2) / span; });
    }
    applyTables(image, tables);
}

void changeIntensity(QImage& image, int value) {
    value = std::clamp(value, -1000, 1000);
    const auto t = table([value](int v) { return v + (value * 255) / 1000; });
    applyTables(image, {t, t, t});
}

void changeContrast(QImage& image, int value) {
    value = std::clamp(value, -1000, 1000);
    const auto t = table([value](int v) { return 128 + ((v - 128) * (1000 + value)) / 1000; });
    applyTables(image, {t, t, t});
}

void rotate(QImage& image, int hundredthsOfDegree, bool resize, const QColor& fill) {
    const double degrees = hundredthsOfDegree / 100.0;
    if (hundredthsOfDegree % 36000 == 0)
        return;
    QTransform turn;
    turn.rotate(degrees);
    if (resize && hundredthsOfDegree % 9000 == 0) {
        // Quarter turns move pixels exactly.
        image = image.transformed(turn);
        return;
    }
    const QRect turned = turn.mapRect(QRectF(image.rect())).toAlignedRect();
    const QSize size = resize ? turned.size() : image.size();
    QImage out(size, image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    out.fill(fill);
    QPainter painter(&out);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(size.width() / 2.0, size.height() / 2.0);
    painter.rotate(degrees);
    painter.translate(-image.width() / 2.0, -image.height() / 2.0);
    painter.drawImage(0, 0, image);
    painter.end();
    image = out;
}

void resize(QImage& image, int width, int height, bool resample) {
    if (width <= 0 || height <= 0)
        return;
    image = image.scaled(width, height, Qt::IgnoreAspectRatio,
                         resample ? Qt::SmoothTransformation : Qt::FastTransformation);
}

} // namespace PixelOps
