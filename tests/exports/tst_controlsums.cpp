#include "exports/controlsums.h"

#include <QtTest>

class TestControlSums : public QObject {
    Q_OBJECT

private slots:
    void sums();
    void daysWithOrders();
    void largeSums();
    void nothing_data();
    void nothing();
};

void TestControlSums::sums()
{
    const ControlColumns columns(28, 2, 3);
    ControlSums sums(columns);
    sums.add(columns.type(1, 0, 0), 2);
    sums.add(columns.type(1, 0, 0), 3);
    sums.add(columns.type(1, 0, 2), 4);
    sums.add(columns.type(1, 1, 1), 8);
    sums.add(columns.type(28, 0, 0), 16);
    sums.add(columns.type(28, 1, 2), 32);
    QCOMPARE(sums.ofType(1, 0, 0), qint64(5));
    QCOMPARE(sums.ofType(1, 0, 1), qint64(0));
    QCOMPARE(sums.ofType(1, 0, 2), qint64(4));
    QCOMPARE(sums.ofSegment(1, 0), qint64(9));
    QCOMPARE(sums.ofSegment(1, 1), qint64(8));
    QCOMPARE(sums.ofSegment(2, 0), qint64(0));
    QCOMPARE(sums.ofSegment(28, 1), qint64(32));
    QCOMPARE(sums.ofSegment(0), qint64(25));
    QCOMPARE(sums.ofSegment(1), qint64(40));
}

void TestControlSums::daysWithOrders()
{
    const ControlColumns columns(31, 2, 2);
    ControlSums sums(columns);
    sums.add(columns.type(1, 0, 0), 1);
    sums.add(columns.type(7, 1, 1), 0);
    sums.add(columns.type(31, 1, 1), 5);
    for (int day = 1; day <= 31; ++day)
        QCOMPARE(sums.hasOrders(day), day == 1 || day == 7 || day == 31);
}

void TestControlSums::largeSums()
{
    const ControlColumns columns(31, 1, 1);
    ControlSums sums(columns);
    for (int count = 0; count < 4; ++count)
        sums.add(2, 2000000000);
    QCOMPARE(sums.ofType(1, 0, 0), qint64(8000000000));
    QCOMPARE(sums.ofSegment(0), qint64(8000000000));
}

void TestControlSums::nothing_data()
{
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("segments");
    QTest::addColumn<int>("types");
    QTest::newRow("no slot") << 31 << 0 << 3;
    QTest::newRow("no type") << 31 << 3 << 0;
    QTest::newRow("no month") << 0 << 3 << 3;
}

void TestControlSums::nothing()
{
    QFETCH(int, days);
    QFETCH(int, segments);
    QFETCH(int, types);
    const ControlSums sums(ControlColumns(days, segments, types));
    for (int segment = 0; segment < segments; ++segment)
        QCOMPARE(sums.ofSegment(segment), qint64(0));
    for (int day = 1; day <= days; ++day)
        QVERIFY(!sums.hasOrders(day));
}

QTEST_APPLESS_MAIN(TestControlSums)
#include "tst_controlsums.moc"
