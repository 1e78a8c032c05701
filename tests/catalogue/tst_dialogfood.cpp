#include "catalogue/foodeditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QDoubleValidator>

#include <memory>

/// The food dialog up to the save: what it shows, and its keys.
class TestDialogFood : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup();

    void metaObject();
    void form();
    void textsAreNotCut();
    void newFood();
    void existingFood();
    void priceIsShownAsStored_data();
    void priceIsShownAsStored();
    void currencyFollowsTheLocale();
    void foodWithoutSupplierAndDescription();
    void alergensStandInTheOrderOfTheirKeys();
    void savingNeedsAName();
    void hostileTextsStandAsTyped();
    void longTextsKeepTheDialogSmall();
    void closedHandleGivesAnEmptyForm();
    void lostConnectionGivesEmptyLists();
    void withoutSuppliersTheFoodKeepsIts();
    void tabLeadsThroughTheForm();
    void selectorsWorkByKeyboard();
    void spaceMarksAnAlergen();
    void enterInTheDescriptionIsALine();
    void escapeAndCancelSaveNothing();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

void TestDialogFood::cleanup()
{
    QLocale::setDefault(QLocale::c());
    BOXES_DONE(m_boxes);
}

void TestDialogFood::metaObject()
{
    QCOMPARE(metaMethods(DialogFood::staticMetaObject),
             (QStringList{"slot void on_pushButtonChoosePicture_clicked()", "slot void on_pushButtonSave_clicked()",
                          "slot void on_pushButtonCancel_clicked()", "slot void on_pushButtonDelete_clicked()",
                          "slot void on_lineEdit_textChanged(QString)"}));
}

void TestDialogFood::form()
{
    const FoodEditor editor(m_database->db(), 11);
    QVERIFY(editor.find<QLabel>("labelTitle")->isHidden());
    const QList<QPair<const char *, QWidget *>> labels{{"labelName", editor.name()},
                                                       {"label", editor.type()},
                                                       {"labelPicture", editor.choosePicture()},
                                                       {"labelDescription", editor.description()},
                                                       {"labelAlergens", editor.alergens()},
                                                       {"label_2", editor.supplier()},
                                                       {"labelPrice", editor.price()}};
    QStringList texts;
    for (const auto &label : labels) {
        texts.append(editor.find<QLabel>(label.first)->text());
        QCOMPARE(editor.find<QLabel>(label.first)->buddy(), label.second);
    }
    QCOMPARE(texts,
             (QStringList{"Názov : ", "Typ jedla : ", "Obrázok jedla : ", "Popis : ", "Alergény : ", "Dodávateľ : ",
                          "Cena : "}));
    QCOMPARE(editor.choosePicture()->text(), QString("vybrať obrázok"));
    QCOMPARE(editor.deleteFood()->text(), QString("Zmazať"));
    QCOMPARE(editor.cancel()->text(), QString("Zrušiť"));
    QCOMPARE(editor.save()->text(), QString("Uložiť"));
    QVERIFY(editor.save()->isDefault());
    QCOMPARE(editor.picture()->minimumSize(), QSize(240, 120));
    QCOMPARE(editor.picture()->property("whitePanel"), QVariant(true));
    QCOMPARE(editor.description()->styleSheet(), QString("background-color: white"));
    QVERIFY(editor.alergens()->alternatingRowColors());
    const auto *validator = qobject_cast<const QDoubleValidator *>(editor.price()->validator());
    QVERIFY(validator);
    QCOMPARE(validator->decimals(), 2);
    QCOMPARE(validator->bottom(), 0.0);
}

void TestDialogFood::textsAreNotCut()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    QVERIFY(textsFit(editor));
}

