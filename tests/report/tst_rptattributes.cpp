#include "report/rptattributes.h"

#include "elements.h"

#include "support/logcatcher.h"

#include <QtTest>

#include <limits>

class TestRptAttributes : public QObject {
    Q_OBJECT

private slots:
    void texts();
    void numbersAndFlags_data();
    void numbersAndFlags();
    void missingNumbersTakeTheDefault();
    void reals_data();
    void reals();
    void colors_data();
    void colors();
    void emptyColorIsInvalid();
    void colorsReportNothing();
    void hugeColorTexts();
    void colorTexts_data();
    void colorTexts();
    void everyChannelGoesThere();
    void alignments_data();
    void alignments();
    void everyAlignmentTogether();
    void penStyles_data();
    void penStyles();
    void bandTypes_data();
    void bandTypes();
    void fieldTypes_data();
    void fieldTypes();
    void fieldWithoutType();
    void fieldTypeNames_data();
    void fieldTypeNames();
    void bandByTypeName();
    void bandByTypeNameSkipsOtherTags();

private:
    QDomElement field(AttributeList attributes) { return makeElement(&m_document, "TContainerField", attributes); }

    QDomDocument m_document;
};

namespace {

void addTypes()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("alone");
    QTest::addColumn<int>("withPicture");
}

} // namespace

void TestRptAttributes::texts()
{
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts) {
        const QDomElement element = field({{"name", text}});
        QCOMPARE(RptAttributes::text(element, "name", "default"), text);
        QCOMPARE(RptAttributes::text(element, "other", "default"), QStringLiteral("default"));
        QCOMPARE(RptAttributes::text(element, "other"), QString());
    }
}

void TestRptAttributes::numbersAndFlags_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QTest::newRow(qPrintable(known.first.left(20))) << known.first << known.second;
}

void TestRptAttributes::numbersAndFlags()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    const LogCatcher log;
    const QDomElement element = field({{"attribute", text}});
    QCOMPARE(RptAttributes::number(element, "attribute", "5"), number);
    QCOMPARE(RptAttributes::flag(element, "attribute", "1"), number != 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestRptAttributes::missingNumbersTakeTheDefault()
{
    const QDomElement element = field({{"Attribute", "5"}});
    QCOMPARE(RptAttributes::number(element, "attribute"), 0);
    QCOMPARE(RptAttributes::number(element, "attribute", "13"), 13);
    QCOMPARE(RptAttributes::number(element, "attribute", ""), 0);
    QCOMPARE(RptAttributes::flag(element, "attribute"), false);
    QCOMPARE(RptAttributes::flag(element, "attribute", "1"), true);
    QCOMPARE(RptAttributes::real(element, "attribute"), 0.0);
    QCOMPARE(RptAttributes::real(element, "attribute", "0.5"), 0.5);
    QCOMPARE(RptAttributes::number(QDomElement(), "attribute", "13"), 13);
}

void TestRptAttributes::reals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("whole") << "3" << 3.0;
    QTest::newRow("fraction") << "0.25" << 0.25;
    QTest::newRow("negative") << "-0.25" << -0.25;
    QTest::newRow("exponent") << "1.5e3" << 1500.0;
    QTest::newRow("largest") << "1.7976931348623157e308" << std::numeric_limits<double>::max();
    QTest::newRow("beyond") << "1e999" << 0.0;
    QTest::newRow("inf") << "inf" << 0.0;
    QTest::newRow("-inf") << "-inf" << 0.0;
    QTest::newRow("nan") << "nan" << 0.0;
    QTest::newRow("decimal comma") << "0,5" << 0.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("text") << "half" << 0.0;
    QTest::newRow("unit") << "1.5mm" << 0.0;
}

void TestRptAttributes::reals()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QCOMPARE(RptAttributes::real(field({{"attribute", text}}), "attribute", "0.5"), value);
}

