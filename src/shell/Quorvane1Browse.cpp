#include "shell/Quorvane1.h"
#include "shell/Quorvane1Shared.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/DroppedFiles.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "settings/FolderFile.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/QuikPict1.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMdiArea>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

using namespace Quorvane1Shared;

namespace {

// The commands that need a selected file; EnableSelectMenus switches on the first eight.
constexpr const char* kSelectCommands[] = {
    "mnuFileMove",    "mnuFileSave",     "mnuFileDelete", "mnuFilePrint",
    "mnuFileProptee", "mnuFileOLE",      "mnuFileRename", "mnuFileSend",
    "mnuViewTable",   "mnuViewComments", "mnuFileIndex",
};

// Extensions that go to the player rather than to a document window.
const QStringList kClipExtensions = {u"MID"_s, u"WAV"_s, u"RMI"_s, u"AVI"_s, u"MPG"_s,
                                     u"MOV"_s, u"MP3"_s, u"M3U"_s, u"DAT"_s, u"CDA"_s};

} // namespace

// Browsing: the selection and its menus, the history, the filters and views, and the dispatch of a
// file to its display.

void Quorvane1::DisableSelectMenus() {
    for (const char* name : kSelectCommands) {
        if (QAction* action = command(name))
            action->setEnabled(false);
    }
    SendBtn->setEnabled(false);
    PrintBtn->setEnabled(false);
}

void Quorvane1::EnableSelectMenus() {
    for (const char* name : {"mnuFileMove", "mnuFileSave", "mnuFileDelete", "mnuFilePrint",
                             "mnuFileProptee", "mnuFileOLE", "mnuFileRename", "mnuFileSend"})
        command(name)->setEnabled(true);
    const QString& ext = mFileExt;
    // A Lotus file is tested as "W4", so it does not get the table commands.
    if (ext == u"XLS"_s || ext == u"MDB"_s || ext == u"W4"_s)
        command("mnuViewTable")->setEnabled(true);
    if (ext == u"DB"_s || ext == u"DBF"_s || ext == u"MDB"_s || ext == u"XLS"_s || ext == u"W4"_s) {
        command("mnuViewComments")->setEnabled(true);
        command("mnuFileIndex")->setEnabled(true);
    }
    SendBtn->setEnabled(true);
    PrintBtn->setEnabled(true);
}

void Quorvane1::InitializeDisplay() {
    SendBtn->setEnabled(false);
    PrintBtn->setEnabled(false);
    for (const char* name : {"mnuFilePrint", "mnuFileProptee", "mnuFileSave", "mnuViewThumbNails"})
        command(name)->setEnabled(false);
}

void Quorvane1::AddtoCMBFILE(const QString& path) {
    if (path.trimmed().isEmpty())
        return;
    mHistoryAdding = true;
    CMBFILE->addItem(path);
    CMBFILE->setCurrentIndex(CMBFILE->count() - 1);
    mHistoryAdding = false;
}

QString Quorvane1::GetFileExt(const QString& name) const {
    return FileTypes::GetFileExt(name);
}

bool Quorvane1::GetFileTypeFlag(const QString& name) {
    return FileTypes::GetFileTypeFlag(name, globals(), mFileExt, mIsTextFile);
}

void Quorvane1::DisplayImage(const QString& file) {
    Globals& g = globals();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    g.gOpenFile = file;
    const bool known = GetFileTypeFlag(file);
    QApplication::restoreOverrideCursor();
    if (mFileExt.trimmed().isEmpty()) {
        g.gCurrentFile.clear();
        return;
    }
    if (!known) {
        Messages::instance().inform(tr("File Type is not Supported by this Software"), this);
        return;
    }
    if (!kClipExtensions.contains(mFileExt)) {
        g.gCurrentFile = file;
        mOpenPending = true;
        EnableSelectMenus();
        MDIForm1* frame = WindowRegistry::get<MDIForm1>();
        frame->show();
        frame->raise();
        frame->activateWindow();
        return;
    }
    g.gOpenFile = file;
    QWidget* player = g.gAudioVideoOpen ? WindowRegistry::find(u"AudioVideo1"_s)
                                        : WindowRegistry::touch(u"AudioVideo1"_s);
    if (player) {
        if (g.gAudioVideoOpen)
            player->setProperty("NewFileWaiting", true);
        player->show();
        player->raise();
        player->activateWindow();
    }
}

