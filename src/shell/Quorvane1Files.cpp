#include "shell/Quorvane1.h"
#include "shell/Quorvane1Shared.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/imaging/ImageCodec.h"
#include "shell/FileOperations.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/MoveFile1.h"
#include "shell/Rename1.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

using namespace Quorvane1Shared;

// The file commands of the main window, which the document windows use too.

namespace {

// The first extension of a mask such as "*.BMP;*.DIB", or nothing for a mask of wild names.
QString firstExtensionOf(const QString& mask) {
    const QString first = mask.section(u';', 0, 0).trimmed();
    if (!first.startsWith(u"*."_s))
        return {};
    const QString extension = first.mid(2);
    if (extension.isEmpty() || extension.contains(u'*') || extension.contains(u'?'))
        return {};
    return extension;
}

} // namespace

void Quorvane1::mnuFileOpen_Click() {
    Messages::FileRequest request;
    request.title = tr("Select File to Open");
    request.folder = PTxShList1->folder();
    request.filterPairs = FileTypes::dialogFilter();
    const int row = CMBFILEFLTR->currentIndex();
    request.filterIndex = row;
    if (row >= 0 && row < FileTypes::FilterRowCount)
        request.defaultExtension = firstExtensionOf(mFileFilter[row]);
    const QString name = Messages::instance().openFileName(request, this);
    if (name.trimmed().isEmpty())
        return;
    globals().gCurrentFile = name;
    mFileExt = GetFileExt(name);
    DisplayImage(name);
    AddtoCMBFILE(name);
}

void Quorvane1::DeleteFile(const QString& path) {
    // The desktop's trash keeps the file, so a delete can be undone; the user confirms first.
    if (!Messages::instance().askYesNo(tr("Move - ") + path + tr(" - to the Trash?"), this))
        return;
    if (FileOperations::moveToTrash(path).number() == AppError::PathFileAccess)
        Messages::instance().inform(
            tr("File - ") + path + tr(" still open - Close the File Window"), this);
}

void Quorvane1::mnuFileDelete_Click() {
    Globals& g = globals();
    if (!FileOperations::isFamilyExtension(mFileExt)) {
        DeleteFile(g.gCurrentFile);
    } else {
        if (MDIForm1* frame = g.gFrameOpen ? frameWindow() : nullptr) {
            if (ChildFrm1* child = frame->activeChild();
                child && child->windowTitle() == g.gCurrentFile)
                child->close();
        }
        for (const QString& member : FileOperations::family(g.gCurrentFile))
            DeleteFile(member);
    }
    PTxShList1->refresh();
    if (PTxShList1->selectedCount() == 0)
        DisableSelectMenus();
}

void Quorvane1::MoveFile(const QString& name) {
    Globals& g = globals();
    g.gMoveSource = name;
    const QString extension = FileTypes::GetFileExt(name);
    Messages::FileRequest request;
    request.title = tr("Enter File Name and Folder to move To - ") + name;
    request.folder = PathUtil::folderOf(name);
    request.fileName = PathUtil::nameOf(name);
    request.filterPairs = extension + u"|*."_s + extension;
    request.defaultExtension = QFileInfo(name).suffix();
    const QString target = Messages::instance().saveFileName(request, this);
    if (target.trimmed().isEmpty())
        return;
    g.gMoveTarget = target;
    MoveFile1 dialog(this);
    dialog.exec();
}

void Quorvane1::mnuFileMove_Click() {
    MoveFile(globals().gCurrentFile);
}

void Quorvane1::mnuFileRename_Click() {
    globals().gOpenFile = PTxShList1->selectedPath();
    if (globals().gOpenFile.isEmpty())
        return;
    Rename1 dialog(this);
    dialog.exec();
}

void Quorvane1::mnuFileSave_Click() {
    const QString selected = PTxShList1->selectedPath();
    if (!selected.isEmpty())
        SaveFileAs(selected);
}

