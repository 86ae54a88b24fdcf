#pragma once

#include "platform/tables/TableReader.h"

#include <QByteArray>

// Access databases (Jet 3 and Jet 4 .MDB) through mdbtools' libmdb. A database password is
// checked against the one kept in the file's header: a wrong or missing one is error 3031.
// Rows come as stored, or in the order of one of the table's indexes, walked through libmdb.
class AccessReader final : public TableReader {
public:
    static constexpr int InvalidPassword = 3031;

    static Opened openFile(const QString& path, const QString& password);
    // The password kept in the header of an Access file; empty for none.
    static QString storedPassword(const QByteArray& header);
    ~AccessReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    AccessReader() = default;

    void* m_handle = nullptr; // MdbHandle
    qint64 m_fileSize = 0;
    QList<TableDef> m_defs;
};
