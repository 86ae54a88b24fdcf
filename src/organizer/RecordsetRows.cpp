#include "organizer/RecordsetRows.h"

#include "organizer/Recordset.h"

RecordsetRows::RecordsetRows(std::function<Recordset*()> cursor, QStringList headings)
    : m_cursor(std::move(cursor)), m_headings(std::move(headings)) {}

qint64 RecordsetRows::count() const {
    const Recordset* cursor = m_cursor();
    return cursor ? cursor->RecordCount() : 0;
}

QStringList RecordsetRows::row(qint64 index) {
    const Recordset* cursor = m_cursor();
    if (!cursor)
        return {};
    QStringList cells = m_block.row(
        index, [cursor](qint64 first, int count) { return cursor->rows(first, count); });
    if (m_dateColumn >= 0 && m_dateColumn < cells.size()) {
        const QString date = cells[m_dateColumn];
        cells[m_dateColumn] = date.mid(4, 2) + u'/' + date.mid(6, 2) + u'/' + date.mid(2, 2);
    }
    return cells;
}

void RecordsetRows::reload() {
    m_block.clear();
}
