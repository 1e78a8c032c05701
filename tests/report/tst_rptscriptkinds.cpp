#include "report/rptconstantscript.h"
#include "report/rptharmlessscript.h"

#include <QScriptEngine>
#include <QtTest>

/// Which scripts need no engine, and which may share one.
class TestRptScriptKinds : public QObject {
    Q_OBJECT

private slots:
    void constants_data();
    void constants();
    void harmless_data();
    void harmless();
};

void TestRptScriptKinds::constants_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("isKnown");
    const auto rows = [](std::initializer_list<const char *> scripts, bool isKnown) {
        for (const char *const script : scripts)
            QTest::newRow(script) << QString::fromUtf8(script) << isKnown;
    };
    rows({"1",
          "'a'",
          "\"it's\"",
          "2+3*4-1",
          "-(1)",
          "!0",
          "!''",
          "'' == 0?1:0",
          "'Čaj' == 0?1:0",
          "4 % 2 == 0?1:0",
          "true",
          "false||'x'",
          "1<2 && 'a'<'b'",
          "1?2?3:4:5",
          "'5'*'2'",
          "1==='1'",
          "1!='1'",
          "(1)",
          " 1 ",
          "'[4]'",
          "5/0",
          "0.1+0.5",
          "'a'+1.25",
          "1+'a'+true",
          "1\n+2",
          "- -1",
          "'5.'-0",
          "' 5 '-0"},
         true);
    rows({"",
          " ",
          "foo",
          "null",
          "undefined",
          "1e5",
          "0x10",
          "010",
          "'\\n'",
          "'a",
          "1 2",
          "1--1",
          "1++1",
          "x=1",
          "1,2",
          "1;2",
          "a.b",
          "'a'.length",
          "f(1)",
          "1<<2",
          "1&2",
          "1|2",
          "~1",
          "1//2",
          "1/*2*/",
          "/a/",
          "(1",
          "1)",
          "1?2",
          "1?2:",
          "1===",
          "1====1",
          "0.1+0.2+''",
          "1234567890123456",
          "'1e3'-0",
          "'Infinity'-0",
          "'0x10'-0",
          "trueish",
          "true1",
          "truе",
          "1a",
          "1_",
          "1.2.3",
          ".",
          "'a''b'",
          "1<!--2",
          "'a'+1e-5",
          "\xc2\xa0"
          "1"},
         false);
}

void TestRptScriptKinds::constants()
{
    QFETCH(QString, script);
    QFETCH(bool, isKnown);
    const std::optional<QString> text = RptConstantScript::text(script);
    QCOMPARE(text.has_value(), isKnown);
    QScriptEngine fresh;
    const QScriptValue value = fresh.evaluate(script);
    QCOMPARE(text.value_or(value.toString()), value.toString());
    const std::optional<double> number = RptConstantScript::wholeNumber(script);
    QCOMPARE(number.value_or(value.toInteger()), value.toInteger());
}

void TestRptScriptKinds::harmless_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("isHarmless");
    const auto rows = [](std::initializer_list<const char *> scripts, bool isHarmless) {
        for (const char *const script : scripts)
            QTest::newRow(script) << QString::fromUtf8(script) << isHarmless;
    };
    rows({"",
          "1",
          "foo",
          "guláš so šunkou",
          "Sum(0,'[4]')",
          "Math.floor(2.5)/2",
          "'a'.length",
          "a==b",
          "a===b",
          "a!=b",
          "a!==b",
          "a<=b>=c",
          "1<<2>>>1",
          "a?b:c",
          "!~1",
          "'x=1'",
          "\"x++\"",
          "'\\''",
          "'a\\",
          "'open",
          "1.5.toFixed(1)",
          ".5",
          "1;2",
          "- -1",
          "(1)/2",
          "label:1"},
         true);
    rows({"x=1",
          "x+=1",
          "x>>=1",
          "x>>>=1",
          "x<<=1",
          "x===1=2",
          "x&=1",
          "++x",
          "x--",
          "1 -->x",
          "[1]",
          "{}",
          "a[0]",
          "'a'['length']",
          "Math.random()",
          "'a'.constructor",
          "Sum.prototype",
          "Sum.call",
          "a.__proto__",
          "eval",
          "this",
          "new x",
          "function",
          "var x",
          "delete x",
          "typeof x",
          "throw 1",
          "if",
          "in",
          "/a/",
          "(1)//2",
          "1/*2*/",
          "1/=2",
          "\\u0078",
          "'a\nb'",
          "'a\\\nb'",
          "#",
          "@",
          "`a`",
          "Object",
          "Date",
          "toString",
          "constructor",
          "print",
          "gc",
          "__defineGetter__",
          "1a",
          "0x1",
          "1e5",
          "a.",
          "a.b",
          "x\xe2\x80\x8c=1",
          "x\xc2\xa0",
          "a\xe2\x80\xa8"
          "b"},
         false);
}

void TestRptScriptKinds::harmless()
{
    QFETCH(QString, script);
    QScriptEngine engine;
    const QScriptValue global = engine.globalObject();
    const auto isKnown = [&global](const QString &name) { return global.property(name).isValid(); };
    QTEST(isHarmlessScript(script, isKnown), "isHarmless");
}

QTEST_GUILESS_MAIN(TestRptScriptKinds)
#include "tst_rptscriptkinds.moc"
