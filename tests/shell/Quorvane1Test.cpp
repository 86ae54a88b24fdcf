#include "shell/Quorvane1.h"

#include "platform/ShutdownSignals.h"
#include "platform/TextFile.h"
#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/FolderFile.h"
#include "settings/OptionsFile.h"
#include "shell/Globals.h"
#include "support/FileSizeLimit.h"
#include "support/RecordingMessages.h"
#include "support/TempFolder.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QListWidget>
#include <QSysInfo>
#include <QTest>
#include <QTreeView>

#include <csignal>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString kColorsMissing = u"Use the Utility Menu Option - Set Window Colors"_s;
const QString kOptionsMissing = u"Use the Utility Menu Option - Set Program Options"_s;
const QString kNetworkTitle = u"Please Select your Computer Name on the Network - Cancel if you "
                              u"are not using a Computer Network."_s;

// A window of another part of the program, standing in for it at shutdown.
class FakeWindow : public QWidget {
public:
    std::function<void()> onClose;
    bool closed = false;

protected:
    void closeEvent(QCloseEvent* event) override {
        closed = true;
        if (onClose)
            onClose();
        QWidget::closeEvent(event);
    }
};

QStringList defaultOptionLines(const QString& computer, bool askComputer) {
    OptionSettings options;
    options.gAskComputer = askComputer;
    return OptionsFile::toLines(options, computer);
}

} // namespace

class Quorvane1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<TempFolder> m_dir;
    std::unique_ptr<ScopedRecordingMessages> m_messages;
    QString m_oldCurrent;

    // Starts the program's main window in the test's folder.
    std::unique_ptr<Quorvane1> start() {
        auto window = std::make_unique<Quorvane1>();
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get()))
            qWarning("main window did not become active");
        return window;
    }

    QStringList optionLines() const {
        return TextFile::readLines(m_dir->file(u"Options.INI"_s)).lines;
    }

    void writeOptions(const std::function<void(OptionSettings&)>& change,
                      const QString& computer = QString()) {
        OptionSettings options;
        options.gAskComputer = false;
        change(options);
        QVERIFY(!OptionsFile::save(m_dir->file(u"Options.INI"_s), options, computer));
    }

