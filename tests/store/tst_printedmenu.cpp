#include "session/menucolumns.h"
#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

/// The grid of the week's printout.
class TestPrintedMenu : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }
    void cleanupTestCase() { QLocale::setDefault(QLocale::c()); }

    void wholeGrid();
    void nothingLockedNothingPrinted();
    void onlyLockedItems();
    void slotsWithoutItemsAreLeftOut();
    void sevenDaysFromTheDate();
    void branches_data();
    void branches();
    void orderWithinASlot();
    void foodWithoutSupplier();
    void symbolAndDayOfTheDefaultLocale();
    void onlyTheLastDaysFailureIsTold_data();
    void onlyTheLastDaysFailureIsTold();
    void logs();

private:
    std::unique_ptr<QStandardItemModel> load(uint bid) const
    {
        return std::unique_ptr<QStandardItemModel>(
            FoodRepository(m_database.db()).loadWeekMenu(QDate(2024, 1, 1), bid));
    }
    void addItems(const QString &values) const
    {
        m_database.exec("INSERT INTO via_orderables (foodID, bid, segmentID, date, position, price, locked) VALUES "
                        + values);
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

namespace {

/// Takes the menu items away while one day of January 2024 is read: the line that the load logs before each day's
/// statement gives the moment.
class OneDayWithoutMenu {
public:
    OneDayWithoutMenu(const TestDatabase &database, int day)
        : m_database(database)
        , m_day(QString("QDate(\"2024-01-0%1\") date,").arg(day))
    {
        s_current = this;
        m_previous = qInstallMessageHandler(listen);
    }
    ~OneDayWithoutMenu()
    {
        qInstallMessageHandler(m_previous);
        setAway(false);
    }
    Q_DISABLE_COPY(OneDayWithoutMenu)

private:
    static void listen(QtMsgType type, const QMessageLogContext &context, const QString &line)
    {
        if (line.contains(" date, bid:"))
            s_current->setAway(line.startsWith(s_current->m_day));
        s_current->m_previous(type, context, line);
    }
    void setAway(bool away)
    {
        if (away != m_away)
            m_database.exec(away ? "RENAME TABLE via_orderables TO away" : "RENAME TABLE away TO via_orderables");
        m_away = away;
    }

    static OneDayWithoutMenu *s_current;
    const TestDatabase &m_database;
    const QString m_day;
    QtMessageHandler m_previous = nullptr;
    bool m_away = false;
};

OneDayWithoutMenu *OneDayWithoutMenu::s_current = nullptr;

} // namespace

void TestPrintedMenu::init()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
    m_database.clear();
    m_database.exec(
        "INSERT INTO via_types (typeID, name, position) VALUES (10, 'Polievka', 2), (20, 'Hlavné jedlo', 1)");
    m_database.exec("INSERT INTO via_segments (segmentID, name, position) VALUES (1, 'Obed', 2), (2, 'Večera', 1)");
    m_database.exec("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Prvý', 'P')");
    m_database.exec("INSERT INTO via_foods (foodID, typeID, supplierID, name) VALUES (1, 10, 1, 'Vývar'), (2, 20, 1, "
                    "'Guláš'), (3, 20, NULL, 'Voda')");
}

void TestPrintedMenu::wholeGrid()
{
    addItems(
        "(1, NULL, 1, '2024-01-01', 1, 1.5, 1), (2, NULL, 1, '2024-01-01', 2, 5, 2), (2, NULL, 2, '2024-01-07', 1, "
        "4.555, 1)");
    const auto model = load(0);
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->parent());
    QCOMPARE(model->columnCount(), 5);
    QCOMPARE(rowTexts(*model),
             (QStringList{"Obed 1.1.2024 - pondelok||||", "|Hlavné jedlo|P Guláš||5.00 €", "|Polievka|P Vývar||1.50 €",
                          "Večera 7.1.2024 - nedeľa||||",
                          "|Hlavné jedlo|P Guláš||" + QString::number(4.555, 'f', 2) + " €"}));
}

void TestPrintedMenu::nothingLockedNothingPrinted()
{
    QCOMPARE(load(0)->rowCount(), 0);
    addItems("(1, NULL, 1, '2024-01-01', 1, 1.5, 0)");
    QCOMPARE(load(0)->rowCount(), 0);
    QCOMPARE(load(0)->columnCount(), 5);
}

void TestPrintedMenu::onlyLockedItems()
{
    addItems("(1, NULL, 1, '2024-01-01', 1, 1, 0), (2, NULL, 1, '2024-01-01', 2, 2, 1)");
    QCOMPARE(rowTexts(*load(0)), (QStringList{"Obed 1.1.2024 - pondelok||||", "|Hlavné jedlo|P Guláš||2.00 €"}));
}

void TestPrintedMenu::slotsWithoutItemsAreLeftOut()
{
    addItems("(1, NULL, 2, '2024-01-02', 1, 1, 1)");
    QCOMPARE(rowTexts(*load(0)), (QStringList{"Večera 2.1.2024 - utorok||||", "|Polievka|P Vývar||1.00 €"}));
}

