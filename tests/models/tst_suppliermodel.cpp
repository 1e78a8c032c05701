#include "models/suppliermodel.h"
#include "session/session.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QStandardItemModel>
#include <QtTest>

#include <functional>

using Load = std::function<QStandardItemModel *(SupplierModel &)>;
Q_DECLARE_METATYPE(Load)

namespace {

using List = std::unique_ptr<QStandardItemModel>;

QString hostileName()
{
    return QStringLiteral("<b>O'Hara \"\\%1\"</b> \u202e\U0001f600 ") + QString(10000, QLatin1Char('x'));
}

} // namespace

/// The lists of suppliers and of what hangs on them.
class TestSupplierModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_database.reset(); }
    void init();
    void cleanup() { session().readOnly = false; }
    void allSuppliersLoadWhenTold();
    void failedSuppliersAreLoggedAndEmpty();
    void checkableSuppliersOfABranch();
    void checkableSuppliersOfAllBranches();
    void largestBranchKeyIsChecked();
    void readOnlySuppliersHaveNoCheckBox();
    void nameIsTheCheckableCell();
    void deadlineReadsAsTime();
    void branchSuppliers();
    void branchMails();
    void supplierTimes();
    void supplierMails();
    void orderMails_data();
    void orderMails();
    void orderMailsOfASupplierOfTwoBranches();
    void orderMailsAreGrouped();
    void orderMailsKeepTheirShape();
    void unknownKeysGiveEmptyLists();
    void hostileTextStandsAsStored();
    void failures_data();
    void failures();
    void lostConnectionIsLoggedWithItsCode();
    void closedHandleGivesEmptyLists();

private:
    List list(const Load &load) const;
    QStringList checkMarks(uint bid) const;

    std::unique_ptr<TestDatabase> m_database;
};

void TestSupplierModel::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestSupplierModel::init()
{
    m_database->clear();
    const char *const statements[] = {
        "INSERT INTO via_suppliers (supplierID, name, description, deadline, shortcut, daysto) VALUES (1, 'Jedáleň', "
        "'teplé jedlá', '09:05:00', 'JED', 2), (2, 'Pekáreň', NULL, NULL, NULL, 0), (3, 'Bistro', '', '23:59:59', 'B', "
        "0)",
        "INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL), (2, 5), (3, 5), (3, 6)",
        "INSERT INTO via_suppliermails (supplierMailID, supplierID, mail) VALUES (11, 1, 'objednavky@jedalen.sk'), "
        "(12, 1, "
        "'kuchyna@jedalen.sk'), (13, 2, 'pec@pekaren.sk')",
        "INSERT INTO via_branchmails (branchMailID, bid, mail) VALUES (1, NULL, 'vsetci@firma.sk'), (2, 5, "
        "'vyroba@firma.sk'), (3, 6, 'sklad@firma.sk')",
        "INSERT INTO via_promailsdelay (proMailDelayID, supplierID, sendtime, daysto) VALUES (21, 1, '16:00:00', 1), "
        "(22, 1, '08:30:00', 1), (23, 1, '23:00:59', 0), (24, 2, '10:00:00', 10), (25, 1, NULL, 3)"};
    for (const char *statement : statements)
        m_database->exec(QString::fromUtf8(statement));
}

List TestSupplierModel::list(const Load &load) const
{
    SupplierModel model(m_database->db());
    List rows(load(model));
    return rows;
}

QStringList TestSupplierModel::checkMarks(uint bid) const
{
    const List suppliers = list([bid](SupplierModel &model) { return model.checkableSuppliers(bid); });
    QStringList marks;
    for (int row = 0; row < suppliers->rowCount(); ++row) {
        const QVariant state = suppliers->item(row, SupplierModel::Name)->data(Qt::CheckStateRole);
        marks.append(!state.isValid()           ? QStringLiteral("none")
                         : state == Qt::Checked ? QStringLiteral("on")
                                                : QStringLiteral("off"));
    }
    return marks;
}

