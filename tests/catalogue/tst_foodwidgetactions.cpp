#include "cataloguedata.h"
#include "foodpage.h"
#include "session/session.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <memory>

namespace {

template<typename Widget> Widget *in(QDialog *dialog, const char *name)
{
    return dialog->findChild<Widget *>(QLatin1String(name));
}

QString told(int written, int duplicates)
{
    return QStringLiteral("Import dokončený. \n\nPočet zapísaných jedál: %1 \nPočet duplikátov jedál: %2 \n \nPočet "
                          "zapísaných položiek menu: 0 \nPočet duplikátov položiek menu: 0 \n \n")
        .arg(written)
        .arg(duplicates);
}

} // namespace

/// The page of foods with the dialogs that open from it, and the exchange of foods by file.
class TestFoodWidgetActions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup() { session() = Session(); }

    void addedFoodIsPreviewedUnselected();
    void cancelledAddingChangesNothing();
    void editedFoodStaysSelected();
    void editedFoodThatTheFilterHides();
    void cancelledEditIsLogged();
    void deletedFoodGivesWayToTheFirst();
    void doubleClickAndEnterEdit();
    void readOnlyEditButtonOpensTheEditor();
    void typeIsAdded();
    void typeIsEditedByDoubleClickAndEnter();
    void deletedTypeGivesWayToAllTypes();
    void alergensOpen();
    void alergensOpenInReadOnly();
    void exportAsksAndTells();
    void cancelledExportFails();
    void exportToAFolderThatCannotBeWritten();
    void exportOfALostConnection();
    void importAsksAndTells();
    void filesWithoutRecords_data();
    void filesWithoutRecords();
    void unreadableFileTellsZeros();
    void cancelledImportTellsZeros();
    void importLeavesThePreview();
    void importTakesSuppliersAsTheyAreNow();
    void carriageReturnsAreNoPartOfAField();
    void longSummaryScrolls();
    void readCSVRowReadsARecord();
    void pageDiesWhileADialogIsOpen();

private:
    void answerFile(BoxAnswerer &boxes, const QString &caption, QFileDialog::AcceptMode mode, const QString &fileName);
    QString writeFile(const QByteArray &bytes);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_workingFolder;
};

void TestFoodWidgetActions::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_database = std::make_unique<TestDatabase>();
}

void TestFoodWidgetActions::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestFoodWidgetActions::init()
{
    fillCatalogue(*m_database);
    m_folder = std::make_unique<QTemporaryDir>();
}

/// Checks the question for a file and answers it; an empty name cancels it.
void TestFoodWidgetActions::answerFile(BoxAnswerer &boxes, const QString &caption, QFileDialog::AcceptMode mode,
                                       const QString &fileName)
{
    boxes.expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
        auto *question = static_cast<QFileDialog *>(dialog);
        QCOMPARE(question->windowTitle(), caption);
        QCOMPARE(question->acceptMode(), mode);
        QCOMPARE(question->nameFilters(), QStringList{"Súbory CSV (*.csv)"});
        auto *name = question->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        QCOMPARE(name->text(), QStringLiteral("jedla.csv"));
        if (fileName.isEmpty()) {
            question->reject();
            return;
        }
        name->setText(fileName);
        question->findChild<QDialogButtonBox *>()
            ->button(mode == QFileDialog::AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open)
            ->click();
    });
}

QString TestFoodWidgetActions::writeFile(const QByteArray &bytes)
{
    const QString name = m_folder->filePath(QStringLiteral("in.csv"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("the test cannot write its file");
    return name;
}

void TestFoodWidgetActions::addedFoodIsPreviewedUnselected()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Pridať jedlo"));
        in<QLineEdit>(dialog, "lineEdit")->setText(QStringLiteral("Čerstvé lokše"));
        in<QPushButton>(dialog, "pushButtonSave")->click();
    });
    page.button("pushButtonFood")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.names().constLast(), QStringLiteral("Čerstvé lokše"));
    QCOMPARE(page.title(), QStringLiteral("Čerstvé lokše"));
    QVERIFY(!page.foods()->currentIndex().isValid());
}

