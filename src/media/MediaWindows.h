#pragma once

// Makes the thumbnail browser and the file properties known by name to the windows that open it.
void registerMediaWindows();
