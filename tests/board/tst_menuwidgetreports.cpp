#include "board/boarddata.h"
#include "board/boardpage.h"
#include "board/printout.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QAction>
#include <QtTest>

/// What the board prints: which rows are loaded, which template they go into, and the values that it asks for.
class TestMenuWidgetReports : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init();
    void cleanup();

    void weekOfTheMenu();
    void weekFollowsWeekAndBranch();
    void weekWithoutAMenu();
    void monthOfAPerson();
    void monthOfAllBranches();
    void monthOfABranch();
    void monthWithoutAnOrder_data();
    void monthWithoutAnOrder();
    void firstAndLastDayBelongToTheMonth_data();
    void firstAndLastDayBelongToTheMonth();
    void weekOfAFirstOfTheMonth_data();
    void weekOfAFirstOfTheMonth();
    void valuesOfAPerson_data();
    void valuesOfAPerson();
    void valuesOfABranch_data();
    void valuesOfABranch();
    void headers_data();
    void headers();
    void valuesBeforeAnyPrint();
    void nextPrintTakesOver();
    void exportPrintsNothing_data();
    void exportPrintsNothing();
    void closedDatabase();
    void lostDatabase();
    void pageGoesWhileThePreviewStands_data();
    void pageGoesWhileThePreviewStands();
    void pageGoesWhileAFailureIsTold();

private:
    static QDate thursday() { return WeekList::thursdayOf(QDate::currentDate()); }
    static QVariant value(BoardPage &page, int row, const char *name);
    static int records(BoardPage &page);
    static QString month() { return QLocale().toString(thursday(), QStringLiteral("MMMM yyyy")); }
    /// Clicks a button that prints, and gives what is printed.
    QStringList print(BoardPage &page, const char *button);
    void order(uint person, QDate date, int quantity, double price, uint branch = 0) const;
    /// Two orders of this month for Adamec, 2 x 4.50 and 3 x 2.25.
    void orderTwice() const;

    TestDatabase m_database;
    BoardData m_data{m_database};
    BoxAnswerer m_boxes;
    uint m_obed = 0;
    uint m_food = 0;
    uint m_branch = 0;
    uint m_adamec = 0;
};

namespace {

QVariant untouched()
{
    return QStringLiteral("as it came");
}

/// Whether `part` stands in `whole` in one piece.
bool hasRun(const QStringList &whole, const QStringList &part)
{
    for (int start = 0; start + part.size() <= whole.size(); ++start) {
        if (whole.mid(start, part.size()) == part)
            return true;
    }
    return false;
}

} // namespace

#define VERIFY_RUN(whole, ...)                                                                                         \
    do {                                                                                                               \
        const QStringList printed = whole;                                                                             \
        QVERIFY2(hasRun(printed, QStringList{__VA_ARGS__}), qPrintable(printed.join(QLatin1Char('|'))));               \
    } while (false)

