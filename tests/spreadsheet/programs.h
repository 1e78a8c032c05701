#pragma once

#include <QProcess>

/// Runs a program to its end and gives what it printed. The whole test fails, with the program's own words, when it is
/// missing or fails. `package` is the Debian package that has it.
inline QByteArray outputOf(const QString &program, const QStringList &arguments, const char *package)
{
    constexpr int mostMilliseconds = 100000;
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted())
        qFatal("%s is missing: this test needs the package %s", qPrintable(program), package);
    if (!process.waitForFinished(mostMilliseconds) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        qFatal("%s (package %s) failed: %s", qPrintable(program), package, process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}
