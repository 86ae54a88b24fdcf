#pragma once

#include "documents/MDIForm1.h"
#include "platform/Twips.h"
#include "platform/WindowRegistry.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

// The controls of the main window and small helpers, shared by its source files.
namespace Quorvane1Shared {

inline int px(double twips) {
    return Twips::toPixels(twips);
}

inline double tw(int pixels) {
    return Twips::fromPixels(pixels);
}

// The document frame, when it exists.
inline MDIForm1* frameWindow() {
    return qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
}

} // namespace Quorvane1Shared
