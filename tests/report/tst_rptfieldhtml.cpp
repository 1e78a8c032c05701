#include "report/rptbandobject.h"
#include "report/rptfieldobject.h"

#include <QtTest>

#include <limits>
#include <memory>

/// What fields are in HTML, word for word.
class TestRptFieldHtml : public QObject {
    Q_OBJECT

private slots:
    void init();
    void label();
    void fontSizes_data();
    void fontSizes();
    void bold_data();
    void bold();
    void italic();
    void boldAndItalic();
    void alignments_data();
    void alignments();
    void colors();
    void position();
    void hugePositions();
    void autoHeight();
    void autoHeightWithoutBand();
    void images_data();
    void images();
    void imageWidths_data();
    void imageWidths();
    void hugePicture();
    void otherTypes_data();
    void otherTypes();

private:
    std::unique_ptr<RptFieldObject> m_field;
};

void TestRptFieldHtml::init()
{
    m_field = std::make_unique<RptFieldObject>();
    m_field->rect = QRect(10, 20, 100, 30);
    m_field->absoluteTop = 250;
    m_field->font.setPointSize(9);
}

void TestRptFieldHtml::label()
{
    m_field->fontColor = QColor(1, 2, 3, 4);
    m_field->backgroundColor = QColor(255, 254, 253, 0);
    m_field->borderLeft = Qt::red;
    m_field->borderRight = Qt::green;
    m_field->borderTop = Qt::blue;
    m_field->borderBottom = QColor(16, 32, 48);
    QCOMPARE(m_field->htmlStyle(),
             QStringLiteral("style='color:#010203;background:#fffefd;border-left: solid thin #ff0000;"
                            "border-right: solid thin #00ff00;border-top: solid thin #0000ff;"
                            "border-bottom: solid thin #102030;text-align:left;font-size:14px;"
                            "position: absolute; left: 10;top: 250;width: 100;height: 30;'"));
}

void TestRptFieldHtml::fontSizes_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<QString>("css");
    QTest::newRow("1") << 1 << "font-size:6px;";
    QTest::newRow("9") << 9 << "font-size:14px;";
    QTest::newRow("72") << 72 << "font-size:77px;";
    QTest::newRow("largest") << std::numeric_limits<int>::max() << "font-size:2147483652px;";
}

void TestRptFieldHtml::fontSizes()
{
    QFETCH(int, points);
    QFETCH(QString, css);
    m_field->font.setPointSize(points);
    QVERIFY(m_field->htmlStyle().contains(css));
}

void TestRptFieldHtml::bold_data()
{
    QTest::addColumn<int>("weight");
    QTest::addColumn<bool>("isBold");
    QTest::newRow("50") << 50 << false;
    QTest::newRow("57") << 57 << false;
    QTest::newRow("58") << 58 << true;
    QTest::newRow("75") << 75 << true;
}

void TestRptFieldHtml::bold()
{
    QFETCH(int, weight);
    QFETCH(bool, isBold);
    m_field->font.setWeight(weight);
    QCOMPARE(m_field->htmlStyle().endsWith("height: 30;font-weight: bold;'"), isBold);
    QCOMPARE(m_field->htmlStyle().endsWith("height: 30;'"), !isBold);
}

void TestRptFieldHtml::italic()
{
    m_field->font.setStyle(QFont::StyleItalic);
    QVERIFY(m_field->htmlStyle().endsWith("height: 30;font-style: italic;'"));
    m_field->font.setStyle(QFont::StyleOblique);
    QVERIFY(m_field->htmlStyle().endsWith("height: 30;font-style: italic;'"));
}

void TestRptFieldHtml::boldAndItalic()
{
    m_field->font.setBold(true);
    m_field->font.setItalic(true);
    QVERIFY(m_field->htmlStyle().endsWith("height: 30;font-weight: bold;font-style: italic;'"));
}

void TestRptFieldHtml::alignments_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("css");
    QTest::newRow("none") << 0 << "text-align:;";
    QTest::newRow("left") << 1 << "text-align:left;";
    QTest::newRow("right") << 2 << "text-align:right;";
    QTest::newRow("center") << 4 << "text-align:center;";
    QTest::newRow("justify") << 8 << "text-align:justify;";
    QTest::newRow("vertical only") << (32 | 64 | 128) << "text-align:;";
    QTest::newRow("center of both") << (4 | 128) << "text-align:center;";
    QTest::newRow("right, left") << (1 | 2) << "text-align:left;";
    QTest::newRow("right, left, center") << (1 | 2 | 4) << "text-align:center;";
    QTest::newRow("all") << (1 | 2 | 4 | 8) << "text-align:justify;";
}

