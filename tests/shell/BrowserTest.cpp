#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/TextFile.h"
#include "platform/Twips.h"
#include "platform/imaging/PictureView.h"
#include "shell/FileListModel.h"
#include "shell/QuikPict1.h"
#include "shell/ShellList.h"
#include "support/MainWindowHarness.h"
#include "support/StandIn.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

// A desktop set to open items on a single click.
class SingleClickActivation : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == QStyle::SH_ItemView_ActivateItemOnSingleClick)
            return 1;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

QStringList listed(ShellList* list) {
    QStringList names;
    const FolderListing& listing = list->model()->listing();
    for (int i = 0; i < listing.count(); ++i)
        names.append(listing.entry(i).name);
    return names;
}

} // namespace

class BrowserTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    QAction* action(const char* name) {
        return h->window()->findChild<QAction*>(QString::fromLatin1(name));
    }
    template <class T> T* control(const char* name) {
        T* found = h->window()->findChild<T*>(QString::fromLatin1(name));
        if (!found)
            qWarning("no control %s", name);
        return found;
    }
    void select(const QString& name) { QVERIFY(h->window()->shellList()->selectName(name)); }
    static MDIForm1* frame() { return MainWindowHarness::frame(); }
    // The place of an entry of the file list on the screen of its view.
    QPoint placeOf(const QString& name) {
        ShellList* list = h->window()->shellList();
        const QModelIndex index =
            list->model()->index(list->model()->listing().indexOfName(name), 0);
        // The view lays its entries out in batches after it is shown.
        if (!QTest::qWaitFor([&] { return list->currentView()->visualRect(index).isValid(); }))
            qWarning("the entry %s was not laid out", qPrintable(name));
        return list->currentView()->visualRect(index).center();
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        for (const char* name : {"a.wav", "song.mp3", "b.wk4", "c.xls", "CATALOG", "notes.txt",
                                 "table.mdb", "X.ZIP", "X.CDA", "X.DAT"})
            h->folder().write(QString::fromLatin1(name), "data");
        h->folder().writePicture(u"x.jpg"_s);
        h->folder().writePicture(u"y.jpg"_s);
        QDir(h->folder().path()).mkdir(u"sub"_s);
        h->start();
    }

    void cleanup() {
        WindowRegistry::setFactory(u"AudioVideo1"_s, nullptr);
        h.reset();
    }

    void aSelectionEnablesQuickViewAndTheFileAndTableCommandsByItsKind() {
        struct Case {
            const char16_t* name;
            bool quickView, file, table;
        };
        // Sounds have a quick view, Lotus sheets get no table commands, a folder no current file.
        const Case cases[] = {{u"a.wav", true, true, false},      {u"song.mp3", true, true, false},
                              {u"notes.txt", false, true, false}, {u"b.wk4", false, true, false},
                              {u"c.xls", false, true, true},      {u"sub", false, false, false}};
        for (const Case& c : cases) {
            const QString name = QString::fromUtf16(c.name);
            select(name);
            QCOMPARE(globals().gCurrentFile, c.file ? h->folder().file(name) : QString());
            QCOMPARE(control<QToolButton>("QuikPictBtn")->isEnabled(), c.quickView);
            QCOMPARE(action("mnuFileMove")->isEnabled(), c.file);
            QCOMPARE(action("mnuFileDelete")->isEnabled(), c.file);
            QCOMPARE(control<QToolButton>("SendBtn")->isEnabled(), c.file);
            for (const char* table : {"mnuViewTable", "mnuViewComments", "mnuFileIndex"})
                QCOMPARE(action(table)->isEnabled(), c.table);
        }
        select(u"notes.txt"_s);
        QVERIFY(h->window()->isTextFile());
        QCOMPARE(globals().gCurrentFolder, h->folder().path());
    }

    void filterRowsAndButtonsFilterTheList() {
        auto* filter = control<QComboBox>("CMBFILEFLTR");
        ShellList* list = h->window()->shellList();
        QCOMPARE(list->folder(), h->folder().path()); // the start shows the program's folder
        filter->setCurrentIndex(31);
        QCOMPARE(listed(list), (QStringList{u"sub"_s, u"CATALOG"_s, u"Colors.INI"_s, u"notes.txt"_s,
                                            u"Options.INI"_s}));
        QTest::mouseClick(control<QToolButton>("PictBtn"), Qt::LeftButton);
        QCOMPARE(filter->currentIndex(), 27);
        QCOMPARE(listed(list), (QStringList{u"sub"_s, u"x.jpg"_s, u"y.jpg"_s}));
        QTest::mouseClick(control<QToolButton>("DataBtn"), Qt::LeftButton);
        QCOMPARE(filter->currentIndex(), 32);
        QCOMPARE(listed(list), (QStringList{u"sub"_s, u"b.wk4"_s, u"c.xls"_s, u"table.mdb"_s}));
        QTest::mouseClick(control<QToolButton>("SoundBtn"), Qt::LeftButton);
        QCOMPARE(listed(list), (QStringList{u"sub"_s, u"a.wav"_s}));
    }

    void viewButtonsSetTheViewAndTheOption() {
        QTest::mouseClick(control<QToolButton>("DetailIconsBtn"), Qt::LeftButton);
        QCOMPARE(h->window()->shellList()->view(), 3);
        QCOMPARE(globals().gViewMode, qint16(3));
        QTest::mouseClick(control<QToolButton>("ListlIconsBtn"), Qt::LeftButton);
        QCOMPARE(globals().gViewMode, qint16(2));
        h->window()->close();
        QCOMPARE(TextFile::readLines(h->folder().file(u"Options.INI"_s)).lines.value(17), u"2"_s);
    }

    void upFolderAndTheTreeMoveTheListAndTheCaption() {
        QDir(h->folder().path()).mkpath(u"sub/inner"_s);
        h->window()->showFolder(h->folder().file(u"sub/inner"_s));
        QCOMPARE(h->window()->shellList()->folder(), h->folder().file(u"sub/inner"_s));
        QCOMPARE(h->window()->windowTitle(), u"inner - Quorvane 2.5"_s);
        auto* history = control<QComboBox>("CMBFILE");
        QTest::mouseClick(control<QToolButton>("UpFldrBtn"), Qt::LeftButton);
        QCOMPARE(h->window()->shellList()->folder(), h->folder().file(u"sub"_s));
        QCOMPARE(history->currentText(), h->folder().file(u"sub"_s));
        auto* tree = control<QTreeView>("PTxShTree1");
        QCOMPARE(tree->currentIndex().data().toString(), u"sub"_s);
        QVERIFY(h->window()->searchRootIndex() > 0);
    }

    void workingFoldersAreSteppedRoundAndABadEntryIsReported() {
        auto* folders = control<QListWidget>("List1");
        folders->addItems(
            {h->folder().file(u"sub"_s) + u" (31)"_s, h->folder().path() + u" (27)"_s, QString()});
        folders->setCurrentRow(0);
        auto* button = control<QToolButton>("FoldrBtn");
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(h->window()->shellList()->folder(), h->folder().file(u"sub"_s));
        QCOMPARE(control<QComboBox>("CMBFILEFLTR")->currentIndex(), 31);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(h->window()->shellList()->folder(), h->folder().path());
        QCOMPARE(control<QComboBox>("CMBFILEFLTR")->currentIndex(), 27);
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(h->messages().texts(),
                 QStringList(2, u"Error in Folder List Setup - Please Set up Folder List"_s));
        QCOMPARE(folders->currentRow(), 2);
    }

    void clipsGoToThePlayerUnknownTypesAreRefusedAndFoldersIgnored() {
        auto* player = new StandIn;
        WindowRegistry::setFactory(u"AudioVideo1"_s, [player] { return player; });
        globals().gCurrentFile = u"/before"_s;
        for (const char* name : {"X.CDA", "X.DAT", "a.wav"}) {
            const QString path = h->folder().file(QString::fromLatin1(name));
            h->window()->DisplayImage(path);
            QCOMPARE(globals().gOpenFile, path);
            QCOMPARE(globals().gCurrentFile, u"/before"_s);
            QVERIFY(!h->window()->mOpenPending);
        }
        QVERIFY(player->shows >= 1);
        QVERIFY(h->messages().shown().isEmpty());
        delete player;

        h->window()->DisplayImage(h->folder().file(u"X.ZIP"_s));
        QCOMPARE(h->messages().texts(),
                 QStringList{u"File Type is not Supported by this Software"_s});
        QCOMPARE(globals().gCurrentFile, u"/before"_s);
        h->messages().clear();
        h->window()->DisplayImage(h->folder().file(u"sub"_s));
        QVERIFY(h->messages().shown().isEmpty());
        QVERIFY(globals().gCurrentFile.isEmpty());
        QVERIFY(!frame());
    }

    void aDocumentOpensInTheFrameAndTheHistoryFindsItByCaption() {
        const QString x = h->folder().file(u"x.jpg"_s);
        const QString y = h->folder().file(u"y.jpg"_s);
        h->window()->DisplayImage(x);
        h->window()->AddtoCMBFILE(x);
        QTRY_VERIFY(frame());
        QTRY_COMPARE(frame()->mChildCount, qint16(1));
        QVERIFY(QTest::qWaitForWindowActive(frame()));
        QVERIFY(globals().gFrameOpen);
        QVERIFY(!h->window()->mOpenPending);
        QCOMPARE(frame()->activeChild()->windowTitle(), x);
        QCOMPARE(frame()->activeChild()->FILE_TYPE, u"I"_s);
        QCOMPARE(frame()->statusLabel(0)->toolTip(), x);
        QVERIFY(frame()->statusLabel(3)->text().endsWith(u"  Bytes"_s));

        h->activateMain();
        h->window()->DisplayImage(y);
        h->window()->AddtoCMBFILE(y);
        QTRY_COMPARE(frame()->mChildCount, qint16(2));
        QVERIFY(QTest::qWaitForWindowActive(frame()));
        QCOMPARE(frame()->activeChild()->windowTitle(), y);

        h->activateMain();
        auto* history = control<QComboBox>("CMBFILE");
        const int xRow = history->findText(x);
        QVERIFY(xRow >= 0);
        Q_EMIT history->activated(xRow);
        QTRY_COMPARE(frame()->activeChild()->windowTitle(), x);
        QCOMPARE(frame()->mChildCount, qint16(2));

        // Closing the main window closes the frame with it.
        h->window()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!globals().gFrameOpen);
        QVERIFY(!frame());
    }

    void theOpenDialogUsesTheFilterRowAsItsIndex() {
        control<QComboBox>("CMBFILEFLTR")->setCurrentIndex(7);
        h->messages().answer(QString()); // Cancel
        action("mnuFileOpen")->trigger();
        QCOMPARE(h->messages().shown().size(), 1);
        const RecordingMessages::Shown& shown = h->messages().shown().first();
        QCOMPARE(shown.kind, u"open"_s);
        QVERIFY(shown.text.startsWith(u"JPeg and Lead Compressed|*.JPG;*.CMP|"_s));
        QCOMPARE(shown.proposed, h->folder().path());
        QVERIFY(!frame());
    }

    void everyNamedControlHasAnAccessibleNameAndEveryButtonATip() {
        QStringList missing;
        for (QWidget* widget : h->window()->findChildren<QWidget*>()) {
            const QString name = widget->objectName();
            if (name.isEmpty() || name.startsWith(u"qt_"_s) || !widget->isVisibleTo(h->window()))
                continue;
            if (widget->accessibleName().isEmpty() ||
                (qobject_cast<QToolButton*>(widget) && widget->toolTip().isEmpty()))
                missing.append(name);
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u", "_s)));
    }

    void draggingTheSplitterMovesThePanesAndKeepsTheirRatio() {
        auto* splitter = control<QFrame>("Frame5");
        auto* tree = control<QTreeView>("PTxShTree1");
        const int before = tree->width();
        QTest::mousePress(splitter, Qt::LeftButton, {}, QPoint(2, 10));
        QMouseEvent move(QEvent::MouseMove, QPointF(42, 10), splitter->mapToGlobal(QPointF(42, 10)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(splitter, &move);
        QTest::mouseRelease(splitter, Qt::LeftButton, {}, QPoint(42, 10));
        QVERIFY(tree->width() > before + 30);
        QCOMPARE(globals().gTreeWidth, Twips::fromPixels(tree->width()));
        auto* list = h->window()->shellList();
        QVERIFY(splitter->x() >= tree->x() + tree->width());
        QVERIFY(splitter->x() + splitter->width() <= list->x());
    }

    void aDroppedFileIsDisplayedAndTheFilterFollowsIt() {
        auto* player = new StandIn;
        WindowRegistry::setFactory(u"AudioVideo1"_s, [player] { return player; });
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(h->folder().file(u"notes.txt"_s)),
                      QUrl::fromLocalFile(h->folder().file(u"a.wav"_s))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(h->window(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(h->window(), &drop);
        QCOMPARE(control<QComboBox>("CMBFILEFLTR")->currentIndex(), 31);
        QTRY_VERIFY(frame());
        QTRY_COMPARE(frame()->mChildCount, qint16(1));
        QCOMPARE(frame()->activeChild()->FILE_TYPE, u"T"_s);
        QCOMPARE(player->shows, 0); // only the first dropped file counts
        delete player;
    }

    void quickViewFollowsTheSelectionUntilItsButtonEndsIt() {
        auto* button = control<QToolButton>("QuikPictBtn");
        select(u"x.jpg"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(h->window()->quikPictOn());
        QVERIFY(globals().gQuikPictOpen);
        auto* quick = qobject_cast<QuikPict1*>(WindowRegistry::find(QuikPict1::WindowName()));
        QVERIFY(quick);
        QCOMPARE(quick->picture()->image().size(), QSize(40, 30));
        const QImage shown = quick->picture()->image();

        select(u"a.wav"_s); // below 39 too: loaded, fails, the picture stays
        QCOMPARE(quick->picture()->image(), shown);
        const int mode = quick->picture()->paintSizeMode();
        QTest::mouseClick(quick->picture(), Qt::LeftButton);
        QVERIFY(quick->picture()->paintSizeMode() != mode);

        quick->close(); // its own close box leaves quick view on
        QTRY_VERIFY(!WindowRegistry::find(QuikPict1::WindowName()));
        QVERIFY(!globals().gQuikPictOpen);
        QVERIFY(h->window()->quikPictOn());
        select(u"y.jpg"_s);
        QVERIFY(globals().gQuikPictOpen);

        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!h->window()->quikPictOn());
        QTRY_VERIFY(!globals().gQuikPictOpen);
    }

    void theListRefusesToRenameInPlace() {
        ShellList* list = h->window()->shellList();
        select(u"x.jpg"_s);
        QAbstractItemView* view = list->currentView();
        QTest::keyClick(view, Qt::Key_F2);
        const QList<QLineEdit*> editors = view->findChildren<QLineEdit*>();
        for (QLineEdit* editor : editors)
            QVERIFY(!editor->isVisible());
        QVERIFY(!(list->model()->flags(list->model()->index(0, 0)) & Qt::ItemIsEditable));
    }

    void aSingleClickOnlySelectsAndADoubleClickOrEnterOpens() {
        SingleClickActivation style;
        QAbstractItemView* view = h->window()->shellList()->currentView();
        view->setStyle(&style);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, placeOf(u"x.jpg"_s));
        QCOMPARE(globals().gCurrentFile, h->folder().file(u"x.jpg"_s));
        // What the print and send commands take, in the icon views too.
        QCOMPARE(h->window()->shellList()->selectedPath(), h->folder().file(u"x.jpg"_s));
        QVERIFY(!frame());
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, placeOf(u"x.jpg"_s));
        QTRY_VERIFY(frame());
        QTRY_COMPARE(frame()->mChildCount, qint16(1));
        h->activateMain();
        select(u"y.jpg"_s);
        view->setFocus();
        QTest::keyClick(view, Qt::Key_Return);
        QTRY_COMPARE(frame()->mChildCount, qint16(2));
        view->setStyle(nullptr);
    }

    void theHistoryGetsOneEntryForEachFolderOrFileChosen() {
        auto* history = control<QComboBox>("CMBFILE");
        QCOMPARE(history->count(), 0); // the program's folder is shown, not chosen
        QAbstractItemView* view = h->window()->shellList()->currentView();
        const QPoint at = placeOf(u"sub"_s);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
        QTRY_COMPARE(h->window()->shellList()->folder(), h->folder().file(u"sub"_s));
        QCOMPARE(history->count(), 1);
        QCOMPARE(history->itemText(0), h->folder().file(u"sub"_s));
    }
};

QTEST_MAIN(BrowserTest)
#include "BrowserTest.moc"
