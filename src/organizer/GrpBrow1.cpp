#include "organizer/GrpBrow1.h"

#include "organizer/OrganizerDataControl.h"
#include "organizer/RecordsetRows.h"
#include "platform/Activation.h"
#include "platform/FlexGrid.h"
#include "platform/PathUtil.h"
#include "platform/SettingColor.h"
#include "platform/WindowRegistry.h"
#include "platform/tables/TableGridModel.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using NamedWidgets::button;

namespace {

// The headings and widths (in twips) of the two grids, a column a field of the table.
struct Column {
    const char* heading;
    int width;
};
constexpr Column GroupColumns[] = {
    {"", 0}, {"Group Name", 1700},  {"Group Description", 4000}, {"", 0}, {"", 0},
    {"", 0}, {"Last Updated", 2000}};
constexpr Column FileColumns[] = {{"", 0},
                                  {"File Group", 1500},
                                  {"File Name", 3000},
                                  {"File Location", 5000},
                                  {"File Description", 2500},
                                  {"File Search Word", 2000},
                                  {"Type of File", 1500},
                                  {"", 0},
                                  {"File Updated", 1500},
                                  {"", 1500},
                                  {"Updated Time", 0},
                                  {"Added to Database", 2200}};
constexpr int FileDateColumn = 8;

// The items of the sort list and the order each one gives; none keeps the order as it is.
constexpr std::pair<const char*, const char*> SortItems[] = {
    {"Date Added to List", "[ID]"},  {"Group Name", "[GroupName]"},
    {"File Name", "[FileName]"},     {"File Type", "[FileType]"},
    {"File Last Updated", "[Date]"}, {"File Search Word", "[FileKeyword]"},
    {"File Path", nullptr}};

template <std::size_t N> QStringList headingsOf(const Column (&columns)[N]) {
    QStringList headings;
    for (const Column& column : columns)
        headings.append(QString::fromLatin1(column.heading));
    return headings;
}

} // namespace

GrpBrow1::GrpBrow1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Browse and View Files from File Group"));
    resize(900, 520);

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(u"Frame1"_s);
    auto* grids = new QVBoxLayout(Frame1);
    const QStringList headings[] = {headingsOf(GroupColumns), headingsOf(FileColumns)};
    const QString names[] = {tr("File Groups"), tr("Files in Group")};
    for (int i = 0; i < 2; ++i) {
        Data1[i] = new OrganizerDataControl(Frame1);
        Data1[i]->setObjectName(u"Data1_%1"_s.arg(i));
        Data1[i]->setAccessibleName(names[i]);
        MSFlexGrid1[i] = new FlexGrid(Frame1);
        MSFlexGrid1[i]->setObjectName(u"MSFlexGrid1_%1"_s.arg(i));
        MSFlexGrid1[i]->setAccessibleName(names[i]);
        mRows[i] = std::make_unique<RecordsetRows>([data = Data1[i]] { return data->recordset(); },
                                                   headings[i]);
        mModel[i] = new TableGridModel(this);
        mModel[i]->setRows(mRows[i].get());
        MSFlexGrid1[i]->setModel(mModel[i]);
        grids->addWidget(MSFlexGrid1[i], 1);
        grids->addWidget(Data1[i]);
        connect(MSFlexGrid1[i], &QAbstractItemView::clicked, this,
                [this, i] { MSFlexGrid1_Click(i); });
        connect(Data1[i], &OrganizerDataControl::RecordsChanged, mModel[i],
                &TableGridModel::refresh);
        connect(Data1[i], &OrganizerDataControl::Reposition, this,
                [this, i] { Data1_Reposition(i); });
        connect(Data1[i], &OrganizerDataControl::Validate, this,
                [this, i](int action) { Data1_Validate(i, action); });
    }
    mRows[1]->setDateColumn(FileDateColumn);
    MSFlexGrid1[1]->hide();
    Data1[1]->hide();

    Frame2 = new QGroupBox(this);
    Frame2->setObjectName(u"Frame2"_s);
    List1 = new QListWidget(Frame2);
    List1->setObjectName(u"List1"_s);
    List1->setToolTip(tr("Select Field to Sort Table"));
    List1->setAccessibleName(List1->toolTip());
    for (const auto& [item, order] : SortItems)
        List1->addItem(tr(item));
    (new QVBoxLayout(Frame2))->addWidget(List1);
    Frame2->setMaximumWidth(220);
    Frame2->hide();

    SelectBtn = button(this, "SelectBtn", tr("&Select"), tr("Select File in Group to Display"));
    FindBtn = button(this, "FindBtn", tr("&Find"), tr("Select File in Group to Display"));
    SortBtn = button(this, "SortBtn", tr("S&ort"), tr("Sort Files in Group to Display"));
    SwitchBtn = button(this, "SwitchBtn", QString(),
                       tr("Alternate between Group definition and Files in a Group"));
    HelpBtn = button(this, "HelpBtn", tr("&Help"), tr("Help with Group File Browser Window"));
    setSwitchPicture("BulbOff.Bmp");
    SelectBtn->setEnabled(false);
    SortBtn->setEnabled(false);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {SelectBtn, FindBtn, SortBtn, SwitchBtn, HelpBtn})
        buttons->addWidget(b);
    buttons->addStretch();
    auto* body = new QHBoxLayout;
    body->addWidget(Frame1, 1);
    body->addWidget(Frame2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);

    connect(SwitchBtn, &QPushButton::clicked, this, &GrpBrow1::SwitchBtn_Click);
    connect(SelectBtn, &QPushButton::clicked, this, &GrpBrow1::SelectBtn_Click);
    connect(SortBtn, &QPushButton::clicked, this, [this] {
        mSortPanel = !mSortPanel;
        Frame2->setVisible(mSortPanel);
    });
    connect(FindBtn, &QPushButton::clicked, this,
            [] { WindowRegistry::show(u"GrpFind1"_s, WindowRegistry::Modal); });
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(List1, &QListWidget::itemClicked, this, &GrpBrow1::List1_Click);

    openData(0, u"GroupTable"_s);
    Data1[0]->setIndex(u"GroupName"_s);
    Data1[0]->MoveFirst();
    openData(1, u"FileTable"_s);
    globals().gGrpBrowOpen = true;
}

