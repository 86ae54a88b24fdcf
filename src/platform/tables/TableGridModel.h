#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QPersistentModelIndex>

class TableRecordset;

// The records of a table as a grid: a column a field, headed by the field's name, and a row a
// record. Cells are read from the recordset only when a view asks for them, so a table of any
// size costs the rows on screen. One cell can carry colours of its own (the current cell).
class TableGridModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TableGridModel(QObject* parent = nullptr);

    // The records shown; none for a null recordset. The model does not own it.
    void setRecordset(TableRecordset* recordset);
    TableRecordset* recordset() const { return m_recordset; }
    // The recordset's order or contents changed: every row is read again.
    void refresh();

    // Colours of one cell that stand in front of the view's own; an invalid index clears them.
    void setCellColors(const QModelIndex& cell, const QColor& back, const QColor& fore);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    TableRecordset* m_recordset = nullptr;
    QPersistentModelIndex m_colored;
    QColor m_back;
    QColor m_fore;
};
