// Print jobs to PDF at the size of real work, one job a run so that the peak memory is the
// job's own:
//   bench_printing listing TABLE.DBF OUT.pdf   every record and field of a dBASE table
//   bench_printing text FILE OUT.pdf           a text file, heading page and body
//   bench_printing records TABLE.DBF OUT.txt   the same records as plain text, for enscript
// Prints one line "RESULT ms=... peak_kb=... pages=...". bench/compare_printing.sh runs them
// beside enscript and ps2pdf.

#include "BenchMeasure.h"
#include "documents/TextLoader.h"
#include "platform/PathUtil.h"
#include "platform/tables/TableRecordset.h"
#include "printing/DatabaseListing.h"
#include "printing/PrinterSurface.h"
#include "printing/TextPrinting.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

TableRecordset::Opened openTable(const QString& path) {
    return TableRecordset::open(u"dBASE 5.0;"_s, PathUtil::folderOf(path), PathUtil::nameOf(path));
}

int toPdf(const QString& out, const std::function<void(PrinterSurface&)>& job) {
    QSaveFile file(out);
    if (!file.open(QIODevice::WriteOnly))
        return -1;
    QPdfWriter writer(&file);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, {}));
    PrinterSurface surface(writer);
    surface.setFontSize(8);
    job(surface);
    surface.endDoc();
    file.commit();
    return surface.pages();
}

int listing(const QString& table, const QString& out) {
    TableRecordset::Opened opened = openTable(table);
    if (opened.error)
        return -1;
    DatabaseListing::Job job;
    const QList<TableField>& fields = opened.recordset->fields();
    for (int i = 0; i < fields.size(); ++i)
        job.fields.append({fields[i].name, i, fields[i].size});
    job.metrics = PrintMetrics::forFont(8, false);
    job.printFile = PathUtil::nameOf(table);
    job.when = QDateTime::currentDateTime();
    return toPdf(out,
                 [&](PrinterSurface& s) { DatabaseListing::print(s, *opened.recordset, job); });
}

int text(const QString& path, const QString& out) {
    const TextLoader::Text loaded = TextLoader::load(path, u"TXT"_s);
    TextPrinting::Job job{PathUtil::nameOf(path), u"MS Sans Serif"_s, 8,
                          QDateTime::currentDateTime()};
    return toPdf(out,
                 [&](PrinterSurface& s) { TextPrinting::print(s, job, loaded.content, false); });
}

int records(const QString& table, const QString& out) {
    TableRecordset::Opened opened = openTable(table);
    QFile file(out);
    if (opened.error || !file.open(QIODevice::WriteOnly))
        return -1;
    TableRecordset& set = *opened.recordset;
    // What the listing prints of each record: its fields, an empty line and the rule.
    const QByteArray rule = DatabaseListing::rule(PrintMetrics::forFont(8, false)).toLatin1();
    for (set.MoveFirst(); !set.isEOF(); set.MoveNext())
        file.write(set.row(set.AbsolutePosition()).join(u"    "_s).toUtf8() + "\n\n" + rule + "\n");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 4) {
        std::fprintf(stderr, "usage: bench_printing listing|text|records IN OUT\n");
        return 2;
    }
    QElapsedTimer timer;
    timer.start();
    const QString mode = args[1];
    const int pages = mode == u"listing"_s ? listing(args[2], args[3])
                      : mode == u"text"_s  ? text(args[2], args[3])
                                           : records(args[2], args[3]);
    std::printf("RESULT ms=%.1f peak_kb=%ld pages=%d\n", msSince(timer), peakKilobytes(), pages);
    return pages < 0 ? 1 : 0;
}
