#pragma once

#include <QBrush>
#include <QFont>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPen>
#include <QPrintEngine>
#include <QPrinter>
#include <QTransform>
#include <QVector>

#include <memory>

/// One thing that was drawn, with the state of the painter at that moment. Positions are logical ones, before
/// `transform`.
struct Mark {
    enum Kind { Text, Rect, Line, Ellipse, Path, Polygon, Image, Pixmap };

    Kind kind;
    int page; ///< from 1
    QRectF rect; ///< of a text: its baseline's start, with no size; of a line: from top left to bottom right point
    QString text;
    QPen pen;
    QBrush brush;
    QFont font;
    QTransform transform;
    QRectF clip; ///< bounds of what is not clipped away; null without a clip
    QVector<QPointF> points; ///< of a line, a polygon or a path
    bool isStroked = true; ///< of a path
};

/// Writes down what is painted, as marks, page by page.
class RecordingEngine : public QPaintEngine, public QPrintEngine {
public:
    RecordingEngine();

    bool begin(QPaintDevice *device) override;
    bool end() override;
    void updateState(const QPaintEngineState &painterState) override;
    void drawRects(const QRectF *rects, int count) override;
    void drawLines(const QLineF *lines, int count) override;
    void drawEllipse(const QRectF &rect) override;
    void drawPath(const QPainterPath &path) override;
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF &target, const QPixmap &pixmap, const QRectF &source) override;
    void drawImage(const QRectF &target, const QImage &image, const QRectF &source,
                   Qt::ImageConversionFlags flags) override;
    void drawTextItem(const QPointF &position, const QTextItem &item) override;
    Type type() const override { return User; }

    void setProperty(PrintEnginePropertyKey key, const QVariant &value) override;
    QVariant property(PrintEnginePropertyKey key) const override;
    bool newPage() override;
    bool abort() override { return false; }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override;
    QPrinter::PrinterState printerState() const override { return m_state; }

    QVector<Mark> marks;
    int page = 0;

private:
    Mark &add(Mark::Kind kind);

    QPageLayout m_layout{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)};
    QHash<int, QVariant> m_properties;
    QPrinter::PrinterState m_state = QPrinter::Idle;
    QPen m_pen;
    QBrush m_brush;
    QFont m_font;
    QTransform m_transform;
    QRectF m_clip;
};

/// A printer that writes down what is printed on it, at any resolution.
class RecordingPrinter : public QPrinter {
public:
    explicit RecordingPrinter(int dotsPerInch = 1200);
    ~RecordingPrinter() override;
    Q_DISABLE_COPY(RecordingPrinter)

    /// What the last print drew.
    const QVector<Mark> &marks() const;
    QVector<Mark> marks(Mark::Kind kind) const;
    /// "page: text" of every text, in the order of drawing.
    QStringList texts() const;
    /// Pages of the last print.
    int pages() const;

private:
    std::unique_ptr<RecordingEngine> m_engine;
};
