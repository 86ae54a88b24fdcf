#pragma once

#include "platform/tables/TableReader.h"

struct sqlite3;

// SQLite database files, whatever their extension (the organizer's own FileTabl.MDB among
// them), opened read-only. A table's fields take their types from the declared column types,
// its indexes are the file's named indexes, and rows are read a block at a time in the order
// of the chosen index.
class SqliteReader final : public TableReader {
public:
    // Whether the file starts as an SQLite database does.
    static bool isSqliteFile(const QString& path);
    static Opened openFile(const QString& path);
    ~SqliteReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    SqliteReader() = default;
    sqlite3* m_db = nullptr;
};