void TestRptAttributes::colors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("full") << "rgba(1,2,3,255)" << QColor(1, 2, 3, 255);
    QTest::newRow("transparent") << "rgba(255,254,253,0)" << QColor(255, 254, 253, 0);
    QTest::newRow("no alpha") << "rgba(1,2,3)" << QColor(1, 2, 3, 0);
    QTest::newRow("rgb") << "rgb(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("any word") << "cmyk(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("no word") << "(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("capitals") << "RGBA(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("five sections") << "rgba(1,2,3,4,5)" << QColor(1, 2, 3, 4);
    QTest::newRow("two pairs") << "rgba(1,2,3,4)(5,6,7,8)" << QColor(1, 2, 3, 4);
    QTest::newRow("closing first") << ")rgba(1,2,3,4)" << QColor(1, 2, 3, 4);
    QTest::newRow("no number") << "rgba(red,2,,4)" << QColor(0, 2, 0, 4);
    QTest::newRow("reals") << "rgba(1.5,2,3,1.0)" << QColor(0, 2, 3, 0);
    QTest::newRow("empty brackets") << "rgba()" << QColor(0, 0, 0, 0);
    QTest::newRow("beyond") << "rgba(256,-1,1000,2147483647)" << QColor(255, 0, 255, 255);
    QTest::newRow("far beyond") << "rgba(99999999999,2,3,4)" << QColor(0, 2, 3, 4);
    QTest::newRow("hash") << "#ff0000" << QColor(0, 0, 0, 0);
    QTest::newRow("name") << "red" << QColor(0, 0, 0, 0);
    QTest::newRow("not closed") << "rgba(1,2,3,4" << QColor(0, 0, 0, 0);
    QTest::newRow("not opened") << "1,2,3,4)" << QColor(0, 0, 0, 0);
    QTest::newRow("blank") << " " << QColor(0, 0, 0, 0);
    QTest::newRow("markup") << "<b>(1,2,3,4)</b>" << QColor(1, 2, 3, 4);
}

void TestRptAttributes::colors()
{
    QFETCH(QString, text);
    const LogCatcher log;
    QTEST(RptAttributes::color(text), "color");
    QVERIFY(RptAttributes::color(text).isValid());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptAttributes::emptyColorIsInvalid()
{
    QVERIFY(!RptAttributes::color(QString()).isValid());
    QVERIFY(!RptAttributes::color(QLatin1String("")).isValid());
}

void TestRptAttributes::colorsReportNothing()
{
    const LogCatcher log;
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts)
        RptAttributes::color(text);
    QCOMPARE(log.lines(), QStringList());
}

void TestRptAttributes::hugeColorTexts()
{
    QCOMPARE(RptAttributes::color(QString(1000000, '(')), QColor(0, 0, 0, 0));
    QCOMPARE(RptAttributes::color('(' + QString(1000000, ',') + ')'), QColor(0, 0, 0, 0));
}

void TestRptAttributes::colorTexts_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("white") << QColor(Qt::white) << "rgba(255,255,255,255)";
    QTest::newRow("transparent") << QColor(1, 20, 200, 0) << "rgba(1,20,200,0)";
    QTest::newRow("invalid") << QColor() << "rgba(0,0,0,255)";
    QTest::newRow("other model") << QColor::fromHsv(0, 255, 255) << "rgba(255,0,0,255)";
}

void TestRptAttributes::colorTexts()
{
    QFETCH(QColor, color);
    QTEST(RptAttributes::colorText(color), "text");
}

void TestRptAttributes::everyChannelGoesThere()
{
    for (int value = 0; value < 256; ++value) {
        const QColor color(value, 255 - value, (value * 7) % 256, (value * 13) % 256);
        QCOMPARE(RptAttributes::color(RptAttributes::colorText(color)), color);
    }
}

