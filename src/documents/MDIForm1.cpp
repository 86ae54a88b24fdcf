#include "documents/MDIForm1.h"

#include "documents/ChildFrm1.h"
#include "documents/TileLayout.h"
#include "platform/DroppedFiles.h"
#include "platform/Messages.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/Quorvane1.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {} // namespace

QString MDIForm1::WindowName() {
    return u"MDIForm1"_s;
}

MDIForm1::MDIForm1(QWidget* parent) : QMainWindow(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setWindowTitle(tr("Quorvane - The Windows File Utility"));

    auto* client = new QWidget(this);
    auto* layout = new QVBoxLayout(client);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_area = new QMdiArea(client);
    m_area->setObjectName(u"MDIClient"_s);
    m_area->setAccessibleName(tr("Documents"));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    layout->addWidget(m_area, 1);

    Frame1 = new QFrame(client);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFixedHeight(Twips::toPixels(375));
    auto* strip = new QHBoxLayout(Frame1);
    strip->setContentsMargins(2, 2, 2, 2);
    for (int i = 0; i < 4; ++i) {
        Label1[i] = new QLabel(Frame1);
        Label1[i]->setObjectName(u"Label1(%1)"_s.arg(i));
        Label1[i]->setFrameShape(QFrame::Panel);
        Label1[i]->setFrameShadow(QFrame::Sunken);
        Label1[i]->setWordWrap(i == 0);
        strip->addWidget(Label1[i], i == 0 ? 1 : 0);
    }
    Label1[0]->setAccessibleName(tr("Document path"));
    Label1[1]->setAccessibleName(tr("Picture size"));
    Label1[2]->setAccessibleName(tr("Picture bits"));
    Label1[3]->setAccessibleName(tr("File size"));
    Label1[1]->setFixedWidth(Twips::toPixels(1500));
    Label1[2]->setFixedWidth(Twips::toPixels(1500));
    Label1[3]->setFixedWidth(Twips::toPixels(1800));
    layout->addWidget(Frame1);
    setCentralWidget(client);

    buildToolbar();
    m_states.fill(true);
    buildMenus();
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        auto* child = qobject_cast<ChildFrm1*>(window);
        showMenusOf(child);
        if (child)
            child->Form_Activate();
    });

    WindowRegistry::add(WindowName(), this);
    // Load
    mChildCount = 0;
    SetMDIWinSize();
    globals().gFrameOpen = true;
}

MDIForm1::~MDIForm1() {
    Form_Unload();
}

void MDIForm1::buildToolbar() {
    Toolbar1 = addToolBar(tr("Documents"));
    Toolbar1->setObjectName(u"Toolbar1"_s);
    Toolbar1->setMovable(false);
    Toolbar1->setIconSize(QSize(24, 24));
    m_group = new QActionGroup(this);
    m_group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const FrameButtons::Button& b : FrameButtons::buttons()) {
        const QString key = QString::fromLatin1(b.key);
        QAction* action = nullptr;
        if (b.image == 0) {
            action = Toolbar1->addSeparator();
        } else {
            action = Toolbar1->addAction(QIcon(u":/toolbar/"_s + key + u".png"_s), key);
            action->setToolTip(tr(b.toolTip));
            action->setCheckable(true);
            m_group->addAction(action);
            connect(action, &QAction::triggered, this,
                    [this, action] { Toolbar1_ButtonClick(action); });
        }
        action->setObjectName(key);
        action->setData(key);
        m_buttons.push_back(action);
    }
    for (QAction* action : m_buttons) {
        if (QWidget* widget = Toolbar1->widgetForAction(action))
            widget->setAccessibleName(action->toolTip());
    }
}

