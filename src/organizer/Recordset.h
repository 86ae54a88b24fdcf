#pragma once

#include "organizer/OrganizerDb.h"

#include <QStringList>
#include <QVariant>

#include <memory>

struct sqlite3_stmt;

// A cursor over a table of the organizer's database with the data access objects' ways: a
// table cursor (which takes an index and seeks on it) or a dynaset over the files of a group,
// a current record, a pending new or changed record written by Update, and the engine's error
// numbers. Only the current record is held; moves are keyed queries on the order's index, so
// a move costs the same at the start of a table of a million rows as at its end.
class Recordset {
public:
    enum Type { TableType = 1, DynasetType = 2 };
    enum EditModes { EditNone = 0, EditInProgress = 1, EditAdd = 2 };

    struct Opened {
        std::unique_ptr<Recordset> recordset;
        AppError error;
    };
    // The source is a table name, or for a dynaset a table name or one of the two queries of
    // the organizer's windows:
    //   SELECT * FROM [FileTable] WHERE [GroupName] = '<name>' ORDER BY [<column>]
    // The value stands between single quotes as written, so a name with an apostrophe in it is
    // a syntax error (3075), found here before any SQL is made. The cursor stands on the first
    // record.
    static Opened open(std::shared_ptr<OrganizerDb> db, const QString& source,
                       Type type = DynasetType);
    ~Recordset();

    Type type() const { return m_type; }
    const QString& tableName() const { return m_table; }
    const QStringList& fieldNames() const { return m_columns; }
    int fieldCount() const { return int(m_columns.size()); }
    // The position of a field by its name (any case); -1 for none.
    int fieldIndex(const QString& name) const;

    // Table cursors only: the index that orders the records and that Seek looks in.
    const QString& Index() const { return m_index; }
    AppError setIndex(const QString& name);
    // The first record whose index value is equal to ("=") or at or after (">=") the key; on a
    // miss there is no current record and NoMatch() is true.
    AppError Seek(const QString& comparison, const QString& key);
    bool NoMatch() const { return m_noMatch; }

    AppError MoveFirst();
    AppError MoveLast();
    AppError MoveNext();
    AppError MovePrevious();
    // Goes to the record at that place of the order (from 0).
    AppError moveTo(qint64 position);
    bool isEOF() const;
    bool isBOF() const;
    bool hasCurrent() const { return m_state == Current; }
    qint64 RecordCount() const;
    // The place of the current record, from 0; -1 without one.
    qint64 AbsolutePosition() const;
    // The place of the current record in the whole, 0 to 100.
    double PercentPosition() const;

    AppError AddNew();
    AppError Edit();
    AppError Update();
    AppError CancelUpdate();
    AppError Delete();
    EditModes EditMode() const { return m_edit; }

    // A field of the pending record while one is pending, else of the current record.
    QVariant value(int position, AppError* error = nullptr) const;
    QVariant value(const QString& name, AppError* error = nullptr) const;
    QString text(const QString& name) const { return value(name).toString(); }
    // A field of the pending record; 3020 without AddNew or Edit, 3164 for the key.
    AppError setValue(int position, const QVariant& value);
    AppError setValue(const QString& name, const QVariant& value);

    // Records of the order as text, from a place: what a grid shows of its screen.
    QList<QStringList> rows(qint64 first, int count) const;

private:
    enum State { BeforeFirst, Current, AfterLast, NoCurrent };
    Recordset() = default;
    QString orderColumn() const;
    QString orderBy(bool descending) const;
    QString where(const QString& more) const;
    sqlite3_stmt* prepare(const QString& sql, AppError* error) const;
    void bindFilter(sqlite3_stmt* statement) const;
    // Runs a query of whole rows and stands on its first row; false when it gave none.
    bool standOn(sqlite3_stmt* statement, AppError* error);
    // Stands on the first or the last record of the order.
    AppError moveToEnd(bool last);
    AppError moveAfter(bool forward);
    // The records before (<) or after (>) the current one in the order, and their parameters.
    QString keyCondition(const QString& comparison) const;
    void bindKey(sqlite3_stmt* statement) const;

    std::shared_ptr<OrganizerDb> m_db;
    Type m_type = DynasetType;
    QString m_table;
    QStringList m_columns;
    QString m_filterColumn;
    QString m_filterValue;
    QString m_sortColumn; // of a dynaset's query
    QString m_index;      // of a table cursor

    State m_state = BeforeFirst;
    QVariantList m_values;          // the current record (also the place of a deleted one)
    mutable qint64 m_position = -1; // -1 until asked for
    mutable qint64 m_count = -1;    // -1 until asked for
    bool m_noMatch = false;
    EditModes m_edit = EditNone;
    QVariantList m_pending;
};
