#include "store/supplierrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QSqlQuery>
#include <QtTest>

#include <memory>

class TestSupplierRepository : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void loads();
    void lastKey();
    void adds();
    void twoSuppliersMayShareAName();
    void updatesOneRow();
    void deletesWithMailsAndTimes();
    void deleteIsRefused_data();
    void deleteIsRefused();
    void deleteGoesOnWhenTheMailsFail();
    void deleteThatCannotBeCommittedIsRefused();
    void branchMails();
    void branchMailOfAllBranches();
    void supplierMails();
    void repeatedAddressChangesNothing();
    void branchLinks();
    void repeatedLinkChangesNothing();
    void times();
    void timeOfAMissingKeyIsADefaultObject();
    void timesOfASupplierAreDeleted();

private:
    QStringList suppliers() const
    {
        return m_database.rows(
            "SELECT supplierID, name, description, TIME_FORMAT(deadline, '%T'), shortcut, daysto FROM "
            "via_suppliers ORDER BY supplierID");
    }
    QStringList storedSupplierMails() const
    {
        return m_database.rows(
            "SELECT supplierMailID, supplierID, mail FROM via_suppliermails ORDER BY supplierMailID");
    }
    QStringList storedBranchMails() const
    {
        return m_database.rows("SELECT branchMailID, bid, mail FROM via_branchmails ORDER BY branchMailID");
    }
    QStringList links() const
    {
        return m_database.rows("SELECT supplierID, bid FROM via_supplierbranch ORDER BY supplierID, bid");
    }
    QStringList storedTimes() const
    {
        return m_database.rows("SELECT proMailDelayID, supplierID, TIME_FORMAT(sendtime, '%T'), daysto FROM "
                               "via_promailsdelay ORDER BY proMailDelayID");
    }
    void addMailsAndTimes() const
    {
        m_database.exec("INSERT INTO via_suppliermails (supplierID, mail) VALUES (1, 'a@x'), (1, 'b@x'), (2, 'c@x')");
        m_database.exec("INSERT INTO via_promailsdelay (supplierID, sendtime, daysto) VALUES (1, '08:00', 1), (2, "
                        "'09:00', 2)");
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

namespace {

const char refused[] = "Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a zmazať jedlá "
                       "priradené dodávateľovi.";

SupplierRecord withKey(quint32 supplierID)
{
    SupplierRecord record;
    record.supplierID = supplierID;
    return record;
}

} // namespace

void TestSupplierRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_suppliers VALUES (1, 'Prvý', 'popis', '09:30:00', 'P1', 2), (2, 'Druhý', NULL, "
                    "NULL, NULL, 0)");
}

void TestSupplierRepository::operationsAreSlots()
{
    const SupplierRepository repository(m_database.db());
    for (const char *slot :
         {"loadSupplier(uint)", "loadLastSupplierID()", "addSupplier(SupplierRecord)", "updateSupplier(SupplierRecord)",
          "deleteSupplier(SupplierRecord)", "addBranchMail(uint,QString)", "editBranchMail(uint,QString)",
          "deleteBranchMail(uint)", "addSupplierMail(uint,QString)", "editSupplierMail(uint,QString)",
          "deleteSupplierMails(uint)", "addSupplierBranch(uint,uint)", "deleteSupplierBranch(uint,uint)",
          "addTime(SupplierTime*)", "updateTime(SupplierTime*)", "loadTime(int)", "deleteTime(int)",
          "deleteSupplierTimes(int)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestSupplierRepository::loads()
{
    SupplierRepository repository(m_database.db());
    const SupplierRecord supplier = repository.loadSupplier(1);
    QCOMPARE(supplier.supplierID, 1U);
    QCOMPARE(supplier.name, QString("Prvý"));
    QCOMPARE(supplier.description, QString("popis"));
    QCOMPARE(supplier.shortcut, QString("P1"));
    QCOMPARE(supplier.deadline, QTime(9, 30));
    QCOMPARE(supplier.daysto, 2U);
    QVERIFY(!repository.loadSupplier(2).deadline.isValid());
    LogCatcher log;
    const SupplierRecord missing = repository.loadSupplier(99);
    QCOMPARE(missing.supplierID, 0U);
    QCOMPARE(missing.name, QString());
    QVERIFY(!missing.deadline.isValid());
    QCOMPARE(log.lines(), QStringList());
}

void TestSupplierRepository::lastKey()
{
    SupplierRepository repository(m_database.db());
    QCOMPARE(repository.loadLastSupplierID(), 2U);
    m_database.exec("DELETE FROM via_suppliers");
    QCOMPARE(repository.loadLastSupplierID(), 0U);
}

void TestSupplierRepository::adds()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplier({77, "Tretí", "d", "T", QTime(23, 59, 59), 3}));
    QVERIFY(repository.addSupplier({0, "Štvrtý", QString(), QString(), QTime(), 0}));
    QCOMPARE(suppliers().mid(2), (QStringList{"3|Tretí|d|23:59:59|T|3", "4|Štvrtý||NULL||0"}));
}

void TestSupplierRepository::twoSuppliersMayShareAName()
{
    QVERIFY(SupplierRepository(m_database.db()).addSupplier({0, "Prvý", "d", "T", QTime(1, 0), 3}));
    QCOMPARE(suppliers().size(), 3);
}

void TestSupplierRepository::updatesOneRow()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.updateSupplier({2, "Iný", "d", "I", QTime(7, 5, 1), 9}));
    QVERIFY(repository.updateSupplier({99, "x", "x", "x", QTime(), 0})); // a missing key is no failure
    QCOMPARE(suppliers(), (QStringList{"1|Prvý|popis|09:30:00|P1|2", "2|Iný|d|07:05:01|I|9"}));
}

