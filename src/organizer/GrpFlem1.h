#pragma once

#include <QWidget>

class AppError;
class OrganizerDataControl;
class PictureView;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The record editor of the organizer's files: one file of a group at a time, with a preview of
// pictures. While the link to the main window is on, each file selected in its list becomes a
// new pending record here.
class GrpFlem1 : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool AddFromMainList MEMBER AddFromMainList)
public:
    static QString WindowName() { return QStringLiteral("GrpFlem1"); }
    explicit GrpFlem1(QWidget* parent = nullptr);
    ~GrpFlem1() override;

    // A new pending record for gOpenFile, its fields proposed from the file's path.
    Q_INVOKABLE void AddFiletoGrp();
    void AddNewFileFields();
    // What the main window's list does with a selected file while the link is on: the preview
    // of a picture, a new pending record for it, and the focus.
    Q_INVOKABLE void AddFileFromMainList();

    void SaveBtn_Click();
    void CnclBtn_Click();
    void DeleteBtn_Click();
    void SelectBtn_Click();
    void SortBtn_Click();

    QString mode() const { return mEntryMode; }
    bool sorted() const { return mSorted; }

    bool AddFromMainList = false;

    OrganizerDataControl* Data1;
    QComboBox* CMBGRP;
    QComboBox* CMBTYPE;
    QLineEdit* FldFileName;
    QLineEdit* FldFilePath;
    QLineEdit* FldFileDesc;
    QLineEdit* FldFileKeywrd;
    QPlainTextEdit* FldComments;
    QLabel* Label1[9];
    PictureView* Image1;
    QGroupBox* Frame1;
    QGroupBox* Frame2;
    QPushButton* SaveBtn;
    QPushButton* CnclBtn;
    QPushButton* DeleteBtn;
    QPushButton* SelectBtn;
    QPushButton* SortBtn;
    QPushButton* FindBtn;
    QPushButton* ExitBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Activate();
    // The group names into CMBGRP in stored order; false when there is none.
    bool fillGroups();
    void showRow();
    void showDate();
    bool loadPreview(const QString& path);
    void setButtonPicture(QPushButton* button, const char* bitmap, const QString& tip);
    void Data1_Reposition();
    void Data1_Validate(int action);
    void Data1_Error(const AppError& error);

    QString mEntryMode;
    int mRememberedGroup = 0;
    bool mSorted = false;
    bool mFirstActivate = true;
};
