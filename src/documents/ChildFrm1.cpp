#include "documents/ChildFrm1.h"

#include "documents/MDIForm1.h"
#include "platform/Messages.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WindowRegistry.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

QString bytesText(qint64 size) {
    return QLocale().toString(size) + u"  Bytes"_s;
}

} // namespace

ChildFrm1::ChildFrm1(MDIForm1* frame, const QString& path) : m_frame(frame) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(u"ChildFrm1"_s);
    auto* content = new QWidget(this);
    content->setObjectName(u"ChildContent"_s);
    setWidget(content);
    buildMenus();
    setWindowTitle(path);
    Form_Load();
}

ChildFrm1::~ChildFrm1() {
    qDeleteAll(m_menus);
}

void ChildFrm1::buildMenus() {
    struct Entry {
        const char* name;
        const char* caption;
    };
    auto addMenu = [this](const char* name, const QString& caption,
                          std::initializer_list<Entry> entries) {
        auto* menu = new QMenu(caption);
        menu->setObjectName(QString::fromLatin1(name));
        for (const Entry& e : entries) {
            if (!e.name) {
                menu->addSeparator();
                continue;
            }
            QAction* action = menu->addAction(tr(e.caption));
            action->setObjectName(QString::fromLatin1(e.name));
        }
        m_menus.append(menu);
        return menu;
    };
    addMenu("mnuFile", tr("&File"),
            {{"mnuFileOpen", "Open File"},
             {"mnuFileClose", "Close File"},
             {"mnuFileOLE", "Open File with another Application"},
             {nullptr, nullptr},
             {"mnuFileFind", "Find"},
             {"mnuFileFindNext", "Find Next"},
             {nullptr, nullptr},
             {"mnuFileSaveAs", "Save File As"},
             {"mnuFileRename", "Rename File"},
             {"mnuFileMove", "Move File"},
             {"mnuFileDelete", "Delete File"},
             {nullptr, nullptr},
             {"mnuFilePrint", "Print"},
             {"mnuFilePrinter", "Printer Setup"},
             {"mnuFileSend", "Send File"},
             {"mnuFileProptee", "File Properties"},
             {nullptr, nullptr},
             {"mnuFileExit", "Exit"}});
    addMenu("mnuEdit", tr("&Edit"), {{"mnuEditCopy", "Copy"}});
    addMenu("mnuView", tr("&View"),
            {{"mnuViewTable", "Set Database Table"},
             {"mnuViewIndex", "Set Database Table Index"},
             {"mnuViewComments", "View Table Comments"},
             {nullptr, nullptr},
             {"mnuViewThumbNails", "View Pictures in a Folder"},
             {nullptr, nullptr},
             {"mnuViewNormal", "Normal Image View"},
             {"mnuViewStretch", "Stretch Image View"}});
    addMenu("mnuImage", tr("&Image"),
            {{"mnuImageFlip", "Flip"},
             {"mnuImageRotate", "Rotate"},
             {"mnuImageReverse", "Reverse"},
             {"mnuImageResize", "Resize"},
             {"mnuImageBrightness", "Brightness"},
             {"mnuImageContrast", "Contrast"},
             {"mnuImageColorInt", "Stretch Color Intensity"},
             {"mnuImageInvert", "Color Invert"},
             {nullptr, nullptr},
             {"mnuImageText", "Add Text to Picture"},
             {"mnuImageShapes", "Add Shapes to Picture"}});
    addMenu("mnuUtilities", tr("&Utilities"),
            {{"mnuUtilitiesFoldr", "Set Working Folders"},
             {"mnuUtilitiesColor", "Set Application Colors"},
             {"mnuUtilitiesOptions", "Set Application Options"}});
    addMenu("mnuWindow", tr("&Window"),
            {{"mnuWindowCascade", "Cascade"},
             {"mnuWindowTileHorz", "Tile Horizontally"},
             {"mnuWindowTileVert", "Tile Vertically"}});
    addMenu("mnuHelp", tr("&Help"),
            {{"mnuHelpContents", "Contents"},
             {"mnuHelpSearch", "Search Help Topic"},
             {"mnuHelpQuikTips", "Quick Tips"},
             {"mnuAbout", "About Quorvane"}});

    auto on = [this](const char* name, auto handler) {
        for (QMenu* menu : m_menus) {
            if (auto* action = menu->findChild<QAction*>(QString::fromLatin1(name))) {
                connect(action, &QAction::triggered, this, handler);
                return;
            }
        }
    };
    on("mnuFileOpen", &ChildFrm1::mnuFileOpen_Click);
    on("mnuFileClose", &ChildFrm1::mnuFileClose_Click);
    on("mnuFileExit", [this] { m_frame->close(); });
    on("mnuWindowCascade", [this] { m_frame->workspace()->cascadeSubWindows(); });
    on("mnuWindowTileHorz", [this] { m_frame->workspace()->tileSubWindows(); });
    on("mnuWindowTileVert", [this] { m_frame->workspace()->tileSubWindows(); });
    on("mnuHelpContents", &ChildFrm1::mnuHelpContents_Click);
}

