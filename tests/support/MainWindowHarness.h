#pragma once

#include "documents/ChildFrm1.h"
#include "documents/FrameButtons.h"
#include "documents/MDIForm1.h"
#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/OptionsFile.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"
#include "support/RecordingMessages.h"
#include "support/TempFolder.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QMenu>
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

    // The document frame, while it is open.
    static MDIForm1* frame() {
        return qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
    }

    // Displays a file of the program folder from the main window, as a double click would, and
    // returns its document window once the frame is active with it; null if none came.
    ChildFrm1* openDocument(const QString& name) {
        const qint16 before = frame() ? frame()->mChildCount : 0;
        display(name);
        if (!QTest::qWaitFor([&] { return frame() && frame()->mChildCount == before + 1; }))
            return nullptr;
        // Without a window manager nothing hands the activation back after a dialog.
        if (!QApplication::activeWindow())
            frame()->activateWindow();
        if (!QTest::qWaitForWindowActive(frame()))
            return nullptr;
        return frame()->activeChild();
    }

    // The numbers of the frame's buttons that are enabled.
    static QList<int> enabledButtons() {
        QList<int> on;
        for (int n = 1; n <= FrameButtons::Count; ++n) {
            if (frame()->button(n)->isEnabled())
                on.append(n);
        }
        return on;
    }

    // Displays a file of the program folder from the main window without waiting for a window.
    void display(const QString& name) {
        activateMain();
        m_window->DisplayImage(m_dir->file(name));
    }

    // A command of a document window's menus.
    static QAction* menu(ChildFrm1* child, const char* name) {
        for (QMenu* m : child->menus()) {
            if (auto* action = m->findChild<QAction*>(QString::fromLatin1(name)))
                return action;
        }
        return nullptr;
    }
    RecordingMessages& messages() { return **m_messages; }
    TempFolder& folder() { return *m_dir; }

private:
    std::unique_ptr<TempFolder> m_dir;
    QString m_oldCurrent;
    std::unique_ptr<ScopedRecordingMessages> m_messages;
    std::unique_ptr<Quorvane1> m_window;
};
