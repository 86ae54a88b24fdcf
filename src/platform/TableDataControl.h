#pragma once

#include "platform/AppError.h"
#include "platform/DataNavigator.h"

#include <memory>

class TableRecordset;

// A data control over a table of a desktop database file, opened read-only: Connect names the
// kind of file (and an Access password as ";pwd="), DatabaseName the folder of a dBASE or
// Paradox file or the path of the others, RecordSource the file or the table. Refresh opens
// what these name; the recordset is then the records shown.
class TableDataControl final : public DataNavigator {
    Q_OBJECT
public:
    explicit TableDataControl(QWidget* parent = nullptr);
    ~TableDataControl() override;

    QString Connect;
    QString DatabaseName;
    QString RecordSource;

    // Opens the record source again; on failure the records shown before stay.
    AppError Refresh();
    TableRecordset* Recordset() const { return m_recordset.get(); }
    // Lets go of the table's files.
    void closeRecordset();

Q_SIGNALS:
    void recordsetChanged();

protected:
    void moveRecord(Action action) override;

private:
    std::unique_ptr<TableRecordset> m_recordset;
};
