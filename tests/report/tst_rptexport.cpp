#include "recordingprinter.h"
#include "report/rptengine.h"
#include "reporttemplate.h"
#include "support/logcatcher.h"

#include <QDesktopServices>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QUrl>
#include <QtTest>

#include <csignal>
#include <memory>

#include <sys/resource.h>

namespace {

const char head[] = "<HTML><HEAD><meta charset=\"UTF-8\"></HEAD><BODY>";
const char tail[] = "</BODY></HTML>";

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

QString menu()
{
    return page(band(QStringLiteral("PageHeader"), 20, label(QStringLiteral("header")))
                + band(QStringLiteral("ReportTitle"), 20, label(QStringLiteral("title")))
                + band(QStringLiteral("MasterData"), 300, label(QStringLiteral("[0]")))
                + band(QStringLiteral("PageFooter"), 20, label(QStringLiteral("footer"))));
}

/// The numbers of pages in a PDF file.
int pdfPages(const QString &fileName)
{
    const QByteArray pdf = contents(fileName);
    return pdf.count("/Type /Page\n");
}

} // namespace

/// Exports to PDF and HTML, without the preview.
class TestRptExport : public QObject {
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private slots:
    void initTestCase() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl"); }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    void init();

    void pdfIsWritten();
    void pdfFlagTellsNotToOpen();
    void htmlFlagTellsToOpen();
    void openedNames_data();
    void openedNames();
    void printerKeepsThePdf();
    void unwritablePdf();
    void printerWithoutOutput();
    void htmlText();
    void htmlIsUtf8WhateverTheLocale();
    void htmlOfAnEmptyTemplate();
    void hostileValuesStandAsTheyAre();
    void unwritableHtml_data();
    void unwritableHtml();
    void fullDiskKeepsTheOldFile();
    void htmlReplacesTheFileWhole();
    void htmlTouchesNoPrinter();
    void htmlLeavesTheSavedPdf();
    void htmlOfChosenPages();
    void modeStays();
    void manyExportsOfOneEngine();
    void printerModes();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QUrl> m_opened;
};

void TestRptExport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_opened.clear();
}

void TestRptExport::pdfIsWritten()
{
    ReportRun run(menu());
    run.counts = {{1, 7}};
    run.engine.exportToPdf(path(QStringLiteral("menu")), true);
    QCOMPARE(files(), QStringList{"menu"}); // no extension is added
    QVERIFY(contents(path(QStringLiteral("menu"))).startsWith("%PDF-"));
    QCOMPARE(pdfPages(path(QStringLiteral("menu"))), 3); // three rows on each
}

void TestRptExport::pdfFlagTellsNotToOpen()
{
    ReportRun run(menu());
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    QCOMPARE(m_opened, QList<QUrl>());
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), false);
    QCOMPARE(m_opened, QList<QUrl>{QUrl(QStringLiteral("file:") + path(QStringLiteral("menu.pdf")))});
}

void TestRptExport::htmlFlagTellsToOpen()
{
    ReportRun run(menu());
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QCOMPARE(m_opened, QList<QUrl>());
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), true);
    QCOMPARE(m_opened, QList<QUrl>{QUrl(QStringLiteral("file:") + path(QStringLiteral("menu.html")))});
}

/// What means something in a URL is part of the name here.
void TestRptExport::openedNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blank and letters") << QStringLiteral("týždenné menu.html");
    QTest::newRow("marks") << QStringLiteral("menu #1? 100%.html");
    QTest::newRow("escape") << QStringLiteral("menu%20x.html");
    QTest::newRow("quotes") << QStringLiteral("Mama's \"best\" \\ 🍲.html");
}

void TestRptExport::openedNames()
{
    QFETCH(QString, name);
    ReportRun run(menu());
    run.engine.exportToHtml(path(name), true);
    QCOMPARE(files(), QStringList{name});
    QCOMPARE(m_opened.size(), 1);
    QCOMPARE(m_opened.first().scheme(), QStringLiteral("file"));
    QCOMPARE(m_opened.first().toLocalFile(), path(name));
}

void TestRptExport::printerKeepsThePdf()
{
    ReportRun run(menu());
    QPrinter printer;
    QVERIFY(run.engine.setPrinter(&printer));
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    QCOMPARE(printer.outputFormat(), QPrinter::PdfFormat);
    QCOMPARE(printer.outputFileName(), path(QStringLiteral("menu.pdf")));
    QVERIFY(QFile::remove(path(QStringLiteral("menu.pdf"))));
    // So a print at once goes there again.
    run.engine.startPrint(false, true, QString());
    QCOMPARE(files(), QStringList{"menu.pdf"});
}

