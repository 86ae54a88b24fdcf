#include "platform/tables/ParadoxReader.h"

#include "platform/tables/CompanionFile.h"
#include "platform/tables/ParadoxBlobFile.h"
#include "platform/tables/ParadoxCodePage.h"
#include "platform/tables/ParadoxKeyOrder.h"

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTime>

#include <cstdlib>
#include <cstring>

extern "C" {
#include <paradox.h>
// pxlib's own decryption of a data block, which the library exports without declaring it.
void px_decrypt_db_block(unsigned char* src, unsigned char* dest, unsigned long encryption,
                         unsigned long blocksize, unsigned long blockno);
}

namespace {

void quietError(pxdoc_t*, int, const char*, void*) {}
void* allocate(pxdoc_t*, size_t size, const char*) {
    return std::calloc(1, size);
}
void* reallocate(pxdoc_t*, void* memory, size_t size, const char*) {
    return std::realloc(memory, size);
}
void release(pxdoc_t*, void* memory) {
    std::free(memory);
}

qint16 daoType(int type) {
    switch (type) {
    case pxfAlpha:
        return TableTypes::Text;
    case pxfDate:
    case pxfTime:
    case pxfTimestamp:
        return TableTypes::Date;
    case pxfShort:
        return TableTypes::Integer;
    case pxfLong:
    case pxfAutoInc:
        return TableTypes::Long;
    case pxfCurrency:
        return TableTypes::Currency;
    case pxfLogical:
        return TableTypes::Boolean;
    case pxfMemoBLOb:
    case pxfFmtMemoBLOb:
        return TableTypes::Memo;
    case pxfBLOb:
    case pxfOLE:
    case pxfGraphic:
    case pxfBytes:
        return TableTypes::LongBinary;
    default:
        return TableTypes::Double;
    }
}

const QString PrimaryKey = QStringLiteral("PrimaryKey");

// The bytes of the pointer at the end of a memo or other long field.
constexpr int BlobPointer = 10;

class ParadoxRows final : public TableRows {
public:
    // order holds the numbers of the stored records in the order to give them; an empty one
    // gives them as stored.
    ParadoxRows(pxdoc_t* doc, QList<int> types, QList<int> lengths,
                std::shared_ptr<ParadoxBlobFile> blobs, std::vector<quint32> order)
        : m_doc(doc), m_types(std::move(types)), m_lengths(std::move(lengths)),
          m_blobs(std::move(blobs)), m_codePage(doc->px_head->px_doscodepage),
          m_order(std::move(order)) {
        m_record.resize(doc->px_head->px_recordsize);
    }

    qint64 count() const override { return PX_get_num_records(m_doc); }

    QStringList row(qint64 index) override {
        QStringList cells;
        if (index < 0 || index >= count())
            return cells;
        const qint64 stored = m_order.empty() ? index : m_order[static_cast<size_t>(index)];
        if (!PX_get_record(m_doc, static_cast<int>(stored), m_record.data()))
            return cells;
        int offset = 0;
        for (int i = 0; i < m_types.size(); ++i) {
            cells.append(cell(m_types[i], m_record.data() + offset, m_lengths[i]));
            offset += m_lengths[i];
        }
        return cells;
    }

private:
    // Paradox keeps numbers big-endian with the sign bit turned over (a float's other bits too
    // when negative), and all zero bytes for an empty field. pxlib's readers of whole numbers
    // overrun their buffers on 64-bit systems, so the numbers are read here.
    static bool isBlank(const char* data, int length) {
        for (int i = 0; i < length; ++i) {
            if (data[i])
                return false;
        }
        return true;
    }

    static qint64 wholeNumber(const char* data, int length) {
        quint64 bits = 0;
        for (int i = 0; i < length; ++i)
            bits = (bits << 8) | static_cast<uchar>(data[i]);
        const quint64 sign = quint64(1) << (8 * length - 1);
        bits ^= sign;
        // Sign-extend from the field's width.
        return static_cast<qint64>(bits << (64 - 8 * length)) >> (64 - 8 * length);
    }

