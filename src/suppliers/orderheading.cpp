#include "suppliers/orderheading.h"

#include <QCoreApplication>

namespace {

QString dayAndSegment(QDate date, const QString &segmentName)
{
    return date.toString(QStringLiteral("d. M. yyyy")) + QLatin1String(", ") + segmentName;
}

} // namespace

QString orderHeading(bool isFinal, const QString &companyName, QDate date, const QString &segmentName,
                     const QString &supplierName)
{
    const QString kind = isFinal ? QCoreApplication::translate("DialogReport", "Záväzná objednávka - ")
                                 : QCoreApplication::translate("DialogReport", "Predbežná objednávka - ");
    return kind + companyName + QLatin1Char(' ') + dayAndSegment(date, segmentName) + QLatin1String(": ")
        + supplierName;
}

QString ordersHeading(QDate date, const QString &segmentName)
{
    return QCoreApplication::translate("DialogReport", "Zoznam ku dňu: ") + dayAndSegment(date, segmentName);
}
