#include "fakevaluesource.h"

#include "report/rptattributes.h"
#include "report/rptbandobject.h"
#include "report/rptfieldobject.h"
#include "report/rptprintstate.h"
#include "report/rptvalues.h"

#include <QtTest>

Q_DECLARE_METATYPE(RptAspect)

/// What fields ask: whether they are printed, and what their highlighting makes of them.
class TestRptTextFields : public QObject {
    Q_OBJECT

private slots:
    void init();
    void printing_data();
    void printing();
    void shortPrintingAsksNothing();
    void printingAsksForTheRecord();
    void withoutHighlighting();
    void weightsAboveMediumAreBold();
    void fontAspects_data();
    void fontAspects();
    void evenRowsAreBold();
    void stripes();
    void fontColor();
    void coloursThatFail();
    void clauses_data();
    void clauses();
    void fieldWithoutBand();

private:
    QVariant value(RptAspect aspect) { return m_text->highlightValue(*m_field, aspect); }

    FakeValueSource m_source;
    RptPrintState m_state;
    RptBandObject m_band;
    std::unique_ptr<RptFieldObject> m_field;
    std::unique_ptr<RptText> m_text;
};

void TestRptTextFields::init()
{
    m_source.values.clear();
    m_source.asked.clear();
    m_state = RptPrintState();
    m_field = std::make_unique<RptFieldObject>();
    m_field->parentBand = &m_band;
    m_text = std::make_unique<RptText>(&m_source, &RptValues::instance(), &m_state);
}

void TestRptTextFields::printing_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<QString>("grouping");
    QTest::addColumn<bool>("isPrinted");
    QTest::newRow("nothing") << ""
                             << "" << false;
    QTest::newRow("0") << "0"
                       << "" << false;
    QTest::newRow("1") << "1"
                       << "" << true;
    QTest::newRow("5") << "5"
                       << "" << true;
    QTest::newRow("letter") << "x"
                            << "" << false;
    QTest::newRow("blank") << " "
                           << "" << false;
    QTest::newRow("minus one") << "-1"
                               << "" << true;
    QTest::newRow("two zeros") << "00"
                               << "" << false;
    QTest::newRow("below 1") << "0.9"
                             << "" << false;
    QTest::newRow("true") << "true"
                          << "" << true;
    QTest::newRow("sum") << "1-1"
                         << "" << false;
    QTest::newRow("beyond 32 bits") << "4294967296"
                                    << "" << true;
    QTest::newRow("no group") << "[grouping] == 0?1:0"
                              << "" << true;
    QTest::newRow("group") << "[grouping] == 0?1:0"
                           << "Polievka" << false;
    QTest::newRow("group 0") << "[grouping] == 0?1:0"
                             << "0" << true;
    QTest::newRow("footer without group") << "[grouping]?1:0"
                                          << "" << false;
    QTest::newRow("footer with group") << "[grouping]?1:0"
                                       << "Čaj" << true;
    QTest::newRow("apostrophe fails") << "[grouping]?1:0"
                                      << "O'Brien" << false;
    QTest::newRow("not a number") << "[grouping]?1:0"
                                  << "nan" << false;
    QTest::newRow("unknown name") << "foo"
                                  << "" << false;
    QTest::newRow("no script") << "1 2"
                               << "" << false;
    QTest::newRow("no report functions") << "Floor(1.5)"
                                         << "" << false;
    QTest::newRow("thrown") << "throw 1"
                            << "" << true;
    QTest::newRow("endless") << "1/0"
                             << "" << true;
}

void TestRptTextFields::printing()
{
    QFETCH(QString, condition);
    QFETCH(QString, grouping);
    m_field->printing = condition;
    m_source.values["[grouping]"] = grouping;
    QTEST(m_text->fieldIsPrinted(*m_field), "isPrinted");
}

void TestRptTextFields::shortPrintingAsksNothing()
{
    for (const char *const condition : {"", "0", "1", "[", "<"}) {
        m_field->printing = condition;
        m_text->fieldIsPrinted(*m_field);
    }
    QCOMPARE(m_source.asked, QStringList());
}

