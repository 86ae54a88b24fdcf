#include "platform/tables/DbaseReader.h"

#include "platform/PathUtil.h"

#include "platform/tables/CompanionFile.h"
#include "platform/tables/DbaseIndex.h"
#include "platform/tables/DbaseMemoFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>

#include <xbase64/xbase64.h>

#include <algorithm>
#include <cstdint>
#include <optional>

// Where the records and their fields lie in a table file, from its header and its field
// descriptors.
struct DbaseLayout {
    struct Field {
        char type = 0;
        int offset = 0; // in the record, after its deletion flag
        int length = 0;
        int decimals = 0;
    };
    qint64 headerBytes = 0;
    qint64 recordBytes = 0;
    qint64 records = 0; // that the header claims and the file holds
    QList<Field> fields;
};

namespace {

qint16 daoType(char type, int length, int decimals) {
    switch (type) {
    case 'M':
        return TableTypes::Memo;
    case 'L':
        return TableTypes::Boolean;
    case 'D':
        return TableTypes::Date;
    case 'F':
        return TableTypes::Double;
    case 'N':
        if (decimals > 0)
            return TableTypes::Double;
        return length <= 4   ? TableTypes::Integer
               : length <= 9 ? TableTypes::Long
                             : TableTypes::Double;
    default:
        return TableTypes::Text;
    }
}

// Whether a field's length is one its type can have.
bool plausibleField(char type, int length, int decimals) {
    switch (type) {
    case 'C':
        return length >= 1;
    case 'N':
    case 'F':
        return length >= 1 && length <= 32 && decimals < length;
    case 'L':
        return length == 1;
    case 'D':
        return length == 8;
    case 'M':
    case 'B':
    case 'G':
        return length == 10;
    default:
        return false;
    }
}

// The header and field descriptors of a table, checked against each other and against the
// file's size before xbase64 sees them: xbase64 sizes its buffers and walks its records by
// these numbers unchecked. Empty when any of them lies.
std::optional<DbaseLayout> readLayout(QFile& file) {
    const QByteArray head = file.read(32);
    if (head.size() < 32)
        return std::nullopt;
    DbaseLayout layout;
    layout.headerBytes = qFromLittleEndian<quint16>(head.constData() + 8);
    layout.recordBytes = qFromLittleEndian<quint16>(head.constData() + 10);
    // At least one descriptor and the byte that ends them, within the file.
    if (layout.headerBytes < 32 + 32 + 1 || layout.headerBytes > file.size() ||
        layout.recordBytes < 2)
        return std::nullopt;
    const QByteArray header = head + file.read(layout.headerBytes - 32);
    if (header.size() != layout.headerBytes)
        return std::nullopt;
    qint64 at = 32;
    int offset = 1;
    for (; at < layout.headerBytes && header[at] != '\x0D'; at += 32) {
        if (at + 32 >= layout.headerBytes)
            return std::nullopt; // a descriptor cut short, or no end to the list
        DbaseLayout::Field field;
        field.type = header[at + 11];
        field.length = uchar(header[at + 16]);
        field.decimals = uchar(header[at + 17]);
        if (!plausibleField(field.type, field.length, field.decimals))
            return std::nullopt;
        // The field's own address at byte 12 is not used: dBASE IV keeps a memory address
        // there. Fields follow one another in the record.
        field.offset = offset;
        offset += field.length;
        if (offset > layout.recordBytes)
            return std::nullopt;
        layout.fields.append(field);
    }
    // The fields counted from the header's length and up to the end byte must be the same, and
    // the record must hold the fields and nothing more.
    if (layout.fields.isEmpty() || at >= layout.headerBytes || layout.headerBytes > at + 32 ||
        offset != layout.recordBytes)
        return std::nullopt;
    const qint64 claimed = qFromLittleEndian<quint32>(head.constData() + 4);
    const qint64 stored = (file.size() - layout.headerBytes) / layout.recordBytes;
    layout.records = std::min(claimed, stored);
    return layout;
}

// Memos longer than this are shown cut.
constexpr qint64 MaxMemo = 16 << 20;

// Records read straight from the table file at the places its checked layout gives.
class DbaseRows final : public TableRows {
public:
    DbaseRows(const QString& path, DbaseLayout layout, QList<TableField> fields,
              std::shared_ptr<DbaseMemoFile> memos, std::optional<std::vector<std::uint32_t>> order)
        : m_file(path), m_layout(std::move(layout)), m_fields(std::move(fields)),
          m_memos(std::move(memos)), m_order(std::move(order)) {
        if (!m_file.open(QIODevice::ReadOnly))
            m_layout.records = 0;
    }

    qint64 count() const override {
        return m_order ? static_cast<qint64>(m_order->size()) : m_layout.records;
    }

