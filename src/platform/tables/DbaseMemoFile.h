#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// The .DBT memo file of a dBASE table, read in our own code. A record's memo field holds the
// number of the memo's first block. dBASE III memos run from there to a 0x1A byte in blocks of
// 512 bytes; dBASE IV memos start with FF FF 08 00 and their length, in blocks whose size the
// file's header gives.
class DbaseMemoFile {
public:
    explicit DbaseMemoFile(const QString& path);

    bool isOpen() const { return m_file.isOpen(); }

    // The memo starting at the block, at most `limit` bytes; empty when there is none or the
    // file does not hold it.
    QByteArray read(qint64 block, qint64 limit);

private:
    QFile m_file;
    qint64 m_size = 0;
    qint64 m_blockBytes = 512;
};
