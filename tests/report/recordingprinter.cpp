#include "recordingprinter.h"

#include <QPainterPath>

#include <algorithm>

RecordingEngine::RecordingEngine()
    : QPaintEngine(AllFeatures)
{
}

bool RecordingEngine::begin(QPaintDevice * /*device*/)
{
    marks.clear();
    page = 1;
    m_state = QPrinter::Active;
    setActive(true);
    return true;
}

bool RecordingEngine::end()
{
    m_state = QPrinter::Idle;
    setActive(false);
    return true;
}

void RecordingEngine::updateState(const QPaintEngineState &painterState)
{
    const DirtyFlags dirty = painterState.state();
    if (dirty & DirtyPen)
        m_pen = painterState.pen();
    if (dirty & DirtyBrush)
        m_brush = painterState.brush();
    if (dirty & DirtyFont)
        m_font = painterState.font();
    if (dirty & DirtyTransform)
        m_transform = painterState.transform();
    if (dirty & DirtyClipPath)
        m_clip = painterState.clipOperation() == Qt::NoClip ? QRectF() : painterState.clipPath().boundingRect();
    if (dirty & DirtyClipRegion)
        m_clip =
            painterState.clipOperation() == Qt::NoClip ? QRectF() : QRectF(painterState.clipRegion().boundingRect());
    if (dirty & DirtyClipEnabled && !painterState.isClipEnabled())
        m_clip = QRectF();
}

Mark &RecordingEngine::add(Mark::Kind kind)
{
    marks.append(Mark{kind, page, {}, {}, m_pen, m_brush, m_font, m_transform, m_clip, {}});
    return marks.last();
}

void RecordingEngine::drawRects(const QRectF *rects, int count)
{
    std::for_each(rects, rects + count, [this](const QRectF &rect) { add(Mark::Rect).rect = rect; });
}

void RecordingEngine::drawLines(const QLineF *lines, int count)
{
    std::for_each(lines, lines + count, [this](const QLineF &line) {
        Mark &mark = add(Mark::Line);
        mark.points = {line.p1(), line.p2()};
        mark.rect = QRectF(line.p1(), line.p2());
    });
}

void RecordingEngine::drawEllipse(const QRectF &rect)
{
    add(Mark::Ellipse).rect = rect;
}

void RecordingEngine::drawPath(const QPainterPath &path)
{
    Mark &mark = add(Mark::Path);
    mark.rect = path.boundingRect();
    mark.isStroked = m_pen.style() != Qt::NoPen;
    for (int element = 0; element < path.elementCount(); ++element)
        mark.points.append(path.elementAt(element));
}

void RecordingEngine::drawPolygon(const QPointF *points, int count, PolygonDrawMode /*mode*/)
{
    Mark &mark = add(Mark::Polygon);
    std::copy(points, points + count, std::back_inserter(mark.points));
    mark.rect = QPolygonF(mark.points).boundingRect();
}

void RecordingEngine::drawPixmap(const QRectF &target, const QPixmap & /*pixmap*/, const QRectF & /*source*/)
{
    add(Mark::Pixmap).rect = target;
}

void RecordingEngine::drawImage(const QRectF &target, const QImage & /*image*/, const QRectF & /*source*/,
                                Qt::ImageConversionFlags /*flags*/)
{
    add(Mark::Image).rect = target;
}

void RecordingEngine::drawTextItem(const QPointF &position, const QTextItem &item)
{
    Mark &mark = add(Mark::Text);
    mark.rect = QRectF(position, QSizeF());
    mark.text = item.text();
    mark.font = item.font();
}

void RecordingEngine::setProperty(PrintEnginePropertyKey key, const QVariant &value)
{
    switch (key) {
    case PPK_QPageLayout:
        m_layout = value.value<QPageLayout>();
        break;
    case PPK_QPageSize:
        m_layout.setPageSize(value.value<QPageSize>());
        break;
    case PPK_QPageMargins: {
        const auto margins = value.value<QPair<QMarginsF, QPageLayout::Unit>>();
        m_layout.setUnits(margins.second);
        m_layout.setMargins(margins.first);
        break;
    }
    default:
        m_properties.insert(key, value);
        break;
    }
}

QVariant RecordingEngine::property(PrintEnginePropertyKey key) const
{
    if (key == PPK_QPageLayout)
        return QVariant::fromValue(m_layout);
    if (key == PPK_QPageSize)
        return QVariant::fromValue(m_layout.pageSize());
    return m_properties.value(key);
}

bool RecordingEngine::newPage()
{
    ++page;
    return true;
}

int RecordingEngine::metric(QPaintDevice::PaintDeviceMetric metric) const
{
    const int resolution = m_properties.value(PPK_Resolution, 1200).toInt();
    const QRect area = m_layout.paintRectPixels(resolution);
    switch (metric) {
    case QPaintDevice::PdmWidth:
        return area.width();
    case QPaintDevice::PdmHeight:
        return area.height();
    case QPaintDevice::PdmWidthMM:
        return int(m_layout.paintRect(QPageLayout::Millimeter).width());
    case QPaintDevice::PdmHeightMM:
        return int(m_layout.paintRect(QPageLayout::Millimeter).height());
    case QPaintDevice::PdmDpiX:
    case QPaintDevice::PdmDpiY:
    case QPaintDevice::PdmPhysicalDpiX:
    case QPaintDevice::PdmPhysicalDpiY:
        return resolution;
    case QPaintDevice::PdmNumColors:
        return INT_MAX;
    case QPaintDevice::PdmDepth:
        return 32;
    case QPaintDevice::PdmDevicePixelRatio:
        return 1;
    case QPaintDevice::PdmDevicePixelRatioScaled:
        return int(QPaintDevice::devicePixelRatioFScale());
    }
    return 0;
}

RecordingPrinter::RecordingPrinter(int dotsPerInch)
    : m_engine(std::make_unique<RecordingEngine>())
{
    setEngines(m_engine.get(), m_engine.get());
    m_engine->setProperty(QPrintEngine::PPK_Resolution, dotsPerInch);
}

RecordingPrinter::~RecordingPrinter() = default;

const QVector<Mark> &RecordingPrinter::marks() const
{
    return m_engine->marks;
}

QVector<Mark> RecordingPrinter::marks(Mark::Kind kind) const
{
    QVector<Mark> found;
    std::copy_if(marks().cbegin(), marks().cend(), std::back_inserter(found),
                 [kind](const Mark &mark) { return mark.kind == kind; });
    return found;
}

QStringList RecordingPrinter::texts() const
{
    QStringList lines;
    const QVector<Mark> allMarks = marks(Mark::Text);
    for (const Mark &mark : allMarks)
        lines.append(QStringLiteral("%1: ").arg(mark.page) + mark.text);
    return lines;
}

int RecordingPrinter::pages() const
{
    return m_engine->page;
}
