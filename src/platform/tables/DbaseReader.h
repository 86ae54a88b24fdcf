#pragma once

#include "platform/tables/TableReader.h"

#include <QTemporaryDir>

class xbXBase;
class xbDbf;

// dBASE tables (.DBF with .DBT memos) through xbase64. The memo file is found whatever its
// letter case: the table is opened through a private folder of links named as xbase64 expects.
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
};
