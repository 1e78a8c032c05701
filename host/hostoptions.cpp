#include "hostoptions.h"

#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QSettings>

#include <array>
#include <functional>
#include <optional>

namespace {

/// One source of the connection's words: gives the text of a key such as "socket", empty when it does not know it.
struct Source {
    QString name;
    std::function<QString(const QString &)> value;
};

QString firstValue(const std::array<Source, 3> &sources, const QString &key, const QString &defaultValue)
{
    for (const Source &source : sources) {
        const QString value = source.value(key);
        if (!value.isEmpty())
            return value;
    }
    return defaultValue;
}

/// A decimal number within limits; nothing for any other text.
std::optional<qlonglong> number(const QString &text, qlonglong least, qlonglong greatest)
{
    bool isNumber = false;
    const qlonglong value = text.toLongLong(&isNumber);
    if (!isNumber || value < least || value > greatest)
        return std::nullopt;
    return value;
}

/// Where the server is, from the nearest source that says so. Gives an error's text, or none.
QString findServer(const std::array<Source, 3> &sources, DatabaseOptions &database)
{
    for (const Source &source : sources) {
        database.socket = source.value(QStringLiteral("socket"));
        database.host = source.value(QStringLiteral("host"));
        if (!database.socket.isEmpty() && !database.host.isEmpty())
            return QStringLiteral("The %1 name both a socket and a host of the database; give one of them.")
                .arg(source.name);
        if (!database.socket.isEmpty() || !database.host.isEmpty())
            return {};
    }
    database.host = QStringLiteral("localhost");
    return {};
}

QString findDatabase(const std::array<Source, 3> &sources, DatabaseOptions &database)
{
    const QString error = findServer(sources, database);
    if (!error.isEmpty())
        return error;
    const QString portText = firstValue(sources, QStringLiteral("port"), QString::number(database.port));
    const auto port = number(portText, 1, 65535);
    if (!port)
        return QStringLiteral("'%1' is no port: a number from 1 to 65535 is needed.").arg(portText);
    database.port = static_cast<int>(*port);
    database.name = firstValue(sources, QStringLiteral("name"), database.name);
    database.user = firstValue(sources, QStringLiteral("user"), database.user);
    database.password = firstValue(sources, QStringLiteral("password"), database.password);
    return {};
}

QSize sizeFromText(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^([1-9]\\d{1,3})x([1-9]\\d{1,3})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    return match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
}

QString description()
{
    return QStringLiteral(
        "The attendance program's window around the canteen module.\n\n"
        "The database is named by these options, else by the environment variables VIANDA_DB_SOCKET, VIANDA_DB_HOST,\n"
        "VIANDA_DB_PORT, VIANDA_DB_NAME, VIANDA_DB_USER and VIANDA_DB_PASSWORD, else by the keys database/socket,\n"
        "database/host, ... of the settings (organisation NORVIK-IT, application ZEP). Prefer the environment for the\n"
        "password: other users of the machine can read a command line.\n\n"
        "Steps of --script, joined with ';' (NAME is the objectName of a widget of the page, or of the dialog that\n"
        "stands open; NAME#2 is the second one that is visible):\n"
        "  click:NAME              presses a button\n"
        "  click:NAME=ROW,COLUMN   clicks a cell of a list or table, counted from 0; doubleclick: twice\n"
        "  select:NAME=ENTRY       chooses an entry of a combo box, list or table by its number from 0 or by its text\n"
        "  type:NAME=TEXT          types a text, over what a line of text holds");
}

QList<QCommandLineOption> optionTable()
{
    const QString file = QStringLiteral("FILE");
    const QString text = QStringLiteral("TEXT");
    return {
        {QStringLiteral("plugin"), QStringLiteral("The plug-in; default ../plugins/libvianda.so beside the program."),
         file},
        {QStringLiteral("db-socket"), QStringLiteral("Unix socket of the database server."), file},
        {QStringLiteral("db-host"), QStringLiteral("Host of the database server, over TCP; default localhost."), text},
        {QStringLiteral("db-port"), QStringLiteral("Port of the database server; default 3306."), QStringLiteral("N")},
        {QStringLiteral("db-name"), QStringLiteral("Name of the database; default vianda."), text},
        {QStringLiteral("db-user"), QStringLiteral("Account; default vianda."), text},
        {QStringLiteral("db-password"), QStringLiteral("Password of the account."), text},
        {QStringLiteral("admin"), QStringLiteral("Administrator; default 0, which may do everything."),
         QStringLiteral("ID")},
        {QStringLiteral("read-only"), QStringLiteral("Nothing can be edited.")},
        {QStringLiteral("company"), QStringLiteral("Name of the company."), QStringLiteral("NAME")},
        {QStringLiteral("debug-level"), QStringLiteral("The module's own log lines: 0 none (default), up to 255."),
         QStringLiteral("N")},
        {QStringLiteral("style-sheet"), QStringLiteral("A style sheet instead of the host's own."), file},
        {QStringLiteral("page"),
         QStringLiteral("Open this page: menu, foods, suppliers, settings, or an entry's text."),
         QStringLiteral("NAME")},
        {QStringLiteral("script"), QStringLiteral("Bring the page into a state; see above."), QStringLiteral("STEPS")},
        {QStringLiteral("screenshot"),
         QStringLiteral("Write a picture of the window, or of the dialog that stands open, as PNG or JPEG and leave; "
                        "works without a display."),
         file},
        {QStringLiteral("size"), QStringLiteral("Size of the window, for example 1650x984."), QStringLiteral("WxH")},
        {QStringLiteral("scale"), QStringLiteral("Enlarge everything by a factor from 0.5 to 4."),
         QStringLiteral("FACTOR")},
    };
}

} // namespace

