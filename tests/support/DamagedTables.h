#pragma once

#include "platform/tables/TableReader.h"
#include "support/TempFolder.h"

#include <QDir>
#include <QMap>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

// Copies of a table file cut short (to 0 and 32 bytes, to half, to all but one byte) or with
// bytes turned over at the given places and in the middle, each with what was done to it.
inline QList<std::pair<std::string, QByteArray>>
damagedCopies(const QByteArray& good,
              std::initializer_list<std::pair<qsizetype, qsizetype>> flips) {
    QList<std::pair<std::string, QByteArray>> copies;
    for (qsizetype cut : {qsizetype(0), qsizetype(32), good.size() / 2, good.size() - 1})
        copies.append({"cut to " + std::to_string(cut), good.left(cut)});
    auto flipped = [&](qsizetype from, qsizetype count) {
        QByteArray bytes = good;
        for (qsizetype i = from; i < std::min(from + count, bytes.size()); ++i)
            bytes[i] = char(~bytes[i]);
        copies.append({"flipped at " + std::to_string(from), bytes});
    };
    for (const auto& [from, count] : flips)
        flipped(from, count);
    flipped(good.size() / 2, 16);
    return copies;
}

// Opens a one-table file of the folder by its connect string and reads every row in every
// order; no file of the folder changes by it.
inline void readEveryRow(const TempFolder& dir, const QString& connect, const QString& table,
                         const std::string& what) {
    QMap<QString, QByteArray> before;
    for (const QString& name : QDir(dir.path()).entryList(QDir::Files))
        before[name] = dir.read(name);
    {
        TableReader::Opened opened = TableReader::open(connect, dir.file(table), QString());
        if (!opened.error) {
            ASSERT_TRUE(opened.reader) << what;
            const QList<TableDef> defs = opened.reader->tableDefs();
            ASSERT_EQ(defs.size(), 1) << what;
            for (const QString& index : QStringList{QString()} + defs.first().indexes) {
                std::unique_ptr<TableRows> rows = opened.reader->rows(defs.first().name, index);
                for (qint64 i = 0; i < rows->count(); ++i) {
                    const QStringList row = rows->row(i);
                    EXPECT_TRUE(row.isEmpty() || row.size() == defs.first().fields.size()) << what;
                }
            }
        }
    }
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        EXPECT_EQ(dir.read(it.key()), it.value()) << what << ": " << it.key().toStdString();
}
