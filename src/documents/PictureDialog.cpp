#include "documents/PictureDialog.h"

#include "platform/Messages.h"
#include "platform/imaging/PixelOps.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kPreviewSide = 200;
}

PictureDialog::PictureDialog(Kind kind, const QImage& preview, QWidget* parent)
    : QDialog(parent), m_kind(kind),
      m_preview(preview.width() > kPreviewSide || preview.height() > kPreviewSide
                    ? preview.scaled(kPreviewSide, kPreviewSide, Qt::KeepAspectRatio,
                                     Qt::SmoothTransformation)
                    : preview) {
    setObjectName(u"PictureDialog"_s);
    setWindowTitle(kind == Brightness ? tr("Brightness")
                   : kind == Contrast ? tr("Contrast")
                                      : tr("Rotate"));
    m_picture = new QLabel(this);
    m_picture->setObjectName(u"Preview"_s);
    m_picture->setAccessibleName(tr("Preview"));
    m_picture->setMinimumSize(kPreviewSide, kPreviewSide);
    m_picture->setAlignment(Qt::AlignCenter);
    auto* form = new QFormLayout;
    if (kind == Rotate) {
        m_angle = new QDoubleSpinBox(this);
        m_angle->setObjectName(u"Angle"_s);
        m_angle->setRange(-360.0, 360.0);
        m_angle->setDecimals(2);
        m_angle->setSuffix(u"°"_s);
        m_angle->setAccessibleName(tr("Angle"));
        m_resize = new QCheckBox(tr("Resize to hold the whole picture"), this);
        m_resize->setObjectName(u"Resize"_s);
        m_resize->setChecked(true);
        m_fillButton = new QPushButton(tr("Fill Colour..."), this);
        m_fillButton->setObjectName(u"FillColor"_s);
        form->addRow(tr("Angle:"), m_angle);
        form->addRow(QString(), m_resize);
        form->addRow(tr("Fill:"), m_fillButton);
        connect(m_angle, &QDoubleSpinBox::valueChanged, this, &PictureDialog::updatePreview);
        connect(m_resize, &QCheckBox::toggled, this, &PictureDialog::updatePreview);
        connect(m_fillButton, &QPushButton::clicked, this, [this] {
            if (const auto color =
                    Messages::instance().chooseColor(tr("Select Color"), m_fill, this))
                setFillColor(*color);
        });
    } else {
        m_slider = new QSlider(Qt::Horizontal, this);
        m_slider->setObjectName(u"ValueSlider"_s);
        m_slider->setRange(-1000, 1000);
        m_slider->setAccessibleName(windowTitle());
        m_value = new QSpinBox(this);
        m_value->setObjectName(u"Value"_s);
        m_value->setRange(-1000, 1000);
        m_value->setAccessibleName(windowTitle());
        form->addRow(windowTitle() + u':', m_value);
        form->addRow(QString(), m_slider);
        connect(m_slider, &QSlider::valueChanged, m_value, &QSpinBox::setValue);
        connect(m_value, &QSpinBox::valueChanged, m_slider, &QSlider::setValue);
        connect(m_value, &QSpinBox::valueChanged, this, &PictureDialog::updatePreview);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(u"Buttons"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_picture);
    layout->addLayout(form);
    layout->addWidget(buttons);
    updatePreview();
}

int PictureDialog::value() const {
    return m_value ? m_value->value() : 0;
}

void PictureDialog::setValue(int value) {
    if (m_value)
        m_value->setValue(value);
}

int PictureDialog::angle() const {
    return m_angle ? static_cast<int>(std::lround(m_angle->value() * 100)) : 0;
}

void PictureDialog::setAngle(int hundredths) {
    if (m_angle)
        m_angle->setValue(hundredths / 100.0);
}

bool PictureDialog::resizeToFit() const {
    return m_resize && m_resize->isChecked();
}

QColor PictureDialog::fillColor() const {
    return m_fill;
}

void PictureDialog::setFillColor(const QColor& color) {
    m_fill = color;
    updatePreview();
}

void PictureDialog::updatePreview() {
    m_shown = m_preview;
    switch (m_kind) {
    case Brightness:
        PixelOps::changeIntensity(m_shown, value());
        break;
    case Contrast:
        PixelOps::changeContrast(m_shown, value());
        break;
    case Rotate:
        PixelOps::rotate(m_shown, angle(), resizeToFit(), m_fill);
        break;
    }
    m_picture->setPixmap(QPixmap::fromImage(
        m_shown.scaled(kPreviewSide, kPreviewSide, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}
