#include "spreadsheet/writers.h"
#include "xlsxdata.h"
#include "xlsxreader.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace Spreadsheet;

Q_DECLARE_METATYPE(AlignH)
Q_DECLARE_METATYPE(AlignV)
Q_DECLARE_METATYPE(BorderStyle)

namespace {

/// The width in the file of a column that shows as `width` digits: seven pixels a digit and five for the edges, whole
/// pixels, in 256ths of a digit.
double fileWidth(double width)
{
    constexpr double digit = 7;
    constexpr double edges = 5;
    const double pixels =
        width < 1 ? std::floor(width * (digit + edges) + 0.5) : std::floor(width * digit + 0.5) + edges;
    return std::floor(pixels / digit * 256) / 256;
}

QJsonValue part(const QJsonObject &look, const char *name)
{
    return look.value(QLatin1String(name));
}

QJsonValue fontPart(const QJsonObject &look, const char *name)
{
    return look.value(QLatin1String("font")).toObject().value(QLatin1String(name));
}

const QString themeText = QStringLiteral("theme 1"); // the colour of letters that the reader's system has

} // namespace

/// The look of cells, columns, rows and pages.
class TestXlsxLook : public QObject {
    Q_OBJECT

private slots:
    void defaultFont();
    void fonts_data();
    void fonts();
    void fontOfTheLibrary();
    void formatWithNothingOfItsOwn();
    void numFormats_data();
    void numFormats();
    void alignment_data();
    void alignment();
    void borders_data();
    void borders();
    void sidesOfABorder();
    void fills_data();
    void fills();
    void formatsAreMadeOnce();
    void manyFormats();
    void columnWidths_data();
    void columnWidths();
    void hiddenColumns();
    void columnFormat();
    void rowHeights_data();
    void rowHeights();
    void neededHeights();
    void hiddenRow();
    void rowFormat();
    void pageAsItComes();
    void pageSetUp();
    void gridlines_data();
    void gridlines();
    void pagesToFit_data();
    void pagesToFit();
    void footers_data();
    void footers();
    void roomForTheFooter_data();
    void roomForTheFooter();

private:
    XlsxFile write(const XlsxData &book)
    {
        QString error;
        if (!writeXlsx(book.data, m_fileName, &error))
            qFatal("not written: %s", qPrintable(error));
        return XlsxFile(m_fileName);
    }
    /// The look of a cell with that format.
    QJsonObject lookOf(const FormatData &format)
    {
        XlsxData book;
        book.writeText(0, 0, QStringLiteral("x"), book.addFormat(format));
        return write(book).look(0, 0);
    }

    const QTemporaryDir m_folder;
    const QString m_fileName = m_folder.filePath(QStringLiteral("book.xlsx"));
};

void TestXlsxLook::defaultFont()
{
    XlsxData book;
    book.writeText(0, 0, QStringLiteral("plain"));
    book.writeNumber(0, 1, 1);
    book.writeText(0, 2, QStringLiteral("filled"), book.addFill(colorGray25));
    const XlsxFile file = write(book);
    for (int col = 0; col < 3; ++col) {
        QCOMPARE(fontPart(file.look(0, col), "name").toString(), QStringLiteral("MS Shell Dlg 2"));
        QCOMPARE(fontPart(file.look(0, col), "size").toDouble(), 10.0);
        QCOMPARE(fontPart(file.look(0, col), "color").toString(), themeText);
    }
}

