#include "exports/reportmonth.h"

#include <QLocale>
#include <QtTest>

class TestReportMonth : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void days_data();
    void days();
    void everyDayHasItsMonth();
    void invalidDay();
    void text_data();
    void text();
};

void TestReportMonth::days_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::newRow("31 days") << QDate(2020, 3, 19) << QDate(2020, 3, 1) << QDate(2020, 3, 31);
    QTest::newRow("30 days") << QDate(2020, 4, 2) << QDate(2020, 4, 1) << QDate(2020, 4, 30);
    QTest::newRow("28 days") << QDate(2021, 2, 25) << QDate(2021, 2, 1) << QDate(2021, 2, 28);
    QTest::newRow("leap year") << QDate(2020, 2, 6) << QDate(2020, 2, 1) << QDate(2020, 2, 29);
    QTest::newRow("no leap year") << QDate(2100, 2, 4) << QDate(2100, 2, 1) << QDate(2100, 2, 28);
    QTest::newRow("December") << QDate(2020, 12, 31) << QDate(2020, 12, 1) << QDate(2020, 12, 31);
    QTest::newRow("January") << QDate(2021, 1, 7) << QDate(2021, 1, 1) << QDate(2021, 1, 31);
    QTest::newRow("first day") << QDate(2020, 10, 1) << QDate(2020, 10, 1) << QDate(2020, 10, 31);
    QTest::newRow("last day") << QDate(2020, 9, 30) << QDate(2020, 9, 1) << QDate(2020, 9, 30);
}

void TestReportMonth::days()
{
    QFETCH(QDate, day);
    QTEST(ReportMonth::firstDay(day), "first");
    QTEST(ReportMonth::lastDay(day), "last");
}

void TestReportMonth::everyDayHasItsMonth()
{
    for (QDate day(2019, 12, 1); day < QDate(2021, 3, 1); day = day.addDays(1)) {
        QCOMPARE(ReportMonth::firstDay(day), QDate(day.year(), day.month(), 1));
        QCOMPARE(ReportMonth::lastDay(day), QDate(day.year(), day.month(), day.daysInMonth()));
    }
}

void TestReportMonth::invalidDay()
{
    QVERIFY(!ReportMonth::firstDay(QDate()).isValid());
    QVERIFY(!ReportMonth::lastDay(QDate()).isValid());
    QCOMPARE(ReportMonth::text(QDate()), QString());
}

void TestReportMonth::text_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("Slovak") << "sk_SK"
                            << "marca 2020";
    QTest::newRow("American") << "en_US"
                              << "March 2020";
    QTest::newRow("C") << "C"
                       << "March 2020";
}

void TestReportMonth::text()
{
    QFETCH(QString, locale);
    QLocale::setDefault(QLocale(locale));
    QTEST(ReportMonth::text(QDate(2020, 3, 19)), "text");
}

QTEST_APPLESS_MAIN(TestReportMonth)
#include "tst_reportmonth.moc"
