#include "shell/Quorvane1.h"
#include "shell/Quorvane1Shared.h"

#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "shell/FindFile1.h"
#include "shell/Globals.h"
#include "shell/SearchReport.h"
#include "shell/SearchWalk.h"
#include "shell/ShellTreeModel.h"

#include <QApplication>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

using namespace Quorvane1Shared;

// The folder search as the main window runs it.

namespace {

// The search as the main window runs it: questions and messages in boxes, nodes expanded in the
// tree view too, and the report written to the work file.
class WindowSearchHost final : public SearchHost {
public:
    WindowSearchHost(Quorvane1* window, ShellTreeModel* model, QTreeView* view)
        : m_window(window), m_model(model), m_view(view) {}

    bool askYesNo(const QString& text) override {
        return Messages::instance().askYesNo(text, m_window);
    }
    void inform(const QString& text) override { Messages::instance().inform(text, m_window); }
    int expand(ShellNamespace& tree, int index) override {
        const int inserted = tree.expand(index);
        m_view->expand(m_model->indexOfNode(&tree.node(index)));
        return inserted;
    }
    void reportFolder(const QString& folder, const QStringList& fileNames) override {
        m_window->AddReportFolder(folder, fileNames);
    }

private:
    Quorvane1* m_window;
    ShellTreeModel* m_model;
    QTreeView* m_view;
};

} // namespace

void Quorvane1::FindFileRoutine() {
    Globals& g = globals();
    {
        FindFile1 find(this);
        find.exec();
    }
    if (g.gSearchArmed) {
        startSearch();
        Frame1->repaint();
    }
    g.gSearchArmed = true;
}

void Quorvane1::FindNext() {
    Globals& g = globals();
    g.gFindNextReady = true;
    g.gSearchMask = SearchWalk::maskOrDefault(g.gSearchMask);
    startSearch();
    g.gSearchArmed = true;
}

void Quorvane1::startSearch() {
    Globals& g = globals();
    Frame3->show();
    Frame3->raise();
    Frame1->repaint();
    Frame3->repaint();
    if (g.gFindNextReady) {
        if (auto* next = findChild<QToolButton*>(u"FindNextBtn"_s))
            next->setEnabled(true);
    }
    mSearchRunning = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    SearchFunction();
    QApplication::restoreOverrideCursor();
    Frame3->hide();
    mSearchRunning = false;
}

void Quorvane1::SearchFunction() {
    Globals& g = globals();
    PTxShList1->setFilter(g.gSearchMask);
    SearchWalk::Request request;
    request.mask = g.gSearchMask;
    request.startIndex = mSearchRootIndex;
    request.initial = g.gSearchInitial;
    request.additional = g.gSearchAdditional;
    request.toReport = g.gSearchToReport;
    request.computerName = mComputerName;
    WindowSearchHost host(this, m_treeModel, PTxShTree1);
    const SearchWalk::Result result = SearchWalk::run(m_treeModel->shellNamespace(), request, host);
    // An empty result leaves the list where it was.
    if (!result.found.isEmpty()) {
        revealInTree(result.found);
        PTxShList1->setFolder(result.found);
    }
    mSearchRootIndex = result.startIndex;
    const QString name = ShellNamespace::displayNameOf(PTxShList1->folder());
    setWindowTitle(name.isEmpty() ? Messages::caption() : name + u" - "_s + Messages::caption());
}

void Quorvane1::AddReportFolder(const QString& folder, const QStringList& fileNames) {
    // A failure ends the writer in silence; the search goes on.
    SearchReport::addFolder(SearchReport::workFile(), folder, fileNames);
}
