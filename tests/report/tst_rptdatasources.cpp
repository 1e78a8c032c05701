#include "report/rptengine.h"
#include "report/rptsql.h"
#include "reporttemplate.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QString source(const QString &statement, const QString &attributes)
{
    return QStringLiteral("<DataSource type=\"SQL\" name=\"foods\" ") + attributes + QLatin1Char('>')
        + statement.toHtmlEscaped() + QStringLiteral("</DataSource>");
}

QString title(const QString &value)
{
    return band(QStringLiteral("ReportTitle"), 20, label(value));
}

QString rows(const QString &value)
{
    return band(QStringLiteral("MasterData"), 20, label(value));
}

} // namespace

/// Reports whose records come from a database, and where their sources belong.
class TestRptDataSources : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup() { QSqlDatabase::removeDatabase(QStringLiteral("report")); }

    void rowsOfSqlite();
    void rowsOfMariaDb();
    void queryDoesNotSetTheCount();
    void countBeyondTheQuery();
    void tokensThatDoNotNameTheSource();
    void nameWithoutSource();
    void sourceInTheSecondPage();
    void sourceInTheFirstPage();
    void otherChildrenShiftTheLookUp_data();
    void otherChildrenShiftTheLookUp();
    void otherTypesHaveNoEffect_data();
    void otherTypesHaveNoEffect();
    void overriddenStatement();
    void connectionFromCode();
    void connectionFromCodeGoesFirst();
    void connectionFromCodeStaysForTheNextPrint();
    void connectionSwitchedWhenDataSetsAreAsked();
    void defaultConnectionIsTakenOver();
    void failuresAreTold_data();
    void failuresAreTold();
    void printingTwiceIsTheSame();
    void fewerPagesThanBefore();
    void databaseImage();
    void callersImage();

private:
    QString sqlite() const;
    QStringList print(ReportRun &run);
    void connectFromCode(RptEngine &engine, int page, const QString &statement, bool active = true);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_html;
};

void TestRptDataSources::initTestCase()
{
    // The client library's default socket, which it reads once: a report's connection can name none.
    qputenv("MYSQL_UNIX_PORT", TestDatabase::socket().toLocal8Bit());
    m_database = std::make_unique<TestDatabase>();
    m_database->exec(
        QStringLiteral("INSERT INTO via_types (typeID, name) VALUES (1, 'Polievky'), (2, 'Hlavné jedlá')"));
    m_folder = std::make_unique<QTemporaryDir>();
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("setup"));
    db.setDatabaseName(m_folder->filePath(QStringLiteral("foods.sqlite")));
    QVERIFY(db.open());
    QSqlQuery query(db);
    QVERIFY(query.exec(QStringLiteral("CREATE TABLE foods (name TEXT, price REAL)")));
    QVERIFY(query.exec(QStringLiteral("INSERT INTO foods VALUES ('soup', 1.5), ('stew', 4.25), ('cake', 2)")));
}

void TestRptDataSources::cleanupTestCase()
{
    QSqlDatabase::removeDatabase(QStringLiteral("setup"));
    m_database.reset();
}

/// Attributes of a `DataSource` element for the file.
QString TestRptDataSources::sqlite() const
{
    return QStringLiteral("dbType=\"QSQLITE\" dbConnectionName=\"report\" dbName=\"%1\"")
        .arg(m_folder->filePath(QStringLiteral("foods.sqlite")));
}

/// Prints to HTML and gives the texts in their order.
QStringList TestRptDataSources::print(ReportRun &run)
{
    QFile file(m_folder->filePath(QStringLiteral("print.html")));
    run.engine.exportToHtml(file.fileName(), false);
    if (!file.open(QIODevice::ReadOnly))
        return {QStringLiteral("no file")};
    m_html = QString::fromUtf8(file.readAll());
    QStringList texts;
    const QRegularExpression text(QStringLiteral("'>([^<]*)</div>"));
    for (auto match = text.globalMatch(m_html); match.hasNext();)
        texts.append(match.next().captured(1));
    return texts;
}

