#include "databaseconnection.h"
#include "hostoptions.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QSqlResult>
#include <QtTest>

namespace {

/// How a server that does not do as it is told answers.
struct Temper {
    QString mode;
    bool tellsMode = true;
    bool takesMode = true;
};

class StubbornResult : public QSqlResult {
public:
    StubbornResult(const QSqlDriver *driver, const Temper &temper)
        : QSqlResult(driver)
        , m_temper(temper)
    {
    }

protected:
    QVariant data(int) override { return m_temper.mode; }
    bool isNull(int) override { return false; }
    bool fetch(int row) override
    {
        setAt(row);
        return row == 0;
    }
    bool fetchFirst() override { return fetch(0); }
    bool fetchLast() override { return fetch(0); }
    int size() override { return 1; }
    int numRowsAffected() override { return 0; }
    bool reset(const QString &statement) override
    {
        const bool isQuestion = statement.startsWith(QLatin1String("SELECT"));
        setSelect(isQuestion);
        setActive(isQuestion ? m_temper.tellsMode : m_temper.takesMode);
        if (!isActive())
            setLastError(QSqlError(QString(), QStringLiteral("Zakázané: ") + statement));
        return isActive();
    }

private:
    Temper m_temper;
};

class StubbornDriver : public QSqlDriver {
    Q_OBJECT

public:
    explicit StubbornDriver(Temper temper)
        : m_temper(std::move(temper))
    {
    }

    bool hasFeature(DriverFeature) const override { return false; }
    bool open(const QString &, const QString &, const QString &, const QString &, int, const QString &) override
    {
        setOpen(true);
        return true;
    }
    void close() override { setOpen(false); }
    QSqlResult *createResult() const override { return new StubbornResult(this, m_temper); }

private:
    Temper m_temper;
};

/// A connection to a server of the given temper.
class StubbornServer {
public:
    explicit StubbornServer(const Temper &temper)
    {
        QSqlDatabase::addDatabase(new StubbornDriver(temper), name());
        QVERIFY(db().open());
    }
    ~StubbornServer() { QSqlDatabase::removeDatabase(name()); }
    Q_DISABLE_COPY(StubbornServer)

    QSqlDatabase db() const { return QSqlDatabase::database(name(), false); }

private:
    static QString name() { return QStringLiteral("stubborn"); }
};

DatabaseOptions optionsFor(const TestDatabase &database)
{
    DatabaseOptions options;
    options.socket = TestDatabase::socket();
    options.name = database.name();
    return options;
}

QString sessionMode(const QSqlDatabase &db)
{
    QSqlQuery query(QStringLiteral("SELECT @@SESSION.sql_mode"), db);
    return query.next() ? query.value(0).toString() : QStringLiteral("no answer");
}

} // namespace

class TestDatabaseConnection : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void modesAreRead_data();
    void modesAreRead();
    void connectionOpensWithoutFullGroupBy();
    void partialGroupByWorks();
    void serverThatRefuses_data();
    void serverThatRefuses();
    void connectionSpeaksWholeUtf8();
    void serverThatRefusesWholeUtf8();
    void lostConnectionIsToldPlainly();
    void refusedAccountLeavesAClosedHandle();
    void missingServerIsToldPlainly();
    void descriptionHidesThePassword();

private:
    std::unique_ptr<TestDatabase> m_database;
};

void TestDatabaseConnection::initTestCase()
{
    m_database = std::make_unique<TestDatabase>(QStringLiteral("test"));
}

void TestDatabaseConnection::cleanupTestCase()
{
    m_database.reset();
}

