#include "organizer/GrpRepair1.h"

#include "organizer/OrganizerMaintenance.h"
#include "organizer/OrganizerWidgets.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "shell/Globals.h"
#include "shell/NamedWidgets.h"

#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

GrpRepair1::GrpRepair1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Compact or Repair Database"));
    const struct {
        QString caption, tip;
    } choices[] = {
        {tr("Compact the File Organizer Database"),
         tr("Compact the File Group Database - Permanently Remove all Deleted Records")},
        {tr("Repair the File Organizer Database"),
         tr("Repair the File Group Database - Rebuild Indexes")},
    };
    auto* layout = new QVBoxLayout(this);
    for (int i = 0; i < 2; ++i) {
        RDSELECT[i] = new QRadioButton(choices[i].caption, this);
        RDSELECT[i]->setObjectName(u"RDSELECT_%1"_s.arg(i));
        RDSELECT[i]->setToolTip(choices[i].tip);
        RDSELECT[i]->setAccessibleName(choices[i].caption);
        layout->addWidget(RDSELECT[i]);
    }
    RDSELECT[0]->setChecked(true);
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &GrpRepair1::OKBtn_Click);
    mDatabasePath = OrganizerWidgets::databasePath();
    NamedWidgets::paintWindow(this);
}

void GrpRepair1::OKBtn_Click() {
    // Nothing is said either way: a failure leaves the files as they were.
    if (RDSELECT[0]->isChecked()) {
        Messages::FileRequest request;
        request.title = tr("Enter New Database File Name as Compacted File");
        request.folder = globals().gAppPath;
        request.fileName = u"*.MDB"_s;
        request.filterPairs = u"Access Files|*.MDB"_s;
        request.defaultExtension = u"MDB"_s;
        const QString target = Messages::instance().saveFileName(request, this);
        if (!target.isEmpty())
            OrganizerMaintenance::CompactDatabase(mDatabasePath, target);
    } else {
        OrganizerMaintenance::RepairDatabase(mDatabasePath);
    }
    accept();
}
