#include "models/ordermodel.h"
#include "ordersfixture.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardItemModel>
#include <QtTest>

namespace {

QDate day()
{
    return {2026, 3, 2};
}

QStringList headers(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts;
}

} // namespace

/// The lists with a row for each order.
class TestOrderLists : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void allOrders();
    void allOrdersOfADeletedPerson();
    void failedAllOrders();
    void orderPeopleList();
    void orderPeopleListAfterAllOrders();
    void failedOrderPeopleList();
    void personDateOrders();
    void personDateOrdersBounds();
    void personDateOrdersSortByDateAndSlot();
    void failedPersonDateOrders();
    void segmentOrders();
    void segmentOrdersOfABranch();
    void segmentOrdersSortBySlovakRules();
    void segmentOrdersOfStrangeRows();
    void failedSegmentOrders();

private:
    std::unique_ptr<QStandardItemModel> personOrders(const QDate &from, const QDate &to, int uid) const;
    std::unique_ptr<QStandardItemModel> slotOrders(uint segmentID, uint branchID) const;

    std::unique_ptr<OrdersFixture> m_orders;
};

void TestOrderLists::initTestCase()
{
    m_orders = std::make_unique<OrdersFixture>();
}

void TestOrderLists::cleanupTestCase()
{
    m_orders.reset();
}

void TestOrderLists::init()
{
    m_orders->reset();
    m_orders->addPerson(1, 101, QStringLiteral("Novák"), QStringLiteral("Ján"));
    m_orders->addPerson(2, 102, QStringLiteral("Ďurica"), QStringLiteral("<b>Eva</b> %1"));
}

std::unique_ptr<QStandardItemModel> TestOrderLists::personOrders(const QDate &from, const QDate &to, int uid) const
{
    OrderModel model(m_orders->db());
    return std::unique_ptr<QStandardItemModel>(model.personDateOrders(from, to, uid));
}

std::unique_ptr<QStandardItemModel> TestOrderLists::slotOrders(uint segmentID, uint branchID) const
{
    OrderModel model(m_orders->db());
    return std::unique_ptr<QStandardItemModel>(model.segmentOrders(day(), segmentID, branchID));
}

void TestOrderLists::allOrders()
{
    m_orders->addItem(11, 2, day(), 4.5, 2);
    m_orders->addOrder(11, 1, 2, QStringLiteral("ZEP-adminID: 7, 1.3.2026, 8:05:00"),
                       QStringLiteral("'2026-03-02 17:30:00'"));
    m_orders->addOrder(11, 2, 1);
    OrderModel model(m_orders->db());
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.allOrders(), &model);
    QCOMPARE(model.query().lastQuery(),
             QStringLiteral(
                 "SELECT orderID, via_orders.orderableID, via_orderables.date, via_segments.segmentID, "
                 "via_segments.name, via_foods.name, people.name, people.surname, quantity, via_orderables.price, "
                 "ordered, delivered FROM via_orders LEFT JOIN via_orderables ON via_orders.orderableID = "
                 "via_orderables.orderableID LEFT JOIN  people ON via_orders.uid = people.uid LEFT JOIN  via_foods "
                 "ON via_orderables.foodID = via_foods.foodID LEFT JOIN  via_segments ON via_orderables.segmentID "
                 "= via_segments.segmentID ORDER BY people.surname"));
    QCOMPARE(headers(model),
             (QStringList{QStringLiteral("ID objednávky"), QStringLiteral("ID menu položky"), QStringLiteral("Dátum"),
                          QStringLiteral("ID segmentu"), QStringLiteral("Segment"), QStringLiteral("Jedlo"),
                          QStringLiteral("Meno"), QStringLiteral("Priezvisko"), QStringLiteral("Počet obj. jedál"),
                          QStringLiteral("Cena/kus"), QStringLiteral("Objednané"), QStringLiteral("Vydané")}));
    QCOMPARE(
        rowTexts(model),
        (QStringList{
            QStringLiteral("2|11|2026-03-02|2|Večera|<i>Guláš</i> %1|<b>Eva</b> %1|Ďurica|1|4.5|ZEP-adminID: 1, x|"),
            QStringLiteral("1|11|2026-03-02|2|Večera|<i>Guláš</i> %1|Ján|Novák|2|4.5|ZEP-adminID: 7, 1.3.2026, "
                           "8:05:00|2026-03-02T17:30:00.000")}));
}

void TestOrderLists::allOrdersOfADeletedPerson()
{
    m_orders->addItem(11, 1, day(), 4.5);
    m_orders->addOrder(11, 99, 2);
    OrderModel model(m_orders->db());
    model.allOrders();
    QCOMPARE(rowText(model, 0), QStringLiteral("1|11|2026-03-02|1|Obed|Fazuľová|||2|4.5|ZEP-adminID: 1, x|"));
}

