#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// Records every log line while it lives, and passes it on to the handler that stood before. One at a time.
class LogCatcher {
public:
    LogCatcher();
    ~LogCatcher();
    Q_DISABLE_COPY(LogCatcher)

    /// All lines since construction or the last `clear`, in order.
    QStringList lines() const;
    /// The lines of one type only, in order.
    QStringList lines(QtMsgType type) const;
    QStringList critical() const { return lines(QtCriticalMsg); }
    /// Whether a line stands there word for word.
    bool has(const QString &line) const;
    void clear();
};
