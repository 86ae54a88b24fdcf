#pragma once

#include <QDateTime>
#include <QString>

class PrinterSurface;
class QTextDocument;

// A text file on paper: a heading page of its own, then the text laid out by the text document
// on as many pages as it needs, inside margins of 2 cm.
namespace TextPrinting {

// Prints every page of the document from a new page; an empty document prints nothing.
void printDocument(PrinterSurface& surface, QTextDocument& document);

struct Job {
    QString printFile; // the name in the heading
    QString fontName;
    double fontSize = 8;
    QDateTime when;
};
// The heading page, then the body: plain text as it is, rich text from its HTML form.
void print(PrinterSurface& surface, const Job& job, const QString& content, bool rich);

} // namespace TextPrinting
