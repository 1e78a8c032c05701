#include "models/unixperiod.h"

#include <QDateTime>

QDate mondayOf(const QDate &date)
{
    return date.addDays(1 - date.dayOfWeek());
}

qint64 startOfDay(const QDate &date)
{
    return date.isValid() ? date.startOfDay(Qt::LocalTime).toSecsSinceEpoch() : 0;
}

UnixPeriod daysFrom(const QDate &first, int days)
{
    return {startOfDay(first), startOfDay(first.addDays(days))};
}

UnixPeriod weekOf(const QDate &date)
{
    return daysFrom(mondayOf(date), 7);
}
