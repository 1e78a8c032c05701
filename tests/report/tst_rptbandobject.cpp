#include "report/rptbandobject.h"

#include "elements.h"
#include "report/rptfieldobject.h"

#include <QDebug>
#include <QtTest>

#include <memory>

/// Bands as they are read; how a page holds them is the page's test.
class TestRptBandObject : public QObject {
    Q_OBJECT

private slots:
    void newBand();
    void bandWithoutAttributes();
    void bandNumbers_data();
    void bandNumbers();
    void bandFlags();
    void bandTexts();
    void bandTypes_data();
    void bandTypes();
    void everyChildIsAField();

private:
    QDomElement element(const char *tag, AttributeList attributes = {})
    {
        return makeElement(&m_document, tag, attributes);
    }
    std::unique_ptr<RptBandObject> readBand(AttributeList attributes)
    {
        auto band = std::make_unique<RptBandObject>();
        band->readBandElement(nullptr, element("ReportBand", attributes));
        return band;
    }

    QDomDocument m_document;
};

namespace {

struct BandNumber {
    const char *name;
    int RptBandObject::*member;
};

constexpr BandNumber bandNumbersOfFormat[] = {
    {"height", &RptBandObject::height}, {"height", &RptBandObject::realHeight}, {"width", &RptBandObject::width},
    {"left", &RptBandObject::left},     {"right", &RptBandObject::right},       {"bandNo", &RptBandObject::bandNo},
};

} // namespace

void TestRptBandObject::newBand()
{
    const RptBandObject band;
    QCOMPARE(band.restartLineNumbers, false);
    QCOMPARE(band.showInGroup, false);
    QCOMPARE(band.startNewPage, false);
    QVERIFY(band.fieldList.isEmpty());
    QVERIFY(!band.parentReportPage && !band.report);
}

void TestRptBandObject::bandWithoutAttributes()
{
    const auto band = readBand({});
    QCOMPARE(band->name, QString());
    QCOMPARE(band->groupingField, QString());
    QCOMPARE(band->dataSourceName, QString());
    for (const int zero : {band->height, band->realHeight, band->width, band->left, band->right, band->type})
        QCOMPARE(zero, 0);
    QCOMPARE(band->bandNo, 1);
    QVERIFY(!band->showInGroup && !band->startNewPage && !band->restartLineNumbers);
}

void TestRptBandObject::bandNumbers_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < 6; ++index)
        QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(index).arg(bandNumbersOfFormat[index].name))) << index;
}

void TestRptBandObject::bandNumbers()
{
    QFETCH(int, index);
    const BandNumber &number = bandNumbersOfFormat[index];
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QCOMPARE((*readBand({{number.name, known.first}})).*number.member, known.second);
}

void TestRptBandObject::bandFlags()
{
    const auto cases = numberTexts();
    for (const auto &known : cases) {
        QCOMPARE(readBand({{"showInGroup", known.first}})->showInGroup, known.second != 0);
        QCOMPARE(readBand({{"startNewPage", known.first}})->startNewPage, known.second != 0);
        QCOMPARE(readBand({{"restartLineNumbers", known.first}})->restartLineNumbers, false);
    }
}

void TestRptBandObject::bandTexts()
{
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts) {
        const auto band = readBand({{"name", text}, {"groupingField", text}, {"dataSourceName", text}});
        QCOMPARE(band->name, text);
        QCOMPARE(band->groupingField, text);
        QCOMPARE(band->dataSourceName, text);
    }
}

void TestRptBandObject::bandTypes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    const QStringList names{"PageHeader",   "ReportTitle",     "DataGroupHeader", "MasterHeader", "MasterData",
                            "MasterFooter", "DataGroupFooter", "ReportSummary",   "PageFooter"};
    for (int index = 0; index < names.size(); ++index)
        QTest::newRow(qPrintable(names.at(index))) << names.at(index) << index + 1;
    QTest::newRow("unknown") << "Detail" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestRptBandObject::bandTypes()
{
    QFETCH(QString, name);
    QTEST(readBand({{"type", name}})->type, "type");
}

void TestRptBandObject::everyChildIsAField()
{
    const QDomElement bandElement = element("ReportBand", {{"name", "band"}});
    addChild(&m_document, bandElement, "TContainerField", {{"name", "one"}});
    addChild(&m_document, bandElement, "ReportBand", {{"name", "two"}});
    const QDomElement third = addChild(&m_document, bandElement, "anything", {{"name", "three"}});
    addChild(&m_document, third, "TContainerField", {{"name", "inner"}});
    RptBandObject band;
    band.readBandElement(nullptr, bandElement);
    QString text;
    QDebug(&text).nospace() << band;
    QCOMPARE(text, QStringLiteral("band [one, two, three]"));
    for (const RptFieldObject *field : qAsConst(band.fieldList))
        QCOMPARE(field->parentBand, &band);
}

QTEST_MAIN(TestRptBandObject)
#include "tst_rptbandobject.moc"
