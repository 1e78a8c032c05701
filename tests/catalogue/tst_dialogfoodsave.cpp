#include "catalogue/foodeditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QDoubleValidator>

#include <memory>

/// What the food dialog writes: saves, typed prices and deletions.
class TestDialogFoodSave : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup();

    void addsAFood();
    void updatesAFood();
    void alergensFollowTheirMarks();
    void withoutTheListTheAlergensStay();
    void typedPrices_data();
    void typedPrices();
    void storedPriceThatCannotBeTypedIsKeptOrReplaced();
    void hostileTextsAreStoredAsTyped();
    void refusedFoodShowsItsBoxAndCloses();
    void connectionLostBeforeTheSave();
    void deletesWithItsAlergens();
    void deletionIsAskedFor();
    void deletionAsksForTheStoredFood();
    void refusedDeletionLeavesAllAsItWas();
    void connectionLostBeforeTheDeletion();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

void TestDialogFoodSave::cleanup()
{
    QLocale::setDefault(QLocale::c());
    BOXES_DONE(m_boxes);
}

void TestDialogFoodSave::addsAFood()
{
    FoodEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("Rezeň"));
    editor.type()->setCurrentIndex(2);
    editor.supplier()->setCurrentIndex(1);
    editor.description()->setPlainText(QStringLiteral("kurací\nso zemiakmi"));
    editor.price()->setText(QStringLiteral("5,90"));
    editor.mark(1, Qt::Checked);
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    const uint added = m_data->lastFood();
    QVERIFY(added > 12);
    QCOMPARE(m_data->food(added), QString("93|2|Rezeň|kurací\nso zemiakmi|5.9"));
    QCOMPARE(m_data->alergens(added), QString("3"));
    QVERIFY(m_data->picture(added).isNull());
}

void TestDialogFoodSave::updatesAFood()
{
    LogCatcher log;
    FoodEditor editor(m_database->db(), 11);
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.type()->setCurrentIndex(0);
    editor.supplier()->setCurrentIndex(0);
    editor.description()->clear();
    editor.price()->clear();
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->food(11), QString("91|1|Omáčka||0"));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
    QCOMPARE(m_data->food(12), QString("91|NULL|Voda|NULL|0"));
    QVERIFY(log.has("id:  11  updating food..."));
}

void TestDialogFoodSave::alergensFollowTheirMarks()
{
    const auto save = [this](Qt::CheckState first, Qt::CheckState second) {
        FoodEditor editor(m_database->db(), 11);
        editor.mark(0, first);
        editor.mark(1, second);
        editor.save()->click();
    };
    save(Qt::Checked, Qt::Unchecked);
    QCOMPARE(m_data->alergens(11), QString("1 7"));
    save(Qt::Checked, Qt::Unchecked);
    QCOMPARE(m_data->alergens(11), QString("1 7"));
    save(Qt::Unchecked, Qt::Checked);
    QCOMPARE(m_data->alergens(11), QString("3 7"));
    QCOMPARE(m_data->alergens(12), QString());
}

void TestDialogFoodSave::withoutTheListTheAlergensStay()
{
    m_data->exec("RENAME TABLE via_foodalergen TO via_foodalergen_away");
    FoodEditor editor(m_database->db(), 11);
    QCOMPARE(editor.marks(), QStringList());
    m_data->exec("RENAME TABLE via_foodalergen_away TO via_foodalergen");
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Omáčka|so smotanou|3.5"));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
}

void TestDialogFoodSave::typedPrices_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("price");
    QTest::addColumn<bool>("complete");
    const auto row = [](const char *name, const char *typed, const char *shown, double price, bool complete = true) {
        QTest::newRow(name) << typed << shown << price << complete;
    };
    row("comma", "3,75", "3,75", 3.75);
    row("point", "3.75", "3.75", 3.75);
    row("whole", "12", "12", 12);
    row("nothing before the comma", ",5", ",5", 0.5);
    row("nothing behind the point", "4.", "4.", 4);
    row("three decimals", "1.239", "1.23", 1.23);
    row("three decimals behind a comma", "1,239", "1,23", 1.23);
    row("two separators", "1,2.3", "1,23", 1.23);
    row("negative", "-2", "2", 2);
    row("exponent", "1e3", "13", 13);
    row("letters and blanks", "a 1 b", "1", 1);
    row("thousands", "1234567,5", "1234567,5", 1234567.5);
    row("nothing", "", "", 0, false);
}

void TestDialogFoodSave::typedPrices()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(double, price);
    QFETCH(bool, complete);
    for (const char *locale : {"C", "sk_SK", "en_US", "de_DE", "fr_FR"}) {
        QLocale::setDefault(QLocale(QLatin1String(locale)));
        FoodEditor editor(m_database->db(), 11);
        editor.price()->clear();
        QTest::keyClicks(editor.price(), typed);
        QCOMPARE(editor.price()->text(), shown);
        QCOMPARE(editor.price()->hasAcceptableInput(), complete);
        editor.save()->click();
        QCOMPARE(m_database->value("SELECT price FROM via_foods WHERE foodID=11").toDouble(), price);
    }
}

