#pragma once

#include <QDate>
#include <QString>

/// The calendar month of a monthly report, told by any day in it. Days only, no times. An invalid day has an invalid
/// first and last day, and no text.
namespace ReportMonth {

QDate firstDay(QDate day);
/// The 28th to the 31st.
QDate lastDay(QDate day);
/// Name and year in the default locale, in English "March 2020".
QString text(QDate day);

} // namespace ReportMonth
