#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVector>

/// The order of one day and service slot as a `mailto:` address, one for each supplier: the user's mail program opens
/// it as a ready message. Pure functions over plain rows.
namespace OrderMail {

/// One row of the addresses to write to (`SupplierModel::loadOrderMails`).
struct AddressRow {
    uint supplierID = 0;
    QString mail; ///< empty for a supplier without an address
};

/// Whom one message goes to.
struct Recipients {
    uint supplierID = 0;
    QString to; ///< the supplier's first address; may be empty
    QStringList copies; ///< its other addresses
};

/// The messages for `rows`, in their order. A message takes all later rows of its supplier along, and the next one
/// begins behind the last of these: another supplier that stands between two rows of the same one gets no message, on
/// purpose. The rows of one supplier are expected side by side, as `loadOrderMails` sorts them.
QVector<Recipients> recipients(const QVector<AddressRow> &rows);

/// What is ordered: an item and its number of portions, both as shown.
struct Item {
    QString name;
    QString portions;
};

/// What the message says, the same for every supplier but for the items.
struct Order {
    QString companyName;
    QDate date;
    QString segmentName; ///< service slot
    QVector<Item> items; ///< none: the body says "Žiadne objednávky."
};

/// The address, in this order: the recipient, the copies, the blind copies, the subject ("COMPANY dd.MM.yyyy - SLOT :
/// objednávka ") and the body, a line "ITEM PORTIONS " for each item with a line feed behind it. `blindCopies` are the
/// mails of the branch, empty when it wants none.
///
/// Nothing is percent-encoded here, on purpose: every text stands as it is, and what a "&" or "#" in a name does to the
/// message is up to those who read the address (docs/dispatch.md).
QString address(const Recipients &recipients, const QStringList &blindCopies, const Order &order);

} // namespace OrderMail
