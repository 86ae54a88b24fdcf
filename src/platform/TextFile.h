#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QStringList>

// The program's small text files: UTF-8, read with either line end, written with CR LF.
class TextFile {
public:
    struct ReadResult {
        QStringList lines;
        AppError error; // FileNotFound when the file is missing
    };

    // Reads the lines of a file, at most maxLines of them when maxLines is not negative.
    // A line break at the end of the file does not start another line.
    static ReadResult readLines(const QString& path, qsizetype maxLines = -1);

    // Replaces the file with the given lines, each ended by CR LF. The old file stays whole
    // unless the new one was written completely.
    static AppError replace(const QString& path, const QStringList& lines);

    // Appends lines, each ended by CR LF, creating the file when it is missing.
    static AppError append(const QString& path, const QStringList& lines);

    // The bytes of the lines as written to disk.
    static QByteArray encode(const QStringList& lines);
};
