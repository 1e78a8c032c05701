#include "exports/reportmonth.h"

#include <QLocale>

namespace ReportMonth {

QDate firstDay(QDate day)
{
    return {day.year(), day.month(), 1};
}

QDate lastDay(QDate day)
{
    return firstDay(day).addMonths(1).addDays(-1);
}

QString text(QDate day)
{
    return QLocale().toString(day, QStringLiteral("MMMM yyyy"));
}

} // namespace ReportMonth
