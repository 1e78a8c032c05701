#include "support/testdatabase.h"

#include <QProcess>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

/// scripts/demo-data on the server of the test run: what it makes, keeps, makes anew and leaves alone. Making a firm
/// takes its time, so the functions follow on each other: the first makes one, the next keep it, reset it, find it half
/// loaded.
class TestDemoDataScript : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void makesTheFirmWithPicturesAndGrants();
    void keepsAFirmThatIsThere();
    void resetMakesItAnew();
    void interruptedLoadingIsMadeAnew();
    void foreignDatabaseIsLeftAlone();
    void badCallsFailPlainly_data();
    void badCallsFailPlainly();

private:
    struct Result {
        int exitCode;
        QString output;
        QString errors;
    };

    Result run(const QStringList &arguments) const;
    Result make(const QString &name, const QStringList &options = {}) const;
    QString in(const char *statement) const
    {
        return QString::fromUtf8(statement).replace(QLatin1String("DB"), m_firm);
    }

    std::unique_ptr<TestDatabase> m_database;
    QString m_firm;
};

TestDemoDataScript::Result TestDemoDataScript::run(const QStringList &arguments) const
{
    QProcess script;
    script.start(QStringLiteral(VIANDA_SOURCE_DIR "/scripts/demo-data"), arguments);
    if (!script.waitForFinished(60000))
        return {-1, QString(), QStringLiteral("no end")};
    return {script.exitCode(), QString::fromUtf8(script.readAllStandardOutput()),
            QString::fromUtf8(script.readAllStandardError())};
}

TestDemoDataScript::Result TestDemoDataScript::make(const QString &name, const QStringList &options) const
{
    return run(options + QStringList{qEnvironmentVariable("VIANDA_TEST_SERVER"), name});
}

void TestDemoDataScript::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    m_firm = m_database->name() + QStringLiteral("_firm");
}

void TestDemoDataScript::cleanupTestCase()
{
    m_database->exec(in("DROP DATABASE IF EXISTS `DB`"));
    m_database->exec(in("DROP DATABASE IF EXISTS `DB_other`"));
}

void TestDemoDataScript::makesTheFirmWithPicturesAndGrants()
{
    const Result result = make(m_firm);
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    const QString first = QStringLiteral("demo-data: making the demo firm in %1\ndemo-data: 63 people, ").arg(m_firm);
    QVERIFY2(result.output.startsWith(first), qPrintable(result.output));

    // JPEG data begin with FF D8 FF and end with FF D9.
    QVERIFY(m_database->value(in("SELECT COUNT(*) FROM `DB`.via_foods WHERE picture IS NOT NULL")).toInt() >= 12);
    QCOMPARE(m_database
                 ->value(in("SELECT COUNT(*) FROM `DB`.via_foods WHERE picture IS NOT NULL AND NOT"
                            " (HEX(LEFT(picture, 3)) = 'FFD8FF' AND HEX(RIGHT(picture, 2)) = 'FFD9'"
                            " AND LENGTH(picture) < 20000)"))
                 .toInt(),
             0);
    QCOMPARE(
        m_database->value(in("SELECT name FROM `DB`.via_foods WHERE foodID=201 AND picture IS NOT NULL")).toString(),
        QStringLiteral("Slepačí vývar s rezancami"));
    QSqlQuery asModule(m_database->db());
    QVERIFY(asModule.exec(in("SELECT COUNT(*) FROM `DB`.via_orders")) && asModule.next());
    QVERIFY(asModule.value(0).toInt() > 0);
    QVERIFY(!asModule.exec(in("DELETE FROM `DB`.people")));
}

void TestDemoDataScript::keepsAFirmThatIsThere()
{
    m_database->exec(in("UPDATE `DB`.branches SET name='Zmenené' WHERE bid=1"));
    const Result again = make(m_firm);
    QCOMPARE(again.exitCode, 0);
    QCOMPARE(again.output,
             QStringLiteral("demo-data: the demo firm is there (%1); --reset makes it anew\n").arg(m_firm));
    QCOMPARE(m_database->value(in("SELECT name FROM `DB`.branches WHERE bid=1")).toString(), QStringLiteral("Zmenené"));
}

void TestDemoDataScript::resetMakesItAnew()
{
    QCOMPARE(make(m_firm, {QStringLiteral("--reset")}).exitCode, 0);
    QCOMPARE(m_database->value(in("SELECT name FROM `DB`.branches WHERE bid=1")).toString(),
             QStringLiteral("Podhradie – výroba"));
}

void TestDemoDataScript::interruptedLoadingIsMadeAnew()
{
    m_database->exec(in("ALTER DATABASE `DB` COMMENT 'vianda demo data: loading'"));
    m_database->exec(in("DROP TABLE `DB`.via_orders"));
    const Result result = make(m_firm);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.output.startsWith(
        QStringLiteral("demo-data: the last loading was interrupted; making the demo firm anew\n")));
    QVERIFY(m_database->value(in("SELECT COUNT(*) FROM `DB`.via_orders")).toInt() > 0);
}

void TestDemoDataScript::foreignDatabaseIsLeftAlone()
{
    m_database->exec(in("CREATE DATABASE `DB_other`"));
    m_database->exec(in("CREATE TABLE `DB_other`.people (x INT)"));
    const QString other = m_firm + QStringLiteral("_other");
    for (const QStringList &options : {QStringList(), QStringList{QStringLiteral("--reset")}}) {
        const Result result = make(other, options);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.errors,
                 QStringLiteral("demo-data: there is a database '%1' that is no demo firm; it is left as it is\n")
                     .arg(other));
    }
    QCOMPARE(m_database->value(in("SELECT COUNT(*) FROM `DB_other`.people")).toInt(), 0);
}

void TestDemoDataScript::badCallsFailPlainly_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    const QString server = qEnvironmentVariable("VIANDA_TEST_SERVER");
    const QString usage = QStringLiteral("demo-data: usage: scripts/demo-data [--reset] DIR DATABASE\n");
    QTest::newRow("nothing") << QStringList() << usage;
    QTest::newRow("no database") << QStringList{server} << usage;
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--fresh"), server, QStringLiteral("x")}
                                    << QStringLiteral(
                                           "demo-data: unknown argument '--fresh' (see scripts/demo-data --help)\n");
    QTest::newRow("hostile name") << QStringList{server, QStringLiteral("x; DROP DATABASE mysql")}
                                  << QStringLiteral("demo-data: 'x; DROP DATABASE mysql' is no plain database name\n");
}

void TestDemoDataScript::badCallsFailPlainly()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const Result result = run(arguments);
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors, message);
}

QTEST_GUILESS_MAIN(TestDemoDataScript)
#include "tst_demodatascript.moc"
