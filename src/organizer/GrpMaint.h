#pragma once

#include <QWidget>

class OrganizerDataControl;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class AppError;

// Creates, changes and deletes the groups of the organizer, walked in the order of their names.
// A group that still has files filed under it cannot be deleted.
class GrpMaint : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpMaint"); }
    explicit GrpMaint(QWidget* parent = nullptr);
    ~GrpMaint() override;

    // True while files are filed under the current record's group (or when that cannot be
    // told); the typed name plays no part.
    bool CheckDetail(const QString& group);

    void AddBtn_Click();
    void SaveBtn_Click();
    void CnclBtn_Click();
    void DeleteBtn_Click();

    QString mode() const { return mEntryMode; }

    OrganizerDataControl* Data1;
    QLineEdit* FldGroup1;
    QLineEdit* FldGrpDesc1;
    QLabel* Label1[4];
    QGroupBox* Frame1;
    QGroupBox* Frame2;
    QPushButton* AddBtn;
    QPushButton* SaveBtn;
    QPushButton* CnclBtn;
    QPushButton* DeleteBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Activate();
    void Data1_Reposition();
    void Data1_Validate(int action);
    void Data1_Error(const AppError& error);

    QString mEntryMode;
    bool mFirstActivate = true;
};
