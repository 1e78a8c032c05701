#include "gridmodel.h"
#include "models/menuproxymodel.h"
#include "models/orderproxymodel.h"
#include "session/menucolumns.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

/// A day's grid: food, name, total, supplier.
QString row(const char *food, const char *name, const char *total = "", const char *supplier = "")
{
    return menuRow(QLatin1String(food), QLatin1String(name), QString(), QString(), QLatin1String(total),
                   QLatin1String(supplier), QStringLiteral("9"));
}

QStringList dayGrid()
{
    return {
        row("0", "Empty type", "0"),     row("0", "Soups", "3"),       row("5", "Beef broth", "3", "1"),
        row("6", "Onion soup", "", "1"), row("0", "Meals", "2"),       row("-1", "Goulash", "2", "2"),
        row("8", "Dumplings", "0", "1"), row("9", "No supplier", "4"), row("0", "Last type", "0"),
    };
}

/// A row of a person's grid of twelve columns.
QString personRow(const char *food, const char *name, const char *position, const char *total, const char *money)
{
    return QStringLiteral("%1|1|%2||||%3|1|2.5|%4|%5|0")
        .arg(QString::fromUtf8(food), QString::fromUtf8(name), QString::fromUtf8(position), QString::fromUtf8(total),
             QString::fromUtf8(money));
}

} // namespace

class TestMenuProxyModel : public QObject {
    Q_OBJECT

private slots:
    void filtersRows_data();
    void filtersRows();
    void filtersColumns();
    void emptyGridIsEmpty();
    void orderFormHidesHeadingsWithoutFood();
    void orderFormKeepsItsTotalRow();
    void orderFormFollowsTheRowsFilter();
};

void TestMenuProxyModel::filtersRows_data()
{
    QTest::addColumn<int>("firstFilter");
    QTest::addColumn<int>("supplierFilter");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("both off: headings with no food below them go")
        << -1 << -1
        << QStringList{QStringLiteral("Soups"),      QStringLiteral("Beef broth"), QStringLiteral("Onion soup"),
                       QStringLiteral("Meals"),      QStringLiteral("Goulash"),    QStringLiteral("Dumplings"),
                       QStringLiteral("No supplier")};
    QTest::newRow("first filter: without orders go, an empty total too")
        << 0 << -1
        << QStringList{QStringLiteral("Soups"), QStringLiteral("Beef broth"), QStringLiteral("Meals"),
                       QStringLiteral("Goulash"), QStringLiteral("No supplier")};
    QTest::newRow("first filter of any other value")
        << 3 << -1
        << QStringList{QStringLiteral("Soups"), QStringLiteral("Beef broth"), QStringLiteral("Meals"),
                       QStringLiteral("Goulash"), QStringLiteral("No supplier")};
    QTest::newRow("supplier 1: only what was ordered") << -1 << 1 << QStringList{QStringLiteral("Beef broth")};
    QTest::newRow("supplier 2, a food barred from removal") << -1 << 2 << QStringList{QStringLiteral("Goulash")};
    QTest::newRow("supplier without orders") << -1 << 3 << QStringList();
    QTest::newRow("both") << 0 << 1 << QStringList{QStringLiteral("Beef broth")};
}

void TestMenuProxyModel::filtersRows()
{
    QFETCH(const int, firstFilter);
    QFETCH(const int, supplierFilter);
    QFETCH(const QStringList, names);

    QStandardItemModel grid;
    appendRows(grid, dayGrid());
    MenuProxyModel proxy(firstFilter, supplierFilter, false);
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(&grid);
    QCOMPARE(columnTexts(proxy, 0), names);
}

void TestMenuProxyModel::filtersColumns()
{
    QStandardItemModel grid;
    appendRows(grid, {row("0", "Soups", "3"), row("5", "Beef broth", "3", "1")});
    MenuProxyModel without(-1, -1, false);
    without.setSourceModel(&grid);
    QCOMPARE(rowTexts(without), (QStringList{QStringLiteral("Soups|3"), QStringLiteral("Beef broth|3")}));
    MenuProxyModel with(-1, -1, true);
    with.setSourceModel(&grid);
    QCOMPARE(rowTexts(with), (QStringList{QStringLiteral("Soups|3|9"), QStringLiteral("Beef broth|3|9")}));
}

void TestMenuProxyModel::emptyGridIsEmpty()
{
    QStandardItemModel grid(0, MenuColumn::Count);
    MenuProxyModel proxy(-1, -1, true);
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(&grid);
    QCOMPARE(proxy.rowCount(), 0);
    QCOMPARE(proxy.columnCount(), 3);
}

void TestMenuProxyModel::orderFormHidesHeadingsWithoutFood()
{
    QStandardItemModel grid;
    appendRows(grid,
               {personRow("0", " Soups", "0", "1", "2.50 €"), personRow("5", "S Broth", "1", "1", "2.50 €"),
                personRow("0", " Empty type", "0", "0", "0.00 €"), personRow("0", " Meals", "0", "0", "0.00 €"),
                personRow("6", "S Goulash", "2", "", "0.00 €"), personRow("0", " Last type", "0", "0", "0.00 €")});
    OrderProxyModel proxy(-1, -1);
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(&grid);
    QCOMPARE(rowTexts(proxy),
             (QStringList{QStringLiteral(" Soups|0|1|2.50 €"), QStringLiteral("S Broth|1|1|2.50 €"),
                          QStringLiteral(" Meals|0|0|0.00 €"), QStringLiteral("S Goulash|2||0.00 €")}));
}

void TestMenuProxyModel::orderFormKeepsItsTotalRow()
{
    QStandardItemModel grid;
    appendRows(grid,
               {personRow("0", " Soups", "0", "1", "2.50 €"), personRow("5", "S Broth", "1", "1", "2.50 €"),
                personRow("0", " Empty type", "0", "0", "0.00 €")});
    QList<QStandardItem *> total;
    for (int column = 0; column < PersonMenuColumn::Count; ++column)
        total.append(new QStandardItem);
    total.at(PersonMenuColumn::Name)->setText(QStringLiteral("Celkom"));
    total.at(PersonMenuColumn::Position)->setText(QStringLiteral("0"));
    total.at(PersonMenuColumn::Total)->setText(QStringLiteral("1"));
    total.at(PersonMenuColumn::Money)->setText(QStringLiteral("2.50 €"));
    grid.appendRow(total);
    OrderProxyModel proxy(-1, -1);
    proxy.setSourceModel(&grid);
    QCOMPARE(rowTexts(proxy),
             (QStringList{QStringLiteral(" Soups|0|1|2.50 €"), QStringLiteral("S Broth|1|1|2.50 €"),
                          QStringLiteral("Celkom|0|1|2.50 €")}));
}

void TestMenuProxyModel::orderFormFollowsTheRowsFilter()
{
    QStandardItemModel grid;
    appendRows(grid,
               {personRow("0", " Soups", "0", "1", ""), personRow("5", "S Broth", "1", "1", ""),
                personRow("6", "S Garlic", "1", "0", "")});
    OrderProxyModel proxy(0, -1);
    proxy.setSourceModel(&grid);
    QCOMPARE(columnTexts(proxy, 0), (QStringList{QStringLiteral(" Soups"), QStringLiteral("S Broth")}));
    QVERIFY(proxy.setData(proxy.index(1, 2), QStringLiteral("7")));
    QCOMPARE(grid.item(1, PersonMenuColumn::Total)->text(), QStringLiteral("7"));
}

QTEST_GUILESS_MAIN(TestMenuProxyModel)
#include "tst_menuproxymodel.moc"
