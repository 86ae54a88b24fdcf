#include "shell/Quorvane1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/DroppedFiles.h"
#include "platform/ImageCodec.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/FolderFile.h"
#include "settings/OptionsFile.h"
#include "settings/SettingsText.h"
#include "shell/FileListModel.h"
#include "shell/FileOperations.h"
#include "shell/FileTypes.h"
#include "shell/FindFile1.h"
#include "shell/Globals.h"
#include "shell/MoveFile1.h"
#include "shell/QuikPict1.h"
#include "shell/Rename1.h"
#include "shell/SearchReport.h"
#include "shell/SearchWalk.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"
#include "shell/StartupRules.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QMdiArea>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QStyle>
#include <QSysInfo>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// Windows unloaded with the main window, in this order, each when its flag shows it loaded.
struct OpenWindow {
    bool Globals::*flag;
    const char* name;
};
constexpr OpenWindow kWindowsToUnload[] = {
    {&Globals::gFrameOpen, "MDIForm1"},         {&Globals::gThumBrowOpen, "ThumBrow1"},
    {&Globals::gFindFileOpen, "FindFile1"},     {&Globals::gPrintOpen, "PrntFrm1"},
    {&Globals::gAudioVideoOpen, "AudioVideo1"}, {&Globals::gSetFoldrOpen, "SetFoldr1"},
    {&Globals::gSendFileOpen, "SendFile1"},     {&Globals::gGrpFlemOpen, "GrpFlem1"},
    {&Globals::gGrpBrowOpen, "GrpBrow1"},       {&Globals::gGrpBatchOpen, "GrpBatch1"},
    {&Globals::gQuikPictOpen, "QuikPict1"},
};

// The commands that need a selected file; EnableSelectMenus switches on the first eight.
constexpr const char* kSelectCommands[] = {
    "mnuFileMove",    "mnuFileSave",     "mnuFileDelete", "mnuFilePrint",
    "mnuFileProptee", "mnuFileOLE",      "mnuFileRename", "mnuFileSend",
    "mnuViewTable",   "mnuViewComments", "mnuFileIndex",
};

// Extensions that go to the player rather than to a document window.
const QStringList kClipExtensions = {u"MID"_s, u"WAV"_s, u"RMI"_s, u"AVI"_s, u"MPG"_s,
                                     u"MOV"_s, u"MP3"_s, u"M3U"_s, u"DAT"_s, u"CDA"_s};

const QString kCaption = u"Quorvane 2.5"_s;

// Design-time places, in twips.
constexpr double kFrame1Left = 60;
constexpr double kFrame1Top = 360;
constexpr double kPaneTop = 700;
constexpr double kButtonSize = 330;
constexpr double kButtonStep = 345;
constexpr double kComboHeight = 315;

int px(double twips) {
    return Twips::toPixels(twips);
}

double tw(int pixels) {
    return Twips::fromPixels(pixels);
}

void placeTwips(QWidget* widget, double left, double top, double width, double height) {
    widget->setGeometry(px(left), px(top), std::max(0, px(width)), std::max(0, px(height)));
}

QFrame* makeFrame(QWidget* parent, const QString& name) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(name);
    frame->setAccessibleName(name);
    return frame;
}

MDIForm1* frameWindow() {
    return qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
}

} // namespace

QString Quorvane1::WindowName() {
    return u"Quorvane1"_s;
}

Quorvane1* Quorvane1::instance() {
    return qobject_cast<Quorvane1*>(WindowRegistry::find(WindowName()));
}

Quorvane1::Quorvane1(QWidget* parent) : QMainWindow(parent) {
    setObjectName(WindowName());
    setAcceptDrops(true);
    WindowRegistry::add(WindowName(), this);
    buildControls();
    buildMenus();
    Form_Load();
    qApp->installEventFilter(this);
}

Quorvane1::~Quorvane1() = default;

QToolButton* Quorvane1::makeButton(QWidget* parent, const char* name, const QString& toolTip,
                                   const QIcon& icon) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(toolTip);
    // A picture button is known to screen readers by its tool tip.
    button->setAccessibleName(toolTip);
    button->setIcon(icon);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    return button;
}

