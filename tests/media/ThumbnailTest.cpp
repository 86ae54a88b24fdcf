#include "media/ThumbnailCache.h"
#include "media/ThumbnailGenerator.h"
#include "media/ThumbnailMaker.h"
#include "support/TempFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

// A cache of the test's own, in place of the user's.
class ThumbnailFixture : public ::testing::Test {
protected:
    void SetUp() override {
        m_oldCache = qgetenv("XDG_CACHE_HOME");
        qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
    }
    void TearDown() override { qputenv("XDG_CACHE_HOME", m_oldCache); }

    TempFolder cache;
    TempFolder pictures;

private:
    QByteArray m_oldCache;
};

const QSize kBox(115, 115);

} // namespace

TEST_F(ThumbnailFixture, AThumbnailIsMadeOnceThenReadFromTheCacheUntilThePictureChanges) {
    pictures.writePicture(u"big photo.jpg"_s, QSize(2000, 1500));
    const QString photo = pictures.file(u"big photo.jpg"_s);
    const ThumbnailMaker::Made first = ThumbnailMaker::make(photo, kBox, 24);
    ASSERT_FALSE(first.error);
    EXPECT_FALSE(first.fromCache);
    EXPECT_EQ(first.image.size(), QSize(115, 86));

    // The cache file follows the shared layout, so that other programs find it.
    const QString cached = ThumbnailCache::pathFor(photo, 115);
    EXPECT_TRUE(cached.startsWith(cache.path() + u"/thumbnails/normal/"_s));
    const QImage kept(cached);
    EXPECT_TRUE(kept.text(u"Thumb::URI"_s).endsWith(u"/big%20photo.jpg"_s));
    EXPECT_EQ(kept.size(), QSize(128, 96));

    const ThumbnailMaker::Made again = ThumbnailMaker::make(photo, kBox, 24);
    EXPECT_TRUE(again.fromCache);
    EXPECT_EQ(again.image.size(), QSize(115, 86));

    QFile file(photo);
    file.open(QIODevice::ReadWrite);
    file.setFileTime(QFileInfo(photo).lastModified().addSecs(60),
                     QFileDevice::FileModificationTime);
    file.close();
    EXPECT_FALSE(ThumbnailMaker::make(photo, kBox, 24).fromCache);
}

TEST_F(ThumbnailFixture, ACacheThatCannotBeWrittenStillGivesThumbnails) {
    // A file where the cache folder should be: no folder can be made under it, even as root.
    cache.write(u"blocked"_s, "x");
    qputenv("XDG_CACHE_HOME", cache.file(u"blocked"_s).toUtf8());
    pictures.writePicture(u"photo.png"_s, QSize(400, 300));
    for (int run = 0; run < 2; ++run) {
        const ThumbnailMaker::Made made =
            ThumbnailMaker::make(pictures.file(u"photo.png"_s), kBox, 24);
        EXPECT_FALSE(made.error);
        EXPECT_FALSE(made.fromCache);
        EXPECT_EQ(made.image.size(), QSize(115, 86));
    }
}

TEST_F(ThumbnailFixture, LargeDamagedOrMissingFilesGetNoThumbnailAndDamageIsRemembered) {
    pictures.write(u"huge.bmp"_s, QByteArray(ThumbnailMaker::SizeLimit + 1, 'B'));
    pictures.write(u"broken.jpg"_s, QByteArray("\xFF\xD8\xFF\xE0garbage", 12));
    for (const QString& name : {u"huge.bmp"_s, u"broken.jpg"_s, u"gone.png"_s}) {
        const ThumbnailMaker::Made made = ThumbnailMaker::make(pictures.file(name), kBox, 24);
        EXPECT_TRUE(made.error) << name.toStdString();
        EXPECT_TRUE(made.image.isNull()) << name.toStdString();
    }
    EXPECT_TRUE(ThumbnailCache::hasFailed(pictures.file(u"broken.jpg"_s)));
    EXPECT_FALSE(ThumbnailCache::hasFailed(pictures.file(u"huge.bmp"_s)));
}

TEST_F(ThumbnailFixture, EveryDepthOfTheTableHoldsNoMoreColoursThanItsBits) {
    QImage gradient(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            gradient.setPixel(x, y, qRgb(x * 4, y * 4, (x + y) * 2));
    for (int bits : ThumbnailMaker::Depths) {
        const QImage reduced = ThumbnailMaker::withDepth(gradient, bits);
        std::set<QRgb> colours;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                colours.insert(reduced.pixel(x, y));
        EXPECT_LE(colours.size(), bits >= 24 ? 4096u : (1u << std::min(bits, 16))) << bits;
        EXPECT_GE(colours.size(), bits == 1 ? 2u : 4u) << bits;
    }
}

TEST_F(ThumbnailFixture, AFolderIsDeliveredExtensionByExtensionAndAStopAnswersAtOnce) {
    for (const char* name : {"b.tif", "a.TIF", "z.jpg", "c.JPG", "notes.txt"})
        pictures.writePicture(QString::fromLatin1(name));
    ThumbnailGenerator generator;
    QStringList delivered;
    QList<int> ends;
    QObject::connect(&generator, &ThumbnailGenerator::made,
                     [&](const QString& path, const QImage&, bool) {
                         delivered.append(QFileInfo(path).fileName());
                         if (delivered.size() == 3)
                             generator.stop();
                     });
    QObject::connect(&generator, &ThumbnailGenerator::finished, [&](int end) { ends.append(end); });
    const auto run = [&](const QString& folder) {
        delivered.clear();
        ends.clear();
        generator.start(folder, {kBox, 24, {u"JPG"_s, u"TIF"_s}});
        QElapsedTimer waited;
        waited.start();
        while (ends.isEmpty() && waited.elapsed() < 20000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    };
    run(pictures.path());
    EXPECT_EQ(delivered, (QStringList{u"c.JPG"_s, u"z.jpg"_s, u"a.TIF"_s}));
    EXPECT_EQ(ends, QList<int>{ThumbnailGenerator::Stopped});

    TempFolder empty;
    run(empty.path());
    EXPECT_TRUE(delivered.isEmpty());
    EXPECT_EQ(ends, QList<int>{ThumbnailGenerator::NothingMatched});
}
