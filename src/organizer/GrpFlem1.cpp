#include "organizer/GrpFlem1.h"

#include "organizer/OrganizerDataControl.h"
#include "organizer/OrganizerDates.h"
#include "organizer/OrganizerWidgets.h"
#include "platform/Activation.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/ImageCodec.h"
#include "platform/imaging/PictureView.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using NamedWidgets::button;

namespace {

QComboBox* comboBox(QWidget* parent, const char* name, const QString& tip) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setToolTip(tip);
    combo->setAccessibleName(tip);
    return combo;
}

// The place of the combo box's text in its list; -1 for a text typed by hand.
int listIndex(const QComboBox* combo) {
    return combo->findText(combo->currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

} // namespace

GrpFlem1::GrpFlem1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Add and Remove Files in the Group File Organizer"));

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame2 = new QGroupBox(this);
    Frame2->setObjectName(u"Frame2"_s);
    const QString texts[] = {tr("Enter File Name:"),
                             tr("Enter File Path:"),
                             tr("Enter File Description:"),
                             tr("Enter File Search Keyword:"),
                             tr("Enter Comment or Memo:"),
                             tr("Date and Time Created:"),
                             tr("Date/Time"),
                             tr("Date Created"),
                             tr("Time Created")};
    for (int i = 0; i < 9; ++i)
        Label1[i] = NamedWidgets::label(Frame1, u"Label1_%1"_s.arg(i), texts[i]);
    CMBGRP = comboBox(Frame1, "CMBGRP", tr("Group to which file belongs"));
    CMBTYPE = comboBox(Frame1, "CMBTYPE", tr("Type of File"));
    CMBTYPE->addItems(
        {tr("Database"), tr("Document"), tr("Multimedia"), tr("Picture"), tr("System")});
    FldFileName = NamedWidgets::entry(Frame1, "FldFileName", tr("Name of File in Group"));
    FldFilePath =
        NamedWidgets::entry(Frame1, "FldFilePath", tr("Folder location or path of file in group"));
    FldFileDesc = NamedWidgets::entry(Frame1, "FldFileDesc", tr("Description of file in group"));
    FldFileKeywrd = NamedWidgets::entry(Frame1, "FldFileKeywrd",
                                        tr("Search word used to locate file in database"));
    FldComments = new QPlainTextEdit(Frame1);
    FldComments->setObjectName(u"FldComments"_s);
    FldComments->setToolTip(tr("Enter Comment or Memo"));
    FldComments->setAccessibleName(FldComments->toolTip());
    FldComments->setTabChangesFocus(true);
    Image1 = new PictureView(Frame1);
    Image1->setObjectName(u"Image1"_s);
    Image1->setAccessibleName(tr("Preview"));
    Image1->setMinimumSize(160, 120);
    Image1->hide();
    Data1 = new OrganizerDataControl(Frame1);
    Data1->setObjectName(u"Data1"_s);
    Data1->setAccessibleName(tr("Files"));

    auto* fields = new QGridLayout(Frame1);
    fields->addWidget(CMBGRP, 0, 0, 1, 2);
    fields->addWidget(CMBTYPE, 0, 2);
    QWidget* entries[] = {FldFileName, FldFilePath, FldFileDesc, FldFileKeywrd};
    for (int i = 0; i < 4; ++i) {
        fields->addWidget(Label1[i], i + 1, 0);
        fields->addWidget(entries[i], i + 1, 1, 1, 2);
    }
    fields->addWidget(Label1[4], 5, 0, Qt::AlignTop);
    fields->addWidget(FldComments, 5, 1, 1, 2);
    auto* dates = new QHBoxLayout;
    for (int i : {5, 6, 7, 8})
        dates->addWidget(Label1[i]);
    fields->addLayout(dates, 6, 0, 1, 3);
    fields->addWidget(Data1, 7, 0, 1, 3);
    fields->addWidget(Image1, 0, 3, 8, 1);
    fields->setColumnStretch(1, 1);
    fields->setColumnStretch(3, 1);

    SaveBtn = button(Frame2, "SaveBtn", tr("&Save"),
                     tr("Save the File information to the Selected Group"));
    CnclBtn = button(Frame2, "CnclBtn", tr("&Cancel"),
                     tr("Refresh or Cancel the File information from the File"));
    DeleteBtn = button(Frame2, "DeleteBtn", tr("&Delete"),
                       tr("Delete the File Information from the Group"));
    SelectBtn = button(Frame2, "SelectBtn", QString(),
                       tr("Add Highlighted File in Main Window to Group in this Window"));
    SortBtn = button(Frame2, "SortBtn", QString(), tr("Sort File by Group or File Name"));
    FindBtn = button(Frame2, "FindBtn", tr("&Find"),
                     tr("Search for File Name or File using Search Word"));
    ExitBtn =
        button(Frame2, "ExitBtn", tr("E&xit"), tr("Close the Create and Change File Group Window"));
    HelpBtn = button(Frame2, "HelpBtn", tr("&Help"),
                     tr("Help with entering the File information into the group"));
    setButtonPicture(SelectBtn, "Check.Bmp", SelectBtn->toolTip());
    setButtonPicture(SortBtn, "BulbOff.Bmp", SortBtn->toolTip());
    auto* buttons = new QHBoxLayout(Frame2);
    for (QPushButton* b :
         {SaveBtn, CnclBtn, DeleteBtn, SelectBtn, SortBtn, FindBtn, ExitBtn, HelpBtn})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame1, 1);
    layout->addWidget(Frame2);

    connect(SaveBtn, &QPushButton::clicked, this, &GrpFlem1::SaveBtn_Click);
    connect(CnclBtn, &QPushButton::clicked, this, &GrpFlem1::CnclBtn_Click);
    connect(DeleteBtn, &QPushButton::clicked, this, &GrpFlem1::DeleteBtn_Click);
    connect(SelectBtn, &QPushButton::clicked, this, &GrpFlem1::SelectBtn_Click);
    connect(SortBtn, &QPushButton::clicked, this, &GrpFlem1::SortBtn_Click);
    connect(FindBtn, &QPushButton::clicked, this,
            [] { WindowRegistry::show(u"GrpFind2"_s, WindowRegistry::Modal); });
    connect(ExitBtn, &QPushButton::clicked, this, &QWidget::close);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(Data1, &OrganizerDataControl::Reposition, this, &GrpFlem1::Data1_Reposition);
    connect(Data1, &OrganizerDataControl::Validate, this, &GrpFlem1::Data1_Validate);
    connect(Data1, &OrganizerDataControl::Error, this, &GrpFlem1::Data1_Error);

    const std::pair<QWidget*, const char*> bound[] = {
        {CMBGRP, "GroupName"},          {FldFileName, "FileName"},
        {FldFilePath, "FileLocation"},  {FldFileDesc, "FileDescription"},
        {FldFileKeywrd, "FileKeyword"}, {CMBTYPE, "FileType"},
        {FldComments, "Comments"},      {Label1[8], "Time"},
        {Label1[6], "DateDisp"}};
    for (const auto& [control, field] : bound)
        Data1->bind(control, QString::fromLatin1(field));
    Data1->Connect = u"Access"_s;
    Data1->DatabaseName = OrganizerWidgets::databasePath();
    Data1->RecordSource = u"FileTable"_s;
    globals().gGrpFlemOpen = true;
}