void Quorvane1::buildControls() {
    auto* client = new QWidget(this);
    client->setObjectName(u"Quorvane1Client"_s);
    client->setAccessibleName(tr("Quorvane"));
    setCentralWidget(client);

    Frame1 = makeFrame(client, u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    placeTwips(Frame1, kFrame1Left, kFrame1Top, 6200, 4900);

    CMBFILE = new QComboBox(Frame1);
    CMBFILE->setObjectName(u"CMBFILE"_s);
    CMBFILE->setEditable(true);
    CMBFILE->setInsertPolicy(QComboBox::NoInsert);
    CMBFILE->setToolTip(tr("Select File from files aleady viewed to display"));
    CMBFILE->setAccessibleName(CMBFILE->toolTip());
    placeTwips(CMBFILE, 90, 180, 6000, kComboHeight);

    PTxShTree1 = new QTreeView(Frame1);
    PTxShTree1->setObjectName(u"PTxShTree1"_s);
    PTxShTree1->setAccessibleName(tr("Folders"));
    PTxShTree1->setHeaderHidden(true);
    PTxShTree1->setUniformRowHeights(true);
    placeTwips(PTxShTree1, 90, kPaneTop, 2130, 3390);

    Frame5 = makeFrame(Frame1, u"Frame5"_s);
    Frame5->setCursor(Qt::SplitHCursor);
    Frame5->setAccessibleName(tr("Splitter between folders and files"));
    placeTwips(Frame5, 2230, kPaneTop, 60, 3390);
    Frame5->installEventFilter(this);

    PTxShList1 = new ShellList(Frame1);
    PTxShList1->setObjectName(u"PTxShList1"_s);
    PTxShList1->setAccessibleName(tr("Files"));
    placeTwips(PTxShList1, 2430, kPaneTop, 3750, 3390);

    PTxShCombo1 = new QComboBox(client);
    PTxShCombo1->setObjectName(u"PTxShCombo1"_s);
    PTxShCombo1->setAccessibleName(tr("Drives and places"));
    placeTwips(PTxShCombo1, 150, 4900, 2130, kComboHeight);

    CMBFILEFLTR = new QComboBox(client);
    CMBFILEFLTR->setObjectName(u"CMBFILEFLTR"_s);
    CMBFILEFLTR->setAccessibleName(tr("File filter"));
    placeTwips(CMBFILEFLTR, 2490, 4900, 3750, kComboHeight);

    Frame2 = makeFrame(client, u"Frame2"_s);
    placeTwips(Frame2, kFrame1Left, 5310, 6300, 480);

    Frame3 = makeFrame(client, u"Frame3"_s);
    Frame3->setFrameShape(QFrame::Box);
    Label1 = new QLabel(tr("Searching ..."), Frame3);
    Label1->setObjectName(u"Label1"_s);
    Label1->setAlignment(Qt::AlignCenter);
    placeTwips(Frame3, 2000, 2400, 2000, 500);
    placeTwips(Label1, 60, 60, 1880, 380);
    Frame3->hide();

    for (int i = 0; i < 2; ++i) {
        Frame4[i] = makeFrame(Frame2, u"Frame4(%1)"_s.arg(i));
        Frame4[i]->setFrameShape(QFrame::Panel);
        Frame4[i]->setFrameShadow(QFrame::Sunken);
        Label2[i] = new QLabel(Frame4[i]);
        Label2[i]->setObjectName(u"Label2(%1)"_s.arg(i));
        Label2[i]->setAccessibleName(i == 0 ? tr("Date") : tr("Time"));
        Label2[i]->setAlignment(Qt::AlignCenter);
        placeTwips(Frame4[i], 2760 + i * 1440, 75, 1300, kButtonSize);
        placeTwips(Label2[i], 30, 15, 1240, kButtonSize - 30);
    }

    List1 = new QListWidget(client);
    List1->setObjectName(u"List1"_s);
    List1->hide();

    buildButtons(client);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(300);
    connect(Timer1, &QTimer::timeout, this, &Quorvane1::showClock);
    Timer1->start();
    showClock();

    connect(CMBFILEFLTR, &QComboBox::currentIndexChanged, this, &Quorvane1::CMBFILEFLTR_Click);
    connect(CMBFILE, &QComboBox::activated, this, &Quorvane1::CMBFILE_Click);
    connect(PTxShList1, &ShellList::selectionChanged, this,
            &Quorvane1::PTxShList1_SelectionChanged);
    connect(PTxShList1, &ShellList::itemActivated, this, &Quorvane1::PTxShList1_DblClick);
    connect(PTxShList1, &ShellList::entered, this, [this] { mListActive = true; });
    connect(PTxShList1, &ShellList::left, this, [this] { mListActive = false; });
}

void Quorvane1::buildButtons(QWidget* client) {
    QStyle* style = QApplication::style();
    auto picture = [](const char* name) {
        return QIcon(u":/buttons/"_s + QString::fromLatin1(name) + u".png"_s);
    };
    // The commands' row at the top left.
    struct Command {
        const char* name;
        const char* tip;
    };
    const Command commands[] = {
        {"FindBtn", "Find Pictures, Images, Sounds, Music, and Videos"},
        {"FindNextBtn", "Find Next Pictures, Images, Sounds, Music, and Videos"},
        {"ThumbsBtn", "Quick View of Pictures in the Folder"},
        {"OrgViewBtn", "View Files by Group Library"},
        {"OrgMaintBtn", "Create and Maintain Frequently used Files in Groups"},
        {"PrintBtn", "Print Pictures"},
        {"SendBtn", "Send Pictures, Images, Sounds, Music, and Videos"},
    };
    double left = 60;
    for (const Command& c : commands) {
        QToolButton* button = makeButton(client, c.name, tr(c.tip), picture(c.name));
        placeTwips(button, left, 15, kButtonSize, kButtonSize);
        left += kButtonStep;
    }
    connect(client->findChild<QToolButton*>(u"FindBtn"_s), &QToolButton::clicked, this,
            &Quorvane1::FindFileRoutine);
    connect(client->findChild<QToolButton*>(u"FindNextBtn"_s), &QToolButton::clicked, this,
            &Quorvane1::FindNext);
    PrintBtn = client->findChild<QToolButton*>(u"PrintBtn"_s);
    SendBtn = client->findChild<QToolButton*>(u"SendBtn"_s);
    connect(PrintBtn, &QToolButton::clicked, this, &Quorvane1::mnuFilePrint_Click);
    connect(SendBtn, &QToolButton::clicked, this, &Quorvane1::mnuFileSend_Click);
    connect(client->findChild<QToolButton*>(u"ThumbsBtn"_s), &QToolButton::clicked, this,
            [this] { showNamedWindow("ThumBrow1", false); });
    connect(client->findChild<QToolButton*>(u"OrgViewBtn"_s), &QToolButton::clicked, this,
            [this] { showNamedWindow("GrpBrow1", false); });
    connect(client->findChild<QToolButton*>(u"OrgMaintBtn"_s), &QToolButton::clicked, this,
            &Quorvane1::mnuOrganizeFileMaint_Click);

    // The top row at the right, placed by the layout.
    const QString detail = tr("Display Folders, Files and Devices in Detail");
    m_topButtons[MainLayout::UpFldrBtn] =
        makeButton(client, "UpFldrBtn", tr("Move Up one Folder Level"),
                   style->standardIcon(QStyle::SP_FileDialogToParent));
    m_topButtons[MainLayout::LargeIconsBtn] =
        makeButton(client, "LargeIconsBtn", tr("Display Folders, Files and Devices as Large Icons"),
                   style->standardIcon(QStyle::SP_FileDialogContentsView));
    m_topButtons[MainLayout::SmallIconsBtn] =
        makeButton(client, "SmallIconsBtn", tr("Display Folders, Files and Devices as Small Icons"),
                   style->standardIcon(QStyle::SP_FileDialogInfoView));
    m_topButtons[MainLayout::ListlIconsBtn] =
        makeButton(client, "ListlIconsBtn", tr("Display Folders, Files and Devices as a List"),
                   style->standardIcon(QStyle::SP_FileDialogListView));
    m_topButtons[MainLayout::DetailIconsBtn] = makeButton(
        client, "DetailIconsBtn", detail, style->standardIcon(QStyle::SP_FileDialogDetailedView));
    QuikPictBtn = makeButton(client, "QuikPictBtn", detail, QIcon());
    QuikPictBtn->setAccessibleDescription(tr("Quick View"));
    m_topButtons[MainLayout::QuikPictBtn] = QuikPictBtn;
    FoldrBtn =
        makeButton(client, "FoldrBtn", tr("Send Pictures, Images, Sounds, Music, and Videos"),
                   style->standardIcon(QStyle::SP_DirHomeIcon));
    FoldrBtn->setAccessibleDescription(tr("Working Folders"));
    HelpBtn =
        makeButton(client, "HelpBtn", tr("Help with Pictures, Images, Sounds, Music, and Videos"),
                   style->standardIcon(QStyle::SP_DialogHelpButton));
    for (QToolButton* button : m_topButtons)
        button->resize(px(kButtonSize), px(kButtonSize));
    for (QToolButton* button : {FoldrBtn, HelpBtn})
        button->resize(px(kButtonSize), px(kButtonSize));

    connect(m_topButtons[MainLayout::UpFldrBtn], &QToolButton::clicked, this,
            &Quorvane1::UpFldrBtn_Click);
    for (int view = 0; view < 4; ++view) {
        connect(m_topButtons[MainLayout::LargeIconsBtn + view], &QToolButton::clicked, this,
                [this, view] { viewButton_Click(view); });
    }
    connect(QuikPictBtn, &QToolButton::clicked, this, &Quorvane1::QuikPictBtn_Click);
    connect(FoldrBtn, &QToolButton::clicked, this, &Quorvane1::FoldrBtn_Click);
    connect(HelpBtn, &QToolButton::clicked, this, &Quorvane1::showHelp);

    // The filter buttons in Frame2.
    struct Filter {
        const char* name;
        const char* tip;
        int row;
        bool filterAfter;
    };
    const Filter filters[] = {
        {"PictBtn", "Set File Display Filter to Images and Pictures", 27, true},
        {"SoundBtn", "Set File Display Filter to Sounds (WAV Files)", 22, true},
        {"MusicBtn", "Set File Display Filter to Music Files (MIDI and MP3 Files)", 25, true},
        {"VideoBtn", "Set File Display Filter to Audio/Visual Clips (AVI,MPG,MOV Files) ", 24,
         false},
        {"TextBtn", "Set File Display Filter to Text Files (TXT,RTF,DOX,HTM,HTML,etc.)", 31, false},
        {"DataBtn", "Set File Display Filter to Database (DBF,DB,MDB,XLS,WK4) Files", 32, false},
    };
    left = 60;
    for (const Filter& f : filters) {
        QToolButton* button = makeButton(Frame2, f.name, tr(f.tip), picture(f.name));
        placeTwips(button, left, 75, kButtonSize, kButtonSize);
        left += kButtonStep;
        connect(button, &QToolButton::clicked, this,
                [this, row = f.row, after = f.filterAfter] { filterButton_Click(row, after); });
    }
    ExitBtn = makeButton(Frame2, "ExitBtn", tr("Exit Vistrel"),
                         style->standardIcon(QStyle::SP_DialogCloseButton));
    ExitBtn->resize(px(kButtonSize), px(kButtonSize));
    ExitBtn->move(ExitBtn->x(), px(75));
    connect(ExitBtn, &QToolButton::clicked, this, &QWidget::close);
}

QAction* Quorvane1::addCommand(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QAction* Quorvane1::command(const char* name) const {
    return findChild<QAction*>(QString::fromLatin1(name));
}

void Quorvane1::setFilterRow(int row) {
    if (row >= 0 && row < CMBFILEFLTR->count())
        CMBFILEFLTR->setCurrentIndex(row);
}

void Quorvane1::setMenuChecked(const char* name, bool checked) {
    if (QAction* action = command(name)) {
        action->setCheckable(true);
        action->setChecked(checked);
    }
}

void Quorvane1::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName(u"mnuFile"_s);
    connect(addCommand(file, "mnuFileOpen", tr("Open File")), &QAction::triggered, this,
            &Quorvane1::mnuFileOpen_Click);
    connect(addCommand(file, "mnuFileClose", tr("Close File")), &QAction::triggered, this,
            &Quorvane1::mnuFileClose_Click);
    connect(addCommand(file, "mnuFileOLE", tr("Open File with Another Application")),
            &QAction::triggered, this, &Quorvane1::mnuFileOLE_Click);
    file->addSeparator();
    connect(addCommand(file, "mnuFileFind", tr("Find Files")), &QAction::triggered, this,
            &Quorvane1::FindFileRoutine);
    connect(addCommand(file, "mnuFileFindNext", tr("Find Next File")), &QAction::triggered, this,
            &Quorvane1::FindNext);
    file->addSeparator();
    connect(addCommand(file, "mnuFileSave", tr("Save File As")), &QAction::triggered, this,
            &Quorvane1::mnuFileSave_Click);
    connect(addCommand(file, "mnuFileMove", tr("Move File")), &QAction::triggered, this,
            &Quorvane1::mnuFileMove_Click);
    connect(addCommand(file, "mnuFileRename", tr("Rename File")), &QAction::triggered, this,
            &Quorvane1::mnuFileRename_Click);
    connect(addCommand(file, "mnuFileDelete", tr("Delete File")), &QAction::triggered, this,
            &Quorvane1::mnuFileDelete_Click);
    file->addSeparator();
    connect(addCommand(file, "mnuFilePrint", tr("Print File")), &QAction::triggered, this,
            &Quorvane1::mnuFilePrint_Click);
    addCommand(file, "mnuFilePrintSetup", tr("Printer Setup"));
    connect(addCommand(file, "mnuFileSend", tr("Send File")), &QAction::triggered, this,
            &Quorvane1::mnuFileSend_Click);
    connect(addCommand(file, "mnuFileProptee", tr("File Properties")), &QAction::triggered, this,
            &Quorvane1::mnuFileProptee_Click);
    file->addSeparator();
    connect(addCommand(file, "mnuFileExit", tr("Exit")), &QAction::triggered, this,
            &QWidget::close);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->setObjectName(u"mnuView"_s);
    connect(addCommand(view, "mnuViewTable", tr("Set Database Table")), &QAction::triggered, this,
            [this] { callActiveChild(&ChildFrm1::mnuViewTable_Click); });
    connect(addCommand(view, "mnuFileIndex", tr("Set Database Table Index")), &QAction::triggered,
            this, [this] { callActiveChild(&ChildFrm1::mnuViewIndex_Click); });
    connect(addCommand(view, "mnuViewComments", tr("View Table Comments")), &QAction::triggered,
            this, [this] { callActiveChild(&ChildFrm1::mnuViewComments_Click); });
    view->addSeparator();
    connect(addCommand(view, "mnuViewThumbNails", tr("Browse Pictures in a Folder")),
            &QAction::triggered, this, [this] { showNamedWindow("ThumBrow1", false); });

    QMenu* organize = menuBar()->addMenu(tr("&Organize"));
    organize->setObjectName(u"mnuOrganize"_s);
    connect(addCommand(organize, "mnuOrganizeGroup", tr("View and Select File Groups")),
            &QAction::triggered, this, [this] { showNamedWindow("GrpBrow1", false); });
    connect(addCommand(organize, "mnuOrganizeGrpMaint", tr("Create and Maintain File Groups")),
            &QAction::triggered, this, [this] { showNamedWindow("GrpMaint", false); });
    connect(addCommand(organize, "mnuOrganizeFileMaint",
                       tr("Select, Add, and Maintain Files in a Group")),
            &QAction::triggered, this, &Quorvane1::mnuOrganizeFileMaint_Click);
    connect(addCommand(organize, "mnuOrganizeSearch", tr("Organize Files with Disk Search")),
            &QAction::triggered, this, [this] { showNamedWindow("GrpBatch1", false); });
    organize->addSeparator();
    connect(addCommand(organize, "mnuOrganizeClear", tr("Clear all File Data in Database")),
            &QAction::triggered, this, [this] { showNamedWindow("GrpClear1", true); });
    connect(addCommand(organize, "mnuOrganizeRepair", tr("Repair or Compact Database")),
            &QAction::triggered, this, [this] { showNamedWindow("GrpRepair1", true); });

    QMenu* utilities = menuBar()->addMenu(tr("&Utilities"));
    utilities->setObjectName(u"mnuUtilities"_s);
    connect(addCommand(utilities, "mnuUtilitiesFolder", tr("Set Working Folders")),
            &QAction::triggered, this, [this] { showNamedWindow("SetFoldr1", false); });
    connect(addCommand(utilities, "mnuUtilitiesColors", tr("Set Application Colors")),
            &QAction::triggered, this, [this] { showNamedWindow("SetColor1", true); });
    connect(addCommand(utilities, "mnuUtilitiesOptions", tr("Set Application Options")),
            &QAction::triggered, this, [this] { showNamedWindow("SetOptns1", true); });
    connect(addCommand(utilities, "mnuUtilitiesNetw", tr("Set Computer in Network")),
            &QAction::triggered, this, &Quorvane1::mnuUtilitiesNetw_Click);
    utilities->addSeparator();
    connect(addCommand(utilities, "mnuUtilitiesRefresh", tr("Refresh File List")),
            &QAction::triggered, this, &Quorvane1::mnuUtilitiesRefresh_Click);
    connect(addCommand(utilities, "mnuUtilitiesUnExpand",
                       tr("Collapse Expanded Disk/Folder Structure")),
            &QAction::triggered, this, &Quorvane1::mnuUtilitiesUnExpand_Click);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->setObjectName(u"mnuHelp"_s);
    connect(addCommand(help, "mnuHelpContents", tr("Contents")), &QAction::triggered, this,
            &Quorvane1::showHelp);
    connect(addCommand(help, "mnuHelpSearch", tr("Search Help Topic")), &QAction::triggered, this,
            &Quorvane1::showHelp);
    connect(addCommand(help, "mnuHelpQuikTips", tr("Quick Tips")), &QAction::triggered, this,
            [this] { showNamedWindow("QuikTip1", false); });
    connect(addCommand(help, "mnuAbout", tr("About Quorvane")), &QAction::triggered, this,
            [this] { showNamedWindow("About1", false); });
}

void Quorvane1::linkShellControls() {
    m_treeModel = new ShellTreeModel(u"/"_s, this);
    m_treeModel->attach(PTxShTree1);
    connect(PTxShTree1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { PTxShTree1_Click(current); });

    // The places: the root, the mount points of real drives and the user's own folders.
    QStringList places{u"/"_s};
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        if (volume.isValid() && volume.isReady() && volume.rootPath() != u"/"_s &&
            volume.device().startsWith("/dev/"))
            places.append(volume.rootPath());
    }
    for (auto location : {QStandardPaths::HomeLocation, QStandardPaths::DesktopLocation,
                          QStandardPaths::DocumentsLocation, QStandardPaths::PicturesLocation,
                          QStandardPaths::MusicLocation, QStandardPaths::MoviesLocation}) {
        const QString path = QStandardPaths::writableLocation(location);
        if (!path.isEmpty() && QDir(path).exists() && !places.contains(path))
            places.append(path);
    }
    PTxShCombo1->addItems(places);
    connect(PTxShCombo1, &QComboBox::textActivated, this, &Quorvane1::showFolder);
    connect(PTxShList1, &ShellList::folderChanged, this, [this](const QString& folder) {
        if (m_treeModel->nodeOf(PTxShTree1->currentIndex()) &&
            m_treeModel->nodeOf(PTxShTree1->currentIndex())->path == folder)
            return;
        m_treeModel->revealPath(folder);
    });
    showFolder(globals().gAppPath);
}

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
        m_treeModel->revealPath(result.found);
        PTxShList1->setFolder(result.found);
    }
    mSearchRootIndex = result.startIndex;
    const QString name = ShellNamespace::displayNameOf(PTxShList1->folder());
    setWindowTitle(name.isEmpty() ? kCaption : name + u" - "_s + kCaption);
}