void TestRptFieldHtml::alignments()
{
    QFETCH(int, flags);
    QFETCH(QString, css);
    m_field->aligment = static_cast<Qt::Alignment>(flags);
    QVERIFY(m_field->htmlStyle().contains(css));
    m_field->fieldType = Rpt::image;
    QVERIFY(m_field->htmlStyle().contains(css));
}

void TestRptFieldHtml::colors()
{
    m_field->fontColor = QColor();
    m_field->backgroundColor = QColor::fromHsv(120, 255, 255);
    QVERIFY(m_field->htmlStyle().startsWith("style='color:#000000;background:#00ff00;"));
}

void TestRptFieldHtml::position()
{
    m_field->rect = QRect();
    m_field->absoluteTop = -3;
    QVERIFY(m_field->htmlStyle().contains("left: 0;top: -3;width: 0;height: 0;"));
    m_field->rect = QRect(-7, 5, 1, 1);
    QVERIFY(m_field->htmlStyle().contains("left: -7;top: -3;width: 1;height: 1;"));
}

void TestRptFieldHtml::hugePositions()
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    m_field->rect = QRect(QPoint(least, least), QPoint(most, most));
    m_field->absoluteTop = most;
    QVERIFY(m_field->htmlStyle().contains("left: -2147483648;top: 2147483647;width: 4294967296;height: 4294967296;"));
    m_field->fieldType = Rpt::image;
    QVERIFY(m_field->htmlStyle().contains("<img width=4294967296 height=4294967296 "));
}

void TestRptFieldHtml::autoHeight()
{
    RptBandObject band;
    band.height = 77;
    m_field->parentBand = &band;
    QVERIFY(m_field->htmlStyle().contains("height: 30;"));
    m_field->autoHeight = true;
    QVERIFY(m_field->htmlStyle().contains("height: 77;"));
    QCOMPARE(m_field->rect, QRect(10, 20, 100, 77)); // for good
    band.height = std::numeric_limits<int>::max();
    QVERIFY(m_field->htmlStyle().contains("height: 2147483628;")); // cut at the last unit there is
}

void TestRptFieldHtml::autoHeightWithoutBand()
{
    m_field->autoHeight = true;
    QVERIFY(m_field->htmlStyle().contains("height: 30;"));
}

void TestRptFieldHtml::images_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("labelImage") << static_cast<int>(Rpt::labelImage);
    QTest::newRow("image") << static_cast<int>(Rpt::image);
    QTest::newRow("DatabaseImage") << static_cast<int>(Rpt::DatabaseImage);
}

void TestRptFieldHtml::images()
{
    QFETCH(int, type);
    m_field->fieldType = type;
    m_field->picture = "hello";
    m_field->imgFormat = "JPG"; // HTML says PNG whatever it is
    QCOMPARE(m_field->htmlStyle(),
             QStringLiteral("<div style='position: absolute; left: 10;top: 250;width: 100;height: 30;"
                            "text-align:left;'><img width=100 height=30 "
                            "src=\"data:image/png;base64,aGVsbG8=\" /></div>\n"));
}

void TestRptFieldHtml::imageWidths_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("css");
    QTest::newRow("100") << QSize(100, 30) << "<img width=100 height=30 ";
    QTest::newRow("101") << QSize(101, 30) << "<img width=101 height=30 ";
    QTest::newRow("102") << QSize(102, 30) << "<img width=100 height=30 ";
    QTest::newRow("103") << QSize(103, 31) << "<img width=101 height=31 ";
    QTest::newRow("2") << QSize(2, 2) << "<img width=0 height=2 ";
    QTest::newRow("no width") << QSize(0, 30) << "<img width=0 height=30 ";
    QTest::newRow("no height") << QSize(102, 0) << "<img width=102 height=0 ";
    QTest::newRow("neither") << QSize(0, 0) << "<img width=0 height=0 ";
}

void TestRptFieldHtml::imageWidths()
{
    QFETCH(QSize, size);
    QFETCH(QString, css);
    m_field->fieldType = Rpt::image;
    m_field->rect = QRect(QPoint(10, 20), size);
    QVERIFY2(m_field->htmlStyle().contains(css), qPrintable(m_field->htmlStyle()));
}

void TestRptFieldHtml::hugePicture()
{
    m_field->fieldType = Rpt::image;
    m_field->picture = QByteArray(10 * 1024 * 1024, '\xff');
    QVERIFY(m_field->htmlStyle().contains(m_field->picture.toBase64()));
}

void TestRptFieldHtml::otherTypes_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {2, 4, 5, 6, 7, 8, 9, 10, 11, 13, 14, -1})
        QTest::newRow(qPrintable(QString::number(type))) << type;
}

void TestRptFieldHtml::otherTypes()
{
    QFETCH(int, type);
    m_field->fieldType = type;
    QCOMPARE(m_field->htmlStyle(), QString());
}

QTEST_MAIN(TestRptFieldHtml)
#include "tst_rptfieldhtml.moc"
