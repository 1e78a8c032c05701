#include "support/logcatcher.h"

#include <QPair>
#include <QVector>

namespace {

struct Catch {
    QVector<QPair<QtMsgType, QString>> lines;
    QtMessageHandler previous = nullptr;
};

Catch *current = nullptr;

void record(QtMsgType type, const QMessageLogContext &context, const QString &line)
{
    current->lines.append({type, line});
    if (current->previous)
        current->previous(type, context, line);
}

} // namespace

LogCatcher::LogCatcher()
{
    Q_ASSERT_X(!current, "LogCatcher", "one at a time");
    current = new Catch;
    current->previous = qInstallMessageHandler(record);
}

LogCatcher::~LogCatcher()
{
    qInstallMessageHandler(current->previous);
    delete current;
    current = nullptr;
}

QStringList LogCatcher::lines() const
{
    QStringList result;
    for (const auto &line : qAsConst(current->lines))
        result.append(line.second);
    return result;
}

QStringList LogCatcher::lines(QtMsgType type) const
{
    QStringList result;
    for (const auto &line : qAsConst(current->lines)) {
        if (line.first == type)
            result.append(line.second);
    }
    return result;
}

bool LogCatcher::has(const QString &line) const
{
    return lines().contains(line);
}

void LogCatcher::clear()
{
    current->lines.clear();
}
