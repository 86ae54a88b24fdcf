#include "settings/OptionsFile.h"

#include "platform/TextFile.h"
#include "settings/SettingsText.h"

#include <array>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

struct ComputerNameLine {};

using Line =
    std::variant<double OptionSettings::*, qint32 OptionSettings::*, qint16 OptionSettings::*,
                 bool OptionSettings::*, QString OptionSettings::*, ComputerNameLine>;

// The order of the lines in the file.
const std::array<Line, OptionsFile::LineCount> kLines = {
    &OptionSettings::gMainLeft,         &OptionSettings::gMainTop,
    &OptionSettings::gMainHeight,       &OptionSettings::gMainWidth,
    &OptionSettings::gFrameLeft,        &OptionSettings::gFrameTop,
    &OptionSettings::gFrameHeight,      &OptionSettings::gFrameWidth,
    &OptionSettings::gThumbHeight,      &OptionSettings::gThumbWidth,
    &OptionSettings::gThumbBits,        &OptionSettings::gTreeHeight,
    &OptionSettings::gTreeWidth,        &OptionSettings::gTreeLeft,
    &OptionSettings::gListHeight,       &OptionSettings::gListWidth,
    &OptionSettings::gListLeft,         &OptionSettings::gViewMode,
    &OptionSettings::gSearchInitial,    &OptionSettings::gSearchAdditional,
    &OptionSettings::gBrowserTextStyle, &OptionSettings::gAddressBook,
    &OptionSettings::gFromAddress,      ComputerNameLine{},
    &OptionSettings::gBoldType,         &OptionSettings::gGridLines,
    &OptionSettings::gQuickTipsOption,  &OptionSettings::gAskComputer,
    &OptionSettings::gSeparatorOption,
};

template <class... Fs> struct Overloaded : Fs... { using Fs::operator()...; };

// A text value must stay on its own line.
QString oneLine(QString text) {
    text.replace(u'\r', u' ');
    text.replace(u'\n', u' ');
    return text;
}

} // namespace

namespace OptionsFile {

QString fileName() {
    return u"Options.INI"_s;
}

void setDefaults(OptionSettings& options, QString& computerName) {
    options = OptionSettings{};
    computerName.clear();
}

QString load(const QString& path, OptionSettings& options, QString& computerName) {
    const TextFile::ReadResult file = TextFile::readLines(path, LineCount);
    if (file.error.number() == AppError::FileNotFound)
        return u"Use the Utility Menu Option - Set Program Options"_s;

    AppError error = file.error;
    for (qsizetype i = 0; !error && i < LineCount; ++i) {
        if (i >= file.lines.size()) {
            error = AppError(AppError::InputPastEnd);
            break;
        }
        const QString& text = file.lines[i];
        error = std::visit(
            Overloaded{
                [&](double OptionSettings::*m) { return SettingsText::toNumber(text, options.*m); },
                [&](qint32 OptionSettings::*m) { return SettingsText::toInt32(text, options.*m); },
                [&](qint16 OptionSettings::*m) { return SettingsText::toInt16(text, options.*m); },
                [&](bool OptionSettings::*m) { return SettingsText::toBool(text, options.*m); },
                [&](QString OptionSettings::*m) {
                    options.*m = text;
                    return AppError();
                },
                [&](ComputerNameLine) {
                    computerName = text;
                    return AppError();
                },
            },
            kLines[i]);
    }
    if (!error)
        return {};
    return u"Error Loading Application Options - "_s + QString::number(error.number()).trimmed() +
           u' ' + error.description();
}

QStringList toLines(const OptionSettings& options, const QString& computerName) {
    QStringList lines;
    for (const Line& line : kLines) {
        lines.append(std::visit(
            Overloaded{
                [&](double OptionSettings::*m) { return SettingsText::fromNumber(options.*m); },
                [&](qint32 OptionSettings::*m) { return SettingsText::fromInteger(options.*m); },
                [&](qint16 OptionSettings::*m) { return SettingsText::fromInteger(options.*m); },
                [&](bool OptionSettings::*m) { return SettingsText::fromBool(options.*m); },
                [&](QString OptionSettings::*m) { return oneLine(options.*m); },
                [&](ComputerNameLine) { return oneLine(computerName); },
            },
            line));
    }
    return lines;
}

AppError save(const QString& path, const OptionSettings& options, const QString& computerName) {
    return TextFile::replace(path, toLines(options, computerName));
}

} // namespace OptionsFile
