#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/logcatcher.h"

#include <QSignalSpy>
#include <QtTest>

/// The two modes, the person and the branch, in the present week.
class TestMenuWidgetPeople : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void ordersModeControls();
    void ordersModeSelectsTheFirstPerson();
    void modeIsLogged();
    void personsOrdersAreShown();
    void oneStatementAndOneFilterAPerson();
    void personInMenuModeChangesNoCard();
    void listThatBecameEmptyShowsNobody();
    void branchShowsItsMenu();
    void branchRequeriesThePeople();
    void administratorsScope();

private:
    static int menuLoads(const LogCatcher &log)
    {
        return log.lines().filter(QStringLiteral("MenuWidget menu created")).size();
    }

    TestDatabase m_database;
    BoardData m_data{m_database};
    uint m_obed = 0;
    uint m_soup = 0;
    uint m_main = 0;
    QDate m_thisThursday;
};

void TestMenuWidgetPeople::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestMenuWidgetPeople::init()
{
    m_thisThursday = WeekList::thursdayOf(QDate::currentDate());
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_data.segment(QStringLiteral("Večera"), 2);
    const uint supplier = m_data.supplier(QStringLiteral("GA"));
    m_soup = m_data.food(QStringLiteral("Polievka"), m_data.type(QStringLiteral("Polievky"), 1), supplier);
    m_main = m_data.food(QStringLiteral("Rezeň"), m_data.type(QStringLiteral("Hlavné jedlá"), 2), supplier);
    m_data.item(m_soup, m_obed, m_thisThursday.addDays(-21));
}

void TestMenuWidgetPeople::cleanup()
{
    m_data.clear();
}

void TestMenuWidgetPeople::ordersModeControls()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    BoardPage page(m_database.db());
    page.initData();
    page.showOrders();
    for (const char *name : {"comboBoxPeople", "linePeople", "personIconLabel", "toolButton", "toolButtonMonthly"})
        QVERIFY2(!page.find<QWidget>(name)->isHidden(), name);
    for (const char *name : {"toolButtonExport", "toolButtonWeekly"})
        QVERIFY2(page.find<QWidget>(name)->isHidden(), name);
    QCOMPARE(page.monthlyCaption(),
             "Mesačný výpis obj. stravy: " + QLocale().toString(m_thisThursday, QStringLiteral("MMMM yyyy")));
    QVERIFY(page.button("toolButtonMonthly")->isEnabled());
    const auto *order = page.card(0)->findChild<QToolButton *>("toolButtonOrder");
    const auto *edit = page.card(0)->findChild<QToolButton *>("toolButEdit");
    QVERIFY(!order->isHidden() && edit->isHidden());
}

void TestMenuWidgetPeople::ordersModeSelectsTheFirstPerson()
{
    const uint second = m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    const uint first = m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.order(m_data.item(m_soup, m_obed, m_thisThursday, 1), first, 2);
    m_data.order(m_data.item(m_main, m_obed, m_thisThursday, 1), second, 1);
    BoardPage page(m_database.db());
    page.initData();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    LogCatcher log;
    page.showOrders();
    QCOMPARE(page.people()->currentText(), QStringLiteral("[1] Adamec Ján"));
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Polievky| ", "GA Polievka|2"}));
    QCOMPARE(menuLoads(log), 1);
    // Once for the person, once for the mode.
    QCOMPARE(filter.count(), 2);
    for (const auto &emitted : filter) {
        QCOMPARE(emitted.at(0).toString(), QStringLiteral("menuwidget"));
        const QVariantMap map = emitted.at(1).toMap();
        QCOMPARE(map.keys(), (QStringList{"branch", "menu", "person", "week"}));
        QCOMPARE(map.value("menu"), QVariant(false));
        QCOMPARE(map.value("branch"), QVariant("- bez strediska -"));
        QCOMPARE(map.value("person"), QVariant("[1] Adamec Ján"));
        QCOMPARE(map.value("week"), QVariant(WeekList::text(m_thisThursday)));
    }
}

void TestMenuWidgetPeople::modeIsLogged()
{
    BoardPage page(m_database.db());
    page.initData();
    LogCatcher log;
    page.showOrders();
    QVERIFY(log.has(QStringLiteral("MenuWidget::on_radioButton_toggled() ::: rezim menu aktivny: false")));
    page.showMenu();
    QVERIFY(log.has(QStringLiteral("MenuWidget::on_radioButton_toggled() ::: rezim menu aktivny: true")));
}

void TestMenuWidgetPeople::personsOrdersAreShown()
{
    const uint adamec = m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    const uint zeman = m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    const uint soup = m_data.item(m_soup, m_obed, m_thisThursday, 1);
    const uint mainCourse = m_data.item(m_main, m_obed, m_thisThursday, 1);
    m_data.order(soup, adamec, 2);
    m_data.order(soup, zeman, 3);
    m_data.order(mainCourse, zeman, 1);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(BoardPage::rowsOf(page.card(3)),
             (QStringList{"Polievky| ", "GA Polievka|5", "Hlavné jedlá| ", "GA Rezeň|1"}));
    page.showOrders();
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Polievky| ", "GA Polievka|2"}));
    page.people()->setCurrentIndex(1);
    QCOMPARE(BoardPage::rowsOf(page.card(3)),
             (QStringList{"Polievky| ", "GA Polievka|3", "Hlavné jedlá| ", "GA Rezeň|1"}));
    QCOMPARE(page.card(3)->findChild<QLabel *>("labelSumOrders")->text(), QStringLiteral("4"));
}

