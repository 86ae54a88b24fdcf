#include "platform/tables/TableGridModel.h"

#include "platform/tables/GridRows.h"

#include <algorithm>
#include <limits>

TableGridModel::TableGridModel(QObject* parent) : QAbstractTableModel(parent) {}

void TableGridModel::setRows(GridRows* rows) {
    beginResetModel();
    m_recordset = rows;
    m_first = 0;
    m_shown = shownFor(m_first, m_windowRows);
    m_coloredRecord = -1;
    endResetModel();
}

void TableGridModel::refresh() {
    beginResetModel();
    if (m_recordset)
        m_recordset->reload();
    m_first = 0;
    m_shown = shownFor(m_first, m_windowRows);
    m_coloredRecord = -1;
    endResetModel();
}

int TableGridModel::recordCount() const {
    if (!m_recordset)
        return 0;
    return static_cast<int>(
        std::min<qint64>(m_recordset->count(), std::numeric_limits<int>::max()));
}

int TableGridModel::shownFor(int first, int rows) const {
    return std::clamp(recordCount() - first, 0, std::max(0, rows));
}

void TableGridModel::setWindow(int first, int rows) {
    first = std::clamp(first, 0, std::max(0, recordCount() - 1));
    rows = std::max(0, rows);
    const int shown = shownFor(first, rows);
    if (shown < m_shown) {
        beginRemoveRows({}, shown, m_shown - 1);
        m_shown = shown;
        endRemoveRows();
    }
    const bool moved = first != m_first;
    const int staying = m_shown;
    m_first = first;
    m_windowRows = rows;
    if (shown > m_shown) {
        beginInsertRows({}, m_shown, shown - 1);
        m_shown = shown;
        endInsertRows();
    }
    if (moved && staying > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(staying - 1, columnCount() - 1));
}

QString TableGridModel::cellText(int record, int column) const {
    if (!m_recordset)
        return {};
    return m_recordset->row(record).value(column);
}

void TableGridModel::emitColorsChanged() {
    const int row = m_coloredRecord - m_first;
    const int last = std::min(m_coloredLast, columnCount() - 1);
    if (m_coloredRecord >= 0 && row >= 0 && row < m_shown && m_coloredFirst <= last) {
        Q_EMIT dataChanged(index(row, m_coloredFirst), index(row, last),
                           {Qt::BackgroundRole, Qt::ForegroundRole});
    }
}

void TableGridModel::setCellColors(int record, int column, const QColor& back, const QColor& fore) {
    emitColorsChanged();
    m_coloredRecord = record < 0 ? -1 : record;
    m_coloredFirst = column;
    m_coloredLast = column;
    m_back = back;
    m_fore = fore;
    emitColorsChanged();
}

void TableGridModel::setRowColors(int record, int lastColumn, const QColor& back,
                                  const QColor& fore) {
    setCellColors(record, 0, back, fore);
    m_coloredLast = lastColumn;
    emitColorsChanged();
}

int TableGridModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_recordset)
        return 0;
    return m_shown;
}

int TableGridModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !m_recordset)
        return 0;
    return m_recordset->columnCount();
}

QVariant TableGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !m_recordset)
        return {};
    const int record = m_first + index.row();
    const bool colored = record == m_coloredRecord && index.column() >= m_coloredFirst &&
                         index.column() <= m_coloredLast;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return cellText(record, index.column());
    case Qt::BackgroundRole:
        if (colored && m_back.isValid())
            return m_back;
        return {};
    case Qt::ForegroundRole:
        if (colored && m_fore.isValid())
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
        return m_recordset->heading(section);
    return QString(); // the fixed first column carries no text
}

Qt::ItemFlags TableGridModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable; // the grid never edits
}
