#include "platform/AppError.h"
#include "platform/DialogFilter.h"
#include "platform/FileMask.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"

#include <QGuiApplication>
#include <QPalette>

#include <cerrno>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PathUtil, CutsAtTheLastSeparator) {
    struct Case {
        QString path, folder, name;
    };
    const Case cases[] = {
        {u"/home/u/a.jpg"_s, u"/home/u"_s, u"a.jpg"_s},
        {u"/a.jpg"_s, u"/"_s, u"a.jpg"_s},
        {u"a.jpg"_s, u"a.jpg"_s, u"a.jpg"_s},
        {u"/home/u/"_s, u"/home/u"_s, QString()},
        {u"/my.dir/readme"_s, u"/my.dir"_s, u"readme"_s},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(PathUtil::folderOf(c.path), c.folder) << c.path.toStdString();
        EXPECT_EQ(PathUtil::nameOf(c.path), c.name) << c.path.toStdString();
    }
}

TEST(PathUtil, JoinsWithOneSeparatorAndKnowsTheRoot) {
    EXPECT_EQ(PathUtil::join(u"/tmp"_s, u"Options.INI"_s), u"/tmp/Options.INI"_s);
    EXPECT_EQ(PathUtil::join(u"/"_s, u"Options.INI"_s), u"/Options.INI"_s);
    EXPECT_EQ(PathUtil::join(QString(), u"x"_s), u"x"_s);
    EXPECT_TRUE(PathUtil::isRoot(u"/"_s));
    EXPECT_FALSE(PathUtil::isRoot(u"/home"_s));
    EXPECT_FALSE(PathUtil::isRoot(QString()));
}

TEST(FileMask, MatchesNamesAndTheirUtf8BytesWithoutRegardToCase) {
    struct Case {
        QString mask, name;
        bool matches;
    };
    const Case cases[] = {
        {u"*.JPG;*.TIFF"_s, u"photo.Jpg"_s, true},
        {u"*.JPG;*.TIFF"_s, u"scan.tiff"_s, true},
        {u"*.JPG;*.CMP"_s, u"photo.jpeg"_s, false},
        {u"*.JPG"_s, u"jpg"_s, false},
        {u"*.JPG"_s, u".jpg"_s, true},
        {u"*.JPG"_s, u"photo.jpg.txt"_s, false},
        {u"*LOG"_s, u"CATALOG"_s, true},
        {u"*LOG"_s, u"logbook"_s, false},
        {u"a?c.*"_s, u"ABC.txt"_s, true},
        {u"a?c.*"_s, u"abbc.txt"_s, false},
        {u"*.TXT"_s, u"R\u00c9SUM\u00c9.txt"_s, true},
        {u"\u00e9*"_s, u"\u00c9mile"_s, true},
        {u"*.k"_s, u"x.\u212a"_s, true}, // the Kelvin sign folds to k
        {u"?.txt"_s, u"\u00e9.txt"_s, true},
        {u"*.*"_s, u"README"_s, true},
        {u"*a*b*c"_s, u"xxaxxbxxbxxc"_s, true},
        {QString(), u"a.jpg"_s, false},
        {u";;"_s, u"a.jpg"_s, false},
    };
    for (const Case& c : cases) {
        const FileMask::Compiled mask(c.mask);
        EXPECT_EQ(mask.matches(c.name), c.matches) << c.mask.toStdString() << c.name.toStdString();
        EXPECT_EQ(mask.matchesUtf8(c.name.toStdString()), c.matches)
            << c.mask.toStdString() << " " << c.name.toStdString();
    }
}

TEST(Twips, KeepsARememberedValueWhoseRoundingGaveThePixels) {
    EXPECT_EQ(Twips::toPixels(8800), 587);
    EXPECT_EQ(Twips::measure(587, 8800), 8800);
    EXPECT_EQ(Twips::measure(600, 8800), 9000);
    EXPECT_EQ(Twips::measure(-5, -75), -75);
    EXPECT_EQ(Twips::measure(429, 6435.5), 6435.5);
}

TEST(DialogFilter, TurnsPairsIntoNameFilters) {
    EXPECT_EQ(DialogFilter::toNameFilters(u"Bitmap Files|*.BMP|Microsoft Fax |*.AWD;*.X"_s),
              (QStringList{u"Bitmap Files (*.BMP)"_s, u"Microsoft Fax (*.AWD *.X)"_s}));
    EXPECT_TRUE(DialogFilter::toNameFilters(u"Lonely caption"_s).isEmpty());
}

TEST(SettingColor, ConvertsBlueGreenRedOrderBothWays) {
    const QColor c = SettingColor::toQColor(0xFFD3CE);
    EXPECT_EQ(c.red(), 0xCE);
    EXPECT_EQ(c.green(), 0xD3);
    EXPECT_EQ(c.blue(), 0xFF);
    EXPECT_EQ(SettingColor::fromQColor(c), 0xFFD3CE);
    EXPECT_EQ(SettingColor::fromQColor(QColor(0, 0, 0x80)), 0x800000);
}

TEST(SettingColor, ButtonFaceIsThePalettesButtonColour) {
    EXPECT_TRUE(SettingColor::isSystemColor(SettingColor::ButtonFace));
    EXPECT_FALSE(SettingColor::isSystemColor(0x800000));
    EXPECT_EQ(SettingColor::toQColor(SettingColor::ButtonFace),
              QGuiApplication::palette().color(QPalette::Button));
    // The caption text, the text stamps' highlight, is the palette's light text.
    EXPECT_EQ(SettingColor::toQColor(static_cast<qint32>(0x80000009U)),
              QGuiApplication::palette().color(QPalette::BrightText));
}

TEST(AppError, MapsSystemErrorsToTheProgramsNumbers) {
    EXPECT_EQ(AppError::fromErrno(ENOENT).number(), 76);
    EXPECT_EQ(AppError::fromErrno(EACCES).number(), 75);
    EXPECT_EQ(AppError::fromErrno(ENOSPC).number(), 61);
    EXPECT_EQ(AppError::fromErrno(ENOMEDIUM).number(), 68);
    EXPECT_EQ(AppError(62).description(), u"Input past end of file"_s);
    EXPECT_FALSE(AppError().isError());
}
