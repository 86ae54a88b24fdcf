#include "platform/TextFile.h"

#include "support/FileSizeLimit.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TextFile, ReadsLinesEndedByCrLfOrLfAndAnUnendedLastLineUpToTheLimit) {
    struct Case {
        QByteArray bytes;
        int limit;
        QStringList lines;
    };
    const Case cases[] = {
        {"one\r\ntwo\nthree\r\n\r\nlast",
         -1,
         {u"one"_s, u"two"_s, u"three"_s, QString(), u"last"_s}},
        {"a\r\nb\r\n", -1, {u"a"_s, u"b"_s}}, // a break at the end starts no further line
        {"", -1, {}},
        {"\r\n", -1, {QString()}},
        {"Zoë\r\n日本\r\nthird\r\n", 2, {u"Zoë"_s, u"日本"_s}},
    };
    TempFolder dir;
    for (const Case& c : cases) {
        dir.write(u"in.txt"_s, c.bytes);
        const auto result = TextFile::readLines(dir.file(u"in.txt"_s), c.limit);
        EXPECT_FALSE(result.error) << c.bytes.toStdString();
        EXPECT_EQ(result.lines, c.lines) << c.bytes.toStdString();
    }
}

TEST(TextFile, MissingFileAndMissingFolderGiveTheirErrorNumbers) {
    TempFolder dir;
    EXPECT_EQ(TextFile::readLines(dir.file(u"none.txt"_s)).error.number(), 53);
    EXPECT_EQ(TextFile::readLines(dir.file(u"no/such/none.txt"_s)).error.number(), 76);
    EXPECT_EQ(TextFile::readLines(dir.path()).error.number(), 75);
}

TEST(TextFile, ReplaceWritesCrLfAndOverwritesWhole) {
    TempFolder dir;
    dir.write(u"out.txt"_s, "a much longer old content that must vanish\r\n");
    ASSERT_FALSE(TextFile::replace(dir.file(u"out.txt"_s), {u"x"_s, QString(), u"é"_s}));
    EXPECT_EQ(dir.read(u"out.txt"_s), QByteArray("x\r\n\r\n\xC3\xA9\r\n"));
}

TEST(TextFile, FailedReplaceLeavesTheOldFileWhole) {
    TempFolder dir;
    const QByteArray old = "old line 1\r\nold line 2\r\n";
    dir.write(u"keep.txt"_s, old);
    AppError error;
    {
        FileSizeLimit limit(16);
        error = TextFile::replace(dir.file(u"keep.txt"_s),
                                  QStringList(40, u"a line longer than the limit allows"_s));
    }
    EXPECT_EQ(error.number(), 61);
    EXPECT_FALSE(error.description().isEmpty());
    EXPECT_EQ(dir.read(u"keep.txt"_s), old);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{u"keep.txt"_s});
}

TEST(TextFile, ReplaceIntoMissingFolderOrOverAFolderFails) {
    TempFolder dir;
    EXPECT_EQ(TextFile::replace(dir.file(u"gone/x.txt"_s), {u"a"_s}).number(), 76);
    QDir(dir.path()).mkdir(u"sub"_s);
    EXPECT_EQ(TextFile::replace(dir.file(u"sub"_s), {u"a"_s}).number(), 75);
    EXPECT_TRUE(QFileInfo(dir.file(u"sub"_s)).isDir());
}

TEST(TextFile, AppendAddsCrLfLinesAndCreatesTheFile) {
    TempFolder dir;
    ASSERT_FALSE(TextFile::append(dir.file(u"log.txt"_s), {u"one"_s}));
    ASSERT_FALSE(TextFile::append(dir.file(u"log.txt"_s), {u"two"_s, u"three"_s}));
    EXPECT_EQ(dir.read(u"log.txt"_s), QByteArray("one\r\ntwo\r\nthree\r\n"));
}