void TestDialogFood::newFood()
{
    const FoodEditor editor(m_database->db());
    QCOMPARE(editor.windowTitle(), QString("Pridať jedlo"));
    QCOMPARE(editor.property("editState"), QVariant("add"));
    QVERIFY(editor.deleteFood()->isHidden());
    QVERIFY(!editor.save()->isEnabled());
    QCOMPARE(editor.name()->text(), QString());
    QCOMPARE(editor.price()->text(), QString("0"));
    QCOMPARE(editor.type()->currentText(), QString("Polievky"));
    QCOMPARE(editor.supplier()->currentText(), QString("Jedáleň"));
    QVERIFY(editor.picture()->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(editor.marks(), (QStringList{"[ ] Obilniny", "[ ] Vajcia", "[ ] Mlieko"}));
}

void TestDialogFood::existingFood()
{
    const FoodEditor editor(m_database->db(), 11);
    QCOMPARE(editor.windowTitle(), QString("Upraviť jedlo - Hlavné jedlá - Prívarok"));
    QCOMPARE(editor.property("editState"), QVariant("edit"));
    QVERIFY(!editor.deleteFood()->isHidden());
    QVERIFY(editor.save()->isEnabled());
    QCOMPARE(editor.name()->text(), QString("Prívarok"));
    QCOMPARE(editor.type()->currentText(), QString("Hlavné jedlá"));
    QCOMPARE(editor.supplier()->currentText(), QString("Závodná kuchyňa"));
    QCOMPARE(editor.description()->toPlainText(), QString("so smotanou"));
    QCOMPARE(editor.price()->text(), QString("3.5"));
    QCOMPARE(editor.marks(), (QStringList{"[ ] Obilniny", "[x] Vajcia", "[x] Mlieko"}));
}

void TestDialogFood::priceIsShownAsStored_data()
{
    QTest::addColumn<double>("price");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << 0.0 << "0";
    QTest::newRow("whole") << 12.0 << "12";
    QTest::newRow("two decimals") << 3.25 << "3.25";
    QTest::newRow("a tenth that has no exact form") << 0.1 << "0.1";
    QTest::newRow("more decimals than can be typed") << 1.2345 << "1.2345";
    QTest::newRow("thousands") << 1234.5 << "1234.5";
}

void TestDialogFood::priceIsShownAsStored()
{
    QFETCH(double, price);
    QLocale::setDefault(QLocale(QStringLiteral("sk_SK")));
    m_data->store("UPDATE via_foods SET price=? WHERE foodID=11", price);
    FoodEditor editor(m_database->db(), 11);
    QTEST(editor.price()->text(), "text");
    editor.save()->click();
    QCOMPARE(m_database->value("SELECT price FROM via_foods WHERE foodID=11").toDouble(), price);
}

void TestDialogFood::currencyFollowsTheLocale()
{
    for (const char *locale : {"C", "sk_SK", "en_US"}) {
        QLocale::setDefault(QLocale(QLatin1String(locale)));
        QCOMPARE(FoodEditor(m_database->db()).find<QLabel>("labelCurrency")->text(), QLocale().currencySymbol());
    }
    QLocale::setDefault(QLocale(QStringLiteral("sk_SK")));
    QCOMPARE(FoodEditor(m_database->db(), 11).find<QLabel>("labelCurrency")->text(), QString("€"));
}

void TestDialogFood::foodWithoutSupplierAndDescription()
{
    FoodEditor editor(m_database->db(), 12);
    QCOMPARE(editor.supplier()->currentIndex(), -1);
    QCOMPARE(editor.supplier()->currentText(), QString());
    QCOMPARE(editor.description()->toPlainText(), QString());
    QCOMPARE(editor.windowTitle(), QString("Upraviť jedlo - Polievky - Voda"));
    QCOMPARE(editor.price()->text(), QString("0"));
    editor.save()->click();
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->food(12), QString("91|NULL|Voda||0"));
}

void TestDialogFood::alergensStandInTheOrderOfTheirKeys()
{
    // Two digits and three: by number, not by text.
    m_data->exec("INSERT INTO via_alergens (alergenID, title) VALUES (120, 'Lupina'), (14, 'Mäkkýše')");
    m_data->exec("INSERT INTO via_foodalergen VALUES (11, 120)");
    FoodEditor editor(m_database->db(), 11);
    QCOMPARE(editor.marks(), (QStringList{"[ ] Obilniny", "[x] Vajcia", "[x] Mlieko", "[ ] Mäkkýše", "[x] Lupina"}));
    editor.mark(3, Qt::Checked);
    editor.mark(4, Qt::Unchecked);
    editor.save()->click();
    QCOMPARE(m_data->alergens(11), QString("3 7 14"));
}

