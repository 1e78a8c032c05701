#include "report/barcode.h"

#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QDataStream>
#include <QFontMetrics>
#include <QMetaEnum>
#include <QPainter>
#include <QtTest>

#include <limits>

class TestBarCode : public QObject {
    Q_OBJECT

private slots:
    void newWidget();
    void metaObject();
    void typeNames();
    void unknownTypeNames_data();
    void unknownTypeNames();
    void frameTypes();
    void setters();
    void valueRepaints();
    void paints();
    void drawsInTheMiddle();
    void streams();
    void streamsDynamicProperties();
    void streamsHostileValues();
    void writingChangesNothing();
    void severalInOneStream();
    void brokenStreams_data();
    void brokenStreams();
};

namespace {

/// The names with their numbers, in the order in which users see them.
QString allTypes()
{
    return QStringLiteral(
        "CODE11 1, C25MATRIX 2, C25INTER 3, C25IATA 4, C25LOGIC 6, C25IND 7, CODE39 8, EXCODE39 9, EANX 13, "
        "EAN128 16, CODABAR 18, CODE128 20, DPLEIT 21, DPIDENT 22, CODE16K 23, CODE93 25, FLAT 28, RSS14 29, "
        "RSS_LTD 30, RSS_EXP 31, TELEPEN 32, UPCA 34, UPCE 37, POSTNET 40, MSI_PLESSEY 47, FIM 49, LOGMARS 50, "
        "PHARMA 51, PZN 52, PHARMA_TWO 53, PDF417 55, PDF417TRUNC 56, MAXICODE 57, QRCODE 58, CODE128B 60, "
        "AUSPOST 63, AUSREPLY 66, AUSROUTE 67, AUSREDIRECT 68, ISBNX 69, RM4SCC 70, DATAMATRIX 71, ITF14 72, "
        "CODABLOCKF 74, NVE18 75, KOREAPOST 77, RSS14STACK 79, RSS14STACK_OMNI 80, RSS_EXPSTACK 81, PLANET 82, "
        "MICROPDF417 84, ONECODE 85, PLESSEY 86, KIX 90, AZTEC 92, DAFT 93, ITALYPOST 94, DPD 96, MICROQR 97, "
        "TELEPEN_NUM 128, CODE32 129, EANX_CC 130, EAN128_CC 131, RSS14_CC 132, RSS_LTD_CC 133, RSS_EXP_CC 134, "
        "UPCA_CC 135, UPCE_CC 136, RSS14STACK_CC 137, RSS14_OMNI_CC 138, RSS_EXPSTACK_CC 139");
}

QString listed(const QList<QPair<int, QString>> &pairs)
{
    QStringList list;
    for (const auto &pair : pairs)
        list.append(pair.second + ' ' + QString::number(pair.first));
    return list.join(", ");
}

QByteArray written(const BarCode &barCode)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << barCode;
    return bytes;
}

void read(const QByteArray &bytes, BarCode *barCode)
{
    QDataStream stream(bytes);
    stream >> *barCode;
}

/// The smallest rectangle around every pixel that is not white.
QRect ink(const QImage &image)
{
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

class CountingBarCode : public BarCode {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        BarCode::paintEvent(event);
    }
};

} // namespace

void TestBarCode::newWidget()
{
    const BarCode barCode;
    QCOMPARE(barCode.value(), QStringLiteral("RptEngine"));
    QCOMPARE(barCode.barcodeType(), 20);
    QCOMPARE(barCode.frameType(), 0);
    QCOMPARE(barCode.barcodeHeight(), 50);
}

void TestBarCode::metaObject()
{
    QCOMPARE(metaMethods(BarCode::staticMetaObject), QStringList({"slot void setValue(QString)"}));
    QVERIFY(BarCode::staticMetaObject.indexOfEnumerator("BarcodeTypes") >= 0);
    QVERIFY(BarCode::staticMetaObject.indexOfEnumerator("FrameTypes") >= 0);
}

void TestBarCode::typeNames()
{
    QCOMPARE(listed(BarCode::typeList()), allTypes());
    const auto types = BarCode::typeList();
    QCOMPARE(types.size(), 71);
    for (const auto &type : types)
        QCOMPARE(BarCode::typeName(type.first), type.second);
}

void TestBarCode::unknownTypeNames_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {0, 5, 10, 33, 98, 127, 140, -1, std::numeric_limits<int>::max()})
        QTest::newRow(qPrintable(QString::number(number))) << number;
}

void TestBarCode::unknownTypeNames()
{
    QFETCH(int, number);
    QCOMPARE(BarCode::typeName(number), QString());
}

void TestBarCode::frameTypes()
{
    QCOMPARE(listed(BarCode::frameTypeList()), QStringLiteral("NO_BORDER 0, BIND 2, BOX 4"));
}

void TestBarCode::setters()
{
    BarCode barCode;
    barCode.setBarcodeType(58);
    barCode.setFrameType(4);
    barCode.setBarcodeHeight(-3);
    barCode.setValue("<b>1</b>");
    QCOMPARE(barCode.barcodeType(), 58);
    QCOMPARE(barCode.frameType(), 4);
    QCOMPARE(barCode.barcodeHeight(), -3);
    QCOMPARE(barCode.value(), QStringLiteral("<b>1</b>"));
}

void TestBarCode::valueRepaints()
{
    CountingBarCode barCode;
    barCode.resize(200, 50);
    barCode.show();
    QTRY_VERIFY(barCode.paints > 0);
    QCoreApplication::processEvents();
    const int before = barCode.paints;
    barCode.setValue("new");
    QTRY_VERIFY(barCode.paints > before);
}

