#pragma once

#include "settings/OptionsForm.h"

#include <QDialog>

#include <array>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

// The program's options: thumbnail size and depth, the e-mail sender and address list, the
// search counts, the divide between folder tree and file list, and the look of the browsers.
class SetOptns1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("SetOptns1"); }
    explicit SetOptns1(QWidget* parent = nullptr);

    std::array<QLineEdit*, 7> Text1{};
    QComboBox* CMBTHUMBRES;
    QToolButton* EMailBKBtn;
    std::array<QRadioButton*, 3> RDBROWTYPE{};
    QCheckBox* CHKBOLDTYPE;
    QCheckBox* CHKGRIDLINE;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

    double CmTwipsX = 0;
    double CmTwipsY = 0;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void OKBtn_Click();
    void EMailBKBtn_Click();

    bool ActivatePending = false;
};
