#include "report/rptpageobject.h"
#include "report/rptsql.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QBuffer>
#include <QSqlError>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

#include <memory>

namespace {

const char connectionName[] = "report";

} // namespace

/// The SQL source of a report, on both kinds of databases.
class TestRptSql : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void readsCells_data();
    void readsCells();
    void connectionTakesTheRecord();
    void portOfZeroIsLeftToTheDriver();
    void defaultConnectionIsTakenOver();
    void connectionIsReplaced();
    void connectionOutlivesTheSource();
    void failedOpenGoesOn();
    void missingDriver();
    void failedStatement();
    void lookUpsBeforeAndBeyond();
    void statementWithoutRows();
    void codingOfTheSession_data();
    void codingOfTheSession();
    void codingOfAnotherDriver();
    void unknownCodingIsTold();
    void localeCodec();
    void hostileTexts_data();
    void hostileTexts();
    void images();
    void brokenConnection();
    void manyRecords();

private:
    RptSqlConnection mariaDb() const;
    RptSqlConnection sqlite() const;

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
    QTextCodec *m_codec = nullptr;
};

void TestRptSql::initTestCase()
{
    // The record of a connection has no place for a socket: the client library takes its default one from here, and
    // reads it once.
    qputenv("MYSQL_UNIX_PORT", TestDatabase::socket().toLocal8Bit());
    m_database = std::make_unique<TestDatabase>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_codec = QTextCodec::codecForLocale();
    m_database->exec(
        QStringLiteral("INSERT INTO via_types (typeID, name) VALUES (1, 'Polievky'), (2, 'Hlavné jedlá')"));
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("setup"));
    db.setDatabaseName(m_folder->filePath(QStringLiteral("report.sqlite")));
    QVERIFY(db.open());
    QSqlQuery query(db);
    QVERIFY(query.exec(QStringLiteral("CREATE TABLE via_types (typeID INTEGER, name TEXT)")));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO via_types VALUES (1, 'Polievky'), (2, 'Hlavné jedlá')")));
}

void TestRptSql::cleanupTestCase()
{
    QSqlDatabase::removeDatabase(QStringLiteral("setup"));
    m_database.reset();
}

void TestRptSql::cleanup()
{
    QTextCodec::setCodecForLocale(m_codec);
    QSqlDatabase::removeDatabase(QLatin1String(connectionName));
}

RptSqlConnection TestRptSql::mariaDb() const
{
    RptSqlConnection connection;
    connection.dbType = QStringLiteral("QMYSQL");
    connection.dbName = m_database->name();
    connection.dbHost = QStringLiteral("localhost");
    connection.dbUser = QStringLiteral("vianda");
    connection.dbConnectionName = QLatin1String(connectionName);
    return connection;
}

RptSqlConnection TestRptSql::sqlite() const
{
    RptSqlConnection connection;
    connection.dbType = QStringLiteral("QSQLITE");
    connection.dbName = m_folder->filePath(QStringLiteral("report.sqlite"));
    connection.dbConnectionName = QLatin1String(connectionName);
    return connection;
}

void TestRptSql::readsCells_data()
{
    QTest::addColumn<bool>("isMariaDb");
    QTest::newRow("MariaDB") << true;
    QTest::newRow("SQLite") << false;
}

void TestRptSql::readsCells()
{
    QFETCH(bool, isMariaDb);
    LogCatcher log;
    RptSql source(isMariaDb ? mariaDb() : sqlite());
    QVERIFY(
        source.openQuery(QStringLiteral("SELECT typeID, name FROM via_types ORDER BY typeID"), QString(), QString()));
    QCOMPARE(log.lines(), QStringList{"open DB"});
    QCOMPARE(source.recordCount(), 2);
    // In any order, and as often as one likes.
    QCOMPARE(source.fieldValue(QStringLiteral("name"), 1), QStringLiteral("Hlavné jedlá"));
    QCOMPARE(source.fieldValue(QStringLiteral("typeID"), 0), QStringLiteral("1"));
    QCOMPARE(source.fieldValue(QStringLiteral("NAME"), 0), QStringLiteral("Polievky"));
    QCOMPARE(source.fieldValue(QStringLiteral("name"), 1), QStringLiteral("Hlavné jedlá"));
    QCOMPARE(source.recordCount(), 2);
    QCOMPARE(log.lines(), QStringList{"open DB"});
}

