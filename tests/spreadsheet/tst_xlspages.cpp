#include "spreadsheet/book.h"
#include "xlsreader.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Spreadsheet;

/// Columns, rows, merged cells and the page set-up in XLS files, read back by an independent reader.
class TestXlsPages : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void columnWidths_data();
    void columnWidths();
    void columnGroups();
    void columnLooks();
    void rowHeights();
    void rowsWithoutCells();
    void usualHeight();
    void neededHeight();
    void manyMerges();
    void gridlines();
    void usualPage();
    void page();
    void footer();
    void printTitles();
    void severalSheets();

private:
    XlsFile saved() const;

    QTemporaryDir m_folder;
    BookPointer m_book;
    Sheet *m_sheet = nullptr;
};

void TestXlsPages::init()
{
    m_book = xlCreateBookA();
    m_sheet = m_book->addSheet("first");
}

void TestXlsPages::cleanup()
{
    m_book.reset();
}

XlsFile TestXlsPages::saved() const
{
    const QString name = m_folder.filePath("book.xls");
    if (!m_book->save(name))
        qFatal("%s", qPrintable(m_book->errorMessage()));
    return XlsFile(name);
}

void TestXlsPages::columnWidths_data()
{
    QTest::addColumn<double>("digits");
    QTest::addColumn<int>("width"); // 1/256 of a digit of 7 pixels
    QTest::newRow("0") << 0.0 << 0;
    QTest::newRow("0.5") << 0.5 << 6 * 256 / 7; // 6 pixels
    QTest::newRow("1") << 1.0 << 12 * 256 / 7; // 7 pixels and 5 more
    QTest::newRow("1.5") << 1.5 << 16 * 256 / 7; // 10.5 pixels are 11
    QTest::newRow("10") << 10.0 << 75 * 256 / 7;
    QTest::newRow("45") << 45.0 << 320 * 256 / 7;
    QTest::newRow("255") << 255.0 << 1790 * 256 / 7;
}

void TestXlsPages::columnWidths()
{
    QFETCH(double, digits);
    QFETCH(int, width);
    QVERIFY(m_sheet->setCol(3, 3, digits));
    const QJsonObject columns = saved().sheet()["columns"].toObject();
    QCOMPARE(columns.size(), 1);
    QCOMPARE(columns["3"].toObject()["width"].toInt(), width);
    QCOMPARE(columns["3"].toObject()["hidden"].toBool(), digits == 0);
}

void TestXlsPages::columnGroups()
{
    m_sheet->setCol(0, 255, 5);
    m_sheet->setCol(2, 4, 20, nullptr, true);
    m_sheet->setColHidden(7, true);
    m_sheet->setColHidden(3, false);
    const QJsonObject columns = saved().sheet()["columns"].toObject();
    QCOMPARE(columns.size(), 256);
    for (int col = 0; col < 256; ++col) {
        const QJsonObject column = columns[QString::number(col)].toObject();
        QCOMPARE(column["width"].toInt(), (col >= 2 && col <= 4 ? 145 : 40) * 256 / 7);
        QCOMPARE(column["hidden"].toBool(), col == 2 || col == 4 || col == 7);
    }
}

void TestXlsPages::columnLooks()
{
    Format *format = m_book->addFormat();
    format->setWrap(true);
    m_sheet->setCol(1, 2, 9, format);
    m_sheet->setColHidden(5, true); // of the usual width of 64 pixels
    m_sheet->setRow(4, 20, format);
    const XlsFile file = saved();
    const QJsonObject columns = file.sheet()["columns"].toObject();
    const auto wraps = [&file](const QJsonValue &owner) {
        return file.formats().at(owner.toObject()["format"].toInt()).toObject()["wrap"].toBool();
    };
    QVERIFY(wraps(columns["1"]));
    QVERIFY(wraps(columns["2"]));
    QVERIFY(!wraps(columns["5"]));
    QCOMPARE(columns["5"].toObject()["width"].toInt(), 64 * 256 / 7);
    QVERIFY(wraps(file.sheet()["rows"].toObject()["4"]));
}

