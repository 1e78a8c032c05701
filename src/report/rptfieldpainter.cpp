#include "report/rptfieldpainter.h"

#include "report/boundedint.h"
#include "report/deviceunits.h"
#include "report/rptattributes.h"
#include "report/rptbandobject.h"
#include "report/rptcrosstabobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"
#include "report/rptlayout.h"
#include "report/rptprintstate.h"

#include <QBuffer>
#include <QChart>
#include <QChartView>
#include <QDebug>
#include <QGraphicsLayout>
#include <QLegend>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr double cornerRadius = 40.0;
constexpr double arrowSize = 10.0;
constexpr double pi = 3.14159265358979323846;

/// The pen's width counts five times on a printer's resolution.
constexpr int printerPenFactor = 5;

/// Each page that a cross table adds is painted from within the one before it.
constexpr int mostCrossTabPages = 300;

bool isWhite(const QColor &color)
{
    return color.red() == 255 && color.green() == 255 && color.blue() == 255;
}

bool isOpaqueWhite(const QColor &color)
{
    return isWhite(color) && color.alpha() == 255;
}

/// A side is drawn unless its own colour is white, opaque or not there at all.
bool isSideDrawn(const QColor &side)
{
    return !isWhite(side) || (side.alpha() != 255 && side.alpha() != 0);
}

bool isShape(int fieldType)
{
    return fieldType >= Rpt::reactangle && fieldType <= Rpt::rhombus;
}

bool hasFrame(int fieldType)
{
    switch (fieldType) {
    case Rpt::label:
    case Rpt::labelImage:
    case Rpt::textRich:
    case Rpt::line:
    case Rpt::DatabaseImage:
        return true;
    default:
        return false;
    }
}

QByteArray pngOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

RptFieldPainter::RptFieldPainter(RptEngine &engine, RptLayout &layout)
    : m_engine(engine)
    , m_layout(layout)
    , m_state(*engine.m_state)
{
}

bool RptFieldPainter::isActive() const
{
    return m_state.painter->isActive();
}

/// The width lacks the unit that the height has; templates are laid out with it.
QRect RptFieldPainter::deviceRect(const RptFieldObject &field, qint64 bandY) const
{
    // The edges of a field may be any numbers, and so may their differences.
    const double left = field.rect.left();
    const double top = field.rect.top();
    const double ownHeight = double(field.rect.bottom()) - top + 1;
    const double height = field.autoHeight && field.parentBand ? field.parentBand->height : ownHeight;
    return {deviceUnits(left, m_state.scaleX), deviceUnits(top + double(bandY), m_state.scaleY),
            deviceUnits(double(field.rect.right()) - left, m_state.scaleX), deviceUnits(height, m_state.scaleY)};
}

QPen RptFieldPainter::borderPen(const RptFieldObject &field) const
{
    QPen pen = m_state.painter->pen();
    const int factor = m_state.printerMode == QPrinter::ScreenResolution ? 1 : printerPenFactor;
    pen.setWidth(boundedInt(qint64(field.borderWidth) * factor));
    if (!field.borderStyle.isEmpty())
        pen.setStyle(RptAttributes::penStyle(field.borderStyle));
    pen.setColor(field.borderColor);
    return pen;
}

void RptFieldPainter::measureField(RptFieldObject &field, qint64 bandY)
{
    field.recNo = m_state.recNo;
    field.reportPage = m_state.pageReport;
    emit m_engine.setField(field);
    // Nothing else has a measure that anything depends on.
    const bool grows = field.fieldType == Rpt::label && field.autoHeight && field.parentBand;
    if (grows && m_engine.fieldIsPrinted(field))
        measureLabel(field, deviceRect(field, bandY));
}

void RptFieldPainter::drawField(RptFieldObject &field, qint64 bandY)
{
    field.recNo = m_state.recNo;
    field.reportPage = m_state.pageReport;
    field.refreshStyle();
    if (!field.isCrossTabCell())
        emit m_engine.setField(field);
    if (!m_engine.fieldIsPrinted(field))
        return;
    if (field.isCrossTabCell()) {
        const bool isTotal = field.parentCrossTab->isTotalCell(&field);
        if (!isTotal && !field.parentCrossTab->isHeaderCell(&field))
            emit m_engine.setField(field);
        if (isTotal)
            field.parentCrossTab->computeTotalCell(&field);
    }
    const QRect area = deviceRect(field, bandY);
    field.setAbsoluteTop(deviceUnits(double(float(area.y()) / m_state.scaleY), 1));
    drawByType(field, area);
    if (field.fieldType == Rpt::textRich)
        drawRichText(field, area);
    else if (field.fieldType == Rpt::label)
        drawLabel(field, area);
    else if (field.fieldType == Rpt::crossTab)
        drawCrossTab(field, bandY);
}

