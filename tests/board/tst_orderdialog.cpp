#include "board/orderentry.h"
#include "board/totaldelegate.h"
#include "support/boxanswerer.h"
#include "support/metamethods.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>

#include <memory>

/// The order dialog up to the save.
class TestOrderDialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DayData>(*m_database); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void metaObject();
    void form();
    void oldDateIsWarnedOf_data();
    void oldDateIsWarnedOf();
    void title();
    void showsWhatIsOpenForOrders();
    void branchHasItsOwnMenu();
    void closedForGoodOffersNothing();
    void onlyQuantitiesCanBeReached();
    void headingsAreBold();
    void informativeItems();
    void sumsFollowEveryChange_data();
    void sumsFollowEveryChange();
    void okWaitsForAChange();
    void recalculationTellsTheViewLittle();
    void manyChangesStayQuick();
    void squareButtonColumns();
    void buttonsOfTheGrid();
    void modelKeepsItsContract();
    void worksByKeyboard();
    void enterOutsideOfButtonsClosesNothing();
    void tabLeadsThroughTheForm();
    void canBeClosedWhileTyping();
    void longFormStartsAtItsTop();
    void hostileNamesStandAsTyped();
    void closedDatabase();
    void lostConnection();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestOrderDialog::metaObject()
{
    QCOMPARE(metaMethods(OrderDialog::staticMetaObject),
             (QStringList{"slot void recalculate()", "slot void on_pushButtonCancel_clicked()",
                          "slot void on_pushButtonOk_clicked()"}));
}

void TestOrderDialog::form()
{
    const OrderEntry entry(m_database->db());
    QCOMPARE(entry.size(), QSize(516, 648));
    QCOMPARE(entry.styleSheet(), QStringLiteral("border: 1px solid #B3D8FF; border-radius: 2px; background: #E6F2FF;"));
    QCOMPARE(entry.ok()->text(), QStringLiteral("Potvrdiť"));
    QCOMPARE(entry.cancel()->text(), QStringLiteral("Zrušiť"));
    QVERIFY(!entry.ok()->isEnabled());
    QCOMPARE(entry.warning()->property("whitePanel"), QVariant(true));
    QCOMPARE(entry.warning()->textFormat(), Qt::RichText);
    QCOMPARE(entry.warning()->alignment(), Qt::AlignCenter);
    QCOMPARE(entry.warning()->font().pixelSize(), 22);
    QCOMPARE(entry.warning()->margin(), 5);
    QVERIFY(!entry.table()->showGrid());
    QVERIFY(entry.table()->horizontalHeader()->isHidden());
    QVERIFY(entry.table()->verticalHeader()->isHidden());
    QVERIFY(qobject_cast<TotalDelegate *>(entry.table()->itemDelegate()));
    QVERIFY(!entry.table()->accessibleName().isEmpty());
}

void TestOrderDialog::oldDateIsWarnedOf_data()
{
    QTest::addColumn<int>("days");
    QTest::addColumn<bool>("warned");
    QTest::newRow("long ago") << -400 << true;
    QTest::newRow("yesterday") << -1 << true;
    QTest::newRow("today") << 0 << false;
    QTest::newRow("tomorrow") << 1 << false;
}

void TestOrderDialog::oldDateIsWarnedOf()
{
    QFETCH(int, days);
    const QDate date = QDate::currentDate().addDays(days);
    m_data->item(21, 1, 1, 0, 3.5, 0, date);
    OrderEntry entry(m_database->db(), date);
    QTEST(entry.warning()->isVisibleTo(&entry), "warned");
    QCOMPARE(entry.warning()->text(),
             QStringLiteral("<font color= #cc0001>Pozor, snažíte sa vytvoriť objednávku na starý dátum!</font>"));
    entry.setQuantity(21, QStringLiteral("1"));
    QVERIFY(entry.ok()->isEnabled());
}

void TestOrderDialog::title()
{
    QCOMPARE(OrderEntry(m_database->db()).windowTitle(),
             QStringLiteral("Objednávka - [77] Nováková Žofia - 14. 5. 2031 - Obed"));
    m_data->exec("UPDATE people SET name = '%2 <b>\\'\"', surname = '%1%3'");
    QCOMPARE(OrderEntry(m_database->db()).windowTitle(),
             QStringLiteral("Objednávka - [77] %1%3 %2 <b>'\" - 14. 5. 2031 - Obed"));
    QCOMPARE(OrderEntry(m_database->db(), DayData::day(), 0, 99).windowTitle(),
             QStringLiteral("Objednávka -  - 14. 5. 2031 - Obed"));
}

