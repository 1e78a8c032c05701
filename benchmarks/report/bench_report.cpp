// The report engine against a bare painter: rows of five columns with page header, footer and page numbers, to PDF.
// The floor is a QPainter on the same printer that draws the same texts at the same places. Figures are processor time,
// medians of several runs. Targets: at 10,000 and 50,000 rows at most 1.6 times the floor; the time of a row at 50,000
// within 10 % of that at 10,000; at most 300 bytes more memory a row than the floor. A template rich in stripes,
// conditions, highlighting and totals: at 5,000 rows at most 2.5 times its floor.
#include "report/rptengine.h"
#include "support/figures.h"
#include "support/processcost.h"

#include <QApplication>
#include <QDomDocument>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

namespace {

constexpr int columns = 5;
constexpr int columnWidth = 150;
constexpr int rowHeight = 20;
constexpr int headerHeight = 30;
constexpr int footerHeight = 30;
constexpr int usableHeight = 1188 - 80;
constexpr int usableWidth = 840 - 80;
constexpr double plainLimit = 1.6;
constexpr double richLimit = 2.5;
constexpr double driftLimit = 1.1;
constexpr double memoryLimit = 300;

QString label(const QString &value, int left, int width, const QString &more = QString())
{
    return QStringLiteral(
               "<TContainerField type=\"label\" value=\"%1\" left=\"%2\" top=\"0\" width=\"%3\" height=\"%4\" "
               "fontSize=\"9\" fontFamily=\"DejaVu Sans\" fontColor=\"rgba(0,0,0,255)\" "
               "backgroundColor=\"rgba(255,255,255,255)\" borderTop=\"rgba(255,255,255,255)\" "
               "borderBottom=\"rgba(255,255,255,255)\" borderLeft=\"rgba(255,255,255,255)\" "
               "borderRight=\"rgba(255,255,255,255)\" aligmentV=\"vCenter\" textWrap=\"0\" %5/>")
        .arg(value)
        .arg(left)
        .arg(width)
        .arg(rowHeight)
        .arg(more);
}

QString band(const char *type, int height, const QString &fields)
{
    return QStringLiteral("<ReportBand type=\"%1\" height=\"%2\">%3</ReportBand>")
        .arg(QLatin1String(type))
        .arg(height)
        .arg(fields);
}

/// The plain template, or the one with a stripe, a condition, highlighting and totals.
QDomDocument makeTemplate(bool rich)
{
    QString row;
    if (rich)
        row += label(QString(), 0, usableWidth,
                     QStringLiteral("highlighting=\"&lt;LineNo&gt; % 2 == 0;backgroundColor=?rgba(235,235,235,255);"
                                    "fontColor=?rgba(0,0,0,255);\""));
    for (int column = 0; column < columns; ++column) {
        QString more;
        if (rich && column == 1)
            more = QStringLiteral("printing=\"[0]==0?0:1\"");
        if (rich && column == 2)
            more = QStringLiteral("highlighting=\"[2] &gt; 500;bold=?1:0;fontColor=?rgba(200,0,0,255);"
                                  "backgroundColor=?rgba(255,255,255,255);\"");
        if (rich && column > 2)
            more = QStringLiteral("format=\"N# ###,##2\" aligmentH=\"hRight\"");
        row += label(QStringLiteral("[%1]").arg(column), column * columnWidth, columnWidth, more);
    }
    QString bands = band("PageHeader", headerHeight, label(QStringLiteral("Objednávky"), 0, usableWidth))
        + band("MasterData", rowHeight, row)
        + band("PageFooter", footerHeight,
               label(QStringLiteral("strana &lt;Page&gt; / &lt;TotalPages&gt;"), 0, usableWidth));
    if (rich)
        bands += band("MasterFooter", rowHeight,
                      label(QStringLiteral("&lt;Sum([3])&gt;"), 450, columnWidth)
                          + label(QStringLiteral("&lt;Sum([4])&gt;"), 600, columnWidth));
    QDomDocument document;
    document.setContent(QStringLiteral("<Reports><Report pageWidth=\"840\" pageHeight=\"1188\" marginsLeft=\"40\" "
                                       "marginsRight=\"40\" marginsTop=\"40\" marginsBottom=\"40\">")
                        + bands + QStringLiteral("</Report></Reports>"));
    return document;
}

QString cell(int row, int column)
{
    return column == 0 ? QStringLiteral("Jedlo číslo %1").arg(row) : QString::number((row * 7 + column * 13) % 1000);
}

void setUp(QPrinter &printer, const QString &fileName)
{
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    printer.setPageSize(QPageSize(QSizeF(210, 297), QPageSize::Millimeter));
    printer.setPageMargins({10.01, 10.01, 10.01, 10.01}, QPageLayout::Millimeter);
}

/// The floor: what has to be drawn, and nothing else.
void drawBare(const QString &fileName, int rows, bool rich)
{
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, fileName);
    QPainter painter(&printer);
    const QRect area = printer.pageLayout().paintRectPixels(printer.resolution());
    const float scaleX = float(area.width()) / usableWidth;
    const float scaleY = float(area.height()) / usableHeight;
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    const int flags = Qt::AlignVCenter | Qt::TextDontClip;
    const auto draw = [&](const QString &text, int left, int width, int y, int align = 0) {
        painter.drawText(QRect(int(float(left) * scaleX) + 10, int(float(y) * scaleY),
                               int(float(width - 1) * scaleX) - 15, int(rowHeight * scaleY)),
                         flags | align, text);
    };
    const int perPage = (usableHeight - headerHeight - footerHeight - (rich ? rowHeight : 0)) / rowHeight;
    const int pages = (rows + perPage - 1) / perPage;
    for (int row = 0; row < rows; ++row) {
        const int line = row % perPage;
        if (line == 0) {
            if (row > 0)
                printer.newPage();
            draw(QStringLiteral("Objednávky"), 0, usableWidth, 0);
            draw(QStringLiteral("strana %1 / %2").arg(row / perPage + 1).arg(pages), 0, usableWidth,
                 usableHeight - footerHeight);
        }
        const int y = headerHeight + line * rowHeight;
        if (rich && row % 2 == 1)
            painter.fillRect(
                QRect(1, int(float(y) * scaleY) + 1, int((usableWidth - 1) * scaleX) - 2, int(rowHeight * scaleY) - 2),
                QColor(235, 235, 235));
        for (int column = 0; column < columns; ++column)
            draw(cell(row, column), column * columnWidth, columnWidth, y, rich && column > 2 ? Qt::AlignRight : 0);
    }
}

