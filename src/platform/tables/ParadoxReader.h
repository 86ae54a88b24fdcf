#pragma once

#include "platform/tables/TableReader.h"

#include <memory>

struct px_doc;
class ParadoxBlobFile;

// Paradox tables (.DB with .MB memos) through pxlib; memos are read from the .MB file in our own
// code. Companion files are found whatever their letter case. A keyed table lists its primary
// key as the index "PrimaryKey", whose order is read from the .DB file itself.
class ParadoxReader final : public TableReader {
public:
    static Opened openFile(const QString& path);
    ~ParadoxReader() override;

    QList<TableDef> tableDefs() override;
    std::unique_ptr<TableRows> rows(const QString& table, const QString& index) override;

private:
    ParadoxReader() = default;

    px_doc* m_doc = nullptr;
    QString m_path;
    TableDef m_def;
    QList<int> m_types;                       // pxlib's field types
    QList<int> m_lengths;                     // bytes of each field in a record
    std::shared_ptr<ParadoxBlobFile> m_blobs; // the memo file, when there is one to read
};
