#include "catalogue/typeeditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QLabel>

#include <memory>

/// The dialog of a meal type but for the order of the types.
class TestDialogType : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup() { BOXES_DONE(m_boxes); }

    void metaObject();
    void form();
    void textsAreNotCut();
    void newType();
    void existingType();
    void typeThatIsGoneOpensAsANewOne();
    void typeWithoutNameCannotBeSaved();
    void nameOpensTheSave();
    void savesAllFields();
    void hostileNamesAreStoredAsTyped();
    void closedHandleGivesAnEmptyForm();
    void connectionLostBeforeTheSave();
    void deletionIsAskedFor();
    void refusedDeletionMovesNothing();
    void worksByKeyboard();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

void TestDialogType::metaObject()
{
    QCOMPARE(
        metaMethods(DialogType::staticMetaObject),
        (QStringList{"slot void on_pushButtonSave_clicked()", "slot void on_pushButtonCancel_clicked()",
                     "slot void on_pushButtonDelete_clicked()", "slot void on_lineEditName_textChanged(QString)"}));
}

void TestDialogType::form()
{
    const TypeEditor editor(m_database->db());
    QStringList texts;
    const QList<QLabel *> labels = editor.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text() + label->buddy()->objectName());
    QCOMPARE(texts, (QStringList{"Názov typu jedla:lineEditName", "Poradie v menu:comboBoxPos"}));
    QCOMPARE(editor.name()->placeholderText(), QString("Názov"));
    QCOMPARE(editor.informative()->text(), QString("automaticky bez objednávky"));
    QCOMPARE(editor.informative()->toolTip(),
             QString("<html><head/><body><p>Označte túto voľbu v prípade, že je daný typ jedla (napr. polievka) "
                     "automaticky dodávaný k hlavného jedlu bez objednávania a slúži len na informáciu, aká polievka v "
                     "daný deň bude.</p></body></html>"));
    QCOMPARE(editor.deleteType()->text(), QString("Zmazať"));
    QCOMPARE(editor.cancel()->text(), QString("Zrušiť"));
    QCOMPARE(editor.save()->text(), QString("Uložiť"));
}

void TestDialogType::textsAreNotCut()
{
    TypeEditor editor(m_database->db());
    show(editor);
    QVERIFY(textsFit(editor));
}

void TestDialogType::newType()
{
    const TypeEditor editor(m_database->db());
    QCOMPARE(editor.windowTitle(), QString("Pridanie typu výdaja"));
    QCOMPARE(editor.property("editState"), QVariant("add"));
    QCOMPARE(editor.positions(), (QStringList{"1", "2", "3", "4"}));
    QCOMPARE(editor.position()->currentText(), QString("4"));
    QVERIFY(editor.cancel()->isDefault());
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(!editor.deleteType()->isEnabled());
    QVERIFY(!editor.deleteType()->isHidden());
    QVERIFY(!editor.informative()->isChecked());
}

void TestDialogType::existingType()
{
    for (const int typeID : {91, 93}) {
        const TypeEditor editor(m_database->db(), typeID);
        QCOMPARE(editor.windowTitle(), QString("Úprava typu výdaja"));
        QCOMPARE(editor.property("editState"), QVariant("edit"));
        QCOMPARE(editor.positions(), (QStringList{"1", "2", "3"}));
        QCOMPARE(editor.position()->currentText(), QString(typeID == 91 ? "1" : "3"));
        QCOMPARE(editor.name()->text(), QString(typeID == 91 ? "Polievky" : "Dezerty"));
        QCOMPARE(editor.informative()->isChecked(), typeID == 91);
        QVERIFY(editor.save()->isDefault());
        QVERIFY(editor.save()->isEnabled());
        QVERIFY(editor.deleteType()->isEnabled());
    }
}

void TestDialogType::typeThatIsGoneOpensAsANewOne()
{
    TypeEditor editor(m_database->db(), 99);
    QCOMPARE(editor.windowTitle(), QString("Pridanie typu výdaja"));
    QVERIFY(!editor.deleteType()->isEnabled());
    editor.name()->setText(QStringLiteral("Šaláty"));
    editor.save()->click();
    QCOMPARE(m_data->types(), (QStringList{"1 Polievky", "2 Hlavné jedlá", "3 Dezerty", "4 Šaláty"}));
}

void TestDialogType::typeWithoutNameCannotBeSaved()
{
    m_data->exec("UPDATE via_types SET name='' WHERE typeID=93");
    const TypeEditor editor(m_database->db(), 93);
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(editor.deleteType()->isEnabled());
}

void TestDialogType::nameOpensTheSave()
{
    for (const int typeID : {0, 91}) {
        const TypeEditor editor(m_database->db(), typeID);
        editor.name()->setText(QStringLiteral("x"));
        QVERIFY(editor.save()->isEnabled());
        QVERIFY(editor.save()->isDefault());
        editor.name()->clear();
        QVERIFY(!editor.save()->isEnabled());
        QVERIFY(editor.cancel()->isDefault());
    }
}

void TestDialogType::savesAllFields()
{
    TypeEditor added(m_database->db());
    added.name()->setText(QStringLiteral("Šaláty"));
    added.informative()->setChecked(true);
    added.save()->click();
    QCOMPARE(added.result(), 0);
    TypeEditor editor(m_database->db(), 91);
    editor.name()->setText(QStringLiteral("Vývary"));
    editor.informative()->setChecked(false);
    editor.save()->click();
    QCOMPARE(m_database->rows("SELECT name, position, informative FROM via_types ORDER BY position"),
             (QStringList{"Vývary|1|0", "Hlavné jedlá|2|0", "Dezerty|3|0", "Šaláty|4|1"}));
}

