#include "store/activedays.h"

#include <cmath>

namespace {

constexpr int shownDigit = Qt::Checked;

/// 1 for Monday, 10 for Tuesday, up to 1000000 for Sunday.
int placeValue(int day)
{
    int place = 1;
    for (int earlier = 1; earlier < day; ++earlier)
        place *= 10;
    return place;
}

bool isWeekday(int day)
{
    return day >= 1 && day <= 7;
}

} // namespace

namespace ActiveDays {

bool isOn(int code, int day)
{
    return isWeekday(day) && code / placeValue(day) % 10 == shownDigit;
}

bool isShownOnBoard(int code, int day)
{
    return isWeekday(day) && std::lround(static_cast<double>(code) / placeValue(day)) % 10 == shownDigit;
}

int encode(const std::array<Qt::CheckState, 7> &states)
{
    int code = 0;
    int place = 1;
    for (const Qt::CheckState state : states) {
        code += static_cast<int>(state) * place;
        place *= 10;
    }
    return code;
}

} // namespace ActiveDays
