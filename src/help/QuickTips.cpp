#include "help/QuickTips.h"

#include "platform/TextFile.h"

#include <QFileInfo>

#include <cmath>

namespace QuickTips {

QString fileName() {
    return QStringLiteral("TIPHELP.TXT");
}

Loaded read(const QString& path) {
    Loaded result;
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return result;
    TextFile::ReadResult lines = TextFile::readLines(path);
    if (lines.error)
        return result;
    result.loaded = true;
    result.tips = std::move(lines.lines);
    return result;
}

qsizetype choose(double random, qsizetype count) {
    const double scaled = std::floor(random * double(count));
    qsizetype tip = 1;
    if (std::isfinite(scaled) && scaled >= 0 && scaled < double(count))
        tip = qsizetype(scaled) + 1;
    return tip;
}

} // namespace QuickTips
