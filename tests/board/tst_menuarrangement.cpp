#include "board/menuarrangement.h"
#include "session/menucolumns.h"
#include "support/modelstrings.h"

#include <QElapsedTimer>
#include <QStandardItemModel>
#include <QtTest>

namespace {

/// A grid of a day in short: each row is "food,type,position,item,total", with the name "nF" for food F.
class DayGrid : public QStandardItemModel {
public:
    explicit DayGrid(const QStringList &rows = {})
        : QStandardItemModel(0, MenuColumn::Count)
    {
        for (const QString &row : rows)
            append(row.split(QLatin1Char(',')));
    }

    /// The rows again as "food,type,position,item".
    QStringList shorthand() const
    {
        QStringList rows;
        for (int row = 0; row < rowCount(); ++row) {
            QStringList cells;
            for (const int column :
                 {MenuColumn::FoodId, MenuColumn::TypeId, MenuColumn::Position, MenuColumn::OrderableId})
                cells.append(cell(row, column)->text());
            rows.append(cells.join(QLatin1Char(',')));
        }
        return rows;
    }
    QString order() const { return columnTexts(*this, MenuColumn::FoodId).join(QLatin1Char(' ')); }
    QStandardItem *cell(int row, int column) const { return item(row, column); }

private:
    void append(const QStringList &cells)
    {
        QList<QStandardItem *> row;
        for (int column = 0; column < MenuColumn::Count; ++column)
            row.append(new QStandardItem);
        row[MenuColumn::FoodId]->setText(cells.value(0));
        row[MenuColumn::TypeId]->setText(cells.value(1));
        row[MenuColumn::Position]->setText(cells.value(2));
        row[MenuColumn::OrderableId]->setText(cells.value(3));
        row[MenuColumn::Total]->setText(cells.value(4));
        row[MenuColumn::Name]->setText(QLatin1Char('n') + cells.value(0));
        row[MenuColumn::Shortcut]->setText(cells.value(0) == QLatin1String("0") ? QString() : QStringLiteral("S"));
        appendRow(row);
    }
};

const QString toolTip = QStringLiteral("ordered");

/// The walk as it reads, row by row: the last row first, each food that is not on the menu put on top of the foods.
void splitRowByRow(QStandardItemModel &menu, QStandardItemModel &foods)
{
    for (int row = menu.rowCount() - 1; row >= 0; --row) {
        QStandardItem *name = menu.item(row, MenuColumn::Name);
        name->setText(menu.item(row, MenuColumn::Shortcut)->text() + QLatin1Char(' ') + name->text());
        if (menu.item(row, MenuColumn::Position)->text().isEmpty())
            foods.insertRow(0, menu.takeRow(row));
    }
}

OrderableRecord slotOfTheDay()
{
    OrderableRecord slot;
    slot.bid = 3;
    slot.segmentID = 4;
    slot.date = QDate(2024, 2, 29);
    return slot;
}

} // namespace

class TestMenuArrangement : public QObject {
    Q_OBJECT

private slots:
    void splitSeparatesFoodsInOrder();
    void splitDressesTheRows();
    void splitMarksItemsWithOrders_data();
    void splitMarksItemsWithOrders();
    void splitEqualsTheRowByRowWalk();
    void splitOfALongCatalogueIsNotQuadratic();
    void addPutsTheFoodBelowItsHeading();
    void addNeedsARowOfTheType_data();
    void addNeedsARowOfTheType();
    void removeTakesFoodsOnly_data();
    void removeTakesFoodsOnly();
    void moves_data();
    void moves();
    void aNewFoodCanBeMovedAtOnce();
    void removedAndPutBackStaysTheSameItem();
    void removedItemsAreThoseWithAKey();
    void menuItemsAreNumberedFromOne();
    void priceAndLimit_data();
    void priceAndLimit();
};

void TestMenuArrangement::splitSeparatesFoodsInOrder()
{
    DayGrid menu({"11,1,,,", "12,1,,,", "0,1,0,,", "13,1,1,103,", "14,1,2,104,", "15,2,,,", "0,2,0,,", "0,3,0,,"});
    DayGrid foods;
    MenuArrangement::split(menu, foods, toolTip);
    QCOMPARE(menu.shorthand(), (QStringList{"0,1,0,", "13,1,1,103", "14,1,2,104", "0,2,0,", "0,3,0,"}));
    QCOMPARE(foods.shorthand(), (QStringList{"11,1,,", "12,1,,", "15,2,,"}));
}

