#include "board/weeklist.h"

#include <QCoreApplication>

namespace {

constexpr int daysPerWeek = 7;

constexpr int mostShownWeeks = 5200;

QString dayAndMonth(QDate day)
{
    return day.toString(QStringLiteral("d.M."));
}

} // namespace

QDate WeekList::thursdayOf(QDate day)
{
    return day.addDays(Qt::Thursday - day.dayOfWeek());
}

QString WeekList::text(QDate thursday)
{
    //: The slash and the bracket are read back: keep them, each once and in this order, and the year before the
    //: bracket.
    return QCoreApplication::translate("MenuWidget", "%1.týždeň / %2 (%3 - %4)")
        .arg(QString::number(thursday.weekNumber()), QString::number(thursday.year()),
             dayAndMonth(thursday.addDays(-3)), dayAndMonth(thursday.addDays(3)));
}

QStringList WeekList::texts(QDate today, int shownWeeks, QDate firstMenuDate)
{
    const QDate last = firstMenuDate.isValid() ? thursdayOf(firstMenuDate) : today;
    QStringList entries;
    for (QDate thursday = thursdayAt(today, shownWeeks, 0); thursday >= last; thursday = thursday.addDays(-daysPerWeek))
        entries.append(text(thursday));
    return entries;
}

int WeekList::boundedWeeks(int shownWeeks)
{
    return qMin(shownWeeks, mostShownWeeks);
}

QDate WeekList::thursdayAt(QDate today, int shownWeeks, int index)
{
    return thursdayOf(today).addDays((qint64(shownWeeks) - index) * daysPerWeek);
}

QDate WeekList::mondayFromText(const QString &text)
{
    const QString yearAndDays = text.section(QLatin1Char('/'), 1, 1).trimmed();
    const QString days = yearAndDays.section(QLatin1Char('('), 1, 1);
    return QDate::fromString(
        QStringLiteral("%1.%2.%3")
            .arg(days.section(QLatin1Char('.'), 0, 0), days.section(QLatin1Char('.'), 1, 1), yearAndDays.left(4)),
        QStringLiteral("d.M.yyyy"));
}
