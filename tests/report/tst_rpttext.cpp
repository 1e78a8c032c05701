#include "fakevaluesource.h"

#include "report/rptbandobject.h"
#include "report/rptprintstate.h"
#include "report/rptvalues.h"

#include "support/logcatcher.h"

#include <QDateTime>
#include <QtTest>

/// Texts with tokens and formulas, as fields print them and as conditions get them.
class TestRptText : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { RptValues::instance().clear(); }
    void dataTokens_data();
    void dataTokens();
    void conditions_data();
    void conditions();
    void firstPassRecords();
    void firstPassRecordsWhatIsNotNamed();
    void nothingIsRecordedThatNobodyAsksFor();
    void engineValues_data();
    void engineValues();
    void lineNumbersInGroups();
    void lineCount();
    void dateAndTime();
    void formulas_data();
    void formulas();
    void aggregatesInFormulas();
    void aggregatesAskTheBand();
    void formulasWithSql();
    void formulasWithoutSqlLogNothing();
    void formulaAsksInOrder();
    void sameTextOtherRecord();
    void sameTextInBothModes();
    void callbackThatExpandsTexts();
    void hostileValues_data();
    void hostileValues();
    void manyTexts();

private:
    QString expand(const QString &text, const QString &format = QString())
    {
        return m_text->expandText(&m_band, text, false, false, format);
    }
    QString condition(const QString &text) { return m_text->expandText(&m_band, text, true, false, QString()); }

    FakeValueSource m_source;
    RptPrintState m_state;
    RptBandObject m_band;
    std::unique_ptr<RptText> m_text;
};

void TestRptText::init()
{
    m_source.isSql = false;
    m_source.asked.clear();
    m_source.values = {{"[0]", "12.5"},
                       {"[1]", "2"},
                       {"[2]", "3"},
                       {"[name]", "Čaj"},
                       {"[a]", "a"},
                       {"[b]", "b"},
                       {"[quote]", "O'Brien"},
                       {"[big]", "1234567.891"},
                       {"[grouping]", ""},
                       {"[neg]", "-3"},
                       {"[customers.name]", "7"}};
    m_state = RptPrintState();
    m_band.showInGroup = false;
    m_text = std::make_unique<RptText>(&m_source, &RptValues::instance(), &m_state);
}

void TestRptText::dataTokens_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("result");
    const QString format = QStringLiteral("N#,###.##2");
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
    QTest::newRow("nothing by a format") << "" << format << "";
    QTest::newRow("plain") << "Jedálny lístok" << format << "Jedálny lístok";
    QTest::newRow("bare") << "[0]"
                          << ""
                          << "12.5";
    QTest::newRow("by a format") << "[0]" << format << "12.50";
    QTest::newRow("text by a format") << "[name]" << format << "0.00";
    QTest::newRow("unknown") << "[unknown]"
                             << ""
                             << "";
    QTest::newRow("unknown by a format") << "[unknown]" << format << "0.00";
    QTest::newRow("among text") << "a [0] b [name]!"
                                << ""
                                << "a 12.5 b Čaj!";
    QTest::newRow("format of tokens only") << "12.5 [big]" << format << "12.5 1,234,567.89";
    QTest::newRow("no token") << "a < b, [x"
                              << ""
                              << "a < b, [x";
    QTest::newRow("closing only") << "x] y> z"
                                  << ""
                                  << "x] y> z";
    QTest::newRow("inner of two") << "[x[0]]"
                                  << ""
                                  << "[x12.5]";
}

void TestRptText::dataTokens()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QTEST(expand(text, format), "result");
    QVERIFY(RptValues::instance().isEmpty());
}

void TestRptText::conditions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("script");
    m_state.recNo = 3;
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("empty value") << "[grouping] == 0?1:0"
                                 << "'' == 0?1:0";
    QTest::newRow("number") << "[0] > 3"
                            << "12.5 > 3";
    QTest::newRow("text") << "[name] == 'x'"
                          << "'Čaj' == 'x'";
    QTest::newRow("apostrophe is not escaped") << "[quote]==0"
                                               << "'O'Brien'==0";
    QTest::newRow("engine value") << "<LineNo> % 2 == 0?1:0"
                                  << "4 % 2 == 0?1:0";
    QTest::newRow("engine value and comparison") << "<LineNo> < 2"
                                                 << "4 < 2";
    QTest::newRow("one comparison") << "[1] < [2]"
                                    << "2 < 3";
    // What stands between two opposite comparisons is taken for a formula.
    QTest::newRow("two comparisons") << "[1] < 3 && 5 > [2]"
                                     << "253";
    QTest::newRow("formula") << "<1+1> == 2"
                             << "true";
    QTest::newRow("formula alone") << "<1+1>"
                                   << "2";
    QTest::newRow("name with less-than") << "[a<b]"
                                         << "[a<b]";
    QTest::newRow("unfinished") << "a < b"
                                << "a < b";
}

