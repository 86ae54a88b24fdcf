#include "documents/DatabaseLayout.h"

namespace DatabaseLayout {

namespace {
constexpr double kLeft = 5;
constexpr double kDataTop = 5;
constexpr double kGridTop = 310;
constexpr double kSideRoom = 90;
constexpr double kListLeft = 90;
constexpr double kListRight = 1260;
} // namespace

double columnWidth(qsizetype nameLength, qint32 fieldSize) {
    double width = nameLength <= fieldSize ? double(fieldSize) * 120 : double(nameLength) * 100;
    if (width < 250)
        width = 800;
    if (width > 2500)
        width = 2500;
    return width;
}

Placement atOpen(double windowWidth, double windowHeight, double dataHeight) {
    Placement p;
    p.data = QRectF(kLeft, kDataTop, windowWidth - kSideRoom, dataHeight);
    p.grid = QRectF(kLeft, kGridTop, windowWidth - kSideRoom, windowHeight - 730);
    return p;
}

void resize(Placement& p, double windowWidth, double windowHeight) {
    if (windowWidth > kSideRoom)
        p.data.setWidth(windowWidth - kSideRoom);
    if (windowHeight > 740)
        p.grid.setHeight(windowHeight - 740);
    if (windowWidth > kSideRoom)
        p.grid.setWidth(windowWidth - kSideRoom);
}

QPointF commentBoxAt(const QRectF& grid, double boxWidth, double boxHeight) {
    return {grid.width() - boxWidth - 100, grid.height() - boxHeight - 100};
}

ListLefts listLefts(bool indexesOpenedFirst) {
    return indexesOpenedFirst ? ListLefts{kListRight, kListLeft} : ListLefts{kListLeft, kListRight};
}

} // namespace DatabaseLayout
