#include "session/sqltext.h"

#include <QVariant>

QString sqlText(const QVariant &value)
{
    return value.isNull() ? QString() : value.toString();
}
