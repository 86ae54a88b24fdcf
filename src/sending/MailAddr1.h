#pragma once

#include <QWidget>

#include <array>

class QLineEdit;
class QListWidget;
class QPushButton;

// A list of names with e-mail addresses, kept in an address list file (.MLS, one "name -
// address" line an entry). A chosen entry goes into the address box of the send window.
class MailAddr1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("MailAddr1"); }
    explicit MailAddr1(QWidget* parent = nullptr);

    void AddBtn_Click();
    void DeleteBtn_Click();
    void SelectBtn_Click();
    void SaveBtn_Click();
    void OutLkBtn_Click();
    void List1_Click();

    QString ListFile;
    QString BookMode;
    bool Modified = false;

    std::array<QLineEdit*, 2> Text1{};
    QListWidget* List1;
    QPushButton* AddBtn;
    QPushButton* DeleteBtn;
    QPushButton* SelectBtn;
    QPushButton* SaveBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;
    QPushButton* OutLkBtn;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    // The open or save dialog of the book mode; true when a file was chosen.
    bool fileDialog();
    void readList();
    void Text1_Change(int index);
};
