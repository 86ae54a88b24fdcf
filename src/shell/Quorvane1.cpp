#include "shell/Quorvane1.h"

#include "documents/DocumentWindows.h"
#include "help/HelpWindows.h"
#include "media/MediaWindows.h"
#include "organizer/OrganizerDb.h"
#include "organizer/OrganizerMaintenance.h"
#include "organizer/OrganizerWindows.h"
#include "printing/PrintingWindows.h"
#include "sending/SendingWindows.h"
#include "settings/SettingsWindows.h"
#include "shell/Quorvane1Shared.h"

#include "documents/MDIForm1.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "settings/ColorsFile.h"
#include "settings/OptionsFile.h"
#include "settings/OptionsForm.h"
#include "settings/SettingsText.h"
#include "shell/FileTypes.h"
#include "shell/FindFile1.h"
#include "shell/Globals.h"
#include "shell/QuikPict1.h"
#include "shell/StartupRules.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QSysInfo>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

using namespace Quorvane1Shared;

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
    registerOrganizerWindows();
    registerPrintingWindows();
    registerSendingWindows();
    registerMediaWindows();
    registerSettingsWindows();
    registerDocumentWindows();
    registerHelpWindows();
    buildControls();
    buildMenus();
    Form_Load();
    qApp->installEventFilter(this);
}

Quorvane1::~Quorvane1() = default;

void Quorvane1::Form_Load() {
    Globals& g = globals();
    Messages& messages = Messages::instance();

    mFirstActivate = true;
    g.gAppPath = QDir::currentPath();
    linkShellControls();
    mStartView = PTxShList1->view();
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
    setWindowTitle(Messages::caption());
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
    const OrganizerMaintenance::TableCheck organizer = OrganizerMaintenance::CheckOrganizerTable(
        PathUtil::join(g.gAppPath, QString::fromLatin1(OrganizerDb::FileName)));
    mOrgFileCount = organizer.fileCount;
    if (organizer.updated)
        messages.inform(tr("Table Updated - Please Click the OK Button Again"), this);

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

void Quorvane1::setPaneShares(int separatorPercent) {
    const OptionsForm::PaneShares shares = OptionsForm::sharesOf(separatorPercent);
    mTreeRatio = shares.tree;
    mListRatio = shares.list;
    const double frameWidth = tw(Frame1->width());
    PTxShTree1->resize(std::max(0, px(frameWidth * mTreeRatio)), PTxShTree1->height());
    const double listWidth = frameWidth * mListRatio;
    PTxShList1->resize(std::max(0, px(listWidth - 0.055 * listWidth)), PTxShList1->height());
    Frame5->move(px(tw(PTxShTree1->x()) + tw(PTxShTree1->width()) + 25), Frame5->y());
    PTxShList1->move(px(tw(Frame5->x()) + 25), PTxShList1->y());
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
        Messages::caption(),
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
    // An open tip window is left where it is.
    if (globals().gShowTipsNow && globals().gQuickTipsOption &&
        !WindowRegistry::find(u"QuikTip1"_s))
        WindowRegistry::show(u"QuikTip1"_s);
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
    // The state is kept before the handler runs, which may show a box that moves the
    // activation on.
    if (event->type() == QEvent::ActivationChange) {
        const bool wasActive = std::exchange(m_active, isActiveWindow());
        if (m_active && !wasActive)
            Form_Activate();
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
