#include "platform/FlexGrid.h"
#include "platform/tables/TableGridModel.h"
#include "platform/tables/TableRecordset.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int ManyRecords = 5000;

QString tables() {
    return QStringLiteral(QUORVANE_GENERATED_TABLES);
}

// The key MANY.DBF holds in its first field for a record.
QString keyOf(int record) {
    return u"R%1"_s.arg(record, 6, 10, QChar(u'0'));
}

} // namespace

class FlexGridTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TableRecordset> m_records;
    std::unique_ptr<TableGridModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
    std::unique_ptr<FlexGrid> m_grid;

    // The key the grid paints in a row of the screen, found by the row's place on it.
    QString keyOnScreen(int screenRow) const {
        const QPoint at(m_grid->columnViewportPosition(0) + 4,
                        m_grid->rowViewportPosition(screenRow) + m_grid->rowHeight(0) / 2);
        return m_grid->indexAt(at).data().toString();
    }

    // Every row wholly on screen shows the record that follows the first one shown.
    void verifyScreenFrom(int firstRecord) const {
        QCOMPARE(m_grid->TopRow(), firstRecord + 1);
        QCOMPARE(m_grid->verticalScrollBar()->value(), firstRecord);
        for (int row = 0; row < m_grid->rowsOnScreen(); ++row)
            QCOMPARE(keyOnScreen(row), keyOf(firstRecord + row));
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(m_grid.get(), key, modifiers);
    }

    // The view's current index is the current record's cell exactly when the record is in
    // the window.
    void verifyCurrentCell() const {
        const int record = m_grid->Row() - 1;
        const int row = record - (m_grid->TopRow() - 1);
        const QModelIndex current = m_grid->currentIndex();
        if (row >= 0 && row < m_model->rowCount()) {
            QCOMPARE(current.row(), row);
            QCOMPARE(current.column(), m_grid->Col());
            QCOMPARE(current.data().toString(), m_grid->Text());
        } else {
            QVERIFY(!current.isValid());
        }
    }