void MDIForm1::buildMenus() {
    QMenu* file = new QMenu(tr("&File"), this);
    file->setObjectName(u"mnuFile"_s);
    QAction* open = file->addAction(tr("&Open File"));
    open->setObjectName(u"mnuFileOpen"_s);
    connect(open, &QAction::triggered, this, &MDIForm1::mnuFileOpen_Click);
    QAction* find = file->addAction(tr("Find Files"));
    find->setObjectName(u"mnuFileFind"_s);
    QAction* findNext = file->addAction(tr("Find Next File"));
    findNext->setObjectName(u"mnuFileFindNext"_s);
    connect(find, &QAction::triggered, this, [] {
        if (Quorvane1* main = Quorvane1::instance())
            main->FindFileRoutine();
    });
    connect(findNext, &QAction::triggered, this, [] {
        if (Quorvane1* main = Quorvane1::instance())
            main->FindNext();
    });
    file->addSeparator();
    QAction* exit = file->addAction(tr("Exit"));
    exit->setObjectName(u"mnuFileExit"_s);
    connect(exit, &QAction::triggered, this, &QWidget::close);

    auto add = [](QMenu* menu, const QString& caption, const QString& name) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(name);
        return action;
    };
    QMenu* utilities = new QMenu(tr("&Utilities"), this);
    utilities->setObjectName(u"mnuUtilities"_s);
    WindowRegistry::connectCommand(
        add(utilities, tr("Set Working Folders"), u"mnuUtilitiesSetFoldr"_s), u"SetFoldr1"_s);
    WindowRegistry::connectCommand(
        add(utilities, tr("Set Application Colors"), u"mnuUtilitiesColor"_s), u"SetColor1"_s,
        WindowRegistry::Modal);
    WindowRegistry::connectCommand(
        add(utilities, tr("Set Application Options"), u"mnuUtilitiesOptions"_s), u"SetOptns1"_s,
        WindowRegistry::Modal);

    QMenu* help = new QMenu(tr("&Help"), this);
    help->setObjectName(u"mnuHelp"_s);
    connect(add(help, tr("Contents"), u"mnuHelpContents"_s), &QAction::triggered, this,
            &MDIForm1::mnuHelpContents_Click);
    connect(add(help, tr("Search Help"), u"mnuHelpSearch"_s), &QAction::triggered, this,
            [this] { Help::showSearch(this); });
    WindowRegistry::connectCommand(add(help, tr("Quick Tips"), u"mnuHelpQuikTips"_s),
                                   u"QuikTip1"_s);
    WindowRegistry::connectCommand(add(help, tr("About Quorvane"), u"mnuAbout"_s), u"About1"_s);

    m_ownMenus = {file, utilities, help};
    showMenusOf(nullptr);
}

void MDIForm1::showMenusOf(ChildFrm1* child) {
    menuBar()->clear();
    for (QMenu* menu : child ? child->menus() : m_ownMenus)
        menuBar()->addMenu(menu);
}

void MDIForm1::applyButtonStates() {
    for (int n = 1; n <= FrameButtons::Count; ++n)
        button(n)->setEnabled(m_states[static_cast<size_t>(n)]);
}

void MDIForm1::DisableButtons() {
    FrameButtons::DisableButtons(m_states);
    applyButtonStates();
}

void MDIForm1::EnableButtons() {
    FrameButtons::EnableButtons(m_states);
    applyButtonStates();
}

void MDIForm1::EnableMDIButtons() {
    FrameButtons::EnableMDIButtons(m_states);
    applyButtonStates();
}

void MDIForm1::EnableTextButtons() {
    FrameButtons::EnableTextButtons(m_states);
    applyButtonStates();
}

void MDIForm1::EnableDataButtons() {
    FrameButtons::EnableDataButtons(m_states);
    applyButtonStates();
}

void MDIForm1::setButtonDown(int number, bool down) {
    QAction* action = button(number);
    if (action->isCheckable())
        action->setChecked(down);
}

void MDIForm1::SetMDIWinSize() {
    const Globals& g = globals();
    move(Twips::toPixels(g.gFrameLeft), Twips::toPixels(g.gFrameTop));
    resize(std::max(1, Twips::toPixels(g.gFrameWidth)),
           std::max(1, Twips::toPixels(g.gFrameHeight)));
}

ChildFrm1* MDIForm1::activeChild() const {
    if (auto* child = qobject_cast<ChildFrm1*>(m_area->activeSubWindow()))
        return child;
    // While the frame itself is not active the workspace may report none: take the top one.
    const QList<QMdiSubWindow*> windows = m_area->subWindowList(QMdiArea::StackingOrder);
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        if (auto* child = qobject_cast<ChildFrm1*>(*it))
            return child;
    }
    return nullptr;
}