void TestPrintedMenu::sevenDaysFromTheDate()
{
    for (int offset = -2; offset <= 9; ++offset) {
        addItems(QString("(1, NULL, 1, '%1', 1, 1, 1)").arg(QDate(2024, 1, 1).addDays(offset).toString(Qt::ISODate)));
    }
    QStringList headings = columnTexts(*load(0), WeekMenuColumn::Heading);
    headings.removeAll(QString());
    QCOMPARE(headings,
             (QStringList{"Obed 1.1.2024 - pondelok", "Obed 2.1.2024 - utorok", "Obed 3.1.2024 - streda",
                          "Obed 4.1.2024 - štvrtok", "Obed 5.1.2024 - piatok", "Obed 6.1.2024 - sobota",
                          "Obed 7.1.2024 - nedeľa"}));
}

void TestPrintedMenu::branches_data()
{
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QString>("prices");
    QTest::newRow("branch") << 4U << "1.00 €";
    QTest::newRow("another branch") << 5U << "2.00 €";
    QTest::newRow("all branches") << 0U << "3.00 €";
    QTest::newRow("branch without items") << 6U << "";
}

void TestPrintedMenu::branches()
{
    QFETCH(uint, bid);
    QFETCH(QString, prices);
    addItems("(1, 4, 1, '2024-01-01', 1, 1, 1), (1, 5, 1, '2024-01-01', 1, 2, 1), (1, NULL, 1, '2024-01-01', 1, 3, 1)");
    QCOMPARE(columnTexts(*load(bid), WeekMenuColumn::Price).join(QString()), prices);
}

void TestPrintedMenu::orderWithinASlot()
{
    // By the slot's key, the type's position and the item's position, which is a number here: 2 before 10.
    addItems(
        "(1, NULL, 2, '2024-01-01', 1, 6, 1), (1, NULL, 1, '2024-01-01', 10, 4, 1), (1, NULL, 1, '2024-01-01', 2, 3, "
        "1), (2, NULL, 1, '2024-01-01', 9, 2, 1), (2, NULL, 1, '2024-01-01', 1, 1, 1)");
    QCOMPARE(columnTexts(*load(0), WeekMenuColumn::Price),
             (QStringList{"", "1.00 €", "2.00 €", "3.00 €", "4.00 €", "", "6.00 €"}));
}

void TestPrintedMenu::foodWithoutSupplier()
{
    // Such a food has no name, so it is no row of a food: alone on its slot it goes with the heading.
    addItems("(3, NULL, 1, '2024-01-01', 1, 1, 1)");
    QCOMPARE(load(0)->rowCount(), 0);
    addItems("(2, NULL, 1, '2024-01-01', 2, 1, 1)");
    QCOMPARE(rowTexts(*load(0)), (QStringList{"|Hlavné jedlo|||", "|Hlavné jedlo|P Guláš||1.00 €"}));
}

void TestPrintedMenu::symbolAndDayOfTheDefaultLocale()
{
    QLocale::setDefault(QLocale(QLocale::Czech, QLocale::CzechRepublic));
    addItems("(2, NULL, 1, '2024-01-04', 1, 1, 1)");
    QCOMPARE(rowTexts(*load(0)), (QStringList{"Obed 4.1.2024 - čtvrtek||||", "|Hlavné jedlo|P Guláš||1.00 Kč"}));
}

void TestPrintedMenu::onlyTheLastDaysFailureIsTold_data()
{
    QTest::addColumn<int>("failingDay");
    QTest::addColumn<bool>("told");
    QTest::addColumn<QStringList>("prices");
    QTest::newRow("first day") << 1 << false << QStringList{"2.00 €", "7.00 €"};
    QTest::newRow("second day") << 2 << false << QStringList{"1.00 €", "7.00 €"};
    QTest::newRow("last day") << 7 << true << QStringList{"1.00 €", "2.00 €"};
}

void TestPrintedMenu::onlyTheLastDaysFailureIsTold()
{
    QFETCH(int, failingDay);
    QFETCH(bool, told);
    QFETCH(QStringList, prices);
    addItems(
        "(2, NULL, 1, '2024-01-01', 1, 1, 1), (2, NULL, 1, '2024-01-02', 1, 2, 1), (2, NULL, 1, '2024-01-07', 1, 7, "
        "1)");
    if (told)
        m_boxes.expectBox("Chyba databázy", "Nepodarilo sa načítať menu!");
    QStringList shown;
    QStringList critical;
    {
        const LogCatcher log;
        const OneDayWithoutMenu outage(m_database, failingDay);
        shown = columnTexts(*load(0), WeekMenuColumn::Price);
        critical = log.critical();
    }
    shown.removeAll(QString());
    QCOMPARE(shown, prices);
    QCOMPARE(critical.size(), told ? 1 : 0);
    QVERIFY(!told || critical.at(0).startsWith("FoodRepository(loadWeekMenu) - SQL ERROR: "));
}

void TestPrintedMenu::logs()
{
    LogCatcher log;
    load(4);
    QStringList lines;
    for (int day = 1; day <= 7; ++day)
        lines.append(QString("QDate(\"2024-01-0%1\") date, bid: 4").arg(day));
    QCOMPARE(log.lines(), lines);
}

QTEST_MAIN(TestPrintedMenu)
#include "tst_printedmenu.moc"