void TestMenuWidgetReports::init()
{
    QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_food = m_data.food(QStringLiteral("Guláš"), m_data.type(QStringLiteral("Hlavné jedlá"), 1),
                         m_data.supplier(QStringLiteral("GA")));
    m_branch = m_data.branch(QStringLiteral("Výroba"));
    m_adamec = m_data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(18, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
}

void TestMenuWidgetReports::cleanup()
{
    QLocale::setDefault(QLocale::c());
    QSqlDatabase connection = m_database.db();
    connection.close();
    QVERIFY(connection.open());
    m_data.clear();
}

QVariant TestMenuWidgetReports::value(BoardPage &page, int row, const char *name)
{
    QVariant value = untouched();
    page.setValue(row, QLatin1String(name), value, 0);
    return value;
}

int TestMenuWidgetReports::records(BoardPage &page)
{
    DataSetInfo info;
    page.setDSInfo(info);
    return info.recordCount;
}

QStringList TestMenuWidgetReports::print(BoardPage &page, const char *button)
{
    QStringList texts;
    expectPreview(m_boxes, page, texts);
    page.button(button)->click();
    const QString failures = m_boxes.takeFailures();
    return failures.isEmpty() ? texts : QStringList{failures};
}

void TestMenuWidgetReports::order(uint person, QDate date, int quantity, double price, uint branch) const
{
    const uint item = m_data.item(m_food, m_obed, date, 1, branch);
    m_database.exec(QStringLiteral("UPDATE via_orderables SET price = %1 WHERE orderableID = %2").arg(price).arg(item));
    const uint order = m_data.order(item, person, quantity);
    m_database.exec(
        QStringLiteral("UPDATE via_orders SET ordered = 'ZEP-adminID: 3', delivered = '2020-03-05 11:30:00' "
                       "WHERE orderID = %1")
            .arg(order));
}

void TestMenuWidgetReports::orderTwice() const
{
    order(m_adamec, thursday(), 2, 4.5);
    order(m_adamec, thursday(), 3, 2.25, m_branch);
}

// The week's menu -----------------------------------------------------------------------------------------------------

void TestMenuWidgetReports::weekOfTheMenu()
{
    const QDate monday = thursday().addDays(-3);
    m_data.item(m_food, m_obed, monday, 1);
    m_data.item(m_food, m_obed, monday.addDays(6), 1);
    m_data.item(m_food, m_obed, monday.addDays(2), 0);
    m_data.item(m_food, m_obed, monday.addDays(3), 1, m_branch);
    m_data.item(m_food, m_obed, monday.addDays(-1), 1);
    m_data.item(m_food, m_obed, monday.addDays(7), 1);
    BoardPage page(m_database.db());
    page.initData();
    const QStringList texts = print(page, "toolButtonWeekly");
    const auto day = [](QDate date) { return QLocale().toString(date, QStringLiteral("'Obed' d.M.yyyy - dddd")); };
    VERIFY_RUN(texts, "Týždenné menu", "Typ", "Názov", "Cena");
    QCOMPARE(texts.filter(QStringLiteral("Obed ")), (QStringList{day(monday), day(monday.addDays(6))}));
    QCOMPARE(texts.count(QStringLiteral("GA Guláš")), 2);
    QCOMPARE(texts.count(QStringLiteral("Hlavné jedlá")), 2);
    QCOMPARE(texts.count(QStringLiteral("4.50 $")), 2);
    QCOMPARE(records(page), 4);
}

void TestMenuWidgetReports::weekFollowsWeekAndBranch()
{
    const QDate sunday = thursday().addDays(-14 + 3);
    m_data.item(m_food, m_obed, sunday, 1, m_branch);
    m_data.item(m_food, m_obed, sunday, 1);
    m_data.item(m_food, m_obed, sunday, 1);
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(page.weeks()->currentIndex() + 2);
    QCOMPARE(print(page, "toolButtonWeekly").count(QStringLiteral("GA Guláš")), 2);
    page.branches()->setCurrentIndex(1);
    const QStringList texts = print(page, "toolButtonWeekly");
    QCOMPARE(texts.count(QStringLiteral("GA Guláš")), 1);
    QCOMPARE(texts.filter(QStringLiteral("Obed ")),
             QStringList{QLocale().toString(sunday, QStringLiteral("'Obed' d.M.yyyy - dddd"))});
}

void TestMenuWidgetReports::weekWithoutAMenu()
{
    m_data.item(m_food, m_obed, thursday(), 0);
    BoardPage page(m_database.db());
    page.initData();
    const QStringList texts = print(page, "toolButtonWeekly");
    VERIFY_RUN(texts, "Týždenné menu", "Typ", "Názov", "Cena");
    QCOMPARE(texts.filter(QStringLiteral("Obed")), QStringList());
    QCOMPARE(records(page), 0);
}

// The month -----------------------------------------------------------------------------------------------------------

void TestMenuWidgetReports::monthOfAPerson()
{
    orderTwice();
    order(m_data.person(19, QStringLiteral("Baláž"), QStringLiteral("Ivo")), thursday(), 9, 9);
    BoardPage page(m_database.db());
    page.initData();
    page.showOrders();
    QCOMPARE(page.people()->currentText(), QStringLiteral("[17] Adamec Ján"));
    const QStringList texts = print(page, "toolButtonMonthly");
    QVERIFY(texts.contains("Mesačný výpis objednanej stravy - " + month() + ", ID: [17] Adamec Ján"));
    QCOMPARE(texts.count(QStringLiteral("Guláš")), 2);
    for (const char *text : {"4.50 $", "9.00 $", "2.25 $", "6.75 $", "15.75 $"})
        QCOMPARE(texts.count(QString::fromUtf8(text)), 1);
    QCOMPARE(texts.count(QStringLiteral("05.03.2020 11:30:00")), 2);
    QCOMPARE(texts.count(thursday().toString(QStringLiteral("dd. MM. yyyy"))), 2);
    // The next person.
    page.people()->setCurrentIndex(1);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[19] Baláž Ivo"));
    QVERIFY(print(page, "toolButtonMonthly").contains(QStringLiteral("81.00 $")));
}

void TestMenuWidgetReports::monthOfAllBranches()
{
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    const QStringList texts = print(page, "toolButtonMonthly");
    VERIFY_RUN(texts, "Mesačný výpis objednávok zamestnancov", month());
    QCOMPARE(texts.count(QStringLiteral("Adamec Ján")), 1);
    QCOMPARE(texts.count(QStringLiteral("Zeman Ivan")), 0);
    // The row's sum and the total.
    QCOMPARE(texts.count(QStringLiteral("15.75 $")), 2);
}

void TestMenuWidgetReports::monthOfABranch()
{
    orderTwice();
    const uint member = m_data.person(20, QStringLiteral("Člen"), QStringLiteral("Oto"));
    m_data.personInBranch(member, m_branch);
    order(member, thursday(), 4, 1.25);
    BoardPage page(m_database.db());
    page.initData();
    page.branches()->setCurrentIndex(1);
    const QStringList texts = print(page, "toolButtonMonthly");
    VERIFY_RUN(texts, "Mesačný výpis objednávok zamestnancov", month() + ", Výroba");
    QCOMPARE(texts.count(QStringLiteral("Člen Oto")), 1);
    QCOMPARE(texts.count(QStringLiteral("Adamec Ján")), 0);
    QCOMPARE(texts.count(QStringLiteral("5.00 $")), 2);
}

void TestMenuWidgetReports::monthWithoutAnOrder_data()
{
    QTest::addColumn<bool>("orders");
    QTest::addColumn<QString>("title");
    QTest::newRow("person") << true << "Mesačný výpis objednanej stravy - " + month() + ", ID: [17] Adamec Ján";
    QTest::newRow("branch") << false << "Mesačný výpis objednávok zamestnancov";
}

void TestMenuWidgetReports::monthWithoutAnOrder()
{
    QFETCH(bool, orders);
    QFETCH(QString, title);
    order(m_adamec, thursday().addMonths(-1), 1, 1);
    order(m_adamec, thursday().addMonths(1), 1, 1);
    BoardPage page(m_database.db());
    page.initData();
    if (orders)
        page.showOrders();
    const QStringList texts = print(page, "toolButtonMonthly");
    QVERIFY2(texts.contains(title), qPrintable(texts.join('|')));
    QCOMPARE(texts.count(QStringLiteral("Guláš")), 0);
    QCOMPARE(texts.filter(QStringLiteral("$")), QStringList{"0.00 $"});
    QCOMPARE(records(page), 0);
}

void TestMenuWidgetReports::firstAndLastDayBelongToTheMonth_data()
{
    QTest::addColumn<int>("days");
    for (int days = 28; days <= 31; ++days)
        QTest::addRow("%d days", days) << days;
}

void TestMenuWidgetReports::firstAndLastDayBelongToTheMonth()
{
    QFETCH(int, days);
    // Eight years hold a February of 29 days but around 2100.
    const int weeks = 9 * 53;
    m_data.setting(QStringLiteral("via_shownWeeks"), QString::number(weeks));
    int ahead = 0;
    while (thursday().addDays(qint64(7) * ahead).daysInMonth() != days)
        ++ahead;
    const QDate selected = thursday().addDays(qint64(7) * ahead);
    const QDate first(selected.year(), selected.month(), 1);
    for (const QDate day : {first.addDays(-1), first, first.addDays(days - 1), first.addDays(days)})
        order(m_adamec, day, day < first || day.month() != first.month() ? 100 : 1, 1);
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(weeks - ahead);
    print(page, "toolButtonMonthly");
    QCOMPARE(value(page, 0, "4"), QVariant("2"));
    page.showOrders();
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 2);
    QCOMPARE(value(page, 0, "0"), QVariant(first.toString(QStringLiteral("dd. MM. yyyy"))));
    QCOMPARE(value(page, 1, "0"), QVariant(first.addDays(days - 1).toString(QStringLiteral("dd. MM. yyyy"))));
    QCOMPARE(value(page, 0, "8"), QVariant("2.00 $"));
}

