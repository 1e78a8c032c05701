#include "localtime.h"
#include "models/peoplemodel.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

namespace {

/// Its Monday is the 12th, in winter time.
QDate week()
{
    return {2026, 1, 14};
}

QString weekStart()
{
    return QString::number(midnight(QDate(2026, 1, 12), 1));
}

QString weekEnd()
{
    return QString::number(midnight(QDate(2026, 1, 19), 1));
}

} // namespace

/// Who is listed: scope and week.
class TestPeopleModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void listsTheScope_data();
    void listsTheScope();
    void keepsWhoWorksPartlyInTheWeek_data();
    void keepsWhoWorksPartlyInTheWeek();
    void setDateDoesNotQuery();
    void beginsWithTheWeekOfToday();
    void sortsBySlovakSurnames();
    void showsNamesAsTyped();
    void openEndIsShownAsNothing();
    void listsThousands();
    void failureIsLoggedAndLeavesTheModelEmpty();
    void namesOnePerson();
    void failedNameIsLoggedAndShown();

private:
    void addPerson(int uid, const QString &surname, qint64 begin, const QString &end = QStringLiteral("NULL"),
                   int status = 1) const;

    std::unique_ptr<TestDatabase> m_database;
};

void TestPeopleModel::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestPeopleModel::cleanupTestCase()
{
    m_database.reset();
}

void TestPeopleModel::init()
{
    m_database->clear();
}

void TestPeopleModel::addPerson(int uid, const QString &surname, qint64 begin, const QString &end, int status) const
{
    m_database->exec(
        QStringLiteral("INSERT INTO people (uid, pid, name, surname, status, begin, end) VALUES (%1, %2, 'Ján', "
                       "'%3', %4, %5, %6)")
            .arg(QString::number(uid), QString::number(100 + uid), surname, QString::number(status),
                 QString::number(begin), end));
}

void TestPeopleModel::listsTheScope_data()
{
    QTest::addColumn<uint>("adminID");
    QTest::addColumn<uint>("bid");
    QTest::addColumn<QString>("uids");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QString>("logLine");

    const QString select = QStringLiteral("SELECT p.uid, CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) AS name, ");
    const QString order = QStringLiteral(" GROUP BY p.uid ORDER BY p.surname");
    const QString inWeek =
        QStringLiteral("(p.begin < %1 AND (p.end IS NULL OR p.end = 0 OR p.end >= %2))").arg(weekEnd(), weekStart());
    const QString logLine =
        QStringLiteral("PeopleModel::tableQuery() ::: People model query with admin ID:  %1 branch ID:  %2");

    QTest::newRow("everybody") << 0U << 0U << "1,2,3,4"
                               << "uid,name,begin,end"
                               << select + QStringLiteral("p.begin, p.end FROM people p WHERE p.status AND ") + inWeek
            + order << logLine.arg(0).arg(0);
    QTest::newRow("of a branch")
        << 0U << 5U << "1,2"
        << "uid,name,begin,end"
        << select
            + QStringLiteral(
                "p.begin, p.end FROM people p LEFT JOIN brape bp ON p.uid=bp.uid WHERE p.status AND bp.bid=5 AND ")
            + inWeek + order
        << logLine.arg(0).arg(5);
    QTest::newRow("of an administrator")
        << 7U << 0U << "1,3"
        << "uid,name,begin,end"
        << select
            + QStringLiteral(
                "p.begin, p.end FROM people p LEFT JOIN admins_people ap ON p.uid=ap.uid WHERE p.status AND "
                "ap.aid=7 AND ")
            + inWeek + order
        << logLine.arg(7).arg(0);
    QTest::newRow("of both relations")
        << 7U << 5U << "1"
        << "uid,name,aid,bid,begin,end"
        << select
            + QStringLiteral(
                "ap.aid, bp.bid, p.begin, p.end FROM people p LEFT JOIN admins_people ap ON p.uid=ap.uid LEFT "
                "JOIN brape bp ON p.uid=bp.uid WHERE p.status AND bp.bid=5 AND ap.aid=7 AND ")
            + inWeek + order
        << logLine.arg(7).arg(5);
}

