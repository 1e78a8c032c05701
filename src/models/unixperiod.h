#pragma once

#include <QDate>

/// A stretch of time in Unix seconds. Days begin at 00:00 of the local time zone, so a week with a change of the clocks
/// is an hour shorter or longer than 7 x 86400 seconds: 2026-03-23 to 2026-03-30 in Bratislava is 601200 seconds.
struct UnixPeriod {
    qint64 start = 0; ///< first second of the period
    qint64 end = 0; ///< first second after it
};

/// The Monday of the week (Monday to Sunday) of `date`. An invalid date gives an invalid date.
QDate mondayOf(const QDate &date);
/// 00:00 of `date` in local time, in Unix seconds; 0 for an invalid date.
qint64 startOfDay(const QDate &date);
/// From 00:00 of `first` to 00:00 of the day `days` later.
UnixPeriod daysFrom(const QDate &first, int days);
/// From the Monday of the week of `date` to the Monday after.
UnixPeriod weekOf(const QDate &date);
