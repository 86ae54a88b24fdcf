#pragma once

#include "platform/AppError.h"

#include <QString>

// Work on the organizer's database file as a whole.
namespace OrganizerMaintenance {

// The check at the main window's start: the number of files in FileTable, and whether an older
// FileTable without Comments was just given the column (the start then says so once). Other
// failures, an empty table among them, are passed over.
struct TableCheck {
    qint64 fileCount = 0;
    bool updated = false;
};
TableCheck CheckOrganizerTable(const QString& databasePath);

// Writes a compacted copy of the database under the target name, which gives deleted rows
// back; an existing target is replaced only once the copy is whole.
AppError CompactDatabase(const QString& source, const QString& target);

// Rebuilds the indexes of a sound file in place. A file that fails its integrity check is
// rebuilt from every row that can still be read, and the rebuilt file replaces it; the damaged
// file is kept beside it with ".damaged" added to its name.
AppError RepairDatabase(const QString& path);

// Removes every row of FileTable and compacts the file through the work file beside it, which
// then takes the file's name in one rename. An empty FileTable is a failure, as a first move on
// an empty table is.
AppError ClearAllFiles(const QString& databasePath, const QString& workPath);

} // namespace OrganizerMaintenance
