#include "report/rptpageobject.h"

#include "elements.h"
#include "report/rptbandobject.h"
#include "report/rptfieldobject.h"

#include "support/logcatcher.h"

#include <QBuffer>
#include <QDebug>
#include <QImage>
#include <QtTest>

#include <memory>

/// Page definitions with their bands.
class TestRptPageObject : public QObject {
    Q_OBJECT

private slots:
    void newPage();
    void elementWithoutAttributes();
    void pageNumbers_data();
    void pageNumbers();
    void pageTexts();
    void opacity_data();
    void opacity();
    void watermark();
    void brokenWatermark_data();
    void brokenWatermark();
    void onlyReportBands();
    void unknownContent();
    void bandCount();
    void findBand();
    void findFieldByName();
    void links();
    void cloneOfABand();
    void cloneOfAPage();
    void debugOutput();

private:
    QDomElement element(const char *tag, AttributeList attributes = {})
    {
        return makeElement(&m_document, tag, attributes);
    }
    std::unique_ptr<RptPageObject> readPage(const QDomElement &report)
    {
        auto page = std::make_unique<RptPageObject>();
        page->readPageElement(nullptr, report);
        return page;
    }
    /// Two bands of master data, the second with the fields of the first, and a footer.
    std::unique_ptr<RptPageObject> somePage();

    QDomDocument m_document;
};

namespace {

struct PageNumber {
    const char *name;
    int RptPageObject::*member;
};

constexpr PageNumber pageNumbersOfFormat[] = {
    {"pageNo", &RptPageObject::pageNo},           {"orientation", &RptPageObject::orientation},
    {"pageWidth", &RptPageObject::pageWidth},     {"pageHeight", &RptPageObject::pageHeight},
    {"marginsLeft", &RptPageObject::marginsLeft}, {"marginsRight", &RptPageObject::marginsRight},
    {"marginsTop", &RptPageObject::marginsTop},   {"marginsBottom", &RptPageObject::marginsBottom},
    {"borderWidth", &RptPageObject::borderWidth},
};

QByteArray pngBytes()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(QColor(10, 20, 30));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

template<class Object> QString debugText(const Object &object)
{
    QString text;
    QDebug(&text).nospace() << object;
    return text;
}

} // namespace

std::unique_ptr<RptPageObject> TestRptPageObject::somePage()
{
    const QDomElement report = element("Report", {{"pageNo", "4"}, {"pageWidth", "840"}});
    const QDomElement first =
        addChild(&m_document, report, "ReportBand", {{"name", "first"}, {"type", "MasterData"}, {"bandNo", "2"}});
    addChild(&m_document, first, "TContainerField", {{"name", "a"}, {"value", "first a"}});
    addChild(&m_document, first, "TContainerField", {{"name", "b"}, {"value", "first b"}});
    const QDomElement second =
        addChild(&m_document, report, "ReportBand", {{"name", "second"}, {"type", "MasterData"}, {"height", "50"}});
    addChild(&m_document, second, "TContainerField", {{"name", "b"}, {"value", "second b"}});
    addChild(&m_document, second, "TContainerField", {{"name", "c"}, {"value", "second c"}});
    addChild(&m_document, report, "ReportBand", {{"name", "foot"}, {"type", "PageFooter"}});
    return readPage(report);
}

void TestRptPageObject::newPage()
{
    const RptPageObject page;
    QCOMPARE(page.pageHeight, 1188);
    QCOMPARE(page.pageWidth, 840);
    for (const int margin : {page.marginsLeft, page.marginsRight, page.marginsTop, page.marginsBottom})
        QCOMPARE(margin, 40);
    QCOMPARE(page.orientation, 0);
    QCOMPARE(page.border, false);
    QCOMPARE(page.borderWidth, 1);
    QCOMPARE(page.borderColor, QColor(Qt::black));
    QCOMPARE(page.borderStyle, QStringLiteral("solid"));
    QCOMPARE(page.watermark, false);
    QCOMPARE(page.watermarkOpacity, 1.0);
    QVERIFY(page.watermarkPixmap.isNull());
    QVERIFY(page.bandList.isEmpty());
    QVERIFY(!page.sqlSource && !page.report);
    QCOMPARE(page.sqlConnection.active, false);
    QCOMPARE(page.sqlConnection.dbPort, 0);
}

void TestRptPageObject::elementWithoutAttributes()
{
    const LogCatcher log;
    const auto page = readPage(element("Report"));
    for (const PageNumber &number : pageNumbersOfFormat)
        QCOMPARE((*page).*number.member, 0);
    QCOMPARE(page->border, false);
    QVERIFY(!page->borderColor.isValid());
    QCOMPARE(page->borderStyle, QString());
    QCOMPARE(page->watermark, false);
    QCOMPARE(page->watermarkOpacity, 0.5);
    QVERIFY(page->watermarkPixmap.isNull());
    QCOMPARE(log.lines(), QStringList());
}

