#pragma once

#include <QColor>
#include <QList>
#include <QMetaType>
#include <QString>

/// One point of a chart's series. For bars and pies `y` is the value.
struct GraphPoint {
    QString label; ///< of a pie's slice
    double x = 0;
    double y = 0;
};

/// One series of a chart: a line, a set of bars, or a whole pie.
struct GraphData {
    QList<GraphPoint> values;
    QColor color;
    QString graphDS; ///< the name of its data source, for the caller to know it by
    QString caption;
};

/// The data of a chart, as the engine offers them to its caller and takes them back.
using GraphDataList = QList<GraphData>;

Q_DECLARE_METATYPE(GraphDataList)
