#pragma once

#include <QDialog>

class QPushButton;

// Removes every file of every group from the organizer's database, after a question.
class GrpClear1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpClear1"); }
    explicit GrpClear1(QWidget* parent = nullptr);

    void OKBtn_Click();

    QPushButton* OKBtn;
    QPushButton* CancelBtn;
};
