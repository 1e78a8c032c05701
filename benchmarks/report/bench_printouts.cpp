// The month of a branch with 2,000 employees, printed to PDF from its template as the board prints it, against a bare
// painter: a QPainter on the same printer that draws the same stripes, texts, heads and footers at the same places.
// Processor time, medians of several runs, each in a process of its own. Target: at most 3 times the floor.
#include "exports/boardreport.h"
#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptenums.h"
#include "report/rptfieldobject.h"
#include "support/figures.h"
#include "support/processcost.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QStandardItemModel>
#include <QTemporaryDir>

namespace {

constexpr int employees = 2000;
constexpr double limit = 3;
const char templateFile[] = ":/branchmonthlyreport.xml";

/// Rows as `OrderModel::branchDateOrders` gives them.
void fill(QStandardItemModel &rows)
{
    for (int row = 0; row < employees; ++row) {
        QList<QStandardItem *> cells;
        for (const QString &text :
             {QString::number(1000 + row), QStringLiteral("%1").arg(row, 6, 10, QLatin1Char('0')),
              QStringLiteral("Bartolomejčíková %1 Maximiliána").arg(row), QString::number(row % 40),
              QString::number(row % 40), QString::number(row % 40 * 4.35, 'f', 2)})
            cells.append(new QStandardItem(text));
        rows.appendRow(cells);
    }
}

void printReport(const QAbstractItemModel &rows, const QString &fileName)
{
    const double total = BoardReport::monthlyTotal(rows);
    RptEngine engine;
    QObject::connect(&engine, &RptEngine::setDSInfo,
                     [&rows](DataSetInfo &info) { info.recordCount = rows.rowCount(); });
    QObject::connect(&engine, &RptEngine::setValue, [&](int row, const QString &name, QVariant &value, int /*page*/) {
        if (name == QLatin1String("header"))
            value = QStringLiteral("november 2026, Podhradie - výroba");
        else
            BoardReport::setValue(&rows, total, row, name, value);
    });
    if (!engine.loadReportFile(QLatin1String(templateFile)))
        qFatal("no template");
    engine.exportToPdf(fileName, true);
}

/// The floor: the places and fonts of the template, and texts that are there already.
class BarePrint {
public:
    BarePrint(const QAbstractItemModel &rows, const QString &fileName)
        : m_rows(rows)
    {
        m_template.loadReportFile(QLatin1String(templateFile));
        m_page = m_template.pages().first();
        m_logo = QImage::fromData(m_page->findFieldByName(QStringLiteral("logo"))->picture);
        m_printer.setOutputFormat(QPrinter::PdfFormat);
        m_printer.setOutputFileName(fileName);
        m_printer.setPageSize(QPageSize(QSizeF(210, 297), QPageSize::Millimeter));
        m_printer.setPageMargins({5.01, 10.01, 5.01, 5.01}, QPageLayout::Millimeter);
        m_painter.begin(&m_printer);
        const QRect area = m_printer.pageLayout().paintRectPixels(m_printer.resolution());
        m_scaleX = float(area.width()) / 800;
        m_scaleY = float(area.height()) / usableHeight;
    }

    void draw()
    {
        const RptBandObject &data = *band(Rpt::MasterData);
        int y = 0;
        drawBand(*band(Rpt::ReportTitle), y);
        startPage(y += band(Rpt::ReportTitle)->realHeight);
        y += band(Rpt::MasterHeader)->realHeight;
        const int bottom =
            usableHeight - band(Rpt::PageFooter)->realHeight - band(Rpt::MasterFooter)->realHeight - data.realHeight;
        for (m_row = 0; m_row < m_rows.rowCount(); ++m_row) {
            if (y > bottom) {
                m_printer.newPage();
                startPage(0);
                y = band(Rpt::MasterHeader)->realHeight;
            }
            drawBand(data, y);
            y += data.realHeight;
        }
        drawBand(*band(Rpt::MasterFooter), y);
        m_painter.end();
    }

private:
    static constexpr int usableHeight = 1188 - 60;

    const RptBandObject *band(int type) const { return m_page->findBand(type, 1); }

    void startPage(int y)
    {
        drawBand(*band(Rpt::MasterHeader), y);
        drawBand(*band(Rpt::PageFooter), usableHeight - band(Rpt::PageFooter)->realHeight);
    }

    void drawBand(const RptBandObject &band, int y)
    {
        for (const RptFieldObject *field : band.fieldList) {
            const QRect place(int(float(field->rect.left()) * m_scaleX), int(float(field->rect.top() + y) * m_scaleY),
                              int(float(field->rect.width() - 1) * m_scaleX),
                              int(float(field->rect.height()) * m_scaleY));
            if (field->fieldType == Rpt::image) {
                m_painter.drawImage(place, m_logo);
                continue;
            }
            const QColor fill = field->name == QLatin1String("bgColor") && m_row % 2 == 1
                ? QColor(235, 235, 235)
                : field->defaultBackgroundColor;
            if (fill != Qt::white && fill.alpha() > 0)
                m_painter.fillRect(place.adjusted(1, 1, -1, -1), fill);
            if (field->value.isEmpty())
                continue;
            m_painter.setFont(field->font);
            m_painter.setPen(field->defaultFontColor);
            m_painter.drawText(place.adjusted(10, 0, -5, 0), int(field->aligment) | Qt::TextDontClip | Qt::TextWordWrap,
                               textOf(*field));
        }
    }

    QString textOf(const RptFieldObject &field) const
    {
        const bool isCell = field.value.size() == 3 && field.value.startsWith(QLatin1Char('['));
        return isCell ? m_rows.index(m_row, field.value.at(1).digitValue()).data().toString() : field.value;
    }

    const QAbstractItemModel &m_rows;
    RptEngine m_template;
    const RptPageObject *m_page = nullptr;
    QImage m_logo;
    QPrinter m_printer{QPrinter::HighResolution};
    QPainter m_painter;
    float m_scaleX = 0;
    float m_scaleY = 0;
    int m_row = 0;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("month.pdf"));
    QStandardItemModel rows;
    fill(rows);
    constexpr int runs = 5;
    const ProcessCost floor = medianCost(runs, [&] { BarePrint(rows, fileName).draw(); });
    const ProcessCost report = medianCost(runs, [&] { printReport(rows, fileName); });
    printAgainstLimit(QStringLiteral("a month of %1 employees: %2 ms, floor %3 ms, ratio")
                          .arg(employees)
                          .arg(report.milliseconds, 0, 'f', 0)
                          .arg(floor.milliseconds, 0, 'f', 0),
                      report.milliseconds / floor.milliseconds, limit, QStringLiteral("times"));
    return 0;
}