void TestXlsPages::rowHeights()
{
    for (const auto &[row, height] : {std::pair(0, 12.75), std::pair(1, 5.0), std::pair(2, 409.0), std::pair(3, 0.0)}) {
        m_sheet->setRow(row, height);
        m_sheet->writeStr(row, 0, "x");
    }
    m_sheet->setRow(4, 20, nullptr, true);
    m_sheet->writeStr(5, 0, "x");
    const QJsonObject rows = saved().sheet()["rows"].toObject();
    const auto row = [&rows](int number) { return rows[QString::number(number)].toObject(); };
    QCOMPARE(row(0)["height"].toDouble(), 12.75);
    QCOMPARE(row(1)["height"].toDouble(), 5.0);
    QCOMPARE(row(2)["height"].toDouble(), 409.0);
    QCOMPARE(row(4)["height"].toDouble(), 20.0);
    for (int number = 0; number <= 5; ++number) {
        QCOMPARE(row(number)["hidden"].toBool(), number == 3 || number == 4);
        QCOMPARE(row(number)["own"].toBool(), number != 3 && number != 5);
    }
}

void TestXlsPages::rowsWithoutCells()
{
    m_sheet->setRow(7, 6);
    m_sheet->setRow(40, 5);
    m_sheet->setRow(65535, 4);
    m_sheet->writeStr(9, 2, "x");
    const XlsFile file = saved();
    const QJsonObject rows = file.sheet()["rows"].toObject();
    QCOMPARE(rows.keys(), (QStringList{"40", "65535", "7", "9"}));
    QCOMPARE(rows["7"].toObject()["height"].toDouble(), 6.0);
    QCOMPARE(rows["65535"].toObject()["height"].toDouble(), 4.0);
    QCOMPARE(file.cellCount(), 1);
}

void TestXlsPages::usualHeight()
{
    m_book->setDefaultFont("Arial", 20);
    m_sheet->writeStr(0, 0, "x");
    const QJsonObject row = saved().sheet()["rows"].toObject()["0"].toObject();
    QCOMPARE(row["height"].toDouble(), 25.5);
    QVERIFY(!row["own"].toBool());
}

void TestXlsPages::neededHeight()
{
    Font *font = m_book->addFont();
    font->setSize(20);
    Format *large = m_book->addFormat();
    large->setFont(font);
    Format *wrapped = m_book->addFormat();
    wrapped->setWrap(true);
    m_sheet->setCol(0, 0, 10);
    m_sheet->writeStr(0, 0, "x", large);
    m_sheet->writeStr(1, 0, QString(25, 'x'), wrapped); // 3 lines
    m_sheet->writeStr(2, 0, QString(5, QChar(0x10d)) + "\n\nx", wrapped);
    m_sheet->writeStr(3, 0, QString(25, 'x'));
    m_sheet->setCol(1, 1, 1e-300); // narrower than a character
    m_sheet->writeStr(4, 1, "xxxx", wrapped);
    const QJsonObject rows = saved().sheet()["rows"].toObject();
    const double heights[] = {25.5, 3 * 12.75, 3 * 12.75, 12.75, 4 * 12.75};
    for (int row = 0; row < 5; ++row) {
        const QJsonObject read = rows[QString::number(row)].toObject();
        QCOMPARE(read["height"].toDouble(), heights[row]);
        QVERIFY(!read["own"].toBool()); // programs may fit it to another text
    }
}

void TestXlsPages::manyMerges()
{
    constexpr int count = 1026 * 2 + 1;
    for (int row = 0; row < count; ++row)
        QVERIFY(m_sheet->setMerge(row, row, 1, 3));
    const XlsFile file = saved();
    QCOMPARE(file.page()["mergeRecords"].toArray(), (QJsonArray{1026, 1026, 1}));
    const QJsonArray merges = file.sheet()["merges"].toArray();
    QCOMPARE(merges.size(), count);
    for (int row = 0; row < count; ++row)
        QCOMPARE(merges.at(row).toArray(), (QJsonArray{row, row + 1, 1, 4}));
}

void TestXlsPages::gridlines()
{
    QVERIFY(saved().sheet()["gridlines"].toBool());
    QVERIFY(!saved().page()["printGridlines"].toBool());
    m_sheet->setDisplayGridlines(false);
    m_sheet->setPrintGridlines(true);
    QVERIFY(!saved().sheet()["gridlines"].toBool());
    QVERIFY(saved().page()["printGridlines"].toBool());
}

