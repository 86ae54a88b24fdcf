#pragma once

#include "platform/tables/BiffWorkbook.h"
#include "platform/tables/TableReader.h"

// Excel workbooks (.XLS, BIFF) through FreeXL: each sheet is a table named after the sheet with
// a "$" behind, its first row the field names, the rows below it the records. A workbook FreeXL
// refuses, or finds no sheets in, is read by our own BIFF reader (BiffWorkbook).
class ExcelReader final : public TableReader {
public:
    static Opened openFile(const QString& path);
    ~ExcelReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    ExcelReader() = default;

    const void* m_handle = nullptr;                             // FreeXL's
    std::shared_ptr<const QList<BiffWorkbook::Sheet>> m_sheets; // when read by BiffWorkbook
    QList<TableDef> m_defs;
};