void TestOrderDialog::showsWhatIsOpenForOrders()
{
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    m_data->item(22, 3, 0);
    m_data->item(23, 4, 2);
    m_data->item(24, 5, 1);
    m_data->order(21, 7, 2);
    m_data->order(24, 8, 9);
    const OrderEntry entry(m_database->db());
    QCOMPARE(columnTexts(*entry.model(), 0),
             (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 21", "DOD jedlo 24", "Celkom"}));
    QCOMPARE(columnTexts(*entry.model(), 2), (QStringList{"0", "", "2", "2", "", "2"}));
}

void TestOrderDialog::branchHasItsOwnMenu()
{
    m_data->item(21, 1, 1);
    m_data->item(22, 1, 1, 0, 3.5, 5);
    QCOMPARE(columnTexts(*OrderEntry(m_database->db(), DayData::day(), 5).model(), 0),
             (QStringList{" Hlavné jedlá", "DOD jedlo 22", "Celkom"}));
}

void TestOrderDialog::closedForGoodOffersNothing()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    m_data->item(12, 1, 2);
    m_data->item(21, 2, 2);
    m_data->order(21, 7, 2);
    const OrderEntry entry(m_database->db());
    QCOMPARE(columnTexts(*entry.model(), 0), QStringList{"Celkom"});
}

void TestOrderDialog::onlyQuantitiesCanBeReached()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    const OrderEntry entry(m_database->db());
    for (int row = 0; row < entry.model()->rowCount(); ++row) {
        for (int column = 0; column < entry.model()->columnCount(); ++column) {
            const QModelIndex index = entry.model()->index(row, column);
            const bool open = index == entry.cell(21);
            QCOMPARE(index.flags().testFlag(Qt::ItemIsEnabled), open);
            QCOMPARE(index.data(Qt::BackgroundRole).isValid(), open);
        }
    }
    const Qt::ItemFlags flags = entry.cell(21).flags();
    QVERIFY(flags.testFlag(Qt::ItemIsEditable));
    QVERIFY(flags.testFlag(Qt::ItemIsSelectable));
    QCOMPARE(entry.cell(21).data(Qt::BackgroundRole).value<QBrush>().color(), QColor(Qt::white));
}

void TestOrderDialog::headingsAreBold()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    const OrderEntry entry(m_database->db());
    QStringList bold;
    for (int row = 0; row < entry.model()->rowCount(); ++row) {
        const QVariant font = entry.model()->index(row, 0).data(Qt::FontRole);
        if (font.isValid() && font.value<QFont>().weight() == 75)
            bold.append(entry.text(row, 0));
    }
    QCOMPARE(bold, (QStringList{" Polievky", " Hlavné jedlá", "Celkom"}));
}

void TestOrderDialog::informativeItems()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QCOMPARE(entry.cell(12, OrderEntry::MinusColumn).data().toString(), QStringLiteral("0"));
    QVERIFY(!entry.cell(12).flags().testFlag(Qt::ItemIsEditable));
    entry.click(entry.cell(12, OrderEntry::PlusColumn));
    entry.click(entry.cell(12, OrderEntry::PlusColumn));
    QCOMPARE(entry.cell(12).data().toString(), QStringLiteral("2"));
    entry.click(entry.cell(12, OrderEntry::MinusColumn));
    QCOMPARE(entry.cell(12).data().toString(), QStringLiteral("1"));
    QVERIFY(entry.ok()->isEnabled());
    QTest::mouseDClick(entry.table()->viewport(), Qt::LeftButton, Qt::NoModifier,
                       entry.table()->visualRect(entry.cell(12)).center());
    QVERIFY(!entry.table()->findChild<QLineEdit *>());
}

void TestOrderDialog::sumsFollowEveryChange_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("symbol");
    QTest::newRow("Slovak") << "sk_SK" << QLocale(QStringLiteral("sk_SK")).currencySymbol();
    QTest::newRow("American") << "en_US"
                              << "$";
    QTest::newRow("C") << "C" << QLocale::c().currencySymbol();
}