private Q_SLOTS:
    void init() {
        TableRecordset::Opened opened =
            TableRecordset::open(u"dBASE 5.0;"_s, tables(), u"MANY.DBF"_s);
        QVERIFY2(opened.recordset, qPrintable(opened.error.description()));
        m_records = std::move(opened.recordset);
        m_model = std::make_unique<TableGridModel>();
        m_tester = std::make_unique<QAbstractItemModelTester>(
            m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_grid = std::make_unique<FlexGrid>();
        m_grid->setObjectName(u"grid"_s);
        m_grid->setModel(m_model.get());
        m_model->setRows(m_records.get());
        m_grid->resize(420, 300);
        m_grid->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_grid.get()));
        m_grid->setFocus();
        m_grid->setRow(1);
    }

    void cleanup() {
        m_grid.reset();
        m_tester.reset();
        m_model.reset();
        m_records.reset();
    }

    void theModelHoldsOnlyTheRowsOnScreenWhileTheBarCoversTheTable() {
        const int rows = m_grid->rowsOnScreen();
        QVERIFY(rows >= 5);
        QVERIFY(rows < 40);
        QCOMPARE(m_grid->Rows(), ManyRecords + 1);
        QCOMPARE(m_model->recordCount(), ManyRecords);
        // The rows on screen and the one cut by the bottom edge, and the view has a header
        // section for these only.
        QCOMPARE(m_model->rowCount(), rows + 1);
        QCOMPARE(m_grid->verticalHeader()->count(), rows + 1);
        QCOMPARE(m_grid->verticalHeader()->offset(), 0);
        const QScrollBar* bar = m_grid->verticalScrollBar();
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), ManyRecords - rows);
        QCOMPARE(bar->pageStep(), rows);
        QTRY_VERIFY(bar->isVisible());
        verifyScreenFrom(0);
        QCOMPARE(m_grid->Row(), 1);
        QCOMPARE(m_grid->Text(), keyOf(0));

        // A taller grid takes more rows into its window, and its bar ends sooner.
        m_grid->resize(420, 600);
        QTRY_VERIFY(m_grid->rowsOnScreen() > rows);
        QTRY_COMPARE(m_model->rowCount(), m_grid->rowsOnScreen() + 1);
        QCOMPARE(bar->maximum(), ManyRecords - m_grid->rowsOnScreen());
        verifyScreenFrom(0);
    }

    void setTopRowShowsThatRecordFirst() {
        m_grid->setTopRow(4000);
        verifyScreenFrom(3999);
        QCOMPARE(m_model->rowCount(), m_grid->rowsOnScreen() + 1);
        QCOMPARE(m_grid->verticalHeader()->offset(), 0);
        const int rows = m_grid->rowsOnScreen();
        QVERIFY(!m_grid->RowIsVisible(3999));
        QVERIFY(m_grid->RowIsVisible(4000));
        QVERIFY(m_grid->RowIsVisible(3999 + rows));
        QVERIFY(!m_grid->RowIsVisible(4000 + rows));
        // The current record stays the first, out of the window, and is still read.
        QCOMPARE(m_grid->Row(), 1);
        QCOMPARE(m_grid->Text(), keyOf(0));
        QVERIFY(!m_grid->RowIsVisible(1));
        verifyCurrentCell();
        m_grid->grab(); // paints the window without the current cell
        QApplication::clipboard()->clear();
        key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), keyOf(0));
        verifyScreenFrom(3999); // copying does not scroll

        // Near the end the last screen stays full.
        m_grid->setTopRow(ManyRecords);
        verifyScreenFrom(ManyRecords - rows);
        QVERIFY(m_grid->RowIsVisible(ManyRecords));
        QCOMPARE(keyOnScreen(rows - 1), keyOf(ManyRecords - 1));
        // Outside the table nothing moves.
        m_grid->setTopRow(0);
        m_grid->setTopRow(ManyRecords + 1);
        verifyScreenFrom(ManyRecords - rows);

        m_grid->setTopRow(1);
        verifyScreenFrom(0);
        verifyCurrentCell();
        QVERIFY(m_grid->currentIndex().isValid());
    }

    void draggingTheBarToItsEndShowsTheLastRecords() {
        QScrollBar* bar = m_grid->verticalScrollBar();
        bar->setSliderDown(true);
        bar->setSliderPosition(bar->maximum() / 2);
        verifyScreenFrom(bar->maximum() / 2);
        bar->setSliderPosition(bar->maximum());
        bar->setSliderDown(false);
        const int rows = m_grid->rowsOnScreen();
        verifyScreenFrom(ManyRecords - rows);
        QVERIFY(m_grid->RowIsVisible(ManyRecords));
        QCOMPARE(keyOnScreen(rows - 1), keyOf(ManyRecords - 1));
        // The row cut by the bottom edge is the window's last and holds no record here.
        QCOMPARE(m_model->rowCount(), rows);

        // A clicked row there becomes the current record.
        const QPoint at(m_grid->columnViewportPosition(1) + 4,
                        m_grid->rowViewportPosition(rows - 2) + 2);
        QSignalSpy entered(m_grid.get(), &FlexGrid::EnterCell);
        QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(m_grid->Row(), ManyRecords - 1);
        QCOMPARE(m_grid->Col(), 1);
        QCOMPARE(entered.size(), 1);
        QCOMPARE(entered.first().at(0).toInt(), ManyRecords - 2);
        QCOMPARE(entered.first().at(1).toInt(), 1);
        verifyCurrentCell();

        // The wheel scrolls the window up and down by lines.
        const int lines = QApplication::wheelScrollLines();
        const QPoint middle = m_grid->viewport()->rect().center();
        QWheelEvent up(middle, m_grid->viewport()->mapToGlobal(middle), QPoint(), QPoint(0, 120),
                       Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_grid->viewport(), &up);
        verifyScreenFrom(ManyRecords - rows - lines);
        QWheelEvent down(middle, m_grid->viewport()->mapToGlobal(middle), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_grid->viewport(), &down);
        verifyScreenFrom(ManyRecords - rows);
        QCOMPARE(m_grid->Row(), ManyRecords - 1);
    }

    void keysMoveTheCurrentCellAcrossTheWindowsEdges() {
        const int rows = m_grid->rowsOnScreen();
        QSignalSpy entered(m_grid.get(), &FlexGrid::EnterCell);
        QSignalSpy left(m_grid.get(), &FlexGrid::LeaveCell);
        for (int i = 1; i < rows; ++i)
            key(Qt::Key_Down);
        QCOMPARE(m_grid->Row(), rows);
        verifyScreenFrom(0);
        // One more: the window moves by one record and the current cell stays on screen.
        key(Qt::Key_Down);
        QCOMPARE(m_grid->Row(), rows + 1);
        QCOMPARE(m_grid->Text(), keyOf(rows));
        QVERIFY(m_grid->RowIsVisible(rows + 1));
        verifyScreenFrom(1);
        verifyCurrentCell();
        QCOMPARE(entered.size(), rows);
        QCOMPARE(left.size(), rows);
        QCOMPARE(left.last().at(0).toInt(), rows - 1);
        QCOMPARE(entered.last().at(0).toInt(), rows);
        QCOMPARE(entered.last().at(1).toInt(), 0);

        // Each key: the current record and column after it, and the first record shown.
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            int row, column, firstShown;
        } steps[] = {
            {Qt::Key_PageDown, {}, 2 * rows + 1, 0, rows + 1},
            {Qt::Key_End, Qt::ControlModifier, ManyRecords, 1, ManyRecords - rows},
            {Qt::Key_Down, {}, ManyRecords, 1, ManyRecords - rows}, // no further
            {Qt::Key_Home, {}, ManyRecords, 0, ManyRecords - rows},
            {Qt::Key_PageUp, {}, ManyRecords - rows, 0, ManyRecords - rows - 1},
            {Qt::Key_Up, {}, ManyRecords - rows - 1, 0, ManyRecords - rows - 2},
        };
        for (const auto& s : steps) {
            key(s.key, s.modifiers);
            QCOMPARE(m_grid->Row(), s.row);
            QCOMPARE(m_grid->Col(), s.column);
            QVERIFY(m_grid->RowIsVisible(s.row));
            verifyScreenFrom(s.firstShown);
            verifyCurrentCell();
        }
        QCOMPARE(m_grid->Text(), keyOf(ManyRecords - rows - 2));
        QCOMPARE(left.last().at(0).toInt(), ManyRecords - rows - 1);
        QCOMPARE(entered.last().at(0).toInt(), ManyRecords - rows - 2);

        // From a current record scrolled out of view, a key brings it back first.
        m_grid->setTopRow(100);
        QVERIFY(!m_grid->RowIsVisible(m_grid->Row()));
        verifyCurrentCell();
        key(Qt::Key_Right);
        QCOMPARE(m_grid->Col(), 1);
        QVERIFY(m_grid->RowIsVisible(ManyRecords - rows - 1));
        verifyCurrentCell();
        key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(m_grid->Row(), 1);
        QCOMPARE(m_grid->Col(), 0);
        verifyScreenFrom(0);
        key(Qt::Key_Up);
        QCOMPARE(m_grid->Row(), 1);
        verifyCurrentCell();
    }

    void setRowBringsTheRecordIntoView() {
        m_grid->setRow(2500);
        QCOMPARE(m_grid->Row(), 2500);
        QVERIFY(m_grid->RowIsVisible(2500));
        QCOMPARE(m_grid->Text(), keyOf(2499));
        verifyCurrentCell();
        m_grid->setRow(ManyRecords);
        QVERIFY(m_grid->RowIsVisible(ManyRecords));
        QCOMPARE(m_grid->TopRow(), ManyRecords - m_grid->rowsOnScreen() + 1);
        m_grid->setRow(ManyRecords + 1); // outside the table: nothing moves
        m_grid->setRow(0);
        QCOMPARE(m_grid->Row(), ManyRecords);
        QCOMPARE(m_grid->Text(), keyOf(ManyRecords - 1));

        // A new order of the records starts again at the top with no current record.
        m_model->refresh();
        QCOMPARE(m_grid->Row(), 0);
        QCOMPARE(m_grid->TopRow(), 1);
        QCOMPARE(m_grid->verticalScrollBar()->value(), 0);
        QCOMPARE(m_model->rowCount(), m_grid->rowsOnScreen() + 1);
        QVERIFY(!m_grid->currentIndex().isValid());
    }
};

QTEST_MAIN(FlexGridTest)
#include "FlexGridTest.moc"
