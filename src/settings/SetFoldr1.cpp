#include "settings/SetFoldr1.h"

#include "platform/Activation.h"
#include "platform/DialogButtons.h"
#include "platform/FileMask.h"
#include "platform/PathUtil.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "settings/FolderFile.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"
#include "shell/ShellTreeModel.h"

#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

QToolButton* moveButton(QWidget* parent, const char* name, const QString& text,
                        const QString& tip) {
    auto* b = new QToolButton(parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setText(text);
    b->setToolTip(tip);
    b->setAccessibleName(tip);
    return b;
}

} // namespace

const std::array<QString, 63>& SetFoldr1::FolderFilters() {
    static const std::array<QString, 63> masks = [] {
        std::array<QString, 63> filled;
        const auto& rows = FileTypes::filterRows();
        for (size_t i = 0; i < rows.size(); ++i)
            filled[i] = rows[i].mask;
        return filled;
    }();
    return masks;
}

QString SetFoldr1::startingMask() {
    return u"*.JPG;*.CMP;*.TIFF;*.TIF;*.MPT;*.BMP;*.ICO;*.CUR;*.PCX;*.DCX;*.PCD;*.FPX;*.AWD;*.WMF;"
           u"*.EMF;*.DXF;*.XPM;*.IFF;*.PBM;*.CUT;*.PSD;*.PNG;*.TGA;*.EPS;*.JBG;*.RAS;*.WPG;*.PCT;"
           u"*.WAV;*.MID;*.RMI;*.AVI;*.MPG;*.MOV;*.MP3;*.M3U;*.MAC;*.IMG;*.MSP"_s;
}

SetFoldr1::SetFoldr1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Create List of Preset Folders for Quick Location"));

    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    Drive1 = new QComboBox(Frame1);
    Drive1->setObjectName(u"Drive1"_s);
    Drive1->setAccessibleName(tr("Drives and places"));
    Dir1 = new QTreeView(Frame1);
    Dir1->setObjectName(u"Dir1"_s);
    Dir1->setAccessibleName(tr("Folders"));
    Dir1->setHeaderHidden(true);
    m_dirs = new ShellTreeModel(u"/"_s, this);
    m_dirs->attach(Dir1);
    File1 = new QListWidget(Frame1);
    File1->setObjectName(u"File1"_s);
    File1->setToolTip(tr("display of Files in Folder"));
    File1->setAccessibleName(File1->toolTip());
    File1->setSelectionMode(QAbstractItemView::NoSelection);

    CMBFILTER = new QComboBox(this);
    CMBFILTER->setObjectName(u"CMBFILTER"_s);
    CMBFILTER->setAccessibleName(tr("File Filter"));
    Label2 = NamedWidgets::label(this, u"Label2"_s,
                                 tr("The Filter for each Folder will be saved with the folder, "
                                    "and reset when using the list."));
    Label2->setWordWrap(true);
    Label1 = NamedWidgets::label(this, u"Label1"_s, tr("List of Selected Folders"));
    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setToolTip(tr("Folders and Filter Selected"));
    List1->setAccessibleName(tr("List of Selected Folders"));
    Label1->setBuddy(List1);

    RightBtn = moveButton(this, "RightBtn", u">"_s, tr("Select Folder to List for Quick Location"));
    LefttBtn =
        moveButton(this, "LefttBtn", u"<"_s, tr("Remove Folder from Quick Folder Location List"));
    UpBtn = moveButton(this, "UpBtn", tr("Up"), tr("Move Highlighted Folder Up one Position"));
    DownBtn =
        moveButton(this, "DownBtn", tr("Down"), tr("Move Highlighted Folder Down one Position"));
    ClearBtn = moveButton(this, "ClearBtn", tr("Clear"), tr("Clear all Folders from the List"));
    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"),
                                 tr("Click OK to Save all the Selected Folders to File"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close without Saving"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("Help"), tr("Help with Working Folders"));
    OKBtn->setDefault(true);
    DialogButtons::enterAnywhereClicks(this, OKBtn);

    // The fixed places, in twips; resizeEvent moves what follows the window's width.
    Twips::place(Drive1, 120, 120, 3000, 315);
    Twips::place(Dir1, 120, 520, 3000, 2060);
    Twips::place(File1, 3240, 120, 3600, 2460);
    Twips::place(CMBFILTER, 110, 2860, 2460, 315);
    Twips::place(Label2, 110, 3260, 2460, 900);
    Twips::place(Label1, 3360, 2820, 3000, 240);
    double top = 2860;
    for (QToolButton* b : {RightBtn, LefttBtn, UpBtn, DownBtn, ClearBtn}) {
        Twips::place(b, 2660, top, 640, 360);
        top += 400;
    }
    setMinimumSize(Twips::toPixels(7200), Twips::toPixels(5400));
    resize(Twips::toPixels(7200), Twips::toPixels(5400));

    connect(Drive1, &QComboBox::currentIndexChanged, this, &SetFoldr1::Drive1_Change);
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &SetFoldr1::Dir1_Change);
    connect(CMBFILTER, &QComboBox::currentIndexChanged, this, &SetFoldr1::CMBFILTER_Click);
    connect(RightBtn, &QToolButton::clicked, this, &SetFoldr1::RightBtn_Click);
    connect(LefttBtn, &QToolButton::clicked, this, &SetFoldr1::LefttBtn_Click);
    connect(UpBtn, &QToolButton::clicked, this, &SetFoldr1::UpBtn_Click);
    connect(DownBtn, &QToolButton::clicked, this, &SetFoldr1::DownBtn_Click);
    connect(ClearBtn, &QToolButton::clicked, List1, &QListWidget::clear);
    connect(OKBtn, &QPushButton::clicked, this, &SetFoldr1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    Form_Load();
}