void TestRptAttributes::alignments_data()
{
    QTest::addColumn<QString>("horizontal");
    QTest::addColumn<QString>("vertical");
    QTest::addColumn<int>("flags");
    QTest::newRow("none") << ""
                          << "" << 0;
    QTest::newRow("hLeft") << "hLeft"
                           << "" << 1;
    QTest::newRow("hRight") << "hRight"
                            << "" << 2;
    QTest::newRow("hCenter") << "hCenter"
                             << "" << 4;
    QTest::newRow("hJustify") << "hJustify"
                              << "" << 8;
    QTest::newRow("vTop") << ""
                          << "vTop" << 32;
    QTest::newRow("vBottom") << ""
                             << "vBottom" << 64;
    QTest::newRow("vCenter") << ""
                             << "vCenter" << 128;
    QTest::newRow("both") << "hJustify"
                          << "vBottom" << (8 | 64);
    QTest::newRow("unknown horizontal") << "hMiddle"
                                        << "vTop" << 32;
    QTest::newRow("unknown vertical") << "hLeft"
                                      << "vMiddle" << 1;
    QTest::newRow("exchanged") << "vTop"
                               << "hLeft" << 0;
    QTest::newRow("capitals") << "HLEFT"
                              << "VTOP" << 0;
    QTest::newRow("blanks") << " hLeft"
                            << "vTop " << 0;
    QTest::newRow("number") << "1"
                            << "32" << 0;
}

void TestRptAttributes::alignments()
{
    QFETCH(QString, horizontal);
    QFETCH(QString, vertical);
    QTEST(static_cast<int>(RptAttributes::alignment(horizontal, vertical)), "flags");
}

void TestRptAttributes::everyAlignmentTogether()
{
    const QStringList horizontal{"hLeft", "hRight", "hCenter", "hJustify"};
    const QStringList vertical{"vTop", "vBottom", "vCenter"};
    for (int h = 0; h < horizontal.size(); ++h) {
        for (int v = 0; v < vertical.size(); ++v)
            QCOMPARE(static_cast<int>(RptAttributes::alignment(horizontal.at(h), vertical.at(v))), 1 << h | 32 << v);
    }
}

void TestRptAttributes::penStyles_data()
{
    QTest::addColumn<QString>("borderStyle");
    QTest::addColumn<int>("penStyle");
    QTest::newRow("solid") << "solid" << 1;
    QTest::newRow("dashed") << "dashed" << 2;
    QTest::newRow("dotted") << "dotted" << 3;
    QTest::newRow("dot-dash") << "dot-dash" << 4;
    QTest::newRow("dot-dot-dash") << "dot-dot-dash" << 5;
    QTest::newRow("empty") << "" << 1;
    QTest::newRow("none") << "none" << 1;
    QTest::newRow("capitals") << "Dashed" << 1;
    QTest::newRow("double") << "double" << 1;
    QTest::newRow("markup") << "<i>dotted</i>" << 1;
}

void TestRptAttributes::penStyles()
{
    QFETCH(QString, borderStyle);
    QTEST(static_cast<int>(RptAttributes::penStyle(borderStyle)), "penStyle");
}

void TestRptAttributes::bandTypes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    const QStringList names{"PageHeader",   "ReportTitle",     "DataGroupHeader", "MasterHeader", "MasterData",
                            "MasterFooter", "DataGroupFooter", "ReportSummary",   "PageFooter"};
    for (int index = 0; index < names.size(); ++index)
        QTest::newRow(qPrintable(names.at(index))) << names.at(index) << index + 1;
    for (const char *const unknown :
         {"", "pageheader", "Rpt::PageHeader", "BandType::PageHeader", "PageHeader ", "1", "Detail", "<b>"})
        QTest::newRow(*unknown == '\0' ? "empty" : unknown) << QString::fromLatin1(unknown) << 0;
}

void TestRptAttributes::bandTypes()
{
    QFETCH(QString, name);
    QTEST(RptAttributes::bandType(name), "type");
}

void TestRptAttributes::fieldTypes_data()
{
    addTypes();
    QTest::newRow("label") << "label" << 0 << 0;
    QTest::newRow("labelImage") << "labelImage" << 1 << 1;
    QTest::newRow("textRich") << "textRich" << 2 << 2;
    QTest::newRow("image") << "image" << 3 << 3;
    QTest::newRow("diagram") << "diagram" << 4 << 3;
    QTest::newRow("reactangle") << "reactangle" << 5 << 5;
    QTest::newRow("roundedReactangle") << "roundedReactangle" << 6 << 6;
    QTest::newRow("circle") << "circle" << 7 << 7;
    QTest::newRow("triangle") << "triangle" << 8 << 8;
    QTest::newRow("rhombus") << "rhombus" << 9 << 9;
    QTest::newRow("line") << "line" << 10 << 3;
    QTest::newRow("barcode") << "barcode" << 11 << 11;
    QTest::newRow("DatabaseImage") << "DatabaseImage" << 12 << 3;
    QTest::newRow("crossTab") << "crossTab" << 13 << 3;
    for (const char *const unknown : {"", "rectangle", "Label", "databaseImage", "Rpt::image", "3", "crosstab "})
        QTest::newRow(*unknown == '\0' ? "empty" : unknown) << QString::fromLatin1(unknown) << 0 << 3;
}

