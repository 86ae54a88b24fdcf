#include "organizer/Recordset.h"

#include <QRegularExpression>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

AppError engineError(int number) {
    return OrganizerDb::error(number);
}

QString quoted(const QString& column) {
    return u'"' + column + u'"';
}

void bindText(sqlite3_stmt* statement, const char* name, const QString& text) {
    const int at = sqlite3_bind_parameter_index(statement, name);
    if (at == 0)
        return;
    const QByteArray bytes = text.toUtf8();
    sqlite3_bind_text(statement, at, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

void bindValue(sqlite3_stmt* statement, int at, const QVariant& value) {
    if (value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::Int) {
        sqlite3_bind_int64(statement, at, value.toLongLong());
        return;
    }
    const QByteArray bytes = value.toString().toUtf8();
    sqlite3_bind_text(statement, at, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
}

QVariant columnValue(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_INTEGER)
        return QVariant(qint64(sqlite3_column_int64(statement, column)));
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

struct Statement {
    sqlite3_stmt* handle = nullptr;
    ~Statement() { sqlite3_finalize(handle); }
};

} // namespace

Recordset::~Recordset() = default;

Recordset::Opened Recordset::open(std::shared_ptr<OrganizerDb> db, const QString& source,
                                  Type type) {
    Opened opened;
    if (!db) {
        opened.error = engineError(OrganizerDb::FileMissing);
        return opened;
    }
    std::unique_ptr<Recordset> set(new Recordset);
    set->m_db = std::move(db);
    set->m_type = type;
    QString table = source.trimmed();
    if (table.startsWith(u"SELECT"_s, Qt::CaseInsensitive)) {
        if (type == TableType) {
            opened.error = engineError(OrganizerDb::NotSupported);
            return opened;
        }
        static const QRegularExpression query(
            uR"(^SELECT\s+\*\s+FROM\s+\[(\w+)\]\s+WHERE\s+\[(\w+)\]\s*=\s*'((?:[^']|'')*)')"
            uR"(\s+ORDER\s+BY\s+\[(\w+)\]\s*$)"_s,
            QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = query.match(table);
        if (!match.hasMatch()) {
            opened.error = engineError(OrganizerDb::QuerySyntax);
            return opened;
        }
        table = match.captured(1);
        set->m_filterColumn = match.captured(2);
        set->m_filterValue = match.captured(3).replace(u"''"_s, u"'"_s);
        set->m_sortColumn = match.captured(4);
    } else if (table.startsWith(u'[') && table.endsWith(u']')) {
        table = table.mid(1, table.size() - 2);
    }
    set->m_columns = set->m_db->columns(table);
    if (set->m_columns.isEmpty()) {
        opened.error = engineError(OrganizerDb::TableMissing);
        return opened;
    }
    set->m_table = table;
    for (QString* column : {&set->m_filterColumn, &set->m_sortColumn}) {
        if (column->isEmpty())
            continue;
        const int at = set->fieldIndex(*column);
        if (at < 0) {
            opened.error = engineError(OrganizerDb::ItemNotFound);
            return opened;
        }
        *column = set->m_columns[at];
    }
    if (AppError failed = set->MoveFirst();
        failed && failed.number() != OrganizerDb::NoCurrentRecord) {
        opened.error = failed;
        return opened;
    }
    opened.recordset = std::move(set);
    return opened;
}

int Recordset::fieldIndex(const QString& name) const {
    for (qsizetype i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    return -1;
}

QString Recordset::orderColumn() const {
    if (m_type == TableType)
        return m_index.isEmpty() ? QString() : OrganizerDb::indexColumn(m_table, m_index);
    return m_sortColumn == u"ID"_s ? QString() : m_sortColumn;
}

QString Recordset::orderBy(bool descending) const {
    const QString direction = descending ? u" DESC"_s : QString();
    const QString column = orderColumn();
    if (column.isEmpty())
        return u" ORDER BY ID"_s + direction;
    return u" ORDER BY "_s + quoted(column) + direction + u", ID"_s + direction;
}

QString Recordset::where(const QString& more) const {
    QStringList conditions;
    if (!m_filterColumn.isEmpty())
        conditions.append(quoted(m_filterColumn) + u" = :filter"_s);
    if (!more.isEmpty())
        conditions.append(more);
    return conditions.isEmpty() ? QString() : u" WHERE "_s + conditions.join(u" AND "_s);
}

sqlite3_stmt* Recordset::prepare(const QString& sql, AppError* error) const {
    sqlite3_stmt* statement = nullptr;
    const QByteArray text = sql.toUtf8();
    const int rc =
        sqlite3_prepare_v2(m_db->handle(), text.constData(), int(text.size()), &statement, nullptr);
    if (rc != SQLITE_OK) {
        if (error)
            *error = m_db->lastError(rc);
        sqlite3_finalize(statement);
        return nullptr;
    }
    bindText(statement, ":filter", m_filterValue);
    return statement;
}

bool Recordset::standOn(sqlite3_stmt* statement, AppError* error) {
    const int rc = sqlite3_step(statement);
    if (rc == SQLITE_ROW) {
        m_values.clear();
        for (int c = 0; c < sqlite3_column_count(statement); ++c)
            m_values.append(columnValue(statement, c));
        return true;
    }
    if (rc != SQLITE_DONE && error)
        *error = m_db->lastError(rc);
    return false;
}

QString Recordset::keyCondition(const QString& comparison) const {
    const QString column = orderColumn();
    if (column.isEmpty())
        return u"ID "_s + comparison + u" :id"_s;
    return u"("_s + quoted(column) + u", ID) "_s + comparison + u" (:key, :id)"_s;
}

void Recordset::bindKey(sqlite3_stmt* statement) const {
    const QString column = orderColumn();
    if (!column.isEmpty())
        bindText(statement, ":key", m_values.value(fieldIndex(column)).toString());
    sqlite3_bind_int64(statement, sqlite3_bind_parameter_index(statement, ":id"),
                       m_values.value(0).toLongLong());
}

AppError Recordset::MoveFirst() {
    return moveToEnd(false);
}

AppError Recordset::MoveLast() {
    return moveToEnd(true);
}

AppError Recordset::moveToEnd(bool last) {
    m_edit = EditNone;
    AppError error;
    Statement statement{prepare(
        u"SELECT * FROM "_s + quoted(m_table) + where({}) + orderBy(last) + u" LIMIT 1"_s, &error)};
    if (!statement.handle)
        return error;
    if (!standOn(statement.handle, &error)) {
        if (error)
            return error;
        m_state = AfterLast;
        m_values.clear();
        return engineError(OrganizerDb::NoCurrentRecord);
    }
    m_state = Current;
    m_position = !last ? 0 : m_count >= 0 ? m_count - 1 : -1;
    return {};
}

AppError Recordset::moveAfter(bool forward) {
    m_edit = EditNone;
    if (m_state == (forward ? BeforeFirst : AfterLast))
        return forward ? MoveFirst() : MoveLast();
    if (m_state != Current && (m_state != NoCurrent || m_values.isEmpty()))
        return engineError(OrganizerDb::NoCurrentRecord);
    const bool wasDeleted = m_state == NoCurrent;
    AppError error;
    Statement statement{prepare(u"SELECT * FROM "_s + quoted(m_table) +
                                    where(keyCondition(forward ? u">"_s : u"<"_s)) +
                                    orderBy(!forward) + u" LIMIT 1"_s,
                                &error)};
    if (!statement.handle)
        return error;
    bindKey(statement.handle);
    if (standOn(statement.handle, &error)) {
        m_state = Current;
        if (m_position >= 0)
            m_position += forward ? (wasDeleted ? 0 : 1) : -1;
        return {};
    }
    if (error)
        return error;
    m_state = forward ? AfterLast : BeforeFirst;
    m_position = -1;
    return {};
}

AppError Recordset::MoveNext() {
    return moveAfter(true);
}

AppError Recordset::MovePrevious() {
    return moveAfter(false);
}

AppError Recordset::moveTo(qint64 position) {
    m_edit = EditNone;
    if (position < 0)
        return engineError(OrganizerDb::NoCurrentRecord);
    AppError error;
    Statement statement{prepare(u"SELECT * FROM "_s + quoted(m_table) + where({}) + orderBy(false) +
                                    u" LIMIT 1 OFFSET "_s + QString::number(position),
                                &error)};
    if (!statement.handle)
        return error;
    if (!standOn(statement.handle, &error))
        return error ? error : engineError(OrganizerDb::NoCurrentRecord);
    m_state = Current;
    m_position = position;
    return {};
}

bool Recordset::isEOF() const {
    return m_state == AfterLast || (m_state == BeforeFirst && RecordCount() == 0);
}

bool Recordset::isBOF() const {
    return m_state == BeforeFirst || (m_state == AfterLast && RecordCount() == 0);
}

qint64 Recordset::RecordCount() const {
    if (m_count < 0) {
        Statement statement{
            prepare(u"SELECT count(*) FROM "_s + quoted(m_table) + where({}), nullptr)};
        m_count = statement.handle && sqlite3_step(statement.handle) == SQLITE_ROW
                      ? sqlite3_column_int64(statement.handle, 0)
                      : 0;
    }
    return m_count;
}

qint64 Recordset::AbsolutePosition() const {
    if (m_state != Current)
        return -1;
    if (m_position < 0) {
        Statement statement{prepare(
            u"SELECT count(*) FROM "_s + quoted(m_table) + where(keyCondition(u"<"_s)), nullptr)};
        if (!statement.handle)
            return -1;
        bindKey(statement.handle);
        if (sqlite3_step(statement.handle) == SQLITE_ROW)
            m_position = sqlite3_column_int64(statement.handle, 0);
    }
    return m_position;
}

double Recordset::PercentPosition() const {
    const qint64 count = RecordCount();
    const qint64 position = AbsolutePosition();
    if (count <= 0 || position < 0)
        return 0;
    return 100.0 * double(position) / double(count);
}

AppError Recordset::setIndex(const QString& name) {
    if (m_type != TableType)
        return engineError(OrganizerDb::NotSupported);
    if (!name.isEmpty() && OrganizerDb::indexColumn(m_table, name).isEmpty())
        return engineError(OrganizerDb::NotAnIndex);
    m_index = name;
    m_position = -1;
    return {};
}

AppError Recordset::Seek(const QString& comparison, const QString& key) {
    if (m_type != TableType)
        return engineError(OrganizerDb::NotSupported);
    const QString column = orderColumn();
    if (column.isEmpty())
        return engineError(OrganizerDb::NoCurrentIndex);
    const QString op = comparison.trimmed();
    if (op != u"="_s && op != u">="_s)
        return engineError(OrganizerDb::NotSupported);
    m_edit = EditNone;
    AppError error;
    Statement statement{prepare(u"SELECT * FROM "_s + quoted(m_table) +
                                    where(quoted(column) + u' ' + op + u" :key"_s) +
                                    orderBy(false) + u" LIMIT 1"_s,
                                &error)};
    if (!statement.handle)
        return error;
    bindText(statement.handle, ":key", key);
    m_noMatch = !standOn(statement.handle, &error);
    if (error)
        return error;
    m_position = -1;
    if (m_noMatch) {
        m_state = NoCurrent;
        m_values.clear();
    } else {
        m_state = Current;
    }
    return {};
}

AppError Recordset::AddNew() {
    m_pending.clear();
    m_pending.append(QVariant());
    for (qsizetype i = 1; i < m_columns.size(); ++i)
        m_pending.append(QString());
    m_edit = EditAdd;
    return {};
}

AppError Recordset::Edit() {
    if (m_state != Current)
        return engineError(OrganizerDb::NoCurrentRecord);
    if (sqlite3_db_readonly(m_db->handle(), "main") == 1)
        return engineError(OrganizerDb::ReadOnly);
    m_pending = m_values;
    m_edit = EditInProgress;
    return {};
}

AppError Recordset::Update() {
    if (m_edit == EditNone)
        return engineError(OrganizerDb::UpdateWithoutEdit);
    const QStringList changed = m_columns.mid(1);
    QString sql;
    if (m_edit == EditAdd) {
        QStringList names;
        QStringList places;
        for (qsizetype i = 0; i < changed.size(); ++i) {
            names.append(quoted(changed[i]));
            places.append(u'?' + QString::number(i + 1));
        }
        sql = u"INSERT INTO "_s + quoted(m_table) + u" ("_s + names.join(u", "_s) +
              u") VALUES ("_s + places.join(u", "_s) + u')';
    } else {
        QStringList sets;
        for (qsizetype i = 0; i < changed.size(); ++i)
            sets.append(quoted(changed[i]) + u" = ?"_s + QString::number(i + 1));
        sql = u"UPDATE "_s + quoted(m_table) + u" SET "_s + sets.join(u", "_s) +
              u" WHERE ID = ?"_s + QString::number(changed.size() + 1);
    }
    AppError error;
    Statement statement{prepare(sql, &error)};
    if (!statement.handle)
        return error;
    for (qsizetype i = 0; i < changed.size(); ++i)
        bindValue(statement.handle, int(i + 1), m_pending.value(i + 1).toString());
    if (m_edit == EditInProgress)
        sqlite3_bind_int64(statement.handle, int(changed.size() + 1),
                           m_values.value(0).toLongLong());
    const int rc = sqlite3_step(statement.handle);
    if (rc != SQLITE_DONE)
        return m_db->lastError(rc);
    if (m_edit == EditAdd) {
        if (m_count >= 0)
            ++m_count;
    } else {
        m_values = m_pending;
        m_position = -1;
        m_count = -1; // a changed group name may leave a dynaset's group
    }
    m_edit = EditNone;
    return {};
}

AppError Recordset::CancelUpdate() {
    if (m_edit == EditNone)
        return engineError(OrganizerDb::UpdateWithoutEdit);
    m_edit = EditNone;
    return {};
}

AppError Recordset::Delete() {
    m_edit = EditNone;
    if (m_state != Current)
        return engineError(OrganizerDb::NoCurrentRecord);
    AppError error;
    Statement statement{
        prepare(u"DELETE FROM "_s + quoted(m_table) + u" WHERE ID = :id"_s, &error)};
    if (!statement.handle)
        return error;
    sqlite3_bind_int64(statement.handle, sqlite3_bind_parameter_index(statement.handle, ":id"),
                       m_values.value(0).toLongLong());
    const int rc = sqlite3_step(statement.handle);
    if (rc != SQLITE_DONE)
        return m_db->lastError(rc);
    m_state = NoCurrent; // the deleted record's place stays for the next move
    if (m_count > 0)
        --m_count;
    return {};
}

QVariant Recordset::value(int position, AppError* error) const {
    if (position < 0 || position >= m_columns.size()) {
        if (error)
            *error = engineError(OrganizerDb::ItemNotFound);
        return {};
    }
    if (m_edit != EditNone)
        return m_pending.value(position);
    if (m_state != Current) {
        if (error)
            *error = engineError(OrganizerDb::NoCurrentRecord);
        return {};
    }
    return m_values.value(position);
}

QVariant Recordset::value(const QString& name, AppError* error) const {
    return value(fieldIndex(name), error);
}

AppError Recordset::setValue(int position, const QVariant& value) {
    if (position < 0 || position >= m_columns.size())
        return engineError(OrganizerDb::ItemNotFound);
    if (m_edit == EditNone)
        return engineError(OrganizerDb::UpdateWithoutEdit);
    if (position == 0)
        return engineError(OrganizerDb::FieldNotUpdatable);
    m_pending[position] = value.toString();
    return {};
}

AppError Recordset::setValue(const QString& name, const QVariant& value) {
    return setValue(fieldIndex(name), value);
}

QList<QStringList> Recordset::rows(qint64 first, int count) const {
    QList<QStringList> rows;
    if (first < 0 || count <= 0)
        return rows;
    Statement statement{prepare(u"SELECT * FROM "_s + quoted(m_table) + where({}) + orderBy(false) +
                                    u" LIMIT "_s + QString::number(count) + u" OFFSET "_s +
                                    QString::number(first),
                                nullptr)};
    if (!statement.handle)
        return rows;
    while (sqlite3_step(statement.handle) == SQLITE_ROW) {
        QStringList row;
        for (int c = 0; c < sqlite3_column_count(statement.handle); ++c)
            row.append(columnValue(statement.handle, c).toString());
        rows.append(row);
    }
    return rows;
}
