// The database kind of a document window: a table of a dBASE, Paradox, Access, Excel or Lotus
// file in a grid under its data control, with the lists of tables and indexes and the comment
// box for memo fields.
#include "documents/ChildFrm1.h"

#include "documents/Login.h"
#include "documents/MDIForm1.h"
#include "platform/FlexGrid.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/TableDataControl.h"
#include "platform/Twips.h"
#include "platform/WidgetPaint.h"
#include "platform/tables/TableGridModel.h"
#include "platform/tables/TableRecordset.h"
#include "shell/DatabaseLists.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QListWidget>
#include <QMenu>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kDataHeight = 300;
constexpr double kFrame1Width = 2450;
constexpr double kFrame1Height = 1900;
constexpr double kListWidth = 1100;
constexpr double kListTop = 60;
constexpr double kListHeight = 1780;
constexpr double kFrame2Width = 4200;
constexpr double kFrame2Height = 2200;
// The lists of fields hold 252 columns, the grid's fixed first column among them.
constexpr int kMostFields = 251;

QRect toPixels(const QRectF& twips) {
    return QRect(Twips::toPixels(twips.left()), Twips::toPixels(twips.top()),
                 Twips::toPixels(twips.width()), Twips::toPixels(twips.height()));
}

QString connectFor(const QString& ext) {
    if (ext == u"DBF"_s)
        return u"dBASE 5.0;"_s;
    if (ext == u"DB"_s)
        return u"Paradox 5.x;"_s;
    if (ext == u"MDB"_s)
        return u"Access"_s;
    if (ext == u"XLS"_s)
        return u"Excel 8.0;"_s;
    if (ext == u"WK4"_s)
        return u"Lotus WK4;"_s;
    return {};
}

} // namespace

bool ChildFrm1::tableIsTheFile() const {
    return mExt == u"DBF"_s || mExt == u"DB"_s;
}

void ChildFrm1::syncTableButtons() {
    if (!Data1)
        return;
    m_frame->button(12)->setEnabled(menuAction("mnuViewTable")->isEnabled());
    m_frame->button(13)->setEnabled(menuAction("mnuViewIndex")->isEnabled());
    m_frame->setButtonDown(12, mShowTables);
    m_frame->setButtonDown(13, mShowIndexes);
}

void ChildFrm1::buildDatabaseView() {
    QWidget* content = widget();
    content->setAutoFillBackground(true);

    Data1 = new TableDataControl(content);
    Data1->setObjectName(u"Data1"_s);
    Data1->setAccessibleName(tr("Records"));
    connect(Data1, &TableDataControl::Validate, this, &ChildFrm1::Data1_Validate);
    connect(Data1, &TableDataControl::Reposition, this, &ChildFrm1::Data1_Reposition);

    MSFlexGrid1 = new FlexGrid(content);
    MSFlexGrid1->setObjectName(u"MSFlexGrid1"_s);
    MSFlexGrid1->setAccessibleName(tr("Table"));
    m_gridModel = new TableGridModel(this);
    MSFlexGrid1->setModel(m_gridModel);
    connect(Data1, &TableDataControl::recordsetChanged, this,
            [this] { m_gridModel->setRows(Data1->Recordset()); });
    connect(MSFlexGrid1, &FlexGrid::EnterCell, this, [this](int record, int column) {
        const Globals& g = globals();
        m_gridModel->setCellColors(record, column, SettingColor::toQColor(g.gBrowserForeColor),
                                   SettingColor::toQColor(g.gBrowserBackColor));
    });
    connect(MSFlexGrid1, &FlexGrid::LeaveCell, this,
            [this](int, int) { m_gridModel->setCellColors(-1, 0, {}, {}); });
    connect(MSFlexGrid1, &FlexGrid::DblClick, this, &ChildFrm1::MSFlexGrid1_DblClick);

    Frame1 = new QFrame(content);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::Box);
    Frame1->setAutoFillBackground(true);
    Frame1->setGeometry(Twips::toPixels(10), 0, Twips::toPixels(kFrame1Width),
                        Twips::toPixels(kFrame1Height));
    auto makeList = [this](const char* name, const QString& accessible) {
        auto* list = new QListWidget(Frame1);
        list->setObjectName(QString::fromLatin1(name));
        list->setAccessibleName(accessible);
        list->setGeometry(Twips::toPixels(90), Twips::toPixels(kListTop),
                          Twips::toPixels(kListWidth), Twips::toPixels(kListHeight));
        list->hide();
        return list;
    };
    List1 = makeList("List1", tr("Tables"));
    List2 = makeList("List2", tr("Indexes"));
    List1->setToolTip(tr("Select the Table from the Database File"));
    List2->setToolTip(tr("Select the Index for the Table"));
    // A click, or Enter on an entry, chooses it.
    connect(List1, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { List1_Click(List1->row(item)); });
    connect(List1, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { List1_Click(List1->row(item)); });
    connect(List2, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { List2_Click(List2->row(item)); });
    connect(List2, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { List2_Click(List2->row(item)); });
    Frame1->hide();

    Frame2 = new QGroupBox(tr("View Comments"), content);
    Frame2->setObjectName(u"Frame2"_s);
    Frame2->setAutoFillBackground(true);
    Frame2->resize(Twips::toPixels(kFrame2Width), Twips::toPixels(kFrame2Height));
    auto* box = new QVBoxLayout(Frame2);
    Text2 = new QTextEdit(Frame2);
    Text2->setObjectName(u"Text2"_s);
    Text2->setAccessibleName(tr("Comment"));
    Text2->setReadOnly(true);
    box->addWidget(Text2);
    Frame2->hide();
    Text2->hide();

    Data1->hide();
    MSFlexGrid1->hide();
}

