#include "exports/controlmonth.h"

#include <QStandardItemModel>
#include <QtTest>

class TestControlMonth : public QObject {
    Q_OBJECT

private slots:
    void rowsOfModels();
    void equalTextsAreShared();
    void rowsOfNoModel();
    void columns_data();
    void columns();
    void places_data();
    void places();
    void doubleKeys();
    void placesWithoutColumns_data();
    void placesWithoutColumns();
};

namespace {

void append(QStandardItemModel &model, const QVariantList &values)
{
    const int row = model.rowCount();
    model.insertRow(row);
    for (int column = 0; column < values.size(); ++column)
        model.setData(model.index(row, column), values.at(column));
}

/// March 2020 with two slots and three types.
ControlMonth march()
{
    ControlMonth month;
    month.day = QDate(2020, 3, 19);
    month.segments = {{"Obed", 1}, {"Večera", 2}};
    month.types = {{"Polievka", 7}, {"Šalát", 3}, {"Múčnik", 9}};
    return month;
}

} // namespace

void TestControlMonth::rowsOfModels()
{
    QStandardItemModel segments(0, 4);
    append(segments, {5, "Obed", QTime(11, 0), 1});
    append(segments, {4, "Večera", QTime(18, 0), 2});
    const QVector<ControlMonth::Segment> readSegments = controlSegments(&segments);
    QCOMPARE(readSegments.size(), 2);
    QCOMPARE(readSegments.at(1).name, QStringLiteral("Večera"));
    QCOMPARE(readSegments.at(1).position, 2);

    QStandardItemModel types(0, 3);
    append(types, {7, "Polievka", 1});
    append(types, {3, "Šalát", 2});
    const QVector<ControlMonth::Type> readTypes = controlTypes(&types);
    QCOMPARE(readTypes.size(), 2);
    QCOMPARE(readTypes.at(0).name, QStringLiteral("Polievka"));
    QCOMPARE(readTypes.at(0).typeID, 7);

    QStandardItemModel orders(0, 10);
    append(orders, {"P17", "Adamec Ján Ing. ", 4, QDate(2020, 3, 5), 3, 1, "Obed", 2, "Polievka", 7});
    append(orders, {QVariant(), QVariant(), 4, "2020-03-06", "2", QVariant(), QVariant(), 2, QVariant(), QVariant()});
    const QVector<ControlMonth::Order> read = controlOrders(&orders);
    QCOMPARE(read.size(), 2);
    QCOMPARE(read.at(0).pid, QStringLiteral("P17"));
    QCOMPARE(read.at(0).personName, QStringLiteral("Adamec Ján Ing. "));
    QCOMPARE(read.at(0).date, QDate(2020, 3, 5));
    QCOMPARE(read.at(0).quantity, 3);
    QCOMPARE(read.at(0).segment, 1);
    QCOMPARE(read.at(0).typeID, 7);
    QCOMPARE(read.at(1).pid, QString());
    QCOMPARE(read.at(1).date, QDate(2020, 3, 6));
    QCOMPARE(read.at(1).quantity, 2);
    QCOMPARE(read.at(1).segment, 0);
    QCOMPARE(read.at(1).typeID, 0);
}

void TestControlMonth::equalTextsAreShared()
{
    QStandardItemModel rows(0, 10);
    for (const char *name : {"Adamec", "Adamec", "Zeman"})
        append(rows, {"17", QString::fromLatin1(name)});
    const QVector<ControlMonth::Order> orders = controlOrders(&rows);
    QCOMPARE(orders.at(0).personName.constData(), orders.at(1).personName.constData());
    QCOMPARE(orders.at(0).pid.constData(), orders.at(2).pid.constData());
    QCOMPARE(orders.at(2).personName, QStringLiteral("Zeman"));
}

