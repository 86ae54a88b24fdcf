#include "shell/Quorvane1.h"

#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/FolderFile.h"
#include "settings/OptionsFile.h"
#include "settings/SettingsText.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/StartupRules.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileSystemModel>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QLocale>
#include <QMenuBar>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QSysInfo>
#include <QTimer>
#include <QTreeView>

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

// The commands that need a selected file.
constexpr const char* kSelectCommands[] = {
    "mnuFileMove",    "mnuFileSave",     "mnuFileDelete", "mnuFilePrint",
    "mnuFileProptee", "mnuFileOLE",      "mnuFileRename", "mnuFileSend",
    "mnuViewTable",   "mnuViewComments", "mnuFileIndex",
};

const QString kCaption = u"Quorvane 2.5"_s;

// Geometry in twips, within the parent.
void placeTwips(QWidget* widget, double left, double top, double width, double height) {
    widget->setGeometry(Twips::toPixels(left), Twips::toPixels(top),
                        std::max(0, Twips::toPixels(width)), std::max(0, Twips::toPixels(height)));
}

void setWidthTwips(QWidget* widget, double width) {
    widget->resize(std::max(0, Twips::toPixels(width)), widget->height());
}

void paint(QWidget* widget, qint32 back, qint32 fore, std::optional<bool> bold = std::nullopt) {
    QPalette palette = widget->palette();
    const QColor backColor = SettingColor::toQColor(back);
    const QColor foreColor = SettingColor::toQColor(fore);
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, backColor);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, foreColor);
    widget->setPalette(palette);
    widget->setAutoFillBackground(true);
    if (bold) {
        QFont font = widget->font();
        font.setBold(*bold);
        widget->setFont(font);
    }
}

QFrame* makeFrame(QWidget* parent, const QString& name) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(name);
    frame->setAccessibleName(name);
    return frame;
}

} // namespace

QString Quorvane1::WindowName() {
    return u"Quorvane1"_s;
}

Quorvane1::Quorvane1(QWidget* parent) : QMainWindow(parent) {
    setObjectName(WindowName());
    WindowRegistry::add(WindowName(), this);
    buildControls();
    buildMenus();
    Form_Load();
    qApp->installEventFilter(this);
}

Quorvane1::~Quorvane1() = default;

