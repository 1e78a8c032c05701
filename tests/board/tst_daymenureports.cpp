#include "board/boarddata.h"
#include "board/cellgrid.h"
#include "board/daymenuwidget.h"
#include "board/printout.h"
#include "models/peoplemodel.h"
#include "store/foodrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"

#include <QSqlQuery>
#include <QToolButton>
#include <QtTest>

#include <memory>

/// What a day card prints.
class TestDayMenuReports : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void printsThePersonsOrders();
    void printsTheMenu();
    void printsHeadingsWithoutRows();
    void values_data();
    void values();
    void headers_data();
    void headers();
    void headerFollowsTheReportsImage();
    void nameIsReadOnceForAPrint();
    void nameWithoutAPrint();
    void nameCannotBeRead();
    void closedDatabase();
    void cardGoesWhileThePreviewStands();
    void cardGoesWhileAFailureIsTold();

private:
    std::unique_ptr<DayMenuWidget> makeCard(int person = -1);
    static QVariant value(DayMenuWidget &card, int row, const char *name);
    QStringList print(DayMenuWidget &card);
    QString day() const { return m_date.toString(QStringLiteral("d. M. yyyy")); }

    TestDatabase m_database;
    BoardData m_data{m_database};
    BoxAnswerer m_boxes;
    std::unique_ptr<QStandardItemModel> m_grid;
    QDate m_date;
    uint m_obed = 0;
    uint m_item = 0;
    int m_adamec = 0;
};

namespace {

QVariant untouched()
{
    return QStringLiteral("as it came");
}

} // namespace

void TestDayMenuReports::init()
{
    m_date = QDate::currentDate().addDays(3);
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint type = m_data.type(QStringLiteral("Hlavné jedlá"), 1);
    const uint supplier = m_data.supplier(QStringLiteral("GA"));
    m_item = m_data.item(m_data.food(QStringLiteral("Guláš"), type, supplier), m_obed, m_date, 1, 0, 12);
    m_data.item(m_data.food(QStringLiteral("Rezeň"), type, supplier), m_obed, m_date, 1);
    m_adamec = int(m_data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján")));
    m_data.order(m_item, uint(m_adamec), 3);
    m_data.order(m_item, m_data.person(18, QStringLiteral("Zeman"), QStringLiteral("Ivan")), 4);
}

void TestDayMenuReports::cleanup()
{
    QSqlDatabase connection = m_database.db();
    connection.close();
    QVERIFY(connection.open());
    QSqlQuery session(connection);
    QVERIFY(session.exec(QStringLiteral("SET SESSION sql_mode = REPLACE(@@sql_mode, 'ONLY_FULL_GROUP_BY', '')")));
    m_data.clear();
}

/// A card of the day's "Obed" with the grid of the store.
std::unique_ptr<DayMenuWidget> TestDayMenuReports::makeCard(int person)
{
    auto card = std::make_unique<DayMenuWidget>(m_date, QStringLiteral("Obed"), m_obed, person, 0, 0, m_database.db(),
                                                nullptr, nullptr);
    m_grid.reset(FoodRepository(m_database.db()).loadMenuWidgetMenu(m_date, 0, person));
    card->setOrderLimitEnabled(true);
    card->setMenuModel(m_grid.get());
    return card;
}

QVariant TestDayMenuReports::value(DayMenuWidget &card, int row, const char *name)
{
    QVariant value = untouched();
    card.setValue(row, QLatin1String(name), value, 0);
    return value;
}

QStringList TestDayMenuReports::print(DayMenuWidget &card)
{
    QStringList texts;
    expectPreview(m_boxes, card, texts);
    card.findChild<QToolButton *>(QStringLiteral("toolButtonPersonReport"))->click();
    const QString failures = m_boxes.takeFailures();
    return failures.isEmpty() ? texts : QStringList{failures};
}

void TestDayMenuReports::printsThePersonsOrders()
{
    const auto card = makeCard(m_adamec);
    const QStringList texts = print(*card);
    QCOMPARE(texts.mid(0, 4), (QStringList{"Objednávka", day() + ", Obed, [17] Adamec Ján", "Položka", "Počet"}));
    QCOMPARE(texts.count(QStringLiteral("Hlavné jedlá")), 1);
    QCOMPARE(texts.count(QStringLiteral("GA Guláš")), 1);
    QCOMPARE(texts.count(QStringLiteral("3")), 1);
    QCOMPARE(texts.filter(QStringLiteral("Rezeň")), QStringList());
    QVERIFY(!card->findChild<RptEngine *>());
}

/// The button is hidden while no person is selected; the slot prints what is shown.
void TestDayMenuReports::printsTheMenu()
{
    const auto card = makeCard();
    const QStringList texts = print(*card);
    QCOMPARE(texts.mid(0, 4), (QStringList{"Objednávka", "Objednávka: " + day() + ", Obed", "Položka", "Počet"}));
    QCOMPARE(texts.count(QStringLiteral("GA Guláš")), 1);
    QCOMPARE(texts.count(QStringLiteral("GA Rezeň")), 1);
    QCOMPARE(texts.count(QStringLiteral("7")), 1);
}

void TestDayMenuReports::printsHeadingsWithoutRows()
{
    const auto card = makeCard(m_adamec);
    card->setDate(m_date.addDays(1));
    card->setMenuModel(m_grid.get());
    const QStringList texts = print(*card);
    QCOMPARE(texts.mid(1, 3),
             (QStringList{m_date.addDays(1).toString(QStringLiteral("d. M. yyyy")) + ", Obed, [17] Adamec Ján",
                          "Položka", "Počet"}));
    QCOMPARE(texts.filter(QStringLiteral("Guláš")), QStringList());
}

void TestDayMenuReports::values_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("heading") << 0 << "0" << QVariant("Hlavné jedlá");
    QTest::newRow("heading's count") << 0 << "1" << QVariant(" ");
    QTest::newRow("item") << 1 << "0" << QVariant("GA Guláš");
    QTest::newRow("count") << 1 << "1" << QVariant("7");
    QTest::newRow("limit") << 1 << "2" << QVariant("12");
    QTest::newRow("no fourth column") << 1 << "3" << untouched();
    QTest::newRow("no total") << 1 << "8" << untouched();
    QTest::newRow("row beyond the last") << 3 << "0" << untouched();
    QTest::newRow("row before the first") << -1 << "0" << untouched();
    QTest::newRow("word") << 1 << "footer" << untouched();
}

