#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/testdatabase.h"

#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The statement behind the menu editor groups by food and keeps the first row of each, the menu's before the
/// catalogue's, because the server reads its derived table in the order in which it was filled. Here every food of a
/// long menu must come back with its menu row, for catalogues of several sizes and names of very different length. The
/// order is that of an on-disk table: with names of 2,000 bytes and more a row may come out of turn (docs/database.md).
class TestFirstRow : public QObject {
    Q_OBJECT

private slots:
    void menuRowWins_data();
    void menuRowWins();

private:
    void fill(const TestDatabase &database, int foods, int menu, int longest) const;
};

void TestFirstRow::fill(const TestDatabase &database, int foods, int menu, int longest) const
{
    database.exec(QStringLiteral("INSERT INTO via_types (typeID, name, position) VALUES (1, 'a', 1), (2, 'b', 2)"));
    database.exec(QStringLiteral("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed'), (2, 'Večera')"));
    database.exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'A', 'A'),"
                                 " (2, 'B', 'BUFET')"));
    database.exec(
        QStringLiteral("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL), (2, NULL), (1, 4)"));
    database.exec(
        QStringLiteral("INSERT INTO via_foods (foodID, typeID, supplierID, name, price)"
                       " SELECT seq, 1 + seq MOD 2, 1 + seq MOD 2, LEFT(REPEAT('Vyprážaný bravčový rezeň ', 40),"
                       " 1 + CRC32(seq) MOD %2), 1"
                       " FROM seq_1_to_%1 ORDER BY CRC32(seq * 7)")
            .arg(foods)
            .arg(longest));
    // Every menu item costs 2 and has three portions ordered; items of another slot and day stand around them.
    database.exec(QStringLiteral("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, locked)"
                                 " SELECT foodID, NULL, 1, '2024-05-16', 1, 2, 1 FROM via_foods"
                                 " ORDER BY CRC32(foodID * 13) LIMIT %1")
                      .arg(menu));
    database.exec(QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity)"
                                 " SELECT orderableID, seq, seq FROM via_orderables JOIN seq_1_to_2"));
    database.exec(QStringLiteral("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price)"
                                 " SELECT foodID, NULL, 2, '2024-05-16', 1, 3 FROM via_foods"
                                 " UNION ALL SELECT foodID, NULL, 1, '2024-05-17', 1, 3 FROM via_foods"));
}

void TestFirstRow::menuRowWins_data()
{
    QTest::addColumn<int>("foods");
    QTest::addColumn<int>("menu");
    QTest::addColumn<int>("longest");
    QTest::addColumn<bool>("analyzed");

    QTest::newRow("small catalogue") << 20 << 12 << 30 << false;
    QTest::newRow("whole catalogue on the menu") << 100 << 100 << 1000 << false;
    QTest::newRow("3,000 foods") << 3000 << 15 << 60 << false;
    QTest::newRow("3,000 foods, statistics") << 3000 << 15 << 60 << true;
    QTest::newRow("3,000 foods, names of up to 1,000 characters") << 3000 << 300 << 1000 << true;
    QTest::newRow("12,000 foods") << 12000 << 100 << 200 << true;
}

void TestFirstRow::menuRowWins()
{
    QFETCH(int, foods);
    QFETCH(int, menu);
    QFETCH(int, longest);
    QFETCH(bool, analyzed);
    const TestDatabase database;
    fill(database, foods, menu, longest);
    if (analyzed)
        database.exec(QStringLiteral("ANALYZE TABLE via_foods, via_orderables, via_orders PERSISTENT FOR ALL"));

    FoodRepository repository(database.db());
    const std::unique_ptr<QStandardItemModel> grid(repository.loadDayMenu(QDate(2024, 5, 16), 1, 0));
    QCOMPARE(grid->rowCount(), foods + 2);
    int onMenu = 0;
    for (int row = 0; row < grid->rowCount(); ++row) {
        const auto text = [&](int column) { return grid->index(row, column).data().toString(); };
        if (text(MenuColumn::FoodId) == QLatin1String("0"))
            continue;
        const bool planned = !text(MenuColumn::OrderableId).isEmpty();
        onMenu += planned ? 1 : 0;
        QCOMPARE(text(MenuColumn::Price), planned ? QStringLiteral("2") : QStringLiteral("1"));
        QCOMPARE(text(MenuColumn::Total), planned ? QStringLiteral("3") : QString());
        QCOMPARE(text(MenuColumn::Position), planned ? QStringLiteral("1") : QString());
    }
    QCOMPARE(onMenu, menu);
}

QTEST_MAIN(TestFirstRow)
#include "tst_firstrow.moc"
