#include "platform/tables/ParadoxBlobFile.h"

namespace {

constexpr qint64 Chunk = 4096; // blocks are whole numbers of these
constexpr int SubEntries = 64;
constexpr int SubTable = 12; // where the table of a type-3 block starts
constexpr int SingleHeader = 9;

quint32 le32(const char* p) {
    const auto* u = reinterpret_cast<const uchar*>(p);
    return quint32(u[0]) | quint32(u[1]) << 8 | quint32(u[2]) << 16 | quint32(u[3]) << 24;
}

quint16 le16(const char* p) {
    const auto* u = reinterpret_cast<const uchar*>(p);
    return quint16(u[0] | u[1] << 8);
}

} // namespace

ParadoxBlobFile::ParadoxBlobFile(const QString& path) : m_file(path) {
    if (!path.isEmpty() && m_file.open(QIODevice::ReadOnly))
        m_size = m_file.size();
}

QByteArray ParadoxBlobFile::readAt(qint64 offset, qint64 length) {
    if (offset < 0 || length < 0 || offset + length > m_size || !m_file.seek(offset))
        return {};
    QByteArray bytes = m_file.read(length);
    return bytes.size() == length ? bytes : QByteArray();
}

std::optional<QByteArray> ParadoxBlobFile::read(const char* pointer) {
    const quint32 place = le32(pointer);
    const qint64 length = le32(pointer + 4);
    const quint16 modified = le16(pointer + 8);
    const qint64 block = place & 0xFFFFFF00U;
    const int entry = static_cast<int>(place & 0xFFU);
    if (!isOpen() || block == 0 || length == 0 || length > m_size)
        return std::nullopt;

    const QByteArray head = readAt(block, SingleHeader);
    if (head.size() < SingleHeader)
        return std::nullopt;
    const qint64 blockEnd = block + qint64(le16(head.constData() + 1)) * Chunk;
    if (entry == 0xFF) {
        if (head[0] != 2 || le32(head.constData() + 3) != length ||
            block + SingleHeader + length > blockEnd)
            return std::nullopt;
        const QByteArray value = readAt(block + SingleHeader, length);
        return value.isEmpty() ? std::nullopt : std::optional<QByteArray>(value);
    }
    if (head[0] != 3 || entry >= SubEntries)
        return std::nullopt;
    // An entry: the value's offset in the block and its length in 16-byte units, its
    // modification number, and the length of its last unit.
    const QByteArray slot = readAt(block + SubTable + 5 * entry, 5);
    if (slot.size() < 5)
        return std::nullopt;
    const qint64 start = qint64(uchar(slot[0])) * 16;
    const qint64 units = uchar(slot[1]);
    const qint64 last = uchar(slot[4]);
    if (start == 0 || units == 0 || le16(slot.constData() + 2) != modified || length > units * 16 ||
        length <= (units - 1) * 16 || (last && length % 16 != last) ||
        block + start + length > blockEnd)
        return std::nullopt;
    const QByteArray value = readAt(block + start, length);
    return value.isEmpty() ? std::nullopt : std::optional<QByteArray>(value);
}