GrpBrow1::~GrpBrow1() {
    for (TableGridModel* model : mModel)
        model->setRows(nullptr); // the rows go before the models
    globals().gGrpBrowOpen = false;
}

void GrpBrow1::openData(int index, const QString& source) {
    Data1[index]->DatabaseName = PathUtil::join(globals().gAppPath, u"FileTabl"_s);
    Data1[index]->RecordSource = source;
    Data1[index]->Refresh(); // a failure leaves the grid as it was
}

void GrpBrow1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event) && mFirstActivate) {
        mFirstActivate = false;
        Form_Activate();
    }
}

void GrpBrow1::Form_Activate() {
    const Globals& g = globals();
    NamedWidgets::paintWindow(this);
    const QColor back = SettingColor::toQColor(g.gBrowserBackColor);
    const QColor fore = SettingColor::toQColor(g.gBrowserForeColor);
    for (int i = 0; i < 2; ++i) {
        FlexGrid* grid = MSFlexGrid1[i];
        grid->applyStyle(back, fore, g.gBoldType, g.gBrowserTextStyle, g.gGridLines);
        QPalette fixed = grid->horizontalHeader()->palette();
        fixed.setColor(QPalette::Button, fore);
        fixed.setColor(QPalette::Window, fore);
        fixed.setColor(QPalette::ButtonText, back);
        fixed.setColor(QPalette::WindowText, back);
        grid->horizontalHeader()->setPalette(fixed);
    }
    for (int c = 0; c < int(std::size(GroupColumns)); ++c)
        MSFlexGrid1[0]->setColWidth(c, GroupColumns[c].width);
    for (int c = 0; c < int(std::size(FileColumns)); ++c)
        MSFlexGrid1[1]->setColWidth(c, FileColumns[c].width);
    SetUpHeaders();
    for (FlexGrid* grid : MSFlexGrid1)
        grid->setRow(1);
    mSortText = u"[ID]"_s;
    RefreshFileGrid();
    SetRowColor(0);
    SetRowColor(1);
}

void GrpBrow1::SetUpHeaders() {
    if (!ShowFiles)
        return;
    MSFlexGrid1[1]->setRow(1);
    if (!InSort)
        SetRowColor(1);
}

void GrpBrow1::SetRowColor(int grid) {
    FlexGrid* flex = MSFlexGrid1[grid];
    if (flex->Rows() < 2)
        return;
    const Globals& g = globals();
    // The row highlighted before goes back to the plain colours as the new one takes them.
    mModel[grid]->setRowColors(flex->Row() - 1, grid == 0 ? 2 : 11,
                               SettingColor::toQColor(g.gBrowserForeColor),
                               SettingColor::toQColor(g.gBrowserBackColor));
    mLastRow[grid] = flex->Row();
    (grid == 0 ? GroupRowDone : FileRowDone) = true;
}

void GrpBrow1::RefreshFileGrid() {
    const int row = MSFlexGrid1[0]->Row();
    if (row < 1)
        return;
    const QString group = mModel[0]->cellText(row - 1, 1);
    Data1[1]->RecordSource =
        u"SELECT * FROM [FileTable] WHERE [GroupName] = '"_s + group + u"' ORDER BY "_s + mSortText;
    if (Data1[1]->Refresh())
        return; // an apostrophe in the name: the grid stays as it is
    Data1[1]->MoveFirst();
}

