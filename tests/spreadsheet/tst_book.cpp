#include "spreadsheet/modelbook.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace Spreadsheet;

namespace {

QByteArray contentOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(name));
    return file.readAll();
}

} // namespace

/// The operations of a book, what they refuse, and the reasons they give.
class TestBook : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void noError();
    void locale();
    void defaultFont();
    void fontRanges();
    void fontOfAnotherBook();
    void fontLimit();
    void colorPack();
    void colorRanges();
    void nearestColor();
    void numFormats();
    void numFormatLength_data();
    void numFormatLength();
    void numFormatLimit();
    void numFormatOfFormat();
    void formats();
    void formatCopy();
    void formatLimit_data();
    void formatLimit();
    void formatOfAnotherBook();
    void sheetNames_data();
    void sheetNames();
    void sheetLimit();
    void cellLimits_data();
    void cellLimits();
    void textLength();
    void numbers();
    void readNum();
    void readNumFormat();
    void overwriting();
    void columns_data();
    void columns();
    void rows_data();
    void rows();
    void hiddenColumn();
    void merges();
    void randomMerges();
    void pageSetUp();
    void pageSetUpRanges();
    void repeatRows();
    void footer();
    void saveWithoutSheet();
    void saveFailure();
    void saveTwice();
    void colorLimit();

private:
    Book *makeBook(const ModelBook::BookKind &kind)
    {
        m_book.reset(new ModelBook(kind));
        return m_book.get();
    }
    const WorkbookData &data() const { return static_cast<const ModelBook *>(m_book.get())->data(); }
    const SheetData &sheetData() const { return data().sheets.front(); }
    void expectError(const QString &reason) const { QCOMPARE(m_book->errorMessage(), reason); }

    BookPointer m_book;
    Sheet *m_sheet = nullptr;
};

void TestBook::init()
{
    m_sheet = makeBook(xlsKind)->addSheet("Sheet");
}

void TestBook::cleanup()
{
    m_book.reset();
}

void TestBook::noError()
{
    QCOMPARE(m_book->errorMessage(), QString());
    QVERIFY(xlCreateBookA());
    QVERIFY(xlCreateXMLBookA());
    QCOMPARE(xlCreateBookA()->errorMessage(), QString());
}

void TestBook::locale()
{
    QVERIFY(m_book->setLocale("UTF-8"));
    QVERIFY(m_book->setLocale("utf-8"));
    QVERIFY(!m_book->setLocale("C"));
    expectError("There is no locale \"C\", only UTF-8");
    QVERIFY(!m_book->setLocale(""));
}

void TestBook::defaultFont()
{
    QCOMPARE(m_book->defaultFontName(), QString("Arial"));
    QCOMPARE(m_book->defaultFontSize(), 10);
    m_book->setDefaultFont("MS Shell Dlg 2", 11);
    QCOMPARE(m_book->defaultFontName(), QString("MS Shell Dlg 2"));
    QCOMPARE(m_book->defaultFontSize(), 11);
    m_book->addFont();
    QCOMPARE(data().fonts.at(1).name, QString("MS Shell Dlg 2"));
    QCOMPARE(data().fonts.at(1).size, 11);
    m_book->setDefaultFont("Arial", 0);
    expectError("A font has 1 to 409 points");
    m_book->setDefaultFont("", 10);
    expectError("A font's name has 1 to 31 characters");
    QCOMPARE(m_book->defaultFontName(), QString("MS Shell Dlg 2"));
    QCOMPARE(m_book->defaultFontSize(), 11);
}

