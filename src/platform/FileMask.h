#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <unordered_set>

// File masks such as "*.JPG;*.CMP" or "*LOG": patterns separated by ";", with "*" for any
// run of characters and "?" for one. Names match case-insensitively.
namespace FileMask {

bool matches(const QString& mask, const QString& fileName);

// A mask split once, for matching many names.
class Compiled {
public:
    explicit Compiled(const QString& mask);
    bool matches(const QString& fileName) const;
    bool matchesEverything() const { return m_everything; }

private:
    struct Pattern {
        QString text;        // case-folded
        bool suffix = false; // "*" and letters without wild cards: the end of a name
    };
    QList<Pattern> m_patterns;
    // The extensions of the "*.EXT" patterns, case-folded: a name matches by its last one.
    std::unordered_set<std::u16string> m_extensions;
    bool m_everything = false;
};

} // namespace FileMask
