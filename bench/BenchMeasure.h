#pragma once

#include <QElapsedTimer>

#include <sys/resource.h>

#include <algorithm>
#include <vector>

// What the benchmarks measure: the process's peak memory, the middle of several timings, and
// milliseconds on a timer.
inline long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

inline double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

inline double msSince(const QElapsedTimer& timer) {
    return double(timer.nsecsElapsed()) / 1e6;
}