void TestBook::fontRanges()
{
    Font *font = m_book->addFont();
    for (const int size : {1, 409}) {
        font->setSize(size);
        QCOMPARE(data().fonts.at(1).size, size);
    }
    for (const int size : {0, -1, 410})
        font->setSize(size);
    QCOMPARE(data().fonts.at(1).size, 409);
    expectError("A font has 1 to 409 points");
    font->setName(QString(31, 'n'));
    QCOMPARE(data().fonts.at(1).name, QString(31, 'n'));
    for (const QString &name : {QString(), QString(32, 'm'), QString("a\nb")})
        font->setName(name);
    QCOMPARE(data().fonts.at(1).name, QString(31, 'n'));
    expectError("A font's name has 1 to 31 characters");
    font->setBold(true);
    QVERIFY(data().fonts.at(1).bold);
    const Font *copy = m_book->addFont(font);
    QVERIFY(copy);
    QVERIFY(data().fonts.at(2).bold);
    QCOMPARE(data().fonts.at(2).size, 409);
    font->setBold(false);
    QVERIFY(data().fonts.at(2).bold);
}

void TestBook::fontOfAnotherBook()
{
    const BookPointer other = xlCreateBookA();
    QVERIFY(!m_book->addFont(other->addFont()));
    expectError("The font is of another book");
    Format *format = m_book->addFormat();
    format->setFont(m_book->addFont());
    format->setFont(other->addFont());
    QCOMPARE(data().formats.at(1).font, 1);
    format->setFont(nullptr);
    QCOMPARE(data().formats.at(1).font, 0);
}

void TestBook::fontLimit()
{
    for (int count = 0; count < 500; ++count)
        QVERIFY(m_book->addFont());
    QVERIFY(!m_book->addFont());
    expectError("A book holds 500 fonts");
    QCOMPARE(data().fonts.size(), 501);
}

void TestBook::colorPack()
{
    m_book->setRgbMode(true);
    const Color accent = m_book->colorPack(0, 173, 239);
    QVERIFY(isRgb(accent));
    QCOMPARE(rgbOf(accent), 0x00adef);
    QVERIFY(isRgb(m_book->colorPack(0, 0, 0)));
    QVERIFY(m_book->colorPack(0, 0, 8) != 8); // a colour, not the palette's number
    QCOMPARE(rgbOf(m_book->colorPack(255, 255, 255)), 0xffffff);
    QCOMPARE(m_book->errorMessage(), QString());
    for (const auto &[red, green, blue] : {std::tuple(256, 0, 0), std::tuple(0, -1, 0), std::tuple(0, 0, 256)}) {
        QCOMPARE(m_book->colorPack(red, green, blue), colorAutomatic);
        expectError("Red, green and blue are 0 to 255");
    }
}

void TestBook::colorRanges()
{
    m_book->setRgbMode(true);
    Font *font = m_book->addFont();
    QCOMPARE(data().fonts.at(1).color, colorAutomatic);
    for (const Color color : {8, 63, colorAutomatic, m_book->colorPack(1, 2, 3)}) {
        font->setColor(color);
        QCOMPARE(data().fonts.at(1).color, color);
    }
    for (const Color color : {7, 64, -1, 0, 0x2000000, 0x7ffe}) {
        font->setColor(color);
        QCOMPARE(data().fonts.at(1).color, m_book->colorPack(1, 2, 3));
        expectError(QString("%1 is no colour").arg(color));
    }
}

void TestBook::nearestColor()
{
    QCOMPARE(m_book->colorPack(250, 250, 250), colorWhite);
    QCOMPARE(m_book->colorPack(0, 0, 0), colorBlack);
    QCOMPARE(m_book->colorPack(192, 192, 190), colorGray25);
    QCOMPARE(m_book->colorPack(0, 173, 239), 40); // 00ccff
    m_book->setRgbMode(true);
    m_book->setRgbMode(false);
    QCOMPARE(m_book->colorPack(255, 1, 0), 10);
}

void TestBook::numFormats()
{
    const int first = m_book->addCustomNumFormat("#0.00");
    const int second = m_book->addCustomNumFormat("#0.00 €");
    QVERIFY(first > generalNumFormat);
    QVERIFY(second > generalNumFormat && second != first);
    QCOMPARE(m_book->addCustomNumFormat("#0.00"), first);
    QCOMPARE(data().numFormats, (QVector<QString>{"#0.00", "#0.00 €"}));
}

