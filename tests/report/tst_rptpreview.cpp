#include "recordingprinter.h"
#include "report/rptengine.h"
#include "reporttemplate.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinterInfo>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolBar>
#include <QUrl>
#include <QtTest>

#include <memory>

namespace {

const char previewName[] = "QPrintPreviewDialog";

QString menu()
{
    return page(band(QStringLiteral("PageHeader"), 20, label(QStringLiteral("header")))
                + band(QStringLiteral("MasterData"), 300, label(QStringLiteral("[0]"))));
}

QAction *exportAction(const QDialog *preview, const char *name)
{
    const QList<QAction *> actions = preview->findChild<QToolBar *>()->actions();
    for (QAction *action : actions) {
        if (action->objectName() == QLatin1String(name))
            return action;
    }
    qFatal("the preview has no action %s", name);
}

void pressEscape(QDialog *dialog)
{
    QTest::keyClick(dialog, Qt::Key_Escape);
}

} // namespace

/// The preview's window, its first page, and the exports that it offers.
class TestRptPreview : public QObject {
    Q_OBJECT

public slots:
    void openUrl(const QUrl &url) { m_opened.append(url); }

private slots:
    void initTestCase();
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    void init();
    void cleanup();

    void window();
    void parents();
    void fitToWidth();
    void actions();
    void actionsOfASecondPreview();
    void opensOnTheFirstPage();
    void showsWithoutItsActions();
    void otherEventsPass();
    void directPrint();
    void unknownPrinterGivesWayToTheDefault();
    void printsFromThePreview();
    void repaintsAskAgain();
    void exportsPdf();
    void exportsHtml();
    void cancelledExport_data();
    void cancelledExport();
    void reservedExport();
    void exportOfAnUnknownSender();
    void parentGoesWhileThePreviewStands();
    void emptyTemplate();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }
    /// Starts a print of the run, with what to do in the preview before Escape closes it.
    void preview(ReportRun &run, const std::function<void(QDialog *)> &act, bool fitToWidth = false);
    void expectFileDialog(const QString &filter, const QString &fileName);

    std::unique_ptr<QTemporaryDir> m_folder;
    QList<QUrl> m_opened;
    BoxAnswerer m_boxes;
};

void TestRptPreview::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
}

void TestRptPreview::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_opened.clear();
}

void TestRptPreview::cleanup()
{
    BOXES_DONE(m_boxes);
}

void TestRptPreview::preview(ReportRun &run, const std::function<void(QDialog *)> &act, bool fitToWidth)
{
    m_boxes.expectDialog(QLatin1String(previewName), [&act](QDialog *dialog) {
        act(dialog);
        pressEscape(dialog);
    });
    run.engine.startPrint(fitToWidth, false, QString());
    BOXES_DONE(m_boxes);
}

/// Expects the dialog for a file, and gives it a name, or cancels it for none.
void TestRptPreview::expectFileDialog(const QString &filter, const QString &fileName)
{
    m_boxes.expectDialog(QStringLiteral("QFileDialog"), [=](QDialog *dialog) {
        const auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->windowTitle(), QStringLiteral("Save File"));
        QCOMPARE(files->nameFilters(), QStringList{filter});
        QCOMPARE(files->acceptMode(), QFileDialog::AcceptSave);
        if (fileName.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(fileName);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void TestRptPreview::window()
{
    ReportRun run(menu());
    QPointer<QDialog> shown;
    preview(run, [&shown](QDialog *dialog) {
        shown = dialog;
        QRect expected = QGuiApplication::primaryScreen()->availableGeometry();
        expected.setLeft(5);
        expected.setTop(30);
        expected.setRight(expected.right() - 6);
        expected.setBottom(expected.bottom() - 6);
        QCOMPARE(dialog->geometry(), expected);
        QVERIFY(dialog->isModal());
        QCOMPARE(dialog->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Window));
        QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->zoomMode(), QPrintPreviewWidget::FitInView);
    });
    QVERIFY2(!shown, "the dialog goes with the print");
}

void TestRptPreview::parents()
{
    const auto parentOfPreview = [this](QObject *parent) {
        RptEngine engine(parent);
        QWidget *result = nullptr;
        m_boxes.expectDialog(QLatin1String(previewName), [&result](QDialog *dialog) {
            result = dialog->parentWidget();
            pressEscape(dialog);
        });
        engine.startPrint(false, false, QString());
        return result;
    };
    QWidget widget;
    QObject other;
    QCOMPARE(parentOfPreview(&widget), &widget);
    QCOMPARE(parentOfPreview(&other), nullptr);
    QCOMPARE(parentOfPreview(nullptr), nullptr);
}

void TestRptPreview::fitToWidth()
{
    ReportRun run(menu());
    preview(
        run,
        [](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->zoomMode(), QPrintPreviewWidget::FitToWidth);
        },
        true);
}