void TestControlMonth::rowsOfNoModel()
{
    QCOMPARE(controlSegments(nullptr).size(), 0);
    QCOMPARE(controlTypes(nullptr).size(), 0);
    QCOMPARE(controlOrders(nullptr).size(), 0);
    const QStandardItemModel empty;
    QCOMPARE(controlSegments(&empty).size(), 0);
    QCOMPARE(controlTypes(&empty).size(), 0);
    QCOMPARE(controlOrders(&empty).size(), 0);
}

void TestControlMonth::columns_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("days");
    QTest::newRow("31 days") << QDate(2020, 3, 19) << 31;
    QTest::newRow("30 days") << QDate(2020, 4, 30) << 30;
    QTest::newRow("29 days") << QDate(2020, 2, 1) << 29;
    QTest::newRow("28 days") << QDate(2021, 2, 28) << 28;
    QTest::newRow("no month") << QDate() << 0;
}

void TestControlMonth::columns()
{
    QFETCH(QDate, day);
    ControlMonth month = march();
    month.day = day;
    QTEST(month.columns().days(), "days");
    QCOMPARE(month.columns().segments(), 2);
    QCOMPARE(month.columns().types(), 3);
}

void TestControlMonth::places_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("segment");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("column");
    const QDate second(2020, 3, 2);
    QTest::newRow("first column") << QDate(2020, 3, 1) << 1 << 7 << 2;
    QTest::newRow("second type") << QDate(2020, 3, 1) << 1 << 3 << 3;
    QTest::newRow("third type") << QDate(2020, 3, 1) << 1 << 9 << 4;
    QTest::newRow("second slot") << QDate(2020, 3, 1) << 2 << 7 << 5;
    QTest::newRow("second day") << second << 1 << 7 << 8;
    QTest::newRow("last column") << QDate(2020, 3, 31) << 2 << 9 << 187;
    QTest::newRow("unknown slot") << second << 3 << 7 << -1;
    QTest::newRow("no slot") << second << 0 << 7 << -1;
    QTest::newRow("unknown type") << second << 1 << 1 << -1;
    QTest::newRow("no type") << second << 1 << 0 << -1;
    QTest::newRow("month before") << QDate(2020, 2, 29) << 1 << 7 << -1;
    QTest::newRow("month after") << QDate(2020, 4, 1) << 1 << 7 << -1;
    QTest::newRow("same month of another year") << QDate(2021, 3, 2) << 1 << 7 << -1;
    QTest::newRow("no date") << QDate() << 1 << 7 << -1;
}

void TestControlMonth::places()
{
    QFETCH(QDate, date);
    QFETCH(int, segment);
    QFETCH(int, type);
    const ControlMonth month = march();
    QTEST(ControlPlaces(month).columnOf({"1", "x", date, 1, segment, type}), "column");
}

/// Two slots at one position, or a type twice: the first one takes the orders.
void TestControlMonth::doubleKeys()
{
    ControlMonth month = march();
    month.segments = {{"a", 1}, {"b", 1}};
    month.types = {{"c", 5}, {"d", 5}};
    QCOMPARE(ControlPlaces(month).columnOf({"1", "x", QDate(2020, 3, 1), 1, 1, 5}), 2);
}

void TestControlMonth::placesWithoutColumns_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<bool>("segments");
    QTest::addColumn<bool>("types");
    QTest::newRow("no slots") << QDate(2020, 3, 19) << false << true;
    QTest::newRow("no types") << QDate(2020, 3, 19) << true << false;
    QTest::newRow("no month") << QDate() << true << true;
}

void TestControlMonth::placesWithoutColumns()
{
    QFETCH(QDate, day);
    QFETCH(bool, segments);
    QFETCH(bool, types);
    ControlMonth month = march();
    month.day = day;
    if (!segments)
        month.segments.clear();
    if (!types)
        month.types.clear();
    const ControlPlaces places(month);
    QCOMPARE(places.columnOf({"1", "x", QDate(2020, 3, 1), 1, 1, 7}), -1);
    QCOMPARE(places.columnOf({"1", "x", QDate(), 1, 1, 7}), -1);
}

QTEST_APPLESS_MAIN(TestControlMonth)
#include "tst_controlmonth.moc"