void TestFoodWidgetActions::cancelledAddingChangesNothing()
{
    const FoodPage page(m_database->db());
    page.selectFood(2);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) { dialog->reject(); });
    page.button("pushButtonFood")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.foods()->currentIndex().row(), 2);
    QCOMPARE(page.title(), QStringLiteral("Guláš"));
}

void TestFoodWidgetActions::editedFoodStaysSelected()
{
    const FoodPage page(m_database->db());
    page.selectFood(2);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Upraviť jedlo - Hlavné jedlá - Guláš"));
        in<QLineEdit>(dialog, "lineEdit")->setText(QStringLiteral("Kotlíkový guláš"));
        in<QPushButton>(dialog, "pushButtonSave")->click();
    });
    const LogCatcher log;
    page.button("pushButtonEdit")->click();
    BOXES_DONE(boxes);
    QVERIFY(log.has(QStringLiteral("result 1")));
    QCOMPARE(page.names().at(2), QStringLiteral("Kotlíkový guláš"));
    QCOMPARE(page.title(), QStringLiteral("Kotlíkový guláš"));
    QCOMPARE(page.foods()->currentIndex().row(), 2);
}

void TestFoodWidgetActions::editedFoodThatTheFilterHides()
{
    const FoodPage page(m_database->db());
    page.filter()->setText(QStringLiteral("gul"));
    page.selectFood(0);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
        in<QLineEdit>(dialog, "lineEdit")->setText(QStringLiteral("Perkelt"));
        in<QPushButton>(dialog, "pushButtonSave")->click();
    });
    page.button("pushButtonEdit")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(page.title(), QStringLiteral("Perkelt"));
}

void TestFoodWidgetActions::cancelledEditIsLogged()
{
    const FoodPage page(m_database->db());
    page.selectFood(1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"),
                       [](QDialog *dialog) { in<QPushButton>(dialog, "pushButtonCancel")->click(); });
    const LogCatcher log;
    page.button("pushButtonEdit")->click();
    BOXES_DONE(boxes);
    QVERIFY(log.has(QStringLiteral("result 0")));
    QCOMPARE(page.foods()->currentIndex().row(), 1);
    QCOMPARE(page.title(), QStringLiteral("Rezeň"));
}

void TestFoodWidgetActions::deletedFoodGivesWayToTheFirst()
{
    const FoodPage page(m_database->db());
    page.selectFood(1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"),
                       [](QDialog *dialog) { in<QPushButton>(dialog, "pushButtonDelete")->click(); });
    boxes.expectBox(QStringLiteral("Zmazanie jedla!"),
                    QStringLiteral("Naozaj chcete zmazať jedlo Hlavné jedlá - Rezeň?"), QMessageBox::Ok);
    const LogCatcher log;
    page.button("pushButtonEdit")->click();
    BOXES_DONE(boxes);
    QVERIFY(log.has(QStringLiteral("result 2")));
    QCOMPARE(page.names(), (QStringList{"Polievka dňa", "Guláš"}));
    QCOMPARE(page.title(), QStringLiteral("Polievka dňa"));
    QVERIFY(!page.button("pushButtonEdit")->isEnabled());
}

