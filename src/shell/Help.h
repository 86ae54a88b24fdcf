#pragma once

class QWidget;

// The program's help: the pages under Help/ of the program folder, shown by the desktop's
// browser. A help that cannot be shown is told in a box.
namespace Help {

// The contents page.
void showContents(QWidget* parent);
// The search of the help's topics; the contents, from which every topic is reached, until the
// help has a search page of its own.
void showSearch(QWidget* parent);

} // namespace Help
