#include "organizer/GrpBatch1.h"

#include "organizer/OrganizerBatch.h"
#include "organizer/OrganizerWidgets.h"
#include "organizer/Recordset.h"
#include "platform/Activation.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "shell/FileListModel.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

GrpBatch1::GrpBatch1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    setWindowTitle(tr("Add Files to a File Group"));
    const QString text =
        tr("Select Group Name, Run the Search, Click OK to add all Files in the Folder to the "
           "Group and advance to the Next Folder, or Find Next Button to advance without Adding "
           "to File Group.");
    Label1 = NamedWidgets::label(this, u"Label1"_s, text);
    Label1->setWordWrap(true);
    CMBGRP = new QComboBox(this);
    CMBGRP->setObjectName(u"CMBGRP"_s);
    CMBGRP->setEditable(true);
    CMBGRP->setInsertPolicy(QComboBox::NoInsert);
    CMBGRP->setToolTip(tr("Select Group to set Files when processing. (Group can be reselected "
                          "between OK clicks)"));
    CMBGRP->setAccessibleName(CMBGRP->toolTip());
    CHKSKIP = new QCheckBox(tr("Skip Adding Files and go to next Folder"), this);
    CHKSKIP->setObjectName(u"CHKSKIP"_s);
    CHKSKIP->setAccessibleName(CHKSKIP->text());
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    OKBtn->setToolTip(tr("Select Files in Folder to Add to Group"));
    CancelBtn->setToolTip(tr("Close Add Files to a File Group Selection Window"));
    OKBtn->setEnabled(false);
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help"));
    buttons.row->addWidget(HelpBtn);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1);
    layout->addWidget(CMBGRP);
    layout->addWidget(CHKSKIP);
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &GrpBatch1::OKBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });

    Globals& g = globals();
    g.gBatchSearch = false;
    g.gGrpBatchOpen = true;
}

GrpBatch1::~GrpBatch1() {
    Globals& g = globals();
    g.gBatchSearch = false;
    g.gGrpBatchOpen = false;
}

void GrpBatch1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (Activation::becameActive(this, event) && mFirstActivate) {
        mFirstActivate = false;
        Form_Activate();
    }
}

void GrpBatch1::Form_Activate() {
    NamedWidgets::paintWindow(this);
    OrganizerDb::Opened db = OrganizerDb::open(OrganizerWidgets::databasePath());
    if (!db.error) {
        Recordset::Opened groups = Recordset::open(db.db, u"GroupTable"_s, Recordset::TableType);
        if (!groups.error) {
            Recordset& rows = *groups.recordset;
            for (rows.MoveFirst(); rows.hasCurrent(); rows.MoveNext())
                CMBGRP->addItem(rows.text(u"GroupName"_s));
        }
    }
    if (CMBGRP->count() == 0)
        CMBGRP->addItem(tr("New Group"));
    CMBGRP->setCurrentIndex(0);

    Globals& g = globals();
    if (Quorvane1* main = Quorvane1::instance())
        main->FindFileRoutine();
    if (!g.gFindCancelled) {
        g.gBatchSearch = true;
        OKBtn->setEnabled(true);
    }
    g.gFindCancelled = false;
}

void GrpBatch1::OKBtn_Click() {
    const QString database = OrganizerWidgets::databasePath();
    const QString group = CMBGRP->currentText();
    if (!GroupChecked) {
        GroupChecked = true;
        OrganizerBatch::EnsureFirstGroup(database, group);
    }
    Quorvane1* main = Quorvane1::instance();
    if (!main)
        return;
    if (!CHKSKIP->isChecked()) {
        const FolderListing& listing = main->shellList()->model()->listing();
        QStringList files;
        for (int i = 0; i < listing.count(); ++i)
            if (!listing.isFolder(i))
                files.append(listing.name(i));
        // A file the store cannot take ends this folder only: the search goes on.
        OrganizerBatch::AddFolderFilesToGroup(database, group, listing.folder(), files);
    }
    main->FindNext();
}