void TestRptText::conditions()
{
    QFETCH(QString, text);
    m_state.recNo = 3;
    QTEST(condition(text), "script");
    QVERIFY(RptValues::instance().isEmpty());
}

void TestRptText::firstPassRecords()
{
    m_state.recNo = 5;
    m_state.pageReport = 2;
    const QString text = QStringLiteral("[0] and <[1]+1> and [0]");
    QCOMPARE(m_text->expandText(&m_band, text, false, true, "N#,###.##2"), QStringLiteral("12.50 and 3.00 and 12.50"));
    const QVector<RptValue> &all = RptValues::instance().all();
    QCOMPARE(all.size(), 1); // once, and none for the formula's own
    QCOMPARE(all.first().paramName, QStringLiteral("[0]"));
    QCOMPARE(all.first().paramValue, QVariant("12.5"));
    QCOMPARE(all.first().lineIndex, 5);
    QCOMPARE(all.first().reportPage, 2);
    m_text->expandText(&m_band, "[1]", true, true, QString()); // conditions record nothing
    QCOMPARE(all.size(), 1);
}

/// A token that does not name the SQL source is empty, and is recorded so.
void TestRptText::firstPassRecordsWhatIsNotNamed()
{
    m_source.isSql = true;
    QCOMPARE(m_text->expandText(&m_band, "[0]|[customers.name]", false, true, QString()), QStringLiteral("|7"));
    const QVector<RptValue> &all = RptValues::instance().all();
    QCOMPARE(all.size(), 2);
    QCOMPARE(all.first().paramValue, QVariant(QString()));
    QCOMPARE(condition("[0]==1"), QStringLiteral("''==1"));
}

void TestRptText::nothingIsRecordedThatNobodyAsksFor()
{
    m_state.recordsValues = false;
    QCOMPARE(m_text->expandText(&m_band, "[0]", false, true, QString()), QStringLiteral("12.5"));
    QVERIFY(RptValues::instance().isEmpty());
}

void TestRptText::engineValues_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::newRow("pages") << "Page <Page> of <TotalPages>"
                           << "Page 1 of 3";
    QTest::newRow("line") << "<LineNo>."
                          << "8.";
    QTest::newRow("no values yet") << "<LineCount>"
                                   << "1";
    QTest::newRow("twice") << "<Page>/<Page>"
                           << "1/1";
    QTest::newRow("other case") << "<page>"
                                << "ReferenceError: Can't find variable: page";
    QTest::newRow("with blanks") << "< Page >"
                                 << "ReferenceError: Can't find variable: Page";
    QTest::newRow("inside of a formula") << "<Page+1>"
                                         << "ReferenceError: Can't find variable: Page";
}

void TestRptText::engineValues()
{
    QFETCH(QString, text);
    m_state.curPage = 1;
    m_state.totalPage = 3;
    m_state.recNo = 7;
    m_state.lineNo = 4;
    QTEST(expand(text), "result");
    QTEST(expand(text), "result");
}

void TestRptText::lineNumbersInGroups()
{
    m_state.recNo = 7;
    m_state.lineNo = 4;
    QCOMPARE(expand("<LineNo>"), QStringLiteral("8"));
    m_state.groupValues.append("x");
    QCOMPARE(expand("<LineNo>"), QStringLiteral("4"));
}

void TestRptText::lineCount()
{
    RptValues::instance().add("[0]", "x", 11, 0);
    RptValues::instance().add("[0]", "x", 20, 1);
    QCOMPARE(expand("<LineCount>"), QStringLiteral("12"));
    m_state.pageReport = 1;
    QCOMPARE(expand("<LineCount>"), QStringLiteral("21"));
    m_state.pageReport = 2;
    QCOMPARE(expand("<LineCount>"), QStringLiteral("1"));
}

