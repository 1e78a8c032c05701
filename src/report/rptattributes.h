#pragma once

#include "report/rptenums.h"

#include <QColor>
#include <QString>

class QDomElement;

/// How the attributes of a template read. Nothing is ever reported: what does not convert is 0, the format's rule.
namespace RptAttributes {

/// The attribute as it stands; `defaultText` where it is missing. An attribute that is there and empty stays empty.
QString text(const QDomElement &element, const char *name, const char *defaultText = "");
/// The attribute as a whole number of base 10; 0 for a text that is none or does not fit an `int`.
int number(const QDomElement &element, const char *name, const char *defaultText = "0");
/// The attribute as a number tested against 0: "2" is set, "true" is not.
bool flag(const QDomElement &element, const char *name, const char *defaultText = "0");
/// The attribute as a real number with a decimal point; 0 for a text that is none, "inf" and "nan" included.
double real(const QDomElement &element, const char *name, const char *defaultText = "0");

/// A colour in the form "rgba(1,2,3,255)": what stands between the first "(" and the next ")", cut at commas. An empty
/// text is an invalid colour; a section that is missing or no number is 0, the alpha too, and one beyond 0 to 255 is
/// the nearer end. Without the brackets all sections are missing.
QColor color(const QString &text);
/// The colour in that form, for example "rgba(255,255,255,255)".
QString colorText(const QColor &color);

/// The flags of `aligmentH` and `aligmentV` together; an unknown name adds nothing.
Qt::Alignment alignment(const QString &horizontal, const QString &vertical);
/// The pen style of a border style; anything but "dashed", "dotted", "dot-dash" and "dot-dot-dash" is solid.
Qt::PenStyle penStyle(const QString &borderStyle);

/// The number of a band type's name, 0 for an unknown one.
int bandType(const QString &name);
/// The field type of an element, by its `type`, and by its `picture` if that decides: a picture other than "text" makes
/// an image of a diagram, a line, a database image, a cross table, and of a type that is unknown.
Rpt::FieldType fieldType(const QDomElement &field);
/// The name of a field type's number; "label" for any number that is none.
QString fieldTypeName(int fieldType);
/// The first band of a `Report` element whose type is this one; a null element when there is none.
QDomElement bandByTypeName(const QDomElement &report, Rpt::BandType type);

} // namespace RptAttributes
