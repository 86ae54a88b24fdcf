#include "platform/FileMask.h"

#include <QList>
#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>

namespace {

// Iterative wildcard match with one back-track point for the last "*"; both sides are
// case-folded already. Works on UTF-16 text and on bytes alike.
template <class Text> bool matchPattern(Text pattern, Text name) {
    qsizetype p = 0, n = 0, starP = -1, starN = 0;
    const auto patternSize = static_cast<qsizetype>(pattern.size());
    const auto nameSize = static_cast<qsizetype>(name.size());
    while (n < nameSize) {
        if (p < patternSize && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (p < patternSize && (pattern[p] == u'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (starP >= 0) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < patternSize && pattern[p] == u'*')
        ++p;
    return p == patternSize;
}

constexpr char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether the name ends with the suffix, which is lower case already.
bool endsWithFolded(std::string_view name, std::string_view suffix) {
    if (name.size() < suffix.size())
        return false;
    const char* tail = name.data() + (name.size() - suffix.size());
    for (size_t i = 0; i < suffix.size(); ++i) {
        if (lowerAscii(tail[i]) != suffix[i])
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
        m_patterns.append(folded);
        std::string utf8 = folded.toStdString();
        if (utf8.size() > 1 && utf8.front() == '*' &&
            utf8.find_first_of("*?", 1) == std::string::npos)
            m_suffixes.push_back(utf8.substr(1));
        else
            m_wildcards.push_back(std::move(utf8));
    }
}

bool Compiled::matches(const QString& fileName) const {
    if (m_everything)
        return true;
    const QString folded = fileName.toCaseFolded();
    for (const QString& pattern : m_patterns) {
        if (matchPattern(QStringView(pattern), QStringView(folded)))
            return true;
    }
    return false;
}

bool Compiled::matchesUtf8(std::string_view fileName) const {
    if (m_everything)
        return true;
    // Outside ASCII, case folding can turn one character into another of a different length
    // and "?" stands for a UTF-16 unit, so those names take the general way.
    if (!isAscii(fileName))
        return matches(QString::fromUtf8(fileName.data(), static_cast<qsizetype>(fileName.size())));
    for (const std::string& suffix : m_suffixes) {
        if (endsWithFolded(fileName, suffix))
            return true;
    }
    if (m_wildcards.empty())
        return false;
    QVarLengthArray<char, 256> folded(static_cast<qsizetype>(fileName.size()));
    std::transform(fileName.begin(), fileName.end(), folded.begin(), lowerAscii);
    const std::string_view foldedName(folded.data(), fileName.size());
    for (const std::string& pattern : m_wildcards) {
        if (matchPattern(std::string_view(pattern), foldedName))
            return true;
    }
    return false;
}

bool matches(const QString& mask, const QString& fileName) {
    return Compiled(mask).matches(fileName);
}

} // namespace FileMask
