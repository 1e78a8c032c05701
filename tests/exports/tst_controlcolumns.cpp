#include "exports/controlcolumns.h"

#include <QtTest>

class TestControlColumns : public QObject {
    Q_OBJECT

private slots:
    void columns_data();
    void columns();
    void totals_data();
    void totals();
    void everyPlaceHasItsOwnColumn();
};

void TestControlColumns::columns_data()
{
    QTest::addColumn<int>("segments");
    QTest::addColumn<int>("types");
    QTest::addColumn<int>("day");
    QTest::addColumn<int>("segment");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("column");
    QTest::newRow("first") << 3 << 5 << 1 << 0 << 0 << 2;
    QTest::newRow("next type") << 3 << 5 << 1 << 0 << 1 << 3;
    QTest::newRow("last type") << 3 << 5 << 1 << 0 << 4 << 6;
    QTest::newRow("next slot") << 3 << 5 << 1 << 1 << 0 << 7;
    QTest::newRow("last of the day") << 3 << 5 << 1 << 2 << 4 << 16;
    QTest::newRow("next day") << 3 << 5 << 2 << 0 << 0 << 17;
    QTest::newRow("next day's second slot") << 3 << 5 << 2 << 1 << 0 << 22;
    QTest::newRow("last of all") << 3 << 5 << 31 << 2 << 4 << 466;
    QTest::newRow("one slot") << 1 << 5 << 3 << 0 << 2 << 14;
    QTest::newRow("one type") << 3 << 1 << 3 << 2 << 0 << 10;
    QTest::newRow("one of each") << 1 << 1 << 31 << 0 << 0 << 32;
}

void TestControlColumns::columns()
{
    QFETCH(int, segments);
    QFETCH(int, types);
    QFETCH(int, day);
    QFETCH(int, segment);
    QFETCH(int, type);
    const ControlColumns columns(31, segments, types);
    QTEST(columns.type(day, segment, type), "column");
    QCOMPARE(columns.segment(day, segment), columns.type(day, segment, 0));
    QCOMPARE(columns.day(day), columns.type(day, 0, 0));
}

void TestControlColumns::totals_data()
{
    QTest::addColumn<int>("days");
    QTest::addColumn<int>("segments");
    QTest::addColumn<int>("types");
    QTest::addColumn<int>("perDay");
    QTest::addColumn<int>("total");
    QTest::newRow("28 days") << 28 << 3 << 5 << 15 << 422;
    QTest::newRow("29 days") << 29 << 3 << 5 << 15 << 437;
    QTest::newRow("30 days") << 30 << 3 << 5 << 15 << 452;
    QTest::newRow("31 days") << 31 << 3 << 5 << 15 << 467;
    QTest::newRow("one of each") << 28 << 1 << 1 << 1 << 30;
    QTest::newRow("no slot") << 31 << 0 << 5 << 0 << 2;
    QTest::newRow("no type") << 31 << 3 << 0 << 0 << 2;
    QTest::newRow("nothing") << 31 << 0 << 0 << 0 << 2;
    QTest::newRow("no month") << 0 << 3 << 5 << 15 << 2;
}

void TestControlColumns::totals()
{
    QFETCH(int, days);
    QFETCH(int, segments);
    QFETCH(int, types);
    const ControlColumns columns(days, segments, types);
    QTEST(columns.perDay(), "perDay");
    QTEST(columns.total(), "total");
    QCOMPARE(columns.days(), days);
    QCOMPARE(columns.segments(), segments);
    QCOMPARE(columns.types(), types);
    QCOMPARE(columns.ofAllDays(), columns.total() - 2);
    QCOMPARE(columns.day(days + 1), columns.total());
}

/// Counted up, day by day, slot by slot and type by type, the columns have neither a gap nor a column twice.
void TestControlColumns::everyPlaceHasItsOwnColumn()
{
    for (int segments = 0; segments <= 4; ++segments) {
        for (int types = 0; types <= 6; ++types) {
            const ControlColumns columns(30, segments, types);
            int next = 2;
            for (int day = 1; day <= 30; ++day) {
                for (int segment = 0; segment < segments; ++segment) {
                    for (int type = 0; type < types; ++type)
                        QCOMPARE(columns.type(day, segment, type), next++);
                }
            }
            QCOMPARE(columns.total(), next);
        }
    }
}

QTEST_APPLESS_MAIN(TestControlColumns)
#include "tst_controlcolumns.moc"
