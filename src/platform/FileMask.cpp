#include "platform/FileMask.h"

#include <QList>
#include <QStringView>

using namespace Qt::StringLiterals;

namespace {

// Extensions up to this length are looked up in a set; longer ones are matched as patterns.
constexpr qsizetype MaxExtension = 7;

// A letter of a name as the patterns hold it: case-folded, quickly for the plain letters.
inline char16_t folded(char16_t c) {
    if (c < 0x80)
        return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
    return QChar(c).toCaseFolded().unicode();
}

// Iterative wildcard match with one back-track point for the last "*"; the pattern is
// case-folded already, the name is folded letter by letter.
bool matchPattern(QStringView pattern, QStringView name) {
    qsizetype p = 0, n = 0, starP = -1, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || pattern[p].unicode() == folded(name[n].unicode()))) {
            ++p;
            ++n;
        } else if (starP >= 0) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

// "*" followed by letters without wild cards: a match is a name that ends with them.
bool isSuffixPattern(QStringView pattern) {
    return pattern.size() > 1 && pattern[0] == u'*' && !pattern.mid(1).contains(u'*') &&
           !pattern.mid(1).contains(u'?');
}

bool endsWith(QStringView name, QStringView suffix) {
    if (name.size() < suffix.size())
        return false;
    const qsizetype start = name.size() - suffix.size();
    for (qsizetype i = 0; i < suffix.size(); ++i) {
        if (folded(name[start + i].unicode()) != suffix[i].unicode())
            return false;
    }
    return true;
}

} // namespace

namespace FileMask {

Compiled::Compiled(const QString& mask) {
    for (QStringView part : QStringView(mask).split(u';')) {
        part = part.trimmed();
        if (part.isEmpty())
            continue;
        // "*.*" lists every file, names without a dot included.
        if (part == u"*.*" || part == u"*")
            m_everything = true;
        const QString folded = part.toString().toCaseFolded();
        const QStringView extension = QStringView(folded).mid(2);
        if (folded.startsWith(u"*."_s) && isSuffixPattern(folded) && !extension.contains(u'.') &&
            extension.size() <= MaxExtension)
            m_extensions.insert(extension.toString().toStdU16String());
        else
            m_patterns.append({folded, isSuffixPattern(folded)});
    }
}

bool Compiled::matches(const QString& fileName) const {
    if (m_everything)
        return true;
    if (!m_extensions.empty()) {
        const qsizetype dot = fileName.lastIndexOf(u'.');
        if (dot >= 0 && fileName.size() - dot - 1 <= MaxExtension) {
            std::u16string extension;
            for (qsizetype i = dot + 1; i < fileName.size(); ++i)
                extension.push_back(folded(fileName[i].unicode()));
            if (m_extensions.count(extension))
                return true;
        }
    }
    for (const Pattern& pattern : m_patterns) {
        if (pattern.suffix ? endsWith(fileName, QStringView(pattern.text).mid(1))
                           : matchPattern(pattern.text, fileName))
            return true;
    }
    return false;
}

bool matches(const QString& mask, const QString& fileName) {
    return Compiled(mask).matches(fileName);
}

} // namespace FileMask