void TestFoodWidgetActions::doubleClickAndEnterEdit()
{
    FoodPage page(m_database->db());
    showActive(page);
    BoxAnswerer boxes;
    for (int time = 0; time < 3; ++time) {
        boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
            QCOMPARE(in<QLineEdit>(dialog, "lineEdit")->text(), QStringLiteral("Rezeň"));
            dialog->reject();
        });
    }
    const QPoint row = page.foods()->visualRect(page.foods()->model()->index(1, 0)).center();
    QTest::mouseClick(page.foods()->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    QTest::mouseDClick(page.foods()->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        showActive(page);
        page.foods()->setFocus();
        QTest::keyClick(page.foods(), key);
    }
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::readOnlyEditButtonOpensTheEditor()
{
    session().readOnly = true;
    FoodPage page(m_database->db());
    page.selectFood(1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) { dialog->reject(); });
    page.button("pushButtonEdit")->click();
    BOXES_DONE(boxes);
    page.on_tableViewFood_doubleClicked(page.foods()->currentIndex()); // the double click asks, the button does not
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::typeIsAdded()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogType"), [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Pridanie typu výdaja"));
        in<QLineEdit>(dialog, "lineEditName")->setText(QStringLiteral("Dezerty"));
        in<QComboBox>(dialog, "comboBoxPos")->setCurrentIndex(0);
        in<QPushButton>(dialog, "pushButtonSave")->click();
    });
    page.button("pushButtonType")->click();
    BOXES_DONE(boxes);
    QCOMPARE(columnTexts(*page.types()->model(), 1), (QStringList{"Dezerty", "Polievky", "Hlavné jedlá"}));
}

void TestFoodWidgetActions::typeIsEditedByDoubleClickAndEnter()
{
    FoodPage page(m_database->db());
    showActive(page);
    BoxAnswerer boxes;
    for (int time = 0; time < 2; ++time) {
        boxes.expectDialog(QStringLiteral("DialogType"), [time](QDialog *dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Úprava typu výdaja"));
            in<QLineEdit>(dialog, "lineEditName")->setText(QStringLiteral("Typ %1").arg(time));
            in<QPushButton>(dialog, "pushButtonSave")->click();
        });
    }
    const QPoint row = page.types()->visualRect(page.types()->model()->index(1, 1)).center();
    QTest::mouseClick(page.types()->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    QTest::mouseDClick(page.types()->viewport(), Qt::LeftButton, Qt::NoModifier, row);
    QCOMPARE(columnTexts(*page.types()->model(), 1), (QStringList{"Polievky", "Typ 0"}));
    QCOMPARE(page.types()->currentIndex().row(), 1); // list and filter agree after the reload
    QCOMPARE(page.names(), (QStringList{"Rezeň", "Guláš"}));
    showActive(page);
    page.types()->setFocus();
    QTest::keyClick(page.types(), Qt::Key_Return);
    BOXES_DONE(boxes);
    QCOMPARE(columnTexts(*page.types()->model(), 1), (QStringList{"Polievky", "Typ 1"}));
}

void TestFoodWidgetActions::deletedTypeGivesWayToAllTypes()
{
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name, position) VALUES (3, 'Dezerty', 3)"));
    FoodPage page(m_database->db());
    page.selectType(2);
    QCOMPARE(page.names(), QStringList());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogType"),
                       [](QDialog *dialog) { in<QPushButton>(dialog, "pushButtonDelete")->click(); });
    boxes.expectBox(QStringLiteral("Zmazanie typu výdaja!"), QStringLiteral("Naozaj chcete zmazať typ výdaja Dezerty?"),
                    QMessageBox::Ok);
    page.on_tableViewType_doubleClicked(page.types()->currentIndex());
    BOXES_DONE(boxes);
    QCOMPARE(page.types()->model()->rowCount(), 2);
    QCOMPARE(page.names().size(), 3);
}

void TestFoodWidgetActions::alergensOpen()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogAlergen"), [this](QDialog *dialog) {
        m_database->exec(QStringLiteral("UPDATE via_alergens SET title='Lepok a iné' WHERE alergenID=1"));
        dialog->reject();
    });
    page.button("pushButtonAlergens")->click();
    BOXES_DONE(boxes);
    QVERIFY(page.description().contains(QStringLiteral("- Lepok a iné\n"))); // the preview is made anew
}