void TestRptDataSources::connectFromCode(RptEngine &engine, int page, const QString &statement, bool active)
{
    engine.setSqlConnection(page, active, QStringLiteral("foods"), QStringLiteral("QSQLITE"),
                            m_folder->filePath(QStringLiteral("foods.sqlite")), QString(), QString(), QString(), 0,
                            QStringLiteral("report"), statement, QString(), QString());
}

void TestRptDataSources::rowsOfSqlite()
{
    ReportRun run(
        page(source(QStringLiteral("\n  SELECT name, price FROM foods WHERE price < 10 ORDER BY name\n"), sqlite())
             + rows(QStringLiteral("[foods.name]: [foods.price]"))));
    run.counts = {{1, 3}};
    bool isAsked = false;
    connect(&run.engine, &RptEngine::setValue, this, [&isAsked] { isAsked = true; });
    QCOMPARE(print(run), (QStringList{"cake: 2", "soup: 1.5", "stew: 4.25"}));
    QVERIFY(!isAsked);
    const RptSql *sql = run.engine.findChild<RptSql *>(QStringLiteral("foods"));
    QVERIFY(sql);
    QCOMPARE(run.engine.pages().at(0)->sqlSource, sql);
}

void TestRptDataSources::rowsOfMariaDb()
{
    const QString attributes = QStringLiteral("dbType=\"QMYSQL\" dbConnectionName=\"report\" dbHost=\"localhost\" "
                                              "dbUser=\"vianda\" dbCoding=\"utf8mb4\" dbName=\"%1\"")
                                   .arg(m_database->name());
    ReportRun run(page(source(QStringLiteral("SELECT name, '🍲' sign FROM via_types ORDER BY typeID"), attributes)
                       + rows(QStringLiteral("[foods.name] [foods.sign]"))));
    run.counts = {{1, 2}};
    QCOMPARE(print(run), (QStringList{"Polievky 🍲", "Hlavné jedlá 🍲"}));
}

void TestRptDataSources::queryDoesNotSetTheCount()
{
    ReportRun run(page(source(QStringLiteral("SELECT name FROM foods"), sqlite())
                       + title(QStringLiteral("[foods.name]")) + rows(QStringLiteral("[foods.name]"))));
    QCOMPARE(print(run), QStringList{"soup"});
}

void TestRptDataSources::countBeyondTheQuery()
{
    ReportRun run(
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + rows(QStringLiteral("- [foods.name]"))));
    run.counts = {{1, 4}};
    LogCatcher log;
    QCOMPARE(print(run), (QStringList{"- soup", "- stew", "- cake", "- "}));
    QVERIFY(log.has(QStringLiteral("recNo more than recordCount")));
}

void TestRptDataSources::tokensThatDoNotNameTheSource()
{
    ReportRun run(page(source(QStringLiteral("SELECT name FROM foods"), sqlite())
                       + rows(QStringLiteral("([name]|[drinks.name]|[foods.name]|[foods]|[foods.price])"))));
    run.counts = {{1, 1}};
    run.values = {{QStringLiteral("name"), QStringLiteral("asked")}};
    LogCatcher log;
    QCOMPARE(print(run), QStringList{"(||soup||)"});
    // Without a point the name is taken for a column.
    QVERIFY(log.has(QStringLiteral("Unknown column foods")));
    QVERIFY(log.has(QStringLiteral("Unknown column price")));
    QVERIFY(!log.has(QStringLiteral("Unknown column name")));
}

/// Every token names a source without a name, and loses all its points.
void TestRptDataSources::nameWithoutSource()
{
    ReportRun run(page(source(QStringLiteral("SELECT name FROM foods"), sqlite())
                           .replace(QStringLiteral("name=\"foods\""), QStringLiteral("name=\"\""))
                       + rows(QStringLiteral("[name] [.name] [na.me]"))));
    run.counts = {{1, 1}};
    QCOMPARE(print(run), QStringList{"soup soup soup"});
}

