#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

// The indexes of a dBASE table, read from their B-tree pages: single-index .NDX files and the
// tags of the production .MDX. Only record numbers are kept, never keys or rows.
struct DbaseIndex {
    QString name;          // the NDX file's base name, or the MDX tag's name
    QString path;          // the NDX or MDX file
    bool multiple = false; // a tag of an MDX file
};

// The indexes that belong to the table at `tablePath` with the given field names: the NDX files
// its .INF file lists or, without one, the NDX files beside it whose key expression names only
// its fields; then the tags of its production MDX. Files whose headers do not read are left out.
QList<DbaseIndex> findDbaseIndexes(const QString& tablePath, const QStringList& fieldNames);

// The key expression in an NDX file's header; empty when the header does not read.
QString ndxKeyExpression(const QString& path);

// Whether a key expression names fields and only fields among `fieldNames` (any letter case).
bool keyNamesOnlyFields(const QString& expression, const QStringList& fieldNames);

// The tag names of an MDX file, in the order of its tag table; empty when it does not read.
QStringList mdxTagNames(const QString& path);

// Zero-based record numbers in the order of the index: the order of its leaves, records of
// equal keys by record number. Records outside [1, recordCount] and repeated records are
// skipped. Nothing when the file is damaged (a page out of the file, a loop, a bad header).
std::optional<std::vector<std::uint32_t>> readDbaseIndexOrder(const DbaseIndex& index,
                                                              std::uint32_t recordCount);
