#pragma once

#include "report/datasetinfo.h"
#include "report/graphdatalist.h"
#include "report/rptpageobject.h"
#include "report/rpttext.h"

#include <QDomDocument>
#include <QImage>
#include <QList>
#include <QObject>
#include <QVariant>

#include <memory>

class QAction;
class QPainter;
class QPrintPreviewDialog;
class QPrintPreviewWidget;
class QPrinter;
class QWidget;
class RptBandObject;
class RptFieldObject;
class RptLayout;
struct RptPrintState;

namespace QtCharts {
class QChart;
}

/// The report engine: loads a template, asks its caller for every value by signal, and prints to the printer by way of
/// Qt's preview, to PDF or to HTML.
///
/// Order of use: make an engine, load a template, connect the signals directly (their references are valid only during
/// the call), then `startPrint`, `exportToPdf` or `exportToHtml`. In `setDSInfo` the caller sets the number of records;
/// in `setValue` it gives values by name and record. Each callback comes many times for the same arguments, once in
/// each pass and again with each repaint of the preview: it must only read the caller's data.
///
/// A print has two passes that take the same decisions: the first counts pages and gathers values, the second paints.
/// Pages are rebuilt from the template for each print, so a callback's change of a field lasts for one print. One print
/// runs at a time in the process, on the GUI thread.
///
/// Failures are logged and returned; no box is shown.
class RptEngine : public QObject, private RptValueSource {
    Q_OBJECT

public:
    /// `parent`, if it is a widget, becomes the parent of the preview and the file dialogs.
    explicit RptEngine(QObject *parent = nullptr);
    /// Deletes the pages, and the printer and painter that were made here; those set from outside stay.
    ~RptEngine() override;

    /// Loads a template from a file or resource. False for a file that cannot be read, without a line in the log, and
    /// for one that is not well-formed or is refused by `isTemplateSound`, with the warning "Report file not found";
    /// the template and the pages are then as before.
    bool loadReportFile(const QString &fileName);
    /// Takes a template; true.
    bool loadReportDocument(const QDomDocument &document);

    /// Sets where the records of a page definition come from, until another template is loaded. An index outside the
    /// template is ignored. While `active`, and with a statement, it goes before the template's own data source.
    void setSqlConnection(int page, bool active, const QString &name, const QString &dbType, const QString &dbName,
                          const QString &dbHost, const QString &dbUser, const QString &dbPassword, int dbPort,
                          const QString &dbConnectionName, const QString &sqlQuery, const QString &dbCoding,
                          const QString &charsetCoding);
    /// An empty record for an index outside the template.
    RptSqlConnection sqlConnection(int page) const;
    void setSqlActive(int page, bool active);
    /// Runs this statement instead of every SQL source's own; an empty one ends that.
    void overrideSqlQuery(const QString &statement);

    /// The `QPrinter::PrinterMode` of printers made from now on; any other number stands for `HighResolution`.
    void setPrinterMode(int mode);
    /// Take a painter or printer from outside, which outlives the engine; false when there is one already.
    bool setPainter(QPainter *painter);
    bool setPrinter(QPrinter *printer);

    /// Records of a data set of the last print, 0 for an unknown one. `dataSetNo` counts from 1.
    int recordCount(int reportPage, int dataSetNo) const;
    void setRecordCount(int reportPage, int dataSetNo, int count);

    /// The page definitions as they stand; the engine's.
    const QList<RptPageObject *> &pages() const { return m_pageList; }

    /// See `RptText`.
    QString expandText(const RptBandObject *band, const QString &text, bool expressionMode, bool firstPass,
                       const QString &formatString);
    bool fieldIsPrinted(const RptFieldObject &field);
    QVariant highlightValue(const RptFieldObject &field, RptAspect aspect);

    /// Prints by way of the preview, which blocks until it is closed, or at once with `direct`. An unknown printer's
    /// name gives way to the default printer's.
    void startPrint(bool fitToWidth, bool direct, const QString &printerName);
    /// Prints to a PDF file and, unless told not to, opens it. The printer keeps that output afterwards: what is
    /// printed from the preview then goes into the file as well. A file that cannot be written is not told.
    void exportToPdf(const QString &fileName, bool dontOpen);
    /// Prints to an HTML file, in UTF-8, and, if told so, opens it. Nothing happens, silently, when the file cannot be
    /// opened. One that cannot be written to its end is told in the log and not opened; an older file then stays.
    void exportToHtml(const QString &fileName, bool open);

signals:
    /// A data token's value is wanted: that of the name without brackets, for the record from 0, on the page definition
    /// from 0. An invalid one is an empty text. Not asked while the page definition has an SQL source.
    void setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage);
    /// A field is about to be measured or painted, and may be changed.
    void setField(RptFieldObject &fieldObject);
    /// The image of a `labelImage` field is wanted, in the same way.
    void setValueImage(const int recNo, const QString paramName, QImage &paramValue, const int reportPage);
    /// A chart's data are about to be painted, and may be changed.
    void setValueDiagram(GraphDataList &data);
    /// A chart is about to be painted, and may be changed.
    void setChart(RptFieldObject &fieldObject, QtCharts::QChart &chart);
    /// The painting pass has moved on to a page.
    void newPage(int page);
    /// The number of a data set's records is wanted.
    void setDSInfo(DataSetInfo &dsInfo);

public slots:
    /// Runs both passes on the printer.
    void printPreview(QPrinter *printer);

private slots:
    /// Asks for a file and exports to it, by the object name of the sender.
    void exportTo();

protected:
    /// Opens the preview on its first page.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class RptLayout;
    friend class RptFieldPainter;

    RptTokenValue tokenValue(const QString &token) override;
    /// The image of a field's token: from the caller, and from the SQL source, null without one.
    QImage userImage(const QString &token);
    QImage databaseImage(const QString &token);
    /// Makes the pages from the template.
    void readPages();
    /// Makes them anew for a print. What was set by `setSqlConnection` stays; the current page is the first one again,
    /// so that a print does not depend on the one before.
    void rebuildPages();
    /// Asks the caller for the data sets of a page definition, one for each number of its data bands from 1 up.
    void collectDataSets(int pageIndex);
    /// Opens the SQL source of a page definition, if there is one.
    void openDataSource(int pageIndex);
    RptSql *openSql(const RptSqlConnection &connection);
    /// That of the current page definition, or null.
    RptSql *sqlSource() const;
    /// Make what is missing.
    void needPrinter();
    void needPainter();
    /// Prints for the sake of the HTML text alone.
    void paintNowhere();
    /// Ends what the painter began on the printer. One that refused the painter, for want of an output, counts as
    /// active all the same, and would take no other output from then on; it is freed.
    void endPainting(QPrinter *printer);
    void choosePrinter(const QString &name);
    QWidget *parentWidget() const;
    QString askFileName(const QString &filter) const;
    QPrintPreviewDialog *makePreview(bool fitToWidth);
    void addExportActions(QPrintPreviewDialog *preview);

    QList<RptPageObject *> m_pageList;
    QDomDocument m_xmlDoc;
    QList<DataSetInfo> m_dataSetList;
    QString m_sqlQueryOverride;
    std::unique_ptr<QPrinter> m_ownPrinter; ///< made here; outlived by the painter on it
    std::unique_ptr<QPainter> m_ownPainter;
    std::unique_ptr<RptPrintState> m_state;
    RptText m_text;
    QPrintPreviewWidget *m_previewWidget = nullptr;
    QList<QAction *> m_previewActions;
};
