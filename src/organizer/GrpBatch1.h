#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

// Files whole folders under a group while a disk search runs: each OK files the folder the
// search stands on and moves the search to its next folder.
class GrpBatch1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpBatch1"); }
    explicit GrpBatch1(QWidget* parent = nullptr);
    ~GrpBatch1() override;

    void OKBtn_Click();

    QLabel* Label1;
    QComboBox* CMBGRP;
    QCheckBox* CHKSKIP;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Activate();

    bool GroupChecked = false;
    bool mFirstActivate = true;
};
