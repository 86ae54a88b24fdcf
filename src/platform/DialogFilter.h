#pragma once

#include <QString>
#include <QStringList>

// File dialog filters are kept as one text of "caption|mask" pairs joined by "|".
namespace DialogFilter {

// The pairs as name filters of a Qt file dialog: "caption (*.JPG *.CMP)".
QStringList toNameFilters(const QString& pairs);

} // namespace DialogFilter
