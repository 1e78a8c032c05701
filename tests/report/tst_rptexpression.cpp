#include "report/rptexpression.h"

#include <QRandomGenerator>
#include <QtTest>

/// The string side of the report language: where texts are cut, and what numbers look like.
class TestRptExpression : public QObject {
    Q_OBJECT

private slots:
    void tokens_data();
    void tokens();
    void tokensJoinToTheText();
    void splitByBrackets_data();
    void splitByBrackets();
    void piecesJoinToTheFormula();
    void kindsOfTokens_data();
    void kindsOfTokens();
    void wantsTokenName_data();
    void wantsTokenName();
    void toScript_data();
    void toScript();
    void quoted_data();
    void quoted();
    void formatNumber_data();
    void formatNumber();

private:
    static QString randomText(QRandomGenerator *random);
};

void TestRptExpression::tokens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("printed");
    QTest::addColumn<QStringList>("condition");
    const auto row = [](const char *text, const QStringList &printed, const QStringList &condition) {
        QTest::newRow(text) << QString::fromUtf8(text) << printed << condition;
    };
    row("", {}, {});
    row("plain text", {"plain text"}, {"plain text"});
    row("Sum: <Sum([4])> of [x]", {"Sum: ", "<Sum([4])>", " of ", "[x]"}, {"Sum: <Sum(", "[4]", ")> of ", "[x]"});
    row("[a][b]", {"[a]", "[b]"}, {"[a]", "[b]"});
    row("<a><b>", {"<a>", "<b>"}, {"<a><b>"});
    row("a < b", {"a ", "< b"}, {"a < b"});
    row("a > b", {"a >", " b"}, {"a > b"});
    row("[x", {"[x"}, {"[x"});
    row("x]", {"x]"}, {"x]"});
    row("x]y[z]", {"x]", "y", "[z]"}, {"x]", "y", "[z]"});
    row("[a[b]]", {"[a", "[b]", "]"}, {"[a", "[b]", "]"});
    row("[[", {"[", "["}, {"[", "["});
    row("]]", {"]", "]"}, {"]", "]"});
    row("[]", {"[]"}, {"[]"});
    row("<>", {"<>"}, {"<>"});
    row("<<a>>", {"<", "<a>", ">"}, {"<<a>>"});
    row("><", {">", "<"}, {"><"});
    row("<a[b]c", {"<a[b]c"}, {"<a", "[b]", "c"});
    row("<a[b>c]", {"<a[b>", "c]"}, {"<a", "[b>c]"});
    row("[a<b>]", {"[a", "<b>", "]"}, {"[a<b>]"});
    row("[a>b]", {"[a>", "b]"}, {"[a>b]"});
    row("<LineNo> % 2 == 0", {"<LineNo>", " % 2 == 0"}, {"<LineNo> % 2 == 0"});
    row("čaj [ž] 🍲", {"čaj ", "[ž]", " 🍲"}, {"čaj ", "[ž]", " 🍲"});
}

void TestRptExpression::tokens()
{
    QFETCH(QString, text);
    QTEST(RptExpression::tokens(text, false), "printed");
    QTEST(RptExpression::tokens(text, true), "condition");
}

QString TestRptExpression::randomText(QRandomGenerator *random)
{
    const QString letters = QStringLiteral("[]<>[]<>ab1 '(č");
    QString text;
    for (int length = random->bounded(30); length > 0; --length)
        text += letters.at(random->bounded(letters.size()));
    return text;
}

/// No character is lost or doubled, no token is empty, and a bracket that closes ends its token.
void TestRptExpression::tokensJoinToTheText()
{
    QRandomGenerator random(20240421);
    for (int i = 0; i < 20000; ++i) {
        const QString text = randomText(&random);
        for (const bool expressionMode : {false, true}) {
            const QStringList tokens = RptExpression::tokens(text, expressionMode);
            QCOMPARE(tokens.join(QString()), text);
            for (const QString &token : tokens) {
                QVERIFY(!token.isEmpty());
                const bool isFormula = !expressionMode && token.startsWith('<');
                QVERIFY2(isFormula || token.indexOf(']') < 0 || token.indexOf(']') == token.size() - 1,
                         qPrintable(text));
                QVERIFY2(isFormula || token.lastIndexOf('[') <= 0, qPrintable(text));
                if (!expressionMode) {
                    QVERIFY2(token.indexOf('>') < 0 || token.indexOf('>') == token.size() - 1, qPrintable(text));
                    QVERIFY2(token.lastIndexOf('<') <= 0, qPrintable(text));
                }
            }
        }
    }
}

