#pragma once

#include "platform/AppError.h"
#include "platform/tables/GridRows.h"
#include "platform/tables/TableReader.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <list>
#include <memory>
#include <utility>

// The records of one table of a desktop database file, opened read-only as a data control
// opens its record source: by a connect string, a database name (the folder of a dBASE or
// Paradox file, the path of the others) and a record source (the file name, or the table).
// It keeps a current record and hands out the rows that are asked for, holding only a few
// blocks of them at a time.
class TableRecordset final : public GridRows {
public:
    static constexpr qint64 BlockRows = 256;
    static constexpr int KeptBlocks = 8;

    struct Opened {
        std::unique_ptr<TableRecordset> recordset;
        AppError error;
    };
    static Opened open(const QString& connect, const QString& databaseName,
                       const QString& recordSource);

    // The password of an Access connect string: the text after ";pwd=", up to the next ";".
    static QString passwordOf(const QString& connect);

    const TableDef& table() const { return m_def; }
    const QList<TableField>& fields() const { return m_def.fields; }
    qint64 RecordCount() const { return m_rows ? m_rows->count() : 0; }

    // The order of the records: an index of the table, or empty for the stored order. An
    // unknown name is error 3265 (item not found) and leaves the order as it was.
    QString Index() const { return m_index; }
    AppError setIndex(const QString& name);

    // The current record, from 0; -1 before the first and RecordCount() after the last.
    qint64 AbsolutePosition() const { return m_position; }
    bool isBOF() const { return m_position < 0 || RecordCount() == 0; }
    bool isEOF() const { return m_position >= RecordCount() || RecordCount() == 0; }
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    // The cells of a record as they show (dates in the locale's form); empty outside the table.
    QStringList row(qint64 index) override;

    // A grid's view of the records: a column a field, headed by its name.
    qint64 count() const override { return RecordCount(); }
    int columnCount() const override { return int(m_def.fields.size()); }
    QString heading(int column) const override { return m_def.fields.value(column).name; }

private:
    TableRecordset() = default;
    void reorder(const QString& index);
    QStringList shown(QStringList cells) const;

    std::unique_ptr<TableReader> m_reader;
    std::unique_ptr<TableRows> m_rows;
    TableDef m_def;
    QString m_index;
    qint64 m_position = 0;
    // The most recently used blocks of rows, the newest first.
    std::list<std::pair<qint64, QList<QStringList>>> m_blocks;
};
