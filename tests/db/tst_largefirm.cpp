#include "support/testdatabase.h"

#include <QProcess>
#include <QtTest>

#include <memory>

/// benchmarks/largefirm.sh at a small size: it gives what was asked for, in a shape that the module could have made.
class TestLargeFirm : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void sizesAreThoseAskedFor_data();
    void sizesAreThoseAskedFor();
    void rulesHold_data();
    void rulesHold();
    void badCallsFailPlainly_data();
    void badCallsFailPlainly();

private:
    static QString run(const QStringList &arguments, int *exitCode);

    std::unique_ptr<TestDatabase> m_database;
    QString m_firm;
};

/// Runs the generator and gives the last line of its messages.
QString TestLargeFirm::run(const QStringList &arguments, int *exitCode)
{
    QProcess generator;
    generator.start(QStringLiteral(VIANDA_SOURCE_DIR "/benchmarks/largefirm.sh"), arguments);
    if (!generator.waitForFinished(60000))
        return QStringLiteral("no end");
    *exitCode = generator.exitCode();
    return QString::fromUtf8(generator.readAllStandardError()).trimmed().section(QLatin1Char('\n'), -1);
}

void TestLargeFirm::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    m_firm = m_database->name() + QStringLiteral("_firm");
    int exitCode = -1;
    const QString message =
        run({qEnvironmentVariable("VIANDA_TEST_SERVER"), m_firm, QStringLiteral("--items"), QStringLiteral("6000"),
             QStringLiteral("--people"), QStringLiteral("180"), QStringLiteral("--orders"), QStringLiteral("30000"),
             QStringLiteral("--foods"), QStringLiteral("502")},
            &exitCode);
    QVERIFY2(exitCode == 0, qPrintable(message));
    m_database->exec(QStringLiteral("USE `%1`").arg(m_firm));
}

void TestLargeFirm::cleanupTestCase()
{
    m_database->exec(QStringLiteral("DROP DATABASE IF EXISTS `%1`").arg(m_firm));
}

void TestLargeFirm::sizesAreThoseAskedFor_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<int>("number");

    QTest::newRow("items") << "SELECT COUNT(*) FROM via_orderables" << 6000;
    QTest::newRow("people") << "SELECT COUNT(*) FROM people" << 180;
    QTest::newRow("orders") << "SELECT COUNT(*) FROM via_orders" << 30000;
    QTest::newRow("foods") << "SELECT COUNT(*) FROM via_foods" << 502;
    QTest::newRow("branches, one for 60 people") << "SELECT COUNT(*) FROM branches" << 3;
    QTest::newRow("menus of branches and of all") << "SELECT COUNT(DISTINCT IFNULL(bid, 0)) FROM via_orderables" << 4;
    QTest::newRow("types in use") << "SELECT COUNT(DISTINCT typeID) FROM via_orderables JOIN via_foods USING (foodID)"
                                  << 6;
    QTest::newRow("weeks to come, besides this one")
        << "SELECT DATEDIFF(MAX(date), CURDATE() - INTERVAL WEEKDAY(CURDATE()) DAY) FROM via_orderables" << 27;
    QTest::newRow("keys follow the days")
        << "SELECT COUNT(*) FROM via_orderables a JOIN via_orderables b ON b.orderableID = a.orderableID + 1"
           " WHERE b.date < a.date"
        << 0;
}

void TestLargeFirm::sizesAreThoseAskedFor()
{
    QFETCH(QString, query);
    QTEST(m_database->value(query).toInt(), "number");
}

void TestLargeFirm::rulesHold_data()
{
    QTest::addColumn<QString>("breaches");

    QTest::newRow("cells have 10 to 15 items, the last one fewer")
        << "SELECT 1 FROM via_orderables GROUP BY bid, segmentID, date"
           " HAVING COUNT(*) > 15 OR COUNT(*) < 10 AND MAX(orderableID) < 6000";
    QTest::newRow("a food stands once in a cell")
        << "SELECT 1 FROM via_orderables GROUP BY bid, segmentID, date, foodID HAVING COUNT(*) > 1";
    QTest::newRow("a person orders an item once")
        << "SELECT 1 FROM via_orders GROUP BY orderableID, uid HAVING COUNT(*) > 1";
    QTest::newRow("open items have no orders")
        << "SELECT 1 FROM via_orders JOIN via_orderables USING (orderableID) WHERE locked = 0";
    QTest::newRow("items that are not open have as many each")
        << "SELECT 1 FROM via_orderables LEFT JOIN via_orders USING (orderableID) WHERE locked > 0 GROUP BY orderableID"
           " HAVING COUNT(orderID) NOT BETWEEN (SELECT FLOOR(30000 / COUNT(*)) FROM via_orderables WHERE locked > 0)"
           " AND (SELECT CEIL(30000 / COUNT(*)) FROM via_orderables WHERE locked > 0)";
    QTest::newRow("people order from their branch or from all")
        << "SELECT 1 FROM via_orders JOIN via_orderables o USING (orderableID) LEFT JOIN brape b"
           " ON b.uid = via_orders.uid AND b.bid = o.bid WHERE o.bid IS NOT NULL AND b.uid IS NULL";
    QTest::newRow("references lead somewhere")
        << "SELECT 1 FROM via_orders LEFT JOIN people USING (uid) LEFT JOIN via_orderables USING (orderableID)"
           " LEFT JOIN via_foods USING (foodID) WHERE pid IS NULL OR via_foods.name IS NULL";
}

void TestLargeFirm::rulesHold()
{
    QFETCH(QString, breaches);
    QCOMPARE(m_database->rows(breaches + QStringLiteral(" LIMIT 3")), QStringList());
}

void TestLargeFirm::badCallsFailPlainly_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("message");

    QTest::newRow("unknown option") << QStringList{QStringLiteral("--cooks"), QStringLiteral("3")}
                                    << QStringLiteral("largefirm: unknown option '--cooks'");
    QTest::newRow("no number") << QStringList{QStringLiteral("--items"), QStringLiteral("many")}
                               << QStringLiteral("largefirm: --items needs a number from 0 to 999999999");
    QTest::newRow("more branches than people")
        << QStringList{QStringLiteral("--people"), QStringLiteral("2"), QStringLiteral("--branches"),
                       QStringLiteral("3")}
        << QStringLiteral("largefirm: there must be at least one person for each branch");
    QTest::newRow("too few foods") << QStringList{QStringLiteral("--foods"), QStringLiteral("19")}
                                   << QStringLiteral("largefirm: a cell has up to 15 different foods: at least 20 foods"
                                                     " are needed");
}

void TestLargeFirm::badCallsFailPlainly()
{
    QFETCH(QStringList, options);
    QFETCH(QString, message);
    int exitCode = -1;
    const QString said = run(QStringList{qEnvironmentVariable("VIANDA_TEST_SERVER"), m_firm} + options, &exitCode);
    QCOMPARE(exitCode, 1);
    QCOMPARE(said, message);
    QVERIFY(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_orders")).toInt() > 0);
}

QTEST_GUILESS_MAIN(TestLargeFirm)
#include "tst_largefirm.moc"