void Quorvane1::AddReportFolder(const QString& folder, const QStringList& fileNames) {
    const Globals& g = globals();
    const QString file = g.gPrintIniFile.isEmpty()
                             ? PathUtil::join(g.gAppPath, SearchReport::fileName())
                             : g.gPrintIniFile;
    // A failure ends the writer in silence; the search goes on.
    SearchReport::addFolder(file, folder, fileNames);
}

void Quorvane1::showFolder(const QString& folder) {
    if (!m_treeModel->revealPath(folder))
        PTxShList1->setFolder(folder);
}

QString Quorvane1::treeFolder() const {
    return PTxShList1->folder();
}

void Quorvane1::fillFilterTables() {
    Globals& g = globals();
    g.gFileExtTable = FileTypes::extensionTable();
    const QSignalBlocker blocker(CMBFILEFLTR);
    CMBFILEFLTR->clear();
    const auto& rows = FileTypes::filterRows();
    for (int i = 0; i < FileTypes::FilterRowCount; ++i) {
        CMBFILEFLTR->addItem(rows[i].caption, i);
        mFileFilter[i] = rows[i].mask;
    }
    CMBFILEFLTR->setCurrentIndex(-1);
}

void Quorvane1::loadWorkingFolders() {
    List1->clear();
    List1->addItems(FolderFile::load(PathUtil::join(globals().gAppPath, FolderFile::fileName())));
    if (List1->count() > 0)
        List1->setCurrentRow(0);
}

