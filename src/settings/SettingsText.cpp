#include "settings/SettingsText.h"

#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

template <typename Int> AppError toInteger(const QString& text, Int& out) {
    double value = 0;
    if (AppError error = SettingsText::toNumber(text, value))
        return error;
    // Whole numbers are rounded half to even, as the files' earlier writers did.
    const double rounded = std::nearbyint(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max()))
        return AppError(AppError::Overflow);
    out = static_cast<Int>(rounded);
    return {};
}

} // namespace

namespace SettingsText {

QString fromNumber(double value) {
    // Plain decimals, never an exponent: the shortest digits that read back to the same value.
    char buffer[512];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
    return QString::fromLatin1(buffer, result.ptr - buffer);
}

double leadingNumber(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text.at(at).isSpace())
        ++at;
    const qsizetype start = at;
    if (at < text.size() && (text.at(at) == u'-' || text.at(at) == u'+'))
        ++at;
    bool point = false;
    while (at < text.size()) {
        const QChar c = text.at(at);
        if (c == u'.' && !point)
            point = true;
        else if (c < u'0' || c > u'9')
            break;
        ++at;
    }
    bool ok = false;
    const double value = text.mid(start, at - start).toDouble(&ok);
    return ok ? value : 0.0;
}

QString fromInteger(qint64 value) {
    return QString::number(value);
}

QString fromBool(bool value) {
    return value ? u"True"_s : u"False"_s;
}

AppError toNumber(const QString& text, double& out) {
    QByteArray bytes = text.trimmed().toLatin1();
    if (bytes.startsWith('+'))
        bytes.remove(0, 1);
    if (bytes.isEmpty() || bytes.startsWith('+'))
        return AppError(AppError::TypeMismatch);
    double value = 0;
    const char* end = bytes.constData() + bytes.size();
    const auto result = std::from_chars(bytes.constData(), end, value);
    if (result.ec == std::errc::result_out_of_range)
        return AppError(AppError::Overflow);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return AppError(AppError::TypeMismatch);
    out = value;
    return {};
}

AppError toInt32(const QString& text, qint32& out) {
    return toInteger(text, out);
}

AppError toInt16(const QString& text, qint16& out) {
    return toInteger(text, out);
}

AppError toBool(const QString& text, bool& out) {
    const QString word = text.trimmed();
    if (word.compare(u"True"_s, Qt::CaseInsensitive) == 0) {
        out = true;
        return {};
    }
    if (word.compare(u"False"_s, Qt::CaseInsensitive) == 0) {
        out = false;
        return {};
    }
    double number = 0;
    if (toNumber(word, number))
        return AppError(AppError::TypeMismatch);
    out = number != 0;
    return {};
}

QString writeFailureMessage(const AppError& error) {
    return u"Error: "_s + QString::number(error.number()) + u" - "_s + error.description();
}

} // namespace SettingsText
