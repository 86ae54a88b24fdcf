#include "printing/TextPrinting.h"

#include "printing/PrintHeading.h"
#include "printing/PrinterSurface.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QTextDocument>

namespace TextPrinting {

namespace {

constexpr double kMarginInches = 2.0 / 2.54;

} // namespace

void printDocument(PrinterSurface& surface, QTextDocument& document) {
    if (document.isEmpty())
        return;
    surface.newPage();
    QPainter& painter = surface.painter();
    if (!painter.isActive())
        return;
    QPaintDevice* device = painter.device();
    const double dpi = surface.dotsPerInch();
    const double margin = kMarginInches * dpi;
    const QSizeF body(device->width() - 2 * margin, device->height() - 2 * margin);
    document.documentLayout()->setPaintDevice(device);
    document.setDocumentMargin(0);
    document.setPageSize(body);
    const int pages = document.pageCount();
    QAbstractTextDocumentLayout::PaintContext context;
    for (int page = 0; page < pages && !surface.failed(); ++page) {
        if (page > 0)
            surface.newPage();
        QPainter& p = surface.painter();
        p.save();
        const QRectF view(0, page * body.height(), body.width(), body.height());
        p.translate(margin, margin - view.top());
        p.setClipRect(view);
        context.clip = view;
        document.documentLayout()->draw(&p, context);
        p.restore();
    }
}

void print(PrinterSurface& surface, const Job& job, const QString& content, bool rich) {
    surface.setFontName(job.fontName);
    PrintHeading::printListHeading(surface, job.printFile, 1, job.fontSize, job.when);
    QTextDocument document;
    QFont font = surface.font();
    font.setPointSizeF(job.fontSize);
    font.setBold(false);
    document.setDefaultFont(font);
    if (rich)
        document.setHtml(content);
    else
        document.setPlainText(content);
    printDocument(surface, document);
}

} // namespace TextPrinting
