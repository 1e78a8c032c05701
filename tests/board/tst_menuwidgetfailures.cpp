#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QtTest>

/// A closed and a lost database, and rows that another client takes away.
class TestMenuWidgetFailures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup();

    void closedDatabaseLeavesAnEmptyBoard();
    void everyControlWorksOnAnEmptyBoard();
    void everySlotWorksBeforeInitData();
    void lostWhileOpening();
    void lostBeforeAChange_data();
    void lostBeforeAChange();
    void lostBeforeALock();
    void lostBeforeTheCompanyName();
    void failedMenuLeavesEmptyCards();
    void personDeletedByAnotherClient();
    void everythingDeletedByAnotherClient();

private:
    /// The export's question is cancelled.
    static void clickEverything(const BoardPage &page, BoxAnswerer &boxes);

    TestDatabase m_database;
    BoardData m_data{m_database};
};

namespace {

const QString failureTitle = QStringLiteral("Chyba databázy");
const QString menuFailure = QStringLiteral("Nepodarilo sa načítať menu!");

void expectFailures(BoxAnswerer &boxes, const QStringList &texts)
{
    for (const QString &text : texts)
        boxes.expectBox(failureTitle, text);
}

/// The tags of the critical lines, without the server's words.
QStringList criticalTags(const LogCatcher &log)
{
    QStringList tags;
    const QStringList lines = log.critical();
    for (const QString &line : lines)
        tags.append(line.section(QStringLiteral(" ERROR:"), 0, 0));
    return tags;
}

} // namespace

void TestMenuWidgetFailures::init()
{
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint food = m_data.food(QStringLiteral("Guláš"), m_data.type(QStringLiteral("Hlavné jedlá"), 1),
                                  m_data.supplier(QStringLiteral("GA")));
    m_data.branch(QStringLiteral("Výroba"));
    const uint adamec = m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    const QDate thursday = WeekList::thursdayOf(QDate::currentDate());
    m_data.item(food, obed, thursday.addDays(-21));
    m_data.order(m_data.item(food, obed, thursday, 1), adamec, 2);
}

void TestMenuWidgetFailures::cleanup()
{
    // Opened again where a test has broken it.
    QSqlDatabase connection = m_database.db();
    connection.close();
    QVERIFY(connection.open());
    QSqlQuery session(connection);
    QVERIFY(session.exec(QStringLiteral("SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')")));
    m_data.clear();
}

void TestMenuWidgetFailures::closedDatabaseLeavesAnEmptyBoard()
{
    LogCatcher log;
    BoardPage page{QSqlDatabase()};
    page.initData();
    QCOMPARE(log.critical(), QStringList());
    QVERIFY(log.has(QStringLiteral("MenuWidget::initData() ::: done loading")));
    QVERIFY(page.cards().isEmpty());
    QCOMPARE(page.weeks()->count() + page.people()->count() + page.branches()->count(), 0);
    QVERIFY(!page.button("toolButtonExport")->isHidden());
    QVERIFY(page.people()->isHidden());
    QVERIFY(page.button("toolButtonMonthly")->menu());
}

void TestMenuWidgetFailures::clickEverything(const BoardPage &page, BoxAnswerer &boxes)
{
    for (int round = 0; round < 2; ++round) {
        boxes.expectDialog(QStringLiteral("QFileDialog"), [](QDialog *dialog) { dialog->reject(); });
        for (const char *name : {"butMenuSwitch", "toolButtonWeekly", "toolButtonMonthly", "toolButtonExport",
                                 "toolButtonL", "toolButtonR", "butOrdersSwitch", "toolButtonMonthly"})
            page.button(name)->click();
    }
    for (QComboBox *combo : {page.weeks(), page.people(), page.branches()}) {
        for (int row = combo->count() - 1; row >= -1; --row)
            combo->setCurrentIndex(row);
    }
    page.showMenu();
}

void TestMenuWidgetFailures::everyControlWorksOnAnEmptyBoard()
{
    BoardPage page{QSqlDatabase()};
    page.initData();
    page.show();
    BoxAnswerer boxes;
    const QSignalSpy filter(&page, &MenuWidget::filter);
    clickEverything(page, boxes);
    QVERIFY(filter.count() > 0);
    QCOMPARE(filter.last().at(1).toMap(), (QVariantMap{{"menu", true}, {"branch", ""}, {"person", ""}, {"week", ""}}));
    boxes.expectDialog(QStringLiteral("PeopleComboboxDialog"), [](QDialog *dialog) { dialog->reject(); });
    page.showOrders();
    page.button("toolButton")->click();
    const auto actions = page.button("toolButtonMonthly")->menu()->actions();
    for (QAction *action : actions)
        action->trigger();
    page.filterSetter({});
    page.filterSetter({{"menu", true}, {"branch", "x"}, {"person", "y"}, {"week", "z"}});
    BOXES_DONE(boxes);
    QVERIFY(page.cards().isEmpty());
}

void TestMenuWidgetFailures::everySlotWorksBeforeInitData()
{
    BoardPage page(m_database.db());
    page.on_comboBox_currentIndexChanged(-1);
    page.on_toolButtonR_clicked();
    page.on_toolButtonL_clicked();
    page.on_radioButton_toggled(false);
    page.on_comboBoxPeople_currentIndexChanged(3);
    page.refreshPeopleWeekChange();
    page.disableWidgetsForEmployeeOutsideWorkingHours();
    page.on_radioButton_toggled(true);
    page.setDayWidgetHeight();
    page.on_comboBoxBranches_currentIndexChanged(2);
    page.hidewidgets();
    page.resetModel();
    page.filterChanged();
    QVariant value(7);
    page.setValue(0, QStringLiteral("0"), value, 0);
    QVERIFY(!page.recreateDateFromComboBoxWeek().isValid());
}

