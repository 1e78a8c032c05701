#include "spreadsheet/book.h"
#include "xlsreader.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

using namespace Spreadsheet;

Q_DECLARE_METATYPE(AlignH)
Q_DECLARE_METATYPE(AlignV)

/// Cells and their looks in XLS files, read back by an independent reader.
class TestXlsWriter : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void emptySheet();
    void numbers_data();
    void numbers();
    void numberRuns();
    void texts();
    void overwritten();
    void borders();
    void fills();
    void alignment_data();
    void alignment();
    void numFormats();
    void fonts();
    void fontChangedLater();
    void defaultFont();
    void colors();
    void fullPalette();
    void allFormats();
    void allFonts();
    void allRows();
    void allColumns();
    void sparse();
    void mergedLook();
    void mergedOwnLook();
    void mergedOverlappingRows();
    void random_data();
    void random();

private:
    XlsFile saved() const;

    QTemporaryDir m_folder;
    BookPointer m_book;
    Sheet *m_sheet = nullptr;
};

void TestXlsWriter::init()
{
    m_book = xlCreateBookA();
    m_book->setRgbMode(true);
    m_sheet = m_book->addSheet("Mesačný výpis");
}

void TestXlsWriter::cleanup()
{
    m_book.reset();
}

XlsFile TestXlsWriter::saved() const
{
    const QString name = m_folder.filePath("book.xls");
    if (!m_book->save(name))
        qFatal("%s", qPrintable(m_book->errorMessage()));
    return XlsFile(name);
}

void TestXlsWriter::emptySheet()
{
    const XlsFile file = saved();
    QCOMPARE(file.sheets().size(), 1);
    QCOMPARE(file.sheet()["name"].toString(), QString("Mesačný výpis"));
    QCOMPARE(file.sheet()["rowCount"].toInt(), 0);
    QCOMPARE(file.cellCount(), 0);
    QVERIFY(file.names().isEmpty());
}

void TestXlsWriter::numbers_data()
{
    QTest::addColumn<double>("value");
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               4.35,
                               -4.35,
                               0.1,
                               0.29,
                               1.005,
                               1e-300,
                               1.0 / 3,
                               0.5,
                               -0.75,
                               12345678.9,
                               536870911.0,
                               536870912.0,
                               -536870912.0,
                               -536870913.0,
                               5368709.11,
                               5368709.12,
                               1e15,
                               1e300,
                               -1e300,
                               2147483648.0,
                               std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::lowest(),
                               std::numeric_limits<double>::min(),
                               std::numeric_limits<double>::denorm_min(),
                               0.015625,
                               3.0000000000000004})
        QTest::addRow("%.17g", value) << value;
}

void TestXlsWriter::numbers()
{
    QFETCH(double, value);
    m_sheet->writeNum(2, 3, value);
    const XlsFile file = saved();
    QCOMPARE(file.type(2, 3), QString("number"));
    const double read = file.number(2, 3);
    QVERIFY2(memcmp(&read, &value, sizeof value) == 0, qPrintable(QString::number(read, 'g', 17)));
    QCOMPARE(file.cellCount(), 1);
}

void TestXlsWriter::numberRuns()
{
    // Runs of short numbers, broken by long ones, gaps and texts.
    const QVector<double> values = {1, 2, 0.1, 3, -1, 4.5, 1.0 / 3, 1.0 / 7, 5};
    for (int i = 0; i < values.size(); ++i) {
        m_sheet->writeNum(0, i, values.at(i));
        m_sheet->writeNum(1, 2 * i, values.at(i));
        m_sheet->writeNum(2, i + i / 3, values.at(i));
    }
    m_sheet->writeStr(0, 4, "text");
    m_sheet->writeNum(3, 254, 1);
    m_sheet->writeNum(3, 255, 2);
    const XlsFile file = saved();
    for (int i = 0; i < values.size(); ++i) {
        QCOMPARE(file.number(1, 2 * i), values.at(i));
        QCOMPARE(file.number(2, i + i / 3), values.at(i));
        QVERIFY(i == 4 || file.number(0, i) == values.at(i));
    }
    QCOMPARE(file.text(0, 4), QString("text"));
    QCOMPARE(file.number(3, 254), 1.0);
    QCOMPARE(file.number(3, 255), 2.0);
    QCOMPARE(file.cellCount(), 3 * values.size() + 2);
}