/// Kept on purpose: the source serves the page definition before, which has been measured without it by then.
void TestRptDataSources::sourceInTheSecondPage()
{
    ReportRun run(
        page(rows(QStringLiteral("1: [foods.name]")))
        + page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + rows(QStringLiteral("2: [foods.name]"))));
    run.counts = {{1, 1}};
    run.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    QList<int> askedOf;
    connect(&run.engine, &RptEngine::setValue, this,
            [&askedOf](int, const QString &, const QVariant &, int reportPage) { askedOf.append(reportPage); });
    QCOMPARE(print(run), (QStringList{"1: soup", "2: asked"}));
    QVERIFY(run.engine.pages().at(0)->sqlSource);
    QVERIFY(!run.engine.pages().at(1)->sqlSource);
    const int firstOfSecond = askedOf.indexOf(1);
    QVERIFY2(firstOfSecond > 0, "the first definition is measured with the caller's values");
    QCOMPARE(askedOf.lastIndexOf(0), firstOfSecond - 1);
}

void TestRptDataSources::sourceInTheFirstPage()
{
    ReportRun run(
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("1: [foods.name]")))
        + page(title(QStringLiteral("2: [foods.name]"))));
    run.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    QCOMPARE(print(run), (QStringList{"1: soup", "2: asked"}));
}

void TestRptDataSources::otherChildrenShiftTheLookUp_data()
{
    QTest::addColumn<QString>("inFront");
    QTest::addColumn<QStringList>("texts");
    // With two definitions, the first one's source is found with the second one's place, and serves the first.
    QTest::newRow("nothing") << QString() << QStringList{"1: soup", "2: asked"};
    QTest::newRow("script") << QStringLiteral("<Script><![CDATA[]]></Script>") << QStringList{"1: soup", "2: asked"};
    QTest::newRow("comment") << QStringLiteral("<!-- menu -->") << QStringList{"1: soup", "2: asked"};
    QTest::newRow("both") << QStringLiteral("<Script/><!-- menu -->") << QStringList{"1: asked", "2: asked"};
    QTest::newRow("blanks") << QStringLiteral("\n\n   ") << QStringList{"1: soup", "2: asked"};
}

void TestRptDataSources::otherChildrenShiftTheLookUp()
{
    QFETCH(QString, inFront);
    QFETCH(QStringList, texts);
    const QString sourced =
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("1: [foods.name]")));
    ReportRun two(inFront + sourced + page(title(QStringLiteral("2: [foods.name]"))));
    two.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    QCOMPARE(print(two), texts);
    // Alone, a definition with something in front of it never gets its source.
    ReportRun one(inFront + sourced);
    one.values = two.values;
    QCOMPARE(print(one), QStringList{inFront.trimmed().isEmpty() ? "1: soup" : "1: asked"});
}

void TestRptDataSources::otherTypesHaveNoEffect_data()
{
    QTest::addColumn<QString>("element");
    const QString good = source(QStringLiteral("SELECT name FROM foods"), sqlite());
    const QString sql = QStringLiteral("type=\"SQL\"");
    QTest::newRow("XML") << QString(good).replace(sql, QStringLiteral("type=\"XML\""));
    QTest::newRow("no type") << QString(good).remove(sql);
    QTest::newRow("small letters") << QString(good).replace(sql, QStringLiteral("type=\"sql\""));
    QTest::newRow("no statement") << source(QStringLiteral(" \n\t "), sqlite());
    QTest::newRow("other tag") << QString(good).replace(QStringLiteral("DataSource"), QStringLiteral("dataSource"));
    QTest::newRow("too deep") << band(QStringLiteral("PageHeader"), 1, good);
    QTest::newRow("none") << QString();
}

void TestRptDataSources::otherTypesHaveNoEffect()
{
    QFETCH(QString, element);
    ReportRun run(page(title(QStringLiteral("[foods.name]")) + element));
    run.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    run.engine.overrideSqlQuery(QStringLiteral("SELECT 1"));
    LogCatcher log;
    QVERIFY(print(run).contains(QStringLiteral("asked")));
    QVERIFY(!run.engine.findChild<RptSql *>());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptDataSources::overriddenStatement()
{
    ReportRun run(
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("[foods.name]"))));
    run.engine.overrideSqlQuery(QStringLiteral("SELECT 'instead' name"));
    QCOMPARE(print(run), QStringList{"instead"});
    connectFromCode(run.engine, 0, QStringLiteral("SELECT 'code' name"));
    QCOMPARE(print(run), QStringList{"instead"});
    run.engine.overrideSqlQuery(QString());
    QCOMPARE(print(run), QStringList{"code"});
    run.engine.setSqlActive(0, false);
    QCOMPARE(print(run), QStringList{"soup"});
}

