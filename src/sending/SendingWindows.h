#pragma once

// Makes the send window and the address lists known by name to the windows that open them.
void registerSendingWindows();