void TestXlsWriter::texts()
{
    const QStringList texts = {"plain",
                               "Guláš",
                               "Žltý kôň príšerne úpel ďábelské ódy",
                               "\U0001F35C polievka \U0001F468\u200D\U0001F373",
                               "",
                               " ",
                               "=1+1",
                               "@x",
                               "a\nb\r\nc\td",
                               QString("\x01\x07\x1f"),
                               "€",
                               "ÿ",
                               "Ā",
                               "שלום",
                               "<b>&amp;</b>",
                               QString(1, QChar(0)) + "x"};
    for (int row = 0; row < texts.size(); ++row)
        QVERIFY(m_sheet->writeStr(row, row % 3, texts.at(row)));
    const QChar high(0xd83c);
    const QChar low(0xdf5c);
    m_sheet->writeStr(100, 0, QString("a") + high);
    m_sheet->writeStr(101, 0, QString(low) + "a" + high + high + low);
    const XlsFile file = saved();
    for (int row = 0; row < texts.size(); ++row) {
        QCOMPARE(file.type(row, row % 3), QString("text"));
        QCOMPARE(file.text(row, row % 3), texts.at(row));
    }
    // Halves of a pair that stand alone cannot be read.
    QCOMPARE(file.text(100, 0), QString("a\ufffd"));
    QCOMPARE(file.text(101, 0), QString("\ufffda\ufffd\U0001F35C"));
}

void TestXlsWriter::overwritten()
{
    m_sheet->writeStr(0, 0, "first");
    m_sheet->writeNum(0, 0, 2);
    m_sheet->writeNum(0, 1, 2);
    m_sheet->writeStr(0, 1, "second");
    const XlsFile file = saved();
    QCOMPARE(file.number(0, 0), 2.0);
    QCOMPARE(file.text(0, 1), QString("second"));
}

void TestXlsWriter::borders()
{
    int row = 0;
    for (const BorderStyle style : {BorderStyle::None, BorderStyle::Thin, BorderStyle::Medium, BorderStyle::Dashed,
                                    BorderStyle::Dotted, BorderStyle::Thick, BorderStyle::Double, BorderStyle::Hair}) {
        Format *format = m_book->addFormat();
        format->setBorder(style);
        format->setBorderColor(colorGray25);
        m_sheet->writeStr(row++, 0, "x", format);
    }
    Format *format = m_book->addFormat();
    format->setBorderTop(BorderStyle::Thick);
    format->setBorderBottom(BorderStyle::Thin);
    format->setBorderTopColor(m_book->colorPack(0, 173, 239));
    format->setBorderBottomColor(m_book->colorPack(250, 250, 250));
    m_sheet->writeStr(row, 0, " ", format);
    const XlsFile file = saved();
    for (int style = 0; style < 8; ++style) {
        for (const char *side : {"left", "right", "top", "bottom"}) {
            const QJsonArray line = file.look(style, 0)[side].toArray();
            QCOMPARE(line.at(0).toInt(), style);
            QVERIFY(style == 0 || line.at(1).toString() == "c0c0c0");
        }
    }
    QCOMPARE(file.look(row, 0)["top"].toArray(), (QJsonArray{5, "00adef"}));
    QCOMPARE(file.look(row, 0)["bottom"].toArray(), (QJsonArray{1, "fafafa"}));
    QCOMPARE(file.look(row, 0)["left"].toArray().at(0).toInt(), 0);
    QCOMPARE(file.look(row, 0)["right"].toArray().at(0).toInt(), 0);
}

void TestXlsWriter::fills()
{
    Format *solid = m_book->addFormat();
    solid->setFillPattern(FillPattern::Solid);
    solid->setPatternForegroundColor(m_book->colorPack(0, 173, 239));
    Format *none = m_book->addFormat(solid);
    none->setFillPattern(FillPattern::None);
    m_sheet->writeStr(0, 0, "x", solid);
    m_sheet->writeStr(0, 1, "x", none);
    const XlsFile file = saved();
    QCOMPARE(file.look(0, 0)["fill"].toInt(), 1);
    QCOMPARE(file.look(0, 0)["foreground"].toString(), QString("00adef"));
    QCOMPARE(file.look(0, 1)["fill"].toInt(), 0);
}

void TestXlsWriter::alignment_data()
{
    QTest::addColumn<AlignH>("alignH");
    QTest::addColumn<AlignV>("alignV");
    QTest::addColumn<bool>("wrap");
    QTest::addColumn<QString>("read");
    QTest::newRow("usual") << AlignH::General << AlignV::Bottom << false << "general bottom";
    QTest::newRow("left") << AlignH::Left << AlignV::Top << true << "left top wrap";
    QTest::newRow("center") << AlignH::Center << AlignV::Center << true << "center center wrap";
    QTest::newRow("right") << AlignH::Right << AlignV::Bottom << false << "right bottom";
}

