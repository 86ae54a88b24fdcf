#pragma once

#include <QString>
#include <QStringList>

#include <array>

struct Globals;

// What the program knows of a file from its extension: the table of known extensions, whose
// positions are the classes of files, the rows of the file filter list, the filter text of the
// file dialogs, and the format codes used to write pictures.
//
// Several users walk the extension table with bounds of their own; those bounds differ on
// purpose and each user keeps its own.
namespace FileTypes {

inline constexpr int ExtensionCount = 63;
inline constexpr int FilterRowCount = 34;
inline constexpr int DialogFilterPairs = 28;

// Index bounds within the extension table.
inline constexpr int FirstTextIndex = 39;
inline constexpr int LastTextIndex = 57;
inline constexpr int FirstDatabaseIndex = 58;
inline constexpr int LastDatabaseIndex = 62;

struct FilterRow {
    QString caption;
    QString mask;
};

// The 63 extensions, upper case, without the dot, in table order.
const QStringList& extensionTable();

// The 34 rows of the filter list, in list order.
const std::array<FilterRow, FilterRowCount>& filterRows();

// The filter text of the open and save dialogs: 28 "caption|mask" pairs joined by "|".
QString dialogFilter();

// The upper-case text behind the last "." of the whole name; empty when there is no ".".
QString GetFileExt(const QString& name);

// Position of an extension in the table by exact comparison, or ExtensionCount when absent.
int indexOf(const QStringList& table, const QString& ext);

// Whether the extension of `name` is known. Sets mFileExt to the extension, clears
// mIsTextFile and gIsDatabaseFile and then sets the one of the file's class. A name without
// an extension also forgets gCurrentFile.
bool GetFileTypeFlag(const QString& name, Globals& g, QString& mFileExt, bool& mIsTextFile);

// The mask of all 63 extensions, "*.JPG;*.CMP;...".
QString CreateOpenFileExt(const QStringList& table);

// Whether an extension (upper case) is one of the pictures of the table, 1-bit pictures
// included.
bool isPictureExt(const QString& ext);

// The code of the picture format that an extension is written in; 0 for none. The match is
// exact: "jpg" gives 0.
qint16 GetFileFormatCode(const QString& ext);

// "Picture", "Multimedia", "Document", "Database", "System" or "Miscellaneous".
QString GetFileKindName(const QString& name);

} // namespace FileTypes