void TestXlsxLook::fonts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("color");
    QTest::addColumn<QString>("written");
    QTest::newRow("title") << "MS Shell Dlg 2" << 15 << true << colorWhite << "FFFFFFFF";
    QTest::newRow("small") << "MS Shell Dlg 2" << 9 << false << colorGray50 << "FF808080";
    QTest::newRow("accent") << "Cambria" << 12 << true << rgb(0x00adef) << "FF00ADEF";
    QTest::newRow("black") << "Cambria" << 12 << false << rgb(0) << "FF000000";
    QTest::newRow("black of the palette") << "Cambria" << 12 << false << colorBlack << "FF000000";
    QTest::newRow("automatic") << "Cambria" << 12 << false << colorAutomatic << themeText;
    QTest::newRow("smallest") << "Cambria" << 1 << false << rgb(0x010000) << "FF010000";
    QTest::newRow("largest") << "Cambria" << 409 << false << rgb(0xffffff) << "FFFFFFFF";
    QTest::newRow("marks") << "A & B <\"č\">" << 10 << false << rgb(0x000001) << "FF000001";
    QTest::newRow("longest name") << QString(31, QChar(0x4e00)) << 10 << false << colorAutomatic << themeText;
}

void TestXlsxLook::fonts()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    QFETCH(bool, bold);
    QFETCH(int, color);
    QFETCH(QString, written);
    XlsxData book;
    FontData font = XlsxData::font(name, size);
    font.bold = bold;
    font.color = color;
    FormatData format;
    format.font = book.addFont(font);
    book.writeText(0, 0, QStringLiteral("x"), book.addFormat(format));
    const QJsonObject look = write(book).look(0, 0);
    QCOMPARE(look.value(QLatin1String("font")).toObject(),
             (QJsonObject{{"name", name}, {"size", size}, {"bold", bold}, {"color", written}}));
}

/// A format that looks like a new format of the library must not be taken for the default look.
void TestXlsxLook::fontOfTheLibrary()
{
    XlsxData book;
    FormatData format;
    format.font = book.addFont(XlsxData::font(QStringLiteral("Calibri"), 11));
    book.writeText(0, 0, QStringLiteral("x"), book.addFormat(format));
    book.writeText(0, 1, QStringLiteral("x"));
    const XlsxFile file = write(book);
    QCOMPARE(fontPart(file.look(0, 0), "name").toString(), QStringLiteral("Calibri"));
    QCOMPARE(fontPart(file.look(0, 0), "size").toDouble(), 11.0);
    QCOMPARE(fontPart(file.look(0, 1), "name").toString(), QStringLiteral("MS Shell Dlg 2"));
}

void TestXlsxLook::formatWithNothingOfItsOwn()
{
    const QJsonObject look = lookOf(FormatData());
    QCOMPARE(look.value(QLatin1String("font")).toObject(),
             (QJsonObject{{"name", "MS Shell Dlg 2"}, {"size", 10}, {"bold", false}, {"color", themeText}}));
    QCOMPARE(part(look, "numFormat").toString(), QStringLiteral("General"));
    for (const char *name : {"alignH", "fill", "left", "right", "top", "bottom"})
        QVERIFY2(part(look, name).isNull(), name);
    QCOMPARE(part(look, "wrap").toBool(), false);
}

void TestXlsxLook::numFormats_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"#0.00", "#0.00 €", "#.00", "0", "0.00", "#,##0", "0 \"ks & <kg>\"", "General",
                             "# ##0,00;[Red]-# ##0,00", "@"})
        QTest::newRow(text) << QString::fromUtf8(text);
    QTest::newRow("as long as the library takes")
        << QLatin1Char('"') + QString(125, QLatin1Char('x')) + QLatin1Char('"');
}

void TestXlsxLook::numFormats()
{
    QFETCH(QString, text);
    XlsxData book;
    book.addNumFormat(QStringLiteral("#0.000"));
    book.writeNumber(0, 0, 4.5, book.addNumFormat(text));
    QCOMPARE(part(write(book).look(0, 0), "numFormat").toString(), text);
}