void TestMenuWidgetReports::weekOfAFirstOfTheMonth_data()
{
    QTest::addColumn<int>("weekday");
    for (int weekday = Qt::Monday; weekday <= Qt::Sunday; ++weekday)
        QTest::newRow(qPrintable(QLocale::c().dayName(weekday))) << weekday;
}

/// A first from Monday to Thursday makes the week one of the new month, later ones leave it to the old one.
void TestMenuWidgetReports::weekOfAFirstOfTheMonth()
{
    QFETCH(int, weekday);
    // Every weekday has its first within a year.
    const int weeks = 60;
    m_data.setting(QStringLiteral("via_shownWeeks"), QString::number(weeks));
    QDate first(thursday().year(), thursday().month(), 1);
    do
        first = first.addMonths(1);
    while (first.dayOfWeek() != weekday);
    order(m_adamec, first, 1, 1);
    order(m_adamec, first.addDays(-1), 2, 1);
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(weeks - int(thursday().daysTo(WeekList::thursdayOf(first)) / 7));
    QCOMPARE(page.dates(), weekDates(first));
    const bool isNew = weekday <= Qt::Thursday;
    const QDate inMonth = isNew ? first : first.addDays(-1);
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 1);
    QCOMPARE(value(page, 0, "4"), QVariant(isNew ? "1" : "2"));
    QCOMPARE(value(page, 0, "header"), QVariant(QLocale().toString(inMonth, QStringLiteral("MMMM yyyy"))));
    page.showOrders();
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 1);
    QCOMPARE(value(page, 0, "0"), QVariant(inMonth.toString(QStringLiteral("dd. MM. yyyy"))));
}

