#include "documents/AddText1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "documents/TextStamp.h"
#include "platform/DialogButtons.h"
#include "platform/FontNames.h"
#include "platform/Messages.h"
#include "platform/SettingColor.h"
#include "platform/WidgetPaint.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/PictureView.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QAction>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

ChildFrm1* activeDocument() {
    const auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
    return frame ? frame->activeChild() : nullptr;
}

} // namespace

AddText1::AddText1(ChildFrm1* child, QWidget* parent)
    : QDialog(parent), m_child(child ? child : activeDocument()) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Add Text to Image"));

    for (int i = 0; i < 6; ++i)
        Label1[size_t(i)] = NamedWidgets::label(this, u"Label1(%1)"_s.arg(i), {});
    Label1[0]->setText(tr("Text to Place on Image:"));
    Label1[1]->setText(tr("Text Font Example"));
    Label1[2]->setText(tr("Text Color Example"));
    Label1[3]->setText(tr("Shadow Color Example"));
    Label1[4]->setText(tr("HiLite Color Example"));
    Label1[5]->setText(tr("Text Style:"));
    Text1 = NamedWidgets::entry(this, "Text1", tr("Enter Text to Place on Image"));
    Label1[0]->setBuddy(Text1);
    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setToolTip(tr("Select the Style of the Text"));
    List1->setAccessibleName(tr("Text Style"));
    Label1[5]->setBuddy(List1);

    FontBtn = NamedWidgets::button(this, "FontBtn", tr("&Font..."), tr("Select the Text Font"));
    TextClrBtn = NamedWidgets::button(this, "TextClrBtn", tr("&Text Color..."),
                                      tr("Select the Color of the Text"));
    ShadClrBtn = NamedWidgets::button(this, "ShadClrBtn", tr("&Shadow Color..."),
                                      tr("Select the Color of the Text Shadow"));
    HiLiteClrBtn = NamedWidgets::button(this, "HiLiteClrBtn", tr("Hi&Lite Color..."),
                                        tr("Select the Color of the Text HiLite"));
    RectClrBtn = NamedWidgets::button(this, "RectClrBtn", tr("&Rectangle Color..."),
                                      tr("Select the Color of the Rectangle behind the Text"));
    CHKRECTANGLE = new QCheckBox(tr("Draw Rectangle Around Text"), this);
    CHKRECTANGLE->setObjectName(u"CHKRECTANGLE"_s);
    CHKRECTANGLE->setAccessibleName(CHKRECTANGLE->text());
    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"),
                                 tr("Place the Text on the Picture with each Click"));
    OKBtn->setDefault(true);
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close the Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with Adding Text"));

    auto* settings = new QGridLayout;
    settings->addWidget(FontBtn, 0, 0);
    settings->addWidget(Label1[1], 0, 1);
    settings->addWidget(TextClrBtn, 1, 0);
    settings->addWidget(Label1[2], 1, 1);
    settings->addWidget(ShadClrBtn, 2, 0);
    settings->addWidget(Label1[3], 2, 1);
    settings->addWidget(HiLiteClrBtn, 3, 0);
    settings->addWidget(Label1[4], 3, 1);
    settings->addWidget(RectClrBtn, 4, 0);
    settings->addWidget(CHKRECTANGLE, 5, 0, 1, 2);
    settings->setRowStretch(6, 1);
    auto* style = new QVBoxLayout;
    style->addWidget(Label1[5]);
    style->addWidget(List1, 1);
    auto* middle = new QHBoxLayout;
    middle->addLayout(style, 1);
    middle->addLayout(settings, 1);
    auto* buttons = NamedWidgets::rightAligned({OKBtn, CancelBtn, HelpBtn});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Label1[0]);
    layout->addWidget(Text1);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);

    connect(FontBtn, &QPushButton::clicked, this, &AddText1::FontBtn_Click);
    connect(TextClrBtn, &QPushButton::clicked, this, [this] {
        if (chooseColor(&ChildFrm1::TEXT_COLOR, tr("Select Color for Text"))) {
            showColor(Text1, m_child->TEXT_COLOR);
            showColor(Label1[2], m_child->TEXT_COLOR);
        }
    });
    connect(ShadClrBtn, &QPushButton::clicked, this, [this] {
        if (chooseColor(&ChildFrm1::TEXTSHADOW_COLOR, tr("Select Color for Text Shadow")))
            showColor(Label1[3], m_child->TEXTSHADOW_COLOR);
    });
    connect(HiLiteClrBtn, &QPushButton::clicked, this, [this] {
        if (chooseColor(&ChildFrm1::TEXTHIGHLIGHT_COLOR, tr("Select Color for Text HiLite")))
            showColor(Label1[4], m_child->TEXTHIGHLIGHT_COLOR);
    });
    // The rectangle's colour is asked under the highlight's title, and shown nowhere.
    connect(RectClrBtn, &QPushButton::clicked, this, [this] {
        chooseColor(&ChildFrm1::TEXTRECTANGLE_COLOR, tr("Select Color for Text HiLite"));
    });
    connect(OKBtn, &QPushButton::clicked, this, &AddText1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    Form_Load();
}

