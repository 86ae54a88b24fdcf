#include "platform/tables/TableReader.h"

#include "support/TempFolder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString paradox(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u"/paradox/"_s + name;
}

bool haveSamples() {
    return QFileInfo(paradox(u"AREACODE.DB"_s)).isFile();
}

} // namespace

TEST(ParadoxReader, ReadsTheSampleTablesFieldsAndRows) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TableReader::Opened opened =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"AREACODE.DB"_s), {});
    ASSERT_FALSE(opened.error);
    const TableDef def = opened.reader->tableDefs().first();
    ASSERT_EQ(def.fields.size(), 4);
    EXPECT_EQ(def.fields[0].name, u"Area Code"_s);
    EXPECT_EQ(def.fields[1].type, TableTypes::Text);
    EXPECT_EQ(def.fields[1].size, 30);
    EXPECT_EQ(def.indexes, QStringList{u"PrimaryKey"_s});
    std::unique_ptr<TableRows> rows = opened.reader->rows(def.name, QString());
    EXPECT_EQ(rows->count(), 135);
    EXPECT_EQ(rows->row(0), (QStringList{u"201"_s, u"United States"_s, u"New Jersey"_s, u"NJ"_s}));

    TableReader::Opened types =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"TypSammlung.DB"_s), {});
    ASSERT_FALSE(types.error);
    const TableDef all = types.reader->tableDefs().first();
    EXPECT_EQ(all.fields.size(), 14);
    EXPECT_EQ(all.fields[9].type, TableTypes::Memo);
    std::unique_ptr<TableRows> typed = types.reader->rows(all.name, QString());
    EXPECT_EQ(typed->count(), 5);
    EXPECT_EQ(typed->row(0).value(0), u"AAA Irgendein Text"_s);
    EXPECT_EQ(typed->row(0).value(1), u"40"_s);
}

TEST(ParadoxReader, ReadsMemosAndAPasswordProtectedTable) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TableReader::Opened memo = TableReader::open(u"Paradox 5.x;"_s, paradox(u"memo.db"_s), {});
    ASSERT_FALSE(memo.error);
    const TableDef def = memo.reader->tableDefs().first();
    EXPECT_EQ(def.fields.value(1).type, TableTypes::Memo);
    std::unique_ptr<TableRows> rows = memo.reader->rows(def.name, QString());
    ASSERT_EQ(rows->count(), 2);
    EXPECT_TRUE(rows->row(0).value(1).startsWith(u"0123456789"_s));
    EXPECT_EQ(rows->row(1).value(1), u"01234567890\n"_s);

    TableReader::Opened locked =
        TableReader::open(u"Paradox 5.x;"_s, paradox(u"encrypted35.db"_s), {});
    ASSERT_FALSE(locked.error);
    std::unique_ptr<TableRows> secret =
        locked.reader->rows(locked.reader->tableDefs().first().name, QString());
    EXPECT_EQ(secret->row(0).value(1), u"Test 1"_s);
}

TEST(ParadoxReader, DamagedTablesFailOrReadWithoutACrash) {
    if (!haveSamples())
        GTEST_SKIP() << "the shared Paradox samples are absent";
    TempFolder dir;
    for (const QString& name : {u"AREACODE.DB"_s, u"TypSammlung.DB"_s}) {
        QFile file(paradox(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray good = file.readAll();
        for (qsizetype cut : {qsizetype(0), qsizetype(50), good.size() / 3, good.size() - 7}) {
            dir.write(u"cut.db"_s, good.left(cut));
            TableReader::Opened opened =
                TableReader::open(u"Paradox 5.x;"_s, dir.file(u"cut.db"_s), {});
            if (opened.error)
                continue;
            std::unique_ptr<TableRows> rows =
                opened.reader->rows(opened.reader->tableDefs().first().name, QString());
            for (qint64 i = 0; i < std::min<qint64>(rows->count(), 20); ++i)
                rows->row(i);
        }
    }
}