void TestXlsxLook::alignment_data()
{
    QTest::addColumn<AlignH>("alignH");
    QTest::addColumn<AlignV>("alignV");
    QTest::addColumn<bool>("wrap");
    QTest::addColumn<QString>("horizontal");
    QTest::addColumn<QString>("vertical");
    QTest::newRow("usual") << AlignH::General << AlignV::Bottom << false << ""
                           << "";
    QTest::newRow("left top") << AlignH::Left << AlignV::Top << true << "left"
                              << "top";
    QTest::newRow("centre") << AlignH::Center << AlignV::Center << false << "center"
                            << "center";
    QTest::newRow("right") << AlignH::Right << AlignV::Bottom << true << "right"
                           << "";
    QTest::newRow("wrapped") << AlignH::General << AlignV::Bottom << true << ""
                             << "";
}

void TestXlsxLook::alignment()
{
    QFETCH(AlignH, alignH);
    QFETCH(AlignV, alignV);
    QFETCH(bool, wrap);
    QFETCH(QString, horizontal);
    QFETCH(QString, vertical);
    FormatData format;
    format.alignH = alignH;
    format.alignV = alignV;
    format.wrap = wrap;
    const QJsonObject look = lookOf(format);
    QCOMPARE(part(look, "alignH").toString(), horizontal);
    // "bottom" is what a missing one means.
    QCOMPARE(part(look, "alignV").toString().remove(QLatin1String("bottom")), vertical);
    QCOMPARE(part(look, "wrap").toBool(), wrap);
}

void TestXlsxLook::borders_data()
{
    QTest::addColumn<BorderStyle>("style");
    QTest::addColumn<QString>("name");
    QTest::newRow("thin") << BorderStyle::Thin << "thin";
    QTest::newRow("medium") << BorderStyle::Medium << "medium";
    QTest::newRow("dashed") << BorderStyle::Dashed << "dashed";
    QTest::newRow("dotted") << BorderStyle::Dotted << "dotted";
    QTest::newRow("thick") << BorderStyle::Thick << "thick";
    QTest::newRow("double") << BorderStyle::Double << "double";
    QTest::newRow("hair") << BorderStyle::Hair << "hair";
}

void TestXlsxLook::borders()
{
    QFETCH(BorderStyle, style);
    QFETCH(QString, name);
    FormatData format;
    format.left = format.right = format.top = format.bottom = {style, colorGray25};
    const QJsonObject look = lookOf(format);
    for (const char *side : {"left", "right", "top", "bottom"})
        QCOMPARE(part(look, side), QJsonValue(QJsonArray{name, "FFC0C0C0"}));
}

void TestXlsxLook::sidesOfABorder()
{
    FormatData format;
    format.top = {BorderStyle::Thick, rgb(0x00adef)};
    format.bottom = {BorderStyle::Thin, rgb(0xfafafa)};
    format.left = {BorderStyle::None, rgb(0xff0000)};
    format.right = {BorderStyle::Hair, colorAutomatic};
    const QJsonObject look = lookOf(format);
    QCOMPARE(part(look, "top"), QJsonValue(QJsonArray{"thick", "FF00ADEF"}));
    QCOMPARE(part(look, "bottom"), QJsonValue(QJsonArray{"thin", "FFFAFAFA"}));
    QVERIFY(part(look, "left").isNull());
    QCOMPARE(part(look, "right").toArray().at(0).toString(), QStringLiteral("hair"));
    QVERIFY(!part(look, "right").toArray().at(1).toString().startsWith(QLatin1String("FF")));
}

void TestXlsxLook::fills_data()
{
    QTest::addColumn<int>("color");
    QTest::addColumn<QString>("written");
    QTest::newRow("accent") << rgb(0x00adef) << "FF00ADEF";
    QTest::newRow("white") << colorWhite << "FFFFFFFF";
    QTest::newRow("black") << rgb(0) << "FF000000";
    QTest::newRow("of the palette") << 63 << "FF333333";
    QTest::newRow("automatic") << colorAutomatic << "FF000000";
}

void TestXlsxLook::fills()
{
    QFETCH(int, color);
    QFETCH(QString, written);
    FormatData format;
    format.fill = FillPattern::Solid;
    format.foreground = color;
    QCOMPARE(part(lookOf(format), "fill"), QJsonValue(QJsonArray{"solid", written}));
}

