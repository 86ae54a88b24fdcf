#pragma once

#include <QDialog>

class QCheckBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QScrollBar;

// Asks for a new width and height in pixels. Each has a text box and a scroll bar kept in step;
// with "Maintain Aspect Ratio" the height follows the width and the width the height.
class NewSize1 : public QDialog {
    Q_OBJECT
public:
    enum Mode : qint16 { Picture = 0, Region = 3 };

    // `width` and `height` are the picture's (or the region's) size.
    NewSize1(int width, int height, QWidget* parent = nullptr);

    void InitTheForm(qint16 mode);
    void GetResults(bool& ok, int& width, int& height, bool& resample) const;

    // The nearest whole number of width x ratio, and of height / ratio.
    static int heightFor(int width, double ratio);
    static int widthFor(int height, double ratio);

    QScrollBar* widthBar() const { return SCWeight1; }
    QScrollBar* heightBar() const { return SCHeight1; }
    QLineEdit* widthText() const { return TxtWidth1; }
    QLineEdit* heightText() const { return TxtHeight1; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void SCWeight1_Change(int value);
    void TxtWidth1_Change(const QString& text);
    void SCHeight1_Change(int value);
    void TxtHeight1_Change(const QString& text);
    void CHKASPECT_Click();
    void OKBtn_Click();
    int heightMaximum() const;
    void follow(QScrollBar* bar, int value);

    int m_width;
    int m_height;
    double m_ratio;
    qint16 mMode = Picture;
    bool mOK = false;
    bool mWidthFromText = false;
    bool mHeightFromText = false;
    bool mWidthFromBar = false;
    bool mHeightFromBar = false;
    bool m_following = false;

    QLineEdit* TxtWidth1;
    QScrollBar* SCWeight1;
    QLineEdit* TxtHeight1;
    QScrollBar* SCHeight1;
    QCheckBox* CHKASPECT;
    QCheckBox* CHKRESAMPLE;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;
    QGroupBox* m_widthFrame;
    QGroupBox* m_heightFrame;
};
