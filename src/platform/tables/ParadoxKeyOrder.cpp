#include "platform/tables/ParadoxKeyOrder.h"

#include "platform/tables/ParadoxCodePage.h"

#include <QByteArray>
#include <QFile>
#include <QHash>

#include <algorithm>
#include <cstring>
#include <deque>
#include <numeric>

extern "C" {
#include <paradox.h>
// pxlib's own decryption of a data block, which the library exports without declaring it.
void px_decrypt_db_block(unsigned char* src, unsigned char* dest, unsigned long encryption,
                         unsigned long blocksize, unsigned long blockno);
}

namespace {

// Each data block starts with the numbers of the next and the previous block and the offset of
// its last record.
constexpr int BlockHead = 6;
// Blocks kept read while records are sorted.
constexpr qsizetype CachedBlocks = 16;
// The header's sort order of a table whose text sorts by its character codes.
constexpr char AsciiSortOrder = 0x00;

// A record could not be read while the records were sorted.
struct UnreadableRecord {};

// One data block along the chain: its number, how many records it holds, and the number of its
// first record.
struct ChainBlock {
    int number = 0;
    int records = 0;
    qint64 firstRow = 0;
};

// The leading bytes of records, their key, read block by block from the table's file.
class KeyReader {
public:
    KeyReader(const QString& path, const pxhead_t& head, std::vector<ChainBlock> blocks,
              int keyBytes)
        : m_file(path), m_headerBytes(head.px_headersize),
          m_blockBytes(qint64(head.px_maxtablesize) * 1024), m_recordBytes(head.px_recordsize),
          m_encryption(head.px_encryption), m_keyBytes(keyBytes), m_blocks(std::move(blocks)) {}

    // Whether the file opens and holds every record of the chain.
    bool open() {
        if (!m_file.open(QIODevice::ReadOnly))
            return false;
        const qint64 size = m_file.size();
        for (const ChainBlock& block : m_blocks) {
            const qint64 at = m_headerBytes + (block.number - 1) * m_blockBytes;
            if (at + BlockHead + qint64(block.records) * m_recordBytes > size)
                return false;
        }
        return true;
    }

    // The key of the record with the given number into key; false when it cannot be read.
    bool key(qint64 row, QByteArray& key) {
        const auto after =
            std::upper_bound(m_blocks.cbegin(), m_blocks.cend(), row,
                             [](qint64 r, const ChainBlock& block) { return r < block.firstRow; });
        if (after == m_blocks.cbegin())
            return false;
        const ChainBlock& block = *(after - 1);
        const qint64 slot = row - block.firstRow;
        if (slot >= block.records)
            return false;
        const QByteArray* bytes = read(block.number);
        const qint64 at = BlockHead + slot * m_recordBytes;
        if (!bytes || at + m_keyBytes > bytes->size())
            return false;
        key = bytes->mid(at, m_keyBytes);
        return true;
    }

private:
    const QByteArray* read(int number) {
        const auto cached = m_cache.constFind(number);
        if (cached != m_cache.constEnd())
            return &cached.value();
        if (m_order.size() >= CachedBlocks) {
            m_cache.remove(m_order.front());
            m_order.pop_front();
        }
        if (!m_file.seek(m_headerBytes + (number - 1) * m_blockBytes))
            return nullptr;
        QByteArray bytes = m_file.read(m_blockBytes);
        if (m_encryption) {
            // An encrypted block is decrypted whole, as pxlib reads it.
            bytes.resize(m_blockBytes, '\0');
            auto* data = reinterpret_cast<unsigned char*>(bytes.data());
            px_decrypt_db_block(data, data, m_encryption, static_cast<unsigned long>(m_blockBytes),
                                static_cast<unsigned long>(number));
        }
        m_order.push_back(number);
        return &m_cache.insert(number, bytes).value();
    }

    QFile m_file;
    qint64 m_headerBytes;
    qint64 m_blockBytes;
    qint64 m_recordBytes;
    unsigned long m_encryption;
    int m_keyBytes;
    std::vector<ChainBlock> m_blocks;
    QHash<int, QByteArray> m_cache;
    std::deque<int> m_order; // the cached blocks, the oldest first
};

// Compares two keys field by field. Paradox writes numbers, dates, times and logical values so
// that their bytes sort as their values do: big-endian, the sign bit turned over (all the bits
// of a negative floating-point number), a blank all zero bytes, which sorts before every value.
// Alpha fields are zero-padded, so a shorter text sorts before a longer one it begins.
class KeyCompare {
public:
    KeyCompare(QList<int> types, QList<int> lengths, char sortOrder, int codePage)
        : m_types(std::move(types)), m_lengths(std::move(lengths)),
          m_byCodes(sortOrder == AsciiSortOrder), m_codePage(codePage) {}

