#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

class ShellNamespace;

namespace FileMask {
class Compiled;
}

// What the folder search needs of the window that runs it.
class SearchHost {
public:
    virtual ~SearchHost() = default;

    // A question with Yes and No; true for Yes.
    virtual bool askYesNo(const QString& text) = 0;
    // A message with OK only.
    virtual void inform(const QString& text) = 0;
    // Shows the children of a node right behind it and returns how many nodes were inserted.
    // A window routes this through its tree model, so that its view stays in step with the
    // namespace.
    virtual int expand(ShellNamespace& tree, int index);
    // A folder with matching files, when the search writes a report; the names are those of
    // the matching files, in the order of the file list.
    virtual void reportFolder(const QString& folder, const QStringList& fileNames) = 0;
};

// The search for the next folder holding files that match a mask: a walk over the tree's node
// list in display order from a start index, expanding every node it passes, so that the
// children of a node come right behind it and the walk covers the whole tree depth first.
//
// After a number of nodes (counted by index from the top of the list) the walk asks whether
// to go on; at the end of the tree it says so and the next search starts at the top. The
// node "Network" is searched only when the user says so.
namespace SearchWalk {

struct Request {
    QString mask;            // e.g. "*.JPG;*.CMP"; see maskOrDefault
    int startIndex = 0;      // the node where the walk starts
    double initial = 5000;   // nodes searched before the first question
    qint32 additional = 500; // nodes added by each Yes to that question
    bool toReport = false;   // report every folder with hits instead of stopping at the first
    QString computerName;    // a node of this name is never searched
};

struct Result {
    // The folder the file list is to show: the last folder found, or empty when none was.
    QString found;
    // Where the next search starts: behind the node where this one stopped, or 0 after the
    // end of the tree.
    int startIndex = 0;
};

// The questions and messages of the walk.
QString networkQuestion();
QString continueQuestion(const QString& mask);
QString endMessage();

// Runs the search over `tree`, expanding its nodes through `host`.
Result run(ShellNamespace& tree, const Request& request, SearchHost& host);

// The mask of Find Next: the one given, or "*.BMP" when it is blank.
QString maskOrDefault(const QString& mask);

// The files (not folders) of a folder whose names match the mask, hidden names left out,
// sorted as the file list sorts them. `error` is the program's error number when the folder
// cannot be read (76 missing, 75 no permission, 68 no medium), else 0.
struct FolderFiles {
    QStringList names;
    int error = 0;
};
FolderFiles matchingFiles(const QString& folder, const FileMask::Compiled& mask);

} // namespace SearchWalk
