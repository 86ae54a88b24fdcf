#include "organizer/OrganizerMaintenance.h"

#include "organizer/OrganizerDb.h"
#include "organizer/Recordset.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace OrganizerMaintenance {

namespace {

// A name beside the given file for a copy under way.
QString besideName(const QString& path, const char* suffix) {
    return path + QLatin1StringView(suffix);
}

// Moves a finished file over its target in one step.
AppError replaceWith(const QString& finished, const QString& target) {
    if (std::rename(QFile::encodeName(finished).constData(),
                    QFile::encodeName(target).constData()) != 0) {
        const int err = errno;
        QFile::remove(finished);
        return AppError::fromErrno(err);
    }
    return {};
}

// The rows of one table that can be read, copied into the same table of another connection.
// A damaged stretch of the table is stepped over by seeking further and further past it.
void copyReadableRows(sqlite3* from, sqlite3* to, const QString& table, const QStringList& into) {
    sqlite3_stmt* read = nullptr;
    const QByteArray select =
        (u"SELECT * FROM \""_s + table + u"\" WHERE ID > ?1 ORDER BY ID LIMIT 1"_s).toUtf8();
    if (sqlite3_prepare_v2(from, select.constData(), -1, &read, nullptr) != SQLITE_OK)
        return;
    QStringList names;
    QStringList places;
    for (int c = 0; c < into.size(); ++c) {
        names.append(u'"' + into[c] + u'"');
        places.append(u'?' + QString::number(c + 1));
    }
    // Where each column of the new table is in the old one (-1: not there, left empty).
    QList<int> source;
    for (const QString& name : into) {
        int found = -1;
        for (int r = 0; r < sqlite3_column_count(read); ++r)
            if (name.compare(QString::fromUtf8(sqlite3_column_name(read, r)),
                             Qt::CaseInsensitive) == 0)
                found = r;
        source.append(found);
    }
    sqlite3_stmt* write = nullptr;
    const QByteArray insert = (u"INSERT OR IGNORE INTO \""_s + table + u"\" ("_s +
                               names.join(u", "_s) + u") VALUES ("_s + places.join(u", "_s) + u')')
                                  .toUtf8();
    sqlite3_prepare_v2(to, insert.constData(), -1, &write, nullptr);
    sqlite3_int64 after = 0;
    sqlite3_int64 skip = 1;
    while (write && after < (sqlite3_int64(1) << 48)) {
        sqlite3_reset(read);
        sqlite3_bind_int64(read, 1, after);
        const int rc = sqlite3_step(read);
        if (rc == SQLITE_DONE)
            break;
        if (rc != SQLITE_ROW) {
            after += skip;
            skip *= 2;
            continue;
        }
        skip = 1;
        after = sqlite3_column_int64(read, 0);
        sqlite3_reset(write);
        for (int c = 0; c < source.size(); ++c) {
            if (source[c] < 0 || sqlite3_column_type(read, source[c]) == SQLITE_NULL)
                sqlite3_bind_text(write, c + 1, "", 0, SQLITE_STATIC);
            else
                sqlite3_bind_value(write, c + 1, sqlite3_column_value(read, source[c]));
        }
        sqlite3_step(write);
    }
    sqlite3_finalize(read);
    sqlite3_finalize(write);
}

// A new database with the two empty tables holding every readable row of the old one.
AppError rebuildInto(const QString& damaged, const QString& rebuilt) {
    QFile::remove(rebuilt);
    OrganizerDb::Opened fresh = OrganizerDb::open(rebuilt);
    if (fresh.error)
        return fresh.error;
    sqlite3* from = nullptr;
    if (sqlite3_open_v2(QFile::encodeName(damaged).constData(), &from, SQLITE_OPEN_READONLY,
                        nullptr) == SQLITE_OK) {
        registerOrganizerCollation(from);
        fresh.db->begin();
        for (const QString& table : {u"GroupTable"_s, u"FileTable"_s})
            copyReadableRows(from, fresh.db->handle(), table, fresh.db->columns(table));
        fresh.db->commit();
    }
    sqlite3_close_v2(from);
    return {};
}

} // namespace

