#pragma once

// Makes the settings windows known to the window registry by name.
void registerSettingsWindows();
