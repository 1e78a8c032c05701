#include "report/rptengine.h"

#include "report/rptprintstate.h"

#include <QAction>
#include <QDebug>
#include <QDesktopServices>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QPaintEngine>
#include <QPainter>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QSaveFile>
#include <QScreen>
#include <QToolBar>
#include <QUrl>

namespace {

const char pdfActionName[] = "actExpToPdf";
const char htmlActionName[] = "actExpToHtml";
const char xlsxActionName[] = "actExpToXlsx";

/// The preview's window: the screen but for a narrow rim.
QRect previewGeometry()
{
    constexpr int left = 5;
    constexpr int top = 30;
    constexpr int rim = 6;
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    return QRect(QPoint(left, top), available.bottomRight() - QPoint(rim, rim));
}

void openFile(const QString &fileName)
{
    // "file:" and the name, with what is special in a URL escaped.
    QDesktopServices::openUrl(QUrl::fromLocalFile(fileName));
}

/// Writes the file whole or not at all. A text stream would take half a write for a whole one, and `commit` alone would
/// not know of a flush that failed.
bool writeText(QSaveFile &file, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size() && file.flush() && file.error() == QFileDevice::NoError && file.commit();
}

} // namespace

QWidget *RptEngine::parentWidget() const
{
    return qobject_cast<QWidget *>(parent());
}

void RptEngine::needPrinter()
{
    if (m_state->printer)
        return;
    const int mode = m_state->printerMode;
    const bool isKnown = mode >= QPrinter::ScreenResolution && mode <= QPrinter::HighResolution;
    m_ownPrinter = std::make_unique<QPrinter>(isKnown ? QPrinter::PrinterMode(mode) : QPrinter::HighResolution);
    m_state->printer = m_ownPrinter.get();
}

void RptEngine::needPainter()
{
    if (m_state->painter)
        return;
    m_ownPainter = std::make_unique<QPainter>();
    m_state->painter = m_ownPainter.get();
}

void RptEngine::endPainting(QPrinter *printer)
{
    if (m_state->painter->isActive())
        m_state->painter->end();
    else if (printer->printerState() == QPrinter::Active && !printer->paintingActive())
        printer->paintEngine()->end();
}

void RptEngine::choosePrinter(const QString &name)
{
    if (name.isEmpty())
        return;
    m_state->printer->setPrinterName(name);
    if (!m_state->printer->isValid())
        m_state->printer->setPrinterName(QPrinterInfo::defaultPrinter().printerName());
}

void RptEngine::startPrint(bool fitToWidth, bool direct, const QString &printerName)
{
    m_state->printMode = Rpt::PrinterMode;
    needPrinter();
    choosePrinter(printerName);
    needPainter();
    if (direct) {
        printPreview(m_state->printer);
        return;
    }
    // The parent may go while the preview stands, and take both with it.
    const QPointer<RptEngine> self(this);
    const QPointer<QPrintPreviewDialog> preview(makePreview(fitToWidth));
    preview->exec();
    delete preview;
    if (!self)
        return;
    m_previewWidget = nullptr;
    m_previewActions.clear();
}

QPrintPreviewDialog *RptEngine::makePreview(bool fitToWidth)
{
    auto *preview = new QPrintPreviewDialog(m_state->printer, parentWidget(), Qt::Window);
    m_previewWidget = preview->findChild<QPrintPreviewWidget *>();
    if (fitToWidth && m_previewWidget)
        m_previewWidget->setZoomMode(QPrintPreviewWidget::FitToWidth);
    connect(preview, &QPrintPreviewDialog::paintRequested, this, &RptEngine::printPreview);
    preview->setGeometry(previewGeometry());
    m_previewActions = preview->findChildren<QAction *>();
    addExportActions(preview);
    if (m_previewWidget)
        m_previewWidget->installEventFilter(this);
    return preview;
}

void RptEngine::addExportActions(QPrintPreviewDialog *preview)
{
    const auto add = [this, toolBar = preview->findChild<QToolBar *>()](const char *name, const char *icon,
                                                                        const QString &text) {
        auto *action = new QAction(QIcon(QLatin1String(icon)), text, this);
        action->setObjectName(QLatin1String(name));
        connect(action, &QAction::triggered, this, &RptEngine::exportTo);
        if (toolBar)
            toolBar->addAction(action);
    };
    add(pdfActionName, ":/pdf.png", tr("Save as PDF"));
    add(htmlActionName, ":/html.png", tr("Save as HTML"));
}

bool RptEngine::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_previewWidget || event->type() != QEvent::Show)
        return QObject::eventFilter(watched, event);
    // Qt's own English label; under a translation of Qt, setting the page has to do.
    for (QAction *action : qAsConst(m_previewActions)) {
        if (action->text().contains(QLatin1String("Previous page"), Qt::CaseInsensitive))
            action->trigger();
    }
    m_previewWidget->setCurrentPage(0);
    return true;
}

QString RptEngine::askFileName(const QString &filter) const
{
    return QFileDialog::getSaveFileName(parentWidget(), tr("Save File"), QString(), filter);
}

void RptEngine::exportTo()
{
    const QString name = sender() ? sender()->objectName() : QString();
    if (name == QLatin1String(pdfActionName)) {
        const QString fileName = askFileName(tr("PDF Files (*.pdf)"));
        if (!fileName.isEmpty())
            exportToPdf(fileName, false);
    } else if (name == QLatin1String(htmlActionName)) {
        const QString fileName = askFileName(tr("HTML Files (*.html)"));
        if (!fileName.isEmpty())
            exportToHtml(fileName, true);
    } else if (name == QLatin1String(xlsxActionName)) {
        // Reserved: there is no such action, and nothing to write.
        askFileName(tr("XLSX Files (*.xlsx)"));
    }
}

void RptEngine::exportToPdf(const QString &fileName, bool dontOpen)
{
    m_state->printMode = Rpt::PdfMode;
    needPrinter();
    m_state->printer->setOutputFormat(QPrinter::PdfFormat);
    m_state->printer->setOutputFileName(fileName);
    needPainter();
    printPreview(m_state->printer);
    if (!dontOpen)
        openFile(fileName);
}

void RptEngine::exportToHtml(const QString &fileName, bool open)
{
    m_state->printMode = Rpt::HtmlMode;
    m_state->htmlBody = QStringLiteral("<HTML><HEAD><meta charset=\"UTF-8\"></HEAD><BODY>");
    // A directory, or a device that would be replaced by a file.
    const QFileInfo target(fileName);
    if (target.exists() && !target.isFile())
        return;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return;
    if (!m_state->printer) {
        needPrinter();
        m_state->printer->setOutputFormat(QPrinter::PdfFormat);
    }
    needPainter();
    paintNowhere();
    m_state->htmlBody += QLatin1String("</BODY></HTML>");
    if (!writeText(file, m_state->htmlBody)) {
        qWarning() << "HTML file not written:" << fileName;
        return;
    }
    if (open)
        openFile(fileName);
}

/// Runs a print whose marks are thrown away, with the resolution and the pages chosen of the engine's printer. That one
/// stays untouched: it may be real, with paper in it, or stand on a PDF file that was saved before.
void RptEngine::paintNowhere()
{
    const QPrinter &likeness = *m_state->printer;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QProcess::nullDevice());
    printer.setResolution(likeness.resolution());
    printer.setFromTo(likeness.fromPage(), likeness.toPage());
    printPreview(&printer);
}
