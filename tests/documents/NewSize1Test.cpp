#include "documents/NewSize1.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Results {
    bool ok = false;
    int width = 0, height = 0;
    bool resample = false;
};

Results resultsOf(NewSize1& dialog) {
    Results r;
    dialog.GetResults(r.ok, r.width, r.height, r.resample);
    return r;
}

} // namespace

class NewSize1Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsFromThePicturesSizeWithTheAspectKept() {
        NewSize1 dialog(400, 300);
        dialog.InitTheForm(NewSize1::Picture);
        QCOMPARE(QSize(dialog.widthBar()->value(), dialog.heightBar()->value()), QSize(400, 300));
        QCOMPARE(dialog.widthText()->text() + u'x' + dialog.heightText()->text(), u"400x300"_s);
        QCOMPARE(QSize(dialog.widthBar()->maximum(), dialog.heightBar()->maximum()),
                 QSize(16384, 12288));
        QVERIFY(dialog.findChild<QCheckBox*>(u"CHKASPECT"_s)->isChecked());
        QVERIFY(!dialog.findChild<QCheckBox*>(u"CHKRESAMPLE"_s)->isChecked());
    }

    void theHeightFollowsTheWidthOnceAndDoesNotComeBack() {
        NewSize1 dialog(300, 200);
        dialog.InitTheForm(NewSize1::Picture);
        dialog.widthBar()->setValue(451); // height 300.67 -> 301
        QCOMPARE(dialog.widthText()->text(), u"451"_s);
        QCOMPARE(dialog.heightBar()->value(), 301);
        QCOMPARE(dialog.heightText()->text(), u"301"_s);
        QCOMPARE(dialog.widthBar()->value(), 451); // not 452 from 301 / ratio

        dialog.widthText()->setText(u"150"_s);
        QCOMPARE(dialog.widthBar()->value(), 150);
        QCOMPARE(dialog.heightBar()->value(), 100);
        dialog.heightText()->setText(u"50"_s);
        QCOMPARE(dialog.widthBar()->value(), 75);
        QCOMPARE(dialog.widthText()->text(), u"75"_s);
    }

    void withoutTheAspectEachSideStandsAlone() {
        NewSize1 dialog(300, 200);
        dialog.InitTheForm(NewSize1::Picture);
        QTest::mouseClick(dialog.findChild<QCheckBox*>(u"CHKASPECT"_s), Qt::LeftButton);
        QVERIFY(!dialog.findChild<QCheckBox*>(u"CHKASPECT"_s)->isChecked());
        dialog.widthBar()->setValue(500);
        QCOMPARE(dialog.heightBar()->value(), 200);
        QCOMPARE(dialog.heightText()->text(), u"200"_s);
    }

    void blankOrWrongTextsRefuseOkInSilence() {
        for (const QString& bad : {QString(), u"12a"_s, u"0"_s, u"99999"_s}) {
            NewSize1 dialog(300, 200);
            dialog.InitTheForm(NewSize1::Picture);
            dialog.widthText()->setText(bad);
            QTest::mouseClick(dialog.findChild<QPushButton*>(u"OKBtn"_s), Qt::LeftButton);
            QVERIFY2(!resultsOf(dialog).ok, qPrintable(bad));
            QCOMPARE(dialog.result(), int(QDialog::Rejected));
        }
        NewSize1 dialog(300, 200);
        dialog.InitTheForm(NewSize1::Picture);
        dialog.findChild<QCheckBox*>(u"CHKRESAMPLE"_s)->setChecked(true);
        QTest::mouseClick(dialog.findChild<QPushButton*>(u"OKBtn"_s), Qt::LeftButton);
        const Results r = resultsOf(dialog);
        QVERIFY(r.ok && r.resample);
        QCOMPARE(QSize(r.width, r.height), QSize(300, 200));
    }

    void aTallNarrowPictureHoldsTheHeightBarTo32767() {
        NewSize1 dialog(10, 1000);
        dialog.InitTheForm(NewSize1::Picture);
        QCOMPARE(dialog.heightBar()->maximum(), 32767);
        dialog.widthBar()->setValue(1000); // height 100,000 is held to 32767
        QCOMPARE(dialog.heightBar()->value(), 32767);
        QCOMPARE(NewSize1::heightFor(3, 2.0 / 3.0), 2);
        QCOMPARE(NewSize1::widthFor(5, 2.0), 2); // 2.5 to the even whole number
    }

    void enterIsOkWhicheverControlHasTheFocus() {
        for (const char* name : {"CancelBtn", "HelpBtn", "CHKASPECT", "SCWeight1", "TxtHeight1"}) {
            NewSize1 dialog(300, 200);
            dialog.InitTheForm(NewSize1::Picture);
            auto* control = dialog.findChild<QWidget*>(QString::fromLatin1(name));
            QVERIFY2(control, name);
            QTest::keyClick(control, Qt::Key_Return);
            QVERIFY2(resultsOf(dialog).ok, name);
            QCOMPARE(resultsOf(dialog).width, 300);
        }
    }
};

QTEST_MAIN(NewSize1Test)
#include "NewSize1Test.moc"
