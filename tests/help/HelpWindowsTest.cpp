#include "documents/MDIForm1.h"
#include "help/About1.h"
#include "help/HelpWindow.h"
#include "help/QuikTip1.h"
#include "media/ProPert1.h"
#include "platform/AppError.h"
#include "shell/Help.h"
#include "support/MainWindowHarness.h"
#include "support/ModalAnswer.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QString kResources = QStringLiteral(QUORVANE_RESOURCES);

HelpWindow* helpWindow() {
    return qobject_cast<HelpWindow*>(WindowRegistry::find(HelpWindow::WindowName()));
}

QuikTip1* tipWindow() {
    return qobject_cast<QuikTip1*>(WindowRegistry::find(QuikTip1::WindowName()));
}

// Lets the windows that closed go.
void flushDeletes() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

// The help window, the quick tips and About, with the delivered help pages and tips in the
// program folder.
class HelpWindowsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;

    // Starts the main window, with the tips shown at start-up or not.
    void start(bool tipsAtStart = false) {
        if (tipsAtStart) {
            OptionSettings options;
            options.gAskComputer = false;
            options.gQuickTipsOption = true;
            OptionsFile::save(h->folder().file(u"Options.INI"_s), options, QString());
        }
        h->start();
    }

    // The tips window opened on a TIPHELP.TXT of these bytes, or on none.
    QuikTip1* openTips(const std::optional<QByteArray>& bytes) {
        QFile::remove(h->folder().file(u"TIPHELP.TXT"_s));
        if (bytes)
            h->folder().write(u"TIPHELP.TXT"_s, *bytes);
        WindowRegistry::show(QuikTip1::WindowName());
        return tipWindow();
    }

    void closeTips() {
        if (QuikTip1* tips = tipWindow())
            tips->close();
        flushDeletes();
    }

