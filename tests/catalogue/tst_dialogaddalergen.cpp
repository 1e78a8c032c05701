#include "catalogue/dialogaddalergen.h"
#include "catalogue/dialogdata.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>

namespace {

/// The dialog of one allergen with short ways to its widgets.
class AlergenEditor : public Opened<DialogAddAlergen> {
public:
    explicit AlergenEditor(const QSqlDatabase &db, uint alergenID = 0)
        : Opened(alergenID, db, nullptr)
    {
    }

    QLineEdit *title() const { return find<QLineEdit>("lineEditTitle"); }
    QPlainTextEdit *description() const { return find<QPlainTextEdit>("plainTextEditDescription"); }
    QPushButton *remove() const { return find<QPushButton>("pushButtonDelete"); }
    QPushButton *cancel() const { return find<QPushButton>("pushButtonCancel"); }
    QPushButton *save() const { return find<QPushButton>("pushButtonSave"); }
};

} // namespace

class TestDialogAddAlergen : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DialogData>(*m_database); }
    void cleanup() { BOXES_DONE(m_boxes); }

    void metaObject();
    void form();
    void textsAreNotCut();
    void newAlergen();
    void existingAlergen();
    void alergenThatIsGoneOpensAsANewOne();
    void alergenWithoutTitleCannotBeSaved();
    void typedTitleOpensTheSave();
    void adds();
    void updates();
    void withoutTitleNothingIsSaved();
    void hostileTextsAreStoredAsTyped();
    void deletes();
    void refusedDeletion();
    void worksByKeyboard();
    void connectionLost();
    void closedHandle();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

void TestDialogAddAlergen::metaObject()
{
    QCOMPARE(metaMethods(DialogAddAlergen::staticMetaObject),
             (QStringList{"slot void on_lineEditTitle_textEdited(QString)", "slot void on_pushButtonSave_clicked()",
                          "slot void on_pushButtonCancel_clicked()", "slot void on_pushButtonDelete_clicked()"}));
}

void TestDialogAddAlergen::form()
{
    const AlergenEditor editor(m_database->db());
    QStringList texts;
    const QList<QLabel *> labels = editor.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text() + label->buddy()->objectName());
    QCOMPARE(texts, (QStringList{"Názov Alergénu:lineEditTitle", "Popis: plainTextEditDescription"}));
    QCOMPARE(editor.title()->placeholderText(), QString("Názov"));
    QCOMPARE(editor.description()->placeholderText(), QString("Popis"));
    QCOMPARE(editor.description()->styleSheet(), QString("background-color: white"));
    QCOMPARE(editor.remove()->text(), QString("Zmazať"));
    QCOMPARE(editor.cancel()->text(), QString("Zrušiť"));
    QCOMPARE(editor.save()->text(), QString("Uložiť"));
}

void TestDialogAddAlergen::textsAreNotCut()
{
    AlergenEditor editor(m_database->db());
    show(editor);
    QVERIFY(textsFit(editor));
}

void TestDialogAddAlergen::newAlergen()
{
    const AlergenEditor editor(m_database->db());
    QCOMPARE(editor.windowTitle(), QString("Pridanie alergénu"));
    QCOMPARE(editor.property("editState"), QVariant("add"));
    QVERIFY(editor.cancel()->isDefault());
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(!editor.remove()->isEnabled());
    QCOMPARE(editor.title()->text(), QString());
}

void TestDialogAddAlergen::existingAlergen()
{
    const AlergenEditor editor(m_database->db(), 7);
    QCOMPARE(editor.windowTitle(), QString("Úprava Alergénu"));
    QCOMPARE(editor.property("editState"), QVariant("edit"));
    QVERIFY(editor.save()->isDefault());
    QVERIFY(editor.save()->isEnabled());
    QVERIFY(editor.remove()->isEnabled());
    QCOMPARE(editor.title()->text(), QString("Mlieko"));
    QCOMPARE(editor.description()->toPlainText(), QString("aj srvátka"));
}

void TestDialogAddAlergen::alergenThatIsGoneOpensAsANewOne()
{
    const AlergenEditor editor(m_database->db(), 99);
    QCOMPARE(editor.windowTitle(), QString("Pridanie alergénu"));
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(!editor.remove()->isEnabled());
}

void TestDialogAddAlergen::alergenWithoutTitleCannotBeSaved()
{
    m_data->exec("UPDATE via_alergens SET title='' WHERE alergenID=7");
    const AlergenEditor editor(m_database->db(), 7);
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(editor.cancel()->isDefault());
    QVERIFY(editor.remove()->isEnabled());
}

void TestDialogAddAlergen::typedTitleOpensTheSave()
{
    for (const uint alergenID : {0U, 7U}) {
        const AlergenEditor editor(m_database->db(), alergenID);
        QTest::keyClicks(editor.title(), QStringLiteral("x"));
        QVERIFY(editor.save()->isEnabled());
        QVERIFY(editor.save()->isDefault());
        editor.title()->selectAll();
        QTest::keyClick(editor.title(), Qt::Key_Delete);
        QVERIFY(!editor.save()->isEnabled());
        QVERIFY(editor.cancel()->isDefault());
    }
}

void TestDialogAddAlergen::adds()
{
    AlergenEditor editor(m_database->db());
    show(editor);
    QTest::keyClicks(editor.title(), QStringLiteral("Zeler"));
    editor.description()->setPlainText(QStringLiteral("koreň\na vňať"));
    LogCatcher log;
    editor.save()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(log.lines(), QStringList{"pridavam 0 \"Zeler\" \"koreň\\na vňať\""});
    QCOMPARE(m_data->allAlergens().constLast(), QString("Zeler|koreň\na vňať"));
    QCOMPARE(m_data->allAlergens().size(), 4);
}

