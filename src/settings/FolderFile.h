#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QStringList>

#include <optional>

// FoldFile.INI: the working folders, one entry a line, each "folder (filter)" where the
// filter is the row of the file filter list.
namespace FolderFile {

QString fileName();

// The lines of the file as they stand; a missing or unreadable file gives what could be read.
QStringList load(const QString& path);

// Replaces the file with the entries; an empty list is written as one empty line.
AppError save(const QString& path, const QStringList& entries);

struct Entry {
    QString folder;
    int filter = 0;
};

// The entry of a line "folder (filter)", read from the end so that a folder may hold
// brackets of its own; nothing for a line of another form.
std::optional<Entry> parse(const QString& line);

// The line of an entry.
QString format(const QString& folder, int filter);

} // namespace FolderFile
