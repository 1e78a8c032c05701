#include "report/rptlayout.h"

#include "report/deviceunits.h"
#include "report/rptattributes.h"
#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"
#include "report/rptprintstate.h"
#include "report/rptvalues.h"

#include <QMetaMethod>
#include <QPainter>

#include <algorithm>

namespace {

/// Template units are quarters of a millimetre.
constexpr int unitsOfMillimetre = 4;
/// The fraction of a quarter is dropped.
constexpr int wholeMillimetres(int units)
{
    return units / unitsOfMillimetre;
}

/// Added to each margin in millimetres; templates are laid out with it.
constexpr double marginExcess = 0.01;
/// How far a page's frame lies within the paper, in device units.
constexpr int borderInset = 92;
constexpr int borderShrink = 192;
constexpr int borderPenFactor = 5;
constexpr double landscapeTurn = 90.0;
/// Numbers of data sets that are printed: 1 to 5.
constexpr int lastBandNo = 5;

/// Whether a text asks for the values of all records: an aggregate or the number of lines.
bool usesValues(const QString &text)
{
    for (const char *word : {"sum(", "avg(", "count(", "max(", "min(", "<LineCount>"}) {
        if (text.contains(QLatin1String(word), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

/// Whether anything of a template does, its groups included. Values of a hundred thousand records that nobody asks for
/// would take more memory than the whole print.
bool usesValues(const QList<RptPageObject *> &pages)
{
    for (const RptPageObject *page : pages) {
        for (const RptBandObject *band : page->bandList) {
            if (band->type == Rpt::DataGroupHeader)
                return true;
            const auto asks = [](const RptFieldObject *field) {
                return usesValues(field->value) || usesValues(field->printing) || usesValues(field->highlighting);
            };
            if (std::any_of(band->fieldList.cbegin(), band->fieldList.cend(), asks))
                return true;
        }
    }
    return false;
}

} // namespace

void RptEngine::printPreview(QPrinter *printer)
{
    if (m_pageList.isEmpty())
        return;
    RptLayout layout(*this, printer);
    layout.setPageGeometry(0);
    needPainter();
    m_state->painter->begin(printer);
    m_state->fromPage = printer->fromPage();
    m_state->toPage = printer->toPage();
    RptValues::instance().clear();
    rebuildPages();
    m_dataSetList.clear();
    // A caller that may change a field may give it an aggregate.
    m_state->recordsValues = isSignalConnected(QMetaMethod::fromSignal(&RptEngine::setField)) || usesValues(m_pageList);
    layout.print();
    endPainting(printer);
}

RptLayout::RptLayout(RptEngine &engine, QPrinter *printer)
    : m_engine(engine)
    , m_state(*engine.m_state)
    , m_printer(printer)
    , m_fields(engine, *this)
{
}

RptPageObject &RptLayout::page() const
{
    return *m_engine.m_pageList.at(m_state.pageReport);
}

RptBandObject *RptLayout::band(int type, int bandNo) const
{
    return page().findBand(type, bandNo);
}

qint64 RptLayout::usableHeight() const
{
    return qint64(m_state.pageHeight) - m_state.marginBottom - m_state.marginTop;
}

/// What a row leaves free below itself. The page footer is looked up with the number of the data set, so for one above
/// 1 there is normally none.
RptLayout::Reserves RptLayout::reserves(int bandNo) const
{
    const RptBandObject *footer = band(Rpt::PageFooter, bandNo);
    const RptBandObject *master = band(Rpt::MasterFooter, bandNo);
    return {footer ? footer->realHeight : 0, master ? master->realHeight : 0};
}

void RptLayout::print()
{
    m_state.curPage = 1;
    runPass(false);
    m_state.orientation = 0;
    if (m_state.painter->isActive())
        m_state.painter->resetTransform();
    m_state.curPage = 1;
    runPass(true);
}

void RptLayout::runPass(bool draw)
{
    for (int pageIndex = 0; pageIndex < m_engine.m_pageList.size(); ++pageIndex) {
        if (!draw) {
            m_engine.collectDataSets(pageIndex);
            m_engine.openDataSource(pageIndex);
        }
        RptValues::instance().setGroupRecordIndexes({});
        m_state.pageReport = pageIndex;
        m_state.recNo = 0;
        paintPageBody(draw, pageIndex);
        if (!draw)
            m_state.totalPage = m_state.curPage;
    }
}

void RptLayout::paintPageBody(bool draw, int pageIndex)
{
    const bool active = m_state.painter->isActive();
    if (active) {
        m_state.painter->resetTransform();
        m_state.painter->save();
    }
    setPageGeometry(pageIndex);
    qint64 y = 0;
    if (pageIndex < 1) {
        paintPageBackground(draw);
        paintPageHeader(y, draw);
        paintReportTitle(y, draw);
    } else {
        beginNextPage(y, draw, true);
    }
    paintDataBands(y, draw, pageIndex);
    paintReportSummary(y, draw);
    if (active)
        m_state.painter->restore();
}

void RptLayout::setPageGeometry(int pageIndex)
{
    const RptPageObject &definition = *m_engine.m_pageList.at(pageIndex);
    takePageOptions(definition);
    if (m_printer->printerState() != QPrinter::Active)
        setUpPrinter(definition);
    if (definition.border && m_state.painter && m_state.painter->isActive())
        drawPageBorder(definition);
    if (m_state.orientation != definition.orientation)
        turnPainter(definition.orientation);

    QSize area = m_printer->pageLayout().paintRectPixels(m_printer->resolution()).size();
    if (definition.orientation == 1)
        area.transpose();
    m_state.scaleY = float(area.height()) / float(usableHeight());
    m_state.scaleX = float(area.width()) / float(qint64(m_state.pageWidth) - m_state.marginLeft - m_state.marginRight);
}

void RptLayout::takePageOptions(const RptPageObject &definition)
{
    m_state.pageHeight = definition.pageHeight;
    m_state.pageWidth = definition.pageWidth;
    m_state.marginLeft = definition.marginsLeft;
    m_state.marginRight = definition.marginsRight;
    m_state.marginTop = definition.marginsTop;
    m_state.marginBottom = definition.marginsBottom;
    m_state.backgroundPixmap = definition.watermark ? &definition.watermarkPixmap : nullptr;
    if (definition.watermark)
        m_state.watermarkOpacity = float(definition.watermarkOpacity);
}

void RptLayout::setUpPrinter(const RptPageObject &definition)
{
    QSizeF paper(wholeMillimetres(definition.pageWidth), wholeMillimetres(definition.pageHeight));
    if (definition.orientation == 1)
        paper.transpose();
    m_printer->setPageSize(QPageSize(paper, QPageSize::Millimeter));
    const auto margin = [](int units) { return wholeMillimetres(units) + marginExcess; };
    m_printer->setPageMargins({margin(definition.marginsLeft), margin(definition.marginsTop),
                               margin(definition.marginsRight), margin(definition.marginsBottom)},
                              QPageLayout::Millimeter);
}

void RptLayout::drawPageBorder(const RptPageObject &definition)
{
    QPainter &painter = *m_state.painter;
    const int resolution = m_printer->resolution();
    const QRect pageRect = m_printer->pageLayout().paintRectPixels(resolution);
    const QRect paperRect = m_printer->pageLayout().fullRectPixels(resolution);
    QRect frame;
    frame.setLeft(borderInset - pageRect.left());
    frame.setTop(borderInset - pageRect.top());
    frame.setRight(frame.left() - borderShrink + (paperRect.right() - paperRect.left()));
    frame.setBottom(frame.top() - borderShrink + (paperRect.bottom() - paperRect.top()));
    const QPen before = painter.pen();
    painter.setPen(QPen(definition.borderColor, double(definition.borderWidth) * borderPenFactor,
                        RptAttributes::penStyle(definition.borderStyle)));
    painter.drawRect(frame);
    painter.setPen(before);
}

void RptLayout::turnPainter(int orientation)
{
    m_state.orientation = orientation;
    if (!m_state.painter || !m_state.painter->isActive())
        return;
    m_state.painter->resetTransform();
    if (orientation != 1)
        return;
    m_state.painter->rotate(landscapeTurn);
    m_state.painter->translate(0, -m_state.painter->viewport().width());
}

void RptLayout::paintPageBackground(bool draw)
{
    QPainter &painter = *m_state.painter;
    if (!draw || !painter.isActive())
        return;
    painter.setBackgroundMode(Qt::TransparentMode);
    if (!m_state.backgroundPixmap)
        return;
    painter.setOpacity(double(m_state.watermarkOpacity));
    // The left and the top margin count twice, and the others not at all: watermarks are made for that.
    const auto extent = [](int length, int margin, float scale) {
        return deviceUnits(double(float(length) * scale - 2 * float(margin) * scale), 1);
    };
    painter.drawPixmap(0, 0, extent(m_state.pageWidth, m_state.marginLeft, m_state.scaleX),
                       extent(m_state.pageHeight, m_state.marginTop, m_state.scaleY), *m_state.backgroundPixmap);
    painter.setOpacity(1.0);
}

void RptLayout::beginNextPage(qint64 &y, bool draw, bool withTitle)
{
    const int next = m_state.curPage + 1;
    if (draw) {
        const bool isSelected = m_state.curPage >= m_state.fromPage && next >= m_state.fromPage
            && (next <= m_state.toPage || m_state.toPage == 0);
        if (isSelected) {
            m_printer->newPage();
            paintPageBackground(true);
        }
    }
    m_state.curPage = next;
    if (draw)
        emit m_engine.newPage(next);
    if (m_state.printMode != Rpt::HtmlMode && m_state.printMode != Rpt::SpreadsheetMode)
        y = 0;
    paintPageHeader(y, draw);
    if (withTitle)
        paintReportTitle(y, draw);
    paintPageFooter(draw);
}

void RptLayout::paintBand(RptBandObject *band, qint64 y, bool draw)
{
    if (draw && m_state.isPageSelected(true, m_state.curPage))
        paintBandFields(*band, y, true);
}

void RptLayout::paintPageHeader(qint64 &y, bool draw)
{
    RptBandObject *header = band(Rpt::PageHeader);
    if (!header || m_state.printMode == Rpt::HtmlMode)
        return;
    paintBand(header, y, draw);
    y += header->realHeight;
}

void RptLayout::paintReportTitle(qint64 &y, bool draw)
{
    RptBandObject *title = band(Rpt::ReportTitle);
    if (!title)
        return;
    paintBand(title, y, draw);
    y += title->realHeight;
}

void RptLayout::paintPageFooter(bool draw)
{
    RptBandObject *footer = band(Rpt::PageFooter);
    if (footer && m_state.printMode != Rpt::HtmlMode)
        paintBand(footer, usableHeight() - footer->realHeight, draw);
}

void RptLayout::paintMasterHeader(qint64 &y, bool draw, int bandNo)
{
    RptBandObject *header = band(Rpt::MasterHeader, bandNo);
    if (!header)
        return;
    paintBand(header, y, draw);
    y += header->realHeight;
}

/// The tests of this band and of the summary leave no room for the page footer, so the two may overlap it.
void RptLayout::paintMasterFooter(qint64 &y, bool draw, int bandNo)
{
    RptBandObject *footer = band(Rpt::MasterFooter, bandNo);
    if (!footer)
        return;
    if (y > usableHeight() - footer->realHeight)
        beginNextPage(y, draw, false);
    paintBand(footer, y, draw);
    y += footer->realHeight;
}

void RptLayout::paintReportSummary(qint64 &y, bool draw)
{
    RptBandObject *summary = band(Rpt::ReportSummary);
    if (!summary)
        return;
    if (y + summary->realHeight > usableHeight())
        beginNextPage(y, draw, false);
    paintBand(summary, y, draw);
    y += summary->realHeight;
}

void RptLayout::paintDataBands(qint64 &y, bool draw, int pageIndex)
{
    if (pageIndex == 0) // the later definitions have it from the page that they began
        paintPageFooter(draw);
    for (int bandNo = 1; bandNo <= lastBandNo; ++bandNo) {
        m_state.recNo = 0;
        if (RptBandObject *groupBand = band(Rpt::DataGroupHeader, bandNo)) {
            paintGroups(*groupBand, y, draw, pageIndex);
            continue;
        }
        paintMasterHeader(y, draw, bandNo);
        paintMasterRows(y, draw, pageIndex, bandNo);
        paintMasterFooter(y, draw, bandNo);
    }
}

void RptLayout::paintGroups(RptBandObject &groupBand, qint64 &y, bool draw, int pageIndex)
{
    const int bandNo = groupBand.bandNo;
    RptValues &values = RptValues::instance();
    if (const RptBandObject *rows = band(Rpt::MasterData, bandNo))
        collectBandValues(*rows);
    if (values.isEmpty())
        return;
    collectGroupingValues(groupBand, pageIndex);
    m_state.groupValues.clear();
    m_state.lineNo = 0;
    const RptBandObject *header = band(Rpt::MasterHeader, bandNo);
    if (header && !header->showInGroup)
        paintMasterHeader(y, draw, bandNo);

    QSet<QString> seen;
    const QVector<RptValue> records = values.of(groupBand.groupingField, pageIndex);
    for (const RptValue &record : records) {
        const QString group = record.paramValue.toString();
        if (seen.contains(group))
            continue;
        seen.insert(group);
        values.setGroupRecordIndexes(values.recordsOf(groupBand.groupingField, pageIndex, group));
        m_state.groupValues.append(group);
        if (groupBand.startNewPage && seen.size() != 1)
            beginNextPage(y, draw, false);
        paintGroup(groupBand, record.lineIndex, y, draw, pageIndex);
    }
    // The walk ends on the group of the last record, and that one stays for the bands behind the groups.
    if (!records.isEmpty())
        values.setGroupRecordIndexes(
            values.recordsOf(groupBand.groupingField, pageIndex, records.constLast().paramValue.toString()));

    const RptBandObject *footer = band(Rpt::MasterFooter, bandNo);
    if (footer && !footer->showInGroup)
        paintMasterFooter(y, draw, bandNo);
}

/// Records the grouping value of every record.
void RptLayout::collectGroupingValues(const RptBandObject &groupBand, int pageIndex)
{
    const int count = m_engine.recordCount(pageIndex, groupBand.bandNo);
    if (pageIndex >= count)
        return; // the index against the count: for the first definition it says that there are records
    for (int record = 0; record < count; ++record) {
        m_state.recNo = record;
        m_engine.expandText(&groupBand, groupBand.groupingField, false, true, QString());
    }
}

void RptLayout::paintGroup(RptBandObject &groupBand, int record, qint64 &y, bool draw, int pageIndex)
{
    const int bandNo = groupBand.bandNo;
    m_state.recNo = record;
    if (groupBand.restartLineNumbers)
        m_state.lineNo = 0;
    paintGroupBand(&groupBand, y, draw);
    const RptBandObject *header = band(Rpt::MasterHeader, bandNo);
    if (header && header->showInGroup)
        paintMasterHeader(y, draw, bandNo);
    paintMasterRows(y, draw, pageIndex, bandNo);
    const RptBandObject *footer = band(Rpt::MasterFooter, bandNo);
    if (footer && footer->showInGroup)
        paintMasterFooter(y, draw, bandNo);
    m_state.recNo = record;
    paintGroupBand(band(Rpt::DataGroupFooter, bandNo), y, draw);
}

void RptLayout::paintGroupBand(RptBandObject *groupBand, qint64 &y, bool draw)
{
    if (!groupBand)
        return;
    const Reserves reserve = reserves(groupBand->bandNo);
    if (y + groupBand->realHeight > usableHeight() - reserve.footer - reserve.master)
        beginNextPage(y, draw, false);
    paintBand(groupBand, y, draw);
    y += groupBand->realHeight;
}

void RptLayout::paintMasterRows(qint64 &y, bool draw, int pageIndex, int bandNo)
{
    const int count = m_engine.recordCount(pageIndex, bandNo);
    RptBandObject *rows = band(Rpt::MasterData, bandNo);
    if (count < 1 || !rows)
        return;
    QList<int> group = RptValues::instance().groupRecordIndexes();
    if (group.isEmpty()) {
        for (m_state.recNo = 0; m_state.recNo < count; ++m_state.recNo)
            paintMasterRow(*rows, y, draw);
    } else {
        std::sort(group.begin(), group.end());
        group.erase(std::unique(group.begin(), group.end()), group.end());
        for (const int record : qAsConst(group)) {
            m_state.recNo = record;
            if (record >= 0 && record < count)
                paintMasterRow(*rows, y, draw);
        }
    }
    m_state.recNo = count - 1; // what follows stands on the last record, printed or not
}

void RptLayout::paintMasterRow(RptBandObject &rows, qint64 &y, bool draw)
{
    ++m_state.lineNo;
    const Reserves reserve = reserves(rows.bandNo);
    paintBandFields(rows, y, false);
    if (y + rows.height > usableHeight() - reserve.footer - reserve.master && m_state.printMode != Rpt::HtmlMode) {
        beginNextPage(y, draw, false);
        paintMasterHeader(y, draw, rows.bandNo);
    }
    if (draw && m_state.isPageSelected(true, m_state.curPage))
        paintBandFields(rows, y, true);
    else
        collectBandValues(rows);
    y += rows.height;
}

void RptLayout::collectBandValues(const RptBandObject &band)
{
    for (const RptFieldObject *field : band.fieldList) {
        if (field->fieldType == Rpt::label && m_engine.fieldIsPrinted(*field))
            m_engine.expandText(&band, field->value, false, true, QString());
    }
}

void RptLayout::paintBandFields(RptBandObject &band, qint64 y, bool draw)
{
    band.height = band.realHeight;
    for (RptFieldObject *field : qAsConst(band.fieldList)) {
        if (field->fieldType != Rpt::line)
            m_fields.measureField(*field, y);
    }
    if (!draw)
        return;
    for (RptFieldObject *field : qAsConst(band.fieldList)) {
        if (field->fieldType == Rpt::line)
            m_fields.drawLineField(*field, y);
        else
            m_fields.drawField(*field, y);
    }
}