GrpFlem1::~GrpFlem1() {
    globals().gGrpFlemOpen = false;
}

void GrpFlem1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event) && mFirstActivate) {
        mFirstActivate = false;
        Form_Activate();
    }
}

void GrpFlem1::Form_Activate() {
    NamedWidgets::paintWindow(this);
    if (!fillGroups()) {
        Messages::instance().inform(
            tr("No Groups to contain Files - Create a new Group using the Create and Maintain "
               "Groups Organize Menu Option"),
            this);
        close();
        return;
    }
    if (const AppError failed = Data1->Refresh()) {
        Data1_Error(failed);
        return;
    }
    Data1->setIndex(u"FileName"_s);
    Data1->MoveFirst();
    AddFromMainList = true;
    if (Data1->recordset()->RecordCount() == 0) {
        AddFiletoGrp();
    } else {
        mEntryMode = u"E"_s;
        Data1->Edit();
        showRow();
    }
    FldFileDesc->setFocus();
}

bool GrpFlem1::fillGroups() {
    OrganizerDb::Opened db = OrganizerDb::open(OrganizerWidgets::databasePath());
    if (db.error)
        return false;
    Recordset::Opened groups = Recordset::open(db.db, u"GroupTable"_s, Recordset::TableType);
    if (groups.error || groups.recordset->MoveFirst())
        return false;
    Recordset& rows = *groups.recordset;
    CMBGRP->clear();
    if (!rows.isEOF())
        CMBGRP->setEditText(rows.text(u"GroupName"_s));
    for (; !rows.isEOF(); rows.MoveNext())
        CMBGRP->addItem(rows.text(u"GroupName"_s));
    return true;
}