void TestFoodWidgetActions::alergensOpenInReadOnly()
{
    session().readOnly = true;
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogAlergen"), [](QDialog *dialog) {
        QVERIFY(!in<QPushButton>(dialog, "pushButtonPridat")->isEnabled());
        dialog->reject();
    });
    page.button("pushButtonAlergens")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::exportAsksAndTells()
{
    const FoodPage page(m_database->db());
    const QString fileName = m_folder->filePath(QStringLiteral("moje jedlá.csv"));
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre export"), QFileDialog::AcceptSave, fileName);
    boxes.expectBox(QStringLiteral("Strava - Export jedál"),
                    QStringLiteral("Export prebehol úspešne. \n Počet zapísaných záznamov: 3"), QMessageBox::Ok,
                    [](const QMessageBox *box) { QCOMPARE(box->icon(), QMessageBox::Information); });
    const LogCatcher log;
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.lines(QtDebugMsg),
             (QStringList{"csv in progress", QLatin1Char('"') + fileName + QLatin1Char('"'),
                          "Export úspešný, počet exportovaných záznamov:  3"}));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.at(0), QByteArray("id,dodavatel,typ,nazov,popis,cena,alergeny,datum,vydaj,stredisko"));
    QCOMPARE(lines.at(2),
             QByteArray("\"2\",\"Jedáleň\",\"Hlavné jedlá\",\"Rezeň\",\"zemiakový šalát\",\"4.25\",\"3\""));
}

void TestFoodWidgetActions::cancelledExportFails()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre export"), QFileDialog::AcceptSave, QString());
    boxes.expectBox(QStringLiteral("Strava - Export jedál"), QStringLiteral("Export sa nepodarilo uložiť do súboru!"),
                    QMessageBox::Ok, [](const QMessageBox *box) { QCOMPARE(box->icon(), QMessageBox::Critical); });
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::exportToAFolderThatCannotBeWritten()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre export"), QFileDialog::AcceptSave,
               QStringLiteral("/proc/jedla.csv")); // closed to the super-user too
    boxes.expectBox(QStringLiteral("Strava - Export jedál"), QStringLiteral("Export sa nepodarilo uložiť do súboru!"));
    page.button("pushButton")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::exportOfALostConnection()
{
    const TestDatabase lost(QStringLiteral("lost"));
    const FoodPage page(lost.db());
    m_database->exec(QStringLiteral("RENAME TABLE via_foods TO away"));
    const QString error =
        QStringLiteral("Table '%1.via_foods' doesn't exist QMYSQL: Unable to execute query").arg(m_database->name());
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Export jedál"),
                    QStringLiteral("Zlyhalo načítanie dát z databázy!\n\nSQL chyba: ") + error, QMessageBox::Ok,
                    [](const QMessageBox *box) { QCOMPARE(box->icon(), QMessageBox::Critical); });
    const LogCatcher log;
    page.button("pushButton")->click();
    m_database->exec(QStringLiteral("RENAME TABLE away TO via_foods"));
    BOXES_DONE(boxes);
    QCOMPARE(log.critical(), QStringList{QStringLiteral("foodwidget::export jedal - SQl ERROR: ") + error});
}

void TestFoodWidgetActions::importAsksAndTells()
{
    const FoodPage page(m_database->db());
    const QString fileName = writeFile("header\n,Bistro,Polievky,Boršč,,\"1,5\",\n,Bistro,Polievky,Rezeň,,2,\n");
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen, fileName);
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(1, 1), QMessageBox::Ok, [](const QMessageBox *box) {
        QCOMPARE(box->icon(), QMessageBox::Information);
        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
    });
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(page.names(), (QStringList{"Polievka dňa", "Rezeň", "Guláš", "Boršč"}));
}

void TestFoodWidgetActions::filesWithoutRecords_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("header") << QByteArray("id,dodavatel,typ\n");
    QTest::newRow("unclosed quote") << QByteArray("id,\"dodavatel\n,Bistro,Polievky,Boršč,,1,\n");
}

void TestFoodWidgetActions::filesWithoutRecords()
{
    QFETCH(QByteArray, bytes);
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen, writeFile(bytes));
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(0, 0));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::unreadableFileTellsZeros()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen,
               QStringLiteral("/proc/self/mem")); // it opens, and every read fails
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(0, 0));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::cancelledImportTellsZeros()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen, QString());
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(0, 0));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::importLeavesThePreview()
{
    const FoodPage page(m_database->db());
    page.selectFood(1);
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen,
               writeFile("header\n,Bistro,Polievky,Rezeň,nový popis,2,\n"));
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(0, 1));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.description(), QStringLiteral("zemiakový šalát\n\nAlergény: \n- Vajcia"));
}