HostCommandLine::HostCommandLine()
{
    m_parser.setApplicationDescription(description());
    m_parser.addOptions(optionTable());
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Print this help.")});
}

HostCommandLine::Result HostCommandLine::parse(const QStringList &arguments, const QProcessEnvironment &environment,
                                               const QSettings &settings)
{
    Result result;
    if (!m_parser.parse(arguments)) {
        result.error = m_parser.errorText();
        return result;
    }
    result.helpWanted = m_parser.isSet(QStringLiteral("help"));
    if (!m_parser.positionalArguments().isEmpty()) {
        result.error = QStringLiteral("Unexpected argument '%1'.").arg(m_parser.positionalArguments().constFirst());
        return result;
    }
    const std::array<Source, 3> sources{
        Source{QStringLiteral("options"),
               [this](const QString &key) { return m_parser.value(QStringLiteral("db-") + key); }},
        Source{QStringLiteral("environment variables"),
               [&](const QString &key) { return environment.value(QStringLiteral("VIANDA_DB_") + key.toUpper()); }},
        Source{QStringLiteral("settings"),
               [&](const QString &key) { return settings.value(QStringLiteral("database/") + key).toString(); }}};
    const QStringList errors{findDatabase(sources, result.options.database), readSession(result.options),
                             readWindow(result.options), readRun(result.options)};
    for (const QString &error : errors) {
        if (result.error.isEmpty())
            result.error = error;
    }
    return result;
}

QString HostCommandLine::readNumber(const QString &option, qlonglong greatest, qlonglong &value) const
{
    if (!m_parser.isSet(option))
        return {};
    const auto read = number(m_parser.value(option), 0, greatest);
    value = read.value_or(0);
    return read
        ? QString()
        : QStringLiteral("--%1: '%2' is no number from 0 to %3.").arg(option, m_parser.value(option)).arg(greatest);
}

QString HostCommandLine::readSession(HostOptions &options) const
{
    qlonglong adminID = 0;
    qlonglong debugLevel = 0;
    const QString adminError = readNumber(QStringLiteral("admin"), std::numeric_limits<quint32>::max(), adminID);
    const QString levelError =
        readNumber(QStringLiteral("debug-level"), std::numeric_limits<quint8>::max(), debugLevel);
    options.adminID = static_cast<quint32>(adminID);
    options.debugLevel = static_cast<quint8>(debugLevel);
    options.readOnly = m_parser.isSet(QStringLiteral("read-only"));
    options.companyName = m_parser.value(QStringLiteral("company"));
    return adminError.isEmpty() ? levelError : adminError;
}

QString HostCommandLine::readWindow(HostOptions &options) const
{
    options.pluginFile = m_parser.value(QStringLiteral("plugin"));
    options.styleSheetFile = m_parser.value(QStringLiteral("style-sheet"));
    const QString size = m_parser.value(QStringLiteral("size"));
    options.size = sizeFromText(size);
    if (m_parser.isSet(QStringLiteral("size")) && !options.size.isValid())
        return QStringLiteral("--size: '%1' is no size such as 1650x984.").arg(size);
    if (!m_parser.isSet(QStringLiteral("scale")))
        return {};
    const QString scale = m_parser.value(QStringLiteral("scale"));
    options.scale = scale.toDouble();
    // Written so that it refuses "nan", too.
    const bool isFactor = options.scale >= 0.5 && options.scale <= 4;
    return isFactor ? QString() : QStringLiteral("--scale: '%1' is no number from 0.5 to 4.").arg(scale);
}

QString HostCommandLine::readRun(HostOptions &options) const
{
    options.page = m_parser.value(QStringLiteral("page"));
    options.screenshotFile = m_parser.value(QStringLiteral("screenshot"));
    const PageScript script = parsePageScript(m_parser.value(QStringLiteral("script")));
    options.script = script.steps;
    return script.error.isEmpty() ? QString() : QStringLiteral("--script: %1").arg(script.error);
}

QString HostCommandLine::helpText() const
{
    return m_parser.helpText();
}
