#include "media/ThumBrow1.h"
#include "media/ThumbnailGenerator.h"
#include "media/ThumbnailMaker.h"
#include "support/MainWindowHarness.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

// The thumbnail browser over the main window's folder, with a thumbnail cache of its own.
class ThumBrow1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;
    std::unique_ptr<TempFolder> cache;
    QByteArray oldCache;

    QPointer<ThumBrow1> open() {
        h->start();
        WindowRegistry::show(ThumBrow1::WindowName());
        return qobject_cast<ThumBrow1*>(WindowRegistry::find(ThumBrow1::WindowName()));
    }

private Q_SLOTS:
    void init() {
        cache = std::make_unique<TempFolder>();
        oldCache = qgetenv("XDG_CACHE_HOME");
        qputenv("XDG_CACHE_HOME", cache->path().toUtf8());
        h = std::make_unique<MainWindowHarness>();
    }
    void cleanup() {
        h.reset();
        qputenv("XDG_CACHE_HOME", oldCache);
    }

    void jpegsComeFirstTooLargeFilesAreLeftOutAndAClickShowsThePicture() {
        for (const char* name : {"b.tif", "z.jpg", "a.JPG"})
            h->folder().writePicture(QString::fromLatin1(name), QSize(300, 200));
        h->folder().write(u"huge.bmp"_s, QByteArray(ThumbnailMaker::SizeLimit + 1, 'B'));
        QPointer<ThumBrow1> window = open();
        QTRY_VERIFY(!window->Busy && window->mCount > 0);
        QStringList names;
        for (int i = 0; i < window->ImagList1->count(); ++i)
            names.append(window->ImagList1->item(i)->text());
        QCOMPARE(names, (QStringList{u"a.JPG"_s, u"z.jpg"_s, u"b.tif"_s}));
        QVERIFY(window->ImagList1->isVisible() && !window->Frame1->isVisible());

        window->ImagList1_Click(2);
        QTRY_VERIFY(h->frame() && h->frame()->mChildCount == 1);
        QCOMPARE(h->frame()->activeChild()->windowTitle(), h->folder().file(u"b.tif"_s));
    }

    void stopKeepsWhatWasMadeAnotherRunReadsItFromTheCacheAndCancelCloses() {
        for (int i = 0; i < 40; ++i)
            h->folder().writePicture(u"p%1.png"_s.arg(i, 2, 10, QChar(u'0')), QSize(400, 300));
        QPointer<ThumBrow1> window = open();
        int fromCache = 0;
        bool stopOnFirst = true;
        connect(window->Thumb1, &ThumbnailGenerator::made, this,
                [&](const QString&, const QImage&, bool cached) {
                    fromCache += cached ? 1 : 0;
                    if (std::exchange(stopOnFirst, false))
                        window->StopBtn->click();
                });
        QTRY_VERIFY(!window->Busy && window->mCount > 0);
        const int made = window->mCount;
        QVERIFY(made < 40);
        window->ImagList1_Click(0);
        QTRY_VERIFY(h->frame() && h->frame()->mChildCount == 1);

        window->OKBtn->click();
        QTRY_VERIFY(!window->Busy);
        QCOMPARE(window->mCount, 40);
        // What was made before the stop, and what was being made ahead, comes from the cache.
        QVERIFY(fromCache >= made);

        connect(window->Thumb1, &ThumbnailGenerator::made, window->CancelBtn, &QPushButton::click);
        window->OKBtn->click();
        QTRY_VERIFY(!window);
    }

    void aFolderWithoutPicturesSaysSoAndCancelCloses() {
        QPointer<ThumBrow1> window = open();
        QTRY_VERIFY(window->Frame1->isVisible());
        QVERIFY(!window->ImagList1->isVisible());
        QCOMPARE(window->Label1->text(), u"No Pictures in Folder to Display"_s);
        window->CancelBtn->click();
        QTRY_VERIFY(!window);
        QVERIFY(!globals().gThumBrowOpen);
    }
};

QTEST_MAIN(ThumBrow1Test)
#include "ThumBrow1Test.moc"
