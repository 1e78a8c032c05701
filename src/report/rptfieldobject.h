#pragma once

#include "report/graphdatalist.h"
#include "report/rptenums.h"

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QDebug;
class QDomElement;
class RptBandObject;
class RptCrossTabObject;
class RptEngine;

namespace QtCharts {
class QChart;
}

/// One field of a band, or one cell of a cross table. Positions are template units within the band; the edges of `rect`
/// are inclusive, as `QRect` has them.
class RptFieldObject {
public:
    RptFieldObject();
    ~RptFieldObject();
    RptFieldObject &operator=(const RptFieldObject &) = delete;

    /// Takes everything from a field element, with the chart of a diagram and the grid of a cross table. A missing
    /// attribute is the format's default, not what a new field has. `engine` is kept as `report`.
    void readFieldElement(RptEngine *engine, const QDomElement &element);
    /// A new field, the caller's, with all values but `parentCrossTab`, `chart` and `crossTab`.
    RptFieldObject *clone() const;
    bool isCrossTabCell() const { return parentCrossTab != nullptr; }
    /// Sets the colour in force and the one that highlighting falls back to.
    void setDefaultFontColor(const QColor &color);
    void setDefaultBackgroundColor(const QColor &color);
    void setAbsoluteTop(int top) { absoluteTop = top; }
    /// Sets font and colours in force by the field's highlighting, for the engine's current record. Nothing without an
    /// engine.
    void refreshStyle();
    /// The chart's data: a record for each line, for each set of bars, or for a whole pie. Empty without a chart or a
    /// series.
    GraphDataList graphData() const;
    /// Puts data into the chart, unless the template says that they stay as they are: record by record into the lines
    /// or the pie of that position, or as new sets into the first series of bars. Records beyond the last series are
    /// left out. Without any record the first series is only shown anew; bars are then empty.
    void applyGraphData(const GraphDataList &data);
    /// What the field is in HTML: the style attribute of a label, the whole element of an image, else nothing. An
    /// `autoHeight` field takes the band's height first, for good.
    QString htmlStyle();

    QString name;
    QString value; ///< text with tokens
    QRect rect;
    // The side attributes are switches: a side is drawn, in `borderColor`, unless its own colour is white.
    QColor borderTop = Qt::black;
    QColor borderBottom = Qt::black;
    QColor borderLeft = Qt::black;
    QColor borderRight = Qt::black;
    QColor borderColor = Qt::black;
    QColor fontColor = Qt::black; ///< in force for the current record
    QColor backgroundColor = Qt::white; ///< in force for the current record
    int borderWidth = 1; ///< factor of the pen's width
    bool autoHeight = false;
    bool textWrap = true;
    int rotate = 0; ///< 0 to 3, quarter turns
    Qt::Alignment aligment = Qt::AlignLeft | Qt::AlignVCenter;
    QString borderStyle;
    QFont font;
    int fieldType = Rpt::label;
    QString formatString; ///< of numbers
    QString highlighting; ///< conditional style
    QString imgFormat; ///< name for the image decoder
    QString printing = QStringLiteral("1"); ///< condition
    int barcodeType = 13;
    int barcodeFrameType = 0;
    int barcodeHeight = 50;
    int ignoreAspectRatio = 1;
    QByteArray picture; ///< an image file's bytes
    RptBandObject *parentBand = nullptr;
    RptCrossTabObject *parentCrossTab = nullptr; ///< of a cell only
    QtCharts::QChart *chart = nullptr; ///< of a diagram only; not deleted with the field
    int lineStartX = 0;
    int lineEndX = 0;
    int lineStartY = 0;
    int lineEndY = 0;
    bool arrowStart = false;
    bool arrowEnd = false;
    RptCrossTabObject *crossTab = nullptr; ///< of a cross table only; owned
    QColor defaultFontColor = Qt::black;
    QColor defaultBackgroundColor = Qt::white;
    int recNo = 0; ///< record of the current paint
    int reportPage = 0; ///< page definition of the current paint
    int absoluteTop = 0; ///< top on the page for the current paint
    RptEngine *report = nullptr;

private:
    void takeOwnStyle();
    RptFieldObject(const RptFieldObject &) = default; ///< with what is owned: for `clone`, which takes that out
    void readChart(const QDomElement &element);
    void readCrossTab(const QDomElement &element);
};

/// The field's name, for diagnosis.
QDebug operator<<(QDebug stream, const RptFieldObject &field);
