#include "report/rptbandobject.h"
#include "report/rptfieldobject.h"

#include "report/boundedint.h"

namespace {

/// The last flag that is set, in this order, is the one that counts.
QString cssAlignment(Qt::Alignment alignment)
{
    QString name;
    if (alignment & Qt::AlignRight)
        name = QStringLiteral("right");
    if (alignment & Qt::AlignLeft)
        name = QStringLiteral("left");
    if (alignment & Qt::AlignHCenter)
        name = QStringLiteral("center");
    if (alignment & Qt::AlignJustify)
        name = QStringLiteral("justify");
    return name;
}

qint64 widthOf(const QRect &rect)
{
    return qint64(rect.right()) - rect.left() + 1;
}

qint64 heightOf(const QRect &rect)
{
    return qint64(rect.bottom()) - rect.top() + 1;
}

/// Template units without a unit: the browser takes them for pixels.
QString cssPosition(const RptFieldObject &field)
{
    return QStringLiteral("position: absolute; left: %1;top: %2;width: %3;height: %4;")
        .arg(field.rect.left())
        .arg(field.absoluteTop)
        .arg(widthOf(field.rect))
        .arg(heightOf(field.rect));
}

QString labelStyle(const RptFieldObject &field)
{
    const qint64 pixels = qint64(field.font.pointSize()) + 5; // points are written as pixels, larger by 5 on purpose
    QString style = "style='color:" + field.fontColor.name() + ";background:" + field.backgroundColor.name()
        + ";border-left: solid thin " + field.borderLeft.name() + ";border-right: solid thin "
        + field.borderRight.name() + ";border-top: solid thin " + field.borderTop.name() + ";border-bottom: solid thin "
        + field.borderBottom.name() + ";text-align:" + cssAlignment(field.aligment)
        + ";font-size:" + QString::number(pixels) + "px;" + cssPosition(field);
    if (field.font.weight() > 57)
        style += QLatin1String("font-weight: bold;");
    if (field.font.style() != QFont::StyleNormal)
        style += QLatin1String("font-style: italic;");
    return style + '\'';
}

QString imageElement(const RptFieldObject &field)
{
    const qint64 height = heightOf(field.rect);
    // The bit of value 2 is not carried over: a field 100 units wide holds an image of 100, one of 102 an image of 100.
    const qint64 width = height == 0 ? widthOf(field.rect) : widthOf(field.rect) & ~qint64(2);
    return "<div style='" + cssPosition(field) + "text-align:" + cssAlignment(field.aligment)
        + ";'><img width=" + QString::number(width) + " height=" + QString::number(height)
        + " src=\"data:image/png;base64," + QLatin1String(field.picture.toBase64()) + "\" /></div>\n";
}

} // namespace

QString RptFieldObject::htmlStyle()
{
    if (autoHeight && parentBand)
        rect.setBottom(boundedInt(qint64(rect.top()) + parentBand->height - 1));
    switch (fieldType) {
    case Rpt::label:
        return labelStyle(*this);
    case Rpt::labelImage:
    case Rpt::image:
    case Rpt::DatabaseImage:
        return imageElement(*this);
    default:
        return QString();
    }
}
