#include "platform/tables/DbaseReader.h"

#include "platform/PathUtil.h"

#include "platform/tables/CompanionFile.h"

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

class DbaseRows final : public TableRows {
public:
    DbaseRows(xbDbf* table, QList<TableField> fields)
        : m_table(table), m_fields(std::move(fields)) {}

    qint64 count() const override { return low32(m_table->NoOfRecords()); }

    QStringList row(qint64 index) override {
        QStringList cells;
        if (index < 0 || index >= count() ||
            m_table->GetRecord(static_cast<xbULong>(index + 1)) != XB_NO_ERROR)
            return cells;
        for (int i = 0; i < m_fields.size(); ++i) {
            const auto field = static_cast<xbShort>(i);
            if (m_fields[i].type == TableTypes::Memo) {
                const xbLong length = low32(m_table->GetMemoFieldLen(field));
                QByteArray memo(static_cast<qsizetype>(std::clamp<xbLong>(length, 0, 16 << 20)),
                                '\0');
                if (length > 0 &&
                    m_table->GetMemoField(field, length, memo.data(), F_SETLKW) != XB_NO_ERROR)
                    memo.clear();
                cells.append(QString::fromLatin1(memo).trimmed());
            } else {
                cells.append(QString::fromLatin1(m_table->GetField(field)).trimmed());
            }
        }
        return cells;
    }

private:
    xbDbf* m_table;
    QList<TableField> m_fields;
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
    std::unique_ptr<DbaseReader> reader(new DbaseReader);
    reader->m_path = path;
    if (!reader->m_links.isValid()) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    // Links with the names xbase64 looks for: the table and its memo file in one letter case.
    const QString table = reader->m_links.filePath(QStringLiteral("table.dbf"));
    QFile::link(QFileInfo(path).absoluteFilePath(), table);
    const QString memo = companionFile(path, QStringLiteral("DBT"));
    if (!memo.isEmpty())
        QFile::link(memo, reader->m_links.filePath(QStringLiteral("table.dbt")));

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
    opened.reader = std::move(reader);
    opened.error = AppError();
    return opened;
}

QList<TableDef> DbaseReader::tableDefs() {
    return {m_def};
}

std::unique_ptr<TableRows> DbaseReader::rows(const QString&, const QString&) {
    return std::make_unique<DbaseRows>(m_table.get(), m_def.fields);
}