void TestDialogFoodSave::storedPriceThatCannotBeTypedIsKeptOrReplaced()
{
    m_data->exec("UPDATE via_foods SET price=-1.2345 WHERE foodID=11");
    FoodEditor kept(m_database->db(), 11);
    QTest::keyClick(kept.price(), Qt::Key_Backspace);
    QCOMPARE(kept.price()->text(), QString("-1.2345"));
    kept.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|-1.2345"));
    FoodEditor replaced(m_database->db(), 11);
    replaced.price()->selectAll();
    QTest::keyClicks(replaced.price(), QStringLiteral("1,2"));
    replaced.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|1.2"));
}

void TestDialogFoodSave::hostileTextsAreStoredAsTyped()
{
    const QStringList texts = hostileTexts();
    for (const QString &text : texts) {
        FoodEditor editor(m_database->db(), 11);
        editor.name()->setText(text);
        editor.description()->setPlainText(text);
        editor.save()->click();
        QCOMPARE(m_data->food(11), QString("92|2|" + text + '|' + text + "|3.5"));
    }
}

void TestDialogFoodSave::refusedFoodShowsItsBoxAndCloses()
{
    FoodEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("Rezeň"));
    editor.type()->setCurrentIndex(2);
    m_data->exec("DELETE FROM via_types WHERE typeID=93"); // on another workstation
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať jedlo!");
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    BOXES_DONE(m_boxes);

    FoodEditor existing(m_database->db(), 11);
    existing.supplier()->setCurrentIndex(0);
    m_data->exec("DELETE FROM via_suppliers WHERE supplierID=1");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť jedlo!");
    existing.save()->click();
    QCOMPARE(existing.result(), 1);
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
}

void TestDialogFoodSave::connectionLostBeforeTheSave()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    FoodEditor editor(database.db(), 11);
    FoodEditor added(database.db());
    added.name()->setText(QStringLiteral("Rezeň"));
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.mark(0, Qt::Checked);
    editor.mark(1, Qt::Unchecked);
    database.breakConnection();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť jedlo!");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa priradiť alergén!");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa zrušiť priradenie alergénu!");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa priradiť alergén!");
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    BOXES_DONE(m_boxes);
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať jedlo!");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať ID posledného jedla!");
    for (int alergen = 0; alergen < 3; ++alergen)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa zrušiť priradenie alergénu!");
    added.save()->click();
    QCOMPARE(added.result(), 1);
    QCOMPARE(data.food(11), QString("92|2|Prívarok|so smotanou|3.5"));
    QCOMPARE(data.alergens(11), QString("3 7"));
}

void TestDialogFoodSave::deletesWithItsAlergens()
{
    m_data->exec("INSERT INTO via_foodalergen VALUES (12, 3)");
    LogCatcher log;
    FoodEditor editor(m_database->db(), 11);
    m_boxes.expectDialog("DialogFood", [&editor](QDialog *) { editor.deleteFood()->click(); });
    m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo Hlavné jedlá - Prívarok?");
    QCOMPARE(editor.exec(), 2);
    QCOMPARE(m_data->food(11), QString());
    QCOMPARE(m_data->alergens(11), QString());
    QCOMPARE(m_data->alergens(12), QString("3"));
    QVERIFY(log.has("id:  11  deleting food..."));
}

void TestDialogFoodSave::deletionIsAskedFor()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo Hlavné jedlá - Prívarok?", QMessageBox::Cancel,
                      [](QMessageBox *box) {
                          QCOMPARE(box->icon(), QMessageBox::Question);
                          QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                          QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
                      });
    editor.deleteFood()->click();
    QVERIFY(editor.isVisible());
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
}

void TestDialogFoodSave::deletionAsksForTheStoredFood()
{
    FoodEditor editor(m_database->db(), 11);
    editor.name()->setText(QStringLiteral("Omáčka"));
    editor.type()->setCurrentIndex(0);
    m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo Hlavné jedlá - Prívarok?", QMessageBox::Cancel);
    editor.deleteFood()->click();
}

void TestDialogFoodSave::refusedDeletionLeavesAllAsItWas()
{
    m_data->exec("INSERT INTO via_segments (segmentID, name, position) VALUES (1, 'Obed', 1)");
    m_data->exec(
        "INSERT INTO via_orderables (foodID, segmentID, date, position, price) VALUES (11, 1, '2031-05-14', 1, "
        "3.5)");
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo Hlavné jedlá - Prívarok?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla.");
    editor.deleteFood()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(editor.result(), 0);
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
    // Nothing is left open: what is written next stays.
    m_data->store("UPDATE via_foods SET name=? WHERE foodID=11", "ďalej");
    QCOMPARE(m_data->food(11), QString("92|2|ďalej|so smotanou|3.5"));
}

void TestDialogFoodSave::connectionLostBeforeTheDeletion()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    FoodEditor editor(database.db(), 11);
    m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo Hlavné jedlá - Prívarok?", QMessageBox::Ok,
                      [&database](QMessageBox *) { database.breakConnection(); });
    for (int alergen = 0; alergen < 3; ++alergen)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa zrušiť priradenie alergénu!");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla.");
    editor.deleteFood()->click();
    QCOMPARE(editor.result(), 0);
    QCOMPARE(data.food(11), QString("92|2|Prívarok|so smotanou|3.5"));
    QCOMPARE(data.alergens(11), QString("3 7"));
}

QTEST_MAIN(TestDialogFoodSave)
#include "tst_dialogfoodsave.moc"
