#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QStringList>

#include <memory>

struct sqlite3;

// The organizer's database: GroupTable and FileTable in one SQLite file, FileTabl.MDB in the
// program's folder. Every window opens it by itself; each handle is a connection of its own.
// Text columns compare without regard to case, letters outside ASCII included, in indexes, in
// seeks, in sorts and in the group name of the queries.
class OrganizerDb {
public:
    static constexpr const char* FileName = "FileTabl.MDB";
    static constexpr const char* WorkFileName = "FileTabl2.MDB";

    // The error numbers of the database engine that the windows look at or show.
    enum Error : int {
        UpdateWithoutEdit = 3020,
        NoCurrentRecord = 3021,
        DuplicateKey = 3022,
        FileMissing = 3024,
        NoSpace = 3026,
        ReadOnly = 3027,
        NotADatabase = 3049,
        DiskError = 3043,
        NoCurrentIndex = 3019,
        TableMissing = 3078,
        QuerySyntax = 3075,
        FieldNotUpdatable = 3164,
        Locked = 3260,
        NotSupported = 3251,
        ItemNotFound = 3265,
        NotAnIndex = 3800,
    };
    static AppError error(int number);

    struct Opened {
        std::shared_ptr<OrganizerDb> db;
        AppError error;
    };
    // Opens the file, with or without its ".MDB" (any letter case). A file that does not exist
    // yet, or holds no tables at all, gets the two empty tables.
    static Opened open(const QString& path);
    // The path open() uses for a name given with or without its extension.
    static QString filePath(const QString& path);

    ~OrganizerDb();
    OrganizerDb(const OrganizerDb&) = delete;
    OrganizerDb& operator=(const OrganizerDb&) = delete;

    sqlite3* handle() const { return m_db; }
    const QString& path() const { return m_path; }

    // The error of the connection's last failed call, as an engine error number.
    AppError lastError(int resultCode) const;
    // Runs statements without results; the engine error on failure.
    AppError exec(const char* sql);

    // One transaction over many changes; each change outside one is a transaction of its own.
    AppError begin() { return exec("BEGIN IMMEDIATE"); }
    AppError commit() { return exec("COMMIT"); }
    void rollback() { exec("ROLLBACK"); }

    // The column names of a table in their order; empty when there is no such table.
    QStringList columns(const QString& table) const;

    // The column an index orders by.
    static QString indexColumn(const QString& table, const QString& index);

private:
    OrganizerDb() = default;
    sqlite3* m_db = nullptr;
    QString m_path;
};

// The comparison of the organizer's text columns, for any SQLite connection that reads the file.
void registerOrganizerCollation(sqlite3* db);
