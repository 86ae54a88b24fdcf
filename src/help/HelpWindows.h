#pragma once

// Makes the Quick Tip of the Day and About Quorvane known by name to the windows that open them,
// and F1 open the help topic of the window it is pressed in.
void registerHelpWindows();