void TestDayMenuReports::values()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    const auto card = makeCard();
    DataSetInfo info;
    card->setDSInfo(info);
    QCOMPARE(info.recordCount, 3);
    QTEST(value(*card, row, qPrintable(name)), "value");
    card->setOrderLimitEnabled(false);
    card->setMenuModel(m_grid.get());
    QCOMPARE(value(*card, 1, "2"), untouched());
}

void TestDayMenuReports::headers_data()
{
    QTest::addColumn<bool>("person");
    QTest::addColumn<bool>("report");
    QTest::addColumn<QString>("header");
    QTest::newRow("preliminary") << false << false << "Predbežná objednávka: %1, Obed";
    QTest::newRow("final") << false << true << "Objednávka: %1, Obed";
    QTest::newRow("person") << true << true << "%1, Obed, [17] Adamec Ján";
    QTest::newRow("person, preliminary") << true << false << "%1, Obed, [17] Adamec Ján";
}

void TestDayMenuReports::headers()
{
    QFETCH(bool, person);
    QFETCH(bool, report);
    QFETCH(QString, header);
    const auto card = makeCard(person ? m_adamec : -1);
    card->setReport(report);
    QCOMPARE(value(*card, 0, "header"), QVariant(header.arg(day())));
    QCOMPARE(print(*card).value(1), header.arg(day()));
}

/// An open day without orders is preliminary, the same card is final once it is locked.
void TestDayMenuReports::headerFollowsTheReportsImage()
{
    CellGrid open;
    open.addFood(1, m_obed, m_date);
    CellGrid locked;
    locked.addFood(1, m_obed, m_date, 1);
    const auto card = makeCard();
    card->setMenuModel(&open);
    QCOMPARE(value(*card, 0, "header"), QVariant("Predbežná objednávka: " + day() + ", Obed"));
    card->setMenuModel(&locked);
    QCOMPARE(value(*card, 0, "header"), QVariant("Objednávka: " + day() + ", Obed"));
    card->setMenuModel(m_grid.get());
}