void Quorvane1::buildControls() {
    auto* client = new QWidget(this);
    client->setObjectName(u"Quorvane1Client"_s);
    setCentralWidget(client);

    Frame1 = makeFrame(client, u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    placeTwips(Frame1, 60, 480, 6200, 4900);

    PTxShTree1 = new QTreeView(Frame1);
    PTxShTree1->setObjectName(u"PTxShTree1"_s);
    PTxShTree1->setAccessibleName(tr("Folders"));
    PTxShTree1->setHeaderHidden(true);
    placeTwips(PTxShTree1, 90, 120, 2130, 3390);

    Frame5 = makeFrame(Frame1, u"Frame5"_s);
    Frame5->setCursor(Qt::SplitHCursor);
    placeTwips(Frame5, 2230, 120, 60, 3390);

    PTxShList1 = new QListView(Frame1);
    PTxShList1->setObjectName(u"PTxShList1"_s);
    PTxShList1->setAccessibleName(tr("Files"));
    PTxShList1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    placeTwips(PTxShList1, 2430, 120, 3750, 3390);

    PTxShCombo1 = new QComboBox(Frame1);
    PTxShCombo1->setObjectName(u"PTxShCombo1"_s);
    PTxShCombo1->setAccessibleName(tr("Drives and folders"));
    placeTwips(PTxShCombo1, 90, 3600, 2130, 315);

    CMBFILEFLTR = new QComboBox(Frame1);
    CMBFILEFLTR->setObjectName(u"CMBFILEFLTR"_s);
    CMBFILEFLTR->setAccessibleName(tr("File filter"));
    placeTwips(CMBFILEFLTR, 2430, 3600, 3750, 315);

    CMBFILE = new QComboBox(Frame1);
    CMBFILE->setObjectName(u"CMBFILE"_s);
    CMBFILE->setEditable(true);
    CMBFILE->setToolTip(tr("Select File from files aleady viewed to display"));
    CMBFILE->setAccessibleName(CMBFILE->toolTip());
    placeTwips(CMBFILE, 90, 4020, 6000, 315);

    Frame2 = makeFrame(client, u"Frame2"_s);
    placeTwips(Frame2, 60, 5400, 6200, 480);

    Frame3 = makeFrame(client, u"Frame3"_s);
    Label1 = new QLabel(tr("Searching ..."), Frame3);
    Label1->setObjectName(u"Label1"_s);
    placeTwips(Frame3, 2000, 2400, 2000, 500);
    placeTwips(Label1, 100, 100, 1800, 300);
    Frame3->hide();

    for (int i = 0; i < 2; ++i) {
        Frame4[i] = makeFrame(client, u"Frame4(%1)"_s.arg(i));
        Frame4[i]->setFrameShape(QFrame::Panel);
        Frame4[i]->setFrameShadow(QFrame::Sunken);
        Label2[i] = new QLabel(Frame4[i]);
        Label2[i]->setObjectName(u"Label2(%1)"_s.arg(i));
        Label2[i]->setAccessibleName(i == 0 ? tr("Date") : tr("Time"));
        Label2[i]->setAlignment(Qt::AlignCenter);
        placeTwips(Frame4[i], 2760 + i * 1440, 60, 1300, 330);
        placeTwips(Label2[i], 30, 30, 1240, 270);
    }

    List1 = new QListWidget(client);
    List1->setObjectName(u"List1"_s);
    List1->hide();

    Timer1 = new QTimer(this);
    Timer1->setObjectName(u"Timer1"_s);
    Timer1->setInterval(300);
    connect(Timer1, &QTimer::timeout, this, &Quorvane1::showClock);
    Timer1->start();
    showClock();

    connect(CMBFILEFLTR, &QComboBox::activated, this, &Quorvane1::CMBFILEFLTR_Click);
}

QAction* Quorvane1::addCommand(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

void Quorvane1::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName(u"mnuFile"_s);
    addCommand(file, "mnuFileOpen", tr("Open File"));
    addCommand(file, "mnuFileClose", tr("Close File"));
    addCommand(file, "mnuFileOLE", tr("Open File with Another Application"));
    file->addSeparator();
    addCommand(file, "mnuFileFind", tr("Find Files"));
    addCommand(file, "mnuFileFindNext", tr("Find Next File"));
    file->addSeparator();
    addCommand(file, "mnuFileSave", tr("Save File As"));
    addCommand(file, "mnuFileMove", tr("Move File"));
    addCommand(file, "mnuFileRename", tr("Rename File"));
    addCommand(file, "mnuFileDelete", tr("Delete File"));
    file->addSeparator();
    addCommand(file, "mnuFilePrint", tr("Print File"));
    addCommand(file, "mnuFilePrintSetup", tr("Printer Setup"));
    addCommand(file, "mnuFileSend", tr("Send File"));
    addCommand(file, "mnuFileProptee", tr("File Properties"));
    file->addSeparator();
    QAction* exit = addCommand(file, "mnuFileExit", tr("Exit"));
    connect(exit, &QAction::triggered, this, &QWidget::close);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->setObjectName(u"mnuView"_s);
    addCommand(view, "mnuViewTable", tr("Set Database Table"));
    addCommand(view, "mnuFileIndex", tr("Set Database Table Index"));
    addCommand(view, "mnuViewComments", tr("View Table Comments"));
    view->addSeparator();
    addCommand(view, "mnuViewThumbNails", tr("Browse Pictures in a Folder"));

    QMenu* organize = menuBar()->addMenu(tr("&Organize"));
    organize->setObjectName(u"mnuOrganize"_s);
    addCommand(organize, "mnuOrganizeGroup", tr("View and Select File Groups"));
    addCommand(organize, "mnuOrganizeGrpMaint", tr("Create and Maintain File Groups"));
    addCommand(organize, "mnuOrganizeFileMaint", tr("Select, Add, and Maintain Files in a Group"));
    addCommand(organize, "mnuOrganizeSearch", tr("Organize Files with Disk Search"));
    organize->addSeparator();
    addCommand(organize, "mnuOrganizeClear", tr("Clear all File Data in Database"));
    addCommand(organize, "mnuOrganizeRepair", tr("Repair or Compact Database"));

    QMenu* utilities = menuBar()->addMenu(tr("&Utilities"));
    utilities->setObjectName(u"mnuUtilities"_s);
    addCommand(utilities, "mnuUtilitiesFolder", tr("Set Working Folders"));
    addCommand(utilities, "mnuUtilitiesColors", tr("Set Application Colors"));
    addCommand(utilities, "mnuUtilitiesOptions", tr("Set Application Options"));
    QAction* network = addCommand(utilities, "mnuUtilitiesNetw", tr("Set Computer in Network"));
    connect(network, &QAction::triggered, this, &Quorvane1::mnuUtilitiesNetw_Click);
    utilities->addSeparator();
    addCommand(utilities, "mnuUtilitiesRefresh", tr("Refresh File List"));
    addCommand(utilities, "mnuUtilitiesUnExpand", tr("Collapse Expanded Disk/Folder Structure"));

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->setObjectName(u"mnuHelp"_s);
    addCommand(help, "mnuHelpContents", tr("Contents"));
    addCommand(help, "mnuHelpSearch", tr("Search Help Topic"));
    addCommand(help, "mnuHelpQuikTips", tr("Quick Tips"));
    addCommand(help, "mnuAbout", tr("About Quorvane"));
}

void Quorvane1::linkShellControls() {
    m_folderModel = new QFileSystemModel(this);
    m_folderModel->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Hidden);
    m_folderModel->setRootPath(u"/"_s);
    PTxShTree1->setModel(m_folderModel);
    for (int column = 1; column < m_folderModel->columnCount(); ++column)
        PTxShTree1->hideColumn(column);

    m_fileModel = new QFileSystemModel(this);
    m_fileModel->setFilter(QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot);
    m_fileModel->setNameFilterDisables(false);
    PTxShList1->setModel(m_fileModel);

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

    auto showFolder = [this](const QString& folder) {
        const QModelIndex tree = m_folderModel->index(folder);
        PTxShTree1->setCurrentIndex(tree);
        PTxShTree1->scrollTo(tree);
        PTxShList1->setRootIndex(m_fileModel->setRootPath(folder));
    };
    connect(PTxShCombo1, &QComboBox::textActivated, this, showFolder);
    connect(PTxShTree1, &QTreeView::clicked, this, [this, showFolder](const QModelIndex& index) {
        showFolder(m_folderModel->filePath(index));
    });
    showFolder(globals().gAppPath);
}

