#include "recordingprinter.h"
#include "report/rptbandobject.h"
#include "report/rptcrosstabobject.h"
#include "report/rptfieldobject.h"
#include "reporttemplate.h"

#include <QBuffer>
#include <QDesktopServices>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

/// A field with these attributes, at 10, 20 with a size of 100 x 40 units.
QString field(const QString &type, const QString &more = QString())
{
    return QStringLiteral("<TContainerField type=\"%1\" left=\"10\" top=\"20\" width=\"100\" height=\"40\" "
                          "fontSize=\"9\" fontFamily=\"DejaVu Sans\" fontColor=\"rgba(1,2,3,255)\" ")
               .arg(type)
        + more + QStringLiteral("/>");
}

const char *const noFrame = " borderTop=\"rgba(255,255,255,255)\" borderBottom=\"rgba(255,255,255,0)\" "
                            "borderLeft=\"rgba(255,255,255,255)\" borderRight=\"rgba(255,255,255,255)\" "
                            "backgroundColor=\"rgba(255,255,255,255)\" ";

QString frameless(const QString &type, const QString &more)
{
    return field(type, QLatin1String(noFrame) + more);
}

/// The device values of `field` in a band whose top is `bandTop`, as the engine works them out.
struct Device {
    explicit Device(const RecordingPrinter &printer, int bandTop = 0)
    {
        const QRect area = printer.pageLayout().paintRectPixels(printer.resolution());
        scaleX = float(area.width()) / 760.0F;
        scaleY = float(area.height()) / 1108.0F;
        x = int(10 * scaleX);
        y = int(float(20 + bandTop) * scaleY);
        w = int(99 * scaleX); // right minus left edge, one less than the width
        h = int(40 * scaleY);
    }
    float scaleX;
    float scaleY;
    int x;
    int y;
    int w;
    int h;
};

QByteArray png(const QSize &size, const QColor &color = Qt::red)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

/// That of the present run.
int resolution()
{
    QFETCH_GLOBAL(int, resolution);
    return resolution;
}

} // namespace

/// The marks of each type of field, against the formulas worked out by hand, at several resolutions.
class TestRptFieldPainter : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void label();
    void labelAlignments_data();
    void labelAlignments();
    void rotations_data();
    void rotations();
    void unknownRotationPaintsNoText();
    void fill_data();
    void fill();
    void sides();
    void penOfScreenAndPrinter();
    void shapes_data();
    void shapes();
    void lines_data();
    void lines();
    void arrows();
    void templateImage_data();
    void templateImage();
    void callersImage_data();
    void callersImage();
    void brokenImages();
    void richText();
    void barcodePaintsNothing();
    void unprintedFieldLeavesNoMark();
    void fieldsPrintInTheOrderOfTheFile();
    void callerChangesAField();
    void highlighting();
    void crossTab();
    void crossTabGoesOnOnTheNextPage();
    void crossTabWithoutRoomEnds();
    void diagram();
    void html();

private:
    static void print(ReportRun &run, RecordingPrinter &printer);
};

void TestRptFieldPainter::print(ReportRun &run, RecordingPrinter &printer)
{
    run.engine.printPreview(&printer);
}

/// Every test runs at each of these resolutions, in dots per inch.
void TestRptFieldPainter::initTestCase_data()
{
    QTest::addColumn<int>("resolution");
    for (const int resolution : {96, 300, 1200})
        QTest::newRow(qPrintable(QString::number(resolution))) << resolution;
}