void AddText1::Form_Load() {
    for (const TextStamp::Entry& entry : TextStamp::entries()) {
        auto* item = new QListWidgetItem(QString::fromLatin1(entry.name), List1);
        item->setData(Qt::UserRole, entry.code);
    }
    if (!m_child)
        return;
    Text1->setText(m_child->DRAW_TEXT);
    List1->setCurrentRow(m_child->TEXTSTYLE_INDEX >= 0 && m_child->TEXTSTYLE_INDEX < List1->count()
                             ? m_child->TEXTSTYLE_INDEX
                             : 0);
    // The window opens with the last settings of its picture, the rectangle's too.
    CHKRECTANGLE->setChecked(m_child->TEXTRECTANGLE_FLG);
    m_child->PLACETEXT_FLG = false;
}

void AddText1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Form_Activate();
}

void AddText1::Form_Activate() {
    NamedWidgets::paintWindow(this);
    if (!m_child)
        return;
    showColor(Label1[2], m_child->TEXT_COLOR);
    showColor(Label1[3], m_child->TEXTSHADOW_COLOR);
    showColor(Label1[4], m_child->TEXTHIGHLIGHT_COLOR);
    showFont();
    Text1->setFocus();
}

void AddText1::showColor(QWidget* sample, qint32 color) {
    const Globals& g = globals();
    const qint32 back = sample == Text1 ? g.gEntryBackColor : g.gWindowBackColor;
    WidgetPaint::paint(sample, back, color);
}

void AddText1::showFont() {
    for (QWidget* w : {static_cast<QWidget*>(Text1), static_cast<QWidget*>(Label1[1]),
                       static_cast<QWidget*>(Label1[2]), static_cast<QWidget*>(Label1[3]),
                       static_cast<QWidget*>(Label1[4])}) {
        QFont font = w->font();
        font.setFamily(FontNames::familyOf(m_child->TEXT_FONT));
        font.setBold(m_child->TEXT_FONT_BOLD);
        font.setItalic(m_child->TEXT_FONT_ITALIC);
        w->setFont(font);
    }
}

bool AddText1::chooseColor(qint32 ChildFrm1::*member, const QString& title) {
    if (!m_child)
        return false;
    const std::optional<QColor> color =
        Messages::instance().chooseColor(title, SettingColor::toQColor((*m_child).*member), this);
    if (!color || !m_child)
        return false;
    (*m_child).*member = SettingColor::fromQColor(*color);
    return true;
}

void AddText1::FontBtn_Click() {
    if (!m_child)
        return;
    QFont initial(FontNames::familyOf(m_child->TEXT_FONT));
    initial.setPointSize(std::max<int>(1, m_child->TEXT_FONT_SIZE));
    initial.setBold(m_child->TEXT_FONT_BOLD);
    initial.setItalic(m_child->TEXT_FONT_ITALIC);
    const std::optional<QFont> font = Messages::instance().chooseFont(initial, this);
    if (!font || !m_child)
        return;
    m_child->TEXT_FONT = font->family();
    if (font->pointSize() > 0)
        m_child->TEXT_FONT_SIZE = static_cast<qint16>(std::min(font->pointSize(), 32767));
    m_child->TEXT_FONT_BOLD = font->bold();
    m_child->TEXT_FONT_ITALIC = font->italic();
    showFont();
}

void AddText1::OKBtn_Click() {
    if (ChildFrm1* child = m_child) {
        child->PLACETEXT_FLG = true;
        child->DRAW_TEXT = Text1->text();
        if (child->Image1)
            child->Image1->setCursor(Qt::CrossCursor);
        child->menuAction("mnuImageText")->setChecked(true);
        child->TEXTRECTANGLE_FLG = CHKRECTANGLE->isChecked();
        if (const QListWidgetItem* item = List1->currentItem()) {
            child->TEXT_STYLE = item->data(Qt::UserRole).toInt();
            child->TEXTSTYLE_INDEX = static_cast<qint16>(List1->currentRow());
        }
        child->DRAWMENU = u"Text"_s;
        child->DRAW_NOW_FLG = true;
    }
    accept();
}
