#include "platform/tables/TableRecordset.h"

#include "platform/tables/TableDate.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kItemNotFound = 3265;

bool tableIsAFile(const QString& connect) {
    return connect.startsWith(u"dBASE"_s, Qt::CaseInsensitive) ||
           connect.startsWith(u"Paradox"_s, Qt::CaseInsensitive);
}

// ";pwd=", with blanks around the "=" allowed.
const QRegularExpression& passwordKey() {
    static const QRegularExpression key(u";\\s*pwd\\s*="_s,
                                        QRegularExpression::CaseInsensitiveOption);
    return key;
}

// An Access database: named so, given a password, or opened without a connect string.
bool isAccess(const QString& connect) {
    return connect.isEmpty() || connect.startsWith(u"Access"_s, Qt::CaseInsensitive) ||
           connect.contains(passwordKey());
}

QString withoutExtension(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot >= 0 ? name.left(dot) : name;
}

} // namespace

QString TableRecordset::passwordOf(const QString& connect) {
    const QRegularExpressionMatch at = passwordKey().match(connect);
    if (!at.hasMatch())
        return {};
    const qsizetype start = at.capturedEnd();
    const qsizetype end = connect.indexOf(u';', start);
    return connect.mid(start, end < 0 ? -1 : end - start);
}

TableRecordset::Opened TableRecordset::open(const QString& connect, const QString& databaseName,
                                            const QString& recordSource) {
    Opened opened;
    if (recordSource.isEmpty()) {
        opened.error = AppError(kItemNotFound, u"Item not found in this collection"_s);
        return opened;
    }
    const bool isFile = tableIsAFile(connect);
    const QString path = isFile ? QDir(databaseName).filePath(recordSource) : databaseName;
    const QString kind = isAccess(connect) ? u"Access"_s : connect;
    TableReader::Opened file = TableReader::open(kind, path, passwordOf(connect));
    if (file.error) {
        opened.error = file.error;
        return opened;
    }
    const QString wanted = isFile ? withoutExtension(recordSource) : recordSource;
    std::unique_ptr<TableRecordset> set(new TableRecordset);
    bool found = false;
    for (const TableDef& def : file.reader->tableDefs()) {
        const QString name = isFile ? withoutExtension(def.name) : def.name;
        if (name.compare(wanted, Qt::CaseInsensitive) == 0) {
            set->m_def = def;
            found = true;
            break;
        }
    }
    if (!found) {
        opened.error = AppError(kItemNotFound, u"Item not found in this collection"_s);
        return opened;
    }
    set->m_reader = std::move(file.reader);
    set->reorder(QString());
    opened.recordset = std::move(set);
    return opened;
}

void TableRecordset::reorder(const QString& index) {
    m_rows = m_reader->rows(m_def.name, index);
    m_index = index;
    m_blocks.clear();
    m_position = RecordCount() > 0 ? 0 : -1;
}

AppError TableRecordset::setIndex(const QString& name) {
    if (!name.isEmpty()) {
        const auto match = [&name](const QString& index) {
            return index.compare(name, Qt::CaseInsensitive) == 0;
        };
        const auto it = std::find_if(m_def.indexes.cbegin(), m_def.indexes.cend(), match);
        if (it == m_def.indexes.cend())
            return AppError(kItemNotFound, u"Item not found in this collection"_s);
        reorder(*it);
        return {};
    }
    reorder(QString());
    return {};
}

void TableRecordset::MoveFirst() {
    m_position = RecordCount() > 0 ? 0 : -1;
}

void TableRecordset::MoveLast() {
    m_position = RecordCount() - 1;
}

void TableRecordset::MoveNext() {
    if (m_position < RecordCount())
        ++m_position;
}

void TableRecordset::MovePrevious() {
    if (m_position >= 0)
        --m_position;
}

QStringList TableRecordset::shown(QStringList cells) const {
    // Dates show the same way whichever kind of file holds them.
    for (qsizetype c = 0; c < cells.size() && c < m_def.fields.size(); ++c) {
        if (m_def.fields[c].type == TableTypes::Date)
            cells[c] = TableDate::display(cells[c]);
    }
    return cells;
}

QStringList TableRecordset::row(qint64 index) {
    if (!m_rows || index < 0 || index >= RecordCount())
        return {};
    const qint64 block = index / BlockRows;
    auto it = std::find_if(m_blocks.begin(), m_blocks.end(),
                           [block](const auto& kept) { return kept.first == block; });
    if (it == m_blocks.end()) {
        QList<QStringList> rows;
        const qint64 first = block * BlockRows;
        const qint64 last = std::min(RecordCount(), first + BlockRows);
        rows.reserve(last - first);
        for (qint64 i = first; i < last; ++i)
            rows.append(shown(m_rows->row(i)));
        m_blocks.emplace_front(block, std::move(rows));
        if (m_blocks.size() > KeptBlocks)
            m_blocks.pop_back();
        it = m_blocks.begin();
    } else if (it != m_blocks.begin()) {
        m_blocks.splice(m_blocks.begin(), m_blocks, it);
        it = m_blocks.begin();
    }
    return it->second.value(index - block * BlockRows);
}
