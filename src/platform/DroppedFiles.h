#pragma once

#include <QMimeData>
#include <QString>
#include <QUrl>

// The first file of what was dropped from the desktop; the others are not looked at.
inline QString firstDroppedFile(const QMimeData* data) {
    if (!data || !data->hasUrls() || data->urls().isEmpty())
        return {};
    const QUrl& first = data->urls().constFirst();
    return first.isLocalFile() ? first.toLocalFile() : QString();
}