void TestRptFieldPainter::label()
{
    ReportRun run(page(band("ReportTitle", 100,
                            frameless("label",
                                      "value=\"Guláš\" aligmentH=\"hLeft\" aligmentV=\"vTop\" "
                                      "fontBold=\"1\" fontItalic=\"1\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.marks().size(), 1); // no frame and no fill
    const Mark &mark = printer.marks().first();
    const Device device(printer);
    QCOMPARE(mark.kind, Mark::Text);
    QCOMPARE(mark.text, QStringLiteral("Guláš"));
    QCOMPARE(mark.pen.color(), QColor(1, 2, 3));
    QCOMPARE(mark.font.pointSize(), 9);
    QVERIFY(mark.font.bold());
    QVERIFY(mark.font.italic());
    QCOMPARE(mark.rect.left(), double(device.x + 10)); // whatever the resolution
    QFont font(QStringLiteral("DejaVu Sans"), 9);
    font.setWeight(75);
    font.setItalic(true);
    QVERIFY(qAbs(mark.rect.top() - (device.y + QFontMetricsF(font, &printer).ascent())) <= 1.5);
}

void TestRptFieldPainter::labelAlignments_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<double>("across"); // where in the room the text lies: 0 at its left, 1 at its right
    QTest::addColumn<double>("down");
    const QVector<QPair<QString, double>> horizontal{{"hLeft", 0}, {"hCenter", 0.5}, {"hRight", 1}};
    const QVector<QPair<QString, double>> vertical{{"vTop", 0}, {"vCenter", 0.5}, {"vBottom", 1}};
    for (const auto &h : horizontal) {
        for (const auto &v : vertical)
            QTest::newRow(qPrintable(h.first + v.first))
                << QStringLiteral("aligmentH=\"%1\" aligmentV=\"%2\"").arg(h.first, v.first) << h.second << v.second;
    }
}

void TestRptFieldPainter::labelAlignments()
{
    QFETCH(QString, attributes);
    QFETCH(double, across);
    QFETCH(double, down);
    ReportRun run(page(band("ReportTitle", 100, frameless("label", "value=\"Guláš\" " + attributes))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device device(printer);
    const Mark &mark = printer.marks().first();
    const QFontMetricsF metrics(mark.font, &printer);
    const double left = device.x + 10 + across * (device.w - 15 - metrics.horizontalAdvance(mark.text));
    const double baseline = device.y + down * (device.h - metrics.height()) + metrics.ascent();
    QVERIFY2(qAbs(mark.rect.left() - left) <= 2, qPrintable(QString::number(mark.rect.left() - left)));
    QVERIFY2(qAbs(mark.rect.top() - baseline) <= 2, qPrintable(QString::number(mark.rect.top() - baseline)));
}

void TestRptFieldPainter::rotations_data()
{
    QTest::addColumn<int>("rotate");
    for (const int rotate : {1, 2, 3})
        QTest::newRow(qPrintable(QString::number(rotate))) << rotate;
}

void TestRptFieldPainter::rotations()
{
    QFETCH(int, rotate);
    ReportRun run(
        page(band("PageHeader", 200, QString())
             + band("ReportTitle", 100, frameless("label", QStringLiteral("value=\"x\" rotate=\"%1\"").arg(rotate)))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device device(printer, 200);
    QTransform expected;
    if (rotate == 1)
        expected.translate(device.x + device.w, device.h).rotate(90); // at the head of the page
    else if (rotate == 2)
        expected.translate(device.x + device.w, device.y + device.h).rotate(180);
    else
        expected.translate(device.x, device.y + device.h).rotate(-90);
    QCOMPARE(printer.marks().first().transform, expected);
    QCOMPARE(printer.marks().first().rect.left(), 0.0); // no indent
}

void TestRptFieldPainter::unknownRotationPaintsNoText()
{
    for (const char *rotate : {"4", "-1", "99999999999"}) {
        ReportRun run(
            page(band("ReportTitle", 100,
                      frameless("label", QStringLiteral("value=\"x\" rotate=\"%1\"").arg(QLatin1String(rotate))))));
        RecordingPrinter printer(resolution());
        print(run, printer);
        // A text that is no number in 32 bits reads as 0.
        QCOMPARE(printer.marks().size(), QByteArray(rotate) == "99999999999" ? 1 : 0);
    }
}

void TestRptFieldPainter::fill_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<bool>("isFilled");
    QTest::newRow("grey") << "rgba(235,235,235,255)" << true;
    QTest::newRow("opaque white") << "rgba(255,255,255,255)" << false; // does not hide a stripe
    QTest::newRow("transparent white") << "rgba(255,255,255,0)" << true; // with nothing
}

void TestRptFieldPainter::fill()
{
    QFETCH(QString, color);
    QFETCH(bool, isFilled);
    QString text = frameless("label", "");
    text.replace("backgroundColor=\"rgba(255,255,255,255)\"", QStringLiteral("backgroundColor=\"%1\"").arg(color));
    ReportRun run(page(band("ReportTitle", 100, text)));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device device(printer);
    const QVector<Mark> rects = printer.marks(Mark::Rect);
    if (!isFilled || color.endsWith(QLatin1String(",0)"))) {
        QVERIFY(rects.isEmpty() || rects.first().brush.color().alpha() == 0);
        return;
    }
    QCOMPARE(rects.size(), 1);
    QCOMPARE(rects.first().rect, QRectF(device.x + 1, device.y + 1, device.w - 2, device.h - 2));
    QCOMPARE(rects.first().brush.color(), QColor(235, 235, 235));
}

void TestRptFieldPainter::sides()
{
    ReportRun run(page(band("ReportTitle", 100,
                            field("label",
                                  "borderTop=\"rgba(1,1,1,255)\" borderBottom=\"rgba(2,2,2,255)\" "
                                  "borderLeft=\"rgba(255,255,255,0)\" borderRight=\"rgba(4,4,4,255)\" "
                                  "borderColor=\"rgba(200,100,50,255)\" borderWidth=\"3px\" borderStyle=\"dotted\" "
                                  "backgroundColor=\"rgba(255,255,255,255)\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device device(printer);
    const QVector<Mark> lines = printer.marks(Mark::Line);
    QCOMPARE(lines.size(), 3);
    const double right = device.x + device.w;
    const double bottom = device.y + device.h;
    QCOMPARE(lines.at(0).points, (QVector<QPointF>{{double(device.x), double(device.y)}, {right, double(device.y)}}));
    QCOMPARE(lines.at(1).points, (QVector<QPointF>{{double(device.x), bottom}, {right, bottom}}));
    QCOMPARE(lines.at(2).points, (QVector<QPointF>{{right, double(device.y)}, {right, bottom}}));
    for (const Mark &line : lines) {
        QCOMPARE(line.pen.color(), QColor(200, 100, 50)); // the sides' own colours are switches
        QCOMPARE(line.pen.width(), 15);
        QCOMPARE(line.pen.style(), Qt::DotLine);
    }
}

void TestRptFieldPainter::penOfScreenAndPrinter()
{
    ReportRun run(page(band("ReportTitle", 100, field("reactangle", "borderWidth=\"2\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.marks(Mark::Rect).constFirst().pen.width(), 10);
    run.engine.setPrinterMode(QPrinter::ScreenResolution);
    print(run, printer);
    QCOMPARE(printer.marks(Mark::Rect).constFirst().pen.width(), 2);
}

void TestRptFieldPainter::shapes_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("reactangle") << int(Mark::Rect);
    QTest::newRow("roundedReactangle") << int(Mark::Path);
    QTest::newRow("circle") << int(Mark::Ellipse);
    QTest::newRow("triangle") << int(Mark::Path);
    QTest::newRow("rhombus") << int(Mark::Path);
}

void TestRptFieldPainter::shapes()
{
    QFETCH(int, kind);
    const QString type = QTest::currentDataTag();
    ReportRun run(page(
        band("ReportTitle", 100, field(type, "backgroundColor=\"rgba(9,8,7,255)\" borderColor=\"rgba(6,5,4,255)\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    const QVector<Mark> marks = printer.marks();
    QVERIFY(!marks.isEmpty());
    QCOMPARE(int(marks.first().kind), kind);
    QCOMPARE(marks.first().pen.color(), QColor(6, 5, 4));
    QCOMPARE(marks.last().brush.color(), QColor(9, 8, 7));
    const auto corners = [&marks] {
        QVector<QPointF> points = marks.first().points;
        points.removeLast(); // back at the start
        return points;
    };
    const double x = d.x;
    const double y = d.y;
    if (type.endsWith(QLatin1String("eactangle")))
        QCOMPARE(marks.first().rect, QRectF(x, y, d.w - 2, d.h - 2));
    if (type == QLatin1String("circle"))
        QCOMPARE(marks.first().rect, QRectF(x, y, d.w, d.h));
    if (type == QLatin1String("triangle")) {
        QCOMPARE(corners(), (QVector<QPointF>{{x, y + d.h - 1}, {x + d.w, y + d.h - 1}, {x + d.w / 2, y}}));
    }
    if (type == QLatin1String("rhombus")) {
        QCOMPARE(corners(),
                 (QVector<QPointF>{
                     {x + d.w / 2, y + d.h - 1}, {x + d.w, y + d.h / 2}, {x + d.w / 2, y + 1}, {x + 1, y + d.h / 2}}));
    }
}

void TestRptFieldPainter::lines_data()
{
    QTest::addColumn<QString>("ends");
    QTest::addColumn<QVector<int>>("units");
    QTest::newRow("down right") << "lineStartX=\"5\" lineStartY=\"6\" lineEndX=\"105\" lineEndY=\"46\""
                                << QVector<int>{5, 6, 105, 46};
    QTest::newRow("level, leftwards") << "lineStartX=\"105\" lineStartY=\"6\" lineEndX=\"5\" lineEndY=\"6\""
                                      << QVector<int>{105, 6, 5, 6};
    QTest::newRow("point") << "lineStartX=\"5\" lineStartY=\"6\" lineEndX=\"5\" lineEndY=\"6\""
                           << QVector<int>{5, 6, 5, 6};
}

void TestRptFieldPainter::lines()
{
    QFETCH(QString, ends);
    QFETCH(QVector<int>, units);
    ReportRun run(page(
        band("PageHeader", 30, QString())
        + band("ReportTitle", 100, frameless("line", ends + " borderColor=\"rgba(9,9,9,255)\" borderWidth=\"2\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    const QVector<Mark> marks = printer.marks();
    QVERIFY(!marks.isEmpty());
    const QPointF start(int(float(units.at(0)) * d.scaleX), int(float(30 + units.at(1)) * d.scaleY));
    const QPointF end(int(float(units.at(2)) * d.scaleX), int(float(30 + units.at(3)) * d.scaleY));
    QCOMPARE(marks.last().kind, Mark::Line);
    QCOMPARE(marks.last().points, (QVector<QPointF>{start, end}));
    QCOMPARE(marks.last().pen.color(), QColor(9, 9, 9));
    QCOMPARE(marks.last().pen.width(), 10);
}

void TestRptFieldPainter::arrows()
{
    ReportRun run(page(band("ReportTitle", 100,
                            frameless("line",
                                      "lineStartX=\"10\" lineStartY=\"50\" lineEndX=\"110\" lineEndY=\"50\" "
                                      "arrowStart=\"1\" arrowEnd=\"1\" borderColor=\"rgba(9,9,9,255)\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    const QVector<Mark> heads = printer.marks(Mark::Polygon);
    QCOMPARE(heads.size(), 2);
    // A level line to the right: the angle is a full turn, so sine and cosine are those of 60 and 120 degrees.
    const int size = int(d.scaleX * 10);
    const double pi = std::acos(-1.0);
    const QPointF start(int(10 * d.scaleX), int(50 * d.scaleY));
    const QPointF end(int(110 * d.scaleX), int(50 * d.scaleY));
    const auto near = [](const QPointF &a, const QPointF &b) { return QLineF(a, b).length() < 0.01; };
    QVERIFY(near(heads.at(0).points.at(0), start));
    QVERIFY(near(heads.at(0).points.at(1), start + QPointF(std::sin(pi / 3) * size, std::cos(pi / 3) * size)));
    QVERIFY(near(heads.at(0).points.at(2), start + QPointF(std::sin(2 * pi / 3) * size, std::cos(2 * pi / 3) * size)));
    QVERIFY(near(heads.at(1).points.at(0), end));
    QVERIFY(near(heads.at(1).points.at(1), end + QPointF(-std::sin(pi / 3) * size, std::cos(pi / 3) * size)));
    QVERIFY(near(heads.at(1).points.at(2), end + QPointF(-std::sin(2 * pi / 3) * size, std::cos(2 * pi / 3) * size)));
    QCOMPARE(heads.at(0).brush.color(), QColor(9, 9, 9));
}

void TestRptFieldPainter::templateImage_data()
{
    QTest::addColumn<QString>("stretch");
    QTest::newRow("stretched by default") << "";
    QTest::newRow("stretched") << "ignoreAspectRatio=\"1\"";
    QTest::newRow("in proportion") << "ignoreAspectRatio=\"0\"";
}

void TestRptFieldPainter::templateImage()
{
    QFETCH(QString, stretch);
    // The picture decides the type, whatever `type` says, unless that is known before it.
    ReportRun run(
        page(band("ReportTitle", 100,
                  field("unknown", stretch + " picture=\"" + QString::fromLatin1(png({20, 20}).toBase64()) + '"'))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    const QVector<Mark> images = printer.marks(Mark::Image);
    QCOMPARE(images.size(), 1);
    QCOMPARE(printer.marks().size(), 1);
    const int side = qMin(d.w, d.h);
    QCOMPARE(images.first().rect,
             stretch.endsWith(QLatin1String("0\"")) ? QRectF(d.x, d.y, side, side) : QRectF(d.x, d.y, d.w, d.h));
}

void TestRptFieldPainter::callersImage_data()
{
    QTest::addColumn<QString>("alignment");
    QTest::addColumn<bool>("centred");
    QTest::newRow("none") << "" << false;
    QTest::newRow("centre") << "aligmentH=\"hCenter\" aligmentV=\"vCenter\"" << true;
}

void TestRptFieldPainter::callersImage()
{
    QFETCH(QString, alignment);
    QFETCH(bool, centred);
    ReportRun run(page(band("ReportTitle", 100, frameless("labelImage", "value=\"[logo]\" " + alignment))));
    QStringList asked;
    connect(&run.engine, &RptEngine::setValueImage, this, [&asked](int, const QString &name, QImage &image, int) {
        asked.append(name);
        image = QImage::fromData(png({30, 10}));
    });
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    QCOMPARE(asked, QStringList{"logo"}); // while painting only
    const QSize size = QSize(30, 10).scaled(d.w, d.h, Qt::KeepAspectRatio);
    QPointF position(d.x, d.y);
    if (centred)
        position += QPointF((d.w - size.width()) / 2, (d.h - size.height()) / 2);
    QCOMPARE(printer.marks(Mark::Image).constFirst().rect, QRectF(position, size));
}

void TestRptFieldPainter::brokenImages()
{
    ReportRun run(
        page(band("ReportTitle", 100,
                  field("image", "picture=\"AAAA\"") + field("image", "picture=\"\"")
                      + frameless("labelImage", "value=\"[none]\"") + frameless("DatabaseImage", "value=\"[x]\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.marks(Mark::Image).size(), 0);
}

void TestRptFieldPainter::richText()
{
    ReportRun run(page(
        band("ReportTitle", 100, frameless("textRich", "value=\"&lt;p&gt;M &lt;b&gt;[day]&lt;/b&gt; k&lt;/p&gt;\""))));
    run.values = {{"day", "po"}};
    RecordingPrinter printer(resolution());
    print(run, printer);
    const Device d(printer);
    QStringList words;
    const QVector<Mark> drawn = printer.marks(Mark::Text);
    for (const Mark &mark : drawn) {
        words.append(mark.text.trimmed());
        QCOMPARE(mark.transform, QTransform::fromTranslate(d.x + 10, d.y));
        QCOMPARE(mark.clip, QRectF(0, 0, d.w - 15, d.h));
    }
    QCOMPARE(words.join(' '), QStringLiteral("M po k"));
}

void TestRptFieldPainter::barcodePaintsNothing()
{
    ReportRun run(
        page(band("ReportTitle", 100, field("barcode", "value=\"123\" backgroundColor=\"rgba(1,1,1,255)\""))));
    int offered = 0;
    connect(&run.engine, &RptEngine::setField, this, [&offered] { ++offered; });
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.marks().size(), 0);
    QVERIFY(offered > 0);
}

void TestRptFieldPainter::unprintedFieldLeavesNoMark()
{
    ReportRun run(page(band("MasterData", 100,
                            frameless("label", "value=\"[0]\" printing=\"[show] == 1?1:0\"")
                                + frameless("label", "value=\"never\" printing=\"0\""))));
    run.counts = {{1, 3}};
    run.values = {{"0", "row %1"}};
    run.lists = {{"show", {"1", "0", "1"}}};
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.texts(), (QStringList{"1: row 0", "1: row 2"}));
}

void TestRptFieldPainter::fieldsPrintInTheOrderOfTheFile()
{
    ReportRun run(
        page(band("ReportTitle", 100,
                  frameless("label", "value=\"b\" ZValue=\"9\"") + frameless("label", "value=\"a\" ZValue=\"1\""))));
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.texts(), (QStringList{"1: b", "1: a"}));
}

void TestRptFieldPainter::callerChangesAField()
{
    ReportRun run(page(band("MasterData", 30, frameless("label", "name=\"f\" value=\"[0]\""))));
    run.counts = {{1, 2}};
    run.values = {{"0", "row %1"}};
    connect(&run.engine, &RptEngine::setField, this, [](RptFieldObject &changed) {
        // A change stays until the end of the print, so each record says what it wants.
        if (changed.name == QLatin1String("f"))
            changed.value = changed.recNo == 1 ? QStringLiteral("changed %1").arg(changed.reportPage) : "[0]";
    });
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.texts(), (QStringList{"1: row 0", "1: changed 0"}));
    print(run, printer); // the change was for one print
    QCOMPARE(printer.texts(), (QStringList{"1: row 0", "1: changed 0"}));
}

void TestRptFieldPainter::highlighting()
{
    ReportRun run(page(band("MasterData", 30,
                            frameless("label",
                                      "value=\"[0]\" "
                                      "highlighting=\"&lt;LineNo&gt; % 2 == 0;backgroundColor=?rgba(235,235,235,255);"
                                      "fontColor=?rgba(200,0,0,255);bold=?1:0;\""))));
    run.counts = {{1, 4}};
    run.values = {{"0", "row %1"}};
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.marks(Mark::Rect).size(), 2); // stripes of the second and fourth row
    const QVector<Mark> texts = printer.marks(Mark::Text);
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(texts.at(row).font.bold(), row % 2 == 1);
        QCOMPARE(texts.at(row).pen.color(), row % 2 == 1 ? QColor(200, 0, 0) : QColor(1, 2, 3));
    }
}

void TestRptFieldPainter::crossTab()
{
    ReportRun run(
        page(band("ReportTitle", 100,
                  "<TContainerField type=\"crossTab\" name=\"ct\" left=\"10\" top=\"20\" width=\"300\" height=\"80\" "
                  "rowHeight=\"20\" totalByColVisible=\"1\" totalByRowVisible=\"1\"/>")));
    connect(&run.engine, &RptEngine::setField, this, [](RptFieldObject &offered) {
        if (offered.crossTab) {
            offered.crossTab->setColCount(2);
            offered.crossTab->setRowCount(2);
        } else if (const RptCrossTabObject *table = offered.parentCrossTab) {
            offered.value = QString::number(10 * table->cellRow(&offered, false) + table->cellCol(&offered) + 1);
        }
    });
    RecordingPrinter printer(resolution());
    print(run, printer);
    QStringList values;
    const QVector<Mark> drawn = printer.marks(Mark::Text);
    for (const Mark &mark : drawn)
        values.append(mark.text);
    QCOMPARE(values, (QStringList{"1", "2", "3", "11", "12", "23", "12", "14", "26"}));
}

void TestRptFieldPainter::crossTabGoesOnOnTheNextPage()
{
    ReportRun run(
        page(band("PageHeader", 100,
                  "<TContainerField type=\"crossTab\" name=\"ct\" left=\"10\" top=\"0\" width=\"300\" height=\"40\" "
                  "rowHeight=\"20\"/>")));
    connect(&run.engine, &RptEngine::setField, this, [](RptFieldObject &offered) {
        if (offered.crossTab) {
            offered.crossTab->setColCount(1);
            offered.crossTab->setRowCount(5);
        } else if (const RptCrossTabObject *table = offered.parentCrossTab) {
            offered.value = QString::number(table->cellRow(&offered, true));
        }
    });
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(printer.texts(), (QStringList{"1: 0", "1: 1", "2: 2", "2: 3", "3: 4"}));
}

/// Not one row fits, so that no page would ever be the last.
void TestRptFieldPainter::crossTabWithoutRoomEnds()
{
    ReportRun run(page(band("PageHeader", 100,
                            "<TContainerField type=\"crossTab\" name=\"ct\" width=\"300\" height=\"10\" "
                            "rowHeight=\"20\"/>")));
    RecordingPrinter printer(resolution());
    QTest::ignoreMessage(QtWarningMsg, "Cross table ct does not end");
    print(run, printer);
    QCOMPARE(printer.pages(), 1);
}

void TestRptFieldPainter::diagram()
{
    ReportRun run(page(
        band("PageHeader", 100,
             "<TContainerField type=\"diagram\" left=\"10\" top=\"20\" width=\"300\" height=\"80\" caption=\"Obedy\" "
             "chartType=\"SeriesTypeBar\" staticChart=\"0\"><s caption=\"a\" color=\"rgba(255,0,0,255)\" graphDS=\"x\">"
             "<p val=\"3\"/><p val=\"5\"/></s></TContainerField>")
        + band("MasterData", 900, QString())));
    run.counts = {{1, 2}};
    int offered = 0;
    connect(&run.engine, &RptEngine::setValueDiagram, this, [&offered](GraphDataList &data) {
        ++offered;
        QCOMPARE(data.size(), 1);
        QCOMPARE(data.first().caption, QStringLiteral("a"));
        data.first().values[0].y = 7;
    });
    RecordingPrinter printer(resolution());
    print(run, printer);
    QCOMPARE(offered, 2); // once a page: the chart outlives its first paint
    QVERIFY(printer.marks().size() > 4);
}

void TestRptFieldPainter::html()
{
    ReportRun run(page(band("PageHeader", 50, frameless("label", "value=\"hlavička\""))
                       + band("ReportTitle", 100, frameless("label", "value=\"A &amp;amp; [t]\" aligmentH=\"hCenter\""))
                       + band("MasterData", 600, frameless("label", "value=\"[0]\""))
                       + band("PageFooter", 50, frameless("label", "value=\"pätička\""))));
    run.counts = {{1, 3}};
    run.values = {{"0", "row %1"}, {"t", "<i>"}};
    const QTemporaryDir folder;
    const QString fileName = folder.filePath("r.html");
    run.engine.exportToHtml(fileName, false);
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY(text.startsWith(QLatin1String("<HTML><HEAD><meta charset=\"UTF-8\"></HEAD><BODY>")));
    QVERIFY(text.endsWith(QLatin1String("</BODY></HTML>")));
    QVERIFY(!text.contains(QStringLiteral("hlavička")));
    QVERIFY(!text.contains(QStringLiteral("pätička")));
    QCOMPARE(text.count(QLatin1String("<div ")), 4); // each field once; rows do not break
    QVERIFY(text.contains(QLatin1String("text-align:center;font-size:14px;")));
    QVERIFY(text.contains(QLatin1String(">A &amp; <i></div>\n"))); // nothing is escaped
    for (int row = 0; row < 3; ++row)
        QVERIFY2(text.contains(QStringLiteral("top: %1;").arg(120 + 600 * row))
                     || text.contains(QStringLiteral("top: %1;").arg(119 + 600 * row)),
                 qPrintable(text));
}

QTEST_MAIN(TestRptFieldPainter)
#include "tst_rptfieldpainter.moc"
