#include "spreadsheet/book.h"
#include "support/limitedfiles.h"
#include "xlsxreader.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Spreadsheet;

namespace {

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

} // namespace

/// XLSX files through the interface, from the first call to the file under its name.
class TestXlsxBook : public QObject {
    Q_OBJECT

private slots:
    void init();
    void operations();
    void addedQuantities();
    void changesAfterWriting();
    void changesAfterSaving();
    void savedOverTheOldFile();
    void fullDiskKeepsTheOldFile();
    void notSaved_data();
    void notSaved();
    void lockedFile();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// A book with one sheet and a number in it.
    static BookPointer smallBook()
    {
        BookPointer book = xlCreateXMLBookA();
        book->addSheet(QStringLiteral("Sheet"))->writeNum(0, 0, 7);
        return book;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestXlsxBook::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

/// Each operation once, in the way of the control export.
void TestXlsxBook::operations()
{
    const BookPointer book = xlCreateXMLBookA();
    QVERIFY(book->setLocale(QStringLiteral("UTF-8")));
    book->setDefaultFont(QStringLiteral("MS Shell Dlg 2"), 10);
    book->setRgbMode(true);
    const int twoPlaces = book->addCustomNumFormat(QStringLiteral("#.00"));
    const Color accent = book->colorPack(0, 173, 239);
    Font *titleFont = book->addFont();
    titleFont->setName(QStringLiteral("Cambria"));
    titleFont->setSize(15);
    titleFont->setBold(true);
    titleFont->setColor(colorWhite);
    Format *title = book->addFormat();
    title->setFont(titleFont);
    title->setAlignH(AlignH::Left);
    title->setAlignV(AlignV::Center);
    title->setWrap(true);
    title->setFillPattern(FillPattern::Solid);
    title->setPatternForegroundColor(accent);
    Format *cell = book->addFormat();
    cell->setNumFormat(twoPlaces);
    cell->setBorder(BorderStyle::Thin);
    cell->setBorderColor(colorGray25);
    Format *spacer = book->addFormat();
    spacer->setBorderTop(BorderStyle::Thick);
    spacer->setBorderTopColor(accent);
    spacer->setBorderBottom(BorderStyle::Thin);
    spacer->setBorderBottomColor(book->colorPack(250, 250, 250));
    Sheet *sheet = book->addSheet(QStringLiteral("ZEP - Kontrolný export stravy"));
    QVERIFY(sheet);
    sheet->setDisplayGridlines(false);
    sheet->setPrintGridlines(false);
    sheet->setMarginLeft(0.1968);
    sheet->setMarginRight(0.1968);
    sheet->setMarginTop(0.1968);
    sheet->setMarginBottom(0.1968);
    sheet->setPrintFit(1, 0);
    sheet->setLandscape(true);
    sheet->setPaper(PAPER_A4);
    QVERIFY(sheet->setPrintRepeatRows(5, 6));
    QVERIFY(sheet->setFooter(QStringLiteral("&P / &N")));
    QVERIFY(sheet->setCol(0, 0, 10));
    QVERIFY(sheet->setCol(2, 466, 1.5));
    QVERIFY(sheet->setColHidden(300, true));
    QVERIFY(sheet->setRow(7, 6));
    QVERIFY(sheet->writeStr(0, 0, QStringLiteral("Kontrolný export stravy - máj 2026"), title));
    QVERIFY(sheet->setMerge(0, 1, 0, 4));
    QVERIFY(sheet->writeNum(12, 466, 2.5, cell));
    QVERIFY(sheet->writeStr(8, 0, QStringLiteral(" "), spacer));
    QVERIFY2(book->save(path(QStringLiteral("book.xlsx"))), qPrintable(book->errorMessage()));

    const XlsxFile file(path(QStringLiteral("book.xlsx")));
    QCOMPARE(file.sheet().value(QLatin1String("name")).toString(), QStringLiteral("ZEP - Kontrolný export stravy"));
    QCOMPARE(file.text(0, 0), QStringLiteral("Kontrolný export stravy - máj 2026"));
    QCOMPARE(file.merges(), (QJsonArray{QJsonArray{0, 1, 0, 4}}));
    for (const QPair<int, int> &place : {QPair<int, int>(0, 0), {0, 4}, {1, 0}, {1, 4}}) {
        const QJsonObject look = file.look(place.first, place.second);
        QCOMPARE(look.value(QLatin1String("fill")), QJsonValue(QJsonArray{"solid", "FF00ADEF"}));
        QCOMPARE(look.value(QLatin1String("font")),
                 QJsonValue(QJsonObject{{"name", "Cambria"}, {"size", 15}, {"bold", true}, {"color", "FFFFFFFF"}}));
        QCOMPARE(look.value(QLatin1String("alignH")).toString(), QStringLiteral("left"));
        QCOMPARE(look.value(QLatin1String("alignV")).toString(), QStringLiteral("center"));
        QCOMPARE(look.value(QLatin1String("wrap")).toBool(), true);
    }
    QCOMPARE(file.value(12, 466).toDouble(), 2.5);
    QCOMPARE(file.look(12, 466).value(QLatin1String("numFormat")).toString(), QStringLiteral("#.00"));
    QCOMPARE(file.look(12, 466).value(QLatin1String("left")), QJsonValue(QJsonArray{"thin", "FFC0C0C0"}));
    QCOMPARE(file.text(8, 0), QStringLiteral(" "));
    QCOMPARE(file.look(8, 0).value(QLatin1String("top")), QJsonValue(QJsonArray{"thick", "FF00ADEF"}));
    QCOMPARE(file.look(8, 0).value(QLatin1String("bottom")), QJsonValue(QJsonArray{"thin", "FFFAFAFA"}));
    QCOMPARE(file.column(0).at(1).toDouble(), 10.7109375);
    QCOMPARE(file.column(299).at(2).toBool(), false);
    QCOMPARE(file.column(300).at(2).toBool(), true);
    QCOMPARE(file.column(300).at(1).toDouble(), 2.28515625);
    QCOMPARE(file.row(7).at(1).toDouble(), 6.0);
    QCOMPARE(file.page().value(QLatin1String("titleRows")).toString(), QStringLiteral("$6:$7"));
    QCOMPARE(file.page().value(QLatin1String("footer")).toString(), QStringLiteral("&P / &N"));
    QCOMPARE(file.page().value(QLatin1String("orientation")).toString(), QStringLiteral("landscape"));
    QCOMPARE(file.page().value(QLatin1String("showGridlines")).toBool(), false);
}

/// Quantities that meet in a cell add up, as the control export has it.
void TestXlsxBook::addedQuantities()
{
    const BookPointer book = xlCreateXMLBookA();
    Sheet *sheet = book->addSheet(QStringLiteral("Sheet"));
    QVector<int> expected(100, 0);
    for (int item = 0; item < 1000; ++item) {
        const int col = item * 37 % expected.size();
        expected[col] += item % 4;
        QVERIFY(sheet->writeNum(12, 2 + col, sheet->readNum(12, 2 + col) + item % 4));
    }
    QVERIFY(book->save(path(QStringLiteral("book.xlsx"))));
    const XlsxFile file(path(QStringLiteral("book.xlsx")));
    for (int col = 0; col < expected.size(); ++col)
        QCOMPARE(file.value(12, 2 + col).toInt(-1), expected.at(col));
}

void TestXlsxBook::changesAfterWriting()
{
    const BookPointer book = xlCreateXMLBookA();
    Sheet *sheet = book->addSheet(QStringLiteral("Sheet"));
    Font *font = book->addFont();
    Format *format = book->addFormat();
    format->setFont(font);
    sheet->writeStr(0, 0, QStringLiteral("first"), format);
    sheet->writeStr(0, 0, QStringLiteral("last"), format);
    font->setSize(20);
    format->setFillPattern(FillPattern::Solid);
    format->setPatternForegroundColor(colorGray25);
    QVERIFY(book->save(path(QStringLiteral("book.xlsx"))));
    const XlsxFile file(path(QStringLiteral("book.xlsx")));
    QCOMPARE(file.cellCount(), 1);
    QCOMPARE(file.text(0, 0), QStringLiteral("last"));
    QCOMPARE(file.look(0, 0).value(QLatin1String("font")).toObject().value(QLatin1String("size")).toInt(), 20);
    QCOMPARE(file.look(0, 0).value(QLatin1String("fill")), QJsonValue(QJsonArray{"solid", "FFC0C0C0"}));
}

void TestXlsxBook::changesAfterSaving()
{
    const BookPointer book = smallBook();
    QVERIFY(book->save(path(QStringLiteral("first.xlsx"))));
    book->addSheet(QStringLiteral("Second"))->writeNum(0, 0, 8);
    QVERIFY(book->save(path(QStringLiteral("second.xlsx"))));
    QCOMPARE(XlsxFile(path(QStringLiteral("first.xlsx"))).sheets().size(), 1);
    const XlsxFile second(path(QStringLiteral("second.xlsx")));
    QCOMPARE(second.sheets().size(), 2);
    QCOMPARE(second.value(0, 0, 0).toInt(), 7);
    QCOMPARE(second.value(0, 0, 1).toInt(), 8);
}

void TestXlsxBook::savedOverTheOldFile()
{
    QFile old(path(QStringLiteral("book.xlsx")));
    QVERIFY(old.open(QIODevice::WriteOnly));
    QVERIFY(old.write(QByteArray(1000000, 'x')) == 1000000);
    old.close();
    QVERIFY(smallBook()->save(path(QStringLiteral("book.xlsx"))));
    QCOMPARE(XlsxFile(path(QStringLiteral("book.xlsx"))).value(0, 0).toInt(), 7);
    QCOMPARE(files(), QStringList{"book.xlsx"});
}

void TestXlsxBook::fullDiskKeepsTheOldFile()
{
    QVERIFY(smallBook()->save(path(QStringLiteral("book.xlsx"))));
    const QByteArray old = contents(path(QStringLiteral("book.xlsx")));
    const BookPointer book = smallBook();
    Sheet *sheet = book->addSheet(QStringLiteral("large"));
    for (int row = 0; row < 1000; ++row)
        QVERIFY(sheet->writeNum(row, row % 7, row * 1.37));
    for (const QString &name : {QStringLiteral("book.xlsx"), QStringLiteral("new.xlsx")}) {
        bool saved = true;
        {
            const LimitedFiles full(5000);
            saved = book->save(path(name));
        }
        QVERIFY(!saved);
        QVERIFY(!book->errorMessage().isEmpty());
        QCOMPARE(contents(path(QStringLiteral("book.xlsx"))), old);
        QCOMPARE(files(), QStringList{"book.xlsx"});
    }
    QVERIFY2(book->save(path(QStringLiteral("new.xlsx"))), "it can be saved once there is room");
}

void TestXlsxBook::notSaved_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("no folder") << QStringLiteral("/no/such/folder/book.xlsx");
    QTest::newRow("a folder that takes none") << QStringLiteral("/proc/book.xlsx");
    QTest::newRow("a folder") << QStringLiteral("/tmp");
    QTest::newRow("a device") << QStringLiteral("/dev/full");
}

void TestXlsxBook::notSaved()
{
    QFETCH(QString, name);
    const BookPointer book = smallBook();
    QVERIFY(!book->save(name));
    QVERIFY(!book->errorMessage().isEmpty());
}

/// The lock belongs to the open file, not to the process, so it counts against this one too.
void TestXlsxBook::lockedFile()
{
    QVERIFY(smallBook()->save(path(QStringLiteral("book.xlsx"))));
    const QByteArray old = contents(path(QStringLiteral("book.xlsx")));
    const int file = open(QFile::encodeName(path(QStringLiteral("book.xlsx"))).constData(), O_RDWR);
    QCOMPARE(flock(file, LOCK_EX), 0);
    const BookPointer book = smallBook();
    const bool saved = book->save(path(QStringLiteral("book.xlsx")));
    close(file);
    QVERIFY(!saved);
    QVERIFY2(book->errorMessage().contains(QLatin1String("in use by another program")),
             qPrintable(book->errorMessage()));
    QCOMPARE(contents(path(QStringLiteral("book.xlsx"))), old);
    QCOMPARE(files(), QStringList{"book.xlsx"});
    QVERIFY(book->save(path(QStringLiteral("book.xlsx"))));
}

QTEST_GUILESS_MAIN(TestXlsxBook)
#include "tst_xlsxbook.moc"
