#pragma once

#include "platform/AppError.h"

#include <QStringList>

// Filing the files of whole folders under a group, as the batch add does at each stop of a
// disk search.
namespace OrganizerBatch {

// Adds the group, described as "<name> Description", when the group table is still empty; a
// table with groups is left as it is, whatever the name.
AppError EnsureFirstGroup(const QString& database, const QString& group);

// A record for each named file of the folder under the group, all with the same stamps of the
// moment, the folder's last component as their search word and the file's own date, in one
// transaction. The first failure ends the folder; the records made before it stay.
struct Added {
    int records = 0;
    AppError error;
};
Added AddFolderFilesToGroup(const QString& database, const QString& group, const QString& folder,
                            const QStringList& names);

} // namespace OrganizerBatch
