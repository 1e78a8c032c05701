#pragma once

#include <QString>

/// The looks of the monthly sheets, as `RecordedFormat` tells them.
namespace MonthLook {
const QLatin1String title("MS Shell Dlg 2 15 bold 9; left middle wrap; fill #00adef");
const QLatin1String caption("MS Shell Dlg 2 11 bold auto; left middle");
const QLatin1String branch("MS Shell Dlg 2 15 bold #00adef; left middle");
const QLatin1String spacer("MS Shell Dlg 2 10 auto; general bottom; 5 #00adef / 1 #fafafa");
const QLatin1String header("MS Shell Dlg 2 11 bold 9; centre middle wrap; fill #00adef; 1 9");
const QLatin1String headerRight("MS Shell Dlg 2 11 bold 9; right middle wrap; fill #00adef; 1 9");
const QLatin1String cell("MS Shell Dlg 2 10 auto; centre middle wrap; 1 22");
const QLatin1String cellLeft("MS Shell Dlg 2 10 auto; left middle wrap; 1 22");
const QLatin1String money("MS Shell Dlg 2 10 auto; right middle wrap; 1 22; number format 165");
const QLatin1String total("MS Shell Dlg 2 11 bold auto; centre middle wrap; fill #fafafa; 1 22");
const QLatin1String totalLeft("MS Shell Dlg 2 11 bold auto; left middle wrap; fill #fafafa; 1 22");
const QLatin1String moneyTotal("MS Shell Dlg 2 11 bold auto; right middle wrap; fill #fafafa; 1 22; number format 165");
const QLatin1String footer("MS Shell Dlg 2 12 auto; left middle");
const QLatin1String timeOfDay("MS Shell Dlg 2 9 23; right middle");
} // namespace MonthLook
