#include "forms.h"
#include "supplierdata.h"
#include "suppliers/dialogsupplier.h"
#include "suppliers/supplierwidget.h"
#include "support/logcatcher.h"

#include <QLineEdit>

using Page = Form<SupplierWidget>;

/// Adding, editing and deleting suppliers from the page, and which row is current afterwards.
class TestSupplierEdits : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void addedSupplierIsCurrent();
    void firstSupplier();
    void failedAdditionLeavesNoRowCurrent();
    void cancelledDialogsChangeNothing();
    void editedSupplierStaysCurrent();
    void doubleClickEdits();
    void deletionGoesToTheFirst();
    void deletionOfTheLastSupplier();
    void refusedDeletion();
    void supplierDeletedElsewhere();
    void unreadableSupplierIsNotEdited();
    void pageMayGoWhileADialogIsOpen();

private:
    static void saveAs(BoxAnswerer &boxes, const QString &name);
    static void press(BoxAnswerer &boxes, const QString &title, const char *button);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

/// Expects the editor; names the supplier and saves.
void TestSupplierEdits::saveAs(BoxAnswerer &boxes, const QString &name)
{
    boxes.expectDialog(QStringLiteral("DialogSupplier"), [name](QDialog *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("lineEditName"))->setText(name);
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonSave"))->click();
    });
}

/// Expects the editor with this title and presses a button.
void TestSupplierEdits::press(BoxAnswerer &boxes, const QString &title, const char *button)
{
    boxes.expectDialog(QStringLiteral("DialogSupplier"), [=](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), title);
        dialog->findChild<QPushButton *>(QLatin1String(button))->click();
    });
}

void TestSupplierEdits::addedSupplierIsCurrent()
{
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    saveAs(boxes, QStringLiteral("Nový"));
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers").constLast(), QStringLiteral("Nový"));
    QCOMPARE(page.current("listViewSuppliers"), 3);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Nový"));
    QCOMPARE(page.text("labelDeadline"), QStringLiteral("0:00"));
}

void TestSupplierEdits::firstSupplier()
{
    m_data->exec("DELETE FROM via_supplierbranch");
    m_data->exec("DELETE FROM via_suppliers");
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    saveAs(boxes, QStringLiteral("Prvý"));
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers"), QStringList{QStringLiteral("Prvý")});
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Prvý"));
}

void TestSupplierEdits::failedAdditionLeavesNoRowCurrent()
{
    const Refusal refusal(*m_database, QStringLiteral("INSERT"), QStringLiteral("via_suppliers"));
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    saveAs(boxes, QStringLiteral("Nový"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať dodávateľa!"));
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers").size(), 3);
    QCOMPARE(page.current("listViewSuppliers"), -1);
    QCOMPARE(page.text("labelSupplierName"), QString());
    page.select("listViewSuppliers", 1);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Pekáreň"));
}

void TestSupplierEdits::cancelledDialogsChangeNothing()
{
    Page page(m_database->db(), 0U);
    page.select("listViewSuppliers", 1);
    const QAbstractItemModel *list = page.list("listViewSuppliers")->model();
    const QStringList suppliers = m_data->suppliers();
    BoxAnswerer boxes;
    press(boxes, QStringLiteral("Pridať dodávateľa"), "pushButtonCancel");
    press(boxes, QStringLiteral("Upraviť dodávateľa - Pekáreň"), "pushButtonCancel");
    page.button("pushButton")->click();
    page.button("pushButton_3")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->suppliers(), suppliers);
    QCOMPARE(page.list("listViewSuppliers")->model(), list);
    QCOMPARE(page.current("listViewSuppliers"), 1);
}

void TestSupplierEdits::editedSupplierStaysCurrent()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    page.select("listViewSuppliers", 1);
    BoxAnswerer boxes;
    saveAs(boxes, QStringLiteral("Pekáreň <b>%1</b>"));
    const LogCatcher log;
    page.button("pushButton_3")->click();
    BOXES_DONE(boxes);
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("2")});
    QCOMPARE(page.current("listViewSuppliers"), 1);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Pekáreň <b>%1</b>"));
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Výroba"));
}

