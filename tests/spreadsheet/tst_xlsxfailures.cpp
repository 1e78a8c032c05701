#include "spreadsheet/writers.h"
#include "spreadsheet/xlsxcheck.h"
#include "support/limitedfiles.h"
#include "xlsxdata.h"
#include "xlsxreader.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <clocale>
#include <functional>

using namespace Spreadsheet;

Q_DECLARE_METATYPE(std::function<void(XlsxData &)>)

namespace {

/// As many rows of one text and 50 numbers: the packed file is a tenth of what it unpacks to.
XlsxData table(int rows)
{
    XlsxData book;
    for (int row = 0; row < rows; ++row) {
        book.writeText(row, 0, QStringLiteral("row %1").arg(row));
        for (int col = 1; col <= 50; ++col)
            book.writeNumber(row, col, row + col);
    }
    return book;
}

} // namespace

/// What cannot be written, and what would be written wrong.
class TestXlsxFailures : public QObject {
    Q_OBJECT

private slots:
    void fullDisk_data();
    void fullDisk();
    void fullDiskOfTemporaryFiles();
    void noTemporaryFolder();
    void incompleteFiles_data();
    void incompleteFiles();
    void missingCell();
    void missingFolder();
    void refusedBooks_data();
    void refusedBooks();
    void decimalComma();
    void writtenOverAnOldFile();
    void writtenTwice();

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    bool write(const XlsxData &book) { return writeXlsx(book.data, m_fileName, &m_error); }

    const QTemporaryDir m_folder;
    const QString m_fileName = path(QStringLiteral("book.xlsx"));
    QString m_error;
};

void TestXlsxFailures::fullDisk_data()
{
    QTest::addColumn<int>("rows");
    QTest::newRow("no cell") << 0;
    QTest::newRow("few") << 10;
    QTest::newRow("many") << 400;
}

/// Every room that is too little, in steps, up to the least one that is enough: whatever the library says, the answer
/// is false until the file is whole.
void TestXlsxFailures::fullDisk()
{
    QFETCH(int, rows);
    const XlsxData book = table(rows);
    QVERIFY2(write(book), qPrintable(m_error));
    const QJsonArray whole = XlsxFile(m_fileName).sheets();
    bool enough = false;
    int room = 0;
    for (; !enough; room += 1 + room / 16) {
        m_error.clear();
        {
            const LimitedFiles full{rlim_t(room)};
            enough = write(book);
        }
        QCOMPARE(m_error.isEmpty(), enough);
    }
    QVERIFY(room > 4096);
    QCOMPARE(XlsxFile(m_fileName).sheets(), whole);
}

/// The packed file has room, the temporary ones of the library have not.
void TestXlsxFailures::fullDiskOfTemporaryFiles()
{
    const XlsxData book = table(2000);
    QVERIFY2(write(book), qPrintable(m_error));
    const auto room = rlim_t(QFileInfo(m_fileName).size() + 50000);
    bool written = true;
    {
        const LimitedFiles full(room);
        written = write(book);
    }
    QVERIFY(!written);
    QVERIFY2(m_error.contains(QLatin1String("not complete")), qPrintable(m_error));
}

void TestXlsxFailures::noTemporaryFolder()
{
    // The folder that the environment names comes first and /tmp second, so only a process that may open no more files
    // has none.
    const XlsxData book = table(10);
    rlimit before = {};
    getrlimit(RLIMIT_NOFILE, &before);
    rlimit none = before;
    none.rlim_cur = 3;
    setrlimit(RLIMIT_NOFILE, &none);
    const bool written = write(book);
    setrlimit(RLIMIT_NOFILE, &before);
    QVERIFY(!written);
    QVERIFY(!m_error.isEmpty());
}

void TestXlsxFailures::incompleteFiles_data()
{
    QTest::addColumn<double>("portion");
    QTest::newRow("empty") << 0.0;
    QTest::newRow("half") << 0.5;
    QTest::newRow("nearly whole") << 0.999;
}

void TestXlsxFailures::incompleteFiles()
{
    QFETCH(double, portion);
    QVERIFY(write(table(100)));
    QVERIFY(isXlsxComplete(m_fileName, {5100}, &m_error));
    QFile file(m_fileName);
    QVERIFY(file.resize(qint64(double(file.size()) * portion)));
    QVERIFY(!isXlsxComplete(m_fileName, {5100}, &m_error));
    QVERIFY2(m_error.contains(QLatin1String("not complete")), qPrintable(m_error));
}

void TestXlsxFailures::missingCell()
{
    XlsxData book = table(3000);
    book.addSheet(QStringLiteral("second"));
    book.writeNumber(0, 0, 1);
    QVERIFY(write(book));
    QVERIFY(isXlsxComplete(m_fileName, {153000, 1}, &m_error));
    for (const QVector<qint64> &counts : {QVector<qint64>{152999, 1}, {153001, 1}, {153000, 0}, {153000, 1, 0}})
        QVERIFY(!isXlsxComplete(m_fileName, counts, &m_error));
}

void TestXlsxFailures::missingFolder()
{
    QVERIFY(!writeXlsx(table(1).data, path(QStringLiteral("no/such/book.xlsx")), &m_error));
    QVERIFY(!m_error.isEmpty());
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("no"))));
}

