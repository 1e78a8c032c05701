// Renders a report template without a window: template and records in, PDF, HTML or PNG pages out.
#include "recordfile.h"
#include "report/rptengine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#ifdef RPTRENDER_PNG
#include <poppler-qt5.h>
#endif

#include <cstdio>
#include <memory>

namespace {

int fail(const QString &text)
{
    std::fprintf(stderr, "rptrender: %s\n", qPrintable(text));
    return 1;
}

void connectRecords(RptEngine &engine, const RecordFile &records)
{
    QObject::connect(&engine, &RptEngine::setDSInfo,
                     [&records](DataSetInfo &info) { info.recordCount = records.count(info.dataSetNo); });
    QObject::connect(&engine, &RptEngine::setValue,
                     [&records](int record, const QString &name, QVariant &value, int /*page*/) {
                         value = records.value(name, record);
                     });
    QObject::connect(&engine, &RptEngine::setValueImage,
                     [&records](int record, const QString &name, QImage &image, int /*page*/) {
                         image = QImage(records.value(name, record));
                     });
}

/// Writes each page of a PDF file as "name-1.png", "name-2.png", ...
QString writePages(const QString &pdfFile, const QString &output, int dotsPerInch)
{
#ifdef RPTRENDER_PNG
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(pdfFile));
    if (!document)
        return QStringLiteral("the report could not be printed");
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    const QString base = output.left(output.size() - int(sizeof(".png")) + 1);
    for (int number = 0; number < document->numPages(); ++number) {
        const std::unique_ptr<Poppler::Page> page(document->page(number));
        const QString name = QStringLiteral("%1-%2.png").arg(base).arg(number + 1);
        if (!page->renderToImage(dotsPerInch, dotsPerInch).save(name))
            return QStringLiteral("%1 cannot be written").arg(name);
    }
    return {};
#else
    Q_UNUSED(pdfFile)
    Q_UNUSED(output)
    Q_UNUSED(dotsPerInch)
    return QStringLiteral("this build writes no PNG (package libpoppler-qt5-dev)");
#endif
}

QString render(RptEngine &engine, const QString &output, int dotsPerInch)
{
    if (output.endsWith(QLatin1String(".html"), Qt::CaseInsensitive)) {
        engine.exportToHtml(output, false);
        return QFileInfo::exists(output) ? QString() : QStringLiteral("%1 cannot be written").arg(output);
    }
    if (output.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
        engine.exportToPdf(output, true);
        return QFileInfo::exists(output) ? QString() : QStringLiteral("%1 cannot be written").arg(output);
    }
    const QTemporaryDir folder;
    const QString pdfFile = folder.filePath(QStringLiteral("report.pdf"));
    engine.exportToPdf(pdfFile, true);
    return writePages(pdfFile, output, dotsPerInch);
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QCommandLineParser arguments;
    arguments.setApplicationDescription(
        QStringLiteral("Renders a report template with the records of a JSON or CSV file; no display is needed.\n"
                       "OUTPUT ends with .pdf, .html or .png; PNG pages are OUTPUT-1.png and so on."));
    arguments.addHelpOption();
    arguments.addOption(
        {QStringLiteral("dpi"), QStringLiteral("Resolution of PNG pages."), QStringLiteral("N"), QStringLiteral("96")});
    arguments.addPositionalArgument(QStringLiteral("template"), QStringLiteral("The template, XML."));
    arguments.addPositionalArgument(QStringLiteral("records"), QStringLiteral("The records, .json or .csv."));
    arguments.addPositionalArgument(QStringLiteral("output"), QStringLiteral("The file to write."));
    arguments.process(application);
    const QStringList files = arguments.positionalArguments();
    if (files.size() != 3)
        return fail(QStringLiteral("template, records and output are wanted; see --help"));

    const RecordFile records(files.at(1));
    if (!records.error().isEmpty())
        return fail(QStringLiteral("%1: %2").arg(files.at(1), records.error()));
    RptEngine engine;
    if (!engine.loadReportFile(files.at(0)))
        return fail(QStringLiteral("%1 cannot be read as a template").arg(files.at(0)));
    connectRecords(engine, records);
    const QString problem = render(engine, files.at(2), arguments.value(QStringLiteral("dpi")).toInt());
    return problem.isEmpty() ? 0 : fail(problem);
}
