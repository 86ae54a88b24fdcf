#include "shell/Rename1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "shell/FileOperations.h"
#include "shell/FileTypes.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

Rename1::Rename1(QWidget* parent) : QDialog(parent) {
    setObjectName(u"Rename1"_s);
    setWindowTitle(tr("Rename File"));
    for (int i = 0; i < 2; ++i) {
        Text1[i] = new QLineEdit(this);
        Text1[i]->setObjectName(u"Text1(%1)"_s.arg(i));
    }
    Text1[0]->setReadOnly(true);
    Text1[0]->setAccessibleName(tr("File"));
    Text1[1]->setToolTip(tr("New Name of the File - No need to enter the File Extension"));
    Text1[1]->setAccessibleName(Text1[1]->toolTip());
    Label1 = new QLabel(this);
    Label1->setObjectName(u"Label1"_s);
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    auto* form = new QFormLayout;
    form->addRow(tr("File:"), Text1[0]);
    form->addRow(QString(), Label1);
    form->addRow(tr("New Name:"), Text1[1]);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &Rename1::OKBtn_Click);

    const QString file = globals().gOpenFile;
    Text1[0]->setText(file);
    Label1->setText(file);
    const QString name = PathUtil::nameOf(file);
    const qsizetype dot = name.lastIndexOf(u'.');
    Text1[1]->setText(dot >= 0 ? name.left(dot) : name);
}

void Rename1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QLineEdit* box : Text1)
        WidgetPaint::paint(box, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
    Text1[1]->setFocus();
    Text1[1]->selectAll();
}

void Rename1::OKBtn_Click() {
    Messages& messages = Messages::instance();
    const QString newName = Text1[1]->text();
    if (newName.trimmed().isEmpty()) {
        messages.inform(tr("You must Enter a New Name for the File"), this);
        Text1[1]->setFocus();
        return;
    }
    const QString file = globals().gOpenFile;
    const QString folder = PathUtil::folderOf(file);
    const QString extension = FileTypes::GetFileExt(file);
    if (!QFileInfo::exists(file)) {
        messages.inform(tr("File: ") + file + tr(" not Found - Use Save as to Recreate File"),
                        this);
        return;
    }
    if (!FileOperations::isFamilyExtension(extension)) {
        // An ordinary file is copied to its new name, then the old one goes.
        const QString target =
            PathUtil::join(folder, newName + u'.' + PathUtil::nameOf(file).section(u'.', -1));
        if (FileOperations::copyFile(file, target, true)) {
            messages.inform(tr("File already exists - Cannot use this new File Name"), this);
            return;
        }
        if (!QFile::remove(file)) {
            QFile::remove(target);
            messages.inform(tr("File: ") + file + tr(" is Open - Close the window with this File"),
                            this);
            return;
        }
    } else {
        if (auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()))) {
            if (ChildFrm1* child = frame->activeChild(); child && child->windowTitle() == file)
                child->close();
        }
        const QStringList members = FileOperations::family(file);
        const AppError error = FileOperations::moveAll(
            members,
            FileOperations::familyTargets(members, PathUtil::join(folder, newName + u'.')));
        if (error) {
            messages.inform(error.number() == AppError::PathFileAccess
                                ? tr("File already exists - Cannot use this new File Name")
                                : tr("File: ") + file +
                                      tr(" is Open - Close the window with this File"),
                            this);
            return;
        }
    }
    if (Quorvane1* main = Quorvane1::instance())
        main->shellList()->refresh();
    messages.inform(tr("File Rename Successful"), this);
    accept();
}