void TestRptSql::connectionTakesTheRecord()
{
    RptSqlConnection connection = mariaDb();
    connection.dbHost = QStringLiteral("kitchen.example");
    connection.dbPassword = QStringLiteral("s'e\\c\"r%1et 🍲");
    connection.dbPort = 3307;
    const RptSql source(connection);
    const QSqlDatabase db = QSqlDatabase::database(QLatin1String(connectionName), false);
    QCOMPARE(db.driverName(), QStringLiteral("QMYSQL"));
    QCOMPARE(db.databaseName(), m_database->name());
    QCOMPARE(db.hostName(), connection.dbHost);
    QCOMPARE(db.userName(), QStringLiteral("vianda"));
    QCOMPARE(db.password(), connection.dbPassword);
    QCOMPARE(db.port(), 3307);
    QVERIFY2(!db.isOpen(), "nothing is opened before the query");
}

void TestRptSql::portOfZeroIsLeftToTheDriver()
{
    const RptSql source(mariaDb());
    QCOMPARE(QSqlDatabase::database(QLatin1String(connectionName), false).port(), -1);
}

void TestRptSql::defaultConnectionIsTakenOver()
{
    TestDatabase other; // replaces the default connection by one of its own
    QCOMPARE(QSqlDatabase::database().driverName(), QStringLiteral("QMYSQL"));
    RptSqlConnection connection = sqlite();
    connection.dbConnectionName.clear();
    RptSql source(connection);
    QVERIFY(source.openQuery(QStringLiteral("SELECT COUNT(*) n FROM via_types"), QString(), QString()));
    QCOMPARE(source.fieldValue(QStringLiteral("n"), 0), QStringLiteral("2"));
    QCOMPARE(QSqlDatabase::database().driverName(), QStringLiteral("QSQLITE"));
}

void TestRptSql::connectionIsReplaced()
{
    RptSql first(mariaDb());
    QVERIFY(first.openQuery(QStringLiteral("SELECT name FROM via_types"), QString(), QString()));
    RptSql second(sqlite());
    QVERIFY(second.openQuery(QStringLiteral("SELECT name FROM via_types"), QString(), QString()));
    QCOMPARE(second.fieldValue(QStringLiteral("name"), 0), QStringLiteral("Polievky"));
    LogCatcher log;
    QVERIFY2(!first.openQuery(QStringLiteral("SELECT name FROM via_types"), QString(), QString()),
             "the first one's connection is gone");
    QCOMPARE(log.lines().value(0).left(14), QStringLiteral("Failed open DB"));
    QCOMPARE(first.recordCount(), 0);
    QCOMPARE(second.recordCount(), 2);
}

void TestRptSql::connectionOutlivesTheSource()
{
    {
        RptSql source(sqlite());
        QVERIFY(source.openQuery(QStringLiteral("SELECT 1"), QString(), QString()));
    }
    QSqlQuery query(QSqlDatabase::database(QLatin1String(connectionName), false));
    QVERIFY(query.exec(QStringLiteral("SELECT 1")));
}

void TestRptSql::failedOpenGoesOn()
{
    RptSqlConnection connection = mariaDb();
    connection.dbName = QStringLiteral("no_such_database");
    RptSql source(connection);
    LogCatcher log;
    QVERIFY(!source.openQuery(QStringLiteral("SELECT 1"), QStringLiteral("utf8mb4"), QStringLiteral("ISO-8859-2")));
    const QString error = QSqlDatabase::database(QLatin1String(connectionName), false).lastError().text();
    QVERIFY2(error.contains(QLatin1String("no_such_database")), qPrintable(error));
    QCOMPARE(log.lines().value(0), QStringLiteral("Failed open DB ") + error);
    QVERIFY(!log.has(QStringLiteral("open DB")));
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("ISO-8859-2"));
    log.clear();
    QCOMPARE(source.fieldValue(QStringLiteral("1"), 0), QString());
    QCOMPARE(log.lines(), QStringList{"Query is not active"});
}

