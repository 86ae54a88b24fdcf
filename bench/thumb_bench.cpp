// Thumbnails of a folder, as the thumbnail browser makes them:
//   bench_thumbnails FOLDER [EXTENSION...]
// over the folder's files of the extensions (JPG unless told), with a cache of its own
// (XDG_CACHE_HOME as the caller set it): the time to the first thumbnail and to the last, the
// longest the event loop waited between two ticks of a 10 ms timer (how soon a Stop would be
// seen), and the peak memory. Prints "RESULT first_ms=... all_ms=... count=... max_gap_ms=...
// peak_kb=...".
// bench/compare_thumbnails.sh makes the photos and runs it cold and warm beside vipsthumbnail.

#include "BenchMeasure.h"
#include "media/ThumbnailGenerator.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (app.arguments().size() < 2) {
        std::fprintf(stderr, "usage: bench_thumbnails FOLDER [EXTENSION...]\n");
        return 2;
    }
    QStringList extensions = app.arguments().mid(2);
    if (extensions.isEmpty())
        extensions = {u"JPG"_s};
    ThumbnailGenerator generator;
    QElapsedTimer timer;
    double first = -1;
    int count = 0;
    QObject::connect(&generator, &ThumbnailGenerator::made, [&] {
        if (first < 0)
            first = msSince(timer);
        ++count;
    });
    QObject::connect(&generator, &ThumbnailGenerator::finished, &app, &QCoreApplication::quit);
    QTimer tick;
    QElapsedTimer sinceTick;
    qint64 maxGap = 0;
    QObject::connect(&tick, &QTimer::timeout,
                     [&] { maxGap = std::max(maxGap, sinceTick.restart()); });
    timer.start();
    sinceTick.start();
    tick.start(10);
    generator.start(app.arguments().at(1), {QSize(115, 115), 16, extensions});
    app.exec();
    std::printf("RESULT first_ms=%.1f all_ms=%.1f count=%d max_gap_ms=%lld peak_kb=%ld\n", first,
                msSince(timer), count, static_cast<long long>(maxGap), peakKilobytes());
    return 0;
}
