#include "randomscript.h"

#include "report/rptconstantscript.h"
#include "report/rptscript.h"
#include "report/rptscriptfunctions.h"
#include "report/rptvalues.h"

#include <QScriptEngine>
#include <QtTest>

#include <cmath>

namespace {

/// What an engine of its own makes of a script.
QString freshFormula(const QString &script, bool showInGroup)
{
    QScriptEngine engine;
    addReportFunctions(&engine, showInGroup);
    return engine.evaluate(script, QString(), 1).toString();
}

QString freshText(const QString &script)
{
    QScriptEngine engine;
    return engine.evaluate(script, QString(), 1).toString();
}

double freshNumber(const QString &script)
{
    QScriptEngine engine;
    return engine.evaluate(script, QString(), 1).toInteger();
}

/// A script in one line for a failure's text, with what there is and what there should be.
QByteArray report(const QString &script, const QString &actual, const QString &expected)
{
    return QStringLiteral("%1 gives \"%2\" instead of \"%3\"").arg(script, actual, expected).toUtf8();
}

} // namespace

/// Random scripts, one after the other, against engines that nobody used before. The seeds are fixed, so a failure
/// comes again.
class TestRptScriptFresh : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void constants();
    void formulas_data() { addSeeds(); }
    void formulas();
    void conditionTexts_data() { addSeeds(); }
    void conditionTexts();
    void conditionNumbers_data() { addSeeds(); }
    void conditionNumbers();
    void numbersAsText();

private:
    static void addSeeds();
};

void TestRptScriptFresh::initTestCase()
{
    RptValues &values = RptValues::instance();
    values.clear();
    values.add("[4]", "1.5", 0, 0);
    values.add("[4]", "-2", 1, 0);
    values.add("[4]", "", 2, 0);
    values.setGroupRecordIndexes({1, 2});
}

void TestRptScriptFresh::addSeeds()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 20U, 300U})
        QTest::addRow("%u", seed) << seed;
}

/// Whatever the evaluator of constants claims to know is right, and it knows most of what it is made for. One engine
/// serves for comparison, since constants change nothing.
void TestRptScriptFresh::constants()
{
    RandomScript scripts(42);
    QScriptEngine engine;
    constexpr int rounds = 60000;
    int known = 0;
    for (int i = 0; i < rounds; ++i) {
        const QString script = scripts.constant(1 + i % 4);
        const QScriptValue value = engine.evaluate(script);
        const std::optional<QString> text = RptConstantScript::text(script);
        if (text && *text != value.toString())
            QFAIL(report(script, *text, value.toString()).constData());
        const std::optional<double> number = RptConstantScript::wholeNumber(script);
        if (number && *number != value.toInteger())
            QFAIL(report(script, QString::number(*number), QString::number(value.toInteger())).constData());
        known += text ? 1 : 0;
    }
    QVERIFY2(known > rounds / 3, qPrintable(QString::number(known)));
    QVERIFY(known < rounds);
}

void TestRptScriptFresh::formulas()
{
    QFETCH(quint32, seed);
    const QStringList allProbes = RandomScript::probes();
    for (const QString &probe : allProbes)
        QCOMPARE(RptScript::formulaText(probe, false), freshFormula(probe, false));
    RandomScript scripts(seed);
    for (int i = 0; i < 3000; ++i) {
        const QString script = scripts.any();
        const bool showInGroup = i % 3 == 0;
        const QString actual = RptScript::formulaText(script, showInGroup);
        const QString expected = freshFormula(script, showInGroup);
        if (actual != expected)
            QFAIL(report(script, actual, expected).constData());
    }
}

void TestRptScriptFresh::conditionTexts()
{
    QFETCH(quint32, seed);
    const QStringList allProbes = RandomScript::probes();
    for (const QString &probe : allProbes)
        QCOMPARE(RptScript::conditionText(probe), freshText(probe));
    RandomScript scripts(seed + 1);
    for (int i = 0; i < 3000; ++i) {
        const QString script = scripts.any();
        const QString actual = RptScript::conditionText(script);
        const QString expected = freshText(script);
        if (actual != expected)
            QFAIL(report(script, actual, expected).constData());
    }
}

void TestRptScriptFresh::conditionNumbers()
{
    QFETCH(quint32, seed);
    const QStringList allProbes = RandomScript::probes();
    for (const QString &probe : allProbes)
        QCOMPARE(RptScript::conditionNumber(probe), freshNumber(probe));
    RandomScript scripts(seed + 2);
    for (int i = 0; i < 2000; ++i) {
        const QString script = scripts.any();
        const double actual = RptScript::conditionNumber(script);
        const double expected = freshNumber(script);
        if (actual != expected)
            QFAIL(report(script, QString::number(actual), QString::number(expected)).constData());
    }
}

/// Numbers of every size and length, written as a template would have them and calculated.
void TestRptScriptFresh::numbersAsText()
{
    QRandomGenerator random(99);
    QScriptEngine engine;
    int known = 0;
    for (int i = 0; i < 40000; ++i) {
        const double size = std::pow(10.0, random.bounded(24) - 8);
        const QString number = QString::number(random.bounded(size), 'f', random.bounded(12));
        const QString script =
            i % 2 == 0 ? "''+" + number : number + "/" + QString::number(1 + random.bounded(9)) + "+''";
        const std::optional<QString> text = RptConstantScript::text(script);
        const QString expected = engine.evaluate(script).toString();
        if (text && *text != expected)
            QFAIL(report(script, *text, expected).constData());
        known += text ? 1 : 0;
    }
    QVERIFY2(known > 10000, qPrintable(QString::number(known)));
}

QTEST_GUILESS_MAIN(TestRptScriptFresh)
#include "tst_rptscriptfresh.moc"
