#include "organizer/GrpMaint.h"

#include "organizer/OrganizerDataControl.h"
#include "organizer/OrganizerDates.h"
#include "organizer/OrganizerWidgets.h"
#include "platform/Activation.h"
#include "platform/Messages.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using NamedWidgets::button;

GrpMaint::GrpMaint(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    // It blocks the other windows while it is open, the main window's closing among them.
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(tr("Add and Maintain File Groups"));

    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame2 = new QGroupBox(this);
    Frame2->setObjectName(u"Frame2"_s);
    const QString texts[] = {tr("Enter File Group Name:"), tr("Enter File Group Description:"),
                             tr("Date and Time Created:"), tr("Date/Time")};
    for (int i = 0; i < 4; ++i)
        Label1[i] = NamedWidgets::label(Frame1, u"Label1_%1"_s.arg(i), texts[i]);
    FldGroup1 = NamedWidgets::entry(Frame1, "FldGroup1",
                                    tr("Name of Group to collect files for organization"));
    FldGrpDesc1 = NamedWidgets::entry(Frame1, "FldGrpDesc1", tr("Description of File Group"));
    Data1 = new OrganizerDataControl(Frame1);
    Data1->setObjectName(u"Data1"_s);
    Data1->setAccessibleName(tr("Groups"));
    auto* fields = new QGridLayout(Frame1);
    fields->addWidget(Label1[0], 0, 0);
    fields->addWidget(FldGroup1, 0, 1);
    fields->addWidget(Label1[1], 1, 0);
    fields->addWidget(FldGrpDesc1, 1, 1);
    fields->addWidget(Label1[2], 2, 0);
    fields->addWidget(Label1[3], 2, 1);
    fields->addWidget(Data1, 3, 0, 1, 2);

    AddBtn = button(Frame2, "AddBtn", tr("&Add"), tr("Create New Group in File Group"));
    SaveBtn =
        button(Frame2, "SaveBtn", tr("&Save"), tr("Save the Group Name and Description to Disk"));
    CnclBtn =
        button(Frame2, "CnclBtn", tr("&Cancel"),
               tr("Refresh the Group Name and description from file cancelling unsaved entry"));
    DeleteBtn = button(Frame2, "DeleteBtn", tr("&Delete"),
                       tr("Delete the Group Name and description from file"));
    HelpBtn = button(Frame2, "HelpBtn", tr("&Help"), tr("Help with creating and changing Groups"));
    auto* buttons = new QHBoxLayout(Frame2);
    for (QPushButton* b : {AddBtn, SaveBtn, CnclBtn, DeleteBtn, HelpBtn})
        buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame1);
    layout->addWidget(Frame2);

    connect(AddBtn, &QPushButton::clicked, this, &GrpMaint::AddBtn_Click);
    connect(SaveBtn, &QPushButton::clicked, this, &GrpMaint::SaveBtn_Click);
    connect(CnclBtn, &QPushButton::clicked, this, &GrpMaint::CnclBtn_Click);
    connect(DeleteBtn, &QPushButton::clicked, this, &GrpMaint::DeleteBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(Data1, &OrganizerDataControl::Reposition, this, &GrpMaint::Data1_Reposition);
    connect(Data1, &OrganizerDataControl::Validate, this, &GrpMaint::Data1_Validate);
    connect(Data1, &OrganizerDataControl::Error, this, &GrpMaint::Data1_Error);

    Data1->bind(FldGroup1, u"GroupName"_s);
    Data1->bind(FldGrpDesc1, u"GroupDesc"_s);
    Data1->bind(Label1[3], u"DateDisp"_s);
    Data1->Connect = u"Access"_s;
    Data1->DatabaseName = OrganizerWidgets::databasePath();
    Data1->RecordSource = u"GroupTable"_s;
    if (const AppError failed = Data1->Refresh())
        Data1_Error(failed);
    globals().gGrpMaintOpen = true;
}

GrpMaint::~GrpMaint() {
    globals().gGrpMaintOpen = false;
}

void GrpMaint::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event) && mFirstActivate) {
        mFirstActivate = false;
        Form_Activate();
    }
}