void TestSupplierRepository::deletesWithMailsAndTimes()
{
    addMailsAndTimes();
    LogCatcher log;
    QVERIFY(SupplierRepository(m_database.db()).deleteSupplier(withKey(1)));
    QCOMPARE(suppliers(), QStringList{"2|Druhý|NULL|NULL|NULL|0"});
    QCOMPARE(storedSupplierMails(), QStringList{"3|2|c@x"});
    QCOMPARE(storedTimes(), QStringList{"2|2|09:00:00|2"});
    QCOMPARE(log.lines(), QStringList());
    // The transaction is over: another client sees, and may change, what it left.
    m_database.exec("SET SESSION innodb_lock_wait_timeout = 2");
    m_database.exec("UPDATE via_suppliers SET name = 'free' WHERE supplierID = 2");
}

void TestSupplierRepository::deleteIsRefused_data()
{
    QTest::addColumn<QString>("dependent");
    QTest::newRow("food") << "INSERT INTO via_foods (typeID, supplierID, name) VALUES (1, 1, 'f')";
    QTest::newRow("branch link") << "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, 4)";
    QTest::newRow("link to all branches") << "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL)";
}

void TestSupplierRepository::deleteIsRefused()
{
    QFETCH(QString, dependent);
    addMailsAndTimes();
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec(dependent);
    const QStringList before = suppliers() + storedSupplierMails() + storedTimes();
    LogCatcher log;
    // The rollback comes before the box: while the user reads it, this connection has its mails back.
    m_boxes.expectBox("Chyba databázy", refused, QMessageBox::Ok, [this](QMessageBox *) {
        QSqlQuery mails(m_database.db());
        QVERIFY(mails.exec("SELECT COUNT(*) FROM via_suppliermails") && mails.next());
        QCOMPARE(mails.value(0).toInt(), 3);
    });
    QVERIFY(!SupplierRepository(m_database.db()).deleteSupplier(withKey(1)));
    QCOMPARE(suppliers() + storedSupplierMails() + storedTimes(), before);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(
        log.critical().at(0).startsWith("SupplierRepository(deleting - deleteSupplier) - SQL ERROR: Cannot delete or "
                                        "update"));
    m_database.exec("SET SESSION innodb_lock_wait_timeout = 2");
    m_database.exec("UPDATE via_suppliers SET name = 'free' WHERE supplierID = 1"); // no transaction is left open
}

void TestSupplierRepository::deleteGoesOnWhenTheMailsFail()
{
    m_database.exec("RENAME TABLE via_promailsdelay TO away");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa zrušiť časy odosielania emailov dodávatelovi.");
    LogCatcher log;
    QVERIFY(SupplierRepository(m_database.db()).deleteSupplier(withKey(2)));
    m_database.exec("RENAME TABLE away TO via_promailsdelay");
    QCOMPARE(suppliers(), QStringList{"1|Prvý|popis|09:30:00|P1|2"});
    QCOMPARE(log.critical().size(), 1);
}

void TestSupplierRepository::deleteThatCannotBeCommittedIsRefused()
{
    addMailsAndTimes();
    const QStringList before = suppliers() + storedSupplierMails() + storedTimes();
    // Inside a distributed transaction the server refuses a plain commit.
    QSqlQuery query(m_database.db());
    QVERIFY(query.exec("XA START 'outer'"));
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy", refused);
    QVERIFY(!SupplierRepository(m_database.db()).deleteSupplier(withKey(1)));
    QVERIFY(query.exec("XA END 'outer'"));
    QVERIFY(query.exec("XA ROLLBACK 'outer'"));
    QCOMPARE(suppliers() + storedSupplierMails() + storedTimes(), before);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().at(0).startsWith("SupplierRepository(deleting - deleteSupplier) - SQL ERROR: XAER_RMFAIL"));
}

