#include "board/orderform.h"
#include "board/totaldelegate.h"
#include "session/menucolumns.h"
#include "support/modelstrings.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

#include <limits>

namespace {

/// A person's grid in short. A food is "food,type,position,locked,price,total,informative", a heading "0,type"; the
/// total row comes by itself.
class PersonGrid : public QStandardItemModel {
public:
    explicit PersonGrid(const QStringList &rows)
        : QStandardItemModel(0, PersonMenuColumn::Count)
    {
        for (const QString &row : rows)
            append(row.split(QLatin1Char(',')));
        append({QString(), QString(), QStringLiteral("0")});
    }

    QStandardItem *cell(int row, int column) const { return item(row, column); }
    QString foods() const { return columnTexts(*this, PersonMenuColumn::FoodId).join(QLatin1Char(' ')); }
    /// "quantity: money" of each row.
    QStringList sums() const
    {
        QStringList texts;
        for (int row = 0; row < rowCount(); ++row)
            texts.append(cell(row, PersonMenuColumn::Total)->text() + QStringLiteral(": ")
                         + cell(row, PersonMenuColumn::Money)->text());
        return texts;
    }

private:
    void append(const QStringList &cells)
    {
        QList<QStandardItem *> row;
        for (int column = 0; column < PersonMenuColumn::Count; ++column)
            row.append(new QStandardItem);
        const bool heading = cells.constFirst() == QLatin1String("0");
        row[PersonMenuColumn::FoodId]->setText(cells.value(0));
        row[PersonMenuColumn::TypeId]->setText(cells.value(1));
        row[PersonMenuColumn::Position]->setText(heading ? QStringLiteral("0") : cells.value(2));
        row[PersonMenuColumn::Locked]->setText(cells.value(3));
        row[PersonMenuColumn::Price]->setText(cells.value(4));
        row[PersonMenuColumn::Total]->setText(cells.value(5));
        row[PersonMenuColumn::Informative]->setText(cells.value(6));
        if (!heading && !cells.constFirst().isEmpty())
            row[PersonMenuColumn::OrderableId]->setText(QStringLiteral("10") + cells.constFirst());
        appendRow(row);
    }
};

QString money(double value)
{
    return QString::number(value, 'f', 2) + QStringLiteral(" €");
}

/// The sums as they read: for each heading, one walk over all rows below it.
QStringList plainSums(const PersonGrid &grid)
{
    const auto text = [&grid](int row, int column) { return grid.cell(row, column)->text(); };
    QStringList quantities = columnTexts(grid, PersonMenuColumn::Total);
    QVector<double> amounts(grid.rowCount());
    for (int row = 0; row < grid.rowCount(); ++row)
        amounts[row] = text(row, PersonMenuColumn::Total).toInt() * text(row, PersonMenuColumn::Price).toDouble();
    qint64 grandQuantity = 0;
    double grandMoney = 0;
    for (int heading = 0; heading < grid.rowCount() - 1; ++heading) {
        if (text(heading, PersonMenuColumn::FoodId) != QLatin1String("0"))
            continue;
        qint64 quantity = 0;
        amounts[heading] = 0;
        for (int row = grid.rowCount() - 2; row > heading; --row) {
            if (text(row, PersonMenuColumn::TypeId) != text(heading, PersonMenuColumn::TypeId)
                || text(row, PersonMenuColumn::FoodId) == QLatin1String("0"))
                continue;
            quantity += text(row, PersonMenuColumn::Total).toInt();
            amounts[heading] += amounts[row];
        }
        quantities[heading] = QString::number(quantity);
        grandQuantity += quantity;
        grandMoney += amounts[heading];
    }
    quantities.last() = QString::number(grandQuantity);
    amounts.last() = grandMoney;
    QStringList sums;
    for (int row = 0; row < grid.rowCount(); ++row)
        sums.append(quantities.at(row) + QStringLiteral(": ") + money(amounts.at(row)));
    return sums;
}

/// A grid of several types with random quantities; prices are quarters, so that sums are exact in any order.
QStringList randomRows(QRandomGenerator &random)
{
    QStringList rows;
    for (int type = 1; type <= random.bounded(1, 6); ++type) {
        rows.append(QStringLiteral("0,%1").arg(type));
        for (int food = 0; food < random.bounded(0, 6); ++food) {
            rows.append(QStringLiteral("%1,%2,1,1,%3,%4,")
                            .arg(100 * type + food)
                            .arg(type)
                            .arg(random.bounded(0, 40) / 4.0)
                            .arg(random.bounded(-3, 9)));
        }
    }
    return rows;
}

} // namespace