void TestRptAttributes::fieldTypes()
{
    QFETCH(QString, type);
    QTEST(static_cast<int>(RptAttributes::fieldType(field({{"type", type}}))), "alone");
    QTEST(static_cast<int>(RptAttributes::fieldType(field({{"type", type}, {"picture", "text"}}))), "alone");
    QTEST(static_cast<int>(RptAttributes::fieldType(field({{"type", type}, {"picture", "iVBORw0"}}))), "withPicture");
    QTEST(static_cast<int>(RptAttributes::fieldType(field({{"type", type}, {"picture", "Text"}}))), "withPicture");
    QTEST(static_cast<int>(RptAttributes::fieldType(field({{"type", type}, {"picture", ""}}))), "withPicture");
}

void TestRptAttributes::fieldWithoutType()
{
    QCOMPARE(RptAttributes::fieldType(field({})), Rpt::label);
    // A missing type reads as "label", which is tested before the picture.
    QCOMPARE(RptAttributes::fieldType(field({{"picture", "iVBORw0"}})), Rpt::label);
    QCOMPARE(RptAttributes::fieldType(QDomElement()), Rpt::label);
}

void TestRptAttributes::fieldTypeNames_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    const QStringList names{"label",      "labelImage",        "textRich",      "image",    "diagram",
                            "reactangle", "roundedReactangle", "circle",        "triangle", "rhombus",
                            "line",       "barcode",           "DatabaseImage", "crossTab"};
    for (int number = 0; number < names.size(); ++number)
        QTest::newRow(qPrintable(names.at(number))) << number << names.at(number);
    QTest::newRow("14") << 14 << "label";
    QTest::newRow("-1") << -1 << "label";
    QTest::newRow("largest") << std::numeric_limits<int>::max() << "label";
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << "label";
}

void TestRptAttributes::fieldTypeNames()
{
    QFETCH(int, number);
    QTEST(RptAttributes::fieldTypeName(number), "name");
}

void TestRptAttributes::bandByTypeName()
{
    const QDomElement report = makeElement(&m_document, "Report");
    addChild(&m_document, report, "ReportBand", {{"type", "MasterData"}, {"name", "first"}});
    addChild(&m_document, report, "ReportBand", {{"type", "MasterData"}, {"name", "second"}});
    addChild(&m_document, report, "ReportBand", {{"type", "PageFooter"}, {"name", "third"}});
    QCOMPARE(RptAttributes::bandByTypeName(report, Rpt::MasterData).attribute("name"), QStringLiteral("first"));
    QCOMPARE(RptAttributes::bandByTypeName(report, Rpt::PageFooter).attribute("name"), QStringLiteral("third"));
    QVERIFY(RptAttributes::bandByTypeName(report, Rpt::PageHeader).isNull());
    QVERIFY(RptAttributes::bandByTypeName(QDomElement(), Rpt::MasterData).isNull());
}

void TestRptAttributes::bandByTypeNameSkipsOtherTags()
{
    const QDomElement report = makeElement(&m_document, "Report");
    addChild(&m_document, report, "Band", {{"type", "MasterData"}});
    const QDomElement inner = addChild(&m_document, report, "ReportBand", {{"type", "masterdata"}});
    addChild(&m_document, inner, "ReportBand", {{"type", "MasterData"}});
    QVERIFY(RptAttributes::bandByTypeName(report, Rpt::MasterData).isNull());
    addChild(&m_document, report, "ReportBand", {{"type", "MasterData"}, {"name", "last"}});
    QCOMPARE(RptAttributes::bandByTypeName(report, Rpt::MasterData).attribute("name"), QStringLiteral("last"));
}

QTEST_GUILESS_MAIN(TestRptAttributes)
#include "tst_rptattributes.moc"