// Values --------------------------------------------------------------------------------------------------------------

void TestMenuWidgetReports::valuesOfAPerson_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariantList>("values");
    const QVariant date = thursday().toString(QStringLiteral("dd. MM. yyyy"));
    QTest::newRow("date") << "0" << QVariantList{date, date};
    QTest::newRow("slot") << "1" << QVariantList{"Obed", "Obed"};
    QTest::newRow("food") << "2" << QVariantList{"Guláš", "Guláš"};
    QTest::newRow("price") << "3" << QVariantList{"4.50 $", "2.25 $"};
    QTest::newRow("quantity") << "4" << QVariantList{"2", "3"};
    QTest::newRow("sum") << "5" << QVariantList{"9.00 $", "6.75 $"};
    QTest::newRow("ordered") << "6" << QVariantList{"ZEP-adminID: 3", "ZEP-adminID: 3"};
    QTest::newRow("delivered") << "7" << QVariantList{"05.03.2020 11:30:00", "05.03.2020 11:30:00"};
    QTest::newRow("total") << "8" << QVariantList{"15.75 $", "15.75 $"};
    QTest::newRow("unknown") << "9" << QVariantList{untouched(), untouched()};
    QTest::newRow("word") << "total" << QVariantList{untouched(), untouched()};
}

void TestMenuWidgetReports::valuesOfAPerson()
{
    QFETCH(QString, name);
    QFETCH(QVariantList, values);
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    page.showOrders();
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 2);
    QVariantList read{value(page, 0, qPrintable(name)), value(page, 1, qPrintable(name))};
    // Orders of one day and slot come in any order.
    if (read.at(0) != values.at(0))
        std::reverse(read.begin(), read.end());
    QCOMPARE(read, values);
    if (name != QLatin1String("8"))
        QCOMPARE(value(page, 2, qPrintable(name)), untouched());
}

