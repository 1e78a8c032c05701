#include "goldenpages.h"

#include <QApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFontInfo>
#include <QtTest>

using GoldenPages::Difference;
using GoldenPages::Letters;

namespace {

constexpr char writesGoldens[] = "VIANDA_WRITE_GOLDENS";

QString folder()
{
    return QFileInfo(QFINDTESTDATA("golden")).absoluteFilePath();
}

QDomDocument templateOf(const QString &name)
{
    QFile file(folder() + '/' + name + ".xml");
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("%s is no template", qPrintable(file.fileName()));
    return document;
}

QString goldenName(const QString &name, int page)
{
    return QStringLiteral("%1/%2-%3.png").arg(folder(), name).arg(page + 1);
}

/// Goldens that there are of a template, without gaps.
int goldenCount(const QString &name)
{
    return QDir(folder()).entryList({name + "-?.png"}).size();
}

/// For one who has to look: the page that failed, in the folder of the test's run.
QString keep(const QImage &page, const QString &name, int number)
{
    const QString fileName =
        QDir::current().absoluteFilePath(QStringLiteral("golden-%1-%2.png").arg(name).arg(number + 1));
    return page.save(fileName) ? fileName : QStringLiteral("cannot be kept as ") + fileName;
}

QVector<QDomElement> fieldsOf(const QDomDocument &document)
{
    QVector<QDomElement> fields;
    const QDomNodeList list = document.elementsByTagName(QStringLiteral("TContainerField"));
    for (int index = 0; index < list.size(); ++index)
        fields.append(list.at(index).toElement());
    return fields;
}

/// Whether a field leaves a mark: `printing` of these templates is either missing or false.
bool isSeen(const QDomElement &field)
{
    return !field.hasAttribute(QStringLiteral("printing"));
}

void moveField(QDomElement field, int units)
{
    for (const char *attribute : {"left", "top", "lineStartX", "lineStartY", "lineEndX", "lineEndY"}) {
        if (field.hasAttribute(QLatin1String(attribute)))
            field.setAttribute(QLatin1String(attribute), field.attribute(QLatin1String(attribute)).toInt() + units);
    }
}

/// The page that differs most; pages that are missing or too many differ most of all.
Difference compareAll(const QVector<QImage> &pages, const QVector<QImage> &others)
{
    if (pages.size() != others.size())
        return {255, 255, {}};
    Difference worst;
    for (int number = 0; number < pages.size(); ++number) {
        const Difference difference = GoldenPages::compare(pages.at(number), others.at(number));
        if (difference.worst >= worst.worst)
            worst = difference;
    }
    return worst;
}

} // namespace

/// Each kind of field, printed to PDF and drawn, against pages that a person has looked at: golden/NAME.xml is the
/// template, golden/NAME-1.png, NAME-2.png, ... are its pages. A page that differs is kept in the working folder.
///
/// After a change that is meant to be seen, VIANDA_WRITE_GOLDENS=1 in the environment writes the pages anew; the test
/// fails then too, since nobody has looked at them yet.
class TestRptGolden : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pages_data();
    void pages();
    void eachGoldenHasItsTemplate();
    void movedFieldIsSeen_data() { pages_data(); }
    void movedFieldIsSeen();
    void missingFieldIsSeen_data() { pages_data(); }
    void missingFieldIsSeen();
    void otherLettersAreNot_data() { pages_data(); }
    void otherLettersAreNot();
    void otherColorIsSeen();
    void comparison();

private:
    template<typename Change> void changeEachField(const QString &name, Change change);
};

void TestRptGolden::initTestCase()
{
    const QFont font(QStringLiteral("DejaVu Sans"), 8);
    QCOMPARE(QFontInfo(font).family(), font.family()); // package fonts-dejavu-core
    QApplication::setFont(font); // that charts have at their axes
}

void TestRptGolden::pages_data()
{
    QTest::addColumn<QString>("name");
    const QFileInfoList templates = QDir(folder()).entryInfoList({QStringLiteral("*.xml")});
    QVERIFY(templates.size() > 15);
    for (const QFileInfo &file : templates)
        QTest::newRow(qPrintable(file.baseName())) << file.baseName();
}

