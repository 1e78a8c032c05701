#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QLocale>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The grid of one person's order form.
class TestPersonMenu : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }
    void cleanupTestCase() { QLocale::setDefault(QLocale::c()); }

    void wholeGrid();
    void totalsAreThePersonsOwn();
    void nothingOrdered();
    void emptyDatabase();
    void branches_data();
    void branches();
    void otherDaysAndSlotsAreOffTheMenu();
    void informativeItemsHavePositionZero();
    void positionsSortAsText();
    void twoTypesOfOnePosition();
    void symbolIsThatOfTheDefaultLocale();
    void flagsFontsAndAlignment();
    void noHeaders();

private:
    std::unique_ptr<QStandardItemModel> load(int uid, uint bid) const
    {
        return std::unique_ptr<QStandardItemModel>(
            FoodRepository(m_database.db()).loadPersonDayMenu(QDate(2024, 1, 4), 1, uid, bid));
    }
    void addItems(const QString &values) const
    {
        m_database.exec("INSERT INTO via_orderables (orderableID, foodID, bid, segmentID, date, position, price, "
                        "`limit`, locked) VALUES "
                        + values);
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestPersonMenu::init()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
    m_database.clear();
    m_database.exec("INSERT INTO via_types (typeID, name, position, informative) VALUES (10, 'Polievka', 1, 0), (20, "
                    "'Hlavné jedlo', 2, 0), (30, 'Príloha', 3, 1)");
    m_database.exec("INSERT INTO via_segments (segmentID, name) VALUES (1, 'Obed'), (2, 'Večera')");
    m_database.exec("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Prvý', 'P')");
    m_database.exec(
        "INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (1, 10, 1, 'Vývar', 1.5), (2, "
        "20, 1, 'Guláš', 5), (3, 20, NULL, 'Rezeň', 6.1), (4, 30, 1, 'Chlieb', 0.2)");
}

void TestPersonMenu::wholeGrid()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 2, 4.5, 9, 1), (8, 3, 4, 1, '2024-01-04', 1, 5.35, 0, 1), (9, 4, 4, 1, "
             "'2024-01-04', 5, 0.3, 0, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 5, 2), (8, 5, 1), (8, 6, 8)");
    const auto model = load(5, 4);
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->parent());
    QCOMPARE(model->columnCount(), 12);
    // The soup is off the menu: it stands ahead of its heading, and its money has no symbol. Side dishes are shown
    // only.
    QCOMPARE(rowTexts(*model),
             (QStringList{"1|1|P Vývar||||||||0.00|0", "0|1| Polievka||||0|||0|0.00 €|",
                          "0|2| Hlavné jedlo||||0|||3|14.35 €|", "3|2| Rezeň|8|1|2024-01-04|1|1|5.35|1|5.35 €|0",
                          "2|2|P Guláš|7|1|2024-01-04|2|1|4.5|2|9.00 €|0", "0|3| Príloha||||0|||0|0.00 €|",
                          "4|3|P Chlieb|9|1|2024-01-04|0|1|0.3||0.00 €|1", "||Celkom||||0|||3|14.35 €|"}));
    QCOMPARE(m_database.value("SELECT position FROM via_orderables WHERE orderableID=9").toInt(), 5);
}

void TestPersonMenu::totalsAreThePersonsOwn()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 4.5, 0, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 5, 2), (7, 5, 1), (7, 6, 7)");
    QCOMPARE(rowTexts(*load(5, 4)).constLast(), QString("||Celkom||||0|||3|13.50 €|"));
    QCOMPARE(rowTexts(*load(6, 4)).constLast(), QString("||Celkom||||0|||7|31.50 €|"));
    QCOMPARE(rowTexts(*load(-1, 4)).constLast(), QString("||Celkom||||0|||0|0.00 €|"));
}

void TestPersonMenu::nothingOrdered()
{
    const auto model = load(5, 4);
    QCOMPARE(model->rowCount(), 8);
    QCOMPARE(rowTexts(*model).constLast(), QString("||Celkom||||0|||0|0.00 €|"));
}

void TestPersonMenu::emptyDatabase()
{
    m_database.clear();
    QCOMPARE(rowTexts(*load(5, 4)), QStringList{"||Celkom||||0|||0|0.00 €|"});
}

void TestPersonMenu::branches_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QString>("item");
    QTest::newRow("branch") << 4U << "7";
    QTest::newRow("another branch") << 5U << "8";
    QTest::newRow("all branches") << 0U << "9";
    QTest::newRow("branch without items") << 6U << "";
}

void TestPersonMenu::branches()
{
    QFETCH(uint, bid);
    QFETCH(QString, item);
    addItems("(7, 1, 4, 1, '2024-01-04', 1, 1, 0, 0), (8, 1, 5, 1, '2024-01-04', 1, 1, 0, 0), (9, 1, NULL, 1, "
             "'2024-01-04', 1, 1, 0, 0)");
    QStringList items = columnTexts(*load(5, bid), PersonMenuColumn::OrderableId);
    items.removeAll(QString());
    QCOMPARE(items.join(' '), item);
}

