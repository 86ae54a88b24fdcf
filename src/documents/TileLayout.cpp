#include "documents/TileLayout.h"

#include <cmath>

namespace {

// Splits a length into `parts` pieces whose sizes differ by at most one; the start of piece i.
int startOf(int length, int parts, int i) {
    return static_cast<int>(static_cast<qint64>(length) * i / parts);
}

} // namespace

namespace TileLayout {

QList<QRect> tile(int count, const QRect& area, bool horizontal) {
    QList<QRect> places;
    if (count <= 0 || area.isEmpty())
        return places;
    const int strips =
        count <= 3 ? count : static_cast<int>(std::ceil(std::sqrt(static_cast<double>(count))));
    // Rows for horizontal tiling, columns for vertical: the strips cross the area's height or
    // its width, and the windows of one strip share the other side.
    const int across = horizontal ? area.height() : area.width();
    const int along = horizontal ? area.width() : area.height();
    for (int s = 0; s < strips; ++s) {
        const int inStrip = count / strips + (s < count % strips ? 1 : 0);
        const int stripStart = startOf(across, strips, s);
        const int stripSize = startOf(across, strips, s + 1) - stripStart;
        for (int w = 0; w < inStrip; ++w) {
            const int start = startOf(along, inStrip, w);
            const int size = startOf(along, inStrip, w + 1) - start;
            places.append(horizontal
                              ? QRect(area.x() + start, area.y() + stripStart, size, stripSize)
                              : QRect(area.x() + stripStart, area.y() + start, stripSize, size));
        }
    }
    return places;
}

} // namespace TileLayout
