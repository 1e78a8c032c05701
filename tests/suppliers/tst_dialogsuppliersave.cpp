#include "forms.h"
#include "supplierdata.h"
#include "suppliers/dialogsupplier.h"
#include "support/logcatcher.h"

#include <QLineEdit>
#include <QSpinBox>
#include <QTimeEdit>

using Dialog = Form<DialogSupplier>;

/// Saving and deleting in the editor of a supplier.
class TestDialogSupplierSave : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void newSupplier();
    void newSupplierByKeyboard();
    void existingSupplier();
    void doubleEntriesVanish();
    void results();
    void refusedDeletionKeepsEverything();
    void lostConnectionWhileAdding();
    void lostConnectionWhileUpdating();
    void failedAdditionGivesNobodyItsMails();
    void mailsThatFailAreToldOneByOne();
    void lostConnectionWhileDeleting();

private:
    SupplierRecord record(uint supplierID, const TestDatabase &database) const
    {
        return SupplierRepository(database.db()).loadSupplier(supplierID);
    }
    static void addMail(const Dialog &dialog, const QString &mail)
    {
        BoxAnswerer boxes;
        expectMail(boxes, QStringLiteral("Pridanie emailu dodávateľa"), QString(), mail);
        dialog.button("pushButtonPridat")->click();
        BOXES_DONE(boxes);
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

void TestDialogSupplierSave::newSupplier()
{
    const Dialog dialog(SupplierRecord(), m_database->db());
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("Nový"));
    dialog.find<QLineEdit>("lineEditShortcut")->setText(QStringLiteral("N"));
    dialog.find<QPlainTextEdit>("plainTextEditDesc")->setPlainText(QStringLiteral("prvý riadok\ndruhý"));
    dialog.find<QTimeEdit>("timeEdit")->setTime(QTime(14, 30));
    dialog.find<QSpinBox>("spinBox")->setValue(4);
    addMail(dialog, QStringLiteral("a@novy.sk"));
    addMail(dialog, QStringLiteral("b@novy.sk"));
    dialog.button("pushButtonSave")->click();
    QCOMPARE(m_data->suppliers().constLast(), QStringLiteral("4|Nový|prvý riadok\ndruhý|14:30:00|N|4"));
    QCOMPARE(m_data->supplierMails().mid(3), (QStringList{"4|a@novy.sk", "4|b@novy.sk"}));
    QCOMPARE(m_data->links().size(), 3);
    QCOMPARE(dialog.result(), 1);
}

void TestDialogSupplierSave::newSupplierByKeyboard()
{
    Dialog dialog(SupplierRecord(), m_database->db());
    show(dialog);
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("Novy"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("NV"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("a"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return); // a new line
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("b"));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(dialog.focusWidget(), QStringLiteral("0745"));
    QTest::keyClick(dialog.find<QLineEdit>("lineEditName"), Qt::Key_Return);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(m_data->suppliers().constLast(), QStringLiteral("4|Novy|a\nb|07:45:00|NV|0"));
}

void TestDialogSupplierSave::existingSupplier()
{
    const Dialog dialog(record(1, *m_database), m_database->db());
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("Jedáleň 2"));
    dialog.find<QPlainTextEdit>("plainTextEditDesc")->clear();
    dialog.find<QSpinBox>("spinBox")->setValue(0);
    addMail(dialog, QStringLiteral("a@b.sk"));
    dialog.button("pushButtonSave")->click();
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(m_data->suppliers().first(), QStringLiteral("1|Jedáleň 2||09:05:00|JED|0"));
    QCOMPARE(m_data->suppliers().size(), 3);
    // Written whole anew: behind the mail of the other supplier, in the order of the list.
    QCOMPARE(m_data->supplierMails(),
             (QStringList{"2|pec@pekaren.sk", "1|objednavky@jedalen.sk", "1|kuchyna@jedalen.sk", "1|a@b.sk"}));
    QCOMPARE(m_data->times().size(), 2);
}

void TestDialogSupplierSave::doubleEntriesVanish()
{
    const Dialog dialog(record(2, *m_database), m_database->db());
    addMail(dialog, QStringLiteral("pec@pekaren.sk"));
    addMail(dialog, QStringLiteral("x@pekaren.sk"));
    addMail(dialog, QStringLiteral("x@pekaren.sk"));
    QCOMPARE(dialog.texts("listViewSupplierMails").size(), 4);
    dialog.button("pushButtonSave")->click();
    QCOMPARE(m_data->supplierMails().mid(2), (QStringList{"2|pec@pekaren.sk", "2|x@pekaren.sk"}));
}

