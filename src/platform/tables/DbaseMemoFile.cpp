#include "platform/tables/DbaseMemoFile.h"

DbaseMemoFile::DbaseMemoFile(const QString& path) : m_file(path) {
    if (path.isEmpty() || !m_file.open(QIODevice::ReadOnly))
        return;
    m_size = m_file.size();
    const QByteArray header = m_file.read(24);
    if (header.size() == 24) {
        // dBASE IV keeps its block size here; dBASE III leaves it zero and uses 512.
        const int size = uchar(header[20]) | uchar(header[21]) << 8;
        if (size >= 64 && size % 64 == 0)
            m_blockBytes = size;
    }
}

QByteArray DbaseMemoFile::read(qint64 block, qint64 limit) {
    if (!isOpen() || block <= 0 || limit <= 0 || block > m_size / m_blockBytes ||
        !m_file.seek(block * m_blockBytes))
        return {};
    const QByteArray head = m_file.read(8);
    if (head.startsWith(QByteArrayView("\xFF\xFF\x08\x00", 4)) && head.size() == 8) {
        const qint64 length = qint64(uchar(head[4])) | qint64(uchar(head[5])) << 8 |
                              qint64(uchar(head[6])) << 16 | qint64(uchar(head[7])) << 24;
        if (length < 8)
            return {};
        return m_file.read(std::min(length - 8, limit));
    }
    // Up to the end mark, read a block at a time.
    m_file.seek(block * m_blockBytes);
    QByteArray memo;
    while (memo.size() < limit) {
        const QByteArray part = m_file.read(std::min(m_blockBytes, limit - memo.size()));
        if (part.isEmpty())
            break;
        const qsizetype end = part.indexOf('\x1A');
        if (end >= 0) {
            memo += part.left(end);
            break;
        }
        memo += part;
    }
    return memo;
}
