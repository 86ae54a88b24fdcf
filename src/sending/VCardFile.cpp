#include "sending/VCardFile.h"

#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace VCardFile {

namespace {

// vCard escapes commas, semicolons and backslashes.
QString unescaped(const QString& value) {
    QString out;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == u'\\' && i + 1 < value.size()) {
            const QChar next = value.at(++i);
            out += next == u'n' || next == u'N' ? u' ' : next;
        } else {
            out += value.at(i);
        }
    }
    return out.trimmed();
}

} // namespace

QList<Contact> read(const QString& path) {
    // Lines that begin with a blank continue the one before.
    QStringList lines;
    for (const QString& line : TextFile::readLines(path).lines) {
        if ((line.startsWith(u' ') || line.startsWith(u'\t')) && !lines.isEmpty())
            lines.last() += line.mid(1);
        else
            lines.append(line);
    }
    QList<Contact> contacts;
    Contact card;
    QString parts;
    for (const QString& line : lines) {
        const qsizetype colon = line.indexOf(u':');
        if (colon < 0)
            continue;
        // The property's name without its group and parameters.
        const QString name = line.left(colon).section(u';', 0, 0).section(u'.', -1).toUpper();
        const QString value = line.mid(colon + 1);
        if (name == u"BEGIN"_s) {
            card = {};
            parts.clear();
        } else if (name == u"FN"_s) {
            card.name = unescaped(value);
        } else if (name == u"N"_s) {
            // Family;Given;Additional;Prefix;Suffix
            const QStringList n = value.split(u';');
            parts = unescaped(n.value(1) + u' ' + n.value(0));
        } else if (name == u"EMAIL"_s && card.address.isEmpty()) {
            card.address = unescaped(value);
        } else if (name == u"END"_s) {
            if (card.name.isEmpty())
                card.name = parts;
            if (!card.name.isEmpty() || !card.address.isEmpty())
                contacts.append(card);
        }
    }
    return contacts;
}

} // namespace VCardFile
