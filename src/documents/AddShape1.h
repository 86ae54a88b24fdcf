#pragma once

#include <QDialog>
#include <QPointer>

#include <array>

class ChildFrm1;
class PictureView;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

// Sets up a shape to stamp on a picture, with a live sample: its kind, size, colours and bands go
// to the picture's window, which then stamps the shape at each left click on the picture until a
// right click. The size boxes count 100 to the centimetre, 3.5 twips each; they and the colour
// buttons write through at once, the shape itself waits for OK.
class AddShape1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("AddShape1"); }
    // Twips of a unit of the size boxes.
    static constexpr double TwipsPerUnit = 3.5;

    // Serves `child`, or the frame's active document when none is given.
    explicit AddShape1(ChildFrm1* child = nullptr, QWidget* parent = nullptr);

    QListWidget* List1;
    std::array<QLineEdit*, 2> Text1{}; // height, width
    std::array<QLabel*, 3> Label1{};
    QPushButton* ShapeClrBtn;
    QPushButton* BorderClrBtn;
    std::array<QRadioButton*, 3> RDINSTYLE{};
    std::array<QRadioButton*, 3> RDOUTSTYLE{};
    PictureView* Image1;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    void OKBtn_Click();
    // Draws the chosen shape on the sample as the settings stand.
    void DrawSample();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void Text1_Change(int index);
    // Asks for a colour starting from the member's and keeps the answer in it.
    void chooseColor(qint32 ChildFrm1::*member, const QString& title);

    QPointer<ChildFrm1> m_child;
    bool mSampleDue = false;
};
