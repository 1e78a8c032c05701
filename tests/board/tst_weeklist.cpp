#include "board/weeklist.h"

#include <QtTest>

class TestWeekList : public QObject {
    Q_OBJECT

private slots:
    void thursday_data();
    void thursday();
    void text_data();
    void text();
    void mondayComesBack_data();
    void mondayComesBack();
    void everyWeekInsideAYearComesBack();
    void strangeTextsGiveNoMonday_data();
    void strangeTextsGiveNoMonday();
    void list_data();
    void list();
    void rowsAndDatesAgree_data();
    void rowsAndDatesAgree();
    void rowsOutsideTheListFollowTheRule();
    void hugeNumbersOfWeeksAreBounded();
};

namespace {

QDate day(const char *iso)
{
    return QDate::fromString(QLatin1String(iso), Qt::ISODate);
}

} // namespace

void TestWeekList::thursday_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QDate>("thursday");
    const QDate monday = day("2020-03-16");
    for (int offset = 0; offset < 7; ++offset)
        QTest::addRow("day %d of a week", offset + 1) << monday.addDays(offset) << day("2020-03-19");
    QTest::newRow("last day of 2020") << day("2020-12-31") << day("2020-12-31");
    QTest::newRow("Sunday of a week of last year") << day("2021-01-03") << day("2020-12-31");
    QTest::newRow("Monday of a week of next year") << day("2024-12-30") << day("2025-01-02");
    QTest::newRow("leap day") << day("2024-02-29") << day("2024-02-29");
    QTest::newRow("summer time begins") << day("2024-03-31") << day("2024-03-28");
    QTest::newRow("summer time ends") << day("2024-10-27") << day("2024-10-24");
}

void TestWeekList::thursday()
{
    QFETCH(QDate, day);
    QTEST(WeekList::thursdayOf(day), "thursday");
    QVERIFY(!WeekList::thursdayOf(QDate()).isValid());
}

void TestWeekList::text_data()
{
    QTest::addColumn<QDate>("thursday");
    QTest::addColumn<QString>("text");
    QTest::newRow("ordinary") << day("2020-03-19") << "12.týždeň / 2020 (16.3. - 22.3.)";
    QTest::newRow("across months") << day("2020-04-02") << "14.týždeň / 2020 (30.3. - 5.4.)";
    QTest::newRow("first week, all in the new year") << day("2018-01-04") << "1.týždeň / 2018 (1.1. - 7.1.)";
    QTest::newRow("week 53 with the 31st") << day("2020-12-31") << "53.týždeň / 2020 (28.12. - 3.1.)";
    QTest::newRow("week with the 3rd of January")
        << WeekList::thursdayOf(day("2021-01-03")) << "53.týždeň / 2020 (28.12. - 3.1.)";
    QTest::newRow("week after it") << day("2021-01-07") << "1.týždeň / 2021 (4.1. - 10.1.)";
    QTest::newRow("week 1 from December on")
        << WeekList::thursdayOf(day("2024-12-30")) << "1.týždeň / 2025 (30.12. - 5.1.)";
    QTest::newRow("summer time begins") << day("2024-03-28") << "13.týždeň / 2024 (25.3. - 31.3.)";
    QTest::newRow("summer time ends") << day("2024-10-24") << "43.týždeň / 2024 (21.10. - 27.10.)";
}

void TestWeekList::text()
{
    QFETCH(QDate, thursday);
    QTEST(WeekList::text(thursday), "text");
}

void TestWeekList::mondayComesBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("monday");
    QTest::newRow("ordinary") << "12.týždeň / 2020 (16.3. - 22.3.)" << day("2020-03-16");
    QTest::newRow("53rd week: Monday in the year of the text")
        << "53.týždeň / 2020 (28.12. - 3.1.)" << day("2020-12-28");
    QTest::newRow("first week from December on: a year late") << "1.týždeň / 2025 (30.12. - 5.1.)" << day("2025-12-30");
    QTest::newRow("summer time begins") << "13.týždeň / 2024 (25.3. - 31.3.)" << day("2024-03-25");
    QTest::newRow("summer time ends") << "43.týždeň / 2024 (21.10. - 27.10.)" << day("2024-10-21");
    QTest::newRow("leap day") << "9.týždeň / 2016 (29.2. - 6.3.)" << day("2016-02-29");
}

