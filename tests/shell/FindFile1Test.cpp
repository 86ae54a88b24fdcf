#include "shell/FindFile1.h"
#include "support/MainWindowHarness.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

using namespace Qt::StringLiterals;

class FindFile1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    QComboBox* filter() { return h->window()->findChild<QComboBox*>(u"CMBFILEFLTR"_s); }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
    }

    void cleanup() { h.reset(); }

    void theWindowOpensOnItsFirstTabDisarmed() {
        globals().gSearchArmed = true;
        FindFile1 find(h->window());
        QVERIFY(globals().gFindFileOpen);
        QVERIFY(!globals().gSearchArmed);
        QCOMPARE(find.TabStrip1->count(), 5);
        find.show();
        QVERIFY(find.Frame1[0]->isVisible());
        for (int tab = 1; tab < 5; ++tab)
            QVERIFY(!find.Frame1[size_t(tab)]->isVisible());
        // A tab shows its own frame only.
        find.TabStrip1->setCurrentIndex(3);
        QVERIFY(find.Frame1[3]->isVisible());
        QVERIFY(!find.Frame1[0]->isVisible());
    }

    void okHandsTheClickedRowsMaskAndFilterToTheSearch() {
        FindFile1 find(h->window());
        find.show();
        find.TabStrip1->setCurrentIndex(3);
        find.findChild<QRadioButton*>(u"RDDATA(5)"_s)->click();
        find.OKBtn->click();
        QCOMPARE(globals().gSearchMask, u"*.XLS;*.WK4"_s);
        QVERIFY(globals().gSearchArmed);
        QVERIFY(!globals().gFindFileOpen);
        QCOMPARE(filter()->currentIndex(), 32);
        QCOMPARE(find.result(), int(QDialog::Accepted));
    }

    void enterInTheTextBoxSearchesTheTypedMaskFromAnyTab() {
        FindFile1 find(h->window());
        find.show();
        find.TabStrip1->setCurrentIndex(4);
        find.Text1->setText(u"*.ZIP"_s);
        find.TabStrip1->setCurrentIndex(0);
        find.findChild<QRadioButton*>(u"RDPICT(2)"_s)->click();
        find.Text1->setFocus();
        QTest::keyClick(find.Text1, Qt::Key_Return);
        QCOMPARE(globals().gSearchMask, u"*.ZIP"_s);
        QCOMPARE(filter()->currentIndex(), 33);
        QVERIFY(globals().gSearchArmed);
    }

    void cancelEscAndTheCloseBoxLeaveTheSearchUnarmedAndCancelled() {
        const std::function<void(FindFile1&)> ways[] = {
            [](FindFile1& find) { find.CancelBtn->click(); },
            [](FindFile1& find) { QTest::keyClick(find.TabStrip1, Qt::Key_Escape); },
            [](FindFile1& find) { find.close(); },
        };
        for (const auto& cancel : ways) {
            globals().gSearchMask = u"*.BMP"_s;
            globals().gFindCancelled = false;
            FindFile1 find(h->window());
            find.show();
            cancel(find);
            QVERIFY(globals().gFindCancelled);
            QVERIFY(!globals().gSearchArmed);
            QVERIFY(!globals().gFindFileOpen);
            QCOMPARE(globals().gSearchMask, u"*.BMP"_s);
            QCOMPARE(find.result(), int(QDialog::Rejected));
        }
    }
};

QTEST_MAIN(FindFile1Test)
#include "FindFile1Test.moc"
