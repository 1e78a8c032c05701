#include "exports/sheetwriter.h"
#include "recordingbook.h"

#include <QtTest>

class TestSheetWriter : public QObject {
    Q_OBJECT

private slots:
    void cells();
    void longTexts_data();
    void longTexts();
    void textsAreNotLookedInto();
    void fill();
    void merges();
    void widthsAndHeights();
    void refusals_data();
    void refusals();
};

void TestSheetWriter::cells()
{
    RecordingBook book;
    const Spreadsheet::Format *format = book.addFormat(nullptr);
    SheetWriter writer(book.sheet);
    writer.text(2, 3, QStringLiteral("Guláš"), format);
    writer.number(2, 4, 4.5, format);
    QCOMPARE(book.sheet.rowText(2), QStringLiteral("|||Guláš|4.5"));
    QVERIFY(!book.sheet.isNumber(2, 3));
    QVERIFY(book.sheet.isNumber(2, 4));
    QCOMPARE(book.sheet.cells.value({2, 3}).format, format);
    QCOMPARE(book.sheet.cells.value({2, 4}).format, format);
    QCOMPARE(writer.numberAt(2, 4), 4.5);
    QCOMPARE(writer.numberAt(2, 3), 0.0);
    QCOMPARE(writer.numberAt(7, 7), 0.0);
    QVERIFY(writer.isComplete());
}

void TestSheetWriter::longTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("written");
    const QString emoji = QString::fromUtf8("🍲");
    QTest::newRow("longest") << QString(32767, 'x') << 32767;
    QTest::newRow("one too long") << QString(32768, 'x') << 32767;
    QTest::newRow("much too long") << QString(40000, QChar(0x0161)) << 32767;
    QTest::newRow("emoji at the end") << QString(32765, 'x') + emoji << 32767;
    QTest::newRow("emoji over the end") << QString(32766, 'x') + emoji << 32766;
    QTest::newRow("emoji after the end") << QString(32767, 'x') + emoji << 32767;
}

void TestSheetWriter::longTexts()
{
    QFETCH(QString, text);
    QFETCH(int, written);
    RecordingBook book;
    SheetWriter writer(book.sheet);
    writer.text(0, 0, text, nullptr);
    QVERIFY(writer.isComplete());
    QCOMPARE(book.sheet.at(0, 0).size(), written);
    QCOMPARE(book.sheet.at(0, 0), text.left(written));
}

void TestSheetWriter::textsAreNotLookedInto()
{
    RecordingBook book;
    SheetWriter writer(book.sheet);
    int row = 0;
    for (const char *text : {"=1+1", "0012", "1,5", "<b>x</b>", "%1", "'", "🍲", ""}) {
        writer.text(row, 0, QString::fromUtf8(text), nullptr);
        QCOMPARE(book.sheet.at(row, 0), QString::fromUtf8(text));
        QVERIFY(!book.sheet.isNumber(row, 0));
        ++row;
    }
    QVERIFY(writer.isComplete());
}

void TestSheetWriter::fill()
{
    RecordingBook book;
    SheetWriter writer(book.sheet);
    writer.fill(1, 2, 4, QStringLiteral("-"), nullptr);
    writer.fill(2, 3, 3, QStringLiteral("-"), nullptr);
    writer.fill(3, 3, 2, QStringLiteral("-"), nullptr);
    QCOMPARE(book.sheet.cells.size(), 4);
    QCOMPARE(book.sheet.rowText(1), QStringLiteral("||-|-|-"));
    QCOMPARE(book.sheet.rowText(2), QStringLiteral("|||-"));
}

void TestSheetWriter::merges()
{
    RecordingBook book;
    SheetWriter writer(book.sheet);
    writer.merge(0, 1, 0, 4);
    writer.merge(3, 3, 1, 2);
    writer.merge(4, 5, 1, 1);
    // A single cell is not merged, and no failure.
    writer.merge(7, 7, 2, 2);
    QVERIFY(writer.isComplete());
    QCOMPARE(book.sheet.mergeCount(), 3);
    QCOMPARE(book.sheet.mergeAt(0, 0), QStringLiteral("rows 0-1, columns 0-4"));
    QCOMPARE(book.sheet.mergeAt(3, 1), QStringLiteral("rows 3-3, columns 1-2"));
    QCOMPARE(book.sheet.mergeAt(4, 1), QStringLiteral("rows 4-5, columns 1-1"));
    writer.merge(1, 2, 0, 0);
    QVERIFY(!writer.isComplete());
}

void TestSheetWriter::widthsAndHeights()
{
    RecordingBook book;
    SheetWriter writer(book.sheet);
    writer.setWidth(1, 2, 1.5);
    writer.setWidth(5, 4, 9);
    writer.setHeight(3, 25);
    writer.hideColumn(2);
    writer.repeatRows(5, 6);
    writer.setPageFooter(QStringLiteral("&P"));
    QVERIFY(writer.isComplete());
    QCOMPARE(book.sheet.widths, (QMap<int, double>{{1, 1.5}, {2, 1.5}}));
    QCOMPARE(book.sheet.heights, (QMap<int, double>{{3, 25}}));
    QCOMPARE(book.sheet.hidden, QVector<int>{2});
    QCOMPARE(book.sheet.page, (QStringList{"repeat 5 6", "footer &P"}));
}

void TestSheetWriter::refusals_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("complete");
    QTest::newRow("last cell") << 9 << 4 << true;
    QTest::newRow("row beyond the last") << 10 << 4 << false;
    QTest::newRow("column beyond the last") << 9 << 5 << false;
}

void TestSheetWriter::refusals()
{
    QFETCH(int, row);
    QFETCH(int, column);
    RecordingBook book;
    book.sheet.maxRows = 10;
    book.sheet.maxColumns = 5;
    const auto isComplete = [&](auto write) {
        SheetWriter writer(book.sheet);
        write(writer);
        const bool complete = writer.isComplete();
        // What comes later does not make it good.
        writer.text(0, 0, QStringLiteral("x"), nullptr);
        return complete && writer.isComplete();
    };
    QTEST(isComplete([=](SheetWriter &writer) { writer.text(row, column, QStringLiteral("x"), nullptr); }), "complete");
    QTEST(isComplete([=](SheetWriter &writer) { writer.number(row, column, 1, nullptr); }), "complete");
    QTEST(isComplete([=](SheetWriter &writer) { writer.fill(row, 0, column, QStringLiteral("x"), nullptr); }),
          "complete");
    QTEST(isComplete([=](SheetWriter &writer) { writer.merge(row - 1, row, column - 1, column); }), "complete");
    book.sheet.maxRows = 11;
    QCOMPARE(isComplete([=](SheetWriter &writer) { writer.setWidth(0, column, 1); }), column < 5);
    QCOMPARE(isComplete([=](SheetWriter &writer) { writer.hideColumn(column); }), column < 5);
    book.sheet.maxRows = 10;
    QCOMPARE(isComplete([=](SheetWriter &writer) { writer.setHeight(row, 1); }), row < 10);
}

QTEST_APPLESS_MAIN(TestSheetWriter)
#include "tst_sheetwriter.moc"
