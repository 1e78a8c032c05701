#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptenums.h"
#include "report/rptfieldobject.h"

#include <QDomDocument>
#include <QFile>
#include <QFontInfo>
#include <QImage>
#include <QMap>
#include <QtTest>

namespace {

/// The colours of the printouts.
QString colorText(const QColor &color)
{
    static const QMap<QRgb, QString> names{{qRgba(0, 0, 0, 255), "black"},      {qRgba(255, 255, 255, 255), "white"},
                                           {qRgba(128, 128, 128, 255), "grey"}, {qRgba(0, 173, 239, 255), "blue"},
                                           {qRgba(64, 191, 239, 255), "azure"}, {qRgba(221, 234, 239, 255), "pale"},
                                           {qRgba(255, 255, 255, 0), "nothing"}};
    return color.isValid() ? names.value(color.rgba(), color.name(QColor::HexArgb)) : QStringLiteral("invalid");
}

QString alignmentText(Qt::Alignment alignment)
{
    static const QMap<int, QString> names{{Qt::AlignLeft | Qt::AlignVCenter, "left"},
                                          {Qt::AlignRight | Qt::AlignVCenter, "right"},
                                          {Qt::AlignHCenter | Qt::AlignVCenter, "centre"}};
    return names.value(int(alignment), QString::number(int(alignment), 16));
}

QString placeText(const RptFieldObject &field)
{
    const QRect &rect = field.rect;
    return QStringLiteral("(%1, %2, %3 x %4)%5")
        .arg(rect.left())
        .arg(rect.top())
        .arg(rect.width())
        .arg(rect.height())
        .arg(field.autoHeight ? " grows" : "");
}

/// "[0] (25, 0, 751 x 20) grows, 9 bold centre, black on white, if ..., with ...".
QString fieldText(const RptFieldObject &field)
{
    if (field.fieldType == Rpt::image)
        return QStringLiteral("image ") + placeText(field);
    QStringList parts{
        field.value + ' ' + placeText(field),
        QStringLiteral("%1 %2%3")
            .arg(field.font.pointSize())
            .arg(field.font.weight() == QFont::Bold ? "bold " : "", alignmentText(field.aligment)),
        QStringLiteral("%1 on %2").arg(colorText(field.defaultFontColor), colorText(field.defaultBackgroundColor))};
    if (field.printing != QLatin1String("1"))
        parts.append("if " + field.printing);
    if (!field.highlighting.isEmpty())
        parts.append("with " + field.highlighting);
    return parts.join(", ");
}

QStringList bandTexts(const RptBandObject &band)
{
    QStringList lines{
        QStringLiteral("%1 %2%3").arg(band.name).arg(band.realHeight).arg(band.showInGroup ? " in group" : "")};
    for (const RptFieldObject *field : band.fieldList)
        lines.append("  " + fieldText(*field));
    return lines;
}

const char *const templates[] = {"weeklymenu",   "monthlyreport", "branchmonthlyreport",
                                 "personreport", "menureport",    "segmentreport"};

QString fileOf(const QString &name)
{
    return QStringLiteral(":/%1.xml").arg(name);
}

// What the tables below share.

QString title()
{
    return QStringLiteral("(0, 0, 801 x 35), 14 bold centre, white on blue");
}

QString headerLine()
{
    return QStringLiteral("  [header] (44, 49, 711 x 22), 12 centre, black on nothing");
}

QString titleStrip()
{
    return QStringLiteral("   (0, 100, 800 x 3), 8 left, black on azure");
}

QString stripe()
{
    return QStringLiteral(", 8 left, black on white, if [grouping] == 0?1:0, with <LineNo> % 2 == "
                          "0;backgroundColor=?rgba(235,235,235,255);");
}

QString once()
{
    return QStringLiteral(", if [grouping]==0?1:0");
}

QString plain()
{
    return QStringLiteral("black on nothing");
}

QString head()
{
    return QStringLiteral("white on blue");
}

QStringList groupFooter()
{
    return {"DataGroupFooter 3 in group", "   (5, 0, 788 x 2), 8 left, black on azure, if [grouping]?1:0"};
}

QStringList pageFooter(int height, int top, const QString &printed)
{
    return {"PageFooter " + QString::number(height),
            "   (0, 0, 800 x 3), 8 left, black on azure",
            QString("  image (0, %1, 33 x 32)").arg(top),
            QString("  NORVIK-IT Workforce Presence System (40, %1, 260 x 32), 7 left, grey on nothing").arg(top),
            QString("  [strPager] <Page> / <TotalPages> (300, %1, 200 x 32), 9 centre, black on nothing").arg(top),
            QString("  %2<Date> <Time> (500, %1, 296 x 32), 7 right, black on nothing").arg(top).arg(printed)};
}

QStringList weeklyMenu()
{
    return QStringList{"ReportTitle 40",
                       "  Týždenné menu " + title(),
                       "MasterHeader 26",
                       "   (20, 0, 761 x 25), 8 left, black on blue",
                       "  Typ (25, 0, 151 x 25), 10 bold right, " + head(),
                       "  Názov (180, 0, 441 x 25), 10 bold left, " + head(),
                       "  Cena (625, 0, 151 x 25), 10 bold centre, " + head(),
                       "MasterData 20",
                       "   (20, 0, 761 x 20) grows" + stripe(),
                       "  [0] (25, 0, 751 x 20) grows, 9 bold centre, " + plain() + once(),
                       "  [1] (25, 0, 146 x 20) grows, 9 right, " + plain(),
                       "  [4] (605, 0, 141 x 20) grows, 9 right, " + plain(),
                       "  [2] (185, 0, 471 x 20) grows, 9 left, " + plain()}
    + groupFooter() + pageFooter(50, 10, {});
}

QStringList monthlyReport()
{
    return QStringList{"ReportTitle 40",
                       "  Mesačný výpis objednanej stravy - [header] " + title(),
                       "MasterHeader 56",
                       "   (0, 0, 801 x 54), 8 left, black on blue",
                       "  Dátum (5, 0, 101 x 28), 9 bold centre, " + head(),
                       "  Typ výdaju (5, 28, 101 x 26), 9 bold centre, " + head(),
                       "  Jedlo (108, 0, 245 x 54), 9 bold left, " + head(),
                       "  Cena (355, 0, 71 x 28), 9 bold centre, " + head(),
                       "  Počet (430, 0, 71 x 28), 9 bold right, " + head(),
                       "  Cena celkom (355, 28, 146 x 26), 9 bold right, " + head(),
                       "  Objednané (505, 0, 291 x 28), 9 bold right, " + head(),
                       "  Vydané (505, 28, 291 x 26), 9 bold right, " + head(),
                       "MasterData 30",
                       "   (0, 0, 801 x 30) grows" + stripe(),
                       "  [0] (5, 0, 101 x 15), 8 centre, " + plain() + once(),
                       "  [1] (6, 15, 101 x 15), 8 centre, " + plain(),
                       "  [3] (355, 0, 71 x 15), 8 centre, " + plain(),
                       "  [4] (430, 0, 71 x 15), 8 right, " + plain(),
                       "  [5] (355, 15, 146 x 15), 8 right, " + plain(),
                       "  [6] (505, 0, 291 x 15), 8 right, " + plain(),
                       "  [7] (505, 15, 291 x 15), 8 right, " + plain(),
                       "  [2] (108, 0, 245 x 30) grows, 8 left, " + plain(),
                       "MasterFooter 30",
                       "  [8] (355, 0, 146 x 26), 9 bold right, " + plain()}
    + groupFooter() + pageFooter(40, 5, {});
}

QStringList branchMonthlyReport()
{
    return QStringList{"ReportTitle 110",
                       "  Mesačný výpis objednávok zamestnancov " + title(),
                       headerLine(),
                       titleStrip(),
                       "MasterHeader 40",
                       "   (0, 4, 801 x 32), 8 left, black on blue",
                       "  ID (5, 4, 44 x 32), 9 bold left, " + head(),
                       "  pamID (50, 4, 65 x 32), 9 bold left, " + head(),
                       "  Meno (116, 4, 183 x 32), 9 bold left, " + head(),
                       "  počet objednávok (300, 4, 254 x 32), 9 bold centre, " + head(),
                       "  Suma (555, 4, 241 x 32), 9 bold right, " + head(),
                       "MasterData 28",
                       "   (0, 0, 801 x 28)" + stripe(),
                       "  [0] (5, 4, 42 x 18), 8 left, " + plain(),
                       "  [1] (50, 4, 63 x 18), 8 left, " + plain() + once(),
                       "  [2] (116, 4, 181 x 18), 8 left, " + plain(),
                       "  [4] (300, 4, 251 x 18), 8 centre, " + plain(),
                       "  [5] (555, 4, 241 x 18), 8 right, " + plain(),
                       "MasterFooter 53",
                       "  <Sum([4])> (300, 6, 251 x 24), 9 bold centre, black on pale",
                       "  [8] (555, 6, 241 x 24), 9 bold right, black on pale"}
    + groupFooter() + pageFooter(50, 10, "[strPrinted]: ");
}

/// The two printouts of one slot's items differ in the places of their columns.
QStringList itemReport(int itemWidth, int countLeft, int countWidth, const QString &printed)
{
    return QStringList{"ReportTitle 110",
                       "  Objednávka " + title(),
                       headerLine(),
                       titleStrip(),
                       "MasterHeader 40",
                       "   (0, 4, 801 x 30), 8 left, black on blue",
                       QString("  Položka (5, 4, %1 x 30), 10 bold left, ").arg(itemWidth + 3) + head(),
                       QString("  Počet (%1, 4, %2 x 30), 10 bold right, ").arg(countLeft).arg(countWidth) + head(),
                       "MasterData 22",
                       "   (0, -3, 801 x 22) grows" + stripe(),
                       QString("  [1] (%1, -3, %2 x 18) grows, 9 right, ").arg(countLeft).arg(countWidth) + plain(),
                       QString("  [0] (5, -3, %1 x 18) grows, 9 left, ").arg(itemWidth) + plain() + once()}
    + groupFooter() + pageFooter(50, 10, printed);
}

QStringList segmentReport()
{
    return QStringList{"ReportTitle 110",
                       "  Výpis objednávok " + title(),
                       headerLine(),
                       titleStrip(),
                       "MasterHeader 40",
                       "   (0, 4, 801 x 30), 8 left, black on blue",
                       "  Meno (5, 4, 191 x 30), 10 bold left, " + head(),
                       "  Názov (200, 4, 391 x 30), 10 bold left, " + head(),
                       "  Počet (595, 4, 51 x 30), 10 bold right, " + head(),
                       "  Vydané (650, 4, 141 x 30), 10 bold right, " + head(),
                       "MasterData 22",
                       "   (0, -3, 801 x 22) grows" + stripe(),
                       "  [2] (565, -3, 81 x 18) grows, 8 right, " + plain(),
                       "  [3] (650, -3, 141 x 18) grows, 8 right, " + plain(),
                       "  [0] (5, -3, 201 x 18) grows, 8 left, " + plain() + once(),
                       "  [1] (200, -3, 431 x 18) grows, 8 left, " + plain()}
    + groupFooter() + pageFooter(50, 10, "[strPrinted]: ");
}

} // namespace