void TestRptExport::unwritablePdf()
{
    ReportRun run(menu());
    LogCatcher log;
    run.engine.exportToPdf(path(QStringLiteral("no/such/folder/menu.pdf")), false);
    QCOMPARE(files(), QStringList());
    QVERIFY2(m_opened.size() == 1, "it is opened all the same");
    QCOMPARE(log.lines(), QStringList{"QPainter::begin(): Returned false"}); // Qt's own
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    QCOMPARE(pdfPages(path(QStringLiteral("menu.pdf"))), 1);
}

/// As on a machine without printers. It paints nothing, and can still be given an output.
void TestRptExport::printerWithoutOutput()
{
    ReportRun run(menu());
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QVERIFY(run.engine.setPrinter(&printer));
    run.engine.startPrint(false, true, QString());
    QCOMPARE(printer.printerState(), QPrinter::Idle);
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    QCOMPARE(pdfPages(path(QStringLiteral("menu.pdf"))), 1);
}

void TestRptExport::htmlText()
{
    ReportRun run(menu());
    run.counts = {{1, 20}};
    run.values = {{QStringLiteral("0"), QStringLiteral("row %1")}};
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QCOMPARE(files(), QStringList{"menu.html"});
    const QByteArray html = contents(path(QStringLiteral("menu.html")));
    QVERIFY(html.startsWith(QByteArray(head) + "<div "));
    QVERIFY(html.endsWith(QByteArray("</div>\n") + tail));
    QVERIFY(html.contains(">title</div>"));
    QVERIFY(html.contains(">row 19</div>"));
    QVERIFY(!html.contains("header"));
    QVERIFY(!html.contains("footer"));
    QVERIFY2(html.contains("font-size:14px;"), "a font of 9 points, and 5 more");
}

void TestRptExport::htmlIsUtf8WhateverTheLocale()
{
    ReportRun run(page(band(QStringLiteral("ReportTitle"), 20, label(QStringLiteral("Šťavnatý guláš 🍲")))));
    QTextCodec *const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QTextCodec::setCodecForLocale(before);
    QVERIFY(contents(path(QStringLiteral("menu.html"))).contains("Šťavnatý guláš 🍲"));
}

void TestRptExport::htmlOfAnEmptyTemplate()
{
    RptEngine engine;
    engine.exportToHtml(path(QStringLiteral("menu.html")), true);
    QCOMPARE(contents(path(QStringLiteral("menu.html"))), QByteArray(head) + tail);
    QCOMPARE(m_opened.size(), 1);
}

void TestRptExport::hostileValuesStandAsTheyAre()
{
    ReportRun run(page(band(QStringLiteral("ReportTitle"), 20, label(QStringLiteral("[v]")))));
    const QStringList values{QStringLiteral("salt & pepper"), QStringLiteral("<b>x</b> \"y\" 'z'"),
                             QStringLiteral("مرق %2 \\ 🍲"), QString(10000, QLatin1Char('x'))};
    for (const QString &value : values) {
        run.values = {{QStringLiteral("v"), value}};
        run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
        QVERIFY2(contents(path(QStringLiteral("menu.html"))).contains(QByteArray(">") + value.toUtf8() + "</div>"),
                 qPrintable(value));
    }
}

void TestRptExport::unwritableHtml_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no folder") << QStringLiteral("no/such/folder/menu.html");
    QTest::newRow("a folder") << QString();
    QTest::newRow("a device") << QStringLiteral("/dev/full");
}

void TestRptExport::unwritableHtml()
{
    QFETCH(QString, name);
    ReportRun run(menu());
    int asked = 0;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked] { ++asked; });
    LogCatcher log;
    run.engine.exportToHtml(name.startsWith(QLatin1Char('/')) ? name : path(name), true);
    QCOMPARE(files(), QStringList());
    QCOMPARE(m_opened, QList<QUrl>());
    QCOMPARE(asked, 0);
    QCOMPARE(log.lines(), QStringList());
    QVERIFY2(!QFileInfo(QStringLiteral("/dev/full")).isFile(), "the device was replaced by a file");
}

