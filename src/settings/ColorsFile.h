#pragma once

#include "platform/AppError.h"
#include "settings/ColorSettings.h"
#include "settings/OptionSettings.h"

#include <QString>
#include <QStringList>

#include <array>

// Colors.INI: the 19 colour roles, one decimal integer a line.
namespace ColorsFile {

inline constexpr qsizetype LineCount = 19;

QString fileName();

// The default colours. The thumbnail colours have no default and keep their values; the
// bold type and the quick tips get their defaults too.
void setDefaults(ColorSettings& colors, OptionSettings& options);

// Reads the file over the colours, stopping at the first line that cannot be read; the
// values read until then stand. Returns the message for the user, or an empty text.
QString load(const QString& path, ColorSettings& colors);

QStringList toLines(const ColorSettings& colors);
// The roles in the order of the file's lines.
const std::array<qint32 ColorSettings::*, LineCount>& roles();

// Replaces the file; the old file stays whole when writing fails.
AppError save(const QString& path, const ColorSettings& colors);

} // namespace ColorsFile
