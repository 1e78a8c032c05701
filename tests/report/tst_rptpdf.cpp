#include "recordingprinter.h"
#include "reporttemplate.h"

#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

#include <poppler-qt5.h>

#include <memory>

namespace {

constexpr double pointsOfMillimetre = 72 / 25.4;

/// One word of a page, in points from the top left corner of the paper.
struct Word {
    int page;
    QString text;
    QRectF box;
};

QVector<Word> wordsOf(const QString &fileName)
{
    QVector<Word> words;
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    for (int number = 0; document && number < document->numPages(); ++number) {
        const std::unique_ptr<Poppler::Page> page(document->page(number));
        const QList<Poppler::TextBox *> boxes = page->textList();
        for (const Poppler::TextBox *box : boxes)
            words.append({number + 1, box->text(), box->boundingBox()});
        qDeleteAll(boxes);
    }
    return words;
}

QStringList texts(const QVector<Word> &words)
{
    QStringList lines;
    for (const Word &word : words)
        lines.append(QStringLiteral("%1:%2").arg(word.page).arg(word.text));
    return lines;
}

int pagesOf(const QString &fileName)
{
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    return document ? document->numPages() : 0;
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
    QCOMPARE(pagesOf(file("a.pdf")), 3);
    QStringList expected;
    for (int number = 1; number <= 3; ++number) {
        expected.append(QStringLiteral("%1:hlavička").arg(number));
        for (int row = 10 * (number - 1); row < qMin(25, 10 * number); ++row)
            expected.append(QStringLiteral("%1:riadok%2").arg(number).arg(row));
        expected.append(QStringLiteral("%1:%1/3").arg(number));
    }
    QStringList found = texts(wordsOf(file("a.pdf")));
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
    const QVector<Word> words = wordsOf(file("m.pdf"));
    QCOMPARE(words.size(), 2);
    const double indent = 10 * 72.0 / 1200;
    const double left = words.at(0).box.left() / pointsOfMillimetre;
    QVERIFY2(qAbs(left - (15.01 + indent / pointsOfMillimetre)) < 0.3, qPrintable(QString::number(left)));
    // The field ends 719 units behind the margin, one less than its place and width say, and the text five device units
    // before that.
    const double right = words.at(1).box.right() / pointsOfMillimetre;
    QVERIFY2(qAbs(right - (15.01 + 719 / 4.0 - 0.1)) < 0.5, qPrintable(QString::number(right)));
    const double top = words.at(0).box.top() / pointsOfMillimetre;
    QVERIFY2(qAbs(top - 15.01) < 1.5, qPrintable(QString::number(top)));
}

void TestRptPdf::rowsStayOffTheFooter()
{
    ReportRun run(
        page(band("MasterData", 37, label("riadok[0]", 0, 0, 200, 37)) + band("PageFooter", 60, label("pätička"))));
    run.counts = {{1, 100}};
    run.values = {{"0", "%1"}};
    run.engine.exportToPdf(file("f.pdf"), true);
    const double footer = (10.01 + (1108 - 60) / 4.0) * pointsOfMillimetre;
    int footers = 0;
    const QVector<Word> words = wordsOf(file("f.pdf"));
    for (const Word &word : words) {
        if (word.text.startsWith(QLatin1String("riadok")))
            QVERIFY2(word.box.bottom() <= footer + 1, qPrintable(word.text));
        else
            ++footers;
    }
    QCOMPARE(footers, pagesOf(file("f.pdf")));
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
    QCOMPARE(texts(wordsOf(file("r.pdf"))), (QStringList{"1:riadok3", "1:6"})); // all rows are summed
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
    const QVector<Word> first = wordsOf(file("1.pdf"));
    const QVector<Word> second = wordsOf(file("2.pdf"));
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
    QHash<QString, Word> words;
    const QVector<Word> found = wordsOf(file("p.pdf"));
    for (const Word &word : found)
        words.insert(word.text, word);
    const QVector<Mark> marks = printer.marks(Mark::Text);
    QCOMPARE(marks.size(), words.size());
    const double margin = 10.01 * pointsOfMillimetre;
    for (const Mark &mark : marks) {
        const Word word = words.value(mark.text);
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
    const QVector<Word> words = wordsOf(file("d.pdf"));
    QCOMPARE(words.size(), 1000);
    constexpr int perPage = 1108 / 7;
    QHash<QString, Word> byText;
    for (const Word &word : words)
        byText.insert(word.text, word);
    const double first = byText.value("w0").box.top();
    // A unit is a quarter of a millimetre but for the rounding of the margins: Qt rounds them to whole points.
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QSizeF(210, 297), QPageSize::Millimeter));
    printer.setPageMargins({10.01, 10.01, 10.01, 10.01}, QPageLayout::Millimeter);
    const double unit = printer.pageLayout().paintRectPixels(1200).height() * 72.0 / 1200 / 1108;
    QVERIFY(qAbs(unit / (pointsOfMillimetre / 4) - 1) < 0.002);
    for (int row = 0; row < 1000; ++row) {
        const Word word = byText.value(QStringLiteral("w%1").arg(row));
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
    QCOMPARE(texts(wordsOf(file("t.pdf"))), (QStringList{"1:prvá", "2:druhá"}));
}

void TestRptPdf::unwritableFileLeavesNothing()
{
    ReportRun run(page(band("ReportTitle", 50, label("x"))));
    const QString name = file("none/x.pdf");
    run.engine.exportToPdf(name, true);
    QVERIFY(!QFileInfo::exists(name));
    run.engine.exportToPdf(file("after.pdf"), true); // and the engine goes on
    QCOMPARE(pagesOf(file("after.pdf")), 1);
}

QTEST_MAIN(TestRptPdf)
#include "tst_rptpdf.moc"
