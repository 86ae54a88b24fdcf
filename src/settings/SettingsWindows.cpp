#include "settings/SettingsWindows.h"

#include "platform/WindowRegistry.h"
#include "settings/SetColor1.h"
#include "settings/SetFoldr1.h"
#include "settings/SetOptns1.h"

void registerSettingsWindows() {
    WindowRegistry::setFactory(SetOptns1::WindowName(), [] { return new SetOptns1; });
    WindowRegistry::setFactory(SetColor1::WindowName(), [] { return new SetColor1; });
    WindowRegistry::setFactory(SetFoldr1::WindowName(), [] { return new SetFoldr1; });
}
