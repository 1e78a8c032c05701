#include "localtime.h"
#include "models/unixperiod.h"

#include <QtTest>

class TestUnixPeriod : public QObject {
    Q_OBJECT

private slots:
    void testRunsInAKnownZone();
    void weekBeginsOnMondayLocalTime_data();
    void weekBeginsOnMondayLocalTime();
    void daysAreCountedByTheCalendar();
    void invalidDateGivesNothing();
};

void TestUnixPeriod::testRunsInAKnownZone()
{
    const QByteArray zone = qgetenv("TZ");
    QVERIFY2(zone == "UTC" || zone == "Europe/Bratislava", zone.constData());
    const QDateTime summer(QDate(2026, 7, 1), QTime(12, 0));
    QCOMPARE(summer.offsetFromUtc(), zone == "UTC" ? 0 : 7200);
}

void TestUnixPeriod::weekBeginsOnMondayLocalTime_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("monday");
    QTest::addColumn<int>("startHours");
    QTest::addColumn<int>("endHours");

    QTest::newRow("a Monday") << QDate(2026, 1, 12) << QDate(2026, 1, 12) << 1 << 1;
    QTest::newRow("a Thursday") << QDate(2026, 1, 15) << QDate(2026, 1, 12) << 1 << 1;
    QTest::newRow("a Sunday") << QDate(2026, 1, 18) << QDate(2026, 1, 12) << 1 << 1;
    QTest::newRow("in summer") << QDate(2026, 7, 15) << QDate(2026, 7, 13) << 2 << 2;
    QTest::newRow("clocks go forward") << QDate(2026, 3, 29) << QDate(2026, 3, 23) << 1 << 2;
    QTest::newRow("week after it") << QDate(2026, 3, 30) << QDate(2026, 3, 30) << 2 << 2;
    QTest::newRow("clocks go back") << QDate(2026, 10, 25) << QDate(2026, 10, 19) << 2 << 1;
    QTest::newRow("week after that") << QDate(2026, 10, 26) << QDate(2026, 10, 26) << 1 << 1;
    QTest::newRow("week 53 of 2020") << QDate(2020, 12, 31) << QDate(2020, 12, 28) << 1 << 1;
    QTest::newRow("week 53 of 2020, in 2021") << QDate(2021, 1, 3) << QDate(2020, 12, 28) << 1 << 1;
    QTest::newRow("week 1 of 2025, in 2024") << QDate(2024, 12, 30) << QDate(2024, 12, 30) << 1 << 1;
    QTest::newRow("leap day") << QDate(2024, 2, 29) << QDate(2024, 2, 26) << 1 << 1;
}

void TestUnixPeriod::weekBeginsOnMondayLocalTime()
{
    QFETCH(const QDate, date);
    QFETCH(const QDate, monday);
    QFETCH(const int, startHours);
    QFETCH(const int, endHours);

    QCOMPARE(mondayOf(date), monday);
    const UnixPeriod week = weekOf(date);
    QCOMPARE(week.start, midnight(monday, startHours));
    QCOMPARE(week.end, midnight(monday.addDays(7), endHours));
}

void TestUnixPeriod::daysAreCountedByTheCalendar()
{
    const UnixPeriod dayOfTheChange = daysFrom(QDate(2026, 3, 29), 1);
    QCOMPARE(dayOfTheChange.start, midnight(QDate(2026, 3, 29), 1));
    QCOMPARE(dayOfTheChange.end, midnight(QDate(2026, 3, 30), 2));
    const UnixPeriod none = daysFrom(QDate(2026, 3, 29), 0);
    QCOMPARE(none.start, none.end);
}

void TestUnixPeriod::invalidDateGivesNothing()
{
    QVERIFY(!mondayOf(QDate()).isValid());
    QCOMPARE(startOfDay(QDate()), qint64(0));
    QCOMPARE(weekOf(QDate()).end, qint64(0));
}

QTEST_GUILESS_MAIN(TestUnixPeriod)
#include "tst_unixperiod.moc"
