#pragma once

#include <QRandomGenerator>
#include <QStringList>

/// Makes scripts at random, always the same ones for a seed: expressions of constants, expressions with names and
/// calls, scripts that change their engine for those after them, and heaps of signs that mostly are no script at all.
/// None loops, and none gives what differs from run to run, such as a date.
class RandomScript {
public:
    explicit RandomScript(quint32 seed)
        : m_random(seed)
    {
    }

    /// An expression without names.
    QString constant(int depth = 3) { return expression(depth, &RandomScript::literal); }
    /// An expression with names, properties and calls.
    QString named(int depth = 3) { return expression(depth, &RandomScript::operand); }
    /// A script that tries to leave something behind, or one that would notice.
    QString hostile();
    /// A few scripts that come again and again, to be run before something changes and after it.
    static QStringList probes();
    /// Signs in any order.
    QString heap();
    /// One of all these.
    QString any();

private:
    using Leaf = QString (RandomScript::*)();

    QString expression(int depth, Leaf leaf);
    QString literal();
    QString operand();
    QString pick(const QStringList &list) { return list.at(m_random.bounded(list.size())); }

    QRandomGenerator m_random;
};

inline QString RandomScript::literal()
{
    static const QStringList texts = {"''",    "' '",   "'a'",      "\"b\"", "'5'",   "'-5'",   "'5.50'",
                                      "' 7 '", "'Čaj'", "'🍲'",      "'0'",   "'1e3'", "'0x1f'", "'Infinity'",
                                      "'.'",   "'+'",   "'1 2'",    "'010'", "'[4]'", "'\\n'",  "'-'",
                                      "'NaN'", "'5x'",  "\"it's\"", "'null'"};
    switch (m_random.bounded(7)) {
    case 0:
        return pick(texts);
    case 1:
        return QString::number(m_random.bounded(1000.0), 'f', m_random.bounded(6));
    case 2:
        return pick({"true", "false"});
    case 3:
        return QString::number(m_random.bounded(4));
    case 4:
        return pick({"0.1", "0.0001", "0.00001", "123456789012345", "999999999999999", "1e21", "1.", ".5", "0", "010",
                     "1234567890123456789", "4294967296", "2147483648", "0.30000000000000004"});
    default:
        return QString::number(m_random.bounded(200));
    }
}

inline QString RandomScript::operand()
{
    static const QStringList names = {"foo",
                                      "a",
                                      "x",
                                      "showInGroup",
                                      "undefined",
                                      "null",
                                      "NaN",
                                      "Infinity",
                                      "Math",
                                      "Math.PI",
                                      "guláš",
                                      "Sum",
                                      "Floor",
                                      "String",
                                      "toString",
                                      "Object",
                                      "f",
                                      "y",
                                      "'a'.length",
                                      "'abc'.charAt(1)",
                                      "1.5.toFixed(0)",
                                      "Math.abs(-2)",
                                      "isNaN('x')",
                                      "parseInt('12px')",
                                      "foo.bar",
                                      "'a'.foo()",
                                      "Number('5')",
                                      "'a'.toUpperCase()",
                                      "'x'.constructor",
                                      "Math.floor(2.7)",
                                      "undefined.x",
                                      "f()",
                                      "x.y",
                                      "Math.E.toFixed(2)",
                                      "__proto__",
                                      "arguments"};
    static const QStringList calls = {
        "Floor(%1)",     "Ceil(%1)",       "Round(%1)",      "Frac(%1)",          "Sum(0,%1)",
        "Sum(%1,'[4]')", "ToUpper(%1)",    "ToLower(%1)",    "Replace(%1,'a',5)", "NumberToWords('ENG',%1)",
        "String(%1)",    "parseFloat(%1)", "Math.max(%1,2)", "(%1).toString()",   "isFinite(%1)"};
    const int kind = m_random.bounded(4);
    if (kind == 0)
        return pick(names);
    return kind == 1 ? pick(calls).arg(literal()) : literal();
}

inline QString RandomScript::expression(int depth, Leaf leaf)
{
    static const QStringList operators = {"+",   "-",    "*",   "/",    "%",  "==", "!=", "===", "!==",
                                          "<",   ">",    "<=",  ">=",   "&&", "||", "+",  "==",  " + ",
                                          " - ", "\n+ ", " % ", " == ", "&",  "|",  "<<", ">>>"};
    if (depth == 0 || m_random.bounded(6) == 0)
        return (this->*leaf)();
    const auto inner = [&] { return expression(depth - 1, leaf); };
    switch (m_random.bounded(8)) {
    case 0:
        return '(' + inner() + ')';
    case 1:
        return pick({"-", "+", "!", "! ", "- "}) + inner();
    case 2:
        return inner() + '?' + inner() + ':' + inner();
    default:
        break;
    }
    const QString left = inner();
    return left + operators.at(m_random.bounded(m_random.bounded(20) == 0 ? operators.size() : operators.size() - 4))
        + inner();
}