void TestXlsxLook::formatsAreMadeOnce()
{
    XlsxData book;
    const int first = book.addFill(colorGray25);
    const int second = book.addFill(rgb(0x00adef));
    book.addFill(rgb(0x123456)); // no cell has it
    for (int row = 0; row < 100; ++row)
        book.writeNumber(row, 0, row, row % 2 == 0 ? first : second);
    QCOMPARE(write(book).formatCount(), 3);
}

void TestXlsxLook::manyFormats()
{
    constexpr int count = 5000;
    XlsxData book;
    for (int row = 0; row < count; ++row)
        book.writeNumber(row, 0, row, book.addFill(rgb(row + 1)));
    const XlsxFile file = write(book);
    QCOMPARE(file.formatCount(), count + 1);
    for (int row = 0; row < count; ++row)
        QCOMPARE(part(file.look(row, 0), "fill").toArray().at(1).toString(),
                 QStringLiteral("FF%1").arg(row + 1, 6, 16, QLatin1Char('0')).toUpper());
}

void TestXlsxLook::columnWidths_data()
{
    QTest::addColumn<double>("width");
    for (const double width : {0.5, 1.0, 1.5, 6.0, 8.0, 8.43, 10.0, 45.0, 255.0})
        QTest::newRow(QByteArray::number(width).constData()) << width;
}

void TestXlsxLook::columnWidths()
{
    QFETCH(double, width);
    XlsxData book;
    book.sheet().columns[3].width = width;
    book.sheet().columns[16383].width = width;
    const XlsxFile file = write(book);
    QCOMPARE(file.column(3).at(1).toDouble(), fileWidth(width));
    QCOMPARE(file.column(16383).at(1).toDouble(), fileWidth(width));
    QCOMPARE(file.column(3).at(2).toBool(), false);
    QVERIFY(file.column(2).isEmpty());
    QVERIFY(file.column(4).isEmpty());
}

void TestXlsxLook::hiddenColumns()
{
    XlsxData book;
    book.sheet().columns[2].hidden = true;
    book.sheet().columns[3].width = 1.5;
    book.sheet().columns[3].hidden = true;
    book.sheet().columns[4].width = 1.5;
    book.writeNumber(0, 3, 7);
    const XlsxFile file = write(book);
    QCOMPARE(file.column(2).at(2).toBool(), true);
    QVERIFY2(file.column(2).at(1).toDouble() == fileWidth(8.43), "it has a width when it is shown again");
    QCOMPARE(file.column(3).at(2).toBool(), true);
    QCOMPARE(file.column(3).at(1).toDouble(), fileWidth(1.5));
    QCOMPARE(file.column(4).at(2).toBool(), false);
    QCOMPARE(file.value(0, 3).toInt(), 7);
}

void TestXlsxLook::columnFormat()
{
    XlsxData book;
    const int column = book.addFill(colorGray25);
    const int cell = book.addFill(rgb(0x00adef));
    book.sheet().columns[1].format = column;
    book.writeText(0, 1, QStringLiteral("of its own"), cell);
    book.writeText(1, 1, QStringLiteral("default look"));
    book.writeNumber(2, 1, 1);
    const XlsxFile file = write(book);
    QCOMPARE(part(file.lookAt(file.column(1).at(3)), "fill"), QJsonValue(QJsonArray{"solid", "FFC0C0C0"}));
    QCOMPARE(part(file.look(0, 1), "fill"), QJsonValue(QJsonArray{"solid", "FF00ADEF"}));
    QVERIFY(part(file.look(1, 1), "fill").isNull());
    QVERIFY(part(file.look(2, 1), "fill").isNull());
}

void TestXlsxLook::rowHeights_data()
{
    QTest::addColumn<double>("height");
    for (const double height : {3.0, 5.0, 12.75, 15.0, 18.0, 25.0, 409.0})
        QTest::newRow(QByteArray::number(height).constData()) << height;
}

