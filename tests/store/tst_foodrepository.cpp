#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemModelTester>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

class TestFoodRepository : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void loads();
    void loadOfAMissingKeyGivesDefaults();
    void wholeCatalogueCellByCell();
    void emptyCatalogueKeepsItsColumns();
    void addsWithoutPicture();
    void addsWithPicture();
    void addsUnderTheWantedKey();
    void takenKeyGivesANewOne();
    void takenKeyDropsThePictureWithoutItsFlag();
    void secondTryReportsItsFailure();
    void noSupplierIsNull();
    void nullNameIsAnEmptyName();
    void updateKeepsThePictureWithoutItsFlag();
    void updateWritesThePictureWithItsFlag();
    void updateOfAMissingKeyIsNoFailure();
    void deletes();
    void deleteIsRefusedWhileItemsReferToTheFood();
    void lastKey();
    void branchByName();
    void foodGoneBetweenLoadAndWrite();

private:
    QStringList foods() const
    {
        return m_database.rows("SELECT foodID, typeID, supplierID, name, description, HEX(picture), price FROM "
                               "via_foods ORDER BY foodID");
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

namespace {

FoodRecord food(quint32 foodID, const QByteArray &picture, bool hasPicture)
{
    return {foodID, 1, 2, "Guláš", "s knedľou", picture, 3.55, hasPicture};
}

} // namespace

void TestFoodRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_types (name) VALUES ('Polievka'), ('Hlavné jedlo')");
    m_database.exec("INSERT INTO via_suppliers (name, shortcut) VALUES ('Prvý', 'P1'), ('Druhý', NULL)");
}

void TestFoodRepository::operationsAreSlots()
{
    const FoodRepository repository(m_database.db());
    for (const char *slot :
         {"loadFood(uint)", "loadAllFood()", "addFood(FoodRecord)", "updateFood(FoodRecord)", "deleteFood(uint)",
          "loadLastfoodID()", "loadBranchID(QString)", "loadDayMenu(QDate,uint,uint)",
          "loadMenuWidgetMenu(QDate,uint,int)", "loadMenuWidgetMenu(QDate,uint)",
          "loadPersonDayMenu(QDate,uint,int,uint)", "loadWeekMenu(QDate,uint)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestFoodRepository::loads()
{
    m_database.exec("INSERT INTO via_foods VALUES (7, 2, 1, 'Guláš', 'text', UNHEX('00FF1A00'), 0.1)");
    const FoodRecord record = FoodRepository(m_database.db()).loadFood(7);
    QCOMPARE(record.foodID, 7U);
    QCOMPARE(record.typeID, 2U);
    QCOMPARE(record.supplierID, 1U);
    QCOMPARE(record.name, QString("Guláš"));
    QCOMPARE(record.description, QString("text"));
    QCOMPARE(record.picture, QByteArray::fromHex("00FF1A00"));
    QCOMPARE(record.price, 0.1);
    QCOMPARE(record.hasPicture, false);
}

void TestFoodRepository::loadOfAMissingKeyGivesDefaults()
{
    m_database.exec("INSERT INTO via_foods VALUES (7, 2, NULL, 'Guláš', NULL, NULL, 3)");
    FoodRepository repository(m_database.db());
    const FoodRecord stored = repository.loadFood(7);
    QCOMPARE(stored.supplierID, 0U);
    QCOMPARE(stored.description, QString());
    QCOMPARE(stored.picture, QByteArray());
    LogCatcher log;
    const FoodRecord missing = repository.loadFood(8); // starts afresh, unlike types, allergens and slots
    QCOMPARE(missing.foodID, 0U);
    QCOMPARE(missing.typeID, 0U);
    QCOMPARE(missing.name, QString());
    QCOMPARE(missing.price, 0.0);
    QCOMPARE(log.lines(), QStringList());
}

void TestFoodRepository::wholeCatalogueCellByCell()
{
    m_database.exec("INSERT INTO via_foods VALUES (1, 2, 1, 'Guláš', 'text', 'abc', 3.5), (2, 1, NULL, 'Voda', NULL, "
                    "NULL, 0), (3, 1, 2, 'Čaj', '', '', 1.05)");
    const std::unique_ptr<QStandardItemModel> model(FoodRepository(m_database.db()).loadAllFood());
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->parent());
    QStringList rows = rowTexts(*model);
    rows.sort();
    QCOMPARE(rows, (QStringList{"1|2|1|P1 Guláš|text|abc|3.5", "2|1|| Voda|||0", "3|1|2| Čaj|||1.05"}));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 7; ++column)
            QCOMPARE(model->index(row, column).flags().testFlag(Qt::ItemIsEditable), column != 3);
    }
    QCOMPARE(model->headerData(3, Qt::Horizontal).toString(), QString("4")); // no header of its own
    QVERIFY(!model->horizontalHeaderItem(3));
}

