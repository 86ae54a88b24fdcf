#include "organizer/GrpBatch1.h"
#include "organizer/GrpBrow1.h"
#include "organizer/GrpClear1.h"
#include "organizer/GrpFind.h"
#include "organizer/GrpFlem1.h"
#include "organizer/GrpMaint.h"
#include "organizer/OrganizerDataControl.h"
#include "platform/FlexGrid.h"
#include "platform/SettingColor.h"
#include "platform/imaging/PictureView.h"
#include "shell/FindFile1.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

class OrganizerWindowsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    std::shared_ptr<OrganizerDb> database() {
        return OrganizerDb::open(h->folder().file(u"FileTabl.MDB"_s)).db;
    }
    qint64 rowsOf(const QString& table) {
        return Recordset::open(database(), table).recordset->RecordCount();
    }
    void addFile(const QString& group, const QString& name = {}, const QString& word = {}) {
        auto files = Recordset::open(database(), u"FileTable"_s).recordset;
        files->AddNew();
        files->setValue(u"GroupName"_s, group);
        files->setValue(u"FileName"_s, name);
        files->setValue(u"FileLocation"_s, h->folder().path());
        files->setValue(u"FileKeyword"_s, word);
        files->setValue(u"Date"_s, u"20000216"_s);
        QVERIFY(!files->Update());
    }
    // The cells of a column of a grid, top to bottom.
    static QStringList column(FlexGrid* grid, int column) {
        QStringList cells;
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            cells.append(grid->model()->index(row, column).data().toString());
        return cells;
    }
    static void clickRow(FlexGrid* grid, int row) {
        const QRect cell = grid->visualRect(grid->model()->index(row - 1, 1));
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
    }
    GrpMaint* openGroups() {
        h->window()->findChild<QAction*>(u"mnuOrganizeGrpMaint"_s)->trigger();
        auto* window = qobject_cast<GrpMaint*>(WindowRegistry::find(GrpMaint::WindowName()));
        if (window && !QTest::qWaitForWindowActive(window))
            qWarning("the group window did not become active");
        return window;
    }
    void addGroups(const QStringList& names) {
        auto rows = Recordset::open(database(), u"GroupTable"_s).recordset;
        for (const QString& name : names) {
            rows->AddNew();
            rows->setValue(1, name);
            QVERIFY(!rows->Update());
        }
    }
    GrpFlem1* openFiles(const QString& file) {
        globals().gCurrentFile = h->folder().file(file);
        h->window()->findChild<QAction*>(u"mnuOrganizeFileMaint"_s)->trigger();
        // Without groups the window closes as it comes.
        QPointer window = qobject_cast<GrpFlem1*>(WindowRegistry::find(GrpFlem1::WindowName()));
        (void)QTest::qWaitFor([&] { return !window || window->isActiveWindow(); });
        return window;
    }
    void type(QLineEdit* field, const QString& text) {
        field->selectAll();
        QTest::keyClicks(field, text);
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->folder().writePicture(u"photo.jpg"_s);
        h->folder().write(u"notes.txt"_s, "n");
        h->start();
    }
    void cleanup() {
        for (const QString& name :
             {GrpMaint::WindowName(), GrpFlem1::WindowName(), GrpBrow1::WindowName()})
            delete WindowRegistry::find(name);
        h.reset();
    }

    void anEmptyTableOffersANewGroupThatIsStoredOnlyBySave() {
        GrpMaint* groups = openGroups();
        QVERIFY(groups);
        QVERIFY(globals().gGrpMaintOpen);
        QCOMPARE(groups->FldGroup1->text(), u"New Group"_s);
        QCOMPARE(groups->FldGrpDesc1->text(), u"New Group Description"_s);
        QCOMPARE(groups->mode(), u"A"_s);
        QCOMPARE(rowsOf(u"GroupTable"_s), 0);
        type(groups->FldGroup1, u"Web Site List"_s);
        QTest::mouseClick(groups->SaveBtn, Qt::LeftButton);
        QCOMPARE(rowsOf(u"GroupTable"_s), 1);
        QCOMPARE(groups->mode(), u"E"_s);
        QVERIFY(!groups->Label1[3]->text().isEmpty());

        // The same name again, in other letters: refused, and the name keeps the focus.
        QTest::mouseClick(groups->AddBtn, Qt::LeftButton);
        type(groups->FldGroup1, u"WEB SITE LIST"_s);
        QTest::mouseClick(groups->SaveBtn, Qt::LeftButton);
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Web Site List already exisits in Database"_s});
        QCOMPARE(QApplication::focusWidget(), groups->FldGroup1);
        QCOMPARE(rowsOf(u"GroupTable"_s), 1);
        groups->close();
        QTRY_VERIFY(!globals().gGrpMaintOpen);
    }

    void aGroupWithFilesIsKeptUntilItsFilesAreGone() {
        GrpMaint* groups = openGroups();
        type(groups->FldGroup1, u"Photos"_s);
        QTest::mouseClick(groups->SaveBtn, Qt::LeftButton);
        addFile(u"photos"_s);
        QTest::mouseClick(groups->DeleteBtn, Qt::LeftButton);
        QCOMPARE(h->messages().texts(),
                 QStringList{
                     u"You cannot Delete Group - Photos - Delete the Files below in the Group"_s});
        database()->exec("DELETE FROM FileTable");
        h->messages().clear();
        h->messages().answer(true);
        QTest::mouseClick(groups->DeleteBtn, Qt::LeftButton);
        QCOMPARE(h->messages().texts(),
                 (QStringList{u"Are you sure you want to Delete Group - Photos from the Database"_s,
                              u"Group - Photos - Deleted"_s}));
        QCOMPARE(rowsOf(u"GroupTable"_s), 0);
        QCOMPARE(groups->mode(), u"A"_s); // the table is empty again
    }

    void theNavigatorWalksByNameAndSaysWhereTheEndIs() {
        addGroups({u"b"_s, u"C"_s, u"a"_s});
        GrpMaint* groups = openGroups();
        QCOMPARE(groups->FldGroup1->text(), u"a"_s);
        groups->Data1->button(DataNavigator::MoveNext)->click();
        QCOMPARE(groups->FldGroup1->text(), u"b"_s);
        QVERIFY(groups->Data1->Caption().startsWith(u"Record %Position: "_s));
        // A description typed in is written when the record is left.
        type(groups->FldGrpDesc1, u"second"_s);
        groups->Data1->button(DataNavigator::MoveLast)->click();
        QCOMPARE(groups->FldGroup1->text(), u"C"_s);
        groups->Data1->button(DataNavigator::MoveNext)->click();
        QCOMPARE(groups->Data1->Caption(), u"End of File"_s);
        QCOMPARE(groups->FldGroup1->text(), u"C"_s);
        auto rows = Recordset::open(database(), u"GroupTable"_s, Recordset::TableType).recordset;
        rows->setIndex(u"GroupName"_s);
        rows->Seek(u"="_s, u"B"_s);
        QCOMPARE(rows->text(u"GroupDesc"_s), u"second"_s);
    }

    void withoutGroupsTheFileWindowSaysSoAndCloses() {
        openFiles(u"notes.txt"_s);
        QTRY_VERIFY(!globals().gGrpFlemOpen);
        QCOMPARE(h->messages().texts(),
                 QStringList{u"No Groups to contain Files - Create a new Group using the Create "
                             "and Maintain Groups Organize Menu Option"_s});
    }

    void filesSelectedInTheMainListAreFiledFoundAndDeleted() {
        addGroups({u"Alpha"_s, u"Beta"_s});
        GrpFlem1* files = openFiles(u"photo.jpg"_s);
        QVERIFY(files);
        QCOMPARE(files->mode(), u"A"_s);
        const QString folder = h->folder().path();
        QCOMPARE((QStringList{files->FldFileName->text(), files->FldFilePath->text(),
                              files->FldFileDesc->text(), files->FldFileKeywrd->text(),
                              files->CMBTYPE->currentText()}),
                 (QStringList{u"photo.jpg"_s, folder, u"Description of photo.jpg"_s,
                              QFileInfo(folder).fileName(), u"Picture"_s}));
        files->CMBGRP->setCurrentIndex(1);
        QTest::mouseClick(files->SaveBtn, Qt::LeftButton);
        QCOMPARE(files->mode(), u"E"_s);
        auto rows = Recordset::open(database(), u"FileTable"_s).recordset;
        QCOMPARE(rows->RecordCount(), 1);
        const QDateTime written = QFileInfo(h->folder().file(u"photo.jpg"_s)).lastModified();
        QCOMPARE(rows->text(u"GroupName"_s), u"Beta"_s);
        QCOMPARE(rows->text(u"Date"_s), written.toString(u"yyyyMMdd"_s));
        QCOMPARE(rows->text(u"DateTimeCreated"_s).size(), 14);
        QVERIFY(!rows->text(u"Time"_s).isEmpty());

        // The link: a selection in the main window is a new row in the group saved last.
        QTRY_VERIFY(h->window()->shellList()->selectName(u"notes.txt"_s));
        QCOMPARE(files->FldFileName->text(), u"notes.txt"_s);
        QCOMPARE(files->CMBGRP->currentText(), u"Beta"_s);
        QVERIFY(!files->Image1->isVisibleTo(files));
        // A group typed by hand is stored but not remembered.
        files->CMBGRP->setEditText(u"Typed"_s);
        QTest::mouseClick(files->SaveBtn, Qt::LeftButton);
        QTRY_VERIFY(h->window()->shellList()->selectName(u"photo.jpg"_s));
        QCOMPARE(files->CMBGRP->currentText(), u"Beta"_s);
        QTest::mouseClick(files->SelectBtn, Qt::LeftButton);
        QVERIFY(h->window()->shellList()->selectName(u"notes.txt"_s));
        QCOMPARE(files->FldFileName->text(), u"photo.jpg"_s);

        // A find lands at or after its text in the order of names, here the last row.
        QTimer::singleShot(0, [] {
            auto* find = qobject_cast<GrpFind2*>(WindowRegistry::find(GrpFind2::WindowName()));
            find->OKBtn->click(); // nothing to look for
            QTest::keyClicks(find->Text1[0], u"PH"_s);
            find->OKBtn->click();
            find->CancelBtn->click();
        });
        QTest::mouseClick(files->FindBtn, Qt::LeftButton);
        QCOMPARE(files->FldFileName->text(), u"photo.jpg"_s);
        QVERIFY(files->Image1->isVisibleTo(files));
        QCOMPARE(h->messages().texts().last(),
                 u"You must enter something in File Name or Search Key word to find nearest "
                 "match in the File."_s);
        // Deleting the last row stands on the new last one, in mode "D" until the next move.
        h->messages().answer(true);
        QTest::mouseClick(files->DeleteBtn, Qt::LeftButton);
        QCOMPARE(files->FldFileName->text(), u"notes.txt"_s);
        QCOMPARE(files->mode(), u"D"_s);
        files->Data1->button(DataNavigator::MoveFirst)->click();
        QCOMPARE(files->mode(), u"E"_s);
        QCOMPARE(Recordset::open(database(), u"FileTable"_s).recordset->RecordCount(), 1);
    }

    void theBrowserShowsTheFilesOfTheClickedGroupSortsFindsAndDisplays() {
        addGroups({u"Beta"_s, u"alpha"_s, u"O'Neil"_s});
        addFile(u"Beta"_s, u"photo.jpg"_s, u"zebra"_s);
        addFile(u"alpha"_s, u"a.txt"_s);
        addFile(u"beta"_s, u"notes.txt"_s, u"lion"_s);
        h->window()->findChild<QAction*>(u"mnuOrganizeGroup"_s)->trigger();
        auto* browser = qobject_cast<GrpBrow1*>(WindowRegistry::find(GrpBrow1::WindowName()));
        QVERIFY(browser && QTest::qWaitForWindowActive(browser));
        FlexGrid* groups = browser->MSFlexGrid1[0];
        FlexGrid* files = browser->MSFlexGrid1[1];
        QCOMPARE(column(groups, 1), (QStringList{u"alpha"_s, u"Beta"_s, u"O'Neil"_s}));
        QCOMPARE(column(files, 2), QStringList{u"a.txt"_s});
        QCOMPARE(files->model()->headerData(10, Qt::Horizontal).toString(), u"Updated Time"_s);
        QVERIFY(files->isColumnHidden(10) && files->isColumnHidden(7) && !files->isColumnHidden(9));
        QVERIFY(qAbs(files->ColWidth(3) - 5000) < 15 && qAbs(groups->ColWidth(2) - 4000) < 15);
        QCOMPARE(groups->model()->index(0, 2).data(Qt::BackgroundRole).value<QColor>(),
                 SettingColor::toQColor(globals().gBrowserForeColor));

        clickRow(groups, 2);
        QCOMPARE(column(files, 2), (QStringList{u"photo.jpg"_s, u"notes.txt"_s}));
        QCOMPARE(column(files, 8), (QStringList{u"02/16/00"_s, u"02/16/00"_s}));
        // A name the group query cannot take leaves the files shown.
        clickRow(groups, 3);
        QCOMPARE(column(files, 2), (QStringList{u"photo.jpg"_s, u"notes.txt"_s}));
        clickRow(groups, 2);

        QTest::mouseClick(browser->SwitchBtn, Qt::LeftButton);
        QVERIFY(files->isVisible() && !groups->isVisible() && browser->SelectBtn->isEnabled());
        browser->List1->setCurrentRow(2);
        browser->List1_Click();
        QCOMPARE(column(files, 2), (QStringList{u"notes.txt"_s, u"photo.jpg"_s}));
        browser->List1->setCurrentRow(6); // the path keeps the order
        browser->List1_Click();
        QCOMPARE(browser->sortText(), u"[FileName]"_s);
        // Another group puts the order back to the order of addition.
        QTest::mouseClick(browser->SwitchBtn, Qt::LeftButton);
        clickRow(groups, 1);
        QCOMPARE(browser->sortText(), u"[ID]"_s);
        QCOMPARE(browser->List1->currentRow(), 0);

        // Found by its search word among all files, and displayed.
        QTimer::singleShot(0, [] {
            auto* find = qobject_cast<GrpFind1*>(WindowRegistry::find(GrpFind1::WindowName()));
            QTest::keyClicks(find->Text1[1], u"ZE"_s);
            find->OKBtn->click();
        });
        QTest::mouseClick(browser->FindBtn, Qt::LeftButton);
        QCOMPARE(files->Rows(), 4);
        QCOMPARE(files->model()->index(files->Row() - 1, 2).data().toString(), u"photo.jpg"_s);
        QVERIFY(!browser->InSort);
        QTest::mouseClick(browser->SelectBtn, Qt::LeftButton);
        QTRY_VERIFY(MainWindowHarness::frame() && MainWindowHarness::frame()->mChildCount == 1);
    }

    void theBatchFilesEachFolderTheSearchStopsAtUnlessSkipped() {
        QDir(h->folder().path()).mkpath(u"trip/a1"_s);
        QDir(h->folder().path()).mkpath(u"trip/b1"_s);
        for (const char* name : {"trip/a1/one.bmp", "trip/a1/two.bmp", "trip/b1/three.bmp"})
            h->folder().write(QString::fromLatin1(name), "BM");
        QVERIFY(h->window()->shellTree()->revealPath(h->folder().file(u"trip"_s)));
        // A cancelled search leaves the window with nothing to do.
        answerModal<FindFile1>([](FindFile1* find) { find->CancelBtn->click(); });
        h->window()->findChild<QAction*>(u"mnuOrganizeSearch"_s)->trigger();
        QPointer batch = qobject_cast<GrpBatch1*>(WindowRegistry::find(GrpBatch1::WindowName()));
        QVERIFY(batch);
        QTRY_VERIFY(batch->CMBGRP->count() > 0 && !globals().gFindFileOpen);
        QVERIFY(!globals().gBatchSearch && !batch->OKBtn->isEnabled());
        batch->close();
        QTRY_VERIFY(!batch);

        answerModal<FindFile1>([](FindFile1* find) {
            find->Text1->setText(u"*.BMP"_s);
            find->OKBtn->click();
        });
        h->window()->findChild<QAction*>(u"mnuOrganizeSearch"_s)->trigger();
        batch = qobject_cast<GrpBatch1*>(WindowRegistry::find(GrpBatch1::WindowName()));
        QVERIFY(batch);
        QTRY_VERIFY(globals().gBatchSearch);
        QCOMPARE(batch->CMBGRP->currentText(), u"New Group"_s);
        QTest::mouseClick(batch->OKBtn, Qt::LeftButton); // files a1, goes to b1
        batch->CHKSKIP->setChecked(true);
        QTest::mouseClick(batch->OKBtn, Qt::LeftButton); // b1 skipped
        QCOMPARE(rowsOf(u"GroupTable"_s), 1);
        auto files = Recordset::open(database(), u"FileTable"_s).recordset;
        QCOMPARE(files->RecordCount(), 2);
        QCOMPARE(files->text(u"FileKeyword"_s), u"a1"_s);
        QCOMPARE(files->text(u"GroupName"_s), u"New Group"_s);
        const QString stamp = files->text(u"DateTimeCreated"_s);
        files->MoveNext();
        QCOMPARE(files->text(u"DateTimeCreated"_s), stamp); // one stamp a click
        batch->close();
        QTRY_VERIFY(!globals().gGrpBatchOpen && !globals().gBatchSearch);
    }

    void clearOnAnEmptyTableSaysTheFilesWereNotRemoved() {
        h->messages().answer(true);
        QTimer::singleShot(0, [] {
            if (auto* clear =
                    qobject_cast<GrpClear1*>(WindowRegistry::find(GrpClear1::WindowName())))
                clear->OKBtn->click();
        });
        h->window()->findChild<QAction*>(u"mnuOrganizeClear"_s)->trigger();
        QCOMPARE(h->messages().texts(),
                 (QStringList{u"Are you sure you want to remove all Files in the Group File "
                              "Organizer Database?"_s,
                              u"Files not removed from the Group File Organizer Database"_s}));
        QVERIFY(h->folder().exists(u"FileTabl.MDB"_s));
    }

    void anOldFileTableIsUpdatedOnceAtTheStart() {
        h->window()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        database()->exec("DROP TABLE FileTable; CREATE TABLE FileTable (ID INTEGER PRIMARY KEY, "
                         "GroupName TEXT, FileName TEXT); INSERT INTO FileTable (GroupName) "
                         "VALUES ('G')");
        h->messages().clear();
        h->start();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Table Updated - Please Click the OK Button Again"_s});
        h->window()->close();
        h->messages().clear();
        h->start();
        QVERIFY(h->messages().texts().isEmpty());
    }

    void aStoreThatIsNoDatabaseOrCutShortIsToldAbout() {
        addGroups({u"Trips"_s});
        addFile(u"Trips"_s, u"photo.jpg"_s);
        const QByteArray good = h->folder().read(u"FileTabl.MDB"_s);
        const std::pair<const char*, QByteArray> damages[] = {
            {"not a database", QByteArray(8192, 'x')}, {"cut short", good.left(4096)}};
        for (const auto& [what, bytes] : damages) {
            h->folder().write(u"FileTabl.MDB"_s, bytes);
            h->messages().clear();
            QPointer<GrpMaint> groups = openGroups();
            QVERIFY2(groups, what);
            QVERIFY2(h->messages().texts().value(0).startsWith(u"Data error event hit err: "_s),
                     what);
            groups->close();
            QTRY_VERIFY(!groups);
            h->messages().clear();
            openFiles(u"notes.txt"_s);
            QTRY_VERIFY(!globals().gGrpFlemOpen);
            QCOMPARE(h->messages().texts().value(0).left(22), u"No Groups to contain F"_s);
            h->window()->findChild<QAction*>(u"mnuOrganizeGroup"_s)->trigger();
            QPointer browser =
                qobject_cast<GrpBrow1*>(WindowRegistry::find(GrpBrow1::WindowName()));
            QVERIFY2(browser && browser->MSFlexGrid1[0]->Rows() <= 1, what);
            browser->close();
            QTRY_VERIFY(!browser);
        }
    }

    void everyControlOfTheWindowsHasAnAccessibleName() {
        addGroups({u"G"_s});
        QStringList missing;
        for (QWidget* window : {static_cast<QWidget*>(openGroups()),
                                static_cast<QWidget*>(openFiles(u"notes.txt"_s))})
            for (QWidget* widget : window->findChildren<QWidget*>())
                if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_s) &&
                    widget->accessibleName().isEmpty() &&
                    (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                     qobject_cast<QComboBox*>(widget)))
                    missing.append(widget->objectName());
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u", "_s)));
    }
};

QTEST_MAIN(OrganizerWindowsTest)
#include "OrganizerWindowsTest.moc"
