#include "recordingprinter.h"
#include "reporttemplate.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

namespace {

/// Height that rows may use on a page of `page()`, in template units.
constexpr int usableHeight = 1188 - 80;

const char *const rowName = "row %1";

QString rows(int height, const QString &more = QString())
{
    return band(QStringLiteral("MasterData"), height, label(QStringLiteral("[0]"), 0, 0, 200, height), more);
}

/// Tops of the texts in template units from the top margin, at the resolution of the printer.
double topOf(const RecordingPrinter &printer, const Mark &mark)
{
    const double scale =
        double(printer.pageLayout().paintRectPixels(printer.resolution()).height()) / double(usableHeight);
    return mark.rect.top() / scale;
}

} // namespace

/// Where bands come to stand, and on which page.
class TestRptLayout : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void emptyTemplatePrintsNothing();
    void noRecords();
    void bandsInPrintOrder();
    void rowsBreakAndHeadersRepeat();
    void footerOfTheDataSetIsReserved();
    void masterFooterMayOverlapThePageFooter();
    void summaryBreaks();
    void totalPagesInBothPasses();
    void pageRange_data();
    void pageRange();
    void definitionsBeginOnNewSheets();
    void dataSetsOneToFive();
    void groupsByFirstAppearance();
    void groupOnNewPages();
    void groupHeadersAndFooters();
    void groupLineNumbers();
    void lastGroupStaysForTheSummary();
    void growingRows();
    void lastGrowingFieldDecides();
    void newPageSignal();
    void printingTwiceIsTheSame();
    void marginsMeasureMillimetres();
    void landscape();
    void pageBorder();
    void watermark();
    void rowsDoNotDrift();
    void pagesAgainstAPlainReference();
    void groupsAgainstAPlainReference();
    void manyGroupsTakeLittleTime();
};

void TestRptLayout::initTestCase()
{
    // The tests measure texts in it.
    QVERIFY2(QFontDatabase().families().contains(QStringLiteral("DejaVu Sans")),
             "the font DejaVu Sans is missing (package fonts-dejavu-core)");
}

void TestRptLayout::emptyTemplatePrintsNothing()
{
    ReportRun run{QString()};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 0);
    QCOMPARE(printer.marks().size(), 0);
}

void TestRptLayout::noRecords()
{
    ReportRun run(page(band("ReportTitle", 100, label("Názov")) + rows(20) + band("MasterHeader", 20, label("Hlava"))
                       + band("MasterFooter", 20, label("Päta"))
                       + band("PageFooter", 30, label("<Page> z <TotalPages>"))));
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 1);
    QCOMPARE(printer.texts(), (QStringList{"1: Názov", "1: 1 z 1", "1: Hlava", "1: Päta"}));
}

void TestRptLayout::bandsInPrintOrder()
{
    // In the file the other way round.
    ReportRun run(page(band("PageFooter", 30, label("pätička")) + band("ReportSummary", 50, label("súhrn"))
                       + band("MasterFooter", 25, label("koniec")) + rows(20) + band("MasterHeader", 15, label("hlava"))
                       + band("ReportTitle", 100, label("titul")) + band("PageHeader", 40, label("hlavička"))));
    run.counts = {{1, 2}};
    run.values = {{"0", rowName}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts(),
             (QStringList{"1: hlavička", "1: titul", "1: pätička", "1: hlava", "1: row 0", "1: row 1", "1: koniec",
                          "1: súhrn"}));
    // Each label is as high as its band asks, its text in the middle by default is told by the attribute: none here, so
    // texts stand at the top of their boxes, and the differences are the heights of the bands.
    const QVector<Mark> texts = printer.marks(Mark::Text);
    QCOMPARE(qRound(topOf(printer, texts.at(1)) - topOf(printer, texts.at(0))), 40);
    QCOMPARE(qRound(topOf(printer, texts.at(3)) - topOf(printer, texts.at(1))), 100);
    QCOMPARE(qRound(topOf(printer, texts.at(4)) - topOf(printer, texts.at(3))), 15);
    QCOMPARE(qRound(topOf(printer, texts.at(5)) - topOf(printer, texts.at(4))), 20);
    QCOMPARE(qRound(topOf(printer, texts.at(6)) - topOf(printer, texts.at(5))), 20);
    QCOMPARE(qRound(topOf(printer, texts.at(7)) - topOf(printer, texts.at(6))), 25);
    QCOMPARE(qRound(topOf(printer, texts.at(2)) - topOf(printer, texts.at(0))), usableHeight - 30);
}

