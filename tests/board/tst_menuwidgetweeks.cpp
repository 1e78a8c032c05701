#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/logcatcher.h"

#include <QSignalSpy>
#include <QtTest>

/// Stepping through the weeks, and what the cards ask of the board.
class TestMenuWidgetWeeks : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void weekOfTheRowIsShown_data();
    void weekOfTheRowIsShown();
    void arrowsStopAtTheEndsOfTheList();
    void onlyWeekLeavesTheOlderArrow();
    void arrowsDoNotLeaveTheList();
    void captionSpeaksOfOrdersInBothModes();
    void logOfAChange();
    void oneStatementAndOneFilterAChange_data();
    void oneStatementAndOneFilterAChange();
    void heightsFollowTheWeek();
    void mondayIsReadBack();
    void mondayAcrossNewYearIsAYearLate();
    void cardsResetReloadsWithoutAFilter();
    void cardsNewHeightIsSharedByItsRow();
    void rowsDeletedByAnotherClientVanish();
    void lockingACardReachesTheDatabase();

private:
    static int menuLoads(const LogCatcher &log)
    {
        return log.lines().filter(QStringLiteral("MenuWidget menu created")).size();
    }

    TestDatabase m_database;
    BoardData m_data{m_database};
    uint m_obed = 0;
    uint m_food = 0;
};

void TestMenuWidgetWeeks::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestMenuWidgetWeeks::init()
{
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_data.segment(QStringLiteral("Večera"), 2);
    m_food = m_data.food(QStringLiteral("Guláš"), m_data.type(QStringLiteral("Hlavné jedlá"), 1),
                         m_data.supplier(QStringLiteral("GA")));
    // From 4 weeks ahead to 3 weeks ago: rows 0 to 7.
    for (int week = -3; week <= 4; ++week)
        m_data.item(m_food, m_obed, WeekList::thursdayOf(QDate::currentDate()).addDays(qint64(7) * week));
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
}

void TestMenuWidgetWeeks::cleanup()
{
    m_data.clear();
}

void TestMenuWidgetWeeks::weekOfTheRowIsShown_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < 8; ++row)
        QTest::addRow("row %d", row) << row;
}

void TestMenuWidgetWeeks::weekOfTheRowIsShown()
{
    QFETCH(int, row);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.weeks()->count(), 8);
    page.weeks()->setCurrentIndex(row == 4 ? 0 : 4);
    page.weeks()->setCurrentIndex(row);
    const QDate day = QDate::currentDate().addDays(qint64(7) * (4 - row));
    QCOMPARE(page.dates(), weekDates(day));
    QCOMPARE(page.weeks()->currentText(), WeekList::text(WeekList::thursdayOf(day)));
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
    QCOMPARE(BoardPage::rowsOf(page.card(3, 1)).size(), 0);
}

void TestMenuWidgetWeeks::arrowsStopAtTheEndsOfTheList()
{
    BoardPage page(m_database.db());
    page.initData();
    QStringList seen;
    for (int step = 0; step < 4; ++step) {
        page.button("toolButtonR")->click();
        seen.append(QStringLiteral("%1%2").arg(page.weeks()->currentIndex()).arg(page.arrows()));
    }
    for (int step = 0; step < 7; ++step) {
        page.button("toolButtonL")->click();
        seen.append(QStringLiteral("%1%2").arg(page.weeks()->currentIndex()).arg(page.arrows()));
    }
    QCOMPARE(seen.join(' '), QStringLiteral("3<> 2<> 1<> 0<- 1<> 2<> 3<> 4<> 5<> 6<> 7->"));
}

void TestMenuWidgetWeeks::onlyWeekLeavesTheOlderArrow()
{
    m_database.exec(QStringLiteral("DELETE FROM via_orderables"));
    m_data.item(m_food, m_obed, QDate::currentDate());
    m_data.setting(QStringLiteral("via_shownWeeks"), QStringLiteral("0"));
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.weeks()->count(), 1);
    page.on_comboBox_currentIndexChanged(0);
    QCOMPARE(page.arrows(), QStringLiteral("<-"));
}

