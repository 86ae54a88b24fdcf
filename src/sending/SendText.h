#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

// The texts the send window and the address lists take apart and put together: the addresses of
// the send box, the lines of the send history, the entries of an address list, and the files a
// database is sent with.
namespace SendText {

// The most addresses one send goes to.
inline constexpr int MostRecipients = 150;

// The addresses of the send box, one a line. A last line without a line end counts; a line
// end at the very end adds no empty address; empty lines inside stay, as empty addresses.
struct Recipients {
    QStringList addresses;
    bool tooMany = false; // more than MostRecipients
};
Recipients splitAddresses(const QString& text);

// The text of a box of lines with one more line at its end.
QString withLine(const QString& text, const QString& line);

// "file - address - date time", a line of the history.
QString historyLine(const QString& file, const QString& address, const QDateTime& when);
// The text between the first two hyphens of a history line, less the character at each end
// (the blanks of " - "); nothing when the line has no hyphen.
std::optional<QString> addressOfHistoryLine(const QString& line);

// "name - address", an entry of an address list, and the two halves of an entry split at its
// first hyphen, less the character on each side of it (the blanks of " - "): "Anna-Lena -
// anna@example.org" comes apart as "Ann" and "ena - anna@example.org".
QString addressEntry(const QString& name, const QString& address);
struct NameAndAddress {
    QString name;
    QString address;
};
NameAndAddress splitAddressEntry(const QString& entry);

// Whether files of an extension (upper case) go with their sibling files: DB, DBF, MDB.
bool sendsWithFamily(const QString& extension);
// The files of the folder of `path` whose names are its base name with any extension, in any
// letter case, sorted by name.
QStringList databaseFamily(const QString& path);

} // namespace SendText
