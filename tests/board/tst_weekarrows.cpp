#include "board/weekarrows.h"

#include <QtTest>

class TestWeekArrows : public QObject {
    Q_OBJECT

private slots:
    void inList_data();
    void inList();
    void inEmployment_data();
    void inEmployment();
    void everyEmploymentMatchesTheDayByDayRule();
};

namespace {

/// The rule as it is told, one day and one button at a time.
WeekArrows dayByDay(const EmployedDays &employed, int index, int count, WeekArrows arrows)
{
    for (std::size_t j = 0; j < 7; ++j) {
        if (!employed[j + 1]) {
            if (j == 0 || index == count - 1)
                arrows.older = false;
            if (j == 6 || index == 0)
                arrows.newer = false;
        } else {
            if (j == 0 && index < count - 1)
                arrows.older = true;
            if (j == 6 && index > 0)
                arrows.newer = true;
        }
        if (j == 0)
            arrows.older = employed[0];
        if (j == 6)
            arrows.newer = employed[8];
    }
    return arrows;
}

} // namespace

void TestWeekArrows::inList_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("older");
    QTest::addColumn<bool>("newer");
    QTest::newRow("newest") << 0 << 5 << true << false;
    QTest::newRow("second") << 1 << 5 << true << true;
    QTest::newRow("last but one") << 3 << 5 << true << true;
    QTest::newRow("oldest") << 4 << 5 << false << true;
    QTest::newRow("the only one counts as newest") << 0 << 1 << true << false;
    QTest::newRow("nothing selected") << -1 << 5 << true << true;
}

void TestWeekArrows::inList()
{
    QFETCH(int, index);
    QFETCH(int, count);
    const WeekArrows arrows = arrowsInList(index, count);
    QTEST(arrows.older, "older");
    QTEST(arrows.newer, "newer");
}

void TestWeekArrows::inEmployment_data()
{
    QTest::addColumn<QString>("days");
    QTest::addColumn<bool>("isLastRow");
    QTest::addColumn<bool>("older");
    QTest::addColumn<bool>("newer");
    QTest::newRow("employed all along") << "1 1111111 1" << false << true << true;
    QTest::newRow("employed all along, last row") << "1 1111111 1" << true << true << true;
    QTest::newRow("left on Wednesday") << "1 1110000 0" << false << true << false;
    QTest::newRow("left on Wednesday, last row") << "1 1110000 0" << true << false << false;
    QTest::newRow("left on Sunday") << "1 1111111 0" << false << true << false;
    QTest::newRow("began on Monday") << "0 1111111 1" << false << false << true;
    QTest::newRow("began on Friday") << "0 0000111 1" << false << false << true;
    QTest::newRow("left on the Sunday before") << "1 0000000 0" << false << true << false;
    QTest::newRow("left on the Sunday before, last row") << "1 0000000 0" << true << false << false;
    QTest::newRow("begins on the Monday after") << "0 0000000 1" << false << false << true;
    QTest::newRow("never") << "0 0000000 0" << false << false << false;
}

void TestWeekArrows::inEmployment()
{
    QFETCH(QString, days);
    QFETCH(bool, isLastRow);
    days.remove(' ');
    EmployedDays employed{};
    for (int day = 0; day < days.size(); ++day)
        employed[std::size_t(day)] = days.at(day) == '1';
    const WeekArrows arrows = arrowsInEmployment(employed, isLastRow);
    QTEST(arrows.older, "older");
    QTEST(arrows.newer, "newer");
}

void TestWeekArrows::everyEmploymentMatchesTheDayByDayRule()
{
    for (unsigned bits = 0; bits < 512; ++bits) {
        EmployedDays employed{};
        for (std::size_t day = 0; day < employed.size(); ++day)
            employed[day] = (bits >> day & 1U) != 0;
        for (int index = 0; index < 3; ++index) {
            for (const WeekArrows before : {WeekArrows{true, true}, WeekArrows{false, false}}) {
                const WeekArrows told = dayByDay(employed, index, 3, before);
                const WeekArrows arrows = arrowsInEmployment(employed, index == 2);
                QCOMPARE(arrows.older, told.older);
                QCOMPARE(arrows.newer, told.newer);
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestWeekArrows)
#include "tst_weekarrows.moc"
