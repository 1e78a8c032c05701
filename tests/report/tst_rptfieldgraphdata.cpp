#include "chartfield.h"

#include <QLineSeries>
#include <QPieSeries>
#include <QScatterSeries>
#include <QtTest>

#include <limits>

using namespace QtCharts;

/// The data of a diagram that the caller gives.
class TestRptFieldGraphData : public QObject {
    Q_OBJECT

private slots:
    void noData();
    void otherPointSeries();
    void staticDataStay();
    void appliesToLines();
    void appliesTwice();
    void appliesToBars();
    void appliesToAPie();
    void appliesNothing();
    void appliesMoreThanThereIs();
    void appliesHostileData();

private:
    ChartField m_test;
};

namespace {

GraphData record(const QString &caption, const QColor &color, const QList<GraphPoint> &values)
{
    GraphData data;
    data.caption = caption;
    data.color = color;
    data.graphDS = "new source";
    data.values = values;
    return data;
}

} // namespace

void TestRptFieldGraphData::noData()
{
    RptFieldObject field;
    QVERIFY(field.graphData().isEmpty());
    field.applyGraphData({record("a", Qt::red, {{QString(), 1, 2}})});
    QVERIFY(field.graphData().isEmpty());
    m_test.read(m_test.diagram({{"staticChart", "0"}}));
    m_test.field().applyGraphData({record("a", Qt::red, {{QString(), 1, 2}})});
    m_test.field().applyGraphData({});
    QVERIFY(m_test.field().graphData().isEmpty());
}

void TestRptFieldGraphData::otherPointSeries()
{
    QChart *const chart = m_test.read(m_test.diagram({{"staticChart", "0"}}));
    auto *points = new QScatterSeries;
    points->setName("points");
    points->append(1, 2);
    chart->addSeries(points);
    QCOMPARE(m_test.field().graphData().size(), 1);
    m_test.field().applyGraphData({record("ignored", Qt::red, {{QString(), 3, 4}})});
    QCOMPARE(points->pointsVector(), QVector<QPointF>({QPointF(3, 4)}));
}

void TestRptFieldGraphData::staticDataStay()
{
    for (const QDomElement &element : {m_test.twoLines(), m_test.twoBarSets("SeriesTypeBar"), m_test.somePie()}) {
        QDomElement(element).setAttribute("staticChart", "1");
        m_test.read(element);
        const QStringList before = described(m_test.field().graphData());
        m_test.field().applyGraphData({record("new", Qt::green, {{"new", 8, 9}})});
        QCOMPARE(described(m_test.field().graphData()), before);
        m_test.field().applyGraphData({});
        QCOMPARE(described(m_test.field().graphData()), before);
    }
}

void TestRptFieldGraphData::appliesToLines()
{
    m_test.read(m_test.twoLines());
    m_test.field().applyGraphData({record("a", Qt::green, {{"l", 10, 11}, {"l", 12, 13}, {"l", 14, 15}}),
                                   record("b", Qt::green, {{"l", 20, 21}})});
    // Name, colour and source of a line stay; only its points are taken.
    QCOMPARE(described(m_test.field().graphData()),
             QStringList({"first [ds1] #ff0000: (,10,11) (,12,13) (,14,15)", "second [ds2] #0000ff: (,20,21)"}));
}

void TestRptFieldGraphData::appliesTwice()
{
    for (const QDomElement &element :
         {m_test.twoLines(), m_test.twoBarSets("SeriesTypeStackedBar"), m_test.somePie()}) {
        m_test.read(element);
        GraphDataList data = m_test.field().graphData();
        for (GraphData &series : data)
            series.values.first().y += 100;
        const QStringList expected = described(data);
        for (int page = 0; page < 3; ++page) {
            m_test.field().applyGraphData(data);
            data = m_test.field().graphData();
            QCOMPARE(described(data), expected);
        }
    }
}

void TestRptFieldGraphData::appliesToBars()
{
    QChart *const chart = m_test.read(m_test.twoBarSets("SeriesTypeBar"));
    m_test.field().applyGraphData({record("a", Qt::green, {{"l", 5, 11}, {"l", 5, 12}}), record("b", Qt::cyan, {}),
                                   record("c", QColor(1, 2, 3), {{"l", 5, 13}})});
    QCOMPARE(chart->series().size(), 1);
    QCOMPARE(described(m_test.field().graphData()),
             QStringList({"a [new source] #00ff00: (,0,11) (,0,12)",
                          "b [new source] #00ffff:", "c [new source] #010203: (,0,13)"}));
}

void TestRptFieldGraphData::appliesToAPie()
{
    QChart *const chart = m_test.read(m_test.somePie());
    m_test.field().applyGraphData({record("ignored", Qt::green, {{"a", 1, 10}, {"b", 2, 20}, {"c", 3, 30}})});
    QCOMPARE(chart->series().size(), 1);
    QCOMPARE(described(m_test.field().graphData()), QStringList({" [ds] #000000: (a,0,10) (b,0,20) (c,0,30)"}));
}

void TestRptFieldGraphData::appliesNothing()
{
    QChart *const chart = m_test.read(m_test.twoLines());
    QAbstractSeries *const first = chart->series().constFirst();
    m_test.field().applyGraphData({});
    QCOMPARE(chart->series().size(), 2);
    QCOMPARE(chart->series().constLast(), first); // taken out and added again
    QCOMPARE(first->chart(), chart);
    QCOMPARE(m_test.field().graphData().constLast().values.size(), 2);
    m_test.read(m_test.twoBarSets("SeriesTypeBar"));
    m_test.field().applyGraphData({});
    QCOMPARE(m_test.chart().series().size(), 1);
    QVERIFY(m_test.field().graphData().isEmpty());
    m_test.read(m_test.somePie());
    m_test.field().applyGraphData({});
    QCOMPARE(m_test.field().graphData().first().values.size(), 2);
}

void TestRptFieldGraphData::appliesMoreThanThereIs()
{
    m_test.read(m_test.somePie());
    m_test.field().applyGraphData({record("a", Qt::red, {{"a", 0, 1}}), record("b", Qt::red, {{"b", 0, 2}})});
    QCOMPARE(described(m_test.field().graphData()), QStringList({" [ds] #000000: (a,0,1)"}));
    m_test.read(m_test.twoLines());
    m_test.field().applyGraphData(
        {record("a", Qt::red, {}), record("b", Qt::red, {}), record("c", Qt::red, {{"c", 1, 1}})});
    QCOMPARE(described(m_test.field().graphData()), QStringList({"first [ds1] #ff0000:", "second [ds2] #0000ff:"}));
}

void TestRptFieldGraphData::appliesHostileData()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    const GraphDataList data{record("<b>%1</b>", QColor(), {{"<i>", nan, nan}, {"%1", inf, -inf}, {"", -5, -5}})};
    for (const QDomElement &element : {m_test.twoLines(), m_test.twoBarSets("SeriesTypeBar"), m_test.somePie()}) {
        m_test.read(element);
        m_test.field().applyGraphData(data);
        QCOMPARE(m_test.field().graphData().first().values.size(), 1);
    }
}

QTEST_MAIN(TestRptFieldGraphData)
#include "tst_rptfieldgraphdata.moc"