void TestDayMenuReports::nameIsReadOnceForAPrint()
{
    const auto card = makeCard(m_adamec);
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *preview) {
        m_database.exec(QStringLiteral("UPDATE people SET surname = 'Nová' WHERE pid = 17"));
        QVERIFY(printedTexts(*card).contains(day() + ", Obed, [17] Adamec Ján"));
        preview->reject();
    });
    card->on_toolButtonPersonReport_clicked();
    BOXES_DONE(m_boxes);
    QCOMPARE(print(*card).value(1), day() + ", Obed, [17] Nová Ján");
}

void TestDayMenuReports::nameWithoutAPrint()
{
    const auto card = makeCard(m_adamec);
    QCOMPARE(value(*card, 0, "header"), QVariant(day() + ", Obed, [17] Adamec Ján"));
    card->setPerson(int(m_data.person(19, QStringLiteral("Baláž"), QStringLiteral("Ivo"))));
    QCOMPARE(value(*card, 0, "header"), QVariant(day() + ", Obed, [19] Baláž Ivo"));
    // Nobody is selected, yet it is the orders view.
    card->setPerson(0);
    QCOMPARE(value(*card, 0, "header"), QVariant(day() + ", Obed, "));
    card->setPerson(-1);
    QCOMPARE(value(*card, 0, "header"), QVariant("Objednávka: " + day() + ", Obed"));
}

void TestDayMenuReports::nameCannotBeRead()
{
    const auto card = makeCard(m_adamec);
    const MissingTable people(m_database, QStringLiteral("people"));
    LogCatcher log;
    m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať zamestnanca!"));
    const QStringList texts = print(*card);
    // One box and one line, however often the header is asked for.
    QCOMPARE(texts.value(1), day() + ", Obed, ");
    QCOMPARE(texts.count(QStringLiteral("GA Guláš")), 1);
    QCOMPARE(log.critical(), QStringList{"PeopleModel(loadPerson) - SQL ERROR: " + people.error()});
    QCOMPARE(value(*card, 0, "header"), QVariant(day() + ", Obed, "));
    BOXES_DONE(m_boxes);
}

void TestDayMenuReports::closedDatabase()
{
    const QSqlDatabase closed = QSqlDatabase::cloneDatabase(m_database.db(), QStringLiteral("closed"));
    {
        DayMenuWidget card(m_date, QStringLiteral("Obed"), m_obed, -1, 0, 0, closed, nullptr, nullptr);
        QCOMPARE(print(card).value(1), "Predbežná objednávka: " + day() + ", Obed");
        card.setPerson(5);
        m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať zamestnanca!"));
        QCOMPARE(print(card).value(1), day() + ", Obed, ");
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

void TestDayMenuReports::cardGoesWhileThePreviewStands()
{
    QPointer<DayMenuWidget> card(makeCard(m_adamec).release());
    QPointer<QDialog> shown;
    m_boxes.expectDialog(QStringLiteral("QPrintPreviewDialog"), [&](QDialog *preview) {
        shown = preview;
        delete card;
    });
    card->on_toolButtonPersonReport_clicked();
    BOXES_DONE(m_boxes);
    QVERIFY(!card);
    QVERIFY(!shown);
}

void TestDayMenuReports::cardGoesWhileAFailureIsTold()
{
    QPointer<DayMenuWidget> card(makeCard(m_adamec).release());
    m_database.breakConnection();
    const int before = m_boxes.answered();
    m_boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať zamestnanca!"),
                      QMessageBox::Ok, [&card](QMessageBox * /*box*/) { delete card; });
    card->on_toolButtonPersonReport_clicked();
    BOXES_DONE(m_boxes);
    QVERIFY(!card);
    QCOMPARE(m_boxes.answered(), before + 1);
}

QTEST_MAIN(TestDayMenuReports)
#include "tst_daymenureports.moc"
