#include "report/rptattributes.h"

#include <QDomElement>
#include <QMetaEnum>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

struct NamedFlag {
    const char *name;
    int value;
};

constexpr NamedFlag horizontalFlags[] = {
    {"hLeft", Qt::AlignLeft},
    {"hRight", Qt::AlignRight},
    {"hCenter", Qt::AlignHCenter},
    {"hJustify", Qt::AlignJustify},
};

constexpr NamedFlag verticalFlags[] = {
    {"vTop", Qt::AlignTop},
    {"vBottom", Qt::AlignBottom},
    {"vCenter", Qt::AlignVCenter},
};

constexpr NamedFlag penStyles[] = {
    {"dashed", Qt::DashLine},
    {"dotted", Qt::DotLine},
    {"dot-dash", Qt::DashDotLine},
    {"dot-dot-dash", Qt::DashDotDotLine},
};

template<std::size_t Count> int valueOf(const NamedFlag (&table)[Count], const QString &name, int otherwise)
{
    for (const NamedFlag &flag : table) {
        if (name == QLatin1String(flag.name))
            return flag.value;
    }
    return otherwise;
}

/// The value of an enumeration's key, -1 for none. `QMetaEnum::keyToValue` would take scoped names as well.
int exactKey(const QMetaEnum &names, const QString &key)
{
    for (int index = 0; index < names.keyCount(); ++index) {
        if (key == QLatin1String(names.key(index)))
            return names.value(index);
    }
    return -1;
}

/// Types that a `picture` attribute does not turn into an image.
constexpr Rpt::FieldType strongerThanPicture[] = {
    Rpt::barcode,  Rpt::reactangle, Rpt::roundedReactangle, Rpt::circle, Rpt::triangle, Rpt::rhombus,
    Rpt::textRich, Rpt::label,      Rpt::labelImage,        Rpt::image,
};

bool isStrongerThanPicture(int type)
{
    return std::find(std::begin(strongerThanPicture), std::end(strongerThanPicture), type)
        != std::end(strongerThanPicture);
}

} // namespace

QString RptAttributes::text(const QDomElement &element, const char *name, const char *defaultText)
{
    return element.attribute(QLatin1String(name), QLatin1String(defaultText));
}

int RptAttributes::number(const QDomElement &element, const char *name, const char *defaultText)
{
    return text(element, name, defaultText).toInt();
}

bool RptAttributes::flag(const QDomElement &element, const char *name, const char *defaultText)
{
    return number(element, name, defaultText) != 0;
}

double RptAttributes::real(const QDomElement &element, const char *name, const char *defaultText)
{
    const double value = text(element, name, defaultText).toDouble();
    return std::isfinite(value) ? value : 0;
}

QColor RptAttributes::color(const QString &text)
{
    if (text.isEmpty())
        return QColor();
    const int open = text.indexOf('(');
    const int close = text.indexOf(')', open + 1);
    const QStringList sections =
        open < 0 || close < 0 ? QStringList() : text.mid(open + 1, close - open - 1).split(',');
    const auto channel = [&sections](int index) { return qBound(0, sections.value(index).toInt(), 255); };
    return QColor(channel(0), channel(1), channel(2), channel(3));
}

QString RptAttributes::colorText(const QColor &color)
{
    return QStringLiteral("rgba(%1,%2,%3,%4)").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha());
}

Qt::Alignment RptAttributes::alignment(const QString &horizontal, const QString &vertical)
{
    return static_cast<Qt::Alignment>(valueOf(horizontalFlags, horizontal, 0) | valueOf(verticalFlags, vertical, 0));
}

Qt::PenStyle RptAttributes::penStyle(const QString &borderStyle)
{
    return static_cast<Qt::PenStyle>(valueOf(penStyles, borderStyle, Qt::SolidLine));
}

int RptAttributes::bandType(const QString &name)
{
    return qMax(0, exactKey(QMetaEnum::fromType<Rpt::BandType>(), name));
}

Rpt::FieldType RptAttributes::fieldType(const QDomElement &field)
{
    const int type = exactKey(QMetaEnum::fromType<Rpt::FieldType>(), text(field, "type", "label"));
    if (isStrongerThanPicture(type))
        return static_cast<Rpt::FieldType>(type);
    if (text(field, "picture", "text") != QLatin1String("text"))
        return Rpt::image;
    return type < 0 ? Rpt::label : static_cast<Rpt::FieldType>(type);
}

QString RptAttributes::fieldTypeName(int fieldType)
{
    const char *const name = QMetaEnum::fromType<Rpt::FieldType>().valueToKey(fieldType);
    return QLatin1String(name ? name : "label");
}

QDomElement RptAttributes::bandByTypeName(const QDomElement &report, Rpt::BandType type)
{
    const QLatin1String tag("ReportBand");
    const QLatin1String name(QMetaEnum::fromType<Rpt::BandType>().valueToKey(type));
    QDomElement band = report.firstChildElement(tag);
    while (!band.isNull() && band.attribute(QStringLiteral("type")) != name)
        band = band.nextSiblingElement(tag);
    return band;
}
