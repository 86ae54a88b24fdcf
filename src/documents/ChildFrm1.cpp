#include "documents/ChildFrm1.h"

#include "documents/MDIForm1.h"
#include "documents/NewSize1.h"
#include "documents/PictureDialog.h"
#include "documents/TextLayout.h"
#include "documents/TextLoader.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/PictureView.h"
#include "platform/imaging/PixelOps.h"
#include "shell/FileOperations.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/Quorvane1.h"
#include "shell/Rename1.h"
#include "shell/ShellList.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMenu>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

QString bytesText(qint64 size) {
    return QLocale().toString(size) + u"  Bytes"_s;
}

} // namespace

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
    on("mnuWindowTileHorz", [this] { m_frame->tileChildren(true); });
    on("mnuWindowTileVert", [this] { m_frame->tileChildren(false); });
    on("mnuHelpContents", &ChildFrm1::mnuHelpContents_Click);
    on("mnuViewNormal", &ChildFrm1::mnuViewNormal_Click);
    on("mnuViewStretch", &ChildFrm1::mnuViewStretch_Click);
    on("mnuImageFlip", &ChildFrm1::mnuImageFlip_Click);
    on("mnuImageReverse", &ChildFrm1::mnuImageReverse_Click);
    on("mnuImageInvert", &ChildFrm1::mnuImageInvert_Click);
    on("mnuImageColorInt", &ChildFrm1::mnuImageColorInt_Click);
    on("mnuEditCopy", &ChildFrm1::mnuEditCopy_Click);
    on("mnuImageResize", &ChildFrm1::mnuImageResize_Click);
    on("mnuFileSaveAs", &ChildFrm1::mnuFileSaveAs_Click);
    on("mnuFilePrint", &ChildFrm1::mnuFilePrint_Click);
    on("mnuFileSend", &ChildFrm1::mnuFileSend_Click);
    on("mnuFileOLE", &ChildFrm1::mnuFileOLE_Click);
    on("mnuFileRename", &ChildFrm1::mnuFileRename_Click);
    on("mnuFileMove", &ChildFrm1::mnuFileMove_Click);
    on("mnuFileDelete", &ChildFrm1::mnuFileDelete_Click);
    on("mnuImageBrightness", &ChildFrm1::mnuImageBrightness_Click);
    on("mnuImageContrast", &ChildFrm1::mnuImageContrast_Click);
    on("mnuImageRotate", &ChildFrm1::mnuImageRotate_Click);
    // Their check marks tell an armed draw: a click on them leaves the mark to the command.
    on("mnuImageText", [this](bool checked) {
        menuAction("mnuImageText")->setChecked(!checked);
        mnuImageText_Click();
    });
    on("mnuImageShapes", [this](bool checked) {
        menuAction("mnuImageShapes")->setChecked(!checked);
        mnuImageShapes_Click();
    });
    on("mnuFileFind", [] {
        if (Quorvane1* main = Quorvane1::instance())
            main->FindFileRoutine();
    });
    on("mnuFileFindNext", [] {
        if (Quorvane1* main = Quorvane1::instance())
            main->FindNext();
    });
    on("mnuFileProptee", &ChildFrm1::mnuFileProptee_Click);
    on("mnuFilePrinter", [this] { Messages::instance().setUpPrinter(this); });
    on("mnuHelpSearch", [this] { Help::showSearch(this); });
    // The windows these commands reach, by name.
    const struct {
        const char* action;
        const char* window;
        WindowRegistry::Showing showing;
    } windows[] = {
        {"mnuViewThumbNails", "ThumBrow1", WindowRegistry::Modeless},
        {"mnuUtilitiesFoldr", "SetFoldr1", WindowRegistry::Modeless},
        {"mnuUtilitiesColor", "SetColor1", WindowRegistry::Modal},
        {"mnuUtilitiesOptions", "SetOptns1", WindowRegistry::Modal},
        {"mnuHelpQuikTips", "QuikTip1", WindowRegistry::Modeless},
        {"mnuAbout", "About1", WindowRegistry::Modeless},
    };
    for (const auto& w : windows)
        WindowRegistry::connectCommand(menuAction(w.action), QString::fromLatin1(w.window),
                                       w.showing);
    on("mnuViewTable", &ChildFrm1::mnuViewTable_Click);
    on("mnuViewIndex", &ChildFrm1::mnuViewIndex_Click);
    on("mnuViewComments", &ChildFrm1::mnuViewComments_Click);
    for (const char* name : {"mnuViewNormal", "mnuViewStretch", "mnuImageText", "mnuImageShapes"})
        menuAction(name)->setCheckable(true);
}

