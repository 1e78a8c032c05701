#include "exports/titlefont.h"

#include <QFontMetricsF>

namespace {

constexpr int leastPointSize = 6;
constexpr double pointInMillimetres = 25.4 / 72;
/// What stays free beside the text, the little that the engine keeps free in a label included; millimetres.
constexpr double reserve = 8;
/// Large enough that no letter's width is rounded noticeably.
constexpr int measuringPixels = 1000;

} // namespace

int fittingPointSize(const QFont &font, const QString &text, int width)
{
    QFont measured(font);
    measured.setPixelSize(measuringPixels);
    const double lengthInEms = QFontMetricsF(measured).horizontalAdvance(text) / measuringPixels;
    if (lengthInEms <= 0)
        return font.pointSize();
    const double room = width / 4.0 - reserve;
    return qBound(leastPointSize, int(room / (lengthInEms * pointInMillimetres)), font.pointSize());
}