SetFoldr1::~SetFoldr1() {
    globals().gSetFoldrOpen = false;
}

void SetFoldr1::Form_Load() {
    const Quorvane1* main = Quorvane1::instance();
    const QString folder = main ? main->shellList()->folder() : QDir::homePath();
    {
        const QSignalBlocker quiet(Drive1);
        Drive1->addItems(main ? main->places() : QStringList{u"/"_s});
        // The place that holds the folder: the longest one it lies under.
        int best = 0;
        for (int i = 0; i < Drive1->count(); ++i) {
            const QString place = Drive1->itemText(i);
            const QString inside = place.endsWith(u'/') ? place : place + u'/';
            if ((folder == place || folder.startsWith(inside)) &&
                place.size() > Drive1->itemText(best).size())
                best = i;
        }
        Drive1->setCurrentIndex(best);
    }
    m_pattern = startingMask();
    setDirPath(folder);
    if (main) {
        List1->addItems(main->workingFolders());
        if (List1->count() > 0)
            List1->setCurrentRow(0);
        const QSignalBlocker quiet(CMBFILTER);
        CMBFILTER->addItems(main->filterCaptions());
        CMBFILTER->setCurrentIndex(main->filterRow());
    }
    globals().gSetFoldrOpen = true;
}

QString SetFoldr1::dirPath() const {
    const ShellNamespace::Node* node = m_dirs->nodeOf(Dir1->currentIndex());
    return node ? node->path : QString();
}

void SetFoldr1::setDirPath(const QString& path) {
    if (!m_dirs->revealPath(path))
        m_dirs->revealPath(u"/"_s);
    fillFiles();
}

void SetFoldr1::Drive1_Change() {
    setDirPath(Drive1->currentText());
}

void SetFoldr1::Dir1_Change() {
    fillFiles();
}

void SetFoldr1::CMBFILTER_Click() {
    const int index = CMBFILTER->currentIndex();
    if (index < 0 || index >= int(FolderFilters().size()))
        return;
    m_pattern = FolderFilters()[size_t(index)];
    fillFiles();
}

void SetFoldr1::fillFiles() {
    File1->clear();
    const FileMask::Compiled mask(m_pattern);
    const QStringList names =
        QDir(dirPath()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& name : names) {
        if (mask.matches(name))
            File1->addItem(name);
    }
}

void SetFoldr1::RightBtn_Click() {
    const QString folder = dirPath();
    if (folder.isEmpty())
        return;
    List1->addItem(FolderFile::format(folder, std::max(0, CMBFILTER->currentIndex())));
    List1->setCurrentRow(List1->count() - 1);
}

void SetFoldr1::LefttBtn_Click() {
    const int row = List1->currentRow();
    if (row < 0)
        return;
    delete List1->takeItem(row);
    if (row > 0 && List1->count() > 0)
        List1->setCurrentRow(row - 1);
}

void SetFoldr1::swapWithNext(int row) {
    QListWidgetItem* below = List1->takeItem(row + 1);
    List1->insertItem(row, below);
}

void SetFoldr1::UpBtn_Click() {
    const int row = List1->currentRow();
    if (row <= 0)
        return;
    swapWithNext(row - 1);
    List1->setCurrentRow(row - 1);
}

void SetFoldr1::DownBtn_Click() {
    const int row = List1->currentRow();
    if (row < 0 || row >= List1->count() - 1)
        return;
    swapWithNext(row);
    List1->setCurrentRow(row + 1);
}

void SetFoldr1::OKBtn_Click() {
    QStringList entries;
    for (int i = 0; i < List1->count(); ++i)
        entries.append(List1->item(i)->text());
    if (FolderFile::save(PathUtil::join(globals().gAppPath, FolderFile::fileName()), entries))
        return; // the old file and the main window's list stay as they were
    if (Quorvane1* main = Quorvane1::instance())
        main->setWorkingFolders(entries);
    accept();
}

void SetFoldr1::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const double w = Twips::fromPixels(width());
    const double h = Twips::fromPixels(height());
    Twips::place(Frame1, 110, 60, w - 220, 2700);
    Twips::place(List1, 3360, 3060, w - 3480, h - 3780);
    const double buttonTop = h - 600;
    Twips::place(OKBtn, 110, buttonTop, 1100, 400);
    Twips::place(CancelBtn, w / 2 - 550, buttonTop, 1100, 400);
    Twips::place(HelpBtn, w - 1290, buttonTop, 1100, 400);
}

void SetFoldr1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (!Activation::becameActive(this, event))
        return;
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    WidgetPaint::paint(Frame1, g.gWindowBackColor, g.gWindowForeColor);
    for (QWidget* list : std::initializer_list<QWidget*>{List1, File1, Dir1, Drive1})
        WidgetPaint::paint(list, g.gListBackColor, g.gListForeColor, g.gBoldType);
    WidgetPaint::paint(CMBFILTER, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
    for (QLabel* label : {Label1, Label2})
        WidgetPaint::paint(label, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* b : std::initializer_list<QWidget*>{RightBtn, LefttBtn, UpBtn, DownBtn, ClearBtn,
                                                      OKBtn, CancelBtn, HelpBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
}