void TestXlsxLook::rowHeights()
{
    QFETCH(double, height);
    XlsxData book;
    book.sheet().rows[7].height = height;
    book.sheet().rows[9].height = height;
    book.writeText(8, 0, QStringLiteral("between"));
    book.writeText(9, 0, QStringLiteral("in it"));
    const XlsxFile file = write(book);
    QCOMPARE(file.row(7).at(1).toDouble(), height);
    QCOMPARE(file.row(9).at(1).toDouble(), height);
    QVERIFY2(file.row(8).isEmpty(), "the program fits it to its content");
    QCOMPARE(file.text(9, 0), QStringLiteral("in it"));
}

/// Of a large font and a text of three lines; the row between has the sheet's height, one line of the default font.
void TestXlsxLook::neededHeights()
{
    XlsxData book;
    FormatData large;
    large.font = book.addFont(XlsxData::font(QStringLiteral("Cambria"), 15));
    FormatData wrapped;
    wrapped.wrap = true;
    book.writeText(0, 0, QStringLiteral("x"), book.addFormat(large));
    book.writeText(1, 0, QStringLiteral("x"));
    book.writeText(2, 0, QStringLiteral("a\nb\nc"), book.addFormat(wrapped));
    book.writeText(3, 0, QStringLiteral("x"), book.addFormat(large));
    book.sheet().rows[3].height = 5;
    const XlsxFile file = write(book);
    QCOMPARE(file.row(0).at(1).toDouble(), 19.15);
    QVERIFY(file.row(1).isEmpty());
    QCOMPARE(file.row(2).at(1).toDouble(), 38.25);
    QCOMPARE(file.row(3).at(1).toDouble(), 5.0);
    QCOMPARE(file.sheet().value(QLatin1String("defaultRowHeight")).toDouble(), 12.75);
}

void TestXlsxLook::hiddenRow()
{
    XlsxData book;
    book.sheet().rows[1].hidden = true;
    book.sheet().rows[2].height = 0;
    book.sheet().rows[3].height = 20;
    book.sheet().rows[3].hidden = true;
    book.writeText(1, 0, QStringLiteral("hidden"));
    const XlsxFile file = write(book);
    for (const int row : {1, 2, 3})
        QCOMPARE(file.row(row).at(2).toBool(), true);
    QCOMPARE(file.row(3).at(1).toDouble(), 20.0);
    QCOMPARE(file.text(1, 0), QStringLiteral("hidden"));
}

void TestXlsxLook::rowFormat()
{
    XlsxData book;
    book.sheet().rows[1].format = book.addFill(colorGray25);
    book.writeText(1, 0, QStringLiteral("default look"));
    const XlsxFile file = write(book);
    QCOMPARE(part(file.lookAt(file.row(1).at(3)), "fill"), QJsonValue(QJsonArray{"solid", "FFC0C0C0"}));
    QVERIFY(part(file.look(1, 0), "fill").isNull());
}

void TestXlsxLook::pageAsItComes()
{
    const QJsonObject page = write(XlsxData()).page();
    QCOMPARE(part(page, "margins"), QJsonValue(QJsonArray{0.75, 0.75, 1, 1}));
    QCOMPARE(part(page, "fitToPage").toBool(), false);
    QVERIFY(part(page, "orientation").toString() != QLatin1String("landscape"));
    QVERIFY(part(page, "paper").isNull());
    QVERIFY(part(page, "titleRows").isNull());
    QVERIFY(part(page, "footer").isNull());
}