void GrpMaint::Form_Activate() {
    NamedWidgets::paintWindow(this);
    Data1->setIndex(u"GroupName"_s);
    Data1->MoveFirst();
    if (Data1->recordset() && Data1->recordset()->RecordCount() == 0) {
        Data1->AddNew();
        mEntryMode = u"A"_s;
        FldGroup1->setText(tr("New Group"));
        FldGrpDesc1->setText(tr("New Group Description"));
    } else {
        mEntryMode = u"E"_s;
        Data1->Edit();
    }
}

void GrpMaint::AddBtn_Click() {
    const AppError failed = Data1->AddNew();
    FldGroup1->setFocus();
    mEntryMode = u"A"_s;
    if (failed.number() == OrganizerDb::NoCurrentRecord)
        Data1->CancelUpdate();
}

void GrpMaint::SaveBtn_Click() {
    const bool adding = mEntryMode == u"A"_s;
    if (!adding)
        Data1->Edit();
    OrganizerDates::SetDateStamps();
    const Globals& g = globals();
    Recordset* rows = Data1->recordset();
    AppError failed = rows ? AppError() : OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    if (!failed) {
        rows->setValue(3, g.gStampDate);
        rows->setValue(4, g.gStampTime);
        Label1[3]->setText(g.gStampDisplay);
        if (adding)
            rows->setValue(5, g.gStampFull);
        failed = Data1->Update();
    }
    mEntryMode = u"E"_s;
    if (failed.number() == OrganizerDb::DuplicateKey) {
        FldGroup1->setFocus();
        Messages::instance().inform(tr("Web Site List already exisits in Database"), this);
    } else if (failed) {
        Messages::instance().inform(failed.description(), this);
    } else if (adding) {
        Data1->MoveLast();
    }
}

void GrpMaint::CnclBtn_Click() {
    if (Data1->Refresh())
        return;
    Data1->setIndex(u"GroupName"_s);
    if (Data1->recordset()->RecordCount() == 0) {
        mEntryMode = u"A"_s;
        Data1->AddNew();
    } else {
        mEntryMode = u"E"_s;
        Data1->Edit();
    }
}

void GrpMaint::DeleteBtn_Click() {
    const QString name = FldGroup1->text();
    Messages& messages = Messages::instance();
    if (CheckDetail(name)) {
        messages.inform(tr("You cannot Delete Group - ") + name +
                            tr(" - Delete the Files below in the Group"),
                        this);
        return;
    }
    if (!messages.askYesNo(
            tr("Are you sure you want to Delete Group - ") + name + tr(" from the Database"), this))
        return;
    if (Data1->Delete())
        return;
    messages.inform(tr("Group - ") + name + tr(" - Deleted"), this);
    CnclBtn_Click();
}

bool GrpMaint::CheckDetail(const QString&) {
    if (!Data1->recordset())
        return true;
    const QString group = Data1->recordset()->value(1).toString();
    OrganizerDb::Opened db = OrganizerDb::open(OrganizerWidgets::databasePath());
    if (db.error)
        return true;
    Recordset::Opened files =
        Recordset::open(db.db, u"SELECT * FROM [FileTable] WHERE [GroupName] = '"_s + group +
                                   u"' ORDER BY [GroupName]"_s);
    if (files.error)
        return true; // a name with an apostrophe among them
    if (const AppError failed = files.recordset->MoveFirst())
        return failed.number() != OrganizerDb::NoCurrentRecord;
    return files.recordset->isEOF() || files.recordset->RecordCount() > 0;
}

void GrpMaint::Data1_Reposition() {
    if (mEntryMode != u"E"_s || !Data1->recordset())
        return;
    Recordset& rows = *Data1->recordset();
    if (rows.RecordCount() == 0) {
        Data1->setCaption(tr("End of File")); // nothing to stand on again
    } else if (!rows.isEOF() && !rows.isBOF()) {
        Data1->setCaption(tr("Record %Position: ") +
                          OrganizerWidgets::percentText(rows.PercentPosition()) + u" %"_s);
    } else if (rows.isEOF()) {
        Data1->MoveLast();
        Data1->setCaption(tr("End of File"));
    } else {
        Data1->MoveFirst();
        Data1->setCaption(tr("Beginning of File"));
    }
}

void GrpMaint::Data1_Validate(int) {
    if (mEntryMode == u"E"_s)
        Data1->Edit();
}

void GrpMaint::Data1_Error(const AppError& error) {
    Messages::instance().inform(tr("Data error event hit err: ") + error.description() + u'-',
                                this);
}
