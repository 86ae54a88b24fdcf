#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QStringList>

// Moving, renaming, copying and trashing files. A database table is a family of files with one
// base name (table, memo, indexes); the family is moved or renamed whole or not at all: when a
// step fails part-way, what was done is put back.
namespace FileOperations {

// Whether an extension (upper case) belongs to the database families: DB, DBF, MDB, XLS, WK4.
bool isFamilyExtension(const QString& extension);

// The files of a folder named like `path` up to and including its last dot, followed by anything:
// SALES.DBF gives SALES.DBF, SALES.DBT, SALES.MDX... Letter case does not matter.
QStringList family(const QString& path);

// Copies a file; with `failIfExists` an existing target is left alone and the copy fails.
AppError copyFile(const QString& source, const QString& target, bool failIfExists);

// Moves each source to its target, all or nothing: no target may exist beforehand, and on a
// failure the files already moved go back. Works across file systems.
AppError moveAll(const QStringList& sources, const QStringList& targets);

// The targets of a family's members when `path` moves to `target`: each member keeps its own
// extension behind the target's name up to its last dot.
QStringList familyTargets(const QStringList& members, const QString& target);

// Moves a file to the desktop's trash.
AppError moveToTrash(const QString& path);

} // namespace FileOperations
