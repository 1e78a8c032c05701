#include "crosstabfield.h"
#include "elements.h"

#include "support/logcatcher.h"

#include <QtTest>

#include <limits>
#include <memory>

/// The parameters and counts of a cross table.
class TestRptCrossTabObject : public QObject {
    Q_OBJECT

private slots:
    void newTable();
    void elementWithoutAttributes();
    void readsEveryParameter();
    void numbers();
    void roundTrip();
    void writesTheFormsOfTheFormat();
    void visibleRows_data();
    void visibleRows();
    void columnCounts();
    void rowCounts_data();
    void rowCounts();
    void hugeCounts();
    void noCells_data();
    void noCells();
    void tooManyCells();
    void buildsAnew();
    void copies();

private:
    RptCrossTabObject *table(int rows) { return makeTable(&m_field, rows); }

    std::unique_ptr<RptFieldObject> m_field;
    QDomDocument m_document;
};

void TestRptCrossTabObject::newTable()
{
    const RptCrossTabObject table;
    QCOMPARE(table.rect, QRect(QPoint(0, 0), QPoint(499, 499)));
    QCOMPARE(table.totalBackgroundColor, QColor(Qt::white));
    QCOMPARE(table.headerBackgroundColor, QColor(Qt::white));
    QCOMPARE(table.colCount, 3);
    QCOMPARE(table.rowCount, 3);
    QCOMPARE(table.rowHeight, 20);
    QCOMPARE(table.processedCount, 0);
    QVERIFY(!table.totalByRowVisible && !table.totalByColVisible && !table.subtotalIsVisible && !table.headerIsVisible);
    QVERIFY(table.fieldList.isEmpty() && table.colHeader.isEmpty() && table.elements.isEmpty() && !table.parentField);
    QVERIFY(QMetaType::isRegistered(QMetaType::type("RptCrossTabObject")));
}

void TestRptCrossTabObject::elementWithoutAttributes()
{
    RptCrossTabObject table;
    table.rowHeight = table.colCount = 9;
    table.rowCount = 7;
    table.totalByColVisible = table.totalByRowVisible = table.subtotalIsVisible = table.headerIsVisible = true;
    table.totalBackgroundColor = table.headerBackgroundColor = Qt::red;
    table.readCrossTabElement(makeElement(&m_document, "TContainerField"));
    QCOMPARE(table.rowHeight, 20);
    QCOMPARE(table.colCount, 3);
    QCOMPARE(table.rowCount, 7); // no attribute sets it
    QVERIFY(!table.totalByRowVisible && !table.totalByColVisible && !table.subtotalIsVisible && !table.headerIsVisible);
    QCOMPARE(table.totalBackgroundColor, QColor(Qt::white));
    QCOMPARE(table.headerBackgroundColor, QColor(Qt::white));
}

void TestRptCrossTabObject::readsEveryParameter()
{
    const struct {
        const char *name;
        bool RptCrossTabObject::*member;
    } flags[] = {{"totalByColVisible", &RptCrossTabObject::totalByColVisible},
                 {"totalByRowVisible", &RptCrossTabObject::totalByRowVisible},
                 {"subtotalIsVisible", &RptCrossTabObject::subtotalIsVisible},
                 {"headerIsVisible", &RptCrossTabObject::headerIsVisible}};
    for (const auto &set : flags) {
        RptCrossTabObject table;
        table.readCrossTabElement(makeElement(&m_document, "TContainerField", {{set.name, "1"}}));
        for (const auto &flag : flags)
            QCOMPARE(table.*flag.member, flag.name == set.name);
    }
    RptCrossTabObject table;
    table.readCrossTabElement(
        makeElement(&m_document, "TContainerField",
                    {{"totalBackgroundColor", "rgba(1,2,3,4)"}, {"headerBackgroundColor", "rgba(5,6,7,8)"}}));
    QCOMPARE(table.totalBackgroundColor, QColor(1, 2, 3, 4));
    QCOMPARE(table.headerBackgroundColor, QColor(5, 6, 7, 8));
}

void TestRptCrossTabObject::numbers()
{
    const auto cases = numberTexts();
    for (const auto &known : cases) {
        RptCrossTabObject table;
        table.readCrossTabElement(
            makeElement(&m_document, "TContainerField",
                        {{"rowHeight", known.first}, {"colCount", known.first}, {"headerIsVisible", known.first}}));
        QCOMPARE(table.rowHeight, known.second);
        QCOMPARE(table.colCount, known.second);
        QCOMPARE(table.headerIsVisible, known.second != 0);
    }
}

