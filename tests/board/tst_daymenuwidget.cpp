#include "board/cardpage.h"
#include "board/cardstate.h"
#include "board/cellgrid.h"
#include "session/session.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

/// What the card shows of a grid, and its states: no database.
class TestDayMenuWidget : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void setMenuModelShowsTheCell();
    void aPersonsCellShowsOrderedFoodsOnly();
    void sameGridCanBeShownAgainAfterAChange();
    void headerSections();
    void orderLimitColumnComesWithTheNextModel();
    void emptyCell();
    void windowShowsEveryState_data();
    void windowShowsEveryState();
    void sumOfOrders_data();
    void sumOfOrders();
    void lockOfMixedItems_data();
    void lockOfMixedItems();
    void closedForGoodSticksUntilTheNextModel();
    void imagesOfLockAndReport();
    void pastReachesUpToYesterday_data();
    void pastReachesUpToYesterday();
    void printoutCountsTheShownRows();
    void survivesTheGridsEnd();
};

void TestDayMenuWidget::cleanup()
{
    session().readOnly = false;
}

void TestDayMenuWidget::setMenuModelShowsTheCell()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday(), 1, QStringLiteral("4"));
    grid.addFood(2, 7, monday().addDays(1), 1);
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    grid.addFood(3, 8, monday(), 1);
    grid.addHeading(QStringLiteral("Dezerty"));
    grid.addFood(4, 7, monday(), 1);
    Card card;
    const QSignalSpy heightChanged(&card, &DayMenuWidget::heightchanged);
    const QSignalSpy resetModel(&card, &DayMenuWidget::resetmodel);
    QVERIFY(heightChanged.isValid() && resetModel.isValid());
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 1|4", "Dezerty| ", "food 4|"}));
    QCOMPARE(heightChanged.count(), 1);
    QCOMPARE(resetModel.count(), 0);

    card.setDate(monday().addDays(1));
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 2|"}));
    QCOMPARE(heightChanged.count(), 2);
}

void TestDayMenuWidget::aPersonsCellShowsOrderedFoodsOnly()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday(), 1);
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    grid.addFood(2, 7, monday(), 1, QStringLiteral("2"));
    Card card;
    card.setPerson(5);
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Hlavné jedlá| ", "food 2|2"}));
    card.setPerson(-1);
    card.setMenuModel(&grid);
    QCOMPARE(rows(card).size(), 4);
}

void TestDayMenuWidget::sameGridCanBeShownAgainAfterAChange()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    Card card;
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), QStringList());
    grid.addFood(1, 7, monday());
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 1|"}));
}

void TestDayMenuWidget::headerSections()
{
    CellGrid grid;
    grid.addFood(1, 7, monday(), 1);
    Card card;
    card.setOrderLimitEnabled(true);
    card.resize(300, 200);
    card.setMenuModel(&grid);
    card.show();
    const auto *table = find<QTableView>(card, "tableView");
    QCOMPARE(table->model()->columnCount(), 3);
    QCOMPARE(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(table->columnWidth(1), 30);
    QCOMPARE(table->columnWidth(2), 30);
    QCOMPARE(table->columnWidth(0), table->viewport()->width() - 60);

    // A grid that was cleared in between takes the header's sections along.
    grid.clear();
    CellGrid next;
    next.addFood(1, 7, monday(), 1);
    card.setMenuModel(&next);
    QCOMPARE(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(table->columnWidth(1), 30);
    QCOMPARE(table->columnWidth(2), 30);
}

void TestDayMenuWidget::orderLimitColumnComesWithTheNextModel()
{
    CellGrid grid;
    grid.addFood(1, 7, monday());
    Card card;
    card.setMenuModel(&grid);
    const auto *table = find<QTableView>(card, "tableView");
    QCOMPARE(table->model()->columnCount(), 2);
    card.setOrderLimitEnabled(true);
    QCOMPARE(table->model()->columnCount(), 2);
    card.setMenuModel(&grid);
    QCOMPARE(table->model()->columnCount(), 3);
    QVERIFY(!table->isColumnHidden(2));
    card.setPerson(3);
    card.setMenuModel(&grid);
    QVERIFY(table->isColumnHidden(2));
}

void TestDayMenuWidget::emptyCell()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    Card card(QDate::currentDate());
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), QStringList());
    QCOMPARE(find<QTableView>(card, "tableView")->minimumHeight(), 25);
    QStringList active;
    const auto buttons = card.findChildren<QToolButton *>();
    for (const QToolButton *button : buttons) {
        if (button->isEnabled() && !button->isHidden())
            active.append(button->objectName());
    }
    // The report button takes no part in the states.
    active.removeOne(QStringLiteral("toolButtonMenuReport"));
    QCOMPARE(active, QStringList{"toolButEdit"});
}