void TestMenuArrangement::splitDressesTheRows()
{
    DayGrid menu({"11,1,,,", "0,1,0,,", "13,1,1,103,"});
    DayGrid foods;
    MenuArrangement::split(menu, foods, toolTip);
    QCOMPARE(columnTexts(menu, MenuColumn::Name), (QStringList{" n0", "S n13"}));
    QCOMPARE(columnTexts(foods, MenuColumn::Name), QStringList{"S n11"});
    QCOMPARE(menu.cell(0, MenuColumn::Name)->font().weight(), 75);
    QCOMPARE(menu.cell(0, MenuColumn::Name)->font().pointSize(), 12);
    QVERIFY(!menu.cell(1, MenuColumn::Name)->data(Qt::FontRole).isValid());
    QVERIFY(!foods.cell(0, MenuColumn::Name)->data(Qt::FontRole).isValid());
}

void TestMenuArrangement::splitMarksItemsWithOrders_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("food");
    QTest::newRow("ordered") << "13,1,1,103,1"
                             << "-1";
    QTest::newRow("not ordered") << "13,1,1,103,"
                                 << "13";
    QTest::newRow("ordered 0") << "13,1,1,103,0"
                               << "13";
    QTest::newRow("a negative sum") << "13,1,1,103,-2"
                                    << "13";
    QTest::newRow("a heading with its sum") << "0,1,0,,5"
                                            << "0";
}

void TestMenuArrangement::splitMarksItemsWithOrders()
{
    QFETCH(QString, row);
    QFETCH(QString, food);
    DayGrid menu({row});
    DayGrid foods;
    MenuArrangement::split(menu, foods, toolTip);
    const QStandardItem *name = menu.cell(0, MenuColumn::Name);
    QCOMPARE(menu.cell(0, MenuColumn::FoodId)->text(), food);
    const bool marked = food == QLatin1String("-1");
    QCOMPARE(name->data(Qt::BackgroundRole).isValid(), marked);
    QCOMPARE(name->toolTip(), marked ? toolTip : QString());
    if (marked)
        QCOMPARE(name->background().color(), QColor(255, 0, 0, 80));
}

void TestMenuArrangement::splitEqualsTheRowByRowWalk()
{
    QStringList rows;
    for (int row = 0; row < 200; ++row)
        rows.append(QStringLiteral("%1,%2,%3,,").arg(row).arg(row / 20).arg(row % 7 == 0 ? "1" : ""));
    DayGrid menu(rows);
    DayGrid foods;
    MenuArrangement::split(menu, foods, toolTip);
    DayGrid plainMenu(rows);
    DayGrid plainFoods;
    splitRowByRow(plainMenu, plainFoods);
    QCOMPARE(rowTexts(menu), rowTexts(plainMenu));
    QCOMPARE(rowTexts(foods), rowTexts(plainFoods));
    QVERIFY(menu.rowCount() > 0);
    QVERIFY(foods.rowCount() > 0);
}

void TestMenuArrangement::splitOfALongCatalogueIsNotQuadratic()
{
    const auto nanoseconds = [](int count) {
        QStringList rows;
        for (int row = 0; row < count; ++row)
            rows.append(QStringLiteral("%1,1,%2,,").arg(row).arg(row % 100 == 0 ? "1" : ""));
        DayGrid menu(rows);
        DayGrid foods;
        QElapsedTimer timer;
        timer.start();
        MenuArrangement::split(menu, foods, toolTip);
        return timer.nsecsElapsed();
    };
    // Eight times the rows in less than thirty times the time (about fifteen, since the larger lists leave the cache);
    // a walk that shifts all rows for each takes more than sixty times.
    qint64 few = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3; ++attempt)
        few = qMin(few, nanoseconds(2000));
    qint64 many = std::numeric_limits<qint64>::max();
    for (int attempt = 0; attempt < 3 && many > few * 30; ++attempt)
        many = qMin(many, nanoseconds(16000));
    QVERIFY2(many < few * 30, qPrintable(QStringLiteral("%1 ns, %2 ns").arg(few).arg(many)));
}

