#include "printing/DatabaseListing.h"

#include "platform/tables/TableRecordset.h"
#include "printing/PrintHeading.h"
#include "printing/PrinterSurface.h"

#include <cmath>

namespace DatabaseListing {

namespace {

// Lines counted on a page; past LinesPerPage the next record opens a page with a heading.
constexpr int kForceHeading = 100;

// Line breaks of a value: CR LF, CR or LF alone.
int lineBreaks(const QString& value) {
    int breaks = 0;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == u'\n' ||
            (value.at(i) == u'\r' && (i + 1 >= value.size() || value.at(i + 1) != u'\n')))
            ++breaks;
    }
    return breaks;
}

class Listing {
public:
    Listing(PrinterSurface& surface, const Job& job)
        : s(surface), m(job.metrics), job(job),
          fields(job.fields.mid(0, std::min<qsizetype>(job.fields.size(), MostFields))) {}

    void run(TableRecordset& records) {
        records.MoveFirst();
        while (!records.isEOF() && !s.failed()) {
            printRecord(records.row(records.AbsolutePosition()));
            records.MoveNext();
        }
        s.endDoc();
    }

private:
    // The column of field i, given the column of the one before; a column past the line
    // starts again at 0 on a new line.
    int nextColumn(int column, qsizetype i, int& lines) {
        if (i == 0)
            return column;
        column += fields.at(i - 1).size + m.ColumnGap;
        if (column > m.LineWidth) {
            column = 0;
            s.print();
            ++lines;
        }
        return column;
    }

    void heading() {
        s.newPage();
        LineCount = 4;
        PrintHeading::printListHeading(s, job.printFile, PageNumber, job.fontSize, job.when);
        ++PageNumber;
        int column = 0;
        int ignored = 0;
        for (qsizetype i = 0; i < fields.size(); ++i) {
            column = nextColumn(column, i, ignored);
            s.tab(column);
            s.printPart(fields.at(i).name);
        }
        ++LineCount;
        s.print();
        s.print(rule(m));
        LineCount += 2;
    }

    void printRecord(const QStringList& cells) {
        if (LineCount > m.LinesPerPage) {
            heading();
            PageStartLine = LineCount;
            RecordsOnPage = 0;
        }
        int column = 0;
        for (qsizetype i = 0; i < fields.size(); ++i) {
            column = nextColumn(column, i, LineCount);
            const QString value = cells.value(fields.at(i).position);
            s.tab(column);
            s.printPart(value);
            LineCount += lineBreaks(value);
            if (value.size() > m.LineWidth) {
                const double r = double(value.size()) / m.LineWidth;
                if (r > 1)
                    LineCount += int(r + 0.5) + 2;
            }
        }
        ++LineCount;
        ++RecordsOnPage;
        s.print();
        s.print(rule(m));
        LineCount += 2;
        const int averageLines = int(0.5 + double(LineCount - PageStartLine) / RecordsOnPage);
        if (LineCount + averageLines > m.LinesPerPage)
            LineCount = kForceHeading;
    }

    PrinterSurface& s;
    const PrintMetrics& m;
    const Job& job;
    QList<Field> fields;
    int LineCount = kForceHeading;
    int PageStartLine = 0;
    int RecordsOnPage = 0;
    int PageNumber = 1;
};

} // namespace

QString rule(const PrintMetrics& metrics) {
    return QString(metrics.LineWidth + metrics.RuleExtra, u'-');
}

void print(PrinterSurface& surface, TableRecordset& records, const Job& job) {
    Listing(surface, job).run(records);
}

} // namespace DatabaseListing
