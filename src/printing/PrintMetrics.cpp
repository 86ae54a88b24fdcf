#include "printing/PrintMetrics.h"

#include <cmath>

PrintMetrics PrintMetrics::forFont(double points, bool bold) {
    PrintMetrics m;
    const bool whole = std::floor(points) == points;
    if (points < 7) {
        m = {154, 18, 125, 90};
    } else if (whole && points <= 15) {
        static constexpr PrintMetrics rows[] = {
            {146, 17, 110, 90}, // 7
            {142, 16, 100, 80}, // 8
            {132, 15, 85, 75},  // 9
            {120, 16, 60, 70},  // 10
            {115, 15, 50, 65},  // 11
            {105, 15, 40, 60},  // 12
            {100, 14, 40, 55},  // 13
            {90, 14, 35, 50},   // 14
            {88, 14, 35, 45},   // 15
        };
        m = rows[int(points) - 7];
    } else if (points > 15 && points < 20) {
        m = {85, 14, 35, 40};
    } else if (points > 21 && points < 30) {
        m = {80, 14, 35, 33};
    }
    if (bold) {
        m.LineWidth -= 15;
        m.RuleExtra -= 10;
        m.LinesPerPage -= 3;
    }
    return m;
}
