#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>
#include <vector>

// File masks such as "*.JPG;*.CMP" or "*LOG": patterns separated by ";", with "*" for any
// run of characters and "?" for one. Names match case-insensitively.
namespace FileMask {

bool matches(const QString& mask, const QString& fileName);

// A mask split once, for matching many names.
class Compiled {
public:
    explicit Compiled(const QString& mask);
    bool matches(const QString& fileName) const;
    // The same test on a name in UTF-8, as read from the file system. ASCII names are matched
    // on their bytes; any other name is decoded and goes through matches().
    bool matchesUtf8(std::string_view fileName) const;
    bool matchesEverything() const { return m_everything; }

private:
    QStringList m_patterns;
    // The case-folded patterns again in UTF-8: "*" and a literal tail as a plain suffix to
    // compare, anything else for the byte-wise wildcard match.
    std::vector<std::string> m_suffixes;
    std::vector<std::string> m_wildcards;
    bool m_everything = false;
};

} // namespace FileMask
