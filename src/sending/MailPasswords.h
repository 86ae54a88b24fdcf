#pragma once

#include <QString>

#include <optional>

// Mail passwords in the desktop's password store (QtKeychain), under the program's name and a
// key of user and server. Where there is no store, a password is kept for this session only.
namespace MailPasswords {

QString keyFor(const QString& user, const QString& host);
std::optional<QString> read(const QString& key);
void write(const QString& key, const QString& password);

} // namespace MailPasswords
