#include "exports/controlmonth.h"
#include "exports/controlsheet.h"
#include "recordingbook.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QtTest>

/// The figures of the control export: which cell an order counts in, who has which row, and what the sums are.
class TestControlSheetSums : public QObject {
    Q_OBJECT

private slots:
    void itemsOfOneTypeAddUp();
    void peopleAreTheirNumberAndName_data();
    void peopleAreTheirNumberAndName();
    void ordersWithoutAColumnAreLeftOut_data();
    void ordersWithoutAColumnAreLeftOut();
    void againstASlowReference_data();
    void againstASlowReference();
};

namespace {

QDateTime now()
{
    return {QDate(2020, 4, 1), QTime(7, 5, 9)};
}

ControlMonth month(const QDate &day, int segments, int types)
{
    ControlMonth month;
    month.day = day;
    // Positions and keys that are no indexes.
    for (int segment = 0; segment < segments; ++segment)
        month.segments.append({"slot", 10 + segment});
    for (int type = 0; type < types; ++type)
        month.types.append({"type", 50 - 3 * type});
    return month;
}

double numberAt(const RecordedSheet &sheet, int row, int column)
{
    return sheet.cells.value({row, column}).number;
}

/// The rows of people as "number name", from row 12 on.
QStringList people(const RecordedSheet &sheet)
{
    QStringList rows;
    for (int row = 12; !sheet.at(row, 0).startsWith("    Súčet"); ++row)
        rows.append(sheet.at(row, 0) + ' ' + sheet.at(row, 1));
    return rows;
}

/// Adds up the orders that `takes` takes.
template<typename Takes> double sumOf(const ControlMonth &month, Takes takes)
{
    double sum = 0;
    for (const ControlMonth::Order &order : month.orders) {
        if (takes(order))
            sum += order.quantity;
    }
    return sum;
}

} // namespace

void TestControlSheetSums::itemsOfOneTypeAddUp()
{
    ControlMonth march = month({2020, 3, 1}, 2, 2);
    for (const int quantity : {2, 3, 0, 7})
        march.orders.append({"1", "A", {2020, 3, 2}, quantity, 10, 47});
    march.orders.append({"1", "A", {2020, 3, 2}, 100, 11, 47});
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march, now()));
    QCOMPARE(numberAt(book.sheet, 12, 7), 12.0);
    QCOMPARE(numberAt(book.sheet, 12, 9), 100.0);
    QCOMPARE(numberAt(book.sheet, 12, 126), 112.0);
    // Two digits have smaller letters than one.
    QVERIFY(book.sheet.look(12, 7).startsWith("MS Shell Dlg 2 7 "));
    QVERIFY(book.sheet.look(12, 9).startsWith("MS Shell Dlg 2 5 "));
}

void TestControlSheetSums::peopleAreTheirNumberAndName_data()
{
    QTest::addColumn<QStringList>("orders"); // number and name
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QVector<int>>("sums"); // the first order is 1 portion, then 2, 4, 8
    QTest::newRow("nobody") << QStringList() << QStringList() << QVector<int>();
    QTest::newRow("one") << QStringList{"1 A", "1 A"} << QStringList{"1 A"} << QVector<int>{3};
    QTest::newRow("two numbers") << QStringList{"1 A", "1 A", "2 B"} << QStringList{"1 A", "2 B"} << QVector<int>{3, 4};
    QTest::newRow("equal names") << QStringList{"1 A", "2 A"} << QStringList{"1 A", "2 A"} << QVector<int>{1, 2};
    QTest::newRow("equal numbers") << QStringList{"1 A", "1 B"} << QStringList{"1 A", "1 B"} << QVector<int>{1, 2};
    QTest::newRow("equal numbers by turns")
        << QStringList{"1 A", "1 B", "1 A", "1 B"} << QStringList{"1 A", "1 B"} << QVector<int>{5, 10};
    QTest::newRow("no number") << QStringList{" A", " A", " B"} << QStringList{" A", " B"} << QVector<int>{3, 4};
    QTest::newRow("neither") << QStringList{" ", " "} << QStringList{" "} << QVector<int>{3};
}

void TestControlSheetSums::peopleAreTheirNumberAndName()
{
    QFETCH(QStringList, orders);
    QFETCH(QVector<int>, sums);
    ControlMonth march = month({2020, 3, 1}, 1, 1);
    int quantity = 1;
    for (const QString &order : qAsConst(orders)) {
        const QStringList parts = order.split(' ');
        march.orders.append({parts.at(0), parts.at(1), {2020, 3, quantity}, quantity, 10, 50});
        quantity *= 2;
    }
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march, now()));
    QTEST(people(book.sheet), "rows");
    for (int person = 0; person < sums.size(); ++person)
        QCOMPARE(numberAt(book.sheet, 12 + person, 33), double(sums.at(person)));
    QCOMPARE(numberAt(book.sheet, 12 + sums.size(), 33), double(quantity - 1));
}