void TestFoodWidgetActions::importTakesSuppliersAsTheyAreNow()
{
    const FoodPage page(m_database->db());
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (9, 'Nový')"));
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name, position) VALUES (9, 'Nový', 3)"));
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen,
               writeFile("header\n,Nový,Polievky,A,,1,\n,Nový,Nový,B,,1,\n"));
    boxes.expectBox(QStringLiteral("Strava - Import jedál"),
                    QStringLiteral("Import dokončený. \n\nPočet zapísaných jedál: 1 \nPočet duplikátov jedál: 0 "
                                   "\nNepodarilo sa importovať 1 jedál. \n \nPočet zapísaných položiek menu: 0 \nPočet "
                                   "duplikátov položiek menu: 0 \n \nV riadku 3 je nesprávne vyplnený typ jedla.\n"));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page.names().constLast(), QStringLiteral("A"));
}

/// The file is opened as text, which takes every carriage return away.
void TestFoodWidgetActions::carriageReturnsAreNoPartOfAField()
{
    const FoodPage page(m_database->db());
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen,
               writeFile("header\r\n,Bistro,Polievky,A,\"prvý\r\ndruhý\",1,,,,\r\n,Bistro,Polievky,B,,2,x\r\n"));
    boxes.expectBox(QStringLiteral("Strava - Import jedál"), told(2, 0));
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_database->rows(QStringLiteral("SELECT description FROM via_foods WHERE foodID>3 ORDER BY foodID")),
             (QStringList{"prvý\ndruhý", ""}));
}

void TestFoodWidgetActions::longSummaryScrolls()
{
    const FoodPage page(m_database->db());
    QByteArray records("header\n");
    QString faults;
    for (int row = 2; row < 1002; ++row) {
        records += ",Bistro,?,A,,1,\n";
        faults += QStringLiteral("V riadku %1 je nesprávne vyplnený typ jedla.\n").arg(row);
    }
    BoxAnswerer boxes;
    answerFile(boxes, QStringLiteral("Súbor CSV pre import"), QFileDialog::AcceptOpen, writeFile(records));
    boxes.expectBox(
        QStringLiteral("Strava - Import jedál"),
        QStringLiteral("Import dokončený. \n\nPočet zapísaných jedál: 0 \nPočet duplikátov jedál: 0 "
                       "\nNepodarilo sa importovať 1000 jedál. \n \nPočet zapísaných položiek menu: 0 \nPočet "
                       "duplikátov položiek menu: 0 \n \n")
            + faults,
        QMessageBox::Ok, [](const QMessageBox *box) { QVERIFY(box->height() < 600); });
    page.button("pushButton_2")->click();
    BOXES_DONE(boxes);
}

void TestFoodWidgetActions::readCSVRowReadsARecord()
{
    FoodPage page(m_database->db());
    QString text = QStringLiteral("a,\"b\nc\"\n");
    QTextStream in(&text);
    QStringList row;
    QVERIFY(page.readCSVRow(in, &row));
    QCOMPARE(row, (QStringList{"a", "b\nc"}));
    QVERIFY(!page.readCSVRow(in, &row));
}

void TestFoodWidgetActions::pageDiesWhileADialogIsOpen()
{
    for (const char *button : {"pushButtonAlergens", "pushButtonType", "pushButtonFood", "pushButtonEdit"}) {
        auto *page = new FoodPage(m_database->db());
        page->selectFood(0);
        QTimer::singleShot(50, page, [page] {
            QVERIFY(QApplication::activeModalWidget());
            delete page;
        });
        page->button(button)->click();
        QVERIFY(!QApplication::activeModalWidget());
    }
}

QTEST_MAIN(TestFoodWidgetActions)
#include "tst_foodwidgetactions.moc"