void TestRptExpression::splitByBrackets_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QStringList>("pieces");
    const auto row = [](const char *formula, const QStringList &pieces) {
        QTest::newRow(formula) << QString::fromUtf8(formula) << pieces;
    };
    row("", {});
    row("<[1]+[2]>", {"<", "[1]", "+", "[2]", ">"});
    row("[1]", {"[1]"});
    row("<Sum([4])>", {"<Sum(", "[4]", ")>"});
    row("[a[b]]", {"[a", "[b]", "]"});
    row("]a[", {"]", "a", "["});
    row("[][]", {"[]", "[]"});
    row("no brackets", {"no brackets"});
    row("<[č]>", {"<", "[č]", ">"});
}

void TestRptExpression::splitByBrackets()
{
    QFETCH(QString, formula);
    QTEST(RptExpression::splitByBrackets(formula), "pieces");
}

void TestRptExpression::piecesJoinToTheFormula()
{
    QRandomGenerator random(7);
    for (int i = 0; i < 20000; ++i) {
        const QString text = randomText(&random);
        const QStringList pieces = RptExpression::splitByBrackets(text);
        QCOMPARE(pieces.join(QString()), text);
        for (const QString &piece : pieces) {
            QVERIFY(!piece.isEmpty());
            QVERIFY2(piece.lastIndexOf('[') <= 0, qPrintable(text));
            QVERIFY2(piece.indexOf(']') < 0 || piece.indexOf(']') == piece.size() - 1, qPrintable(text));
        }
    }
}

void TestRptExpression::kindsOfTokens_data()
{
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("isData");
    QTest::addColumn<bool>("isFormula");
    QTest::newRow("data") << "[4]" << true << false;
    QTest::newRow("formula") << "<Sum([4])>" << false << true;
    QTest::newRow("neither") << "text" << false << false;
    QTest::newRow("empty") << "" << false << false;
    QTest::newRow("half a name") << "[x" << false << false;
    QTest::newRow("half a formula") << "<x" << false << false;
    QTest::newRow("name with greater-than") << "[a>b]" << true << false;
    QTest::newRow("name with less-than") << "[a<b]" << false << false;
    QTest::newRow("two comparisons") << "1 < 2 && 3 > 2" << false << true;
}

void TestRptExpression::kindsOfTokens()
{
    QFETCH(QString, token);
    QTEST(RptExpression::isDataToken(token), "isData");
    QTEST(RptExpression::isFormula(token), "isFormula");
}

void TestRptExpression::wantsTokenName_data()
{
    QTest::addColumn<QString>("pieceBefore");
    QTest::addColumn<bool>("wanted");
    for (const char *const piece :
         {"<Sum(", "<AVG(", "<count(", "1+mAx(", "<Min(", "<'Summary of '+", "Minutes", "'Account'"})
        QTest::newRow(piece) << QString(piece) << true;
    for (const char *const piece : {"<", "", "+", "<NumberToWords('ENG',", "<Frac(", "<Floor(", "<Ceil(", "<Round(",
                                    "<ToUpper('", "<ToLower('", "<Replace('", "<NUMBERTOWORDS(", "S um("})
        QTest::newRow(piece) << QString(piece) << false;
}

void TestRptExpression::wantsTokenName()
{
    QFETCH(QString, pieceBefore);
    QTEST(RptExpression::wantsTokenName(pieceBefore), "wanted");
}

void TestRptExpression::toScript_data()
{
    QTest::addColumn<QString>("formula");
    QTest::addColumn<QString>("script");
    const auto row = [](const char *formula, const char *script) { QTest::newRow(formula) << formula << script; };
    row("", "");
    row("<Sum([4])>", "Sum(0,'[4]')");
    row("<sum([4])>", "Sum(0,'[4]')");
    row("<SUM([4])+sUm([5])>", "Sum(0,'[4]')+Sum(0,'[5]')");
    row("<Avg([4])>", "Sum(1,'[4]')");
    row("<COUNT([4])>", "Sum(2,'[4]')");
    row("<max([4])>", "Sum(3,'[4]')");
    row("<Min([4])>", "Sum(4,'[4]')");
    row("<Account([4])>", "AcSum(2,'[4]')");
    row("<Math.max(1,2)>", "Math.Sum(3,1,2)");
    row("<Sum ([4])>", "Sum ('[4]')");
    row("<Round(2.5)>", "Round(2.5)");
    row("<1 < 2>", "1  2");
    row("<a[>", "a'[");
    row("<2+3>", "2+3");
}