void TestDialogAddAlergen::updates()
{
    AlergenEditor editor(m_database->db(), 7);
    show(editor);
    QTest::keyClicks(editor.title(), QStringLiteral(" a syry"));
    editor.description()->clear();
    LogCatcher log;
    editor.save()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(log.lines(), QStringList{"updatujem 7 \"Mlieko a syry\" \"\""});
    QCOMPARE(m_data->allAlergens(), (QStringList{"Obilniny|lepok", "Vajcia|NULL", "Mlieko a syry|"}));
}

void TestDialogAddAlergen::withoutTitleNothingIsSaved()
{
    AlergenEditor editor(m_database->db(), 7);
    editor.title()->clear(); // as a program does it: the button stays open
    LogCatcher log;
    editor.on_pushButtonSave_clicked();
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(m_data->allAlergens().constLast(), QString("Mlieko|aj srvátka"));
}

void TestDialogAddAlergen::hostileTextsAreStoredAsTyped()
{
    const QStringList texts = hostileTexts();
    for (const QString &text : texts) {
        AlergenEditor editor(m_database->db(), 7);
        editor.title()->setText(text);
        editor.description()->setPlainText(text);
        editor.save()->click();
        QCOMPARE(m_data->allAlergens().constLast(), QString(text + '|' + text));
        const AlergenEditor shown(m_database->db(), 7);
        QCOMPARE(shown.title()->text(), text);
        QCOMPARE(shown.description()->toPlainText(), text);
        m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén " + text + '?', QMessageBox::Cancel);
        shown.remove()->click();
        BOXES_DONE(m_boxes);
    }
}

void TestDialogAddAlergen::deletes()
{
    AlergenEditor editor(m_database->db(), 1);
    show(editor);
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Obilniny?", QMessageBox::Cancel,
                      [](QMessageBox *box) {
                          QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                          QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
                      });
    editor.remove()->click();
    QVERIFY(editor.isVisible());
    QCOMPARE(m_data->allAlergens().size(), 3);
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Obilniny?");
    editor.remove()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->allAlergens(), (QStringList{"Vajcia|NULL", "Mlieko|aj srvátka"}));
}

void TestDialogAddAlergen::refusedDeletion()
{
    AlergenEditor editor(m_database->db(), 3);
    show(editor);
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Vajcia?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom.");
    editor.remove()->click();
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->allAlergens().size(), 3);
}

void TestDialogAddAlergen::worksByKeyboard()
{
    AlergenEditor editor(m_database->db());
    show(editor);
    QVERIFY(editor.title()->hasFocus());
    QTest::keyClick(editor.title(), Qt::Key_Return); // without a title it closes
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->allAlergens().size(), 3);
    show(editor);
    QTest::keyClicks(editor.title(), QStringLiteral("Zeler"));
    QCOMPARE(tabOrder(editor),
             (QStringList{"lineEditTitle", "plainTextEditDescription", "pushButtonCancel", "pushButtonSave"}));
    editor.description()->setFocus();
    QTest::keyClicks(editor.description(), QStringLiteral("a"));
    QTest::keyClick(editor.description(), Qt::Key_Return);
    QTest::keyClicks(editor.description(), QStringLiteral("b"));
    QVERIFY(editor.isVisible());
    QTest::keyClick(editor.title(), Qt::Key_Enter);
    QVERIFY(!editor.isVisible());
    QCOMPARE(m_data->allAlergens().constLast(), QString("Zeler|a\nb"));
    AlergenEditor left(m_database->db(), 7);
    show(left);
    QTest::keyClicks(left.title(), QStringLiteral("x"));
    QTest::keyClick(&left, Qt::Key_Escape);
    QVERIFY(!left.isVisible());
    left.cancel()->click();
    QVERIFY(m_data->allAlergens().contains("Mlieko|aj srvátka"));
}

void TestDialogAddAlergen::connectionLost()
{
    const TestDatabase database(QStringLiteral("lost"));
    const DialogData data(database);
    AlergenEditor added(database.db());
    added.title()->setText(QStringLiteral("Zeler"));
    AlergenEditor editor(database.db(), 7);
    AlergenEditor deleted(database.db(), 1);
    database.breakConnection();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa pridať alergén!");
    added.on_pushButtonSave_clicked();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa upraviť alergén!");
    editor.save()->click();
    m_boxes.expectBox("Zmazanie Alergénu!", "Naozaj chcete zmazať alergén Obilniny?");
    m_boxes.expectBox("Chyba databázy",
                      "Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom.");
    deleted.remove()->click();
    m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať alergén!");
    const AlergenEditor late(database.db(), 7);
    QVERIFY(!late.save()->isEnabled());
    QCOMPARE(data.allAlergens(), (QStringList{"Obilniny|lepok", "Vajcia|NULL", "Mlieko|aj srvátka"}));
}

void TestDialogAddAlergen::closedHandle()
{
    {
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať alergén!");
        const Opened<DialogAddAlergen> editor(7U, m_data->closedConnection(), nullptr);
        QVERIFY(!editor.find<QPushButton>("pushButtonSave")->isEnabled());
        QVERIFY(!editor.find<QPushButton>("pushButtonDelete")->isEnabled());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

QTEST_MAIN(TestDialogAddAlergen)
#include "tst_dialogaddalergen.moc"
