#pragma once

#include <QDate>
#include <QString>

/// The heading of a supplier's printed order: "Predbežná objednávka - COMPANY d. M. yyyy, SLOT: SUPPLIER", of a final
/// one "Záväzná objednávka - ..." likewise.
QString orderHeading(bool isFinal, const QString &companyName, QDate date, const QString &segmentName,
                     const QString &supplierName);

/// The heading of the printed list of who ordered what: "Zoznam ku dňu: d. M. yyyy, SLOT".
QString ordersHeading(QDate date, const QString &segmentName);
