#pragma once

#include <QObject>

/// The numbers of the report format, known to Qt's meta-object system by their names: the names are those of the
/// template's attributes, spelt as the format spells them.
namespace Rpt {
Q_NAMESPACE

/// Kinds of bands. The order of the numbers is not the order in print.
enum BandType {
    PageHeader = 1, ///< top of every page
    ReportTitle = 2, ///< once, at the head of a page definition's first page
    DataGroupHeader = 3, ///< head of a group; its presence switches grouping on
    MasterHeader = 4, ///< head of the data rows
    MasterData = 5, ///< one row for each record
    MasterFooter = 6, ///< end of the data rows
    DataGroupFooter = 7, ///< end of a group
    ReportSummary = 8, ///< once, after all data
    PageFooter = 9, ///< bottom of every page
};
Q_ENUM_NS(BandType)

/// Kinds of fields.
enum FieldType {
    label = 0, ///< text
    labelImage = 1, ///< image that the caller gives
    textRich = 2, ///< HTML text
    image = 3, ///< image of the template
    diagram = 4, ///< chart
    reactangle = 5,
    roundedReactangle = 6,
    circle = 7, ///< ellipse
    triangle = 8,
    rhombus = 9,
    line = 10, ///< line with optional arrows
    barcode = 11, ///< paints nothing: there is no encoder
    DatabaseImage = 12, ///< image of the SQL data source
    crossTab = 13, ///< table of generated cells
};
Q_ENUM_NS(FieldType)

/// Where a print goes.
enum PrintMode {
    PrinterMode = 0, ///< printer or preview
    PdfMode = 1,
    HtmlMode = 2, ///< text gathered field by field; pages do not break
    SpreadsheetMode = 3, ///< reserved; nothing sets it
};

} // namespace Rpt
