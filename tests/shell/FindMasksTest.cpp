#include "shell/FindMasks.h"
#include "platform/FileMask.h"
#include "shell/FileTypes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FindMasks, EachTabHasItsRowsAndFilterRows) {
    struct Case {
        int tab;
        size_t rows;
        int row;
        QString caption;
        QString mask;
        int filterRow;
    };
    const Case cases[] = {
        {FindMasks::Pictures, 23, 0, u"JPEG and LEAD Compressed"_s, u"*.JPG;*.CMP"_s, 0},
        {FindMasks::Pictures, 23, 7, u"Exif Formats (TIFF And JPG)"_s, u"*.TIFF;*.JPG"_s, 7},
        {FindMasks::Pictures, 23, 21, u"Macintosh Pict Format (PCT)"_s, u"*.PCT"_s, 21},
        {FindMasks::Pictures, 23, 22, u"Miscellaneous 1 Bit (MAC,IMG,MSP)"_s,
         u"*.MAC;*.IMG;*.MSP"_s, 26},
        // Row 8 searches WAV twice where its caption names RMI.
        {FindMasks::MultiMedia, 9, 8, u"All Sound and Music (WAV,MID,RMI,MP3,M3U)"_s,
         u"*.WAV;*.MID;*.WAV;*.MP3;*.M3U"_s, 29},
        {FindMasks::Text, 19, 16, u"Basic System File Types (SYS,DOS,BAT)"_s,
         u"*.SYS;*.BAT;*.BAK;*.DOS"_s, 31},
        {FindMasks::Database, 8, 7, u"All of the Above Files (DBF,DB,MDB,XLS,WK4)"_s,
         u"*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s, 32},
        {FindMasks::Miscellaneous, 5, 3, u"All Database Files"_s, u"*.DBF;*.DB;*.MDB;*.XLS;*.WK4"_s,
         32},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(FindMasks::rows(c.tab).size(), c.rows) << c.tab;
        const FindMasks::Choice choice = FindMasks::choose(c.tab, c.row, QString());
        EXPECT_EQ(choice.caption, c.caption) << c.tab << " " << c.row;
        EXPECT_EQ(choice.mask, c.mask) << c.tab << " " << c.row;
        EXPECT_EQ(choice.filterRow, c.filterRow) << c.tab << " " << c.row;
    }
}

TEST(FindMasks, AllPicturesSearchesNoMovies) {
    const QString mask = FindMasks::choose(FindMasks::Miscellaneous, 0, QString()).mask;
    EXPECT_TRUE(FileMask::matches(mask, u"photo.jpg"_s));
    EXPECT_TRUE(FileMask::matches(mask, u"scan.msp"_s));
    EXPECT_FALSE(FileMask::matches(mask, u"clip.avi"_s));
    EXPECT_FALSE(FileMask::matches(mask, u"song.wav"_s));
    EXPECT_EQ(FindMasks::choose(FindMasks::Miscellaneous, 0, QString()).filterRow, 27);
}

TEST(FindMasks, AnEnteredMaskWinsOverTheRowOfAnyTab) {
    const FindMasks::Choice typed = FindMasks::choose(FindMasks::Pictures, 3, u"*.ZIP"_s);
    EXPECT_EQ(typed.mask, u"*.ZIP"_s);
    EXPECT_EQ(typed.filterRow, 33);
    EXPECT_EQ(typed.caption, u"Find File or Global Search Entered Below:"_s);
    // Blanks are no entry.
    EXPECT_EQ(FindMasks::choose(FindMasks::Text, 0, u"   "_s).mask, u"*.TXT"_s);
    // A row that is not there gives nothing to search for.
    EXPECT_TRUE(FindMasks::choose(FindMasks::Database, 8, QString()).mask.isEmpty());
    EXPECT_TRUE(FindMasks::choose(7, 0, QString()).mask.isEmpty());
}

TEST(FindMasks, EveryFilterRowIsARowOfTheFilterList) {
    for (int tab = 0; tab < FindMasks::TabCount; ++tab) {
        EXPECT_FALSE(FindMasks::tabCaption(tab).isEmpty());
        for (const FindMasks::Row& row : FindMasks::rows(tab)) {
            EXPECT_GE(row.filterRow, 0);
            EXPECT_LT(row.filterRow, FileTypes::FilterRowCount) << row.caption.toStdString();
        }
    }
}
