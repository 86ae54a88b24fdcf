#include "platform/tables/SqliteReader.h"

#include "platform/tables/RowBlock.h"
#include "platform/tables/SqliteCollation.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// A prepared statement that is finalized when it goes.
struct Statement {
    sqlite3_stmt* handle = nullptr;
    Statement(sqlite3* db, const QString& sql) {
        sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &handle, nullptr);
    }
    ~Statement() { sqlite3_finalize(handle); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    bool step() const { return handle && sqlite3_step(handle) == SQLITE_ROW; }
    QString text(int column) const {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(handle, column)),
                                 sqlite3_column_bytes(handle, column));
    }
};

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

// The type of a field from its declared column type, by SQLite's own affinity rules.
qint16 fieldType(const QString& declared) {
    const QString type = declared.toUpper();
    if (type.contains(u"INT"_s))
        return TableTypes::Long;
    if (type.contains(u"BOOL"_s))
        return TableTypes::Boolean;
    if (type.contains(u"DATE"_s) || type.contains(u"TIME"_s))
        return TableTypes::Date;
    if (type.contains(u"CHAR"_s) || type.contains(u"CLOB"_s) || type.contains(u"TEXT"_s))
        return TableTypes::Memo;
    if (type.contains(u"BLOB"_s) || type.isEmpty())
        return TableTypes::LongBinary;
    return TableTypes::Double;
}

// The rows of a query, read a block at a time with the block in hand kept.
class SqliteRows final : public TableRows {
public:
    static constexpr int BlockRows = 256;

    SqliteRows(sqlite3* db, QString select, qint64 count)
        : m_db(db), m_select(std::move(select)), m_count(count) {}
    qint64 count() const override { return m_count; }
    QStringList row(qint64 index) override {
        if (index >= m_count)
            return {};
        return m_block.row(index, [this](qint64 first, int count) {
            QList<QStringList> block;
            Statement rows(m_db, m_select + u" LIMIT "_s + QString::number(count) + u" OFFSET "_s +
                                     QString::number(first));
            while (rows.step()) {
                QStringList cells;
                for (int c = 0; c < sqlite3_column_count(rows.handle); ++c)
                    cells.append(sqlite3_column_type(rows.handle, c) == SQLITE_BLOB ? QString()
                                                                                    : rows.text(c));
                block.append(cells);
            }
            return block;
        });
    }

private:
    sqlite3* m_db;
    QString m_select;
    qint64 m_count;
    RowBlock m_block{BlockRows};
};

} // namespace

bool SqliteReader::isSqliteFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(16) == QByteArray("SQLite format 3", 16);
}

SqliteReader::Opened SqliteReader::openFile(const QString& path) {
    Opened opened;
    if (!QFileInfo(path).isFile()) {
        opened.error = AppError(AppError::FileNotFound);
        return opened;
    }
    std::unique_ptr<SqliteReader> reader(new SqliteReader);
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &reader->m_db,
                                   SQLITE_OPEN_READONLY, nullptr);
    if (rc == SQLITE_OK) {
        sqlite3_busy_timeout(reader->m_db, 3000);
        SqliteCollation::registerUnknownAsNoCase(reader->m_db);
    }
    // A damaged or foreign file fails here, at its first read of the schema.
    Statement schema(reader->m_db, u"SELECT count(*) FROM sqlite_master"_s);
    if (rc != SQLITE_OK || !schema.step()) {
        opened.error = AppError(AppError::PathFileAccess);
        return opened;
    }
    opened.reader = std::move(reader);
    return opened;
}

SqliteReader::~SqliteReader() {
    sqlite3_close_v2(m_db);
}

QList<TableDef> SqliteReader::tableDefs() {
    QList<TableDef> defs;
    Statement tables(m_db, u"SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT "
                           "LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name"_s);
    while (tables.step()) {
        TableDef def;
        def.name = tables.text(0);
        Statement columns(m_db, u"SELECT name, type FROM pragma_table_info(?1)"_s);
        const QByteArray name = def.name.toUtf8();
        sqlite3_bind_text(columns.handle, 1, name.constData(), int(name.size()), SQLITE_STATIC);
        while (columns.step())
            def.fields.append({columns.text(0), fieldType(columns.text(1)), 0});
        Statement indexes(m_db, u"SELECT name FROM sqlite_master WHERE type = 'index' AND "
                                "tbl_name = ?1 AND sql IS NOT NULL ORDER BY name"_s);
        sqlite3_bind_text(indexes.handle, 1, name.constData(), int(name.size()), SQLITE_STATIC);
        while (indexes.step())
            def.indexes.append(indexes.text(0));
        defs.append(def);
    }
    return defs;
}

std::unique_ptr<TableRows> SqliteReader::rows(const QString& table, const QString& index) {
    QStringList order;
    if (!index.isEmpty()) {
        Statement columns(m_db, u"SELECT name FROM pragma_index_info(?1) ORDER BY seqno"_s);
        const QByteArray name = index.toUtf8();
        sqlite3_bind_text(columns.handle, 1, name.constData(), int(name.size()), SQLITE_STATIC);
        while (columns.step())
            order.append(quoted(columns.text(0)));
    }
    QString select = u"SELECT * FROM "_s + quoted(table);
    // Equal keys, and the stored order, by the row's number where the table has one.
    if (Statement(m_db, select + u" ORDER BY rowid LIMIT 0"_s).handle)
        order.append(u"rowid"_s);
    qint64 count = 0;
    Statement counted(m_db, u"SELECT count(*) FROM "_s + quoted(table));
    if (counted.step())
        count = sqlite3_column_int64(counted.handle, 0);
    if (!order.isEmpty())
        select += u" ORDER BY "_s + order.join(u", "_s);
    return std::make_unique<SqliteRows>(m_db, select, count);
}