    static double realNumber(const char* data) {
        quint64 bits = 0;
        for (int i = 0; i < 8; ++i)
            bits = (bits << 8) | static_cast<uchar>(data[i]);
        if (bits & (quint64(1) << 63))
            bits &= ~(quint64(1) << 63);
        else
            bits = ~bits;
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    QString cell(int type, char* data, int length) {
        switch (type) {
        case pxfAlpha: {
            char* value = nullptr;
            if (PX_get_data_alpha(m_doc, data, length, &value) > 0 && value) {
                const QString text = QString::fromUtf8(value);
                std::free(value);
                return text;
            }
            return {};
        }
        case pxfShort:
        case pxfLong:
        case pxfAutoInc:
            if (isBlank(data, length) || length > 8)
                return {};
            return QString::number(wholeNumber(data, length));
        case pxfDate:
            if (isBlank(data, length) || length != 4)
                return {};
            // Days since the first of January of the year 1.
            return QDate::fromJulianDay(wholeNumber(data, 4) + 1721425).toString(Qt::ISODate);
        case pxfTime:
            if (isBlank(data, length) || length != 4)
                return {};
            // Milliseconds since midnight.
            return QTime::fromMSecsSinceStartOfDay(
                       static_cast<int>(wholeNumber(data, 4) % 86400000))
                .toString(Qt::ISODate);
        case pxfLogical:
            if (length < 1 || data[0] == 0)
                return {};
            return (static_cast<uchar>(data[0]) & 0x7F) ? QStringLiteral("True")
                                                        : QStringLiteral("False");
        case pxfTimestamp: {
            if (isBlank(data, length) || length != 8)
                return {};
            // Milliseconds since the first of January of the year 1.
            const double ms = realNumber(data);
            if (!(ms >= 0 && ms < 4e17))
                return {};
            const auto whole = static_cast<qint64>(ms);
            const QDate day = QDate::fromJulianDay(whole / 86400000 + 1721425);
            const QTime clock = QTime::fromMSecsSinceStartOfDay(static_cast<int>(whole % 86400000));
            return QDateTime(day, clock).toString(Qt::ISODate);
        }
        case pxfNumber:
        case pxfCurrency:
            if (isBlank(data, length) || length != 8)
                return {};
            return QString::number(realNumber(data), 'g', 15);
        case pxfMemoBLOb:
        case pxfFmtMemoBLOb:
            return memo(data, length);
        default:
            return {};
        }
    }

    // The whole memo from the memo file; without it, the part kept in the record.
    QString memo(const char* data, int length) const {
        if (length < BlobPointer)
            return {};
        const int inRecord = length - BlobPointer;
        const char* pointer = data + inRecord;
        if (m_blobs) {
            if (std::optional<QByteArray> whole = m_blobs->read(pointer))
                return m_codePage.decode(*whole);
        }
        const quint32 stored = static_cast<quint32>(static_cast<uchar>(pointer[4])) |
                               static_cast<quint32>(static_cast<uchar>(pointer[5])) << 8 |
                               static_cast<quint32>(static_cast<uchar>(pointer[6])) << 16 |
                               static_cast<quint32>(static_cast<uchar>(pointer[7])) << 24;
        const qsizetype kept = std::min<qint64>(inRecord, stored);
        return m_codePage.decode(QByteArray(data, kept));
    }

    pxdoc_t* m_doc;
    QList<int> m_types;
    QList<int> m_lengths;
    std::shared_ptr<ParadoxBlobFile> m_blobs; // null without a readable memo file
    ParadoxCodePage m_codePage;
    std::vector<quint32> m_order;
    QByteArray m_record;
};

quint16 le16(const QByteArray& bytes, qsizetype at) {
    return quint16(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8);
}

quint32 le32(const QByteArray& bytes, qsizetype at) {
    return quint32(le16(bytes, at)) | quint32(le16(bytes, at + 2)) << 16;
}

// Whether pxlib can open the file without running away: it reads names up to a zero byte
// without stopping at the end of the file, and it follows the chain of data blocks without
// noticing a loop.
bool soundForPxlib(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const qint64 size = file.size();
    const QByteArray header = file.read(0x78);
    if (header.size() < 0x58)
        return false;
    const int recordBytes = le16(header, 0);
    const int headerBytes = le16(header, 2);
    const int blockKilobytes = uchar(header[5]);
    const int fields = le16(header, 0x21);
    // Tables of Paradox 4 and later have a longer header before the fields' types.
    const int types = uchar(header[0x39]) >= 5 ? 0x78 : 0x58;
    if (recordBytes == 0 || headerBytes < types || headerBytes > size || fields < 1 ||
        fields > 255 || types + 2 * fields > headerBytes ||
        !QList<int>{1, 2, 3, 4, 8, 16, 32}.contains(blockKilobytes))
        return false;
    // The table's name and each field's name end in a zero byte after the fields' types.
    if (!file.seek(types + 2 * fields))
        return false;
    qsizetype zeros = 0;
    while (zeros < fields + 1) {
        const QByteArray part = file.read(64 * 1024);
        if (part.isEmpty())
            return false;
        zeros += part.count('\0');
    }
    const qint64 blockBytes = qint64(blockKilobytes) * 1024;
    // An encrypted table's blocks are encrypted, their heads too: they are read as pxlib reads
    // them.
    quint32 key = le32(header, 0x25);
    if (key == 0xFF00FF00U)
        key = header.size() >= 0x60 ? le32(header, 0x5C) : 0;
    QList<bool> visited(0x10000, false);
    for (int block = le16(header, 0x0E); block != 0;) {
        const qint64 at = headerBytes + (block - 1) * blockBytes;
        if (visited[block] || at + 6 > size || !file.seek(at))
            return false;
        visited[block] = true;
        QByteArray data = file.read(key ? blockBytes : 2);
        if (data.size() < 2)
            return false;
        if (key) {
            data.resize(blockBytes, '\0');
            auto* bytes = reinterpret_cast<unsigned char*>(data.data());
            px_decrypt_db_block(bytes, bytes, key, static_cast<unsigned long>(blockBytes),
                                static_cast<unsigned long>(block));
        }
        block = le16(data, 0);
    }
    return true;
}

} // namespace

ParadoxReader::~ParadoxReader() {
    if (m_doc) {
        PX_close(m_doc);
        PX_delete(m_doc);
    }
}

TableReader::Opened ParadoxReader::openFile(const QString& path) {
    Opened opened;
    opened.error = AppError(AppError::FileNotFound);
    if (!QFileInfo(path).isFile())
        return opened;
    std::unique_ptr<ParadoxReader> reader(new ParadoxReader);
    opened.error = AppError(AppError::PathFileAccess);
    if (!soundForPxlib(path))
        return opened;
    reader->m_doc = PX_new2(quietError, allocate, reallocate, release);
    if (!reader->m_doc)
        return opened;
    if (PX_open_file(reader->m_doc, QFile::encodeName(path).constData()) < 0) {
        PX_delete(reader->m_doc);
        reader->m_doc = nullptr;
        return opened;
    }
    PX_set_targetencoding(reader->m_doc, "UTF-8");
    // pxlib 0.6.8 overruns its stack when it opens a memo file (PX_set_blob_file), so memo
    // files are read here. The blocks of an encrypted table's memo file are encrypted too:
    // its memos show the part kept in the record.
    const QString blobPath = companionFile(path, QStringLiteral("MB"));
    if (!blobPath.isEmpty() && reader->m_doc->px_head->px_encryption == 0) {
        auto blobs = std::make_shared<ParadoxBlobFile>(blobPath);
        if (blobs->isOpen())
            reader->m_blobs = std::move(blobs);
    }

    TableDef& def = reader->m_def;
    def.name = QFileInfo(path).fileName();
    const int count = PX_get_num_fields(reader->m_doc);
    pxfield_t* fields = PX_get_fields(reader->m_doc);
    for (int i = 0; fields && i < count; ++i) {
        TableField field;
        field.name = QString::fromLatin1(fields[i].px_fname);
        field.type = daoType(fields[i].px_ftype);
        field.size = field.type == TableTypes::Text ? fields[i].px_flen : 0;
        def.fields.append(field);
        reader->m_types.append(fields[i].px_ftype);
        reader->m_lengths.append(fields[i].px_flen);
    }
    // The fields must fit in a record: each cell is read at its place in one.
    qint64 used = 0;
    for (const int length : std::as_const(reader->m_lengths))
        used += std::max(length, 0);
    if (!fields || count < 1 || used > reader->m_doc->px_head->px_recordsize ||
        reader->m_doc->px_head->px_recordsize <= 0)
        return opened;
    // The key is the table's own: its records are kept in its order whether or not the .PX
    // index beside the table can be read.
    if (ParadoxKeyOrder::keyFields(reader->m_doc) > 0)
        def.indexes.append(PrimaryKey);
    reader->m_path = path;
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> ParadoxReader::tableDefs() {
    return {m_def};
}

std::unique_ptr<TableRows> ParadoxReader::rows(const QString&, const QString& index) {
    std::vector<quint32> order;
    if (!index.isEmpty() && index.compare(PrimaryKey, Qt::CaseInsensitive) == 0 &&
        m_def.indexes.contains(PrimaryKey))
        order = ParadoxKeyOrder::rowsInKeyOrder(m_path, m_doc, m_types, m_lengths);
    return std::make_unique<ParadoxRows>(m_doc, m_types, m_lengths, m_blobs, std::move(order));
}
