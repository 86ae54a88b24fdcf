#include "platform/TextFile.h"

#include "support/FileSizeLimit.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TextFile, ReadsLinesEndedByCrLfOrLfAndAnUnendedLastLine) {
    TempFolder dir;
    dir.write(u"mixed.txt"_s, "one\r\ntwo\nthree\r\n\r\nlast");
    const auto result = TextFile::readLines(dir.file(u"mixed.txt"_s));
    EXPECT_FALSE(result.error);
    EXPECT_EQ(result.lines, (QStringList{u"one"_s, u"two"_s, u"three"_s, QString(), u"last"_s}));
}

TEST(TextFile, ALineBreakAtTheEndStartsNoFurtherLine) {
    TempFolder dir;
    dir.write(u"a.txt"_s, "a\r\nb\r\n");
    EXPECT_EQ(TextFile::readLines(dir.file(u"a.txt"_s)).lines, (QStringList{u"a"_s, u"b"_s}));
    dir.write(u"empty.txt"_s, "");
    EXPECT_TRUE(TextFile::readLines(dir.file(u"empty.txt"_s)).lines.isEmpty());
    dir.write(u"blank.txt"_s, "\r\n");
    EXPECT_EQ(TextFile::readLines(dir.file(u"blank.txt"_s)).lines, QStringList{QString()});
}

TEST(TextFile, ReadsUtf8AndStopsAtTheLineLimit) {
    TempFolder dir;
    dir.write(u"u.txt"_s, "Zoë\r\n日本\r\nthird\r\n");
    const auto result = TextFile::readLines(dir.file(u"u.txt"_s), 2);
    EXPECT_EQ(result.lines, (QStringList{u"Zoë"_s, u"日本"_s}));
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
