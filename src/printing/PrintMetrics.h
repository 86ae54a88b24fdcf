#pragma once

#include <QtGlobal>

// How much a page of Letter paper holds at a font size: characters to a line, the gap between
// the columns of a listing, the hyphens a rule has beyond the line, and the lines of a page.
// Counts of thumb, never measured from the text.
struct PrintMetrics {
    int LineWidth = 90;
    int ColumnGap = 14;
    int RuleExtra = 35;
    qint16 LinesPerPage = 18;

    static PrintMetrics forFont(double points, bool bold);
};