void TestControlSheetSums::ordersWithoutAColumnAreLeftOut_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("segment");
    QTest::addColumn<int>("type");
    QTest::newRow("unknown slot") << QDate(2020, 3, 7) << 12 << 50;
    QTest::newRow("unknown type") << QDate(2020, 3, 7) << 10 << 51;
    QTest::newRow("day before the month") << QDate(2020, 2, 29) << 10 << 50;
    QTest::newRow("day after the month") << QDate(2020, 4, 1) << 10 << 50;
    QTest::newRow("another year") << QDate(2019, 3, 7) << 10 << 50;
    QTest::newRow("no date") << QDate() << 10 << 50;
}

void TestControlSheetSums::ordersWithoutAColumnAreLeftOut()
{
    QFETCH(QDate, date);
    QFETCH(int, segment);
    QFETCH(int, type);
    ControlMonth march = month({2020, 3, 1}, 2, 2);
    march.orders.append({"1", "A", {2020, 3, 2}, 5, 10, 50});
    RecordingBook expected;
    QVERIFY(writeControlSheet(expected, march, now()));
    // One between the orders of a person, one of somebody else.
    march.orders.append({"1", "A", date, 7, segment, type});
    march.orders.append({"2", "B", date, 7, segment, type});
    RecordingBook book;
    QVERIFY(writeControlSheet(book, march, now()));
    QCOMPARE(people(book.sheet), QStringList{"1 A"});
    QCOMPARE(book.sheet.cells.keys(), expected.sheet.cells.keys());
    for (int row = 12; row <= book.sheet.lastRow(); ++row)
        QCOMPARE(book.sheet.rowText(row), expected.sheet.rowText(row));
    QCOMPARE(book.sheet.hidden, expected.sheet.hidden);
}

void TestControlSheetSums::againstASlowReference_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("segments");
    QTest::addColumn<int>("types");
    QTest::addColumn<int>("people");
    QTest::newRow("31 days") << QDate(2020, 3, 19) << 3 << 5 << 12;
    QTest::newRow("30 days") << QDate(2020, 4, 2) << 1 << 4 << 20;
    QTest::newRow("29 days") << QDate(2020, 2, 6) << 4 << 1 << 20;
    QTest::newRow("28 days") << QDate(2021, 2, 25) << 2 << 3 << 9;
    QTest::newRow("one of each") << QDate(2021, 1, 7) << 1 << 1 << 40;
}

void TestControlSheetSums::againstASlowReference()
{
    QFETCH(QDate, day);
    QFETCH(int, segments);
    QFETCH(int, types);
    QFETCH(int, people);
    QRandomGenerator random(20200319);
    ControlMonth data = month(day, segments, types);
    for (int person = 0; person < people; ++person) {
        for (int order = 0; order < 60; ++order) {
            const QDate date(day.year(), day.month(), 1 + random.bounded(day.daysInMonth()));
            data.orders.append({QString::number(person), "x", date, random.bounded(1, 15),
                                10 + random.bounded(segments), 50 - 3 * random.bounded(types)});
        }
    }
    RecordingBook book;
    QVERIFY(writeControlSheet(book, data, now()));
    const RecordedSheet &sheet = book.sheet;
    const int total = 2 + day.daysInMonth() * segments * types;
    for (int person = 0; person < people; ++person) {
        const QString pid = QString::number(person);
        QCOMPARE(sheet.at(12 + person, 0), pid);
        QCOMPARE(numberAt(sheet, 12 + person, total), sumOf(data, [&](const auto &order) { return order.pid == pid; }));
    }
    for (int segment = 0; segment < segments; ++segment) {
        const int row = 12 + people + 2 * segment;
        const auto ofSegment = [&](const auto &order) { return order.segment == 10 + segment; };
        QCOMPARE(numberAt(sheet, row, total), sumOf(data, ofSegment));
        for (int dayNumber = 1; dayNumber <= day.daysInMonth(); ++dayNumber) {
            const auto ofDay = [&](const auto &order) { return ofSegment(order) && order.date.day() == dayNumber; };
            const int first = 2 + (dayNumber - 1) * segments * types + segment * types;
            QCOMPARE(numberAt(sheet, row + 1, first), sumOf(data, ofDay));
            for (int type = 0; type < types; ++type) {
                const auto ofType = [&](const auto &order) { return ofDay(order) && order.typeID == 50 - 3 * type; };
                QCOMPARE(numberAt(sheet, row, first + type), sumOf(data, ofType));
                for (int person = 0; person < people; ++person) {
                    const QString pid = QString::number(person);
                    QCOMPARE(numberAt(sheet, 12 + person, first + type),
                             sumOf(data, [&](const auto &order) { return ofType(order) && order.pid == pid; }));
                }
            }
        }
    }
}

QTEST_APPLESS_MAIN(TestControlSheetSums)
#include "tst_controlsheetsums.moc"
