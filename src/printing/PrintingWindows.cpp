#include "printing/PrintingWindows.h"

#include "platform/WindowRegistry.h"
#include "printing/PrntFrm1.h"

void registerPrintingWindows() {
    WindowRegistry::setFactory(PrntFrm1::WindowName(), [] { return new PrntFrm1; });
}
