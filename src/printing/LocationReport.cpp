#include "printing/LocationReport.h"

#include "printing/PrintHeading.h"
#include "printing/PrinterSurface.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace LocationReport {

QString title(const Job& job) {
    return (job.oneFile
                ? QCoreApplication::translate("PrntFrm1", "Folder Locations for File:  ")
                : QCoreApplication::translate("PrntFrm1", "Folder Locations for File Type: ")) +
           job.reportFile;
}

bool print(PrinterSurface& surface, const QString& workFile, const Job& job) {
    QFile file(workFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    int PageNumber = 0;
    int LineCount = job.metrics.LinesPerPage + 2;
    QString folder;
    while (!file.atEnd() && !surface.failed()) {
        if (LineCount > job.metrics.LinesPerPage) {
            surface.newPage();
            LineCount = 5;
            ++PageNumber;
            PrintHeading::printTop(surface, 2.5, title(job), PageNumber, job.when);
            ++LineCount;
            surface.setFontSize(job.fontSize);
            surface.print();
            surface.print(folder);
            LineCount += 2;
        }
        QString line = QString::fromUtf8(file.readLine());
        while (line.endsWith(u'\n') || line.endsWith(u'\r'))
            line.chop(1);
        if (line.startsWith(u"##"_s)) {
            surface.print();
            line.remove(0, 2);
            folder = line;
            ++LineCount;
        } else {
            line.prepend(u"   "_s);
        }
        surface.print(line);
        ++LineCount;
    }
    surface.endDoc();
    return true;
}

} // namespace LocationReport