void TestDatabaseConnection::modesAreRead_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("refuses");
    QTest::addColumn<QString>("without");
    QTest::newRow("empty") << "" << false << "";
    QTest::newRow("alone") << "ONLY_FULL_GROUP_BY" << true << "";
    QTest::newRow("among others") << "STRICT_TRANS_TABLES,ONLY_FULL_GROUP_BY,NO_ZERO_DATE" << true
                                  << "STRICT_TRANS_TABLES,NO_ZERO_DATE";
    QTest::newRow("another case") << "only_full_group_by,STRICT_TRANS_TABLES" << true << "STRICT_TRANS_TABLES";
    QTest::newRow("not there") << "STRICT_TRANS_TABLES" << false << "STRICT_TRANS_TABLES";
    QTest::newRow("a longer name") << "ONLY_FULL_GROUP_BY_X" << false << "ONLY_FULL_GROUP_BY_X";
    QTest::newRow("the combination that brings it back")
        << "REAL_AS_FLOAT,ANSI_QUOTES,ONLY_FULL_GROUP_BY,ANSI" << true << "REAL_AS_FLOAT,ANSI_QUOTES";
}

void TestDatabaseConnection::modesAreRead()
{
    QFETCH(QString, mode);
    QTEST(refusesPartialGroupBy(mode), "refuses");
    QTEST(withoutFullGroupBy(mode), "without");
}

void TestDatabaseConnection::connectionOpensWithoutFullGroupBy()
{
    const QString before = m_database->value(QStringLiteral("SELECT @@GLOBAL.sql_mode")).toString();
    m_database->exec(QStringLiteral("SET GLOBAL sql_mode = 'NO_ZERO_DATE,ONLY_FULL_GROUP_BY'"));
    QString mode;
    {
        const DatabaseConnection connection(optionsFor(*m_database));
        m_database->exec(QStringLiteral("SET GLOBAL sql_mode = '%1'").arg(before));
        QCOMPARE(connection.problem(), QString());
        QVERIFY(connection.isOpen());
        QVERIFY(connection.handle().isOpen());
        // The module's export of foods reads over the default connection.
        QCOMPARE(connection.handle().connectionName(), QLatin1String(QSqlDatabase::defaultConnection));
        mode = sessionMode(connection.handle());
    }
    QCOMPARE(mode, QStringLiteral("NO_ZERO_DATE"));
    QVERIFY(!QSqlDatabase::contains());
}

void TestDatabaseConnection::partialGroupByWorks()
{
    QSqlQuery query(m_database->db());
    const QString statement =
        QStringLiteral("SELECT a, b FROM (SELECT 1 AS a, 2 AS b UNION ALL SELECT 1, 3) AS t GROUP BY a");
    QVERIFY(query.exec(QStringLiteral("SET SESSION sql_mode = 'ONLY_FULL_GROUP_BY'")));
    QVERIFY(!query.exec(statement));
    QCOMPARE(relaxGroupBy(m_database->db()), QString());
    QVERIFY(query.exec(statement));
}

void TestDatabaseConnection::serverThatRefuses_data()
{
    QTest::addColumn<bool>("tellsMode");
    QTest::addColumn<bool>("takesMode");
    QTest::addColumn<QString>("problem");
    QTest::addColumn<QString>("log");
    QTest::newRow("does not tell its mode")
        << false << true
        << "Server odmietol vypnúť režim ONLY_FULL_GROUP_BY; jedálne lístky sa nemusia načítať. Zakázané: SELECT "
           "@@SESSION.sql_mode"
        << "Host: the server refuses to take ONLY_FULL_GROUP_BY out of sql_mode - Zakázané: SELECT @@SESSION.sql_mode";
    QTest::newRow("does not take another") << true << false
                                           << "Server odmietol vypnúť režim ONLY_FULL_GROUP_BY; jedálne lístky sa "
                                              "nemusia načítať. Zakázané: SET SESSION sql_mode = 'ANSI_QUOTES'"
                                           << "Host: the server refuses to take ONLY_FULL_GROUP_BY out of sql_mode - "
                                              "Zakázané: SET SESSION sql_mode = 'ANSI_QUOTES'";
    QTest::newRow("takes it and keeps the old one")
        << true << true << "Režim ONLY_FULL_GROUP_BY zostal na serveri zapnutý; jedálne lístky sa nemusia načítať."
        << "Host: ONLY_FULL_GROUP_BY is still on, sql_mode is ANSI_QUOTES,ONLY_FULL_GROUP_BY";
}

