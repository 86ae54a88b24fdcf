#include "shell/MoveFile1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "shell/FileOperations.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MoveFile1::MoveFile1(QWidget* parent) : QDialog(parent) {
    setObjectName(u"MoveFile1"_s);
    setWindowTitle(tr("Move File"));
    m_from = new QLabel(this);
    m_from->setObjectName(u"FromLabel"_s);
    m_to = new QLabel(this);
    m_to->setObjectName(u"ToLabel"_s);
    for (QLabel* label : {m_from, m_to})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    auto* form = new QFormLayout;
    form->addRow(tr("From:"), m_from);
    form->addRow(tr("To:"), m_to);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &MoveFile1::OKBtn_Click);
}

void MoveFile1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const Globals& g = globals();
    m_from->setText(g.gMoveSource);
    m_to->setText(g.gMoveTarget);
    for (QWidget* w :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(m_from), static_cast<QWidget*>(m_to)})
        WidgetPaint::paint(w, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(OKBtn), static_cast<QWidget*>(CancelBtn)})
        WidgetPaint::paint(w, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
}

void MoveFile1::OKBtn_Click() {
    const Globals& g = globals();
    QStringList sources{g.gMoveSource};
    QStringList targets{g.gMoveTarget};
    if (FileOperations::isFamilyExtension(FileTypes::GetFileExt(g.gMoveSource))) {
        // The open table lets go of its files first.
        if (auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()))) {
            if (ChildFrm1* child = frame->activeChild())
                child->close();
        }
        sources = FileOperations::family(g.gMoveSource);
        targets = FileOperations::familyTargets(sources, g.gMoveTarget);
    }
    const AppError error = FileOperations::moveAll(sources, targets);
    if (error) {
        Messages::instance().inform(error.description(), this);
        return;
    }
    Messages::instance().inform(tr("File Moved to - ") + g.gMoveTarget, this);
    if (Quorvane1* main = Quorvane1::instance())
        main->shellList()->refresh();
    accept();
}