void TestBook::numFormatLength_data()
{
    QTest::addColumn<bool>("xls");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("empty") << true << "" << false;
    QTest::newRow("control character") << true << "0\t0" << false;
    QTest::newRow("XLS longest") << true << QString(255, '0') << true;
    QTest::newRow("XLS too long") << true << QString(256, '0') << false;
    QTest::newRow("XLSX longest") << false << QString(127, '0') << true;
    QTest::newRow("XLSX too long") << false << QString(128, '0') << false;
    QTest::newRow("XLSX bytes") << false << QString(43, QChar(0x20ac)) << false; // 129 bytes
}

void TestBook::numFormatLength()
{
    QFETCH(bool, xls);
    QFETCH(QString, text);
    QFETCH(bool, isTaken);
    makeBook(xls ? xlsKind : xlsxKind);
    QCOMPARE(m_book->addCustomNumFormat(text) >= firstCustomNumFormat, isTaken);
    if (!isTaken)
        expectError(QString("A number format has 1 to %1 bytes").arg(xls ? 255 : 127));
}

void TestBook::numFormatLimit()
{
    for (int count = 0; count < 200; ++count)
        QCOMPARE(m_book->addCustomNumFormat(QString::number(count)), firstCustomNumFormat + count);
    QCOMPARE(m_book->addCustomNumFormat("one more"), -1);
    expectError("A book holds 200 number formats");
    QCOMPARE(m_book->addCustomNumFormat("199"), firstCustomNumFormat + 199);
}

void TestBook::numFormatOfFormat()
{
    Format *format = m_book->addFormat();
    const int number = m_book->addCustomNumFormat("0.00");
    format->setNumFormat(number);
    for (const int wrong : {number + 1, -1, 14, 163}) {
        format->setNumFormat(wrong);
        QCOMPARE(data().formats.at(1).numFormat, number);
        expectError(QString("There is no number format %1").arg(wrong));
    }
    format->setNumFormat(generalNumFormat);
    QCOMPARE(data().formats.at(1).numFormat, generalNumFormat);
}

void TestBook::formats()
{
    Format *format = m_book->addFormat();
    format->setAlignH(AlignH::Right);
    format->setAlignV(AlignV::Center);
    format->setWrap(true);
    format->setBorder(BorderStyle::Thin);
    format->setBorderColor(22);
    format->setBorderTop(BorderStyle::Thick);
    format->setBorderBottom(BorderStyle::Hair);
    format->setBorderTopColor(10);
    format->setBorderBottomColor(11);
    format->setFillPattern(FillPattern::Solid);
    format->setPatternForegroundColor(12);
    format->setBorderColor(7);
    format->setBorderTopColor(7);
    format->setBorderBottomColor(7);
    format->setPatternForegroundColor(7);
    expectError("7 is no colour");
    const FormatData &written = data().formats.at(1);
    QCOMPARE(written.alignH, AlignH::Right);
    QCOMPARE(written.alignV, AlignV::Center);
    QVERIFY(written.wrap);
    QCOMPARE(written.left.style, BorderStyle::Thin);
    QCOMPARE(written.right.style, BorderStyle::Thin);
    QCOMPARE(written.top.style, BorderStyle::Thick);
    QCOMPARE(written.bottom.style, BorderStyle::Hair);
    QCOMPARE(written.left.color, 22);
    QCOMPARE(written.right.color, 22);
    QCOMPARE(written.top.color, 10);
    QCOMPARE(written.bottom.color, 11);
    QCOMPARE(written.fill, FillPattern::Solid);
    QCOMPARE(written.foreground, 12);
}