void TestMenuWidgetWeeks::arrowsDoNotLeaveTheList()
{
    BoardPage page(m_database.db());
    page.initData();
    for (const int row : {0, 7}) {
        page.weeks()->setCurrentIndex(row);
        // A change of mode enables both arrows.
        page.showOrders();
        page.showMenu();
        QCOMPARE(page.arrows(), QStringLiteral("<>"));
        page.button(row == 0 ? "toolButtonR" : "toolButtonL")->click();
        QCOMPARE(page.weeks()->currentIndex(), row);
        QCOMPARE(page.dates(), weekDates(QDate::currentDate().addDays(qint64(7) * (4 - row))));
    }
}

void TestMenuWidgetWeeks::captionSpeaksOfOrdersInBothModes()
{
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(7);
    const QString month = QLocale().toString(WeekList::thursdayOf(QDate::currentDate()).addDays(-21), "MMMM yyyy");
    QCOMPARE(page.monthlyCaption(), "Mesačný výpis obj. stravy: " + month + "  ");
    page.showOrders();
    QCOMPARE(page.monthlyCaption(), "Mesačný výpis obj. stravy: " + month);
    page.showMenu();
    QCOMPARE(page.monthlyCaption(), "Mesačný výpis objednávok: " + month + " ");
}

void TestMenuWidgetWeeks::logOfAChange()
{
    BoardPage page(m_database.db());
    page.initData();
    LogCatcher log;
    page.weeks()->setCurrentIndex(3);
    const QStringList own = log.lines().filter(QRegularExpression(QStringLiteral("^MenuWidget::")));
    QCOMPARE(
        own,
        (QStringList{"MenuWidget::on_comboBox_currentIndexChanged() 3", "MenuWidget::refreshPeopleWeekChange() ~BEGIN~",
                     "MenuWidget::refreshPeopleWeekChange() ~END~", "MenuWidget::filterChanged()",
                     "MenuWidget::filterChanged() ::: MenuWidget changing filter to:  true \"- bez strediska -\" "
                     "\"[1] Adamec Ján\" \""
                         + page.weeks()->currentText() + "\""}));
}

void TestMenuWidgetWeeks::oneStatementAndOneFilterAChange_data()
{
    QTest::addColumn<bool>("orders");
    QTest::newRow("menu") << false;
    QTest::newRow("orders") << true;
}

void TestMenuWidgetWeeks::oneStatementAndOneFilterAChange()
{
    QFETCH(bool, orders);
    BoardPage page(m_database.db());
    page.initData();
    if (orders)
        page.showOrders();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    QVERIFY(filter.isValid());
    LogCatcher log;
    page.weeks()->setCurrentIndex(5);
    QCOMPARE(menuLoads(log), 1);
    QCOMPARE(filter.count(), 1);
    const QVariantMap map = filter.at(0).at(1).toMap();
    QCOMPARE(map.value("week").toString(), page.weeks()->currentText());
    QCOMPARE(map.value("person").toString(), QStringLiteral("[1] Adamec Ján"));
}

void TestMenuWidgetWeeks::heightsFollowTheWeek()
{
    const QDate nextWeek = WeekList::thursdayOf(QDate::currentDate()).addDays(8);
    for (int item = 0; item < 5; ++item)
        m_data.item(m_food, m_obed, nextWeek);
    BoardPage page(m_database.db());
    page.initData();
    const int before = page.card(0)->minimumHeight();
    page.weeks()->setCurrentIndex(3);
    QCOMPARE(BoardPage::rowsOf(page.card(4)).size(), 6);
    for (int column = 0; column < 7; ++column) {
        QCOMPARE(page.card(column)->minimumHeight(), page.card(4)->preferredHeight());
        QCOMPARE(page.card(column)->maximumHeight(), page.card(4)->preferredHeight());
    }
    page.weeks()->setCurrentIndex(4);
    QCOMPARE(page.card(4)->minimumHeight(), before);
}

