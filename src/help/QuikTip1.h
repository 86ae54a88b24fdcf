#pragma once

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QFrame;
class QLabel;
class QPushButton;

// "Quick Tip of the Day": a tip drawn at random from TIPHELP.TXT of the program folder, shown
// at start-up and from the help menus; Next Tip draws another. OK keeps whether the tips show
// at start-up.
class QuikTip1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("QuikTip1"); }
    // A tip longer than this shows cut, with an ellipsis; Tips keeps it whole.
    static constexpr qsizetype MaxShownLength = 10000;

    explicit QuikTip1(QWidget* parent = nullptr);
    ~QuikTip1() override;

    // Reads the tips of the file and shows one of them; false, after a box, when there is no
    // such file.
    bool LoadTips(const QString& fileName);

    QStringList Tips;
    qsizetype CurrentTip = 0; // the tip on show, from 1; 0 before any

    QFrame* Picture1;
    QLabel* Image1;
    QLabel* Label1;
    QLabel* lblTipText;
    QCheckBox* chkLoadTipsAtStartup;
    QPushButton* NextTipBtn;
    QPushButton* OKBtn;

public Q_SLOTS:
    void NextTipBtn_Click();
    void OKBtn_Click();

protected:
    void done(int result) override;

private:
    void Form_Load();
    void paintColors();
    void DoNextTip();
    void DisplayCurrentTip();
};