/// Unlike one of the template, a source that is set from code serves the definition that it is set for.
void TestRptDataSources::connectionFromCode()
{
    ReportRun run(page(title(QStringLiteral("1: [foods.name]"))) + page(title(QStringLiteral("2: [foods.name]"))));
    run.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    connectFromCode(run.engine, 1, QStringLiteral("SELECT 'code' name"));
    QCOMPARE(print(run), (QStringList{"1: asked", "2: code"}));
    run.engine.setSqlActive(1, false);
    QCOMPARE(print(run), (QStringList{"1: asked", "2: asked"}));
}

void TestRptDataSources::connectionFromCodeGoesFirst()
{
    const QString pages =
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("[foods.name]")));
    ReportRun run(pages);
    connectFromCode(run.engine, 0, QStringLiteral("SELECT 'code' name"));
    QCOMPARE(print(run), QStringList{"code"});
    connectFromCode(run.engine, 0, QStringLiteral("SELECT 'code' name"), false);
    QCOMPARE(print(run), QStringList{"soup"});
    connectFromCode(run.engine, 0, QString());
    QCOMPARE(print(run), QStringList{"soup"});
}

void TestRptDataSources::connectionFromCodeStaysForTheNextPrint()
{
    ReportRun run(page(title(QStringLiteral("[foods.name]"))));
    connectFromCode(run.engine, 0, QStringLiteral("SELECT 'code' name"));
    for (int count = 1; count <= 3; ++count) {
        QCOMPARE(print(run), QStringList{"code"});
        QCOMPARE(run.engine.sqlConnection(0).sqlQuery, QStringLiteral("SELECT 'code' name"));
        // Earlier ones stay until the engine goes.
        QCOMPARE(run.engine.findChildren<RptSql *>().size(), count);
    }
}

void TestRptDataSources::connectionSwitchedWhenDataSetsAreAsked()
{
    ReportRun run(page(rows(QStringLiteral("[foods.name]"))));
    run.counts = {{1, 1}};
    connect(&run.engine, &RptEngine::setDSInfo, this,
            [&] { connectFromCode(run.engine, 0, QStringLiteral("SELECT 'late' name")); });
    QCOMPARE(print(run), QStringList{"late"});
}

void TestRptDataSources::defaultConnectionIsTakenOver()
{
    const TestDatabase other; // the application's default connection
    QCOMPARE(QSqlDatabase::database().driverName(), QStringLiteral("QMYSQL"));
    ReportRun run(page(
        source(QStringLiteral("SELECT name FROM foods"), sqlite().remove(QStringLiteral("dbConnectionName=\"report\"")))
        + title(QStringLiteral("[foods.name]"))));
    QCOMPARE(print(run), QStringList{"soup"});
    QCOMPARE(QSqlDatabase::database().driverName(), QStringLiteral("QSQLITE"));
    QSqlQuery query(QStringLiteral("SELECT COUNT(*) FROM foods"));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toInt(), 3);
}

void TestRptDataSources::failuresAreTold_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("line");
    QTest::newRow("database does not open")
        << source(QStringLiteral("SELECT 1"),
                  QStringLiteral("dbType=\"QSQLITE\" dbConnectionName=\"report\" dbName=\"/nowhere/foods.sqlite\""))
        << QStringLiteral("Failed open DB unable to open database file Error opening database");
    QTest::newRow("no driver") << source(QStringLiteral("SELECT 1"),
                                         QStringLiteral("dbType=\"NONE\" dbConnectionName=\"report\""))
                               << QStringLiteral("Failed open DB Driver not loaded Driver not loaded");
    QTest::newRow("statement") << source(QStringLiteral("SELECT name FROM drinks"), sqlite())
                               << QStringLiteral("no such table: drinks Unable to execute statement");
}

