#pragma once

#include "platform/AppError.h"

#include <QDateTime>
#include <QString>

// The date and time texts that every organizer window writes into its rows.
namespace OrganizerDates {

// Fills gStampDate (yyyyMMdd), gStampTime (HHmmss), gStampDisplay (the locale's short date and
// the time with its AM/PM suffix) and gStampFull (date and time) from the given moment. The
// shown hour follows the organizer's own rule: past 12 it loses 13 and is PM, else it is AM.
void SetDateStamps(const QDateTime& now);
void SetDateStamps();

// "M/D/YY" (month first, slashes) as yyyyMMdd: years below 81 are of this century, the others
// of the last, and a year written in full gets a century all the same.
QString ToSortableDate(const QString& date);

// The date and time of a file on disk as "M/D/YY h:mm:ss AM"; error 53 when it is not there.
struct FileDate {
    QString text;
    AppError error;
};
FileDate fileDateText(const QString& path);

// The text before and after the first blank of a file date text.
std::pair<QString, QString> splitAtFirstBlank(const QString& text);

} // namespace OrganizerDates
