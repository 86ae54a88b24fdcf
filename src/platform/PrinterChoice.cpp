#include "platform/PrinterChoice.h"

#include <QCoreApplication>
#include <QPrinter>

namespace {

QPrinter* chosen = nullptr;

// The printer goes with the application object, before the system's printing is shut down.
void forget() {
    delete chosen;
    chosen = nullptr;
}

} // namespace

namespace PrinterChoice {

QPrinter& printer() {
    if (!chosen) {
        chosen = new QPrinter(QPrinter::HighResolution);
        qAddPostRoutine(forget);
    }
    return *chosen;
}

} // namespace PrinterChoice