void RptFieldPainter::drawByType(RptFieldObject &field, const QRect &area)
{
    if (hasFrame(field.fieldType) && isActive())
        drawFrame(field, area);
    if (isShape(field.fieldType) && isActive())
        drawShape(field, area);
    switch (field.fieldType) {
    case Rpt::labelImage:
    case Rpt::DatabaseImage:
        drawValueImage(field, area);
        break;
    case Rpt::image:
        drawTemplateImage(field, area);
        break;
    case Rpt::diagram:
        drawDiagram(field, area);
        break;
    default:
        break;
    }
}

void RptFieldPainter::drawFrame(const RptFieldObject &field, const QRect &area)
{
    QPainter &painter = *m_state.painter;
    if (!isOpaqueWhite(field.backgroundColor))
        painter.fillRect(QRect(area.x() + 1, area.y() + 1, area.width() - 2, area.height() - 2), field.backgroundColor);
    const QPoint topLeft = area.topLeft();
    const QPoint topRight(area.x() + area.width(), area.y());
    const QPoint bottomLeft(area.x(), area.y() + area.height());
    const QPoint bottomRight(topRight.x(), bottomLeft.y());
    const auto drawSide = [&](const QColor &side, const QPoint &from, const QPoint &to) {
        if (!isSideDrawn(side))
            return;
        painter.setPen(borderPen(field));
        painter.drawLine(from, to);
    };
    drawSide(field.borderTop, topLeft, topRight);
    drawSide(field.borderBottom, bottomLeft, bottomRight);
    drawSide(field.borderLeft, topLeft, bottomLeft);
    drawSide(field.borderRight, topRight, bottomRight);
}

void RptFieldPainter::drawShape(const RptFieldObject &field, const QRect &area)
{
    QPainter &painter = *m_state.painter;
    const QPen pen = borderPen(field);
    painter.setPen(pen);
    const QBrush brush(field.backgroundColor);
    const int x = area.x();
    const int y = area.y();
    const int w = area.width();
    const int h = area.height();
    const QRectF box(x, y, w - 2, h - 2);
    const auto drawPath = [&](const QVector<QPoint> &corners) {
        QPainterPath path;
        path.addPolygon(QPolygon(corners));
        path.closeSubpath();
        painter.strokePath(path, pen);
        painter.fillPath(path, brush);
    };
    painter.setBrush(brush);
    switch (field.fieldType) {
    case Rpt::reactangle:
        painter.drawRect(box);
        break;
    case Rpt::roundedReactangle:
        painter.drawRoundedRect(box, cornerRadius, cornerRadius, Qt::AbsoluteSize);
        break;
    case Rpt::circle:
        painter.drawEllipse(area);
        break;
    case Rpt::triangle:
        drawPath({{x, y + h - 1}, {x + w, y + h - 1}, {x + w / 2, y}});
        break;
    default: // the rhombus
        drawPath({{x + w / 2, y + h - 1}, {x + w, y + h / 2}, {x + w / 2, y + 1}, {x + 1, y + h / 2}});
        break;
    }
    painter.setBrush(Qt::NoBrush);
}

void RptFieldPainter::drawValueImage(RptFieldObject &field, const QRect &area)
{
    const QImage image =
        field.fieldType == Rpt::labelImage ? m_engine.userImage(field.value) : m_engine.databaseImage(field.value);
    if (image.isNull())
        return;
    const QImage scaled = image.scaled(area.size(), Qt::KeepAspectRatio, Qt::FastTransformation);
    QPoint position = area.topLeft();
    if (field.aligment & Qt::AlignHCenter)
        position.rx() += (area.width() - scaled.width()) / 2;
    if (field.aligment & Qt::AlignVCenter)
        position.ry() += (area.height() - scaled.height()) / 2;
    if (isActive())
        m_state.painter->drawImage(position, scaled);
    if (m_state.printMode == Rpt::HtmlMode) {
        field.picture = pngOf(scaled);
        m_state.htmlBody += field.htmlStyle();
    }
}

void RptFieldPainter::drawTemplateImage(RptFieldObject &field, const QRect &area)
{
    const QImage image = QImage::fromData(field.picture, field.imgFormat.toLatin1().constData());
    if (!image.isNull() && isActive()) {
        if (field.ignoreAspectRatio == 1)
            m_state.painter->drawImage(area, image);
        else
            m_state.painter->drawImage(area.topLeft(), image.scaled(area.size(), Qt::KeepAspectRatio));
    }
    if (m_state.printMode == Rpt::HtmlMode)
        m_state.htmlBody += field.htmlStyle();
}

