#pragma once

#include "platform/tables/TableReader.h"

// Lotus 1-2-3 worksheets (.WK1, .WK3, .WK4) through libwps: each sheet is a table, its first row
// the field names. libwps hands over each sheet as comma-separated text, which is read whole.
class LotusReader final : public TableReader {
public:
    static Opened openFile(const QString& path);

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

    // The rows of comma-separated text, with quoted values and doubled quotes inside them.
    static QList<QStringList> parseCsv(const QString& text);

private:
    LotusReader() = default;

    QList<TableDef> m_defs;
    QList<QList<QStringList>> m_sheets; // the records of each sheet, below its field names
};
