#include "board/weekarrows.h"

#include <algorithm>

WeekArrows arrowsInList(int index, int count)
{
    if (index == 0)
        return {true, false};
    if (index == count - 1)
        return {false, true};
    return {};
}

WeekArrows arrowsInEmployment(const EmployedDays &employed, bool isLastRow)
{
    const bool wholeRestOfWeek =
        std::all_of(employed.begin() + 2, employed.begin() + 8, [](bool onDay) { return onDay; });
    return {employed.front() && (wholeRestOfWeek || !isLastRow), employed.back()};
}
