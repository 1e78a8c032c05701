#include "session/session.h"
#include "session/sqlfailure.h"
#include "session/sqltext.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/testdatabase.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

class TestSqlFailure : public QObject {
    Q_OBJECT

private slots:
    void sessionStartsWithItsDefaults();
    void logIsOneCriticalLine();
    void logWithCodeNamesTheServersCode();
    void boxShowsItsTextAsTyped();
    void nullIsEmptyTextForEveryType();
    void lostConnectionIsAnOrdinaryError();
};

void TestSqlFailure::sessionStartsWithItsDefaults()
{
    QCOMPARE(session().readOnly, false);
    QCOMPARE(session().companyName, QString());
    QCOMPARE(session().debugLevel, quint8(0));
    QCOMPARE(&session(), &session());
}

void TestSqlFailure::logIsOneCriticalLine()
{
    LogCatcher log;
    SqlFailure::log("FoodRepository(loading)", QSqlError(QStringLiteral("100% driver"), QStringLiteral("database %s")));
    QCOMPARE(log.lines(), QStringList{QStringLiteral("FoodRepository(loading) - SQL ERROR: database %s 100% driver")});
    QCOMPARE(log.critical().size(), 1);
}

void TestSqlFailure::logWithCodeNamesTheServersCode()
{
    LogCatcher log;
    SqlFailure::logWithCode(
        "FoodModel - setQuery",
        QSqlError(QStringLiteral("d"), QStringLiteral("t"), QSqlError::StatementError, QStringLiteral("1146")));
    QCOMPARE(log.critical(), QStringList{QStringLiteral("FoodModel - setQuery ERROR: [1146]: t d")});
}

void TestSqlFailure::boxShowsItsTextAsTyped()
{
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("<b>%1</b>"), QMessageBox::Ok,
                    [](QMessageBox *box) {
                        QCOMPARE(box->icon(), QMessageBox::Critical);
                        QCOMPARE(box->textFormat(), Qt::PlainText);
                        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                        QVERIFY(!box->parent());
                    });
    SqlFailure::show(QStringLiteral("Chyba databázy"), QStringLiteral("<b>%1</b>"));
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 1);
}

void TestSqlFailure::nullIsEmptyTextForEveryType()
{
    const TestDatabase database;
    QSqlQuery query(database.db());
    QVERIFY(query.exec(QStringLiteral("SELECT CAST(NULL AS INT), CAST(NULL AS DOUBLE), CAST(NULL AS CHAR), CAST(NULL "
                                      "AS DATE), 0, 2.5, 'x', SUM(3)")));
    QVERIFY(query.next());
    QStringList texts;
    for (int column = 0; column < 8; ++column)
        texts.append(sqlText(query.value(column)));
    QCOMPARE(texts,
             (QStringList{QString(), QString(), QString(), QString(), QStringLiteral("0"), QStringLiteral("2.5"),
                          QStringLiteral("x"), QStringLiteral("3")}));
}

void TestSqlFailure::lostConnectionIsAnOrdinaryError()
{
    const TestDatabase database;
    database.breakConnection();
    QSqlQuery query(database.db());
    QVERIFY(!query.exec(QStringLiteral("SELECT 1")));
    QVERIFY(query.lastError().isValid());
}

QTEST_MAIN(TestSqlFailure)
#include "tst_sqlfailure.moc"