void TestXlsWriter::alignment()
{
    QFETCH(AlignH, alignH);
    QFETCH(AlignV, alignV);
    QFETCH(bool, wrap);
    QFETCH(QString, read);
    Format *format = m_book->addFormat();
    format->setAlignH(alignH);
    format->setAlignV(alignV);
    format->setWrap(wrap);
    m_sheet->writeNum(0, 0, 1, format);
    const QJsonObject look = saved().look(0, 0);
    QCOMPARE(look["alignH"].toString() + ' ' + look["alignV"].toString() + (look["wrap"].toBool() ? " wrap" : ""),
             read);
}

void TestXlsWriter::numFormats()
{
    const QStringList texts = {"#0.00", "#0.00 €", "#.00", "0\"ks\""};
    for (int col = 0; col < texts.size(); ++col) {
        Format *format = m_book->addFormat();
        format->setNumFormat(m_book->addCustomNumFormat(texts.at(col)));
        m_sheet->writeNum(0, col, 4.5, format);
    }
    m_sheet->writeNum(0, 9, 4.5, m_book->addFormat());
    m_sheet->writeNum(0, 10, 4.5);
    const XlsFile file = saved();
    for (int col = 0; col < texts.size(); ++col)
        QCOMPARE(file.look(0, col)["numFormat"].toString(), texts.at(col));
    QCOMPARE(file.look(0, 9)["numFormat"].toString(), QString("General"));
    QCOMPARE(file.look(0, 10)["numFormat"].toString(), QString("General"));
}

void TestXlsWriter::fonts()
{
    Font *title = m_book->addFont();
    title->setBold(true);
    title->setSize(15);
    title->setColor(colorWhite);
    Font *accent = m_book->addFont(title);
    accent->setSize(12);
    accent->setColor(m_book->colorPack(0, 173, 239));
    accent->setName("Písmo č. 1");
    for (const auto &[col, font] : {std::pair(0, title), std::pair(1, accent)}) {
        Format *format = m_book->addFormat();
        format->setFont(font);
        m_sheet->writeStr(0, col, "x", format);
    }
    const XlsFile file = saved();
    QCOMPARE(file.look(0, 0)["font"].toObject(),
             (QJsonObject{{"name", "Arial"}, {"size", 15}, {"bold", true}, {"color", "ffffff"}}));
    QCOMPARE(file.look(0, 1)["font"].toObject(),
             (QJsonObject{{"name", "Písmo č. 1"}, {"size", 12}, {"bold", true}, {"color", "00adef"}}));
}

void TestXlsWriter::fontChangedLater()
{
    Font *font = m_book->addFont();
    Format *format = m_book->addFormat();
    format->setFont(font);
    m_sheet->writeStr(0, 0, "x", format);
    font->setSize(33);
    format->setWrap(true);
    const QJsonObject look = saved().look(0, 0);
    QCOMPARE(look["font"].toObject()["size"].toDouble(), 33.0);
    QVERIFY(look["wrap"].toBool());
}

void TestXlsWriter::defaultFont()
{
    Format *format = m_book->addFormat();
    m_sheet->writeStr(0, 0, "x");
    m_sheet->writeStr(0, 1, "x", format);
    m_book->setDefaultFont("MS Shell Dlg 2", 11);
    const XlsFile file = saved();
    for (const int col : {0, 1}) {
        QCOMPARE(file.look(0, col)["font"].toObject(),
                 (QJsonObject{{"name", "MS Shell Dlg 2"}, {"size", 11}, {"bold", false}, {"color", "auto"}}));
    }
}

void TestXlsWriter::colors()
{
    const QVector<QPair<Color, QString>> colors = {
        {colorBlack, "000000"},
        {colorWhite, "ffffff"},
        {colorGray25, "c0c0c0"},
        {colorGray50, "808080"},
        {32, "000080"},
        {63, "333333"},
        {colorAutomatic, "auto"},
        {m_book->colorPack(0, 173, 239), "00adef"},
        {m_book->colorPack(1, 2, 3), "010203"},
        {m_book->colorPack(255, 0, 0), "ff0000"}, // one of the standard ones
    };
    for (int col = 0; col < colors.size(); ++col) {
        Font *font = m_book->addFont();
        font->setColor(colors.at(col).first);
        Format *format = m_book->addFormat();
        format->setFont(font);
        m_sheet->writeStr(0, col, "x", format);
    }
    const XlsFile file = saved();
    for (int col = 0; col < colors.size(); ++col)
        QCOMPARE(file.look(0, col)["font"].toObject()["color"].toString(), colors.at(col).second);
}

