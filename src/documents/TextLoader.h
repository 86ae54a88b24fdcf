#pragma once

#include <QString>

// Reads the files of text documents: rich text through unrtf as HTML, everything else as plain
// text. Files are read up to a limit; a file that cannot be read gives nothing.
namespace TextLoader {

inline constexpr qint64 MaxBytes = 64LL * 1024 * 1024;

struct Text {
    bool ok = false;
    bool rich = false; // `content` is HTML
    QString content;
};

// Rich text for the extension RTF, plain text for every other.
Text load(const QString& path, const QString& extension);

} // namespace TextLoader
