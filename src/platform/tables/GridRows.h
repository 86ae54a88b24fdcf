#pragma once

#include <QString>
#include <QStringList>

// What a grid shows: numbered rows of text cells under column headings, read one row at a
// time when the grid asks for it.
class GridRows {
public:
    virtual ~GridRows() = default;
    virtual qint64 count() const = 0;
    virtual int columnCount() const = 0;
    virtual QString heading(int column) const = 0;
    // The cells of a row (from 0); empty outside the rows.
    virtual QStringList row(qint64 index) = 0;
    // The rows changed behind the grid: what was read before is read again.
    virtual void reload() {}
};
