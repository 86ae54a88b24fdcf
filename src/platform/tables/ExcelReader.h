#pragma once

#include "platform/tables/BiffWorkbook.h"
#include "platform/tables/TableReader.h"

#include <memory>

// Excel workbooks (.XLS: BIFF5 and BIFF8 in an OLE2 compound file), read by BiffWorkbook: each
// worksheet is a table named after the sheet with a "$" behind, its first row the field names,
// the rows below it the records.
class ExcelReader final : public TableReader {
public:
    static Opened openFile(const QString& path);

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    ExcelReader() = default;

    std::shared_ptr<const QList<BiffWorkbook::Sheet>> m_sheets;
    QList<TableDef> m_defs;
};