void TestRptGolden::pages()
{
    QFETCH(QString, name);
    const QVector<QImage> printed = GoldenPages::print(templateOf(name));
    QVERIFY(!printed.isEmpty());
    if (qEnvironmentVariableIsSet(writesGoldens)) {
        for (int number = 0; number < printed.size(); ++number)
            QVERIFY(printed.at(number).convertToFormat(QImage::Format_RGB888).save(goldenName(name, number)));
        QFAIL("written anew: look at them, and run the test without the variable");
    }
    QCOMPARE(printed.size(), goldenCount(name));
    for (int number = 0; number < printed.size(); ++number) {
        const QImage golden(goldenName(name, number));
        QVERIFY2(!golden.isNull(), qPrintable(goldenName(name, number)));
        const Difference difference = GoldenPages::compare(printed.at(number), golden);
        if (difference.isVisible())
            QFAIL(qPrintable(difference.text() + ": " + keep(printed.at(number), name, number)));
    }
}

void TestRptGolden::eachGoldenHasItsTemplate()
{
    const QFileInfoList goldens = QDir(folder()).entryInfoList({QStringLiteral("*.png")});
    for (const QFileInfo &golden : goldens) {
        const QString name = golden.baseName().section('-', 0, -2);
        QVERIFY2(QFile::exists(folder() + '/' + name + ".xml"), qPrintable(golden.fileName()));
    }
}

void TestRptGolden::movedFieldIsSeen()
{
    constexpr int units = 4; // a millimetre to the right and down
    QFETCH(QString, name);
    changeEachField(name, [](QDomElement field) { moveField(field, units); });
}

void TestRptGolden::missingFieldIsSeen()
{
    QFETCH(QString, name);
    changeEachField(name, [](QDomElement field) { field.parentNode().removeChild(field); });
}

template<typename Change> void TestRptGolden::changeEachField(const QString &name, Change change)
{
    const QVector<QImage> before = GoldenPages::print(templateOf(name));
    const int count = fieldsOf(templateOf(name)).size();
    for (int index = 0; index < count; ++index) {
        const QDomDocument document = templateOf(name);
        const QDomElement field = fieldsOf(document).at(index);
        if (!isSeen(field))
            continue;
        change(field);
        const Difference difference = compareAll(GoldenPages::print(document), before);
        QVERIFY2(difference.isVisible(), qPrintable(QStringLiteral("field %1: %2").arg(index).arg(difference.text())));
    }
}

void TestRptGolden::otherLettersAreNot()
{
    QFETCH(QString, name);
    const QDomDocument document = templateOf(name);
    const Difference difference =
        compareAll(GoldenPages::print(document, Letters::Fitted), GoldenPages::print(document));
    QVERIFY2(!difference.isVisible(), qPrintable(difference.text()));
}

void TestRptGolden::otherColorIsSeen()
{
    const QDomDocument document = templateOf(QStringLiteral("label-text"));
    const QVector<QImage> before = GoldenPages::print(document);
    QDomElement field = fieldsOf(document).constFirst();
    field.setAttribute(QStringLiteral("fontColor"), QStringLiteral("rgba(255,120,120,255)"));
    QVERIFY(compareAll(GoldenPages::print(document), before).isVisible());
}

void TestRptGolden::comparison()
{
    QImage white(40, 40, QImage::Format_RGB32);
    white.fill(Qt::white);
    QCOMPARE(GoldenPages::compare(white, white).worst, 0.0);
    QCOMPARE(GoldenPages::compare(white, white).mean, 0.0);
    QImage black = white;
    black.fill(Qt::black);
    QCOMPARE(GoldenPages::compare(white, black).mean, 255.0);
    QCOMPARE(GoldenPages::compare(white, black).worst, 255.0);
    QVERIFY(GoldenPages::compare(white, white.copy(0, 0, 40, 39)).isVisible());
    QVERIFY(GoldenPages::compare(QImage(), QImage()).isVisible()); // nothing was drawn
    QImage spot = white;
    for (int x = 32; x < 40; ++x) {
        for (int y = 32; y < 40; ++y)
            spot.setPixelColor(x, y, Qt::black);
    }
    const Difference difference = GoldenPages::compare(white, spot);
    QVERIFY(difference.isVisible());
    QCOMPARE(difference.at, QPoint(32, 32));
}

QTEST_MAIN(TestRptGolden)
#include "tst_rptgolden.moc"
