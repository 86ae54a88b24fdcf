#pragma once

#include <QLocale>
#include <QString>

// How a date field of any kind of table shows: the locale's short date, with the time only
// when the value has one. The readers hand dates over as they store them: "yyyyMMdd" (dBASE),
// "yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss" or "yyyy-MM-ddTHH:mm:ss", or a time alone "HH:mm:ss".
namespace TableDate {

// The text shown for a stored date; a text that is not a date is shown as it is.
QString display(const QString& stored, const QLocale& locale = QLocale());

} // namespace TableDate
