#include "shell/FileTypes.h"

#include "platform/FileMask.h"
#include "shell/Globals.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace FileTypes;

namespace {

struct ClassifyFixture : ::testing::Test {
    Globals g;
    QString fileExt = u"junk"_s;
    bool isText = true;
    void SetUp() override { g.gFileExtTable = extensionTable(); }
    bool classify(const QString& name) { return GetFileTypeFlag(name, g, fileExt, isText); }
};

} // namespace

TEST(FileTypeTables, ExtensionTableHoldsTheGroupsInOrder) {
    const QStringList& t = extensionTable();
    ASSERT_EQ(t.size(), ExtensionCount);
    EXPECT_EQ(QSet<QString>(t.begin(), t.end()).size(), ExtensionCount);
    struct Probe {
        int index;
        const char16_t* ext;
    };
    for (const Probe& p : {Probe{0, u"JPG"},
                           {5, u"BMP"},
                           {12, u"AWD"},
                           {27, u"PCT"},
                           {28, u"WAV"},
                           {31, u"AVI"},
                           {34, u"MP3"},
                           {35, u"M3U"},
                           {36, u"MAC"},
                           {38, u"MSP"},
                           {39, u"TXT"},
                           {55, u"MSG"},
                           {56, u"DAT"},
                           {57, u"CDA"},
                           {58, u"DBF"},
                           {62, u"WK4"}})
        EXPECT_EQ(t[p.index], QString::fromUtf16(p.ext)) << p.index;
    for (const QString& ext : t)
        EXPECT_EQ(ext, ext.toUpper());
}

TEST(FileTypeTables, FilterRowsKeepTheirOwnWordsAndQuirks) {
    const auto& rows = filterRows();
    EXPECT_EQ(rows[0].caption, u"JPEG and LEAD Compressed (JPG and CMP)"_s);
    EXPECT_EQ(rows[7].mask, u"*.TIFF;*.TIF;*.JPG"_s);
    EXPECT_EQ(rows[20].caption, u"WorkPerfect Format (WPG)"_s);
    EXPECT_EQ(rows[25].caption, u"Music Files (MP3,MIDI)"_s);
    EXPECT_EQ(rows[25].mask, u"*.MID;*.RMI;*.MP3;*.M3U"_s);
    EXPECT_EQ(rows[28].mask, u"*.CDA;*.DAT"_s);
    EXPECT_EQ(rows[33].caption, u"All Files (*.*)"_s);
    // Rows 27 and 30 carry DIC where the extension table has AWD.
    for (int row : {27, 30}) {
        EXPECT_TRUE(rows[row].mask.contains(u"*.DIC;"_s)) << row;
        EXPECT_FALSE(rows[row].mask.contains(u"AWD"_s)) << row;
    }
    EXPECT_EQ(rows[27].mask.count(u';') + 1, 31);
    EXPECT_EQ(rows[30].mask.count(u';') + 1, 39);
    EXPECT_TRUE(rows[31].mask.contains(u";*LOG;"_s));
}

TEST(FileTypeTables, TextRowListsANameWithoutExtensionEndingInLog) {
    const QString& textMask = filterRows()[31].mask;
    EXPECT_TRUE(FileMask::matches(textMask, u"CATALOG"_s));
    EXPECT_TRUE(FileMask::matches(textMask, u"notes.txt"_s));
    EXPECT_FALSE(FileMask::matches(textMask, u"photo.jpg"_s));
    EXPECT_FALSE(FileMask::matches(filterRows()[32].mask, u"CATALOG"_s));
}

