#include "documents/DocumentWindows.h"

#include "documents/AddShape1.h"
#include "documents/AddText1.h"
#include "platform/WindowRegistry.h"

void registerDocumentWindows() {
    WindowRegistry::setFactory(AddText1::WindowName(), [] { return new AddText1; });
    WindowRegistry::setFactory(AddShape1::WindowName(), [] { return new AddShape1; });
}