void TestWeekList::mondayComesBack()
{
    QFETCH(QString, text);
    QTEST(WeekList::mondayFromText(text), "monday");
}

void TestWeekList::everyWeekInsideAYearComesBack()
{
    int yearsLate = 0;
    for (QDate thursday = day("1999-01-07"); thursday < day("2061-01-01"); thursday = thursday.addDays(7)) {
        const QDate monday = thursday.addDays(-3);
        const QDate read = WeekList::mondayFromText(WeekList::text(thursday));
        if (monday.year() == thursday.year()) {
            QCOMPARE(read, monday);
        } else {
            QCOMPARE(read, QDate(monday.year() + 1, monday.month(), monday.day()));
            ++yearsLate;
        }
    }
    QVERIFY(yearsLate > 20);
}

void TestWeekList::strangeTextsGiveNoMonday_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("no slash") << "12.týždeň 2020 (16.3. - 22.3.)";
    QTest::newRow("no bracket") << "12.týždeň / 2020 16.3. - 22.3.";
    QTest::newRow("no day") << "12.týždeň / 2020 (";
    QTest::newRow("no month") << "12.týždeň / 2020 (16";
    QTest::newRow("no such day") << "12.týždeň / 2020 (31.2. - 6.3.)";
    QTest::newRow("29th of February of the wrong year") << "9.týždeň / 2019 (29.2. - 6.3.)";
    QTest::newRow("markers") << "%1/%2(%3.%4";
}

void TestWeekList::strangeTextsGiveNoMonday()
{
    QFETCH(QString, text);
    QVERIFY(!WeekList::mondayFromText(text).isValid());
}

void TestWeekList::list_data()
{
    QTest::addColumn<QDate>("today");
    QTest::addColumn<int>("shownWeeks");
    QTest::addColumn<QDate>("firstMenuDate");
    QTest::addColumn<QStringList>("weeks");

    const QStringList fromTwoAheadToThis{"14.týždeň / 2020 (30.3. - 5.4.)", "13.týždeň / 2020 (23.3. - 29.3.)",
                                         "12.týždeň / 2020 (16.3. - 22.3.)"};
    QTest::newRow("a menu of last week") << day("2020-03-18") << 2 << day("2020-03-15")
                                         << QStringList(fromTwoAheadToThis
                                                        + QStringList{"11.týždeň / 2020 (9.3. - 15.3.)"});
    QTest::newRow("first menu on a Monday") << day("2020-03-18") << 2 << day("2020-03-16") << fromTwoAheadToThis;
    QTest::newRow("first menu on a Sunday") << day("2020-03-18") << 2 << day("2020-03-22") << fromTwoAheadToThis;
    QTest::newRow("first menu ahead of this week")
        << day("2020-03-18") << 2 << day("2020-03-23") << QStringList(fromTwoAheadToThis.mid(0, 2));
    QTest::newRow("first menu ahead of the list") << day("2020-03-18") << 2 << day("2020-04-06") << QStringList();
    QTest::newRow("no weeks ahead") << day("2020-03-18") << 0 << day("2020-03-18")
                                    << QStringList(fromTwoAheadToThis.mid(2));
    QTest::newRow("a negative number of weeks ahead") << day("2020-03-18") << -1 << day("2020-03-18") << QStringList();

    for (int weekday = 1; weekday <= 7; ++weekday) {
        const QDate today = day("2020-03-16").addDays(weekday - 1);
        QTest::addRow("no menus, weekday %d", weekday)
            << today << 2 << QDate() << QStringList(fromTwoAheadToThis.mid(0, weekday <= 4 ? 3 : 2));
        QTest::addRow("menus, weekday %d", weekday) << today << 2 << day("2020-03-20") << fromTwoAheadToThis;
    }

    QTest::newRow("across new year") << day("2020-12-31") << 1 << day("2020-12-24")
                                     << QStringList{"1.týždeň / 2021 (4.1. - 10.1.)",
                                                    "53.týždeň / 2020 (28.12. - 3.1.)",
                                                    "52.týždeň / 2020 (21.12. - 27.12.)"};
    QTest::newRow("on the Sunday after new year")
        << day("2021-01-03") << 1 << day("2021-01-03")
        << QStringList{"1.týždeň / 2021 (4.1. - 10.1.)", "53.týždeň / 2020 (28.12. - 3.1.)"};
    QTest::newRow("on the Monday before new year")
        << day("2024-12-30") << 1 << day("2024-12-29")
        << QStringList{"2.týždeň / 2025 (6.1. - 12.1.)", "1.týždeň / 2025 (30.12. - 5.1.)",
                       "52.týždeň / 2024 (23.12. - 29.12.)"};
    QTest::newRow("around the start of summer time")
        << day("2024-03-31") << 1 << day("2024-03-24")
        << QStringList{"14.týždeň / 2024 (1.4. - 7.4.)", "13.týždeň / 2024 (25.3. - 31.3.)",
                       "12.týždeň / 2024 (18.3. - 24.3.)"};
    QTest::newRow("around the end of summer time")
        << day("2024-10-27") << 1 << day("2024-10-20")
        << QStringList{"44.týždeň / 2024 (28.10. - 3.11.)", "43.týždeň / 2024 (21.10. - 27.10.)",
                       "42.týždeň / 2024 (14.10. - 20.10.)"};
}