void TestRptPreview::actions()
{
    ReportRun run(menu());
    preview(run, [&run](QDialog *dialog) {
        const QList<QAction *> all = dialog->findChild<QToolBar *>()->actions();
        QVERIFY(all.size() > 2);
        const QAction *pdf = all.at(all.size() - 2);
        const QAction *html = all.last();
        QCOMPARE(pdf->objectName(), QStringLiteral("actExpToPdf"));
        QCOMPARE(pdf->text(), QStringLiteral("Save as PDF"));
        QCOMPARE(html->objectName(), QStringLiteral("actExpToHtml"));
        QCOMPARE(html->text(), QStringLiteral("Save as HTML"));
        QCOMPARE(pdf->parent(), &run.engine);
        QCOMPARE(html->parent(), &run.engine);
        const QImage pdfIcon = pdf->icon().pixmap(24, 24).toImage();
        const QImage htmlIcon = html->icon().pixmap(24, 24).toImage();
        QVERIFY(!pdfIcon.isNull());
        QVERIFY(!htmlIcon.isNull());
        QCOMPARE(pdfIcon, QIcon(QStringLiteral(":/pdf.png")).pixmap(24, 24).toImage());
        QCOMPARE(htmlIcon, QIcon(QStringLiteral(":/html.png")).pixmap(24, 24).toImage());
        QVERIFY(pdfIcon != htmlIcon);
    });
}

void TestRptPreview::actionsOfASecondPreview()
{
    ReportRun run(menu());
    int before = 0;
    preview(run, [&before](QDialog *dialog) { before = dialog->findChild<QToolBar *>()->actions().size(); });
    preview(run, [&before](QDialog *dialog) { QCOMPARE(dialog->findChild<QToolBar *>()->actions().size(), before); });
}

void TestRptPreview::opensOnTheFirstPage()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    preview(run, [](QDialog *dialog) {
        auto *pages = dialog->findChild<QPrintPreviewWidget *>();
        QCOMPARE(pages->pageCount(), 3);
        QCOMPARE(pages->currentPage(), 1);
        // Whenever it is shown, it goes a page back.
        pages->setCurrentPage(3);
        pages->hide();
        pages->show();
        QCOMPARE(pages->currentPage(), 2);
    });
}

/// Under a translation of Qt the action is not found; what is left is to set the page.
void TestRptPreview::showsWithoutItsActions()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    preview(run, [](QDialog *dialog) {
        const QList<QAction *> actions = dialog->findChildren<QAction *>();
        for (QAction *action : actions)
            action->setText(QStringLiteral("Predošlá strana"));
        auto *pages = dialog->findChild<QPrintPreviewWidget *>();
        pages->setCurrentPage(3);
        pages->hide();
        pages->show();
        QCOMPARE(pages->currentPage(), 3);
        actions.first()->setText(QStringLiteral("the PREVIOUS PAGE, please"));
        const QSignalSpy triggered(actions.first(), &QAction::triggered);
        pages->hide();
        pages->show();
        QCOMPARE(triggered.count(), 1);
    });
}

void TestRptPreview::otherEventsPass()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    preview(run, [](QDialog *dialog) {
        auto *pages = dialog->findChild<QPrintPreviewWidget *>();
        pages->setCurrentPage(3);
        pages->hide();
        QVERIFY(pages->isHidden());
        QCOMPARE(pages->currentPage(), 3);
        QResizeEvent resize(QSize(100, 100), pages->size());
        QApplication::sendEvent(pages, &resize);
        QCOMPARE(pages->currentPage(), 3);
        pages->show();
    });
}

void TestRptPreview::directPrint()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    RecordingPrinter printer;
    QVERIFY(run.engine.setPrinter(&printer));
    const int before = m_boxes.answered();
    run.engine.startPrint(true, true, QString());
    QCOMPARE(printer.pages(), 3);
    QCOMPARE(m_boxes.answered(), before);
}

void TestRptPreview::unknownPrinterGivesWayToTheDefault()
{
    ReportRun run(menu());
    QPrinter printer;
    QVERIFY(run.engine.setPrinter(&printer));
    m_boxes.expectDialog(QLatin1String(previewName), pressEscape);
    run.engine.startPrint(false, false, QStringLiteral("no such printer"));
    BOXES_DONE(m_boxes);
    QCOMPARE(printer.printerName(), QPrinterInfo::defaultPrinterName());
    QVERIFY(printer.isValid());
}

void TestRptPreview::printsFromThePreview()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    run.values = {{QStringLiteral("0"), QStringLiteral("row %1")}};
    RecordingPrinter printer;
    preview(run, [&printer](QDialog *dialog) {
        auto *previewDialog = qobject_cast<QPrintPreviewDialog *>(dialog);
        emit previewDialog->paintRequested(&printer);
        QCOMPARE(printer.pages(), 3);
        printer.setFromTo(2, 2);
        emit previewDialog->paintRequested(&printer);
    });
    QCOMPARE(printer.texts(), (QStringList{"1: header", "1: row 3", "1: row 4", "1: row 5"}));
}

