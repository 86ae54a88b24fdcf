#include "organizer/OrganizerDb.h"

#include "platform/tables/SqliteCollation.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* CollationName = "ORGANIZER_NOCASE";

// The two tables in the order of their columns, every text NOT NULL so that the cursor's
// orders and keys never meet a null. Index names are global in SQLite: each carries its table.
const char* const Schema = R"(
CREATE TABLE GroupTable (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    GroupName TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    GroupDesc TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    Date TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    Time TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    DateTimeCreated TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    DateDisp TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE);
CREATE UNIQUE INDEX GroupTable_GroupName ON GroupTable (GroupName);
CREATE TABLE FileTable (
    ID INTEGER PRIMARY KEY AUTOINCREMENT,
    GroupName TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    FileName TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    FileLocation TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    FileDescription TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    FileKeyword TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    FileType TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    Comments TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    Date TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    Time TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    DateTimeCreated TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE,
    DateDisp TEXT NOT NULL DEFAULT '' COLLATE ORGANIZER_NOCASE);
CREATE INDEX FileTable_FileName ON FileTable (FileName);
CREATE INDEX FileTable_GroupName ON FileTable (GroupName);
CREATE INDEX FileTable_FileKeyword ON FileTable (FileKeyword);
)";

int tableCount(sqlite3* db, int* resultCode) {
    sqlite3_stmt* statement = nullptr;
    *resultCode = sqlite3_prepare_v2(db, "SELECT count(*) FROM sqlite_master WHERE type = 'table'",
                                     -1, &statement, nullptr);
    int count = -1;
    if (*resultCode == SQLITE_OK) {
        *resultCode = sqlite3_step(statement);
        if (*resultCode == SQLITE_ROW) {
            count = sqlite3_column_int(statement, 0);
            *resultCode = SQLITE_OK;
        }
    }
    sqlite3_finalize(statement);
    return count;
}

} // namespace

void registerOrganizerCollation(sqlite3* db) {
    SqliteCollation::registerNoCase(db, CollationName);
}

AppError OrganizerDb::error(int number) {
    switch (number) {
    case UpdateWithoutEdit:
        return AppError(number, u"Update or CancelUpdate without AddNew or Edit."_s);
    case NoCurrentRecord:
        return AppError(number, u"No current record."_s);
    case DuplicateKey:
        return AppError(number,
                        u"The changes you requested to the table were not successful because "
                        "they would create duplicate values in the index, primary key, or "
                        "relationship."_s);
    case FileMissing:
        return AppError(number, u"Couldn't find file."_s);
    case NoSpace:
        return AppError(number, u"Not enough space on disk."_s);
    case ReadOnly:
        return AppError(number, u"Cannot update. Database or object is read-only."_s);
    case NotADatabase:
        return AppError(number, u"Can't open database. It may not be a database that your "
                                "application recognizes, or the file may be corrupt."_s);
    case DiskError:
        return AppError(number, u"Disk or network error."_s);
    case NoCurrentIndex:
        return AppError(number, u"Operation invalid without a current index."_s);
    case TableMissing:
        return AppError(number, u"The database engine cannot find the input table or query."_s);
    case QuerySyntax:
        return AppError(number, u"Syntax error (missing operator) in query expression."_s);
    case FieldNotUpdatable:
        return AppError(number, u"Field cannot be updated."_s);
    case Locked:
        return AppError(number, u"Couldn't update; currently locked."_s);
    case NotSupported:
        return AppError(number, u"Operation is not supported for this type of object."_s);
    case ItemNotFound:
        return AppError(number, u"Item not found in this collection."_s);
    case NotAnIndex:
        return AppError(number, u"It is not an index in this table."_s);
    default:
        return AppError(number);
    }
}

QString OrganizerDb::filePath(const QString& path) {
    if (path.endsWith(u".MDB"_s, Qt::CaseInsensitive))
        return path;
    return path + u".MDB"_s;
}

OrganizerDb::Opened OrganizerDb::open(const QString& path) {
    Opened opened;
    const QString file = filePath(path);
    const QFileInfo info(file);
    if (!QFileInfo(info.absolutePath()).isDir()) {
        opened.error = error(FileMissing);
        return opened;
    }
    std::shared_ptr<OrganizerDb> db(new OrganizerDb);
    db->m_path = file;
    int rc = sqlite3_open_v2(QFile::encodeName(file).constData(), &db->m_db,
                             SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc != SQLITE_OK && info.exists()) {
        // A file we may read but not write: changes fail as on a read-only database.
        sqlite3_close(db->m_db);
        db->m_db = nullptr;
        rc = sqlite3_open_v2(QFile::encodeName(file).constData(), &db->m_db, SQLITE_OPEN_READONLY,
                             nullptr);
    }
    if (rc != SQLITE_OK) {
        opened.error = db->lastError(rc);
        return opened;
    }
    sqlite3_extended_result_codes(db->m_db, 1);
    sqlite3_busy_timeout(db->m_db, 3000);
    registerOrganizerCollation(db->m_db);
    const int tables = tableCount(db->m_db, &rc);
    if (tables < 0) {
        opened.error = db->lastError(rc);
        return opened;
    }
    if (tables == 0 && !sqlite3_db_readonly(db->m_db, "main")) {
        // A first run: the two empty tables, in one transaction.
        if (AppError failed = db->begin()) {
            opened.error = failed;
            return opened;
        }
        if (AppError failed = db->exec(Schema)) {
            db->rollback();
            opened.error = failed;
            return opened;
        }
        if (AppError failed = db->commit()) {
            opened.error = failed;
            return opened;
        }
    }
    opened.db = std::move(db);
    return opened;
}

OrganizerDb::~OrganizerDb() {
    sqlite3_close_v2(m_db);
}

AppError OrganizerDb::lastError(int resultCode) const {
    switch (resultCode & 0xFF) {
    case SQLITE_OK:
    case SQLITE_DONE:
    case SQLITE_ROW:
        return {};
    case SQLITE_CONSTRAINT:
        return error(DuplicateKey);
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return error(ReadOnly);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return error(Locked);
    case SQLITE_FULL:
        return error(NoSpace);
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return error(NotADatabase);
    case SQLITE_CANTOPEN:
        return error(FileMissing);
    default:
        return AppError(DiskError, m_db ? QString::fromUtf8(sqlite3_errmsg(m_db))
                                        : error(DiskError).description());
    }
}

AppError OrganizerDb::exec(const char* sql) {
    const int rc = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
    return lastError(rc);
}

QStringList OrganizerDb::columns(const QString& table) const {
    QStringList names;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(m_db, "SELECT name FROM pragma_table_info(?1)", -1, &statement,
                           nullptr) == SQLITE_OK) {
        const QByteArray name = table.toUtf8();
        sqlite3_bind_text(statement, 1, name.constData(), int(name.size()), SQLITE_TRANSIENT);
        while (sqlite3_step(statement) == SQLITE_ROW)
            names.append(QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
    }
    sqlite3_finalize(statement);
    return names;
}

QString OrganizerDb::indexColumn(const QString& table, const QString& index) {
    static const char* const indexes[][2] = {{"GroupTable", "GroupName"},
                                             {"FileTable", "FileName"},
                                             {"FileTable", "GroupName"},
                                             {"FileTable", "FileKeyword"}};
    for (const auto& [owner, column] : indexes)
        if (table.compare(QLatin1StringView(owner), Qt::CaseInsensitive) == 0 &&
            index.compare(QLatin1StringView(column), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(column);
    return {};
}