void TestXlsWriter::fullPalette()
{
    for (int count = 0; count < 56; ++count) {
        Format *format = m_book->addFormat();
        format->setFillPattern(FillPattern::Solid);
        // Every fourth one stands in the standard palette.
        format->setPatternForegroundColor(count % 4 == 0 ? 8 + count / 4 : m_book->colorPack(7, count, 77));
        m_sheet->writeStr(0, count, "x", format);
    }
    const XlsFile file = saved();
    for (int count = 1; count < 56; ++count) {
        if (count % 4 != 0)
            QCOMPARE(file.look(0, count)["foreground"].toString(),
                     QString("07%1").arg(count, 2, 16, QLatin1Char('0')) + "4d");
    }
    QCOMPARE(file.look(0, 4)["foreground"].toString(), QString("ffffff"));
    QCOMPARE(file.look(0, 8)["foreground"].toString(), QString("ff0000"));
}

void TestXlsWriter::allFormats()
{
    constexpr int count = 4000;
    QVector<Font *> fonts;
    for (int size = 1; size <= 250; ++size) {
        fonts.append(m_book->addFont());
        fonts.last()->setSize(size);
    }
    for (int number = 0; number < count; ++number) {
        Format *format = m_book->addFormat();
        format->setFont(fonts.at(number % 250));
        format->setBorder(BorderStyle(number / 250 % 8));
        format->setWrap(number >= 2000);
        QVERIFY(m_sheet->writeNum(number / 200, number % 200, number, format));
    }
    const XlsFile file = saved();
    QCOMPARE(file.cellCount(), count);
    for (int number = 0; number < count; ++number) {
        const QJsonObject look = file.look(number / 200, number % 200);
        QCOMPARE(look["font"].toObject()["size"].toInt(), number % 250 + 1);
        QCOMPARE(look["top"].toArray().at(0).toInt(), number / 250 % 8);
        QCOMPARE(look["wrap"].toBool(), number >= 2000);
    }
}

void TestXlsWriter::allFonts()
{
    for (int number = 0; number < 500; ++number) {
        Font *font = m_book->addFont();
        font->setName(QString::number(number));
        Format *format = m_book->addFormat();
        format->setFont(font);
        m_sheet->writeStr(number, 0, "x", format);
    }
    const XlsFile file = saved();
    for (int number = 0; number < 500; ++number)
        QCOMPARE(file.look(number, 0)["font"].toObject()["name"].toString(), QString::number(number));
}

void TestXlsWriter::allRows()
{
    for (int row = 0; row < 65536; ++row)
        QVERIFY(m_sheet->writeNum(row, row % 2, row));
    const XlsFile file = saved();
    QCOMPARE(file.cellCount(), 65536);
    QCOMPARE(file.sheet()["rowCount"].toInt(), 65536);
    for (int row = 0; row < 65536; ++row)
        QCOMPARE(file.number(row, row % 2), double(row));
}

void TestXlsWriter::allColumns()
{
    for (int col = 0; col < 256; ++col) {
        m_sheet->writeNum(0, col, col);
        m_sheet->writeNum(1, col, col + 0.123);
        m_sheet->writeStr(2, col, QString::number(col));
    }
    const XlsFile file = saved();
    QCOMPARE(file.sheet()["columnCount"].toInt(), 256);
    for (int col = 0; col < 256; ++col) {
        QCOMPARE(file.number(0, col), double(col));
        QCOMPARE(file.number(1, col), col + 0.123);
        QCOMPARE(file.text(2, col), QString::number(col));
    }
}

void TestXlsWriter::sparse()
{
    for (const int row : {0, 31, 32, 33, 1000, 65535})
        m_sheet->writeStr(row, 255 - row % 200, "x");
    const XlsFile file = saved();
    QCOMPARE(file.cellCount(), 6);
    for (const int row : {0, 31, 32, 33, 1000, 65535})
        QCOMPARE(file.text(row, 255 - row % 200), QString("x"));
}

void TestXlsWriter::mergedLook()
{
    Format *format = m_book->addFormat();
    format->setBorder(BorderStyle::Medium);
    m_sheet->writeStr(1, 1, "title", format);
    m_sheet->setMerge(1, 3, 1, 4);
    m_sheet->writeStr(6, 0, "no look");
    m_sheet->setMerge(6, 7, 0, 1);
    m_sheet->setMerge(9, 9, 0, 1); // nothing in it
    const XlsFile file = saved();
    for (int row = 1; row <= 3; ++row) {
        for (int col = 1; col <= 4; ++col) {
            QCOMPARE(file.type(row, col), QString(row == 1 && col == 1 ? "text" : "blank"));
            QCOMPARE(file.look(row, col)["right"].toArray().at(0).toInt(), 2);
        }
    }
    QCOMPARE(file.cellCount(), 13);
    QCOMPARE(file.sheet()["merges"].toArray(),
             (QJsonArray{QJsonArray{1, 4, 1, 5}, QJsonArray{6, 8, 0, 2}, QJsonArray{9, 10, 0, 2}})); // ends excluded
}

