#pragma once

#include <QColor>
#include <QDialog>
#include <QImage>

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSlider;
class QSpinBox;

// The picture dialogs of the image commands: a value for Brightness and Contrast, or an angle,
// a resize choice and a fill colour for Rotate, each with a live preview of the picture.
class PictureDialog : public QDialog {
    Q_OBJECT
public:
    // The dialog words of the three kinds.
    enum Kind : quint32 { Brightness = 0x40000002, Rotate = 0x40000003, Contrast = 0x40000004 };

    PictureDialog(Kind kind, const QImage& preview, QWidget* parent = nullptr);

    // Brightness and Contrast: -1000 to 1000.
    int value() const;
    void setValue(int value);
    // Rotate: hundredths of a degree, clockwise.
    int angle() const;
    void setAngle(int hundredths);
    bool resizeToFit() const;
    QColor fillColor() const;
    void setFillColor(const QColor& color);
    // The preview as it stands.
    const QImage& previewImage() const { return m_shown; }

private:
    void updatePreview();

    Kind m_kind;
    QImage m_preview;
    QImage m_shown;
    QColor m_fill = Qt::white;
    QLabel* m_picture = nullptr;
    QSlider* m_slider = nullptr;
    QSpinBox* m_value = nullptr;
    QDoubleSpinBox* m_angle = nullptr;
    QCheckBox* m_resize = nullptr;
    QPushButton* m_fillButton = nullptr;
};