void TestMenuWidgetReports::valuesOfABranch_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("pid") << "0" << QVariant("17");
    QTest::newRow("pamId") << "1" << QVariant("P17");
    QTest::newRow("name") << "2" << QVariant("Adamec Ján");
    QTest::newRow("number as money") << "3" << QVariant("5.00 $");
    QTest::newRow("quantity") << "4" << QVariant("5");
    QTest::newRow("sum") << "5" << QVariant("15.75 $");
    QTest::newRow("no seventh column") << "6" << untouched();
    QTest::newRow("no eighth column") << "7" << untouched();
    QTest::newRow("total") << "8" << QVariant("25.75 $");
}

void TestMenuWidgetReports::valuesOfABranch()
{
    QFETCH(QString, name);
    m_database.exec(QStringLiteral("UPDATE people SET pamId = 'P17' WHERE pid = 17"));
    orderTwice();
    order(m_data.person(21, QStringLiteral("Zeman"), QStringLiteral("Ivan")), thursday(), 1, 10);
    BoardPage page(m_database.db());
    page.initData();
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 2);
    QTEST(value(page, 0, qPrintable(name)), "value");
}

void TestMenuWidgetReports::headers_data()
{
    QTest::addColumn<QString>("locale");
    for (const char *locale : {"sk_SK", "en_US", "C"})
        QTest::newRow(locale) << locale;
}

void TestMenuWidgetReports::headers()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    const QString symbol = QLocale(locale).currencySymbol(QLocale::CurrencySymbol);
    const QString monthText = QLocale(locale).toString(thursday(), QStringLiteral("MMMM yyyy"));
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(value(page, 0, "header"), QVariant(monthText));
    page.branches()->setCurrentIndex(1);
    QCOMPARE(value(page, 5, "header"), QVariant(monthText + ", Výroba"));
    page.branches()->setCurrentIndex(0);
    page.showOrders();
    QCOMPARE(page.people()->currentIndex(), 0);
    QCOMPARE(value(page, -1, "header"), QVariant(monthText + ", ID: [17] Adamec Ján"));
    page.people()->setCurrentIndex(-1);
    QCOMPARE(value(page, 0, "header"), QVariant(monthText + ", ID: "));
    page.people()->setCurrentIndex(0);
    QVERIFY(print(page, "toolButtonMonthly")
                .contains("Mesačný výpis objednanej stravy - " + monthText + ", ID: [17] Adamec Ján"));
    QCOMPARE(value(page, 0, "8"), QVariant("15.75 " + symbol));
}

void TestMenuWidgetReports::valuesBeforeAnyPrint()
{
    BoardPage page(m_database.db());
    QCOMPARE(value(page, 0, "8"), QVariant("0.00 $"));
    QCOMPARE(value(page, 0, "0"), untouched());
    QCOMPARE(records(page), 0);
    page.initData();
    QCOMPARE(value(page, 0, "0"), untouched());
    QCOMPARE(value(page, 0, "3"), untouched());
    QCOMPARE(value(page, 0, "header"), QVariant(month()));
}

void TestMenuWidgetReports::nextPrintTakesOver()
{
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    print(page, "toolButtonWeekly");
    QCOMPARE(records(page), 2);
    QCOMPARE(value(page, 1, "2"), QVariant("GA Guláš"));
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 1);
    QCOMPARE(value(page, 0, "2"), QVariant("Adamec Ján"));
    QCOMPARE(value(page, 0, "8"), QVariant("15.75 $"));
    order(m_adamec, thursday(), 1, 1);
    QCOMPARE(value(page, 0, "8"), QVariant("15.75 $"));
    print(page, "toolButtonMonthly");
    QCOMPARE(value(page, 0, "8"), QVariant("16.75 $"));
    QVERIFY(!page.findChild<RptEngine *>());
}

// What else the buttons meet ------------------------------------------------------------------------------------------

void TestMenuWidgetReports::exportPrintsNothing_data()
{
    QTest::addColumn<bool>("orders");
    QTest::addColumn<int>("rows");
    QTest::newRow("person") << true << 2;
    QTest::newRow("branch") << false << 1;
}

