#pragma once

#include "printing/PrintMetrics.h"

#include <QDateTime>
#include <QList>
#include <QString>

class PrinterSurface;
class TableRecordset;

// The records of a table as a text report: each chosen field at a running column, a rule of
// hyphens after every record, and a heading with the field names on every page. Records are
// read one after the other; the table is never held whole.
namespace DatabaseListing {

// The most fields a listing prints.
inline constexpr int MostFields = 501;

struct Field {
    QString name;
    int position = 0; // in the table
    qint32 size = 0;  // declared size
};

struct Job {
    QList<Field> fields; // in the order they print; those past MostFields are left out
    PrintMetrics metrics;
    double fontSize = 8;
    QString printFile; // the name in the heading
    QDateTime when;
};

// The rule between records: LineWidth + RuleExtra hyphens.
QString rule(const PrintMetrics& metrics);

// Prints every record from the first. A table without records prints nothing at all.
void print(PrinterSurface& surface, TableRecordset& records, const Job& job);

} // namespace DatabaseListing
