#include "program.h"
#include "support/boxanswerer.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>

/// A firm that starts from an empty database sets up its suppliers, slots and catalogue through the built plug-in,
/// exchanges the catalogue by file, and plans a meal with a food added on the spot.
class TestCataloguePlugin : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup();

    void firmIsSetUpFromNothing();
    void readOnlySessionsLookOnly();
    void closedDatabaseLeavesEmptyPages();

private:
    void addSupplier(const QWidget *page);
    void setUpDay(const QWidget *page);
    void addTypeAndFood(const QWidget *page);
    void exchangeByFile(const QWidget *page);
    void planWithANewFood(const QWidget *board);
    void answerFile(const QString &fileName, QDialogButtonBox::StandardButton button);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<BoxAnswerer> m_boxes;
    QTemporaryDir m_folder;
};

namespace {

/// Types a text over what the line holds. Test keys know no Slovak letters; inserting counts as typing all the same.
void type(const QWidget *parent, const char *name, const QString &text)
{
    auto *line = child<QLineEdit>(parent, name);
    line->selectAll();
    line->insert(text);
}

void select(const QWidget *parent, const char *view, int row, int column)
{
    auto *list = child<QAbstractItemView>(parent, view);
    list->setCurrentIndex(list->model()->index(row, column));
}

} // namespace

void TestCataloguePlugin::init()
{
    QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
    m_database = std::make_unique<TestDatabase>();
    m_database->exec(QStringLiteral("INSERT INTO branches VALUES (1, 'Sever')"));
    m_boxes = std::make_unique<BoxAnswerer>();
}

void TestCataloguePlugin::cleanup()
{
    BOXES_DONE(*m_boxes);
    m_boxes.reset();
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestCataloguePlugin::addSupplier(const QWidget *page)
{
    m_boxes->expectDialog(QStringLiteral("DialogSupplier"), [this](QDialog *dialog) {
        QVERIFY(!child<QPushButton>(dialog, "pushButtonSave")->isEnabled());
        type(dialog, "lineEditName", QStringLiteral("Kuchyňa"));
        type(dialog, "lineEditShortcut", QStringLiteral("KU"));
        m_boxes->expectDialog(QStringLiteral("QInputDialog"), [](QDialog *question) {
            auto *input = qobject_cast<QInputDialog *>(question);
            QCOMPARE(input->windowTitle(), QStringLiteral("Pridanie emailu dodávateľa"));
            input->setTextValue(QStringLiteral("Kuchyna@firma.sk"));
            input->accept();
        });
        click(dialog, "pushButtonPridat");
        click(dialog, "pushButtonSave");
    });
    click(page, "pushButton");
    BOXES_DONE(*m_boxes);
    QCOMPARE(
        m_database->rows(QStringLiteral("SELECT name, shortcut, mail FROM via_suppliers JOIN via_suppliermails USING "
                                        "(supplierID)")),
        QStringList{QStringLiteral("Kuchyňa|KU|Kuchyna@firma.sk")});
    // A click on the mark gives the supplier to the branch that is current: to all.
    auto *suppliers = child<QAbstractItemView>(page, "listViewSuppliers");
    const QRect row = suppliers->visualRect(suppliers->model()->index(0, 1));
    QTest::mouseClick(suppliers->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(row.left() + 10, row.center().y()));
    QCOMPARE(m_database->rows(QStringLiteral("SELECT supplierID, bid FROM via_supplierbranch")), QStringList{"1|NULL"});
}

void TestCataloguePlugin::setUpDay(const QWidget *page)
{
    m_boxes->expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) {
        type(dialog, "lineEditTitle", QStringLiteral("Obed"));
        click(dialog, "pushButtonSave");
    });
    click(page, "pushButtonPridat_2");
    BOXES_DONE(*m_boxes);
    // Tomorrow is taken off the board, by keyboard; the day of the digit that loses its 2.
    const int day = QDate::currentDate().addDays(1).dayOfWeek();
    const QByteArray box = "checkBox_" + QByteArray::number(day);
    QTest::keyClick(child<QCheckBox>(page, box.constData()), Qt::Key_Space);
    QTest::keyClick(child<QSpinBox>(page, "spinBox"), Qt::Key_Down);
    QTest::keyClick(child<QCheckBox>(page, "cbOrderLimit"), Qt::Key_Space);
    QString days(7, QLatin1Char('2'));
    days[7 - day] = QLatin1Char('0');
    QCOMPARE(m_database->rows(QStringLiteral("SELECT name, position FROM via_segments")), QStringList{"Obed|1"});
    QCOMPARE(m_database->rows(QStringLiteral("SELECT name, value FROM vars ORDER BY name")),
             (QStringList{"via_activeDays|" + QString::number(days.toInt()), "via_orderLimitEnabled|1",
                          "via_shownWeeks|3"}));
}