void TestMenuWidgetFailures::lostWhileOpening()
{
    BoardPage page(m_database.db());
    m_database.breakConnection();
    LogCatcher log;
    BoxAnswerer boxes;
    expectFailures(boxes,
                   {"Nepodarilo sa načítať nastavenie!", "Nepodarilo sa načítať nastavenie!", menuFailure,
                    "Nepodarilo sa načítať posledný dátum objednávateľnej položky!", menuFailure});
    page.initData();
    // Without slots there are no cards, and nothing is loaded for them a second time.
    const QString failures = boxes.takeFailures();
    QCOMPARE(failures, QString());
    QVERIFY(page.cards().isEmpty());
    QVERIFY(log.critical().size() > 4);
    page.show();
}

void TestMenuWidgetFailures::lostBeforeAChange_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("orders");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<int>("boxes");
    const QString menu = QStringLiteral("FoodRepository(loadMenuWidgetMenu) - SQL");
    const QString people = QStringLiteral("PeopleModel - setQuery");
    QTest::newRow("week, menu") << "week" << false << QStringList{menu} << 1;
    QTest::newRow("week, orders") << "week" << true << QStringList{menu, people, menu} << 2;
    QTest::newRow("person") << "person" << true << QStringList{menu} << 1;
    QTest::newRow("branch, menu") << "branch" << false << QStringList{menu} << 1;
    QTest::newRow("branch, orders") << "branch" << true << QStringList{people, menu, menu} << 2;
    QTest::newRow("mode, to orders") << "mode" << false << QStringList{people, menu} << 1;
    QTest::newRow("mode, to menu") << "mode" << true << QStringList{menu} << 1;
    QTest::newRow("card") << "card" << false << QStringList{menu} << 1;
}

void TestMenuWidgetFailures::lostBeforeAChange()
{
    QFETCH(QString, change);
    QFETCH(bool, orders);
    QFETCH(int, boxes);
    BoardPage page(m_database.db());
    page.initData();
    page.show();
    if (orders)
        page.showOrders();
    m_database.breakConnection();
    LogCatcher log;
    BoxAnswerer answers;
    for (int box = 0; box < boxes; ++box)
        answers.expectBox(failureTitle, menuFailure);
    if (change == "week")
        page.weeks()->setCurrentIndex(5);
    else if (change == "person")
        page.people()->setCurrentIndex(1);
    else if (change == "branch")
        page.branches()->setCurrentIndex(1);
    else if (change == "card")
        emit page.card(0)->resetmodel();
    else if (orders)
        page.showMenu();
    else
        page.showOrders();
    BOXES_DONE(answers);
    QTEST(criticalTags(log), "tags");
    QCOMPARE(page.cards().size(), 7);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
}

void TestMenuWidgetFailures::lostBeforeALock()
{
    BoardPage page(m_database.db());
    page.initData();
    m_database.breakConnection();
    LogCatcher log;
    BoxAnswerer boxes;
    expectFailures(boxes, {"Nepodarilo sa uzamknúť objednávateľná položky!", menuFailure});
    // A past day cannot be locked: the slot is called, as the button may be disabled today.
    page.card(3)->on_toolButtonLock_clicked();
    BOXES_DONE(boxes);
    QCOMPARE(criticalTags(log),
             (QStringList{"OrderableRepository(updating lock) - SQL", "FoodRepository(loadMenuWidgetMenu) - SQL"}));
    QCOMPARE(m_database.value(QStringLiteral("SELECT SUM(locked) FROM via_orderables")).toInt(), 1);
}

void TestMenuWidgetFailures::lostBeforeTheCompanyName()
{
    BoardPage page(m_database.db());
    m_database.breakConnection();
    LogCatcher log;
    BoxAnswerer boxes;
    QCOMPARE(page.getReserveCompanyName(), QString());
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY2(log.critical().at(0).startsWith(QStringLiteral("MenuWidget::getReserveCompanyName() - SQL ERROR: ")),
             qPrintable(log.critical().at(0)));
}

void TestMenuWidgetFailures::failedMenuLeavesEmptyCards()
{
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
    m_database.exec(QStringLiteral("RENAME TABLE via_suppliers TO hidden_suppliers"));
    BoxAnswerer boxes;
    expectFailures(boxes, {menuFailure});
    page.weeks()->setCurrentIndex(3);
    BOXES_DONE(boxes);
    QCOMPARE(page.dates(), weekDates(QDate::currentDate().addDays(7)));
    m_database.exec(QStringLiteral("RENAME TABLE hidden_suppliers TO via_suppliers"));
    page.weeks()->setCurrentIndex(4);
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
}

void TestMenuWidgetFailures::personDeletedByAnotherClient()
{
    BoardPage page(m_database.db());
    page.initData();
    page.showOrders();
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
    m_database.exec(QStringLiteral("DELETE FROM people WHERE pid = 1"));
    page.weeks()->setCurrentIndex(5);
    QCOMPARE(page.people()->currentIndex(), -1);
    page.weeks()->setCurrentIndex(4);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
    QCOMPARE(page.enabledDays(), QStringLiteral("0000000"));
    page.people()->setCurrentIndex(0);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
}

void TestMenuWidgetFailures::everythingDeletedByAnotherClient()
{
    BoardPage page(m_database.db());
    page.initData();
    page.show();
    m_data.clear();
    BoxAnswerer boxes;
    clickEverything(page, boxes);
    page.filterSetter({});
    BOXES_DONE(boxes);
    QCOMPARE(page.cards().size(), 7);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
}

QTEST_MAIN(TestMenuWidgetFailures)
#include "tst_menuwidgetfailures.moc"