void TestXlsWriter::mergedOwnLook()
{
    Format *first = m_book->addFormat();
    first->setBorder(BorderStyle::Medium);
    Format *own = m_book->addFormat();
    own->setBorder(BorderStyle::Hair);
    m_sheet->writeStr(0, 0, "a", first);
    m_sheet->writeStr(0, 1, "b", own);
    m_sheet->writeStr(1, 0, "c");
    m_sheet->setMerge(0, 1, 0, 1);
    m_sheet->writeStr(3, 0, "d");
    m_sheet->writeNum(3, 1, 5);
    m_sheet->setMerge(3, 9, 0, 2);
    const XlsFile file = saved();
    QCOMPARE(file.look(0, 1)["left"].toArray().at(0).toInt(), 7);
    QCOMPARE(file.look(1, 0)["left"].toArray().at(0).toInt(), 2);
    for (const auto &[row, col] : {std::pair(0, 1), std::pair(1, 0), std::pair(1, 1), std::pair(3, 1)})
        QCOMPARE(file.type(row, col), QString("blank")); // nothing hides there
    QCOMPARE(file.text(0, 0), QString("a"));
    QCOMPARE(file.cellCount(), 6); // no blanks where there is no look to show
}

void TestXlsWriter::mergedOverlappingRows()
{
    // Several merged cells over the same rows, made from right to left.
    for (int col = 8; col >= 0; col -= 4) {
        Format *format = m_book->addFormat();
        format->setBorder(BorderStyle(1 + col / 4));
        m_sheet->writeNum(20 + col, col, col, format);
        QVERIFY(m_sheet->setMerge(20 + col, 60 + col, col, col + 2));
    }
    const XlsFile file = saved();
    QCOMPARE(file.cellCount(), 3 * 41 * 3);
    for (int col = 0; col <= 8; col += 4) {
        for (int row = 20 + col; row <= 60 + col; ++row)
            QCOMPARE(file.look(row, col + 2)["top"].toArray().at(0).toInt(), 1 + col / 4);
        QVERIFY(file.cell(19 + col, col).isEmpty());
        QVERIFY(file.cell(61 + col, col).isEmpty());
    }
}

void TestXlsWriter::random_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 8; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void TestXlsWriter::random()
{
    QFETCH(int, seed);
    QRandomGenerator numbers{quint32(seed)};
    QVector<const Format *> formats = {nullptr};
    for (int style = 1; style < 8; ++style) {
        Format *format = m_book->addFormat();
        format->setBorderTop(BorderStyle(style));
        formats.append(format);
    }
    QMap<QPair<int, int>, QPair<QVariant, int>> reference;
    const int rows = 1 + numbers.bounded(200);
    const int columns = 1 + numbers.bounded(256);
    for (int step = 0; step < 3000; ++step) {
        const int row = numbers.bounded(rows);
        const int col = numbers.bounded(columns);
        const int style = numbers.bounded(8);
        if (numbers.bounded(3) == 0) {
            const QString text(numbers.bounded(200), QChar(numbers.bounded(2) ? 0x61 : 0x10d));
            QVERIFY(m_sheet->writeStr(row, col, text, formats.at(style)));
            reference[{row, col}] = {text, style};
        } else {
            const double value = numbers.bounded(2) ? numbers.bounded(1000) : numbers.generateDouble() * 1e6;
            QVERIFY(m_sheet->writeNum(row, col, value, formats.at(style)));
            reference[{row, col}] = {value, style};
        }
    }
    const XlsFile file = saved();
    QCOMPARE(file.cellCount(), reference.size());
    for (auto cell = reference.begin(); cell != reference.end(); ++cell) {
        const auto &[row, col] = cell.key();
        if (cell->first.type() == QVariant::String)
            QCOMPARE(file.text(row, col), cell->first.toString());
        else
            QCOMPARE(file.number(row, col), cell->first.toDouble());
        QCOMPARE(file.look(row, col)["top"].toArray().at(0).toInt(), cell->second);
    }
}

QTEST_MAIN(TestXlsWriter)
#include "tst_xlswriter.moc"
