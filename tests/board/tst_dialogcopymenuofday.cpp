#include "board/daydata.h"
#include "board/dialogcopymenuofday.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

#include <memory>

namespace {

const QString title = QStringLiteral("Chyba databázy");

class CopyDialog : public DialogCopyMenuOfDay {
public:
    explicit CopyDialog(const QSqlDatabase &db, unsigned branch = 0, QDate date = DayData::day())
        : DialogCopyMenuOfDay(branch, date, db, nullptr)
    {
    }

    QCalendarWidget *calendar() const { return findChild<QCalendarWidget *>(QStringLiteral("calendar")); }
    QDialogButtonBox *buttons() const { return findChild<QDialogButtonBox *>(QStringLiteral("buttonBox")); }
    void ok() const { buttons()->button(QDialogButtonBox::Ok)->click(); }
};

} // namespace

class TestDialogCopyMenuOfDay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DayData>(*m_database); }

    void form();
    void startsBehindThePlan_data();
    void startsBehindThePlan();
    void withoutAPlanItStartsToday();
    void copiesAllSlotsOfTheDay();
    void copiesOpenAndWithoutOrders();
    void branchTakesItsOwnAndTheCommonItems();
    void noBranchTakesTheCommonItemsOnly();
    void emptyDayIsNoFailure();
    void cancelCopiesNothing();
    void logLines();
    void failedItemLetsTheRestGoOn();
    void lostConnection();
    void closedDatabase();