void GrpFlem1::AddFiletoGrp() {
    mEntryMode = u"A"_s;
    Data1->AddNew();
    AddNewFileFields();
}

void GrpFlem1::AddNewFileFields() {
    const QString file = globals().gOpenFile;
    const QString folder = PathUtil::folderOf(file);
    const QString name = PathUtil::nameOf(file);
    CMBTYPE->setEditText(FileTypes::GetFileKindName(name));
    CMBGRP->setCurrentIndex(mRememberedGroup);
    FldFileName->setText(name);
    FldFilePath->setText(folder);
    FldFileDesc->setText(tr("Description of ") + name);
    FldFileKeywrd->setText(PathUtil::nameOf(folder));
    Label1[7]->clear();
    Label1[8]->clear();
}

void GrpFlem1::AddFileFromMainList() {
    const Globals& g = globals();
    Image1->hide();
    const QString ext = FileTypes::GetFileExt(g.gOpenFile);
    if (FileTypes::indexOf(g.gFileExtTable, ext) < 39 && loadPreview(g.gOpenFile))
        Image1->show();
    AddFiletoGrp();
    activateWindow();
    raise();
}

bool GrpFlem1::loadPreview(const QString& path) {
    const ImageCodec::Picture picture = ImageCodec::decode(path);
    if (picture.error)
        return false;
    Image1->setImage(picture.image);
    Image1->setPaintSizeMode(PictureView::Stretch);
    return true;
}

void GrpFlem1::showRow() {
    Recordset* rows = Data1->recordset();
    if (!rows)
        return;
    Image1->hide();
    if (rows->value(6).toString() == u"Picture"_s) {
        // A file that is gone leaves the picture that was there.
        loadPreview(PathUtil::join(rows->value(3).toString(), rows->value(2).toString()));
        Image1->show();
    }
    showDate();
}

void GrpFlem1::showDate() {
    const QString date = Data1->recordset() ? Data1->recordset()->value(8).toString() : QString();
    Label1[7]->setText(date.mid(4, 2) + u'/' + date.mid(6, 2) + u'/' + date.left(4));
}

