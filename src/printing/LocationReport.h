#pragma once

#include "printing/PrintMetrics.h"

#include <QDateTime>
#include <QString>

class PrinterSurface;

// The pages of the file location report, printed from the work file the search wrote: every
// folder line ("##" and a path) after an empty line, every file name under it indented by three
// blanks, and the folder named again at the top of a page it goes on to.
namespace LocationReport {

struct Job {
    QString reportFile; // the file's name when one file was searched for, else empty
    bool oneFile = false;
    PrintMetrics metrics;
    double fontSize = 8;
    QDateTime when;
};

// The title at the top of each page.
QString title(const Job& job);

// Prints the work file; a file without lines prints no page. False when the file cannot be read.
bool print(PrinterSurface& surface, const QString& workFile, const Job& job);

} // namespace LocationReport
