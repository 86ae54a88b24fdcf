#pragma once

#include "platform/AppError.h"

#include <QString>

#include <functional>

struct Globals;

// The shared lists of a database file's tables, fields and indexes, filled for one table at a
// time, so that a second database window overwrites them.
namespace DatabaseLists {

// The system object bits of a table's attributes.
inline constexpr qint32 SystemObjectMask = static_cast<qint32>(0x80000002U);

// Asks for the password of gOpenFile, sets gDbPassword and gLoginOK; true when it was given.
using AskPassword = std::function<bool()>;

// Fills gTableNames and gTableCount with the user tables of the file and returns the first,
// or an empty text. A password error asks through `ask` and tries again with the password
// given; any other failure returns empty without a word. More than 251 tables is the bounds
// failure, returned in `error`.
QString ListTables(Globals& g, const QString& path, const QString& connect, const AskPassword& ask,
                   AppError* error = nullptr);

// Fills the field and index lists of a table; failures leave what was read. The name of a
// dBASE or Paradox table is the file name without its extension.
AppError ReadTableInfo(Globals& g, const QString& connect, const QString& path,
                       const QString& table);

} // namespace DatabaseLists