void Quorvane1::Form_Load() {
    Globals& g = globals();
    Messages& messages = Messages::instance();

    mFirstActivate = true;
    g.gAppPath = QDir::currentPath();
    linkShellControls();
    mStartView = PTxShList1->view();
    m_helpFile = PathUtil::join(g.gAppPath, u"Help/index.html"_s);
    QuikPictBtn->setIcon(QIcon(PathUtil::join(g.gAppPath, u"BMPS/Picture3.Bmp"_s)));
    g.gFindNextReady = true;
    g.gSearchArmed = true;
    g.gSearchToReport = false;
    g.gPrintIniFile = PathUtil::join(g.gAppPath, u"F@Prnt.INI"_s);

    ColorsFile::setDefaults(g, g);
    const QString colorsMessage =
        ColorsFile::load(PathUtil::join(g.gAppPath, ColorsFile::fileName()), g);
    if (!colorsMessage.isEmpty())
        messages.inform(colorsMessage, this);

    OptionsFile::setDefaults(g, mComputerName);
    Frame1->resize(px(tw(width()) - 160), Frame1->height());
    setWindowTitle(kCaption);
    const QString optionsMessage =
        OptionsFile::load(PathUtil::join(g.gAppPath, OptionsFile::fileName()), g, mComputerName);
    if (!optionsMessage.isEmpty())
        messages.inform(optionsMessage, this);

    StartupRules::clampMainPosition(g);
    SetWinSize();

    Frame1->resize(std::max(0, px(g.gMainWidth - 200)), Frame1->height());
    Frame2->resize(std::max(0, px(g.gMainWidth - 200)), Frame2->height());
    PTxShTree1->setGeometry(px(g.gTreeLeft), PTxShTree1->y(), std::max(0, px(g.gTreeWidth)),
                            std::max(0, px(g.gTreeHeight)));
    PTxShList1->setGeometry(px(g.gListLeft), PTxShList1->y(), std::max(0, px(g.gListWidth)),
                            std::max(0, px(g.gListHeight)));
    PTxShList1->setView(g.gViewMode);

    InitExplore();
    AskComputerName();
    // The organizer's table is checked here once the organizer store exists.

    Frame5->move(px(g.gTreeWidth + g.gTreeLeft + 10), Frame5->y());
    fillFilterTables();
    g.gAllExtMask = FileTypes::CreateOpenFileExt(g.gFileExtTable);
    loadWorkingFolders();
    DisableSelectMenus();
    if (g.gQuickTipsOption)
        g.gShowTipsNow = true;
    g.gAudioVideoOpen = false;
    mQuikPictOn = false;
    g.gSearchToReport = false;
}

