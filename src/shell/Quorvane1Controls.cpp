#include "shell/Quorvane1.h"
#include "shell/Quorvane1Shared.h"

#include "platform/Messages.h"
#include "shell/Help.h"

#include "documents/ChildFrm1.h"
#include "platform/PathUtil.h"
#include "platform/Twips.h"
#include "settings/FolderFile.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace Quorvane1Shared;

namespace {

// Design-time places, in twips.
constexpr double kFrame1Left = 60;
constexpr double kFrame1Top = 360;
constexpr double kPaneTop = 700;
constexpr double kButtonSize = 330;
constexpr double kButtonStep = 345;
constexpr double kComboHeight = 315;

QFrame* makeFrame(QWidget* parent, const QString& name) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(name);
    frame->setAccessibleName(name);
    return frame;
}

} // namespace

// The controls, buttons and menus of the main window, and the links between its shell controls.

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
    Twips::place(Frame1, kFrame1Left, kFrame1Top, 6200, 4900);

    CMBFILE = new QComboBox(Frame1);
    CMBFILE->setObjectName(u"CMBFILE"_s);
    CMBFILE->setEditable(true);
    CMBFILE->setInsertPolicy(QComboBox::NoInsert);
    CMBFILE->setToolTip(tr("Select File from files aleady viewed to display"));
    CMBFILE->setAccessibleName(CMBFILE->toolTip());
    Twips::place(CMBFILE, 90, 180, 6000, kComboHeight);

    PTxShTree1 = new QTreeView(Frame1);
    PTxShTree1->setObjectName(u"PTxShTree1"_s);
    PTxShTree1->setAccessibleName(tr("Folders"));
    PTxShTree1->setHeaderHidden(true);
    PTxShTree1->setUniformRowHeights(true);
    Twips::place(PTxShTree1, 90, kPaneTop, 2130, 3390);

    Frame5 = makeFrame(Frame1, u"Frame5"_s);
    Frame5->setCursor(Qt::SplitHCursor);
    Frame5->setAccessibleName(tr("Splitter between folders and files"));
    Twips::place(Frame5, 2230, kPaneTop, 60, 3390);
    Frame5->installEventFilter(this);

    PTxShList1 = new ShellList(Frame1);
    PTxShList1->setObjectName(u"PTxShList1"_s);
    PTxShList1->setAccessibleName(tr("Files"));
    Twips::place(PTxShList1, 2430, kPaneTop, 3750, 3390);

    PTxShCombo1 = new QComboBox(client);
    PTxShCombo1->setObjectName(u"PTxShCombo1"_s);
    PTxShCombo1->setAccessibleName(tr("Drives and places"));
    Twips::place(PTxShCombo1, 150, 4900, 2130, kComboHeight);

    CMBFILEFLTR = new QComboBox(client);
    CMBFILEFLTR->setObjectName(u"CMBFILEFLTR"_s);
    CMBFILEFLTR->setAccessibleName(tr("File filter"));
    Twips::place(CMBFILEFLTR, 2490, 4900, 3750, kComboHeight);

    Frame2 = makeFrame(client, u"Frame2"_s);
    Twips::place(Frame2, kFrame1Left, 5310, 6300, 480);

    Frame3 = makeFrame(client, u"Frame3"_s);
    Frame3->setFrameShape(QFrame::Box);
    Label1 = new QLabel(tr("Searching ..."), Frame3);
    Label1->setObjectName(u"Label1"_s);
    Label1->setAlignment(Qt::AlignCenter);
    Twips::place(Frame3, 2000, 2400, 2000, 500);
    Twips::place(Label1, 60, 60, 1880, 380);
    Frame3->hide();

    for (int i = 0; i < 2; ++i) {
        Frame4[i] = makeFrame(Frame2, u"Frame4(%1)"_s.arg(i));
        Frame4[i]->setFrameShape(QFrame::Panel);
        Frame4[i]->setFrameShadow(QFrame::Sunken);
        Label2[i] = new QLabel(Frame4[i]);
        Label2[i]->setObjectName(u"Label2(%1)"_s.arg(i));
        Label2[i]->setAccessibleName(i == 0 ? tr("Date") : tr("Time"));
        Label2[i]->setAlignment(Qt::AlignCenter);
        Twips::place(Frame4[i], 2760 + i * 1440, 75, 1300, kButtonSize);
        Twips::place(Label2[i], 30, 15, 1240, kButtonSize - 30);
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
        Twips::place(button, left, 15, kButtonSize, kButtonSize);
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
            [] { WindowRegistry::show(u"ThumBrow1"_s); });
    connect(client->findChild<QToolButton*>(u"OrgViewBtn"_s), &QToolButton::clicked, this,
            [] { WindowRegistry::show(u"GrpBrow1"_s); });
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
    connect(HelpBtn, &QToolButton::clicked, this, [this] { Help::showContents(this); });

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
        Twips::place(button, left, 75, kButtonSize, kButtonSize);
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

