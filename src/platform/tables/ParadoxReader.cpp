#include "platform/tables/ParadoxReader.h"

#include "platform/tables/CompanionFile.h"
#include <QDate>

#include <QFile>
#include <QFileInfo>
#include <QTime>

#include <cstdlib>
#include <cstring>

extern "C" {
#include <paradox.h>
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

class ParadoxRows final : public TableRows {
public:
    ParadoxRows(pxdoc_t* doc, QList<int> types, QList<int> lengths)
        : m_doc(doc), m_types(std::move(types)), m_lengths(std::move(lengths)) {
        m_record.resize(doc->px_head->px_recordsize);
    }

    qint64 count() const override { return PX_get_num_records(m_doc); }

    QStringList row(qint64 index) override {
        QStringList cells;
        if (index < 0 || index >= count() ||
            !PX_get_record(m_doc, static_cast<int>(index), m_record.data()))
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
        case pxfNumber:
        case pxfCurrency:
        case pxfTimestamp:
            if (isBlank(data, length) || length != 8)
                return {};
            return QString::number(realNumber(data), 'g', 15);
        case pxfMemoBLOb:
        case pxfFmtMemoBLOb: {
            // A memo shows the part kept in the record itself, before its pointer to the memo
            // file.
            const int inRecord = std::max(0, length - 10);
            return QString::fromLatin1(data, static_cast<int>(qstrnlen(data, inRecord)));
        }
        default:
            return {};
        }
    }

    pxdoc_t* m_doc;
    QList<int> m_types;
    QList<int> m_lengths;
    QByteArray m_record;
};

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
    reader->m_doc = PX_new2(quietError, allocate, reallocate, release);
    opened.error = AppError(AppError::PathFileAccess);
    if (!reader->m_doc)
        return opened;
    if (PX_open_file(reader->m_doc, QFile::encodeName(path).constData()) < 0) {
        PX_delete(reader->m_doc);
        reader->m_doc = nullptr;
        return opened;
    }
    PX_set_targetencoding(reader->m_doc, "UTF-8");
    // pxlib 0.6.8 overruns its stack when it opens a memo file (PX_set_blob_file), so memo
    // files are not opened: a memo shows the part kept in the record itself.

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
    if (!companionFile(path, QStringLiteral("PX")).isEmpty())
        def.indexes.append(QStringLiteral("PrimaryKey"));
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> ParadoxReader::tableDefs() {
    return {m_def};
}

std::unique_ptr<TableRows> ParadoxReader::rows(const QString&, const QString&) {
    return std::make_unique<ParadoxRows>(m_doc, m_types, m_lengths);
}