void TestBook::formatCopy()
{
    Format *first = m_book->addFormat();
    first->setWrap(true);
    Format *copy = m_book->addFormat(first);
    QVERIFY(data().formats.at(2).wrap);
    first->setAlignH(AlignH::Center);
    copy->setWrap(false);
    QCOMPARE(data().formats.at(2).alignH, AlignH::General);
    QVERIFY(data().formats.at(1).wrap);
    m_book->addFormat();
    QVERIFY(!data().formats.at(3).wrap);
}

void TestBook::formatLimit_data()
{
    QTest::addColumn<bool>("xls");
    QTest::addColumn<int>("limit");
    QTest::newRow("XLS") << true << 4000;
    QTest::newRow("XLSX") << false << 64000;
}

void TestBook::formatLimit()
{
    QFETCH(bool, xls);
    QFETCH(int, limit);
    Sheet *sheet = makeBook(xls ? xlsKind : xlsxKind)->addSheet("s");
    const Format *last = nullptr;
    for (int count = 0; count < limit; ++count) {
        last = m_book->addFormat();
        QVERIFY(last);
    }
    QVERIFY(!m_book->addFormat());
    expectError(QString("A book holds %1 formats").arg(limit));
    QVERIFY(sheet->writeNum(0, 0, 1, last));
    const Format *read = nullptr;
    sheet->readNum(0, 0, &read);
    QCOMPARE(read, last);
}

void TestBook::formatOfAnotherBook()
{
    const BookPointer other = xlCreateBookA();
    const Format *foreign = other->addFormat();
    m_book->addFormat();
    const QString reason = "The format is of another book";
    QVERIFY(!m_sheet->writeStr(0, 0, "a", foreign));
    expectError(reason);
    QVERIFY(!m_sheet->writeNum(0, 0, 1, foreign));
    QVERIFY(!m_sheet->setCol(0, 0, 10, foreign));
    QVERIFY(!m_sheet->setRow(0, 10, foreign));
    QVERIFY(!m_book->addFormat(foreign));
    QCOMPARE(sheetData().cells.rowCount(), 0);
    QVERIFY(sheetData().columns.isEmpty());
    QVERIFY(sheetData().rows.isEmpty());
    QCOMPARE(data().formats.size(), 2);
}

void TestBook::sheetNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    const QString character = "\"%1\" has a character that a sheet's name cannot have";
    QTest::newRow("one") << "x"
                         << "";
    QTest::newRow("31") << QString(31, 'x') << "";
    QTest::newRow("Slovak") << "ZEP - Kontrolný export stravy"
                            << "";
    QTest::newRow("inner apostrophe") << "a'b"
                                      << "";
    QTest::newRow("empty") << ""
                           << "A sheet's name has 1 to 31 characters";
    QTest::newRow("32") << QString(32, 'x') << "A sheet's name has 1 to 31 characters";
    QTest::newRow("taken") << "Sheet"
                           << "There is a sheet \"Sheet\" already";
    QTest::newRow("taken in another case") << "sHEET"
                                           << "There is a sheet \"sHEET\" already";
    for (const char *name : {"[", "]", ":", "*", "?", "/", "\\", "'a", "a'", "'", "a\nb"})
        QTest::newRow(name) << name << character.arg(name);
}

void TestBook::sheetNames()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    QCOMPARE(m_book->addSheet(name) != nullptr, reason.isEmpty());
    expectError(reason);
    QCOMPARE(int(data().sheets.size()), reason.isEmpty() ? 2 : 1);
}

void TestBook::sheetLimit()
{
    QVERIFY(!m_book->addSheet("copy", m_sheet));
    expectError("Sheets cannot be copied");
    for (int count = 1; count < 255; ++count)
        QVERIFY(m_book->addSheet(QString::number(count)));
    QVERIFY(!m_book->addSheet("one more"));
    expectError("A book holds 255 sheets");
}