void TestRptDataSources::failuresAreTold()
{
    QFETCH(QString, element);
    QFETCH(QString, line);
    ReportRun run(page(element + title(QStringLiteral("Menu ([foods.name])")) + rows(QStringLiteral("[foods.name]."))));
    run.counts = {{1, 2}};
    LogCatcher log;
    QCOMPARE(print(run), (QStringList{"Menu ()", ".", "."}));
    QVERIFY2(log.lines(QtDebugMsg).contains(line), qPrintable(log.lines().join(QLatin1Char('\n'))));
    QVERIFY(log.has(QStringLiteral("Query is not active")));
}

/// Whatever the last print ended on.
void TestRptDataSources::printingTwiceIsTheSame()
{
    ReportRun run(
        page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("1: [foods.name]")))
        + page(title(QStringLiteral("2: [foods.name]"))) + page(title(QStringLiteral("3: [foods.name]"))));
    run.values = {{QStringLiteral("foods.name"), QStringLiteral("asked")}};
    const QStringList once = print(run);
    const QString html = m_html;
    QCOMPARE(once, (QStringList{"1: soup", "2: asked", "3: asked"}));
    QCOMPARE(print(run), once);
    QCOMPARE(m_html, html);
}

void TestRptDataSources::fewerPagesThanBefore()
{
    ReportRun run(page(QString()) + page(QString()) + page(QString()));
    print(run);
    QDomDocument document;
    QVERIFY(document.setContent(
        QStringLiteral("<Reports>")
        + page(source(QStringLiteral("SELECT name FROM foods"), sqlite()) + title(QStringLiteral("[foods.name]")))
        + QStringLiteral("</Reports>")));
    run.engine.loadReportDocument(document);
    QCOMPARE(print(run), QStringList{"soup"});
}

void TestRptDataSources::databaseImage()
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    const QString field = QStringLiteral("<f type=\"DatabaseImage\" value=\"%1\" width=\"40\" height=\"40\"/>");
    const QString statement = QStringLiteral("SELECT x'%1' p").arg(QString::fromLatin1(bytes.toHex()));
    // The source need not be named here.
    for (const char *token : {"[foods.p]", "[p]", "p"}) {
        ReportRun run(page(source(statement, sqlite())
                           + band(QStringLiteral("ReportTitle"), 40, field.arg(QLatin1String(token)))));
        print(run);
        QVERIFY2(m_html.contains(QLatin1String("<img ")), token);
    }
    ReportRun other(page(source(statement, sqlite())
                         + band(QStringLiteral("ReportTitle"), 40, field.arg(QStringLiteral("[drinks.p]")))));
    print(other);
    QVERIFY(!m_html.contains(QLatin1String("<img ")));
    ReportRun none(page(band(QStringLiteral("ReportTitle"), 40, field.arg(QStringLiteral("[foods.p]")))));
    print(none);
    QVERIFY(!m_html.contains(QLatin1String("<img ")));
}

/// A `labelImage` is the caller's, with an SQL source too.
void TestRptDataSources::callersImage()
{
    const QString bands = band(QStringLiteral("MasterData"), 40,
                               QStringLiteral("<f type=\"labelImage\" value=\"[photo]\" width=\"40\" height=\"40\"/>"));
    for (const QString &element : {QString(), source(QStringLiteral("SELECT name FROM foods"), sqlite())}) {
        ReportRun run(page(element + bands));
        run.counts = {{1, 2}};
        QStringList asked;
        connect(&run.engine, &RptEngine::setValueImage, this,
                [&asked](int record, const QString &name, QImage &image, int reportPage) {
                    asked.append(QStringLiteral("%1 %2 %3").arg(record).arg(name).arg(reportPage));
                    image = QImage(4, 4, QImage::Format_RGB32);
                });
        print(run);
        QCOMPARE(asked, (QStringList{"0 photo 0", "1 photo 0"}));
        QCOMPARE(m_html.count(QLatin1String("<img ")), 2);
    }
}

QTEST_MAIN(TestRptDataSources)
#include "tst_rptdatasources.moc"
