#include "documents/MDIForm1.h"
#include "documents/ChildFrm1.h"
#include "platform/Twips.h"
#include "support/MainWindowHarness.h"
#include "support/StandIn.h"

#include <QAction>
#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QTimer>

#include <map>

using namespace Qt::StringLiterals;

class MDIForm1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    static MDIForm1* frame() { return MainWindowHarness::frame(); }

    // Displays a file from the main window as a double click would, and waits for its window.
    void display(const QString& name) { QVERIFY(h->openDocument(name)); }
    static QList<int> enabledButtons() { return MainWindowHarness::enabledButtons(); }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->folder().write(u"notes.txt"_s, "data");
        // Real tables: a workbook of two sheets, and a dBASE table with two indexes.
        const QDir tables(QStringLiteral(QUORVANE_GENERATED_TABLES));
        for (const char* name : {"BOOK.XLS", "ITEMS.DBF", "itemname.ndx", "itemstock.ndx"})
            QFile::copy(tables.filePath(QString::fromLatin1(name)),
                        h->folder().file(QString::fromLatin1(name)));
        h->folder().writePicture(u"x.jpg"_s);
        h->start();
    }

    void cleanup() { h.reset(); }

    void anEmptyFrameOffersOpenAndHelpOnly() {
        auto* f = WindowRegistry::get<MDIForm1>();
        f->show();
        QVERIFY(globals().gFrameOpen);
        QTRY_COMPARE(f->windowTitle(), u"Quorvane 2.5"_s);
        QCOMPARE(enabledButtons(), (QList<int>{1, 19, 20}));
        f->DisableButtons();
        QCOMPARE(enabledButtons(), QList<int>{20}); // Help stays
        QVERIFY(f->button(19)->isSeparator());
        QCOMPARE(f->menuBar()->actions().size(), 3);
    }

    void closeWithoutADocumentClosesTheFrame() {
        auto* f = WindowRegistry::get<MDIForm1>();
        f->show();
        // With no document the button closes the frame itself.
        QAction* closeButton = f->button(FrameButtons::numberOf(u"Close"_s));
        closeButton->setEnabled(true);
        closeButton->trigger();
        QTRY_VERIFY(!frame());
        QVERIFY(!globals().gFrameOpen);
        QVERIFY(h->window()->isVisible());
    }

    void eachKindChoosesItsButtonsWhateverCameBefore() {
        // Table (12) for a file of several tables, Index (13) for a table with indexes, the
        // picture commands for a picture only.
        const std::pair<const char16_t*, QList<int>> kinds[] = {
            {u"notes.txt", {1, 2, 3, 4, 5, 6, 7, 8, 10, 19, 20}},
            {u"ITEMS.DBF", {1, 2, 3, 4, 5, 6, 7, 8, 10, 13, 19, 20}},
            {u"BOOK.XLS", {1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 19, 20}},
            {u"x.jpg", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16, 17, 18, 19, 20}}};
        for (const auto& [name, buttons] : kinds) {
            display(QString::fromUtf16(name));
            QCOMPARE(enabledButtons(), buttons);
        }
        // The document's own menus take the place of the frame's.
        QCOMPARE(frame()->menuBar()->actions().size(), 7);
    }

    void closingTheLastDocumentRestoresTheEmptyFrame() {
        display(u"x.jpg"_s);
        display(u"notes.txt"_s);
        frame()->activeChild()->mnuFileClose_Click();
        QCOMPARE(frame()->mChildCount, qint16(1));
        frame()->activeChild()->close();
        QCOMPARE(frame()->mChildCount, qint16(0));
        QCOMPARE(frame()->windowTitle(), u"Quorvane 2.5"_s);
        for (int i = 0; i < 4; ++i)
            QVERIFY(frame()->statusLabel(i)->text().isEmpty());
        QCOMPARE(enabledButtons(), (QList<int>{1, 19, 20}));
        QVERIFY(globals().gFrameOpen);
    }

    void buttonsThatStayDownAndButtonsThatLift() {
        display(u"x.jpg"_s);
        QAction* normal = frame()->button(14);
        QAction* copy = frame()->button(10);
        normal->trigger();
        QVERIFY(normal->isChecked());
        copy->trigger();
        QVERIFY(!copy->isChecked());
    }

    void aLongPathGetsATallerStrip() {
        // Paths of 40 and 41 characters.
        const QString folder = h->folder().path() + u'/';
        QVERIFY(folder.size() < 34);
        const QString shortName = QString(40 - folder.size() - 4, u'a') + u".txt"_s;
        const QString longName = QString(41 - folder.size() - 4, u'b') + u".txt"_s;
        h->folder().write(shortName, "x");
        h->folder().write(longName, "x");
        display(shortName);
        QCOMPARE(frame()->statusStrip()->height(), Twips::toPixels(375));
        QCOMPARE(frame()->statusLabel(0)->text(), folder + shortName);
        display(longName);
        QCOMPARE(frame()->statusStrip()->height(), Twips::toPixels(550));
        QCOMPARE(frame()->statusLabel(1)->height(), Twips::toPixels(460));
        QVERIFY(frame()->statusLabel(0)->text().contains(u"/ "_s));
        QCOMPARE(frame()->statusLabel(0)->toolTip(), folder + longName);
    }

    void theFramesGeometryIsSavedOnlyWhileItIsOpen() {
        display(u"x.jpg"_s);
        frame()->move(300, 40);
        h->window()->SetWinSizeVariables();
        QCOMPARE(globals().gFrameLeft, 4500.0);
        QCOMPARE(globals().gFrameTop, 600.0);
        frame()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!globals().gFrameOpen);
        h->window()->SetWinSizeVariables();
        QCOMPARE(globals().gFrameLeft, 4500.0);
    }

    void tileHorizontallyMakesRowsAndTileVerticallyColumns() {
        display(u"x.jpg"_s);
        display(u"notes.txt"_s);
        const QList<ChildFrm1*> children = frame()->children();
        QCOMPARE(children.size(), 2);
        const QRect area = frame()->workspace()->viewport()->rect();
        MainWindowHarness::menu(frame()->activeChild(), "mnuWindowTileHorz")->trigger();
        for (ChildFrm1* child : children)
            QCOMPARE(child->width(), area.width());
        QCOMPARE(children[1]->y(), children[0]->y() + children[0]->height());
        MainWindowHarness::menu(frame()->activeChild(), "mnuWindowTileVert")->trigger();
        for (ChildFrm1* child : children)
            QCOMPARE(child->height(), area.height());
        QCOMPARE(children[1]->x(), children[0]->x() + children[0]->width());
    }

    void everyOpenOpensAfterOneThatFailed() {
        h->folder().writePicture(u"y.jpg"_s);
        h->folder().write(u"broken.jpg"_s, "not a picture at all");
        display(u"x.jpg"_s);
        h->activateMain();
        // While the failure's box is up, the desktop hands the focus back to the main window.
        h->messages().whileNextBoxShows([&] { h->activateMain(); });
        h->window()->DisplayImage(h->folder().file(u"broken.jpg"_s));
        QTRY_COMPARE(h->messages().texts(),
                     QStringList{u"Error Occurred - Could not Load Picture or Image"_s});
        QTRY_COMPARE(frame()->mChildCount, qint16(1));
        QVERIFY(!frame()->mLoadFailed);
        // File > Open File of the main window, answered with a good picture.
        h->activateMain();
        h->messages().answer(h->folder().file(u"y.jpg"_s));
        h->window()->findChild<QAction*>(u"mnuFileOpen"_s)->trigger();
        QTRY_COMPARE(frame()->mChildCount, qint16(2));
        QTRY_VERIFY(frame()->activeChild());
        QCOMPARE(frame()->activeChild()->windowTitle(), h->folder().file(u"y.jpg"_s));
    }

    void theFramesAndTheDocumentsCommandsReachTheirWindowsByName() {
        std::map<QString, StandIn*> made;
        const QStringList names = {u"ThumBrow1"_s, u"ProPert1"_s, u"SetFoldr1"_s, u"SetColor1"_s,
                                   u"SetOptns1"_s, u"QuikTip1"_s, u"About1"_s};
        for (const QString& name : names) {
            WindowRegistry::setFactory(name, [&made, name] {
                auto* window = new StandIn;
                made[name] = window;
                return window;
            });
        }
        display(u"x.jpg"_s);
        ChildFrm1* child = frame()->activeChild();
        const auto frameCommand = [this](const char* name) {
            return frame()->findChild<QAction*>(QString::fromLatin1(name));
        };
        const struct {
            QAction* command;
            QString window;
        } cases[] = {
            {MainWindowHarness::menu(child, "mnuViewThumbNails"), u"ThumBrow1"_s},
            {MainWindowHarness::menu(child, "mnuFileProptee"), u"ProPert1"_s},
            {MainWindowHarness::menu(child, "mnuUtilitiesFoldr"), u"SetFoldr1"_s},
            {MainWindowHarness::menu(child, "mnuUtilitiesColor"), u"SetColor1"_s},
            {MainWindowHarness::menu(child, "mnuUtilitiesOptions"), u"SetOptns1"_s},
            {MainWindowHarness::menu(child, "mnuHelpQuikTips"), u"QuikTip1"_s},
            {MainWindowHarness::menu(child, "mnuAbout"), u"About1"_s},
            {frameCommand("mnuUtilitiesSetFoldr"), u"SetFoldr1"_s},
            {frameCommand("mnuUtilitiesColor"), u"SetColor1"_s},
            {frameCommand("mnuUtilitiesOptions"), u"SetOptns1"_s},
            {frameCommand("mnuHelpQuikTips"), u"QuikTip1"_s},
            {frameCommand("mnuAbout"), u"About1"_s},
        };
        for (const auto& c : cases) {
            QVERIFY2(c.command, qPrintable(c.window));
            const int before = made.count(c.window) ? made[c.window]->shows : 0;
            c.command->trigger();
            QVERIFY2(made.count(c.window), qPrintable(c.window));
            QCOMPARE(made[c.window]->shows, before + 1);
            made[c.window]->hide();
        }
        QCOMPARE(globals().gCallerTag, u"M"_s);
        QCOMPARE(globals().gOpenFile, h->folder().file(u"x.jpg"_s));

        // Printer Setup goes to the common printer dialog, from the document and the browser.
        MainWindowHarness::menu(child, "mnuFilePrinter")->trigger();
        h->window()->findChild<QAction*>(u"mnuFilePrintSetup"_s)->trigger();
        QCOMPARE(h->messages().shown().size(), 2);
        for (const RecordingMessages::Shown& shown : h->messages().shown())
            QCOMPARE(shown.kind, u"printer"_s);
        for (const QString& name : names)
            WindowRegistry::setFactory(name, nullptr);
        for (const auto& [name, window] : made)
            delete window;
    }
};

QTEST_MAIN(MDIForm1Test)
#include "MDIForm1Test.moc"