int Quorvane1::filterRow() const {
    return CMBFILEFLTR->currentIndex();
}

QStringList Quorvane1::filterCaptions() const {
    QStringList captions;
    for (int i = 0; i < CMBFILEFLTR->count(); ++i)
        captions.append(CMBFILEFLTR->itemText(i));
    return captions;
}

QStringList Quorvane1::places() const {
    QStringList places;
    for (int i = 0; i < PTxShCombo1->count(); ++i)
        places.append(PTxShCombo1->itemText(i));
    return places;
}

QStringList Quorvane1::workingFolders() const {
    QStringList entries;
    for (int i = 0; i < List1->count(); ++i)
        entries.append(List1->item(i)->text());
    return entries;
}

void Quorvane1::setWorkingFolders(const QStringList& entries) {
    List1->clear();
    List1->addItems(entries);
    if (List1->count() > 0)
        List1->setCurrentRow(0);
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
    connect(addCommand(file, "mnuFilePrintSetup", tr("Printer Setup")), &QAction::triggered, this,
            [this] { Messages::instance().setUpPrinter(this); });
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
            &QAction::triggered, this, [] { WindowRegistry::show(u"ThumBrow1"_s); });

    QMenu* organize = menuBar()->addMenu(tr("&Organize"));
    organize->setObjectName(u"mnuOrganize"_s);
    connect(addCommand(organize, "mnuOrganizeGroup", tr("View and Select File Groups")),
            &QAction::triggered, this, [] { WindowRegistry::show(u"GrpBrow1"_s); });
    connect(addCommand(organize, "mnuOrganizeGrpMaint", tr("Create and Maintain File Groups")),
            &QAction::triggered, this, [] { WindowRegistry::show(u"GrpMaint"_s); });
    connect(addCommand(organize, "mnuOrganizeFileMaint",
                       tr("Select, Add, and Maintain Files in a Group")),
            &QAction::triggered, this, &Quorvane1::mnuOrganizeFileMaint_Click);
    connect(addCommand(organize, "mnuOrganizeSearch", tr("Organize Files with Disk Search")),
            &QAction::triggered, this, [] { WindowRegistry::show(u"GrpBatch1"_s); });
    organize->addSeparator();
    connect(addCommand(organize, "mnuOrganizeClear", tr("Clear all File Data in Database")),
            &QAction::triggered, this,
            [] { WindowRegistry::show(u"GrpClear1"_s, WindowRegistry::Modal); });
    connect(addCommand(organize, "mnuOrganizeRepair", tr("Repair or Compact Database")),
            &QAction::triggered, this,
            [] { WindowRegistry::show(u"GrpRepair1"_s, WindowRegistry::Modal); });

    QMenu* utilities = menuBar()->addMenu(tr("&Utilities"));
    utilities->setObjectName(u"mnuUtilities"_s);
    connect(addCommand(utilities, "mnuUtilitiesFolder", tr("Set Working Folders")),
            &QAction::triggered, this, [] { WindowRegistry::show(u"SetFoldr1"_s); });
    connect(addCommand(utilities, "mnuUtilitiesColors", tr("Set Application Colors")),
            &QAction::triggered, this,
            [] { WindowRegistry::show(u"SetColor1"_s, WindowRegistry::Modal); });
    connect(addCommand(utilities, "mnuUtilitiesOptions", tr("Set Application Options")),
            &QAction::triggered, this,
            [] { WindowRegistry::show(u"SetOptns1"_s, WindowRegistry::Modal); });
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
            [this] { Help::showContents(this); });
    connect(addCommand(help, "mnuHelpSearch", tr("Search Help Topic")), &QAction::triggered, this,
            [this] { Help::showSearch(this); });
    connect(addCommand(help, "mnuHelpQuikTips", tr("Quick Tips")), &QAction::triggered, this,
            [] { WindowRegistry::show(u"QuikTip1"_s); });
    connect(addCommand(help, "mnuAbout", tr("About Quorvane")), &QAction::triggered, this,
            [] { WindowRegistry::show(u"About1"_s); });
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
    connect(PTxShCombo1, &QComboBox::textActivated, this, &Quorvane1::chooseFolderInTree);
    connect(PTxShList1, &ShellList::folderChanged, this, [this](const QString& folder) {
        if (m_treeModel->nodeOf(PTxShTree1->currentIndex()) &&
            m_treeModel->nodeOf(PTxShTree1->currentIndex())->path == folder)
            return;
        revealInTree(folder);
    });
    showFolder(globals().gAppPath);
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
    setWorkingFolders(FolderFile::load(PathUtil::join(globals().gAppPath, FolderFile::fileName())));
}
