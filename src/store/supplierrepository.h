#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>
#include <QTime>

class SqlOperation;

/// One meal supplier.
struct SupplierRecord {
    quint32 supplierID = 0; ///< key; 0 while new
    QString name;
    QString description;
    QString shortcut; ///< mark shown before food names
    QTime deadline; ///< ordering closes at this hour; invalid = none, NULL in the table
    quint32 daysto = 0; ///< that many days before the service
};

/// One moment at which a supplier's order mail goes out.
struct SupplierTime {
    quint32 proMailDelayID = 0; ///< key; 0 while new
    quint32 supplierID = 0;
    QTime sendtime; ///< hour of sending
    quint32 daysto = 0; ///< days before the service
};

/// Writes suppliers and what hangs on them: their mail addresses, the control mail addresses of a branch, the links
/// between supplier and branch, and the sending times. Lists are the list models' affair. `bid` 0 stands for all
/// branches and is stored as NULL.
///
/// Every operation that fails writes one critical line "SupplierRepository(...) - SQL ERROR: ..." and, except
/// `loadLastSupplierID`, shows a box titled "Chyba databázy"; a change then gives false. Adding what is there already
/// is true and without effect.
class SupplierRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit SupplierRepository(QSqlDatabase db, QObject *parent = nullptr);

public slots:
    /// The supplier with this key; a fresh record with an invalid deadline for a missing one.
    SupplierRecord loadSupplier(uint supplierID);
    /// The highest key, 0 for an empty table or a failure: the key of a supplier just added. Nothing guards against
    /// another workstation that adds one in between.
    uint loadLastSupplierID();
    /// Adds a supplier under a new key; `supplierID` is not used. The log tag of a failure names the mail operation.
    bool addSupplier(SupplierRecord supplier);
    /// Rewrites the supplier with the record's key. True also when no row has that key.
    bool updateSupplier(SupplierRecord supplier);
    /// Deletes the supplier with the record's key, its mails and its sending times, in one transaction. The database
    /// refuses while foods or branch links refer to it; then nothing has changed.
    bool deleteSupplier(SupplierRecord supplier);

    /// Adds a control mail address of a branch.
    bool addBranchMail(uint bid, QString mail);
    bool editBranchMail(uint branchMailID, QString mail);
    bool deleteBranchMail(uint branchMailID);

    bool addSupplierMail(uint supplierID, QString mail);
    bool editSupplierMail(uint supplierMailID, QString mail);
    /// Deletes all mail addresses of a supplier.
    bool deleteSupplierMails(uint supplierID);

    /// Links a supplier to a branch.
    bool addSupplierBranch(uint supplierID, uint bid);
    bool deleteSupplierBranch(uint supplierID, uint bid);

    /// Adds a sending time; the caller keeps the record, whose key is not used. Not null.
    bool addTime(SupplierTime *suppliertime);
    /// Rewrites the sending time with the record's key; the caller keeps the record. Not null.
    bool updateTime(SupplierTime *suppliertime);
    /// A new record, owned by the caller and never null: the sending time with this key, or defaults for a missing one
    /// and on failure.
    SupplierTime *loadTime(int proEmailID);
    bool deleteTime(int proEmailID);
    /// Deletes all sending times of a supplier.
    bool deleteSupplierTimes(int supplierID);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;

    QSqlDatabase m_db;
};
