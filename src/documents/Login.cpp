#include "documents/Login.h"

#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/WidgetPaint.h"
#include "platform/tables/TableReader.h"
#include "shell/Globals.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

Login::Login(QWidget* parent) : QDialog(parent) {
    setObjectName(u"Login"_s);
    setWindowTitle(tr("Login to Database File"));
    auto* grid = new QGridLayout(this);
    auto* userLabel = new QLabel(tr("&User Name:"), this);
    userLabel->setObjectName(u"Label1(0)"_s);
    auto* passwordLabel = new QLabel(tr("&Password:"), this);
    passwordLabel->setObjectName(u"Label1(1)"_s);
    txtUserName = new QLineEdit(this);
    txtUserName->setObjectName(u"txtUserName"_s);
    txtUserName->setToolTip(tr("User Name to use for Database clearence"));
    txtUserName->setText(qEnvironmentVariable("USER"));
    txtPassword = new QLineEdit(this);
    txtPassword->setObjectName(u"txtPassword"_s);
    txtPassword->setToolTip(tr("Enter Password to Access the Database"));
    txtPassword->setEchoMode(QLineEdit::Password);
    // The password shows as stars.
    txtPassword->setStyleSheet(u"lineedit-password-character: 42"_s);
    userLabel->setBuddy(txtUserName);
    passwordLabel->setBuddy(txtPassword);
    OKbtn = new QPushButton(tr("OK"), this);
    OKbtn->setObjectName(u"OKbtn"_s);
    OKbtn->setDefault(true);
    Cancelbtn = new QPushButton(tr("Cancel"), this);
    Cancelbtn->setObjectName(u"Cancelbtn"_s);
    grid->addWidget(userLabel, 0, 0);
    grid->addWidget(txtUserName, 0, 1);
    grid->addWidget(passwordLabel, 1, 0);
    grid->addWidget(txtPassword, 1, 1);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(OKbtn);
    row->addWidget(Cancelbtn);
    grid->addLayout(row, 2, 0, 1, 2);
    connect(OKbtn, &QPushButton::clicked, this, &Login::OKbtn_Click);
    connect(Cancelbtn, &QPushButton::clicked, this, &Login::Cancelbtn_Click);
    DialogButtons::enterAnywhereClicks(this, OKbtn);
    Form_Load();
}

void Login::Form_Load() {
    txtPassword->clear();
    globals().gLoginOK = false;
}

void Login::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Form_Activate();
}

void Login::Form_Activate() {
    const Globals& g = globals();
    WidgetPaint::paint(this, g.gWindowBackColor, g.gWindowForeColor, g.gBoldType);
    WidgetPaint::paint(txtUserName, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
    WidgetPaint::paint(txtPassword, g.gEntryBackColor, g.gEntryForeColor, g.gBoldType);
    txtPassword->setFocus();
}

void Login::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        Cancelbtn_Click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void Login::refuse() {
    Messages::instance().informTitled(tr("Login to Database"), tr("Invalid Password, try again!"),
                                      this);
    txtPassword->setFocus();
    txtPassword->selectAll();
}

void Login::OKbtn_Click() {
    const QString password = txtPassword->text();
    if (password.isEmpty()) {
        refuse();
        return;
    }
    Globals& g = globals();
    g.gLoginOK = true;
    g.gDbPassword = password;
    // The file itself says whether the password is right.
    const TableReader::Opened opened = TableReader::open(u"Access"_s, g.gOpenFile, password);
    if (opened.error) {
        refuse();
        return;
    }
    accept();
}

void Login::Cancelbtn_Click() {
    globals().gLoginOK = false;
    reject();
}
