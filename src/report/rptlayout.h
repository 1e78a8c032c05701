#pragma once

#include "report/rptfieldpainter.h"

#include <QList>
#include <QtGlobal>

class RptBandObject;
class RptEngine;
class RptPageObject;
class QPrinter;
struct RptPrintState;

/// Turns the bands of a template into pages. One routine walks the bands in the order of print with a running vertical
/// position `y`, in template units from the top margin, and runs twice: without drawing it counts pages, measures rows
/// and gathers values; then it draws. Both passes take the same decisions, so the number of pages and the totals are
/// right from the first page on. A missing band does nothing.
class RptLayout {
public:
    /// Prints `engine`'s pages on `printer`; both outlive it.
    RptLayout(RptEngine &engine, QPrinter *printer);

    /// Both passes, on a painter that the caller has begun.
    void print();

    /// Paper, margins and scales of a page definition; with a border, its frame.
    void setPageGeometry(int pageIndex);
    /// Moves on to the next page, with its header, title and footer. In HTML `y` runs on, else it becomes 0.
    void beginNextPage(qint64 &y, bool draw, bool withTitle);
    void paintPageFooter(bool draw);

private:
    struct Reserves {
        qint64 footer;
        qint64 master;
    };

    RptPageObject &page() const;
    RptBandObject *band(int type, int bandNo = 1) const;
    qint64 usableHeight() const;
    Reserves reserves(int bandNo) const;
    void takePageOptions(const RptPageObject &page);
    void setUpPrinter(const RptPageObject &page);
    void drawPageBorder(const RptPageObject &page);
    void turnPainter(int orientation);

    void runPass(bool draw);
    void paintPageBody(bool draw, int pageIndex);
    void paintPageBackground(bool draw);
    void paintBand(RptBandObject *band, qint64 y, bool draw);
    void paintPageHeader(qint64 &y, bool draw);
    void paintReportTitle(qint64 &y, bool draw);
    void paintMasterHeader(qint64 &y, bool draw, int bandNo);
    void paintMasterFooter(qint64 &y, bool draw, int bandNo);
    void paintReportSummary(qint64 &y, bool draw);
    void paintDataBands(qint64 &y, bool draw, int pageIndex);
    void paintGroups(RptBandObject &groupBand, qint64 &y, bool draw, int pageIndex);
    void paintGroup(RptBandObject &groupBand, int record, qint64 &y, bool draw, int pageIndex);
    void paintGroupBand(RptBandObject *band, qint64 &y, bool draw);
    void collectGroupingValues(const RptBandObject &groupBand, int pageIndex);
    void paintMasterRows(qint64 &y, bool draw, int pageIndex, int bandNo);
    void paintMasterRow(RptBandObject &band, qint64 &y, bool draw);
    void collectBandValues(const RptBandObject &band);
    void paintBandFields(RptBandObject &band, qint64 y, bool draw);

    RptEngine &m_engine;
    RptPrintState &m_state;
    QPrinter *m_printer;
    RptFieldPainter m_fields;
};
