#include "report/deviceunits.h"
#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"
#include "report/rptfieldpainter.h"
#include "report/rptprintstate.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>

namespace {

/// A text keeps this far from its field's left edge, and is this much narrower than the field. Device units.
constexpr int textIndent = 10;
constexpr int textShrink = 15;
constexpr double quarterTurn = 90.0;

int textFlags(const RptFieldObject &field)
{
    return int(field.aligment) | Qt::TextDontClip | (field.textWrap ? Qt::TextWordWrap : 0);
}

bool holdsToken(const QString &text)
{
    return (text.contains(QLatin1Char('[')) && text.contains(QLatin1Char(']')))
        || (text.contains(QLatin1Char('<')) && text.contains(QLatin1Char('>')));
}

/// Puts a token's text in its place: as plain text, or what is between the body tags of an HTML text. An HTML text
/// whose body does not end leaves the place as it was.
void insertValue(QTextCursor *place, const QString &value)
{
    const QString lower = value.toLower();
    const int begin = lower.indexOf(QLatin1String("<body"));
    if (begin < 0) {
        place->insertText(value);
        return;
    }
    const int end = lower.indexOf(QLatin1String("</body>"));
    if (end >= 0)
        place->insertHtml(value.mid(begin, end + 1));
}

} // namespace

void RptFieldPainter::drawRichText(const RptFieldObject &field, const QRect &area)
{
    QTextDocument document;
    document.setHtml(field.value);
    if (isActive())
        document.setDefaultFont(m_state.painter->font());
    replaceTokens(field, &document);
    document.setTextWidth(area.width() - textShrink);
    if (!isActive())
        return;
    m_state.painter->save();
    m_state.painter->translate(area.x() + textIndent, area.y());
    document.drawContents(m_state.painter, QRectF(0, 0, area.width() - textShrink, area.height()));
    m_state.painter->restore();
}

void RptFieldPainter::replaceTokens(const RptFieldObject &field, QTextDocument *document)
{
    QStringList fragments;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            const QString text = fragment.fragment().text();
            if (holdsToken(text))
                fragments.append(text);
        }
    }
    for (const QString &fragment : qAsConst(fragments)) {
        QString value = m_engine.expandText(field.parentBand, fragment, false, false, QString());
        if (value.isEmpty())
            value = QLatin1Char(' ');
        QTextCursor place = document->find(fragment, 0, QTextDocument::FindWholeWords);
        if (!place.isNull())
            insertValue(&place, value);
    }
}

QString RptFieldPainter::labelText(const RptFieldObject &field)
{
    return m_engine.expandText(field.parentBand, field.value, false, false, field.formatString);
}

/// A text is measured against the field's own height, though it is painted with the band's: so the last tall field of a
/// band decides its height, and may even lower what one before it had set.
void RptFieldPainter::measureLabel(const RptFieldObject &field, const QRect &area)
{
    const QString text = labelText(field);
    if (!isActive())
        return;
    m_state.painter->setFont(field.font);
    const int ownHeight = deviceUnits(double(field.rect.bottom()) - field.rect.top() + 1, m_state.scaleY);
    const QRect room(area.x() + textIndent, area.y(), area.width() - textShrink, ownHeight);
    const int height = m_state.painter->boundingRect(room, textFlags(field), text).height();
    if (height > ownHeight)
        field.parentBand->height = deviceUnits(double(std::round(float(height) / m_state.scaleY)), 1);
}

void RptFieldPainter::drawLabel(RptFieldObject &field, const QRect &area)
{
    const QString text = labelText(field);
    if (isActive()) {
        m_state.painter->setFont(field.font);
        m_state.painter->setPen(field.fontColor);
        drawLabelText(field, area, text);
    }
    if (m_state.printMode == Rpt::HtmlMode) {
        m_state.htmlBody +=
            QLatin1String("<div ") + field.htmlStyle() + QLatin1Char('>') + text + QLatin1String("</div>\n");
    }
}

void RptFieldPainter::drawLabelText(const RptFieldObject &field, const QRect &area, const QString &text)
{
    QPainter &painter = *m_state.painter;
    const int flags = textFlags(field);
    if (field.rotate == 0) {
        painter.drawText(QRect(area.x() + textIndent, area.y(), area.width() - textShrink, area.height()), flags, text);
        return;
    }
    if (field.rotate < 0 || field.rotate > 3)
        return;
    painter.save();
    switch (field.rotate) {
    case 1:
        // The field's own top is missing: a text turned this way stands at the head of the page, on purpose.
        painter.translate(area.x() + area.width(), area.height());
        painter.rotate(quarterTurn);
        break;
    case 2:
        painter.translate(area.x() + area.width(), area.y() + area.height());
        painter.rotate(2 * quarterTurn);
        break;
    default:
        painter.translate(area.x(), area.y() + area.height());
        painter.rotate(-quarterTurn);
        break;
    }
    painter.drawText(QRect(0, 0, area.height(), area.width()), flags, text);
    painter.restore();
}
