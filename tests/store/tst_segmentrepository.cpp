#include "store/segmentrepository.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestSegmentRepository : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void operationsAreSlots();
    void addsUnderANewKey();
    void invalidTimesAreStoredAsNull();
    void loads();
    void missingKeyGivesTheRecordLoadedLast();
    void updatesOneRow();
    void deleteTellsItsKeyFirst();
    void deleteIsRefusedWhileItemsStandOnTheSlot();
    void moveTakesEveryRowOfThePosition();

private:
    QStringList segments() const
    {
        return m_database.rows("SELECT segmentID, name, TIME_FORMAT(start, '%T'), TIME_FORMAT(stop, '%T'), position "
                               "FROM via_segments ORDER BY segmentID");
    }

    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

void TestSegmentRepository::init()
{
    m_database.clear();
    m_database.exec("INSERT INTO via_segments VALUES (1, 'Obed', '11:00:00', '13:30:15', 1)");
}

void TestSegmentRepository::operationsAreSlots()
{
    const SegmentRepository repository(m_database.db());
    for (const char *slot : {"loadSegment(uint)", "addSegment(SegmentRecord)", "updateSegment(SegmentRecord)",
                             "deleteSegment(uint)", "moveSegment(uint,uint)"})
        QVERIFY2(repository.metaObject()->indexOfSlot(slot) >= 0, slot);
}

void TestSegmentRepository::addsUnderANewKey()
{
    QVERIFY(SegmentRepository(m_database.db()).addSegment({77, "Večera", QTime(17, 0), QTime(23, 59, 59), 2}));
    QCOMPARE(segments(), (QStringList{"1|Obed|11:00:00|13:30:15|1", "2|Večera|17:00:00|23:59:59|2"}));
}

void TestSegmentRepository::invalidTimesAreStoredAsNull()
{
    SegmentRepository repository(m_database.db());
    QVERIFY(repository.addSegment({0, "Večera", QTime(), QTime(), 2}));
    QCOMPARE(segments().value(1), QString("2|Večera|NULL|NULL|2"));
    const SegmentRecord segment = repository.loadSegment(2);
    QVERIFY(!segment.start.isValid());
    QVERIFY(!segment.stop.isValid());
}

void TestSegmentRepository::loads()
{
    const SegmentRecord segment = SegmentRepository(m_database.db()).loadSegment(1);
    QCOMPARE(segment.segmentID, 1U);
    QCOMPARE(segment.name, QString("Obed"));
    QCOMPARE(segment.start, QTime(11, 0));
    QCOMPARE(segment.stop, QTime(13, 30, 15));
    QCOMPARE(segment.position, 1U);
}

void TestSegmentRepository::missingKeyGivesTheRecordLoadedLast()
{
    SegmentRepository repository(m_database.db());
    LogCatcher log;
    QCOMPARE(repository.loadSegment(99).segmentID, 0U);
    QVERIFY(!repository.loadSegment(99).start.isValid());
    QCOMPARE(repository.loadSegment(1).segmentID, 1U);
    const SegmentRecord stale = repository.loadSegment(99);
    QCOMPARE(stale.segmentID, 1U);
    QCOMPARE(stale.name, QString("Obed"));
    QCOMPARE(stale.start, QTime(11, 0));
    QCOMPARE(log.lines(), QStringList());
}

void TestSegmentRepository::updatesOneRow()
{
    m_database.exec("INSERT INTO via_segments VALUES (2, 'Večera', '17:00', '18:00', 2)");
    SegmentRepository repository(m_database.db());
    QVERIFY(repository.updateSegment({2, "Raňajky", QTime(6, 0), QTime(7, 0), 3}));
    QVERIFY(repository.updateSegment({99, "x", QTime(), QTime(), 3})); // a missing key is no failure
    QCOMPARE(segments(), (QStringList{"1|Obed|11:00:00|13:30:15|1", "2|Raňajky|06:00:00|07:00:00|3"}));
}

void TestSegmentRepository::deleteTellsItsKeyFirst()
{
    LogCatcher log;
    QVERIFY(SegmentRepository(m_database.db()).deleteSegment(1));
    QCOMPARE(segments(), QStringList());
    QCOMPARE(log.lines(QtDebugMsg), QStringList{"deleting segment with ID: 1"});
}

void TestSegmentRepository::deleteIsRefusedWhileItemsStandOnTheSlot()
{
    m_database.exec("INSERT INTO via_types (name) VALUES ('t')");
    m_database.exec("INSERT INTO via_foods (typeID, name) VALUES (1, 'f')");
    m_database.exec("INSERT INTO via_orderables (foodID, segmentID, date) VALUES (1, 1, '2024-01-04')");
    LogCatcher log;
    m_boxes.expectBox(
        "Chyba databázy",
        "Nepodarilo sa zmazať typ výdaja! Skúste najprv zmazať všetky priradené objednávateľné položky ku "
        "typu výdaja.");
    QVERIFY(!SegmentRepository(m_database.db()).deleteSegment(1));
    QCOMPARE(segments(), QStringList{"1|Obed|11:00:00|13:30:15|1"});
    QCOMPARE(m_database.value("SELECT COUNT(*) FROM via_orderables").toInt(), 1);
    QCOMPARE(log.lines().value(0), QString("deleting segment with ID: 1"));
    QVERIFY(log.critical().value(0).startsWith("SegmentRepository(deleting) - SQL ERROR: Cannot delete or update"));
}

void TestSegmentRepository::moveTakesEveryRowOfThePosition()
{
    m_database.exec("INSERT INTO via_segments VALUES (2, 'b', NULL, NULL, 2), (3, 'c', NULL, NULL, 1)");
    QVERIFY(SegmentRepository(m_database.db()).moveSegment(1, 2));
    QCOMPARE(m_database.rows("SELECT segmentID, position FROM via_segments ORDER BY segmentID"),
             (QStringList{"1|2", "2|2", "3|2"}));
}

QTEST_MAIN(TestSegmentRepository)
#include "tst_segmentrepository.moc"
