#include "documents/NewSize1.h"

#include "platform/DialogButtons.h"

#include "platform/WidgetPaint.h"
#include "shell/Globals.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxSide = 16384;
constexpr int kMaxBar = 32767;

// The whole number in a text box, when it is one.
std::optional<int> numberIn(const QString& text) {
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

bool within(const QScrollBar* bar, int value) {
    return value >= bar->minimum() && value <= bar->maximum();
}

} // namespace

int NewSize1::heightFor(int width, double ratio) {
    return static_cast<int>(std::nearbyint(width * ratio));
}

int NewSize1::widthFor(int height, double ratio) {
    return ratio > 0 ? static_cast<int>(std::nearbyint(height / ratio)) : height;
}

NewSize1::NewSize1(int width, int height, QWidget* parent)
    : QDialog(parent), m_width(width), m_height(height),
      m_ratio(width > 0 ? double(height) / width : 1.0) {
    setObjectName(u"NewSize1"_s);
    setWindowTitle(tr("New Size"));

    auto makeSide = [this](const char* textName, const char* barName, QLineEdit*& text,
                           QScrollBar*& bar) {
        auto* box = new QGroupBox(this);
        auto* layout = new QHBoxLayout(box);
        text = new QLineEdit(box);
        text->setObjectName(QString::fromLatin1(textName));
        text->setMaximumWidth(80);
        bar = new QScrollBar(Qt::Horizontal, box);
        bar->setObjectName(QString::fromLatin1(barName));
        bar->setMinimumWidth(200);
        layout->addWidget(text);
        layout->addWidget(bar, 1);
        return box;
    };
    m_widthFrame = makeSide("TxtWidth1", "SCWeight1", TxtWidth1, SCWeight1);
    m_heightFrame = makeSide("TxtHeight1", "SCHeight1", TxtHeight1, SCHeight1);
    m_widthFrame->setObjectName(u"Frame2(0)"_s);
    m_heightFrame->setObjectName(u"Frame2(1)"_s);
    TxtWidth1->setAccessibleName(tr("Width"));
    SCWeight1->setAccessibleName(tr("Width"));
    TxtHeight1->setAccessibleName(tr("Height"));
    SCHeight1->setAccessibleName(tr("Height"));

    CHKASPECT = new QCheckBox(tr("Maintain Aspect Ratio"), this);
    CHKASPECT->setObjectName(u"CHKASPECT"_s);
    CHKRESAMPLE = new QCheckBox(tr("Resample"), this);
    CHKRESAMPLE->setObjectName(u"CHKRESAMPLE"_s);

    OKBtn = new QPushButton(tr("OK"), this);
    OKBtn->setObjectName(u"OKBtn"_s);
    OKBtn->setToolTip(tr("Select the New Size Height and Width"));
    OKBtn->setDefault(true);
    CancelBtn = new QPushButton(tr("Cancel"), this);
    CancelBtn->setObjectName(u"CancelBtn"_s);
    CancelBtn->setToolTip(tr("Close the New Size Height and Width Selection Window"));
    HelpBtn = new QPushButton(tr("Help"), this);
    HelpBtn->setObjectName(u"HelpBtn"_s);

    auto* frame1 = new QWidget(this);
    frame1->setObjectName(u"Frame1"_s);
    auto* checks = new QVBoxLayout(frame1);
    checks->addWidget(CHKASPECT);
    checks->addWidget(CHKRESAMPLE);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(OKBtn);
    buttons->addWidget(CancelBtn);
    buttons->addWidget(HelpBtn);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_widthFrame);
    layout->addWidget(m_heightFrame);
    layout->addWidget(frame1);
    layout->addLayout(buttons);

    connect(SCWeight1, &QScrollBar::valueChanged, this, &NewSize1::SCWeight1_Change);
    connect(SCHeight1, &QScrollBar::valueChanged, this, &NewSize1::SCHeight1_Change);
    connect(TxtWidth1, &QLineEdit::textChanged, this, &NewSize1::TxtWidth1_Change);
    connect(TxtHeight1, &QLineEdit::textChanged, this, &NewSize1::TxtHeight1_Change);
    connect(CHKASPECT, &QCheckBox::clicked, this, &NewSize1::CHKASPECT_Click);
    connect(OKBtn, &QPushButton::clicked, this, &NewSize1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    DialogButtons::enterAnywhereClicks(this, OKBtn);
    connect(HelpBtn, &QPushButton::clicked, this, [this] {
        QKeyEvent f1(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &f1);
    });
}

int NewSize1::heightMaximum() const {
    return std::min(kMaxBar, heightFor(kMaxSide, m_ratio));
}

