#include "help/About1.h"

#include "help/SystemInfoTool.h"
#include "platform/Activation.h"
#include "platform/Messages.h"
#include "platform/WidgetPaint.h"
#include "shell/Globals.h"
#include "shell/NamedWidgets.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QSysInfo>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

#ifndef QUORVANE_VERSION
#define QUORVANE_VERSION "2.5"
#endif

About1::About1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("About Quorvane"));

    Image1 = new QLabel(this);
    Image1->setObjectName(u"Image1"_s);
    const QIcon icon = QApplication::windowIcon().isNull()
                           ? style()->standardIcon(QStyle::SP_MessageBoxInformation)
                           : QApplication::windowIcon();
    Image1->setPixmap(icon.pixmap(48, 48));
    Image1->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    const QString texts[5] = {
        tr("Quorvane"),
        tr("Version %1").arg(QStringLiteral(QUORVANE_VERSION)),
        tr("Quorvane is a disk file utility for the desktop. It finds the files on your disks and "
           "shows them: pictures, which you can also turn, resize, adjust and stamp with text "
           "and shapes; text files; and the tables of desktop databases and spreadsheets. It "
           "plays sounds and videos, prints pictures, texts, table listings and reports of where "
           "your files are, sends files by e-mail, and keeps your favourite files in named "
           "groups, so that what you use often is always a click away."),
        tr("Quorvane keeps its settings, its organizer database and its help in the folder it "
           "was started from: %1")
            .arg(globals().gAppPath),
        tr("Built with Qt %1, running on Qt %2 on %3.")
            .arg(QStringLiteral(QT_VERSION_STR), QString::fromLatin1(qVersion()),
                 QSysInfo::prettyProductName()),
    };
    auto* text = new QVBoxLayout;
    for (int i = 0; i < 5; ++i) {
        Label1[size_t(i)] = NamedWidgets::label(this, u"Label1(%1)"_s.arg(i), texts[i]);
        Label1[size_t(i)]->setWordWrap(true);
        Label1[size_t(i)]->setTextInteractionFlags(Qt::TextSelectableByMouse);
        text->addWidget(Label1[size_t(i)]);
    }
    QFont title = Label1[0]->font();
    title.setPointSizeF(title.pointSizeF() * 1.6);
    title.setBold(true);
    Label1[0]->setFont(title);
    text->addStretch(1);

    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Close the Window"));
    OKBtn->setDefault(true);
    SysBtn = NamedWidgets::button(this, "SysBtn", tr("&System Info..."),
                                  tr("View Windows System Information"));
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(OKBtn);
    buttons->addWidget(SysBtn);
    buttons->addStretch(1);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(Image1);
    layout->addLayout(text, 1);
    layout->addLayout(buttons);
    resize(580, 260);

    connect(OKBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(SysBtn, &QPushButton::clicked, this, &About1::StartSysInfo);
}

void About1::StartSysInfo() {
    if (!SystemInfoTool::start(SystemInfoTool::find()))
        Messages::instance().inform(tr("System Information Is Unavailable At This Time"), this);
}

void About1::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (!Activation::becameActive(this, event) || !mFirstActivate)
        return;
    mFirstActivate = false;
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor);
    for (QLabel* label : Label1)
        WidgetPaint::paint(label, g.gWindowBackColor, g.gWindowForeColor,
                           label == Label1[0] ? std::optional<bool>() : g.gBoldType);
    for (QPushButton* b : {OKBtn, SysBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
}
