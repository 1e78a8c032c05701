#pragma once

#include <QDate>
#include <QStringList>

/// The weeks of the menu board as plain values: which weeks its list holds, how an entry reads, and the way back from a
/// row or a text to a date. A week is known by its Thursday, which always lies in the ISO week's own year; Monday and
/// Sunday may not. "Today" is an argument everywhere. Days only, no times: neither the time zone nor daylight saving
/// plays a part.
namespace WeekList {

/// The Thursday of the week, Monday to Sunday, that `day` lies in; invalid for an invalid day.
QDate thursdayOf(QDate day);

/// The entry of the week of `thursday`: ISO week number, year, Monday and Sunday, for example
/// "12.týždeň / 2020 (16.3. - 22.3.)".
QString text(QDate thursday);

/// All entries, newest week first: from the week `shownWeeks` weeks ahead of today's down to that of `firstMenuDate`,
/// so that row `shownWeeks` is the present week. Without menus (`firstMenuDate` invalid) the list ends at today's date
/// as it is: from Friday to Sunday that is after the Thursday of this week, and the list ends with the next week.
/// Empty when the end comes before the start.
QStringList texts(QDate today, int shownWeeks, QDate firstMenuDate);

/// The number of weeks ahead that a list is built for: `shownWeeks`, but at the most a hundred years. A damaged setting
/// must not build an endless list.
int boundedWeeks(int shownWeeks);

/// The Thursday of the week in row `index` of `texts`; rows that the list does not have follow the same rule.
QDate thursdayAt(QDate today, int shownWeeks, int index);

/// Reads the Monday back from an entry. An entry carries one year only, that of its Thursday: in a week across new year
/// the result is a Monday one year late. This is kept on purpose; who works in a week is asked for with that date.
/// Invalid for any other text.
QDate mondayFromText(const QString &text);

} // namespace WeekList
