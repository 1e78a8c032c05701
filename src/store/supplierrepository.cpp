#include "store/supplierrepository.h"

#include "store/sqloperation.h"

namespace {

SqlValues valuesOf(const SupplierRecord &supplier)
{
    return {{QStringLiteral(":name"), sqlString(supplier.name)},
            {QStringLiteral(":description"), sqlString(supplier.description)},
            {QStringLiteral(":deadline"), supplier.deadline},
            {QStringLiteral(":shortcut"), sqlString(supplier.shortcut)},
            {QStringLiteral(":daysto"), supplier.daysto},
            {QStringLiteral(":supplierID"), supplier.supplierID}};
}

SqlValues valuesOf(const SupplierTime &time)
{
    return {{QStringLiteral(":supplierID"), time.supplierID},
            {QStringLiteral(":sendtime"), time.sendtime},
            {QStringLiteral(":daysto"), time.daysto},
            {QStringLiteral(":proMailDelayID"), time.proMailDelayID}};
}

} // namespace

SupplierRepository::SupplierRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation SupplierRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

SupplierRecord SupplierRepository::loadSupplier(uint supplierID)
{
    SupplierRecord record;
    operation("SupplierRepository(loadSupplier)", tr("Nepodarilo sa načítať dodávateľa!"))
        .load(
            QStringLiteral("SELECT supplierID, name, description, deadline, shortcut, daysto FROM via_suppliers WHERE "
                           "supplierID='%1'")
                .arg(supplierID),
            [&record](const QSqlQuery &row) {
                record.supplierID = row.value(QStringLiteral("supplierID")).toUInt();
                record.name = row.value(QStringLiteral("name")).toString();
                record.description = row.value(QStringLiteral("description")).toString();
                record.deadline = row.value(QStringLiteral("deadline")).toTime();
                record.shortcut = row.value(QStringLiteral("shortcut")).toString();
                record.daysto = row.value(QStringLiteral("daysto")).toUInt();
            });
    return record;
}

uint SupplierRepository::loadLastSupplierID()
{
    uint supplierID = 0;
    SqlOperation(m_db, "SupplierRepository(loadLastSupplierID)")
        .load(QStringLiteral("SELECT MAX(supplierID) AS supplierID FROM via_suppliers"),
              [&supplierID](const QSqlQuery &row) { supplierID = row.value(QStringLiteral("supplierID")).toUInt(); });
    return supplierID;
}

bool SupplierRepository::addSupplier(SupplierRecord supplier)
{
    // The tag names the mail operation; log watchers know it so.
    return operation("SupplierRepository(adding - addSupplierMail)", tr("Nepodarilo sa pridať dodávateľa!"))
        .change(
            QStringLiteral("INSERT IGNORE INTO via_suppliers (name, description, deadline, shortcut, daysto) VALUES "
                           "(:name, :description, :deadline, :shortcut, :daysto)"),
            valuesOf(supplier));
}

bool SupplierRepository::updateSupplier(SupplierRecord supplier)
{
    return operation("SupplierRepository(updating - updateSupplier)", tr("Nepodarilo sa upraviť dodávateľa!"))
        .change(QStringLiteral("UPDATE via_suppliers SET name=:name, description=:description, deadline=:deadline, "
                               "shortcut=:shortcut, daysto=:daysto WHERE supplierID=:supplierID"),
                valuesOf(supplier));
}

bool SupplierRepository::deleteSupplier(SupplierRecord supplier)
{
    SqlOperation deleting = operation("SupplierRepository(deleting - deleteSupplier)",
                                      tr("Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a "
                                         "zmazať jedlá priradené dodávateľovi."));
    m_db.transaction();
    // Each of the two tells of its own failure; what they deleted comes back if the supplier has to stay.
    deleteSupplierMails(supplier.supplierID);
    deleteSupplierTimes(static_cast<int>(supplier.supplierID));
    deleting.run(QStringLiteral("DELETE FROM via_suppliers WHERE supplierID=:supplierID"),
                 {{QStringLiteral(":supplierID"), supplier.supplierID}});
    if (!deleting.failed() && m_db.commit())
        return true;
    const QSqlError cause = deleting.failed() ? deleting.error() : m_db.lastError();
    m_db.rollback();
    deleting.report(cause);
    return false;
}

bool SupplierRepository::addBranchMail(uint bid, QString mail)
{
    const QString sql = bid == 0
        ? QStringLiteral("INSERT IGNORE INTO via_branchmails (bid, mail) VALUES (NULL, :mail)")
        : QStringLiteral("INSERT IGNORE INTO via_branchmails (bid, mail) VALUES (:bid, :mail)");
    return operation("SupplierRepository(adding - addBranchMail)", tr("Nepodarilo sa pridať kontrolný mail strediska!"))
        .change(sql, {{QStringLiteral(":bid"), bid}, {QStringLiteral(":mail"), sqlString(mail)}});
}

bool SupplierRepository::editBranchMail(uint branchMailID, QString mail)
{
    return operation("SupplierRepository(updating - editBranchMail)",
                     tr("Nepodarilo sa upraviť kontrolný mail strediska!"))
        .change(QStringLiteral("UPDATE via_branchmails SET mail=:mail WHERE branchMailID=:branchMailID"),
                {{QStringLiteral(":mail"), sqlString(mail)}, {QStringLiteral(":branchMailID"), branchMailID}});
}

