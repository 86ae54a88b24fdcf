#include "sending/MailSession.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTemporaryFile>

#include <vmime/platforms/posix/posixHandler.hpp>
#include <vmime/security/cert/defaultCertificateVerifier.hpp>
#include <vmime/vmime.hpp>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

std::string utf8(const QString& text) {
    return text.toStdString();
}

// Line breaks never reach a header.
QString oneLine(QString text) {
    return text.replace(u'\r', u' ').replace(u'\n', u' ');
}

// A mailbox parsed from its text, so that its address has its local part and its domain.
vmime::shared_ptr<vmime::mailbox> mailboxOf(const QString& text) {
    auto box = vmime::make_shared<vmime::mailbox>();
    box->parse(utf8(oneLine(text)));
    return box;
}

// Ends every wait on the server after a number of seconds of silence.
class Timeout final : public vmime::net::timeoutHandler {
public:
    explicit Timeout(int seconds) : m_ms(qint64(seconds) * 1000) { m_timer.start(); }
    bool isTimeOut() override { return m_timer.elapsed() >= m_ms; }
    void resetTimeOut() override { m_timer.restart(); }
    bool handleTimeOut() override { return false; }

private:
    qint64 m_ms;
    QElapsedTimer m_timer;
};

class TimeoutFactory final : public vmime::net::timeoutHandlerFactory {
public:
    explicit TimeoutFactory(int seconds) : m_seconds(seconds) {}
    vmime::shared_ptr<vmime::net::timeoutHandler> create() override {
        return vmime::make_shared<Timeout>(m_seconds);
    }

private:
    int m_seconds;
};

// The certificate authorities the system trusts, for servers spoken to over TLS.
std::vector<vmime::shared_ptr<vmime::security::cert::X509Certificate>> systemAuthorities() {
    std::vector<vmime::shared_ptr<vmime::security::cert::X509Certificate>> certs;
    std::ifstream bundle("/etc/ssl/certs/ca-certificates.crt");
    const std::string text((std::istreambuf_iterator<char>(bundle)),
                           std::istreambuf_iterator<char>());
    const std::string begin = "-----BEGIN CERTIFICATE-----";
    const std::string end = "-----END CERTIFICATE-----";
    for (size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at + 1)) {
        const size_t stop = text.find(end, at);
        if (stop == std::string::npos)
            break;
        const std::string pem = text.substr(at, stop + end.size() - at);
        try {
            if (auto cert = vmime::security::cert::X509Certificate::import(
                    reinterpret_cast<const vmime::byte_t*>(pem.data()), pem.size()))
                certs.push_back(cert);
        } catch (const vmime::exception&) {
        }
    }
    return certs;
}

void usePosixPlatform() {
    static std::once_flag once;
    std::call_once(once,
                   [] { vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(); });
}

} // namespace

struct MailSession::Impl {
    MailSettings settings;
    QString password;
    vmime::shared_ptr<vmime::net::session> session;
    vmime::shared_ptr<vmime::net::transport> transport;
};

MailSession::MailSession(const MailSettings& settings, const QString& password)
    : d(std::make_unique<Impl>()) {
    d->settings = settings;
    d->password = password;
}

MailSession::~MailSession() {
    close();
}

bool MailSession::isOpen() const {
    return d->transport && d->transport->isConnected();
}

void MailSession::close() {
    if (d->transport) {
        try {
            if (d->transport->isConnected())
                d->transport->disconnect();
        } catch (const vmime::exception&) {
        }
    }
    d->transport.reset();
    d->session.reset();
}

QString MailSession::open() {
    if (isOpen())
        return {};
    close();
    usePosixPlatform();
    const MailSettings& s = d->settings;
    try {
        d->session = vmime::net::session::create();
        if (s.road == MailSettings::Road::Sendmail) {
            if (!QFileInfo(s.sendmailPath).isExecutable())
                return QObject::tr("No mail program at %1").arg(s.sendmailPath);
            d->transport = d->session->getTransport(vmime::utility::url("sendmail://localhost"));
            d->transport->setProperty("binpath", utf8(s.sendmailPath));
        } else {
            const bool tls = s.security == MailSettings::Security::Tls;
            vmime::utility::url url(tls ? "smtps" : "smtp", utf8(s.host), s.port);
            d->transport = d->session->getTransport(url);
            d->transport->setProperty("connection.tls",
                                      s.security == MailSettings::Security::StartTls);
            d->transport->setProperty("connection.tls.required",
                                      s.security != MailSettings::Security::None);
            if (!s.user.isEmpty()) {
                d->transport->setProperty("options.need-authentication", true);
                d->transport->setProperty("auth.username", utf8(s.user));
                d->transport->setProperty("auth.password", utf8(d->password));
            }
            auto verifier = vmime::make_shared<vmime::security::cert::defaultCertificateVerifier>();
            verifier->setX509RootCAs(systemAuthorities());
            d->transport->setCertificateVerifier(verifier);
        }
        d->transport->setTimeoutHandlerFactory(
            vmime::make_shared<TimeoutFactory>(s.timeoutSeconds));
        d->transport->connect();
        return {};
    } catch (const vmime::exception& e) {
        close();
        return QString::fromStdString(e.what());
    } catch (const std::exception& e) {
        close();
        return QString::fromStdString(e.what());
    }
}

