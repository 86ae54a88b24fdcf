#pragma once

// Makes the thumbnail browser, the file properties and the player known by name to the windows that
// open it.
void registerMediaWindows();