void RptFieldPainter::drawDiagram(RptFieldObject &field, const QRect &area)
{
    if (!field.chart)
        return;
    QtCharts::QChart &chart = *field.chart;
    emit m_engine.setChart(field, chart);
    GraphDataList data = field.graphData();
    emit m_engine.setValueDiagram(data);
    field.applyGraphData(data);
    chart.resize(area.size());
    // Each paint of one chart doubles them again; the charts are made anew for each print.
    const auto doubled = [](QFont font) {
        font.setPointSize(font.pointSize() * 2);
        return font;
    };
    chart.legend()->setFont(doubled(chart.legend()->font()));
    chart.setTitleFont(doubled(chart.titleFont()));

    QtCharts::QChartView view(&chart);
    view.setRenderHint(QPainter::TextAntialiasing);
    // Only a view that is shown is filled by its chart; nobody has to see it. The chart is drawn at the view's size,
    // for which its fonts are made, and enlarged into the field.
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.show();
    chart.layout()->activate();
    if (isActive())
        view.render(m_state.painter, QRectF(area), QRect(QPoint(0, 0), view.viewport()->size()), Qt::KeepAspectRatio);
    view.scene()->removeItem(&chart); // else it would go with the view, and the next page has to paint it again
}

void RptFieldPainter::drawLineField(RptFieldObject &field, qint64 bandY)
{
    drawField(field, bandY);
    if (!isActive() || !m_engine.fieldIsPrinted(field))
        return;
    QPainter &painter = *m_state.painter;
    // Left and top of the field play no part.
    const auto point = [this, bandY](int x, int y) {
        return QPoint(deviceUnits(x, m_state.scaleX), deviceUnits(double(bandY) + y, m_state.scaleY));
    };
    const QPoint start = point(field.lineStartX, field.lineStartY);
    const QPoint end = point(field.lineEndX, field.lineEndY);
    painter.setPen(borderPen(field));
    const QLine line(start, end);
    painter.drawLine(line);

    const double length = std::hypot(line.dx(), line.dy());
    double angle = length > 0 ? std::acos(line.dx() / length) : 0;
    if (line.dy() >= 0)
        angle = 2 * pi - angle;
    const int size = deviceUnits(arrowSize, m_state.scaleX);
    painter.setBrush(field.borderColor);
    if (field.arrowStart)
        drawArrow(start, angle + pi / 3, angle + pi - pi / 3, size);
    if (field.arrowEnd)
        drawArrow(end, angle - pi / 3, angle - pi + pi / 3, size);
    painter.setBrush(Qt::NoBrush);
}

void RptFieldPainter::drawArrow(const QPointF &tip, double firstAngle, double secondAngle, int size)
{
    const auto corner = [&tip, size](double angle) {
        return tip + QPointF(std::sin(angle) * size, std::cos(angle) * size);
    };
    m_state.painter->drawPolygon(QPolygonF({tip, corner(firstAngle), corner(secondAngle)}));
}

void RptFieldPainter::drawCrossTab(RptFieldObject &field, qint64 bandY)
{
    RptCrossTabObject &table = *field.crossTab;
    if (m_state.curPage == 1)
        table.buildCells();
    const int rows = table.visibleRowCount();
    int previousRow = -1;
    int rowOnPage = -1;
    bool isFull = false;
    for (int index = table.processedCount; index < table.fieldList.size(); ++index) {
        RptFieldObject &cell = *table.fieldList.at(index);
        const int row = table.cellRow(&cell, true);
        if (row != previousRow)
            ++rowOnPage;
        isFull = rowOnPage >= rows;
        if (isFull)
            break;
        const qint64 top = qint64(table.rowHeight) * rowOnPage + field.rect.top();
        cell.rect.setTop(boundedInt(top));
        cell.rect.setBottom(boundedInt(top + table.rowHeight - 1));
        drawField(cell, bandY);
        ++table.processedCount;
        previousRow = row;
    }
    const int bandType = field.parentBand ? field.parentBand->type : 0;
    const bool repeats = bandType == Rpt::PageHeader || bandType == Rpt::PageFooter;
    if (!isFull || !repeats || m_state.curPage < m_state.totalPage)
        return;
    if (previousRow < 0 || m_crossTabPages >= mostCrossTabPages) {
        qWarning("Cross table %s does not end", qPrintable(field.name)); // not one row fits, or far too many pages
        return;
    }
    ++m_crossTabPages;
    // What is left goes on with the same band of the following page.
    if (bandType == Rpt::PageHeader)
        m_layout.paintPageFooter(true);
    m_layout.beginNextPage(bandY, true, false);
    --m_crossTabPages;
}
