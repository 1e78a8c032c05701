#include "exports/cardreport.h"

#include <QStandardItemModel>
#include <QtTest>

class TestCardReport : public QObject {
    Q_OBJECT

private slots:
    void values_data();
    void values();
    void limitIsThereWithItsColumnOnly();
    void menuHeader_data();
    void menuHeader();
    void personHeader_data();
    void personHeader();
};

namespace {

QVariant untouched()
{
    return QStringLiteral("as it came");
}

QVariant value(const QAbstractItemModel &rows, int row, const QString &name)
{
    QVariant value = untouched();
    CardReport::setValue(rows, row, name, value);
    return value;
}

} // namespace

void TestCardReport::values_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("item") << 0 << "0" << QVariant("Guláš");
    QTest::newRow("count") << 0 << "1" << QVariant(3);
    QTest::newRow("limit") << 0 << "2" << QVariant("12");
    QTest::newRow("empty cell") << 1 << "0" << QVariant();
    QTest::newRow("row before the first") << -1 << "0" << untouched();
    QTest::newRow("row beyond the last") << 2 << "1" << untouched();
    for (const char *name : {"", "3", "8", "00", "-1", "header", "Header", "grouping", "[0]"})
        QTest::newRow(qPrintable(QStringLiteral("\"%1\"").arg(name))) << 0 << name << untouched();
}

void TestCardReport::values()
{
    QFETCH(int, row);
    QFETCH(QString, name);
    QStandardItemModel rows(2, 4);
    rows.setData(rows.index(0, 0), QStringLiteral("Guláš"));
    rows.setData(rows.index(0, 1), 3);
    rows.setData(rows.index(0, 2), QStringLiteral("12"));
    rows.setData(rows.index(0, 3), QStringLiteral("nobody asks for it"));
    QTEST(value(rows, row, name), "value");
}

void TestCardReport::limitIsThereWithItsColumnOnly()
{
    QStandardItemModel rows(1, 2);
    rows.setData(rows.index(0, 1), 3);
    QCOMPARE(value(rows, 0, QStringLiteral("1")), QVariant(3));
    QCOMPARE(value(rows, 0, QStringLiteral("2")), untouched());
    QCOMPARE(value(QStandardItemModel(), 0, QStringLiteral("0")), untouched());
}

void TestCardReport::menuHeader_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("segment");
    QTest::addColumn<bool>("isFinal");
    QTest::addColumn<QString>("header");
    QTest::newRow("preliminary") << QDate(2020, 3, 6) << "Obed" << false << "Predbežná objednávka: 6. 3. 2020, Obed";
    QTest::newRow("final") << QDate(2020, 3, 6) << "Obed" << true << "Objednávka: 6. 3. 2020, Obed";
    QTest::newRow("two digits") << QDate(2020, 12, 31) << "Večera" << true << "Objednávka: 31. 12. 2020, Večera";
    QTest::newRow("hostile name") << QDate(2020, 3, 6) << "%1 <b>[0]</b>" << true
                                  << "Objednávka: 6. 3. 2020, %1 <b>[0]</b>";
}

void TestCardReport::menuHeader()
{
    QFETCH(QDate, date);
    QFETCH(QString, segment);
    QFETCH(bool, isFinal);
    QTEST(CardReport::menuHeader(date, segment, isFinal), "header");
}

void TestCardReport::personHeader_data()
{
    QTest::addColumn<QString>("segment");
    QTest::addColumn<QString>("person");
    QTest::addColumn<QString>("header");
    QTest::newRow("person") << "Obed"
                            << "[17] Adamec Ján"
                            << "6. 3. 2020, Obed, [17] Adamec Ján";
    QTest::newRow("unknown") << "Obed"
                             << ""
                             << "6. 3. 2020, Obed, ";
    QTest::newRow("hostile names") << "%2 %3"
                                   << "%1 & %2"
                                   << "6. 3. 2020, %2 %3, %1 & %2";
}

void TestCardReport::personHeader()
{
    QFETCH(QString, segment);
    QFETCH(QString, person);
    QTEST(CardReport::personHeader(QDate(2020, 3, 6), segment, person), "header");
}

QTEST_APPLESS_MAIN(TestCardReport)
#include "tst_cardreport.moc"