void TestDayMenuWidget::windowShowsEveryState_data()
{
    QTest::addColumn<int>("bits");
    for (int bits = 0; bits < 96; ++bits) {
        const int rest = bits / 3;
        if (!(rest & 1) && (bits % 3 != 0 || rest & 2))
            continue; // neither lock nor orders without an item
        QTest::addRow("lock %d%s%s%s%s%s", bits % 3, rest & 1 ? " items" : "", rest & 2 ? " orders" : "",
                      rest & 4 ? " past" : "", rest & 8 ? " person" : "", rest & 16 ? " readOnly" : "")
            << bits;
    }
}

void TestDayMenuWidget::windowShowsEveryState()
{
    QFETCH(int, bits);
    CardState state;
    state.lock = bits % 3;
    const int rest = bits / 3;
    state.hasItems = rest & 1;
    state.hasOrders = rest & 2;
    state.past = rest & 4;
    state.personSelected = rest & 8;
    state.readOnly = rest & 16;
    const CardButtons expected = cardButtons(state);

    const QDate today = QDate::currentDate();
    const QDate date = state.past ? today.addDays(-1) : today;
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    if (state.hasItems)
        grid.addFood(1, 7, date, state.lock, state.hasOrders ? QStringLiteral("3") : QString());
    Card card(date, state.personSelected ? 5 : -1);
    card.setOrderLimitEnabled(true);
    session().readOnly = state.readOnly;
    card.setMenuModel(&grid);

    const auto *table = find<QTableView>(card, "tableView");
    const auto button = [&card](const char *name) { return find<QToolButton>(card, name); };
    QCOMPARE(button("toolButEdit")->isEnabled(), expected.editEnabled);
    QCOMPARE(button("toolButtonLock")->isEnabled(), expected.lockEnabled);
    QCOMPARE(button("toolButCopy")->isEnabled(), expected.copyEnabled);
    QCOMPARE(button("toolButtonOrder")->isEnabled(), expected.orderEnabled);
    for (const char *name : {"toolButEdit", "toolButtonLock", "toolButtonMenuReport", "toolButCopy"})
        QCOMPARE(!button(name)->isHidden(), expected.menuActionsShown);
    for (const char *name : {"toolButtonOrder", "toolButtonPersonReport"})
        QCOMPARE(button(name)->isHidden(), expected.menuActionsShown);
    QCOMPARE(!table->isColumnHidden(1), expected.totalShown);
    QCOMPARE(!find<QWidget>(card, "sumWidget")->isHidden(), expected.totalShown);
    QCOMPARE(!table->isColumnHidden(2), expected.limitShown);
    QVERIFY(sameImage(button("toolButtonMenuReport")->icon(),
                      expected.finalReport ? ":/images/finalreport.png" : ":/images/partialreport.png"));
    QVERIFY(
        sameImage(button("toolButtonLock")->icon(), state.lock > 0 ? ":/images/locked2.png" : ":/images/unlocked.png"));
}

void TestDayMenuWidget::sumOfOrders_data()
{
    QTest::addColumn<QStringList>("totals");
    QTest::addColumn<QString>("sum");
    QTest::newRow("none") << QStringList{"", ""} << "0";
    QTest::newRow("several") << QStringList{"2", "", "40"} << "42";
    QTest::newRow("negative ones do not count") << QStringList{"2", "-1"} << "2";
    QTest::newRow("large ones") << QStringList{"2147483647", "2147483647"} << "4294967294";
}

void TestDayMenuWidget::sumOfOrders()
{
    QFETCH(QStringList, totals);
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    for (int i = 0; i < totals.size(); ++i)
        grid.addFood(i + 1, 7, monday(), 1, totals.at(i));
    grid.addFood(99, 8, monday(), 1, QStringLiteral("1000"));
    Card card;
    card.setMenuModel(&grid);
    QTEST(find<QLabel>(card, "labelSumOrders")->text(), "sum");
}

void TestDayMenuWidget::lockOfMixedItems_data()
{
    QTest::addColumn<QVector<int>>("items");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("forGood");
    QTest::newRow("one locked among open ones") << QVector<int>{0, 1, 0} << true << false;
    QTest::newRow("2 sticks once seen") << QVector<int>{0, 2, 1, 0} << true << true;
    QTest::newRow("all open") << QVector<int>{0, 0} << false << false;
}