void TestRptTextFields::printingAsksForTheRecord()
{
    m_field->printing = QStringLiteral("<LineNo> % 2 == 0");
    for (m_state.recNo = 0; m_state.recNo < 10; ++m_state.recNo)
        QCOMPARE(m_text->fieldIsPrinted(*m_field), m_state.recNo % 2 == 1);
    QVERIFY(RptValues::instance().isEmpty());
}

void TestRptTextFields::withoutHighlighting()
{
    QCOMPARE(value(RptAspect::Bold).toBool(), false);
    QCOMPARE(value(RptAspect::Italic).toBool(), false);
    QCOMPARE(value(RptAspect::Underline).toBool(), false);
    QCOMPARE(value(RptAspect::Strikeout).toBool(), false);
    m_field->font.setItalic(true);
    m_field->font.setUnderline(true);
    m_field->font.setStrikeOut(true);
    QCOMPARE(value(RptAspect::Italic).toBool(), true);
    QCOMPARE(value(RptAspect::Underline).toBool(), true);
    QCOMPARE(value(RptAspect::Strikeout).toBool(), true);
    m_field->font.setStyle(QFont::StyleOblique);
    QCOMPARE(value(RptAspect::Italic).toBool(), true);
    m_field->defaultFontColor = QColor(1, 2, 3, 4);
    m_field->defaultBackgroundColor = QColor(5, 6, 7, 8);
    QCOMPARE(value(RptAspect::FontColor).toString(), QStringLiteral("rgba(1,2,3,4)"));
    QCOMPARE(value(RptAspect::BackgroundColor).toString(), QStringLiteral("rgba(5,6,7,8)"));
}

void TestRptTextFields::weightsAboveMediumAreBold()
{
    for (const int weight : {50, 57, 58, 75}) {
        m_field->font.setWeight(weight);
        QCOMPARE(value(RptAspect::Bold).toBool(), weight > 57);
    }
}

void TestRptTextFields::fontAspects_data()
{
    QTest::addColumn<RptAspect>("aspect");
    QTest::addColumn<QString>("word");
    QTest::newRow("bold") << RptAspect::Bold << "bold";
    QTest::newRow("italic") << RptAspect::Italic << "italic";
    QTest::newRow("underline") << RptAspect::Underline << "underline";
    QTest::newRow("strikeout") << RptAspect::Strikeout << "strikeout";
}

void TestRptTextFields::fontAspects()
{
    QFETCH(RptAspect, aspect);
    QFETCH(QString, word);
    m_field->highlighting = QStringLiteral("[n] == 2;%1=?7.9:0;").arg(word);
    m_source.values["[n]"] = QStringLiteral("2");
    QCOMPARE(value(aspect), QVariant(7.0));
    m_source.values["[n]"] = QStringLiteral("3");
    QCOMPARE(value(aspect), QVariant(0.0));
    m_source.values["[n]"] = QStringLiteral("O'Brien");
    QCOMPARE(value(aspect), QVariant(0.0));
    for (const RptAspect other : {RptAspect::Bold, RptAspect::Italic, RptAspect::Underline, RptAspect::Strikeout}) {
        if (other != aspect)
            QVERIFY(!value(other).isValid());
    }
}

void TestRptTextFields::evenRowsAreBold()
{
    m_field->highlighting = QStringLiteral("<LineNo> % 2 == 0;bold=?1:0;");
    m_field->defaultBackgroundColor = QColor(5, 6, 7, 8);
    m_state.recNo = 1;
    QCOMPARE(value(RptAspect::Bold), QVariant(1.0));
    m_state.recNo = 2;
    QCOMPARE(value(RptAspect::Bold), QVariant(0.0));
    // No clause names a colour: the background has its default, the font none at all.
    QCOMPARE(value(RptAspect::BackgroundColor).toString(), QStringLiteral("rgba(5,6,7,8)"));
    QVERIFY(!value(RptAspect::FontColor).isValid());
    QVERIFY(!RptAttributes::color(value(RptAspect::FontColor).toString()).isValid());
}

