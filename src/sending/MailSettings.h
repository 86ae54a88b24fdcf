#pragma once

#include "platform/AppError.h"

#include <QString>

#include <optional>

// How the program sends mail: through this computer's mail system (its sendmail program) or
// through an SMTP server with a login. Kept in MailSend.INI of the program's folder, one
// "Name=value" line a setting; the password never goes into the file.
struct MailSettings {
    enum class Road { Sendmail, Smtp };
    enum class Security { None, StartTls, Tls };

    static constexpr const char* FileName = "MailSend.INI";

    Road road = Road::Sendmail;
    QString sendmailPath = QStringLiteral("/usr/sbin/sendmail");
    QString host;
    int port = 587;
    Security security = Security::StartTls;
    QString user;
    int timeoutSeconds = 30;

    // Settings from a file; nothing when the file is missing or names no road.
    static std::optional<MailSettings> load(const QString& path);
    AppError save(const QString& path) const;
};