void TestSupplierModel::allSuppliersLoadWhenTold()
{
    SupplierModel model(m_database->db());
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.loadAllSuppliers());
    QCOMPARE(model.query().lastQuery(), QStringLiteral("SELECT supplierID, name FROM via_suppliers"));
    QCOMPARE(rowTexts(model),
             (QStringList{QStringLiteral("1|Jedáleň"), QStringLiteral("2|Pekáreň"), QStringLiteral("3|Bistro")}));
    m_database->exec(QStringLiteral("DELETE FROM via_supplierbranch WHERE supplierID = 3"));
    m_database->exec(QStringLiteral("DELETE FROM via_suppliers WHERE supplierID = 3"));
    QVERIFY(model.loadAllSuppliers());
    QCOMPARE(model.rowCount(), 2);
}

void TestSupplierModel::failedSuppliersAreLoggedAndEmpty()
{
    SupplierModel model(m_database->db());
    QVERIFY(model.loadAllSuppliers());
    const MissingTable missing(*m_database, QStringLiteral("via_suppliers"));
    LogCatcher log;
    QVERIFY(!model.loadAllSuppliers());
    QCOMPARE(log.lines(),
             QStringList{QStringLiteral("SupplierModel - loadAllSuppliers ERROR: [1146]: ") + missing.error()});
    QCOMPARE(log.critical().size(), 1);
    QCOMPARE(model.rowCount(), 0);
}

void TestSupplierModel::checkableSuppliersOfABranch()
{
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(5); });
    const QAbstractItemModelTester tester(suppliers.get());
    QVERIFY(!suppliers->parent());
    QCOMPARE(rowTexts(*suppliers),
             (QStringList{QStringLiteral("1|Jedáleň|teplé jedlá|09:05:00||JED|2"), QStringLiteral("2|Pekáreň|||5||0"),
                          QStringLiteral("3|Bistro||23:59:59|5|B|0")}));
    QCOMPARE(checkMarks(5), (QStringList{QStringLiteral("off"), QStringLiteral("on"), QStringLiteral("on")}));
    QCOMPARE(checkMarks(6), (QStringList{QStringLiteral("off"), QStringLiteral("off"), QStringLiteral("on")}));
}

void TestSupplierModel::checkableSuppliersOfAllBranches()
{
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(0); });
    QCOMPARE(columnTexts(*suppliers, SupplierModel::BranchId),
             (QStringList{QStringLiteral("1"), QString(), QString()}));
    QCOMPARE(checkMarks(0), (QStringList{QStringLiteral("on"), QStringLiteral("off"), QStringLiteral("off")}));
}

void TestSupplierModel::largestBranchKeyIsChecked()
{
    m_database->exec(QStringLiteral("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (2, 4294967295)"));
    QCOMPARE(checkMarks(4294967295U),
             (QStringList{QStringLiteral("off"), QStringLiteral("on"), QStringLiteral("off")}));
}

void TestSupplierModel::readOnlySuppliersHaveNoCheckBox()
{
    session().readOnly = true;
    QCOMPARE(checkMarks(5), (QStringList{QStringLiteral("none"), QStringLiteral("none"), QStringLiteral("none")}));
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(5); });
    QVERIFY(!suppliers->item(1, SupplierModel::Name)->isCheckable());
    QVERIFY(!suppliers->item(1, SupplierModel::Name)->isEditable());
    QCOMPARE(suppliers->item(1, SupplierModel::BranchId)->text(), QStringLiteral("5"));
}

void TestSupplierModel::nameIsTheCheckableCell()
{
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(5); });
    for (int row = 0; row < suppliers->rowCount(); ++row) {
        for (int column = 0; column < SupplierModel::CheckableCount; ++column) {
            const QStandardItem *item = suppliers->item(row, column);
            QCOMPARE(item->isCheckable(), column == SupplierModel::Name);
            QCOMPARE(item->data(Qt::CheckStateRole).isValid(), column == SupplierModel::Name);
        }
        QVERIFY(!suppliers->item(row, SupplierModel::Name)->isEditable());
    }
}

