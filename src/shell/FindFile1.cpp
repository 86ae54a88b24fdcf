#include "shell/FindFile1.h"

#include "shell/Help.h"

#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "shell/FindMasks.h"
#include "shell/Globals.h"
#include "shell/Quorvane1.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FindFile1::FindFile1(QWidget* parent) : QDialog(parent) {
    setObjectName(u"FindFile1"_s);
    setWindowTitle(tr("Find Files"));
    auto* layout = new QVBoxLayout(this);
    TabStrip1 = new QTabBar(this);
    TabStrip1->setObjectName(u"TabStrip1"_s);
    layout->addWidget(TabStrip1);
    for (int tab = 0; tab < FindMasks::TabCount; ++tab) {
        TabStrip1->addTab(FindMasks::tabCaption(tab));
        auto* frame = new QFrame(this);
        frame->setObjectName(u"Frame1(%1)"_s.arg(tab));
        frame->setFrameShape(QFrame::StyledPanel);
        auto* grid = new QGridLayout(frame);
        auto* group = new QButtonGroup(frame);
        const std::vector<FindMasks::Row>& masks = FindMasks::rows(tab);
        // Long tabs show their rows in two columns.
        const int perColumn = masks.size() > 12 ? int(masks.size() + 1) / 2 : int(masks.size());
        for (int i = 0; i < int(masks.size()); ++i) {
            auto* row = new QRadioButton(masks[size_t(i)].caption, frame);
            row->setObjectName(u"%1(%2)"_s.arg(FindMasks::groupName(tab)).arg(i));
            row->setChecked(i == 0);
            group->addButton(row, i);
            grid->addWidget(row, i % perColumn, i / perColumn);
            rows[size_t(tab)].push_back(row);
        }
        connect(group, &QButtonGroup::idClicked, this,
                [this, tab](int id) { m_chosen[size_t(tab)] = id; });
        if (tab == FindMasks::Miscellaneous) {
            Text1 = new QLineEdit(frame);
            Text1->setObjectName(u"Text1"_s);
            Text1->setToolTip(tr("File name or mask to search for, for example *.ZIP"));
            Text1->setAccessibleName(Text1->toolTip());
            grid->addWidget(Text1, int(masks.size()), 0, 1, 2);
        }
        layout->addWidget(frame);
        Frame1[size_t(tab)] = frame;
    }
    OKBtn = new QPushButton(tr("OK"), this);
    OKBtn->setObjectName(u"OKBtn"_s);
    OKBtn->setDefault(true); // Enter on a row or in the text box
    CancelBtn = new QPushButton(tr("Cancel"), this);
    CancelBtn->setObjectName(u"CancelBtn"_s);
    HelpBtn = new QPushButton(tr("Help"), this);
    HelpBtn->setObjectName(u"HelpBtn"_s);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(OKBtn);
    buttons->addWidget(CancelBtn);
    buttons->addWidget(HelpBtn);
    layout->addLayout(buttons);
    connect(TabStrip1, &QTabBar::currentChanged, this, &FindFile1::TabStrip1_Click);
    connect(OKBtn, &QPushButton::clicked, this, &FindFile1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &FindFile1::CancelBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    Form_Load();
}

FindFile1::~FindFile1() {
    Form_Unload();
}

void FindFile1::Form_Load() {
    Globals& g = globals();
    g.gSearchArmed = false;
    g.gFindCancelled = false;
    g.gFindFileOpen = true;
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    TabStrip1_Click(0);
}

void FindFile1::Form_Unload() {
    if (m_unloaded)
        return;
    m_unloaded = true;
    globals().gFindFileOpen = false;
}

void FindFile1::TabStrip1_Click(int tab) {
    for (QFrame* frame : Frame1)
        frame->hide();
    if (tab >= 0 && tab < FindMasks::TabCount)
        Frame1[size_t(tab)]->show();
}

void FindFile1::tellReport(const QString& text) {
    if (QWidget* print = WindowRegistry::find(u"PrntFrm1"_s)) {
        if (auto* label = print->findChild<QLabel*>(u"Label4(0)"_s))
            label->setText(text);
    }
}

void FindFile1::OKBtn_Click() {
    const int tab = TabStrip1->currentIndex();
    const FindMasks::Choice choice = FindMasks::choose(tab, m_chosen[size_t(tab)], Text1->text());
    Globals& g = globals();
    if (Quorvane1* main = Quorvane1::instance())
        main->setFilterRow(choice.filterRow);
    g.gSearchMask = choice.mask;
    g.gSearchArmed = true;
    if (g.gFindForReport)
        tellReport(tr("Selected: ") + choice.caption);
    Form_Unload();
    accept();
}

void FindFile1::CancelBtn_Click() {
    reject();
}

// Cancel, Esc and the close box all end here.
void FindFile1::reject() {
    Globals& g = globals();
    g.gFindCancelled = true;
    if (g.gFindForReport)
        tellReport(tr("No File Types Selected"));
    Form_Unload();
    QDialog::reject();
}
