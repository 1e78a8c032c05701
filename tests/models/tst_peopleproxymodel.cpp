#include "gridmodel.h"
#include "models/peopleproxymodel.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QtTest>

class TestPeopleProxyModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void filters_data();
    void filters();
    void showsEveryColumn();
    void filtersAtOnceAndIsASlot();

private:
    QStandardItemModel m_people;
};

void TestPeopleProxyModel::initTestCase()
{
    appendRows(m_people,
               {QStringLiteral("1|[12] Novák Ján|1577836800|"), QStringLiteral("2|[112] Čierna Jana|1600000000|0"),
                QStringLiteral("3|[7] Novotný <i>Peter</i>|15|"), QStringLiteral("4|[8] O'Hara %1*|99|")});
}

void TestPeopleProxyModel::filters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("uids");

    QTest::newRow("empty") << QString() << "1234";
    QTest::newRow("part of a surname") << QStringLiteral("nov") << "13";
    QTest::newRow("two words") << QStringLiteral("ján nov") << "1";
    QTest::newRow("in either order, in capitals") << QStringLiteral("NOV JÁN") << "1";
    QTest::newRow("both words must hit") << QStringLiteral("nov jana") << "";
    QTest::newRow("personal number") << QStringLiteral("12]") << "";
    QTest::newRow("personal number by its digits") << QStringLiteral("12") << "12";
    QTest::newRow("the number of column 2 too") << QStringLiteral("1577") << "1";
    QTest::newRow("label and column 2 are joined with a blank") << QStringLiteral("ján?1577") << "1";
    QTest::newRow("the uid and the end are not searched") << QStringLiteral("ján 0*0*0*0") << "";
    QTest::newRow("asterisk matches anything") << QStringLiteral("*") << "1234";
    QTest::newRow("asterisk within") << QStringLiteral("n*p*r") << "3";
    QTest::newRow("question mark") << QStringLiteral("jan?") << "2";
    QTest::newRow("apostrophe and percent as typed") << QStringLiteral("o'hara %1") << "4";
    QTest::newRow("unclosed bracket") << QStringLiteral("[12") << "";
    QTest::newRow("blanks only") << QStringLiteral("   ") << "1234";
}

void TestPeopleProxyModel::filters()
{
    QFETCH(const QString, text);
    QFETCH(const QString, uids);

    PeopleProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    proxy.setSourceModel(&m_people);
    proxy.textCatcher(text);
    QCOMPARE(columnTexts(proxy, 0).join(QString()), uids);
    proxy.textCatcher(QString());
    QCOMPARE(proxy.rowCount(), 4);
}

void TestPeopleProxyModel::showsEveryColumn()
{
    PeopleProxyModel proxy;
    proxy.setSourceModel(&m_people);
    QCOMPARE(proxy.columnCount(), m_people.columnCount());
}

void TestPeopleProxyModel::filtersAtOnceAndIsASlot()
{
    PeopleProxyModel proxy;
    proxy.setSourceModel(&m_people);
    QCOMPARE(proxy.rowCount(), 4);
    QSignalSpy changed(&proxy, &QAbstractItemModel::layoutChanged);
    QVERIFY(changed.isValid());
    QVERIFY(QMetaObject::invokeMethod(&proxy, "textCatcher", Q_ARG(QString, QStringLiteral("hara"))));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(proxy.rowCount(), 1);
}

QTEST_GUILESS_MAIN(TestPeopleProxyModel)
#include "tst_peopleproxymodel.moc"