void TestSupplierModel::deadlineReadsAsTime()
{
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(0); });
    QCOMPARE(suppliers->item(0, SupplierModel::Deadline)->data(Qt::DisplayRole).toTime(), QTime(9, 5));
    QVERIFY(!suppliers->item(1, SupplierModel::Deadline)->data(Qt::DisplayRole).toTime().isValid());
    QCOMPARE(suppliers->item(2, SupplierModel::Deadline)->data(Qt::DisplayRole).toTime(), QTime(23, 59, 59));
}

void TestSupplierModel::branchSuppliers()
{
    const List ofBranch = list([](SupplierModel &model) { return model.branchSuppliers(5); });
    const QAbstractItemModelTester tester(ofBranch.get());
    QVERIFY(!ofBranch->parent());
    QCOMPARE(rowTexts(*ofBranch),
             (QStringList{QStringLiteral("0|- všetci dodávatelia -"), QStringLiteral("2|Pekáreň"),
                          QStringLiteral("3|Bistro")}));
    // A supplier without any link has no branch either: the condition looks at the joined row.
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (4, 'Nový')"));
    const List ofAll = list([](SupplierModel &model) { return model.branchSuppliers(0); });
    QCOMPARE(rowTexts(*ofAll),
             (QStringList{QStringLiteral("0|- všetci dodávatelia -"), QStringLiteral("1|Jedáleň"),
                          QStringLiteral("4|Nový")}));
}

void TestSupplierModel::branchMails()
{
    const List ofBranch = list([](SupplierModel &model) { return model.loadBranchMails(5); });
    const QAbstractItemModelTester tester(ofBranch.get());
    QCOMPARE(rowTexts(*ofBranch), QStringList{QStringLiteral("2|vyroba@firma.sk|5")});
    QVERIFY(!ofBranch->parent());
    const List ofAll = list([](SupplierModel &model) { return model.loadBranchMails(0); });
    QCOMPARE(rowTexts(*ofAll), QStringList{QStringLiteral("1|vsetci@firma.sk|")});
}

void TestSupplierModel::supplierTimes()
{
    const List times = list([](SupplierModel &model) { return model.loadSupplierTimes(1); });
    const QAbstractItemModelTester tester(times.get());
    QVERIFY(!times->parent());
    QCOMPARE(rowTexts(*times),
             (QStringList{
                 QStringLiteral("23|23:00 - 0 dní pred výdajom.|1"), QStringLiteral("22|08:30 - 1 dní pred výdajom.|1"),
                 QStringLiteral("21|16:00 - 1 dní pred výdajom.|1"), QStringLiteral("25| - 3 dní pred výdajom.|1")}));
}

void TestSupplierModel::supplierMails()
{
    const List mails = list([](SupplierModel &model) { return model.loadSupplierMails(1); });
    const QAbstractItemModelTester tester(mails.get());
    QVERIFY(!mails->parent());
    QCOMPARE(rowTexts(*mails),
             (QStringList{QStringLiteral("11|objednavky@jedalen.sk|1"), QStringLiteral("12|kuchyna@jedalen.sk|1")}));
}

/// Suppliers 1 and 4 have no branch, 4 not even a link; 2 and 3 deliver to branch 5, 3 to branch 6 too.
void TestSupplierModel::orderMails_data()
{
    QTest::addColumn<uint>("supplierID");
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QStringList>("rows");
    const QStringList ofFirst{"1|objednavky@jedalen.sk", "1|kuchyna@jedalen.sk"};
    QTest::newRow("all, no branch") << 0U << 0U << ofFirst + QStringList{"4|"};
    QTest::newRow("one, no branch") << 1U << 0U << ofFirst;
    QTest::newRow("one without a link, no branch") << 4U << 0U << QStringList{"4|"};
    QTest::newRow("one of a branch, no branch") << 2U << 0U << QStringList();
    QTest::newRow("all, branch") << 0U << 5U << QStringList{"2|pec@pekaren.sk", "3|"};
    QTest::newRow("one, branch") << 2U << 5U << QStringList{"2|pec@pekaren.sk"};
    QTest::newRow("one without mails, branch") << 3U << 5U << QStringList{"3|"};
    QTest::newRow("one of no branch, branch") << 1U << 5U << QStringList();
    QTest::newRow("one of another branch, branch") << 2U << 6U << QStringList();
    QTest::newRow("unknown branch") << 0U << 99U << QStringList();
    QTest::newRow("unknown supplier") << 99U << 5U << QStringList();
    QTest::newRow("largest keys") << 4294967295U << 4294967295U << QStringList();
}