void TestRptCrossTabObject::roundTrip()
{
    for (int mask = 0; mask < 16; ++mask) {
        RptCrossTabObject table;
        table.rowHeight = 11 + mask;
        table.colCount = 2147483647 - mask;
        table.totalByColVisible = mask & 1;
        table.totalByRowVisible = mask & 2;
        table.subtotalIsVisible = mask & 4;
        table.headerIsVisible = mask & 8;
        table.totalBackgroundColor = QColor(mask, 2, 3, 255 - mask);
        table.headerBackgroundColor = QColor(4, mask, 6, mask);
        const QDomElement element = makeElement(&m_document, "TContainerField", {{"name", "kept"}});
        table.writeCrossTabElement(element);
        RptCrossTabObject copy;
        copy.readCrossTabElement(element);
        QCOMPARE(copy.rowHeight, table.rowHeight);
        QCOMPARE(copy.colCount, table.colCount);
        QCOMPARE(copy.totalByColVisible, table.totalByColVisible);
        QCOMPARE(copy.totalByRowVisible, table.totalByRowVisible);
        QCOMPARE(copy.subtotalIsVisible, table.subtotalIsVisible);
        QCOMPARE(copy.headerIsVisible, table.headerIsVisible);
        QCOMPARE(copy.totalBackgroundColor, table.totalBackgroundColor);
        QCOMPARE(copy.headerBackgroundColor, table.headerBackgroundColor);
        QCOMPARE(element.attributes().count(), 9);
        QCOMPARE(element.attribute("name"), QStringLiteral("kept"));
    }
}

void TestRptCrossTabObject::writesTheFormsOfTheFormat()
{
    RptCrossTabObject table;
    table.rowHeight = -1; // unsigned in the file
    table.subtotalIsVisible = true;
    table.totalBackgroundColor = QColor(1, 20, 200, 0);
    const QDomElement element = makeElement(&m_document, "TContainerField");
    table.writeCrossTabElement(element);
    QCOMPARE(element.attribute("rowHeight"), QStringLiteral("4294967295"));
    QCOMPARE(element.attribute("colCount"), QStringLiteral("3"));
    QCOMPARE(element.attribute("totalByColVisible"), QStringLiteral("0"));
    QCOMPARE(element.attribute("totalByRowVisible"), QStringLiteral("0"));
    QCOMPARE(element.attribute("subtotalIsVisible"), QStringLiteral("1"));
    QCOMPARE(element.attribute("headerIsVisible"), QStringLiteral("0"));
    QCOMPARE(element.attribute("totalBackgroundColor"), QStringLiteral("rgba(1,20,200,0)"));
    QCOMPARE(element.attribute("headerBackgroundColor"), QStringLiteral("rgba(255,255,255,255)"));
}

void TestRptCrossTabObject::visibleRows_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("rowHeight");
    QTest::addColumn<int>("rows");
    QTest::newRow("even") << 100 << 20 << 5;
    QTest::newRow("a unit less") << 99 << 20 << 4;
    QTest::newRow("a unit more") << 101 << 20 << 5;
    QTest::newRow("less than a row") << 19 << 20 << 0;
    QTest::newRow("no height") << 0 << 20 << 0;
    QTest::newRow("negative height") << -100 << 20 << 0;
    QTest::newRow("no row height") << 100 << 0 << 0;
    QTest::newRow("negative row height") << 100 << -20 << 0;
    QTest::newRow("one unit") << 100 << 1 << 100;
    QTest::newRow("huge row height") << 100 << std::numeric_limits<int>::max() << 0;
}

void TestRptCrossTabObject::visibleRows()
{
    QFETCH(int, height);
    QFETCH(int, rowHeight);
    RptCrossTabObject *const crossTab = table(3);
    crossTab->rowHeight = rowHeight;
    m_field->rect.setBottom(m_field->rect.top() + height - 1);
    QTEST(crossTab->visibleRowCount(), "rows");
    crossTab->parentField = nullptr;
    QCOMPARE(crossTab->visibleRowCount(), 0);
}

void TestRptCrossTabObject::columnCounts()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->setColCount(5);
    QCOMPARE(crossTab->colCount, 5);
    crossTab->totalByRowVisible = true;
    crossTab->setColCount(5);
    QCOMPARE(crossTab->colCount, 6);
    crossTab->setColCount(0);
    QCOMPARE(crossTab->colCount, 1);
    crossTab->totalByColVisible = crossTab->subtotalIsVisible = crossTab->headerIsVisible = true;
    crossTab->setColCount(5);
    QCOMPARE(crossTab->colCount, 6);
}