void TestRptText::dateAndTime()
{
    const QDateTime before = QDateTime::currentDateTime();
    const QString text = expand("<Date> <Time>");
    const QDateTime shown = QDateTime::fromString(text, QStringLiteral("dd.MM.yyyy HH:mm:ss"));
    QVERIFY2(shown.isValid(), qPrintable(text));
    QVERIFY2(shown.addSecs(1) > before && shown <= QDateTime::currentDateTime(), qPrintable(text));
}

void TestRptText::formulas_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *text, const char *result, const char *format = "") {
        QTest::addRow("%s%s", text, format) << QString::fromUtf8(text) << QString(format) << QString::fromUtf8(result);
    };
    row("<2+3>", "5");
    row("<[1]+[2]>", "5");
    row("<[1]-[neg]>", "SyntaxError: Parse error"); // the value is bare: "2--3"
    row("<[1] - [neg]>", "5");
    row("<[a]+[b]>", "ReferenceError: Can't find variable: a");
    row("<'[a]'+'[b]'>", "ab");
    row("<[1]*[1]>", "4");
    row("<[big]/1000>", "1,234.57", "N#,###.##2");
    row("<foo>", "0.00", "N#,###.##2"); // an error's text is no number
    row("<foo>", "ReferenceError: Can't find variable: foo");
    row("<>", "undefined");
    row("<ToUpper('[name]')>", "ČAJ");
    row("<ToUpper([a])>", "ReferenceError: Can't find variable: a"); // its argument is the value, not the name
    row("<ToLower('[name]')>", "čaj");
    row("<Frac([0])>", "50");
    row("<Floor([0])>", "12");
    row("<Ceil([0])>", "13");
    row("<Round([0])>", "13");
    row("<NumberToWords('ENG',[1])>", "two");
    row("<Replace('[name]','a','o')>", "Čoj");
    row("<'Summary '+[1]>", "Summary [1]"); // taken for an aggregate by its first letters
    row("<'Minute '+[1]>", "Minute [1]");
    row("<[1]?'yes':'no'>", "yes");
    row("<[1] == 2>", "true");
    row("<[unknown]+1>", "1");
    row("Spolu: <[1]+[2]> ks", "Spolu: 5 ks");
    row("<x=1><x>", "1ReferenceError: Can't find variable: x"); // each formula stands alone
}

void TestRptText::formulas()
{
    QFETCH(QString, text);
    QFETCH(QString, format);
    QTEST(expand(text, format), "result");
    QTEST(expand(text, format), "result");
}

void TestRptText::aggregatesInFormulas()
{
    QCOMPARE(expand("<Avg([4])>"), QStringLiteral("0"));
    int record = 0;
    for (const char *const value : {"1", "2", "3"})
        RptValues::instance().add("[4]", value, record++, 0);
    m_source.values["[4]"] = QStringLiteral("99");
    QCOMPARE(expand("<Sum([4])>"), QStringLiteral("6"));
    QCOMPARE(expand("<sum([4])>"), QStringLiteral("6"));
    QCOMPARE(expand("<Sum([4])>", "N#,###.##2"), QStringLiteral("6.00"));
    QCOMPARE(expand("<Avg([4])> <COUNT([4])> <Max([4])> <min([4])>"), QStringLiteral("2 3 3 1"));
    QCOMPARE(m_source.asked, QStringList()); // the name is enough
    // Where the value is wanted as well, it takes the place of the name.
    QCOMPARE(expand("<[4]+Sum([4])>"), QStringLiteral("99"));
}

void TestRptText::aggregatesAskTheBand()
{
    RptValues::instance().add("[4]", "1", 0, 0);
    RptValues::instance().add("[4]", "2", 1, 0);
    RptValues::instance().setGroupRecordIndexes({1});
    QCOMPARE(expand("<Sum([4])>"), QStringLiteral("3"));
    m_band.showInGroup = true;
    QCOMPARE(expand("<Sum([4])>"), QStringLiteral("2"));
    QCOMPARE(m_text->expandText(nullptr, "<Sum([4])>", false, false, QString()), QStringLiteral("3"));
}

