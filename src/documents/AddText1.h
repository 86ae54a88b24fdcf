#pragma once

#include <QDialog>
#include <QPointer>

#include <array>

class ChildFrm1;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// Sets up a text to stamp on a picture: its words, font, colours, style and the rectangle behind
// it go to the picture's window, which then stamps the text at each left click on the picture
// until a right click. The window draws nothing itself.
class AddText1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("AddText1"); }
    // Serves `child`, or the frame's active document when none is given.
    explicit AddText1(ChildFrm1* child = nullptr, QWidget* parent = nullptr);

    QLineEdit* Text1;
    QPushButton* FontBtn;
    QPushButton* TextClrBtn;
    QPushButton* ShadClrBtn;
    QPushButton* HiLiteClrBtn;
    QPushButton* RectClrBtn;
    QCheckBox* CHKRECTANGLE;
    QListWidget* List1;
    std::array<QLabel*, 6> Label1{};
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    void OKBtn_Click();
    void FontBtn_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    // Asks for a colour starting from the member's and keeps the answer in it; false on Cancel.
    bool chooseColor(qint32 ChildFrm1::*member, const QString& title);
    // Name, bold and italic of the chosen font on the samples and the text box.
    void showFont();
    void showColor(QWidget* sample, qint32 color);

    QPointer<ChildFrm1> m_child;
};
