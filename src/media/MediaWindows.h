#pragma once

// Makes the thumbnail browser known by name to the windows that open it.
void registerMediaWindows();
