#include "suppliers/ordermail.h"

#include <QCoreApplication>

namespace OrderMail {

namespace {

QString subject(const Order &order)
{
    // Filled in one go, so that a name with "%1" in it stays as it is.
    const QString pattern = QLatin1String("&subject=%1 %2 - %3 : ")
        + QCoreApplication::translate("DialogReport", "objednávka") + QLatin1String(" &body=");
    return pattern.arg(order.companyName, order.date.toString(QStringLiteral("dd.MM.yyyy")), order.segmentName);
}

QString body(const QVector<Item> &items)
{
    QString text;
    for (const Item &item : items)
        text += QStringLiteral("%1 %2 \n").arg(item.name, item.portions);
    return items.isEmpty() ? QCoreApplication::translate("DialogReport", "Žiadne objednávky.") : text;
}

} // namespace

QVector<Recipients> recipients(const QVector<AddressRow> &rows)
{
    QVector<Recipients> messages;
    int last = -1;
    for (int first = 0; first < rows.size(); first = last + 1) {
        Recipients message{rows.at(first).supplierID, rows.at(first).mail, {}};
        last = first;
        for (int row = first + 1; row < rows.size(); ++row) {
            if (rows.at(row).supplierID != message.supplierID)
                continue;
            message.copies.append(rows.at(row).mail);
            last = row;
        }
        messages.append(message);
    }
    return messages;
}

QString address(const Recipients &recipients, const QStringList &blindCopies, const Order &order)
{
    QString text = QLatin1String("mailto:?to=") + recipients.to;
    for (const QString &copy : recipients.copies)
        text += QLatin1String("&cc=") + copy;
    for (const QString &copy : blindCopies)
        text += QLatin1String("&bcc=") + copy;
    return text + subject(order) + body(order.items);
}

} // namespace OrderMail
