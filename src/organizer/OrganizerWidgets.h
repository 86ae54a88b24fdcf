#pragma once

#include <QString>

// What the organizer's windows share beside the program's named widgets.
namespace OrganizerWidgets {

// How a navigator's caption shows a share of the records.
QString percentText(double percent);

// The path of FileTabl.MDB in the program's folder, and of its work file.
QString databasePath();
QString workPath();

} // namespace OrganizerWidgets
