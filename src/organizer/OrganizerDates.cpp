#include "organizer/OrganizerDates.h"

#include "shell/Globals.h"

#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace OrganizerDates {

namespace {

QString twoDigits(int value) {
    return u"%1"_s.arg(value, 2, 10, QChar(u'0'));
}

} // namespace

void SetDateStamps(const QDateTime& now) {
    Globals& g = globals();
    const QTime time = now.time();
    const QString hour = twoDigits(time.hour());
    const QString minute = twoDigits(time.minute());
    const QString second = twoDigits(time.second());
    g.gStampTime = hour + minute + second;
    int shownHour = time.hour();
    QString suffix = u"AM"_s;
    if (shownHour > 12) {
        suffix = u"PM"_s;
        shownHour -= 13;
    }
    const QString shownTime =
        QString::number(shownHour) + u':' + minute + u':' + second + u' ' + suffix;
    g.gStampDisplay =
        QLocale::system().toString(now.date(), QLocale::ShortFormat) + u' ' + shownTime;
    g.gStampDate = now.date().toString(u"yyyyMMdd"_s);
    g.gStampFull = g.gStampDate + g.gStampTime;
}

void SetDateStamps() {
    SetDateStamps(QDateTime::currentDateTime());
}

QString ToSortableDate(const QString& date) {
    const qsizetype first = date.indexOf(u'/');
    const qsizetype second = first < 0 ? -1 : date.indexOf(u'/', first + 1);
    QString month = first < 0 ? date : date.left(first);
    QString day = first < 0 ? QString() : date.mid(first + 1, second < 0 ? -1 : second - first - 1);
    const qsizetype last = date.lastIndexOf(u'/');
    const QString year = last < 0 ? date : date.mid(last + 1);
    if (month.size() == 1)
        month.prepend(u'0');
    if (day.size() == 1)
        day.prepend(u'0');
    // The leading number of the year, as a text of digits reads.
    qsizetype digits = 0;
    const QString trimmed = year.trimmed();
    while (digits < trimmed.size() && trimmed[digits].isDigit())
        ++digits;
    const int number = trimmed.left(digits).toInt();
    return (number < 81 ? u"20"_s : u"19"_s) + year + month + day;
}

FileDate fileDateText(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists())
        return {QString(), AppError(AppError::FileNotFound)};
    return {QLocale::c().toString(info.lastModified(), u"M/d/yy h:mm:ss AP"_s), {}};
}

std::pair<QString, QString> splitAtFirstBlank(const QString& text) {
    const qsizetype blank = text.indexOf(u' ');
    if (blank < 0)
        return {text, QString()};
    return {text.left(blank), text.mid(blank + 1)};
}

} // namespace OrganizerDates
