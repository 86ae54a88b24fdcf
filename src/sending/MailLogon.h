#pragma once

#include "sending/MailSettings.h"

#include <QDialog>

#include <memory>

class MailSession;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

// Signing on to mail: through this computer's mail system, or through an SMTP server with a
// login. OK tries the way chosen and keeps it only when it works: the settings in the program's
// folder, the password in the desktop's password store (or, without one, for this session).
class MailLogon : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("MailLogon"); }
    MailLogon(const MailSettings& start, const QString& why, QWidget* parent = nullptr);
    ~MailLogon() override;

    // A session signed on with the kept settings, or through this dialog when there are none or
    // they are refused; null when the user cancels.
    static std::unique_ptr<MailSession> signOn(QWidget* parent);

    // The path of the settings file in the program's folder.
    static QString settingsPath();

    void accept() override;
    std::unique_ptr<MailSession> takeSession();

    QRadioButton* SendmailOpt;
    QRadioButton* SmtpOpt;
    QLineEdit* HostText;
    QSpinBox* PortBox;
    QComboBox* SecurityBox;
    QLineEdit* UserText;
    QLineEdit* PasswordText;
    QLabel* WhyLabel;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;

private:
    MailSettings chosen() const;
    void syncEnabled();

    MailSettings m_start;
    std::unique_ptr<MailSession> m_session;
};