class TestOrderForm : public QObject {
    Q_OBJECT

private slots:
    void removeUnorderable_data();
    void removeUnorderable();
    void removeUnorderableKeepsHeadingsAndTotal();
    void emphasiseHeadings();
    void openQuantities();
    void informativeItemsKeepTheirButtons();
    void firstQuantityRow();
    void quantity_data();
    void quantity();
    void orders();
    void recalculateSumsByType();
    void recalculateCountsNonsenseAsZero();
    void recalculateEqualsThePlainWalk();
    void recalculateTwiceChangesNothing();
    void recalculateOfLargeQuantitiesDoesNotOverflow();
    void recalculateTellsOfRealChangesOnly();
    void emptyGridStaysEmpty();
};

void TestOrderForm::removeUnorderable_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("stays");
    QTest::newRow("open for orders") << "11,1,1,1,2,," << true;
    QTest::newRow("being composed") << "11,1,1,0,2,," << false;
    QTest::newRow("closed for good") << "11,1,1,2,2,3," << false;
    QTest::newRow("not on the menu") << "11,1,,,2,," << false;
    QTest::newRow("locked without a position") << "11,1,,1,2,," << false;
    QTest::newRow("informative, open for orders") << "11,1,0,1,2,,1" << true;
    QTest::newRow("informative, being composed") << "11,1,0,0,2,,1" << false;
    QTest::newRow("informative, closed for good") << "11,1,0,2,2,,1" << false;
}

void TestOrderForm::removeUnorderable()
{
    QFETCH(QString, row);
    QFETCH(bool, stays);
    PersonGrid grid({"0,1", row});
    OrderForm::removeUnorderable(grid);
    QCOMPARE(grid.foods(), stays ? QStringLiteral("0 11 ") : QStringLiteral("0 "));
}

void TestOrderForm::removeUnorderableKeepsHeadingsAndTotal()
{
    PersonGrid grid({"11,1,,,2,,", "0,1", "12,1,1,1,2,,", "13,1,2,0,2,,", "14,1,3,1,2,,", "0,2", "0,3"});
    OrderForm::removeUnorderable(grid);
    QCOMPARE(grid.foods(), QStringLiteral("0 12 14 0 0 "));
}

void TestOrderForm::emphasiseHeadings()
{
    PersonGrid grid({"0,1", "11,1,0,1,2,,1", "0,2", "12,2,1,1,2,,0"});
    OrderForm::emphasiseHeadings(grid);
    QList<int> weights;
    for (int row = 0; row < grid.rowCount(); ++row)
        weights.append(grid.cell(row, PersonMenuColumn::Name)->data(Qt::FontRole).isValid()
                           ? grid.cell(row, PersonMenuColumn::Name)->font().weight()
                           : 0);
    QCOMPARE(weights, (QList<int>{75, 0, 75, 0, 75}));
}

void TestOrderForm::openQuantities()
{
    PersonGrid grid({"0,1", "11,1,0,1,2,,1", "0,2", "12,2,1,1,2,,0", "13,2,2,1,2,,"});
    OrderForm::openQuantities(grid);
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QStandardItem *cell = grid.cell(row, column);
            const bool open = (row == 3 || row == 4) && column == PersonMenuColumn::Total;
            QCOMPARE(cell->isEnabled(), open);
            QCOMPARE(cell->data(Qt::BackgroundRole).isValid(), open);
            if (!open)
                continue;
            QVERIFY(cell->isEditable());
            QVERIFY(cell->isSelectable());
            QCOMPARE(cell->background().color(), QColor(Qt::white));
        }
    }
}

void TestOrderForm::informativeItemsKeepTheirButtons()
{
    PersonGrid grid({"0,1", "11,1,0,1,2,,1", "12,1,1,1,2,,0"});
    OrderForm::openQuantities(grid);
    QList<bool> marked;
    for (int row = 0; row < grid.rowCount(); ++row)
        marked.append(grid.cell(row, PersonMenuColumn::Position)->data(TotalDelegate::ButtonsRole).toBool());
    QCOMPARE(marked, (QList<bool>{false, true, false, false}));
    QCOMPARE(grid.cell(1, PersonMenuColumn::Position)->text(), QStringLiteral("0"));
}

void TestOrderForm::firstQuantityRow()
{
    PersonGrid grid({"0,1", "11,1,0,1,2,,1", "12,1,1,1,2,,0", "13,1,1,1,2,,0"});
    OrderForm::openQuantities(grid);
    QCOMPARE(OrderForm::firstQuantityRow(grid), 2);
    PersonGrid headings({"0,1"});
    OrderForm::openQuantities(headings);
    QCOMPARE(OrderForm::firstQuantityRow(headings), -1);
}