void TestDatabaseConnection::serverThatRefuses()
{
    QFETCH(bool, tellsMode);
    QFETCH(bool, takesMode);
    QFETCH(QString, log);
    const StubbornServer server({QStringLiteral("ANSI_QUOTES,ONLY_FULL_GROUP_BY"), tellsMode, takesMode});
    LogCatcher catcher;
    QTEST(relaxGroupBy(server.db()).remove(QLatin1String(" Unable to execute statement")).trimmed(), "problem");
    QCOMPARE(catcher.critical().size(), 1);
    QCOMPARE(catcher.critical().constFirst().trimmed(), log);
}

void TestDatabaseConnection::connectionSpeaksWholeUtf8()
{
    const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
    const DatabaseConnection connection(optionsFor(*m_database));
    QSqlQuery query(connection.handle());
    query.prepare(QStringLiteral("INSERT INTO vars VALUES ('smile', ?)"));
    query.addBindValue(smile);
    QVERIFY2(query.exec(), qPrintable(query.lastError().text()));
    QVERIFY(query.exec(QStringLiteral("SELECT value FROM vars WHERE name = 'smile'")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(), smile);
}

void TestDatabaseConnection::serverThatRefusesWholeUtf8()
{
    const StubbornServer server({QString(), true, false});
    LogCatcher catcher;
    const QString problem = speakWholeUtf8(server.db());
    QVERIFY2(
        problem.startsWith(QStringLiteral("Server odmietol znakovú sadu utf8mb4; niektoré znaky sa nemusia uložiť. "
                                          "Zakázané: SET NAMES utf8mb4")),
        qPrintable(problem));
    QCOMPARE(catcher.critical().size(), 1);
    QVERIFY(catcher.critical().constFirst().startsWith(QStringLiteral("Host: the server refuses to speak utf8mb4 - ")));
}

void TestDatabaseConnection::lostConnectionIsToldPlainly()
{
    TestDatabase lost(QStringLiteral("lost"));
    lost.breakConnection();
    LogCatcher catcher;
    const QString problem = relaxGroupBy(lost.db());
    QVERIFY2(problem.startsWith(QStringLiteral("Server odmietol vypnúť režim ONLY_FULL_GROUP_BY;")),
             qPrintable(problem));
    QCOMPARE(catcher.critical().size(), 1);
}

void TestDatabaseConnection::refusedAccountLeavesAClosedHandle()
{
    DatabaseOptions options = optionsFor(*m_database);
    options.user = QStringLiteral("nobody");
    LogCatcher catcher;
    const DatabaseConnection connection(options);
    QVERIFY(!connection.isOpen());
    QVERIFY(connection.handle().isValid());
    QVERIFY2(connection.problem().startsWith(QStringLiteral("Nepodarilo sa pripojiť k databáze %1 na %2. Access denied")
                                                 .arg(options.name, options.socket)),
             qPrintable(connection.problem()));
    QCOMPARE(catcher.critical().size(), 1);
    QVERIFY(catcher.critical().constFirst().startsWith(
        QLatin1String("Host: no connection to the database - Access denied")));
}

void TestDatabaseConnection::missingServerIsToldPlainly()
{
    DatabaseOptions options;
    options.host = QStringLiteral("localhost");
    options.port = 1;
    LogCatcher catcher;
    const DatabaseConnection connection(options);
    QVERIFY(!connection.isOpen());
    QVERIFY2(
        connection.problem().startsWith(QStringLiteral("Nepodarilo sa pripojiť k databáze vianda na localhost:1. ")),
        qPrintable(connection.problem()));
    // TCP as asked, not the client library's default socket.
    QVERIFY2(connection.problem().contains(QLatin1String("127.0.0.1")), qPrintable(connection.problem()));
}

void TestDatabaseConnection::descriptionHidesThePassword()
{
    DatabaseOptions options = optionsFor(*m_database);
    options.password = QStringLiteral("tajné");
    const DatabaseConnection connection(options);
    QCOMPARE(connection.description(), QStringLiteral("%1 na %2").arg(options.name, options.socket));
    QVERIFY(!connection.problem().contains(options.password));
}

QTEST_GUILESS_MAIN(TestDatabaseConnection)
#include "tst_databaseconnection.moc"