TEST(FileTypeTables, DialogFilterHas28PairsThatDifferFromTheRows) {
    const QStringList parts = dialogFilter().split(u'|');
    ASSERT_EQ(parts.size(), 2 * DialogFilterPairs);
    EXPECT_EQ(parts[0], u"JPeg and Lead Compressed"_s);
    EXPECT_EQ(parts[2 * 6], u"Microsoft Fax "_s);
    EXPECT_EQ(parts[2 * 6 + 1], u"*.AWD"_s);
    EXPECT_EQ(parts[2 * 3], u"Icons and Cursor FIles"_s);
    EXPECT_EQ(parts[2 * 19], u"WordPerfect Format"_s);
    EXPECT_EQ(parts[2 * 24 + 1], u"*.MP3;*.M3U"_s);
    EXPECT_TRUE(parts[2 * 26 + 1].contains(u";*.LOG;"_s));
    EXPECT_EQ(parts.last(), u"*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s);
    // Position 7 of the dialog filter is the fax format, row 7 of the list is Exif.
    EXPECT_NE(parts[2 * 6 + 1], filterRows()[7].mask);
}

TEST(GetFileExt, TakesTheTextBehindTheLastDotOfTheWholeName) {
    EXPECT_EQ(GetFileExt(u"/pics/a.jpg"_s), u"JPG"_s);
    EXPECT_EQ(GetFileExt(u"a.b.txt"_s), u"TXT"_s);
    EXPECT_EQ(GetFileExt(u"/my.dir/readme"_s), u"DIR/README"_s);
    EXPECT_EQ(GetFileExt(u"README"_s), QString());
    EXPECT_EQ(GetFileExt(u"a."_s), QString());
    EXPECT_EQ(GetFileExt(u"x.jpg "_s), u"JPG "_s);
}

TEST_F(ClassifyFixture, APictureIsKnownWithBothClassFlagsClear) {
    g.gIsDatabaseFile = true;
    EXPECT_TRUE(classify(u"/PICS/A.JPG"_s));
    EXPECT_EQ(fileExt, u"JPG"_s);
    EXPECT_FALSE(isText);
    EXPECT_FALSE(g.gIsDatabaseFile);
}

TEST_F(ClassifyFixture, TextAndDatabaseRangesSetTheirFlags) {
    struct Case {
        const char16_t* name;
        bool text, database;
    };
    for (const Case& c :
         {Case{u"a.txt", true, false}, Case{u"a.msg", true, false}, Case{u"a.dat", true, false},
          Case{u"a.cda", true, false}, Case{u"a.dbf", false, true}, Case{u"a.wk4", false, true},
          Case{u"a.wav", false, false}, Case{u"a.msp", false, false}}) {
        const QString name = QString::fromUtf16(c.name);
        EXPECT_TRUE(classify(name)) << name.toStdString();
        EXPECT_EQ(isText, c.text) << name.toStdString();
        EXPECT_EQ(g.gIsDatabaseFile, c.database) << name.toStdString();
    }
}

TEST_F(ClassifyFixture, UnknownExtensionsAreFalseAndNoExtensionForgetsTheCurrentFile) {
    g.gCurrentFile = u"/pics/a.jpeg"_s;
    EXPECT_FALSE(classify(u"a.jpeg"_s));
    EXPECT_EQ(g.gCurrentFile, u"/pics/a.jpeg"_s);
    EXPECT_FALSE(classify(u"a.jpg "_s)); // a trailing blank is not trimmed away
    EXPECT_EQ(fileExt, u"JPG "_s);

    for (const char16_t* name : {u"README", u"a.", u"a. "}) {
        g.gCurrentFile = u"/somewhere/x"_s;
        EXPECT_FALSE(classify(QString::fromUtf16(name)));
        EXPECT_TRUE(g.gCurrentFile.isEmpty());
    }
}

TEST(CreateOpenFileExt, JoinsAllExtensionsAsMasks) {
    const QString mask = CreateOpenFileExt(extensionTable());
    EXPECT_TRUE(mask.startsWith(u"*.JPG;*.CMP;*.TIFF;"_s));
    EXPECT_TRUE(mask.endsWith(u";*.XLS;*.WK4"_s));
    EXPECT_EQ(mask.split(u';').size(), ExtensionCount);
    EXPECT_EQ(CreateOpenFileExt({}), QString());
}

TEST(GetFileFormatCode, GivesTheTablesCodesByExactMatch) {
    struct Case {
        const char16_t* ext;
        qint16 code;
    };
    for (const Case& c :
         {Case{u"JPG", 10}, {u"TIFF", 3},  {u"MPT", 3},  {u"BMP", 6},  {u"ICO", 91},  {u"CUR", 92},
          {u"DCX", 1},      {u"PCD", 57},  {u"FPX", 80}, {u"DIC", 90}, {u"EMF", 116}, {u"XPM", 109},
          {u"IFF", 112},    {u"CUT", 108}, {u"PSD", 76}, {u"TGA", 4},  {u"EPS", 16},  {u"JBG", 115},
          {u"RAS", 55},     {u"WPG", 54},  {u"PCT", 56}, {u"MAC", 51}, {u"IMG", 52},  {u"MSP", 53},
          {u"CMP", 0},      {u"AWD", 0},   {u"jpg", 0},  {u"WAV", 0},  {u"", 0}})
        EXPECT_EQ(GetFileFormatCode(QString::fromUtf16(c.ext)), c.code)
            << QString::fromUtf16(c.ext).toStdString();
    EXPECT_EQ(GetFileFormatCode(u"PBM"_s), 75);
    EXPECT_EQ(GetFileFormatCode(u"PBM"_s), GetFileFormatCode(u"PNG"_s));
}

TEST(GetFileKindName, FollowsItsOwnBoundsAndTheSystemExtensions) {
    struct Case {
        const char16_t* name;
        const char16_t* kind;
    };
    for (const Case& c : {Case{u"X.JPG", u"Picture"},
                          {u"x.pct", u"Picture"},
                          {u"X.WAV", u"Multimedia"},
                          {u"X.MSP", u"Multimedia"},
                          {u"X.TXT", u"Document"},
                          {u"X.CDA", u"Document"},
                          {u"X.DAT", u"Document"},
                          {u"X.WK4", u"Database"},
                          {u"X.INI", u"System"},
                          {u"X.SYS", u"System"},
                          {u"x.bat", u"System"},
                          {u"X.DOS", u"System"},
                          {u"X.ZIP", u"Miscellaneous"},
                          {u"README", u"Miscellaneous"}})
        EXPECT_EQ(GetFileKindName(QString::fromUtf16(c.name)), QString::fromUtf16(c.kind))
            << QString::fromUtf16(c.name).toStdString();
}