private Q_SLOTS:
    void init() {
        h = std::make_unique<MainWindowHarness>();
        const QDir help(kResources + u"/Help"_s);
        QDir(h->folder().path()).mkdir(u"Help"_s);
        for (const QString& name : help.entryList(QDir::Files))
            QFile::copy(help.filePath(name), h->folder().file(u"Help/"_s + name));
    }

    void cleanup() {
        for (const QString& name : {HelpWindow::WindowName(), QuikTip1::WindowName(),
                                    About1::WindowName(), u"SendFile1"_s})
            WindowRegistry::unload(name);
        flushDeletes();
        h.reset();
    }

    void oneTipAlwaysShowsThatTip() {
        start();
        QuikTip1* tips = openTips(QByteArray("The only tip\r\n"));
        QVERIFY(tips && tips->isVisible());
        QCOMPARE(tips->windowTitle(), u"Quick Tip of the Day"_s);
        for (int press = 0; press < 6; ++press) {
            QCOMPARE(tips->lblTipText->text(), u"The only tip"_s);
            QCOMPARE(tips->CurrentTip, qsizetype(1));
            tips->NextTipBtn->click();
        }
        QVERIFY(h->messages().shown().isEmpty());
    }

    void aFileOfZeroLinesShowsNothingAndLoads() {
        start();
        QuikTip1* tips = openTips(QByteArray());
        QVERIFY(tips);
        QCOMPARE(tips->lblTipText->text(), QString());
        QCOMPARE(tips->CurrentTip, qsizetype(1));
        QVERIFY(tips->Tips.isEmpty());
        QVERIFY(tips->LoadTips(h->folder().file(u"TIPHELP.TXT"_s)));
        QCOMPARE(tips->lblTipText->text(), QString());
        QVERIFY(h->messages().shown().isEmpty());
    }

    void aMissingFileSaysSoAndExplainsInTheWindow() {
        start();
        QuikTip1* tips = openTips(std::nullopt);
        QVERIFY(tips && tips->isVisible());
        QCOMPARE(h->messages().texts(), QStringList{u"Error Loading Quick Tips File"_s});
        QCOMPARE(tips->lblTipText->text(),
                 u"That the TIPHELP.TXT file was not found? \r\nCreate a text file named "
                 "TIPHELP.TXT using NotePad with 1 tip per line. Then place it in the same "
                 "directory as the application. "_s);
        QVERIFY(!tips->LoadTips(QString()));
        QCOMPARE(h->messages().shown().size(), 2);
    }

    void aVeryLongTipShowsCutAndStaysWholeInTheList() {
        // Odd files are read by QuickTips, whose own test covers them; the window cuts what it
        // shows.
        start();
        const QByteArray longLine(200000, 'x');
        QuikTip1* tips = openTips(longLine + "\n");
        QVERIFY(tips);
        QCOMPARE(tips->Tips.size(), qsizetype(1));
        QCOMPARE(tips->Tips.at(0).size(), qsizetype(200000));
        QCOMPARE(tips->lblTipText->text(), QString(QuikTip1::MaxShownLength, u'x') + u'\u2026');
        QVERIFY(h->messages().shown().isEmpty());
    }

    void okKeepsTheBoxAndClosingOtherwiseLeavesTheOption() {
        start();
        enum Close { Ok, ReturnKey, Escape, CloseBox };
        const struct {
            bool option;
            bool tick;
            Close close;
            bool after;
        } cases[] = {
            {false, false, Ok, true},        {true, true, Ok, false},
            {false, false, ReturnKey, true}, {false, false, Escape, false},
            {false, false, CloseBox, false}, {true, true, CloseBox, true},
        };
        for (const auto& c : cases) {
            globals().gQuickTipsOption = c.option;
            QuikTip1* tips = openTips(QByteArray("A tip\r\n"));
            QVERIFY(tips);
            QCOMPARE(tips->chkLoadTipsAtStartup->isChecked(), !c.option);
            QVERIFY(globals().gShowTipsNow);
            tips->chkLoadTipsAtStartup->setChecked(c.tick);
            switch (c.close) {
            case Ok:
                tips->OKBtn->click();
                break;
            case ReturnKey:
                QTest::keyClick(tips->NextTipBtn, Qt::Key_Return);
                break;
            case Escape:
                QTest::keyClick(tips, Qt::Key_Escape);
                break;
            case CloseBox:
                tips->close();
                break;
            }
            flushDeletes();
            QVERIFY(!tipWindow());
            QCOMPARE(globals().gQuickTipsOption, c.after);
            QVERIFY(!globals().gShowTipsNow);
        }
    }

    void theTipsShowAtTheFirstActivationAndNotAgainOnceClosed() {
        QFile::copy(kResources + u"/TIPHELP.TXT"_s, h->folder().file(u"TIPHELP.TXT"_s));
        start(true);
        QTRY_VERIFY(tipWindow() && tipWindow()->isVisible());
        QVERIFY(!tipWindow()->lblTipText->text().isEmpty());
        QVERIFY(!tipWindow()->chkLoadTipsAtStartup->isChecked());
        QuikTip1* shown = tipWindow();
        // The main window taken up again leaves the open tips as they are.
        h->activateMain();
        QCOMPARE(tipWindow(), shown);
        shown->OKBtn->click();
        flushDeletes();
        h->activateMain();
        QVERIFY(!tipWindow());
        QVERIFY(h->messages().shown().isEmpty());
    }

    void systemInfoStartsTheFirstToolOnThePathOrSaysItIsUnavailable() {
        start();
        TempFolder bin;
        const QByteArray oldPath = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(bin.path()));
        WindowRegistry::show(About1::WindowName());
        auto* about = qobject_cast<About1*>(WindowRegistry::find(About1::WindowName()));
        QVERIFY(about && about->isVisible());
        QVERIFY(about->Label1[1]->text().startsWith(u"Version 2.5"_s));
        about->SysBtn->click();
        QCOMPARE(h->messages().texts(),
                 QStringList{u"System Information Is Unavailable At This Time"_s});

        const QString started = bin.file(u"started"_s);
        bin.write(u"gnome-system-monitor"_s,
                  "#!/bin/sh\necho \"$@\" > '" + QFile::encodeName(started) + "'\n");
        QFile::setPermissions(bin.file(u"gnome-system-monitor"_s),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        about->SysBtn->click();
        qputenv("PATH", oldPath);
        QTRY_VERIFY(QFileInfo(started).size() > 0);
        QCOMPARE(bin.read(u"started"_s), QByteArray("\n")); // no arguments
        QCOMPARE(h->messages().shown().size(), 1);
        about->OKBtn->click();
    }

    void f1InThreeWindowsOpensThreeTopics() {
        start();
        QTest::keyClick(h->window(), Qt::Key_F1);
        QVERIFY(helpWindow() && helpWindow()->isVisible());
        QCOMPARE(helpWindow()->currentTopic(), u"Quorvane1"_s);

        WindowRegistry::show(About1::WindowName());
        auto* about = qobject_cast<About1*>(WindowRegistry::find(About1::WindowName()));
        QTest::keyClick(about->OKBtn, Qt::Key_F1);
        QCOMPARE(helpWindow()->currentTopic(), u"About1"_s);
        QCOMPARE(Help::topicFor(about->Label1[3]), u"About1"_s);
        about->close();

        // In a dialog that holds the program, the help comes up usable beside it, for F1 and
        // for the dialog's Help button; it stays when the dialog ends.
        h->folder().write(u"notes.txt"_s, "some text");
        globals().gOpenFile = h->folder().file(u"notes.txt"_s);
        QString byKey;
        QString byButton;
        bool usable = false;
        answerModal<ProPert1>([&](ProPert1* properties) {
            QTest::keyClick(properties->OKBtn, Qt::Key_F1);
            byKey = helpWindow()->currentTopic();
            usable = helpWindow()->isVisible() && helpWindow()->parentWidget() == properties;
            helpWindow()->TopicView->setSource(QUrl(u"index.html"_s));
            properties->HelpBtn->click();
            byButton = helpWindow()->currentTopic();
            properties->OKBtn->click();
        });
        WindowRegistry::show(ProPert1::WindowName(), WindowRegistry::Modal);
        QCOMPARE(byKey, u"ProPert1"_s);
        QCOMPARE(byButton, u"ProPert1"_s);
        QVERIFY(usable);
        QVERIFY(helpWindow());
        QVERIFY(!helpWindow()->parentWidget());
        QVERIFY(helpWindow()->isVisible());
        QCOMPARE(Help::topicFor(nullptr), u"index"_s);
        QWidget loose;
        QCOMPARE(Help::topicFor(&loose), u"index"_s);
        QVERIFY(h->messages().shown().isEmpty());
    }

    void theSearchFindsATopicByAWordOfItsText() {
        start();
        h->window()->findChild<QAction*>(u"mnuHelpSearch"_s)->trigger();
        HelpWindow* help = helpWindow();
        QVERIFY(help && help->isVisible());
        QCOMPARE(help->Tabs->currentIndex(), 1);
        QTest::keyClicks(help->SearchText, u"RESAMPLE"_s);
        QCOMPARE(help->SearchResults->count(), 1);
        QCOMPARE(help->SearchResults->item(0)->text(), u"Resize"_s);
        QTest::keyClick(help->SearchText, Qt::Key_Return);
        QCOMPARE(help->currentTopic(), u"NewSize1"_s);
        QCOMPARE(help->TopicView->textCursor().selectedText().toLower(), u"resample"_s);

        help->search(u"thumbnail pictures"_s);
        QVERIFY(help->SearchResults->count() >= 2);
        QCOMPARE(help->SearchResults->item(0)->text(), u"Browse Images in a Folder"_s);
        help->search(u"xylophone"_s);
        QCOMPARE(help->SearchResults->count(), 0);
        QCOMPARE(help->SearchCount->text(), u"No topic holds these words."_s);
    }

    void backForwardContentsAndLinksMoveBetweenTopics() {
        start();
        h->window()->findChild<QAction*>(u"mnuHelpContents"_s)->trigger();
        HelpWindow* help = helpWindow();
        QVERIFY(help);
        QCOMPARE(help->currentTopic(), u"index"_s);
        QCOMPARE(help->Tabs->currentIndex(), 0);
        QCOMPARE(help->ContentsList->count(), help->topics().topics().size());
        QCOMPARE(help->ContentsList->currentItem()->text(), u"Quorvane Help"_s);
        QVERIFY(!help->BackBtn->isEnabled());
        QVERIFY(QTest::qWaitForWindowActive(help));

        help->TopicView->setSource(QUrl(u"About1.html"_s)); // a link of the page
        QCOMPARE(help->currentTopic(), u"About1"_s);
        QCOMPARE(help->ContentsList->currentItem()->text(), u"About Quorvane"_s);
        help->showTopic(u"QuikTip1"_s);
        QCOMPARE(help->currentTopic(), u"QuikTip1"_s);
        QTest::keyClick(help->TopicView, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(help->currentTopic(), u"About1"_s);
        QTest::keyClick(help->ContentsList, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(help->currentTopic(), u"QuikTip1"_s);
        help->BackBtn->click();
        help->BackBtn->click();
        QCOMPARE(help->currentTopic(), u"index"_s);
        help->ForwardBtn->click();
        QCOMPARE(help->currentTopic(), u"About1"_s);
        help->ContentsBtn->click();
        QCOMPARE(help->currentTopic(), u"index"_s);
        QListWidgetItem* item =
            help->ContentsList->findItems(u"Print File"_s, Qt::MatchExactly).value(0);
        QVERIFY(item);
        QTest::mouseClick(help->ContentsList->viewport(), Qt::LeftButton, {},
                          help->ContentsList->visualItemRect(item).center());
        QCOMPARE(help->currentTopic(), u"PrntFrm1"_s);
        help->showTopic(u"NoSuchWindow"_s);
        QCOMPARE(help->currentTopic(), u"index"_s);
    }

    void theHelpMenusOfTheMainWindowTheFrameAndTheSendWindowOpenContentsAndSearch() {
        start();
        h->folder().write(u"notes.txt"_s, "some text");
        QVERIFY(h->openDocument(u"notes.txt"_s));
        WindowRegistry::show(u"SendFile1"_s);
        const QList<QWidget*> windows = {h->window(), MainWindowHarness::frame(),
                                         WindowRegistry::find(u"SendFile1"_s)};
        for (QWidget* window : windows) {
            QVERIFY(window);
            const QString name = window->objectName();
            WindowRegistry::unload(HelpWindow::WindowName());
            flushDeletes();
            window->findChild<QAction*>(u"mnuHelpContents"_s)->trigger();
            QVERIFY2(helpWindow() && helpWindow()->isVisible(), qPrintable(name));
            QCOMPARE(helpWindow()->currentTopic(), u"index"_s);
            QCOMPARE(helpWindow()->Tabs->currentIndex(), 0);
            helpWindow()->showTopic(u"About1"_s);
            window->findChild<QAction*>(u"mnuHelpSearch"_s)->trigger();
            QCOMPARE(helpWindow()->Tabs->currentIndex(), 1);
            QCOMPARE(helpWindow()->currentTopic(), u"About1"_s);
        }
        QVERIFY(h->messages().shown().isEmpty());
    }

    void aMissingHelpSaysSo() {
        start();
        QDir(h->folder().file(u"Help"_s)).removeRecursively();
        Help::showContents(h->window());
        QTest::keyClick(h->window(), Qt::Key_F1);
        const QString missing = AppError(AppError::FileNotFound).description();
        QCOMPARE(h->messages().texts(), (QStringList{missing, missing}));
        QVERIFY(!helpWindow());
    }
};

QTEST_MAIN(HelpWindowsTest)
#include "HelpWindowsTest.moc"