void TestOrderForm::quantity_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<int>("quantity");
    const int veryLarge = 2147483647;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("three") << "3" << 3;
    QTest::newRow("leading zeros") << "007" << 7;
    QTest::newRow("plus") << "+4" << 4;
    QTest::newRow("negative zero") << "-0" << 0;
    QTest::newRow("negative") << "-3" << veryLarge;
    QTest::newRow("largest") << "2147483647" << veryLarge;
    QTest::newRow("beyond int") << "2147483648" << veryLarge;
    QTest::newRow("twice around") << "4294967299" << veryLarge;
    QTest::newRow("no number") << "veľa" << 0;
    QTest::newRow("a fraction") << "1.5" << 0;
}

void TestOrderForm::quantity()
{
    QFETCH(QString, cell);
    QTEST(OrderForm::quantity(cell), "quantity");
}

void TestOrderForm::orders()
{
    const PersonGrid grid({"0,1", "11,1,0,1,2,5,1", "12,1,1,1,2,,0", "13,1,1,1,2,-1,0"});
    const QVector<OrderRecord> orders = OrderForm::orders(grid, 77);
    QStringList texts;
    for (const OrderRecord &order : orders) {
        texts.append(QStringLiteral("%1 %2 %3").arg(order.orderableID).arg(order.uid).arg(order.quantity));
        QVERIFY(order.ordered.isEmpty());
        QVERIFY(order.delivered.isEmpty());
    }
    QCOMPARE(texts, (QStringList{"1011 77 5", "1012 77 0", "1013 77 2147483647"}));
}

void TestOrderForm::recalculateSumsByType()
{
    PersonGrid grid({"0,1", "11,1,1,1,2.5,2,", "12,1,2,1,1.2,,", "0,2", "13,2,3,1,3,1,", "0,3"});
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(grid.sums(),
             (QStringList{"2: 5.00 €", "2: 5.00 €", ": 0.00 €", "1: 3.00 €", "1: 3.00 €", "0: 0.00 €", "3: 8.00 €"}));
}

void TestOrderForm::recalculateCountsNonsenseAsZero()
{
    PersonGrid grid({"0,1", "11,1,1,1,2.5,veľa,", "12,1,2,1,drahé,3,", "13,1,3,1,2,-1,", "14,9,4,1,2,7,"});
    OrderForm::recalculate(grid, QStringLiteral("$"));
    QCOMPARE(grid.sums(),
             (QStringList{"2: -2.00 $", "veľa: 0.00 $", "3: 0.00 $", "-1: -2.00 $", "7: 14.00 $", "2: -2.00 $"}));
}

void TestOrderForm::recalculateEqualsThePlainWalk()
{
    QRandomGenerator random(20240229);
    for (int attempt = 0; attempt < 200; ++attempt) {
        PersonGrid grid(randomRows(random));
        const QStringList expected = plainSums(grid);
        OrderForm::recalculate(grid, QStringLiteral("€"));
        QCOMPARE(grid.sums(), expected);
    }
}

void TestOrderForm::recalculateTwiceChangesNothing()
{
    PersonGrid grid({"0,1", "11,1,1,1,2.5,2,", "0,1", "12,1,2,1,1,3,"});
    OrderForm::recalculate(grid, QStringLiteral("€"));
    const QStringList once = grid.sums();
    // Two types that share a position: what lies below both counts in both, and no sum counts in another.
    QCOMPARE(once, (QStringList{"5: 8.00 €", "2: 5.00 €", "3: 3.00 €", "3: 3.00 €", "8: 11.00 €"}));
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(grid.sums(), once);
}

void TestOrderForm::recalculateOfLargeQuantitiesDoesNotOverflow()
{
    PersonGrid grid({"0,1", "11,1,1,1,1,2147483647,", "12,1,2,1,1,2147483647,"});
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(grid.sums().constLast(), QStringLiteral("4294967294: 4294967294.00 €"));
}

void TestOrderForm::recalculateTellsOfRealChangesOnly()
{
    PersonGrid grid({"0,1", "11,1,1,1,2,1,", "12,1,2,1,2,1,", "0,2", "13,2,3,1,3,1,"});
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QSignalSpy changes(&grid, &QAbstractItemModel::dataChanged);
    QVERIFY(changes.isValid());
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(changes.count(), 0);
    grid.cell(1, PersonMenuColumn::Total)->setText(QStringLiteral("2"));
    changes.clear();
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(changes.count(), 5); // the food's money, both sums of its heading and of the form
}

void TestOrderForm::emptyGridStaysEmpty()
{
    QStandardItemModel grid(0, PersonMenuColumn::Count);
    OrderForm::removeUnorderable(grid);
    OrderForm::emphasiseHeadings(grid);
    OrderForm::openQuantities(grid);
    OrderForm::recalculate(grid, QStringLiteral("€"));
    QCOMPARE(grid.rowCount(), 0);
    QCOMPARE(OrderForm::firstQuantityRow(grid), -1);
    QVERIFY(OrderForm::orders(grid, 1).isEmpty());
}

QTEST_MAIN(TestOrderForm)
#include "tst_orderform.moc"
