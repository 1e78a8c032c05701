#include "report/rptfieldobject.h"

#include "elements.h"
#include "report/rptcrosstabobject.h"

#include "support/logcatcher.h"

#include <QChart>
#include <QtTest>

#include <memory>

/// What the kinds of fields hold: pictures, charts, tables.
class TestRptFieldKinds : public QObject {
    Q_OBJECT

private slots:
    void picture();
    void hugePicture();
    void types_data();
    void types();
    void pictureMakesAnImage();
    void unknownAttributes();
    void deepNesting();
    void crossTab();
    void readTwice();
    void cloneLeavesOwnedThingsOut();
    void defaultColors();
    void cells();
    void debugOutput();
    void metaType();

private:
    std::unique_ptr<RptFieldObject> read(AttributeList attributes)
    {
        auto field = std::make_unique<RptFieldObject>();
        field->readFieldElement(nullptr, makeElement(&m_document, "TContainerField", attributes));
        return field;
    }

    QDomDocument m_document;
};

namespace {

QByteArray somePicture(int size)
{
    QByteArray bytes(size, '\0');
    for (int index = 0; index < size; ++index)
        bytes[index] = static_cast<char>(index * 31 % 251);
    return bytes;
}

} // namespace

void TestRptFieldKinds::picture()
{
    const QByteArray bytes = somePicture(1000);
    QCOMPARE(read({{"picture", QString::fromLatin1(bytes.toBase64())}})->picture, bytes);
    QCOMPARE(read({{"picture", ""}})->picture, QByteArray());
    QCOMPARE(read({{"picture", "!?"}})->picture, QByteArray());
    // What is no base64 is passed over, a character outside Latin-1 too.
    QCOMPARE(read({{"picture", QString::fromUtf8("aGVs\n🍵bG8=")}})->picture, QByteArray("hello"));
}

void TestRptFieldKinds::hugePicture()
{
    const QByteArray bytes = somePicture(10 * 1024 * 1024);
    const auto field = read({{"type", "image"}, {"picture", QString::fromLatin1(bytes.toBase64())}});
    QCOMPARE(field->fieldType, static_cast<int>(Rpt::image));
    QVERIFY(field->picture == bytes);
    const std::unique_ptr<RptFieldObject> copy(field->clone());
    QVERIFY(copy->picture == bytes);
}

void TestRptFieldKinds::types_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("number");
    const QStringList names{"label",      "labelImage",        "textRich",      "image",    "diagram",
                            "reactangle", "roundedReactangle", "circle",        "triangle", "rhombus",
                            "line",       "barcode",           "DatabaseImage", "crossTab"};
    for (int number = 0; number < names.size(); ++number)
        QTest::newRow(qPrintable(names.at(number))) << names.at(number) << number;
    QTest::newRow("unknown") << "rectangle" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestRptFieldKinds::types()
{
    QFETCH(QString, type);
    QFETCH(int, number);
    const auto field = read({{"type", type}});
    const std::unique_ptr<QtCharts::QChart> chart(field->chart);
    QCOMPARE(field->fieldType, number);
    QCOMPARE(field->chart != nullptr, number == Rpt::diagram);
    QCOMPARE(field->crossTab != nullptr, number == Rpt::crossTab);
}

void TestRptFieldKinds::pictureMakesAnImage()
{
    for (const char *const type : {"diagram", "line", "DatabaseImage", "crossTab", "whatever", ""}) {
        const auto field = read({{"type", type}, {"picture", "aGVsbG8="}});
        QCOMPARE(field->fieldType, static_cast<int>(Rpt::image));
        QVERIFY(!field->chart && !field->crossTab);
    }
    QCOMPARE(read({{"type", "barcode"}, {"picture", "aGVsbG8="}})->fieldType, static_cast<int>(Rpt::barcode));
    QCOMPARE(read({{"picture", "aGVsbG8="}})->fieldType, static_cast<int>(Rpt::label));
}

