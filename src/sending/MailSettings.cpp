#include "sending/MailSettings.h"

#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

const char* const kSecurity[] = {"none", "starttls", "tls"};

} // namespace

std::optional<MailSettings> MailSettings::load(const QString& path) {
    const TextFile::ReadResult lines = TextFile::readLines(path);
    if (lines.error)
        return std::nullopt;
    MailSettings s;
    bool named = false;
    for (const QString& line : lines.lines) {
        const QString key = line.section(u'=', 0, 0).trimmed();
        const QString value = line.section(u'=', 1).trimmed();
        if (key == u"Road"_s) {
            named = value == u"sendmail"_s || value == u"smtp"_s;
            s.road = value == u"smtp"_s ? Road::Smtp : Road::Sendmail;
        } else if (key == u"Sendmail"_s && !value.isEmpty()) {
            s.sendmailPath = value;
        } else if (key == u"Host"_s) {
            s.host = value;
        } else if (key == u"Port"_s) {
            s.port = value.toInt() > 0 ? value.toInt() : s.port;
        } else if (key == u"Security"_s) {
            for (int i = 0; i < 3; ++i) {
                if (value == QLatin1String(kSecurity[i]))
                    s.security = Security(i);
            }
        } else if (key == u"User"_s) {
            s.user = value;
        } else if (key == u"Timeout"_s) {
            s.timeoutSeconds = value.toInt() > 0 ? value.toInt() : s.timeoutSeconds;
        }
    }
    if (!named)
        return std::nullopt;
    return s;
}

AppError MailSettings::save(const QString& path) const {
    return TextFile::replace(
        path, {u"Road="_s + (road == Road::Smtp ? u"smtp"_s : u"sendmail"_s),
               u"Sendmail="_s + sendmailPath, u"Host="_s + host, u"Port="_s + QString::number(port),
               u"Security="_s + QLatin1String(kSecurity[int(security)]), u"User="_s + user,
               u"Timeout="_s + QString::number(timeoutSeconds)});
}