/// The templates that the module carries: every band and field, to the unit.
class TestReportTemplates : public QObject {
    Q_OBJECT

private slots:
    void fieldsStandInTheirPlaces_data();
    void fieldsStandInTheirPlaces();
    void page_data() { eachTemplate(); }
    void page();
    void root_data() { eachTemplate(); }
    void root();
    void labelsHaveNoFrame_data() { eachTemplate(); }
    void labelsHaveNoFrame();
    void logoIsOneAndTheSame();
    void stripeLiesUnderTheRow_data() { eachTemplate(); }
    void stripeLiesUnderTheRow();
    void fontsAreThere();

private:
    static void eachTemplate();
};

void TestReportTemplates::eachTemplate()
{
    QTest::addColumn<QString>("name");
    for (const char *name : templates)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestReportTemplates::fieldsStandInTheirPlaces_data()
{
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("weeklymenu") << weeklyMenu();
    QTest::newRow("monthlyreport") << monthlyReport();
    QTest::newRow("branchmonthlyreport") << branchMonthlyReport();
    QTest::newRow("personreport") << itemReport(631, 640, 151, "[strPrinted]: ");
    QTest::newRow("menureport") << itemReport(581, 590, 201, {});
    QTest::newRow("segmentreport") << segmentReport();
}

void TestReportTemplates::fieldsStandInTheirPlaces()
{
    QFETCH(QStringList, expected);
    RptEngine engine;
    QVERIFY(engine.loadReportFile(fileOf(QTest::currentDataTag())));
    QCOMPARE(engine.pages().size(), 1);
    QStringList found;
    for (const RptBandObject *band : qAsConst(engine.pages().first()->bandList)) {
        found += bandTexts(*band);
        QCOMPARE(band->bandNo, 1);
    }
    for (int line = 0; line < qMin(found.size(), expected.size()); ++line)
        QCOMPARE(found.at(line), expected.at(line));
    QCOMPARE(found, expected);
}

void TestReportTemplates::page()
{
    QFETCH(QString, name);
    RptEngine engine;
    QVERIFY(engine.loadReportFile(fileOf(name)));
    const RptPageObject &page = *engine.pages().first();
    QCOMPARE(page.pageWidth, 840);
    QCOMPARE(page.pageHeight, 1188);
    QCOMPARE(page.marginsLeft, 20);
    QCOMPARE(page.marginsRight, 20);
    QCOMPARE(page.marginsTop, 40);
    QCOMPARE(page.marginsBottom, 20);
    QCOMPARE(page.orientation, 0);
    QVERIFY(!page.border);
    QVERIFY(!page.watermark);
}

void TestReportTemplates::root()
{
    QFETCH(QString, name);
    QFile file(fileOf(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QDomDocument document;
    QVERIFY(document.setContent(&file));
    const QDomElement root = document.documentElement();
    QCOMPARE(root.tagName(), QStringLiteral("Reports"));
    QCOMPARE(root.attribute("lib"), QStringLiteral("RptEngine"));
    QVERIFY(root.hasAttribute("programmer") && root.attribute("programmer").isEmpty());
    QVERIFY(root.hasAttribute("email") && root.attribute("email").isEmpty());
    const QDomElement script = root.firstChildElement("Script");
    QCOMPARE(!script.isNull(), name == QLatin1String("branchmonthlyreport"));
    QVERIFY(script.text().isEmpty());
    // Values come from the pages alone.
    QVERIFY(root.firstChildElement("Report").firstChildElement("DataSource").isNull());
}

void TestReportTemplates::labelsHaveNoFrame()
{
    QFETCH(QString, name);
    RptEngine engine;
    QVERIFY(engine.loadReportFile(fileOf(name)));
    for (const RptBandObject *band : qAsConst(engine.pages().first()->bandList)) {
        for (const RptFieldObject *field : band->fieldList) {
            if (field->fieldType != Rpt::label)
                continue;
            for (const QColor &side : {field->borderTop, field->borderBottom, field->borderLeft, field->borderRight})
                QVERIFY2(side == QColor(255, 255, 255, 0), qPrintable(field->name));
            QVERIFY2(field->textWrap, qPrintable(field->name));
            QVERIFY2(field->formatString.isEmpty(), qPrintable(field->name));
        }
    }
}

void TestReportTemplates::logoIsOneAndTheSame()
{
    QByteArray first;
    for (const char *name : templates) {
        RptEngine engine;
        QVERIFY(engine.loadReportFile(fileOf(name)));
        const RptFieldObject *logo = engine.pages().first()->findFieldByName(QStringLiteral("logo"));
        QVERIFY(logo);
        const QImage image = QImage::fromData(logo->picture, qPrintable(logo->imgFormat));
        QCOMPARE(image.size(), QSize(96, 96));
        QVERIFY(image.pixelColor(48, 4) == QColor(0, 173, 239));
        if (first.isEmpty())
            first = logo->picture;
        QVERIFY2(logo->picture == first, name);
    }
}

/// Fields print in the order of the file: a stripe that is not first would hide a text.
void TestReportTemplates::stripeLiesUnderTheRow()
{
    QFETCH(QString, name);
    RptEngine engine;
    QVERIFY(engine.loadReportFile(fileOf(name)));
    const RptBandObject *rows = engine.pages().first()->findBand(Rpt::MasterData, 1);
    QCOMPARE(rows->fieldList.first()->name, QStringLiteral("bgColor"));
    // Where a field makes the row grow, the stripe grows with it.
    for (const RptFieldObject *field : rows->fieldList) {
        if (field->autoHeight)
            QVERIFY(rows->fieldList.first()->autoHeight);
    }
}

/// The templates' own fonts, which the packages of the program bring; with others, widths in other tests differ.
void TestReportTemplates::fontsAreThere()
{
    QSet<QString> families;
    for (const char *name : templates) {
        RptEngine engine;
        QVERIFY(engine.loadReportFile(fileOf(name)));
        for (const RptBandObject *band : qAsConst(engine.pages().first()->bandList)) {
            for (const RptFieldObject *field : band->fieldList) {
                if (field->fieldType == Rpt::label)
                    families.insert(field->font.family());
            }
        }
    }
    QCOMPARE(families, (QSet<QString>{"Roboto", "Roboto Condensed"}));
    for (const QString &family : qAsConst(families))
        QVERIFY2(QFontInfo(QFont(family)).family() == family, qPrintable("install the font " + family));
}

QTEST_MAIN(TestReportTemplates)
#include "tst_reporttemplates.moc"