void TestBarCode::paints()
{
    BarCode barCode;
    barCode.resize(200, 50);
    QImage image(200, 50, QImage::Format_RGB32);
    image.fill(Qt::white);
    barCode.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    // The baseline is the upper edge, so little more shows than the underscore.
    const QFontMetrics metrics(barCode.font());
    const int underscore = metrics.horizontalAdvance("NO");
    QVERIFY(!ink(image).isEmpty());
    QVERIFY(ink(image).bottom() <= metrics.descent());
    QVERIFY(qAbs(ink(image).left() - underscore) <= 3);
}

void TestBarCode::drawsInTheMiddle()
{
    QImage image(300, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    BarCode().drawBarcode(&painter, QRect(100, 20, 200, 60));
    painter.end();
    const QPoint distance = ink(image).center() - QRect(100, 20, 200, 60).center();
    QVERIFY2(qAbs(distance.x()) <= 2 && qAbs(distance.y()) <= 4, qPrintable(QString::number(distance.y())));
}

void TestBarCode::streams()
{
    const LogCatcher log;
    BarCode barCode;
    barCode.setValue("8 5 9");
    barCode.setBarcodeType(BarCode::QRCODE);
    barCode.setFrameType(BarCode::BOX);
    barCode.setBarcodeHeight(77);
    barCode.setObjectName("code");
    barCode.setGeometry(5, 6, 123, 45);
    barCode.setToolTip("tip");
    barCode.setFont(QFont("DejaVu Sans", 17));
    barCode.setEnabled(false);
    barCode.setFocusPolicy(Qt::WheelFocus);
    BarCode copy;
    read(written(barCode), &copy);
    QCOMPARE(copy.value(), QStringLiteral("8 5 9"));
    QCOMPARE(copy.barcodeType(), 58);
    QCOMPARE(copy.frameType(), 4);
    QCOMPARE(copy.barcodeHeight(), 77);
    QCOMPARE(copy.property("BarcodeTypes").toInt(), 58);
    QCOMPARE(copy.property("FrameTypes").toInt(), 4);
    QCOMPARE(copy.objectName(), QStringLiteral("code"));
    QCOMPARE(copy.geometry(), QRect(5, 6, 123, 45));
    QCOMPARE(copy.toolTip(), QStringLiteral("tip"));
    QCOMPARE(copy.font().pointSize(), 17);
    QCOMPARE(copy.isEnabled(), false);
    QCOMPARE(copy.focusPolicy(), Qt::WheelFocus);
    QCOMPARE(copy.isVisible(), false);
    QCOMPARE(log.lines(), QStringList());
}

void TestBarCode::streamsDynamicProperties()
{
    BarCode barCode;
    barCode.setProperty("note", "<b>%1</b>");
    barCode.setProperty("list", QStringList{"a", "b"});
    barCode.setProperty("BarcodeTypes", 1); // the widget's own number wins
    BarCode copy;
    read(written(barCode), &copy);
    QCOMPARE(copy.property("note").toString(), QStringLiteral("<b>%1</b>"));
    QCOMPARE(copy.property("list").toStringList(), QStringList({"a", "b"}));
    QCOMPARE(copy.barcodeType(), 20);
    QCOMPARE(copy.property("BarcodeTypes").toInt(), 20);
}

void TestBarCode::streamsHostileValues()
{
    for (const QString &value :
         {QString(), QStringLiteral("\"'\\%1<b>"), QString::fromUtf8("🍵\u202Ex"), QString(10000, 'x')}) {
        BarCode barCode;
        barCode.setValue(value);
        barCode.setBarcodeType(std::numeric_limits<int>::min());
        barCode.setFrameType(std::numeric_limits<int>::max());
        BarCode copy;
        read(written(barCode), &copy);
        QCOMPARE(copy.value(), value);
        QCOMPARE(copy.barcodeType(), std::numeric_limits<int>::min());
        QCOMPARE(copy.frameType(), std::numeric_limits<int>::max());
    }
}

void TestBarCode::writingChangesNothing()
{
    const BarCode barCode;
    written(barCode);
    QVERIFY(barCode.dynamicPropertyNames().isEmpty());
}

void TestBarCode::severalInOneStream()
{
    BarCode first;
    BarCode second;
    first.setValue("first");
    second.setValue("second");
    read(written(first) + written(second), &second);
    QCOMPARE(second.value(), QStringLiteral("first"));
    QDataStream stream(written(first) + written(BarCode()));
    stream >> second >> first;
    QCOMPARE(second.value(), QStringLiteral("first"));
    QCOMPARE(first.value(), QStringLiteral("RptEngine"));
    QVERIFY(stream.atEnd());
}

void TestBarCode::brokenStreams_data()
{
    QTest::addColumn<QByteArray>("bytes");
    BarCode barCode;
    barCode.setValue("lost");
    barCode.setBarcodeType(58);
    const QByteArray bytes = written(barCode);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("half") << bytes.left(bytes.size() / 2);
    QTest::newRow("a byte less") << bytes.left(bytes.size() - 1);
    QTest::newRow("text") << QByteArray("<b>no stream</b>");
    QTest::newRow("huge count") << QByteArray("\x7f\xff\xff\xff", 4);
}

void TestBarCode::brokenStreams()
{
    QFETCH(QByteArray, bytes);
    BarCode barCode;
    read(bytes, &barCode);
    QCOMPARE(barCode.value(), QStringLiteral("RptEngine"));
    QCOMPARE(barCode.barcodeType(), 20);
    QVERIFY(barCode.dynamicPropertyNames().isEmpty());
}

QTEST_MAIN(TestBarCode)
#include "tst_barcode.moc"