void TestRptSql::missingDriver()
{
    RptSqlConnection connection = mariaDb();
    connection.dbType = QStringLiteral("QNOSUCH");
    RptSql source(connection);
    LogCatcher log;
    QVERIFY(!source.openQuery(QStringLiteral("SELECT 1"), QStringLiteral("utf8"), QString()));
    QVERIFY(log.has(QStringLiteral("Failed open DB Driver not loaded Driver not loaded")));
    QCOMPARE(source.recordCount(), 0);
}

void TestRptSql::failedStatement()
{
    RptSql source(mariaDb());
    LogCatcher log;
    QVERIFY(!source.openQuery(QStringLiteral("SELECT x FROM nowhere"), QString(), QString()));
    // The account may not even see that there is no such table.
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.lines().at(0), QStringLiteral("open DB"));
    QVERIFY2(log.lines().at(1).contains(QLatin1String("nowhere")), qPrintable(log.lines().at(1)));
    QVERIFY2(log.lines().at(1).endsWith(QLatin1String("QMYSQL: Unable to execute query")),
             qPrintable(log.lines().at(1)));
    QCOMPARE(log.lines(QtDebugMsg).size(), 2);
    QCOMPARE(source.recordCount(), 0);
}

void TestRptSql::lookUpsBeforeAndBeyond()
{
    RptSql source(sqlite());
    LogCatcher log;
    QCOMPARE(source.recordCount(), 0);
    QCOMPARE(source.fieldValue(QStringLiteral("name"), 0), QString());
    QVERIFY(source.fieldImage(QStringLiteral("name"), 0).isNull());
    QCOMPARE(log.lines(), (QStringList{"Query is not active", "Query is not active"}));
    QVERIFY(source.openQuery(QStringLiteral("SELECT name, NULL unset FROM via_types"), QString(), QString()));
    log.clear();
    QCOMPARE(source.fieldValue(QStringLiteral("name"), 2), QString());
    QVERIFY(source.fieldImage(QStringLiteral("name"), 2).isNull());
    QCOMPARE(log.lines(), (QStringList{"recNo more than recordCount", "recNo more than recordCount"}));
    log.clear();
    QCOMPARE(source.fieldValue(QStringLiteral("price"), 1), QString());
    QCOMPARE(log.lines(), QStringList{"Unknown column price"});
    log.clear();
    QCOMPARE(source.fieldValue(QStringLiteral("unset"), 1), QString());
    QCOMPARE(source.fieldValue(QStringLiteral("name"), -1), QString());
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(source.fieldValue(QStringLiteral("name"), 1), QStringLiteral("Hlavné jedlá"));
}

void TestRptSql::statementWithoutRows()
{
    RptSql empty(mariaDb());
    QVERIFY(empty.openQuery(QStringLiteral("SELECT name FROM via_types WHERE typeID = 99"), QString(), QString()));
    QCOMPARE(empty.recordCount(), 0);
    LogCatcher log;
    QCOMPARE(empty.fieldValue(QStringLiteral("name"), 0), QString());
    QCOMPARE(log.lines(), QStringList{"recNo more than recordCount"});
    RptSql other(mariaDb());
    QVERIFY(other.openQuery(QStringLiteral("SET @a = 1"), QString(), QString()));
    QCOMPARE(other.recordCount(), 0);
}

void TestRptSql::codingOfTheSession_data()
{
    QTest::addColumn<QString>("coding");
    QTest::addColumn<QString>("client");
    QTest::newRow("the driver's own") << QString() << QStringLiteral("utf8mb3");
    QTest::newRow("four bytes") << QStringLiteral("utf8mb4") << QStringLiteral("utf8mb4");
    QTest::newRow("Latin-2") << QStringLiteral("latin2") << QStringLiteral("latin2");
}

void TestRptSql::codingOfTheSession()
{
    QFETCH(QString, coding);
    QFETCH(QString, client);
    RptSql source(mariaDb());
    QVERIFY(source.openQuery(QStringLiteral("SELECT @@character_set_client c"), coding, QString()));
    QCOMPARE(source.fieldValue(QStringLiteral("c"), 0), client);
}

void TestRptSql::codingOfAnotherDriver()
{
    RptSql source(sqlite());
    LogCatcher log;
    QVERIFY(source.openQuery(QStringLiteral("SELECT 1"), QStringLiteral("latin2"), QString()));
    QCOMPARE(log.lines(), QStringList{"open DB"});
}

