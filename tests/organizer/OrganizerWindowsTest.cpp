#include "organizer/GrpClear1.h"
#include "organizer/GrpMaint.h"
#include "organizer/OrganizerDataControl.h"
#include "support/MainWindowHarness.h"

#include <QLabel>
#include <QLineEdit>
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
    void addFile(const QString& group) {
        auto files = Recordset::open(database(), u"FileTable"_s).recordset;
        files->AddNew();
        files->setValue(u"GroupName"_s, group);
        QVERIFY(!files->Update());
    }
    GrpMaint* openGroups() {
        h->window()->findChild<QAction*>(u"mnuOrganizeGrpMaint"_s)->trigger();
        auto* window = qobject_cast<GrpMaint*>(WindowRegistry::find(GrpMaint::WindowName()));
        if (window && !QTest::qWaitForWindowActive(window))
            qWarning("the group window did not become active");
        return window;
    }
    void type(QLineEdit* field, const QString& text) {
        field->selectAll();
        QTest::keyClicks(field, text);
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
    }
    void cleanup() {
        if (QWidget* w = WindowRegistry::find(GrpMaint::WindowName()))
            delete w;
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
        {
            auto rows = Recordset::open(database(), u"GroupTable"_s).recordset;
            for (const QString& name : {u"b"_s, u"C"_s, u"a"_s}) {
                rows->AddNew();
                rows->setValue(1, name);
                QVERIFY(!rows->Update());
            }
        }
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

    void everyControlOfTheWindowsHasAnAccessibleName() {
        GrpMaint* groups = openGroups();
        QStringList missing;
        for (QWidget* widget : groups->findChildren<QWidget*>())
            if (!widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_s) &&
                widget->accessibleName().isEmpty() &&
                (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLineEdit*>(widget)))
                missing.append(widget->objectName());
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u", "_s)));
    }
};

QTEST_MAIN(OrganizerWindowsTest)
#include "OrganizerWindowsTest.moc"
