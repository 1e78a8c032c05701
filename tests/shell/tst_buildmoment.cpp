#include "shell/buildmoment.h"

#include <QLocale>
#include <QtTest>

class TestBuildMoment : public QObject {
    Q_OBJECT

private slots:
    void stampsBecomeText_data();
    void stampsBecomeText();
    void languageOfTheMachineDoesNotMatter();
};

void TestBuildMoment::stampsBecomeText_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("moment");

    QTest::newRow("plain") << "Apr 21 2024"
                           << "19:57:40"
                           << "2404211957";
    QTest::newRow("one-digit day") << "Apr  1 2024"
                                   << "09:05:00"
                                   << "2404010905";
    QTest::newRow("blanks around") << " Dec 31 2029 "
                                   << " 23:59:59\n"
                                   << "2912312359";
    QTest::newRow("unknown date") << "??? ?? ????"
                                  << "19:57:40"
                                  << "";
    QTest::newRow("unknown time") << "Apr 21 2024"
                                  << "??:??:??"
                                  << "";
    QTest::newRow("no such day") << "Feb 30 2024"
                                 << "19:57:40"
                                 << "";
    QTest::newRow("no such hour") << "Apr 21 2024"
                                  << "24:00:00"
                                  << "";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void TestBuildMoment::stampsBecomeText()
{
    QFETCH(QString, date);
    QFETCH(QString, time);
    QTEST(buildMoment(date, time), "moment");
}

void TestBuildMoment::languageOfTheMachineDoesNotMatter()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("sk_SK")));
    const QString moment = buildMoment(QStringLiteral("May  5 2025"), QStringLiteral("00:00:00"));
    QLocale::setDefault(before);
    QCOMPARE(moment, QStringLiteral("2505050000"));
}

QTEST_MAIN(TestBuildMoment)
#include "tst_buildmoment.moc"