TableCheck CheckOrganizerTable(const QString& databasePath) {
    TableCheck check;
    OrganizerDb::Opened opened = OrganizerDb::open(databasePath);
    if (opened.error)
        return check;
    Recordset::Opened files = Recordset::open(opened.db, u"FileTable"_s, Recordset::TableType);
    if (files.error)
        return check;
    check.fileCount = files.recordset->RecordCount();
    if (files.recordset->MoveFirst())
        return check;
    AppError error;
    files.recordset->value(u"Comments"_s, &error);
    if (error.number() != OrganizerDb::ItemNotFound)
        return check;
    files.recordset.reset();
    // The column takes its place between FileType and Date: the table is made again in the
    // order of today's columns, in one transaction.
    const QString file = opened.db->path();
    const QString rebuilt = besideName(file, ".upgrade.MDB");
    if (rebuildInto(file, rebuilt))
        return check;
    opened.db.reset();
    check.updated = !replaceWith(rebuilt, file);
    return check;
}

AppError CompactDatabase(const QString& source, const QString& target) {
    OrganizerDb::Opened opened = OrganizerDb::open(source);
    if (opened.error)
        return opened.error;
    const QString partial = besideName(target, ".partial");
    QFile::remove(partial);
    sqlite3_stmt* vacuum = nullptr;
    int rc = sqlite3_prepare_v2(opened.db->handle(), "VACUUM INTO ?1", -1, &vacuum, nullptr);
    if (rc == SQLITE_OK) {
        const QByteArray name = QFile::encodeName(partial);
        sqlite3_bind_text(vacuum, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
        rc = sqlite3_step(vacuum);
    }
    sqlite3_finalize(vacuum);
    if (rc != SQLITE_DONE) {
        QFile::remove(partial);
        return opened.db->lastError(rc);
    }
    return replaceWith(partial, target);
}

AppError RepairDatabase(const QString& path) {
    const QString file = OrganizerDb::filePath(path);
    sqlite3* db = nullptr;
    bool sound = false;
    if (sqlite3_open_v2(QFile::encodeName(file).constData(), &db, SQLITE_OPEN_READWRITE, nullptr) ==
        SQLITE_OK) {
        registerOrganizerCollation(db);
        sqlite3_stmt* check = nullptr;
        if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr) == SQLITE_OK &&
            sqlite3_step(check) == SQLITE_ROW)
            sound =
                qstrcmp(reinterpret_cast<const char*>(sqlite3_column_text(check, 0)), "ok") == 0;
        sqlite3_finalize(check);
        if (sound)
            sound = sqlite3_exec(db, "REINDEX", nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    sqlite3_close_v2(db);
    if (sound)
        return {};
    const QString rebuilt = besideName(file, ".rebuilt.MDB");
    if (AppError failed = rebuildInto(file, rebuilt))
        return failed;
    const QString kept = besideName(file, ".damaged");
    QFile::remove(kept);
    if (!QFile::copy(file, kept)) {
        QFile::remove(rebuilt);
        return AppError(AppError::PathFileAccess);
    }
    return replaceWith(rebuilt, file);
}

AppError ClearAllFiles(const QString& databasePath, const QString& workPath) {
    {
        OrganizerDb::Opened opened = OrganizerDb::open(databasePath);
        if (opened.error)
            return opened.error;
        Recordset::Opened files = Recordset::open(opened.db, u"FileTable"_s, Recordset::TableType);
        if (files.error)
            return files.error;
        if (AppError empty = files.recordset->MoveFirst())
            return empty;
        files.recordset.reset();
        if (AppError failed = opened.db->exec("DELETE FROM FileTable"))
            return failed;
    }
    QFile::remove(workPath);
    if (AppError failed = CompactDatabase(databasePath, workPath))
        return failed;
    return replaceWith(workPath, OrganizerDb::filePath(databasePath));
}

} // namespace OrganizerMaintenance