void TestCataloguePlugin::addTypeAndFood(const QWidget *page)
{
    m_boxes->expectDialog(QStringLiteral("DialogType"), [](QDialog *dialog) {
        type(dialog, "lineEditName", QStringLiteral("Polievka"));
        click(dialog, "pushButtonSave");
    });
    click(page, "pushButtonType");
    m_boxes->expectDialog(QStringLiteral("DialogAlergen"), [this](QDialog *dialog) {
        m_boxes->expectDialog(QStringLiteral("DialogAddAlergen"), [](QDialog *editor) {
            type(editor, "lineEditTitle", QStringLiteral("Lepok"));
            click(editor, "pushButtonSave");
        });
        click(dialog, "pushButtonPridat");
        dialog->close();
    });
    click(page, "pushButtonAlergens");
    m_boxes->expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
        type(dialog, "lineEdit", QStringLiteral("Šošovicová polievka"));
        type(dialog, "lineEditPrice", QStringLiteral("1.25"));
        child<QPlainTextEdit>(dialog, "plainTextEditDesc")->setPlainText(QStringLiteral("na kyslo,\nso smotanou"));
        auto *alergens = child<QAbstractItemView>(dialog, "listViewAlergens");
        alergens->model()->setData(alergens->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        click(dialog, "pushButtonSave");
    });
    click(page, "pushButtonFood");
    BOXES_DONE(*m_boxes);
    QCOMPARE(m_database->rows(QStringLiteral("SELECT name, typeID, supplierID, price FROM via_foods")),
             QStringList{QStringLiteral("Šošovicová polievka|1|1|1.25")});
    QCOMPARE(m_database->rows(QStringLiteral("SELECT * FROM via_foodalergen")), QStringList{"1|1"});
    QCOMPARE(child<QLabel>(page, "labelTitle")->text(), QStringLiteral("Šošovicová polievka"));
    QCOMPARE(child<QPlainTextEdit>(page, "plainTextEditDescription")->toPlainText(),
             QStringLiteral("na kyslo,\nso smotanou\n\nAlergény: \n- Lepok"));
}

void TestCataloguePlugin::answerFile(const QString &fileName, QDialogButtonBox::StandardButton button)
{
    m_boxes->expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
        child<QLineEdit>(dialog, "fileNameEdit")->setText(fileName);
        dialog->findChild<QDialogButtonBox *>()->button(button)->click();
    });
}

void TestCataloguePlugin::exchangeByFile(const QWidget *page)
{
    const QString fileName = m_folder.filePath(QStringLiteral("jedla.csv"));
    answerFile(fileName, QDialogButtonBox::Save);
    m_boxes->expectBox(QStringLiteral("Strava - Export jedál"),
                       QStringLiteral("Export prebehol úspešne. \n Počet zapísaných záznamov: 1"));
    click(page, "pushButton");
    BOXES_DONE(*m_boxes);

    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.readAll(),
             QByteArray("id,dodavatel,typ,nazov,popis,cena,alergeny,datum,vydaj,stredisko\n"
                        "\"1\",\"Kuchyňa\",\"Polievka\",\"Šošovicová polievka\",\"na kyslo,\nso "
                        "smotanou\",\"1.25\",\"1\"\n"));
    file.write(",Kuchyňa,Polievka,Slepačí vývar,,\"1,90\",\n,Niekto,Polievka,Nič,,1,\n");
    file.close();
    select(page, "tableViewFood", 0, 0);
    m_boxes->expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) { click(dialog, "pushButtonDelete"); });
    m_boxes->expectBox(QStringLiteral("Zmazanie jedla!"),
                       QStringLiteral("Naozaj chcete zmazať jedlo Polievka - Šošovicová polievka?"), QMessageBox::Ok);
    click(page, "pushButtonEdit");
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_foods")).toInt(), 0);

    answerFile(fileName, QDialogButtonBox::Open);
    m_boxes->expectBox(
        QStringLiteral("Strava - Import jedál"),
        QStringLiteral("Import dokončený. \n\nPočet zapísaných jedál: 2 \nPočet duplikátov jedál: 0 "
                       "\nNepodarilo sa importovať 1 jedál. \n \nPočet zapísaných položiek menu: 0 \nPočet "
                       "duplikátov položiek menu: 0 \n \nV riadku 4 je nesprávne vyplnený dodávateľ.\n"));
    click(page, "pushButton_2");
    BOXES_DONE(*m_boxes);
    QCOMPARE(m_database->rows(QStringLiteral("SELECT name, description, price FROM via_foods ORDER BY foodID")),
             (QStringList{"Šošovicová polievka|na kyslo,\nso smotanou|1.25", "Slepačí vývar||1.9"}));
    QCOMPARE(columnTexts(*child<QAbstractItemView>(page, "tableViewFood")->model(), 0).size(), 2);
}

