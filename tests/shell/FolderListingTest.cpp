#include "shell/FolderListing.h"

#include "shell/FileTypes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QStringList names(const FolderListing& listing) {
    QStringList result;
    for (int i = 0; i < listing.count(); ++i)
        result.append(listing.entry(i).name);
    return result;
}
} // namespace

TEST(FolderListing, FoldersComeFirstThenFilesEachByName) {
    TempFolder dir;
    for (const char* name : {"b.jpg", "A.TXT", "CATALOG", "c.Jpg", ".secret"})
        dir.write(QString::fromLatin1(name), "x");
    QDir(dir.path()).mkdir(u"zeta"_s);
    QDir(dir.path()).mkdir(u"Alpha"_s);
    FolderListing listing;
    ASSERT_TRUE(listing.read(dir.path()));
    EXPECT_EQ(names(listing), (QStringList{u"Alpha"_s, u"zeta"_s, u"A.TXT"_s, u"b.jpg"_s,
                                           u"c.Jpg"_s, u"CATALOG"_s}));
    EXPECT_TRUE(listing.entry(0).isFolder);
    EXPECT_FALSE(listing.entry(2).isFolder);
    EXPECT_EQ(listing.path(3), dir.file(u"b.jpg"_s));
    EXPECT_EQ(listing.indexOfName(u"CATALOG"_s), 5);
}

TEST(FolderListing, TheMaskFiltersFilesButNeverFolders) {
    TempFolder dir;
    for (const char* name : {"b.jpg", "A.TXT", "CATALOG", "c.Jpg", "d.cmp", "e.jpeg"})
        dir.write(QString::fromLatin1(name), "x");
    QDir(dir.path()).mkdir(u"sub.jpg.d"_s);
    FolderListing listing;
    listing.read(dir.path());
    listing.setMask(FileTypes::filterRows()[0].mask);
    EXPECT_EQ(names(listing), (QStringList{u"sub.jpg.d"_s, u"b.jpg"_s, u"c.Jpg"_s, u"d.cmp"_s}));
    listing.setMask(FileTypes::filterRows()[31].mask);
    EXPECT_EQ(names(listing), (QStringList{u"sub.jpg.d"_s, u"A.TXT"_s, u"CATALOG"_s}));
    listing.setMask(u"*.*"_s);
    EXPECT_EQ(listing.count(), 7);
    // A new read keeps the mask.
    dir.write(u"new.txt"_s, "x");
    listing.setMask(u"*.TXT"_s);
    listing.read(dir.path());
    EXPECT_EQ(names(listing), (QStringList{u"sub.jpg.d"_s, u"A.TXT"_s, u"new.txt"_s}));
}

TEST(FolderListing, AFolderThatCannotBeReadListsNothing) {
    TempFolder dir;
    FolderListing listing;
    EXPECT_FALSE(listing.read(dir.file(u"missing"_s)));
    EXPECT_EQ(listing.count(), 0);
    EXPECT_EQ(listing.indexOfName(u"x"_s), -1);
}

TEST(FolderListing, LettersBeyondAsciiAndLinkedFoldersSortAsTheyShow) {
    TempFolder dir;
    for (const QString& name :
         {u"zebra.txt"_s, u"\u00C4rger.txt"_s, u"apfel.txt"_s, u"b"_s, u"B"_s, u"\u00C9mile.jpg"_s,
          u"\u00E9clair.JPG"_s, u"file000010.jpg"_s, u"file000009.jpg"_s, u"FILE000009.jpg"_s})
        dir.write(name, "x");
    QDir(dir.path()).mkdir(u"real"_s);
    QFile::link(dir.file(u"real"_s), dir.file(u"linked"_s));
    FolderListing listing;
    ASSERT_TRUE(listing.read(dir.path()));
    EXPECT_EQ(names(listing), (QStringList{u"linked"_s, u"real"_s, u"apfel.txt"_s, u"B"_s, u"b"_s,
                                           u"FILE000009.jpg"_s, u"file000009.jpg"_s,
                                           u"file000010.jpg"_s, u"zebra.txt"_s, u"\u00C4rger.txt"_s,
                                           u"\u00E9clair.JPG"_s, u"\u00C9mile.jpg"_s}));
    listing.setMask(u"*.JPG;*LAIR.jpg"_s);
    EXPECT_EQ(names(listing),
              (QStringList{u"linked"_s, u"real"_s, u"FILE000009.jpg"_s, u"file000009.jpg"_s,
                           u"file000010.jpg"_s, u"\u00E9clair.JPG"_s, u"\u00C9mile.jpg"_s}));
}
