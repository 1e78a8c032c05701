#include "suppliers/orderheading.h"

#include <QtTest>

/// The headings of the printed orders.
class TestOrderHeading : public QObject {
    Q_OBJECT

private slots:
    void order_data();
    void order();
    void orders();
};

void TestOrderHeading::order_data()
{
    QTest::addColumn<bool>("isFinal");
    QTest::addColumn<QString>("company");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("heading");
    QTest::newRow("preliminary") << false << "Strojárne" << QDate(2031, 5, 4)
                                 << "Predbežná objednávka - Strojárne 4. 5. 2031, Obed: Pekáreň";
    QTest::newRow("final") << true << "Strojárne" << QDate(2031, 5, 4)
                           << "Záväzná objednávka - Strojárne 4. 5. 2031, Obed: Pekáreň";
    QTest::newRow("long date") << false << "A" << QDate(2031, 12, 24)
                               << "Predbežná objednávka - A 24. 12. 2031, Obed: Pekáreň";
    QTest::newRow("no company") << false << "" << QDate(2031, 5, 4)
                                << "Predbežná objednávka -  4. 5. 2031, Obed: Pekáreň";
    QTest::newRow("placeholders") << false << "%1 %2" << QDate(2031, 5, 4)
                                  << "Predbežná objednávka - %1 %2 4. 5. 2031, Obed: Pekáreň";
}

void TestOrderHeading::order()
{
    QFETCH(bool, isFinal);
    QFETCH(QString, company);
    QFETCH(QDate, date);
    QTEST(orderHeading(isFinal, company, date, QStringLiteral("Obed"), QStringLiteral("Pekáreň")), "heading");
}

void TestOrderHeading::orders()
{
    QCOMPARE(ordersHeading(QDate(2031, 5, 4), QStringLiteral("Obed %1")),
             QStringLiteral("Zoznam ku dňu: 4. 5. 2031, Obed %1"));
    QCOMPARE(ordersHeading(QDate(2031, 12, 24), QString()), QStringLiteral("Zoznam ku dňu: 24. 12. 2031, "));
}

QTEST_MAIN(TestOrderHeading)
#include "tst_orderheading.moc"