void TestBook::cellLimits_data()
{
    QTest::addColumn<bool>("xls");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("reason");
    QTest::newRow("XLS last row") << true << 65535 << 0 << "";
    QTest::newRow("XLS row") << true << 65536 << 0 << "There are no rows 65536 to 65536; the last one is 65535";
    QTest::newRow("XLS last column") << true << 0 << 255 << "";
    QTest::newRow("XLS column") << true << 0 << 256 << "There are no columns 256 to 256; the last one is 255";
    QTest::newRow("XLSX last row") << false << 1048575 << 0 << "";
    QTest::newRow("XLSX row") << false << 1048576 << 0
                              << "There are no rows 1048576 to 1048576; the last one is 1048575";
    QTest::newRow("XLSX last column") << false << 0 << 16383 << "";
    QTest::newRow("XLSX column") << false << 0 << 16384 << "There are no columns 16384 to 16384; the last one is 16383";
    QTest::newRow("negative row") << true << -1 << 0 << "There are no rows -1 to -1; the last one is 65535";
    QTest::newRow("negative column") << true << 0 << -1 << "There are no columns -1 to -1; the last one is 255";
}

void TestBook::cellLimits()
{
    QFETCH(bool, xls);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, reason);
    Sheet *sheet = makeBook(xls ? xlsKind : xlsxKind)->addSheet("s");
    const bool fits = reason.isEmpty();
    QCOMPARE(sheet->writeNum(row, col, 4), fits);
    expectError(reason);
    QCOMPARE(sheet->readNum(row, col), fits ? 4.0 : 0.0);
    QCOMPARE(sheet->writeStr(row, col, "a"), fits);
    QCOMPARE(sheet->setRow(row, 10), fits || col != 0);
    QCOMPARE(sheet->setCol(col, col, 10), fits || row != 0);
    QCOMPARE(sheet->setColHidden(col, true), fits || row != 0);
    QCOMPARE(sheet->setPrintRepeatRows(row, row), fits || col != 0);
    QCOMPARE(sheet->setMerge(0, row, 0, col), fits);
}

void TestBook::textLength()
{
    QVERIFY(m_sheet->writeStr(0, 0, QString(32767, 'x')));
    QVERIFY(!m_sheet->writeStr(0, 1, QString(32768, 'x')));
    expectError("A text of 32768 characters; a cell holds 32767");
    QVERIFY(!sheetData().cells.find(0, 1));
    QVERIFY(m_sheet->writeStr(0, 2, ""));
    QVERIFY(m_sheet->writeStr(0, 3, "=1+1"));
    QCOMPARE(data().texts.text(data().texts.size() - 1), QString("=1+1"));
}

void TestBook::numbers()
{
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        QVERIFY(!m_sheet->writeNum(0, 0, value));
        expectError("A number that is not finite");
    }
    QCOMPARE(sheetData().cells.rowCount(), 0);
    for (const double value :
         {0.0, -1.5, std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
        QVERIFY(m_sheet->writeNum(0, 0, value));
        QCOMPARE(m_sheet->readNum(0, 0), value);
    }
}

void TestBook::readNum()
{
    QCOMPARE(m_sheet->readNum(5, 5), 0.0);
    QVERIFY(m_sheet->writeNum(5, 5, 2));
    QVERIFY(m_sheet->writeNum(5, 5, m_sheet->readNum(5, 5) + 3));
    QCOMPARE(m_sheet->readNum(5, 5), 5.0);
    QVERIFY(m_sheet->writeStr(5, 5, "7"));
    QCOMPARE(m_sheet->readNum(5, 5), 0.0);
    QCOMPARE(m_book->errorMessage(), QString());
    QCOMPARE(m_sheet->readNum(-1, 0), 0.0);
    expectError("There are no rows -1 to -1; the last one is 65535");
}

