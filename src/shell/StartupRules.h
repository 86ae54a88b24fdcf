#pragma once

#include <QString>

struct OptionSettings;

// Rules of the main window's start that need no window.
namespace StartupRules {

inline constexpr double MaxMainLeft = 8800;
inline constexpr double MaxMainTop = 6600;

// Keeps the main window on a screen: a left above 8800 becomes 8800 and a top above 6600
// becomes 6600. There are no lower bounds.
void clampMainPosition(OptionSettings& options);

// The computer's name out of the name buffer of the network prompt: the text is cut where the
// tenth blank stands, ten characters before it, which drops the blank padding of the buffer
// (and, alike, a name with ten blanks of its own). A blank name stays as it is.
QString cutComputerName(const QString& buffer);

} // namespace StartupRules