void TestOrderLists::failedAllOrders()
{
    OrderModel model(m_orders->db());
    const MissingTable missing(m_orders->database(), QStringLiteral("via_orders"));
    LogCatcher log;
    QCOMPARE(model.allOrders(), &model);
    QCOMPARE(log.lines(), QStringList{QStringLiteral("OrderModel - setQuery ERROR: [1146]: ") + missing.error()});
    QCOMPARE(log.critical().size(), 1);
    QCOMPARE(model.rowCount(), 0);
}

void TestOrderLists::orderPeopleList()
{
    m_orders->addItem(11, 1, day(), 1);
    m_orders->addItem(12, 1, day(), 1);
    m_orders->addOrder(11, 1, 2);
    m_orders->addOrder(11, 99, 3);
    m_orders->addOrder(12, 2, 4);
    OrderModel model(m_orders->db());
    const QAbstractItemModelTester tester(&model);
    QCOMPARE(model.orderPeopleList(11), &model);
    QCOMPARE(model.query().lastQuery(),
             QStringLiteral(
                 "SELECT p.pid, CONCAT(p.name,' ',p.surname) name, o.quantity FROM via_orders o LEFT JOIN people p "
                 "ON o.uid=p.uid WHERE o.orderableID=11"));
    QCOMPARE(headers(model), (QStringList{QStringLiteral("ID"), QStringLiteral("meno"), QStringLiteral("počet")}));
    QCOMPARE(rowTexts(model), (QStringList{QStringLiteral("101|Ján Novák|2"), QStringLiteral("||3")}));
    QVERIFY(!model.index(1, 0).data().isValid());
    model.orderPeopleList(12);
    QCOMPARE(rowTexts(model), QStringList{QStringLiteral("102|<b>Eva</b> %1 Ďurica|4")});
    model.orderPeopleList(13);
    QCOMPARE(model.rowCount(), 0);
}

void TestOrderLists::orderPeopleListAfterAllOrders()
{
    m_orders->addItem(11, 1, day(), 1);
    m_orders->addOrder(11, 1, 2);
    OrderModel model(m_orders->db());
    const QAbstractItemModelTester tester(&model);
    model.allOrders();
    model.orderPeopleList(11);
    QCOMPARE(headers(model), (QStringList{QStringLiteral("ID"), QStringLiteral("meno"), QStringLiteral("počet")}));
    QCOMPARE(model.columnCount(), 3);
}

void TestOrderLists::failedOrderPeopleList()
{
    OrderModel model(m_orders->db());
    const MissingTable missing(m_orders->database(), QStringLiteral("people"));
    LogCatcher log;
    model.orderPeopleList(1);
    QCOMPARE(log.critical(),
             QStringList{QStringLiteral("OrderModel - orderPeopleList ERROR: [1146]: ") + missing.error()});
    QCOMPARE(model.rowCount(), 0);
}

void TestOrderLists::personDateOrders()
{
    m_orders->addItem(11, 2, day(), 4.5);
    m_orders->addOrder(11, 1, 3, QStringLiteral("ZEP-adminID: 7, 1.3.2026, 8:05:00"),
                       QStringLiteral("'2026-03-02 07:03:09'"));
    m_orders->addOrder(11, 2, 1);
    const auto orders = personOrders(day(), day(), 1);
    const QAbstractItemModelTester tester(orders.get());
    QVERIFY(!orders->parent());
    QCOMPARE(orders->columnCount(), 8);
    QCOMPARE(rowTexts(*orders),
             QStringList{QStringLiteral("02. 03. 2026|Obed|<i>Guláš</i> %1|4.5|3|13.5|ZEP-adminID: 7, "
                                        "1.3.2026, 8:05:00|02.03.2026 07:03:09")});
    QCOMPARE(orders->index(0, 3).data().type(), QVariant::Double);
    QCOMPARE(orders->index(0, 5).data().type(), QVariant::Double);
    QCOMPARE(orders->index(0, 5).data().toDouble(), 13.5);
    QCOMPARE(personOrders(day(), day(), 2)->index(0, 7).data().toString(), QString());
    QCOMPARE(personOrders(day(), day(), 3)->rowCount(), 0);
}

void TestOrderLists::personDateOrdersBounds()
{
    for (int offset = -1; offset <= 3; ++offset) {
        m_orders->addItem(20 + offset, 1, day().addDays(offset), 1);
        m_orders->addOrder(20 + offset, 1, 1);
    }
    QCOMPARE(
        columnTexts(*personOrders(day(), day().addDays(2), 1), 0),
        (QStringList{QStringLiteral("02. 03. 2026"), QStringLiteral("03. 03. 2026"), QStringLiteral("04. 03. 2026")}));
}