void TestMenuArrangement::addPutsTheFoodBelowItsHeading()
{
    DayGrid foods({"21,1,,,", "22,2,,,", "23,2,,,"});
    DayGrid menu({"0,1,0,,", "11,1,1,,", "0,2,0,,", "12,2,2,,"});
    QVERIFY(MenuArrangement::add(foods, 2, menu));
    QCOMPARE(menu.order(), QStringLiteral("0 11 0 23 12"));
    QVERIFY(MenuArrangement::add(foods, 1, menu));
    QCOMPARE(menu.order(), QStringLiteral("0 11 0 22 23 12"));
    QVERIFY(MenuArrangement::add(foods, 0, menu));
    QCOMPARE(menu.order(), QStringLiteral("0 21 11 0 22 23 12"));
    QCOMPARE(foods.rowCount(), 0);
}

void TestMenuArrangement::addNeedsARowOfTheType_data()
{
    QTest::addColumn<int>("food");
    QTest::newRow("a type without a heading") << 0;
    QTest::newRow("no row") << -1;
    QTest::newRow("beyond the end") << 1;
}

void TestMenuArrangement::addNeedsARowOfTheType()
{
    QFETCH(int, food);
    DayGrid foods({"21,9,,,"});
    DayGrid menu({"0,1,0,,", "11,1,1,,"});
    QVERIFY(!MenuArrangement::add(foods, food, menu));
    QCOMPARE(menu.order(), QStringLiteral("0 11"));
    QCOMPARE(foods.order(), QStringLiteral("21"));
}

void TestMenuArrangement::removeTakesFoodsOnly_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("menuOrder");
    QTest::addColumn<QString>("foodOrder");
    QTest::newRow("heading") << 0 << "0 11 -1 12"
                             << "21";
    QTest::newRow("food") << 1 << "0 -1 12"
                          << "21 11";
    QTest::newRow("ordered item") << 2 << "0 11 -1 12"
                                  << "21";
    QTest::newRow("last") << 3 << "0 11 -1"
                          << "21 12";
    QTest::newRow("no row") << -1 << "0 11 -1 12"
                            << "21";
    QTest::newRow("beyond the end") << 4 << "0 11 -1 12"
                                    << "21";
}

void TestMenuArrangement::removeTakesFoodsOnly()
{
    QFETCH(int, row);
    QFETCH(QString, menuOrder);
    QFETCH(QString, foodOrder);
    DayGrid menu({"0,1,0,,", "11,1,1,101,", "-1,1,2,102,4", "12,1,3,103,"});
    DayGrid foods({"21,1,,,"});
    QCOMPARE(MenuArrangement::remove(menu, row, foods), foodOrder != QLatin1String("21"));
    QCOMPARE(menu.order(), menuOrder);
    QCOMPARE(foods.order(), foodOrder);
}

void TestMenuArrangement::moves_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("up");
    QTest::addColumn<QString>("down");
    const QString same = QStringLiteral("0 11 -1 13 0 21 22");
    QTest::newRow("heading") << 0 << same << same;
    QTest::newRow("first of its type") << 1 << same << "0 -1 11 13 0 21 22";
    QTest::newRow("ordered item") << 2 << "0 -1 11 13 0 21 22"
                                  << "0 11 13 -1 0 21 22";
    QTest::newRow("last of its type") << 3 << "0 11 13 -1 0 21 22" << same;
    QTest::newRow("second heading") << 4 << same << same;
    QTest::newRow("last but one") << 5 << same << "0 11 -1 13 0 22 21";
    QTest::newRow("last row") << 6 << "0 11 -1 13 0 22 21" << same;
    QTest::newRow("no row") << -1 << same << same;
    QTest::newRow("beyond the end") << 7 << same << same;
}

void TestMenuArrangement::moves()
{
    QFETCH(int, row);
    QFETCH(QString, up);
    QFETCH(QString, down);
    const QStringList rows{"0,1,0,,", "11,1,1,101,", "-1,1,2,102,4", "13,1,3,103,",
                           "0,2,0,,", "21,2,4,104,", "22,2,5,105,"};
    DayGrid upwards(rows);
    const bool movedUp = MenuArrangement::moveUp(upwards, row);
    QCOMPARE(movedUp, up != DayGrid(rows).order());
    QCOMPARE(upwards.order(), up);
    DayGrid downwards(rows);
    const bool movedDown = MenuArrangement::moveDown(downwards, row);
    QCOMPARE(movedDown, down != DayGrid(rows).order());
    QCOMPARE(downwards.order(), down);
}

