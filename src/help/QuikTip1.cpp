#include "help/QuikTip1.h"

#include "help/QuickTips.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "platform/WidgetPaint.h"
#include "shell/Globals.h"
#include "shell/NamedWidgets.h"

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QuikTip1::QuikTip1(QWidget* parent) : QDialog(parent) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Quick Tip of the Day"));

    Picture1 = new QFrame(this);
    Picture1->setObjectName(u"Picture1"_s);
    Picture1->setFrameShape(QFrame::StyledPanel);
    Image1 = new QLabel(Picture1);
    Image1->setObjectName(u"Image1"_s);
    const QPixmap bulb(PathUtil::join(globals().gAppPath, u"BMPS/BulbOn.Bmp"_s));
    if (!bulb.isNull())
        Image1->setPixmap(bulb);
    Label1 = NamedWidgets::label(Picture1, u"Label1"_s, tr("Did you know..."));
    QFont heading = Label1->font();
    heading.setPointSizeF(heading.pointSizeF() * 1.3);
    Label1->setFont(heading);
    lblTipText = NamedWidgets::label(Picture1, u"lblTipText"_s, QString());
    lblTipText->setAccessibleName(tr("Tip"));
    lblTipText->setTextFormat(Qt::PlainText);
    lblTipText->setWordWrap(true);
    lblTipText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTipText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long tip scrolls instead of stretching the window.
    auto* scroller = new QScrollArea(Picture1);
    scroller->setObjectName(u"TipScroller"_s);
    scroller->setWidget(lblTipText);
    scroller->setWidgetResizable(true);
    scroller->setFrameShape(QFrame::NoFrame);
    auto* headingRow = new QHBoxLayout;
    headingRow->addWidget(Image1);
    headingRow->addWidget(Label1, 1);
    auto* tipLayout = new QVBoxLayout(Picture1);
    tipLayout->addLayout(headingRow);
    tipLayout->addWidget(scroller, 1);

    chkLoadTipsAtStartup = new QCheckBox(tr("Do not Show Tips at Startup"), this);
    chkLoadTipsAtStartup->setObjectName(u"chkLoadTipsAtStartup"_s);
    chkLoadTipsAtStartup->setAccessibleName(chkLoadTipsAtStartup->text());
    chkLoadTipsAtStartup->setToolTip(
        tr("Check if you do not want to display these quick tips at Start Up"));
    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"), tr("Close the Quick Tips"));
    OKBtn->setDefault(true);
    NextTipBtn = NamedWidgets::button(this, "NextTipBtn", tr("&Next Tip"), tr("Show Another Tip"));

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(OKBtn);
    buttons->addWidget(NextTipBtn);
    buttons->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(Picture1, 1);
    top->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addWidget(chkLoadTipsAtStartup);
    resize(480, 230);

    connect(OKBtn, &QPushButton::clicked, this, &QuikTip1::OKBtn_Click);
    connect(NextTipBtn, &QPushButton::clicked, this, &QuikTip1::NextTipBtn_Click);
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    Form_Load();
}

QuikTip1::~QuikTip1() {
    globals().gShowTipsNow = false;
}

void QuikTip1::Form_Load() {
    Globals& g = globals();
    g.gShowTipsNow = true;
    CurrentTip = 0;
    chkLoadTipsAtStartup->setChecked(true);
    if (g.gQuickTipsOption)
        chkLoadTipsAtStartup->setChecked(false);
    paintColors();
    const QString file = PathUtil::join(g.gAppPath, QuickTips::fileName());
    if (!LoadTips(file)) {
        lblTipText->setText(tr("That the ") + QuickTips::fileName() + tr(" file was not found? ") +
                            u"\r\n"_s + tr("Create a text file named ") + QuickTips::fileName() +
                            tr(" using NotePad with 1 tip per line. ") +
                            tr("Then place it in the same directory as the application. "));
    }
}

void QuikTip1::paintColors() {
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(Picture1), static_cast<QWidget*>(lblTipText),
                       static_cast<QWidget*>(Label1), static_cast<QWidget*>(chkLoadTipsAtStartup)})
        WidgetPaint::paint(w, g.gTipBackColor, g.gTipForeColor, g.gBoldType);
    if (auto* scroller = findChild<QScrollArea*>(u"TipScroller"_s))
        WidgetPaint::paint(scroller->viewport(), g.gTipBackColor, g.gTipForeColor);
    for (QPushButton* b : {OKBtn, NextTipBtn})
        WidgetPaint::paint(b, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
}

bool QuikTip1::LoadTips(const QString& fileName) {
    QuickTips::Loaded loaded = QuickTips::read(fileName);
    if (!loaded.loaded) {
        Messages::instance().inform(tr("Error Loading Quick Tips File"), this);
        return false;
    }
    Tips += std::move(loaded.tips);
    DoNextTip();
    return true;
}

void QuikTip1::DoNextTip() {
    CurrentTip = QuickTips::choose(QRandomGenerator::global()->generateDouble(), Tips.size());
    DisplayCurrentTip();
}

void QuikTip1::DisplayCurrentTip() {
    if (CurrentTip < 1 || CurrentTip > Tips.size())
        return;
    const QString& tip = Tips.at(CurrentTip - 1);
    lblTipText->setText(tip.size() > MaxShownLength ? tip.left(MaxShownLength) + u'\u2026' : tip);
    lblTipText->repaint();
}

void QuikTip1::NextTipBtn_Click() {
    DoNextTip();
}

void QuikTip1::OKBtn_Click() {
    globals().gQuickTipsOption = !chkLoadTipsAtStartup->isChecked();
    accept();
}

void QuikTip1::done(int result) {
    // The tips have had their showing: the main window does not bring them again.
    globals().gShowTipsNow = false;
    QDialog::done(result);
}