void TestPersonMenu::otherDaysAndSlotsAreOffTheMenu()
{
    addItems("(7, 1, 4, 2, '2024-01-04', 1, 1, 0, 0), (8, 2, 4, 1, '2024-01-05', 1, 1, 0, 0)");
    QCOMPARE(columnTexts(*load(5, 4), PersonMenuColumn::OrderableId).join(QString()), QString());
}

void TestPersonMenu::informativeItemsHavePositionZero()
{
    addItems("(7, 4, 4, 1, '2024-01-04', 3, 1, 0, 0)");
    m_database.exec("UPDATE via_types SET informative = 2 WHERE typeID = 10"); // only 1 means informative
    addItems("(8, 1, 4, 1, '2024-01-04', 3, 1, 0, 0)");
    const QStringList rows = rowTexts(*load(5, 4));
    QVERIFY(rows.contains("4|3|P Chlieb|7|1|2024-01-04|0|0|1||0.00 €|1"));
    QVERIFY(rows.contains("1|1|P Vývar|8|1|2024-01-04|3|0|1||0.00 €|2"));
    // Off the menu there is no position to hide.
    m_database.exec("DELETE FROM via_orderables");
    QVERIFY(rowTexts(*load(5, 4)).contains("4|3|P Chlieb||||||||0.00|1"));
}

void TestPersonMenu::positionsSortAsText()
{
    m_database.exec("INSERT INTO via_foods (foodID, typeID, name) VALUES (5, 10, 'a'), (6, 10, 'b')");
    addItems(
        "(7, 1, 4, 1, '2024-01-04', 2, 1, 0, 0), (8, 5, 4, 1, '2024-01-04', 10, 1, 0, 0), (9, 6, 4, 1, '2024-01-04', "
        "1, 1, 0, 0)");
    QCOMPARE(columnTexts(*load(5, 4), PersonMenuColumn::Position).mid(0, 4), (QStringList{"0", "1", "10", "2"}));
}

void TestPersonMenu::twoTypesOfOnePosition()
{
    m_database.exec("UPDATE via_types SET position = 1");
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 4.5, 0, 1)");
    m_database.exec("INSERT INTO via_orders (orderableID, uid, quantity) VALUES (7, 5, 2)");
    const auto model = load(5, 4);
    // Three headings above one dish: its symbol comes three times, its money counts for the first heading only.
    QVERIFY(rowTexts(*model).contains("2|1|P Guláš|7|1|2024-01-04|1|1|4.5|2|9.00 € € €|0"));
    QCOMPARE(columnTexts(*model, PersonMenuColumn::Money).mid(3),
             (QStringList{"9.00 €", "0.00 €", "0.00 €", "9.00 € € €", "9.00 €"}));
    QCOMPARE(columnTexts(*model, PersonMenuColumn::Total).mid(3), (QStringList{"2", "2", "2", "2", "6"}));
}

void TestPersonMenu::symbolIsThatOfTheDefaultLocale()
{
    QLocale::setDefault(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    QCOMPARE(rowTexts(*load(5, 4)).constLast(), QString("||Celkom||||0|||0|0.00 Kč|"));
    QLocale::setDefault(QLocale::c());
    QCOMPARE(rowTexts(*load(5, 4)).constLast(),
             "||Celkom||||0|||0|0.00 " + QLocale::c().currencySymbol(QLocale::CurrencySymbol) + '|');
}

void TestPersonMenu::flagsFontsAndAlignment()
{
    addItems("(7, 2, 4, 1, '2024-01-04', 1, 4.5, 0, 1)");
    const auto model = load(5, 4);
    QFont bold;
    bold.setWeight(75);
    const int last = model->rowCount() - 1;
    for (int row = 0; row <= last; ++row) {
        for (int column = 0; column < PersonMenuColumn::Count; ++column) {
            const QModelIndex index = model->index(row, column);
            const bool sum = column == PersonMenuColumn::Total || column == PersonMenuColumn::Money;
            const bool fixed = sum || column == PersonMenuColumn::Name;
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEditable), !fixed);
            QVERIFY(index.flags().testFlag(Qt::ItemIsSelectable));
            QCOMPARE(index.data(Qt::TextAlignmentRole), sum ? QVariant(int(Qt::AlignCenter)) : QVariant());
            QCOMPARE(index.data(Qt::FontRole), row == last && fixed ? QVariant(bold) : QVariant());
            if (row != last)
                QCOMPARE(index.data().type(), QVariant::String);
        }
    }
}

void TestPersonMenu::noHeaders()
{
    const auto model = load(5, 4);
    for (int column = 0; column < PersonMenuColumn::Count; ++column)
        QVERIFY(!model->horizontalHeaderItem(column));
}

QTEST_MAIN(TestPersonMenu)
#include "tst_personmenu.moc"
