#include "store/sqloperation.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QtTest>

class TestSqlOperation : public QObject {
    Q_OBJECT

private slots:
    void init() { m_database.clear(); }
    void cleanup() { BOXES_DONE(m_boxes); }

    void valuesAreBoundByName();
    void unusedValueIsLeftOut();
    void statementThatCannotBePreparedKeepsItsError();
    void preparedStatementRunsAgainAfterAFailure();
    void sameStatementIsPreparedOnce();
    void loadVisitsEachRow();
    void loadWithoutRowsIsNoFailure();
    void operationWithoutTextsOnlyLogs();
    void failureWhileFetching();
    void textIsNeverNull();
    void keyZeroIsNull();

private:
    const TestDatabase m_database;
    BoxAnswerer m_boxes;
};

namespace {

const QString insertStatement = QStringLiteral("INSERT INTO vars VALUES (:name, :value)");

} // namespace

void TestSqlOperation::valuesAreBoundByName()
{
    // One value fills every place of its name.
    QVERIFY(SqlOperation(m_database.db())
                .run("INSERT INTO vars VALUES (:b, CONCAT(:a, :b, ':a'))", {{":a", "1"}, {":b", "2"}}));
    QCOMPARE(m_database.rows("SELECT name, value FROM vars"), QStringList{"2|12:a"});
}

void TestSqlOperation::unusedValueIsLeftOut()
{
    QVERIFY(SqlOperation(m_database.db())
                .run(insertStatement, {{":name", "n"}, {":bid", 5}, {":value", "v"}, {":valu", "x"}}));
    QCOMPARE(m_database.rows("SELECT name, value FROM vars"), QStringList{"n|v"});
}

void TestSqlOperation::statementThatCannotBePreparedKeepsItsError()
{
    LogCatcher log;
    m_boxes.expectBox("title", "text");
    SqlOperation operation(m_database.db(), "Tag(doing)", "title", "text");
    QVERIFY(!operation.change("INSERT INTO nowhere VALUES (:name)", {{":name", 1}}));
    QCOMPARE(log.critical().size(), 1);
    QVERIFY2(log.critical().value(0).contains("nowhere"), qPrintable(log.critical().value(0)));
    QVERIFY(log.critical().value(0).startsWith("Tag(doing) - SQL ERROR: "));
    // It is not sent again, unprepared.
    QVERIFY(!operation.execute({{":name", 1}}));
    QVERIFY2(operation.error().text().contains("Unable to prepare"), qPrintable(operation.error().text()));
}

void TestSqlOperation::preparedStatementRunsAgainAfterAFailure()
{
    m_database.exec("INSERT INTO vars VALUES ('b', 'old')");
    SqlOperation operation(m_database.db());
    QVERIFY(operation.prepare(insertStatement));
    QVERIFY(operation.execute({{":name", "a"}, {":value", 1}}));
    QVERIFY(!operation.execute({{":name", "b"}, {":value", 2}}));
    QVERIFY(operation.failed());
    QVERIFY(operation.execute({{":name", "c"}, {":value", 3}}));
    QVERIFY(!operation.failed());
    QCOMPARE(m_database.rows("SELECT name, value FROM vars ORDER BY name"), (QStringList{"a|1", "b|old", "c|3"}));
}

void TestSqlOperation::sameStatementIsPreparedOnce()
{
    const auto prepared = [this] {
        QSqlQuery query(m_database.db());
        query.exec("SHOW SESSION STATUS LIKE 'Com_stmt_prepare'");
        query.next();
        return query.value(1).toInt();
    };
    m_database.exec("INSERT INTO vars VALUES ('b', 'old')");
    SqlOperation operation(m_database.db());
    const int before = prepared();
    QVERIFY(operation.run(insertStatement, {{":name", "a"}, {":value", 1}}));
    QVERIFY(operation.run(insertStatement, {{":name", "c"}, {":value", 2}}));
    QCOMPARE(prepared() - before, 1);
    QVERIFY(!operation.run(insertStatement, {{":name", "b"}, {":value", 3}}));
    QVERIFY(operation.run(insertStatement, {{":name", "d"}, {":value", 4}})); // after a failure anew, without its error
    QVERIFY(!operation.failed());
    QCOMPARE(prepared() - before, 2);
    QVERIFY(operation.run("DELETE FROM vars WHERE name=:name", {{":name", "a"}}));
    QCOMPARE(prepared() - before, 3);
    QCOMPARE(m_database.rows("SELECT name, value FROM vars ORDER BY name"), (QStringList{"b|old", "c|2", "d|4"}));
}

