#pragma once

#include "platform/AppError.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

// Read-only access to the tables of the desktop database files: tables with their attributes,
// fields with their types (by the numbers of the data access objects: 12 is a memo), indexes,
// and rows fetched one at a time, in the order of an index when one is chosen.
namespace TableTypes {
enum : qint16 {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
};
} // namespace TableTypes

struct TableField {
    QString name;
    qint16 type = TableTypes::Text;
    qint32 size = 0;
};

struct TableDef {
    QString name;
    qint32 attributes = 0; // system objects carry bits of 0x80000002
    QList<TableField> fields;
    QStringList indexes;
};

// The rows of one table: a count and each row's cells as text, read when asked for.
class TableRows {
public:
    virtual ~TableRows();
    virtual qint64 count() const = 0;
    virtual QStringList row(qint64 index) = 0;
};

class TableReader {
public:
    virtual ~TableReader();
    virtual QList<TableDef> tableDefs() = 0;
    // The rows of a table, in the order of the named index, or as stored for an empty name.
    virtual std::unique_ptr<TableRows> rows(const QString& table, const QString& index) = 0;

    struct Opened {
        std::unique_ptr<TableReader> reader;
        AppError error; // 3031 for a wrong or missing database password
    };
    // Opens a file by the connect string that names its kind ("dBASE 5.0;", "Paradox 5.x;",
    // "Access", "Excel 8.0;", "Lotus WK4;").
    static Opened open(const QString& connect, const QString& path, const QString& password);
};