void TestRptLayout::rowsBreakAndHeadersRepeat()
{
    // 1108 units: title 100, header 8, then 1000 for rows of 100: 10 rows; later pages 1100: 11 rows.
    ReportRun run(page(band("ReportTitle", 100, label("titul")) + band("MasterHeader", 8, label("hlava", 0, 0, 200, 8))
                       + rows(100)));
    run.counts = {{1, 22}};
    run.values = {{"0", rowName}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 3);
    const QStringList texts = printer.texts();
    QCOMPARE(texts.filter("titul"), QStringList{"1: titul"});
    QCOMPARE(texts.filter("hlava"), (QStringList{"1: hlava", "2: hlava", "3: hlava"}));
    QVERIFY(texts.contains("1: row 9"));
    QVERIFY(texts.contains("2: row 10"));
    QVERIFY(texts.contains("2: row 20"));
    QVERIFY(texts.contains("3: row 21"));
}

void TestRptLayout::footerOfTheDataSetIsReserved()
{
    for (const int number : {1, 2}) {
        const QString bandNo = QStringLiteral("bandNo=\"%1\"").arg(number);
        ReportRun run(page(rows(100, bandNo) + band("PageFooter", 108, label("pätička"))
                           + band("MasterFooter", 100, label("koniec"), bandNo)));
        run.counts = {{number, 11}};
        run.values = {{"0", rowName}};
        RecordingPrinter printer;
        run.engine.printPreview(&printer);
        // The page footer counts for data set 1 only: 1000 - 100 for its rows, 1108 - 100 for the second's.
        QCOMPARE(printer.texts().filter("1: row").size(), number == 1 ? 9 : 10);
    }
}

void TestRptLayout::masterFooterMayOverlapThePageFooter()
{
    ReportRun run(page(band("ReportTitle", 1000, label("titul")) + band("PageFooter", 108, label("pätička"))
                       + band("MasterFooter", 100, label("koniec"))));
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 1); // 1000 is not above 1108 - 100
    ReportRun tight(page(band("ReportTitle", 1009, label("titul")) + band("MasterFooter", 100, label("koniec"))));
    tight.engine.printPreview(&printer);
    QCOMPARE(printer.texts(), (QStringList{"1: titul", "2: koniec"}));
}

void TestRptLayout::summaryBreaks()
{
    RecordingPrinter printer;
    ReportRun fits(page(band("ReportTitle", 1008, label("titul")) + band("ReportSummary", 100, label("súhrn"))));
    fits.engine.printPreview(&printer);
    QCOMPARE(printer.pages(), 1);
    ReportRun breaks(page(band("ReportTitle", 1009, label("titul")) + band("ReportSummary", 100, label("súhrn"))));
    breaks.engine.printPreview(&printer);
    QCOMPARE(printer.texts(), (QStringList{"1: titul", "2: súhrn"}));
}

void TestRptLayout::totalPagesInBothPasses()
{
    ReportRun run(page(rows(1000) + band("PageFooter", 30, label("strana <Page> / <TotalPages>"))));
    run.counts = {{1, 3}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts().filter("strana"), (QStringList{"1: strana 1 / 3", "2: strana 2 / 3", "3: strana 3 / 3"}));
}

