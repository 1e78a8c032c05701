#include "models/ordermodel.h"
#include "models/personordersums.h"
#include "ordersfixture.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QDebug>
#include <QStandardItemModel>
#include <QtTest>

namespace {

QDate first()
{
    return {2026, 3, 1};
}

QDate last()
{
    return {2026, 3, 31};
}

} // namespace

/// What each person ordered in a month.
class TestOrderSums : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void sumsEachPersonOnce();
    void personalNumbersSortAsNumbers();
    void allBranchesListWhoOrdered();
    void branchListsItsMembers();
    void daysOutsideDoNotCount();
    void logsDatesAndSums();
    void failureIsLoggedInTheWordsOfAnotherList();
    void manyOrdersDoNotDrift();

private:
    std::unique_ptr<QStandardItemModel> sums(uint branchID) const;

    std::unique_ptr<OrdersFixture> m_orders;
};

void TestOrderSums::initTestCase()
{
    m_orders = std::make_unique<OrdersFixture>();
}

void TestOrderSums::cleanupTestCase()
{
    m_orders.reset();
}

void TestOrderSums::init()
{
    m_orders->reset();
    m_orders->addPerson(1, 1000, QStringLiteral("Novák"), QStringLiteral("Ján"), QStringLiteral("P-7"));
    m_orders->addPerson(2, 99, QStringLiteral("Čech"), QStringLiteral("<b>Eva</b> %1"));
    m_orders->addPerson(3, 500, QStringLiteral("Inactive"), QStringLiteral("x"), QString(), 0);
    m_orders->addItem(11, 1, first(), 1.25);
    m_orders->addItem(12, 2, last(), 4.5, 1, 8);
}

std::unique_ptr<QStandardItemModel> TestOrderSums::sums(uint branchID) const
{
    OrderModel model(m_orders->db());
    return std::unique_ptr<QStandardItemModel>(model.branchDateOrders(first(), last(), branchID));
}

void TestOrderSums::sumsEachPersonOnce()
{
    m_orders->addOrder(11, 1, 2);
    m_orders->addOrder(12, 1, 1);
    m_orders->addOrder(11, 1, 1);
    const auto model = sums(0);
    const QAbstractItemModelTester tester(model.get());
    QVERIFY(!model->parent());
    QCOMPARE(model->columnCount(), 6);
    QCOMPARE(rowTexts(*model), QStringList{QStringLiteral("1000|P-7|Novák Ján|4|4|8.25")});
    QCOMPARE(model->index(0, 3).data().type(), QVariant::LongLong);
    QCOMPARE(model->index(0, 4).data().type(), QVariant::String);
}

void TestOrderSums::personalNumbersSortAsNumbers()
{
    m_orders->addOrder(11, 1, 1);
    m_orders->addOrder(11, 2, 1);
    QCOMPARE(rowTexts(*sums(0)),
             (QStringList{QStringLiteral("99||Čech <b>Eva</b> %1|1|1|1.25"),
                          QStringLiteral("1000|P-7|Novák Ján|1|1|1.25")}));
}

void TestOrderSums::allBranchesListWhoOrdered()
{
    m_orders->addOrder(11, 1, 0);
    m_orders->addOrder(12, 2, 1);
    m_orders->addOrder(11, 3, 1);
    m_orders->addOrder(11, 77, 1);
    QCOMPARE(columnTexts(*sums(0), 0), QStringList{QStringLiteral("99")});
}

void TestOrderSums::branchListsItsMembers()
{
    m_orders->database().exec(
        QStringLiteral("INSERT INTO brape (uid, bid) VALUES (1, 8), (2, 8), (3, 8), (1, 9), (77, 8)"));
    m_orders->addOrder(11, 1, 2);
    m_orders->addOrder(12, 1, 1);
    QCOMPARE(rowTexts(*sums(8)),
             (QStringList{QStringLiteral("99||Čech <b>Eva</b> %1|0|0|0.00"),
                          QStringLiteral("1000|P-7|Novák Ján|3|3|7.00")}));
    QCOMPARE(columnTexts(*sums(9), 0), QStringList{QStringLiteral("1000")});
    QCOMPARE(sums(10)->rowCount(), 0);
}

void TestOrderSums::daysOutsideDoNotCount()
{
    m_orders->database().exec(QStringLiteral("INSERT INTO brape (uid, bid) VALUES (1, 8)"));
    m_orders->addItem(13, 1, first().addDays(-1), 1);
    m_orders->addItem(14, 1, last().addDays(1), 1);
    m_orders->addOrder(11, 1, 1);
    m_orders->addOrder(12, 1, 1);
    m_orders->addOrder(13, 1, 100);
    m_orders->addOrder(14, 1, 100);
    QCOMPARE(columnTexts(*sums(0), 3), QStringList{QStringLiteral("2")});
    QCOMPARE(columnTexts(*sums(8), 3), QStringList{QStringLiteral("2")});
}

void TestOrderSums::logsDatesAndSums()
{
    m_orders->addOrder(11, 1, 2);
    m_orders->addOrder(12, 2, 1);
    LogCatcher log;
    sums(0);
    QCOMPARE(
        log.lines(),
        (QStringList{
            QStringLiteral("*** OrderModel::branchDateOrders() *** dateFrom: \"2026-03-01\" dateTo: \"2026-03-31\""),
            QStringLiteral("*** recMap: QMap((99, PersonOrderSum(\"\", \"Čech <b>Eva</b> %1\", 1, 4.5))(1000, "
                           "PersonOrderSum(\"P-7\", \"Novák Ján\", 2, 2.5)))")}));
    QCOMPARE(log.lines(QtDebugMsg).size(), 2);
}

void TestOrderSums::failureIsLoggedInTheWordsOfAnotherList()
{
    const MissingTable missing(m_orders->database(), QStringLiteral("via_orders"));
    for (const uint branchID : {0U, 8U}) {
        LogCatcher log;
        const auto model = sums(branchID);
        QCOMPARE(log.critical(),
                 QStringList{QStringLiteral("OrderModel - personDateOrders ERROR: [1146]: ") + missing.error()});
        QCOMPARE(model->rowCount(), 0);
    }
}

void TestOrderSums::manyOrdersDoNotDrift()
{
    m_orders->addItem(15, 1, first(), 0.1);
    m_orders->database().exec(
        QStringLiteral("INSERT INTO via_orders (orderableID, uid, quantity) SELECT 15, 1, 1 FROM seq_1_to_5000"));
    QCOMPARE(rowTexts(*sums(0)), QStringList{QStringLiteral("1000|P-7|Novák Ján|5000|5000|500.00")});
}

QTEST_MAIN(TestOrderSums)
#include "tst_ordersums.moc"
