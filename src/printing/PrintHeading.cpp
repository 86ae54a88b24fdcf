#include "printing/PrintHeading.h"

#include "printing/PrinterSurface.h"

#include <QCoreApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace PrintHeading {

QString pageText(int page) {
    return QCoreApplication::translate("PrntFrm1", "Page No. ") + (page >= 0 ? u" "_s : QString()) +
           QString::number(page);
}

QString dateText(const QDateTime& when) {
    const QLocale locale = QLocale::system();
    // The locale's time with its seconds, without the time zone of its long form.
    const QString timeFormat = locale.timeFormat(QLocale::LongFormat).remove(u't').trimmed();
    return locale.toString(when.date(), QLocale::ShortFormat) + u"   "_s +
           locale.toString(when.time(), timeFormat);
}

void printTop(PrinterSurface& surface, double titleX, const QString& title, int page,
              const QDateTime& when) {
    surface.CurrentX = 0.15;
    surface.CurrentY = 0.25;
    surface.setFontSize(10);
    surface.print(dateText(when));
    surface.CurrentX = titleX;
    surface.CurrentY = 0.25;
    surface.setFontSize(14);
    surface.print(title);
    surface.CurrentX = 7.2;
    surface.CurrentY = 0.25;
    surface.setFontSize(10);
    surface.print(pageText(page));
}

void printListHeading(PrinterSurface& surface, const QString& file, int page, double fontSize,
                      const QDateTime& when) {
    printTop(surface, 2.9, QCoreApplication::translate("PrntFrm1", "List Data for File:  ") + file,
             page, when);
    surface.setFontSize(fontSize);
    for (int i = 0; i < 3; ++i)
        surface.print();
}

} // namespace PrintHeading