void TestOrderLists::personDateOrdersSortByDateAndSlot()
{
    m_orders->addItem(11, 1, day().addDays(1), 1, 1);
    m_orders->addItem(12, 2, day(), 1, 2);
    m_orders->addItem(13, 3, day(), 1, 1);
    for (const int item : {11, 12, 13})
        m_orders->addOrder(item, 1, 1);
    QCOMPARE(
        columnTexts(*personOrders(day(), day().addDays(1), 1), 2),
        (QStringList{QStringLiteral("Bez dodávateľa"), QStringLiteral("<i>Guláš</i> %1"), QStringLiteral("Fazuľová")}));
}

void TestOrderLists::failedPersonDateOrders()
{
    const MissingTable missing(m_orders->database(), QStringLiteral("via_segments"));
    LogCatcher log;
    const auto orders = personOrders(day(), day(), 1);
    QCOMPARE(log.lines(),
             QStringList{QStringLiteral("OrderModel - personDateOrders ERROR: [1146]: ") + missing.error()});
    QCOMPARE(log.critical().size(), 1);
    QCOMPARE(orders->rowCount(), 0);
}

void TestOrderLists::segmentOrders()
{
    m_orders->addItem(11, 2, day(), 1);
    m_orders->addItem(12, 2, day(), 1, 2);
    m_orders->addItem(13, 2, day().addDays(1), 1);
    m_orders->addItem(14, 2, day(), 1, 1, 5);
    for (const int item : {11, 12, 13, 14})
        m_orders->addOrder(item, 1, item);
    m_orders->addOrder(11, 2, 1, QString(), QStringLiteral("'2026-03-02 11:30:00'"));
    LogCatcher log;
    const auto orders = slotOrders(1, 0);
    const QAbstractItemModelTester tester(orders.get());
    QVERIFY(!orders->parent());
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Date:  QDate(\"2026-03-02\") , segmentID:  1 , bid:  0")});
    QCOMPARE(orders->columnCount(), 4);
    QCOMPARE(rowTexts(*orders),
             (QStringList{QStringLiteral("Ďurica <b>Eva</b> %1 *[102]|J <i>Guláš</i> %1|1|2026-03-02T11:30:00.000"),
                          QStringLiteral("Novák Ján *[101]|J <i>Guláš</i> %1|11|")}));
}

void TestOrderLists::segmentOrdersOfABranch()
{
    m_orders->addItem(11, 1, day(), 1);
    m_orders->addItem(14, 1, day(), 1, 1, 5);
    m_orders->addOrder(11, 1, 1);
    m_orders->addOrder(14, 2, 2);
    LogCatcher log;
    QCOMPARE(columnTexts(*slotOrders(1, 5), 2), QStringList{QStringLiteral("2")});
    QCOMPARE(log.lines(), QStringList{QStringLiteral("Date:  QDate(\"2026-03-02\") , segmentID:  1 , bid:  5")});
    QCOMPARE(slotOrders(1, 6)->rowCount(), 0);
}

void TestOrderLists::segmentOrdersSortBySlovakRules()
{
    const QStringList surnames{QStringLiteral("Ivan"),   QStringLiteral("Chovan"), QStringLiteral("Hýrošová"),
                               QStringLiteral("Cibuľa"), QStringLiteral("Žiak"),   QStringLiteral("Zeman"),
                               QStringLiteral("Šimko"),  QStringLiteral("Sýkora"), QStringLiteral("Čech")};
    m_orders->addItem(11, 1, day(), 1);
    for (int i = 0; i < surnames.size(); ++i) {
        m_orders->addPerson(10 + i, i, surnames.at(i), QStringLiteral("x"));
        m_orders->addOrder(11, 10 + i, i);
    }
    QStringList sorted = columnTexts(*slotOrders(1, 0), 0);
    for (QString &name : sorted)
        name = name.section(QLatin1Char(' '), 0, 0);
    QCOMPARE(sorted,
             (QStringList{QStringLiteral("Cibuľa"), QStringLiteral("Čech"), QStringLiteral("Hýrošová"),
                          QStringLiteral("Chovan"), QStringLiteral("Ivan"), QStringLiteral("Sýkora"),
                          QStringLiteral("Šimko"), QStringLiteral("Zeman"), QStringLiteral("Žiak")}));
}

void TestOrderLists::segmentOrdersOfStrangeRows()
{
    m_orders->addItem(11, 3, day(), 1);
    m_orders->addOrder(11, 99, 2);
    QCOMPARE(rowTexts(*slotOrders(1, 0)), QStringList{QStringLiteral("  *[]||2|")});
}

void TestOrderLists::failedSegmentOrders()
{
    const MissingTable missing(m_orders->database(), QStringLiteral("via_orders"));
    LogCatcher log;
    const auto orders = slotOrders(1, 0);
    QCOMPARE(log.critical(),
             QStringList{QStringLiteral("OrderModel - segmentOrders ERROR: [1146]: ") + missing.error()});
    QCOMPARE(orders->rowCount(), 0);
}

QTEST_MAIN(TestOrderLists)
#include "tst_orderlists.moc"
