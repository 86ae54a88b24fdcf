#include "platform/DialogButtons.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>

DialogButtons DialogButtons::okCancel(QDialog* dialog) {
    DialogButtons buttons;
    buttons.ok = new QPushButton(QDialog::tr("OK"), dialog);
    buttons.ok->setObjectName(QStringLiteral("OKBtn"));
    buttons.ok->setDefault(true);
    buttons.cancel = new QPushButton(QDialog::tr("Cancel"), dialog);
    buttons.cancel->setObjectName(QStringLiteral("CancelBtn"));
    buttons.row = new QHBoxLayout;
    buttons.row->addStretch();
    buttons.row->addWidget(buttons.ok);
    buttons.row->addWidget(buttons.cancel);
    QObject::connect(buttons.cancel, &QPushButton::clicked, dialog, &QDialog::reject);
    return buttons;
}
