#pragma once

#include "elements.h"
#include "report/rptfieldobject.h"

#include <QChart>
#include <QDomDocument>
#include <QStringList>

#include <memory>

/// A field read from a diagram's element. By contract the chart is not the field's, so it is deleted here.
class ChartField {
public:
    /// Reads a diagram in place of the one before.
    QtCharts::QChart *read(const QDomElement &element)
    {
        m_chart.reset();
        m_field = std::make_unique<RptFieldObject>();
        m_field->readFieldElement(nullptr, element);
        m_chart.reset(m_field->chart);
        return m_chart.get();
    }
    RptFieldObject &field() { return *m_field; }
    QtCharts::QChart &chart() { return *m_chart; }
    QDomDocument *document() { return &m_document; }

    QDomElement diagram(AttributeList attributes = {})
    {
        QDomElement element = makeElement(&m_document, "TContainerField", attributes);
        element.setAttribute("type", "diagram");
        return element;
    }
    /// Two lines that take data: "first" with (1, 2), (3, 4), and "second" with (5, 6).
    QDomElement twoLines();
    /// Two sets of bars that take data: "first" with 1, 2, and "second" with 3.
    QDomElement twoBarSets(const char *chartType);
    /// A pie that takes data: "soup" with 1.5 and "main" with 4.
    QDomElement somePie();

private:
    QDomDocument m_document;
    std::unique_ptr<RptFieldObject> m_field;
    std::unique_ptr<QtCharts::QChart> m_chart;
};

inline QDomElement ChartField::twoLines()
{
    const QDomElement field = diagram({{"chartType", "SeriesTypeLine"}, {"staticChart", "0"}});
    const QDomElement first = addChild(&m_document, field, "Graph",
                                       {{"caption", "first"}, {"color", "rgba(255,0,0,255)"}, {"graphDS", "ds1"}});
    addChild(&m_document, first, "Point", {{"x", "1"}, {"y", "2"}});
    addChild(&m_document, first, "Point", {{"x", "3"}, {"y", "4"}});
    const QDomElement second = addChild(&m_document, field, "Graph",
                                        {{"caption", "second"}, {"color", "rgba(0,0,255,255)"}, {"graphDS", "ds2"}});
    addChild(&m_document, second, "Point", {{"x", "5"}, {"y", "6"}});
    return field;
}

inline QDomElement ChartField::twoBarSets(const char *chartType)
{
    const QDomElement field = diagram({{"chartType", chartType}, {"staticChart", "0"}});
    const QDomElement first = addChild(&m_document, field, "Graph",
                                       {{"caption", "first"}, {"color", "rgba(255,0,0,255)"}, {"graphDS", "ds1"}});
    addChild(&m_document, first, "Value", {{"val", "1"}});
    addChild(&m_document, first, "Value", {{"val", "2"}});
    const QDomElement second = addChild(&m_document, field, "Graph",
                                        {{"caption", "second"}, {"color", "rgba(0,0,255,255)"}, {"graphDS", "ds2"}});
    addChild(&m_document, second, "Value", {{"val", "3"}});
    return field;
}

inline QDomElement ChartField::somePie()
{
    const QDomElement field = diagram({{"chartType", "SeriesTypePie"},
                                       {"staticChart", "0"},
                                       {"caption", "pie"},
                                       {"graphDS", "ds"},
                                       {"holeSize", "0.25"}});
    addChild(&m_document, field, "Slice",
             {{"caption", "soup"}, {"val", "1.5"}, {"color", "rgba(255,0,0,255)"}, {"labelVisible", "1"}});
    addChild(&m_document, field, "Slice", {{"caption", "main"}, {"val", "4"}, {"sliceExploaded", "1"}});
    return field;
}

/// "caption [source] #color: (label,x,y) (label,x,y)" of each record.
inline QStringList described(const GraphDataList &list)
{
    QStringList records;
    for (const GraphData &data : list) {
        QString record = QStringLiteral("%1 [%2] %3:").arg(data.caption, data.graphDS, data.color.name());
        for (const GraphPoint &point : data.values)
            record += QStringLiteral(" (%1,%2,%3)").arg(point.label).arg(point.x).arg(point.y);
        records.append(record);
    }
    return records;
}
