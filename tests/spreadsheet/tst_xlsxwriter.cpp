#include "spreadsheet/writers.h"
#include "xlsxdata.h"
#include "xlsxreader.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace Spreadsheet;

namespace {

QJsonValue numberAt(const XlsxFile &file, int row, int col)
{
    return file.value(row, col);
}

/// Sixteen digits, as many as the library writes.
double asWritten(double number)
{
    return QByteArray::number(number, 'g', 16).toDouble();
}

} // namespace

/// The content of cells; tst_xlsxlook.cpp has their look and the page's.
class TestXlsxWriter : public QObject {
    Q_OBJECT

private slots:
    void numbers_data();
    void numbers();
    void texts();
    void emptyText();
    void blanks();
    void nothingAtAll();
    void farthestCells();
    void moreColumnsThanTheOldFormat();
    void severalSheets();
    void sameTextManyTimes();
    void mergedCells();
    void mergedCellsWithoutLook();
    void tooManyMergedCells();
    void randomCells();
    void sumsOfColumns();

private:
    XlsxFile write(const XlsxData &book)
    {
        QString error;
        if (!writeXlsx(book.data, m_fileName, &error))
            qFatal("not written: %s", qPrintable(error));
        return XlsxFile(m_fileName);
    }

    const QTemporaryDir m_folder;
    const QString m_fileName = m_folder.filePath(QStringLiteral("book.xlsx"));
};

void TestXlsxWriter::numbers_data()
{
    QTest::addColumn<double>("number");
    QTest::newRow("zero") << 0.0;
    QTest::newRow("one") << 1.0;
    QTest::newRow("price") << 4.35;
    QTest::newRow("negative") << -1234567.891;
    QTest::newRow("fifteen digits") << 123456789.012345;
    QTest::newRow("integer") << 9007199254740992.0;
    QTest::newRow("large") << 1e300;
    QTest::newRow("largest") << 1.797693134862315e308;
    QTest::newRow("small") << 2.5e-300;
}

void TestXlsxWriter::numbers()
{
    QFETCH(double, number);
    XlsxData book;
    book.writeNumber(1, 2, number);
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), 1);
    QVERIFY(numberAt(file, 1, 2).isDouble());
    QCOMPARE(numberAt(file, 1, 2).toDouble(), number);
}

