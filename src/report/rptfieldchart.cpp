#include "report/rptfieldobject.h"

#include "report/rptattributes.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QDomElement>
#include <QLegend>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QStackedBarSeries>
#include <QXYSeries>

using namespace QtCharts;
using namespace RptAttributes;

namespace {

constexpr char graphSource[] = "graphDS";
constexpr char isStatic[] = "staticChart";

/// Calls `read` with each child element.
template<class Read> void forEachChild(const QDomElement &element, Read read)
{
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        read(child);
}

/// A series, set or slice without a colour keeps the one that the chart's theme gives it.
template<class ChartItem> void setItemColor(ChartItem *item, const QColor &color)
{
    if (color.isValid())
        item->setColor(color);
}

QColor itemColor(const QDomElement &element)
{
    return color(text(element, "color"));
}

void readLines(QChart *chart, const QDomElement &field)
{
    forEachChild(field, [chart](const QDomElement &element) {
        auto *series = new QLineSeries;
        series->setName(text(element, "caption"));
        setItemColor(series, itemColor(element));
        series->setProperty(graphSource, text(element, "graphDS"));
        forEachChild(element,
                     [series](const QDomElement &point) { series->append(real(point, "x"), real(point, "y")); });
        chart->addSeries(series);
    });
}

template<class BarSeries> void readBars(QChart *chart, const QDomElement &field)
{
    auto *series = new BarSeries;
    forEachChild(field, [series](const QDomElement &element) {
        auto *bars = new QBarSet(text(element, "caption"));
        setItemColor(bars, itemColor(element));
        bars->setProperty(graphSource, text(element, "graphDS"));
        forEachChild(element, [bars](const QDomElement &value) { bars->append(real(value, "val")); });
        series->append(bars);
    });
    chart->addSeries(series);
    chart->createDefaultAxes();
}

void readPie(QChart *chart, const QDomElement &field)
{
    auto *series = new QPieSeries;
    series->setName(text(field, "caption"));
    series->setHoleSize(real(field, "holeSize", "0.00"));
    series->setProperty(graphSource, text(field, "graphDS"));
    forEachChild(field, [series](const QDomElement &element) {
        auto *slice = new QPieSlice(text(element, "caption"), real(element, "val"));
        slice->setExploded(flag(element, "sliceExploaded"));
        slice->setLabelVisible(flag(element, "labelVisible"));
        setItemColor(slice, itemColor(element));
        series->append(slice);
    });
    chart->addSeries(series);
    chart->createDefaultAxes();
}

struct ChartType {
    const char *name;
    bool isWhole; ///< whether the attribute must be this name, or only contain it
    void (*read)(QChart *chart, const QDomElement &field);
};

constexpr ChartType chartTypes[] = {
    {"SeriesTypeLine", false, readLines},
    {"SeriesTypeBar", true, readBars<QBarSeries>},
    {"SeriesTypeStackedBar", true, readBars<QStackedBarSeries>},
    {"SeriesTypePie", true, readPie},
};

void readSeries(QChart *chart, const QDomElement &field)
{
    const QString type = text(field, "chartType");
    for (const ChartType &known : chartTypes) {
        const QLatin1String name(known.name);
        if (known.isWhole ? type == name : type.contains(name)) {
            known.read(chart, field);
            return;
        }
    }
}

/// A font from its string form: a family, one with a size, or 9 to 11 parts. The present font for any other text, which
/// Qt would only warn of.
QFont readChartFont(const QDomElement &field, const char *attribute, const QFont &present)
{
    const QString description = text(field, attribute);
    const int parts = description.count(',') + 1;
    const bool isFont = !description.section(',', 0, 0).isEmpty() && (parts <= 2 || (parts >= 9 && parts <= 11));
    QFont font = present;
    if (isFont)
        font.fromString(description);
    return font;
}

void readLegend(QLegend *legend, const QDomElement &field)
{
    constexpr Qt::Alignment sides[] = {Qt::AlignTop, Qt::AlignBottom, Qt::AlignLeft, Qt::AlignRight};
    const int side = number(field, "legendAligment");
    legend->setVisible(flag(field, "showLegend", "1"));
    legend->setFont(readChartFont(field, "legendFont", legend->font()));
    legend->setLabelBrush(color(text(field, "colorLegend")));
    if (side >= 0 && side < 4)
        legend->setAlignment(sides[side]);
}

GraphData dataOf(const QXYSeries &series)
{
    GraphData data;
    data.color = series.color();
    data.graphDS = series.property(graphSource).toString();
    data.caption = series.name();
    const QVector<QPointF> points = series.pointsVector();
    for (const QPointF &point : points)
        data.values.append({QString(), point.x(), point.y()});
    return data;
}

GraphData dataOf(const QBarSet &bars)
{
    GraphData data;
    data.color = const_cast<QBarSet &>(bars).color(); // a getter that Qt left without const
    data.graphDS = bars.property(graphSource).toString();
    data.caption = bars.label();
    for (int index = 0; index < bars.count(); ++index)
        data.values.append({QString(), 0, bars.at(index)});
    return data;
}

GraphData dataOf(const QPieSeries &pie)
{
    GraphData data;
    data.graphDS = pie.property(graphSource).toString();
    const QList<QPieSlice *> slices = pie.slices();
    for (const QPieSlice *slice : slices)
        data.values.append({slice->label(), 0, slice->value()});
    return data;
}

void addAgain(QChart *chart, QAbstractSeries *series)
{
    chart->removeSeries(series);
    chart->addSeries(series);
}

void fillLine(QChart *chart, QXYSeries *series, const GraphData &data)
{
    series->clear();
    for (const GraphPoint &point : data.values)
        series->append(point.x, point.y);
    addAgain(chart, series);
}

void appendBars(QAbstractBarSeries *series, const GraphData &data)
{
    auto *bars = new QBarSet(data.caption);
    setItemColor(bars, data.color);
    bars->setProperty(graphSource, data.graphDS); // or the next page's data could not be told apart
    for (const GraphPoint &point : data.values)
        bars->append(point.y);
    series->append(bars);
}

void fillPie(QChart *chart, QPieSeries *pie, const GraphData &data)
{
    pie->clear();
    for (const GraphPoint &point : data.values) {
        auto *slice = new QPieSlice(point.label, point.y);
        if (!pie->append(slice)) // the value is no finite number
            delete slice;
    }
    addAgain(chart, pie);
}

} // namespace