QList<ChildFrm1*> MDIForm1::children() const {
    QList<ChildFrm1*> result;
    for (QMdiSubWindow* window : m_area->subWindowList(QMdiArea::CreationOrder)) {
        if (auto* child = qobject_cast<ChildFrm1*>(window))
            result.append(child);
    }
    return result;
}

void MDIForm1::addChild(ChildFrm1* child) {
    m_area->addSubWindow(child);
    child->placeInWorkspace();
    child->show();
    m_area->setActiveSubWindow(child);
}

void MDIForm1::tileChildren(bool horizontal) {
    QList<QMdiSubWindow*> shown;
    for (QMdiSubWindow* window : m_area->subWindowList(QMdiArea::CreationOrder)) {
        if (!window->isMinimized() && window->isVisible()) {
            window->showNormal();
            shown.append(window);
        }
    }
    const QList<QRect> places =
        TileLayout::tile(static_cast<int>(shown.size()), m_area->viewport()->rect(), horizontal);
    for (qsizetype i = 0; i < shown.size() && i < places.size(); ++i)
        shown[i]->setGeometry(places[i]);
}

void MDIForm1::showEmptyState() {
    mChildCount = 0;
    for (QLabel* label : Label1)
        label->clear();
    DisableButtons();
    EnableMDIButtons();
    setWindowTitle(Messages::caption());
    showMenusOf(nullptr);
}

void MDIForm1::NewWindowFile() {
    Globals& g = globals();
    auto* child = new ChildFrm1(this, g.gCurrentFile);
    mLastFile = g.gCurrentFile;
    if (child->FILE_TYPE.isEmpty() && !child->mBadLoad) {
        // A clip dropped on the frame: the player takes it, and the window goes again through
        // its unload, which counts it out.
        child->close();
    } else {
        addChild(child);
    }
    if (Quorvane1* main = Quorvane1::instance()) {
        main->EnableSelectMenus();
        main->setTextFileFlag(false);
    }
}

void MDIForm1::mnuFileOpen_Click() {
    const QString name = askDocumentToOpen(this, FileTypes::GetFileExt(globals().gCurrentFile));
    if (name.trimmed().isEmpty())
        return;
    Globals& g = globals();
    Quorvane1* main = Quorvane1::instance();
    g.gCurrentFile = name;
    if (main)
        main->GetFileTypeFlag(name);
    NewWindowFile();
    if (main)
        main->AddtoCMBFILE(name);
}

QString MDIForm1::askDocumentToOpen(QWidget* parent, const QString& defaultExtension) {
    Quorvane1* main = Quorvane1::instance();
    Messages::FileRequest request;
    request.title = tr("Select File to Open");
    request.folder = main ? main->treeFolder() : QString();
    request.filterPairs = FileTypes::dialogFilter();
    request.filterIndex = mOpenFilterIndex;
    request.defaultExtension = defaultExtension;
    const QString name = Messages::instance().openFileName(request, parent);
    if (!name.isEmpty())
        mOpenFilterIndex = static_cast<qint16>(request.filterIndex);
    return name;
}

void MDIForm1::mnuHelpContents_Click() {
    Help::showContents(this);
}

void MDIForm1::Toolbar1_ButtonClick(QAction* action) {
    const QString tag = action->data().toString();
    const int number = FrameButtons::numberOf(tag);
    ChildFrm1* child = activeChild();
    const bool documents = mChildCount >= 1 && child;
    if (tag == u"Open"_s) {
        if (documents)
            child->mnuFileOpen_Click();
        else
            mnuFileOpen_Click();
    } else if (tag == u"Close"_s) {
        if (mChildCount > 0 && child)
            child->mnuFileClose_Click();
        else
            close();
    } else if (tag == u"Help"_s) {
        if (documents)
            child->mnuHelpContents_Click();
        else
            mnuHelpContents_Click();
        setButtonDown(19, false);
        return;
    } else if (documents) {
        static const QHash<QString, void (ChildFrm1::*)()> commands = {
            {u"Save"_s, &ChildFrm1::mnuFileSaveAs_Click},
            {u"Rename"_s, &ChildFrm1::mnuFileRename_Click},
            {u"Move"_s, &ChildFrm1::mnuFileMove_Click},
            {u"Delete"_s, &ChildFrm1::mnuFileDelete_Click},
            {u"Print"_s, &ChildFrm1::mnuFilePrint_Click},
            {u"Send"_s, &ChildFrm1::mnuFileSend_Click},
            {u"Copy"_s, &ChildFrm1::mnuEditCopy_Click},
            {u"Table"_s, &ChildFrm1::mnuViewTable_Click},
            {u"Index"_s, &ChildFrm1::mnuViewIndex_Click},
            {u"Normal"_s, &ChildFrm1::mnuViewNormal_Click},
            {u"Stretch"_s, &ChildFrm1::mnuViewStretch_Click},
            {u"Resize"_s, &ChildFrm1::mnuImageResize_Click},
            {u"Brightness"_s, &ChildFrm1::mnuImageBrightness_Click},
        };
        if (const auto command = commands.value(tag))
            (child->*command)();
    }
    if (number > 0 && FrameButtons::buttons()[static_cast<size_t>(number - 1)].liftedAfterClick)
        setButtonDown(number, false);
}

