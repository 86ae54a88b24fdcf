// Listing a folder of 100,000 files with a filter applied.
//
// Run: build/bench/bench/bench_folder_listing [folder]
// Without a folder, one of 100,000 files is made under /tmp first. Besides the benchmark
// figures it prints the peak memory of the process after showing the folder in the file list.

#include "shell/FileListModel.h"
#include "shell/FileTypes.h"
#include "shell/FolderListing.h"
#include "shell/ShellList.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

QString g_folder;

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

void ReadAndFilter(benchmark::State& state) {
    const QString mask = FileTypes::filterRows()[27].mask; // all pictures
    for (auto _ : state) {
        FolderListing listing;
        listing.setMask(mask);
        listing.read(g_folder);
        benchmark::DoNotOptimize(listing.count());
    }
}
BENCHMARK(ReadAndFilter)->Unit(benchmark::kMillisecond);

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
BENCHMARK(ChangeFilter)->Unit(benchmark::kMillisecond);

void ShowInFileList(benchmark::State& state) {
    for (auto _ : state) {
        ShellList list;
        list.resize(400, 300);
        list.show();
        list.setFilter(FileTypes::filterRows()[27].mask);
        list.setFolder(g_folder);
        QApplication::processEvents();
        benchmark::DoNotOptimize(list.model()->rowCount());
    }
}
BENCHMARK(ShowInFileList)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char** argv) {
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
