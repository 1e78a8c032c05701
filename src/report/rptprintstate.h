#pragma once

#include "report/rptenums.h"

#include <QPrinter>
#include <QString>
#include <QStringList>

class QPainter;
class QPixmap;

/// Where a print stands, shared by the parts of the engine. Lengths of the page are template units.
struct RptPrintState {
    const QPixmap *backgroundPixmap = nullptr; ///< watermark of the current page, or null
    QPrinter *printer = nullptr;
    QPainter *painter = nullptr;
    int recNo = 0; ///< current record, from 0
    int lineNo = 0; ///< running row number inside a group
    int pageReport = 0; ///< index of the current page definition
    float scaleY = 1; ///< device units of a template unit
    float scaleX = 1;
    int pageHeight = 0;
    int pageWidth = 0;
    int marginLeft = 0;
    int marginRight = 0;
    int marginTop = 0;
    int marginBottom = 0;
    int curPage = 0; ///< from 1
    int totalPage = 0; ///< pages of the first pass; of the print before while that one runs
    int orientation = 0; ///< that the painter is set up for: 0 portrait, 1 landscape
    float watermarkOpacity = 1;
    int fromPage = 0; ///< pages to print; 0 to 0 stands for all
    int toPage = 0;
    QStringList groupValues; ///< that are printed already
    QString htmlBody;
    bool recordsValues = true; ///< whether anything of the template asks for the values of all records
    int printMode = Rpt::PrinterMode;
    int printerMode = QPrinter::HighResolution; ///< for printers that the engine makes

    /// `flag`, if the page is among those to print.
    bool isPageSelected(bool flag, int page) const
    {
        return flag && fromPage <= page && (toPage == 0 || page <= toPage);
    }
};
