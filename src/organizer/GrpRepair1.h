#pragma once

#include <QDialog>

class QPushButton;
class QRadioButton;

// Compacts the organizer's database into a file the user names, or repairs it in place.
class GrpRepair1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpRepair1"); }
    explicit GrpRepair1(QWidget* parent = nullptr);

    void OKBtn_Click();

    QRadioButton* RDSELECT[2];
    QPushButton* OKBtn;
    QPushButton* CancelBtn;

private:
    QString mDatabasePath;
};
