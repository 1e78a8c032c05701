#pragma once

#include <Qt>

#include <array>

/// The day code: which weekdays the board shows, kept in the setting `via_activeDays` as one decimal number with one
/// digit for each day. The units digit is Monday, the tens digit Tuesday, and so on up to the millions digit for
/// Sunday; a digit holds the `Qt::CheckState` of the day's check box, 2 for shown and 0 for hidden. 22222 is Monday to
/// Friday. Days are numbered as in `QDate::dayOfWeek`: 1 is Monday, 7 is Sunday.
namespace ActiveDays {

/// All seven days shown: what a database without the setting means.
constexpr int defaultCode = 2222222;

/// Whether the digit of `day` (1 to 7) is 2. Every other digit counts as off, and so do the missing digits of a code
/// with fewer than seven and a day outside 1 to 7.
bool isOn(int code, int day);

/// Whether the board shows the column of `day` (1 to 7). As `isOn`, but the board rounds code / 10^(day - 1) to the
/// nearest whole number before it looks at the last digit. The two differ only for a code that holds digits above 4,
/// which no check box writes: 15 has Tuesday off, and the board shows it.
bool isShownOnBoard(int code, int day);

/// The code of seven check states, Monday first: the sum of state x 10^(day - 1).
int encode(const std::array<Qt::CheckState, 7> &states);

} // namespace ActiveDays
