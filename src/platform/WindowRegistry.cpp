#include "platform/WindowRegistry.h"

#include <QAction>
#include <QDialog>
#include <QHash>

namespace {
QHash<QString, QPointer<QWidget>>& windows() {
    static QHash<QString, QPointer<QWidget>> registry;
    return registry;
}
QHash<QString, WindowRegistry::Factory>& factories() {
    static QHash<QString, WindowRegistry::Factory> registry;
    return registry;
}
} // namespace

void WindowRegistry::add(const QString& name, QWidget* window) {
    windows().insert(name, window);
}

QWidget* WindowRegistry::find(const QString& name) {
    const auto it = windows().constFind(name);
    return it == windows().constEnd() ? nullptr : it->data();
}

bool WindowRegistry::unload(const QString& name) {
    QWidget* window = find(name);
    if (!window)
        return false;
    window->close();
    return true;
}

void WindowRegistry::setFactory(const QString& name, Factory factory) {
    if (factory)
        factories().insert(name, std::move(factory));
    else
        factories().remove(name);
}

QWidget* WindowRegistry::touch(const QString& name) {
    if (QWidget* existing = find(name))
        return existing;
    const auto it = factories().constFind(name);
    if (it == factories().constEnd())
        return nullptr;
    QWidget* created = (*it)();
    if (created)
        add(name, created);
    return created;
}

bool WindowRegistry::show(const QString& name, Showing showing) {
    QWidget* window = touch(name);
    if (!window)
        return false;
    if (auto* dialog = qobject_cast<QDialog*>(window); dialog && showing == Modal) {
        dialog->exec();
        return true;
    }
    window->show();
    window->raise();
    window->activateWindow();
    return true;
}

void WindowRegistry::connectCommand(QAction* action, const QString& name, Showing showing) {
    if (action)
        QObject::connect(action, &QAction::triggered, action,
                         [name, showing] { show(name, showing); });
}
