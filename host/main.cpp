#include "databaseconnection.h"
#include "hostoptions.h"
#include "hostrun.h"
#include "hoststyle.h"
#include "hostwindow.h"
#include "pluginhandle.h"
#include "slovaktexts.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QProcessEnvironment>
#include <QSettings>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <initializer_list>

namespace {

const int failure = 1;
const int wrongUse = 2;

bool isSet(const char *variable)
{
    return !qEnvironmentVariableIsEmpty(variable);
}

bool noneIsSet(std::initializer_list<const char *> variables)
{
    return std::none_of(variables.begin(), variables.end(), isSet);
}

/// Names and texts are UTF-8 also where nobody has chosen a locale.
void prepareLocale()
{
    if (noneIsSet({"LC_ALL", "LC_CTYPE", "LANG"}))
        qputenv("LC_ALL", "C.UTF-8");
    std::setlocale(LC_ALL, "");
}

/// What Qt reads before the application object is made. False when there is no display to open a window on.
bool prepareDisplay(const HostOptions &options)
{
    if (noneIsSet({"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})) {
        if (options.screenshotFile.isEmpty())
            return false;
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // One pixel of the picture for one of the window, unless --scale says otherwise.
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen" && noneIsSet({"QT_FONT_DPI"}))
        qputenv("QT_FONT_DPI", "96");
    if (options.scale != 1)
        qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    return true;
}

/// Slovak day names, numbers and standard buttons, whatever the machine speaks.
void speakSlovak(SlovakTexts &texts)
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
    if (texts.load())
        QCoreApplication::installTranslator(&texts);
    else
        qWarning("Host: Qt has no Slovak texts on this machine (package qttranslations5-l10n)");
}

QVariantMap pluginOptions(const HostOptions &options)
{
    return {{QStringLiteral("adminID"), options.adminID},
            {QStringLiteral("debugLevel"), options.debugLevel},
            {QStringLiteral("readOnly"), options.readOnly},
            {QStringLiteral("companyName"), options.companyName}};
}

void placeWindow(HostWindow &window, const HostOptions &options, const QSettings &settings)
{
    window.resize(options.size.isValid() ? options.size : QSize(1650, 984));
    if (!options.size.isValid() && options.screenshotFile.isEmpty())
        window.restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray());
    window.show();
}

int run(const HostOptions &options, QSettings &settings)
{
    const QString lookProblem = applyLook(options.styleSheetFile);
    const DatabaseConnection database(options.database);
    const PluginHandle plugin(options.pluginFile);
    const bool complete = database.isOpen() && plugin.root();
    if (!complete && !options.screenshotFile.isEmpty())
        return failure; // the log says why

    HostWindow window;
    if (plugin.root())
        window.usePlugin(plugin.root(), database.handle(), pluginOptions(options));
    window.showDatabase(database.description(), database.isOpen());
    for (const QString &problem : {lookProblem, database.problem(), plugin.problem()}) {
        if (!problem.isEmpty())
            window.warn(problem);
    }
    placeWindow(window, options, settings);
    HostRun hostRun(options, window);
    QObject::connect(&hostRun, &HostRun::ended, qApp, &QCoreApplication::exit);
    hostRun.start(complete && options.screenshotFile.isEmpty());
    const int exitCode = QApplication::exec();
    if (options.screenshotFile.isEmpty())
        settings.setValue(QStringLiteral("window/geometry"), window.saveGeometry());
    return exitCode;
}

QStringList argumentList(int argc, char **argv)
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    return arguments;
}

} // namespace

int main(int argc, char **argv)
{
    prepareLocale();
    QSettings settings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP"));
    HostCommandLine commandLine;
    const HostCommandLine::Result told =
        commandLine.parse(argumentList(argc, argv), QProcessEnvironment::systemEnvironment(), settings);
    if (told.helpWanted) {
        const QCoreApplication application(argc, argv);
        std::fputs(commandLine.helpText().toLocal8Bit().constData(), stdout);
        return 0;
    }
    if (!told.error.isEmpty()) {
        std::fprintf(stderr, "%s\nvianda-host --help lists the options.\n", qPrintable(told.error));
        return wrongUse;
    }
    if (!prepareDisplay(told.options)) {
        std::fputs("There is no display to open the window on; --screenshot FILE draws it without one.\n", stderr);
        return failure;
    }
    const QApplication application(argc, argv);
    SlovakTexts texts;
    speakSlovak(texts);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/host/host.png")));
    return run(told.options, settings);
}
