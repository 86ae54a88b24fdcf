#include "help/HelpWindow.h"
#include "media/ThumBrow1.h"
#include "platform/SettingColor.h"
#include "platform/TextFile.h"
#include "settings/SetColor1.h"
#include "settings/SetFoldr1.h"
#include "settings/SetOptns1.h"
#include "shell/ShellList.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

// The options, colours and working folders, each opened from the main window's menu.
class SettingsWindowsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    void command(const char* name) {
        h->window()->findChild<QAction*>(QString::fromLatin1(name))->trigger();
    }
    QStringList fileLines(const QString& name) {
        return TextFile::readLines(h->folder().file(name)).lines;
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        h->start();
    }
    void cleanup() { h.reset(); }

    void optionsAreRefusedWithTheFirstFailureThenMoveThePanesAndAreWritten() {
        auto* tree = h->window()->findChild<QTreeView*>(u"PTxShTree1"_s);
        auto* frame1 = h->window()->findChild<QFrame*>(u"Frame1"_s);
        QString focused;
        answerModal<SetOptns1>([&](SetOptns1* w) {
            for (const auto& [box, text] :
                 {std::pair{0, "0.1"}, {1, "0.2"}, {6, "19"}, {4, "abc"}, {5, ""}})
                w->Text1[size_t(box)]->setText(QString::fromLatin1(text));
            // Each mend leads to the next check; the last one passes them all.
            for (const auto& [box, text] :
                 {std::pair{1, "3"}, {6, "30"}, {4, "2500"}, {5, "600 more"}}) {
                w->OKBtn->click();
                focused += w->focusWidget() ? w->focusWidget()->objectName() + u' ' : u"- "_s;
                w->Text1[size_t(box)]->setText(QString::fromLatin1(text));
            }
            w->CHKGRIDLINE->setChecked(!globals().gGridLines);
            w->Text1[2]->setText(u"me, you@example.org"_s);
            w->OKBtn->click();
        });
        command("mnuUtilitiesOptions");
        QCOMPARE(h->messages().texts(),
                 (QStringList{u"Invalid Sizes for ThumbNail Images"_s,
                              u"Enter a Percentage between 20 and 80"_s,
                              u"Enter a Number between 2,500 and 10,000"_s,
                              u"Enter a Percentage between 500 and 2500"_s}));
        QCOMPARE(focused, u"Text1(0) Text1(6) Text1(4) Text1(5) "_s);
        QVERIFY(!WindowRegistry::find(SetOptns1::WindowName()));
        QCOMPARE(globals().gSeparatorPercent, 30);
        QCOMPARE(globals().gSearchAdditional, 600);
        QCOMPARE(globals().gFromAddress, u"me, you@example.org"_s);
        // The tree takes its new share at once, and the file keeps the options.
        QVERIFY(qAbs(tree->width() - frame1->width() * 0.295) <= 1.5);
        const QStringList lines = fileLines(u"Options.INI"_s);
        QCOMPARE(lines.value(19), u"600"_s);
        QCOMPARE(lines.value(22), u"me, you@example.org"_s);
    }

    void aChosenColourReachesTheFileAndTheWindowsOfItsRoleCancelChangesNothing() {
        const QColor chosen(10, 200, 30);
        const qint32 before = globals().gSelectionItemColor;
        for (bool ok : {false, true}) {
            answerModal<SetColor1>([&](SetColor1* w) {
                h->messages().answer(chosen);
                QTest::mouseDClick(w->Text1[8], Qt::LeftButton);
                QCOMPARE(w->swatchColor(8), SettingColor::fromQColor(chosen));
                (ok ? w->OKBtn : w->CancelBtn)->click();
            });
            command("mnuUtilitiesColors");
            QCOMPARE(globals().gSelectionItemColor, ok ? SettingColor::fromQColor(chosen) : before);
        }
        QCOMPARE(fileLines(u"Colors.INI"_s).value(16),
                 QString::number(SettingColor::fromQColor(chosen)));
        // The thumbnail list takes the selection colour when it is next activated.
        WindowRegistry::show(ThumBrow1::WindowName());
        auto* thumbs = qobject_cast<ThumBrow1*>(WindowRegistry::find(ThumBrow1::WindowName()));
        thumbs->activateWindow();
        QTRY_COMPARE(thumbs->ImagList1->palette().color(QPalette::Highlight), chosen);
        thumbs->close();
    }

    void theFolderListIsEditedSavedAndSteppedThrough() {
        const QString sub = h->folder().file(u"Data (old)"_s);
        QDir().mkpath(sub);
        h->folder().write(u"Data (old)/a.txt"_s, "x");
        h->window()->showFolder(sub);
        command("mnuUtilitiesFolder");
        QPointer<SetFoldr1> w = qobject_cast<SetFoldr1*>(WindowRegistry::find(u"SetFoldr1"_s));
        QVERIFY(w && globals().gSetFoldrOpen);
        QCOMPARE(w->dirPath(), sub);
        w->CMBFILTER->setCurrentIndex(31);
        QCOMPARE(w->File1->count(), 1);
        w->RightBtn->click();
        w->CMBFILTER->setCurrentIndex(5);
        w->RightBtn->click();
        const QStringList added{sub + u" (31)"_s, sub + u" (5)"_s};
        const auto entries = [&] {
            QStringList all;
            for (int i = 0; i < w->List1->count(); ++i)
                all.append(w->List1->item(i)->text());
            return all;
        };
        QCOMPARE(entries(), added);
        // At the edges nothing moves; elsewhere the entry moves and stays selected.
        w->DownBtn->click();
        QCOMPARE(entries(), added);
        w->UpBtn->click();
        QCOMPARE(entries(), (QStringList{added[1], added[0]}));
        QCOMPARE(w->List1->currentRow(), 0);
        w->UpBtn->click();
        QCOMPARE(w->List1->currentRow(), 0);
        w->List1->setCurrentRow(1);
        w->LefttBtn->click();
        QCOMPARE(entries(), QStringList{added[1]});
        QCOMPARE(w->List1->currentRow(), 0);
        w->OKBtn->click();
        QTRY_VERIFY(!w);
        QCOMPARE(fileLines(u"FoldFile.INI"_s), QStringList{added[1]});

        // One entry: every press shows its folder and filter again.
        h->window()->showFolder(h->folder().path());
        auto* foldr = h->window()->findChild<QToolButton*>(u"FoldrBtn"_s);
        auto* filter = h->window()->findChild<QComboBox*>(u"CMBFILEFLTR"_s);
        for (int press = 0; press < 2; ++press) {
            filter->setCurrentIndex(0);
            foldr->click();
            QCOMPARE(h->window()->shellList()->folder(), sub);
            QCOMPARE(filter->currentIndex(), 5);
        }
        // A filter beyond the list is an error in the set-up.
        h->window()->setWorkingFolders({sub + u" (99)"_s});
        foldr->click();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"Error in Folder List Setup - Please Set up Folder List"_s});

        // Cleared and saved: one empty line in the file, nothing in the main window's list.
        command("mnuUtilitiesFolder");
        w = qobject_cast<SetFoldr1*>(WindowRegistry::find(u"SetFoldr1"_s));
        w->ClearBtn->click();
        w->OKBtn->click();
        QTRY_VERIFY(!w);
        QCOMPARE(fileLines(u"FoldFile.INI"_s), QStringList{QString()});
        QVERIFY(h->window()->workingFolders().isEmpty());
    }

    void everyWindowReachedByNameNamesItsControls() {
        h->folder().writePicture(u"p.png"_s, QSize(40, 30));
        QVERIFY(h->openDocument(u"p.png"_s));
        QStringList missing;
        for (const char* name :
             {"SetOptns1", "SetColor1", "SetFoldr1", "QuikTip1", "About1", "HelpWindow", "AddText1",
              "AddShape1", "SendFile1", "MailAddr1", "ThumBrow1", "AudioVideo1", "PrntFrm1"}) {
            // The help window is made by the help itself, not by name.
            QWidget* window = qstrcmp(name, "HelpWindow") == 0
                                  ? WindowRegistry::get<HelpWindow>()
                                  : WindowRegistry::touch(QString::fromLatin1(name));
            QVERIFY2(window, name);
            for (QWidget* w : window->findChildren<QWidget*>()) {
                const bool control = qobject_cast<QAbstractButton*>(w) ||
                                     qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
                                     qobject_cast<QAbstractItemView*>(w);
                if (control && w->accessibleName().isEmpty() &&
                    !w->objectName().startsWith(u"qt_"_s) && w->isVisibleTo(window))
                    missing.append(QString::fromLatin1(name) + u'.' + w->objectName() + u'.' +
                                   QString::fromLatin1(w->metaObject()->className()));
            }
            window->close();
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u", "_s)));
    }
};

QTEST_MAIN(SettingsWindowsTest)
#include "SettingsWindowsTest.moc"
