#include "chartfield.h"

#include "support/logcatcher.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QLegend>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QStackedBarSeries>
#include <QtTest>

using namespace QtCharts;

/// What a diagram becomes; its data are told by what the caller is offered.
class TestRptFieldChart : public QObject {
    Q_OBJECT

private slots:
    void defaults();
    void captions();
    void legend_data();
    void legend();
    void colors();
    void fonts();
    void brokenFonts_data();
    void brokenFonts();
    void staticChart_data();
    void staticChart();
    void seriesTypes_data();
    void seriesTypes();
    void lines();
    void bars_data();
    void bars();
    void pie();
    void holeSizes_data();
    void holeSizes();
    void slicesFlags();
    void tagsAreNotLookedAt();
    void hugeAndBrokenValues();

private:
    ChartField m_test;
};

void TestRptFieldChart::defaults()
{
    const LogCatcher log;
    const QChart fresh;
    QChart *const chart = m_test.read(m_test.diagram());
    QCOMPARE(chart->title(), QString());
    QVERIFY(chart->legend()->isVisible());
    QCOMPARE(chart->legend()->alignment(), Qt::AlignTop);
    QCOMPARE(chart->property("staticChart").toInt(), 1);
    QCOMPARE(chart->titleFont().toString(), fresh.titleFont().toString());
    QCOMPARE(chart->legend()->font().toString(), fresh.legend()->font().toString());
    QVERIFY(!chart->legend()->labelBrush().color().isValid());
    QVERIFY(!chart->backgroundBrush().color().isValid());
    QCOMPARE(chart->backgroundBrush().style(), Qt::SolidPattern);
    QVERIFY(chart->series().isEmpty());
    QVERIFY(m_test.field().graphData().isEmpty());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptFieldChart::captions()
{
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts)
        QCOMPARE(m_test.read(m_test.diagram({{"caption", text}}))->title(), text);
}

void TestRptFieldChart::legend_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("alignment");
    QTest::newRow("0") << "0" << static_cast<int>(Qt::AlignTop);
    QTest::newRow("1") << "1" << static_cast<int>(Qt::AlignBottom);
    QTest::newRow("2") << "2" << static_cast<int>(Qt::AlignLeft);
    QTest::newRow("3") << "3" << static_cast<int>(Qt::AlignRight);
    for (const char *const other : {"4", "-1", "", "left", "2147483647", "99999999999"})
        QTest::newRow(*other == '\0' ? "empty" : other) << QString(other) << static_cast<int>(Qt::AlignTop);
}

void TestRptFieldChart::legend()
{
    QFETCH(QString, text);
    QTEST(static_cast<int>(m_test.read(m_test.diagram({{"legendAligment", text}}))->legend()->alignment()),
          "alignment");
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QCOMPARE(m_test.read(m_test.diagram({{"showLegend", known.first}}))->legend()->isVisible(), known.second != 0);
}

void TestRptFieldChart::colors()
{
    QChart *const chart = m_test.read(m_test.diagram({{"colorLegend", "rgba(1,2,3,4)"},
                                                      {"colorBackground", "rgba(5,6,7,8)"},
                                                      {"colorTitle", "rgba(9,10,11,12)"},
                                                      {"caption", "title"}}));
    QCOMPARE(chart->legend()->labelBrush().color(), QColor(1, 2, 3, 4));
    QCOMPARE(chart->backgroundBrush(), QBrush(QColor(5, 6, 7, 8)));
    QCOMPARE(chart->titleBrush().color(), QColor(9, 10, 11, 12));
}

