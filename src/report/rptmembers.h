#pragma once

#include "report/rptattributes.h"

#include <cstddef>

/// Tables of attributes: the readers list which attribute goes to which member with which default, so that a list can
/// be compared with the format at a glance.
namespace RptAttributes {

/// One attribute of a template and the member that takes it. The member's type says how the attribute reads.
template<class Object, class Value> struct Attribute {
    const char *name;
    Value Object::*member;
    const char *defaultText;
};

inline void read(const QDomElement &element, const char *name, const char *defaultText, QString &value)
{
    value = text(element, name, defaultText);
}

inline void read(const QDomElement &element, const char *name, const char *defaultText, int &value)
{
    value = number(element, name, defaultText);
}

inline void read(const QDomElement &element, const char *name, const char *defaultText, bool &value)
{
    value = flag(element, name, defaultText);
}

inline void read(const QDomElement &element, const char *name, const char *defaultText, QColor &value)
{
    value = color(text(element, name, defaultText));
}

/// Reads every attribute of a table into its member.
template<class Object, class Value, std::size_t Count>
void readAll(const QDomElement &element, Object *object, const Attribute<Object, Value> (&table)[Count])
{
    for (const Attribute<Object, Value> &attribute : table)
        read(element, attribute.name, attribute.defaultText, object->*attribute.member);
}

} // namespace RptAttributes