void TestRptText::formulasWithSql()
{
    m_source.isSql = true;
    LogCatcher log;
    QCOMPARE(expand("<[customers.name]+1>"), QStringLiteral("8"));
    const QStringList expected = {"value from DB:  \"7\"", "formula with value:  \"<7+1>\""};
    QCOMPARE(log.lines(QtDebugMsg), expected);
    log.clear();
    QCOMPARE(expand("<'[1]'>"), QStringLiteral("SyntaxError: Parse error")); // not replaced: "''[1]''"
    QCOMPARE(expand("<[1]+'!'>"), QStringLiteral("[1]!"));
    QCOMPARE(log.lines(), QStringList());
}

void TestRptText::formulasWithoutSqlLogNothing()
{
    LogCatcher log;
    QCOMPARE(expand("<[1]+[2]>"), QStringLiteral("5"));
    QCOMPARE(log.lines(), QStringList());
}

void TestRptText::formulaAsksInOrder()
{
    m_source.values["[1]"] = QStringLiteral("[2]"); // a value that looks like the next token becomes its value
    QCOMPARE(expand("<[1]+[2]+[1]>"), QStringLiteral("9"));
    QCOMPARE(m_source.asked, QStringList({"[1]", "[2]", "[1]"}));
}

void TestRptText::sameTextOtherRecord()
{
    QCOMPARE(expand("[1] <[1]+1>"), QStringLiteral("2 3"));
    m_source.values["[1]"] = QStringLiteral("5");
    QCOMPARE(expand("[1] <[1]+1>"), QStringLiteral("5 6"));
    m_state.curPage = 1;
    QCOMPARE(expand("<Page>"), QStringLiteral("1"));
    m_state.curPage = 2;
    QCOMPARE(expand("<Page>"), QStringLiteral("2"));
}

void TestRptText::sameTextInBothModes()
{
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(expand("<LineNo> % 2"), QStringLiteral("1 % 2"));
        QCOMPARE(condition("<LineNo> % 2 [name]"), QStringLiteral("1 % 2 'Čaj'"));
        QCOMPARE(expand("<1+1> [name]"), QStringLiteral("2 Čaj"));
        QCOMPARE(condition("<1+1> [name]"), QStringLiteral("2 'Čaj'").replace("2 ", "2"));
    }
}

/// A value may itself come by way of an expanded text; the outer text goes on where it was.
void TestRptText::callbackThatExpandsTexts()
{
    class Inner : public RptValueSource {
    public:
        RptTokenValue tokenValue(const QString &token) override
        {
            if (token != QLatin1String("[outer]"))
                return {QStringLiteral("i"), false, true};
            QString last;
            for (int i = 0; i < 3000; ++i) // more than are kept
                last = text->expandText(nullptr, QStringLiteral("[%1]<%1>").arg(i), false, false, QString());
            return {last, false, true};
        }
        RptText *text = nullptr;
    } source;
    RptText text(&source, &RptValues::instance(), &m_state);
    source.text = &text;
    QCOMPARE(text.expandText(nullptr, "a [outer] b <1+1> c", false, false, QString()), QStringLiteral("a i2999 b 2 c"));
}

void TestRptText::hostileValues_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("quotes") << "it's \"so\"";
    QTest::newRow("backslash") << "a\\";
    QTest::newRow("placeholder") << "%1 %2";
    QTest::newRow("markup") << "<b>tučné</b>";
    QTest::newRow("tokens") << "[1] <Page> <2+3>";
    QTest::newRow("emoji") << "🍲👩‍🍳";
    QTest::newRow("right to left") << "مرحبا";
    QTest::newRow("script") << "'; x=1; '";
    QTest::newRow("new line") << "a\nb";
    QTest::newRow("10,000 characters") << QString(10000, 'x');
}

/// A value is printed as it is: what looks like a token in it is none.
void TestRptText::hostileValues()
{
    QFETCH(QString, value);
    m_source.values["[name]"] = value;
    QCOMPARE(expand("a [name] b"), QStringLiteral("a ") + value + QStringLiteral(" b"));
    QCOMPARE(condition("[name]==0"), QLatin1Char('\'') + value + QStringLiteral("'==0"));
    QVERIFY(!expand("<[name]>").isEmpty()); // as a script it may be anything, and ends
}

void TestRptText::manyTexts()
{
    for (int i = 0; i < 5000; ++i)
        QCOMPARE(expand(QStringLiteral("%1 [1] <%1+1>").arg(i)), QStringLiteral("%1 2 %2").arg(i).arg(i + 1));
}

QTEST_GUILESS_MAIN(TestRptText)
#include "tst_rpttext.moc"