void TestRptPreview::repaintsAskAgain()
{
    ReportRun run(menu());
    run.counts = {{1, 2}};
    int asked = 0;
    int values = 0;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked] { ++asked; });
    connect(&run.engine, &RptEngine::setValue, this, [&values] { ++values; });
    preview(run, [&](QDialog *dialog) {
        const int askedOnce = asked;
        const int valuesOnce = values;
        QVERIFY(askedOnce > 0);
        dialog->findChild<QPrintPreviewWidget *>()->updatePreview();
        QCOMPARE(asked, askedOnce + 1);
        QCOMPARE(values, valuesOnce + valuesOnce / askedOnce);
    });
}

void TestRptPreview::exportsPdf()
{
    ReportRun run(menu());
    preview(run, [&](QDialog *dialog) {
        expectFileDialog(QStringLiteral("PDF Files (*.pdf)"), path("menu"));
        exportAction(dialog, "actExpToPdf")->trigger();
    });
    QCOMPARE(files(), QStringList{"menu"});
    QFile file(path("menu"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("%PDF-"));
    QCOMPARE(m_opened, QList<QUrl>{QUrl(QStringLiteral("file:") + path("menu"))});
}

void TestRptPreview::exportsHtml()
{
    ReportRun run(menu());
    run.counts = {{1, 8}};
    run.values = {{QStringLiteral("0"), QStringLiteral("row %1")}};
    preview(run, [&](QDialog *dialog) {
        expectFileDialog(QStringLiteral("HTML Files (*.html)"), path("menu"));
        exportAction(dialog, "actExpToHtml")->trigger();
        // The preview keeps that mode: nothing but the end of a page definition breaks its pages.
        dialog->findChild<QPrintPreviewWidget *>()->updatePreview();
        QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->pageCount(), 1);
    });
    QCOMPARE(files(), QStringList{"menu"});
    QFile file(path("menu"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains(">row 7</div>"));
    QCOMPARE(m_opened, QList<QUrl>{QUrl(QStringLiteral("file:") + path("menu"))});
    // A new preview is a print again.
    preview(run, [](QDialog *dialog) { QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->pageCount(), 3); });
}

void TestRptPreview::cancelledExport_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("filter");
    QTest::newRow("PDF") << QStringLiteral("actExpToPdf") << QStringLiteral("PDF Files (*.pdf)");
    QTest::newRow("HTML") << QStringLiteral("actExpToHtml") << QStringLiteral("HTML Files (*.html)");
}

void TestRptPreview::cancelledExport()
{
    QFETCH(QString, action);
    QFETCH(QString, filter);
    ReportRun run(menu());
    run.counts = {{1, 8}};
    int asked = 0;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked] { ++asked; });
    preview(run, [&](QDialog *dialog) {
        const int before = asked;
        expectFileDialog(filter, QString());
        exportAction(dialog, qPrintable(action))->trigger();
        QCOMPARE(asked, before);
        dialog->findChild<QPrintPreviewWidget *>()->updatePreview();
        QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->pageCount(), 3);
    });
    QCOMPARE(files(), QStringList());
    QCOMPARE(m_opened, QList<QUrl>());
}

/// The name is known, and what the dialog gives is thrown away.
void TestRptPreview::reservedExport()
{
    ReportRun run(menu());
    int asked = 0;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked] { ++asked; });
    QAction action;
    action.setObjectName(QStringLiteral("actExpToXlsx"));
    connect(&action, SIGNAL(triggered()), &run.engine, SLOT(exportTo())); // a private slot
    expectFileDialog(QStringLiteral("XLSX Files (*.xlsx)"), path("menu.xlsx"));
    action.trigger();
    BOXES_DONE(m_boxes);
    QCOMPARE(files(), QStringList());
    QCOMPARE(asked, 0);
}

void TestRptPreview::exportOfAnUnknownSender()
{
    ReportRun run(menu());
    const int before = m_boxes.answered();
    QAction action;
    connect(&action, SIGNAL(triggered()), &run.engine, SLOT(exportTo())); // a private slot
    action.trigger();
    QVERIFY(QMetaObject::invokeMethod(&run.engine, "exportTo"));
    QCOMPARE(m_boxes.answered(), before);
    QCOMPARE(files(), QStringList());
}

void TestRptPreview::parentGoesWhileThePreviewStands()
{
    auto *parent = new QWidget;
    const QPointer<RptEngine> engine(new RptEngine(parent));
    QPointer<QDialog> shown;
    m_boxes.expectDialog(QLatin1String(previewName), [&](QDialog *dialog) {
        shown = dialog;
        delete parent;
    });
    engine->startPrint(false, false, QString());
    BOXES_DONE(m_boxes);
    QVERIFY(!engine);
    QVERIFY(!shown);
}

void TestRptPreview::emptyTemplate()
{
    ReportRun run{QString()};
    preview(run, [](QDialog *dialog) { QCOMPARE(dialog->findChild<QPrintPreviewWidget *>()->pageCount(), 0); });
}

QTEST_MAIN(TestRptPreview)
#include "tst_rptpreview.moc"