    QStringList row(qint64 index) override {
        QStringList cells;
        if (index < 0 || index >= count())
            return cells;
        const qint64 record = m_order ? (*m_order)[static_cast<std::size_t>(index)] : index;
        if (record >= m_layout.records ||
            !m_file.seek(m_layout.headerBytes + record * m_layout.recordBytes))
            return cells;
        const QByteArray bytes = m_file.read(m_layout.recordBytes);
        if (bytes.size() != m_layout.recordBytes)
            return cells;
        for (int i = 0; i < m_fields.size(); ++i) {
            const DbaseLayout::Field& field = m_layout.fields[i];
            const char* start = bytes.constData() + field.offset;
            const QString text =
                QString::fromLatin1(start, static_cast<qsizetype>(qstrnlen(start, field.length)))
                    .trimmed();
            cells.append(m_fields[i].type == TableTypes::Memo ? memo(text) : text);
        }
        return cells;
    }

private:
    // The field holds the number of the memo's first block.
    QString memo(const QString& field) const {
        bool number = false;
        const qint64 block = field.toLongLong(&number);
        if (!number || !m_memos)
            return {};
        QByteArray memo = m_memos->read(block, MaxMemo);
        memo.truncate(static_cast<qsizetype>(qstrnlen(memo.constData(), memo.size())));
        return QString::fromLatin1(memo).trimmed();
    }

    QFile m_file;
    DbaseLayout m_layout;
    QList<TableField> m_fields;
    std::shared_ptr<DbaseMemoFile> m_memos;            // null without a memo file
    std::optional<std::vector<std::uint32_t>> m_order; // record numbers from zero
};

} // namespace

DbaseReader::~DbaseReader() = default;

TableReader::Opened DbaseReader::openFile(const QString& path) {
    Opened opened;
    opened.error = AppError(AppError::FileNotFound);
    if (!QFileInfo(path).isFile())
        return opened;
    opened.error = AppError(AppError::PathFileAccess);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return opened;
    std::optional<DbaseLayout> layout = readLayout(file);
    file.close();
    if (!layout)
        return opened;
    std::unique_ptr<DbaseReader> reader(new DbaseReader);
    reader->m_path = path;
    reader->m_layout = std::make_unique<DbaseLayout>(std::move(*layout));
    QTemporaryDir links;
    if (!links.isValid())
        return opened;
    // A link with the name xbase64 looks for, and an empty memo file beside it: xbase64 does
    // not open a table without one, and it crashes on some memos (an empty one among them), so
    // memos are read from the table's own memo file in our code, and so are the records.
    const QString table = links.filePath(QStringLiteral("table.dbf"));
    QFile::link(QFileInfo(path).absoluteFilePath(), table);
    QFile blank(links.filePath(QStringLiteral("table.dbt")));
    QByteArray blankHeader(512, '\0');
    blankHeader[0] = 1;               // the next free block
    blankHeader[21] = char(512 >> 8); // dBASE IV's block size
    if (!blank.open(QIODevice::WriteOnly) || blank.write(blankHeader) != blankHeader.size())
        return opened;
    blank.close();
    auto memos = std::make_shared<DbaseMemoFile>(companionFile(path, QStringLiteral("DBT")));
    if (memos->isOpen())
        reader->m_memos = std::move(memos);

    // xbase64 names and types the fields; where it reads them otherwise than we do, the file
    // is refused.
    xbXBase base;
    xbDbf dbf(&base);
    if (dbf.OpenDatabase(QFile::encodeName(table).constData()) != XB_NO_ERROR)
        return opened;
    const QList<DbaseLayout::Field>& fields = reader->m_layout->fields;
    bool agrees =
        dbf.FieldCount() == fields.size() && dbf.GetRecordLen() == reader->m_layout->recordBytes;
    TableDef& def = reader->m_def;
    def.name = QFileInfo(path).fileName();
    for (qsizetype i = 0; agrees && i < fields.size(); ++i) {
        const auto field = static_cast<xbShort>(i);
        const int length = dbf.GetFieldLen(field);
        agrees = length == fields[i].length && dbf.GetFieldType(field) == fields[i].type;
        TableField f;
        f.name = QString::fromLatin1(dbf.GetFieldName(field));
        f.type = daoType(fields[i].type, length, dbf.GetFieldDecimal(field));
        f.size = f.type == TableTypes::Memo ? 0 : length;
        def.fields.append(f);
    }
    dbf.CloseDatabase();
    if (!agrees)
        return opened;

    QStringList names;
    for (const TableField& field : std::as_const(def.fields))
        names.append(field.name);
    reader->m_indexes = findDbaseIndexes(path, names);
    for (const DbaseIndex& index : std::as_const(reader->m_indexes))
        def.indexes.append(index.name);
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> DbaseReader::tableDefs() {
    return {m_def};
}

std::unique_ptr<TableRows> DbaseReader::rows(const QString&, const QString& index) {
    std::optional<std::vector<std::uint32_t>> order;
    if (!index.isEmpty()) {
        for (const DbaseIndex& known : std::as_const(m_indexes)) {
            if (known.name.compare(index, Qt::CaseInsensitive) == 0) {
                // A damaged index leaves the stored order.
                order = readDbaseIndexOrder(known, static_cast<std::uint32_t>(m_layout->records));
                break;
            }
        }
    }
    return std::make_unique<DbaseRows>(m_path, *m_layout, m_def.fields, m_memos, std::move(order));
}
