#include "shell/FileTypes.h"

#include "shell/Globals.h"

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

TEST(GetFileExt, TakesTheTextBehindTheLastDotOfTheWholeName) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"/pics/a.jpg", u"JPG"}, {u"a.b.txt", u"TXT"}, {u"/my.dir/readme", u"DIR/README"},
        {u"README", u""},         {u"a.", u""},         {u"x.jpg ", u"JPG "}};
    for (const auto& [name, ext] : cases)
        EXPECT_EQ(GetFileExt(QString::fromUtf16(name)), QString::fromUtf16(ext));
}

TEST_F(ClassifyFixture, EachRangeSetsOrClearsTheTextAndDatabaseFlags) {
    struct Case {
        const char16_t* name;
        bool text, database;
    };
    const Case cases[] = {
        {u"/PICS/A.JPG", false, false}, {u"a.txt", true, false},  {u"a.msg", true, false},
        {u"a.dat", true, false},        {u"a.cda", true, false},  {u"a.dbf", false, true},
        {u"a.wk4", false, true},        {u"a.wav", false, false}, {u"a.msp", false, false}};
    for (const Case& c : cases) {
        const QString name = QString::fromUtf16(c.name);
        g.gIsDatabaseFile = !c.database;
        isText = !c.text;
        EXPECT_TRUE(classify(name)) << name.toStdString();
        EXPECT_EQ(fileExt, GetFileExt(name)) << name.toStdString();
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
    // Known extensions without a code of their own, lower case and the empty text give 0.
    const Case cases[] = {{u"JPG", 10},  {u"TIFF", 3}, {u"MPT", 3}, {u"ICO", 91},
                          {u"EMF", 116}, {u"MSP", 53}, {u"CMP", 0}, {u"AWD", 0},
                          {u"jpg", 0},   {u"WAV", 0},  {u"", 0}};
    for (const Case& c : cases)
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
    const Case cases[] = {
        {u"X.JPG", u"Picture"},       {u"x.pct", u"Picture"},       {u"X.WAV", u"Multimedia"},
        {u"X.MSP", u"Multimedia"},    {u"X.TXT", u"Document"},      {u"X.CDA", u"Document"},
        {u"X.DAT", u"Document"},      {u"X.WK4", u"Database"},      {u"X.INI", u"System"},
        {u"X.SYS", u"System"},        {u"x.bat", u"System"},        {u"X.DOS", u"System"},
        {u"X.ZIP", u"Miscellaneous"}, {u"README", u"Miscellaneous"}};
    for (const Case& c : cases)
        EXPECT_EQ(GetFileKindName(QString::fromUtf16(c.name)), QString::fromUtf16(c.kind))
            << QString::fromUtf16(c.name).toStdString();
}