void TestSupplierRepository::branchMails()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addBranchMail(4, "a@x"));
    QVERIFY(repository.addBranchMail(5, "a@x"));
    QVERIFY(repository.editBranchMail(2, "b@x"));
    QCOMPARE(storedBranchMails(), (QStringList{"1|4|a@x", "2|5|b@x"}));
    QVERIFY(repository.deleteBranchMail(1));
    QCOMPARE(storedBranchMails(), QStringList{"2|5|b@x"});
    QVERIFY(repository.deleteBranchMail(1));
    QVERIFY(repository.editBranchMail(99, "c@x"));
    QCOMPARE(storedBranchMails(), QStringList{"2|5|b@x"});
}

void TestSupplierRepository::branchMailOfAllBranches()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addBranchMail(0, "a@x"));
    QVERIFY(repository.addBranchMail(0, "a@x"));
    QCOMPARE(storedBranchMails(), QStringList{"1|NULL|a@x"});
}

void TestSupplierRepository::supplierMails()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplierMail(1, "a@x"));
    QVERIFY(repository.addSupplierMail(1, "b@x"));
    QVERIFY(repository.addSupplierMail(2, "a@x"));
    QVERIFY(repository.editSupplierMail(2, "c@x"));
    QCOMPARE(storedSupplierMails(), (QStringList{"1|1|a@x", "2|1|c@x", "3|2|a@x"}));
    QVERIFY(repository.deleteSupplierMails(1));
    QCOMPARE(storedSupplierMails(), QStringList{"3|2|a@x"});
}

void TestSupplierRepository::repeatedAddressChangesNothing()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplierMail(1, "a@x"));
    QVERIFY(repository.addSupplierMail(1, "a@x"));
    QCOMPARE(storedSupplierMails(), QStringList{"1|1|a@x"});
}

void TestSupplierRepository::branchLinks()
{
    SupplierRepository repository(m_database.db());
    QVERIFY(repository.addSupplierBranch(1, 4));
    QVERIFY(repository.addSupplierBranch(1, 0));
    QVERIFY(repository.addSupplierBranch(2, 0));
    QCOMPARE(links(), (QStringList{"1|NULL", "1|4", "2|NULL"}));
    QVERIFY(repository.deleteSupplierBranch(1, 0));
    QCOMPARE(links(), (QStringList{"1|4", "2|NULL"}));
    QVERIFY(repository.deleteSupplierBranch(1, 4));
    QCOMPARE(links(), QStringList{"2|NULL"});
    QVERIFY(repository.deleteSupplierBranch(1, 4));
}

void TestSupplierRepository::repeatedLinkChangesNothing()
{
    SupplierRepository repository(m_database.db());
    for (int time = 0; time < 2; ++time) {
        QVERIFY(repository.addSupplierBranch(1, 4));
        QVERIFY(repository.addSupplierBranch(1, 0));
    }
    QCOMPARE(links(), (QStringList{"1|NULL", "1|4"}));
}

void TestSupplierRepository::times()
{
    SupplierRepository repository(m_database.db());
    SupplierTime time{77, 1, QTime(8, 15, 30), 2};
    QVERIFY(repository.addTime(&time));
    QCOMPARE(time.proMailDelayID, 77U); // the caller's record stays as it was
    time = {0, 2, QTime(), 0};
    QVERIFY(repository.addTime(&time));
    QCOMPARE(storedTimes(), (QStringList{"1|1|08:15:30|2", "2|2|NULL|0"}));
    const std::unique_ptr<SupplierTime> loaded(repository.loadTime(1));
    QCOMPARE(loaded->proMailDelayID, 1U);
    QCOMPARE(loaded->supplierID, 1U);
    QCOMPARE(loaded->sendtime, QTime(8, 15, 30));
    QCOMPARE(loaded->daysto, 2U);
    loaded->supplierID = 2;
    loaded->sendtime = QTime(0, 0);
    loaded->daysto = 5;
    QVERIFY(repository.updateTime(loaded.get()));
    QCOMPARE(storedTimes(), (QStringList{"1|2|00:00:00|5", "2|2|NULL|0"}));
    QVERIFY(repository.deleteTime(1));
    QCOMPARE(storedTimes(), QStringList{"2|2|NULL|0"});
    QVERIFY(repository.updateTime(loaded.get())); // deleted meanwhile
    QCOMPARE(storedTimes(), QStringList{"2|2|NULL|0"});
}

void TestSupplierRepository::timeOfAMissingKeyIsADefaultObject()
{
    LogCatcher log;
    const std::unique_ptr<SupplierTime> time(SupplierRepository(m_database.db()).loadTime(99));
    QVERIFY(time);
    QCOMPARE(time->proMailDelayID, 0U);
    QVERIFY(!time->sendtime.isValid());
    QCOMPARE(time->daysto, 0U);
    QCOMPARE(log.lines(), QStringList());
}

void TestSupplierRepository::timesOfASupplierAreDeleted()
{
    addMailsAndTimes();
    QVERIFY(SupplierRepository(m_database.db()).deleteSupplierTimes(1));
    QCOMPARE(storedTimes(), QStringList{"2|2|09:00:00|2"});
}

QTEST_MAIN(TestSupplierRepository)
#include "tst_supplierrepository.moc"
