#include "shell/FolderListing.h"

#include "shell/FileTypes.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <fcntl.h>
#include <unistd.h>

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

TEST(FolderListing, NamesOutsideAsciiSortAsTheirText) {
    // Mixed case, accents, Cyrillic, Greek, the Kelvin sign, a character outside the BMP, and
    // ASCII names alike in their first eight characters.
    const QStringList written =
        u"\u00e9cole/Ecole/ecole2/zebra/\u00c4rger/apple/APPLE/\u00c9mile/\u00df/ss/_x/Z/"
        u"\u0444\u0430\u0439\u043b/\u0424\u0430\u0439\u043b2/a\u212a/ak/aL/file00012345.jpg/"
        u"FILE00012345.JPG/file0001234.jpg/\u03a9mega/\u03c9MEGA/\u03c9mega2/\U0001f600smile/"
        u"\U0001f600/\u00e9\u00e9\u00e9\u00e9x/\u00c9\u00c9\u00c9\u00c9X"_s.split(u'/');
    TempFolder dir;
    for (const QString& name : written)
        dir.write(name, "x");
    QStringList expected = written;
    std::sort(expected.begin(), expected.end(), [](const QString& a, const QString& b) {
        const int byName = a.compare(b, Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a < b;
    });
    FolderListing listing;
    ASSERT_TRUE(listing.read(dir.path()));
    EXPECT_EQ(names(listing), expected);
}

TEST(FolderListing, LinksCountAsWhatTheyPointTo) {
    TempFolder dir;
    QDir(dir.path()).mkdir(u"real"_s);
    dir.write(u"plain.txt"_s, "x");
    QFile::link(dir.file(u"real"_s), dir.file(u"linked"_s));
    QFile::link(dir.file(u"plain.txt"_s), dir.file(u"shortcut.txt"_s));
    QFile::link(dir.file(u"missing"_s), dir.file(u"broken"_s));
    FolderListing listing;
    listing.setMask(u"*.TXT"_s);
    listing.read(dir.path());
    EXPECT_EQ(names(listing),
              (QStringList{u"linked"_s, u"real"_s, u"plain.txt"_s, u"shortcut.txt"_s}));
    EXPECT_TRUE(listing.isFolder(0));
    EXPECT_FALSE(listing.isFolder(3));
}

TEST(FolderListing, FindsANameThatIsNotUtf8) {
    TempFolder dir;
    const QByteArray bytes = QFile::encodeName(dir.path()) + "/bad\xff.txt";
    ::close(::open(bytes.constData(), O_CREAT | O_WRONLY, 0644));
    dir.write(u"good.txt"_s, "x");
    FolderListing listing;
    listing.read(dir.path());
    ASSERT_EQ(listing.count(), 2);
    EXPECT_EQ(listing.indexOfName(listing.name(0)), 0);
    EXPECT_EQ(listing.indexOfName(u"good.txt"_s), 1);
}