private Q_SLOTS:
    void init() {
        m_dir = std::make_unique<TempFolder>();
        m_dir->write(u"TIPHELP.TXT"_s, "A tip\r\n");
        m_oldCurrent = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_dir->path()));
        resetGlobals();
        m_messages = std::make_unique<ScopedRecordingMessages>();
    }

    void cleanup() {
        m_messages.reset();
        QDir::setCurrent(m_oldCurrent);
        m_dir.reset();
    }

    void firstStartAsksInOrderAndSavesTheDefaults() {
        (*m_messages)->answer(u"myhost"_s);
        auto window = start();

        const auto& shown = (*m_messages)->shown();
        QCOMPARE((*m_messages)->texts(),
                 (QStringList{kColorsMissing, kOptionsMissing, kNetworkTitle}));
        // Then the quick tips, at the first activation.
        QVERIFY(WindowRegistry::find(u"QuikTip1"_s));
        QCOMPARE(shown[0].kind, u"inform"_s);
        QCOMPARE(shown[2].kind, u"askText"_s);
        QCOMPARE(shown[2].proposed, QSysInfo::machineHostName());

        const Globals& g = globals();
        QCOMPARE(g.gAppPath, QDir::currentPath());
        QCOMPARE(g.gPrintIniFile, m_dir->file(u"F@Prnt.INI"_s));
        QCOMPARE(window->pos(), QPoint(5, 20));
        QCOMPARE(window->size(), QSize(429, 438));
        QVERIFY(g.gShowTipsNow);
        QVERIFY(g.gAllExtMask.startsWith(u"*.JPG;*.CMP;"_s));
        QCOMPARE(window->mComputerName, u"myhost"_s);
        QVERIFY(!g.gAskComputer);

        window->close();
        const QByteArray bytes = m_dir->read(u"Options.INI"_s);
        QCOMPARE(bytes.count("\r\n"), 29);
        QCOMPARE(bytes.count('\n'), 29);
        // The panes' lines 12 to 17 follow the window's layout; every other line is a default.
        QStringList lines = optionLines();
        QStringList expected = defaultOptionLines(u"myhost"_s, false);
        QCOMPARE(lines.size(), 29);
        for (int i = 11; i <= 16; ++i)
            lines[i] = expected[i] = QString();
        QCOMPARE(lines, expected);
        QVERIFY(!m_dir->exists(u"Colors.INI"_s));
    }

    void cancelAtTheNetworkPromptStoresAnEmptyNameUntilTheMenuAsks() {
        auto window = start(); // no answer queued: Cancel
        QVERIFY(window->mComputerName.isEmpty());
        QVERIFY(!globals().gAskComputer);

        (*m_messages)->clear();
        (*m_messages)->answer(u"OFFICE-PC"_s);
        auto* menu = window->findChild<QAction*>(u"mnuUtilitiesNetw"_s);
        QVERIFY(menu);
        menu->trigger();
        QCOMPARE((*m_messages)->shown().size(), 1);
        QCOMPARE(window->mComputerName, u"OFFICE-PC"_s);
        QVERIFY(!globals().gAskComputer);

        window->close();
        QCOMPARE(optionLines().value(23), u"OFFICE-PC"_s);
        QCOMPARE(optionLines().value(27), u"False"_s);

        // The next start does not ask again.
        resetGlobals();
        (*m_messages)->clear();
        auto again = start();
        QCOMPARE((*m_messages)->texts(), QStringList{kColorsMissing});
        QCOMPARE(again->mComputerName, u"OFFICE-PC"_s);
    }

    void aNegativeLeftAndFractionsSurviveAStartAndAnExit() {
        writeOptions([](OptionSettings& o) {
            o.gMainLeft = -600;
            o.gMainWidth = 7000.5;
            o.gThumbHeight = 119.75;
        });
        auto window = start();
        window->close();
        QCOMPARE(optionLines().value(0), u"-600"_s);
        QCOMPARE(optionLines().value(3), u"7000.5"_s);
        QCOMPARE(optionLines().value(8), u"119.75"_s);
    }

    void aBrokenOptionsFileIsReportedAndTheStartGoesOn() {
        m_dir->write(u"Options.INI"_s, "120\r\n240\r\nwide\r\n");
        (*m_messages)->answer(u"pc"_s);
        auto window = start();
        QCOMPARE(
            (*m_messages)->texts(),
            (QStringList{kColorsMissing, u"Error Loading Application Options - 13 Type mismatch"_s,
                         kNetworkTitle}));
        QCOMPARE(globals().gMainLeft, 120.0);
        QCOMPARE(globals().gMainTop, 240.0);
        QCOMPARE(globals().gMainHeight, 6570.0);
        QVERIFY(window->isVisible());
    }

    void aFailedSaveAtExitIsShownAndKeepsTheOldFile() {
        writeOptions([](OptionSettings& o) { o.gMainLeft = 300; });
        const QByteArray old = m_dir->read(u"Options.INI"_s);
        auto window = start();
        window->move(100, 100);
        (*m_messages)->clear();
        {
            FileSizeLimit limit(20);
            window->close();
        }
        QCOMPARE((*m_messages)->texts(), QStringList{u"Error: 61 - Disk full"_s});
        QCOMPARE(m_dir->read(u"Options.INI"_s), old);
    }

    void shutdownSavesFirstThenUnloadsTheOpenWindowsByTheirFlags() {
        writeOptions([](OptionSettings&) {});
        auto window = start();

        FakeWindow frame;
        FakeWindow thumbs;
        FakeWindow player;
        WindowRegistry::add(u"MDIForm1"_s, &frame);
        WindowRegistry::add(u"ThumBrow1"_s, &thumbs);
        WindowRegistry::add(u"AudioVideo1"_s, &player);
        frame.setGeometry(200, 30, 500, 400);
        globals().gFrameOpen = true;
        globals().gAudioVideoOpen = true;
        QStringList order;
        bool savedBeforeFrameClosed = false;
        frame.onClose = [&] {
            order.append(u"MDIForm1"_s);
            savedBeforeFrameClosed =
                m_dir->exists(u"Options.INI"_s) && optionLines().value(4) == u"3000"_s;
        };
        player.onClose = [&] { order.append(u"AudioVideo1"_s); };

        window->close();
        QVERIFY(savedBeforeFrameClosed);
        QCOMPARE(order, (QStringList{u"MDIForm1"_s, u"AudioVideo1"_s}));
        QVERIFY(!thumbs.closed);
        const QStringList lines = optionLines();
        QCOMPARE(lines.mid(4, 4), (QStringList{u"3000"_s, u"450"_s, u"6000"_s, u"7500"_s}));
    }

    void aTerminateSignalClosesThroughTheNormalUnload() {
        writeOptions([](OptionSettings&) {});
        QFile::remove(m_dir->file(u"Options.INI"_s));
        globals().gAskComputer = true;
        auto window = start();
        ShutdownSignals signalsToClose;
        connect(&signalsToClose, &ShutdownSignals::shutdownRequested, window.get(),
                &QWidget::close);
        QVERIFY(!m_dir->exists(u"Options.INI"_s));
        std::raise(SIGTERM);
        QTRY_VERIFY(!window->isVisible());
        QCOMPARE(optionLines().size(), 29);
        QCOMPARE(optionLines().value(27), u"False"_s);
    }

    void activationPaintsTheSharedColoursAndBold() {
        writeOptions([](OptionSettings& o) { o.gBoldType = true; });
        ColorSettings colors;
        colors.gMainBackColor = 0x0000FF;
        colors.gListBackColor = 0x00FF00;
        QVERIFY(!ColorsFile::save(m_dir->file(u"Colors.INI"_s), colors));
        auto window = start();
        QVERIFY((*m_messages)->texts().isEmpty());
        auto* frame1 = window->findChild<QFrame*>(u"Frame1"_s);
        auto* tree = window->findChild<QTreeView*>(u"PTxShTree1"_s);
        auto* date = window->findChild<QWidget*>(u"Label2(0)"_s);
        QVERIFY(frame1 && tree && date);
        QCOMPARE(frame1->palette().color(QPalette::Window), QColor(255, 0, 0));
        QCOMPARE(tree->palette().color(QPalette::Base), QColor(0, 255, 0));
        QVERIFY(tree->font().bold());
        QVERIFY(date->font().bold());
    }

    void startFillsTheFilterListAndTheWorkingFolders() {
        writeOptions([](OptionSettings&) {});
        QVERIFY(
            !FolderFile::save(m_dir->file(u"FoldFile.INI"_s), {u"/tmp (27)"_s, u"/home (31)"_s}));
        auto window = start();
        auto* filters = window->findChild<QComboBox*>(u"CMBFILEFLTR"_s);
        QVERIFY(filters);
        QCOMPARE(filters->count(), 34);
        QCOMPARE(filters->currentIndex(), -1);
        QCOMPARE(filters->itemData(31).toInt(), 31);
        auto* folders = window->findChild<QListWidget*>(u"List1"_s);
        QVERIFY(folders);
        QCOMPARE(folders->count(), 2);
        QCOMPARE(folders->currentRow(), 0);
        QVERIFY(!folders->isVisible());
        for (const char* name : {"mnuFileMove", "mnuFileDelete", "mnuViewTable", "mnuFileIndex"})
            QVERIFY(!window->findChild<QAction*>(QString::fromLatin1(name))->isEnabled());
    }

    void escapeDisarmsTheSearch() {
        writeOptions([](OptionSettings&) {});
        auto window = start();
        QVERIFY(globals().gSearchArmed);
        // The window sees the key first, whichever of its controls has the focus.
        auto* history = window->findChild<QComboBox*>(u"CMBFILE"_s);
        history->setFocus();
        QTest::keyClick(history, Qt::Key_Escape);
        QVERIFY(!globals().gSearchArmed);
    }

    void startingElsewhereLooksForTheFilesThere() {
        TempFolder other;
        QVERIFY(!OptionsFile::save(other.file(u"Options.INI"_s), OptionSettings{}, u"x"_s));
        QVERIFY(QDir::setCurrent(other.path()));
        (*m_messages)->answer(u"y"_s);
        auto window = start();
        QCOMPARE(globals().gAppPath, other.path());
        window->close();
        QCOMPARE(TextFile::readLines(other.file(u"Options.INI"_s)).lines.value(23), u"y"_s);
        QVERIFY(!m_dir->exists(u"Options.INI"_s));
    }
};

QTEST_MAIN(Quorvane1Test)
#include "Quorvane1Test.moc"