QAction* ChildFrm1::menuAction(const char* name) const {
    return findMenuAction(m_menus, name);
}

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
        loadDatabase(g.gCurrentFile);
    } else {
        FILE_TYPE = u"I"_s;
        mExt = FileTypes::GetFileExt(g.gCurrentFile);
        loadPicture(g.gCurrentFile);
    }
    if (FILE_TYPE == u"T"_s)
        loadText(g.gCurrentFile);
    setDrawingDefaults();
}

void ChildFrm1::loadText(const QString& path) {
    mExt = FileTypes::GetFileExt(path);
    // The text box sits at the top left of the window's content and follows the window's size
    // by its own rule.
    Text1 = new QTextEdit(widget());
    Text1->setObjectName(u"Text1"_s);
    Text1->setAccessibleName(tr("Text"));
    Text1->setReadOnly(true);
    Text1->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    Text1->move(0, 0);
    m_frame->EnableTextButtons();
    // A file that cannot be read leaves the window empty, without a word.
    const TextLoader::Text text = TextLoader::load(path, mExt);
    if (!text.ok)
        return;
    if (text.rich)
        Text1->setHtml(text.content);
    else
        Text1->setPlainText(text.content);
}

void ChildFrm1::loadPicture(const QString& path) {
    Image1 = new PictureView(this);
    Image1->setObjectName(u"Image1"_s);
    Image1->setAccessibleName(tr("Picture"));
    Image1->setCursor(Qt::WaitCursor);
    QPalette palette = Image1->palette();
    palette.setColor(QPalette::Window, Qt::white);
    Image1->setPalette(palette);
    // The picture takes the place of the plain content; the window lets go of that, not frees it.
    QWidget* content = widget();
    setWidget(Image1);
    delete content;
    connect(Image1, &PictureView::doubleClicked, this, &ChildFrm1::Image1_DblClick);
    connect(Image1, &PictureView::mouseReleased, this, &ChildFrm1::Image1_MouseUp);

    mBadLoad = false;
    const ImageCodec::Picture picture = ImageCodec::decode(path);
    m_diskSize = picture.diskSize;
    if (picture.error) {
        mBadLoad = true;
        const int number = picture.error.number();
        if (number == ImageCodec::UnknownFormat || number == ImageCodec::ReadFailed)
            Messages::instance().inform(tr("Error Occurred - Could not Load Picture or Image"),
                                        this);
        else
            Messages::instance().inform(
                QString::number(number) + u" - "_s + picture.error.description(), this);
        m_frame->mLoadFailed = true;
        return;
    }
    Image1->setImage(picture.image);
    m_bits = picture.bitsPerPixel;

    Image1->setPaintSizeMode(PictureView::Normal);
    m_frame->EnableButtons();
    Image1->setVisible(true);
    setCheckMarks();
    for (const char* name : {"mnuViewComments", "mnuViewIndex", "mnuViewTable"})
        menuAction(name)->setEnabled(false);
    for (const char* name : {"mnuViewNormal", "mnuViewStretch", "mnuViewThumbNails",
                             "mnuImageBrightness", "mnuImageContrast", "mnuImageInvert",
                             "mnuImageResize", "mnuImageReverse", "mnuImageRotate", "mnuImageText"})
        menuAction(name)->setEnabled(true);
}

void ChildFrm1::placeInWorkspace() {
    if (Text1) {
        move(0, 0);
        resize(Twips::toPixels(6500), Twips::toPixels(4000));
        layoutText();
        return;
    }
    if (Data1) {
        move(0, 0);
        resize(Twips::toPixels(9000), Twips::toPixels(5500));
        return;
    }
    if (!Image1 || Image1->image().isNull())
        return;
    // At the top left, and fitted to the picture: its frame around the picture's own size.
    move(0, 0);
    const QSize frameExtra = size() - contentsRect().size();
    resize(Image1->image().size() + frameExtra);
}