void TestOrderDialog::sumsFollowEveryChange()
{
    QFETCH(QString, locale);
    QFETCH(QString, symbol);
    QLocale::setDefault(QLocale(locale));
    m_data->item(12, 1, 1, 0, 1.25);
    m_data->item(21, 2, 1, 0, 3.5);
    m_data->item(22, 3, 1, 0, 4);
    m_data->order(21, 7, 2);
    const OrderEntry entry(m_database->db());
    const auto withSymbol = [&symbol](QStringList rows) {
        return rows.replaceInStrings(QStringLiteral("EUR"), symbol);
    };
    QCOMPARE(entry.rows(),
             withSymbol({" Polievky: 0, 0.00 EUR", "DOD jedlo 12: , 0.00 EUR", " Hlavné jedlá: 2, 7.00 EUR",
                         "DOD jedlo 21: 2, 7.00 EUR", "DOD jedlo 22: , 0.00 EUR", "Celkom: 2, 7.00 EUR"}));
    entry.setQuantity(12, QStringLiteral("3"));
    QCOMPARE(entry.rows(),
             withSymbol({" Polievky: 3, 3.75 EUR", "DOD jedlo 12: 3, 3.75 EUR", " Hlavné jedlá: 2, 7.00 EUR",
                         "DOD jedlo 21: 2, 7.00 EUR", "DOD jedlo 22: , 0.00 EUR", "Celkom: 5, 10.75 EUR"}));
    entry.setQuantity(22, QStringLiteral("1"));
    entry.setQuantity(21, QStringLiteral("0"));
    QCOMPARE(entry.rows(),
             withSymbol({" Polievky: 3, 3.75 EUR", "DOD jedlo 12: 3, 3.75 EUR", " Hlavné jedlá: 1, 4.00 EUR",
                         "DOD jedlo 21: 0, 0.00 EUR", "DOD jedlo 22: 1, 4.00 EUR", "Celkom: 4, 7.75 EUR"}));
}

