#pragma once

#include <QString>

/// The looks of the control export, as `RecordedFormat` tells them.
namespace ControlLook {
const QLatin1String title("Cambria 15 bold #ffffff; left middle wrap; fill #00adef");
const QLatin1String caption("Cambria 11 bold auto; left middle");
const QLatin1String branch("Cambria 15 bold #00adef; left middle");
const QLatin1String legend("MS Shell Dlg 2 9 #7f7f7f; left middle wrap");
const QLatin1String spacer("MS Shell Dlg 2 10 auto; general bottom; 5 #00adef / 1 #fafafa");
const QLatin1String header("Cambria 11 bold #ffffff; centre middle wrap; fill #00adef; 1 #ffffff");
const QLatin1String narrowHeader("Cambria 8 bold #ffffff; centre middle; fill #00adef; 1 #ffffff");
const QLatin1String cell("MS Shell Dlg 2 10 auto; centre middle wrap; 1 #c0c0c0");
const QLatin1String cellLeft("MS Shell Dlg 2 10 auto; left middle wrap; 1 #c0c0c0");
const QLatin1String number("MS Shell Dlg 2 10 auto; centre middle; 1 #c0c0c0");
const QLatin1String total("MS Shell Dlg 2 11 bold auto; centre middle wrap; fill #fafafa; 1 #c0c0c0");
const QLatin1String totalLeft("MS Shell Dlg 2 11 bold auto; left middle wrap; fill #fafafa; 1 #c0c0c0");
const QLatin1String sum("MS Shell Dlg 2 10 bold auto; centre middle; fill #fafafa; 1 #c0c0c0");
const QLatin1String footer("MS Shell Dlg 2 12 auto; left middle");
const QLatin1String timeOfDay("MS Shell Dlg 2 9 #7f7f7f; left middle");
} // namespace ControlLook
