#pragma once

// Tells the window registry how to make the document windows' dialogs that are reached by name.
void registerDocumentWindows();