void TestBook::readNumFormat()
{
    const Format *format = m_book->addFormat();
    m_sheet->writeNum(0, 0, 1, format);
    m_sheet->writeNum(0, 1, 1);
    m_sheet->writeStr(0, 2, "a", format);
    const Format *read = nullptr;
    m_sheet->readNum(0, 0, &read);
    QCOMPARE(read, format);
    m_sheet->readNum(0, 2, &read);
    QCOMPARE(read, format);
    for (const auto &[row, col] : {std::pair(0, 1), std::pair(0, 3), std::pair(70000, 0)}) {
        read = format;
        m_sheet->readNum(row, col, &read);
        QVERIFY(!read);
    }
}

void TestBook::overwriting()
{
    const Format *format = m_book->addFormat();
    m_sheet->writeStr(0, 0, "a", format);
    m_sheet->writeNum(0, 0, 3);
    const Cell *cell = sheetData().cells.find(0, 0);
    QCOMPARE(int(cell->text), int(Cell::isNumber));
    QCOMPARE(int(cell->format), 0);
    m_sheet->writeStr(0, 0, "b", format);
    QCOMPARE(data().texts.text(cell->text), QString("b"));
    QCOMPARE(int(cell->format), 1);
}

void TestBook::columns_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<double>("width");
    QTest::addColumn<QString>("reason");
    QTest::newRow("one") << 2 << 2 << 10.0 << "";
    QTest::newRow("all") << 0 << 255 << 10.0 << "";
    QTest::newRow("none wide") << 0 << 0 << 0.0 << "";
    QTest::newRow("widest") << 0 << 0 << 255.0 << "";
    QTest::newRow("too wide") << 0 << 0 << 255.1 << "A column is 0 to 255 digits wide";
    QTest::newRow("negative") << 0 << 0 << -1.0 << "A column is 0 to 255 digits wide";
    QTest::newRow("not a number") << 0 << 0 << std::nan("") << "A column is 0 to 255 digits wide";
    QTest::newRow("beyond") << 255 << 256 << 10.0 << "There are no columns 255 to 256; the last one is 255";
    QTest::newRow("backwards") << 3 << 2 << 10.0 << "There are no columns 3 to 2; the last one is 255";
}

void TestBook::columns()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(double, width);
    QFETCH(QString, reason);
    const bool fits = reason.isEmpty();
    QCOMPARE(m_sheet->setCol(first, last, width, m_book->addFormat(), true), fits);
    expectError(reason);
    QCOMPARE(sheetData().columns.size(), fits ? last - first + 1 : 0);
    for (const ColumnData &column : sheetData().columns) {
        QCOMPARE(column.width, width);
        QCOMPARE(column.format, 1);
        QVERIFY(column.hidden);
    }
}

void TestBook::rows_data()
{
    QTest::addColumn<double>("height");
    QTest::addColumn<bool>("fits");
    QTest::newRow("none") << 0.0 << true;
    QTest::newRow("usual") << 12.75 << true;
    QTest::newRow("highest") << 409.0 << true;
    QTest::newRow("too high") << 409.1 << false;
    QTest::newRow("negative") << -0.1 << false;
    QTest::newRow("not a number") << std::nan("") << false;
}

void TestBook::rows()
{
    QFETCH(double, height);
    QFETCH(bool, fits);
    QCOMPARE(m_sheet->setRow(7, height, m_book->addFormat(), true), fits);
    expectError(fits ? "" : "A row is 0 to 409 points high");
    QCOMPARE(sheetData().rows.contains(7), fits);
    if (!fits)
        return;
    QCOMPARE(sheetData().rows.value(7).height, height);
    QCOMPARE(sheetData().rows.value(7).format, 1);
    QVERIFY(sheetData().rows.value(7).hidden);
}