void Quorvane1::SetWinSize() {
    const Globals& g = globals();
    move(px(g.gMainLeft), px(g.gMainTop));
    resize(std::max(1, px(g.gMainWidth)), std::max(1, px(g.gMainHeight)));
}

void Quorvane1::SetWinSizeVariables() {
    Globals& g = globals();
    g.gMainLeft = Twips::measure(x(), g.gMainLeft);
    g.gMainTop = Twips::measure(y(), g.gMainTop);
    g.gMainHeight = Twips::measure(height(), g.gMainHeight);
    g.gMainWidth = Twips::measure(width(), g.gMainWidth);
    if (!g.gFrameOpen)
        return;
    if (QWidget* frame = WindowRegistry::find(u"MDIForm1"_s)) {
        g.gFrameLeft = Twips::measure(frame->x(), g.gFrameLeft);
        g.gFrameTop = Twips::measure(frame->y(), g.gFrameTop);
        g.gFrameHeight = Twips::measure(frame->height(), g.gFrameHeight);
        g.gFrameWidth =
            static_cast<qint32>(std::lround(Twips::measure(frame->width(), g.gFrameWidth)));
    }
}

void Quorvane1::InitExplore() {
    Globals& g = globals();
    const double frameWidth = tw(std::max(1, Frame1->width()));
    g.gTreeHeight = Twips::measure(PTxShTree1->height(), g.gTreeHeight);
    g.gTreeWidth = Twips::measure(PTxShTree1->width(), g.gTreeWidth);
    g.gTreeLeft = Twips::measure(PTxShTree1->x(), g.gTreeLeft);
    mTreeRatio = g.gTreeWidth / frameWidth;
    g.gListHeight = Twips::measure(PTxShList1->height(), g.gListHeight);
    g.gListWidth = Twips::measure(PTxShList1->width(), g.gListWidth);
    g.gListLeft = Twips::measure(PTxShList1->x(), g.gListLeft);
    mListRatio = g.gListWidth / frameWidth;
    const QPoint treeOnClient = PTxShTree1->mapTo(centralWidget(), QPoint(0, 0));
    const QPoint listOnClient = PTxShList1->mapTo(centralWidget(), QPoint(0, 0));
    PTxShCombo1->setGeometry(treeOnClient.x(), PTxShCombo1->y(), PTxShTree1->width(),
                             PTxShCombo1->height());
    CMBFILEFLTR->setGeometry(listOnClient.x(), CMBFILEFLTR->y(), PTxShList1->width(),
                             CMBFILEFLTR->height());
    g.gSeparatorPercent = static_cast<int>(100 * mTreeRatio);
}