void TestWeekList::list()
{
    QFETCH(QDate, today);
    QFETCH(int, shownWeeks);
    QFETCH(QDate, firstMenuDate);
    QTEST(WeekList::texts(today, shownWeeks, firstMenuDate), "weeks");
}

void TestWeekList::rowsAndDatesAgree_data()
{
    QTest::addColumn<QDate>("today");
    for (const char *iso : {"2020-03-16", "2020-12-31", "2021-01-03", "2024-12-30", "2024-03-30", "2024-03-31",
                            "2024-04-01", "2024-10-26", "2024-10-27", "2024-10-28", "2024-02-29"})
        QTest::newRow(iso) << day(iso);
}

void TestWeekList::rowsAndDatesAgree()
{
    QFETCH(QDate, today);
    const QStringList weeks = WeekList::texts(today, 4, today.addDays(-420));
    QCOMPARE(weeks.size(), 65);
    for (int row = 0; row < weeks.size(); ++row) {
        const QDate thursday = WeekList::thursdayAt(today, 4, row);
        QCOMPARE(thursday.dayOfWeek(), int(Qt::Thursday));
        QCOMPARE(WeekList::text(thursday), weeks.at(row));
    }
    QCOMPARE(WeekList::thursdayAt(today, 4, 4), WeekList::thursdayOf(today));
}

void TestWeekList::rowsOutsideTheListFollowTheRule()
{
    QCOMPARE(WeekList::thursdayAt(day("2020-03-18"), 4, -1), day("2020-04-23"));
    QCOMPARE(WeekList::thursdayAt(day("2020-03-18"), 4, 100), day("2018-05-17"));
}

void TestWeekList::hugeNumbersOfWeeksAreBounded()
{
    QCOMPARE(WeekList::boundedWeeks(4), 4);
    QCOMPARE(WeekList::boundedWeeks(5200), 5200);
    QCOMPARE(WeekList::boundedWeeks(2147483647), 5200);
    const QStringList weeks = WeekList::texts(day("2020-03-18"), WeekList::boundedWeeks(2147483647), QDate());
    QCOMPARE(weeks.size(), 5201);
    QCOMPARE(weeks.last(), QStringLiteral("12.týždeň / 2020 (16.3. - 22.3.)"));
    QCOMPARE(WeekList::texts(day("2020-03-18"), WeekList::boundedWeeks(-2147483647), QDate()), QStringList());
}

QTEST_GUILESS_MAIN(TestWeekList)
#include "tst_weeklist.moc"
