#include "report/rptscript.h"
#include "report/rptvalues.h"

#include "support/logcatcher.h"

#include <QElapsedTimer>
#include <QScriptEngine>
#include <QtTest>

/// The functions of formulas, the texts and numbers of scripts, and that none sees another.
class TestRptScript : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { RptValues::instance().clear(); }
    void formulas_data();
    void formulas();
    void aggregates();
    void aggregatesKeepToTheGroup();
    void conditions_data();
    void conditions();
    void conditionsHaveNoFunctions();
    void failuresAreTexts_data();
    void failuresAreTexts();
    void nothingStaysBehind_data();
    void nothingStaysBehind();
    void longAndDeepScriptsEnd();
    void enginesAreRenewed();
    void timePerScript();
};

void TestRptScript::formulas_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *script, const char *text) {
        QTest::newRow(script) << QString::fromUtf8(script) << QString::fromUtf8(text);
    };
    row("2+3", "5");
    row("0.1+0.2", "0.30000000000000004");
    row("10/4", "2.5");
    row("1/3", "0.3333333333333333");
    row("1e21", "1e+21");
    row("'a'+1", "a1");
    row("", "undefined");
    row("showInGroup", "true");

    row("Replace('banana','a','o')", "bonono");
    row("Replace('banana','A','o')", "banana");
    row("Replace('a.b','.','')", "ab");
    row("Replace(1.5,'.',',')", "1,5");
    row("Replace('a','a')", "undefined");
    row("ToUpper('čaj 5')", "ČAJ 5");
    row("ToLower('ČAJ 5')", "čaj 5");
    row("ToUpper(true)", "TRUE");
    row("NumberToWords('ENG',42)", "forty-two");
    row("NumberToWords('GER','42')", "zweiundvierzig");
    row("NumberToWords(42,'ENG')", "zero"); // the language comes first
    row("NumberToWords('ENG','x')", "zero");
    row("NumberToWords('ENG',-1)", "");

    row("Frac(12.34)", "34");
    row("Frac(12)", "0");
    row("Frac(-1.25)", "75");
    row("Frac(0.999)", "100");
    row("Frac('x')", "0");
    row("Floor(2.7)", "2");
    row("Floor(-2.1)", "-3");
    row("Floor('3.9')", "3");
    row("Floor('3,9')", "0");
    row("Floor()", "0");
    row("Floor(1/0)", "0");
    row("Floor('inf')", "0");
    row("Floor('nan')", "0");
    row("Floor(3000000000.5)", "3000000000");
    row("Ceil(2.1)", "3");
    row("Ceil(-2.7)", "-2");
    row("1/Ceil(-0.5)", "Infinity"); // a whole 0 has no sign
    row("Ceil('x')", "0");
    row("Round(2.5)", "3");
    row("Round(2.4)", "2");
    row("Round(-2.5)", "-2");
    row("Round(-2.6)", "-3");
    row("Round(-2.4)", "-2");
    row("Round(-0.5)", "0");
    row("Round(-3)", "-3");
    row("Round('x')", "0");
    row("Round(1e15+0.5)", "1000000000000001");

    row("Sum(5,'[4]')", "0");
    row("Sum(1.5,'[4]')", "0");
    row("Sum('x','[4]')", "0");
}

void TestRptScript::formulas()
{
    QFETCH(QString, script);
    QTEST(RptScript::formulaText(script, true), "text");
}

void TestRptScript::aggregates()
{
    RptValues &values = RptValues::instance();
    QCOMPARE(RptScript::formulaText("Sum(1,'[4]')", false), QStringLiteral("0"));
    int record = 0;
    for (const char *const text : {"1", "2", "3"})
        values.add("[4]", text, record++, 0);
    QCOMPARE(RptScript::formulaText("Sum(0,'[4]')", false), QStringLiteral("6"));
    QCOMPARE(RptScript::formulaText("Sum(1,'[4]')", false), QStringLiteral("2"));
    QCOMPARE(RptScript::formulaText("Sum(2,'[4]')", false), QStringLiteral("3"));
    QCOMPARE(RptScript::formulaText("Sum(3,'[4]')", false), QStringLiteral("3"));
    QCOMPARE(RptScript::formulaText("Sum(4,'[4]')", false), QStringLiteral("1"));
    QCOMPARE(RptScript::formulaText("Sum(0,'4')", false), QStringLiteral("0"));
    QCOMPARE(RptScript::formulaText("Sum(0,'[4]')/Sum(2,'[4]')+1", false), QStringLiteral("3"));
    QCOMPARE(RptScript::formulaText("NumberToWords('ENG',Sum(0,'[4]'))", false), QStringLiteral("six"));
    values.add("[4]", "10", 3, 0); // the script is known by now, its values are not
    QCOMPARE(RptScript::formulaText("Sum(0,'[4]')", false), QStringLiteral("16"));
}