void TestRptPageObject::pageNumbers_data()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const PageNumber &number : pageNumbersOfFormat)
        QTest::newRow(number.name) << index++;
}

void TestRptPageObject::pageNumbers()
{
    QFETCH(int, index);
    const PageNumber &number = pageNumbersOfFormat[index];
    const auto cases = numberTexts();
    for (const auto &known : cases)
        QCOMPARE((*readPage(element("Report", {{number.name, known.first}}))).*number.member, known.second);
}

void TestRptPageObject::pageTexts()
{
    const auto cases = numberTexts();
    for (const auto &known : cases) {
        QCOMPARE(readPage(element("Report", {{"border", known.first}}))->border, known.second != 0);
        QCOMPARE(readPage(element("Report", {{"watermark", known.first}}))->watermark, known.second != 0);
    }
    const QVector<QString> allTexts = hostileTexts();
    for (const QString &text : allTexts)
        QCOMPARE(readPage(element("Report", {{"borderStyle", text}}))->borderStyle, text);
    QCOMPARE(readPage(element("Report", {{"borderColor", "rgba(1,2,3,4)"}}))->borderColor, QColor(1, 2, 3, 4));
    QCOMPARE(readPage(element("Report", {{"borderColor", "blue"}}))->borderColor, QColor(0, 0, 0, 0));
    QCOMPARE(readPage(element("Report", {{"borderWidth", "1px"}}))->borderWidth, 0); // a field's alone has a unit
}

void TestRptPageObject::opacity_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("opacity");
    QTest::newRow("some") << "0.25" << 0.25;
    QTest::newRow("whole") << "1" << 1.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("comma") << "0,25" << 0.0;
    QTest::newRow("nan") << "nan" << 0.0;
    QTest::newRow("beyond") << "12" << 12.0;
}

void TestRptPageObject::opacity()
{
    QFETCH(QString, text);
    QTEST(readPage(element("Report", {{"watermarkOpacity", text}}))->watermarkOpacity, "opacity");
}

void TestRptPageObject::watermark()
{
    const QString base64 = QString::fromLatin1(pngBytes().toBase64());
    // The pixmap is there whether or not it is shown.
    const auto page = readPage(element("Report", {{"watermarkPixmap", base64}}));
    QCOMPARE(page->watermarkPixmap.size(), QSize(3, 2));
    QCOMPARE(page->watermarkPixmap.toImage().pixelColor(2, 1), QColor(10, 20, 30));
    QCOMPARE(page->watermark, false);
    page->readPageElement(nullptr, element("Report"));
    QVERIFY(page->watermarkPixmap.isNull());
}

void TestRptPageObject::brokenWatermark_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no base64") << "?!<b>";
    QTest::newRow("no image") << "aGVsbG8=";
    QTest::newRow("half") << QString::fromLatin1(pngBytes().left(30).toBase64());
    QTest::newRow("other format") << QString::fromLatin1(QByteArray("GIF89a").toBase64());
    QTest::newRow("huge") << QString(10 * 1024 * 1024, 'A');
}

void TestRptPageObject::brokenWatermark()
{
    QFETCH(QString, text);
    const auto page = readPage(element("Report", {{"watermarkPixmap", text}, {"pageNo", "3"}}));
    QVERIFY(page->watermarkPixmap.isNull());
    QCOMPARE(page->pageNo, 3);
}

void TestRptPageObject::onlyReportBands()
{
    const QDomElement report = element("Report");
    addChild(&m_document, report, "DataSource", {{"name", "source"}});
    addChild(&m_document, report, "ReportBand", {{"name", "first"}});
    addChild(&m_document, report, "reportband", {{"name", "none"}});
    const QDomElement other = addChild(&m_document, report, "Other");
    addChild(&m_document, other, "ReportBand", {{"name", "deep"}});
    QDomElement(report).appendChild(m_document.createComment("comment"));
    addChild(&m_document, report, "ReportBand", {{"name", "second"}});
    QCOMPARE(debugText(*readPage(report)), QStringLiteral("Report #0 [first [], second []]"));
}

void TestRptPageObject::unknownContent()
{
    const LogCatcher log;
    QDomDocument document;
    QVERIFY(document.setContent(QStringLiteral("<Report pageNo='2' onload='x()' lib='&lt;b&gt;'>text<!-- c -->"
                                               "<Script><![CDATA[]]></Script>"
                                               "<ReportBand name='n' groupName='g'>text<?pi x?>"
                                               "<TContainerField ZValue='1' name='f'/></ReportBand></Report>")));
    const auto page = readPage(document.documentElement());
    QCOMPARE(debugText(*page), QStringLiteral("Report #2 [n [f]]"));
    QCOMPARE(log.lines(), QStringList());
}

