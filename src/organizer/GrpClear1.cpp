#include "organizer/GrpClear1.h"

#include "organizer/OrganizerMaintenance.h"
#include "organizer/OrganizerWidgets.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "shell/NamedWidgets.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

GrpClear1::GrpClear1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Clear all Files in the Organizer"));
    auto* layout = new QVBoxLayout(this);
    QLabel* text = NamedWidgets::label(
        this, u"Label1"_s,
        tr("Click the OK Button to Remove all Files in all Groups within the File Group "
           "Organizer Database."));
    text->setWordWrap(true);
    layout->addWidget(text);
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &GrpClear1::OKBtn_Click);
    NamedWidgets::paintWindow(this);
}

void GrpClear1::OKBtn_Click() {
    Messages& messages = Messages::instance();
    if (!messages.askYesNo(tr("Are you sure you want to remove all Files in the Group File "
                              "Organizer Database?"),
                           this))
        return;
    const AppError failed = OrganizerMaintenance::ClearAllFiles(OrganizerWidgets::databasePath(),
                                                                OrganizerWidgets::workPath());
    messages.inform(failed ? tr("Files not removed from the Group File Organizer Database")
                           : tr("All Files successfully removed from the Group File Organizer "
                                "Database"),
                    this);
    accept();
}