bool SupplierRepository::deleteBranchMail(uint branchMailID)
{
    return operation("SupplierRepository(deleting - deleteBranchMail)",
                     tr("Nepodarilo sa zmazať kontrolný mail strediska!"))
        .change(QStringLiteral("DELETE FROM via_branchmails WHERE branchMailID=:branchMailID"),
                {{QStringLiteral(":branchMailID"), branchMailID}});
}

bool SupplierRepository::addSupplierMail(uint supplierID, QString mail)
{
    return operation("SupplierRepository(adding - addSupplierMail)", tr("Nepodarilo sa pridať mail dodávateľa!"))
        .change(QStringLiteral("INSERT IGNORE INTO via_suppliermails (supplierID, mail) VALUES (:supplierID,:mail)"),
                {{QStringLiteral(":supplierID"), supplierID}, {QStringLiteral(":mail"), sqlString(mail)}});
}

bool SupplierRepository::editSupplierMail(uint supplierMailID, QString mail)
{
    return operation("SupplierRepository(updating - editSupplierMail)", tr("Nepodarilo sa upraviť mail dodávateľa!"))
        .change(QStringLiteral("UPDATE via_suppliermails SET mail=:mail WHERE supplierMailID=:supplierMailID"),
                {{QStringLiteral(":mail"), sqlString(mail)}, {QStringLiteral(":supplierMailID"), supplierMailID}});
}

bool SupplierRepository::deleteSupplierMails(uint supplierID)
{
    return operation("SupplierRepository(deleting - deleteSuppliermails)", tr("Nepodarilo sa zmazať maily dodávateľa!"))
        .change(QStringLiteral("DELETE FROM via_suppliermails WHERE supplierID=:supplierID"),
                {{QStringLiteral(":supplierID"), supplierID}});
}

bool SupplierRepository::addSupplierBranch(uint supplierID, uint bid)
{
    const QString sql = bid == 0
        ? QStringLiteral("INSERT IGNORE INTO via_supplierbranch (supplierID, bid) VALUES (:supplierID, NULL)")
        : QStringLiteral("INSERT IGNORE INTO via_supplierbranch (supplierID, bid) VALUES (:supplierID,:bid)");
    return operation("SupplierRepository(adding - supplierBranch)",
                     tr("Nepodarilo sa priradiť dodávateľa k stredisku!"))
        .change(sql, {{QStringLiteral(":supplierID"), supplierID}, {QStringLiteral(":bid"), bid}});
}

bool SupplierRepository::deleteSupplierBranch(uint supplierID, uint bid)
{
    const QString sql = bid == 0
        ? QStringLiteral("DELETE FROM via_supplierbranch WHERE supplierID=:supplierID AND bid IS NULL")
        : QStringLiteral("DELETE FROM via_supplierbranch WHERE supplierID=:supplierID AND bid=:bid");
    return operation("SupplierRepository(deleting - supplierBranch)",
                     tr("Nepodarilo sa zrušiť priradenie dodávateľa k stredisku!"))
        .change(sql, {{QStringLiteral(":supplierID"), supplierID}, {QStringLiteral(":bid"), bid}});
}

bool SupplierRepository::addTime(SupplierTime *suppliertime)
{
    return operation("SupplierRepository(adding - addTime)",
                     tr("Nepodarilo sa pridať čas odosielania emailov dodávatelovi."))
        .change(QStringLiteral("INSERT IGNORE INTO via_promailsdelay (supplierID, sendtime, daysto) VALUES "
                               "(:supplierID, :sendtime, :daysto) "),
                valuesOf(*suppliertime));
}

bool SupplierRepository::updateTime(SupplierTime *suppliertime)
{
    return operation("SupplierRepository(updating - updateTime)",
                     tr("Nepodarilo sa upraviť čas odosielania emailov dodávatelovi."))
        .change(QStringLiteral("UPDATE via_promailsdelay SET supplierID=:supplierID, sendtime=:sendtime, "
                               "daysto=:daysto WHERE proMailDelayID=:proMailDelayID"),
                valuesOf(*suppliertime));
}

SupplierTime *SupplierRepository::loadTime(int proEmailID)
{
    auto *time = new SupplierTime;
    operation("SupplierRepository(loadTime)", tr("Nepodarilo sa načítať  čas odosielania emailov dodávatelovi."))
        .load(QStringLiteral("SELECT proMailDelayID, supplierID, sendtime, daysto FROM via_promailsdelay WHERE "
                             "proMailDelayID='%1'")
                  .arg(proEmailID),
              [time](const QSqlQuery &row) {
                  time->proMailDelayID = row.value(QStringLiteral("proMailDelayID")).toUInt();
                  time->supplierID = row.value(QStringLiteral("supplierID")).toUInt();
                  time->sendtime = row.value(QStringLiteral("sendtime")).toTime();
                  time->daysto = row.value(QStringLiteral("daysto")).toUInt();
              });
    return time;
}

bool SupplierRepository::deleteTime(int proEmailID)
{
    return operation("SupplierRepository(deleting - deleteTime)",
                     tr("Nepodarilo sa zrušiť čas odosielania emailov dodávatelovi."))
        .change(QStringLiteral("DELETE FROM via_promailsdelay WHERE proMailDelayID=:proMailDelayID "),
                {{QStringLiteral(":proMailDelayID"), proEmailID}});
}

bool SupplierRepository::deleteSupplierTimes(int supplierID)
{
    return operation("SupplierRepository(deleting - deleteSupplierTimes)",
                     tr("Nepodarilo sa zrušiť časy odosielania emailov dodávatelovi."))
        .change(QStringLiteral("DELETE FROM via_promailsdelay WHERE supplierID=:supplierID "),
                {{QStringLiteral(":supplierID"), supplierID}});
}