void TestXlsPages::usualPage()
{
    const QJsonObject page = saved().page();
    QCOMPARE(page["left"].toDouble(), 0.75);
    QCOMPARE(page["right"].toDouble(), 0.75);
    QCOMPARE(page["top"].toDouble(), 1.0);
    QCOMPARE(page["bottom"].toDouble(), 1.0);
    QVERIFY(!page["fits"].toBool());
    QVERIFY(!page["landscape"].toBool());
    QCOMPARE(page["paper"].toInt(), 0);
    QCOMPARE(page["footer"].toString(), QString());
}

void TestXlsPages::page()
{
    m_sheet->setMarginLeft(0.1968);
    m_sheet->setMarginRight(0.2);
    m_sheet->setMarginTop(0.3);
    m_sheet->setMarginBottom(49);
    m_sheet->setPrintFit(1, 0);
    m_sheet->setLandscape(true);
    m_sheet->setPaper(PAPER_A4);
    const QJsonObject page = saved().page();
    QCOMPARE(page["left"].toDouble(), 0.1968);
    QCOMPARE(page["right"].toDouble(), 0.2);
    QCOMPARE(page["top"].toDouble(), 0.3);
    QCOMPARE(page["bottom"].toDouble(), 49.0);
    QVERIFY(page["fits"].toBool());
    QCOMPARE(page["fitWidth"].toInt(), 1);
    QCOMPARE(page["fitHeight"].toInt(), 0);
    QVERIFY(page["landscape"].toBool());
    QCOMPARE(page["paper"].toInt(), 9);
}

void TestXlsPages::footer()
{
    for (const QString &text : {QString("&P / &N"), QString("Strana č. &P"), QString(253, QChar(0x10d))}) {
        QVERIFY(m_sheet->setFooter(text));
        QCOMPARE(saved().page()["footer"].toString(), "&C" + text);
    }
    QCOMPARE(saved().page()["footerMargin"].toDouble(), 0.3);
    m_sheet->setMarginBottom(0.1968);
    QCOMPARE(saved().page()["footerMargin"].toDouble(), 0.1968 - 0.17); // it has no room among the cells
    m_sheet->setFooter("");
    QCOMPARE(saved().page()["footer"].toString(), QString());
}

void TestXlsPages::printTitles()
{
    m_book->addSheet("without");
    Sheet *third = m_book->addSheet("third");
    QVERIFY(m_sheet->setPrintRepeatRows(5, 6));
    QVERIFY(third->setPrintRepeatRows(0, 65535));
    const QJsonArray names = saved().names();
    QCOMPARE(names.size(), 2);
    qDebug() << names;
    // Sheets, rows and columns from first to last, the end excluded.
    QCOMPARE(names.at(0).toObject(),
             (QJsonObject{{"name", "Print_Titles"},
                          {"builtIn", true},
                          {"sheet", 0},
                          {"area", QJsonArray{QJsonArray{0, 1, 5, 7, 0, 256}}}}));
    QCOMPARE(names.at(1).toObject()["sheet"].toInt(), 2);
    QCOMPARE(names.at(1).toObject()["area"].toArray(), (QJsonArray{QJsonArray{2, 3, 0, 65536, 0, 256}}));
}

void TestXlsPages::severalSheets()
{
    constexpr int count = 255;
    QVector<Sheet *> sheets = {m_sheet};
    while (sheets.size() < count)
        sheets.append(m_book->addSheet(QString("Hárok č. %1").arg(sheets.size())));
    for (int number = 0; number < count; ++number) {
        sheets.at(number)->writeNum(number, 0, number);
        sheets.at(number)->writeStr(number, 1, QString("text %1").arg(number % 10));
        sheets.at(number)->setPrintRepeatRows(number, number);
    }
    const XlsFile file = saved();
    QCOMPARE(file.sheets().size(), count);
    QCOMPARE(file.names().size(), count);
    QCOMPARE(file.cellCount(), 2 * count);
    for (int number = 0; number < count; ++number) {
        QCOMPARE(file.sheet(number)["name"].toString(), number ? QString("Hárok č. %1").arg(number) : "first");
        QCOMPARE(file.cell(number, 0, number).at(3).toString().toDouble(), double(number));
        QCOMPARE(file.cell(number, 1, number).at(3).toString(), QString("text %1").arg(number % 10));
    }
}

QTEST_MAIN(TestXlsPages)
#include "tst_xlspages.moc"