void TestMenuWidgetReports::exportPrintsNothing()
{
    QFETCH(bool, orders);
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    if (orders)
        page.showOrders();
    auto *toSheet = page.find<QAction>("actionExportToXLS");
    toSheet->trigger();
    m_boxes.expectDialog(QStringLiteral("QFileDialog"), [](QDialog *dialog) { dialog->reject(); });
    page.button("toolButtonMonthly")->click();
    BOXES_DONE(m_boxes);
    // The month is loaded all the same.
    QTEST(records(page), "rows");
    QCOMPARE(value(page, 0, "8"), QVariant("15.75 $"));
    page.find<QAction>("actionPrintToPrinter")->trigger();
    QVERIFY(!toSheet->isChecked());
    QVERIFY(print(page, "toolButtonMonthly").contains(QStringLiteral("15.75 $")));
}

void TestMenuWidgetReports::closedDatabase()
{
    const QSqlDatabase closed = QSqlDatabase::cloneDatabase(m_database.db(), QStringLiteral("closed"));
    {
        BoardPage page(closed);
        page.initData();
        LogCatcher log;
        m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"));
        VERIFY_RUN(print(page, "toolButtonWeekly"), "Týždenné menu", "Typ", "Názov", "Cena");
        QCOMPARE(records(page), 0);
        QVERIFY(print(page, "toolButtonMonthly").contains(QStringLiteral("0.00 $")));
        page.showOrders();
        QVERIFY(print(page, "toolButtonMonthly").contains(QStringLiteral("0.00 $")));
        QCOMPARE(records(page), 0);
        QCOMPARE(log.critical().size(), 3);
        QVERIFY(log.critical().at(0).startsWith(QStringLiteral("FoodRepository(loadWeekMenu) - SQL ERROR: ")));
        QCOMPARE(log.critical().filter(QStringLiteral("OrderModel - personDateOrders ERROR: ")).size(), 2);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

void TestMenuWidgetReports::lostDatabase()
{
    orderTwice();
    BoardPage page(m_database.db());
    page.initData();
    print(page, "toolButtonMonthly");
    QCOMPARE(records(page), 1);
    m_database.breakConnection();
    LogCatcher log;
    QVERIFY(print(page, "toolButtonMonthly").contains(QStringLiteral("0.00 $")));
    QCOMPARE(records(page), 0);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().at(0).startsWith(QStringLiteral("OrderModel - personDateOrders ERROR: ")));
    m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"));
    VERIFY_RUN(print(page, "toolButtonWeekly"), "Týždenné menu", "Typ", "Názov", "Cena");
}

void TestMenuWidgetReports::pageGoesWhileThePreviewStands_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("orders");
    QTest::newRow("week") << "toolButtonWeekly" << false;
    QTest::newRow("month of a branch") << "toolButtonMonthly" << false;
    QTest::newRow("month of a person") << "toolButtonMonthly" << true;
}

void TestMenuWidgetReports::pageGoesWhileThePreviewStands()
{
    QFETCH(QString, button);
    QFETCH(bool, orders);
    orderTwice();
    const QPointer<BoardPage> page(new BoardPage(m_database.db()));
    page->initData();
    if (orders)
        page->showOrders();
    QPointer<QDialog> shown;
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *preview) {
        shown = preview;
        delete page;
    });
    // Not by a click: the page takes its button along.
    if (button == QLatin1String("toolButtonWeekly"))
        page->on_toolButtonWeekly_clicked();
    else
        page->on_toolButtonMonthly_clicked();
    BOXES_DONE(m_boxes);
    QVERIFY(!page);
    QVERIFY(!shown);
}

void TestMenuWidgetReports::pageGoesWhileAFailureIsTold()
{
    const QPointer<BoardPage> page(new BoardPage(m_database.db()));
    page->initData();
    m_database.breakConnection();
    const int before = m_boxes.answered();
    m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať menu!"), QMessageBox::Ok,
                      [&page](QMessageBox * /*box*/) { delete page; });
    page->on_toolButtonWeekly_clicked();
    BOXES_DONE(m_boxes);
    QVERIFY(!page);
    QCOMPARE(m_boxes.answered(), before + 1);
}

QTEST_MAIN(TestMenuWidgetReports)
#include "tst_menuwidgetreports.moc"