void TestRptLayout::pageRange_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QStringList>("painted");
    QTest::newRow("all") << 0 << 0 << QStringList{"1: 1/4 S6", "2: 2/4 S6", "3: 3/4 S6", "4: 4/4 S6"};
    QTest::newRow("second") << 2 << 2 << QStringList{"1: 2/4 S6"};
    QTest::newRow("from the third") << 3 << 99 << QStringList{"1: 3/4 S6", "2: 4/4 S6"};
    QTest::newRow("to the second") << 1 << 2 << QStringList{"1: 1/4 S6", "2: 2/4 S6"};
    QTest::newRow("beyond the end") << 7 << 9 << QStringList();
}

void TestRptLayout::pageRange()
{
    QFETCH(int, from);
    QFETCH(int, to);
    ReportRun run(page(rows(1000) + band("PageFooter", 30, label("<Page>/<TotalPages> S<Sum([0])>"))));
    run.counts = {{1, 4}};
    run.values = {{"0", "%1"}};
    RecordingPrinter printer;
    printer.setFromTo(from, to);
    run.engine.printPreview(&printer);
    QTEST(printer.texts().filter("/4"), "painted"); // totals are complete whatever is painted
}

void TestRptLayout::definitionsBeginOnNewSheets()
{
    const QString title =
        band("ReportTitle", 100, label("titul")) + band("PageFooter", 30, label("<Page>/<TotalPages>"));
    ReportRun run(page(title + rows(20)) + page(title));
    run.counts = {{1, 1}};
    run.values = {{"0", rowName}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts(), (QStringList{"1: titul", "1: 1/2", "1: row 0", "2: titul", "2: 2/2"}));
}

void TestRptLayout::dataSetsOneToFive()
{
    QString bands;
    for (int number = 0; number <= 6; ++number) {
        bands += band("MasterData", 20, label(QStringLiteral("set %1").arg(number)),
                      QStringLiteral("bandNo=\"%1\" dataSourceName=\"ds%1\"").arg(number));
    }
    ReportRun run(page(bands));
    QStringList asked;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked](const DataSetInfo &info) {
        asked.append(QStringLiteral("%1 %2 %3").arg(info.dataSetName).arg(info.dataSetNo).arg(info.reportPage));
    });
    run.counts = {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts(), (QStringList{"1: set 1", "1: set 2", "1: set 3", "1: set 4", "1: set 5"}));
    QCOMPARE(asked, (QStringList{"ds1 1 0", "ds2 2 0", "ds3 3 0", "ds4 4 0", "ds5 5 0", "ds6 6 0"}));
}

void TestRptLayout::groupsByFirstAppearance()
{
    ReportRun run(page(band("DataGroupHeader", 20, label("skupina [g]"), "groupingField=\"[g]\"") + rows(20)));
    run.counts = {{1, 5}};
    run.values = {{"0", rowName}};
    run.lists = {{"g", {"b", "a", "b", "c", "a"}}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts(),
             (QStringList{"1: skupina b", "1: row 0", "1: row 2", "1: skupina a", "1: row 1", "1: row 4",
                          "1: skupina c", "1: row 3"}));
}

void TestRptLayout::groupOnNewPages()
{
    ReportRun run(page(band("ReportTitle", 50, label("titul"))
                       + band("DataGroupHeader", 20, label("skupina [g]"), "groupingField=\"[g]\" startNewPage=\"1\"")
                       + rows(20)));
    run.counts = {{1, 3}};
    run.values = {{"0", rowName}};
    run.lists = {{"g", {"x", "y", "x"}}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts(),
             (QStringList{"1: titul", "1: skupina x", "1: row 0", "1: row 2", "2: skupina y", "2: row 1"}));
}

