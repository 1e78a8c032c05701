// Renders a report template without a window: template and records in, PDF, HTML or PNG pages out.
#include "recordfile.h"
#include "report/rptengine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>

#ifdef RPTRENDER_PNG
#include <poppler-qt5.h>
#endif

#include <cstdio>
#include <memory>

namespace {

constexpr int greatestResolution = 1200; // dots per inch; a page of A4 is then 14 million dots

void say(const QString &text)
{
    std::fprintf(stderr, "rptrender: %s\n", qPrintable(text));
}

int fail(const QString &text)
{
    say(text);
    return 1;
}

/// An image is a file, named from where the records lie.
QImage imageOf(const QString &fileName, const QDir &folder)
{
    if (fileName.isEmpty())
        return QImage();
    const QImage image(folder.filePath(fileName));
    if (image.isNull())
        say(QStringLiteral("%1 is no image").arg(folder.filePath(fileName)));
    return image;
}

void connectRecords(RptEngine &engine, const RecordFile &records, const QDir &folder)
{
    QObject::connect(&engine, &RptEngine::setDSInfo,
                     [&records](DataSetInfo &info) { info.recordCount = records.count(info.dataSetNo); });
    QObject::connect(&engine, &RptEngine::setValue,
                     [&records](int record, const QString &name, QVariant &value, int /*page*/) {
                         value = records.value(name, record);
                     });
    QObject::connect(&engine, &RptEngine::setValueImage,
                     [&records, folder](int record, const QString &name, QImage &image, int /*page*/) {
                         image = imageOf(records.value(name, record), folder);
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
    const QString base = output.chopped(int(qstrlen(".png")));
    for (int number = 0; number < document->numPages(); ++number) {
        const std::unique_ptr<Poppler::Page> page(document->page(number));
        const QImage image = page->renderToImage(dotsPerInch, dotsPerInch).convertToFormat(QImage::Format_RGB888);
        const QString name = QStringLiteral("%1-%2.png").arg(base).arg(number + 1);
        if (!image.save(name))
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

/// Puts a finished file where it is wanted; what was there before stays if that fails.
QString deliver(const QString &finished, const QString &output)
{
    QFile from(finished);
    if (!from.open(QIODevice::ReadOnly))
        return QStringLiteral("the report could not be printed");
    QSaveFile to(output);
    if (!to.open(QIODevice::WriteOnly) || to.write(from.readAll()) < 0 || !to.commit())
        return QStringLiteral("%1 cannot be written: %2").arg(output, to.errorString());
    return {};
}

QString render(RptEngine &engine, const QString &output, int dotsPerInch)
{
    const QTemporaryDir folder;
    const QString ending = QFileInfo(output).suffix().toLower();
    const QString finished = folder.filePath(QStringLiteral("report.") + ending);
    if (ending == QLatin1String("html")) {
        engine.exportToHtml(finished, false);
        return deliver(finished, output);
    }
    engine.exportToPdf(folder.filePath(QStringLiteral("report.pdf")), true);
    if (ending == QLatin1String("pdf"))
        return deliver(finished, output);
    return writePages(folder.filePath(QStringLiteral("report.pdf")), output, dotsPerInch);
}

QString run(const QString &templateFile, const QString &recordFile, const QString &output, int dotsPerInch)
{
    const RecordFile records(recordFile);
    if (!records.error().isEmpty())
        return QStringLiteral("%1: %2").arg(recordFile, records.error());
    RptEngine engine;
    if (!engine.loadReportFile(templateFile))
        return QStringLiteral("%1 cannot be read as a template").arg(templateFile);
    if (engine.pages().isEmpty())
        return QStringLiteral("%1 has no Report element").arg(templateFile);
    connectRecords(engine, records, QFileInfo(recordFile).dir());
    return render(engine, output, dotsPerInch);
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
    arguments.addOption({QStringLiteral("dpi"), QStringLiteral("Resolution of PNG pages, 1 to 1200."),
                         QStringLiteral("N"), QStringLiteral("96")});
    arguments.addPositionalArgument(QStringLiteral("template"), QStringLiteral("The template, XML."));
    arguments.addPositionalArgument(QStringLiteral("records"), QStringLiteral("The records, .json or .csv."));
    arguments.addPositionalArgument(QStringLiteral("output"), QStringLiteral("The file to write."));
    arguments.process(application);
    const QStringList files = arguments.positionalArguments();
    if (files.size() != 3)
        return fail(QStringLiteral("template, records and output are wanted; see --help"));
    const int dotsPerInch = arguments.value(QStringLiteral("dpi")).toInt();
    if (dotsPerInch < 1 || dotsPerInch > greatestResolution)
        return fail(QStringLiteral("--dpi is a number from 1 to %1").arg(greatestResolution));
    const QStringList endings{QStringLiteral("pdf"), QStringLiteral("html"), QStringLiteral("png")};
    if (!endings.contains(QFileInfo(files.at(2)).suffix().toLower()))
        return fail(QStringLiteral("%1 does not end with .pdf, .html or .png").arg(files.at(2)));
    const QString problem = run(files.at(0), files.at(1), files.at(2), dotsPerInch);
    return problem.isEmpty() ? 0 : fail(problem);
}