void drawReport(const QString &fileName, int rows, bool rich)
{
    RptEngine engine;
    engine.loadReportDocument(makeTemplate(rich));
    QObject::connect(&engine, &RptEngine::setDSInfo, [rows](DataSetInfo &info) { info.recordCount = rows; });
    QObject::connect(&engine, &RptEngine::setValue, [](int row, const QString &name, QVariant &value, int /*page*/) {
        value = cell(row, name.toInt());
    });
    engine.exportToPdf(fileName, true);
}

double measure(const QString &what, int rows, bool rich, double limit, const QString &fileName)
{
    constexpr int runs = 3;
    const ProcessCost floor = medianCost(runs, [&] { drawBare(fileName, rows, rich); });
    const ProcessCost report = medianCost(runs, [&] { drawReport(fileName, rows, rich); });
    const QString line = QStringLiteral("%1, %2 rows: %3 ms, floor %4 ms, ratio")
                             .arg(what)
                             .arg(rows)
                             .arg(report.milliseconds, 0, 'f', 0)
                             .arg(floor.milliseconds, 0, 'f', 0);
    printAgainstLimit(line, report.milliseconds / floor.milliseconds, limit, QStringLiteral("times"));
    if (!rich)
        printAgainstLimit(QStringLiteral("%1, %2 rows: memory over the floor's").arg(what).arg(rows),
                          (report.megabytes - floor.megabytes) * 1024 * 1024 / rows, memoryLimit,
                          QStringLiteral("bytes a row"));
    return report.milliseconds / rows;
}

/// 100,000 records in 1,000 groups, each with its total, and a total of all: what grows with the square of the records
/// would take hours.
void measureGroups(const QString &fileName)
{
    constexpr int records = 100000;
    constexpr int groups = 1000;
    QDomDocument document;
    document.setContent(QStringLiteral("<Reports><Report pageWidth=\"840\" pageHeight=\"1188\" marginsLeft=\"40\" "
                                       "marginsRight=\"40\" marginsTop=\"40\" marginsBottom=\"40\">"
                                       "<ReportBand type=\"DataGroupHeader\" height=\"20\" groupingField=\"[g]\"/>")
                        + band("MasterData", rowHeight, label(QStringLiteral("[n]"), 0, columnWidth))
                        + QStringLiteral("<ReportBand type=\"DataGroupFooter\" height=\"20\" showInGroup=\"1\">")
                        + label(QStringLiteral("&lt;Sum([n])&gt;"), 0, columnWidth) + QStringLiteral("</ReportBand>")
                        + band("ReportSummary", rowHeight, label(QStringLiteral("&lt;Sum([n])&gt;"), 0, columnWidth))
                        + QStringLiteral("</Report></Reports>"));
    const ProcessCost cost = medianCost(1, [&] {
        RptEngine engine;
        engine.loadReportDocument(document);
        QObject::connect(&engine, &RptEngine::setDSInfo, [](DataSetInfo &info) { info.recordCount = records; });
        QObject::connect(&engine, &RptEngine::setValue,
                         [](int row, const QString &name, QVariant &value, int /*page*/) {
                             value = name == QLatin1String("g") ? row % groups : row;
                         });
        engine.exportToPdf(fileName, true);
    });
    printLine(QStringLiteral("100,000 records in 1,000 groups: %1 ms").arg(cost.milliseconds, 0, 'f', 0));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("report.pdf"));
    const double small = measure(QStringLiteral("plain"), 10000, false, plainLimit, fileName);
    const double large = measure(QStringLiteral("plain"), 50000, false, plainLimit, fileName);
    printAgainstLimit(QStringLiteral("time of a row at 50,000 against 10,000"), large / small, driftLimit,
                      QStringLiteral("times"));
    measure(QStringLiteral("rich"), 5000, true, richLimit, fileName);
    measureGroups(fileName);
    return 0;
}