void TestBook::hiddenColumn()
{
    QVERIFY(m_sheet->setCol(2, 4, 1.5, m_book->addFormat()));
    QVERIFY(m_sheet->setColHidden(3, true));
    QVERIFY(m_sheet->setColHidden(9, true));
    QVERIFY(m_sheet->setColHidden(4, true));
    QVERIFY(m_sheet->setColHidden(4, false));
    const auto &columns = sheetData().columns;
    QVERIFY(!columns.value(2).hidden);
    QVERIFY(columns.value(3).hidden);
    QVERIFY(!columns.value(4).hidden);
    QCOMPARE(columns.value(3).width, 1.5); // what it has when it is shown again
    QCOMPARE(columns.value(3).format, 1);
    QVERIFY(columns.value(9).hidden);
    QCOMPARE(columns.value(9).width, -1.0);
}

void TestBook::merges()
{
    QVERIFY(m_sheet->setMerge(2, 4, 2, 4));
    QVERIFY(!m_sheet->setMerge(0, 0, 0, 0));
    expectError("One cell alone cannot be merged");
    for (const auto &[rowFirst, rowLast, colFirst, colLast] :
         {std::tuple(2, 4, 2, 4), std::tuple(3, 3, 3, 9), std::tuple(0, 2, 0, 2), std::tuple(4, 9, 4, 5),
          std::tuple(0, 9, 0, 9)}) {
        QVERIFY(!m_sheet->setMerge(rowFirst, rowLast, colFirst, colLast));
        expectError("A merged cell lies there already");
    }
    QVERIFY(m_sheet->setMerge(2, 4, 5, 6));
    QVERIFY(m_sheet->setMerge(0, 1, 2, 4));
    QVERIFY(m_sheet->setMerge(5, 5, 0, 255));
    QVERIFY(!m_sheet->setMerge(9, 8, 0, 1));
    QVERIFY(!m_sheet->setMerge(8, 9, 1, 0));
    QCOMPARE(sheetData().merges.size(), 4);
}

void TestBook::randomMerges()
{
    // Against a board on which the cells are painted.
    QRandomGenerator numbers(11);
    bool board[40][40] = {};
    for (int step = 0; step < 3000; ++step) {
        const int row = numbers.bounded(38);
        const int col = numbers.bounded(38);
        const int rowLast = row + numbers.bounded(3);
        const int colLast = qMin(39, col + 1 + numbers.bounded(2));
        bool isFree = true;
        for (int r = row; r <= qMin(39, rowLast); ++r) {
            for (int c = col; c <= colLast; ++c)
                isFree = isFree && !board[r][c];
        }
        QCOMPARE(m_sheet->setMerge(row, rowLast, col, colLast), isFree);
        for (int r = row; isFree && r <= qMin(39, rowLast); ++r)
            std::fill(board[r] + col, board[r] + colLast + 1, true);
    }
}

void TestBook::pageSetUp()
{
    const SheetData &sheet = sheetData();
    QVERIFY(sheet.displayGridlines);
    m_sheet->setDisplayGridlines(false);
    QVERIFY(!sheet.displayGridlines);
    m_sheet->setPrintGridlines(true);
    QVERIFY(sheet.printGridlines);
    m_sheet->setMarginLeft(0.1);
    m_sheet->setMarginRight(0.2);
    m_sheet->setMarginTop(0.3);
    m_sheet->setMarginBottom(0.4);
    QCOMPARE(sheet.marginLeft, 0.1);
    QCOMPARE(sheet.marginRight, 0.2);
    QCOMPARE(sheet.marginTop, 0.3);
    QCOMPARE(sheet.marginBottom, 0.4);
    QCOMPARE(sheet.fitWidth, -1);
    m_sheet->setPrintFit(1, 0);
    QCOMPARE(sheet.fitWidth, 1);
    QCOMPARE(sheet.fitHeight, 0);
    m_sheet->setLandscape(true);
    QVERIFY(sheet.landscape);
    m_sheet->setPaper(PAPER_A4);
    QCOMPARE(sheet.paper, PAPER_A4);
}