void ChildFrm1::layoutText() {
    const QSizeF text = TextLayout::textSize(
        {Twips::fromPixels(width()), Twips::fromPixels(height())},
        {Twips::fromPixels(Text1->width()), Twips::fromPixels(Text1->height())});
    Text1->resize(Twips::toPixels(text.width()), Twips::toPixels(text.height()));
}

void ChildFrm1::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    if (FILE_TYPE == u"T"_s && Text1)
        layoutText();
    else if (FILE_TYPE == u"D"_s && Data1)
        resizeDatabase();
}

void ChildFrm1::setCheckMarks() {
    QAction* normal = menuAction("mnuViewNormal");
    QAction* stretch = menuAction("mnuViewStretch");
    normal->setChecked(false);
    stretch->setChecked(false);
    if (!Image1)
        return;
    if (Image1->paintSizeMode() == PictureView::Normal)
        normal->setChecked(true);
    else if (Image1->paintSizeMode() == PictureView::Stretch)
        stretch->setChecked(true);
}

void ChildFrm1::mnuViewNormal_Click() {
    if (isMinimized() || !Image1)
        return;
    Image1->setPaintSizeMode(PictureView::Normal);
    setCheckMarks();
    m_frame->setButtonDown(12, false);
    mStretch = false;
}

void ChildFrm1::mnuViewStretch_Click() {
    if (!Image1)
        return;
    Image1->setPaintSizeMode(PictureView::Stretch);
    mDirty = true;
    mStretch = true;
    m_frame->setButtonDown(11, false);
    setCheckMarks();
}

void ChildFrm1::Image1_DblClick() {
    ChildFrm1* active = m_frame->activeChild();
    if (!active || !active->Image1)
        return;
    if (active->mStretch) {
        active->Image1->setPaintSizeMode(PictureView::Normal);
        active->mStretch = false;
    } else {
        active->Image1->setPaintSizeMode(PictureView::Stretch);
        active->mStretch = true;
    }
    active->setCheckMarks();
}

void ChildFrm1::Image1_MouseUp(Qt::MouseButton button, QPoint position) {
    if (button == Qt::RightButton) {
        // A right click disarms a pending draw.
        DRAW_NOW_FLG = false;
        menuAction("mnuImageText")->setChecked(false);
        menuAction("mnuImageShapes")->setChecked(false);
        Image1->unsetCursor();
        return;
    }
    // The place of the click in pixels of the picture, in the normal and the stretched view.
    const QPoint at = Image1->imagePoint(position);
    mClickX = static_cast<float>(at.x());
    mClickY = static_cast<float>(at.y());
    mRoomRight = static_cast<qint16>(Image1->image().width() - at.x());
    mRoomDown = static_cast<qint16>(Image1->image().height() - at.y());
    if (!DRAW_NOW_FLG)
        return;
    if (DRAWMENU == u"Text"_s)
        drawText(at);
    else if (DRAWMENU == u"Shape"_s)
        drawShape(at);
}

void ChildFrm1::beginChange() {
    setCursor(Qt::WaitCursor);
    if (Image1)
        Image1->setAutoRepaint(false);
}

void ChildFrm1::endChange() {
    unsetCursor();
    if (Image1)
        Image1->setAutoRepaint(true);
}

template <class Change> void ChildFrm1::changePicture(Change change) {
    if (!Image1 || Image1->image().isNull())
        return;
    beginChange();
    change(Image1->editableImage());
    mDirty = true;
    endChange();
}

void ChildFrm1::mnuImageFlip_Click() {
    changePicture([](QImage& image) { PixelOps::flip(image); });
}

void ChildFrm1::mnuImageReverse_Click() {
    changePicture([](QImage& image) { PixelOps::reverse(image); });
}

void ChildFrm1::mnuImageInvert_Click() {
    changePicture([](QImage& image) { PixelOps::invert(image); });
}

void ChildFrm1::mnuImageColorInt_Click() {
    changePicture([](QImage& image) { PixelOps::stretchIntensity(image); });
}

