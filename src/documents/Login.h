#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// Asks for the password of the database file in gOpenFile and keeps asking until the file
// opens with it or the user cancels. gLoginOK tells which; gDbPassword holds the password.
class Login final : public QDialog {
    Q_OBJECT
public:
    explicit Login(QWidget* parent = nullptr);

    QLineEdit* txtUserName;
    QLineEdit* txtPassword;
    QPushButton* OKbtn;
    QPushButton* Cancelbtn;

    void OKbtn_Click();
    void Cancelbtn_Click();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void refuse();
};