/// A limit on the size of files stands for the full disk: writing stops half-way.
void TestRptExport::fullDiskKeepsTheOldFile()
{
    ReportRun run(menu());
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    const QByteArray old = contents(path(QStringLiteral("menu.html")));
    run.counts = {{1, 1}};
    run.values = {{QStringLiteral("0"), QString(200000, QLatin1Char('x'))}};
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit small = before;
    small.rlim_cur = 100000;
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    LogCatcher log;
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), true);
    setrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, handler);
    QCOMPARE(log.lines(QtWarningMsg),
             QStringList{QStringLiteral("HTML file not written: \"%1\"").arg(path(QStringLiteral("menu.html")))});
    QCOMPARE(m_opened, QList<QUrl>());
    QCOMPARE(contents(path(QStringLiteral("menu.html"))), old);
    QCOMPARE(files(), QStringList{"menu.html"});
}

void TestRptExport::htmlReplacesTheFileWhole()
{
    QFile file(path(QStringLiteral("menu.html")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(QByteArray(100000, 'x')) == 100000);
    file.close();
    ReportRun run(menu());
    bool oldStands = false;
    connect(&run.engine, &RptEngine::setDSInfo, this,
            [&] { oldStands = contents(path(QStringLiteral("menu.html"))) == QByteArray(100000, 'x'); });
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QVERIFY(oldStands);
    QVERIFY(!contents(path(QStringLiteral("menu.html"))).contains("xx"));
}

/// The preview's printer is a real one: text for a browser must not come out of it.
void TestRptExport::htmlTouchesNoPrinter()
{
    ReportRun run(menu());
    run.counts = {{1, 3}};
    RecordingPrinter printer;
    QVERIFY(run.engine.setPrinter(&printer));
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QCOMPARE(printer.marks().size(), 0);
    QCOMPARE(printer.printerState(), QPrinter::Idle);
    run.engine.startPrint(false, true, QString());
    QVERIFY(!printer.marks().isEmpty());
}

void TestRptExport::htmlLeavesTheSavedPdf()
{
    ReportRun run(menu());
    run.counts = {{1, 7}};
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    const QByteArray pdf = contents(path(QStringLiteral("menu.pdf")));
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    QCOMPARE(contents(path(QStringLiteral("menu.pdf"))), pdf);
    QCOMPARE(files(), (QStringList{"menu.html", "menu.pdf"}));
}

/// In HTML nothing breaks pages but a further page definition.
void TestRptExport::htmlOfChosenPages()
{
    const QString second = page(band(QStringLiteral("ReportTitle"), 20, label(QStringLiteral("second"))));
    ReportRun run(menu() + second);
    QPrinter printer;
    printer.setFromTo(2, 2);
    QVERIFY(run.engine.setPrinter(&printer));
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    const QByteArray html = contents(path(QStringLiteral("menu.html")));
    QVERIFY(html.contains(">second</div>"));
    QVERIFY(!html.contains(">title</div>"));
}

void TestRptExport::modeStays()
{
    ReportRun run(menu());
    run.counts = {{1, 7}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 3);
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 1);
    run.engine.exportToPdf(path(QStringLiteral("menu.pdf")), true);
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 3);
    run.engine.exportToHtml(path(QStringLiteral("menu.html")), false);
    run.engine.startPrint(false, true, QString());
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 3);
}

void TestRptExport::manyExportsOfOneEngine()
{
    ReportRun run(menu());
    run.counts = {{1, 7}};
    run.engine.exportToHtml(path(QStringLiteral("0.html")), false);
    for (int count = 1; count <= 3; ++count) {
        run.engine.exportToPdf(path(QStringLiteral("%1.pdf").arg(count)), true);
        run.engine.exportToHtml(path(QStringLiteral("%1.html").arg(count)), false);
        QCOMPARE(pdfPages(path(QStringLiteral("%1.pdf").arg(count))), 3);
        QCOMPARE(contents(path(QStringLiteral("%1.html").arg(count))), contents(path(QStringLiteral("0.html"))));
    }
}

void TestRptExport::printerModes()
{
    const auto resolution = [this](int mode) {
        ReportRun run(menu());
        QPainter painter;
        run.engine.setPainter(&painter);
        run.engine.setPrinterMode(mode);
        int result = 0;
        connect(&run.engine, &RptEngine::setField, this,
                [&](RptFieldObject &) { result = painter.device()->logicalDpiX(); });
        run.engine.exportToPdf(path(QStringLiteral("mode.pdf")), true);
        return result;
    };
    QCOMPARE(resolution(QPrinter::HighResolution), 1200);
    QCOMPARE(resolution(QPrinter::ScreenResolution), QPrinter(QPrinter::ScreenResolution).resolution());
    QVERIFY(resolution(QPrinter::ScreenResolution) < 200);
    QCOMPARE(resolution(77), 1200);
    QCOMPARE(resolution(-1), 1200);
}

QTEST_MAIN(TestRptExport)
#include "tst_rptexport.moc"