bool ChildFrm1::runAdjustDialog(PictureDialog& dialog) {
    const Globals& g = globals();
    QFont font = dialog.font();
    font.setBold(g.gBoldType);
    dialog.setFont(font);
    return dialog.exec() == QDialog::Accepted;
}

void ChildFrm1::mnuImageBrightness_Click() {
    if (!Image1 || Image1->image().isNull())
        return;
    PictureDialog dialog(PictureDialog::Brightness, Image1->image(), this);
    dialog.setValue(0);
    if (!runAdjustDialog(dialog))
        return; // Cancel changes nothing
    const int value = dialog.value();
    changePicture([value](QImage& image) { PixelOps::changeIntensity(image, value); });
}

void ChildFrm1::mnuImageContrast_Click() {
    if (!Image1 || Image1->image().isNull())
        return;
    PictureDialog dialog(PictureDialog::Contrast, Image1->image(), this);
    dialog.setValue(0);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const int value = dialog.value();
    changePicture([value](QImage& image) { PixelOps::changeContrast(image, value); });
}

void ChildFrm1::mnuImageRotate_Click() {
    if (!Image1 || Image1->image().isNull())
        return;
    PictureDialog dialog(PictureDialog::Rotate, Image1->image(), this);
    dialog.setAngle(0);
    const Globals& g = globals();
    WidgetPaint::paint(&dialog, g.gWindowBackColor, g.gWindowForeColor);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const int angle = dialog.angle();
    const bool grow = dialog.resizeToFit();
    const QColor fill = dialog.fillColor();
    beginChange();
    PixelOps::rotate(Image1->editableImage(), angle, grow, fill);
    mnuViewNormal_Click();
    mDirty = true;
    endChange();
}

void ChildFrm1::mnuImageResize_Click() {
    if (!Image1 || Image1->image().isNull())
        return;
    NewSize1 dialog(Image1->image().width(), Image1->image().height(), this);
    dialog.InitTheForm(NewSize1::Picture);
    dialog.exec();
    bool ok = false;
    int width = 0;
    int height = 0;
    bool resample = false;
    dialog.GetResults(ok, width, height, resample);
    if (!ok)
        return;
    beginChange();
    PixelOps::resize(Image1->editableImage(), width, height, resample);
    mDirty = true;
    mnuViewNormal_Click();
    endChange();
}

void ChildFrm1::keyPressEvent(QKeyEvent* event) {
    // The space bar brings the browser back without closing the document.
    if (event->key() == Qt::Key_Space) {
        if (Quorvane1* main = Quorvane1::instance()) {
            main->activateWindow();
            main->raise();
        }
        event->accept();
        return;
    }
    QMdiSubWindow::keyPressEvent(event);
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
    if (Text1)
        WidgetPaint::paint(Text1, g.gDisplayBackColor, g.gDisplayForeColor, g.gBoldType);
    if (Data1)
        paintDatabaseView();
    if (mBadLoad) {
        close();
        return;
    }

    const QString caption = windowTitle();
    QLabel* path = m_frame->statusLabel(0);
    for (int i = 1; i < 4; ++i)
        m_frame->statusLabel(i)->clear();
    if (FILE_TYPE == u"I"_s && Image1) {
        const QImage& image = Image1->image();
        m_frame->statusLabel(1)->setText(QString::number(image.width()) + u" x "_s +
                                         QString::number(image.height()));
        m_frame->statusLabel(2)->setText(QString::number(m_bits) + u" Bitmap Bits"_s);
        m_frame->statusLabel(3)->setText(bytesText(m_diskSize));
    } else {
        m_frame->statusLabel(3)->setText(bytesText(QFileInfo(caption).size()));
    }

    if (mFirstActivate) {
        CURFILE_NAME = caption;
        if (Image1)
            Image1->unsetCursor();
        // While the organizer files a search's folders, the focus goes back to it.
        const Globals& g = globals();
        if (g.gGrpBatchOpen && g.gBatchSearch) {
            if (QWidget* batch = WindowRegistry::find(u"GrpBatch1"_s))
                batch->activateWindow();
        }
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
        syncTableButtons();
    }
    path->setToolTip(caption);
}

