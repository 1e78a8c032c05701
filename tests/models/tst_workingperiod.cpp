#include "localtime.h"
#include "models/peoplemodel.h"
#include "support/testdatabase.h"

#include <QtTest>

namespace {

constexpr qint64 dayLength = 86400;

/// The clocks go forward on its Sunday, the 29th.
QDate monday()
{
    return {2026, 3, 23};
}

qint64 mondayStart()
{
    return midnight(monday(), 1);
}

qint64 nextMondayStart()
{
    return midnight(monday().addDays(7), 2);
}

} // namespace

/// Whether a listed person works in a stretch of days, and how the employment is written.
class TestWorkingPeriod : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void isInWorkingPeriod_data();
    void isInWorkingPeriod();
    void isReadByNameWhateverTheColumns();
    void strangerIsInNoPeriod();
    void writesTheEmployment_data();
    void writesTheEmployment();

private:
    /// A model with person 1, listed whatever the employment, and the scope of administrator 3 and branch 4 set up.
    std::unique_ptr<PeopleModel> modelWith(qint64 begin, const QString &end) const;

    std::unique_ptr<TestDatabase> m_database;
};

void TestWorkingPeriod::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestWorkingPeriod::cleanupTestCase()
{
    m_database.reset();
}

std::unique_ptr<PeopleModel> TestWorkingPeriod::modelWith(qint64 begin, const QString &end) const
{
    m_database->clear();
    m_database->exec(
        QStringLiteral("INSERT INTO people (uid, pid, name, surname, begin, end) VALUES (1, 1, 'n', 's', %1, %2)")
            .arg(begin)
            .arg(end));
    m_database->exec(QStringLiteral("INSERT INTO admins_people (uid, aid) VALUES (1, 3)"));
    m_database->exec(QStringLiteral("INSERT INTO brape (uid, bid) VALUES (1, 4)"));
    auto people = std::make_unique<PeopleModel>(m_database->db());
    people->setDate(QDateTime::fromSecsSinceEpoch(begin).date());
    people->tableQuery(0, 0);
    return people;
}

void TestWorkingPeriod::isInWorkingPeriod_data()
{
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("days");
    QTest::addColumn<bool>("works");

    const qint64 start = mondayStart();
    const qint64 end = nextMondayStart();
    const QString open = QStringLiteral("NULL");
    const qint64 before = start - 10 * dayLength;

    QTest::newRow("works, open end") << before << open << 7 << true;
    QTest::newRow("works, end 0") << before << "0" << 7 << true;
    QTest::newRow("began at that moment") << start << open << 7 << true;
    QTest::newRow("began at that moment, no days asked") << start << open << 0 << true;
    QTest::newRow("begins on Wednesday, asked for a week") << start + 2 * dayLength << open << 7 << true;
    QTest::newRow("begins on Wednesday, asked for a day") << start + 2 * dayLength << open << 1 << false;
    QTest::newRow("begins on Wednesday, asked for two days") << start + 2 * dayLength << open << 2 << false;
    QTest::newRow("begins on Wednesday, asked for three days") << start + 2 * dayLength << open << 3 << true;
    QTest::newRow("begins in the last second of the week") << end - 1 << open << 7 << true;
    QTest::newRow("begins with the next week") << end << open << 7 << false;
    QTest::newRow("begins and ends within") << start + 10 << QString::number(start + 20) << 7 << true;
    QTest::newRow("ends at that moment") << before << QString::number(start) << 7 << true;
    QTest::newRow("ended a second before") << before << QString::number(start - 1) << 7 << false;
    QTest::newRow("ends within") << before << QString::number(start + 1) << 7 << true;
    QTest::newRow("ends later") << before << QString::number(end + 1) << 1 << true;
}

void TestWorkingPeriod::isInWorkingPeriod()
{
    QFETCH(const qint64, begin);
    QFETCH(const QString, end);
    QFETCH(const int, days);
    QFETCH(const bool, works);

    const auto people = modelWith(begin, end);
    QCOMPARE(people->rowCount(), 1);
    QCOMPARE(people->isInWorkingPeriod(1, monday(), days), works);
}

void TestWorkingPeriod::isReadByNameWhateverTheColumns()
{
    const auto people = modelWith(mondayStart() + dayLength, QString::number(nextMondayStart()));
    people->tableQuery(3, 4);
    QCOMPARE(people->columnCount(), 6);
    QVERIFY(people->isInWorkingPeriod(1, monday(), 7));
    QVERIFY(!people->isInWorkingPeriod(1, monday(), 1));
    QCOMPARE(people->workingPeriodText(1), QStringLiteral("24.03.2026 - 30.03.2026"));
}

void TestWorkingPeriod::strangerIsInNoPeriod()
{
    const auto people = modelWith(0, QStringLiteral("NULL"));
    for (const int uid : {0, -1, 2}) {
        QVERIFY(!people->isInWorkingPeriod(uid, monday(), 7));
        QCOMPARE(people->workingPeriodText(uid), QString());
    }
}

void TestWorkingPeriod::writesTheEmployment_data()
{
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("text");

    const qint64 begin = midnight(QDate(2020, 2, 1), 1);
    QTest::newRow("no end") << begin << "NULL" << QStringLiteral("01.02.2020 - neurčito");
    QTest::newRow("end 0") << begin << "0" << QStringLiteral("01.02.2020 - neurčito");
    QTest::newRow("end on a summer day") << begin << QString::number(midnight(QDate(2026, 8, 31), 2))
                                         << QStringLiteral("01.02.2020 - 31.08.2026");
    QTest::newRow("last second of a day")
        << begin << QString::number(midnight(QDate(2026, 9, 1), 2) - 1) << QStringLiteral("01.02.2020 - 31.08.2026");
}

void TestWorkingPeriod::writesTheEmployment()
{
    QFETCH(const qint64, begin);
    QFETCH(const QString, end);
    QFETCH(const QString, text);

    const auto people = modelWith(begin, end);
    QCOMPARE(people->workingPeriodText(1), text);
}

QTEST_MAIN(TestWorkingPeriod)
#include "tst_workingperiod.moc"