void ChildFrm1::loadDatabase(const QString& path) {
    buildDatabaseView();
    mFieldType.fill(0);
    mDbFolder = PathUtil::folderOf(path);
    mDbFile = PathUtil::nameOf(path);
    mConnect = connectFor(mExt);
    Globals& g = globals();

    AppError error;
    if (tableIsTheFile()) {
        DatabaseLists::ReadTableInfo(g, mConnect, mDbFolder, mDbFile);
        Data1->Connect = mConnect;
        Data1->DatabaseName = mDbFolder;
        Data1->RecordSource = mDbFile;
    } else {
        mPassword.clear();
        // The window is not in the frame yet: the question stands over the frame.
        const auto askPassword = [this] {
            Login login(m_frame);
            login.exec();
            return globals().gLoginOK;
        };
        mTableName = DatabaseLists::ListTables(g, path, mConnect, askPassword);
        DatabaseLists::ReadTableInfo(g, mConnect, path, mTableName);
        if (mExt == u"MDB"_s)
            mPassword = g.gDbPassword;
        Data1->Connect = mConnect;
        if (mExt == u"MDB"_s && !mPassword.isEmpty())
            Data1->Connect = u";pwd="_s + mPassword;
        Data1->DatabaseName = path;
        Data1->RecordSource = mTableName;
    }
    error = Data1->Refresh();
    if (!error && m_gridModel->columnCount() > kMostFields)
        error = AppError(9, u"Subscript out of range"_s);
    if (error) {
        Messages::instance().inform(tr("Quorvane could not open this Database Table"), this);
        m_frame->mLoadFailed = true;
        mBadLoad = true;
        return;
    }

    m_frame->EnableDataButtons();
    fillIndexList();
    fillTableList();
    if (!tableIsTheFile()) {
        if (g.gTableCount > 0)
            List1->setCurrentRow(0);
        if (g.gIndexCount > 0)
            List2->setCurrentRow(0);
    }

    const double width = Twips::fromPixels(this->width());
    const double height = Twips::fromPixels(this->height());
    m_placement = DatabaseLayout::atOpen(width, height, kDataHeight);
    Data1->setCaption(path);
    layoutDatabase();
    setColumnWidths();
    Data1->show();
    MSFlexGrid1->show();
    Frame1->hide();
    Frame1->move(Twips::toPixels(10), 0);
    keepFieldTypes();
    if (m_gridModel->rowCount() > 0)
        MSFlexGrid1->setRow(1);

    menuAction("mnuViewComments")->setEnabled(true);
    // Index and table choices stay off when their lists are empty.
    menuAction("mnuViewIndex")->setEnabled(g.gIndexCount > 0);
    if (!tableIsTheFile())
        menuAction("mnuViewTable")->setEnabled(g.gTableCount > 0);
}

void ChildFrm1::setColumnWidths() {
    const Globals& g = globals();
    const int columns = std::min<int>(m_gridModel->columnCount(), int(g.gFieldNames.size()));
    for (int i = 0; i < columns; ++i) {
        const auto field = static_cast<size_t>(i);
        MSFlexGrid1->setColWidth(
            i, DatabaseLayout::columnWidth(g.gFieldNames[field].size(), g.gFieldSizes[field]));
    }
}

