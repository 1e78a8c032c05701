#pragma once

#include "models/sqllistmodel.h"

class QStandardItemModel;

/// The lists of suppliers and of what hangs on them.
///
/// The model itself holds keys and names (`loadAllSuppliers`). Every other operation gives a new model of text cells,
/// owned by the caller, in the order of the database unless told; a failed statement is logged under the operation's
/// tag in the form "SupplierModel - ... ERROR: [2013]: ..." and gives no rows. `bid` 0 stands for all branches (NULL in
/// the tables).
class SupplierModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `loadAllSuppliers()`.
    explicit SupplierModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Loads all suppliers. Columns: 0 supplierID, 1 name. False when it failed; the model is empty then.
    bool loadAllSuppliers();

    /// Columns of `checkableSuppliers`.
    enum CheckableColumn : int { SupplierId, Name, Description, Deadline, BranchId, Shortcut, DaysTo, CheckableCount };
    /// All suppliers. The name cannot be edited and has a check box, checked for a supplier that delivers to the
    /// branch; in a read-only session it has none. Deadline is "hh:mm:ss", empty without one. BranchId is a number
    /// above 0 for a supplier of the branch, else empty.
    QStandardItemModel *checkableSuppliers(uint bid);

    /// The suppliers of the branch behind a first row "0", "- všetci dodávatelia -". Columns: 0 supplierID, 1 name. A
    /// failure is logged under the tag of `checkableSuppliers` and leaves the first row out too.
    QStandardItemModel *branchSuppliers(uint bid);

    /// The control mail addresses of the branch. Columns: 0 branchMailID, 1 mail, 2 bid.
    QStandardItemModel *loadBranchMails(uint bid);

    /// The sending times of the supplier, by days and hour. Columns: 0 proMailDelayID, 1 the text
    /// "08:30 - 1 dní pred výdajom.", 2 supplierID. A failure is logged under the tag of `loadSupplierMails`, which log
    /// readers know it by.
    QStandardItemModel *loadSupplierTimes(uint supplierID);

    /// The mail addresses of the supplier. Columns: 0 supplierMailID, 1 mail, 2 supplierID.
    QStandardItemModel *loadSupplierMails(uint supplierID);

    /// Whom the orders of a branch are mailed to: the addresses of its suppliers, or of one of them; `supplierID` 0
    /// stands for all. A supplier without an address has one row with an empty mail; with `bid` 0, one that is linked
    /// to no branch at all counts too. The rows are sorted by supplier, so that those of one come next to each other.
    /// Columns: 0 supplierID, 1 mail. A failure is logged under the tag of `loadSupplierMails`.
    QStandardItemModel *loadOrderMails(uint supplierID, uint bid);
};
