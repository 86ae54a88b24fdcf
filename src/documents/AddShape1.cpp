#include "documents/AddShape1.h"

#include "documents/ChildFrm1.h"
#include "documents/MDIForm1.h"
#include "documents/ShapePainter.h"
#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/SettingColor.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/PictureView.h"
#include "settings/SettingsText.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSampleSize(240, 160);
// Where the sample's shape starts, in twips.
constexpr double kSampleLeft = 10;
constexpr double kSampleTop = 25;

ChildFrm1* activeDocument() {
    const auto* frame = qobject_cast<MDIForm1*>(WindowRegistry::find(MDIForm1::WindowName()));
    return frame ? frame->activeChild() : nullptr;
}

// The twips of a size box: its leading number, 0 for text without one.
double twipsOf(const QLineEdit* box) {
    return SettingsText::leadingNumber(box->text()) * AddShape1::TwipsPerUnit;
}

// A 32-bit whole number, rounded half to even and held within its range.
qint32 toLong(double value) {
    if (std::isnan(value))
        return 0;
    constexpr double low = std::numeric_limits<qint32>::min();
    constexpr double high = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::nearbyint(std::clamp(value, low, high)));
}

// The whole units of a size in twips, as the size box shows them.
QString unitsText(double twips) {
    return QString::number(std::trunc(twips / AddShape1::TwipsPerUnit), 'f', 0);
}

} // namespace

AddShape1::AddShape1(ChildFrm1* child, QWidget* parent)
    : QDialog(parent), m_child(child ? child : activeDocument()) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Add Shape to Image"));

    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setToolTip(tr("Select Shape to place on Image"));
    List1->setAccessibleName(tr("Shape"));
    Text1[0] = NamedWidgets::entry(this, "Text1(0)", tr("Enter Shape Height 100 = 1 cm"));
    Text1[1] = NamedWidgets::entry(this, "Text1(1)", tr("Enter Shape Width 100 = 1 cm"));
    Label1[0] = NamedWidgets::label(this, u"Label1(0)"_s, tr("Height:"));
    Label1[1] = NamedWidgets::label(this, u"Label1(1)"_s, tr("Width:"));
    Label1[2] = NamedWidgets::label(this, u"Label1(2)"_s, tr("100 = 1 cm"));
    Label1[0]->setBuddy(Text1[0]);
    Label1[1]->setBuddy(Text1[1]);
    ShapeClrBtn = NamedWidgets::button(this, "ShapeClrBtn", tr("&Shape Color..."),
                                       tr("Select the Color of the Shape"));
    BorderClrBtn = NamedWidgets::button(this, "BorderClrBtn", tr("&Border Color..."),
                                        tr("Select the Color of the Shape's Border"));

    const auto bandGroup = [this](const QString& name, const QString& title,
                                  std::array<QRadioButton*, 3>& buttons, const QString& raiseTip,
                                  const QString& indentTip) {
        auto* group = new QGroupBox(title, this);
        group->setObjectName(name);
        group->setAccessibleName(title.trimmed());
        auto* layout = new QVBoxLayout(group);
        const QString captions[] = {tr("None"), tr("Raised"), tr("Indent")};
        const QString tips[] = {tr("2 D Look"), raiseTip, indentTip};
        for (int i = 0; i < 3; ++i) {
            auto* b = new QRadioButton(captions[i], group);
            b->setObjectName(u"%1(%2)"_s.arg(name).arg(i));
            b->setToolTip(tips[i]);
            b->setAccessibleName(captions[i]);
            layout->addWidget(b);
            buttons[size_t(i)] = b;
        }
        return group;
    };
    QGroupBox* inner = bandGroup(u"RDINSTYLE"_s, tr(" Inner Band Style"), RDINSTYLE,
                                 tr("Raise Inner Line on Shape"), tr("Indent Inner Line on Shape"));
    QGroupBox* outer = bandGroup(u"RDOUTSTYLE"_s, tr("Outer Band Style"), RDOUTSTYLE,
                                 tr("Raise Outer Line on Shape"), tr("Indent Outer Line on Shape"));

    Image1 = new PictureView(this);
    Image1->setObjectName(u"Image1"_s);
    Image1->setAccessibleName(tr("Sample of the Shape"));
    Image1->setFixedSize(kSampleSize);
    Image1->setPaintSizeMode(PictureView::Normal);

    OKBtn = NamedWidgets::button(this, "OKBtn", tr("OK"),
                                 tr("Place the Shape on the Picture with each Click"));
    OKBtn->setDefault(true);
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"), tr("Close the Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with Adding Shapes"));

    auto* sizes = new QGridLayout;
    sizes->addWidget(Label1[0], 0, 0);
    sizes->addWidget(Text1[0], 0, 1);
    sizes->addWidget(Label1[1], 1, 0);
    sizes->addWidget(Text1[1], 1, 1);
    sizes->addWidget(Label1[2], 2, 1);
    auto* colors = new QHBoxLayout;
    colors->addWidget(ShapeClrBtn);
    colors->addWidget(BorderClrBtn);
    auto* bands = new QHBoxLayout;
    bands->addWidget(inner);
    bands->addWidget(outer);
    auto* right = new QVBoxLayout;
    right->addLayout(sizes);
    right->addLayout(colors);
    right->addLayout(bands);
    right->addWidget(Image1, 0, Qt::AlignHCenter);
    right->addStretch(1);
    auto* middle = new QHBoxLayout;
    middle->addWidget(List1, 1);
    middle->addLayout(right);
    auto* buttons = NamedWidgets::rightAligned({OKBtn, CancelBtn, HelpBtn});
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(middle, 1);
    layout->addLayout(buttons);

    for (int i = 0; i < 2; ++i)
        connect(Text1[size_t(i)], &QLineEdit::textChanged, this, [this, i] { Text1_Change(i); });
    for (int i = 0; i < 3; ++i) {
        connect(RDINSTYLE[size_t(i)], &QRadioButton::clicked, this, [this, i] {
            if (m_child)
                m_child->SHAPE_INRBAND = static_cast<qint16>(i);
        });
        connect(RDOUTSTYLE[size_t(i)], &QRadioButton::clicked, this, [this, i] {
            if (m_child)
                m_child->SHAPE_OUTBAND = static_cast<qint16>(i);
        });
    }
    connect(List1, &QListWidget::currentRowChanged, this, &AddShape1::DrawSample);
    connect(ShapeClrBtn, &QPushButton::clicked, this,
            [this] { chooseColor(&ChildFrm1::SHAPE_COLOR, tr("Select Color for Object")); });
    connect(BorderClrBtn, &QPushButton::clicked, this, [this] {
        chooseColor(&ChildFrm1::SHAPEBORDER_COLOR, tr("Select Color for Object Border"));
    });
    connect(OKBtn, &QPushButton::clicked, this, &AddShape1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    Form_Load();
}

