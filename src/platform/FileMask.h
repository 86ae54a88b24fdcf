#pragma once

#include <QString>
#include <QStringList>

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
    QStringList m_patterns;
    bool m_everything = false;
};

} // namespace FileMask