void MDIForm1::Form_Activate() {
    const Globals& g = globals();
    m_area->setBackground(SettingColor::toQColor(g.gPictureWindowColor));
    WidgetPaint::paint(Frame1, g.gMainBackColor, g.gMainForeColor);
    for (QLabel* label : Label1)
        WidgetPaint::paint(label, g.gDisplayBackColor, g.gDisplayForeColor, g.gBoldType);

    ChildFrm1* child = activeChild();
    if (mChildCount >= 1 && child) {
        if (child->FILE_TYPE == u"T"_s)
            EnableTextButtons();
        else if (child->FILE_TYPE == u"D"_s) {
            EnableDataButtons();
            child->syncTableButtons();
        } else if (child->FILE_TYPE == u"I"_s)
            EnableButtons();
    } else {
        for (QLabel* label : Label1)
            label->clear();
        setWindowTitle(Messages::caption());
        DisableButtons();
        EnableMDIButtons();
    }
    Quorvane1* main = Quorvane1::instance();
    // The flag goes down before the document opens: a dialog of the opening (a password)
    // activates the frame again when it closes, and that must not open the file twice.
    if (main && main->mOpenPending) {
        main->mOpenPending = false;
        setCursor(Qt::WaitCursor);
        NewWindowFile();
        unsetCursor();
    }
}

void MDIForm1::Form_Resize() {
    const auto w =
        static_cast<qint16>(std::clamp(Twips::fromPixels(width()) - 5450, -32768.0, 32767.0));
    if (w > 500)
        Label1[3]->setFixedWidth(Twips::toPixels(w));
    if (Quorvane1* main = Quorvane1::instance())
        main->SetWinSizeVariables();
}

void MDIForm1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    globals().gFrameOpen = false;
}

void MDIForm1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Activation runs once each time the window becomes the active one.
    // The state is kept before the handler runs: a box shown by the handler moves the
    // activation on, and the handler's end must not put back what it saw at its start.
    if (event->type() == QEvent::ActivationChange) {
        const bool wasActive = std::exchange(m_active, isActiveWindow());
        if (m_active && !wasActive) {
            m_activatedOnce = true;
            Form_Activate();
        }
    }
}

void MDIForm1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first showing counts as an activation, also where no window manager activates the
    // window; like an activation it comes after the code that showed the window is done.
    if (!m_activatedOnce) {
        QTimer::singleShot(0, this, [this] {
            if (!m_activatedOnce) {
                m_activatedOnce = true;
                Form_Activate();
            }
        });
    }
}

void MDIForm1::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void MDIForm1::closeEvent(QCloseEvent* event) {
    m_area->closeAllSubWindows();
    Form_Unload();
    event->accept();
}

void MDIForm1::dragEnterEvent(QDragEnterEvent* event) {
    if (!firstDroppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MDIForm1::dropEvent(QDropEvent* event) {
    const QString path = firstDroppedFile(event->mimeData());
    if (path.isEmpty())
        return;
    setCursor(Qt::WaitCursor);
    Globals& g = globals();
    g.gCurrentFile = path;
    if (Quorvane1* main = Quorvane1::instance())
        main->GetFileTypeFlag(g.gCurrentFile);
    NewWindowFile();
    unsetCursor();
    event->acceptProposedAction();
}
