#include "sending/SendText.h"

#include "platform/PathUtil.h"

#include <QDir>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace SendText {

Recipients splitAddresses(const QString& text) {
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    Recipients result;
    result.addresses = lines.split(u'\n');
    if (result.addresses.last().isEmpty())
        result.addresses.removeLast();
    result.tooMany = result.addresses.size() > MostRecipients;
    return result;
}

QString withLine(const QString& text, const QString& line) {
    const bool ended = text.isEmpty() || text.endsWith(u'\n');
    return text + (ended ? QString() : u"\n"_s) + line + u'\n';
}

QString historyLine(const QString& file, const QString& address, const QDateTime& when) {
    const QLocale locale = QLocale::system();
    return file + u" - "_s + address + u" - "_s +
           locale.toString(when.date(), QLocale::ShortFormat) + u' ' +
           locale.toString(when.time(), QLocale::ShortFormat);
}

std::optional<QString> addressOfHistoryLine(const QString& line) {
    const qsizetype first = line.indexOf(u'-');
    if (first < 0)
        return std::nullopt;
    const qsizetype second = line.indexOf(u'-', first + 1);
    // One character off each end, where the blanks of " - " stand.
    const QString piece = line.mid(first + 1, second < 0 ? -1 : second - first - 1);
    return piece.mid(1, piece.size() - 2);
}

QString addressEntry(const QString& name, const QString& address) {
    return name + u" - "_s + address;
}

NameAndAddress splitAddressEntry(const QString& entry) {
    const qsizetype hyphen = entry.indexOf(u'-');
    if (hyphen < 0)
        return {entry, QString()};
    // One character off each side of the hyphen, where the blanks of " - " stand.
    return {entry.left(std::max<qsizetype>(hyphen - 1, 0)), entry.mid(hyphen + 2)};
}

bool sendsWithFamily(const QString& extension) {
    return extension == u"DB"_s || extension == u"DBF"_s || extension == u"MDB"_s;
}

QStringList databaseFamily(const QString& path) {
    const QString name = PathUtil::nameOf(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString base = dot < 0 ? name : name.left(dot);
    QDir folder(PathUtil::folderOf(path));
    folder.setFilter(QDir::Files | QDir::Hidden);
    folder.setSorting(QDir::Name | QDir::IgnoreCase);
    QStringList family;
    for (const QString& file : folder.entryList()) {
        const qsizetype fileDot = file.lastIndexOf(u'.');
        if (fileDot >= 0 && file.left(fileDot).compare(base, Qt::CaseInsensitive) == 0)
            family.append(folder.filePath(file));
    }
    return family;
}

} // namespace SendText
