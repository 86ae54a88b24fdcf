#include "platform/FileMask.h"

#include <QList>
#include <QStringView>

namespace {

// Iterative wildcard match with one back-track point for the last "*"; both sides are
// case-folded already.
bool matchPattern(QStringView pattern, QStringView name) {
    qsizetype p = 0, n = 0, starP = -1, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
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

Compiled::Compiled(const QString& mask) {
    for (QStringView part : QStringView(mask).split(u';')) {
        part = part.trimmed();
        if (part.isEmpty())
            continue;
        // "*.*" lists every file, names without a dot included.
        if (part == u"*.*" || part == u"*")
            m_everything = true;
        m_patterns.append(part.toString().toCaseFolded());
    }
}

bool Compiled::matches(const QString& fileName) const {
    if (m_everything)
        return true;
    const QString folded = fileName.toCaseFolded();
    for (const QString& pattern : m_patterns) {
        if (matchPattern(pattern, folded))
            return true;
    }
    return false;
}

bool matches(const QString& mask, const QString& fileName) {
    return Compiled(mask).matches(fileName);
}

} // namespace FileMask
