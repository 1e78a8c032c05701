#include "spreadsheet/rowheights.h"
#include "xlsxdata.h"

#include <QtTest>

using namespace Spreadsheet;

/// Of rows that were given no height; 255 twips are one line of the default font of 10 points.
class TestRowHeights : public QObject {
    Q_OBJECT

private slots:
    void defaultHeight_data();
    void defaultHeight();
    void largestFont();
    void wrappedTexts_data();
    void wrappedTexts();
    void wrappedInALargeFont();
    void blanksDoNotCount();
    void numbersAreOneLine();
    void hiddenColumn();
    void mergedCells();
    void highestRow();

private:
    static FormatData wrapped(int font = 0)
    {
        FormatData format;
        format.font = font;
        format.wrap = true;
        return format;
    }
    static int needed(const XlsxData &book, int row)
    {
        const SheetData &sheet = book.data.sheets.back();
        return RowHeights(book.data, sheet).neededTwips(row, sheet.cells.row(row));
    }
};

void TestRowHeights::defaultHeight_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("twips");
    QTest::newRow("usual") << 10 << 255;
    QTest::newRow("small") << 8 << 204;
    QTest::newRow("large") << 20 << 510;
}

void TestRowHeights::defaultHeight()
{
    QFETCH(int, size);
    QFETCH(int, twips);
    XlsxData book;
    book.data.fonts[0].size = size;
    QCOMPARE(RowHeights(book.data, book.sheet()).defaultTwips(), twips);
    QCOMPARE(RowHeights(book.data, book.sheet()).neededTwips(0, {}), twips);
}

void TestRowHeights::largestFont()
{
    XlsxData book;
    FormatData large;
    large.font = book.addFont(XlsxData::font(QStringLiteral("Cambria"), 20));
    FormatData small;
    small.font = book.addFont(XlsxData::font(QStringLiteral("Cambria"), 6));
    book.writeText(0, 0, QStringLiteral("small"), book.addFormat(small));
    book.writeText(1, 0, QStringLiteral("small"), book.addFormat(small));
    book.writeNumber(1, 1, 1, book.addFormat(large));
    book.writeText(1, 2, QStringLiteral("usual"));
    QCOMPARE(needed(book, 0), 255);
    QCOMPARE(needed(book, 1), 510);
}

void TestRowHeights::wrappedTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    QTest::newRow("empty") << QString() << 1;
    QTest::newRow("fits") << QString(20, QLatin1Char('x')) << 1;
    QTest::newRow("one more") << QString(21, QLatin1Char('x')) << 2;
    QTest::newRow("three lines") << QString(60, QLatin1Char('x')) << 3;
    QTest::newRow("line end") << QStringLiteral("a\nb") << 2;
    QTest::newRow("line end last") << QStringLiteral("a\n") << 2;
    QTest::newRow("narrow letters") << QString(33, QLatin1Char('i')) << 1;
    QTest::newRow("one more narrow letter") << QString(34, QLatin1Char('i')) << 2;
    QTest::newRow("date and time") << QStringLiteral("02. 11. 2026, 12:00:00") << 1;
    QTest::newRow("broad letters") << QString(21, QLatin1Char('W')) << 2;
    QTest::newRow("capitals") << QString(33, QLatin1Char('A')) << 3;
    QTest::newRow("words") << QStringLiteral("kapustový prívarok segedínsky") << 2;
    QTest::newRow("words that do not share a line") << QStringLiteral("nnnnnnnnnnnn nnnnnnnnnnnn nnnnnnnnnnnn") << 3;
    QTest::newRow("blanks over the end") << QString(20, QLatin1Char('n')) + QString(9, QLatin1Char(' ')) << 1;
    QTest::newRow("Slovak letters") << QStringLiteral("ľščťžýáíéôúäňďĺŕ ľščť") << 1;
    QTest::newRow("East Asian") << QString(21, QChar(0x4e2d)) << 3;
    QTest::newRow("surrogate pairs") << QStringLiteral("\U0001F372").repeated(20) << 2;
    QTest::newRow("line end in long ones") << QString(21, QLatin1Char('x')) + QStringLiteral("\n\ny") << 4;
}

void TestRowHeights::wrappedTexts()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    XlsxData book;
    book.sheet().columns[1].width = 20;
    book.writeText(0, 1, text, book.addFormat(wrapped()));
    book.writeText(1, 1, text);
    QCOMPARE(needed(book, 0), 255 * lines);
    QVERIFY2(needed(book, 1) == 255, "what is not wrapped is one line");
}

/// 10 characters of 20 points are as wide as 20 digits of 10 points.
void TestRowHeights::wrappedInALargeFont()
{
    XlsxData book;
    const int format = book.addFormat(wrapped(book.addFont(XlsxData::font(QStringLiteral("Cambria"), 20))));
    book.sheet().columns[0].width = 20;
    book.writeText(0, 0, QString(10, QLatin1Char('x')), format);
    book.writeText(1, 0, QString(11, QLatin1Char('x')), format);
    // Without a width of its own: four characters.
    book.writeText(2, 1, QStringLiteral("xxxx"), format);
    book.writeText(3, 1, QStringLiteral("xxxxx"), format);
    QCOMPARE(needed(book, 0), 510);
    QCOMPARE(needed(book, 1), 1020);
    QCOMPARE(needed(book, 2), 510);
    QCOMPARE(needed(book, 3), 1020);
}

void TestRowHeights::blanksDoNotCount()
{
    XlsxData book;
    book.writeBlank(0, 0, book.addFormat(wrapped(book.addFont(XlsxData::font(QStringLiteral("Cambria"), 20)))));
    QCOMPARE(needed(book, 0), 255);
}

void TestRowHeights::numbersAreOneLine()
{
    XlsxData book;
    book.sheet().columns[0].width = 1;
    book.writeNumber(0, 0, 123456789, book.addFormat(wrapped()));
    QCOMPARE(needed(book, 0), 255);
}

void TestRowHeights::hiddenColumn()
{
    XlsxData book;
    const int format = book.addFormat(wrapped());
    book.sheet().columns[0].hidden = true;
    book.sheet().columns[1].width = 0;
    book.writeText(0, 0, QString(100, QLatin1Char('x')), format);
    book.writeText(0, 1, QString(100, QLatin1Char('x')), format);
    QCOMPARE(needed(book, 0), 255);
}

void TestRowHeights::mergedCells()
{
    XlsxData book;
    const int format = book.addFormat(wrapped(book.addFont(XlsxData::font(QStringLiteral("Cambria"), 20))));
    for (const int row : {0, 2, 3})
        book.writeText(row, 1, QString(100, QLatin1Char('x')), format);
    book.sheet().merges = {{0, 1, 1, 4}, {2, 2, 1, 4}};
    QVERIFY2(needed(book, 0) == 255, "it has two rows");
    QVERIFY2(needed(book, 2) == 510 * 7, "four columns of 8.43 digits hold 16 of its characters");
    QVERIFY2(needed(book, 3) == 8180, "as many as a row can have");
}

void TestRowHeights::highestRow()
{
    XlsxData book;
    book.writeText(0, 0, QString(32767, QLatin1Char('x')), book.addFormat(wrapped()));
    QCOMPARE(needed(book, 0), 409 * 20);
}

QTEST_GUILESS_MAIN(TestRowHeights)
#include "tst_rowheights.moc"