void TestRptExpression::toScript()
{
    QFETCH(QString, formula);
    QTEST(RptExpression::toScript(formula), "script");
}

void TestRptExpression::quoted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("inScript");
    const auto row = [](const char *text, const char *inScript) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(inScript);
    };
    row("", "''");
    row("12", "12");
    row("-12.5", "-12.5");
    row("1e3", "1e3");
    row(" 7 ", " 7 ");
    row("nan", "nan");
    row("-inf", "-inf");
    row("1e39", "1e39"); // too great for a float
    row("1e400", "'1e400'");
    row("12,5", "'12,5'");
    row("1,000", "'1,000'");
    row("0x10", "'0x10'");
    row("abc", "'abc'");
    row("O'Brien", "'O'Brien'"); // not escaped
    row("a\\", "'a\\'");
    row("ž 🍲 %1 <b>", "'ž 🍲 %1 <b>'");
}

void TestRptExpression::quoted()
{
    QFETCH(QString, text);
    QTEST(RptExpression::quoted(text), "inScript");
}

void TestRptExpression::formatNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("result");
    int number = 0;
    const auto row = [&number](const char *text, const char *format, const QString &result) {
        QTest::addRow("%d: %s by %s", ++number, text, format)
            << QString::fromUtf8(text) << QString::fromUtf8(format) << result;
    };
    for (const char *const none : {"", "X#,###.##2", "n#,###.##2", "N", "N2", "N#2", "N#.###.##2", " N#,###.##2",
                                   "#,###.##2", "N#,###.##", "N#,###.##22"})
        row("1234567.891", none, "1234567.891");
    row("abc", "", "abc");

    row("1234567.891", "N#,###.##2", "1,234,567.89");
    row("1234567.891", "N#,###.##0", "1,234,568");
    row("1234567.891", "N#,###.##9", "1,234,567.891000000");
    row("1234567.891", "N#,###.##x", "1,234,568"); // no digit: no decimals
    row("1234567.891", "N#,###.##٣", "1,234,568");
    row("12.5", "N#,###.##2", "12.50");
    row("123", "N#,###.##2", "123.00");
    row("1234", "N#,###.##2", "1,234.00");
    row("123456", "N#,###.##0", "123,456");
    row("-1.5", "N#,###.##2", "-1.50");
    row("-12.5", "N#,###.##2", "-12.50");
    row("-123.45", "N#,###.##2", "-,123.45"); // the sign counts as a character
    row("-1234.5", "N#,###.##2", "-1,234.50");
    row("-123456", "N#,###.##0", "-,123,456");
    row("", "N#,###.##2", "0.00");
    row("abc", "N#,###.##2", "0.00");
    row("12,5", "N#,###.##2", "0.00");
    row("-0.001", "N#,###.##2", "-0.00");
    row("nan", "N#,###.##2", "nan");
    row("inf", "N#,###.##2", "inf");
    row("-inf", "N#,###.##2", "-,inf");
    row("1e21", "N#,###.##1", "1,000,000,000,000,000,000,000.0");
    row("0.125", "N#,###.##2", "0.13"); // an exact half goes away from 0

    row("1234567.891", "N# ###.##2", "1234567.89"); // the C locale has no groups
    row("-1234.5", "N# ###.##0", "-1235");
    row("abc", "N# ###.##2", "0.00");

    const QString thin = QLocale(QStringLiteral("fr_FR")).groupSeparator();
    row("1234567.891", "N# ###,##2", "1" + thin + "234" + thin + "567,89");
    row("-1234.5", "N# ###,##1", "-1" + thin + "234,5");
    row("12.5", "N# ###,##2", "12,50");
    row("1234567.891", "N#.###,##2", "1.234.567,89");
    row("-123.45", "N#.###,##2", "-123,45");
    row("-1234.5", "N#.###,##0", "-1.235");
    row("abc", "N#.###,##2", "0,00");
}

void TestRptExpression::formatNumber()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QTEST(RptExpression::formatNumber(text, format), "result");
}

QTEST_APPLESS_MAIN(TestRptExpression)
#include "tst_rptexpression.moc"