void TestPeopleModel::listsTheScope()
{
    QFETCH(const uint, adminID);
    QFETCH(const uint, bid);
    QFETCH(const QString, uids);
    QFETCH(const QString, fields);
    QFETCH(const QString, statement);
    QFETCH(const QString, logLine);

    for (int uid = 1; uid <= 4; ++uid)
        addPerson(uid, QStringLiteral("Novák%1").arg(uid), 1000 + uid);
    addPerson(5, QStringLiteral("Inactive"), 1000, QStringLiteral("NULL"), 0);
    m_database->exec(QStringLiteral("INSERT INTO brape (uid, bid) VALUES (1, 5), (2, 5), (3, 6), (5, 5), (1, 6)"));
    m_database->exec(QStringLiteral("INSERT INTO admins_people (uid, aid) VALUES (1, 7), (3, 7), (2, 8), (5, 7)"));

    PeopleModel people(m_database->db());
    const QAbstractItemModelTester tester(&people);
    people.setDate(week());
    LogCatcher log;
    people.tableQuery(adminID, bid);
    QCOMPARE(log.lines(), QStringList{logLine});
    QCOMPARE(log.lines(QtDebugMsg).size(), 1);
    QCOMPARE(columnTexts(people, 0).join(QLatin1Char(',')), uids);
    QCOMPARE(people.query().lastQuery(), statement);
    QStringList names;
    for (int column = 0; column < people.record().count(); ++column)
        names.append(people.record().fieldName(column));
    QCOMPARE(names.join(QLatin1Char(',')), fields);
    QCOMPARE(people.headerData(0, Qt::Horizontal).toString(), QStringLiteral("uid"));
    QCOMPARE(people.headerData(1, Qt::Horizontal).toString(), QStringLiteral("name"));
    QCOMPARE(people.index(0, 1).data().toString(), QStringLiteral("[101] Novák1 Ján"));
    QCOMPARE(people.record(0).value(QStringLiteral("begin")).toLongLong(), qint64(1001));
    QCOMPARE(people.workingPeriodText(1), QStringLiteral("01.01.1970 - neurčito"));
}

void TestPeopleModel::keepsWhoWorksPartlyInTheWeek_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QDate>("monday");
    QTest::addColumn<int>("startHours");
    QTest::addColumn<int>("endHours");

    QTest::newRow("winter") << QDate(2026, 1, 14) << QDate(2026, 1, 12) << 1 << 1;
    QTest::newRow("clocks go forward") << QDate(2026, 3, 29) << QDate(2026, 3, 23) << 1 << 2;
    QTest::newRow("clocks go back") << QDate(2026, 10, 25) << QDate(2026, 10, 19) << 2 << 1;
    QTest::newRow("end of 2020") << QDate(2020, 12, 31) << QDate(2020, 12, 28) << 1 << 1;
    QTest::newRow("start of 2021") << QDate(2021, 1, 3) << QDate(2020, 12, 28) << 1 << 1;
    QTest::newRow("end of 2024") << QDate(2024, 12, 30) << QDate(2024, 12, 30) << 1 << 1;
}

void TestPeopleModel::keepsWhoWorksPartlyInTheWeek()
{
    QFETCH(const QDate, date);
    QFETCH(const QDate, monday);
    QFETCH(const int, startHours);
    QFETCH(const int, endHours);

    const qint64 start = midnight(monday, startHours);
    const qint64 end = midnight(monday.addDays(7), endHours);
    addPerson(1, QStringLiteral("A open end"), start - 1000);
    addPerson(2, QStringLiteral("B end 0"), start - 1000, QStringLiteral("0"));
    addPerson(3, QStringLiteral("C ended on Monday 00:00"), start - 1000, QString::number(start));
    addPerson(4, QStringLiteral("D ended a second before"), start - 1000, QString::number(start - 1));
    addPerson(5, QStringLiteral("E begins in the last second"), end - 1);
    addPerson(6, QStringLiteral("F begins on the next Monday"), end);
    addPerson(7, QStringLiteral("G ends later"), start - 1000, QString::number(end + 1000));
    addPerson(8, QStringLiteral("H inactive"), start - 1000, QStringLiteral("NULL"), 0);
    addPerson(9, QStringLiteral("I only within"), start + 1000, QString::number(start + 2000));

    PeopleModel people(m_database->db());
    people.setDate(date);
    people.tableQuery(0, 0);
    QCOMPARE(columnTexts(people, 0).join(QString()), QStringLiteral("123579"));
}

void TestPeopleModel::setDateDoesNotQuery()
{
    addPerson(1, QStringLiteral("Novák"), midnight(QDate(2026, 1, 20), 1));
    PeopleModel people(m_database->db());
    people.setDate(week());
    people.tableQuery(0, 0);
    QCOMPARE(people.rowCount(), 0);
    LogCatcher log;
    people.setDate(QDate(2026, 1, 20));
    QCOMPARE(people.rowCount(), 0);
    QCOMPARE(log.lines(), QStringList());
    people.tableQuery(0, 0);
    QCOMPARE(people.rowCount(), 1);
}

