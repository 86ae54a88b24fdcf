#pragma once

#include <QAbstractTableModel>
#include <QColor>

class GridRows;

// The rows of a table as a grid: a column a field, headed by its heading, and a row a record. The
// rows are a window over the records: a few records from a first one that the view moves, so that
// neither the model nor the view keeps anything for each record of the table. Cells are read from
// the recordset only when a view asks for them. One cell, named by its record, or a run of cells of
// one record, can carry colours of its own (the current cell, a highlighted row).
class TableGridModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    // The rows shown until a view sets its own window.
    static constexpr int DefaultWindowRows = 64;

    explicit TableGridModel(QObject* parent = nullptr);

    // The records shown; none for null. The model does not own them.
    void setRows(GridRows* rows);
    // The recordset's order or contents changed: every row is read again, from record 0.
    void refresh();

    // All the records of the table, whether shown or not (at most 2^31 - 1: a view counts in
    // int).
    int recordCount() const;
    // Row 0 shows this record; the window holds at most windowRows() rows, fewer at the end.
    int firstRecord() const { return m_first; }
    int windowRows() const { return m_windowRows; }
    // Moves and sizes the window: rows leave or join at its end, and the rows that stay show
    // their new records.
    void setWindow(int first, int rows);
    // The text of any cell of the table, in the window or not.
    QString cellText(int record, int column) const;

    // Colours of one cell, by its record and column, that stand in front of the view's own; a
    // negative record clears them.
    void setCellColors(int record, int column, const QColor& back, const QColor& fore);
    // The same for the columns 0 to lastColumn of a record.
    void setRowColors(int record, int lastColumn, const QColor& back, const QColor& fore);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    int shownFor(int first, int rows) const;
    void emitColorsChanged();

    GridRows* m_recordset = nullptr;
    int m_first = 0;
    int m_windowRows = DefaultWindowRows;
    int m_shown = 0;
    int m_coloredRecord = -1;
    int m_coloredFirst = 0;
    int m_coloredLast = 0;
    QColor m_back;
    QColor m_fore;
};