void TestRptSql::unknownCodingIsTold()
{
    RptSql source(mariaDb());
    LogCatcher log;
    QVERIFY(source.openQuery(QStringLiteral("SELECT 1 n"), QStringLiteral("klingon"), QStringLiteral("klingon")));
    QCOMPARE(log.lines(),
             (QStringList{"open DB", "Unknown character set: 'klingon' QMYSQL: Unable to execute query",
                          "Unknown codec klingon"}));
    QCOMPARE(QTextCodec::codecForLocale(), m_codec);
    QCOMPARE(source.fieldValue(QStringLiteral("n"), 0), QStringLiteral("1"));
}

void TestRptSql::localeCodec()
{
    {
        RptSql source(sqlite());
        QVERIFY(source.openQuery(QStringLiteral("SELECT 1"), QString(), QStringLiteral("windows-1250")));
    }
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("windows-1250"));
    RptSql later(sqlite());
    QVERIFY(later.openQuery(QStringLiteral("SELECT 1"), QString(), QString()));
    QCOMPARE(QTextCodec::codecForLocale()->name(), QByteArray("windows-1250"));
}

void TestRptSql::hostileTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("quotes") << QStringLiteral("Mama's \"best\" \\ soup");
    QTest::newRow("place marks") << QStringLiteral("100 % %1 %n [0] <Page>");
    QTest::newRow("markup") << QStringLiteral("<b>tučné</b> & &amp;");
    QTest::newRow("emoji") << QStringLiteral("guláš 🍲");
    QTest::newRow("right to left") << QStringLiteral("مرق العدس");
    QTest::newRow("long") << QString(10000, QLatin1Char('x'));
}

void TestRptSql::hostileTexts()
{
    QFETCH(QString, text);
    QString quoted = text;
    quoted.replace(QLatin1String("\\"), QLatin1String("\\\\")).replace(QLatin1String("'"), QLatin1String("''"));
    RptSql source(mariaDb());
    QVERIFY(source.openQuery(QStringLiteral("SELECT '") + quoted + QStringLiteral("' t"), QStringLiteral("utf8mb4"),
                             QString()));
    QCOMPARE(source.fieldValue(QStringLiteral("t"), 0), text);
}

void TestRptSql::images()
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    RptSql source(sqlite());
    QVERIFY(source.openQuery(QStringLiteral("SELECT x'%1' good, x'00ff00' bad, 'text' word, NULL unset")
                                 .arg(QString::fromLatin1(bytes.toHex())),
                             QString(), QString()));
    LogCatcher log;
    QCOMPARE(source.fieldImage(QStringLiteral("good"), 0).convertToFormat(QImage::Format_RGB32), picture);
    for (const char *column : {"bad", "word", "unset"})
        QVERIFY2(source.fieldImage(QLatin1String(column), 0).isNull(), column);
    QCOMPARE(log.lines(), QStringList());
    QVERIFY(source.fieldImage(QStringLiteral("missing"), 0).isNull());
    QCOMPARE(log.lines(), QStringList{"Unknown column missing"});
}

void TestRptSql::brokenConnection()
{
    RptSql source(mariaDb());
    QVERIFY(source.openQuery(QStringLiteral("SELECT CONNECTION_ID() id"), QString(), QString()));
    const QString id = source.fieldValue(QStringLiteral("id"), 0);
    m_database->exec(QStringLiteral("KILL CONNECTION ") + id);
    QCOMPARE(source.fieldValue(QStringLiteral("id"), 0), id);
    LogCatcher log;
    QVERIFY2(source.openQuery(QStringLiteral("SELECT 1 n"), QString(), QString()), "opened anew");
    QCOMPARE(source.fieldValue(QStringLiteral("n"), 0), QStringLiteral("1"));
}

void TestRptSql::manyRecords()
{
    RptSql source(sqlite());
    QVERIFY(source.openQuery(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n "
                                            "WHERE i < 19999) SELECT i FROM n"),
                             QString(), QString()));
    QCOMPARE(source.recordCount(), 20000);
    QElapsedTimer timer;
    timer.start();
    for (int record = 0; record < 20000; ++record)
        QCOMPARE(source.fieldValue(QStringLiteral("i"), record).toInt(), record);
    QVERIFY2(timer.elapsed() < 20000, "each look-up takes as long as the list");
}

QTEST_MAIN(TestRptSql)
#include "tst_rptsql.moc"