void Quorvane1::applyLayout(const MainLayout::Geometry& g) {
    Frame1->resize(std::max(0, px(g.frame1Width)), std::max(0, px(g.frame1Height)));
    Frame5->resize(Frame5->width(), std::max(0, px(g.frame5Height)));
    if (!g.panes)
        return;
    PTxShTree1->setGeometry(px(g.treeLeft), PTxShTree1->y(), std::max(0, px(g.treeWidth)),
                            std::max(0, px(g.treeHeight)));
    PTxShList1->setGeometry(px(g.listLeft), PTxShList1->y(), std::max(0, px(g.listWidth)),
                            std::max(0, px(g.listHeight)));
    const int comboTop = px(g.comboTop);
    // The combos stand under the panes, the drive combo with the tree, the filter with the list.
    const int frameLeft = Frame1->x();
    PTxShCombo1->setGeometry(frameLeft + PTxShTree1->x(), comboTop, PTxShTree1->width(),
                             PTxShCombo1->height());
    CMBFILEFLTR->setGeometry(frameLeft + PTxShList1->x(), comboTop, PTxShList1->width(),
                             CMBFILEFLTR->height());
    Frame5->move(px(g.frame5Left), Frame5->y());
    Frame2->setGeometry(Frame2->x(), px(g.frame2Top), std::max(0, px(g.frame2Width)),
                        Frame2->height());
    CMBFILE->resize(std::max(0, px(g.historyWidth)), CMBFILE->height());
    HelpBtn->move(px(g.helpExitLeft), HelpBtn->y());
    ExitBtn->move(px(g.helpExitLeft), ExitBtn->y());
    FoldrBtn->move(px(g.foldrLeft), FoldrBtn->y());
    for (int i = 0; i < MainLayout::TopButtonCount; ++i) {
        m_topButtons[i]->move(px(g.topButtonLeft[i]), px(15));
        m_topButtons[i]->setVisible(g.topButtonVisible[i]);
    }
    HelpBtn->move(HelpBtn->x(), px(15));
    FoldrBtn->move(FoldrBtn->x(), px(15));
    Frame3->move(px(g.frame3Left), Frame3->y());
    for (int i = 0; i < 2; ++i) {
        Frame4[i]->move(px(g.frame4Left[i]), Frame4[i]->y());
        Frame4[i]->setVisible(g.clockVisible);
    }
}

