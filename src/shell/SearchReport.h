#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QStringList>

// The work file of the file location report, F@Prnt.INI: for every folder the search found,
// one line "##" and the folder's path, then one line for each matching file's name. Lines end
// with CR LF; groups follow in the order the search found them.
namespace SearchReport {

// The name of the work file in the program's folder.
QString fileName();

// The work file in use: the one the program set at start, else the one of the program folder.
QString workFile();

// Appends one folder's group to the report file, creating the file when it is missing.
// Returns the error of a failed write; the caller may ignore it and go on searching.
AppError addFolder(const QString& reportFile, const QString& folder, const QStringList& fileNames);

} // namespace SearchReport
