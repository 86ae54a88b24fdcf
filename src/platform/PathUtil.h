#pragma once

#include <QString>

// Path helpers that cut at the last separator, the way the program's handlers do.
namespace PathUtil {

// What stands before the last "/", or the whole path when there is none.
// The folder of "/name" is "/".
QString folderOf(const QString& path);

// What stands behind the last "/", or the whole path when there is none.
QString nameOf(const QString& path);

// The folder and a name joined by one "/".
QString join(const QString& folder, const QString& name);

// True for the root of the file system, "/".
bool isRoot(const QString& path);

} // namespace PathUtil