void Quorvane1::Form_Resize() {
    MainLayout::Input in;
    in.width = tw(width());
    in.height = tw(height());
    in.treeRatio = mTreeRatio;
    in.listRatio = mListRatio;
    in.frame1Left = tw(Frame1->x());
    in.listLeft = tw(PTxShList1->x());
    in.frame3Width = tw(Frame3->width());
    in.frame4Width = tw(Frame4[0]->width());
    applyLayout(MainLayout::resize(in));
    if (!mFirstActivate)
        SetWinSizeVariables();
}

void Quorvane1::splitterDrag(int xPixelsInFrame1) {
    const MainLayout::SplitterGeometry s = MainLayout::dragSplitter(
        tw(xPixelsInFrame1), tw(width()), tw(Frame1->x()), tw(PTxShTree1->x()));
    if (s.treeWidth < 0 || s.listWidth < 0)
        return;
    PTxShTree1->setGeometry(px(s.treeLeft), PTxShTree1->y(), px(s.treeWidth), PTxShTree1->height());
    PTxShList1->setGeometry(px(s.listLeft), PTxShList1->y(), px(s.listWidth), PTxShList1->height());
    Frame5->move(px(s.frame5Left), Frame5->y());
}

void Quorvane1::AskComputerName() {
    Globals& g = globals();
    if (!g.gAskComputer)
        return;
    const std::optional<QString> chosen = Messages::instance().askText(
        kCaption,
        tr("Please Select your Computer Name on the Network - Cancel if you are not using a "
           "Computer Network."),
        QSysInfo::machineHostName(), this);
    mComputerName = chosen ? StartupRules::cutComputerName(*chosen) : QString();
    g.gAskComputer = false;
}

void Quorvane1::mnuUtilitiesNetw_Click() {
    globals().gAskComputer = true;
    AskComputerName();
}

void Quorvane1::DisableSelectMenus() {
    for (const char* name : kSelectCommands) {
        if (QAction* action = command(name))
            action->setEnabled(false);
    }
    SendBtn->setEnabled(false);
    PrintBtn->setEnabled(false);
}

void Quorvane1::EnableSelectMenus() {
    ++m_enableSelectRuns;
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

void Quorvane1::showNamedWindow(const char* name, bool modal) {
    QWidget* window = WindowRegistry::touch(QString::fromLatin1(name));
    if (!window)
        return;
    if (auto* dialog = qobject_cast<QDialog*>(window); dialog && modal) {
        dialog->exec();
        return;
    }
    window->show();
    window->raise();
    window->activateWindow();
}

void Quorvane1::showHelp() {
    if (!QFileInfo::exists(m_helpFile) ||
        !QDesktopServices::openUrl(QUrl::fromLocalFile(m_helpFile)))
        Messages::instance().inform(AppError(AppError::FileNotFound).description(), this);
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
            QMetaObject::invokeMethod(organizer, "AddFiletoGrp");
            organizer->setFocus();
        }
    }
}

void Quorvane1::PTxShList1_DblClick(const QString& path) {
    DisplayImage(path);
    AddtoCMBFILE(path);
}