void GrpFlem1::SaveBtn_Click() {
    const bool adding = mEntryMode == u"A"_s;
    if (mEntryMode == u"E"_s)
        Data1->Edit();
    OrganizerDates::SetDateStamps();
    Globals& g = globals();
    Recordset* rows = Data1->recordset();
    const OrganizerDates::FileDate stamp = OrganizerDates::fileDateText(
        PathUtil::join(FldFilePath->text().trimmed(), FldFileName->text()));
    AppError failed = rows ? stamp.error : OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    if (!failed) {
        const auto [date, time] = OrganizerDates::splitAtFirstBlank(stamp.text);
        g.gStampDate = OrganizerDates::ToSortableDate(date);
        g.gStampTime = time;
        rows->setValue(8, g.gStampDate);
        rows->setValue(9, g.gStampTime);
        Label1[6]->setText(g.gStampDisplay);
        if (adding)
            rows->setValue(10, g.gStampFull);
        const QString name = FldFileName->text();
        failed = Data1->Update();
        if (!failed && adding)
            Data1->Seek(u"="_s, name); // misses while the order is by group
    }
    mEntryMode = u"E"_s;
    if (failed.number() == OrganizerDb::DuplicateKey) {
        Messages::instance().inform(tr("Web Site List already exisits in Database"), this);
        return;
    }
    if (failed) {
        Messages::instance().inform(failed.description(), this);
        return;
    }
    if (const int group = listIndex(CMBGRP); group >= 0)
        mRememberedGroup = group;
    showDate();
}

void GrpFlem1::CnclBtn_Click() {
    if (const AppError failed = Data1->Refresh()) {
        Data1_Error(failed);
        return;
    }
    Data1->setIndex(u"GroupName"_s);
    if (Data1->recordset()->RecordCount() == 0) {
        mEntryMode = u"A"_s;
        Data1->AddNew();
    } else {
        mEntryMode = u"E"_s;
        Data1->Edit();
    }
}

void GrpFlem1::DeleteBtn_Click() {
    if (!Messages::instance().askYesNo(tr("Are you sure you want to Delete File - ") +
                                           FldFileName->text() + tr(" from the Database"),
                                       this))
        return;
    mEntryMode = u"D"_s;
    if (const AppError failed = Data1->Delete()) {
        Messages::instance().inform(failed.description(), this);
        return;
    }
    Data1->MoveNext();
    if (Data1->recordset()->isEOF())
        Data1->MoveLast(); // the mode stays "D" until the next move
    else
        mEntryMode = u"E"_s;
}

void GrpFlem1::SelectBtn_Click() {
    AddFromMainList = !AddFromMainList;
    if (AddFromMainList)
        setButtonPicture(SelectBtn, "Check.Bmp",
                         tr("Add File in Main Window File Selector to Window"));
    else
        setButtonPicture(SelectBtn, "Undo.Bmp",
                         tr("Do not Add File in Main Window File Selector to Window"));
}

void GrpFlem1::SortBtn_Click() {
    mSorted = !mSorted;
    setButtonPicture(SortBtn, mSorted ? "BulbOn.Bmp" : "BulbOff.Bmp", SortBtn->toolTip());
    Data1->setIndex(mSorted ? u"GroupName"_s : u"FileName"_s);
    Data1->MoveFirst();
}

void GrpFlem1::setButtonPicture(QPushButton* button, const char* bitmap, const QString& tip) {
    button->setIcon(
        QIcon(PathUtil::join(globals().gAppPath, u"BMPS/"_s + QString::fromLatin1(bitmap))));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
}

void GrpFlem1::Data1_Reposition() {
    if (mEntryMode != u"E"_s || !Data1->recordset())
        return;
    Recordset& rows = *Data1->recordset();
    if (rows.RecordCount() == 0)
        return;
    if (!rows.isEOF() && !rows.isBOF()) {
        Data1->setCaption(OrganizerWidgets::percentText(rows.PercentPosition()) + u" %"_s);
        showRow();
    } else if (rows.isEOF()) {
        Data1->MoveLast();
        Data1->setCaption(tr("End"));
    } else {
        Data1->MoveFirst();
        Data1->setCaption(tr("Begin"));
    }
}

void GrpFlem1::Data1_Validate(int action) {
    if (action >= DataNavigator::MoveFirst && action <= DataNavigator::MoveLast)
        mEntryMode = u"E"_s;
    if (mEntryMode == u"E"_s)
        Data1->Edit();
}

void GrpFlem1::Data1_Error(const AppError& error) {
    Messages::instance().inform(tr("Data error event hit err: ") + error.description() + u'-',
                                this);
}