void Quorvane1::SaveFileAs(const QString& file, const QImage* edited) {
    Messages& messages = Messages::instance();
    mFileExt = file.contains(u'/') ? GetFileExt(file) : u"JPG"_s;
    const int index = FileTypes::indexOf(globals().gFileExtTable, mFileExt);
    Messages::FileRequest request;
    request.title = tr("Enter New File Name for - ") + file;
    request.folder = PathUtil::folderOf(file);
    request.fileName = file;
    request.filterPairs = mFileExt + u"|*."_s + mFileExt;
    request.defaultExtension = file.contains(u'/') ? QFileInfo(file).suffix() : mFileExt;
    const QString target = messages.saveFileName(request, this);
    if (target.trimmed().isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (index < 28) {
        // A picture is written in the format of its own extension, whatever the new name says.
        QImage image;
        if (edited) {
            image = *edited;
        } else {
            const ImageCodec::Picture picture = ImageCodec::decode(file);
            image = picture.image;
        }
        if (image.isNull()) {
            messages.inform(tr("File - ") + file + tr(" Not Saved"), this);
        } else if (const AppError error =
                       ImageCodec::encode(image, target, FileTypes::GetFileFormatCode(mFileExt))) {
            messages.inform(tr("Error Saving File - ") + QString::number(error.number()), this);
        }
    } else if (FileOperations::copyFile(file, target, true)) {
        messages.inform(tr("Error Copying File - 0"), this);
    }
    QApplication::restoreOverrideCursor();
    PTxShList1->refresh();
}

void Quorvane1::OpenwithOLE(const QString& file) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool opened =
        QFileInfo::exists(file) && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    QApplication::restoreOverrideCursor();
    if (!opened)
        Messages::instance().inform(
            tr("Error Loading File Type - Check Explorer Options to set up Program for this File "
               "Type - ") +
                file,
            this);
}

void Quorvane1::mnuFileOLE_Click() {
    InitializeDisplay();
    const QString file = PTxShList1->selectedPath();
    const QString extension = GetFileExt(file);
    MDIForm1* frame = frameWindow();
    ChildFrm1* child = frame ? frame->activeChild() : nullptr;
    // The active table lets go of its file; a web page's window closes.
    if (child && FileOperations::isFamilyExtension(extension))
        child->releaseTable();
    if (child && (extension == u"HTM"_s || extension == u"HTML"_s))
        child->close();
    OpenwithOLE(file);
}

void Quorvane1::mnuFileClose_Click() {
    if (MDIForm1* frame = frameWindow()) {
        if (ChildFrm1* child = frame->activeChild())
            child->close();
    }
}

void Quorvane1::mnuFilePrint_Click() {
    Globals& g = globals();
    g.gPrintFile = PTxShList1->selectedPath();
    g.gPrintFolder = PTxShList1->folder();
    mFileExt = GetFileExt(g.gPrintFile);
    if (mFileExt.trimmed().isEmpty()) {
        g.gCurrentFile.clear();
        return;
    }
    g.gOpenFile = g.gPrintFile;
    if (MDIForm1* frame = frameWindow()) {
        if (ChildFrm1* child = frame->activeChild(); child && child->windowTitle() == g.gPrintFile)
            g.gPrintListItem = child->mTableName;
    }
    g.gCallerTag = u"F"_s;
    WindowRegistry::show(u"PrntFrm1"_s);
}

void Quorvane1::mnuFileSend_Click() {
    globals().gCurrentFile = PTxShList1->selectedPath();
    WindowRegistry::show(u"SendFile1"_s);
}

void Quorvane1::mnuFileProptee_Click() {
    Globals& g = globals();
    g.gCallerTag = u"F"_s;
    g.gOpenFile = PTxShList1->selectedPath();
    WindowRegistry::show(u"ProPert1"_s, WindowRegistry::Modal);
}

void Quorvane1::mnuOrganizeFileMaint_Click() {
    Globals& g = globals();
    if (g.gCurrentFile.trimmed().isEmpty()) {
        if (PTxShList1->selectedCount() == 0) {
            Messages::instance().inform(tr("Please Click on a File to Highlight"), this);
            return;
        }
        g.gCurrentFile = PTxShList1->selectedPath();
    }
    g.gOpenFile = g.gCurrentFile;
    WindowRegistry::show(u"GrpFlem1"_s);
}
