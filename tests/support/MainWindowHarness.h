#pragma once

#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/OptionsFile.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"
#include "support/RecordingMessages.h"
#include "support/TempFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <memory>

// Starts the main window in a fresh program folder whose settings files ask nothing, with the
// message boxes recorded; ends it and puts everything back.
class MainWindowHarness {
public:
    MainWindowHarness() : m_dir(std::make_unique<TempFolder>()), m_oldCurrent(QDir::currentPath()) {
        QDir::setCurrent(m_dir->path());
        resetGlobals();
        OptionSettings options;
        options.gAskComputer = false;
        options.gQuickTipsOption = false;
        OptionsFile::save(m_dir->file(QStringLiteral("Options.INI")), options, QString());
        ColorsFile::save(m_dir->file(QStringLiteral("Colors.INI")), ColorSettings{});
        m_messages = std::make_unique<ScopedRecordingMessages>();
    }

    ~MainWindowHarness() {
        if (m_window)
            m_window->close();
        m_window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_messages.reset();
        QDir::setCurrent(m_oldCurrent);
    }

    Quorvane1* start() {
        m_window = std::make_unique<Quorvane1>();
        m_window->show();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qWarning("main window did not become active");
        return m_window.get();
    }

    // Makes the main window the active one again, as a click on it would.
    void activateMain() {
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qWarning("main window did not become active");
    }

    Quorvane1* window() const { return m_window.get(); }
    RecordingMessages& messages() { return **m_messages; }
    TempFolder& folder() { return *m_dir; }

private:
    std::unique_ptr<TempFolder> m_dir;
    QString m_oldCurrent;
    std::unique_ptr<ScopedRecordingMessages> m_messages;
    std::unique_ptr<Quorvane1> m_window;
};