void TestOrderDialog::okWaitsForAChange()
{
    m_data->item(21, 1, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QVERIFY(!entry.ok()->isEnabled());
    entry.click(entry.cell(21, OrderEntry::MinusColumn)); // 0 stays 0
    QVERIFY(!entry.ok()->isEnabled());
    entry.click(entry.cell(21, OrderEntry::PlusColumn));
    QVERIFY(entry.ok()->isEnabled());
}

void TestOrderDialog::recalculationTellsTheViewLittle()
{
    for (const int food : {11, 12, 13, 21, 22, 23, 24, 31})
        m_data->item(food, food, 1);
    const OrderEntry entry(m_database->db());
    entry.setQuantity(31, QStringLiteral("1"));
    QSignalSpy changes(entry.model(), &QAbstractItemModel::dataChanged);
    QVERIFY(changes.isValid());
    entry.setQuantity(21, QStringLiteral("1"));
    QCOMPARE(changes.count(), 6); // the quantity, its money, both sums of its heading and of the form
}

void TestOrderDialog::manyChangesStayQuick()
{
    m_data->item(21, 1, 1);
    const OrderEntry entry(m_database->db());
    for (int quantity = 1; quantity <= 60; ++quantity)
        entry.setQuantity(21, QString::number(quantity));
    QCOMPARE(entry.rows().constLast(), QStringLiteral("Celkom: 60, 210.00 ") + QLocale().currencySymbol());
}

void TestOrderDialog::squareButtonColumns()
{
    m_data->item(21, 1, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QCOMPARE(entry.table()->columnWidth(OrderEntry::MinusColumn), entry.table()->rowHeight(0));
    QCOMPARE(entry.table()->columnWidth(OrderEntry::PlusColumn), entry.table()->rowHeight(0));
    QCOMPARE(entry.table()->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(entry.table()->horizontalHeader()->length(), entry.table()->horizontalHeader()->viewport()->width());
}

void TestOrderDialog::buttonsOfTheGrid()
{
    m_data->item(21, 1, 1);
    m_data->order(21, 7, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    entry.click(entry.cell(21, OrderEntry::PlusColumn));
    QCOMPARE(entry.cell(21).data().toString(), QStringLiteral("2"));
    for (int click = 0; click < 4; ++click)
        entry.click(entry.cell(21, OrderEntry::MinusColumn));
    QCOMPARE(entry.cell(21).data().toString(), QStringLiteral("0"));
    for (const char *name : {" Hlavné jedlá", "Celkom"}) {
        const QStringList before = entry.rows();
        entry.click(entry.cell(QString::fromUtf8(name), OrderEntry::PlusColumn));
        QCOMPARE(entry.rows(), before);
    }
}

void TestOrderDialog::modelKeepsItsContract()
{
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    const OrderEntry entry(m_database->db());
    const QAbstractItemModelTester tester(entry.model());
    entry.setQuantity(21, QStringLiteral("3"));
    QCOMPARE(entry.text(entry.model()->rowCount() - 1, OrderEntry::QuantityColumn), QStringLiteral("3"));
}

void TestOrderDialog::worksByKeyboard()
{
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QApplication::setActiveWindow(&entry);
    QVERIFY(QTest::qWaitForWindowActive(&entry));
    QCOMPARE(entry.focusWidget(), entry.table());
    QCOMPARE(entry.table()->currentIndex(), entry.cell(12));
    QTest::keyClick(entry.table(), Qt::Key_Down);
    QCOMPARE(entry.table()->currentIndex(), entry.cell(21));
    QTest::keyClick(entry.table(), Qt::Key_4);
    QTest::keyClick(entry.table()->findChild<QLineEdit *>(), Qt::Key_Return);
    QTRY_COMPARE(entry.cell(21).data().toString(), QStringLiteral("4"));
    QVERIFY(entry.isVisible());
    entry.ok()->setFocus();
    QTest::keyClick(entry.ok(), Qt::Key_Return);
    QCOMPARE(entry.result(), 1);
    QCOMPARE(m_data->orders(), QStringList{"121 7 4"});
}

void TestOrderDialog::enterOutsideOfButtonsClosesNothing()
{
    m_data->item(21, 1, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QApplication::setActiveWindow(&entry);
    QVERIFY(QTest::qWaitForWindowActive(&entry));
    entry.setQuantity(21, QStringLiteral("2"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(entry.table(), key);
        QVERIFY(entry.isVisible());
    }
    QVERIFY(m_data->orders().isEmpty());
    entry.cancel()->setFocus();
    QTest::keyClick(entry.cancel(), Qt::Key_Space);
    QVERIFY(!entry.isVisible());
    QCOMPARE(entry.result(), 0);
    QVERIFY(m_data->orders().isEmpty());
}

void TestOrderDialog::tabLeadsThroughTheForm()
{
    m_data->item(21, 1, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QApplication::setActiveWindow(&entry);
    QVERIFY(QTest::qWaitForWindowActive(&entry));
    entry.setQuantity(21, QStringLiteral("2"));
    QStringList names;
    for (int step = 0; step < 3; ++step) {
        names.append(entry.focusWidget()->objectName());
        QTest::keyClick(entry.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(names, (QStringList{"tableViewMenu", "pushButtonOk", "pushButtonCancel"}));
    QCOMPARE(entry.focusWidget(), entry.table());
}

void TestOrderDialog::canBeClosedWhileTyping()
{
    m_data->item(21, 1, 1);
    auto entry = std::make_unique<OrderEntry>(m_database->db());
    entry->show();
    QApplication::setActiveWindow(entry.get());
    QVERIFY(QTest::qWaitForWindowActive(entry.get()));
    QTest::keyClick(entry->table(), Qt::Key_4);
    QVERIFY(entry->table()->findChild<QLineEdit *>());
    entry.reset();
    QVERIFY(m_data->orders().isEmpty());
}

void TestOrderDialog::longFormStartsAtItsTop()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    for (int food = 200; food < 240; ++food) {
        m_database->exec(QStringLiteral("INSERT INTO via_foods (foodID, typeID, name) VALUES (%1, 91, 'x')").arg(food));
        m_data->item(food, food, 1);
    }
    m_data->item(21, 300, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    QTest::qWait(5);
    QCOMPARE(entry.table()->currentIndex(), entry.cell(21));
    QCOMPARE(entry.table()->rowAt(0), 0);
}

void TestOrderDialog::hostileNamesStandAsTyped()
{
    m_data->item(21, 1, 1);
    const QStringList names = hostileNames();
    for (const QString &name : names) {
        m_data->rename(21, name);
        OrderEntry entry(m_database->db());
        entry.show();
        const QModelIndex cell = entry.cell(QStringLiteral("DOD ") + name, OrderEntry::NameColumn);
        QVERIFY(cell.isValid());
        QCOMPARE(cell.data(Qt::ToolTipRole).toString(),
                 QStringLiteral("<span>DOD ") + name.toHtmlEscaped() + QStringLiteral("</span>"));
        QCOMPARE(entry.size(), QSize(516, 648));
    }
}

void TestOrderDialog::closedDatabase()
{
    BoxAnswerer boxes;
    OrderEntry entry(m_data->closedConnection(), QDate::currentDate().addDays(-1));
    QCOMPARE(entry.windowTitle(), QStringLiteral("Tvorba/úprava objednávky"));
    QVERIFY(entry.warning()->isVisibleTo(&entry));
    QVERIFY(!entry.model());
    entry.show();
    entry.recalculate();
    QVERIFY(!entry.ok()->isEnabled());
    entry.cancel()->click();
    QCOMPARE(entry.result(), 0);
    BOXES_DONE(boxes);
}

void TestOrderDialog::lostConnection()
{
    const TestDatabase other(QStringLiteral("lost"));
    const DayData data(other);
    data.item(21, 1, 1);
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať zamestnanca!"));
    OrderEntry entry(other.db());
    entry.show();
    QCOMPARE(entry.model()->rowCount(), 0);
    entry.recalculate();
    entry.ok()->click();
    BOXES_DONE(boxes);
}

QTEST_MAIN(TestOrderDialog)
#include "tst_orderdialog.moc"
