#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/testdatabase.h"

#include <QSet>
#include <QSqlQuery>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The statement of the day's menu joins the rows of the menu with all foods on offer and leaves it to the server's
/// GROUP BY to keep the first row of each food. That has to be the menu's row, however large the catalogue is, whatever
/// the optimizer knows of the tables, and wherever the server puts its temporary table.
class TestDayMenuFirstRow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void menuRowIsKept_data();
    void menuRowIsKept();

private:
    const TestDatabase m_database;
    bool m_analyzed = false;
};

namespace {

constexpr int foods = 3000;
constexpr int foodsOnMenu = 300;
constexpr int types = 12;
constexpr double cataloguePrices = 1000; // a food's own price is above, a menu price below

} // namespace

void TestDayMenuFirstRow::initTestCase()
{
    m_database.exec("INSERT INTO via_types (name, position) SELECT CONCAT('t', seq), seq FROM seq_1_to_12");
    m_database.exec("INSERT INTO via_segments (name, position) SELECT CONCAT('s', seq), seq FROM seq_1_to_3");
    m_database.exec("INSERT INTO via_suppliers (name, shortcut) SELECT CONCAT('s', seq), CONCAT('S', seq) FROM "
                    "seq_1_to_5");
    m_database.exec(
        "INSERT INTO via_supplierbranch (supplierID, bid) SELECT s.seq, NULLIF(b.seq, 0) FROM seq_1_to_5 s, "
        "seq_0_to_4 b");
    m_database.exec(
        "INSERT INTO via_foods (typeID, supplierID, name, description, price) SELECT 1 + seq * 7 % 12, 1 + "
        "seq * 11 % 5, CONCAT('food ', seq, REPEAT('x', seq % 60)), REPEAT('d', seq % 300), 1000 + seq FROM "
        "seq_1_to_3000");
    // 300 foods scattered over the catalogue, stored in no order of their keys, on 3 slots of 5 days for 3 branch keys.
    m_database.exec("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, `limit`) SELECT 1 + "
                    "f.seq * 7919 % 3000, NULLIF(b.seq, 0), s.seq, '2024-01-01' + INTERVAL d.seq DAY, f.seq, f.seq / "
                    "100, f.seq % 4 FROM seq_1_to_300 f, seq_0_to_2 b, seq_1_to_3 s, seq_0_to_4 d ORDER BY RAND(3)");
    m_database.exec(
        "INSERT INTO via_orders (orderableID, uid, quantity) SELECT orderableID, 1 + orderableID % 50, 2 FROM "
        "via_orderables WHERE orderableID % 3 = 0");
}

void TestDayMenuFirstRow::menuRowIsKept_data()
{
    QTest::addColumn<bool>("analyzed");
    QTest::addColumn<QString>("session");
    QTest::addColumn<uint>("bid");
    const QVector<QPair<const char *, QString>> sessions{
        {"as it is", "SET @nothing = 0"},
        {"temporary table on disk", "SET SESSION tmp_memory_table_size = 0"},
        {"temporary table outgrows memory", "SET SESSION tmp_memory_table_size = 16384, max_heap_table_size = 16384"},
        {"small sort buffer", "SET SESSION sort_buffer_size = 1024"},
        {"no derived merge, no derived keys",
         "SET SESSION optimizer_switch = 'derived_merge=off,derived_with_keys=off,split_materialized=off'"},
        {"all join buffers",
         "SET SESSION join_cache_level = 8, optimizer_switch = 'join_cache_hashed=on,join_cache_bka=on,mrr=on'"},
    };
    for (const bool analyzed : {false, true}) {
        uint bid = analyzed ? 2 : 0;
        for (const auto &session : sessions) {
            QTest::addRow("%s, %s, bid %u", session.first, analyzed ? "analyzed" : "fresh", bid)
                << analyzed << session.second << bid;
            bid = 2 - bid;
        }
    }
}

void TestDayMenuFirstRow::menuRowIsKept()
{
    QFETCH(bool, analyzed);
    QFETCH(QString, session);
    QFETCH(uint, bid);
    if (analyzed && !m_analyzed) {
        for (const char *table : {"via_foods", "via_orderables", "via_orders", "via_suppliers", "via_supplierbranch"})
            m_database.rows(QString("ANALYZE TABLE %1 PERSISTENT FOR ALL").arg(table));
        m_analyzed = true;
    }
    QSqlQuery setting(m_database.db());
    QVERIFY(
        setting.exec("SET SESSION tmp_memory_table_size = DEFAULT, max_heap_table_size = DEFAULT, sort_buffer_size = "
                     "DEFAULT, join_cache_level = DEFAULT, optimizer_switch = DEFAULT"));
    QVERIFY(setting.exec(session));

    const std::unique_ptr<QStandardItemModel> model(
        FoodRepository(m_database.db()).loadDayMenu(QDate(2024, 1, 3), 2, bid));
    QCOMPARE(model->rowCount(), foods + types);
    int onMenu = 0;
    QSet<QString> seen;
    for (int row = 0; row < model->rowCount(); ++row) {
        const auto cell = [&model, row](int column) { return model->index(row, column).data().toString(); };
        if (cell(MenuColumn::FoodId) == "0")
            continue;
        seen.insert(cell(MenuColumn::FoodId));
        const bool fromMenu = !cell(MenuColumn::OrderableId).isEmpty();
        QCOMPARE(fromMenu, !cell(MenuColumn::Position).isEmpty());
        QCOMPARE(fromMenu, cell(MenuColumn::Price).toDouble() < cataloguePrices);
        QVERIFY(fromMenu || cell(MenuColumn::Total).isEmpty());
        if (fromMenu)
            ++onMenu;
    }
    QCOMPARE(onMenu, foodsOnMenu);
    QCOMPARE(seen.size(), foods);
}

QTEST_MAIN(TestDayMenuFirstRow)
#include "tst_daymenu_firstrow.moc"