void TestSupplierModel::orderMails()
{
    QFETCH(uint, supplierID);
    QFETCH(uint, bid);
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (4, 'Nový')"));
    const LogCatcher log;
    const List mails = list([=](SupplierModel &model) { return model.loadOrderMails(supplierID, bid); });
    QTEST(rowTexts(*mails), "rows");
    QCOMPARE(log.lines(), QStringList());
}

/// Each link is looked at by itself: the mails do not come once for every branch.
void TestSupplierModel::orderMailsOfASupplierOfTwoBranches()
{
    m_database->exec(QStringLiteral("INSERT INTO via_suppliermails (supplierID, mail) VALUES (3, 'bistro@bistro.sk')"));
    for (const uint bid : {5U, 6U}) {
        const List mails = list([bid](SupplierModel &model) { return model.loadOrderMails(3, bid); });
        QCOMPARE(rowTexts(*mails), QStringList{"3|bistro@bistro.sk"});
    }
}

/// Addresses that were entered by turns: the server joins a small table of mails in the order of their keys.
void TestSupplierModel::orderMailsAreGrouped()
{
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (20, 'Gril'), (100, 'Pec')"));
    m_database->exec(QStringLiteral("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (100, 5), (20, 5)"));
    m_database->exec(QStringLiteral("INSERT INTO via_suppliermails (supplierID, mail) VALUES (100, 'x@x.sk'), "
                                    "(20, 'z@z.sk'), (2, 'b@b.sk'), (100, 'a@a.sk'), (20, 'y@y.sk'), (2, 'a@a.sk')"));
    const List mails = list([](SupplierModel &model) { return model.loadOrderMails(0, 5); });
    QCOMPARE(rowTexts(*mails),
             (QStringList{"2|pec@pekaren.sk", "2|b@b.sk", "2|a@a.sk", "3|", "20|z@z.sk", "20|y@y.sk", "100|x@x.sk",
                          "100|a@a.sk"}));
}

void TestSupplierModel::orderMailsKeepTheirShape()
{
    const List mails = list([](SupplierModel &model) { return model.loadOrderMails(0, 5); });
    const QAbstractItemModelTester tester(mails.get());
    QVERIFY(!mails->parent());
    QCOMPARE(mails->columnCount(), 2);
    QCOMPARE(list([](SupplierModel &model) { return model.loadOrderMails(0, 99); })->columnCount(), 2);
}

void TestSupplierModel::unknownKeysGiveEmptyLists()
{
    const LogCatcher log;
    QCOMPARE(list([](SupplierModel &model) { return model.loadSupplierMails(0); })->rowCount(), 0);
    QCOMPARE(list([](SupplierModel &model) { return model.loadSupplierTimes(99); })->rowCount(), 0);
    QCOMPARE(list([](SupplierModel &model) { return model.loadBranchMails(99); })->rowCount(), 0);
    QCOMPARE(list([](SupplierModel &model) { return model.branchSuppliers(99); })->rowCount(), 1);
    QCOMPARE(checkMarks(99), (QStringList{QStringLiteral("off"), QStringLiteral("off"), QStringLiteral("off")}));
    QCOMPARE(log.lines(), QStringList());
}

void TestSupplierModel::hostileTextStandsAsStored()
{
    QSqlQuery query(m_database->db());
    query.prepare(
        QStringLiteral("UPDATE via_suppliers SET name = ?, description = ?, shortcut = ? WHERE supplierID = 2"));
    for (int value = 0; value < 3; ++value)
        query.addBindValue(hostileName());
    QVERIFY(query.exec());
    query.prepare(QStringLiteral("UPDATE via_suppliermails SET mail = ? WHERE supplierID = 2"));
    query.addBindValue(hostileName());
    QVERIFY(query.exec());
    const List suppliers = list([](SupplierModel &model) { return model.checkableSuppliers(5); });
    for (const int column : {SupplierModel::Name, SupplierModel::Description, SupplierModel::Shortcut})
        QCOMPARE(suppliers->item(1, column)->text(), hostileName());
    const List mails = list([](SupplierModel &model) { return model.loadSupplierMails(2); });
    QCOMPARE(mails->item(0, 1)->text(), hostileName());
}

