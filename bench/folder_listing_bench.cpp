// Listing a folder of 100,000 files with a filter applied: reading and filtering it, changing
// the filter, and the main window's file list showing it.
//
// Run: build/bench/bench/bench_folder_listing [folder] [benchmark options]
// Without a folder, one of 100,000 files is made under /tmp first. With --mask it prints the
// mask the benchmarks filter with and stops. Besides the benchmark figures it prints the peak
// memory of the process.

#include "shell/FileListModel.h"
#include "shell/FileTypes.h"
#include "shell/FolderListing.h"
#include "shell/ShellList.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>

namespace {

QString g_folder;

const QString& pictureMask() {
    return FileTypes::filterRows()[27].mask; // all pictures
}

QString makeFolder(QTemporaryDir& dir, int files) {
    const char* extensions[] = {"jpg", "txt", "wav", "dbf", "png", "doc", "zip", "log"};
    for (int i = 0; i < files; ++i) {
        const QString name = QStringLiteral("file%1.%2")
                                 .arg(i, 6, 10, QLatin1Char('0'))
                                 .arg(QString::fromLatin1(extensions[i % 8]));
        QFile(dir.filePath(name)).open(QIODevice::WriteOnly);
    }
    return dir.path();
}

long peakKilobytes() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stol(line.substr(6));
    }
    return -1;
}

// Counts the paints of a view's viewport, to wait for the list to be on screen.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QAbstractItemView* view) : m_view(view) {
        view->viewport()->installEventFilter(this);
    }
    // Handles events until the viewport has been painted once more.
    void waitForPaint() {
        const int before = m_paints;
        m_view->viewport()->update();
        while (m_paints == before)
            QApplication::processEvents(QEventLoop::AllEvents, 5);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++m_paints;
        return QObject::eventFilter(watched, event);
    }

private:
    QAbstractItemView* m_view;
    int m_paints = 0;
};

void ReadAndFilter(benchmark::State& state) {
    for (auto _ : state) {
        FolderListing listing;
        listing.setMask(pictureMask());
        listing.read(g_folder);
        benchmark::DoNotOptimize(listing.count());
    }
}
BENCHMARK(ReadAndFilter)->Unit(benchmark::kMillisecond)->UseRealTime();

void ChangeFilter(benchmark::State& state) {
    FolderListing listing;
    listing.read(g_folder);
    int row = 0;
    for (auto _ : state) {
        listing.setMask(FileTypes::filterRows()[row].mask);
        row = (row + 1) % FileTypes::FilterRowCount;
        benchmark::DoNotOptimize(listing.count());
    }
}
BENCHMARK(ChangeFilter)->Unit(benchmark::kMillisecond)->UseRealTime();

// From giving a shown, empty list the folder to the first paint of the folder's entries, in
// each of the four views.
void ShowInFileList(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        ShellList list;
        list.resize(640, 480);
        list.setView(static_cast<int>(state.range(0)));
        list.setFilter(pictureMask());
        list.show();
        PaintCounter paints(list.currentView());
        paints.waitForPaint();
        state.ResumeTiming();
        list.setFolder(g_folder);
        paints.waitForPaint();
        benchmark::DoNotOptimize(list.model()->rowCount());
    }
}
BENCHMARK(ShowInFileList)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(5)
    ->DenseRange(ShellList::LargeIcons, ShellList::Details);

// A change of filter on the folder the list shows, to the next paint.
void ChangeFilterInFileList(benchmark::State& state) {
    ShellList list;
    list.resize(640, 480);
    list.show();
    PaintCounter paints(list.currentView());
    list.setFolder(g_folder);
    paints.waitForPaint();
    int row = 0;
    for (auto _ : state) {
        list.setFilter(FileTypes::filterRows()[row].mask);
        row = (row + 1) % FileTypes::FilterRowCount;
        paints.waitForPaint();
    }
}
BENCHMARK(ChangeFilterInFileList)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--mask") == 0) {
            std::printf("%s\n", qPrintable(pictureMask()));
            return 0;
        }
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    QTemporaryDir dir;
    if (argc > 1) {
        g_folder = QString::fromLocal8Bit(argv[1]);
    } else {
        std::printf("making a folder of 100000 files...\n");
        g_folder = makeFolder(dir, 100000);
    }
    benchmark::RunSpecifiedBenchmarks();
    std::printf("peak memory: %ld MB\n", peakKilobytes() / 1024);
    return 0;
}
