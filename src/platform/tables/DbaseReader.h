#pragma once

#include "platform/tables/DbaseIndex.h"
#include "platform/tables/TableReader.h"

#include <QTemporaryDir>

#include <memory>

class DbaseMemoFile;
class xbXBase;
class xbDbf;

// dBASE tables (.DBF with .DBT memos) through xbase64, opened through a private folder with a
// link named as xbase64 expects. Memos are read in our own code from the memo file, found
// whatever its letter case.
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
    QTemporaryDir m_links;
    std::unique_ptr<xbXBase> m_base;
    std::unique_ptr<xbDbf> m_table;
    TableDef m_def;
    QList<DbaseIndex> m_indexes;
    qint64 m_count = 0;                     // records in the file
    std::shared_ptr<DbaseMemoFile> m_memos; // null without a readable memo file
};
