#include "platform/FileMask.h"

#include <QList>
#include <QStringView>

namespace {

bool sameLetter(QChar a, QChar b) {
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

// Iterative wildcard match with one back-track point for the last "*".
bool matchPattern(QStringView pattern, QStringView name) {
    qsizetype p = 0, n = 0, starP = -1, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || sameLetter(pattern[p], name[n]))) {
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

} // namespace

namespace FileMask {

bool matches(const QString& mask, const QString& fileName) {
    for (QStringView part : QStringView(mask).split(u';')) {
        part = part.trimmed();
        if (part.isEmpty())
            continue;
        // "*.*" lists every file, names without a dot included.
        if (part == u"*.*" || part == u"*")
            return true;
        if (matchPattern(part, fileName))
            return true;
    }
    return false;
}

} // namespace FileMask