void TestRptScript::aggregatesKeepToTheGroup()
{
    RptValues &values = RptValues::instance();
    values.add("[4]", "1", 0, 0);
    values.add("[4]", "2", 1, 0);
    values.setGroupRecordIndexes({1});
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(RptScript::formulaText("Sum(0,'[4]')", true), QStringLiteral("2"));
        QCOMPARE(RptScript::formulaText("Sum(0,'[4]')", false), QStringLiteral("3"));
        QCOMPARE(RptScript::formulaText("showInGroup", false), QStringLiteral("false"));
    }
    // A script may decide for itself, for itself alone.
    QCOMPARE(RptScript::formulaText("showInGroup=true;Sum(0,'[4]')", false), QStringLiteral("2"));
    QCOMPARE(RptScript::formulaText("Sum(0,'[4]')", false), QStringLiteral("3"));
}

void TestRptScript::conditions_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("empty text") << "'' == 0?1:0"
                                << "1" << 1.0;
    QTest::newRow("text") << "'Polievka' == 0?1:0"
                          << "0" << 0.0;
    QTest::newRow("grouping") << "'Polievka'?1:0"
                              << "1" << 1.0;
    QTest::newRow("even") << "4 % 2 == 0"
                          << "true" << 1.0;
    QTest::newRow("odd") << "5 % 2 == 0?1:0"
                         << "0" << 0.0;
    QTest::newRow("colour") << "4 % 2 == 0?'rgba(1,2,3,255)':'rgba(9,9,9,255)'"
                            << "rgba(1,2,3,255)" << 0.0;
    QTest::newRow("decimals are cut") << "2.9"
                                      << "2.9" << 2.0;
    QTest::newRow("towards 0") << "-2.9"
                               << "-2.9" << -2.0;
    QTest::newRow("beyond 32 bits") << "4294967296"
                                    << "4294967296" << 4294967296.0;
    QTest::newRow("endless") << "1/0"
                             << "Infinity" << qInf();
    QTest::newRow("number as text") << "'7.5'"
                                    << "7.5" << 7.0;
    QTest::newRow("not a number") << "0/0"
                                  << "NaN" << 0.0;
    QTest::newRow("nothing") << ""
                             << "undefined" << 0.0;
    QTest::newRow("thrown") << "throw 5"
                            << "5" << 5.0;
}

void TestRptScript::conditions()
{
    QFETCH(QString, script);
    QTEST(RptScript::conditionText(script), "text");
    QTEST(RptScript::conditionNumber(script), "number");
}

void TestRptScript::conditionsHaveNoFunctions()
{
    RptScript::formulaText("Sum(0,'[4]')", true);
    for (const char *const name :
         {"Sum", "Replace", "ToUpper", "ToLower", "NumberToWords", "Frac", "Floor", "Ceil", "Round", "showInGroup"}) {
        QCOMPARE(RptScript::conditionText(name), QStringLiteral("ReferenceError: Can't find variable: %1").arg(name));
        QCOMPARE(RptScript::conditionNumber(name), 0.0);
    }
}

void TestRptScript::failuresAreTexts_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown name") << "foo"
                                  << "ReferenceError: Can't find variable: foo";
    QTest::newRow("bare words") << "a+b"
                                << "ReferenceError: Can't find variable: a";
    QTest::newRow("apostrophe") << "'O'Brien' == 0?1:0"
                                << "SyntaxError: Parse error";
    QTest::newRow("two numbers") << "1 2"
                                 << "SyntaxError: Parse error";
    QTest::newRow("no function") << "'a'.foo()"
                                 << "TypeError: Result of expression ''a'.foo' [undefined] is not a function.";
    QTest::newRow("thrown") << "throw 'own'"
                            << "own";
    QTest::newRow("text with markup and placeholder") << "'%1<b>\"🍲"
                                                      << "SyntaxError: Parse error";
}

void TestRptScript::failuresAreTexts()
{
    QFETCH(QString, script);
    LogCatcher log;
    QTEST(RptScript::formulaText(script, false), "text");
    QTEST(RptScript::conditionText(script), "text");
    QCOMPARE(RptScript::conditionNumber(script), 0.0);
    QCOMPARE(log.lines(), QStringList());
}