void TestBook::pageSetUpRanges()
{
    m_sheet->setMarginLeft(49);
    for (const double margin : {-0.1, 49.1, std::nan("")}) {
        m_sheet->setMarginLeft(margin);
        QCOMPARE(sheetData().marginLeft, 49.0);
        expectError("A margin is 0 to 49 inches");
    }
    m_sheet->setPrintFit(32767, 32767);
    for (const auto &[wide, high] : {std::pair(-1, 0), std::pair(0, -1), std::pair(32768, 0), std::pair(0, 32768)}) {
        m_sheet->setPrintFit(wide, high);
        QCOMPARE(sheetData().fitWidth, 32767);
        QCOMPARE(sheetData().fitHeight, 32767);
        expectError("A print is fitted to 0 to 32767 pages");
    }
}

void TestBook::repeatRows()
{
    QCOMPARE(sheetData().repeatFirst, -1);
    QVERIFY(m_sheet->setPrintRepeatRows(5, 6));
    QVERIFY(!m_sheet->setPrintRepeatRows(6, 5));
    expectError("There are no rows 6 to 5; the last one is 65535");
    QCOMPARE(sheetData().repeatFirst, 5);
    QCOMPARE(sheetData().repeatLast, 6);
}

void TestBook::footer()
{
    QVERIFY(m_sheet->setFooter("&P / &N"));
    QVERIFY(m_sheet->setFooter(QString(252, 'x') + '\n'));
    QVERIFY(!m_sheet->setFooter(QString(254, 'x')));
    expectError("A footer has at most 253 characters");
    QVERIFY(!m_sheet->setFooter("a\tb"));
    expectError("A footer has no control characters");
    QCOMPARE(sheetData().footer, QString(252, 'x') + '\n');
}

void TestBook::saveWithoutSheet()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("book.xls");
    const BookPointer book = xlCreateBookA();
    QVERIFY(!book->save(file));
    QCOMPARE(book->errorMessage(), QString("A book without a sheet cannot be saved"));
    QVERIFY(!QFile::exists(file));
}

void TestBook::saveFailure()
{
    const QTemporaryDir folder;
    QVERIFY(!m_book->save(folder.filePath("none/book.xls")));
    QVERIFY(!m_book->errorMessage().isEmpty());
    QVERIFY(!m_book->save(folder.path()));
    QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden), QStringList());
}

void TestBook::saveTwice()
{
    const QTemporaryDir folder;
    QByteArray before;
    for (const char *name : {"one.xls", "two.xls", "one.xls"}) {
        QVERIFY2(m_book->save(folder.filePath(name)), qPrintable(m_book->errorMessage()));
        const QByteArray bytes = contentOf(folder.filePath(name));
        QVERIFY(bytes.startsWith("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"));
        QVERIFY(before.isEmpty() || bytes == before);
        before = bytes;
    }
    m_sheet->writeNum(0, 0, 0.1);
    QVERIFY(m_book->save(folder.filePath("one.xls")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden),
             (QStringList{"one.xls", "two.xls"}));
}

void TestBook::colorLimit()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath("book.xls");
    QVERIFY(m_book->save(name));
    m_book->setRgbMode(true);
    for (int count = 0; count < 56; ++count)
        m_book->addFont()->setColor(m_book->colorPack(200, 100, count));
    QVERIFY2(m_book->save(name), qPrintable(m_book->errorMessage()));
    // A colour that does not show does not count.
    Format *format = m_book->addFormat();
    format->setPatternForegroundColor(m_book->colorPack(1, 1, 1));
    format->setBorderColor(m_book->colorPack(1, 1, 1));
    QVERIFY(m_book->save(name));
    const QByteArray before = contentOf(name);
    format->setFillPattern(FillPattern::Solid);
    QVERIFY(!m_book->save(name));
    expectError("The book has 57 different colours; an XLS file holds 56");
    QCOMPARE(contentOf(name), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden),
             QStringList{"book.xls"});
}

QTEST_MAIN(TestBook)
#include "tst_book.moc"
