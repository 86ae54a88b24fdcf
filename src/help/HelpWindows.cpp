#include "help/HelpWindows.h"

#include "help/About1.h"
#include "help/QuikTip1.h"
#include "platform/WindowRegistry.h"
#include "shell/Help.h"

namespace {

// The two small windows of the help menus belong to the main window: they stand over it and go
// with it.
QWidget* owner() {
    return WindowRegistry::find(QStringLiteral("Quorvane1"));
}

} // namespace

void registerHelpWindows() {
    WindowRegistry::setFactory(QuikTip1::WindowName(), [] { return new QuikTip1(owner()); });
    WindowRegistry::setFactory(About1::WindowName(), [] { return new About1(owner()); });
    Help::installF1();
}
