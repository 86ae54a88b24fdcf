#pragma once

#include <QDialog>

#include <array>

class QLineEdit;
class QPushButton;

// The colour roles every window paints itself from: one swatch a role, a double click (or
// Return on a swatch) to choose its colour, OK to keep them in Colors.INI.
class SetColor1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("SetColor1"); }
    explicit SetColor1(QWidget* parent = nullptr);

    // The swatches, used for their background alone: 0 to 10 the left column, 11 to 18 the
    // right one.
    std::array<QLineEdit*, 19> Text1{};
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    // The colour of a swatch, as the settings write it (0xBBGGRR or a system colour).
    qint32 swatchColor(int index) const { return m_colors.at(size_t(index)); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void setSwatch(int index, qint32 color);
    void chooseColor(int index);
    void OKBtn_Click();

    std::array<qint32, 19> m_colors{};
};
