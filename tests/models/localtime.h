#pragma once

#include <QDate>
#include <QtGlobal>

/// Unix seconds of 00:00 of `date` in the zone of the test run, worked out from the zone's offset that the test states:
/// `bratislavaHours` ahead of UTC in Europe/Bratislava, none in UTC.
inline qint64 midnight(const QDate &date, int bratislavaHours)
{
    const int hours = qgetenv("TZ") == "UTC" ? 0 : bratislavaHours;
    return QDate(1970, 1, 1).daysTo(date) * 86400 - qint64(3600) * hours;
}
