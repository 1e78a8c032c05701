#include "report/rptengine.h"
#include "report/rptfieldobject.h"

#include "report/rptattributes.h"

namespace {

/// What a colour becomes on its way through the form "rgba(...)": an invalid one becomes black.
QColor asWritten(const QColor &color)
{
    return color.isValid() ? color : QColor(0, 0, 0);
}

} // namespace

/// What the way through all aspects comes to without a highlighting, as nearly all fields are, for each record.
void RptFieldObject::takeOwnStyle()
{
    const int weight = font.weight() > QFont::Medium ? QFont::Bold : QFont::Normal;
    if (font.weight() != weight)
        font.setWeight(weight);
    if (font.style() == QFont::StyleOblique)
        font.setItalic(true);
    backgroundColor = asWritten(defaultBackgroundColor);
    fontColor = asWritten(defaultFontColor);
}

void RptFieldObject::refreshStyle()
{
    if (!report)
        return;
    if (highlighting.isEmpty()) {
        takeOwnStyle();
        return;
    }
    const auto has = [this](RptAspect aspect) { return report->highlightValue(*this, aspect).toDouble() != 0; };
    const auto colorOf = [this](RptAspect aspect) {
        return RptAttributes::color(report->highlightValue(*this, aspect).toString());
    };

    font.setWeight(has(RptAspect::Bold) ? QFont::Bold : QFont::Normal);
    font.setItalic(has(RptAspect::Italic));
    font.setUnderline(has(RptAspect::Underline));
    font.setStrikeOut(has(RptAspect::Strikeout));
    backgroundColor = colorOf(RptAspect::BackgroundColor);
    fontColor = colorOf(RptAspect::FontColor);
}