void TestRptCrossTabObject::rowCounts_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<bool>("subtotals");
    QTest::addColumn<bool>("headers");
    QTest::addColumn<bool>("total");
    QTest::addColumn<int>("rowCount"); // with 20 rows to a page
    QTest::newRow("plain") << 50 << false << false << false << 50;
    QTest::newRow("subtotals") << 50 << true << false << false << 53;
    QTest::newRow("headers") << 50 << false << true << false << 53;
    QTest::newRow("total") << 50 << false << false << true << 51;
    QTest::newRow("all") << 50 << true << true << true << 57;
    QTest::newRow("one page") << 20 << true << true << true << 23;
    QTest::newRow("one more") << 21 << true << true << true << 26;
    QTest::newRow("none") << 0 << true << true << true << 1;
    QTest::newRow("negative") << -30 << true << true << true << -31;
}

void TestRptCrossTabObject::rowCounts()
{
    QFETCH(int, n);
    QFETCH(bool, subtotals);
    QFETCH(bool, headers);
    QFETCH(bool, total);
    RptCrossTabObject *const crossTab = table(20);
    crossTab->subtotalIsVisible = subtotals;
    crossTab->headerIsVisible = headers;
    crossTab->totalByColVisible = total;
    crossTab->totalByRowVisible = true;
    crossTab->setRowCount(n);
    QTEST(crossTab->rowCount, "rowCount");
}

void TestRptCrossTabObject::hugeCounts()
{
    const int most = std::numeric_limits<int>::max();
    RptCrossTabObject *const crossTab = table(1);
    crossTab->totalByRowVisible = crossTab->totalByColVisible = true;
    crossTab->subtotalIsVisible = crossTab->headerIsVisible = true;
    crossTab->setColCount(most);
    crossTab->setRowCount(most);
    QCOMPARE(crossTab->colCount, most);
    QCOMPARE(crossTab->rowCount, most);
    crossTab->setRowCount(std::numeric_limits<int>::min());
    QCOMPARE(crossTab->rowCount, std::numeric_limits<int>::min());
    crossTab->rowHeight = 0; // no page holds a row: no header, no subtotal
    crossTab->setRowCount(10);
    QCOMPARE(crossTab->rowCount, 11);
}

void TestRptCrossTabObject::noCells_data()
{
    QTest::addColumn<int>("cols");
    QTest::addColumn<int>("rows");
    QTest::newRow("no columns") << 0 << 5;
    QTest::newRow("no rows") << 5 << 0;
    QTest::newRow("negative columns") << -1 << 5;
    QTest::newRow("negative rows") << 5 << -1;
    QTest::newRow("both negative") << -5 << -5;
}

void TestRptCrossTabObject::noCells()
{
    QFETCH(int, cols);
    QFETCH(int, rows);
    const LogCatcher log;
    RptCrossTabObject *const crossTab = table(3);
    crossTab->buildCells();
    QCOMPARE(crossTab->fieldList.size(), 9);
    crossTab->processedCount = 4;
    crossTab->colCount = cols;
    crossTab->rowCount = rows;
    crossTab->buildCells();
    QVERIFY(crossTab->fieldList.isEmpty());
    QCOMPARE(crossTab->processedCount, 0);
    QCOMPARE(log.lines(), QStringList());
}

void TestRptCrossTabObject::tooManyCells()
{
    RptCrossTabObject *const crossTab = table(3);
    const LogCatcher log;
    crossTab->colCount = 2147483647;
    crossTab->rowCount = 2147483647;
    crossTab->buildCells();
    QVERIFY(crossTab->fieldList.isEmpty());
    QCOMPARE(log.lines(QtWarningMsg),
             QStringList({"Cross table has too many cells, columns 2147483647 rows 2147483647"}));
}

void TestRptCrossTabObject::buildsAnew()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->buildCells();
    crossTab->fieldList.first()->value = "old";
    crossTab->processedCount = 5;
    crossTab->setColCount(4);
    crossTab->buildCells();
    QCOMPARE(crossTab->fieldList.size(), 12);
    QCOMPARE(crossTab->fieldList.first()->value, QString());
    QCOMPARE(crossTab->processedCount, 0);
}

void TestRptCrossTabObject::copies()
{
    RptCrossTabObject *const crossTab = table(3);
    crossTab->headerIsVisible = true;
    crossTab->colHeader = QStringList{"a"};
    crossTab->elements.append({nullptr, "text", QPoint(1, 2)});
    crossTab->buildCells();
    crossTab->elements.append({crossTab->fieldList.first(), "text", QPoint(1, 2)});
    const QVariant variant = QVariant::fromValue(*crossTab);
    m_field.reset();
    const auto copy = variant.value<RptCrossTabObject>();
    QCOMPARE(copy.fieldList.size(), 9);
    QCOMPARE(copy.fieldList.first()->value, QStringLiteral("a"));
    QCOMPARE(copy.fieldList.first()->parentCrossTab, &copy);
    QVERIFY(copy.headerIsVisible);
    QVERIFY(copy.elements.isEmpty());
}

QTEST_MAIN(TestRptCrossTabObject)
#include "tst_rptcrosstabobject.moc"
