#include <QIcon>
#include <QImage>
#include <QtTest>

namespace {

/// How many of the pixels stand out from the ground, in per cent.
int visiblePerCent(const QString &file, int size, const QColor &ground)
{
    const QImage image = QIcon(file).pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
    int visible = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            const int difference = qAbs(color.red() - ground.red()) + qAbs(color.green() - ground.green())
                + qAbs(color.blue() - ground.blue());
            if (color.alpha() > 128 && difference > 150)
                ++visible;
        }
    }
    return 100 * visible / (size * size);
}

QImage shown(const char *name, int size)
{
    return QIcon(QStringLiteral(":/images/%1.png").arg(QLatin1String(name))).pixmap(size, size).toImage();
}

/// The share of pixels in which two pictures differ clearly, in per cent.
int differencePerCent(const QImage &one, const QImage &other)
{
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            if (qAbs(a.alpha() - b.alpha()) + qAbs(a.red() - b.red()) + qAbs(a.blue() - b.blue()) > 60)
                ++different;
        }
    }
    return 100 * different / (one.width() * one.height());
}

} // namespace

class TestImages : public QObject {
    Q_OBJECT

private slots:
    void everyImageIsThere_data();
    void everyImageIsThere();
    void cardButtonsShowOnDarkGround_data();
    void cardButtonsShowOnDarkGround();
    void statesDiffer_data();
    void statesDiffer();
};

void TestImages::everyImageIsThere_data()
{
    QTest::addColumn<QString>("file");
    for (const char *name : {"back",
                             "content_copy",
                             "down",
                             "ficon-branch",
                             "ficon-person",
                             "file_export",
                             "file_import",
                             "filter",
                             "finalreport",
                             "forward",
                             "locked2",
                             "mail",
                             "partialreport",
                             "pencil",
                             "personreport",
                             "printer",
                             "unlocked",
                             "up",
                             "sidebar/orders3",
                             "sidebar/menu1",
                             "sidebar/menu2",
                             "sidebar/menu3",
                             "sidebar/food1",
                             "sidebar/food2",
                             "sidebar/food3",
                             "sidebar/Truck1",
                             "sidebar/Truck2",
                             "sidebar/Truck3",
                             "sidebar/set1",
                             "sidebar/set2",
                             "sidebar/set3"})
        QTest::newRow(name) << QStringLiteral(":/images/%1.png").arg(QLatin1String(name));
    QTest::newRow("html") << QStringLiteral(":/html.png");
    QTest::newRow("pdf") << QStringLiteral(":/pdf.png");
}

void TestImages::everyImageIsThere()
{
    QFETCH(QString, file);
    const QImage image(file);
    QCOMPARE(image.size(), QSize(96, 96));
    QVERIFY(image.hasAlphaChannel());
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    for (const int size : {16, 20, 32}) {
        for (const QColor &ground : {QColor(Qt::white), QColor(0xc0, 0xc0, 0xc0)})
            QVERIFY(visiblePerCent(file, size, ground) >= 7);
    }
}

void TestImages::cardButtonsShowOnDarkGround_data()
{
    QTest::addColumn<QString>("file");
    for (const char *name :
         {"finalreport", "partialreport", "personreport", "sidebar/orders3", "locked2", "unlocked", "pencil"})
        QTest::newRow(name) << QStringLiteral(":/images/%1.png").arg(QLatin1String(name));
}

void TestImages::cardButtonsShowOnDarkGround()
{
    QFETCH(QString, file);
    QVERIFY(visiblePerCent(file, 20, QColor(0x46, 0x46, 0x46)) >= 15);
}

void TestImages::statesDiffer_data()
{
    QTest::addColumn<QByteArray>("one");
    QTest::addColumn<QByteArray>("other");
    QTest::newRow("lock") << QByteArray("locked2") << QByteArray("unlocked");
    QTest::newRow("report") << QByteArray("partialreport") << QByteArray("finalreport");
    for (const char *entry : {"menu", "food", "Truck", "set"}) {
        const QByteArray base = QByteArray("sidebar/") + entry;
        QTest::newRow((base + " checked and at rest").constData()) << base + "1" << base + "2";
        QTest::newRow((base + " at rest and active").constData()) << base + "2" << base + "3";
        QTest::newRow((base + " checked and active").constData()) << base + "1" << base + "3";
    }
}

void TestImages::statesDiffer()
{
    QFETCH(QByteArray, one);
    QFETCH(QByteArray, other);
    const int difference = differencePerCent(shown(one.constData(), 20), shown(other.constData(), 20));
    QVERIFY2(difference >= 8, qPrintable(QString::number(difference)));
}

QTEST_MAIN(TestImages)
#include "tst_images.moc"