void TestFoodRepository::emptyCatalogueKeepsItsColumns()
{
    const std::unique_ptr<QStandardItemModel> model(FoodRepository(m_database.db()).loadAllFood());
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 7);
}

void TestFoodRepository::addsWithoutPicture()
{
    QVERIFY(FoodRepository(m_database.db()).addFood(food(0, "img", false)));
    QCOMPARE(foods(), QStringList{"1|1|2|Guláš|s knedľou|NULL|3.55"});
}

void TestFoodRepository::addsWithPicture()
{
    QVERIFY(FoodRepository(m_database.db()).addFood(food(0, QByteArray::fromHex("00FF27"), true)));
    QCOMPARE(foods(), QStringList{"1|1|2|Guláš|s knedľou|00FF27|3.55"});
}

void TestFoodRepository::addsUnderTheWantedKey()
{
    // With a key the picture is written whatever the flag says.
    QVERIFY(FoodRepository(m_database.db()).addFood(food(4000000000U, "A", false)));
    QCOMPARE(foods(), QStringList{"4000000000|1|2|Guláš|s knedľou|41|3.55"});
}

void TestFoodRepository::takenKeyGivesANewOne()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'stays', NULL, NULL, 1)");
    LogCatcher log;
    QVERIFY(FoodRepository(m_database.db()).addFood(food(5, "A", true)));
    QCOMPARE(foods(), (QStringList{"5|2|NULL|stays|NULL|NULL|1", "6|1|2|Guláš|s knedľou|41|3.55"}));
    QCOMPARE(log.lines(), QStringList());
}

void TestFoodRepository::takenKeyDropsThePictureWithoutItsFlag()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'stays', NULL, NULL, 1)");
    QVERIFY(FoodRepository(m_database.db()).addFood(food(5, "A", false)));
    QCOMPARE(foods().value(1), QString("6|1|2|Guláš|s knedľou|NULL|3.55"));
}

void TestFoodRepository::secondTryReportsItsFailure()
{
    FoodRecord record = food(5, QByteArray(), false);
    record.typeID = 99;
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať jedlo!");
    QVERIFY(!FoodRepository(m_database.db()).addFood(record));
    QCOMPARE(foods(), QStringList());
    QCOMPARE(log.critical().size(), 1); // one line and one box for the two tries
    QVERIFY(log.critical().value(0).startsWith("FoodRepository(adding) - SQL ERROR: Cannot add or update"));
}

void TestFoodRepository::noSupplierIsNull()
{
    FoodRepository repository(m_database.db());
    FoodRecord record = food(0, QByteArray(), false);
    record.supplierID = 0;
    QVERIFY(repository.addFood(record));
    QCOMPARE(foods(), QStringList{"1|1|NULL|Guláš|s knedľou|NULL|3.55"});
    record = repository.loadFood(1);
    QCOMPARE(record.supplierID, 0U);
    record.supplierID = 1;
    QVERIFY(repository.updateFood(record));
    QCOMPARE(foods(), QStringList{"1|1|1|Guláš|s knedľou|NULL|3.55"});
    record.supplierID = 0;
    QVERIFY(repository.updateFood(record));
    QCOMPARE(foods(), QStringList{"1|1|NULL|Guláš|s knedľou|NULL|3.55"});
}

void TestFoodRepository::nullNameIsAnEmptyName()
{
    FoodRecord record;
    record.typeID = 1;
    QVERIFY(FoodRepository(m_database.db()).addFood(record));
    QCOMPARE(foods(), QStringList{"1|1|NULL|||NULL|0"});
}

void TestFoodRepository::updateKeepsThePictureWithoutItsFlag()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'old', NULL, 'A', 1), (6, 2, NULL, 'other', NULL, NULL, "
                    "1)");
    LogCatcher log;
    QVERIFY(FoodRepository(m_database.db()).updateFood(food(5, "B", false)));
    QCOMPARE(foods(), (QStringList{"5|1|2|Guláš|s knedľou|41|3.55", "6|2|NULL|other|NULL|NULL|1"}));
    QCOMPARE(log.lines(), QStringList{"id:  5  updating food..."});
}