void TestDialogSupplierSave::results()
{
    m_data->exec("DELETE FROM via_supplierbranch WHERE supplierID = 3");
    const std::pair<const char *, int> buttons[] = {
        {"pushButtonCancel", 0}, {"pushButtonSave", 1}, {"pushButtonDelete", 2}};
    for (const auto &button : buttons) {
        Dialog dialog(record(3, *m_database), m_database->db());
        BoxAnswerer boxes; // the deletion asks nothing
        boxes.expectDialog(QStringLiteral("DialogSupplier"), [&](QDialog *) { dialog.button(button.first)->click(); });
        QCOMPARE(dialog.exec(), button.second);
        BOXES_DONE(boxes);
    }
    QCOMPARE(m_data->suppliers().size(), 2);
}

void TestDialogSupplierSave::refusedDeletionKeepsEverything()
{
    Dialog dialog(record(1, *m_database), m_database->db());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogSupplier"),
                       [&dialog](QDialog *) { dialog.button("pushButtonDelete")->click(); });
    boxes.expectBox(
        QStringLiteral("Chyba databázy"),
        QStringLiteral("Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a zmazať "
                       "jedlá priradené dodávateľovi."));
    QCOMPARE(dialog.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->suppliers().size(), 3);
    QCOMPARE(m_data->supplierMails().size(), 3);
    QCOMPARE(m_data->times().size(), 2);
}

void TestDialogSupplierSave::lostConnectionWhileAdding()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    const Dialog dialog(SupplierRecord(), other.db());
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("Nový"));
    addMail(dialog, QStringLiteral("a@novy.sk"));
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať dodávateľa!"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať mail dodávateľa!"));
    const LogCatcher log;
    dialog.button("pushButtonSave")->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 3); // the look for the new key shows no box
    QCOMPARE(data.suppliers().size(), 3);
    QCOMPARE(data.supplierMails().size(), 3);
}

void TestDialogSupplierSave::lostConnectionWhileUpdating()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    const QStringList suppliers = data.suppliers();
    const Dialog dialog(record(1, other), other.db());
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("Nový"));
    other.breakConnection();
    BoxAnswerer boxes;
    for (const char *text : {"Nepodarilo sa upraviť dodávateľa!", "Nepodarilo sa zmazať maily dodávateľa!",
                             "Nepodarilo sa pridať mail dodávateľa!", "Nepodarilo sa pridať mail dodávateľa!"})
        boxes.expectBox(QStringLiteral("Chyba databázy"), QString::fromUtf8(text));
    dialog.button("pushButtonSave")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.result(), 1);
    QCOMPARE(data.suppliers(), suppliers);
    QCOMPARE(data.supplierMails().size(), 3);
}

void TestDialogSupplierSave::failedAdditionGivesNobodyItsMails()
{
    const Refusal refusal(*m_database, QStringLiteral("INSERT"), QStringLiteral("via_suppliers"));
    const QStringList mails = m_data->supplierMails();
    const Dialog dialog(SupplierRecord(), m_database->db());
    dialog.find<QLineEdit>("lineEditName")->setText(QStringLiteral("Nový"));
    addMail(dialog, QStringLiteral("a@novy.sk"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať dodávateľa!"));
    dialog.button("pushButtonSave")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->supplierMails(), mails);
}

void TestDialogSupplierSave::mailsThatFailAreToldOneByOne()
{
    const Dialog dialog(record(1, *m_database), m_database->db());
    const Refusal refusal(*m_database, QStringLiteral("INSERT"), QStringLiteral("via_suppliermails"),
                          QStringLiteral("NEW.mail LIKE 'obj%'"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať mail dodávateľa!"));
    dialog.button("pushButtonSave")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->supplierMails(), (QStringList{"2|pec@pekaren.sk", "1|kuchyna@jedalen.sk"}));
}

void TestDialogSupplierSave::lostConnectionWhileDeleting()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    const Dialog dialog(record(1, other), other.db());
    other.breakConnection();
    BoxAnswerer boxes;
    for (const char *text :
         {"Nepodarilo sa zmazať maily dodávateľa!", "Nepodarilo sa zrušiť časy odosielania emailov dodávatelovi.",
          "Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a zmazať jedlá "
          "priradené dodávateľovi."})
        boxes.expectBox(QStringLiteral("Chyba databázy"), QString::fromUtf8(text));
    dialog.button("pushButtonDelete")->click();
    BOXES_DONE(boxes);
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(data.suppliers().size(), 3);
}

QTEST_MAIN(TestDialogSupplierSave)
#include "tst_dialogsuppliersave.moc"