void TestMenuArrangement::aNewFoodCanBeMovedAtOnce()
{
    DayGrid foods({"21,1,,,"});
    DayGrid menu({"0,1,0,,", "11,1,1,101,"});
    QVERIFY(MenuArrangement::add(foods, 0, menu));
    QCOMPARE(menu.order(), QStringLiteral("0 21 11"));
    QVERIFY(!MenuArrangement::moveUp(menu, 1));
    QVERIFY(MenuArrangement::moveDown(menu, 1));
    QCOMPARE(menu.order(), QStringLiteral("0 11 21"));
    QVERIFY(MenuArrangement::moveUp(menu, 2));
    QCOMPARE(menu.order(), QStringLiteral("0 21 11"));
}

void TestMenuArrangement::removedAndPutBackStaysTheSameItem()
{
    DayGrid menu({"0,1,0,,", "11,1,1,101,"});
    DayGrid foods;
    QVERIFY(MenuArrangement::remove(menu, 1, foods));
    QCOMPARE(MenuArrangement::removedItems(foods), QVector<uint>{101});
    QVERIFY(MenuArrangement::add(foods, 0, menu));
    QCOMPARE(menu.shorthand(), (QStringList{"0,1,0,", "11,1,1,101"}));
    QVERIFY(MenuArrangement::removedItems(foods).isEmpty());
}

void TestMenuArrangement::removedItemsAreThoseWithAKey()
{
    const DayGrid foods({"21,1,,,", "22,1,1,102,", "23,1,,0,", "24,1,2,101,"});
    QCOMPARE(MenuArrangement::removedItems(foods), (QVector<uint>{102, 101}));
}

void TestMenuArrangement::menuItemsAreNumberedFromOne()
{
    const DayGrid menu({"0,1,0,,", "11,1,7,101,", "-1,1,9,102,4", "0,2,0,,", "12,2,,,"});
    const QVector<OrderableRecord> items = MenuArrangement::menuItems(menu, slotOfTheDay());
    QStringList texts;
    for (const OrderableRecord &item : items)
        texts.append(QStringLiteral("%1,%2,%3").arg(item.orderableID).arg(item.foodID).arg(item.position));
    QCOMPARE(texts, (QStringList{"101,11,1", "102,0,2", "0,12,3"}));
    for (const OrderableRecord &item : items) {
        QCOMPARE(item.bid, 3U);
        QCOMPARE(item.segmentID, 4U);
        QCOMPARE(item.date, QDate(2024, 2, 29));
    }
}

void TestMenuArrangement::priceAndLimit_data()
{
    QTest::addColumn<QString>("priceText");
    QTest::addColumn<double>("price");
    QTest::addColumn<QString>("limitText");
    QTest::addColumn<uint>("limit");
    QTest::newRow("point") << "3.5" << 3.5 << "12" << 12U;
    QTest::newRow("comma") << "3,50" << 3.5 << "2147483647" << 2147483647U;
    QTest::newRow("empty") << "" << 0.0 << "" << 0U;
    QTest::newRow("nonsense") << "drahé" << 0.0 << "veľa" << 0U;
    QTest::newRow("negative") << "-2" << -2.0 << "-2" << 0U;
    QTest::newRow("beyond unsigned") << "1e3" << 1000.0 << "4294967297" << 0U;
}

void TestMenuArrangement::priceAndLimit()
{
    QFETCH(QString, priceText);
    QFETCH(QString, limitText);
    DayGrid menu({"11,1,1,101,"});
    menu.cell(0, MenuColumn::Price)->setText(priceText);
    menu.cell(0, MenuColumn::Limit)->setText(limitText);
    const OrderableRecord item = MenuArrangement::menuItems(menu, slotOfTheDay()).constFirst();
    QTEST(item.price, "price");
    QTEST(item.limit, "limit");
}

QTEST_MAIN(TestMenuArrangement)
#include "tst_menuarrangement.moc"
