// Thumbnails of a folder of large photos, as the thumbnail browser makes them:
//   bench_thumbnails FOLDER
// with the folder's JPEG files, a cache of its own (XDG_CACHE_HOME as the caller set it): the
// time to the first thumbnail, to the last with the cache empty (the caller empties it), and
// the peak memory. Prints "RESULT first_ms=... all_ms=... count=... peak_kb=...".
// bench/compare_thumbnails.sh makes the photos and runs it cold and warm beside vipsthumbnail.

#include "media/ThumbnailGenerator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <sys/resource.h>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (app.arguments().size() != 2) {
        std::fprintf(stderr, "usage: bench_thumbnails FOLDER\n");
        return 2;
    }
    ThumbnailGenerator generator;
    QElapsedTimer timer;
    double first = -1;
    int count = 0;
    QObject::connect(&generator, &ThumbnailGenerator::made, [&] {
        if (first < 0)
            first = double(timer.nsecsElapsed()) / 1e6;
        ++count;
    });
    QObject::connect(&generator, &ThumbnailGenerator::finished, &app, &QCoreApplication::quit);
    timer.start();
    generator.start(app.arguments().at(1), {QSize(115, 115), 16, {u"JPG"_s}});
    app.exec();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("RESULT first_ms=%.1f all_ms=%.1f count=%d peak_kb=%ld\n", first,
                double(timer.nsecsElapsed()) / 1e6, count, usage.ru_maxrss);
    return 0;
}