void TestSqlOperation::loadVisitsEachRow()
{
    QStringList rows;
    const auto visit = [&rows](const QSqlQuery &row) { rows.append(row.value(0).toString()); };
    SqlOperation operation(m_database.db(), "Tag", "title", "text");
    QVERIFY(operation.load("SELECT 1 UNION ALL SELECT 2", visit));
    QVERIFY(operation.load("SELECT :a UNION ALL SELECT :b", {{":a", 3}, {":b", 4}}, visit));
    QCOMPARE(rows, (QStringList{"1", "2", "3", "4"}));
}

void TestSqlOperation::loadWithoutRowsIsNoFailure()
{
    LogCatcher log;
    bool visited = false;
    SqlOperation operation(m_database.db(), "Tag", "title", "text");
    QVERIFY(operation.load("SELECT name FROM vars", [&visited](const QSqlQuery &) { visited = true; }));
    QVERIFY(!visited);
    QCOMPARE(log.lines(), QStringList());
}

void TestSqlOperation::operationWithoutTextsOnlyLogs()
{
    LogCatcher log; // no box is expected: one that came would fail this test when it ends
    QVERIFY(!SqlOperation(m_database.db(), "Tag").load("SELECT nothing", [](const QSqlQuery &) {}));
    QCOMPARE(log.critical().size(), 1);
    log.clear();
    SqlOperation silent(m_database.db());
    QVERIFY(!silent.run("SELECT nothing"));
    QVERIFY(silent.failed());
    QCOMPARE(log.lines(), QStringList());
}

void TestSqlOperation::failureWhileFetching()
{
    // The subselect fails on its second row, after the first has come.
    LogCatcher log;
    m_database.exec("INSERT INTO vars VALUES ('a', '1'), ('b', '2')");
    SqlOperation operation(m_database.db(), "Tag");
    QStringList rows;
    QVERIFY(
        !operation.load("SELECT name, (SELECT v.name FROM vars v WHERE v.name <= vars.name) FROM vars ORDER BY name",
                        [&rows](const QSqlQuery &row) { rows.append(row.value(0).toString()); }));
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().value(0).startsWith("Tag - SQL ERROR: Subquery returns more than 1 row"));
}

void TestSqlOperation::textIsNeverNull()
{
    QVERIFY(!sqlString(QString()).isNull());
    QCOMPARE(sqlString(QString()).toString(), QString(""));
    QCOMPARE(sqlString("x"), QVariant("x"));
    SqlOperation operation(m_database.db());
    QVERIFY(operation.run(insertStatement, {{":name", "n"}, {":value", sqlString(QString())}}));
    QCOMPARE(m_database.rows("SELECT name, value FROM vars"), QStringList{"n|"});
}

void TestSqlOperation::keyZeroIsNull()
{
    QVERIFY(sqlKeyOrNull(0).isNull());
    QCOMPARE(sqlKeyOrNull(4294967295U), QVariant(4294967295U));
    SqlOperation operation(m_database.db());
    QVERIFY(operation.run(insertStatement, {{":name", "n"}, {":value", sqlKeyOrNull(0)}}));
    QCOMPARE(m_database.rows("SELECT name, value FROM vars"), QStringList{"n|NULL"});
}

QTEST_MAIN(TestSqlOperation)
#include "tst_sqloperation.moc"