void NewSize1::InitTheForm(qint16 mode) {
    mMode = mode;
    setWindowTitle(tr("Resize"));
    m_widthFrame->setTitle(tr(" Width "));
    m_heightFrame->setTitle(tr(" Height "));
    // Bars first, so that their changes write the texts.
    SCWeight1->setRange(1, kMaxSide);
    SCWeight1->setPageStep(100);
    SCWeight1->setSingleStep(10);
    SCHeight1->setRange(1, std::max(1, heightMaximum()));
    SCHeight1->setPageStep(100);
    SCHeight1->setSingleStep(10);
    CHKRESAMPLE->setChecked(false);
    CHKASPECT->setChecked(false); // the sides are set as they are, then tied
    SCWeight1->setValue(std::clamp(m_width, 1, kMaxSide));
    SCHeight1->setValue(std::clamp(m_height, 1, SCHeight1->maximum()));
    {
        const QSignalBlocker widthBlocker(TxtWidth1);
        const QSignalBlocker heightBlocker(TxtHeight1);
        TxtWidth1->setText(QString::number(SCWeight1->value()));
        TxtHeight1->setText(QString::number(SCHeight1->value()));
    }
    CHKASPECT->setChecked(true);
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->geometry();
        adjustSize();
        move((area.width() - width()) / 2, (area.height() - height()) / 2);
    }
}

void NewSize1::GetResults(bool& ok, int& width, int& height, bool& resample) const {
    ok = mOK;
    width = SCWeight1->value();
    height = SCHeight1->value();
    resample = CHKRESAMPLE->isChecked();
}

void NewSize1::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(m_widthFrame), static_cast<QWidget*>(m_heightFrame),
                       static_cast<QWidget*>(CHKASPECT), static_cast<QWidget*>(CHKRESAMPLE)})
        WidgetPaint::paint(w, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(TxtWidth1), static_cast<QWidget*>(TxtHeight1)})
        WidgetPaint::paint(w, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
    for (QWidget* w : {static_cast<QWidget*>(OKBtn), static_cast<QWidget*>(CancelBtn),
                       static_cast<QWidget*>(HelpBtn)})
        WidgetPaint::paint(w, g.gButtonColor, g.gWindowForeColor, g.gBoldType);
    TxtWidth1->setFocus();
}

void NewSize1::follow(QScrollBar* bar, int value) {
    // The side that follows does not drive the other back: one change, one answer.
    m_following = true;
    bar->setValue(value);
    m_following = false;
}

void NewSize1::SCWeight1_Change(int value) {
    if (!mWidthFromText) {
        mWidthFromBar = true;
        TxtWidth1->setText(QString::number(value));
    }
    if (CHKASPECT->isChecked() && !m_following) {
        const int h = std::min(kMaxBar, heightFor(value, m_ratio));
        if (within(SCHeight1, h) && h != SCHeight1->value())
            follow(SCHeight1, h);
    }
    mWidthFromText = false;
}

void NewSize1::TxtWidth1_Change(const QString& text) {
    if (!mWidthFromBar) {
        mWidthFromText = true;
        const std::optional<int> value = numberIn(text);
        if (value && within(SCWeight1, *value)) {
            SCWeight1->setValue(*value);
            if (CHKASPECT->isChecked()) {
                const int h = heightFor(*value, m_ratio);
                if (within(SCHeight1, h) && h != SCHeight1->value())
                    follow(SCHeight1, h);
            }
        }
    }
    mWidthFromBar = false;
}

void NewSize1::SCHeight1_Change(int value) {
    if (!mHeightFromText) {
        mHeightFromBar = true;
        TxtHeight1->setText(QString::number(value));
    }
    if (CHKASPECT->isChecked() && !m_following) {
        const int w = std::min(kMaxBar, widthFor(value, m_ratio));
        if (within(SCWeight1, w) && w != SCWeight1->value())
            follow(SCWeight1, w);
    }
    mHeightFromText = false;
}

void NewSize1::TxtHeight1_Change(const QString& text) {
    if (!mHeightFromBar) {
        mHeightFromText = true;
        const std::optional<int> value = numberIn(text);
        if (value && within(SCHeight1, *value)) {
            SCHeight1->setValue(*value);
            if (CHKASPECT->isChecked()) {
                const int w = widthFor(*value, m_ratio);
                if (within(SCWeight1, w) && w != SCWeight1->value())
                    follow(SCWeight1, w);
            }
        }
    }
    mHeightFromBar = false;
}

void NewSize1::CHKASPECT_Click() {
    if (mMode != Picture && mMode != Region)
        return;
    SCHeight1->setMinimum(1);
    SCHeight1->setMaximum(std::max(1, heightMaximum()));
    SCHeight1->setValue(std::min(kMaxBar, heightFor(SCWeight1->value(), m_ratio)));
}

void NewSize1::OKBtn_Click() {
    const std::optional<int> width = numberIn(TxtWidth1->text());
    const std::optional<int> height = numberIn(TxtHeight1->text());
    // A blank or wrong value refuses OK without a word.
    if (!width || !height || !within(SCWeight1, *width) || !within(SCHeight1, *height))
        return;
    mOK = true;
    accept();
}
