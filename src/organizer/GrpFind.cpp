#include "organizer/GrpFind.h"

#include "organizer/GrpBrow1.h"
#include "organizer/GrpFlem1.h"
#include "organizer/OrganizerDataControl.h"
#include "platform/Activation.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WindowRegistry.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

GrpFind::GrpFind(const QString& name, const QString& title, QWidget* parent) : QDialog(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    const QString texts[] = {tr("Search by File Name:"), tr("- OR -"), tr("Search by Keyword:")};
    for (int i = 0; i < 3; ++i)
        Label1[i] = NamedWidgets::label(this, u"Label1_%1"_s.arg(i), texts[i]);
    Text1[0] = NamedWidgets::entry(this, "Text1_0", tr("Search for File by File Name"));
    Text1[1] = NamedWidgets::entry(this, "Text1_1",
                                   tr("Search for File in Database by File Search Key Word"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(Label1[0], 0, 0);
    grid->addWidget(Text1[0], 0, 1);
    grid->addWidget(Label1[1], 1, 0, 1, 2, Qt::AlignCenter);
    grid->addWidget(Label1[2], 2, 0);
    grid->addWidget(Text1[1], 2, 1);
    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help"));
    buttons.row->addWidget(HelpBtn);
    grid->addLayout(buttons.row, 3, 0, 1, 2);
    connect(OKBtn, &QPushButton::clicked, this, &GrpFind::OKBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
}

void GrpFind::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (Activation::becameActive(this, event) && mFirstActivate) {
        mFirstActivate = false;
        NamedWidgets::paintWindow(this);
    }
}

bool GrpFind::SeekFileRow(const QString& selector) {
    OrganizerDataControl* data = target();
    if (!data)
        return false;
    data->DatabaseName = PathUtil::join(globals().gAppPath, u"FileTabl"_s);
    data->RecordSource = u"FileTable"_s;
    AppError failed = data->Refresh();
    const bool byName = selector == u"1"_s;
    if (!failed)
        failed = data->setIndex(byName ? u"FileName"_s : u"FileKeyword"_s);
    if (!failed)
        failed = data->Seek(u">="_s, Text1[byName ? 0 : 1]->text());
    if (failed) {
        Messages::instance().inform(tr("Error - ") + QString::number(failed.number()) + u" - "_s +
                                        failed.description(),
                                    this);
        return false;
    }
    return true;
}

void GrpFind::OKBtn_Click() {
    const bool byName = !Text1[0]->text().trimmed().isEmpty();
    const bool byWord = !Text1[1]->text().trimmed().isEmpty();
    if (!byName && !byWord) {
        Messages::instance().inform(tr("You must enter something in File Name or Search Key word "
                                       "to find nearest match in the File."),
                                    this);
        return;
    }
    beforeSeeks();
    bool found = false;
    if (byName)
        found = SeekFileRow(u"1"_s);
    if (byWord)
        found = SeekFileRow(u"2"_s);
    afterSeeks(found);
}

GrpFind2::GrpFind2(QWidget* parent)
    : GrpFind(WindowName(), tr("Find Files in File List"), parent) {}

OrganizerDataControl* GrpFind2::target() const {
    auto* editor = qobject_cast<GrpFlem1*>(WindowRegistry::find(GrpFlem1::WindowName()));
    return editor ? editor->Data1 : nullptr;
}

GrpFind1::GrpFind1(QWidget* parent)
    : GrpFind(WindowName(), tr("Find File in Group Table"), parent) {}

namespace {

GrpBrow1* browser() {
    return qobject_cast<GrpBrow1*>(WindowRegistry::find(GrpBrow1::WindowName()));
}

} // namespace

OrganizerDataControl* GrpFind1::target() const {
    GrpBrow1* groups = browser();
    return groups ? groups->Data1[1] : nullptr;
}

void GrpFind1::beforeSeeks() {
    if (GrpBrow1* groups = browser())
        groups->InSort = true;
}

void GrpFind1::afterSeeks(bool found) {
    GrpBrow1* groups = browser();
    if (!groups)
        return;
    if (found) {
        groups->showFoundFile(Text1[1]->text().trimmed().isEmpty() ? 2 : 5);
        close();
    }
    groups->InSort = false;
}