void TestRptFieldChart::fonts()
{
    QFont font("DejaVu Sans", 17, QFont::Bold, true);
    QChart *const chart =
        m_test.read(m_test.diagram({{"titleFont", font.toString()}, {"legendFont", "DejaVu Serif,13"}}));
    QCOMPARE(chart->titleFont().family(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(chart->titleFont().pointSize(), 17);
    QCOMPARE(chart->titleFont().weight(), 75);
    QVERIFY(chart->titleFont().italic());
    QCOMPARE(chart->legend()->font().family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(chart->legend()->font().pointSize(), 13);
}

void TestRptFieldChart::brokenFonts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("no family") << ",12";
    QTest::newRow("three parts") << "DejaVu Sans,12,5";
    QTest::newRow("eight parts") << "a,1,1,1,1,1,1,1";
    QTest::newRow("twelve parts") << "a,1,1,1,1,1,1,1,1,1,1,1";
    QTest::newRow("commas") << QString(10000, ',');
}

void TestRptFieldChart::brokenFonts()
{
    QFETCH(QString, text);
    const LogCatcher log;
    const QChart fresh;
    QChart *const chart = m_test.read(m_test.diagram({{"titleFont", text}, {"legendFont", text}}));
    QCOMPARE(chart->titleFont().toString(), fresh.titleFont().toString());
    QCOMPARE(chart->legend()->font().toString(), fresh.legend()->font().toString());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptFieldChart::staticChart_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("1") << "1" << 1;
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("5") << "5" << 1;
    QTest::newRow("-1") << "-1" << 1;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("text") << "yes" << 0;
}

void TestRptFieldChart::staticChart()
{
    QFETCH(QString, text);
    QTEST(m_test.read(m_test.diagram({{"staticChart", text}}))->property("staticChart").toInt(), "expected");
}

void TestRptFieldChart::seriesTypes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type"); // -1 for no series
    const int none = -1;
    QTest::newRow("line") << "SeriesTypeLine" << static_cast<int>(QAbstractSeries::SeriesTypeLine);
    QTest::newRow("contains line") << "QChart::SeriesTypeLine;" << static_cast<int>(QAbstractSeries::SeriesTypeLine);
    QTest::newRow("bar") << "SeriesTypeBar" << static_cast<int>(QAbstractSeries::SeriesTypeBar);
    QTest::newRow("stacked") << "SeriesTypeStackedBar" << static_cast<int>(QAbstractSeries::SeriesTypeStackedBar);
    QTest::newRow("pie") << "SeriesTypePie" << static_cast<int>(QAbstractSeries::SeriesTypePie);
    for (const char *const other : {"", "SeriesTypeBar ", "seriestypeline", "XSeriesTypePie", "SeriesTypeArea", "<b>"})
        QTest::newRow(*other == '\0' ? "empty" : other) << QString(other) << none;
}

void TestRptFieldChart::seriesTypes()
{
    QFETCH(QString, text);
    QFETCH(int, type);
    const QDomElement field = m_test.diagram({{"chartType", text}});
    addChild(m_test.document(), field, "Graph", {{"caption", "only"}, {"val", "3"}});
    QChart *const chart = m_test.read(field);
    QCOMPARE(chart->series().size(), type < 0 ? 0 : 1);
    if (type >= 0)
        QCOMPARE(static_cast<int>(chart->series().constFirst()->type()), type);
}

void TestRptFieldChart::lines()
{
    QChart *const chart = m_test.read(m_test.twoLines());
    QCOMPARE(chart->series().size(), 2);
    QCOMPARE(chart->series().constFirst()->name(), QStringLiteral("first"));
    QCOMPARE(chart->series().constFirst()->property("graphDS").toString(), QStringLiteral("ds1"));
    QVERIFY(chart->axes().isEmpty());
    QCOMPARE(described(m_test.field().graphData()),
             QStringList({"first [ds1] #ff0000: (,1,2) (,3,4)", "second [ds2] #0000ff: (,5,6)"}));
    // Without a colour a line has the theme's.
    const QDomElement field = m_test.diagram({{"chartType", "SeriesTypeLine"}});
    addChild(m_test.document(), field, "Graph");
    const auto *line = qobject_cast<QLineSeries *>(m_test.read(field)->series().first());
    QLineSeries untouched;
    QChart other;
    other.addSeries(&untouched);
    QCOMPARE(line->color(), untouched.color());
    other.removeSeries(&untouched);
}

void TestRptFieldChart::bars_data()
{
    QTest::addColumn<QString>("chartType");
    QTest::newRow("bars") << "SeriesTypeBar";
    QTest::newRow("stacked") << "SeriesTypeStackedBar";
}

void TestRptFieldChart::bars()
{
    QFETCH(QString, chartType);
    QChart *const chart = m_test.read(m_test.twoBarSets(qPrintable(chartType)));
    QCOMPARE(chart->series().size(), 1);
    QCOMPARE(qobject_cast<QAbstractBarSeries *>(chart->series().constFirst())->count(), 2);
    QCOMPARE(chart->axes().size(), 2);
    QCOMPARE(described(m_test.field().graphData()),
             QStringList({"first [ds1] #ff0000: (,0,1) (,0,2)", "second [ds2] #0000ff: (,0,3)"}));
}

void TestRptFieldChart::pie()
{
    QChart *const chart = m_test.read(m_test.somePie());
    QCOMPARE(chart->title(), QStringLiteral("pie"));
    const auto *series = qobject_cast<QPieSeries *>(chart->series().constFirst());
    QCOMPARE(series->name(), QStringLiteral("pie"));
    QCOMPARE(series->holeSize(), 0.25);
    QCOMPARE(series->slices().size(), 2);
    QCOMPARE(series->slices().at(0)->color(), QColor(255, 0, 0));
    QCOMPARE(described(m_test.field().graphData()), QStringList({" [ds] #000000: (soup,0,1.5) (main,0,4)"}));
    QVERIFY(!m_test.field().graphData().first().color.isValid());
}

void TestRptFieldChart::holeSizes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("size");
    QTest::newRow("none") << "" << 0.0;
    QTest::newRow("some") << "0.40" << 0.4;
    QTest::newRow("whole") << "1" << 1.0;
    QTest::newRow("beyond") << "1e300" << 1.0;
    QTest::newRow("negative") << "-1" << 0.0;
    QTest::newRow("text") << "half" << 0.0;
}