void TestDialogFood::savingNeedsAName()
{
    FoodEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("x"));
    QVERIFY(editor.save()->isEnabled());
    editor.name()->clear();
    QVERIFY(!editor.save()->isEnabled());
    FoodEditor existing(m_database->db(), 11);
    existing.name()->clear();
    QVERIFY(!existing.save()->isEnabled());
}

void TestDialogFood::hostileTextsStandAsTyped()
{
    const QStringList texts = hostileTexts();
    for (const QString &text : texts) {
        for (const char *statement :
             {"UPDATE via_foods SET name=? WHERE foodID=11", "UPDATE via_foods SET description=? WHERE foodID=11",
              "UPDATE via_types SET name=? WHERE typeID=92", "UPDATE via_suppliers SET name=? WHERE supplierID=2",
              "UPDATE via_alergens SET title=? WHERE alergenID=3"})
            m_data->store(statement, text);
        const FoodEditor editor(m_database->db(), 11);
        QCOMPARE(editor.windowTitle(), QString("Upraviť jedlo - " + text + " - " + text));
        QCOMPARE(editor.name()->text(), text);
        QCOMPARE(editor.description()->toPlainText(), text);
        QCOMPARE(editor.type()->currentText(), text);
        QCOMPARE(editor.supplier()->currentText(), text);
        QCOMPARE(editor.marks().at(1), QString("[x] " + text));
    }
}

void TestDialogFood::longTextsKeepTheDialogSmall()
{
    const QSize plain = FoodEditor(m_database->db(), 11).sizeHint();
    const QString text(10000, QLatin1Char('W'));
    m_data->store("UPDATE via_types SET name=? WHERE typeID=92", text);
    m_data->store("UPDATE via_suppliers SET name=? WHERE supplierID=2", text);
    m_data->store("UPDATE via_alergens SET title=? WHERE alergenID=3", text);
    m_data->store("UPDATE via_foods SET name=? WHERE foodID=11", text);
    const FoodEditor editor(m_database->db(), 11);
    QCOMPARE(editor.sizeHint(), plain);
    QVERIFY(plain.width() <= 1024);
    QVERIFY(plain.height() <= 700);
}

void TestDialogFood::closedHandleGivesAnEmptyForm()
{
    {
        Opened<DialogFood> editor(FoodRepository(m_database->db()).loadFood(11), m_data->closedConnection(), nullptr);
        QVERIFY(editor.find<QLabel>("labelTitle")->isHidden());
        QCOMPARE(editor.find<QLineEdit>("lineEdit")->text(), QString());
        QVERIFY(!editor.find<QPushButton>("pushButtonSave")->isEnabled());
        QCOMPARE(editor.find<QComboBox>("comboBoxType")->count(), 0);
        QVERIFY(!editor.find<QListView>("listViewAlergens")->model());
        QVERIFY(!editor.property("editState").isValid());
        QCOMPARE(editor.find<QPlainTextEdit>("plainTextEditDesc")->styleSheet(), QString("background-color: white"));
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť jedlo!");
        editor.on_pushButtonSave_clicked();
        m_boxes.expectBox("Zmazanie jedla!", "Naozaj chcete zmazať jedlo  - ?");
        m_boxes.expectBox(
            "Chyba databázy",
            "Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla.");
        editor.on_pushButtonDelete_clicked();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
}

void TestDialogFood::lostConnectionGivesEmptyLists()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    const FoodRecord food = FoodRepository(database.db()).loadFood(11);
    database.breakConnection();
    LogCatcher log;
    const Opened<DialogFood> editor(food, database.db(), nullptr);
    QCOMPARE(editor.find<QComboBox>("comboBoxType")->count(), 0);
    QCOMPARE(editor.find<QComboBox>("comboBoxSupplier")->count(), 0);
    QCOMPARE(editor.find<QListView>("listViewAlergens")->model()->rowCount(), 0);
    QCOMPARE(editor.windowTitle(), QString("Upraviť jedlo -  - Prívarok"));
    const QStringList lines = log.critical();
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith("TypeModel - setQuery ERROR: ["));
    QVERIFY(lines.at(1).startsWith("SupplierModel - loadAllSuppliers ERROR: ["));
    QVERIFY(lines.at(2).startsWith("AlergenModel - setQuery ERROR: ["));
    QVERIFY(lines.at(3).startsWith("AlergenModel - foodalergen load ERROR: ["));
}

