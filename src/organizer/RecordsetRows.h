#pragma once

#include "platform/tables/GridRows.h"
#include "platform/tables/RowBlock.h"

#include <functional>

class Recordset;

// The records of an organizer cursor for a grid, under headings of the window's own, read a
// block at a time in the cursor's order. The cursor is asked for anew at every read, so that
// the grid follows a data control that opened another one.
class RecordsetRows final : public GridRows {
public:
    static constexpr int BlockRows = 128;

    RecordsetRows(std::function<Recordset*()> cursor, QStringList headings);

    // A column of YYYYMMDD dates shown as MM/DD/YY ("//" for an empty one).
    void setDateColumn(int column) { m_dateColumn = column; }

    qint64 count() const override;
    int columnCount() const override { return int(m_headings.size()); }
    QString heading(int column) const override { return m_headings.value(column); }
    QStringList row(qint64 index) override;
    void reload() override;

private:
    std::function<Recordset*()> m_cursor;
    QStringList m_headings;
    int m_dateColumn = -1;
    RowBlock m_block{BlockRows};
};
