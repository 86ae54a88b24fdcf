#include "platform/tables/TableDate.h"

#include <QDateTime>

namespace {

QDate dateOf(const QString& text) {
    if (text.size() == 8)
        return QDate::fromString(text, QStringLiteral("yyyyMMdd"));
    return QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
}

// The locale's short time, with the seconds when there are any.
QString timeText(const QTime& time, const QLocale& locale) {
    QString format = locale.timeFormat(QLocale::ShortFormat);
    if (time.second() != 0 && !format.contains(QLatin1Char('s'))) {
        const qsizetype minutes = format.indexOf(QLatin1String("mm"));
        if (minutes >= 0)
            format.insert(minutes + 2, QLatin1String(":ss"));
    }
    return locale.toString(time, format);
}

} // namespace

namespace TableDate {

QString display(const QString& stored, const QLocale& locale) {
    const QString text = stored.trimmed();
    if (text.isEmpty())
        return text;
    const qsizetype gap = text.indexOf(QLatin1Char(text.contains(QLatin1Char('T')) ? 'T' : ' '));
    const QString dayPart = gap < 0 ? text : text.left(gap);
    const QString clockPart = gap < 0 ? QString() : text.mid(gap + 1);
    if (gap < 0 && text.contains(QLatin1Char(':'))) {
        const QTime time = QTime::fromString(text, Qt::ISODate);
        return time.isValid() ? timeText(time, locale) : stored;
    }
    const QDate day = dateOf(dayPart);
    if (!day.isValid())
        return stored;
    QString shown = locale.toString(day, QLocale::ShortFormat);
    if (!clockPart.isEmpty()) {
        const QTime time = QTime::fromString(clockPart, Qt::ISODate);
        if (!time.isValid())
            return stored;
        if (time != QTime(0, 0))
            shown += QLatin1Char(' ') + timeText(time, locale);
    }
    return shown;
}

} // namespace TableDate