QString MailSession::send(const MailMessage& message) {
    if (!isOpen())
        return QObject::tr("The mail session is not open");
    if (!isAddress(message.to))
        return QObject::tr("Not a mail address: %1").arg(oneLine(message.to));
    try {
        vmime::messageBuilder builder;
        const vmime::shared_ptr<vmime::mailbox> from = mailboxOf(message.from);
        const vmime::shared_ptr<vmime::mailbox> recipient = mailboxOf(message.to);
        builder.setExpeditor(*from);
        vmime::addressList to;
        to.appendAddress(recipient);
        builder.setRecipients(to);
        builder.setSubject(vmime::text(utf8(oneLine(message.subject)), vmime::charsets::UTF_8));
        builder.getTextPart()->setCharset(vmime::charsets::UTF_8);
        builder.getTextPart()->setText(
            vmime::make_shared<vmime::stringContentHandler>(utf8(message.body)));
        const QMimeDatabase types;
        for (const QString& path : message.attachments) {
            const QFileInfo file(path);
            if (!file.isFile() || !file.isReadable())
                return QObject::tr("Cannot read %1").arg(path);
            // The file is read while the message is written out.
            auto attachment = vmime::make_shared<vmime::fileAttachment>(
                utf8(QDir::toNativeSeparators(file.absoluteFilePath())),
                vmime::mediaType(utf8(types.mimeTypeForFile(file).name())));
            attachment->getFileInfo().setFilename(
                vmime::word(utf8(file.fileName()), vmime::charsets::UTF_8));
            builder.appendAttachment(attachment);
        }
        // The message is written out to a spool file first and sent from there, so that no
        // transport holds a whole message (with its files) in memory.
        QTemporaryFile spool(QDir::temp().filePath(u"quorvane-mail-XXXXXX"_s));
        if (!spool.open())
            return QObject::tr("Cannot write the message to %1").arg(QDir::tempPath());
        const std::string spoolPath = utf8(spool.fileName());
        {
            std::ofstream out(spoolPath, std::ios::binary | std::ios::trunc);
            vmime::utility::outputStreamAdapter adapter(out);
            builder.construct()->generate(adapter);
            out.flush();
            if (!out)
                return QObject::tr("Cannot write the message to %1").arg(QDir::tempPath());
        }
        std::ifstream in(spoolPath, std::ios::binary);
        vmime::utility::inputStreamAdapter data(in);
        vmime::mailboxList recipients;
        recipients.appendMailbox(recipient);
        d->transport->send(*from, recipients, data, size_t(QFileInfo(spool.fileName()).size()),
                           nullptr, *from);
        return {};
    } catch (const vmime::exception& e) {
        const QString why = QString::fromStdString(e.what());
        // A broken connection is not used again: the next send opens a new one.
        if (!isOpen())
            close();
        return why;
    } catch (const std::exception& e) {
        return QString::fromStdString(e.what());
    }
}

bool MailSession::isAddress(const QString& text) {
    static const QRegularExpression address(
        uR"(^[^@\s<>()\[\],;:"]+@[^@\s<>()\[\],;:"]+\.[^@\s<>()\[\],;:".]+$)"_s);
    return address.match(text).hasMatch();
}

QString MailSession::defaultFrom() {
    QString user = qEnvironmentVariable("USER");
    if (user.isEmpty())
        user = qEnvironmentVariable("LOGNAME", u"user"_s);
    QString host = QSysInfo::machineHostName();
    if (host.isEmpty())
        host = u"localhost"_s;
    return user + u'@' + host;
}
