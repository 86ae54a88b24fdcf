#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

// The file beside `path` with the same base name and the extension, whatever its letter case;
// empty when there is none.
inline QString companionFile(const QString& path, const QString& extension) {
    const QFileInfo info(path);
    const QString wanted = info.completeBaseName() + u'.' + extension;
    const QStringList entries = QDir(info.absolutePath()).entryList(QDir::Files);
    for (const QString& entry : entries) {
        if (entry.compare(wanted, Qt::CaseInsensitive) == 0)
            return info.absoluteDir().filePath(entry);
    }
    return {};
}
