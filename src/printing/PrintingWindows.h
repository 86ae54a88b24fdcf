#pragma once

// Makes the print window known by name to the windows that open it.
void registerPrintingWindows();
