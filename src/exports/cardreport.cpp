#include "exports/cardreport.h"

#include "exports/reportcell.h"

#include <QCoreApplication>

namespace {

constexpr int namedColumns = 3;

QString cellText(QDate date, const QString &segment)
{
    return date.toString(QStringLiteral("d. M. yyyy")) + QLatin1String(", ") + segment;
}

} // namespace

namespace CardReport {

void setValue(const QAbstractItemModel &rows, int row, const QString &name, QVariant &value)
{
    const QModelIndex cell = reportCell(rows, row, name, namedColumns);
    if (cell.isValid())
        value = cell.data();
}

QString menuHeader(QDate date, const QString &segment, bool isFinal)
{
    return (isFinal ? QCoreApplication::translate("DayMenuWidget", "Objednávka: ")
                    : QCoreApplication::translate("DayMenuWidget", "Predbežná objednávka: "))
        + cellText(date, segment);
}

QString personHeader(QDate date, const QString &segment, const QString &person)
{
    return cellText(date, segment) + QLatin1String(", ") + person;
}

} // namespace CardReport