/// All of them in one file, which costs one start of the reader.
void TestXlsxWriter::texts()
{
    struct Row {
        const char *name;
        QString text;
        QString expected;
    };
    QVector<Row> rows;
    const auto same = [&](const char *name, const QString &text) { rows.append({name, text, text}); };
    const auto changed = [&](const char *name, const QString &text, const QString &expected) {
        rows.append({name, text, expected});
    };
    same("Slovak", QStringLiteral("Šťavnatý guláš, ľúbezné kŕdle ôs"));
    same("formula", QStringLiteral("=1+2"));
    same("formula in braces", QStringLiteral("{=SUM(A1:A9)}"));
    same("command", QStringLiteral("=cmd|' /C calc'!A0"));
    same("number", QStringLiteral("0123"));
    same("address", QStringLiteral("http://example.com/?a=1&b=2"));
    same("marks of XML", QStringLiteral("<b>a & b</b> \"c\" 'd' ]]> <!-- &amp; -->"));
    same("blanks around", QStringLiteral("  both sides  "));
    same("only blanks", QStringLiteral("   "));
    same("line ends", QStringLiteral("\none\ntwo\n"));
    same("tabs", QStringLiteral("\ta\t"));
    same("hard blank", QString(QChar(0xa0)) + QLatin1Char('x') + QChar(0xa0));
    same("carriage return", QStringLiteral("one\r\ntwo\rthree"));
    same("control characters", QStringLiteral("a\x01 b\x02 c\x1b d\x1f e\x7f"));
    same("character number", QStringLiteral("_x0041_"));
    same("character numbers in a row", QStringLiteral("__x0041_x0042_x00e4__"));
    same("escaped underscore", QStringLiteral("_x005F_x0041_"));
    same("no character number", QStringLiteral("_x004_ _xyzzy_ _x00411 _X0041_ _x0041"));
    same("emoji", QStringLiteral("🍲 👩‍👩‍👧 🇸🇰"));
    same("right to left", QStringLiteral("مرق עברית"));
    same("percent", QStringLiteral("100 % %1 %s %n"));
    same("full length", QString(32767, QLatin1Char('x')));
    same("full length of two bytes", QString(32767, QChar(0x17e)));
    same("full length of emoji", QStringLiteral("🍲").repeated(16383) + QLatin1Char('x'));
    same("full length of control characters", QString(32767, QChar(1)));
    same("full length of XML marks", QString(32767, QLatin1Char('&')));
    const QString replaced(QChar::ReplacementCharacter);
    changed("null character", QStringLiteral("a") + QChar(0) + QLatin1Char('b'), "a" + replaced + "b");
    changed("no characters", QString(QChar(0xfffe)) + QChar(0xffff), replaced + replaced);
    changed("lone first half", QString(QChar(0xd83c)) + QLatin1Char('x'), replaced + "x");
    changed("lone second half", QStringLiteral("x") + QChar(0xdf72), "x" + replaced);
    changed("halves the wrong way", QString(QChar(0xdf72)) + QChar(0xd83c), replaced + replaced);
    changed("first half twice", QString(QChar(0xd83c)) + QStringLiteral("🍲"), replaced + "🍲");
    changed("second half twice", QStringLiteral("🍲") + QChar(0xdf72), "🍲" + replaced);
    changed("full length of null characters", QString(32767, QChar(0)), replaced.repeated(32767));

    XlsxData book;
    for (int row = 0; row < rows.size(); ++row)
        book.writeText(row, 0, rows.at(row).text);
    const XlsxFile file = write(book);
    for (int row = 0; row < rows.size(); ++row) {
        QVERIFY2(file.value(row, 0).isString(), rows.at(row).name);
        QVERIFY2(file.text(row, 0) == rows.at(row).expected, rows.at(row).name);
    }
}

void TestXlsxWriter::emptyText()
{
    XlsxData book;
    const int format = book.addFill(rgb(0x00adef));
    book.writeText(0, 0, QString(), format);
    book.writeText(0, 1, QString());
    const XlsxFile file = write(book);
    QVERIFY(file.value(0, 0).isNull());
    QCOMPARE(file.look(0, 0).value(QLatin1String("fill")), QJsonValue(QJsonArray{"solid", "FF00ADEF"}));
    QVERIFY(file.value(0, 1).isNull());
}

void TestXlsxWriter::blanks()
{
    XlsxData book;
    book.writeBlank(2, 3, book.addFill(rgb(0x00adef)));
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), 1);
    QVERIFY(file.has(2, 3));
    QVERIFY(file.value(2, 3).isNull());
    QCOMPARE(file.look(2, 3).value(QLatin1String("fill")), QJsonValue(QJsonArray{"solid", "FF00ADEF"}));
}

void TestXlsxWriter::nothingAtAll()
{
    const XlsxFile file = write(XlsxData());
    QCOMPARE(file.cellCount(), 0);
    QCOMPARE(file.sheets().size(), 1);
    QCOMPARE(file.sheet().value(QLatin1String("name")).toString(), QStringLiteral("Sheet"));
}

void TestXlsxWriter::farthestCells()
{
    XlsxData book;
    book.writeText(0, 16383, QStringLiteral("right"));
    book.writeText(1048575, 0, QStringLiteral("bottom"));
    book.writeNumber(1048575, 16383, 7);
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), 3);
    QCOMPARE(file.text(0, 16383), QStringLiteral("right"));
    QCOMPARE(file.text(1048575, 0), QStringLiteral("bottom"));
    QCOMPARE(file.value(1048575, 16383).toDouble(), 7.0);
}