void Quorvane1::PTxShTree1_Click(const QModelIndex& index) {
    const ShellNamespace::Node* node = m_treeModel->nodeOf(index);
    if (!node)
        return;
    ShellNamespace& ns = m_treeModel->shellNamespace();
    mSearchRootIndex = std::max(0, ns.indexOf(node));
    if (node->path.trimmed().isEmpty()) {
        setWindowTitle(kCaption);
    } else {
        setWindowTitle(node->displayName + u" - "_s + kCaption);
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
    showFolder(PathUtil::folderOf(folder));
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

void Quorvane1::mnuFileOpen_Click() {
    Messages::FileRequest request;
    request.title = tr("Select File to Open");
    request.folder = PTxShList1->folder();
    request.filterPairs = FileTypes::dialogFilter();
    request.filterIndex = CMBFILEFLTR->currentIndex();
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
        const AppError error =
            image.isNull()
                ? AppError(ImageCodec::ReadFailed)
                : ImageCodec::encode(image, target, FileTypes::GetFileFormatCode(mFileExt));
        if (error)
            messages.inform(tr("Error Saving File - ") + QString::number(error.number()), this);
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
    showNamedWindow("PrntFrm1", false);
}

void Quorvane1::mnuFileSend_Click() {
    globals().gCurrentFile = PTxShList1->selectedPath();
    showNamedWindow("SendFile1", false);
}

void Quorvane1::mnuFileProptee_Click() {
    Globals& g = globals();
    g.gCallerTag = u"F"_s;
    g.gOpenFile = PTxShList1->selectedPath();
    showNamedWindow("ProPert1", true);
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
    showNamedWindow("GrpFlem1", false);
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

void Quorvane1::applyColors() {
    const Globals& g = globals();
    for (QWidget* widget : {static_cast<QWidget*>(centralWidget()), static_cast<QWidget*>(Frame1),
                            static_cast<QWidget*>(Frame2), static_cast<QWidget*>(Frame5)})
        WidgetPaint::paint(widget, g.gMainBackColor, g.gMainForeColor);
    for (QWidget* widget : {static_cast<QWidget*>(CMBFILEFLTR), static_cast<QWidget*>(CMBFILE),
                            static_cast<QWidget*>(PTxShTree1), static_cast<QWidget*>(PTxShCombo1)})
        WidgetPaint::paint(widget, g.gListBackColor, g.gListForeColor, g.gBoldType);
    PTxShList1->setColors(SettingColor::toQColor(g.gListBackColor),
                          SettingColor::toQColor(g.gListForeColor), g.gBoldType);
    for (int i = 0; i < 2; ++i) {
        WidgetPaint::paint(Frame4[i], g.gMainBackColor, g.gMainForeColor);
        WidgetPaint::paint(Label2[i], g.gMainBackColor, g.gMainForeColor, g.gBoldType);
    }
}

void Quorvane1::Form_Activate() {
    applyColors();
    PTxShList1->separatorOption = globals().gSeparatorOption;
    if (mFirstActivate) {
        update();
    } else {
        Frame1->update();
        PTxShList1->update();
    }
    if (globals().gShowTipsNow && globals().gQuickTipsOption)
        showNamedWindow("QuikTip1", false);
    PTxShCombo1->setVisible(false);
    PTxShCombo1->setVisible(true);
    mFirstActivate = false;
}

void Quorvane1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    SetWinSizeVariables();
    InitExplore();
    SaveOptions();
    Globals& g = globals();
    for (const OpenWindow& window : kWindowsToUnload) {
        if (g.*(window.flag))
            WindowRegistry::unload(QString::fromLatin1(window.name));
    }
}

void Quorvane1::SaveOptions() {
    const Globals& g = globals();
    const AppError error =
        OptionsFile::save(PathUtil::join(g.gAppPath, OptionsFile::fileName()), g, mComputerName);
    if (error)
        Messages::instance().inform(SettingsText::writeFailureMessage(error), this);
}

void Quorvane1::showClock() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale;
    Label2[0]->setText(locale.toString(now.date(), QLocale::ShortFormat));
    Label2[1]->setText(locale.toString(now.time(), QLocale::ShortFormat));
}

void Quorvane1::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Activation runs once each time the window becomes the active one.
    if (event->type() == QEvent::ActivationChange) {
        const bool active = isActiveWindow();
        if (active && !m_active)
            Form_Activate();
        m_active = active;
    }
}

void Quorvane1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first showing counts as the first activation, also where no window manager
    // activates windows.
    if (mFirstActivate)
        Form_Activate();
}

void Quorvane1::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void Quorvane1::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
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

bool Quorvane1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* widget = qobject_cast<QWidget*>(watched);
        const auto* key = static_cast<QKeyEvent*>(event);
        if (widget && widget->window() == this && key->key() == Qt::Key_Escape &&
            globals().gSearchArmed)
            globals().gSearchArmed = false;
    }
    if (watched == Frame5) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
                mDragging = true;
                setCursor(Qt::SplitHCursor);
            }
            break;
        case QEvent::MouseMove:
            if (mDragging) {
                const auto* mouse = static_cast<QMouseEvent*>(event);
                splitterDrag(Frame5->mapTo(Frame1, mouse->position().toPoint()).x());
            }
            break;
        case QEvent::MouseButtonRelease:
            if (mDragging) {
                mDragging = false;
                unsetCursor();
                InitExplore();
            }
            break;
        default:
            break;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}