namespace {
QAction* findMenuAction(const QList<QMenu*>& menus, const char* name) {
    for (QMenu* menu : menus) {
        if (QString::fromLatin1(name) == menu->objectName())
            return menu->menuAction();
        if (auto* action = menu->findChild<QAction*>(QString::fromLatin1(name)))
            return action;
    }
    return nullptr;
}
} // namespace

void ChildFrm1::Form_Load() {
    for (const char* name :
         {"mnuImage", "mnuView", "mnuViewComments", "mnuViewIndex", "mnuViewTable", "mnuViewNormal",
          "mnuViewStretch", "mnuViewThumbNails", "mnuImageBrightness", "mnuImageContrast",
          "mnuImageInvert", "mnuImageResize", "mnuImageReverse", "mnuImageRotate",
          "mnuImageText"}) {
        if (QAction* action = findMenuAction(m_menus, name))
            action->setEnabled(false);
    }
    for (const char* name : {"mnuImage", "mnuView"})
        findMenuAction(m_menus, name)->setEnabled(true);

    m_frame->mChildCount = static_cast<qint16>(m_frame->mChildCount + 1);
    m_frame->mLoadFailed = false;

    Globals& g = globals();
    Quorvane1* main = Quorvane1::instance();
    if (main && main->isTextFile()) {
        FILE_TYPE = u"T"_s;
    } else if (g.gIsAudioVideoFile) {
        g.gIsAudioVideoFile = false;
    } else if (g.gIsDatabaseFile) {
        FILE_TYPE = u"D"_s;
        mExt = FileTypes::GetFileExt(g.gCurrentFile);
    } else {
        FILE_TYPE = u"I"_s;
        mExt = FileTypes::GetFileExt(g.gCurrentFile);
        for (const char* name :
             {"mnuViewNormal", "mnuViewStretch", "mnuViewThumbNails", "mnuImageBrightness",
              "mnuImageContrast", "mnuImageInvert", "mnuImageResize", "mnuImageReverse",
              "mnuImageRotate", "mnuImageText"})
            findMenuAction(m_menus, name)->setEnabled(true);
    }
    if (FILE_TYPE == u"T"_s)
        mExt = FileTypes::GetFileExt(windowTitle());
}