void TestXlsxWriter::moreColumnsThanTheOldFormat()
{
    constexpr int columns = 31 * 3 * 5 + 3;
    XlsxData book;
    for (int row = 0; row < 20; ++row) {
        for (int col = 0; col < columns; ++col)
            book.writeNumber(row, col, row * 1000 + col);
    }
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), 20 * columns);
    for (int row = 0; row < 20; ++row) {
        for (int col = 0; col < columns; ++col)
            QCOMPARE(file.value(row, col).toInt(), row * 1000 + col);
    }
}

void TestXlsxWriter::severalSheets()
{
    const QStringList names{QStringLiteral("Sheet"), QStringLiteral("ZEP - Kontrolný export stravy"),
                            QStringLiteral("a'b & <c> \"d\""), QStringLiteral("🍲").repeated(15) + QLatin1Char('x'),
                            QString(31, QChar(0x17e))};
    XlsxData book;
    book.writeText(0, 0, names.first());
    for (int index = 1; index < names.size(); ++index) {
        const QString &name = names.at(index);
        book.addSheet(name);
        book.writeText(0, 0, name);
        book.sheet().repeatFirst = 1;
        book.sheet().repeatLast = 2;
    }
    const XlsxFile file = write(book);
    QCOMPARE(file.sheets().size(), names.size());
    for (int index = 0; index < names.size(); ++index) {
        QCOMPARE(file.sheet(index).value(QLatin1String("name")).toString(), names.at(index));
        QCOMPARE(file.text(0, 0, index), names.at(index));
        QCOMPARE(file.page(index).value(QLatin1String("titleRows")).toString(),
                 index == 0 ? QString() : QStringLiteral("$2:$3"));
    }
}

void TestXlsxWriter::sameTextManyTimes()
{
    XlsxData book;
    for (int row = 0; row < 1000; ++row)
        book.writeText(row, row % 3, row % 2 == 0 ? QStringLiteral("even") : QStringLiteral("odd"));
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), 1000);
    for (int row = 0; row < 1000; ++row)
        QCOMPARE(file.text(row, row % 3), row % 2 == 0 ? QStringLiteral("even") : QStringLiteral("odd"));
}

/// Rows 0 and 1, columns 1 to 3: written in the first cell, in one with a format of its own, and in one without.
void TestXlsxWriter::mergedCells()
{
    XlsxData book;
    const int blue = book.addFill(rgb(0x00adef));
    const int grey = book.addFill(colorGray25);
    book.writeText(0, 0, QStringLiteral("before"));
    book.writeText(0, 1, QStringLiteral("title"), blue);
    book.writeText(0, 2, QStringLiteral("covered"), grey);
    book.writeNumber(1, 3, 5);
    book.writeText(1, 4, QStringLiteral("behind"));
    book.sheet().merges = {{0, 1, 1, 3}, {5, 7, 0, 0}};
    book.writeText(5, 0, QStringLiteral("high"), grey);
    const XlsxFile file = write(book);
    QCOMPARE(file.merges(), (QJsonArray{QJsonArray{0, 1, 1, 3}, QJsonArray{5, 7, 0, 0}}));
    QCOMPARE(file.cellCount(), 2 + 6 + 3);
    QCOMPARE(file.text(0, 0), QStringLiteral("before"));
    QCOMPARE(file.text(0, 1), QStringLiteral("title"));
    QCOMPARE(file.text(1, 4), QStringLiteral("behind"));
    QCOMPARE(file.text(5, 0), QStringLiteral("high"));
    for (const QPair<int, int> &place : {QPair<int, int>(0, 2), {0, 3}, {1, 1}, {1, 2}, {1, 3}, {6, 0}, {7, 0}}) {
        QVERIFY2(file.value(place.first, place.second).isNull(), "nothing hides under a merged cell");
        const bool isGrey = place.first >= 5 || place == QPair<int, int>(0, 2);
        QCOMPARE(file.look(place.first, place.second).value(QLatin1String("fill")),
                 QJsonValue(QJsonArray{"solid", isGrey ? "FFC0C0C0" : "FF00ADEF"}));
    }
}

