#pragma once

#include <QEvent>
#include <QWidget>

namespace Activation {

// Whether `event`, seen in the changeEvent of `window`, tells that the window has just become
// the active one: the moment the program's windows repaint themselves from the settings.
inline bool becameActive(const QWidget* window, const QEvent* event) {
    return event->type() == QEvent::ActivationChange && window->isActiveWindow();
}

} // namespace Activation
