#include "shell/StartupRules.h"

#include "settings/OptionSettings.h"

namespace StartupRules {

void clampMainPosition(OptionSettings& options) {
    if (options.gMainLeft > MaxMainLeft)
        options.gMainLeft = MaxMainLeft;
    if (options.gMainTop > MaxMainTop)
        options.gMainTop = MaxMainTop;
}

QString cutComputerName(const QString& buffer) {
    if (buffer.trimmed().isEmpty())
        return buffer;
    int blanks = 0;
    for (qsizetype i = 0; i < buffer.size(); ++i) {
        if (buffer[i] == u' ' && ++blanks == 10)
            return buffer.left(i + 1 - 10);
    }
    return buffer;
}

} // namespace StartupRules