void TestMenuWidgetWeeks::mondayIsReadBack()
{
    BoardPage page(m_database.db());
    page.initData();
    for (int row = 0; row < page.weeks()->count(); ++row) {
        page.weeks()->setCurrentIndex(row);
        const QDate monday = WeekList::thursdayOf(QDate::currentDate()).addDays((4 - row) * 7 - 3);
        if (monday.year() == monday.addDays(3).year())
            QCOMPARE(page.recreateDateFromComboBoxWeek(), monday);
    }
}

void TestMenuWidgetWeeks::mondayAcrossNewYearIsAYearLate()
{
    // Within six years there is always a week whose Monday lies in the year before its Thursday.
    m_data.setting(QStringLiteral("via_shownWeeks"), QStringLiteral("320"));
    BoardPage page(m_database.db());
    page.initData();
    int found = 0;
    for (int row = 0; row < page.weeks()->count(); ++row) {
        const QDate monday = WeekList::thursdayOf(QDate::currentDate()).addDays((320 - row) * 7 - 3);
        if (monday.year() == monday.addDays(3).year())
            continue;
        ++found;
        page.weeks()->setCurrentIndex(row);
        QCOMPARE(page.recreateDateFromComboBoxWeek(), QDate(monday.year() + 1, monday.month(), monday.day()));
        QCOMPARE(page.dates(), weekDates(monday));
    }
    QVERIFY(found > 0);
}

void TestMenuWidgetWeeks::cardsResetReloadsWithoutAFilter()
{
    BoardPage page(m_database.db());
    page.initData();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    const QDate thursday = WeekList::thursdayOf(QDate::currentDate());
    m_data.item(m_food, m_obed, thursday);
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 2);
    emit page.card(0)->resetmodel();
    QCOMPARE(BoardPage::rowsOf(page.card(3)).size(), 3);
    QCOMPARE(page.card(0)->minimumHeight(), page.card(3)->preferredHeight());
    QCOMPARE(filter.count(), 0);
}

void TestMenuWidgetWeeks::cardsNewHeightIsSharedByItsRow()
{
    BoardPage page(m_database.db());
    page.initData();
    const int second = page.card(0, 1)->minimumHeight();
    auto *table = page.card(3)->findChild<QTableView *>(QStringLiteral("tableView"));
    QFont large = table->font();
    large.setPointSize(30);
    table->setFont(large);
    for (int column = 0; column < 7; ++column) {
        QCOMPARE(page.card(column)->minimumHeight(), page.card(3)->preferredHeight());
        QCOMPARE(page.card(column, 1)->minimumHeight(), second);
    }
}

void TestMenuWidgetWeeks::rowsDeletedByAnotherClientVanish()
{
    BoardPage page(m_database.db());
    page.initData();
    m_database.exec(QStringLiteral("DELETE FROM via_orderables"));
    m_database.exec(QStringLiteral("DELETE FROM via_segments"));
    m_database.exec(QStringLiteral("DELETE FROM people"));
    page.weeks()->setCurrentIndex(3);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
    page.showOrders();
    QCOMPARE(page.people()->count(), 0);
    page.weeks()->setCurrentIndex(5);
    page.showMenu();
    QCOMPARE(page.cards().size(), 14);
    QCOMPARE(BoardPage::rowsOf(page.card(3)), QStringList());
}

void TestMenuWidgetWeeks::lockingACardReachesTheDatabase()
{
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(3);
    const QSignalSpy filter(&page, &MenuWidget::filter);
    DayMenuWidget *card = page.card(3);
    auto *lock = card->findChild<QToolButton *>(QStringLiteral("toolButtonLock"));
    auto *edit = card->findChild<QToolButton *>(QStringLiteral("toolButEdit"));
    QVERIFY(lock->isEnabled() && edit->isEnabled());
    const QString locked = QStringLiteral("SELECT COUNT(*) FROM via_orderables WHERE locked = 1");
    lock->click();
    QCOMPARE(m_database.value(locked).toInt(), 1);
    QVERIFY(lock->isEnabled() && !edit->isEnabled());
    lock->click();
    QCOMPARE(m_database.value(locked).toInt(), 0);
    QVERIFY(edit->isEnabled());
    QCOMPARE(filter.count(), 0);
}

QTEST_MAIN(TestMenuWidgetWeeks)
#include "tst_menuwidgetweeks.moc"