    int operator()(const QByteArray& a, const QByteArray& b) const {
        qsizetype at = 0;
        for (qsizetype i = 0; i < m_types.size(); ++i) {
            const int length = m_lengths[i];
            int order = 0;
            if (m_types[i] == pxfAlpha && !m_byCodes)
                order =
                    folded(a.constData() + at, length).compare(folded(b.constData() + at, length));
            else
                order = std::memcmp(a.constData() + at, b.constData() + at, length);
            if (order != 0)
                return order < 0 ? -1 : 1;
            at += length;
        }
        return 0;
    }

private:
    // The text without its case and accents, as the language sort orders compare letters.
    QString folded(const char* data, int length) const {
        const QString text =
            m_codePage.decode(QByteArray(data, length)).normalized(QString::NormalizationForm_D);
        QString letters;
        letters.reserve(text.size());
        for (const QChar c : text) {
            if (!c.isMark())
                letters.append(c);
        }
        return letters.toCaseFolded();
    }

    QList<int> m_types;
    QList<int> m_lengths;
    bool m_byCodes;
    ParadoxCodePage m_codePage;
};

bool isLongValue(int type) {
    return type == pxfMemoBLOb || type == pxfFmtMemoBLOb || type == pxfBLOb || type == pxfOLE ||
           type == pxfGraphic;
}

} // namespace

namespace ParadoxKeyOrder {

int keyFields(px_doc* doc) {
    const pxhead_t* head = doc ? doc->px_head : nullptr;
    if (!head || !head->px_fields || head->px_filetype != pxfFileTypIndexDB)
        return 0;
    const int count = head->px_primarykeyfields;
    if (count < 1 || count > head->px_numfields)
        return 0;
    for (int i = 0; i < count; ++i) {
        if (isLongValue(head->px_fields[i].px_ftype) || head->px_fields[i].px_flen < 1)
            return 0;
    }
    return count;
}

std::vector<quint32> rowsInKeyOrder(const QString& path, px_doc* doc, const QList<int>& types,
                                    const QList<int>& lengths) {
    const int fields = keyFields(doc);
    if (fields == 0 || types.size() < fields || lengths.size() < fields)
        return {};
    const pxhead_t& head = *doc->px_head;
    const qint64 rows = head.px_numrecords;
    const qint64 blockBytes = qint64(head.px_maxtablesize) * 1024;
    if (rows < 2 || head.px_recordsize <= 0 || blockBytes <= BlockHead)
        return {};
    int keyBytes = 0;
    for (int i = 0; i < fields; ++i)
        keyBytes += lengths[i];
    if (keyBytes > head.px_recordsize)
        return {};

    // pxlib numbers the records along the chain of blocks it followed when it opened the file.
    const auto* chain = static_cast<const pxpindex_t*>(doc->px_indexdata);
    if (!chain)
        return {};
    const qint64 perBlock = (blockBytes - BlockHead) / head.px_recordsize;
    std::vector<ChainBlock> blocks;
    qint64 total = 0;
    for (int i = 0; i < doc->px_indexdatalen; ++i) {
        if (chain[i].level != 1)
            continue;
        if (chain[i].numrecords < 0 || chain[i].numrecords > perBlock || chain[i].blocknumber < 1 ||
            chain[i].blocknumber > 0xFFFF)
            return {};
        if (chain[i].numrecords == 0)
            continue;
        blocks.push_back({chain[i].blocknumber, chain[i].numrecords, total});
        total += chain[i].numrecords;
    }
    if (total != rows)
        return {};

    KeyReader reader(path, head, std::move(blocks), keyBytes);
    if (!reader.open())
        return {};
    const KeyCompare compare(types.first(fields), lengths.first(fields), head.px_sortorder,
                             head.px_doscodepage);
    QByteArray previous;
    QByteArray next;
    if (!reader.key(0, previous))
        return {};
    qint64 row = 1;
    for (; row < rows; ++row) {
        if (!reader.key(row, next))
            return {};
        if (compare(previous, next) > 0)
            break;
        std::swap(previous, next);
    }
    if (row == rows)
        return {};

    // Equal keys keep the order of the chain.
    std::vector<quint32> order(static_cast<size_t>(rows));
    std::iota(order.begin(), order.end(), quint32(0));
    try {
        std::sort(order.begin(), order.end(), [&](quint32 a, quint32 b) {
            if (!reader.key(a, previous) || !reader.key(b, next))
                throw UnreadableRecord();
            const int sign = compare(previous, next);
            return sign < 0 || (sign == 0 && a < b);
        });
    } catch (const UnreadableRecord&) {
        return {};
    }
    return order;
}

} // namespace ParadoxKeyOrder