/// What would come out cut off or broken.
void TestXlsxFailures::refusedBooks_data()
{
    QTest::addColumn<std::function<void(XlsxData &)>>("spoil");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QString &reason, const std::function<void(XlsxData &)> &spoil) {
        QTest::newRow(name) << spoil << reason;
    };
    row("long number format", QStringLiteral("too long"),
        [](XlsxData &book) { book.addNumFormat(QString(128, QLatin1Char('0'))); });
    row("long font name", QStringLiteral("too long"), [](XlsxData &book) {
        FormatData format;
        format.font = book.addFont(XlsxData::font(QString(128, QLatin1Char('x')), 10));
        book.addFormat(format);
    });
    row("long default font", QStringLiteral("too long"),
        [](XlsxData &book) { book.data.fonts[0].name = QString(128, QLatin1Char('x')); });
    row("long footer", QStringLiteral("255"),
        [](XlsxData &book) { book.sheet().footer = QString(254, QLatin1Char('x')); });
    row("long text", QStringLiteral("32,767"),
        [](XlsxData &book) { book.writeText(0, 0, QString(32768, QLatin1Char('x'))); });
    // Its characters would be given by their numbers, which takes more than a cell holds.
    row("long text of character numbers", QStringLiteral("32,767"),
        [](XlsxData &book) { book.writeText(0, 0, QStringLiteral("_x0041_") + QString(32760, QLatin1Char('x'))); });
    row("long name", QStringLiteral("cannot be made"),
        [](XlsxData &book) { book.addSheet(QString(32, QLatin1Char('x'))); });
    row("same name", QStringLiteral("cannot be made"), [](XlsxData &book) { book.addSheet(QStringLiteral("SHEET")); });
    row("row too far", QStringLiteral("out of range"), [](XlsxData &book) { book.writeNumber(1048576, 0, 1); });
    row("column too far", QStringLiteral("out of range"), [](XlsxData &book) { book.writeNumber(0, 16384, 1); });
    row("width too far", QStringLiteral("out of range"), [](XlsxData &book) { book.sheet().columns[16384].width = 1; });
    row("height too far", QStringLiteral("out of range"),
        [](XlsxData &book) { book.sheet().rows[1048576].height = 1; });
    row("merged too far", QStringLiteral("out of range"), [](XlsxData &book) {
        book.sheet().merges = {{0, 1, 16383, 16384}};
    });
    row("merged with itself", QStringLiteral("parameter"), [](XlsxData &book) {
        book.sheet().merges = {{1, 1, 1, 1}};
    });
    row("repeated too far", QStringLiteral("out of range"), [](XlsxData &book) {
        book.sheet().repeatFirst = 0;
        book.sheet().repeatLast = 1048576;
    });
}

void TestXlsxFailures::refusedBooks()
{
    using Spoil = std::function<void(XlsxData &)>;
    QFETCH(Spoil, spoil);
    QFETCH(QString, reason);
    XlsxData book = table(3);
    spoil(book);
    QVERIFY(!write(book));
    QVERIFY2(m_error.contains(reason, Qt::CaseInsensitive), qPrintable(m_error));
}

/// The library prints by the locale; numbers, widths and margins have a point all the same, and the locale stays.
void TestXlsxFailures::decimalComma()
{
    outputOf(QStringLiteral("localedef"),
             {QStringLiteral("-i"), QStringLiteral("sk_SK"), QStringLiteral("-f"), QStringLiteral("UTF-8"),
              QStringLiteral("--no-archive"), path(QStringLiteral("sk_SK.UTF-8"))},
             "locales");
    qputenv("LOCPATH", QFile::encodeName(m_folder.path()));
    const QByteArray before = setlocale(LC_ALL, nullptr);
    QVERIFY2(setlocale(LC_ALL, "sk_SK.UTF-8"), "no Slovak locale");
    QCOMPARE(QByteArray(localeconv()->decimal_point), QByteArray(","));
    XlsxData book;
    book.writeNumber(0, 0, 4.35);
    book.sheet().columns[0].width = 1.5;
    book.sheet().rows[0].height = 12.75;
    book.sheet().marginLeft = 0.1968;
    const bool written = write(book);
    const QByteArray point = localeconv()->decimal_point;
    setlocale(LC_ALL, before.constData());
    qunsetenv("LOCPATH");
    QVERIFY2(written, qPrintable(m_error));
    QCOMPARE(point, QByteArray(","));
    const XlsxFile file(m_fileName);
    QCOMPARE(file.value(0, 0).toDouble(), 4.35);
    QCOMPARE(file.column(0).at(1).toDouble(), 2.28515625);
    QCOMPARE(file.row(0).at(1).toDouble(), 12.75);
    QCOMPARE(file.page().value(QLatin1String("margins")).toArray().at(0).toDouble(), 0.1968);
}

void TestXlsxFailures::writtenOverAnOldFile()
{
    QFile old(m_fileName);
    QVERIFY(old.open(QIODevice::WriteOnly));
    QVERIFY(old.write(QByteArray(1000000, 'x')) == 1000000);
    old.close();
    QVERIFY2(write(table(3)), qPrintable(m_error));
    QVERIFY(old.size() < 100000);
    QCOMPARE(XlsxFile(m_fileName).cellCount(), 153);
}

void TestXlsxFailures::writtenTwice()
{
    const XlsxData book = table(3);
    QVERIFY(write(book));
    QVERIFY(writeXlsx(book.data, path(QStringLiteral("second.xlsx")), &m_error));
    QCOMPARE(XlsxFile(path(QStringLiteral("second.xlsx"))).sheets(), XlsxFile(m_fileName).sheets());
}

QTEST_GUILESS_MAIN(TestXlsxFailures)
#include "tst_xlsxfailures.moc"
