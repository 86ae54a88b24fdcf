#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>

// The .MB file of a Paradox table, which holds memos and other long values. A record keeps the
// leading part of such a value and, in its last 10 bytes, where the rest is: the offset of a
// block with an entry number in its low byte, the length of the value, and a modification
// number. A value alone in a block of type 2 has the entry number 0xFF; small values share a
// block of type 3 whose table of 64 entries gives each one's place in the block.
class ParadoxBlobFile {
public:
    explicit ParadoxBlobFile(const QString& path);

    bool isOpen() const { return m_file.isOpen(); }

    // The whole value a record's 10-byte pointer names; nothing when it is kept whole in the
    // record or when the file does not hold it (damaged, cut, or changed since).
    std::optional<QByteArray> read(const char* pointer);

private:
    QByteArray readAt(qint64 offset, qint64 length);

    QFile m_file;
    qint64 m_size = 0;
};