void TestDialogFood::withoutSuppliersTheFoodKeepsIts()
{
    m_data->exec("RENAME TABLE via_suppliers TO via_suppliers_away");
    FoodEditor editor(m_database->db(), 11);
    QCOMPARE(editor.supplier()->count(), 0);
    m_data->exec("RENAME TABLE via_suppliers_away TO via_suppliers");
    editor.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
}

void TestDialogFood::tabLeadsThroughTheForm()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    QCOMPARE(tabOrder(editor),
             (QStringList{"lineEdit", "comboBoxType", "comboBoxSupplier", "lineEditPrice", "plainTextEditDesc",
                          "pushButtonChoosePicture", "listViewAlergens", "pushButtonDelete", "pushButtonCancel",
                          "pushButtonSave"}));
    QCOMPARE(editor.description()->toPlainText(), QString("so smotanou"));
}

void TestDialogFood::selectorsWorkByKeyboard()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    editor.type()->setFocus();
    QTest::keyClick(editor.type(), Qt::Key_Down);
    QCOMPARE(editor.type()->currentText(), QString("Dezerty"));
    QTest::keyClick(editor.type(), Qt::Key_P);
    QCOMPARE(editor.type()->currentText(), QString("Polievky"));
    QTest::keyClick(editor.supplier(), Qt::Key_Up);
    QCOMPARE(editor.supplier()->currentText(), QString("Jedáleň"));
    QTest::keyClick(editor.price(), Qt::Key_Return); // the default button
    QVERIFY(!editor.isVisible());
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->food(11), QString("91|1|Prívarok|so smotanou|3.5"));
}

void TestDialogFood::spaceMarksAnAlergen()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    editor.alergens()->setFocus();
    editor.alergens()->setCurrentIndex(editor.alergens()->model()->index(0, 0));
    QTest::keyClick(editor.alergens(), Qt::Key_Space);
    QTest::keyClick(editor.alergens(), Qt::Key_Down);
    QTest::keyClick(editor.alergens(), Qt::Key_Space);
    QCOMPARE(editor.marks(), (QStringList{"[x] Obilniny", "[ ] Vajcia", "[x] Mlieko"}));
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_X})
        QTest::keyClick(editor.alergens(), key);
    QVERIFY2(!editor.alergens()->findChild<QLineEdit *>(), "titles cannot be edited here");
    QTest::keyClick(editor.alergens(), Qt::Key_Return);
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->alergens(11), QString("1 7"));
}

void TestDialogFood::enterInTheDescriptionIsALine()
{
    FoodEditor editor(m_database->db(), 11);
    show(editor);
    editor.description()->setFocus();
    editor.description()->moveCursor(QTextCursor::End);
    QTest::keyClick(editor.description(), Qt::Key_Return);
    QTest::keyClicks(editor.description(), QStringLiteral("a chlebom"));
    QVERIFY(editor.isVisible());
    editor.save()->click();
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou\na chlebom|3.5"));
}

void TestDialogFood::escapeAndCancelSaveNothing()
{
    const auto leave = [this](const std::function<void(FoodEditor &)> &how) {
        FoodEditor editor(m_database->db(), 11);
        show(editor);
        editor.name()->setText(QStringLiteral("iné"));
        editor.mark(0, Qt::Checked);
        how(editor);
        QVERIFY(!editor.isVisible());
        QCOMPARE(editor.result(), 0);
    };
    leave([](FoodEditor &editor) { QTest::keyClick(&editor, Qt::Key_Escape); });
    leave([](FoodEditor &editor) { editor.cancel()->click(); });
    leave([](FoodEditor &editor) { editor.close(); });
    QCOMPARE(m_data->food(11), QString("92|2|Prívarok|so smotanou|3.5"));
    QCOMPARE(m_data->alergens(11), QString("3 7"));
}

QTEST_MAIN(TestDialogFood)
#include "tst_dialogfood.moc"