void TestXlsxLook::pageSetUp()
{
    XlsxData book;
    SheetData &sheet = book.sheet();
    sheet.marginLeft = 0.1968;
    sheet.marginRight = 0.25;
    sheet.marginTop = 0;
    sheet.marginBottom = 2.5;
    sheet.fitWidth = 1;
    sheet.fitHeight = 0;
    sheet.landscape = true;
    sheet.paper = PAPER_A4;
    sheet.repeatFirst = 5;
    sheet.repeatLast = 6;
    sheet.footer = QStringLiteral("&P / &N");
    const QJsonObject page = write(book).page();
    QCOMPARE(part(page, "margins"), QJsonValue(QJsonArray{0.1968, 0.25, 0, 2.5}));
    QCOMPARE(part(page, "fitToPage").toBool(), true);
    QVERIFY(part(page, "fitToWidth").toInt(1) == 1); // which a missing one means
    QCOMPARE(part(page, "fitToHeight").toInt(-1), 0);
    QCOMPARE(part(page, "orientation").toString(), QStringLiteral("landscape"));
    QCOMPARE(part(page, "paper").toInt(), 9);
    QCOMPARE(part(page, "titleRows").toString(), QStringLiteral("$6:$7"));
    QCOMPARE(part(page, "footer").toString(), QStringLiteral("&P / &N"));
    QVERIFY(part(page, "footerLeft").isNull());
    QVERIFY(part(page, "footerRight").isNull());
}

void TestXlsxLook::gridlines_data()
{
    QTest::addColumn<bool>("display");
    QTest::addColumn<bool>("print");
    QTest::newRow("as it comes") << true << false;
    QTest::newRow("none") << false << false;
    QTest::newRow("on paper only") << false << true;
    QTest::newRow("both") << true << true;
}

void TestXlsxLook::gridlines()
{
    QFETCH(bool, display);
    QFETCH(bool, print);
    XlsxData book;
    book.sheet().displayGridlines = display;
    book.sheet().printGridlines = print;
    const QJsonObject page = write(book).page();
    QCOMPARE(part(page, "showGridlines").toBool(), display);
    QCOMPARE(part(page, "printGridlines").toBool(), print);
}

void TestXlsxLook::pagesToFit_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("one across") << 1 << 0;
    QTest::newRow("one down") << 0 << 1;
    QTest::newRow("as many as it takes") << 0 << 0;
    QTest::newRow("three by two") << 3 << 2;
}

void TestXlsxLook::pagesToFit()
{
    QFETCH(int, width);
    QFETCH(int, height);
    XlsxData book;
    book.sheet().fitWidth = width;
    book.sheet().fitHeight = height;
    const QJsonObject page = write(book).page();
    QCOMPARE(part(page, "fitToPage").toBool(), true);
    QCOMPARE(part(page, "fitToWidth").toInt(1), width);
    QCOMPARE(part(page, "fitToHeight").toInt(1), height);
}

void TestXlsxLook::footers_data()
{
    QTest::addColumn<QString>("footer");
    QTest::newRow("marks") << QStringLiteral("Jedlá & <nápoje> \"dnes\"");
    QTest::newRow("longest") << QString(253, QChar(0x17e));
    QTest::newRow("two lines") << QStringLiteral("one\ntwo");
}

void TestXlsxLook::footers()
{
    QFETCH(QString, footer);
    XlsxData book;
    book.sheet().footer = footer;
    QCOMPARE(part(write(book).page(), "footer").toString(), footer);
}

void TestXlsxLook::roomForTheFooter_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("footer");
    QTest::newRow("usual") << 1.0 << 0.3;
    QTest::newRow("just enough") << 0.47 << 0.3;
    QTest::newRow("narrow") << 0.1968 << 0.0268;
    QTest::newRow("none") << 0.0 << 0.02;
}

/// A footer that would reach into the cells is left out by the programs that print them.
void TestXlsxLook::roomForTheFooter()
{
    QFETCH(double, bottom);
    QFETCH(double, footer);
    XlsxData book;
    book.sheet().marginBottom = bottom;
    book.sheet().footer = QStringLiteral("&P / &N");
    QCOMPARE(part(write(book).page(), "footerMargin").toDouble(), footer);
}

QTEST_GUILESS_MAIN(TestXlsxLook)
#include "tst_xlsxlook.moc"
