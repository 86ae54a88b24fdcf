#include "platform/tables/AccessIndex.h"

#include <QtEndian>

#include <unordered_set>

namespace AccessIndex {

namespace {

constexpr quint8 NodePage = 0x03;
constexpr quint8 LeafPage = 0x04;
constexpr int MostLevels = 16;

quint32 int24Msb(const QByteArray& page, qsizetype at) {
    const auto* p = reinterpret_cast<const uchar*>(page.constData() + at);
    return (quint32(p[0]) << 16) | (quint32(p[1]) << 8) | p[2];
}

// The entries of an index page as [start, end) offsets, from its bitmap.
std::vector<std::pair<int, int>> entriesOf(const QByteArray& page, const Layout& layout) {
    std::vector<std::pair<int, int>> entries;
    int start = layout.entriesAt;
    const int bits = (layout.entriesAt - layout.bitmapAt) * 8;
    for (int bit = 1; bit < bits; ++bit) {
        const uchar byte = static_cast<uchar>(page[layout.bitmapAt + bit / 8]);
        if (!(byte & (1 << (bit % 8))))
            continue;
        const int end = layout.entriesAt + bit;
        if (end > layout.pageSize)
            break;
        entries.emplace_back(start, end);
        start = end;
    }
    return entries;
}

class Walk {
public:
    Walk(const PageReader& read, const Layout& layout, quint32 tablePage, quint32 pageCount)
        : m_read(read), m_layout(layout), m_tablePage(tablePage), m_pageCount(pageCount) {}

    // Reads a page of this index that was not read before.
    bool page(quint32 number, QByteArray* bytes) {
        if (number == 0 || number >= m_pageCount || !m_seen.insert(number).second)
            return false;
        if (!m_read(number, bytes) || bytes->size() < m_layout.pageSize)
            return false;
        const quint8 kind = static_cast<quint8>(bytes->at(0));
        return (kind == NodePage || kind == LeafPage) &&
               qFromLittleEndian<quint32>(bytes->constData() + 4) == m_tablePage;
    }

    void descend(quint32 number, int level) {
        QByteArray bytes;
        if (level > MostLevels || !page(number, &bytes))
            return;
        const bool leaf = bytes[0] == LeafPage;
        if (leaf)
            m_lastLeaf = number;
        for (const auto& [start, end] : entriesOf(bytes, m_layout)) {
            if (end - start < 4)
                continue;
            if (leaf)
                m_order.push_back({int24Msb(bytes, end - 4),
                                   static_cast<quint16>(static_cast<uchar>(bytes[end - 1]))});
            else
                descend(int24Msb(bytes, end - 3), level + 1);
        }
    }

    // Leaves beyond the tree: the next-page links from the last leaf read.
    void tail() {
        quint32 number = m_lastLeaf;
        QByteArray bytes;
        while (number && m_read(number, &bytes) && bytes.size() >= m_layout.pageSize) {
            const quint32 next = qFromLittleEndian<quint32>(bytes.constData() + 0x0c);
            if (!next || m_seen.count(next))
                return;
            QByteArray leaf;
            if (!page(next, &leaf) || leaf[0] != LeafPage)
                return;
            for (const auto& [start, end] : entriesOf(leaf, m_layout)) {
                if (end - start >= 4)
                    m_order.push_back({int24Msb(leaf, end - 4),
                                       static_cast<quint16>(static_cast<uchar>(leaf[end - 1]))});
            }
            number = next;
        }
    }

    std::vector<RowPlace> take() { return std::move(m_order); }

private:
    const PageReader& m_read;
    const Layout m_layout;
    const quint32 m_tablePage;
    const quint32 m_pageCount;
    std::unordered_set<quint32> m_seen;
    quint32 m_lastLeaf = 0;
    std::vector<RowPlace> m_order;
};

} // namespace

Layout layoutFor(bool jet4) {
    return jet4 ? Layout{4096, 0x1b, 0x1e0} : Layout{2048, 0x16, 0xf8};
}

std::vector<RowPlace> rowOrder(const PageReader& read, const Layout& layout, quint32 root,
                               quint32 tablePage, quint32 pageCount) {
    Walk walk(read, layout, tablePage, pageCount);
    walk.descend(root, 0);
    walk.tail();
    return walk.take();
}

} // namespace AccessIndex