void TestPeopleModel::beginsWithTheWeekOfToday()
{
    const QDate today = QDate::currentDate();
    const auto noon = [](const QDate &date) { return QDateTime(date, QTime(12, 0)).toSecsSinceEpoch(); };
    addPerson(1, QStringLiteral("Begins today"), noon(today));
    addPerson(2, QStringLiteral("Begins in a week"), noon(today.addDays(7)));
    addPerson(3, QStringLiteral("Ended a week ago"), 0, QString::number(noon(today.addDays(-7))));
    PeopleModel people(m_database->db());
    QCOMPARE(people.rowCount(), 0);
    people.tableQuery(0, 0);
    QCOMPARE(columnTexts(people, 0), QStringList{QStringLiteral("1")});
}

void TestPeopleModel::sortsBySlovakSurnames()
{
    const QStringList surnames{QStringLiteral("Hájek"), QStringLiteral("Chovan"), QStringLiteral("Ivan"),
                               QStringLiteral("Čech"),  QStringLiteral("Cibuľa"), QStringLiteral("Dedek")};
    for (int i = 0; i < surnames.size(); ++i)
        addPerson(i + 1, surnames.at(i), 0);
    PeopleModel people(m_database->db());
    people.tableQuery(0, 0);
    QCOMPARE(columnTexts(people, 0).join(QString()), QStringLiteral("546123"));
}

void TestPeopleModel::showsNamesAsTyped()
{
    addPerson(1, QStringLiteral("<b>O\\'Hara</b> %1 [x] \\\"; --"), 0);
    PeopleModel people(m_database->db());
    people.tableQuery(0, 0);
    const QString label = QStringLiteral("[101] <b>O'Hara</b> %1 [x] \"; -- Ján");
    QCOMPARE(people.index(0, 1).data().toString(), label);
    QCOMPARE(people.personName(1), label);
}

void TestPeopleModel::openEndIsShownAsNothing()
{
    addPerson(1, QStringLiteral("Novák"), 50);
    PeopleModel people(m_database->db());
    people.tableQuery(0, 0);
    QCOMPARE(rowText(people, 0), QStringLiteral("1|[101] Novák Ján|50|"));
    QVERIFY(people.record(0).isNull(QStringLiteral("end")));
}

void TestPeopleModel::listsThousands()
{
    m_database->exec(
        QStringLiteral("INSERT INTO people (uid, pid, name, surname) SELECT seq, seq, 'x', seq FROM seq_1_to_2000"));
    PeopleModel people(m_database->db());
    people.tableQuery(0, 0);
    QCOMPARE(people.rowCount(), 2000);
    QVERIFY(!people.canFetchMore());
    for (int uid = 1; uid <= 2000; ++uid)
        QVERIFY(people.isInWorkingPeriod(uid, week(), 7));
}

void TestPeopleModel::failureIsLoggedAndLeavesTheModelEmpty()
{
    addPerson(1, QStringLiteral("Novák"), 0);
    PeopleModel people(m_database->db());
    people.tableQuery(0, 0);
    QVERIFY(people.isInWorkingPeriod(1, week(), 7));

    const MissingTable missing(*m_database, QStringLiteral("people"));
    BoxAnswerer boxes;
    LogCatcher log;
    people.tableQuery(0, 0);
    QCOMPARE(log.critical(), QStringList{QStringLiteral("PeopleModel - setQuery ERROR: [1146]: ") + missing.error()});
    QCOMPARE(people.rowCount(), 0);
    QVERIFY(!people.isInWorkingPeriod(1, week(), 7));
    QCOMPARE(people.workingPeriodText(1), QString());
    QCoreApplication::processEvents();
    QCOMPARE(boxes.answered(), 0);
    BOXES_DONE(boxes);
}

void TestPeopleModel::namesOnePerson()
{
    addPerson(1, QStringLiteral("Novák"), 0, QStringLiteral("1"), 0);
    PeopleModel people(m_database->db());
    QCOMPARE(people.personName(1), QStringLiteral("[101] Novák Ján"));
    QCOMPARE(people.personName(2), QString());
    QCOMPARE(people.personName(-1), QString());
}

void TestPeopleModel::failedNameIsLoggedAndShown()
{
    PeopleModel people(m_database->db());
    const MissingTable missing(*m_database, QStringLiteral("people"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať zamestnanca!"));
    LogCatcher log;
    QCOMPARE(people.personName(1), QString());
    QCOMPARE(log.critical(), QStringList{QStringLiteral("PeopleModel(loadPerson) - SQL ERROR: ") + missing.error()});
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 1);
}

QTEST_MAIN(TestPeopleModel)
#include "tst_peoplemodel.moc"
