// Opening one table of a dBASE or Access file into the database window's grid: the time from
// opening the recordset to the grid having painted its first screen, the time to make the last
// record current and paint it in view, and the process's peak memory. One table a process, so
// that the peak memory is that table's.
//
// Run: bench_tables [--runs=N] dbase FILE.DBF
//      bench_tables [--runs=N] [--password=PASSWORD] access FILE.MDB TABLE
// Prints the first run and the median of N runs (5 unless told) of each, then one line
// "RESULT key=value ..." for scripts.

#include "BenchMeasure.h"
#include "platform/FlexGrid.h"
#include "platform/tables/TableGridModel.h"
#include "platform/tables/TableRecordset.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int GridWidth = 600;
constexpr int GridHeight = 400;

struct Source {
    QString connect;
    QString databaseName;
    QString recordSource;
};

// The cells a grid shows, read back through the model's window of rows on screen, so that a
// run that painted nothing or the wrong rows is seen.
QString shownCell(const FlexGrid& grid, int row) {
    return grid.model()->index(row - grid.TopRow(), 0).data().toString();
}

struct Run {
    double firstScreenMs = 0;
    double lastRecordMs = 0;
    double backToFirstMs = 0;
    qint64 records = 0;
    QString firstKey;
    QString lastKey;
    bool lastVisible = false;
};

// One opening of the table into a fresh model on the grid, as the window does it: the grid
// holds the model already and the recordset arrives into it.
bool runOnce(const Source& source, FlexGrid& grid, Run* run) {
    auto model = std::make_unique<TableGridModel>();
    grid.setModel(model.get());
    QObject::connect(&grid, &FlexGrid::EnterCell, model.get(), [&model](int record, int column) {
        model->setCellColors(record, column, Qt::white, Qt::darkBlue);
    });

    QElapsedTimer timer;
    timer.start();
    TableRecordset::Opened opened =
        TableRecordset::open(source.connect, source.databaseName, source.recordSource);
    if (!opened.recordset) {
        std::fprintf(stderr, "could not open the table: %s\n",
                     qPrintable(opened.error.description()));
        return false;
    }
    model->setRows(opened.recordset.get());
    grid.setRow(1);
    const QPixmap first = grid.viewport()->grab();
    run->firstScreenMs = msSince(timer);
    run->records = opened.recordset->RecordCount();
    run->firstKey = shownCell(grid, 1);

    const int last = grid.Rows() - 1;
    timer.restart();
    grid.setRow(last);
    grid.scrollTo(grid.currentIndex());
    const QPixmap atEnd = grid.viewport()->grab();
    run->lastRecordMs = msSince(timer);
    run->lastVisible = grid.RowIsVisible(last);
    run->lastKey = shownCell(grid, last);

    timer.restart();
    grid.setRow(1);
    grid.scrollTo(grid.currentIndex());
    const QPixmap back = grid.viewport()->grab();
    run->backToFirstMs = msSince(timer);

    grid.setModel(nullptr);
    return !first.isNull() && !atEnd.isNull() && !back.isNull();
}

int usage() {
    std::fprintf(stderr, "usage: bench_tables [--runs=N] dbase FILE.DBF\n"
                         "       bench_tables [--runs=N] [--password=PASSWORD] access FILE.MDB "
                         "TABLE\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStringList args;
    int runs = 5;
    QString password;
    for (const QString& arg : app.arguments().mid(1)) {
        if (arg.startsWith(u"--runs="_s))
            runs = std::max(1, arg.mid(7).toInt());
        else if (arg.startsWith(u"--password="_s))
            password = arg.mid(11);
        else
            args.append(arg);
    }
    if (args.size() < 2)
        return usage();

    Source source;
    const QString kind = args[0].toLower();
    if (kind == u"dbase"_s) {
        const QFileInfo file(args[1]);
        source = {u"dBASE 5.0;"_s, file.absolutePath(), file.fileName()};
    } else if (kind == u"access"_s && args.size() >= 3) {
        // The window's connect string for a file with a password.
        source = {password.isEmpty() ? u"Access"_s : u";pwd="_s + password, args[1], args[2]};
    } else {
        return usage();
    }

    // The window is up before a file is opened in it: its first paint, with the font and the
    // style loaded, is not the table's.
    FlexGrid grid;
    grid.resize(GridWidth, GridHeight);
    grid.show();
    (void)grid.viewport()->grab();
    const long before = peakKilobytes();

    std::vector<double> firstScreen;
    std::vector<double> lastRecord;
    std::vector<double> backToFirst;
    Run run;
    for (int i = 0; i < runs; ++i) {
        if (!runOnce(source, grid, &run))
            return 1;
        firstScreen.push_back(run.firstScreenMs);
        lastRecord.push_back(run.lastRecordMs);
        backToFirst.push_back(run.backToFirstMs);
    }
    const long peak = peakKilobytes();

    std::printf("%s: %lld records, grid %d x %d px, %d runs\n",
                qPrintable(QFileInfo(source.databaseName).fileName() + u'/' + source.recordSource),
                static_cast<long long>(run.records), GridWidth, GridHeight, runs);
    std::printf("  first record %s, last record %s (%s)\n", qPrintable(run.firstKey),
                qPrintable(run.lastKey), run.lastVisible ? "in view" : "NOT in view");
    std::printf("                          first run     median\n");
    std::printf("  open to first screen: %9.2f ms %9.2f ms\n", firstScreen.front(),
                median(firstScreen));
    std::printf("  to last record:       %9.2f ms %9.2f ms\n", lastRecord.front(),
                median(lastRecord));
    std::printf("  back to first record: %9.2f ms %9.2f ms\n", backToFirst.front(),
                median(backToFirst));
    std::printf("  peak memory: %ld KB (%ld KB with the empty window up)\n", peak, before);
    std::printf("RESULT records=%lld first_screen_ms=%.2f first_screen_first_ms=%.2f "
                "last_record_ms=%.2f last_record_first_ms=%.2f back_ms=%.2f peak_kb=%ld "
                "base_kb=%ld last_visible=%d\n",
                static_cast<long long>(run.records), median(firstScreen), firstScreen.front(),
                median(lastRecord), lastRecord.front(), median(backToFirst), peak, before,
                run.lastVisible ? 1 : 0);
    return run.lastVisible ? 0 : 1;
}
