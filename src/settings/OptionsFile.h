#pragma once

#include "platform/AppError.h"
#include "settings/OptionSettings.h"

#include <QString>
#include <QStringList>

// Options.INI: 29 lines, one value a line, a line's place being its meaning. Line 24 holds the
// computer's network name, which the main window keeps.
namespace OptionsFile {

inline constexpr qsizetype LineCount = 29;

QString fileName();

// The defaults of every option; the computer's name becomes empty.
void setDefaults(OptionSettings& options, QString& computerName);

// Reads the file over the options, line by line, stopping at the first line that cannot be
// read; the values read until then stand. Returns the message for the user, or an empty text.
QString load(const QString& path, OptionSettings& options, QString& computerName);

// The 29 lines of the file.
QStringList toLines(const OptionSettings& options, const QString& computerName);

// Replaces the file; the old file stays whole when writing fails.
AppError save(const QString& path, const OptionSettings& options, const QString& computerName);

} // namespace OptionsFile