void RptFieldObject::readChart(const QDomElement &element)
{
    chart = new QChart;
    chart->setTitle(text(element, "caption"));
    chart->setProperty(isStatic, int(flag(element, "staticChart", "1")));
    chart->setTitleFont(readChartFont(element, "titleFont", chart->titleFont()));
    readLegend(chart->legend(), element);
    chart->setBackgroundBrush(color(text(element, "colorBackground")));
    chart->setTitleBrush(color(text(element, "colorTitle")));
    readSeries(chart, element);
}

GraphDataList RptFieldObject::graphData() const
{
    GraphDataList list;
    const QList<QAbstractSeries *> seriesList = chart ? chart->series() : QList<QAbstractSeries *>();
    for (const QAbstractSeries *series : seriesList) {
        if (const auto *line = qobject_cast<const QXYSeries *>(series)) {
            list.append(dataOf(*line));
        } else if (const auto *pie = qobject_cast<const QPieSeries *>(series)) {
            list.append(dataOf(*pie));
        } else if (const auto *bars = qobject_cast<const QAbstractBarSeries *>(series)) {
            const QList<QBarSet *> sets = bars->barSets();
            for (const QBarSet *set : sets)
                list.append(dataOf(*set));
        }
    }
    return list;
}

void RptFieldObject::applyGraphData(const GraphDataList &data)
{
    if (!chart || chart->property(isStatic).toInt() == 1)
        return;
    // The list keeps its order while series leave the chart and come back at the end of its own.
    const QList<QAbstractSeries *> seriesList = chart->series();
    if (seriesList.isEmpty())
        return;
    for (QAbstractSeries *series : seriesList) {
        if (auto *bars = qobject_cast<QAbstractBarSeries *>(series))
            bars->clear();
    }
    if (data.isEmpty())
        addAgain(chart, seriesList.first());
    auto *firstBars = qobject_cast<QAbstractBarSeries *>(seriesList.first());
    for (int index = 0; index < data.size(); ++index) {
        QAbstractSeries *series = seriesList.value(index);
        if (firstBars)
            appendBars(firstBars, data.at(index));
        else if (auto *line = qobject_cast<QXYSeries *>(series))
            fillLine(chart, line, data.at(index));
        else if (auto *pie = qobject_cast<QPieSeries *>(series))
            fillPie(chart, pie, data.at(index));
    }
}
