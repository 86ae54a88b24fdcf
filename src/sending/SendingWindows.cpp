#include "sending/SendingWindows.h"

#include "platform/WindowRegistry.h"
#include "sending/MailAddr1.h"
#include "sending/SendFile1.h"

void registerSendingWindows() {
    WindowRegistry::setFactory(SendFile1::WindowName(), [] { return new SendFile1; });
    WindowRegistry::setFactory(MailAddr1::WindowName(), [] { return new MailAddr1; });
}
