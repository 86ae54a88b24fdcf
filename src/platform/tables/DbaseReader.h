#pragma once

#include "platform/tables/DbaseIndex.h"
#include "platform/tables/TableReader.h"

#include <memory>

class DbaseMemoFile;
struct DbaseLayout;

// dBASE tables (.DBF with .DBT memos). The header and field descriptors are checked in our own
// code, then xbase64 names and types the fields, opening the table through a private folder with
// a link named as it expects. Records are read in our own code at the places the checked header
// gives, and memos from the memo file, found whatever its letter case.
// Rows come in stored order or in the order of one of the table's NDX files or MDX tags.
class DbaseReader final : public TableReader {
public:
    static Opened openFile(const QString& path);
    ~DbaseReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    DbaseReader() = default;

    QString m_path;
    std::unique_ptr<DbaseLayout> m_layout; // where the records and fields lie
    TableDef m_def;
    QList<DbaseIndex> m_indexes;
    std::shared_ptr<DbaseMemoFile> m_memos; // null without a readable memo file
};
