#pragma once

#include <QString>

#include <functional>

class PrinterSurface;
class QWidget;

// Where the pages of a job go: the printer chosen in the printer setup, or a PDF file named in
// the save dialog when no printer is installed or the setup chose printing to a file. A PDF is
// written whole or not at all.
namespace PrintDestination {

// A job prints on the surface and says whether it did its work.
using Job = std::function<bool(PrinterSurface&)>;

enum class Outcome {
    Printed,   // the pages went out (or there were none to send)
    Refused,   // the job said it could not do its work
    Cancelled, // no file was chosen for the PDF
    Failed,    // the PDF could not be written; the user was told
};

// True when the pages go to a PDF file.
bool printsToPdf();

// Runs the job to the destination. `name` proposes the PDF's file name.
Outcome run(QWidget* parent, const QString& name, const Job& job);

// Shows the pages of the job as they would print, with a Print button; true when the user
// asked to print them.
bool preview(QWidget* parent, const Job& job);

} // namespace PrintDestination