void TestRptFieldChart::holeSizes()
{
    QFETCH(QString, text);
    QChart *const chart = m_test.read(m_test.diagram({{"chartType", "SeriesTypePie"}, {"holeSize", text}}));
    QTEST(qobject_cast<QPieSeries *>(chart->series().constFirst())->holeSize(), "size");
}

void TestRptFieldChart::slicesFlags()
{
    const auto *series = qobject_cast<QPieSeries *>(m_test.read(m_test.somePie())->series().first());
    QVERIFY(series->slices().at(0)->isLabelVisible());
    QVERIFY(!series->slices().at(0)->isExploded());
    QVERIFY(!series->slices().at(1)->isLabelVisible());
    QVERIFY(series->slices().at(1)->isExploded());
}

void TestRptFieldChart::tagsAreNotLookedAt()
{
    const QDomElement field = m_test.diagram({{"chartType", "SeriesTypeLine"}});
    QDomElement(field).appendChild(m_test.document()->createTextNode("text"));
    for (const char *const tag : {"a", "ReportBand", "TContainerField"}) {
        const QDomElement series = addChild(m_test.document(), field, tag, {{"caption", QString(tag)}});
        addChild(m_test.document(), series, tag, {{"x", "1"}, {"y", "2"}, {"z", "3"}});
    }
    m_test.read(field);
    QCOMPARE(m_test.field().graphData().size(), 3);
    QCOMPARE(m_test.field().graphData().last().caption, QStringLiteral("TContainerField"));
    QCOMPARE(m_test.field().graphData().last().values.size(), 1);
}

void TestRptFieldChart::hugeAndBrokenValues()
{
    const LogCatcher log;
    for (const char *const type : {"SeriesTypeLine", "SeriesTypeBar", "SeriesTypeStackedBar", "SeriesTypePie"}) {
        const QDomElement field = m_test.diagram({{"chartType", type}});
        const QDomElement series =
            addChild(m_test.document(), field, "Graph", {{"val", "-7"}, {"caption", "<b>%1</b>"}, {"color", "none"}});
        for (const char *const value : {"nan", "inf", "1e999", "", "text", "1e12", "-1e12"}) {
            addChild(m_test.document(), series, "Point", {{"x", value}, {"y", value}, {"val", value}});
            addChild(m_test.document(), field, "Slice", {{"val", value}});
        }
        m_test.read(field);
        QCOMPARE(m_test.field().graphData().first().values.size(), qstrcmp(type, "SeriesTypePie") == 0 ? 8 : 7);
    }
    QCOMPARE(log.lines(), QStringList());
}

QTEST_MAIN(TestRptFieldChart)
#include "tst_rptfieldchart.moc"
