#pragma once

#include "platform/tables/TableReader.h"

// Excel workbooks (.XLS, BIFF) through FreeXL: each sheet is a table named after the sheet with
// a "$" behind, its first row the field names, the rows below it the records.
class ExcelReader final : public TableReader {
public:
    static Opened openFile(const QString& path);
    ~ExcelReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    ExcelReader() = default;

    const void* m_handle = nullptr;
    QList<TableDef> m_defs;
};
