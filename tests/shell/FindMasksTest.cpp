#include "shell/FindMasks.h"
#include "platform/FileMask.h"
#include "shell/FileTypes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FindMasks, AllPicturesSearchesNoMovies) {
    const QString mask = FindMasks::choose(FindMasks::Miscellaneous, 0, QString()).mask;
    EXPECT_TRUE(FileMask::matches(mask, u"photo.jpg"_s));
    EXPECT_TRUE(FileMask::matches(mask, u"scan.msp"_s));
    EXPECT_FALSE(FileMask::matches(mask, u"clip.avi"_s));
    EXPECT_FALSE(FileMask::matches(mask, u"song.wav"_s));
    EXPECT_EQ(FindMasks::choose(FindMasks::Miscellaneous, 0, QString()).filterRow, 27);
}

TEST(FindMasks, BlanksAreNoEntryAndAMissingRowGivesNoMask) {
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
