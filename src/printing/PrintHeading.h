#pragma once

#include <QDateTime>
#include <QString>

class PrinterSurface;

// The top line of a printed page: the date and time at the left, a title in 14 points, and the
// page number at the right, all on the line a quarter of an inch from the top.
namespace PrintHeading {

// "Page No. " and the number with the blank a number keeps for its sign: "Page No.  1".
QString pageText(int page);
// The date, three blanks and the time, as the system writes them.
QString dateText(const QDateTime& when);

// Prints the three items; the font size is left at the page number's 10 points.
void printTop(PrinterSurface& surface, double titleX, const QString& title, int page,
              const QDateTime& when);

// The heading of a text or a listing: the top line with "List Data for File:  " and the file,
// then the font of the job and three empty lines.
void printListHeading(PrinterSurface& surface, const QString& file, int page, double fontSize,
                      const QDateTime& when);

} // namespace PrintHeading
