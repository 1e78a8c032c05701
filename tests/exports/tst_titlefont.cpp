#include "exports/titlefont.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <QtTest>

/// Titles that are longer than their panel.
class TestTitleFont : public QObject {
    Q_OBJECT

private slots:
    void shortTextKeepsItsSize();
    void longTextFits_data();
    void longTextFits();
    void endlessTextGetsTheLeastSize();

private:
    static QFont font()
    {
        QFont font(QStringLiteral("Roboto Condensed"), 14);
        font.setBold(true);
        return font;
    }
};

void TestTitleFont::shortTextKeepsItsSize()
{
    QCOMPARE(fittingPointSize(font(), QString(), 800), 14);
    QCOMPARE(fittingPointSize(font(), QStringLiteral("Mesačný výpis"), 800), 14);
}

void TestTitleFont::longTextFits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::newRow("a little") << QString(100, 'n') << 800;
    QTest::newRow("much") << QString(150, 'n') << 800;
    QTest::newRow("narrow field") << QString(35, 'n') << 250;
}

/// Measured as the paper has it: one point more would be too long.
void TestTitleFont::longTextFits()
{
    QFETCH(QString, text);
    QFETCH(int, width);
    QVERIFY2(QFontInfo(font()).family() == QLatin1String("Roboto Condensed"), "install the font Roboto Condensed");
    QTemporaryFile file;
    QVERIFY(file.open());
    QPdfWriter paper(&file);
    paper.setResolution(1200);
    const auto lengthAt = [&](int pointSize) {
        QFont sized(font());
        sized.setPointSize(pointSize);
        return QFontMetricsF(sized, &paper).horizontalAdvance(text) * 25.4 / 1200;
    };
    const int found = fittingPointSize(font(), text, width);
    QVERIFY(found < 14);
    QVERIFY(found > 6);
    const double room = width / 4.0 - 8;
    QVERIFY(lengthAt(found) <= room + 0.05);
    QVERIFY(lengthAt(found + 1) > room - 0.05);
}

void TestTitleFont::endlessTextGetsTheLeastSize()
{
    QCOMPARE(fittingPointSize(font(), QString(10000, 'x'), 800), 6);
}

QTEST_MAIN(TestTitleFont)
#include "tst_titlefont.moc"
