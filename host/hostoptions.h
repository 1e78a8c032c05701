#pragma once

#include "pagescript.h"

#include <QCommandLineParser>
#include <QSize>
#include <QString>
#include <QStringList>

class QProcessEnvironment;
class QSettings;

/// Where the database is and who asks. A socket and a host exclude each other: with a socket `host` is empty and `port`
/// means nothing.
struct DatabaseOptions {
    QString socket;
    QString host;
    int port = 3306;
    QString name = QStringLiteral("vianda");
    QString user = QStringLiteral("vianda");
    QString password;
};

/// Everything that a run of the host is told from outside.
struct HostOptions {
    DatabaseOptions database;
    /// The plug-in's file; empty for the one beside the program.
    QString pluginFile;
    /// 0 is an administrator without restriction.
    quint32 adminID = 0;
    bool readOnly = false;
    QString companyName;
    quint8 debugLevel = 0;
    /// A style sheet instead of the host's own; empty for the own one.
    QString styleSheetFile;
    /// The entry to open: its text in any case, or one of the fixed words of `HostWindow::entryNamed`.
    QString page;
    /// Where the picture goes; empty for a run with a user.
    QString screenshotFile;
    /// Size of the window in device-independent pixels; invalid when not given.
    QSize size;
    /// Factor on every length, on top of the display's own; 1 is none.
    double scale = 1;
    QList<ScriptStep> script;
};

/// Reads the command line, the environment and the host's settings. For the connection the nearest word wins: command
/// line, then environment (VIANDA_DB_SOCKET, _HOST, _PORT, _NAME, _USER, _PASSWORD), then settings ("database/socket"
/// and so on), then the defaults of `DatabaseOptions`. Socket and host answer one question, so the nearest source that
/// names either decides it; a source that names both is an error. An empty text counts as not given.
class HostCommandLine {
public:
    struct Result {
        HostOptions options;
        /// Why the words make no sense, in English; empty when all is well.
        QString error;
        bool helpWanted = false;
    };

    HostCommandLine();

    /// `arguments` begin with the program's name. Needs no application object.
    Result parse(const QStringList &arguments, const QProcessEnvironment &environment, const QSettings &settings);
    /// The text of --help. Needs an application object.
    QString helpText() const;

private:
    // Each gives the first error's text, or none.
    QString readNumber(const QString &option, qlonglong greatest, qlonglong &value) const;
    QString readSession(HostOptions &options) const;
    QString readWindow(HostOptions &options) const;
    QString readRun(HostOptions &options) const;

    QCommandLineParser m_parser;
};
