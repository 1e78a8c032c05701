#include "board/menudelegate.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

class TestMenuDelegate : public QObject {
    Q_OBJECT

private slots:
    void init();
    void pixels_data();
    void pixels();
    void commandsInOrder_data();
    void commandsInOrder();
    void painterIsLeftAsItWas();
    void ownBackgroundComesOnTop();

private:
    QStyleOptionViewItem option() const;
    void paint(QPaintDevice *device, const QModelIndex &index) const;

    QStandardItemModel m_model;
};

namespace {

const QRect cell(10, 5, 160, 20);

/// Records the filled and the outlined rectangles, and that a text was drawn, in order.
class RecordingEngine : public QPaintEngine {
public:
    RecordingEngine()
        : QPaintEngine(AllFeatures)
    {
    }
    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &changed) override
    {
        if (changed.state() & DirtyPen)
            m_pen = changed.pen();
        if (changed.state() & DirtyBrush)
            m_brush = changed.brush();
    }
    void drawRects(const QRectF *rects, int count) override
    {
        for (int i = 0; i < count; ++i)
            lines.append(QStringLiteral("%1 %2").arg(m_pen.style() == Qt::NoPen ? fill() : outline(), text(rects[i])));
    }
    void drawRects(const QRect *rects, int count) override
    {
        for (int i = 0; i < count; ++i) {
            const QRectF rect(rects[i]);
            drawRects(&rect, 1);
        }
    }
    void drawPixmap(const QRectF & /*rect*/, const QPixmap & /*pixmap*/, const QRectF & /*source*/) override { }
    void drawPolygon(const QPointF * /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override { }
    void drawTextItem(const QPointF & /*at*/, const QTextItem &item) override { lines.append("text " + item.text()); }
    Type type() const override { return User; }

    QStringList lines;

private:
    QString fill() const { return "fill " + m_brush.color().name(); }
    QString outline() const
    {
        return QStringLiteral("outline %1 width %2 style %3 cap %4 join %5")
            .arg(m_pen.color().name())
            .arg(m_pen.width())
            .arg(m_pen.style())
            .arg(m_pen.capStyle())
            .arg(m_pen.joinStyle());
    }
    static QString text(const QRectF &rect)
    {
        return QStringLiteral("%1,%2 %3x%4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }

    QPen m_pen;
    QBrush m_brush;
};

class RecordingDevice : public QPaintDevice {
public:
    QPaintEngine *paintEngine() const override { return &engine; }
    mutable RecordingEngine engine;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 200;
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }
};

} // namespace

void TestMenuDelegate::init()
{
    m_model.clear();
    for (const char *name : {"Polievky", "Gulášová"})
        m_model.appendRow({new QStandardItem(QString::fromUtf8(name)), new QStandardItem(QStringLiteral("3"))});
    QFont bold;
    bold.setWeight(QFont::Bold);
    m_model.item(0, 0)->setFont(bold);
}

QStyleOptionViewItem TestMenuDelegate::option() const
{
    QStyleOptionViewItem option;
    option.rect = cell;
    option.state = QStyle::State_Enabled;
    return option;
}

void TestMenuDelegate::paint(QPaintDevice *device, const QModelIndex &index) const
{
    QPainter painter(device);
    MenuDelegate().paint(&painter, option(), index);
}

void TestMenuDelegate::pixels_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("heading") << 0 << 0 << QColor(0xa5, 0xe5, 0xff);
    QTest::newRow("another cell of a heading's row") << 0 << 1 << QColor(0xa5, 0xe5, 0xff);
    QTest::newRow("food") << 1 << 0 << QColor(Qt::white);
    QTest::newRow("another cell of a food's row") << 1 << 1 << QColor(Qt::white);
}

void TestMenuDelegate::pixels()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QColor, colour);
    m_model.item(row, column)->setText(QString());
    QImage image(200, 50, QImage::Format_RGB32);
    image.fill(Qt::black);
    paint(&image, m_model.index(row, column));
    QCOMPARE(image.pixelColor(cell.topLeft()), QColor(Qt::black));
    QCOMPARE(image.pixelColor(cell.topLeft() + QPoint(1, 1)), colour);
    QCOMPARE(image.pixelColor(cell.center()), colour);
    QCOMPARE(image.pixelColor(cell.bottomRight() - QPoint(1, 1)), colour);
    QCOMPARE(image.pixelColor(cell.left() - 1, cell.center().y()), QColor(Qt::black));
    QCOMPARE(image.pixelColor(cell.center().x(), cell.bottom() + 1), QColor(Qt::black));
}

void TestMenuDelegate::commandsInOrder_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("commands");
    const QString rect = "11,6 158x18";
    QTest::newRow("heading") << 0
                             << QStringList{"fill #a5e5ff " + rect,
                                            "outline #a5e5ff width 1 style 1 cap 16 join 64 " + rect, "text Polievky"};
    QTest::newRow("food") << 1
                          << QStringList{"fill #ffffff " + rect,
                                         "outline #ffffff width 1 style 1 cap 16 join 64 " + rect, "text Gulášová"};
}

void TestMenuDelegate::commandsInOrder()
{
    QFETCH(int, row);
    RecordingDevice device;
    paint(&device, m_model.index(row, 0));
    QTEST(device.engine.lines, "commands");
}

void TestMenuDelegate::painterIsLeftAsItWas()
{
    QImage image(200, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::red, 3));
    painter.setBrush(Qt::green);
    MenuDelegate().paint(&painter, option(), m_model.index(0, 0));
    QCOMPARE(painter.pen(), QPen(Qt::red, 3));
    QCOMPARE(painter.brush().color(), QColor(Qt::green));
}

void TestMenuDelegate::ownBackgroundComesOnTop()
{
    m_model.item(1, 0)->setText(QString());
    m_model.item(1, 0)->setBackground(QColor(255, 0, 0));
    QImage image(200, 50, QImage::Format_RGB32);
    paint(&image, m_model.index(1, 0));
    QCOMPARE(image.pixelColor(cell.center()), QColor(255, 0, 0));
}

QTEST_MAIN(TestMenuDelegate)
#include "tst_menudelegate.moc"
