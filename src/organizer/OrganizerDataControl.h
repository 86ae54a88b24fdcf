#pragma once

#include "organizer/Recordset.h"
#include "platform/DataNavigator.h"

#include <QPointer>

#include <memory>

// The data control of the organizer's windows: a navigator over a cursor of FileTabl.MDB with
// controls bound to its fields. DatabaseName is the file (with or without its extension),
// RecordSource a table (opened as a table cursor, which takes an index) or one of the group
// queries (a dynaset). The bound controls show the current or pending record after every move
// made through the control. A control whose text differs from what it was filled with (typed,
// or set by the program) is written into the record by Update; typing also has the record
// written when it is left. Every move through the control ends in Reposition.
class OrganizerDataControl final : public DataNavigator {
    Q_OBJECT
public:
    explicit OrganizerDataControl(QWidget* parent = nullptr);
    ~OrganizerDataControl() override;

    QString Connect;
    QString DatabaseName;
    QString RecordSource;

    // Opens the record source again and stands on its first record; on failure the records
    // shown before stay.
    AppError Refresh();
    Recordset* recordset() const { return m_recordset.get(); }
    bool isOpen() const { return m_recordset != nullptr; }
    // Lets go of the cursor and the file.
    void close();

    // A line edit, text edit, combo box or label that shows and takes a field.
    void bind(QWidget* control, const QString& field);

    // The cursor's operations, with the bound controls kept in step.
    AppError setIndex(const QString& name);
    AppError Seek(const QString& comparison, const QString& key);
    AppError MoveFirst();
    AppError MoveLast();
    AppError MoveNext();
    AppError MovePrevious();
    AppError AddNew();
    AppError Edit();
    AppError Update();
    AppError CancelUpdate();
    AppError Delete();

    // The bound controls from the pending or current record.
    void showRecord();

Q_SIGNALS:
    // The cursor was opened again or took another order: what was read of it before is gone.
    void RecordsChanged();
    // A record could not be written when it was left.
    void Error(const AppError& error);

protected:
    void moveRecord(Action action) override;

private:
    struct Binding {
        QPointer<QWidget> control;
        QString field;
        QString shown; // what the control held when it was last filled
    };
    AppError moveBy(AppError (Recordset::*move)());
    void writeBound();

    std::unique_ptr<Recordset> m_recordset;
    QList<Binding> m_bindings;
    bool m_filling = false;
    bool m_changed = false; // the user changed a bound control since it was filled
};
