#include "platform/tables/DbaseHeader.h"

#include <algorithm>

namespace {

constexpr qsizetype DescriptorSize = 32;
constexpr qsizetype FirstDescriptor = 32;
constexpr char EndOfDescriptors = 0x0D;
// Room for 1024 fields; dBASE allows 255 (dBASE IV) or 128 (dBASE III).
constexpr qint64 MaxHeader = FirstDescriptor + 1024 * DescriptorSize + 1;

unsigned word(const QByteArray& bytes, qsizetype at) {
    return unsigned(uchar(bytes[at])) | unsigned(uchar(bytes[at + 1])) << 8;
}

// Whether a field of the type may have the length; no for a type the library does not read.
bool lengthFits(char type, unsigned length, unsigned decimals) {
    switch (type) {
    case 'C':
        return length >= 1 && length <= 254;
    case 'N':
    case 'F':
        return length >= 1 && length <= 20 && decimals < length;
    case 'L':
        return length == 1;
    case 'D':
        return length == 8;
    case 'M':
        return length == 10;
    default:
        return false;
    }
}

} // namespace

namespace DbaseHeader {

qint64 headerLength(const QByteArray& first12) {
    if (first12.size() < 12)
        return 0;
    return std::min<qint64>(word(first12, 8), MaxHeader);
}

bool isSound(const QByteArray& start, qint64 fileSize) {
    if (start.size() < 12)
        return false;
    const qint64 header = word(start, 8);
    const qint64 record = word(start, 10);
    if (header < FirstDescriptor + DescriptorSize + 1 || header > MaxHeader || header > fileSize ||
        start.size() < header)
        return false;
    qint64 fieldBytes = 0;
    int fields = 0;
    qsizetype at = FirstDescriptor;
    for (; at + DescriptorSize < header && start[at] != EndOfDescriptors; at += DescriptorSize) {
        // A name of one to ten letters, ended by a zero.
        if (start[at] == 0 || start.indexOf('\0', at) > at + 10 || start.indexOf('\0', at) < 0)
            return false;
        const char type = start[at + 11];
        const auto length = unsigned(uchar(start[at + 16]));
        const auto decimals = unsigned(uchar(start[at + 17]));
        if (!lengthFits(type, length, decimals))
            return false;
        fieldBytes += length;
        ++fields;
    }
    // The descriptors end with their mark inside the header, and the record is the deletion
    // flag and the fields.
    return fields > 0 && at < header && start[at] == EndOfDescriptors && record == fieldBytes + 1;
}

} // namespace DbaseHeader