void TestFoodRepository::updateWritesThePictureWithItsFlag()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'old', NULL, 'A', 1)");
    FoodRepository repository(m_database.db());
    QVERIFY(repository.updateFood(food(5, "B", true)));
    QCOMPARE(foods(), QStringList{"5|1|2|Guláš|s knedľou|42|3.55"});
    QVERIFY(repository.updateFood(food(5, QByteArray(), true)));
    QCOMPARE(foods(), QStringList{"5|1|2|Guláš|s knedľou|NULL|3.55"});
}

void TestFoodRepository::updateOfAMissingKeyIsNoFailure()
{
    QVERIFY(FoodRepository(m_database.db()).updateFood(food(5, QByteArray(), false)));
    QCOMPARE(foods(), QStringList());
}

void TestFoodRepository::deletes()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'a', NULL, NULL, 1), (6, 2, NULL, 'b', NULL, NULL, 1)");
    m_database.exec("INSERT INTO via_alergens (title) VALUES ('x')");
    m_database.exec("INSERT INTO via_foodalergen VALUES (5, 1), (6, 1)");
    LogCatcher log;
    QVERIFY(FoodRepository(m_database.db()).deleteFood(5));
    QCOMPARE(foods(), QStringList{"6|2|NULL|b|NULL|NULL|1"});
    QCOMPARE(log.lines(), QStringList{"id:  5  deleting food..."});
}

void TestFoodRepository::deleteIsRefusedWhileItemsReferToTheFood()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'a', NULL, NULL, 1)");
    m_database.exec("INSERT INTO via_segments (name) VALUES ('s')");
    m_database.exec("INSERT INTO via_alergens (title) VALUES ('x')");
    m_database.exec("INSERT INTO via_foodalergen VALUES (5, 1)");
    m_database.exec("INSERT INTO via_orderables (foodID, segmentID, date) VALUES (5, 1, '2024-01-04')");
    LogCatcher log;
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla.");
    QVERIFY(!FoodRepository(m_database.db()).deleteFood(5));
    QCOMPARE(foods(), QStringList{"5|2|NULL|a|NULL|NULL|1"});
    QCOMPARE(m_database.rows("SELECT foodID FROM via_orderables"), QStringList{"5"});
    QCOMPARE(m_database.rows("SELECT foodID, alergenID FROM via_foodalergen"), QStringList{"5|1"});
    QVERIFY(log.critical().value(0).startsWith("FoodRepository(deleting) - SQL ERROR: Cannot delete or update"));
}

void TestFoodRepository::lastKey()
{
    FoodRepository repository(m_database.db());
    QCOMPARE(repository.loadLastfoodID(), 0U);
    m_database.exec("INSERT INTO via_foods VALUES (4000000000, 2, NULL, 'a', NULL, NULL, 1), (6, 2, NULL, 'b', NULL, "
                    "NULL, 1)");
    QCOMPARE(repository.loadLastfoodID(), 4000000000U);
}

void TestFoodRepository::branchByName()
{
    m_database.exec("INSERT INTO branches VALUES (3, 'Žilina \\'%1\\''), (4, 'Žil')");
    FoodRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadBranchID("Žilina '%1'"), 3);
    QCOMPARE(repository.loadBranchID("Žil"), 4);
    QCOMPARE(repository.loadBranchID("Ži"), 0);
    QCOMPARE(repository.loadBranchID("' OR '1'='1"), 0);
    QCOMPARE(repository.loadBranchID(QString()), 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestFoodRepository::foodGoneBetweenLoadAndWrite()
{
    m_database.exec("INSERT INTO via_foods VALUES (5, 2, NULL, 'a', NULL, NULL, 1)");
    FoodRepository repository(m_database.db());
    FoodRecord record = repository.loadFood(5);
    m_database.exec("DELETE FROM via_foods");
    QVERIFY(repository.updateFood(record));
    QVERIFY(repository.deleteFood(5));
    QCOMPARE(foods(), QStringList());
    QVERIFY(repository.addFood(record)); // the key is free again
    QCOMPARE(foods(), QStringList{"5|2|NULL|a||NULL|1"});
}

QTEST_MAIN(TestFoodRepository)
#include "tst_foodrepository.moc"
