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
    if (!cursor || index < 0)
        return {};
    if (m_blockFirst < 0 || index < m_blockFirst || index >= m_blockFirst + m_block.size()) {
        m_blockFirst = index - index % BlockRows;
        m_block = cursor->rows(m_blockFirst, BlockRows);
    }
    QStringList cells = m_block.value(index - m_blockFirst);
    if (m_dateColumn >= 0 && m_dateColumn < cells.size()) {
        const QString date = cells[m_dateColumn];
        cells[m_dateColumn] = date.mid(4, 2) + u'/' + date.mid(6, 2) + u'/' + date.mid(2, 2);
    }
    return cells;
}

void RecordsetRows::reload() {
    m_blockFirst = -1;
    m_block.clear();
}
