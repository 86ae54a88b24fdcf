#pragma once

#include <QString>

namespace FontNames {

// Whether a font name is "MS Sans Serif", the settings' default, which stands for the desktop's
// sans-serif font.
inline bool isSystemSans(const QString& name) {
    return name.compare(QLatin1StringView("MS Sans Serif"), Qt::CaseInsensitive) == 0;
}

// The family to ask Qt for under a font name of the settings.
inline QString familyOf(const QString& name) {
    return isSystemSans(name) ? QStringLiteral("Sans Serif") : name;
}

} // namespace FontNames
