#pragma once

#include <QList>
#include <QStringList>

// The block of rows last read from a source that reads rows a block at a time (a query with a
// limit and an offset): a row inside it is served from memory, any other reads its block.
class RowBlock {
public:
    explicit RowBlock(int rows) : m_rows(rows) {}

    // `read(first, count)` gives the rows of a block; a row past the source's end is empty.
    template <class Read> QStringList row(qint64 index, Read read) {
        if (index < 0)
            return {};
        if (m_first < 0 || index < m_first || index >= m_first + m_block.size()) {
            m_first = index - index % m_rows;
            m_block = read(m_first, m_rows);
        }
        return m_block.value(index - m_first);
    }
    void clear() {
        m_first = -1;
        m_block.clear();
    }

private:
    int m_rows;
    qint64 m_first = -1;
    QList<QStringList> m_block;
};