void TestCataloguePlugin::planWithANewFood(const QWidget *board)
{
    m_boxes->expectDialog(QStringLiteral("DialogMenu"), [this](QDialog *editor) {
        type(editor, "lineEditFilter", QStringLiteral("boršč"));
        QCOMPARE(child<QLabel>(editor, "labelAddFood")->text(),
                 QStringLiteral("Žiadne jedlo v databáze neobsahuje 'boršč'"));
        m_boxes->expectDialog(QStringLiteral("DialogFood"), [](QDialog *dialog) {
            type(dialog, "lineEdit", QStringLiteral("Boršč"));
            click(dialog, "pushButtonSave");
        });
        click(editor, "pushButtonAddFood");
        QCOMPARE(columnTexts(*child<QAbstractItemView>(editor, "listViewFood")->model(), 0), QStringList{"Boršč"});
        select(editor, "listViewFood", 0, 0);
        click(editor, "toolButtonR");
        click(editor, "pushButton");
    });
    click(board, "butMenuSwitch");
    click(card(board, 0, QDate::currentDate()), "toolButEdit");
    BOXES_DONE(*m_boxes);
    QCOMPARE(
        m_database->rows(QStringLiteral("SELECT f.name, o.date FROM via_orderables o JOIN via_foods f USING (foodID) "
                                        "WHERE o.locked=0")),
        QStringList{QStringLiteral("Boršč|") + QDate::currentDate().toString(Qt::ISODate)});
}

void TestCataloguePlugin::firmIsSetUpFromNothing()
{
    Program program(m_database->db());
    addSupplier(program.open(QStringLiteral("Dodávatelia")));
    setUpDay(program.open(QStringLiteral("Nastavenia")));
    const QWidget *foods = program.open(QStringLiteral("Jedlá"));
    addTypeAndFood(foods);
    exchangeByFile(foods);
    // The list of weeks begins with the first menu: without one it would lack the present week from Friday on.
    m_database->exec(
        QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date, locked) SELECT MAX(foodID), 1, "
                       "CURDATE() - INTERVAL 14 DAY, 1 FROM via_foods"));
    planWithANewFood(program.open(QStringLiteral("Menu")));
}

void TestCataloguePlugin::readOnlySessionsLookOnly()
{
    m_database->exec(QStringLiteral("INSERT INTO via_types (typeID, name, position) VALUES (1, 'Polievka', 1)"));
    m_database->exec(QStringLiteral("INSERT INTO via_suppliers (supplierID, name) VALUES (1, 'Kuchyňa')"));
    m_database->exec(QStringLiteral("INSERT INTO via_foods (typeID, supplierID, name) VALUES (1, 1, 'Boršč')"));
    Program program(m_database->db(), {{QStringLiteral("readOnly"), true}});
    const QWidget *foods = program.open(QStringLiteral("Jedlá"));
    for (const char *button : {"pushButtonFood", "pushButtonEdit", "pushButtonType", "pushButton_2"})
        QVERIFY2(!child<QPushButton>(foods, button)->isEnabled(), button);
    QVERIFY(child<QPushButton>(foods, "pushButton")->isEnabled());
    QVERIFY(child<QPushButton>(foods, "pushButtonAlergens")->isEnabled());
    const QWidget *suppliers = program.open(QStringLiteral("Dodávatelia"));
    for (const char *button :
         {"pushButton", "pushButtonPridat_2", "pushButtonUpravit_2", "pushButtonZmazat_2", "pushButton_3"})
        QVERIFY2(!child<QPushButton>(suppliers, button)->isEnabled(), button);
    const auto *list = child<QAbstractItemView>(suppliers, "listViewSuppliers");
    QVERIFY(!list->model()->index(0, 1).data(Qt::CheckStateRole).isValid());
    QVERIFY(program.canOpen(QStringLiteral("Menu")));
    QVERIFY(!program.canOpen(QStringLiteral("Nastavenia")));
}

void TestCataloguePlugin::closedDatabaseLeavesEmptyPages()
{
    Program program{QSqlDatabase()};
    const QWidget *foods = program.open(QStringLiteral("Jedlá"));
    QVERIFY(!foods->isEnabled());
    QCOMPARE(child<QLabel>(foods, "labelTitle")->text(), QStringLiteral("Pripojenie na databázu zlyhalo!"));
    const QWidget *suppliers = program.open(QStringLiteral("Dodávatelia"));
    QVERIFY(!child<QAbstractItemView>(suppliers, "listViewBranches")->model()
            || child<QAbstractItemView>(suppliers, "listViewBranches")->model()->rowCount() == 0);
    const QWidget *settings = program.open(QStringLiteral("Nastavenia"));
    QVERIFY(!child<QCheckBox>(settings, "checkBox_1")->isChecked());
}

QTEST_MAIN(TestCataloguePlugin)
#include "tst_catalogueplugin.moc"