void ChildFrm1::Form_Activate() {
    if (m_frame->mLoadFailed) {
        m_frame->mLoadFailed = false;
        if (ChildFrm1* active = m_frame->activeChild())
            active->close();
        return;
    }
    const Globals& g = globals();
    QPalette palette = widget()->palette();
    palette.setColor(QPalette::Window, SettingColor::toQColor(g.gPictureWindowColor));
    widget()->setPalette(palette);
    widget()->setAutoFillBackground(true);
    if (mBadLoad) {
        close();
        return;
    }

    const QString caption = windowTitle();
    QLabel* path = m_frame->statusLabel(0);
    for (int i = 1; i < 4; ++i)
        m_frame->statusLabel(i)->clear();
    if (FILE_TYPE == u"I"_s) {
        QImageReader reader(caption);
        const QSize size = reader.size();
        if (size.isValid())
            m_frame->statusLabel(1)->setText(QString::number(size.width()) + u" x "_s +
                                             QString::number(size.height()));
        const QImage::Format format = reader.imageFormat();
        if (format != QImage::Format_Invalid)
            m_frame->statusLabel(2)->setText(
                QString::number(QImage::toPixelFormat(format).bitsPerPixel()) + u" Bitmap Bits"_s);
    }
    m_frame->statusLabel(3)->setText(bytesText(QFileInfo(caption).size()));

    if (mFirstActivate) {
        CURFILE_NAME = caption;
        mFirstActivate = false;
    }

    // A long path gets a place to wrap, and the strip grows to show two lines.
    QString text = caption;
    if (text.size() > 40) {
        const qsizetype slash = text.indexOf(u'/', 14);
        if (slash >= 0)
            text.insert(slash + 1, u' ');
    }
    path->setText(text);
    const bool longPath = text.size() > 40;
    m_frame->statusStrip()->setFixedHeight(Twips::toPixels(longPath ? 550 : 375));
    for (int i = 1; i < 4; ++i)
        m_frame->statusLabel(i)->setFixedHeight(Twips::toPixels(longPath ? 460 : 315));

    m_frame->DisableButtons();
    if (FILE_TYPE == u"T"_s) {
        m_frame->EnableTextButtons();
    } else if (FILE_TYPE == u"I"_s) {
        m_frame->EnableButtons();
    } else if (FILE_TYPE == u"D"_s) {
        m_frame->EnableDataButtons();
        if (mExt == u"DBF"_s || mExt == u"DB"_s)
            m_frame->button(12)->setEnabled(false);
    }
    path->setToolTip(caption);
}

void ChildFrm1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    if (mDirty) {
        const bool save =
            Messages::instance().askYesNo(tr("Do You want to Save Changes to the Picture?"), this);
        Q_UNUSED(save); // saving pictures comes with the picture documents
    }
    m_frame->mChildCount = static_cast<qint16>(m_frame->mChildCount - 1);
    if (m_frame->mChildCount > 0) {
        if (FILE_TYPE == u"T"_s)
            m_frame->EnableTextButtons();
        else if (FILE_TYPE == u"D"_s)
            m_frame->EnableDataButtons();
        else if (FILE_TYPE == u"I"_s)
            m_frame->EnableButtons();
        if (Quorvane1* main = Quorvane1::instance())
            main->DisableSelectMenus();
    } else {
        m_frame->showEmptyState();
    }
}

void ChildFrm1::closeEvent(QCloseEvent* event) {
    Form_Unload();
    QMdiSubWindow::closeEvent(event);
}

void ChildFrm1::mnuFileOpen_Click() {
    const QString name = m_frame->askDocumentToOpen(this);
    if (name.trimmed().isEmpty())
        return;
    Globals& g = globals();
    Quorvane1* main = Quorvane1::instance();
    g.gCurrentFile = name;
    if (main)
        main->GetFileTypeFlag(name);
    m_frame->addChild(new ChildFrm1(m_frame, name));
    if (main)
        main->AddtoCMBFILE(name);
}

void ChildFrm1::mnuFileClose_Click() {
    close();
}

void ChildFrm1::mnuHelpContents_Click() {
    if (Quorvane1* main = Quorvane1::instance())
        main->showHelp();
}

// The commands below act on the document's contents and on files; they come with the
// picture, text and table documents and the file operations.
void ChildFrm1::mnuFileDelete_Click() {}
void ChildFrm1::mnuFileMove_Click() {}
void ChildFrm1::mnuFilePrint_Click() {}
void ChildFrm1::mnuFileRename_Click() {}
void ChildFrm1::mnuFileSend_Click() {}
void ChildFrm1::mnuFileSaveAs_Click() {}
void ChildFrm1::mnuEditCopy_Click() {}
void ChildFrm1::mnuImageBrightness_Click() {}
void ChildFrm1::mnuImageResize_Click() {}
void ChildFrm1::mnuViewIndex_Click() {}
void ChildFrm1::mnuViewNormal_Click() {}
void ChildFrm1::mnuViewStretch_Click() {}
void ChildFrm1::mnuViewTable_Click() {}
void ChildFrm1::mnuViewComments_Click() {}