void Quorvane1::fillFilterTables() {
    Globals& g = globals();
    g.gFileExtTable = FileTypes::extensionTable();
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
    mStartView = PTxShList1->viewMode() == QListView::IconMode ? 0 : 2;
    m_helpFile = PathUtil::join(g.gAppPath, u"Help/index.html"_s);
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
    setWidthTwips(Frame1, Twips::fromPixels(width()) - 160);
    setWindowTitle(kCaption);
    const QString optionsMessage =
        OptionsFile::load(PathUtil::join(g.gAppPath, OptionsFile::fileName()), g, mComputerName);
    if (!optionsMessage.isEmpty())
        messages.inform(optionsMessage, this);

    StartupRules::clampMainPosition(g);
    SetWinSize();

    const double frameWidth = g.gMainWidth - 200;
    setWidthTwips(Frame1, frameWidth);
    setWidthTwips(Frame2, frameWidth);

    PTxShTree1->setGeometry(Twips::toPixels(g.gTreeLeft), PTxShTree1->y(),
                            Twips::toPixels(g.gTreeWidth), Twips::toPixels(g.gTreeHeight));
    PTxShList1->setGeometry(Twips::toPixels(g.gListLeft), PTxShList1->y(),
                            Twips::toPixels(g.gListWidth), Twips::toPixels(g.gListHeight));
    PTxShList1->setViewMode(g.gViewMode == 0 ? QListView::IconMode : QListView::ListMode);

    InitExplore();
    AskComputerName();
    // The organizer's table is checked here once the organizer store exists.

    Frame5->move(Twips::toPixels(g.gTreeWidth + g.gTreeLeft + 10), Frame5->y());
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
    move(Twips::toPixels(g.gMainLeft), Twips::toPixels(g.gMainTop));
    resize(std::max(1, Twips::toPixels(g.gMainWidth)), std::max(1, Twips::toPixels(g.gMainHeight)));
}

void Quorvane1::SetWinSizeVariables() {
    Globals& g = globals();
    g.gMainLeft = Twips::measure(x(), g.gMainLeft);
    g.gMainTop = Twips::measure(y(), g.gMainTop);
    g.gMainHeight = Twips::measure(height(), g.gMainHeight);
    g.gMainWidth = Twips::measure(width(), g.gMainWidth);
    if (g.gFrameOpen) {
        if (QWidget* frame = WindowRegistry::find(u"MDIForm1"_s)) {
            g.gFrameLeft = Twips::measure(frame->x(), g.gFrameLeft);
            g.gFrameTop = Twips::measure(frame->y(), g.gFrameTop);
            g.gFrameHeight = Twips::measure(frame->height(), g.gFrameHeight);
            g.gFrameWidth =
                static_cast<qint32>(std::lround(Twips::measure(frame->width(), g.gFrameWidth)));
        }
    }
}