void TestSupplierEdits::doubleClickEdits()
{
    Page page(m_database->db(), 0U);
    show(page);
    BoxAnswerer boxes;
    saveAs(boxes, QStringLiteral("Bistro 2"));
    doubleClick(page.list("listViewSuppliers"), 2);
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers"),
             (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň"), QStringLiteral("Bistro 2")}));
    QCOMPARE(page.current("listViewSuppliers"), 2);
}

void TestSupplierEdits::deletionGoesToTheFirst()
{
    m_data->exec("DELETE FROM via_supplierbranch WHERE supplierID = 2");
    Page page(m_database->db(), 0U);
    page.select("listViewSuppliers", 1);
    BoxAnswerer boxes; // and no question
    press(boxes, QStringLiteral("Upraviť dodávateľa - Pekáreň"), "pushButtonDelete");
    page.button("pushButton_3")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers"), (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Bistro")}));
    QCOMPARE(page.current("listViewSuppliers"), 0);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Jedáleň"));
    QCOMPARE(m_data->supplierMails(), (QStringList{"1|objednavky@jedalen.sk", "1|kuchyna@jedalen.sk"}));
}

void TestSupplierEdits::deletionOfTheLastSupplier()
{
    m_data->exec("DELETE FROM via_supplierbranch");
    m_data->exec("DELETE FROM via_suppliers WHERE supplierID > 1");
    Page page(m_database->db(), 0U);
    BoxAnswerer boxes;
    press(boxes, QStringLiteral("Upraviť dodávateľa - Jedáleň"), "pushButtonDelete");
    page.button("pushButton_3")->click();
    page.button("pushButton_3")->click(); // nothing is left to edit
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers"), QStringList());
    QCOMPARE(page.text("labelSupplierName"), QString());
    QCOMPARE(page.text("labelShortcut"), QString());
    QCOMPARE(page.texts("listViewSupplierEmails"), QStringList());
    QCOMPARE(page.texts("listViewSupplierTimes"), QStringList());
    QCOMPARE(m_data->times(), QStringList());
}

void TestSupplierEdits::refusedDeletion()
{
    Page page(m_database->db(), 0U);
    page.select("listViewSuppliers", 1);
    BoxAnswerer boxes;
    press(boxes, QStringLiteral("Upraviť dodávateľa - Pekáreň"), "pushButtonDelete");
    boxes.expectBox(
        QStringLiteral("Chyba databázy"),
        QStringLiteral("Nepodarilo sa zmazať dodávateľa! Skúste najprv zrušiť priradenie strediska a zmazať "
                       "jedlá priradené dodávateľovi."));
    page.button("pushButton_3")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers").size(), 3);
    QCOMPARE(page.current("listViewSuppliers"), 1);
    QCOMPARE(page.texts("listViewSupplierEmails"), QStringList{QStringLiteral("pec@pekaren.sk")});
}

void TestSupplierEdits::supplierDeletedElsewhere()
{
    Page page(m_database->db(), 0U);
    page.select("listViewSuppliers", 2);
    m_data->exec("DELETE FROM via_supplierbranch WHERE supplierID = 3");
    m_data->exec("DELETE FROM via_suppliers WHERE supplierID = 3");
    const BoxAnswerer boxes;
    page.button("pushButton_3")->click();
    QTest::qWait(20);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(page.texts("listViewSuppliers"), (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň")}));
    QCOMPARE(page.text("labelSupplierName"), QString());
}

void TestSupplierEdits::unreadableSupplierIsNotEdited()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    Page page(other.db(), 0U);
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať dodávateľa!"));
    page.button("pushButton_3")->click();
    BOXES_DONE(boxes);
    QCOMPARE(data.suppliers().size(), 3);
}

void TestSupplierEdits::pageMayGoWhileADialogIsOpen()
{
    for (const char *button : {"pushButton", "pushButton_3"}) {
        auto page = std::make_unique<Page>(m_database->db(), 0U);
        BoxAnswerer boxes;
        boxes.expectDialog(QStringLiteral("DialogSupplier"), [&page](QDialog *) { page.reset(); });
        if (QLatin1String(button) == QLatin1String("pushButton"))
            page->on_pushButton_clicked();
        else
            page->on_pushButton_3_clicked();
        BOXES_DONE(boxes);
        QVERIFY(!page);
    }
}

QTEST_MAIN(TestSupplierEdits)
#include "tst_supplieredits.moc"