void Quorvane1::PTxShList1_SelectionChanged(const QString& path) {
    Globals& g = globals();
    g.gCurrentFile = path;
    mFileExt = GetFileExt(path);
    g.gCurrentFolder = PathUtil::folderOf(path);
    DisableSelectMenus();
    if (mFileExt.trimmed().isEmpty()) {
        g.gCurrentFile.clear();
        g.gCurrentFolder.clear();
        return;
    }
    const int i = FileTypes::indexOf(g.gFileExtTable, mFileExt);
    if (i < 39) {
        QuikPictBtn->setEnabled(true);
        EnableSelectMenus();
        if (mQuikPictOn) {
            QuikPict1* quick = WindowRegistry::get<QuikPict1>();
            quick->show();
            quick->loadPicture(g.gCurrentFile);
        }
    } else {
        QuikPictBtn->setEnabled(false);
    }
    if (i >= FileTypes::FirstTextIndex && i <= FileTypes::LastDatabaseIndex) {
        mIsTextFile = true;
        EnableSelectMenus();
    }
    if (i >= 28 && i <= 35)
        EnableSelectMenus();
    if (g.gGrpFlemOpen) {
        if (QWidget* organizer = WindowRegistry::find(u"GrpFlem1"_s);
            organizer && organizer->property("AddFromMainList").toBool()) {
            g.gOpenFile = g.gCurrentFile;
            QMetaObject::invokeMethod(organizer, "AddFileFromMainList");
        }
    }
}

void Quorvane1::PTxShList1_DblClick(const QString& path) {
    DisplayImage(path);
    AddtoCMBFILE(path);
}

bool Quorvane1::revealInTree(const QString& folder) {
    const bool wasFollowing = std::exchange(m_treeFollowing, true);
    const bool shown = m_treeModel->revealPath(folder);
    m_treeFollowing = wasFollowing;
    return shown;
}

void Quorvane1::PTxShTree1_Click(const QModelIndex& index) {
    const ShellNamespace::Node* node = m_treeModel->nodeOf(index);
    if (!node)
        return;
    ShellNamespace& ns = m_treeModel->shellNamespace();
    mSearchRootIndex = std::max(0, ns.indexOf(node));
    if (node->path.trimmed().isEmpty()) {
        setWindowTitle(Messages::caption());
    } else {
        setWindowTitle(node->displayName + u" - "_s + Messages::caption());
        // Only a folder the user chose in the tree goes into the history, not one the tree
        // shows because the list or the search went there.
        if (!m_treeFollowing)
            AddtoCMBFILE(node->path);
        if (PTxShList1->folder() != node->path)
            PTxShList1->setFolder(node->path);
    }
    for (int i = 1; i < ns.count(); ++i) {
        const ShellNamespace::Node& walked = ns.node(i);
        const bool same = walked.path.isEmpty() ? walked.displayName == node->displayName
                                                : walked.path == node->path;
        if (same) {
            mSearchRootIndex = i;
            break;
        }
    }
}

void Quorvane1::CMBFILE_Click(int index) {
    if (mHistoryAdding || index < 0)
        return;
    const QString s = CMBFILE->itemText(index);
    const bool fileLike = s.indexOf(u'.', 1) > 0 && s.indexOf(u'/', 1) > 0;
    const QString folder = fileLike ? PathUtil::folderOf(s) : s;
    if (QFileInfo(folder).isDir())
        showFolder(folder);
    if (!globals().gFrameOpen) {
        DisplayImage(s);
        return;
    }
    if (MDIForm1* frame = frameWindow()) {
        for (ChildFrm1* child : frame->children()) {
            if (child->windowTitle() == s) {
                frame->workspace()->setActiveSubWindow(child);
                frame->show();
                frame->raise();
                frame->activateWindow();
                return;
            }
        }
    }
    DisplayImage(s);
}

void Quorvane1::CMBFILEFLTR_Click(int index) {
    if (index < 0 || index >= FileTypes::FilterRowCount)
        return;
    PTxShList1->setFilter(mFileFilter[index]);
}