void Quorvane1::InitExplore() {
    Globals& g = globals();
    const double frameWidth = Twips::fromPixels(std::max(1, Frame1->width()));
    g.gTreeHeight = Twips::measure(PTxShTree1->height(), g.gTreeHeight);
    g.gTreeWidth = Twips::measure(PTxShTree1->width(), g.gTreeWidth);
    g.gTreeLeft = Twips::measure(PTxShTree1->x(), g.gTreeLeft);
    mTreeRatio = g.gTreeWidth / frameWidth;
    g.gListHeight = Twips::measure(PTxShList1->height(), g.gListHeight);
    g.gListWidth = Twips::measure(PTxShList1->width(), g.gListWidth);
    g.gListLeft = Twips::measure(PTxShList1->x(), g.gListLeft);
    mListRatio = g.gListWidth / frameWidth;
    PTxShCombo1->setGeometry(PTxShTree1->x(), PTxShCombo1->y(), PTxShTree1->width(),
                             PTxShCombo1->height());
    CMBFILEFLTR->setGeometry(PTxShList1->x(), CMBFILEFLTR->y(), PTxShList1->width(),
                             CMBFILEFLTR->height());
    g.gSeparatorPercent = static_cast<int>(100 * mTreeRatio);
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
        if (auto* action = findChild<QAction*>(QString::fromLatin1(name)))
            action->setEnabled(false);
    }
}

void Quorvane1::EnableSelectMenus() {
    auto enable = [this](const char* name, bool on) {
        if (auto* action = findChild<QAction*>(QString::fromLatin1(name)))
            action->setEnabled(on);
    };
    for (const char* name : {"mnuFileMove", "mnuFileSave", "mnuFileDelete", "mnuFilePrint",
                             "mnuFileProptee", "mnuFileOLE", "mnuFileRename", "mnuFileSend"})
        enable(name, true);
    const QString& ext = mFileExt;
    // A Lotus file is tested as "W4", so it does not get the table commands.
    const bool tableFile = ext == u"XLS"_s || ext == u"MDB"_s || ext == u"W4"_s;
    const bool databaseFile = tableFile || ext == u"DB"_s || ext == u"DBF"_s;
    if (tableFile)
        enable("mnuViewTable", true);
    if (databaseFile) {
        enable("mnuViewComments", true);
        enable("mnuFileIndex", true);
    }
}

QString Quorvane1::GetFileExt(const QString& name) const {
    return FileTypes::GetFileExt(name);
}

bool Quorvane1::GetFileTypeFlag(const QString& name) {
    return FileTypes::GetFileTypeFlag(name, globals(), mFileExt, mIsTextFile);
}

void Quorvane1::CMBFILEFLTR_Click(int index) {
    if (index < 0 || index >= FileTypes::FilterRowCount)
        return;
    m_fileModel->setNameFilters(mFileFilter[index].split(u';', Qt::SkipEmptyParts));
}

void Quorvane1::applyColors() {
    const Globals& g = globals();
    for (QWidget* widget : {static_cast<QWidget*>(this), static_cast<QWidget*>(Frame1),
                            static_cast<QWidget*>(Frame2), static_cast<QWidget*>(Frame5)})
        paint(widget, g.gMainBackColor, g.gMainForeColor);
    for (QWidget* widget : {static_cast<QWidget*>(CMBFILEFLTR), static_cast<QWidget*>(CMBFILE),
                            static_cast<QWidget*>(PTxShTree1), static_cast<QWidget*>(PTxShList1),
                            static_cast<QWidget*>(PTxShCombo1)})
        paint(widget, g.gListBackColor, g.gListForeColor, g.gBoldType);
    for (int i = 0; i < 2; ++i) {
        paint(Frame4[i], g.gMainBackColor, g.gMainForeColor);
        paint(Label2[i], g.gMainBackColor, g.gMainForeColor, g.gBoldType);
    }
}

void Quorvane1::Form_Activate() {
    applyColors();
    // The file list carries the separator option; it has no use for it yet.
    PTxShList1->setProperty("separatorOption", globals().gSeparatorOption);
    if (mFirstActivate) {
        update();
    } else {
        Frame1->update();
        PTxShList1->viewport()->update();
    }
    // The quick tips are shown here once their window exists.
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
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Form_Activate();
}

void Quorvane1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    // The first showing counts as the first activation, also where no window manager
    // activates windows.
    if (mFirstActivate)
        Form_Activate();
}

void Quorvane1::closeEvent(QCloseEvent* event) {
    Form_Unload();
    event->accept();
}

bool Quorvane1::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto* widget = qobject_cast<QWidget*>(watched);
        const auto* key = static_cast<QKeyEvent*>(event);
        if (widget && widget->window() == this && key->key() == Qt::Key_Escape &&
            globals().gSearchArmed)
            globals().gSearchArmed = false;
    }
    return QMainWindow::eventFilter(watched, event);
}