void TestRptLayout::groupHeadersAndFooters()
{
    for (const bool inGroup : {false, true}) {
        const QString more = inGroup ? QStringLiteral("showInGroup=\"1\"") : QString();
        ReportRun run(page(band("DataGroupHeader", 20, label("[g]"), "groupingField=\"[g]\"") + rows(20)
                           + band("MasterHeader", 20, label("hlava"), more)
                           + band("MasterFooter", 20, label("S<Sum([n])>"), more)
                           + band("DataGroupFooter", 20, label("koniec [g]"))));
        run.counts = {{1, 3}};
        run.values = {{"0", "[n]"}};
        run.lists = {{"g", {"x", "y", "x"}}, {"0", {"1", "2", "4"}}, {"n", {"1", "2", "4"}}};
        RecordingPrinter printer;
        run.engine.printPreview(&printer);
        if (inGroup) {
            QCOMPARE(printer.texts(),
                     (QStringList{"1: x", "1: hlava", "1: 1", "1: 4", "1: S0", "1: koniec x", "1: y", "1: hlava",
                                  "1: 2", "1: S0", "1: koniec y"}));
        } else {
            QCOMPARE(printer.texts(),
                     (QStringList{"1: hlava", "1: x", "1: 1", "1: 4", "1: koniec x", "1: y", "1: 2", "1: koniec y",
                                  "1: S0"})); // [n] was shown by no row, so there is nothing to sum
        }
    }
}

