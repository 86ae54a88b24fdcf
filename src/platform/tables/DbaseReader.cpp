#include "platform/tables/DbaseReader.h"

#include "platform/PathUtil.h"

#include "platform/tables/CompanionFile.h"
#include "platform/tables/DbaseHeader.h"
#include "platform/tables/DbaseIndex.h"
#include "platform/tables/DbaseMemoFile.h"

#include <QFile>
#include <QFileInfo>

#include <xbase64/xbase64.h>

#include <algorithm>
#include <cstdint>

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

// Debian's xbase64 returns its 32-bit counts in the 64-bit registers that its headers declare,
// so only the low half of such a result holds the value.
qint64 low32(xbLong value) {
    return static_cast<std::int32_t>(static_cast<std::uint64_t>(value) & 0xFFFFFFFFU);
}

// Memos longer than this are shown cut.
constexpr qint64 MaxMemo = 16 << 20;

class DbaseRows final : public TableRows {
public:
    DbaseRows(xbDbf* table, QList<TableField> fields, qint64 count,
              std::shared_ptr<DbaseMemoFile> memos, std::optional<std::vector<std::uint32_t>> order)
        : m_table(table), m_fields(std::move(fields)), m_count(count), m_memos(std::move(memos)),
          m_order(std::move(order)) {}

    qint64 count() const override {
        return m_order ? static_cast<qint64>(m_order->size()) : m_count;
    }

    QStringList row(qint64 index) override {
        QStringList cells;
        if (index < 0 || index >= count())
            return cells;
        const qint64 record = m_order ? (*m_order)[static_cast<std::size_t>(index)] : index;
        if (m_table->GetRecord(static_cast<xbULong>(record + 1)) != XB_NO_ERROR)
            return cells;
        for (int i = 0; i < m_fields.size(); ++i) {
            const QString text =
                QString::fromLatin1(m_table->GetField(static_cast<xbShort>(i))).trimmed();
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

    xbDbf* m_table;
    QList<TableField> m_fields;
    qint64 m_count;
    std::shared_ptr<DbaseMemoFile> m_memos;            // null without a memo file
    std::optional<std::vector<std::uint32_t>> m_order; // record numbers from zero
};

} // namespace

DbaseReader::~DbaseReader() {
    if (m_table)
        m_table->CloseDatabase();
}

TableReader::Opened DbaseReader::openFile(const QString& path) {
    Opened opened;
    opened.error = AppError(AppError::FileNotFound);
    if (!QFileInfo(path).isFile())
        return opened;
    {
        // The header is checked before the table library reads it.
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            opened.error = AppError(AppError::PathFileAccess);
            return opened;
        }
        const QByteArray first = file.peek(12);
        const QByteArray header = file.read(std::max<qint64>(12, DbaseHeader::headerLength(first)));
        if (!DbaseHeader::isSound(header, file.size())) {
            opened.error = AppError(AppError::PathFileAccess);
            return opened;
        }
    }
    std::unique_ptr<DbaseReader> reader(new DbaseReader);
    reader->m_path = path;
    if (!reader->m_links.isValid()) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    // A link with the name xbase64 looks for, and an empty memo file beside it: xbase64 does
    // not open a table without one, and it crashes on some memos (an empty one among them), so
    // memos are read from the table's own memo file in our code.
    const QString table = reader->m_links.filePath(QStringLiteral("table.dbf"));
    QFile::link(QFileInfo(path).absoluteFilePath(), table);
    QFile blank(reader->m_links.filePath(QStringLiteral("table.dbt")));
    QByteArray blankHeader(512, '\0');
    blankHeader[0] = 1;               // the next free block
    blankHeader[21] = char(512 >> 8); // dBASE IV's block size
    if (!blank.open(QIODevice::WriteOnly) || blank.write(blankHeader) != blankHeader.size()) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    blank.close();
    auto memos = std::make_shared<DbaseMemoFile>(companionFile(path, QStringLiteral("DBT")));
    if (memos->isOpen())
        reader->m_memos = std::move(memos);

    reader->m_base = std::make_unique<xbXBase>();
    reader->m_table = std::make_unique<xbDbf>(reader->m_base.get());
    if (reader->m_table->OpenDatabase(QFile::encodeName(table).constData()) != XB_NO_ERROR) {
        reader->m_table.reset();
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    TableDef& def = reader->m_def;
    def.name = QFileInfo(path).fileName();
    for (xbLong i = 0; i < reader->m_table->FieldCount(); ++i) {
        const auto field = static_cast<xbShort>(i);
        TableField f;
        f.name = QString::fromLatin1(reader->m_table->GetFieldName(field));
        const int length = reader->m_table->GetFieldLen(field);
        f.type = daoType(reader->m_table->GetFieldType(field), length,
                         reader->m_table->GetFieldDecimal(field));
        f.size = f.type == TableTypes::Memo ? 0 : length;
        def.fields.append(f);
    }
    // The records the file holds, whatever its header claims.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    const QByteArray header = file.read(12);
    const qint64 headerBytes =
        header.size() == 12 ? qint64(uchar(header[8])) | qint64(uchar(header[9])) << 8 : 0;
    const qint64 recordBytes = reader->m_table->GetRecordLen();
    const qint64 stored =
        recordBytes > 0 ? std::max<qint64>(0, (file.size() - headerBytes) / recordBytes) : 0;
    reader->m_count = std::clamp<qint64>(low32(reader->m_table->NoOfRecords()), 0, stored);

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
                order = readDbaseIndexOrder(known, static_cast<std::uint32_t>(m_count));
                break;
            }
        }
    }
    return std::make_unique<DbaseRows>(m_table.get(), m_def.fields, m_count, m_memos,
                                       std::move(order));
}