void TestSupplierModel::failures_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<Load>("load");
    for (const uint bid : {0U, 5U}) {
        QTest::addRow("checkableSuppliers %u", bid)
            << "via_suppliers"
            << "SupplierModel - checkableSuppliers load"
            << Load([bid](SupplierModel &model) { return model.checkableSuppliers(bid); });
        QTest::addRow("branchSuppliers %u", bid)
            << "via_supplierbranch"
            << "SupplierModel - checkableSuppliers load"
            << Load([bid](SupplierModel &model) { return model.branchSuppliers(bid); });
        QTest::addRow("loadBranchMails %u", bid)
            << "via_branchmails"
            << "SupplierModel - loadBranchMails load"
            << Load([bid](SupplierModel &model) { return model.loadBranchMails(bid); });
    }
    for (const uint supplierID : {0U, 1U}) {
        for (const uint bid : {0U, 5U})
            QTest::addRow("loadOrderMails %u %u", supplierID, bid)
                << "via_suppliermails"
                << "SupplierModel - loadSupplierMails load"
                << Load([=](SupplierModel &model) { return model.loadOrderMails(supplierID, bid); });
    }
    // The times are logged under the tag of the mails, which log readers know them by.
    QTest::addRow("loadSupplierTimes") << "via_promailsdelay"
                                       << "SupplierModel - loadSupplierMails load"
                                       << Load([](SupplierModel &model) { return model.loadSupplierTimes(1); });
    QTest::addRow("loadSupplierMails") << "via_suppliermails"
                                       << "SupplierModel - loadSupplierMails load"
                                       << Load([](SupplierModel &model) { return model.loadSupplierMails(1); });
}

void TestSupplierModel::failures()
{
    QFETCH(QString, table);
    QFETCH(QString, tag);
    QFETCH(Load, load);
    const MissingTable missing(*m_database, table);
    const LogCatcher log;
    const List rows = list(load);
    QCOMPARE(rows->rowCount(), 0);
    QCOMPARE(log.lines(), QStringList{tag + QStringLiteral(" ERROR: [1146]: ") + missing.error()});
    QCOMPARE(log.critical().size(), 1);
}

void TestSupplierModel::lostConnectionIsLoggedWithItsCode()
{
    const TestDatabase other(QStringLiteral("other"));
    SupplierModel model(other.db());
    other.breakConnection();
    const LogCatcher log;
    const List mails(model.loadSupplierMails(1));
    QCOMPARE(mails->rowCount(), 0);
    QCOMPARE(log.critical().size(), 1);
    const QString line = log.critical().constFirst();
    QVERIFY2(QRegularExpression(QStringLiteral("^SupplierModel - loadSupplierMails load ERROR: \\[20\\d\\d\\]: .+"))
                 .match(line)
                 .hasMatch(),
             qPrintable(line));
}

void TestSupplierModel::closedHandleGivesEmptyLists()
{
    const QString name = QStringLiteral("closed");
    {
        const QSqlDatabase closed = QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), name);
        SupplierModel model(closed);
        const LogCatcher log;
        QVERIFY(!model.loadAllSuppliers());
        const List lists[] = {List(model.checkableSuppliers(5)), List(model.branchSuppliers(5)),
                              List(model.loadBranchMails(5)),    List(model.loadSupplierTimes(1)),
                              List(model.loadSupplierMails(1)),  List(model.loadOrderMails(1, 5))};
        for (const List &rows : lists)
            QCOMPARE(rows->rowCount(), 0);
        QCOMPARE(log.critical().size(), 7);
    }
    QSqlDatabase::removeDatabase(name);
}

QTEST_MAIN(TestSupplierModel)
#include "tst_suppliermodel.moc"
