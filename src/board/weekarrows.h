#pragma once

#include <array>

/// Which of the two arrows of the list of weeks can be used.
struct WeekArrows {
    bool older = true; ///< the left one, towards the end of the list
    bool newer = true; ///< the right one, towards row 0
};

/// The arrows for row `index` of a list of `count` weeks: neither leads out of the list. A list of one week leaves the
/// older arrow enabled.
WeekArrows arrowsInList(int index, int count);

/// Days on which a person is employed: [0] the Sunday before the shown week, [1] Monday to [7] Sunday, [8] the Monday
/// after it.
using EmployedDays = std::array<bool, 9>;

/// The arrows for a person's week: each leads to the next week exactly when the person is employed on its day next to
/// the shown week. Nobody can step out of an employment week by week, only by the list itself. In the last row of the
/// list a day from Tuesday to Sunday out of employment disables the older arrow as well.
WeekArrows arrowsInEmployment(const EmployedDays &employed, bool isLastRow);