void TestDialogType::hostileNamesAreStoredAsTyped()
{
    const QStringList names = hostileTexts();
    for (const QString &name : names) {
        TypeEditor editor(m_database->db(), 93);
        editor.name()->setText(name);
        editor.save()->click();
        QCOMPARE(m_data->types().constLast(), QString("3 " + name));
        TypeEditor shown(m_database->db(), 93);
        QCOMPARE(shown.name()->text(), name);
        m_boxes.expectBox("Zmazanie typu výdaja!", "Naozaj chcete zmazať typ výdaja " + name + '?',
                          QMessageBox::Cancel);
        shown.deleteType()->click();
        BOXES_DONE(m_boxes);
    }
}

void TestDialogType::closedHandleGivesAnEmptyForm()
{
    {
        const Opened<DialogType> editor(m_data->closedConnection(), nullptr, 91);
        QCOMPARE(editor.find<QLineEdit>("lineEditName")->text(), QString());
        QCOMPARE(editor.find<QComboBox>("comboBoxPos")->count(), 0);
        QVERIFY(!editor.find<QPushButton>("pushButtonSave")->isEnabled());
        QVERIFY(!editor.find<QPushButton>("pushButtonDelete")->isEnabled());
        QVERIFY(!editor.property("editState").isValid());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

void TestDialogType::connectionLostBeforeTheSave()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    TypeEditor added(database.db());
    added.name()->setText(QStringLiteral("Šaláty"));
    added.position()->setCurrentIndex(1);
    TypeEditor editor(database.db(), 91);
    editor.position()->setCurrentIndex(2);
    TypeEditor deleted(database.db(), 91);
    show(editor);
    database.breakConnection();
    for (int move = 0; move < 2; ++move)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť typ jedla !");
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať typ jedla !");
    added.save()->click();
    BOXES_DONE(m_boxes);
    for (int moveOrWrite = 0; moveOrWrite < 3; ++moveOrWrite)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť typ jedla !");
    editor.save()->click();
    QVERIFY(!editor.isVisible());
    BOXES_DONE(m_boxes);
    m_boxes.expectBox("Zmazanie typu výdaja!", "Naozaj chcete zmazať typ výdaja Polievky?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať typ jedla ! Skúste pred zmazaním typu jedla najprv zmazať všetky jedlá "
                      "tohoto typu.");
    deleted.deleteType()->click();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať typ jedla !");
    const TypeEditor late(database.db(), 91);
    QCOMPARE(late.windowTitle(), QString("Pridanie typu výdaja"));
    QCOMPARE(data.types(), (QStringList{"1 Polievky", "2 Hlavné jedlá", "3 Dezerty"}));
}

void TestDialogType::deletionIsAskedFor()
{
    TypeEditor editor(m_database->db(), 93);
    show(editor);
    m_boxes.expectBox("Zmazanie typu výdaja!", "Naozaj chcete zmazať typ výdaja Dezerty?", QMessageBox::Cancel,
                      [](QMessageBox *box) {
                          QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                          QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
                      });
    editor.deleteType()->click();
    QVERIFY(editor.isVisible());
    QCOMPARE(m_data->types().size(), 3);
    m_boxes.expectBox("Zmazanie typu výdaja!", "Naozaj chcete zmazať typ výdaja Dezerty?");
    editor.deleteType()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->types(), (QStringList{"1 Polievky", "2 Hlavné jedlá"}));
}

void TestDialogType::refusedDeletionMovesNothing()
{
    TypeEditor editor(m_database->db(), 91); // the soups have a food
    show(editor);
    m_boxes.expectBox("Zmazanie typu výdaja!", "Naozaj chcete zmazať typ výdaja Polievky?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať typ jedla ! Skúste pred zmazaním typu jedla najprv zmazať všetky jedlá "
                      "tohoto typu.");
    editor.deleteType()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->types(), (QStringList{"1 Polievky", "2 Hlavné jedlá", "3 Dezerty"}));
}

void TestDialogType::worksByKeyboard()
{
    TypeEditor editor(m_database->db());
    show(editor);
    QTest::keyClick(editor.name(), Qt::Key_Return); // without a name it closes
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->types().size(), 3);
    show(editor);
    QTest::keyClicks(editor.name(), QStringLiteral("Drinky"));
    QCOMPARE(tabOrder(editor),
             (QStringList{"lineEditName", "comboBoxPos", "checkBoxInformative", "pushButtonCancel", "pushButtonSave"}));
    QTest::keyClick(editor.position(), Qt::Key_Up);
    QTest::keyClick(editor.informative(), Qt::Key_Space);
    QTest::keyClick(editor.name(), Qt::Key_Return);
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->types(), (QStringList{"1 Polievky", "2 Hlavné jedlá", "3 Drinky", "4 Dezerty"}));
    TypeEditor existing(m_database->db(), 91);
    show(existing);
    existing.name()->setText(QStringLiteral("x"));
    QTest::keyClick(&existing, Qt::Key_Escape);
    QVERIFY(!existing.isVisible());
    QCOMPARE(m_data->types().constFirst(), QString("1 Polievky"));
}

QTEST_MAIN(TestDialogType)
#include "tst_dialogtype.moc"
