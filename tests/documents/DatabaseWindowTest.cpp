#include "documents/ChildFrm1.h"
#include "documents/Login.h"
#include "documents/MDIForm1.h"
#include "platform/FlexGrid.h"
#include "platform/SettingColor.h"
#include "platform/TableDataControl.h"
#include "platform/Twips.h"
#include "platform/tables/TableRecordset.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QString generated(const QString& name) {
    return QStringLiteral(QUORVANE_GENERATED_TABLES) + u'/' + name;
}

QString shared(const QString& name) {
    return QStringLiteral(QUORVANE_SHARED_FIXTURES) + u'/' + name;
}

} // namespace

class DatabaseWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    static MDIForm1* frame() { return MainWindowHarness::frame(); }
    ChildFrm1* open(const QString& name) { return h->openDocument(name); }
    static QAction* menu(ChildFrm1* child, const char* name) {
        return MainWindowHarness::menu(child, name);
    }

    // Copies a table file and its companions into the program folder under the same names.
    void place(const QString& source, const QStringList& companions = {}) {
        const QFileInfo info(source);
        for (const QString& name : QStringList{info.fileName()} + companions)
            QFile::copy(info.absoluteDir().filePath(name), h->folder().file(name));
    }

    static QStringList entries(const QListWidget* list) {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }

    // Whether View Table, View Index and View Comments are enabled.
    static QList<bool> menusEnabled(ChildFrm1* child) {
        QList<bool> on;
        for (const char* name : {"mnuViewTable", "mnuViewIndex", "mnuViewComments"})
            on.append(menu(child, name)->isEnabled());
        return on;
    }

    static void selectCell(ChildFrm1* child, int record, int column) {
        child->MSFlexGrid1->setCurrentIndex(child->MSFlexGrid1->model()->index(record, column));
    }

    void skipWithoutShared(const QString& name) {
        if (!QFileInfo::exists(shared(name)))
            QSKIP(qPrintable(u"the shared sample is absent: "_s + shared(name)));
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
    }

    void cleanup() { h.reset(); }

    void aDbaseTableShowsItsRecordsWithoutTableOrIndexChoices() {
        place(generated(u"SALES.DBF"_s), {u"SALES.DBT"_s});
        const QByteArray before = h->folder().read(u"SALES.DBF"_s);
        ChildFrm1* child = open(u"SALES.DBF"_s);
        QVERIFY(child);
        QCOMPARE(child->mConnect, u"dBASE 5.0;"_s);
        QCOMPARE(child->Data1->Caption(), h->folder().file(u"SALES.DBF"_s));
        QVERIFY(child->MSFlexGrid1->isVisible());
        QVERIFY(!child->Frame1->isVisible());

        const QAbstractItemModel* grid = child->MSFlexGrid1->model();
        QCOMPARE(grid->rowCount(), 3);
        QCOMPARE(grid->columnCount(), 6);
        QCOMPARE(grid->headerData(0, Qt::Horizontal).toString(), u"NAME"_s);
        QCOMPARE(grid->index(0, 0).data().toString(), u"Widget"_s);
        QCOMPARE(grid->index(2, 1).data().toString(), u"250"_s);

        // One table a file, no index: no lists to choose from, neither Table (12) nor Index (13).
        QCOMPARE(menusEnabled(child), (QList<bool>{false, false, true}));
        QCOMPARE(h->enabledButtons(), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 19, 20}));
        QCOMPARE(child->List1->count(), 0);

        child->close();
        QTRY_COMPARE(frame()->mChildCount, qint16(0));
        QCOMPARE(h->folder().read(u"SALES.DBF"_s), before);
    }

    void theCommentBoxShowsAMemoAndRefusesOtherColumns() {
        place(generated(u"SALES.DBF"_s), {u"SALES.DBT"_s});
        ChildFrm1* child = open(u"SALES.DBF"_s);
        QVERIFY(child);
        QAction* comments = menu(child, "mnuViewComments");

        selectCell(child, 0, 5);
        comments->trigger();
        QVERIFY(child->Frame2->isVisible());
        QCOMPARE(child->Text2->toPlainText(), u"First order of the year"_s);
        QVERIFY(comments->isChecked());
        comments->trigger();
        QVERIFY(!child->Frame2->isVisible());
        QVERIFY(!comments->isChecked());

        selectCell(child, 0, 1);
        comments->trigger();
        QCOMPARE(h->messages().texts(), QStringList{u"Please select a Comment Field to Display"_s});
        QVERIFY(!child->Frame2->isVisible());
        QVERIFY(comments->isChecked()); // the menu stays checked
        comments->trigger();

        // A double click on the memo, or on the column before it, opens the box too.
        h->messages().clear();
        selectCell(child, 2, 4);
        child->MSFlexGrid1_DblClick();
        QVERIFY(child->Frame2->isVisible());
        QCOMPARE(child->Text2->toPlainText(), u"T"_s);
        QVERIFY(comments->isChecked());
        comments->trigger();
        selectCell(child, 2, 5);
        child->MSFlexGrid1_DblClick();
        QCOMPARE(child->Text2->toPlainText(), u"Bulk\nsecond line"_s);
        comments->trigger();
        selectCell(child, 1, 0);
        child->MSFlexGrid1_DblClick();
        QVERIFY(!child->Frame2->isVisible());
        QVERIFY(h->messages().texts().isEmpty());

        // Copy puts the current cell on the clipboard.
        menu(child, "mnuEditCopy")->trigger();
        QCOMPARE(QApplication::clipboard()->text(), u"Gadget"_s);
    }

    void theDataControlWalksTheGridRowAndTheCurrentRecordKeepsItsColour() {
        place(generated(u"MANY.DBF"_s));
        ChildFrm1* child = open(u"MANY.DBF"_s);
        QVERIFY(child);
        FlexGrid* grid = child->MSFlexGrid1;
        QCOMPARE(grid->Rows(), 5001);
        QCOMPARE(grid->Row(), 1);
        auto click = [&](const char* name) {
            child->Data1->findChild<QToolButton*>(QString::fromLatin1(name))->click();
        };
        click("PreviousRecord");
        QCOMPARE(grid->Row(), 1);
        click("NextRecord");
        click("NextRecord");
        QCOMPARE(grid->Row(), 3);
        click("LastRecord");
        QCOMPARE(grid->Row(), 5000);
        QCOMPARE(grid->Text(), u"R004999"_s);
        // The grid holds the rows on screen only; the current cell is coloured while its
        // record is among them, wherever the window was scrolled in between.
        const QAbstractItemModel* model = grid->model();
        const QColor current = SettingColor::toQColor(globals().gBrowserForeColor);
        const int row = 5000 - grid->TopRow();
        QCOMPARE(model->index(row, 0).data(Qt::BackgroundRole).value<QColor>(), current);
        QVERIFY(!model->index(row, 1).data(Qt::BackgroundRole).isValid());
        QVERIFY(!model->index(row - 1, 0).data(Qt::BackgroundRole).isValid());
        grid->setTopRow(1);
        for (int r = 0; r < model->rowCount(); ++r)
            QVERIFY(!model->index(r, 0).data(Qt::BackgroundRole).isValid());
        grid->setTopRow(5000);
        QCOMPARE(model->index(row, 0).data(Qt::BackgroundRole).value<QColor>(), current);
        click("NextRecord");
        QCOMPARE(grid->Row(), 5000);
        click("PreviousRecord");
        QCOMPARE(grid->Row(), 4999);
        click("FirstRecord");
        QCOMPARE(grid->Row(), 1);
        QCOMPARE(child->Data1->Recordset()->AbsolutePosition(), 0);
    }

    void theCurrentCellAndTheGridTakeTheBrowserColoursAndStyle() {
        Globals& g = globals();
        g.gBrowserBackColor = 0x00FFFF; // yellow
        g.gBrowserForeColor = 0x800000; // navy
        g.gBrowserTextStyle = u"I"_s;
        g.gGridLines = false;
        place(generated(u"SALES.DBF"_s), {u"SALES.DBT"_s});
        ChildFrm1* child = open(u"SALES.DBF"_s);
        QVERIFY(child);
        FlexGrid* grid = child->MSFlexGrid1;
        QCOMPARE(grid->textStyle(), FlexGrid::TextInset);
        QCOMPARE(grid->gridLines(), FlexGrid::LinesNone);
        QCOMPARE(grid->palette().color(QPalette::Base), QColor(255, 255, 0));
        QCOMPARE(grid->palette().color(QPalette::Text), QColor(0, 0, 128));
        selectCell(child, 1, 2);
        const QModelIndex cell = grid->model()->index(1, 2);
        QCOMPARE(cell.data(Qt::BackgroundRole).value<QColor>(), QColor(0, 0, 128));
        QCOMPARE(cell.data(Qt::ForegroundRole).value<QColor>(), QColor(255, 255, 0));
        selectCell(child, 2, 2);
        QVERIFY(!cell.data(Qt::BackgroundRole).isValid());

        // With grid lines on, they are raised in the text colour whatever the style.
        g.gGridLines = true;
        g.gBrowserTextStyle = u"F"_s;
        h->activateMain();
        frame()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(frame()));
        child->Form_Activate();
        QCOMPARE(grid->textStyle(), FlexGrid::TextFlat);
        QCOMPARE(grid->gridLines(), FlexGrid::LinesRaised);
        QCOMPARE(grid->gridColor(), QColor(0, 0, 128));
    }

    void anAccessFileListsItsTablesAndIndexes() {
        skipWithoutShared(u"mdb/testV1997.mdb"_s);
        place(shared(u"mdb/testV1997.mdb"_s));
        const QByteArray before = h->folder().read(u"testV1997.mdb"_s);
        ChildFrm1* child = open(u"testV1997.mdb"_s);
        QVERIFY(child);
        QCOMPARE(child->Data1->Connect, u"Access"_s);
        QCOMPARE(entries(child->List1),
                 (QStringList{u"Table1"_s, u"Table2"_s, u"Table3"_s, u"Table4"_s, QString()}));
        QCOMPARE(child->List1->currentRow(), 0);
        QCOMPARE(child->List2->count(), 3); // two indexes and the empty entry
        QCOMPARE(child->List2->currentRow(), 0);
        QCOMPARE(menusEnabled(child), (QList<bool>{true, true, true}));
        QCOMPARE(h->enabledButtons(), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13, 19, 20}));
        QCOMPARE(child->MSFlexGrid1->model()->columnCount(), 9);

        // The table list, then the index list: the first stays on the left.
        child->mnuViewTable_Click();
        QVERIFY(child->Frame1->isVisible());
        QVERIFY(child->List1->isVisible());
        QVERIFY(menu(child, "mnuViewTable")->isChecked());
        child->mnuViewIndex_Click();
        QVERIFY(child->List2->isVisible());
        QVERIFY(child->List1->x() < child->List2->x());
        child->mnuViewTable_Click();
        QVERIFY(!child->List1->isVisible());
        QVERIFY(child->Frame1->isVisible());
        child->mnuViewTable_Click();
        QVERIFY(child->List2->x() < child->List1->x());
        child->mnuViewIndex_Click();
        child->mnuViewTable_Click();
        QVERIFY(!child->Frame1->isVisible());

        // Another table: the grid, the field types and the index list follow it.
        child->List1_Click(1);
        QCOMPARE(frame()->mTableIndex, 1.0);
        QCOMPARE(child->MSFlexGrid1->model()->columnCount(), 89);
        QCOMPARE(child->MSFlexGrid1->model()->headerData(0, Qt::Horizontal).toString(),
                 u"column1"_s);
        // The empty last entry changes nothing.
        child->List1_Click(4);
        QCOMPARE(child->mTableName, u"Table2"_s);
        QCOMPARE(child->MSFlexGrid1->model()->columnCount(), 89);
        child->close();
        QTRY_COMPARE(frame()->mChildCount, qint16(0));
        QCOMPARE(h->folder().read(u"testV1997.mdb"_s), before);
    }

    void theOrganizersOwnFileShowsItsTwoTables() {
        // The start made it in the program's folder.
        ChildFrm1* child = open(u"FileTabl.MDB"_s);
        QVERIFY(child);
        QCOMPARE(entries(child->List1), (QStringList{u"FileTable"_s, u"GroupTable"_s, QString()}));
        QCOMPARE(child->MSFlexGrid1->model()->columnCount(), 12);
        QVERIFY(h->messages().texts().isEmpty());
    }

    void aSecondDatabaseWindowOverwritesTheListsButNotTheFirstsFieldTypes() {
        skipWithoutShared(u"mdb/testV1997.mdb"_s);
        place(shared(u"mdb/testV1997.mdb"_s));
        place(generated(u"SALES.DBF"_s), {u"SALES.DBT"_s});
        ChildFrm1* first = open(u"SALES.DBF"_s);
        QVERIFY(first);
        const std::array<qint16, 301> types = first->mFieldType;
        ChildFrm1* second = open(u"testV1997.mdb"_s);
        QVERIFY(second);
        QVERIFY(first != second);
        QCOMPARE(globals().gFieldCount, 8);
        QCOMPARE(globals().gFieldTypes[8], qint16(1));
        QCOMPARE(first->mFieldType, types);
        QCOMPARE(first->mFieldType[5], qint16(12));
        QVERIFY(second->mFieldType != types);
    }

    void aProtectedAccessFileOpensOnlyWithTheRightPassword() {
        skipWithoutShared(u"mdb/V2003_with-password.mdb"_s);
        place(shared(u"mdb/V2003_with-password.mdb"_s));
        int asked = 0;
        answerModal<Login>([&](Login* login) {
            ++asked;
            QCOMPARE(login->txtPassword->echoMode(), QLineEdit::Password);
            login->OKbtn->click(); // empty
            login->txtPassword->setText(u"Password"_s);
            login->OKbtn->click();
            QVERIFY(login->isVisible());
            QCOMPARE(login->txtPassword->selectedText(), u"Password"_s);
            login->txtPassword->setText(u"password"_s);
            // Enter is OK wherever the focus is, on Cancel too.
            QTest::keyClick(login->Cancelbtn, Qt::Key_Return);
        });
        ChildFrm1* child = open(u"V2003_with-password.mdb"_s);
        QVERIFY(child);
        QCOMPARE(asked, 1);
        const QList<RecordingMessages::Shown>& shown = h->messages().shown();
        QCOMPARE(shown.size(), 2);
        for (const RecordingMessages::Shown& box : shown) {
            QCOMPARE(box.text, u"Invalid Password, try again!"_s);
            QCOMPARE(box.title, u"Login to Database"_s);
        }
        QVERIFY(globals().gLoginOK);
        QCOMPARE(child->Data1->Connect, u";pwd=password"_s);
        QVERIFY(child->List1->count() > 1);

        // The password stays for the next file: the same one opens without asking.
        child->close();
        QTRY_COMPARE(frame()->mChildCount, qint16(0));
        QVERIFY(open(u"V2003_with-password.mdb"_s));
        QCOMPARE(asked, 1);
    }

    void tablesThatCannotBeReadCloseTheirWindowWithTheMessage_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QFile locked(shared(u"mdb/V2003_with-password.mdb"_s));
        if (locked.open(QIODevice::ReadOnly))
            QTest::newRow("login cancelled") << u"locked.mdb"_s << locked.readAll();
        QTest::newRow("garbage mdb") << u"broken.mdb"_s << QByteArray("not a database at all");
        QTest::newRow("empty dbf") << u"empty.dbf"_s << QByteArray();
        QTest::newRow("cut xls") << u"cut.xls"_s << QByteArray("\xD0\xCF\x11\xE0\xA1\xB1", 6);
        QTest::newRow("garbage db") << u"broken.db"_s << QByteArray(300, '\x7f');
        QTest::newRow("garbage wk4") << u"broken.wk4"_s << QByteArray(64, '\x01');
    }

    void tablesThatCannotBeReadCloseTheirWindowWithTheMessage() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        h->folder().write(name, bytes);
        if (name == u"locked.mdb"_s)
            answerModal<Login>([](Login* login) { login->Cancelbtn->click(); });
        h->display(name);
        QTRY_VERIFY(frame());
        QTRY_COMPARE(h->messages().texts(),
                     QStringList{u"Quorvane could not open this Database Table"_s});
        QTRY_COMPARE(frame()->mChildCount, qint16(0));
        QCOMPARE(h->folder().read(name), bytes);
        QVERIFY(!globals().gLoginOK);
    }

    void aTableOfMoreThan251FieldsIsRefused() {
        place(generated(u"WIDE251.XLS"_s));
        place(generated(u"WIDE252.XLS"_s));
        ChildFrm1* fits = open(u"WIDE251.XLS"_s);
        QVERIFY(fits);
        QCOMPARE(fits->MSFlexGrid1->model()->columnCount(), 251);
        QVERIFY(h->messages().texts().isEmpty());
        h->display(u"WIDE252.XLS"_s);
        QTRY_COMPARE(h->messages().texts(),
                     QStringList{u"Quorvane could not open this Database Table"_s});
        QTRY_COMPARE(frame()->mChildCount, qint16(1));
    }

    void paradoxAndLotusFilesOpenWithTheirConnectStrings() {
        if (QFileInfo::exists(shared(u"paradox/AREACODE.DB"_s))) {
            place(shared(u"paradox/AREACODE.DB"_s), {u"AREACODE.PX"_s});
            ChildFrm1* paradox = open(u"AREACODE.DB"_s);
            QVERIFY(paradox);
            QCOMPARE(paradox->mConnect, u"Paradox 5.x;"_s);
            QVERIFY(paradox->MSFlexGrid1->model()->rowCount() > 0);
            QVERIFY(!frame()->button(12)->isEnabled());
        }
        if (QFileInfo::exists(shared(u"lotus/testLotus123-lotusftp.wk4"_s))) {
            place(shared(u"lotus/testLotus123-lotusftp.wk4"_s));
            ChildFrm1* lotus = open(u"testLotus123-lotusftp.wk4"_s);
            QVERIFY(lotus);
            QCOMPARE(lotus->mConnect, u"Lotus WK4;"_s);
            QVERIFY(lotus->MSFlexGrid1->model()->columnCount() > 0);
        }
        QVERIFY(h->messages().texts().isEmpty());
    }

    void aCancelledMoveLeavesTheTableShown() {
        place(generated(u"SALES.DBF"_s), {u"SALES.DBT"_s});
        ChildFrm1* child = open(u"SALES.DBF"_s);
        QVERIFY(child);
        menu(child, "mnuFileMove")->trigger(); // the destination dialog answers Cancel
        QCOMPARE(h->messages().shown().last().kind, u"save"_s);
        QCOMPARE(frame()->mChildCount, qint16(1));
        QVERIFY(child->Data1->Recordset());
        QCOMPARE(child->MSFlexGrid1->model()->rowCount(), 3);
    }
};

QTEST_MAIN(DatabaseWindowTest)
#include "DatabaseWindowTest.moc"
