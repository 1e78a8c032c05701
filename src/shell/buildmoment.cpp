#include "shell/buildmoment.h"

#include <QDateTime>
#include <QLocale>

QString buildMoment(const QString &dateText, const QString &timeText)
{
    // The compiler writes English month names, whatever the language of the machine that runs this.
    const QDate date = QLocale(QStringLiteral("en_US")).toDate(dateText.simplified(), QStringLiteral("MMM d yyyy"));
    const QTime time = QTime::fromString(timeText.simplified(), QStringLiteral("hh:mm:ss"));
    if (!date.isValid() || !time.isValid())
        return {};
    return QDateTime(date, time).toString(QStringLiteral("yyMMddhhmm"));
}
