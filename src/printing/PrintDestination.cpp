#include "printing/PrintDestination.h"

#include "platform/Messages.h"
#include "platform/PrinterChoice.h"
#include "printing/PrinterSurface.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QToolBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace PrintDestination {

namespace {

QPageLayout letterPortrait() {
    return QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF());
}

QString askPdfName(QWidget* parent, const QString& name) {
    QPrinter& printer = PrinterChoice::printer();
    Messages::FileRequest request;
    request.title = QObject::tr("Print to PDF File");
    request.filterPairs = QObject::tr("PDF File") + u"|*.pdf"_s;
    request.defaultExtension = u"pdf"_s;
    const QFileInfo last(printer.outputFileName());
    request.folder = last.fileName().isEmpty()
                         ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                         : last.absolutePath();
    request.fileName = QFileInfo(name).completeBaseName() + u".pdf"_s;
    const QString chosen = Messages::instance().saveFileName(request, parent);
    if (!chosen.isEmpty())
        printer.setOutputFileName(chosen);
    return chosen;
}

Outcome toPdf(QWidget* parent, const QString& name, const Job& job) {
    const QString path = askPdfName(parent, name);
    if (path.isEmpty())
        return Outcome::Cancelled;
    QSaveFile file(path);
    bool done = false;
    if (file.open(QIODevice::WriteOnly)) {
        QPdfWriter writer(&file);
        writer.setCreator(u"Quorvane"_s);
        writer.setTitle(QFileInfo(name).fileName());
        writer.setPageLayout(letterPortrait());
        PrinterSurface surface(writer);
        surface.setFailureCheck([&file] { return file.error() != QFileDevice::NoError; });
        done = job(surface);
        surface.endDoc();
        if (!done || surface.pages() == 0) {
            // A refused job or an empty document leaves no file behind.
            file.cancelWriting();
            file.commit();
            return done ? Outcome::Printed : Outcome::Refused;
        }
        if (file.commit())
            return Outcome::Printed;
    }
    Messages::instance().inform(QObject::tr("File - ") + QDir::toNativeSeparators(path) +
                                    QObject::tr(" Not Saved"),
                                parent);
    return Outcome::Failed;
}

} // namespace

bool printsToPdf() {
    return PrinterChoice::printer().outputFormat() == QPrinter::PdfFormat ||
           QPrinterInfo::availablePrinterNames().isEmpty();
}

Outcome run(QWidget* parent, const QString& name, const Job& job) {
    if (printsToPdf())
        return toPdf(parent, name, job);
    QPrinter& printer = PrinterChoice::printer();
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setDocName(QFileInfo(name).fileName());
    PrinterSurface surface(printer);
    surface.setFailureCheck([&printer] {
        return printer.printerState() == QPrinter::Error ||
               printer.printerState() == QPrinter::Aborted;
    });
    const bool done = job(surface);
    surface.endDoc();
    return done ? Outcome::Printed : Outcome::Refused;
}

bool preview(QWidget* parent, const Job& job) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageLayout(letterPortrait());
    QDialog dialog(parent);
    dialog.setObjectName(u"PrintPreview"_s);
    dialog.setWindowTitle(QObject::tr("Print Preview"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* bar = new QToolBar(&dialog);
    auto* pages = new QPrintPreviewWidget(&printer, &dialog);
    pages->setObjectName(u"PreviewPages"_s);
    pages->setAccessibleName(QObject::tr("Pages"));
    QObject::connect(pages, &QPrintPreviewWidget::paintRequested, &dialog, [&](QPrinter* on) {
        PrinterSurface surface(*on);
        job(surface);
    });
    const auto add = [&](const char* objectName, const QString& text, const QKeySequence& key,
                         auto slot) {
        QAction* action = bar->addAction(text);
        action->setObjectName(QString::fromLatin1(objectName));
        action->setShortcut(key);
        action->setToolTip(text);
        QObject::connect(action, &QAction::triggered, &dialog, slot);
        if (QWidget* button = bar->widgetForAction(action))
            button->setAccessibleName(text);
        return action;
    };
    add("PreviewPrint", QObject::tr("&Print"), QKeySequence::Print, [&] { dialog.accept(); });
    add("PreviewPrevious", QObject::tr("Previous Page"), QKeySequence::MoveToPreviousPage,
        [&] { pages->setCurrentPage(pages->currentPage() - 1); });
    add("PreviewNext", QObject::tr("Next Page"), QKeySequence::MoveToNextPage,
        [&] { pages->setCurrentPage(pages->currentPage() + 1); });
    add("PreviewZoomIn", QObject::tr("Zoom In"), QKeySequence::ZoomIn, [&] { pages->zoomIn(); });
    add("PreviewZoomOut", QObject::tr("Zoom Out"), QKeySequence::ZoomOut,
        [&] { pages->zoomOut(); });
    add("PreviewFitWidth", QObject::tr("Fit Width"), QKeySequence(), [&] { pages->fitToWidth(); });
    add("PreviewClose", QObject::tr("Close"), QKeySequence::Close, [&] { dialog.reject(); });
    layout->addWidget(bar);
    layout->addWidget(pages, 1);
    dialog.resize(720, 860);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace PrintDestination