/// A script that changes its engine, and one after it that would tell.
void TestRptScript::nothingStaysBehind_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char *first, const char *second) { QTest::newRow(first) << first << second; };
    row("x=1", "x");
    row("var y=2", "y");
    row("function f(){return 1} f()", "f()");
    row("Math.floor=5", "Math.floor(2.5)");
    row("Math=5", "Math");
    row("undefined=1;NaN=1;Infinity=1", "undefined+NaN+Infinity");
    row("String.prototype.trim=function(){return 7}", "'a'.trim()");
    row("''['constructor'].prototype.charAt=function(){return 7}", "'a'.charAt(0)");
    row("Number.prototype.toString=function(){return 'x'}", "(5).toString()");
    row("Object.prototype.foo=1", "foo");
    row("this.z=1", "z");
    row("eval('w=1')", "w");
    row("new Function('v=1')()", "v");
    row("delete Math", "Math.floor(1)");
    row("parseInt=null", "parseInt('5')");
    row("Sum=function(){return 9}", "Sum(0,'[4]')");
    row("Floor=1", "Floor(2.5)");
    row("showInGroup=5", "showInGroup");
    row("__proto__.u=1", "u");
    row("__defineGetter__('t',function(){return 1})", "t");
    row("toString=function(){return 'mine'}", "toString()");
    row("Error.prototype.toString=function(){return 'mine'}", "foo");
    row("ReferenceError.prototype.name='mine'", "foo");
    row("s\\u0031=1", "s1");
    row("/*c*/q=1", "q");
    row("(function(){ r=1 })()", "r");
    row("try { throw 1 } catch (e) { p=e }", "p");
    row("o++", "o");
    row("[n=1]", "n");
    row("throw 'x'", "5");
    row("foo", "5");
    row("''.constructor.constructor('x=1')()", "x");
    row("/'/;x=1//'", "x");
    row("1/*'*/;x=1/*'*/", "x");
    row("String.fromCharCode=1", "String.fromCharCode(65)");
    row("isNaN.constructor('x=1')()", "x");
    row("'a'.concat.constructor('x=1')()", "x");
    row("1..constructor.prototype.toFixed=5", "1.5.toFixed(1)");
}

void TestRptScript::nothingStaysBehind()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const QString formula = RptScript::formulaText(second, false);
    const QString condition = RptScript::conditionText(second);
    QScriptEngine fresh;
    QCOMPARE(condition, fresh.evaluate(second).toString());
    RptScript::formulaText(first, false);
    RptScript::conditionText(first);
    RptScript::conditionNumber(first);
    QCOMPARE(RptScript::formulaText(second, false), formula);
    QCOMPARE(RptScript::conditionText(second), condition);
    // The same with a text that was not seen before the change.
    QCOMPARE(RptScript::conditionText(second + " "), condition);
}

void TestRptScript::longAndDeepScriptsEnd()
{
    for (const QString &script :
         {QString(5000, '(') + "1" + QString(5000, ')'), "1" + QString("+1").repeated(5000), QString(5000, '!') + "1",
          "1" + QString("?1").repeated(3000) + QString(":0").repeated(3000), "'" + QString(100000, 'x') + "'",
          QString(10000, 'x'), QString("- ").repeated(3000) + "1"}) {
        QScriptEngine fresh;
        const QString expected = fresh.evaluate(script).toString();
        QVERIFY2(RptScript::conditionText(script) == expected, qPrintable(script.left(20)));
    }
}

/// Engines do not stand for ever, and a change of engine is not to be seen.
void TestRptScript::enginesAreRenewed()
{
    RptValues::instance().add("[4]", "2", 0, 0);
    for (int i = 0; i < 101000; ++i) {
        if (RptScript::formulaText("Sum(0,'[4]')", false) != "2")
            QFAIL(qPrintable(QString::number(i)));
    }
    for (int i = 0; i < 2000; ++i) // more texts than are kept
        QCOMPARE(RptScript::formulaText(QStringLiteral("Sum(0,'[4]')+%1").arg(i), false), QString::number(i + 2));
}

/// Shows what a script costs; there is no bound, since machines differ.
void TestRptScript::timePerScript()
{
    for (const char *const script :
         {"'Polievka' == 0?1:0", "4 % 2 == 0?'rgba(1,2,3,255)':'rgba(9,9,9,255)'", "Sum(0,'[4]')", "foo", "x=1"}) {
        constexpr int times = 500;
        QElapsedTimer timer;
        timer.start();
        QString text;
        for (int i = 0; i < times; ++i)
            text = RptScript::formulaText(script, false);
        QVERIFY(!text.isEmpty());
        qInfo().noquote() << timer.nsecsElapsed() / times << "ns:" << script;
    }
}

QTEST_GUILESS_MAIN(TestRptScript)
#include "tst_rptscript.moc"
