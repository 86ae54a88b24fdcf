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

// The number a user's entry starts with, as an entry box is read: leading blanks skipped, then
// a sign, digits and one decimal point; "5.5 in" is 5.5, and text without a number is 0.
double leadingNumber(const QString& text);

// The message for a settings file that could not be written.
QString writeFailureMessage(const AppError& error);

} // namespace SettingsText
