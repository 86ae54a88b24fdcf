#include "sending/SendText.h"

#include "platform/PathUtil.h"

#include <QDir>
#include <QLocale>

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
    QString piece = line.mid(first + 1, second < 0 ? -1 : second - first - 1);
    if (piece.startsWith(u' '))
        piece.remove(0, 1);
    if (piece.endsWith(u' '))
        piece.chop(1);
    return piece;
}

QString addressEntry(const QString& name, const QString& address) {
    return name + u" - "_s + address;
}

NameAndAddress splitAddressEntry(const QString& entry) {
    const qsizetype hyphen = entry.indexOf(u'-');
    if (hyphen < 0)
        return {entry, QString()};
    NameAndAddress parts{entry.left(hyphen), entry.mid(hyphen + 1)};
    if (parts.name.endsWith(u' '))
        parts.name.chop(1);
    if (parts.address.startsWith(u' '))
        parts.address.remove(0, 1);
    return parts;
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