void TestXlsxWriter::mergedCellsWithoutLook()
{
    XlsxData book;
    book.writeText(0, 0, QStringLiteral("title"));
    book.writeText(0, 1, QStringLiteral("covered"));
    book.sheet().merges = {{0, 1000, 0, 1000}, {2000, 2001, 0, 16383}};
    const XlsxFile file = write(book);
    QCOMPARE(file.merges().size(), 2);
    QVERIFY2(file.cellCount() == 3, "those that were written, and one that the reader makes for the second range");
    QVERIFY(file.has(2000, 0));
    QCOMPARE(file.text(0, 0), QStringLiteral("title"));
    QVERIFY(file.value(0, 1).isNull());
}

void TestXlsxWriter::tooManyMergedCells()
{
    XlsxData book;
    book.writeText(0, 0, QStringLiteral("title"), book.addFill(colorGray25));
    book.sheet().merges = {{0, 1048575, 0, 16383}};
    QString error;
    QVERIFY(!writeXlsx(book.data, m_fileName, &error));
    QCOMPARE(error, QStringLiteral("sheet \"Sheet\": its merged cells cover too many"));
}

/// Every cell against what was put in, which is kept in a plain map beside the book.
void TestXlsxWriter::randomCells()
{
    QRandomGenerator random(20261121);
    XlsxData book;
    QVector<int> formats{0};
    for (int index = 0; index < 50; ++index)
        formats.append(book.addFill(rgb(random.bounded(1, 0xffffff))));
    QMap<QPair<int, int>, QPair<QVariant, int>> expected;
    for (int index = 0; index < 20000; ++index) {
        const QPair<int, int> place(random.bounded(500), random.bounded(400));
        const int format = formats.at(random.bounded(formats.size()));
        if (random.bounded(2) == 0) {
            const double number = asWritten((random.generateDouble() - 0.5) * std::pow(10, random.bounded(-20, 20)));
            book.writeNumber(place.first, place.second, number, format);
            expected.insert(place, {number, format});
        } else {
            QString text;
            for (int length = random.bounded(1, 20); length > 0; --length)
                text += QChar(random.bounded(1, 0x800));
            book.writeText(place.first, place.second, text, format);
            expected.insert(place, {text, format});
        }
    }
    const XlsxFile file = write(book);
    QCOMPARE(file.cellCount(), expected.size());
    for (auto cell = expected.constBegin(); cell != expected.constEnd(); ++cell) {
        const QPair<int, int> place = cell.key();
        QCOMPARE(file.value(place.first, place.second).toVariant(), cell->first);
        const FormatData &format = book.data.formats.at(cell->second);
        const QString fill = QStringLiteral("FF%1").arg(rgbOf(format.foreground), 6, 16, QLatin1Char('0')).toUpper();
        QCOMPARE(file.look(place.first, place.second).value(QLatin1String("fill")),
                 cell->second == 0 ? QJsonValue() : QJsonValue(QJsonArray{"solid", fill}));
    }
}

void TestXlsxWriter::sumsOfColumns()
{
    QRandomGenerator random(7);
    XlsxData book;
    QVector<double> sums(465, 0);
    for (int row = 0; row < 200; ++row) {
        for (int col = 0; col < sums.size(); ++col) {
            if (random.bounded(100) >= 40)
                continue;
            const int quantity = random.bounded(1, 4);
            book.writeNumber(12 + row, 2 + col, quantity);
            sums[col] += quantity;
        }
    }
    const XlsxFile file = write(book);
    QVector<double> found(sums.size(), 0);
    for (int row = 0; row < 200; ++row) {
        for (int col = 0; col < sums.size(); ++col)
            found[col] += file.value(12 + row, 2 + col).toDouble();
    }
    QCOMPARE(found, sums);
}

QTEST_GUILESS_MAIN(TestXlsxWriter)
#include "tst_xlsxwriter.moc"
