#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

class QAction;

#include <functional>

// The single instances of the program's windows, addressed by name. A window enters the
// registry in its load and leaves it when it is destroyed; get() creates a window on first
// touch, which runs its load.
class WindowRegistry {
public:
    static void add(const QString& name, QWidget* window);
    static QWidget* find(const QString& name);

    // The one instance of window class W (named by W::WindowName), created when missing.
    template <class W> static W* get() {
        if (auto* existing = qobject_cast<W*>(find(W::WindowName())))
            return existing;
        auto* created = new W;
        add(W::WindowName(), created);
        return created;
    }

    // Closes the named window when it exists; true when a window was closed.
    static bool unload(const QString& name);

    // How a window that another part of the program provides is made on first touch.
    using Factory = std::function<QWidget*()>;
    static void setFactory(const QString& name, Factory factory);
    // The named window, made by its factory when it does not exist yet; nothing when no
    // factory is known for it.
    static QWidget* touch(const QString& name);

    // How every window reaches another: the named window, made on first touch, shown and
    // brought to the front, or run as a dialog when it is one and `modal` is asked for. False
    // when no such window is known.
    enum Showing { Modeless, Modal };
    static bool show(const QString& name, Showing showing = Modeless);
    // A menu command that shows the named window.
    static void connectCommand(QAction* action, const QString& name, Showing showing = Modeless);
};