void TestRptLayout::groupLineNumbers()
{
    ReportRun run(page(band("DataGroupHeader", 20, label("[g]"), "groupingField=\"[g]\"")
                       + band("MasterData", 20, label("č. <LineNo>") + label("[0]", 300))));
    run.counts = {{1, 3}};
    run.lists = {{"g", {"x", "y", "x"}}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    // Numbers run on over the groups.
    QCOMPARE(printer.texts().filter("č."), (QStringList{"1: č. 1", "1: č. 2", "1: č. 3"}));
}

void TestRptLayout::lastGroupStaysForTheSummary()
{
    ReportRun run(page(band("DataGroupHeader", 20, label("[g]"), "groupingField=\"[g]\"")
                       + band("MasterData", 20, label("[0]"))
                       + band("ReportSummary", 20, label("súčet <Sum([0])>"), "showInGroup=\"1\"")));
    run.counts = {{1, 4}};
    run.lists = {{"g", {"x", "y", "y", "x"}}, {"0", {"1", "10", "100", "1000"}}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(printer.texts().filter("súčet"), QStringList{"1: súčet 1001"}); // the group of the last record
}

void TestRptLayout::growingRows()
{
    ReportRun run(page(band("MasterData", 20,
                            label("[0]", 0, 0, 100, 20, "autoHeight=\"1\"").replace("textWrap=\"0\"", "textWrap=\"1\"")
                                + label("x[1]", 200))
                       + band("ReportSummary", 20, label("súhrn"))));
    run.counts = {{1, 3}};
    run.lists = {{"0", {"krátky", QStringLiteral("veľmi dlhý názov jedla ").repeated(6), "krátky"}},
                 {"1", {"a", "b", "c"}}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QVector<double> tops;
    const QVector<Mark> texts = printer.marks(Mark::Text);
    for (const Mark &mark : texts) {
        if (mark.text.startsWith(QLatin1Char('x')) || mark.text == QStringLiteral("súhrn"))
            tops.append(topOf(printer, mark));
    }
    QVERIFY2(tops.size() == 4, qPrintable(printer.texts().join("\n")));
    QCOMPARE(qRound(tops.at(1) - tops.at(0)), 20);
    QVERIFY2(tops.at(2) - tops.at(1) > 60, qPrintable(QString::number(tops.at(2) - tops.at(1))));
    QCOMPARE(qRound(tops.at(3) - tops.at(2)), 20); // the height is the record's own
}

void TestRptLayout::lastGrowingFieldDecides()
{
    const QString wraps = QStringLiteral("autoHeight=\"1\"");
    const auto growing = [&wraps](const QString &token, int left) {
        return label(token, left, 0, 100, 20, wraps).replace("textWrap=\"0\"", "textWrap=\"1\"");
    };
    ReportRun run(page(band("MasterData", 20, growing("[0]", 0) + growing("[1]", 200))
                       + band("ReportSummary", 20, label("súhrn"))));
    run.counts = {{1, 1}};
    run.values = {{"0", QStringLiteral("veľmi dlhý text ").repeated(9)},
                  {"1", QStringLiteral("dlhý text ").repeated(3)}};
    RecordingPrinter both;
    run.engine.printPreview(&both);
    ReportRun second(page(band("MasterData", 20, growing("[1]", 200)) + band("ReportSummary", 20, label("súhrn"))));
    second.counts = run.counts;
    second.values = run.values;
    RecordingPrinter alone;
    second.engine.printPreview(&alone);
    QCOMPARE(both.marks(Mark::Text).constLast().rect.top(), alone.marks(Mark::Text).constLast().rect.top());
}

void TestRptLayout::newPageSignal()
{
    ReportRun run(page(rows(1000)));
    run.counts = {{1, 3}};
    const QSignalSpy pages(&run.engine, &RptEngine::newPage);
    QVERIFY(pages.isValid());
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    QCOMPARE(pages.count(), 2);
    QCOMPARE(pages.at(0).first().toInt(), 2);
    QCOMPARE(pages.at(1).first().toInt(), 3);
}

void TestRptLayout::printingTwiceIsTheSame()
{
    ReportRun run(page(band("ReportTitle", 100, label("titul"))
                       + band("DataGroupHeader", 20, label("[g]"), "groupingField=\"[g]\"") + rows(90)
                       + band("PageFooter", 30, label("<Page>/<TotalPages>"))));
    run.counts = {{1, 30}};
    run.values = {{"0", rowName}, {"g", "%1"}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    const QVector<Mark> first = printer.marks();
    run.engine.printPreview(&printer);
    QCOMPARE(printer.marks().size(), first.size());
    for (int index = 0; index < first.size(); ++index) {
        QCOMPARE(printer.marks().at(index).rect, first.at(index).rect);
        QCOMPARE(printer.marks().at(index).text, first.at(index).text);
        QCOMPARE(printer.marks().at(index).page, first.at(index).page);
    }
}

void TestRptLayout::marginsMeasureMillimetres()
{
    ReportRun run(page(rows(20), QString())); // 40 units are 10 mm
    run.counts = {{1, 1}};
    RecordingPrinter printer(600);
    run.engine.printPreview(&printer);
    const QMarginsF margins = printer.pageLayout().margins(QPageLayout::Millimeter);
    for (const double margin : {margins.left(), margins.top(), margins.right(), margins.bottom()})
        QVERIFY2(qAbs(margin - 10.01) < 0.02, qPrintable(QString::number(margin)));
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
    QVERIFY(qAbs(paper.width() - 210) < 0.5);
    QVERIFY(qAbs(paper.height() - 297) < 0.5);
}

void TestRptLayout::landscape()
{
    ReportRun run(page(rows(100), QStringLiteral("orientation=\"1\"")));
    run.counts = {{1, 1}};
    run.values = {{"0", rowName}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
    QVERIFY(paper.width() > paper.height());
    const QTransform transform = printer.marks(Mark::Text).constFirst().transform;
    QCOMPARE(qRound(transform.m12()), 1); // turned by a quarter
    QCOMPARE(qRound(transform.m21()), -1);
}

void TestRptLayout::pageBorder()
{
    ReportRun run(page(rows(20),
                       QStringLiteral("border=\"1\" borderWidth=\"2\" borderColor=\"rgba(10,20,30,255)\" "
                                      "borderStyle=\"dashed\"")));
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    const QVector<Mark> frames = printer.marks(Mark::Rect);
    QVERIFY(!frames.isEmpty());
    const QRect pageRect = printer.pageLayout().paintRectPixels(1200);
    const QRect paperRect = printer.pageLayout().fullRectPixels(1200);
    const int left = 92 - pageRect.left();
    const int top = 92 - pageRect.top();
    QRect expected;
    expected.setCoords(left, top, left - 192 + paperRect.right() - paperRect.left(),
                       top - 192 + paperRect.bottom() - paperRect.top());
    QCOMPARE(frames.constFirst().rect, QRectF(expected));
    QCOMPARE(frames.constFirst().pen.color(), QColor(10, 20, 30));
    QCOMPARE(frames.constFirst().pen.width(), 10);
    QCOMPARE(frames.constFirst().pen.style(), Qt::DashLine);
}

void TestRptLayout::watermark()
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    ReportRun run(page(rows(1000),
                       QStringLiteral("watermark=\"1\" watermarkPixmap=\"") + QString::fromLatin1(bytes.toBase64())
                           + QStringLiteral("\"")));
    run.counts = {{1, 2}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    const QVector<Mark> marks = printer.marks(Mark::Pixmap);
    QCOMPARE(marks.size(), 2); // one a page
    const QRect area = printer.pageLayout().paintRectPixels(1200);
    const float scaleX = float(area.width()) / 760.0F;
    const float scaleY = float(area.height()) / 1108.0F;
    QCOMPARE(marks.constFirst().rect,
             QRectF(0, 0, int(840.0F * scaleX - 80.0F * scaleX), int(1188.0F * scaleY - 80.0F * scaleY)));
}

/// The thousandth row of a page that is long enough stands where a thousand heights put it, to a device unit.
void TestRptLayout::rowsDoNotDrift()
{
    ReportRun run(
        QStringLiteral("<Report pageWidth=\"840\" pageHeight=\"20080\" marginsTop=\"40\" marginsBottom=\"40\" "
                       "marginsLeft=\"40\" marginsRight=\"40\">")
        + rows(17) + QStringLiteral("</Report>"));
    run.counts = {{1, 1001}};
    run.values = {{"0", rowName}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer);
    const QVector<Mark> texts = printer.marks(Mark::Text);
    QCOMPARE(texts.size(), 1001);
    const float scale = float(printer.pageLayout().paintRectPixels(1200).height()) / 20000.0F;
    for (const int row : {1, 10, 100, 500, 999, 1000})
        QCOMPARE(texts.at(row).rect.top() - texts.at(0).rect.top(), double(int(float(row * 17) * scale)));
}

/// Random heights and counts: the page of each row, worked out by hand.
void TestRptLayout::pagesAgainstAPlainReference()
{
    QRandomGenerator random(20260714);
    for (int round = 0; round < 1500; ++round) {
        const int header = random.bounded(3) == 0 ? 0 : random.bounded(5, 120);
        const int title = random.bounded(2) == 0 ? 0 : random.bounded(5, 700);
        const int footer = random.bounded(2) == 0 ? 0 : random.bounded(5, 200);
        const int masterHeader = random.bounded(2) == 0 ? 0 : random.bounded(5, 90);
        const int masterFooter = random.bounded(2) == 0 ? 0 : random.bounded(5, 200);
        const int summary = random.bounded(2) == 0 ? 0 : random.bounded(5, 300);
        const int row = random.bounded(20, 400);
        const int count = random.bounded(0, 40);
        QString bands = rows(row);
        const auto add = [&bands](const char *type, int height, const QString &text) {
            if (height > 0)
                bands += band(QLatin1String(type), height, label(text, 0, 0, 200, height));
        };
        add("PageHeader", header, "H");
        add("ReportTitle", title, "T");
        add("PageFooter", footer, "F");
        add("MasterHeader", masterHeader, "MH");
        add("MasterFooter", masterFooter, "MF");
        add("ReportSummary", summary, "S");
        ReportRun run(page(bands));
        run.counts = {{1, count}};
        run.values = {{"0", rowName}};
        RecordingPrinter printer(300);
        run.engine.printPreview(&printer);

        int pageNo = 1;
        int y = header + title + masterHeader;
        for (int record = 0; record < count; ++record) {
            if (y + row > usableHeight - footer - masterFooter) {
                ++pageNo;
                y = header + masterHeader;
            }
            const QString text = QStringLiteral("%1: row %2").arg(pageNo).arg(record);
            QVERIFY2(printer.texts().contains(text), qPrintable(text));
            y += row;
        }
        if (masterFooter > 0) {
            if (y > usableHeight - masterFooter) {
                ++pageNo;
                y = header;
            }
            QVERIFY(printer.texts().contains(QStringLiteral("%1: MF").arg(pageNo)));
            y += masterFooter;
        }
        if (summary > 0) {
            if (y + summary > usableHeight)
                ++pageNo;
            QVERIFY(printer.texts().contains(QStringLiteral("%1: S").arg(pageNo)));
        }
        QCOMPARE(printer.pages(), pageNo);
        QCOMPARE(printer.texts().filter(": F").size(), footer > 0 ? pageNo : 0);
        QCOMPARE(printer.texts().filter(QRegularExpression(": H$")).size(), header > 0 ? pageNo : 0);
    }
}

/// Random groups: members, order and totals, worked out by hand.
void TestRptLayout::groupsAgainstAPlainReference()
{
    QRandomGenerator random(4711);
    for (int round = 0; round < 1000; ++round) {
        const int count = random.bounded(1, 40);
        QStringList groups;
        QStringList numbers;
        for (int record = 0; record < count; ++record) {
            groups.append(QString(QLatin1Char(char('a' + random.bounded(6)))));
            numbers.append(QString::number(random.bounded(1000)));
        }
        ReportRun run(page(band("DataGroupHeader", 20, label("skupina [g]"), "groupingField=\"[g]\"")
                           + band("MasterData", 20, label("[n]"))
                           + band("DataGroupFooter", 20, label("súčet <Sum([n])>"), "showInGroup=\"1\"")
                           + band("ReportSummary", 20, label("spolu <Sum([n])>"))));
        run.counts = {{1, count}};
        run.lists = {{"g", groups}, {"n", numbers}};
        RecordingPrinter printer(300);
        run.engine.printPreview(&printer);
        QStringList expected;
        QStringList seen;
        int all = 0;
        for (const QString &group : qAsConst(groups)) {
            if (seen.contains(group))
                continue;
            seen.append(group);
            expected.append("skupina " + group);
            int sum = 0;
            for (int record = 0; record < count; ++record) {
                if (groups.at(record) != group)
                    continue;
                expected.append(numbers.at(record));
                sum += numbers.at(record).toInt();
            }
            expected.append(QStringLiteral("súčet %1").arg(sum));
            all += sum;
        }
        expected.append(QStringLiteral("spolu %1").arg(all));
        QStringList texts;
        const QVector<Mark> marks = printer.marks(Mark::Text);
        for (const Mark &mark : marks)
            texts.append(mark.text);
        QCOMPARE(texts, expected);
    }
}

void TestRptLayout::manyGroupsTakeLittleTime()
{
    ReportRun run(page(band("DataGroupHeader", 4, QString(), "groupingField=\"[g]\"")
                       + band("MasterData", 1, label("[n]", 0, 0, 50, 1))
                       + band("DataGroupFooter", 4, label("<Sum([n])>"), "showInGroup=\"1\"")));
    constexpr int records = 10000;
    constexpr int groupCount = 500;
    QStringList groups;
    QStringList numbers;
    for (int record = 0; record < records; ++record) {
        groups.append(QString::number(record % groupCount));
        numbers.append(QString::number(record));
    }
    run.counts = {{1, records}};
    run.lists = {{"g", groups}, {"n", numbers}};
    RecordingPrinter printer;
    run.engine.printPreview(&printer); // with a scan of all values for each record this would take minutes
    const QStringList texts = printer.texts();
    QCOMPARE(texts.size(), records + groupCount);
}

QTEST_MAIN(TestRptLayout)
#include "tst_rptlayout.moc"
