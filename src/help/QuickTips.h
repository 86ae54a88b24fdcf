#pragma once

#include <QString>
#include <QStringList>

// The tips of the Quick Tip of the Day: one tip a line of TIPHELP.TXT in the program folder,
// and the choice of the tip to show.
namespace QuickTips {

QString fileName();

struct Loaded {
    bool loaded = false; // false: no name, no such file, or a file that cannot be read
    QStringList tips;    // every line, empty ones too, however many and however long
};

// Reads the tips of a file. Bytes that are not UTF-8 read as replacement characters.
Loaded read(const QString& path);

// The number of the tip to show, counting from 1, for a random number from 0 to below 1: the
// integer part of random x count, plus 1; a number beyond the tips, or below 1, is 1.
qsizetype choose(double random, qsizetype count);

} // namespace QuickTips
