#pragma once

// Makes the organizer's windows known to the window registry under their names, so that every
// command that names one of them shows it.
void registerOrganizerWindows();