void TestRptFieldKinds::unknownAttributes()
{
    const LogCatcher log;
    const auto field = read({{"ZValue", "12"}, {"groupName", "<b>"}, {"onclick", "x()"}, {"name", "known"}});
    QCOMPARE(field->name, QStringLiteral("known"));
    QCOMPARE(log.lines(), QStringList());
}

void TestRptFieldKinds::deepNesting()
{
    const QDomElement element = makeElement(&m_document, "TContainerField", {{"name", "outer"}, {"type", "textRich"}});
    QDomElement inner = element;
    for (int depth = 0; depth < 1000; ++depth)
        inner = addChild(&m_document, inner, "TContainerField", {{"name", "inner"}});
    RptFieldObject field;
    field.readFieldElement(nullptr, element);
    QCOMPARE(field.name, QStringLiteral("outer"));
    QCOMPARE(field.fieldType, static_cast<int>(Rpt::textRich));
}

void TestRptFieldKinds::crossTab()
{
    const auto field = read({{"type", "crossTab"},
                             {"left", "5"},
                             {"top", "6"},
                             {"width", "100"},
                             {"height", "60"},
                             {"rowHeight", "15"},
                             {"colCount", "4"},
                             {"headerIsVisible", "1"}});
    QVERIFY(field->crossTab);
    QCOMPARE(field->crossTab->parentField, field.get());
    QCOMPARE(field->crossTab->rect, field->rect);
    QCOMPARE(field->crossTab->rowHeight, 15);
    QCOMPARE(field->crossTab->colCount, 4);
    QVERIFY(field->crossTab->headerIsVisible);
    QCOMPARE(field->crossTab->visibleRowCount(), 4);
}

void TestRptFieldKinds::readTwice()
{
    const QDomElement table = makeElement(&m_document, "TContainerField", {{"type", "crossTab"}, {"colCount", "4"}});
    RptFieldObject field;
    field.readFieldElement(nullptr, table);
    field.crossTab->buildCells();
    field.readFieldElement(nullptr, table);
    QCOMPARE(field.crossTab->fieldList.size(), 0);
    QCOMPARE(field.crossTab->colCount, 4);
}

void TestRptFieldKinds::cloneLeavesOwnedThingsOut()
{
    const auto table = read({{"type", "crossTab"}});
    const std::unique_ptr<RptFieldObject> tableCopy(table->clone());
    QCOMPARE(tableCopy->fieldType, static_cast<int>(Rpt::crossTab));
    QVERIFY(!tableCopy->crossTab);
    const auto diagram = read({{"type", "diagram"}});
    const std::unique_ptr<QtCharts::QChart> chart(diagram->chart);
    const std::unique_ptr<RptFieldObject> diagramCopy(diagram->clone());
    QVERIFY(diagram->chart && !diagramCopy->chart);
    table->crossTab->buildCells();
    const std::unique_ptr<RptFieldObject> cellCopy(table->crossTab->fieldList.first()->clone());
    QVERIFY(!cellCopy->isCrossTabCell());
}

void TestRptFieldKinds::defaultColors()
{
    RptFieldObject field;
    field.setDefaultFontColor(Qt::blue);
    field.setDefaultBackgroundColor(Qt::yellow);
    QCOMPARE(field.fontColor, QColor(Qt::blue));
    QCOMPARE(field.defaultFontColor, QColor(Qt::blue));
    QCOMPARE(field.backgroundColor, QColor(Qt::yellow));
    QCOMPARE(field.defaultBackgroundColor, QColor(Qt::yellow));
}

void TestRptFieldKinds::cells()
{
    RptCrossTabObject table;
    RptFieldObject field;
    field.parentCrossTab = &table;
    QVERIFY(field.isCrossTabCell());
}

void TestRptFieldKinds::debugOutput()
{
    RptFieldObject field;
    field.name = "total \"1\"";
    QString text;
    QDebug(&text).nospace() << field;
    QCOMPARE(text, QStringLiteral("total \"1\""));
}

void TestRptFieldKinds::metaType()
{
    const RptFieldObject field;
    QVERIFY(QMetaType::isRegistered(QMetaType::type("GraphDataList")));
}

QTEST_MAIN(TestRptFieldKinds)
#include "tst_rptfieldkinds.moc"
