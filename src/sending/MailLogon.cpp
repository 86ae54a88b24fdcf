#include "sending/MailLogon.h"

#include "platform/DialogButtons.h"
#include "platform/Messages.h"
#include "platform/PathUtil.h"
#include "sending/MailPasswords.h"
#include "sending/MailSession.h"
#include "shell/Globals.h"
#include "shell/NamedWidgets.h"

#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MailLogon::MailLogon(const MailSettings& start, const QString& why, QWidget* parent)
    : QDialog(parent), m_start(start) {
    setObjectName(WindowName());
    setWindowTitle(tr("Sign On to E-Mail"));
    auto* layout = new QVBoxLayout(this);
    WhyLabel = NamedWidgets::label(this, u"WhyLabel"_s, why);
    WhyLabel->setWordWrap(true);
    WhyLabel->setVisible(!why.isEmpty());
    layout->addWidget(WhyLabel);

    SendmailOpt = new QRadioButton(tr("Send through this computer's mail system"), this);
    SmtpOpt = new QRadioButton(tr("Send through an SMTP server"), this);
    auto* road = new QButtonGroup(this);
    for (QRadioButton* r : {SendmailOpt, SmtpOpt}) {
        r->setAccessibleName(r->text());
        road->addButton(r);
        layout->addWidget(r);
    }
    SendmailOpt->setObjectName(u"SendmailOpt"_s);
    SmtpOpt->setObjectName(u"SmtpOpt"_s);

    auto* form = new QFormLayout;
    HostText = NamedWidgets::entry(this, "HostText", tr("Server"));
    PortBox = new QSpinBox(this);
    PortBox->setObjectName(u"PortBox"_s);
    PortBox->setAccessibleName(tr("Port"));
    PortBox->setRange(1, 65535);
    SecurityBox = new QComboBox(this);
    SecurityBox->setObjectName(u"SecurityBox"_s);
    SecurityBox->setAccessibleName(tr("Security"));
    SecurityBox->addItems({tr("None"), tr("STARTTLS"), tr("SSL/TLS")});
    UserText = NamedWidgets::entry(this, "UserText", tr("User Name"));
    PasswordText = NamedWidgets::entry(this, "PasswordText", tr("Password"));
    PasswordText->setEchoMode(QLineEdit::Password);
    form->addRow(tr("Server"), HostText);
    form->addRow(tr("Port"), PortBox);
    form->addRow(tr("Security"), SecurityBox);
    form->addRow(tr("User Name"), UserText);
    form->addRow(tr("Password"), PasswordText);
    layout->addLayout(form);

    const DialogButtons buttons = DialogButtons::okCancel(this);
    OKBtn = buttons.ok;
    CancelBtn = buttons.cancel;
    layout->addLayout(buttons.row);
    connect(OKBtn, &QPushButton::clicked, this, &MailLogon::accept);

    (start.road == MailSettings::Road::Smtp ? SmtpOpt : SendmailOpt)->setChecked(true);
    HostText->setText(start.host);
    PortBox->setValue(start.port);
    SecurityBox->setCurrentIndex(int(start.security));
    UserText->setText(start.user);
    connect(SmtpOpt, &QRadioButton::toggled, this, &MailLogon::syncEnabled);
    syncEnabled();
    NamedWidgets::paintWindow(this);
}

MailLogon::~MailLogon() = default;

QString MailLogon::settingsPath() {
    return PathUtil::join(globals().gAppPath, QString::fromLatin1(MailSettings::FileName));
}

void MailLogon::syncEnabled() {
    for (QWidget* w :
         std::initializer_list<QWidget*>{HostText, PortBox, SecurityBox, UserText, PasswordText})
        w->setEnabled(SmtpOpt->isChecked());
}

MailSettings MailLogon::chosen() const {
    MailSettings s = m_start;
    s.road = SmtpOpt->isChecked() ? MailSettings::Road::Smtp : MailSettings::Road::Sendmail;
    s.host = HostText->text().trimmed();
    s.port = PortBox->value();
    s.security = MailSettings::Security(SecurityBox->currentIndex());
    s.user = UserText->text().trimmed();
    return s;
}

void MailLogon::accept() {
    const MailSettings s = chosen();
    auto session = std::make_unique<MailSession>(s, PasswordText->text());
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QString refused = session->open();
    QApplication::restoreOverrideCursor();
    if (!refused.isEmpty()) {
        Messages::instance().inform(tr("E-Mail Sign On failed: ") + refused, this);
        return;
    }
    s.save(settingsPath());
    if (s.road == MailSettings::Road::Smtp && !s.user.isEmpty())
        MailPasswords::write(MailPasswords::keyFor(s.user, s.host), PasswordText->text());
    m_session = std::move(session);
    QDialog::accept();
}

std::unique_ptr<MailSession> MailLogon::takeSession() {
    return std::move(m_session);
}

std::unique_ptr<MailSession> MailLogon::signOn(QWidget* parent) {
    const std::optional<MailSettings> kept = MailSettings::load(settingsPath());
    QString why;
    if (kept) {
        const bool login = kept->road == MailSettings::Road::Smtp && !kept->user.isEmpty();
        const std::optional<QString> password =
            login ? MailPasswords::read(MailPasswords::keyFor(kept->user, kept->host))
                  : std::optional<QString>(QString());
        if (password) {
            auto session = std::make_unique<MailSession>(*kept, *password);
            why = session->open();
            if (why.isEmpty())
                return session;
        }
    }
    MailLogon logon(kept.value_or(MailSettings()), why, parent);
    if (logon.exec() != QDialog::Accepted)
        return nullptr;
    return logon.takeSession();
}