void TestMenuWidgetPeople::oneStatementAndOneFilterAPerson()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    BoardPage page(m_database.db());
    page.initData();
    page.showOrders();
    page.button("toolButtonMonthly")->setEnabled(false);
    const QSignalSpy filter(&page, &MenuWidget::filter);
    LogCatcher log;
    page.people()->setCurrentIndex(1);
    QCOMPARE(menuLoads(log), 1);
    QCOMPARE(filter.count(), 1);
    QCOMPARE(filter.at(0).at(1).toMap().value("person"), QVariant("[2] Zeman Ivan"));
    QVERIFY(page.button("toolButtonMonthly")->isEnabled());
}

void TestMenuWidgetPeople::personInMenuModeChangesNoCard()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    m_data.item(m_soup, m_obed, m_thisThursday, 1);
    BoardPage page(m_database.db());
    page.initData();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    LogCatcher log;
    page.people()->setCurrentIndex(1);
    QCOMPARE(filter.count(), 1);
    QCOMPARE(menuLoads(log), 0);
    QVERIFY(!log.has(QStringLiteral("MenuWidget::disableWidgetsForEmployeeOutsideWorkingHours()")));
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
    QCOMPARE(page.enabledDays(), QStringLiteral("1111111"));
}

void TestMenuWidgetPeople::listThatBecameEmptyShowsNobody()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.order(m_data.item(m_soup, m_obed, m_thisThursday, 1), 99, 2);
    BoardPage page(m_database.db());
    page.initData();
    m_database.exec(QStringLiteral("DELETE FROM people"));
    page.showOrders();
    QCOMPARE(page.people()->currentIndex(), -1);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
    QCOMPARE(page.enabledDays(), QStringLiteral("0000000"));
}

void TestMenuWidgetPeople::branchShowsItsMenu()
{
    const uint branch = m_data.branch(QStringLiteral("Výroba"));
    m_data.item(m_soup, m_obed, m_thisThursday);
    m_data.item(m_main, m_obed, m_thisThursday, 0, branch);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Polievky| ", "GA Polievka|"}));
    const QSignalSpy filter(&page, &MenuWidget::filter);
    LogCatcher log;
    page.branches()->setCurrentIndex(1);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Hlavné jedlá| ", "GA Rezeň|"}));
    QCOMPARE(menuLoads(log), 1);
    QCOMPARE(filter.count(), 1);
    QCOMPARE(filter.at(0).at(1).toMap().value("branch"), QVariant("Výroba"));
    // The cards know the branch: the lock meets that branch's items only.
    page.card(3)->on_toolButtonLock_clicked();
    QCOMPARE(m_database.rows(QStringLiteral("SELECT bid FROM via_orderables WHERE locked = 1")),
             QStringList{QString::number(branch)});
    page.branches()->setCurrentIndex(0);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Polievky| ", "GA Polievka|"}));
}

void TestMenuWidgetPeople::branchRequeriesThePeople()
{
    const uint branch = m_data.branch(QStringLiteral("Výroba"));
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.personInBranch(m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan")), branch);
    BoardPage page(m_database.db());
    page.initData();
    page.branches()->setCurrentIndex(1);
    QCOMPARE(page.people()->count(), 2);
    page.branches()->setCurrentIndex(0);
    page.showOrders();
    page.branches()->setCurrentIndex(1);
    QCOMPARE(page.people()->count(), 1);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
    const QSignalSpy filter(&page, &MenuWidget::filter);
    page.branches()->setCurrentIndex(0);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[1] Adamec Ján"));
    QCOMPARE(filter.last().at(1).toMap().value("person"), QVariant("[1] Adamec Ján"));
}

void TestMenuWidgetPeople::administratorsScope()
{
    const uint own = m_data.branch(QStringLiteral("Výroba"));
    m_data.branch(QStringLiteral("Sklad"));
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    const uint managed = m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    m_database.exec(QStringLiteral("INSERT INTO admins_people VALUES (7, %1)").arg(managed));
    m_database.exec(QStringLiteral("INSERT INTO bradm VALUES (7, %1)").arg(own));
    BoardPage page(m_database.db(), 7);
    page.initData();
    page.showOrders();
    QCOMPARE(page.people()->count(), 1);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
    const auto enabled = [&page](int row) {
        return bool(page.branches()->model()->flags(page.branches()->model()->index(row, 1)) & Qt::ItemIsEnabled);
    };
    QCOMPARE(page.branches()->count(), 3);
    QVERIFY(enabled(0) && enabled(1) && !enabled(2));
}

QTEST_MAIN(TestMenuWidgetPeople)
#include "tst_menuwidgetpeople.moc"
