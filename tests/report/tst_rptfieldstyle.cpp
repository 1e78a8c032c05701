#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"

#include <QtTest>

#include <memory>

/// The style in force for a record, set by the highlighting.
class TestRptFieldStyle : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutEngine();
    void withoutHighlighting();
    void weights_data();
    void weights();
    void defaultsComeBack();
    void everyAspect();
    void unnamedFlagsAreOff();
    void unnamedColors();
    void followsTheRecord();
    void twiceIsTheSame();
    void keepsFamilyAndSize();
    void hostileHighlightings_data();
    void hostileHighlightings();

private:
    std::unique_ptr<RptEngine> m_engine;
    int m_stock = 0; ///< what the caller answers
    std::unique_ptr<RptBandObject> m_band;
    RptFieldObject *m_field = nullptr; ///< the band's
};

void TestRptFieldStyle::init()
{
    m_engine = std::make_unique<RptEngine>();
    m_band = std::make_unique<RptBandObject>();
    m_band->report = m_engine.get();
    m_field = new RptFieldObject;
    m_band->addField(m_field);
    m_field->setDefaultFontColor(QColor(10, 20, 30));
    m_field->setDefaultBackgroundColor(QColor(40, 50, 60, 70));
}

void TestRptFieldStyle::withoutEngine()
{
    m_field->report = nullptr;
    m_field->highlighting = "1;bold=?1:0;backgroundColor=?rgba(1,2,3,4);";
    m_field->font.setWeight(33);
    m_field->refreshStyle();
    QCOMPARE(m_field->font.weight(), 33);
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
}

void TestRptFieldStyle::withoutHighlighting()
{
    m_field->font.setItalic(true);
    m_field->font.setUnderline(true);
    m_field->font.setStrikeOut(true);
    m_field->refreshStyle();
    QVERIFY(m_field->font.italic() && m_field->font.underline() && m_field->font.strikeOut());
    QCOMPARE(m_field->fontColor, QColor(10, 20, 30));
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
}

void TestRptFieldStyle::weights_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("light") << 25 << 50;
    QTest::newRow("normal") << 50 << 50;
    QTest::newRow("57") << 57 << 50;
    QTest::newRow("58") << 58 << 75;
    QTest::newRow("black") << 87 << 75;
}

void TestRptFieldStyle::weights()
{
    QFETCH(int, before);
    m_field->font.setWeight(before);
    m_field->refreshStyle();
    QTEST(m_field->font.weight(), "after");
}

void TestRptFieldStyle::defaultsComeBack()
{
    m_field->fontColor = Qt::red;
    m_field->backgroundColor = Qt::red;
    m_field->refreshStyle();
    QCOMPARE(m_field->fontColor, QColor(10, 20, 30));
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
    // A template without colours has invalid ones; their text is that of black.
    m_field->setDefaultBackgroundColor(QColor());
    m_field->refreshStyle();
    QCOMPARE(m_field->backgroundColor, QColor(0, 0, 0, 255));
}

void TestRptFieldStyle::everyAspect()
{
    m_field->highlighting = "1 == 1;bold=?1:0;italic=?1:0;underline=?1:0;strikeout=?1:0;"
                            "fontColor=?rgba(1,2,3,4);backgroundColor=?rgba(5,6,7,8);";
    m_field->refreshStyle();
    QCOMPARE(m_field->font.weight(), 75);
    QVERIFY(m_field->font.italic() && m_field->font.underline() && m_field->font.strikeOut());
    QCOMPARE(m_field->fontColor, QColor(1, 2, 3, 4));
    QCOMPARE(m_field->backgroundColor, QColor(5, 6, 7, 8));
    QCOMPARE(m_field->defaultFontColor, QColor(10, 20, 30));
    QCOMPARE(m_field->defaultBackgroundColor, QColor(40, 50, 60, 70));

    m_field->highlighting.replace("1 == 1", "1 == 2");
    m_field->refreshStyle();
    QCOMPARE(m_field->font.weight(), 50);
    QVERIFY(!m_field->font.italic() && !m_field->font.underline() && !m_field->font.strikeOut());
    QCOMPARE(m_field->fontColor, QColor(10, 20, 30));
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
}

void TestRptFieldStyle::unnamedFlagsAreOff()
{
    m_field->font.setBold(true);
    m_field->font.setItalic(true);
    m_field->highlighting = "1;italic=?1:0;";
    m_field->refreshStyle();
    QCOMPARE(m_field->font.weight(), 50);
    QVERIFY(m_field->font.italic());
}

void TestRptFieldStyle::unnamedColors()
{
    m_field->highlighting = "1;bold=?1:0;";
    m_field->refreshStyle();
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
    QVERIFY(!m_field->fontColor.isValid()); // the background alone has a way back
}

void TestRptFieldStyle::followsTheRecord()
{
    connect(m_engine.get(), &RptEngine::setValue, this,
            [this](int /*recNo*/, const QString & /*name*/, QVariant &value, int /*page*/) { value = m_stock; });
    m_field->highlighting = "[stock] < 5;bold=?1:0;fontColor=?rgba(255,0,0,255);";
    for (int round = 0; round < 3; ++round) {
        m_stock = 2;
        m_field->refreshStyle();
        QCOMPARE(m_field->font.weight(), 75);
        QCOMPARE(m_field->fontColor, QColor(255, 0, 0));
        m_stock = 20;
        m_field->refreshStyle();
        QCOMPARE(m_field->font.weight(), 50);
        QCOMPARE(m_field->fontColor, QColor(10, 20, 30));
    }
}

void TestRptFieldStyle::twiceIsTheSame()
{
    m_field->font.setWeight(60);
    m_field->refreshStyle();
    const QFont font = m_field->font;
    m_field->refreshStyle();
    QCOMPARE(m_field->font, font);
}

void TestRptFieldStyle::keepsFamilyAndSize()
{
    m_field->font = QFont("DejaVu Sans", 17);
    m_field->highlighting = "1;bold=?1:0;";
    m_field->refreshStyle();
    QCOMPARE(m_field->font.family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(m_field->font.pointSize(), 17);
}

void TestRptFieldStyle::hostileHighlightings_data()
{
    QTest::addColumn<QString>("highlighting");
    QTest::newRow("no script") << "<b>;bold=?1:0;";
    QTest::newRow("no result") << "noSuchFunction();bold=?1:0;";
    QTest::newRow("clauses alone") << ";;;bold";
    QTest::newRow("quotes") << "'\"\\;bold=?1:0;";
    QTest::newRow("long") << QString(10000, '(') + ";bold=?1:0;";
}

void TestRptFieldStyle::hostileHighlightings()
{
    QFETCH(QString, highlighting);
    m_field->font.setBold(true);
    m_field->highlighting = highlighting;
    m_field->refreshStyle();
    QCOMPARE(m_field->font.weight(), 50);
    QCOMPARE(m_field->backgroundColor, QColor(40, 50, 60, 70));
}

QTEST_MAIN(TestRptFieldStyle)
#include "tst_rptfieldstyle.moc"