void ChildFrm1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    if (mDirty) {
        if (Messages::instance().askYesNo(tr("Do You want to Save Changes to the Picture?"),
                                          this)) {
            if (Quorvane1* main = Quorvane1::instance())
                main->SaveFileAs(windowTitle(), Image1 ? &Image1->image() : nullptr);
        }
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
    const QString name = m_frame->askDocumentToOpen(this, mExt);
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

void ChildFrm1::mnuFileSaveAs_Click() {
    if (Quorvane1* main = Quorvane1::instance())
        main->SaveFileAs(windowTitle(), Image1 && mDirty ? &Image1->image() : nullptr);
}

void ChildFrm1::mnuFileRename_Click() {
    globals().gCurrentFile = windowTitle();
    globals().gOpenFile = windowTitle();
    Rename1 dialog(this);
    dialog.exec();
}

void ChildFrm1::mnuFileMove_Click() {
    // A table lets go of its files only when the move goes ahead: MoveFile1 closes its window.
    if (Quorvane1* main = Quorvane1::instance())
        main->MoveFile(windowTitle());
}

void ChildFrm1::mnuFileDelete_Click() {
    Quorvane1* main = Quorvane1::instance();
    if (!main)
        return;
    const QString caption = windowTitle();
    if (!FileOperations::isFamilyExtension(mExt)) {
        main->DeleteFile(caption);
        return;
    }
    // The table lets go of its files before they go.
    releaseTable();
    const QStringList members = FileOperations::family(caption);
    close();
    for (const QString& member : members)
        main->DeleteFile(member);
    main->shellList()->refresh();
}

bool ChildFrm1::saveChangesInPlace() {
    if (!mDirty || !Image1)
        return true;
    if (!Messages::instance().askYesNo(tr("Do You want to Save Changes to the Picture?"), this))
        return false;
    const QString caption = windowTitle();
    mExt = FileTypes::GetFileExt(caption);
    if (!ImageCodec::encode(Image1->image(), caption, FileTypes::GetFileFormatCode(mExt)))
        mDirty = false;
    return true;
}

void ChildFrm1::mnuFilePrint_Click() {
    saveChangesInPlace();
    Globals& g = globals();
    const QString caption = windowTitle();
    g.gPrintFolder = PathUtil::folderOf(caption);
    g.gPrintFile = PathUtil::nameOf(caption);
    g.gOpenFile = caption;
    g.gCallerTag = u"M"_s;
    m_frame->mPrintPassword = mPassword;
    g.gPrintListItem = mTableName;
    WindowRegistry::show(u"PrntFrm1"_s);
}

void ChildFrm1::mnuFileSend_Click() {
    saveChangesInPlace();
    globals().gCurrentFile = windowTitle();
    WindowRegistry::show(u"SendFile1"_s);
}

void ChildFrm1::mnuFileOLE_Click() {
    Quorvane1* main = Quorvane1::instance();
    if (!main)
        return;
    // A web page shown here lets go of its file before another program opens it.
    if ((mExt == u"HTM"_s || mExt == u"HTML"_s) && Text1) {
        const TextLoader::Text closeText =
            TextLoader::load(PathUtil::join(globals().gAppPath, u"Close.Txt"_s), u"TXT"_s);
        Text1->setPlainText(closeText.content);
    }
    releaseTable();
    main->OpenwithOLE(windowTitle());
}

void ChildFrm1::mnuFileClose_Click() {
    close();
}

void ChildFrm1::mnuHelpContents_Click() {
    Help::showContents(this);
}

void ChildFrm1::mnuFileProptee_Click() {
    Globals& g = globals();
    g.gCallerTag = u"M"_s;
    g.gOpenFile = windowTitle();
    WindowRegistry::show(u"ProPert1"_s, WindowRegistry::Modal);
}

// The commands below act on the document's contents and on files; they come with the
// picture, text and table documents and the file operations.
void ChildFrm1::mnuEditCopy_Click() {
    if (FILE_TYPE == u"I"_s)
        Messages::instance().inform(
            tr("You can only Copy Text for Pasting into Text Box to Add Text to a Picture"), this);
    else if (FILE_TYPE == u"D"_s)
        copyCurrentCell();
}
