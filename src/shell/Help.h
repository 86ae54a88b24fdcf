#pragma once

#include <QString>

class QWidget;

// The program's help: the pages under Help/ of the program folder, shown in the help window
// with its contents, a search over the topics, and Back and Forward. Each window of the program
// has a topic, a page named after the window (Help/ProPert1.html). A help that cannot be shown
// is told in a box.
namespace Help {

// The contents page.
void showContents(QWidget* parent);
// The contents with the search over the topics ready for words.
void showSearch(QWidget* parent);
// The topic of the window that `from` is part of (what F1 and HelpBtn show).
void showTopic(QWidget* from);
// The name of that topic: the first of `from` and the widgets it lies in, up through the
// windows that own its window, that has a page of its own; "index", the contents, when none has.
QString topicFor(const QWidget* from);
// Makes F1 in any window of the program show the topic of that window. Once is enough.
void installF1();

} // namespace Help
