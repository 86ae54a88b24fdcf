#include "platform/WindowRegistry.h"

#include <QHash>

namespace {
QHash<QString, QPointer<QWidget>>& windows() {
    static QHash<QString, QPointer<QWidget>> registry;
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