void GrpBrow1::MSFlexGrid1_Click(int grid) {
    FlexGrid* flex = MSFlexGrid1[grid];
    if (flex->Row() < 1)
        return;
    if (grid == 1) {
        Data1[1]->setCaption(tr("Record ID: ") + mModel[1]->cellText(flex->Row() - 1, 0));
        SetRowColor(1);
        FileRowDone = false;
        return;
    }
    Data1[0]->Seek(u"="_s, mModel[0]->cellText(flex->Row() - 1, 1));
    FileRowDone = true;
    List1->setCurrentRow(0);
    mSortText = u"[ID]"_s;
    RefreshFileGrid();
}

void GrpBrow1::Data1_Reposition(int index) {
    Recordset* rows = Data1[index]->recordset();
    if (rows && rows->hasCurrent()) {
        Data1[index]->setCaption(tr("Rec. ID: ") + rows->value(0).toString());
        if (index == 0) {
            mLastRow[1] = 1;
            FileRowDone = true;
            RefreshFileGrid();
        }
    } else {
        Data1[index]->setCaption(tr("End of File Reached"));
    }
    if ((index == 0 && !GroupRowDone) || (index == 1 && ShowFiles && !FileRowDone)) {
        SetRowColor(index);
        FlexGrid* flex = MSFlexGrid1[index];
        if (!flex->RowIsVisible(flex->Row()))
            flex->setTopRow(flex->Row());
    }
}

void GrpBrow1::Data1_Validate(int index, int action) {
    FlexGrid* grid = MSFlexGrid1[index];
    const int row = grid->Row();
    switch (action) {
    case DataNavigator::MoveFirst:
        grid->setRow(1);
        break;
    case DataNavigator::MovePrevious:
        if (row > 1)
            grid->setRow(row - 1);
        break;
    case DataNavigator::MoveNext:
        if (row + 1 < grid->Rows())
            grid->setRow(row + 1);
        break;
    case DataNavigator::MoveLast:
        grid->setRow(grid->Rows() - 1);
        break;
    }
    if (index == 0 && !mFirstActivate)
        GroupRowDone = false;
    if (index == 1 && ShowFiles && !InSort)
        FileRowDone = false;
}

void GrpBrow1::SwitchBtn_Click() {
    ShowFiles = !ShowFiles;
    MSFlexGrid1[0]->setVisible(!ShowFiles);
    Data1[0]->setVisible(!ShowFiles);
    MSFlexGrid1[1]->setVisible(ShowFiles);
    Data1[1]->setVisible(ShowFiles);
    setSwitchPicture(ShowFiles ? "BulbOn.Bmp" : "BulbOff.Bmp");
    SelectBtn->setEnabled(ShowFiles);
    SortBtn->setEnabled(ShowFiles);
    if (!ShowFiles) {
        Frame2->hide();
        mSortPanel = false;
    }
    SetUpHeaders();
}

void GrpBrow1::List1_Click() {
    InSort = true;
    if (const char* order = SortItems[std::max(0, List1->currentRow())].second)
        mSortText = QString::fromLatin1(order);
    RefreshFileGrid();
    SetUpHeaders();
    InSort = false;
    SetRowColor(1);
}

void GrpBrow1::SelectBtn_Click() {
    const int row = MSFlexGrid1[1]->Row();
    if (!ShowFiles || row < 1)
        return;
    const QString folder = mModel[1]->cellText(row - 1, 3);
    const QString name = mModel[1]->cellText(row - 1, 2);
    if (Quorvane1* main = Quorvane1::instance())
        main->DisplayImage(PathUtil::join(folder, name));
}

void GrpBrow1::showFoundFile(int column) {
    for (int i = 0; i < 2; ++i) {
        Data1[i]->setVisible(i == 1);
        MSFlexGrid1[i]->setVisible(i == 1);
    }
    ShowFiles = true;
    setSwitchPicture("BulbOn.Bmp");
    SelectBtn->setEnabled(true);
    SortBtn->setEnabled(true);
    SetUpHeaders();
    // The grid shows the cursor in its own order: the sought record stands at its place there.
    Recordset* rows = Data1[1]->recordset();
    if (!rows || !rows->hasCurrent())
        return;
    const int row = int(rows->AbsolutePosition()) + 1;
    if (mModel[1]->cellText(row - 1, column).trimmed() ==
        rows->value(column).toString().trimmed()) {
        MSFlexGrid1[1]->setRow(row);
        SetRowColor(1);
    }
}

void GrpBrow1::setSwitchPicture(const char* bitmap) {
    SwitchBtn->setIcon(
        QIcon(PathUtil::join(globals().gAppPath, u"BMPS/"_s + QString::fromLatin1(bitmap))));
}
