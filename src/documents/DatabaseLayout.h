#pragma once

#include <QRectF>
#include <QtGlobal>

// Where the parts of a database document go, in twips, from the window's size.
namespace DatabaseLayout {

// The width of a grid column from the length of its field's name and the field's size: room
// for the values when the name is no longer than they are, else room for the name; at least
// 800 once under 250, at most 2500.
double columnWidth(qsizetype nameLength, qint32 fieldSize);

struct Placement {
    QRectF data; // the data control
    QRectF grid;
};

// The data control above the grid, both as wide as the window allows.
Placement atOpen(double windowWidth, double windowHeight, double dataHeight);

// A resized window stretches the data control and the grid; sizes too small to leave room
// keep what they had.
void resize(Placement& placement, double windowWidth, double windowHeight);

// The comment box keeps to the grid's lower right corner.
QPointF commentBoxAt(const QRectF& grid, double boxWidth, double boxHeight);

// The left edges of the table list and the index list: the one opened first stays on the left.
struct ListLefts {
    double tables;
    double indexes;
};
ListLefts listLefts(bool indexesOpenedFirst);

} // namespace DatabaseLayout