void TestRptPageObject::bandCount()
{
    const auto page = somePage();
    QCOMPARE(page->bandCount(Rpt::MasterData), 2);
    QCOMPARE(page->bandCount(Rpt::PageFooter), 1);
    QCOMPARE(page->bandCount(Rpt::PageHeader), 0);
    QCOMPARE(page->bandCount(-1), 0);
    page->bandList.first()->bandNo = 2147483647;
    QCOMPARE(page->bandCount(Rpt::MasterData), 2147483647);
    page->bandList.last()->bandNo = -4;
    QCOMPARE(page->bandCount(Rpt::PageFooter), 0);
}

void TestRptPageObject::findBand()
{
    const auto page = somePage();
    QCOMPARE(page->findBand(Rpt::MasterData, 2), page->bandList.at(0));
    QCOMPARE(page->findBand(Rpt::MasterData, 1), page->bandList.at(1));
    QCOMPARE(page->findBand(Rpt::PageFooter, 1), page->bandList.at(2));
    QVERIFY(!page->findBand(Rpt::MasterData, 3));
    QVERIFY(!page->findBand(Rpt::PageHeader, 1));
    page->bandList.at(1)->bandNo = 2;
    QCOMPARE(page->findBand(Rpt::MasterData, 2), page->bandList.at(0));
}

void TestRptPageObject::findFieldByName()
{
    const auto page = somePage();
    QCOMPARE(page->findFieldByName("a")->value, QStringLiteral("first a"));
    QCOMPARE(page->findFieldByName("b")->value, QStringLiteral("first b"));
    QCOMPARE(page->findFieldByName("c")->value, QStringLiteral("second c"));
    QVERIFY(!page->findFieldByName("C"));
    QVERIFY(!page->findFieldByName(""));
    QVERIFY(!RptPageObject().findFieldByName("a"));
}

void TestRptPageObject::links()
{
    const auto page = somePage();
    for (const RptBandObject *band : qAsConst(page->bandList))
        QCOMPARE(band->parentReportPage, page.get());
    auto *band = new RptBandObject;
    auto *field = new RptFieldObject;
    page->addBand(band);
    band->addField(field);
    QCOMPARE(page->bandList.last(), band);
    QCOMPARE(band->parentReportPage, page.get());
    QCOMPARE(band->fieldList, QList<RptFieldObject *>({field}));
    QCOMPARE(field->parentBand, band);
}

void TestRptPageObject::cloneOfABand()
{
    const auto page = somePage();
    const RptBandObject *band = page->bandList.at(1);
    const std::unique_ptr<RptBandObject> copy(band->clone());
    QCOMPARE(copy->name, QStringLiteral("ReportTitle"));
    QCOMPARE(copy->realHeight, 50);
    QCOMPARE(copy->type, static_cast<int>(Rpt::MasterData));
    QCOMPARE(copy->height, 0);
    QCOMPARE(copy->bandNo, 1);
    QVERIFY(!copy->parentReportPage);
    QCOMPARE(copy->fieldList.size(), 2);
    QCOMPARE(copy->fieldList.at(1)->value, QStringLiteral("second c"));
    QCOMPARE(copy->fieldList.at(1)->parentBand, copy.get());
    QVERIFY(copy->fieldList.at(1) != band->fieldList.at(1));
}

void TestRptPageObject::cloneOfAPage()
{
    const auto page = somePage();
    page->marginsTop = 12;
    page->border = true;
    page->watermarkOpacity = 0.75;
    page->watermarkPixmap.loadFromData(pngBytes());
    page->recordCount = 9;
    page->sqlConnection.sqlQuery = "select 1";
    std::unique_ptr<RptPageObject> copy(page->clone());
    QCOMPARE(debugText(*copy), QStringLiteral("Report #4 [ReportTitle [a, b], ReportTitle [b, c], ReportTitle []]"));
    QCOMPARE(copy->pageWidth, 840);
    QCOMPARE(copy->pageHeight, 0);
    QCOMPARE(copy->marginsTop, 12);
    QCOMPARE(copy->border, true);
    QCOMPARE(copy->watermarkOpacity, 0.75);
    QCOMPARE(copy->watermarkPixmap.size(), QSize(3, 2));
    QCOMPARE(copy->recordCount, 9);
    QCOMPARE(copy->sqlConnection.sqlQuery, QStringLiteral("select 1"));
    for (const RptBandObject *band : qAsConst(copy->bandList))
        QCOMPARE(band->parentReportPage, copy.get());
    copy.reset();
    QCOMPARE(page->findFieldByName("a")->value, QStringLiteral("first a"));
}

void TestRptPageObject::debugOutput()
{
    QCOMPARE(debugText(RptPageObject()), QStringLiteral("Report #0 []"));
    QCOMPARE(debugText(*somePage()), QStringLiteral("Report #4 [first [a, b], second [b, c], foot []]"));
    const LogCatcher log;
    qDebug() << *somePage() << 1;
    QCOMPARE(log.lines(), QStringList({"Report #4 [first [a, b], second [b, c], foot []] 1"}));
}

QTEST_MAIN(TestRptPageObject)
#include "tst_rptpageobject.moc"
