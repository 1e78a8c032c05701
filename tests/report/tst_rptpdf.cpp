#include "recordingprinter.h"
#include "reporttemplate.h"
#include "support/pdfpages.h"

#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

QStringList texts(const QVector<PdfWord> &words)
{
    QStringList lines;
    for (const PdfWord &word : words)
        lines.append(QStringLiteral("%1:%2").arg(word.page).arg(word.text));
    return lines;
}

} // namespace

/// The PDF as an independent reader sees it.
class TestRptPdf : public QObject {
    Q_OBJECT

private slots:
    void pagesAndWords();
    void marginOfFifteenMillimetres();
    void rowsStayOffTheFooter();
    void pageRange();
    void printedTwiceIsTheSame();
    void printerAndPdfAgree();
    void thousandRowsDoNotDrift();
    void twoDefinitions();
    void unwritableFileLeavesNothing();

private:
    QString file(const QString &name) const { return m_folder.filePath(name); }

    const QTemporaryDir m_folder;
};

void TestRptPdf::pagesAndWords()
{
    ReportRun run(page(band("PageHeader", 40, label("hlavička")) + band("MasterData", 100, label("riadok[0]"))
                       + band("PageFooter", 40, label("<Page>/<TotalPages>"))));
    run.counts = {{1, 25}};
    run.values = {{"0", "%1"}};
    run.engine.exportToPdf(file("a.pdf"), true);
    QCOMPARE(pdfPageCount(file("a.pdf")), 3);
    QStringList expected;
    for (int number = 1; number <= 3; ++number) {
        expected.append(QStringLiteral("%1:hlavička").arg(number));
        for (int row = 10 * (number - 1); row < qMin(25, 10 * number); ++row)
            expected.append(QStringLiteral("%1:riadok%2").arg(number).arg(row));
        expected.append(QStringLiteral("%1:%1/3").arg(number));
    }
    QStringList found = texts(pdfWords(file("a.pdf")));
    found.sort();
    expected.sort();
    QCOMPARE(found, expected);
}

void TestRptPdf::marginOfFifteenMillimetres()
{
    QString definition =
        page(band("ReportTitle", 40, label("Vľavo") + label("Vpravo", 520, 0, 200, 20, "aligmentH=\"hRight\"")));
    definition.replace("=\"40\" ", "=\"60\" "); // the margins, in quarters of a millimetre
    ReportRun run(definition);
    run.engine.exportToPdf(file("m.pdf"), true);
    const QVector<PdfWord> words = pdfWords(file("m.pdf"));
    QCOMPARE(words.size(), 2);
    const double indent = 10 * 72.0 / 1200;
    const double left = words.at(0).box.left() / pdfPointsOfMillimetre;
    QVERIFY2(qAbs(left - (15.01 + indent / pdfPointsOfMillimetre)) < 0.3, qPrintable(QString::number(left)));
    // The field ends 719 units behind the margin, one less than its place and width say, and the text five device units
    // before that.
    const double right = words.at(1).box.right() / pdfPointsOfMillimetre;
    QVERIFY2(qAbs(right - (15.01 + 719 / 4.0 - 0.1)) < 0.5, qPrintable(QString::number(right)));
    const double top = words.at(0).box.top() / pdfPointsOfMillimetre;
    QVERIFY2(qAbs(top - 15.01) < 1.5, qPrintable(QString::number(top)));
}

void TestRptPdf::rowsStayOffTheFooter()
{
    ReportRun run(
        page(band("MasterData", 37, label("riadok[0]", 0, 0, 200, 37)) + band("PageFooter", 60, label("pätička"))));
    run.counts = {{1, 100}};
    run.values = {{"0", "%1"}};
    run.engine.exportToPdf(file("f.pdf"), true);
    const double footer = (10.01 + (1108 - 60) / 4.0) * pdfPointsOfMillimetre;
    int footers = 0;
    const QVector<PdfWord> words = pdfWords(file("f.pdf"));
    for (const PdfWord &word : words) {
        if (word.text.startsWith(QLatin1String("riadok")))
            QVERIFY2(word.box.bottom() <= footer + 1, qPrintable(word.text));
        else
            ++footers;
    }
    QCOMPARE(footers, pdfPageCount(file("f.pdf")));
}

void TestRptPdf::pageRange()
{
    ReportRun run(page(band("MasterData", 1000, label("riadok[0]")) + band("ReportSummary", 50, label("<Sum([0])>"))));
    run.counts = {{1, 4}};
    run.values = {{"0", "%1"}};
    QPrinter printer(QPrinter::HighResolution);
    printer.setFromTo(4, 4);
    QVERIFY(run.engine.setPrinter(&printer));
    run.engine.exportToPdf(file("r.pdf"), true);
    QCOMPARE(texts(pdfWords(file("r.pdf"))), (QStringList{"1:riadok3", "1:6"})); // all rows are summed
}

