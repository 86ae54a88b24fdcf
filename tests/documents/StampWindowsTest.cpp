#include "documents/AddShape1.h"
#include "documents/AddText1.h"
#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/imaging/PictureView.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class StampWindowsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    ChildFrm1* openPicture() { return h->openDocument(u"photo.png"_s); }
    static QAction* menu(ChildFrm1* child, const char* name) {
        return MainWindowHarness::menu(child, name);
    }
    static QRgb pixel(ChildFrm1* child, int x, int y) {
        return child->Image1->image().pixel(x, y) | 0xFF000000;
    }
    static void click(ChildFrm1* child, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(child->Image1, button, {}, at);
    }
    // Acts on the dialog as it shows, and closes it when the act did not, a failed check
    // included.
    template <class D> static void answer(std::function<void(D*)> act) {
        answerModal<D>([act](D* d) {
            act(d);
            if (d->isVisible())
                d->reject();
        });
    }
    // A closed window goes once the events of its closing have run.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    static int rowOf(QListWidget* list, const QString& name) {
        const QList<QListWidgetItem*> found = list->findItems(name, Qt::MatchExactly);
        return found.isEmpty() ? -1 : list->row(found.first());
    }
    static bool hasColour(const QImage& image) {
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if ((image.pixel(x, y) | 0xFF000000) != qRgb(255, 255, 255))
                    return true;
        return false;
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->folder().writePicture(u"photo.png"_s, QSize(80, 40)); // red left half, blue right
        h->start();
    }

    void cleanup() { h.reset(); }

    void okArmsTheTextEvenWhenEmptyAndEveryLeftClickStampsACopy() {
        ChildFrm1* child = openPicture();
        QVERIFY(child);
        QVERIFY(menu(child, "mnuImageText")->isEnabled());
        bool shown = false;
        answer<AddText1>([&](AddText1* d) {
            shown = true;
            QCOMPARE(d->windowTitle(), u"Add Text to Image"_s);
            QCOMPARE(d->List1->count(), 13);
            QCOMPARE(d->List1->currentItem()->text(), u"TEXTSTYLE_BLOCKSHADOW"_s);
            QVERIFY(d->Text1->text().isEmpty());
            d->CHKRECTANGLE->setChecked(true);
            h->messages().answer(QColor(0, 200, 0));
            d->RectClrBtn->click();
            QTest::keyClick(d->Text1, Qt::Key_Return); // Enter anywhere is OK
        });
        menu(child, "mnuImageText")->trigger();
        QVERIFY(shown);
        QCOMPARE(h->messages().shown().last().title, u"Select Color for Text HiLite"_s);
        QVERIFY(child->DRAW_NOW_FLG);
        QVERIFY(child->PLACETEXT_FLG);
        QCOMPARE(child->DRAWMENU, u"Text"_s);
        QCOMPARE(child->TEXT_STYLE, 6);
        QVERIFY(child->TEXTRECTANGLE_FLG);
        QCOMPARE(child->TEXTRECTANGLE_COLOR, 0x00C800);
        QVERIFY(menu(child, "mnuImageText")->isChecked());
        QVERIFY(!child->mDirty);

        const QRgb red = qRgb(255, 0, 0), green = qRgb(0, 200, 0);
        click(child, QPoint(4, 4));
        QCOMPARE(pixel(child, 7, 7), green);
        click(child, QPoint(24, 4));
        QCOMPARE(pixel(child, 27, 7), green);
        QCOMPARE(pixel(child, 7, 7), green);
        QVERIFY(child->mDirty);
        QVERIFY(child->DRAW_NOW_FLG);

        click(child, QPoint(24, 4), Qt::RightButton);
        QVERIFY(!child->DRAW_NOW_FLG);
        QVERIFY(!menu(child, "mnuImageText")->isChecked());
        const QImage disarmed = child->Image1->image();
        click(child, QPoint(14, 20));
        QCOMPARE(child->Image1->image(), disarmed);
        QCOMPARE(pixel(child, 17, 23), red);
    }

    void theTextLandsAtTheClickInTheNormalAndTheStretchedView() {
        ChildFrm1* child = openPicture();
        QVERIFY(child);
        child->DRAW_TEXT = u"W"_s;
        child->TEXTRECTANGLE_FLG = true;
        child->TEXTRECTANGLE_COLOR = 0x00C800;
        child->DRAWMENU = u"Text"_s;
        child->DRAW_NOW_FLG = true;
        const QRgb green = qRgb(0, 200, 0);
        click(child, QPoint(10, 8));
        QCOMPARE(pixel(child, 12, 10), green);
        QVERIFY(pixel(child, 9, 7) != green);

        menu(child, "mnuViewStretch")->trigger();
        child->resize(child->size() + QSize(80, 40));
        QTRY_COMPARE(child->Image1->size(), QSize(160, 80));
        click(child, QPoint(100, 40));
        QCOMPARE(child->mClickX, 50.0f);
        QCOMPARE(child->mClickY, 20.0f);
        QCOMPARE(pixel(child, 52, 22), green);
        QVERIFY(pixel(child, 49, 19) != green);
    }

    void theFontAndColourButtonsWriteThroughAndCancelArmsNothing() {
        ChildFrm1* child = openPicture();
        QVERIFY(child);
        QCOMPARE(child->TEXT_FONT, u"Ms Sans Serif"_s);
        QCOMPARE(child->TEXTSHADOW_COLOR, qint32(0x8000000FU));
        answer<AddText1>([&](AddText1* d) {
            QFont font(u"DejaVu Serif"_s, 14);
            font.setBold(true);
            font.setItalic(true);
            h->messages().answer(font);
            d->FontBtn->click();
            QCOMPARE(d->Label1[1]->font().family(), u"DejaVu Serif"_s);
            QVERIFY(d->Text1->font().italic());
            h->messages().answer(QColor(255, 0, 0));
            d->TextClrBtn->click();
            QCOMPARE(d->Label1[2]->palette().color(QPalette::WindowText), QColor(255, 0, 0));
            d->ShadClrBtn->click(); // answered with Cancel
            d->Text1->setText(u"not kept"_s);
            d->CancelBtn->click();
        });
        menu(child, "mnuImageText")->trigger();
        QCOMPARE(child->TEXT_FONT, u"DejaVu Serif"_s);
        QCOMPARE(child->TEXT_FONT_SIZE, qint16(14));
        QVERIFY(child->TEXT_FONT_BOLD && child->TEXT_FONT_ITALIC);
        QCOMPARE(child->TEXT_COLOR, 0x0000FF);
        QCOMPARE(child->TEXTSHADOW_COLOR, qint32(0x8000000FU));
        QVERIFY(child->DRAW_TEXT.isEmpty());
        QVERIFY(!child->DRAW_NOW_FLG);
        QVERIFY(child->DRAWMENU.isEmpty());
        QStringList titles;
        for (const RecordingMessages::Shown& shown : h->messages().shown())
            titles.append(shown.kind + u':' + shown.title);
        QCOMPARE(titles, (QStringList{u"font:"_s, u"color:Select Color for Text"_s,
                                      u"color:Select Color for Text Shadow"_s}));
    }

    void theShapeWindowOpensOnArrowBAndCancelKeepsWhatTheBoxesWrote() {
        ChildFrm1* child = openPicture();
        QVERIFY(child);
        QCOMPARE(child->SHAPE, qint16(1000));
        QCOMPARE(child->SHAPE_COLOR, globals().gWindowBackColor);
        QCOMPARE(child->SHAPEBORDER_COLOR, globals().gWindowForeColor);
        bool shown = false;
        answer<AddShape1>([&](AddShape1* d) {
            shown = true;
            QCOMPARE(d->windowTitle(), u"Add Shape to Image"_s);
            QCOMPARE(d->List1->count(), 91);
            QCOMPARE(d->List1->currentRow(), 0);
            QCOMPARE(d->List1->currentItem()->text(), u"ARROW_B"_s);
            QCOMPARE(d->List1->currentItem()->data(Qt::UserRole).toInt(), 11003);
            QCOMPARE(d->Text1[0]->text(), u"100"_s);
            QCOMPARE(d->Text1[1]->text(), u"100"_s);
            QVERIFY(d->RDINSTYLE[1]->isChecked());
            QVERIFY(d->RDOUTSTYLE[2]->isChecked());
            QVERIFY(hasColour(d->Image1->image())); // the sample shows the arrow

            h->messages().answer(QColor(0, 0, 255));
            d->ShapeClrBtn->click();
            QCOMPARE(d->Image1->image().pixel(12, 12) | 0xFF000000, qRgb(0, 0, 255));
            d->Text1[1]->setText(u"abc"_s);
            QCOMPARE(child->SHAPE_WIDTH, 0);
            d->Text1[1]->setText(u"100"_s);
            QCOMPARE(child->SHAPE_WIDTH, 350);
            d->Text1[0]->setText(u" 40 mm"_s);
            QCOMPARE(child->SHAPE_HEIGHT, 140.0);
            d->RDINSTYLE[0]->click();
            d->CancelBtn->click();
        });
        menu(child, "mnuImageShapes")->trigger();
        QVERIFY(shown);
        QCOMPARE(h->messages().shown().last().title, u"Select Color for Object"_s);
        QCOMPARE(child->SHAPE_WIDTH, 350);
        QCOMPARE(child->SHAPE_HEIGHT, 140.0);
        QCOMPARE(child->SHAPE_COLOR, 0xFF0000);
        QCOMPARE(child->SHAPE_INRBAND, qint16(0));
        QCOMPARE(child->SHAPE, qint16(1000));
        QCOMPARE(child->SHAPE_INDEX, qint16(0));
        QCOMPARE(child->DRAWMENU, u"Shape"_s); // whichever button closed the window
        QVERIFY(!child->DRAW_NOW_FLG);
        QVERIFY(!child->PLACEOBJECT_FLG);
        QVERIFY(!menu(child, "mnuImageShapes")->isChecked());
    }

    void okTakesTheListsEntryAndEachClickStampsTheShape() {
        ChildFrm1* child = openPicture();
        QVERIFY(child);
        child->SHAPE_COLOR = 0xFF0000;
        int circle = -1;
        answer<AddShape1>([&](AddShape1* d) {
            circle = rowOf(d->List1, u"CIRCLE"_s);
            d->List1->setCurrentRow(circle);
            d->RDOUTSTYLE[0]->click();
            d->OKBtn->click();
        });
        menu(child, "mnuImageShapes")->trigger();
        QCOMPARE(circle, 16);
        QCOMPARE(child->SHAPE, qint16(7000));
        QCOMPARE(child->SHAPE_INDEX, qint16(16));
        QCOMPARE(child->SHAPE_OUTBAND, qint16(0));
        QVERIFY(child->PLACEOBJECT_FLG);
        QVERIFY(child->DRAW_NOW_FLG);
        QCOMPARE(child->DRAWMENU, u"Shape"_s);
        QVERIFY(menu(child, "mnuImageShapes")->isChecked());

        // A circle of 350 twips: 23 pixels across from the click.
        click(child, QPoint(5, 5));
        QCOMPARE(pixel(child, 16, 16), qRgb(0, 0, 255));
        QCOMPARE(pixel(child, 6, 6), qRgb(255, 0, 0)); // outside the circle, by its corner
        click(child, QPoint(45, 10));
        QCOMPARE(pixel(child, 56, 21), qRgb(0, 0, 255));
        QVERIFY(child->mDirty);

        settle();
        answer<AddShape1>([](AddShape1* d) {
            QCOMPARE(d->List1->currentRow(), 16); // the list opens on the last entry taken
            QVERIFY(d->RDOUTSTYLE[0]->isChecked());
            d->CancelBtn->click();
        });
        menu(child, "mnuImageShapes")->trigger();
    }

    void aTextDocumentOffersShapesButNotText() {
        h->folder().write(u"notes.txt"_s, "text");
        ChildFrm1* text = h->openDocument(u"notes.txt"_s);
        QVERIFY(text);
        QVERIFY(!menu(text, "mnuImageText")->isEnabled());
        QVERIFY(menu(text, "mnuImageShapes")->isEnabled());
        answer<AddShape1>([](AddShape1* d) { d->OKBtn->click(); });
        menu(text, "mnuImageShapes")->trigger();
        QCOMPARE(text->DRAWMENU, u"Shape"_s);
        QVERIFY(text->DRAW_NOW_FLG); // armed, with no picture to click on
    }
};

QTEST_MAIN(StampWindowsTest)
#include "StampWindowsTest.moc"