private:
    /// "day slot branch food position price limit locked" of all items, the oldest first.
    QStringList items() const
    {
        return m_database->rows(QStringLiteral("SELECT CONCAT_WS(' ', date, segmentID, IFNULL(bid, '-'), foodID, "
                                               "position, price, `limit`, locked) FROM via_orderables ORDER BY "
                                               "orderableID"));
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestDialogCopyMenuOfDay::form()
{
    const CopyDialog dialog(m_database->db());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Kopírovať denné menu"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("label"))->text(), QStringLiteral("Vyberte cieľový deň:"));
    QVERIFY(dialog.calendar()->isGridVisible());
    QCOMPARE(dialog.buttons()->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QCOMPARE(DialogCopyMenuOfDay::staticMetaObject.methodCount(), QDialog::staticMetaObject.methodCount());
}

void TestDialogCopyMenuOfDay::startsBehindThePlan_data()
{
    QTest::addColumn<int>("branch");
    QTest::addColumn<QDate>("first");
    QTest::newRow("all branches") << 0 << QDate(2031, 6, 1);
    QTest::newRow("a branch") << 5 << QDate(2032, 3, 1);
}

void TestDialogCopyMenuOfDay::startsBehindThePlan()
{
    QFETCH(int, branch);
    QFETCH(QDate, first);
    m_data->item(11, 1);
    m_data->item(12, 1, 0, 0, 3.5, 0, QDate(2031, 5, 31));
    m_data->item(21, 1, 0, 0, 3.5, 5, QDate(2032, 2, 29));
    const CopyDialog dialog(m_database->db(), unsigned(branch));
    QCOMPARE(dialog.calendar()->minimumDate(), first);
    QCOMPARE(dialog.calendar()->selectedDate(), first);
    dialog.calendar()->setSelectedDate(first.addDays(-1)); // within the plan: cannot be picked
    QCOMPARE(dialog.calendar()->selectedDate(), first);
}

void TestDialogCopyMenuOfDay::withoutAPlanItStartsToday()
{
    m_data->item(11, 1);
    const QCalendarWidget plain;
    const CopyDialog dialog(m_database->db(), 5);
    QCOMPARE(dialog.calendar()->minimumDate(), plain.minimumDate());
    QCOMPARE(dialog.calendar()->selectedDate(), QDate::currentDate());
}

void TestDialogCopyMenuOfDay::copiesAllSlotsOfTheDay()
{
    m_data->exec("INSERT INTO via_segments (segmentID, name, position) VALUES (2, 'Večera', 2)");
    m_data->item(11, 1, 0, 0, 1.25);
    m_data->item(21, 2, 0, 0, 3.5);
    m_data->exec("UPDATE via_orderables SET segmentID = 2 WHERE orderableID = 121");
    m_data->item(22, 1, 0, 0, 3.5, 0, DayData::day().addDays(1));
    CopyDialog dialog(m_database->db());
    dialog.calendar()->setSelectedDate(QDate(2031, 12, 24));
    dialog.ok();
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(items().mid(3), (QStringList{"2031-12-24 1 - 11 1 1.25 0 0", "2031-12-24 2 - 21 2 3.5 0 0"}));
    QCOMPARE(items().size(), 5);
}

void TestDialogCopyMenuOfDay::copiesOpenAndWithoutOrders()
{
    m_data->item(11, 1, 1, 30);
    m_data->item(12, 2, 2);
    m_data->order(11, 7, 3);
    const CopyDialog dialog(m_database->db());
    dialog.ok();
    QCOMPARE(items(),
             (QStringList{"2031-05-14 1 - 11 1 3.5 30 1", "2031-05-14 1 - 12 2 3.5 0 2", "2031-05-15 1 - 11 1 3.5 0 0",
                          "2031-05-15 1 - 12 2 3.5 0 0"}));
    QCOMPARE(m_data->orders(), QStringList{"111 7 3"});
}

void TestDialogCopyMenuOfDay::branchTakesItsOwnAndTheCommonItems()
{
    m_data->item(11, 1);
    m_data->item(21, 1, 0, 0, 3.5, 5);
    m_data->item(22, 1, 0, 0, 3.5, 6);
    const CopyDialog dialog(m_database->db(), 5);
    dialog.ok();
    QStringList copies = items().mid(3);
    copies.sort(); // the database leaves their order open
    QCOMPARE(copies, (QStringList{"2031-05-15 1 - 11 1 3.5 0 0", "2031-05-15 1 5 21 1 3.5 0 0"}));
}

void TestDialogCopyMenuOfDay::noBranchTakesTheCommonItemsOnly()
{
    m_data->item(11, 1);
    m_data->item(21, 1, 0, 0, 3.5, 5);
    const CopyDialog dialog(m_database->db());
    dialog.ok();
    QCOMPARE(items().mid(2), QStringList{"2031-05-15 1 - 11 1 3.5 0 0"});
}

void TestDialogCopyMenuOfDay::emptyDayIsNoFailure()
{
    m_data->item(11, 1);
    const CopyDialog dialog(m_database->db(), 0, DayData::day().addDays(-1));
    BoxAnswerer boxes;
    dialog.ok();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(items().size(), 1);
}

void TestDialogCopyMenuOfDay::cancelCopiesNothing()
{
    m_data->item(11, 1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogCopyMenuOfDay"), [](QDialog *dialog) {
        static_cast<CopyDialog *>(dialog)->buttons()->button(QDialogButtonBox::Cancel)->click();
    });
    CopyDialog dialog(m_database->db());
    QCOMPARE(dialog.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(items().size(), 1);
}

void TestDialogCopyMenuOfDay::logLines()
{
    m_data->item(11, 1);
    m_data->item(21, 2);
    const CopyDialog dialog(m_database->db());
    LogCatcher log;
    dialog.ok();
    QCOMPARE(log.lines(), (QStringList{"orderableID 111", "orderableID 121"}));
}

void TestDialogCopyMenuOfDay::failedItemLetsTheRestGoOn()
{
    m_data->item(11, 1);
    m_data->item(21, 2);
    const CopyDialog dialog(m_database->db());
    m_database->exec(
        QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON via_orderables FOR EACH ROW IF NEW.foodID = "
                       "11 THEN SIGNAL SQLSTATE '45000'; END IF"));
    BoxAnswerer boxes;
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa pridať objednávateľnú položku!"));
    dialog.ok();
    m_database->exec(QStringLiteral("DROP TRIGGER refuse"));
    BOXES_DONE(boxes);
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(items().mid(2), QStringList{"2031-05-15 1 - 21 2 3.5 0 0"});
}

void TestDialogCopyMenuOfDay::lostConnection()
{
    const TestDatabase other(QStringLiteral("lost"));
    const DayData data(other);
    data.item(11, 1);
    const CopyDialog dialog(other.db());
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať objednávateľnú položku!"));
    dialog.ok();
    BOXES_DONE(boxes);
    QCOMPARE(data.items().size(), 1);
}

void TestDialogCopyMenuOfDay::closedDatabase()
{
    BoxAnswerer boxes;
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať posledný dátum objednávateľnej položky!"));
    const CopyDialog dialog(m_data->closedConnection());
    BOXES_DONE(boxes);
    QCOMPARE(dialog.calendar()->selectedDate(), QDate::currentDate());
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať objednávateľnú položku!"));
    dialog.ok();
    BOXES_DONE(boxes);
}

QTEST_MAIN(TestDialogCopyMenuOfDay)
#include "tst_dialogcopymenuofday.moc"