inline QString RandomScript::hostile()
{
    static const QStringList scripts = {"x=1",
                                        "''.constructor.constructor('x=1')()",
                                        "/'/;x=1//'",
                                        "1/*'*/;x=1/*'*/",
                                        "isNaN.constructor('a=1')()",
                                        "isNaN<<=2",
                                        "isNaN++",
                                        "Infinity--",
                                        "--Ceil",
                                        "parseInt+=1",
                                        "Floor^=1",
                                        "String&=0",
                                        "var y=2",
                                        "function f(){return 7} f()",
                                        "Math.floor=function(){return 9}",
                                        "Math=3",
                                        "undefined=5",
                                        "String.prototype.charAt=function(){return 'z'}",
                                        "Number.prototype.toFixed=function(){return 'z'}",
                                        "Number.prototype.valueOf=function(){return 3}",
                                        "Object.prototype.foo=1",
                                        "this.a=1",
                                        "eval('x=2')",
                                        "new Function('y=3')()",
                                        "delete Math",
                                        "delete String",
                                        "parseInt=null",
                                        "Floor=Ceil",
                                        "Sum=1",
                                        "showInGroup=!showInGroup",
                                        "__proto__.a=5",
                                        "Error.prototype.toString=function(){return 'E'}",
                                        "ReferenceError.prototype.name='R'",
                                        "''['constructor'].prototype.length2=1",
                                        "throw 'x'",
                                        "throw {}",
                                        "String.prototype.foo=function(){return 1}",
                                        "toString=function(){return 't'}",
                                        "with(Math){PI=1}",
                                        "x++",
                                        "/a(b)/.exec('ab'); RegExp.$1",
                                        "RegExp.$1",
                                        "isNaN=Number",
                                        "try{foo}catch(e){x=e.message}",
                                        "x\\u0031=1",
                                        "[x=4]",
                                        "({toString:function(){x=1;return 'o'}})",
                                        "Object.defineProperty(this,'a',{value:4})",
                                        "Sum.foo=1",
                                        "Array.prototype.x=1",
                                        "a=b=c=1",
                                        "Infinity=NaN=0",
                                        "(function(){return this})().x=8",
                                        "f=function(){return f}",
                                        "__defineGetter__('foo',function(){return 6})",
                                        "Function.prototype.call=1",
                                        "JSON.stringify({a:x})"};
    return pick(scripts);
}

inline QStringList RandomScript::probes()
{
    return {"x",
            "a",
            "y",
            "f",
            "foo",
            "foo.bar",
            "'a'.charAt(0)",
            "1.5.toFixed(1)",
            "'a'.length",
            "Math.floor(2.5)",
            "isNaN('x')",
            "parseInt('12px')",
            "Floor(2.5)",
            "Sum(0,'[4]')",
            "String(5)",
            "undefined",
            "NaN",
            "Math.E",
            "showInGroup",
            "(5).toString()",
            "0+Number('5')"};
}

inline QString RandomScript::heap()
{
    static const QStringList signs = {
        "1",      "2.5",  "'a'",  "\"b\"", "x",       "foo",    "Math",    "Sum", "f",  ".",        ".length", "(",
        ")",      "[",    "]",    "{",     "}",       ",",      ";",       ":",   "?",  "=",        "==",      "===",
        "!",      "!=",   "+",    "++",    "-",       "--",     "*",       "/",   "//", "/*",       "*/",      "%",
        "<",      ">",    "<=",   ">>",    "&",       "&&",     "|",       "||",  "^",  "~",        " ",       "\n",
        "\\",     "'",    "\"",   "#",     "\t",      "$",      "_",       "0",   "e",  "č",        "\u00a0",  "\u2028",
        "\u200c", "var ", "this", "new ",  "delete ", "throw ", "typeof ", "in ", "=1", "(0,'[4]')"};
    QString script;
    for (int count = 1 + m_random.bounded(7); count > 0; --count)
        script += pick(signs);
    return script;
}

inline QString RandomScript::any()
{
    switch (m_random.bounded(9)) {
    case 8:
        return pick(probes());
    case 0:
    case 1:
        return constant();
    case 2:
    case 3:
        return named();
    case 4:
        return hostile();
    case 5:
        return hostile() + ';' + named(1);
    case 6:
        return constant(1) + pick({"", " ", ";", ",", "\n"}) + heap();
    default:
        return heap();
    }
}