void ChildFrm1::keepFieldTypes() {
    const Globals& g = globals();
    mFieldType.fill(0);
    for (int i = 0; i <= g.gFieldCount && i < int(mFieldType.size()); ++i)
        mFieldType[static_cast<size_t>(i)] = g.gFieldTypes[static_cast<size_t>(i)];
}

void ChildFrm1::fillIndexList() {
    const Globals& g = globals();
    menuAction("mnuViewIndex")->setEnabled(false);
    m_frame->button(13)->setEnabled(false);
    if (g.gIndexCount <= 0)
        return;
    List2->clear();
    // Each list ends with one empty entry.
    for (int i = 0; i <= g.gIndexCount; ++i)
        List2->addItem(i < int(g.gIndexNames.size()) ? g.gIndexNames[static_cast<size_t>(i)]
                                                     : QString());
    menuAction("mnuViewIndex")->setEnabled(true);
    m_frame->button(13)->setEnabled(true);
}

void ChildFrm1::fillTableList() {
    const Globals& g = globals();
    menuAction("mnuViewTable")->setEnabled(false);
    m_frame->button(12)->setEnabled(false);
    if (tableIsTheFile() || g.gTableCount <= 0)
        return;
    List1->clear();
    for (int i = 0; i <= g.gTableCount; ++i)
        List1->addItem(i < int(g.gTableNames.size()) ? g.gTableNames[static_cast<size_t>(i)]
                                                     : QString());
    menuAction("mnuViewTable")->setEnabled(true);
    m_frame->button(12)->setEnabled(true);
}

void ChildFrm1::List1_Click(int position) {
    const QListWidgetItem* item = List1->item(position);
    // The empty entry at the end of the list chooses nothing.
    if (!item || item->text().isEmpty())
        return;
    if (!tableIsTheFile()) {
        Data1->RecordSource = item->text();
        if (Data1->Refresh())
            return; // the table that was shown stays
        mTableName = item->text();
        m_frame->mTableIndex = position;
        if (m_gridModel->rowCount() > 0)
            MSFlexGrid1->setRow(1);
    }
    Globals& g = globals();
    DatabaseLists::ReadTableInfo(g, mConnect, Data1->DatabaseName, mTableName);
    keepFieldTypes();
    setColumnWidths();
    fillIndexList();
}

void ChildFrm1::List2_Click(int position) {
    const QListWidgetItem* item = List2->item(position);
    if (!item || Data1->Refresh())
        return;
    if (TableRecordset* records = Data1->Recordset())
        records->setIndex(item->text());
    m_gridModel->refresh();
    if (m_gridModel->rowCount() > 0)
        MSFlexGrid1->setRow(1);
}

void ChildFrm1::toggleList(QListWidget* list, bool& shown, bool otherShown, const char* menu,
                           const char* mainMenu, int button) {
    shown = !shown;
    menuAction(menu)->setCheckable(true);
    menuAction(menu)->setChecked(shown);
    if (Quorvane1* main = Quorvane1::instance())
        main->setMenuChecked(mainMenu, shown);
    m_frame->setButtonDown(button, shown);
    if (!shown) {
        if (!otherShown)
            Frame1->hide();
        list->hide();
        return;
    }
    // The list that was open first stays on the left.
    const bool indexesFirst = list == List1 ? otherShown : !otherShown;
    const DatabaseLayout::ListLefts lefts = DatabaseLayout::listLefts(indexesFirst);
    List1->move(Twips::toPixels(lefts.tables), List1->y());
    List2->move(Twips::toPixels(lefts.indexes), List2->y());
    Frame1->show();
    Frame1->raise();
    list->show();
}

void ChildFrm1::mnuViewTable_Click() {
    if (!List1)
        return;
    toggleList(List1, mShowTables, mShowIndexes, "mnuViewTable", "mnuViewTable", 12);
    const int last = static_cast<int>(m_frame->mTableIndex);
    if (mShowTables && List1->count() > 0 && List1->currentRow() >= 1 && last < List1->count())
        List1->setCurrentRow(last);
}

void ChildFrm1::mnuViewIndex_Click() {
    if (!List2)
        return;
    toggleList(List2, mShowIndexes, mShowTables, "mnuViewIndex", "mnuFileIndex", 13);
}

void ChildFrm1::showComment() {
    Text2->setPlainText(MSFlexGrid1->Text());
    Text2->show();
    Frame2->show();
    Frame2->raise();
}

