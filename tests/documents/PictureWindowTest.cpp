#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "documents/NewSize1.h"
#include "documents/PictureDialog.h"
#include "platform/Twips.h"
#include "platform/imaging/PictureView.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>

using namespace Qt::StringLiterals;

class PictureWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    static MDIForm1* frame() { return MainWindowHarness::frame(); }
    ChildFrm1* open(const QString& name) { return h->openDocument(name); }
    static QAction* menu(ChildFrm1* child, const char* name) {
        return MainWindowHarness::menu(child, name);
    }
    static QRgb pixel(ChildFrm1* child, int x, int y) {
        return child->Image1->image().pixel(x, y) | 0xFF000000;
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->folder().writePicture(u"photo.png"_s, QSize(40, 30));
        h->start();
    }

    void cleanup() { h.reset(); }

    void aPictureOpensAtItsSizeWithItsNumbers() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        QCOMPARE(child->FILE_TYPE, u"I"_s);
        QCOMPARE(child->Image1->image().size(), QSize(40, 30));
        QCOMPARE(child->widget()->size(), QSize(40, 30));
        QCOMPARE(child->pos(), QPoint(0, 0));
        QCOMPARE(child->Image1->paintSizeMode(), int(PictureView::Normal));
        QVERIFY(menu(child, "mnuViewNormal")->isChecked());
        QVERIFY(!menu(child, "mnuViewStretch")->isChecked());
        QVERIFY(!menu(child, "mnuViewTable")->isEnabled());
        QVERIFY(menu(child, "mnuImageRotate")->isEnabled());
        QCOMPARE(frame()->statusLabel(1)->text(), u"40 x 30"_s);
        QCOMPARE(frame()->statusLabel(2)->text(), u"24 Bitmap Bits"_s);
        QVERIFY(!child->mDirty);
    }

    void aStretchedPictureAsksToSaveButADoubleClickedOneDoesNot() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        QTest::mouseDClick(child->Image1, Qt::LeftButton);
        QVERIFY(child->mStretch);
        QCOMPARE(child->Image1->paintSizeMode(), int(PictureView::Stretch));
        QVERIFY(menu(child, "mnuViewStretch")->isChecked());
        QVERIFY(!child->mDirty);
        QTest::mouseDClick(child->Image1, Qt::LeftButton);
        QVERIFY(!child->mStretch);
        child->close();
        QVERIFY(h->messages().shown().isEmpty());

        child = open(u"photo.png"_s);
        QVERIFY(child);
        menu(child, "mnuViewStretch")->trigger();
        QVERIFY(child->mDirty);
        QVERIFY(child->mStretch);
        menu(child, "mnuViewNormal")->trigger();
        QVERIFY(!child->mStretch);
        QVERIFY(child->mDirty);
        h->messages().answer(false);
        child->close();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Do You want to Save Changes to the Picture?"_s});
        QCOMPARE(h->messages().shown().first().kind, u"askYesNo"_s);
    }

    void resizeKeepsTheAspectAndCancelLeavesThePictureAlone() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        auto answer = [](std::function<void(NewSize1*)> act) { answerModal<NewSize1>(act); };
        answer([](NewSize1* d) { d->findChild<QPushButton*>(u"CancelBtn"_s)->click(); });
        menu(child, "mnuImageResize")->trigger();
        QCOMPARE(child->Image1->image().size(), QSize(40, 30));
        QVERIFY(!child->mDirty);

        answer([](NewSize1* d) {
            d->widthText()->setText(u"80"_s);
            d->findChild<QPushButton*>(u"OKBtn"_s)->click();
        });
        menu(child, "mnuImageResize")->trigger();
        QCOMPARE(child->Image1->image().size(), QSize(80, 60));
        QVERIFY(child->mDirty);
        QVERIFY(menu(child, "mnuViewNormal")->isChecked());
    }

    void brightnessAndRotateApplyTheirDialogsValues() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        auto answer = [](std::function<void(PictureDialog*)> act) {
            answerModal<PictureDialog>(act);
        };
        answer([](PictureDialog* d) {
            d->setValue(200);
            QVERIFY(qGreen(d->previewImage().pixel(0, 0)) > 40); // the preview follows
            d->reject();
        });
        menu(child, "mnuImageBrightness")->trigger();
        QCOMPARE(pixel(child, 0, 0), qRgb(255, 0, 0));
        QVERIFY(!child->mDirty);

        answer([](PictureDialog* d) {
            d->setValue(200);
            d->accept();
        });
        menu(child, "mnuImageBrightness")->trigger();
        QCOMPARE(pixel(child, 0, 0), qRgb(255, 51, 51));
        QVERIFY(child->mDirty);

        menu(child, "mnuViewStretch")->trigger();
        answer([](PictureDialog* d) {
            d->setAngle(9000);
            d->accept();
        });
        menu(child, "mnuImageRotate")->trigger();
        QCOMPARE(child->Image1->image().size(), QSize(30, 40));
        QVERIFY(!child->mStretch); // a rotated picture shows at its natural size
        QVERIFY(menu(child, "mnuViewNormal")->isChecked());
    }

    void textDocumentsShowPlainAndRichText() {
        h->folder().write(u"notes.txt"_s, "first line\r\nsecond line: caf\xc3\xa9\r\n");
        h->folder().write(u"letter.rtf"_s,
                          "{\\rtf1\\ansi{\\fonttbl\\f0\\fswiss Helvetica;}\\f0\\pard "
                          "Dear {\\b friend}.\\par}");
        ChildFrm1* text = open(u"notes.txt"_s);
        QVERIFY(text);
        QCOMPARE(text->FILE_TYPE, u"T"_s);
        QVERIFY(text->Text1);
        QVERIFY(text->Text1->isReadOnly());
        QCOMPARE(text->Text1->toPlainText(), u"first line\nsecond line: café\n"_s);
        QCOMPARE(text->size(), QSize(Twips::toPixels(6500), Twips::toPixels(4000)));
        QVERIFY(!menu(text, "mnuViewNormal")->isEnabled());

        ChildFrm1* rich = open(u"letter.rtf"_s);
        QVERIFY(rich);
        QCOMPARE(rich->mExt, u"RTF"_s);
        QVERIFY(rich->Text1->toPlainText().contains(u"Dear friend."_s));
        QTextCursor cursor = rich->Text1->document()->find(u"friend"_s);
        QVERIFY(!cursor.isNull());
        QVERIFY(cursor.charFormat().fontWeight() >= QFont::Bold);
        rich->close();
        QVERIFY(h->messages().shown().isEmpty()); // a text never asks to save
    }

    void anUnreadableTextLeavesAnEmptyWindow() {
        QDir(h->folder().path()).mkdir(u"folder.txt"_s);
        ChildFrm1* text = open(u"folder.txt"_s);
        QVERIFY(text);
        QCOMPARE(text->FILE_TYPE, u"T"_s);
        QVERIFY(text->Text1->toPlainText().isEmpty());
        QCOMPARE(frame()->mChildCount, qint16(1));
        QVERIFY(h->messages().shown().isEmpty());
    }

    void printAsksToSaveAChangedPictureInPlace() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        menu(child, "mnuImageReverse")->trigger();
        h->messages().answer(false);
        menu(child, "mnuFilePrint")->trigger();
        QVERIFY(child->mDirty); // a refusal keeps the change pending
        QCOMPARE(globals().gCallerTag, u"M"_s);
        QCOMPARE(globals().gPrintFile, u"photo.png"_s);
        QCOMPARE(globals().gPrintFolder, h->folder().path());

        h->messages().answer(true);
        menu(child, "mnuFilePrint")->trigger();
        QVERIFY(!child->mDirty);
        const QImage onDisk(h->folder().file(u"photo.png"_s));
        QCOMPARE(onDisk.pixel(0, 0) | 0xFF000000, qRgb(0, 0, 255)); // saved reversed
        QCOMPARE(h->messages().shown().size(), 2);
    }

    void copyOnAPictureOnlyExplains() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        menu(child, "mnuEditCopy")->trigger();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"You can only Copy Text for Pasting into Text Box to Add Text to a "
                             u"Picture"_s});
    }

    void theSpaceBarBringsTheBrowserBack() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        QTest::keyClick(child, Qt::Key_Space);
        QVERIFY(QTest::qWaitForWindowActive(h->window()));
        QCOMPARE(frame()->mChildCount, qint16(1));
    }

    void aRightClickDisarmsADraw() {
        ChildFrm1* child = open(u"photo.png"_s);
        QVERIFY(child);
        child->DRAW_NOW_FLG = true;
        menu(child, "mnuImageText")->setChecked(true);
        QTest::mouseClick(child->Image1, Qt::LeftButton, {}, QPoint(10, 5));
        QCOMPARE(child->mClickX, 10.0f);
        QCOMPARE(child->mRoomRight, qint16(30));
        QCOMPARE(child->mRoomDown, qint16(25));
        QTest::mouseClick(child->Image1, Qt::RightButton, {}, QPoint(10, 5));
        QVERIFY(!child->DRAW_NOW_FLG);
        QVERIFY(!menu(child, "mnuImageText")->isChecked());
    }

    void theTextFollowsItsWindowAndKeepsItsHeightInALowWindow() {
        h->folder().write(u"notes.txt"_s, "text");
        ChildFrm1* text = open(u"notes.txt"_s);
        QVERIFY(text);
        // Within a pixel, for the rounding of twips to pixels.
        const auto near = [](int pixels, double twips) {
            return qAbs(pixels - Twips::toPixels(twips)) <= 1;
        };
        QVERIFY(near(text->Text1->width(), 6400));
        QVERIFY(near(text->Text1->height(), 4000 - 420));
        const int kept = text->Text1->height();
        text->resize(Twips::toPixels(3000), Twips::toPixels(300));
        QVERIFY(near(text->Text1->width(), 2900));
        QCOMPARE(text->Text1->height(), kept);
    }
};

QTEST_MAIN(PictureWindowTest)
#include "PictureWindowTest.moc"