void AddShape1::Form_Load() {
    if (m_child) {
        // Setting the boxes runs their change, which writes the sizes back.
        Text1[0]->setText(unitsText(m_child->SHAPE_HEIGHT));
        Text1[1]->setText(unitsText(m_child->SHAPE_WIDTH));
        if (m_child->SHAPE_INRBAND >= 0 && m_child->SHAPE_INRBAND < 3)
            RDINSTYLE[size_t(m_child->SHAPE_INRBAND)]->setChecked(true);
        if (m_child->SHAPE_OUTBAND >= 0 && m_child->SHAPE_OUTBAND < 3)
            RDOUTSTYLE[size_t(m_child->SHAPE_OUTBAND)]->setChecked(true);
    }
    List1->clear();
    for (const ShapePainter::Entry& entry : ShapePainter::entries()) {
        auto* item = new QListWidgetItem(QString::fromLatin1(entry.name), List1);
        item->setData(Qt::UserRole, entry.code);
    }
    const int index = m_child ? m_child->SHAPE_INDEX : 0;
    List1->setCurrentRow(index >= 0 && index < List1->count() ? index : 0);
    mSampleDue = true;
}

void AddShape1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Form_Activate();
}

void AddShape1::Form_Activate() {
    NamedWidgets::paintWindow(this);
    if (mSampleDue) {
        DrawSample();
        mSampleDue = false;
    }
}

void AddShape1::Text1_Change(int index) {
    if (!m_child)
        return;
    if (index == 0)
        m_child->SHAPE_HEIGHT = twipsOf(Text1[0]);
    else
        m_child->SHAPE_WIDTH = toLong(twipsOf(Text1[1]));
    DrawSample();
}

void AddShape1::chooseColor(qint32 ChildFrm1::*member, const QString& title) {
    if (!m_child)
        return;
    const std::optional<QColor> color =
        Messages::instance().chooseColor(title, SettingColor::toQColor((*m_child).*member), this);
    if (!color || !m_child)
        return;
    (*m_child).*member = SettingColor::fromQColor(*color);
    DrawSample();
}

void AddShape1::DrawSample() {
    const QListWidgetItem* item = List1->currentItem();
    if (!m_child || !item)
        return;
    QImage sample(Image1->size(), QImage::Format_RGB32);
    sample.fill(Qt::white);
    ShapePainter::Shape shape;
    shape.code = static_cast<qint16>(item->data(Qt::UserRole).toInt());
    shape.width = m_child->SHAPE_WIDTH;
    shape.height = m_child->SHAPE_HEIGHT;
    shape.fill = SettingColor::toQColor(m_child->SHAPE_COLOR);
    shape.border = SettingColor::toQColor(m_child->SHAPEBORDER_COLOR);
    shape.innerBand = m_child->SHAPE_INRBAND;
    shape.outerBand = m_child->SHAPE_OUTBAND;
    ShapePainter::draw(sample, QPointF(kSampleLeft, kSampleTop) / 15, shape);
    Image1->setImage(sample);
}

void AddShape1::OKBtn_Click() {
    if (ChildFrm1* child = m_child) {
        child->PLACEOBJECT_FLG = true;
        if (const QListWidgetItem* item = List1->currentItem())
            child->SHAPE = static_cast<qint16>(item->data(Qt::UserRole).toInt());
        child->SHAPE_HEIGHT = twipsOf(Text1[0]);
        child->SHAPE_WIDTH = toLong(twipsOf(Text1[1]));
        for (int i = 0; i < 3; ++i) {
            if (RDINSTYLE[size_t(i)]->isChecked())
                child->SHAPE_INRBAND = static_cast<qint16>(i);
            if (RDOUTSTYLE[size_t(i)]->isChecked())
                child->SHAPE_OUTBAND = static_cast<qint16>(i);
        }
        child->SHAPE_INDEX = static_cast<qint16>(std::max(0, List1->currentRow()));
        if (child->Image1)
            child->Image1->setCursor(Qt::CrossCursor);
        child->menuAction("mnuImageShapes")->setChecked(true);
        child->DRAW_NOW_FLG = true;
    }
    accept();
}
