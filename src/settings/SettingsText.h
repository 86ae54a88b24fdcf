#pragma once

#include "platform/AppError.h"

#include <QString>
#include <QtGlobal>

// The text forms of the values in the settings files: numbers in plain decimal (a fraction
// kept as it is), truth values as the words True and False.
namespace SettingsText {

QString fromNumber(double value);
QString fromInteger(qint64 value);
QString fromBool(bool value);

// Each parser leaves `out` alone and returns the error on text it cannot take:
// TypeMismatch for text that is not of the type, Overflow for a number out of range.
AppError toNumber(const QString& text, double& out);
AppError toInt32(const QString& text, qint32& out);
AppError toInt16(const QString& text, qint16& out);
AppError toBool(const QString& text, bool& out);

// The message for a settings file that could not be written.
QString writeFailureMessage(const AppError& error);

} // namespace SettingsText