void TestRptPdf::printedTwiceIsTheSame()
{
    ReportRun run(page(band("DataGroupHeader", 30, label("[g]"), "groupingField=\"[g]\"")
                       + band("MasterData", 40, label("slovo[0]") + label("<Sum([0])>", 300))
                       + band("PageFooter", 40, label("<Page>/<TotalPages>"))));
    run.counts = {{1, 60}};
    run.values = {{"0", "%1"}};
    for (int record = 0; record < 60; ++record)
        run.lists["g"].append(QString::number(record % 7));
    run.engine.exportToPdf(file("1.pdf"), true);
    run.engine.exportToPdf(file("2.pdf"), true);
    const QVector<PdfWord> first = pdfWords(file("1.pdf"));
    const QVector<PdfWord> second = pdfWords(file("2.pdf"));
    QCOMPARE(texts(second), texts(first));
    for (int index = 0; index < first.size(); ++index)
        QCOMPARE(second.at(index).box, first.at(index).box);
}

/// What a printer is told to draw stands at the same places in the PDF.
void TestRptPdf::printerAndPdfAgree()
{
    ReportRun run(
        page(band("MasterData", 50, label("a[0]", 13, 5) + label("b[0]", 333, 17, 200, 20, "aligmentH=\"hRight\""))));
    run.counts = {{1, 50}};
    run.values = {{"0", "%1"}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    run.engine.exportToPdf(file("p.pdf"), true);
    QHash<QString, PdfWord> words;
    const QVector<PdfWord> found = pdfWords(file("p.pdf"));
    for (const PdfWord &word : found)
        words.insert(word.text, word);
    const QVector<Mark> marks = printer.marks(Mark::Text);
    QCOMPARE(marks.size(), words.size());
    const double margin = 10.01 * pdfPointsOfMillimetre;
    for (const Mark &mark : marks) {
        const PdfWord word = words.value(mark.text);
        QCOMPARE(word.page, mark.page);
        const double left = margin + mark.rect.left() * 72 / 1200;
        const double baseline = margin + mark.rect.top() * 72 / 1200;
        QVERIFY2(qAbs(word.box.left() - left) < 1, qPrintable(mark.text));
        QVERIFY2(baseline > word.box.top() && baseline < word.box.bottom() + 0.5, qPrintable(mark.text));
    }
}

void TestRptPdf::thousandRowsDoNotDrift()
{
    ReportRun run(page(band("MasterData", 7, label("w[0]", 0, 0, 200, 7))));
    run.counts = {{1, 1000}};
    run.values = {{"0", "%1"}};
    run.engine.exportToPdf(file("d.pdf"), true);
    const QVector<PdfWord> words = pdfWords(file("d.pdf"));
    QCOMPARE(words.size(), 1000);
    constexpr int perPage = 1108 / 7;
    QHash<QString, PdfWord> byText;
    for (const PdfWord &word : words)
        byText.insert(word.text, word);
    const double first = byText.value("w0").box.top();
    // A unit is a quarter of a millimetre but for the rounding of the margins: Qt rounds them to whole points.
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QSizeF(210, 297), QPageSize::Millimeter));
    printer.setPageMargins({10.01, 10.01, 10.01, 10.01}, QPageLayout::Millimeter);
    const double unit = printer.pageLayout().paintRectPixels(1200).height() * 72.0 / 1200 / 1108;
    QVERIFY(qAbs(unit / (pdfPointsOfMillimetre / 4) - 1) < 0.002);
    for (int row = 0; row < 1000; ++row) {
        const PdfWord word = byText.value(QStringLiteral("w%1").arg(row));
        QCOMPARE(word.page, row / perPage + 1);
        const double expected = first + (row % perPage) * 7 * unit;
        QVERIFY2(qAbs(word.box.top() - expected) < 0.1,
                 qPrintable(QStringLiteral("%1 %2").arg(word.text).arg(word.box.top() - expected)));
    }
}

void TestRptPdf::twoDefinitions()
{
    ReportRun run(page(band("ReportTitle", 50, label("prvá"))) + page(band("ReportTitle", 50, label("druhá"))));
    run.engine.exportToPdf(file("t.pdf"), true);
    QCOMPARE(texts(pdfWords(file("t.pdf"))), (QStringList{"1:prvá", "2:druhá"}));
}

void TestRptPdf::unwritableFileLeavesNothing()
{
    ReportRun run(page(band("ReportTitle", 50, label("x"))));
    const QString name = file("none/x.pdf");
    run.engine.exportToPdf(name, true);
    QVERIFY(!QFileInfo::exists(name));
    run.engine.exportToPdf(file("after.pdf"), true); // and the engine goes on
    QCOMPARE(pdfPageCount(file("after.pdf")), 1);
}

QTEST_MAIN(TestRptPdf)
#include "tst_rptpdf.moc"