void TestDayMenuWidget::lockOfMixedItems()
{
    QFETCH(QVector<int>, items);
    QFETCH(bool, locked);
    QFETCH(bool, forGood);
    const QDate today = QDate::currentDate();
    CellGrid grid;
    for (int i = 0; i < items.size(); ++i)
        grid.addFood(i + 1, 7, today, items.at(i));
    // Another slot and another day play no part.
    grid.addFood(50, 8, today, 2);
    grid.addFood(51, 7, today.addDays(1), 2);
    Card card(today);
    card.setMenuModel(&grid);
    QCOMPARE(find<QToolButton>(card, "toolButEdit")->isEnabled(), !locked);
    QCOMPARE(find<QToolButton>(card, "toolButtonOrder")->isEnabled(), locked);
    QCOMPARE(find<QToolButton>(card, "toolButtonLock")->isEnabled(), !forGood);
}

void TestDayMenuWidget::closedForGoodSticksUntilTheNextModel()
{
    const QDate today = QDate::currentDate();
    CellGrid grid;
    grid.addFood(1, 7, today, 2);
    Card card(today);
    card.setMenuModel(&grid);
    const auto *edit = find<QToolButton>(card, "toolButEdit");
    const auto *lock = find<QToolButton>(card, "toolButtonLock");
    grid.item(0, MenuColumn::Locked)->setText(QStringLiteral("0"));
    card.setLock(0);
    card.setButtonState();
    QVERIFY(!edit->isEnabled());
    QVERIFY(!lock->isEnabled());
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
    const QSignalSpy resetModel(&card, &DayMenuWidget::resetmodel);
    card.on_toolButtonLock_clicked();
    QCOMPARE(resetModel.count(), 0);

    card.setMenuModel(&grid);
    QVERIFY(edit->isEnabled());
    QVERIFY(lock->isEnabled());
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
}

void TestDayMenuWidget::imagesOfLockAndReport()
{
    Card card;
    const auto *lock = find<QToolButton>(card, "toolButtonLock");
    const auto *report = find<QToolButton>(card, "toolButtonMenuReport");
    QVERIFY(!sameImage(QIcon(":/images/locked2.png"), ":/images/unlocked.png"));
    QVERIFY(!sameImage(QIcon(":/images/finalreport.png"), ":/images/partialreport.png"));
    card.setLock(1);
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
    card.setLock(0);
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
    card.setLock(-3);
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
    card.setReport(false);
    QVERIFY(sameImage(report->icon(), ":/images/partialreport.png"));
    card.setReport(true);
    QVERIFY(sameImage(report->icon(), ":/images/finalreport.png"));
    card.setLock(2);
    card.setLock(0);
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
}

void TestDayMenuWidget::pastReachesUpToYesterday_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("editable");
    QTest::newRow("yesterday") << -1 << false;
    QTest::newRow("today") << 0 << true;
    QTest::newRow("tomorrow") << 1 << true;
}

void TestDayMenuWidget::pastReachesUpToYesterday()
{
    QFETCH(int, offset);
    QFETCH(bool, editable);
    const QDate date = QDate::currentDate().addDays(offset);
    CellGrid grid;
    grid.addFood(1, 7, date);
    Card card(date);
    card.setMenuModel(&grid);
    QCOMPARE(find<QToolButton>(card, "toolButEdit")->isEnabled(), editable);
    QCOMPARE(find<QToolButton>(card, "toolButtonLock")->isEnabled(), editable);
    QCOMPARE(find<QTableView>(card, "tableView")->isColumnHidden(1), editable);
}

void TestDayMenuWidget::printoutCountsTheShownRows()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday());
    grid.addFood(2, 8, monday());
    Card card;
    card.setMenuModel(&grid);
    DataSetInfo info;
    card.setDSInfo(info);
    QCOMPARE(info.recordCount, 2);
}

void TestDayMenuWidget::survivesTheGridsEnd()
{
    auto grid = std::make_unique<CellGrid>();
    grid->addFood(1, 7, monday(), 1, QStringLiteral("2"));
    Card card;
    card.setMenuModel(grid.get());
    const QModelIndex food = find<QTableView>(card, "tableView")->model()->index(0, 0);
    QVERIFY(food.isValid());
    grid.reset();
    card.setButtonState();
    card.setHeight();
    card.on_tableView_doubleClicked(QModelIndex());
    QCOMPARE(rows(card), QStringList());
    card.setMenuModel(nullptr);
    QCOMPARE(find<QLabel>(card, "labelSumOrders")->text(), QStringLiteral("0"));
}

QTEST_MAIN(TestDayMenuWidget)
#include "tst_daymenuwidget.moc"