void Quorvane1::setListFilterFromCombo() {
    const int index = CMBFILEFLTR->currentIndex();
    if (index >= 0 && index < FileTypes::FilterRowCount)
        PTxShList1->setFilter(mFileFilter[index]);
}

void Quorvane1::filterButton_Click(int row, bool filterAfter) {
    if (!filterAfter)
        setListFilterFromCombo();
    CMBFILEFLTR->setCurrentIndex(row);
    if (filterAfter)
        setListFilterFromCombo();
}

void Quorvane1::viewButton_Click(int view) {
    PTxShList1->setView(view);
    globals().gViewMode = static_cast<qint16>(view);
}

void Quorvane1::UpFldrBtn_Click() {
    const QString folder = PTxShList1->folder();
    if (folder.isEmpty() || PathUtil::isRoot(folder))
        return;
    chooseFolderInTree(PathUtil::folderOf(folder));
}

void Quorvane1::FoldrBtn_Click() {
    if (List1->count() == 0)
        return;
    const int current = std::max(0, List1->currentRow());
    const std::optional<FolderFile::Entry> entry = FolderFile::parse(List1->item(current)->text());
    if (!entry || entry->filter < 0 || entry->filter >= FileTypes::FilterRowCount) {
        Messages::instance().inform(tr("Error in Folder List Setup - Please Set up Folder List"),
                                    this);
        return;
    }
    showFolder(entry->folder);
    CMBFILEFLTR->setCurrentIndex(entry->filter);
    List1->setCurrentRow(current + 1 < List1->count() ? current + 1 : 0);
}

void Quorvane1::QuikPictBtn_Click() {
    const QString bitmaps = PathUtil::join(globals().gAppPath, u"BMPS"_s);
    if (mQuikPictOn) {
        QuikPictBtn->setIcon(QIcon(PathUtil::join(bitmaps, u"Picture3.Bmp"_s)));
        if (globals().gQuikPictOpen)
            WindowRegistry::unload(u"QuikPict1"_s);
        mQuikPictOn = false;
    } else {
        QuikPictBtn->setIcon(QIcon(PathUtil::join(bitmaps, u"Picture4.Bmp"_s)));
        if (!globals().gQuikPictOpen) {
            QuikPict1* quick = WindowRegistry::get<QuikPict1>();
            quick->show();
            quick->loadPicture(globals().gCurrentFile);
        }
        mQuikPictOn = true;
    }
}

void Quorvane1::callActiveChild(void (ChildFrm1::*handler)()) {
    if (!globals().gFrameOpen)
        return;
    if (MDIForm1* frame = frameWindow()) {
        if (ChildFrm1* child = frame->activeChild())
            (child->*handler)();
    }
}

void Quorvane1::mnuUtilitiesRefresh_Click() {
    const QString folder = PTxShList1->folder();
    m_treeModel->refresh(folder);
    PTxShList1->refresh();
}

void Quorvane1::mnuUtilitiesUnExpand_Click() {
    m_treeModel->collapseAll();
}

void Quorvane1::showFolder(const QString& folder) {
    if (!revealInTree(folder))
        PTxShList1->setFolder(folder);
}

void Quorvane1::chooseFolderInTree(const QString& folder) {
    if (!m_treeModel->revealPath(folder))
        PTxShList1->setFolder(folder);
}

QString Quorvane1::treeFolder() const {
    return PTxShList1->folder();
}

void Quorvane1::dragEnterEvent(QDragEnterEvent* event) {
    if (!firstDroppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void Quorvane1::dropEvent(QDropEvent* event) {
    const QString path = firstDroppedFile(event->mimeData());
    if (path.isEmpty())
        return;
    const QString folder = PathUtil::folderOf(path);
    showFolder(folder);
    PTxShList1->selectName(PathUtil::nameOf(path));
    activateWindow();
    DisplayImage(PathUtil::join(folder, PathUtil::nameOf(path)));
    const Globals& g = globals();
    if (mIsTextFile)
        CMBFILEFLTR->setCurrentIndex(31);
    if (g.gIsDatabaseFile)
        CMBFILEFLTR->setCurrentIndex(32);
    if (g.gIsAudioVideoFile)
        CMBFILEFLTR->setCurrentIndex(30);
    event->acceptProposedAction();
}
