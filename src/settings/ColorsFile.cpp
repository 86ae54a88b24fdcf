#include "settings/ColorsFile.h"

#include "platform/TextFile.h"
#include "settings/SettingsText.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// The order of the lines in the file.
constexpr std::array<qint32 ColorSettings::*, ColorsFile::LineCount> kLines = {
    &ColorSettings::gMainBackColor,      &ColorSettings::gMainForeColor,
    &ColorSettings::gListBackColor,      &ColorSettings::gListForeColor,
    &ColorSettings::gEntryBackColor,     &ColorSettings::gEntryForeColor,
    &ColorSettings::gDisplayBackColor,   &ColorSettings::gDisplayForeColor,
    &ColorSettings::gWindowBackColor,    &ColorSettings::gWindowForeColor,
    &ColorSettings::gBrowserBackColor,   &ColorSettings::gBrowserForeColor,
    &ColorSettings::gThumbBackColor,     &ColorSettings::gThumbForeColor,
    &ColorSettings::gTipBackColor,       &ColorSettings::gTipForeColor,
    &ColorSettings::gSelectionItemColor, &ColorSettings::gPictureWindowColor,
    &ColorSettings::gButtonColor,
};

} // namespace

namespace ColorsFile {

QString fileName() {
    return u"Colors.INI"_s;
}

const std::array<qint32 ColorSettings::*, LineCount>& roles() {
    return kLines;
}

void setDefaults(ColorSettings& colors, OptionSettings& options) {
    const qint32 thumbBack = colors.gThumbBackColor;
    const qint32 thumbFore = colors.gThumbForeColor;
    colors = ColorSettings{};
    colors.gThumbBackColor = thumbBack;
    colors.gThumbForeColor = thumbFore;
    options.gBoldType = false;
    options.gQuickTipsOption = true;
}

QString load(const QString& path, ColorSettings& colors) {
    const TextFile::ReadResult file = TextFile::readLines(path, LineCount);
    if (file.error.number() == AppError::FileNotFound)
        return u"Use the Utility Menu Option - Set Window Colors"_s;
    if (file.error)
        return u"Error Loading Application Window Colors"_s;
    for (qsizetype i = 0; i < LineCount; ++i) {
        if (i >= file.lines.size() || SettingsText::toInt32(file.lines[i], colors.*kLines[i]))
            return u"Error Loading Application Window Colors"_s;
    }
    return {};
}

QStringList toLines(const ColorSettings& colors) {
    QStringList lines;
    for (qint32 ColorSettings::*member : kLines)
        lines.append(SettingsText::fromInteger(colors.*member));
    return lines;
}

AppError save(const QString& path, const ColorSettings& colors) {
    return TextFile::replace(path, toLines(colors));
}

} // namespace ColorsFile
