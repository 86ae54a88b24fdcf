#pragma once

#include <QList>
#include <QRect>

// Places for the document windows when the frame tiles them. Tiled horizontally, the windows
// lie in rows one above another; tiled vertically, in columns side by side. Up to three windows
// make one row or column each; more make about as many rows (or columns) as the square root of
// their number, the first ones taking one window more.
namespace TileLayout {

QList<QRect> tile(int count, const QRect& area, bool horizontal);

} // namespace TileLayout