void TestRptTextFields::stripes()
{
    m_field->highlighting = QStringLiteral("<LineNo> % 2 == 0;backgroundColor=?rgba(235,235,235,255);");
    m_field->defaultBackgroundColor = QColor(255, 255, 255, 0);
    m_state.recNo = 1;
    QCOMPARE(value(RptAspect::BackgroundColor), QVariant("rgba(235,235,235,255)"));
    m_state.recNo = 2;
    QCOMPARE(value(RptAspect::BackgroundColor), QVariant("rgba(255,255,255,0)"));
    QVERIFY(!value(RptAspect::Bold).isValid());
}

void TestRptTextFields::fontColor()
{
    m_field->highlighting = QStringLiteral("[n] < 0;bold=?1:0;fontColor=?rgba(255,0,0,255);fontColor=?rgba(0,0,9,255)");
    m_field->defaultFontColor = QColor(1, 2, 3);
    m_source.values["[n]"] = QStringLiteral("-5");
    QCOMPARE(value(RptAspect::FontColor), QVariant("rgba(255,0,0,255)"));
    QCOMPARE(value(RptAspect::Bold), QVariant(1.0));
    m_source.values["[n]"] = QStringLiteral("5");
    QCOMPARE(value(RptAspect::FontColor), QVariant("rgba(1,2,3,255)"));
}

void TestRptTextFields::coloursThatFail()
{
    m_field->highlighting = QStringLiteral("foo;backgroundColor=?rgba(1,1,1,255)");
    QCOMPARE(value(RptAspect::BackgroundColor), QVariant("ReferenceError: Can't find variable: foo"));
    m_field->highlighting = QStringLiteral("1; backgroundColor=?rgba(1,1,1,255)"); // the quote goes before the "?"
    QCOMPARE(value(RptAspect::BackgroundColor), QVariant("SyntaxError: Parse error"));
    m_field->highlighting = QStringLiteral("backgroundColor"); // a condition, and no clause
    QVERIFY(!value(RptAspect::BackgroundColor).isValid());
    m_field->highlighting = QStringLiteral("1;backgroundColor=");
    QCOMPARE(value(RptAspect::BackgroundColor), QVariant("SyntaxError: Parse error"));
}

void TestRptTextFields::clauses_data()
{
    QTest::addColumn<QString>("highlighting");
    QTest::addColumn<QVariant>("bold");
    QTest::newRow("empty parts") << "1;;;bold=?3:0;" << QVariant(3.0);
    QTest::newRow("first of two") << "1;bold=?3:0;bold=?4:0" << QVariant(3.0);
    QTest::newRow("word in the condition only") << "'bold';italic=?1:0" << QVariant();
    QTest::newRow("condition only") << "1" << QVariant();
    QTest::newRow("semicolon only") << ";" << QVariant();
    QTest::newRow("no condition") << ";bold=1" << QVariant(1.0);
    QTest::newRow("other case") << "1;Bold=?1:0" << QVariant();
    QTest::newRow("blank before") << "1; bold=?3:0" << QVariant(3.0);
    QTest::newRow("without equals") << "1;bold?3:0" << QVariant(0.0);
    QTest::newRow("word inside of another") << "1;unbold=?3:0" << QVariant(0.0);
    QTest::newRow("both words in one") << "1;bold=italic=?3:0" << QVariant(0.0);
}

void TestRptTextFields::clauses()
{
    QFETCH(QString, highlighting);
    m_field->highlighting = highlighting;
    QTEST(value(RptAspect::Bold), "bold");
}

void TestRptTextFields::fieldWithoutBand()
{
    m_field->parentBand = nullptr;
    m_field->printing = QStringLiteral("<1+1>");
    QVERIFY(m_text->fieldIsPrinted(*m_field));
    m_field->highlighting = QStringLiteral("<1+1>;bold=?1:0");
    QVERIFY(value(RptAspect::Bold).isValid());
}

QTEST_MAIN(TestRptTextFields)
#include "tst_rpttextfields.moc"