void ChildFrm1::mnuViewComments_Click() {
    if (!MSFlexGrid1)
        return;
    QAction* menu = menuAction("mnuViewComments");
    Quorvane1* main = Quorvane1::instance();
    menu->setCheckable(true);
    if (m_commentShown) {
        m_commentShown = false;
        menu->setChecked(false);
        if (main)
            main->setMenuChecked("mnuViewComments", false);
        Frame2->hide();
        Text2->hide();
        return;
    }
    m_commentShown = true;
    menu->setChecked(true);
    if (main)
        main->setMenuChecked("mnuViewComments", true);
    const auto column = static_cast<size_t>(MSFlexGrid1->Col());
    if (column >= mFieldType.size() || mFieldType[column] != 12) {
        Messages::instance().inform(tr("Please select a Comment Field to Display"), this);
        return;
    }
    showComment();
}

void ChildFrm1::MSFlexGrid1_DblClick() {
    const auto column = static_cast<size_t>(MSFlexGrid1->Col());
    const bool memo = (column < mFieldType.size() && mFieldType[column] == 12) ||
                      (column + 1 < mFieldType.size() && mFieldType[column + 1] == 12);
    if (!memo)
        return;
    showComment();
    QAction* menu = menuAction("mnuViewComments");
    menu->setCheckable(true);
    menu->setEnabled(true);
    menu->setChecked(true);
    m_commentShown = true;
}

void ChildFrm1::Data1_Validate(int action) {
    const int row = MSFlexGrid1->Row();
    const int rows = MSFlexGrid1->Rows();
    switch (action) {
    case DataNavigator::MoveFirst:
        MSFlexGrid1->setRow(1);
        break;
    case DataNavigator::MovePrevious:
        if (row >= 2)
            MSFlexGrid1->setRow(row - 1);
        break;
    case DataNavigator::MoveNext:
        if (row < rows - 1)
            MSFlexGrid1->setRow(row + 1);
        break;
    case DataNavigator::MoveLast:
        MSFlexGrid1->setRow(rows - 1);
        break;
    default:
        break;
    }
}

void ChildFrm1::Data1_Reposition() {
    const int row = MSFlexGrid1->Row();
    if (row > 0 && !MSFlexGrid1->RowIsVisible(row))
        MSFlexGrid1->setTopRow(row);
}

void ChildFrm1::applyGridStyle() {
    const Globals& g = globals();
    MSFlexGrid1->applyStyle(SettingColor::toQColor(g.gBrowserBackColor),
                            SettingColor::toQColor(g.gBrowserForeColor), g.gBoldType,
                            g.gBrowserTextStyle, g.gGridLines);
}

void ChildFrm1::paintDatabaseView() {
    const Globals& g = globals();
    applyGridStyle();
    WidgetPaint::paint(Data1, g.gBrowserBackColor, g.gBrowserForeColor);
    WidgetPaint::paint(Text2, g.gDisplayBackColor, g.gDisplayForeColor, g.gBoldType);
    for (QWidget* frame : {static_cast<QWidget*>(Frame1), static_cast<QWidget*>(Frame2)}) {
        QPalette palette = frame->palette();
        palette.setColor(QPalette::Window, SettingColor::toQColor(g.gPictureWindowColor));
        frame->setPalette(palette);
    }
    WidgetPaint::paint(List1, g.gListBackColor, g.gListForeColor, g.gBoldType);
    WidgetPaint::paint(List2, g.gListBackColor, g.gListForeColor, g.gBoldType);
}

void ChildFrm1::layoutDatabase() {
    if (!Data1)
        return;
    Data1->setGeometry(toPixels(m_placement.data));
    MSFlexGrid1->setGeometry(toPixels(m_placement.grid));
    const QPointF box = DatabaseLayout::commentBoxAt(m_placement.grid, kFrame2Width, kFrame2Height);
    Frame2->move(Twips::toPixels(box.x()), Twips::toPixels(box.y()));
}

void ChildFrm1::resizeDatabase() {
    DatabaseLayout::resize(m_placement, Twips::fromPixels(width()), Twips::fromPixels(height()));
    layoutDatabase();
}

void ChildFrm1::releaseTable() {
    if (!Data1)
        return;
    Data1->Connect = u"Text"_s;
    Data1->DatabaseName = globals().gAppPath;
    Data1->RecordSource = u"Close.Txt"_s;
    Data1->closeRecordset();
}

void ChildFrm1::copyCurrentCell() {
    if (MSFlexGrid1)
        QApplication::clipboard()->setText(MSFlexGrid1->Text());
}
