#include "platform/tables/TableGridModel.h"

#include "platform/tables/TableRecordset.h"

#include <limits>

TableGridModel::TableGridModel(QObject* parent) : QAbstractTableModel(parent) {}

void TableGridModel::setRecordset(TableRecordset* recordset) {
    beginResetModel();
    m_recordset = recordset;
    m_colored = QPersistentModelIndex();
    endResetModel();
}

void TableGridModel::refresh() {
    beginResetModel();
    m_colored = QPersistentModelIndex();
    endResetModel();
}

void TableGridModel::setCellColors(const QModelIndex& cell, const QColor& back,
                                   const QColor& fore) {
    const QModelIndex previous = m_colored;
    m_colored = cell;
    m_back = back;
    m_fore = fore;
    if (previous.isValid())
        Q_EMIT dataChanged(previous, previous, {Qt::BackgroundRole, Qt::ForegroundRole});
    if (cell.isValid())
        Q_EMIT dataChanged(cell, cell, {Qt::BackgroundRole, Qt::ForegroundRole});
}

int TableGridModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_recordset)
        return 0;
    // A view counts its rows in int: a larger table shows its first 2^31 - 1 records.
    return static_cast<int>(
        std::min<qint64>(m_recordset->RecordCount(), std::numeric_limits<int>::max()));
}

int TableGridModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_recordset)
        return 0;
    return static_cast<int>(m_recordset->fields().size());
}

QVariant TableGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !m_recordset)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return m_recordset->row(index.row()).value(index.column());
    case Qt::BackgroundRole:
        if (index == m_colored && m_back.isValid())
            return m_back;
        return {};
    case Qt::ForegroundRole:
        if (index == m_colored && m_fore.isValid())
            return m_fore;
        return {};
    default:
        return {};
    }
}

QVariant TableGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || !m_recordset)
        return {};
    if (orientation == Qt::Horizontal)
        return m_recordset->fields().value(section).name;
    return QString(); // the fixed first column carries no text
}

Qt::ItemFlags TableGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable; // the grid never edits
}
