#include "models/personordersums.h"

#include "session/sqltext.h"

#include <QDebug>
#include <QSqlQuery>
#include <QVariant>

PersonOrderSums sumByPerson(QSqlQuery &query)
{
    PersonOrderSums sums;
    while (query.next()) {
        PersonOrderSum &sum = sums[query.value(QStringLiteral("pid")).toLongLong()];
        sum.pamId = sqlText(query.value(QStringLiteral("pamId")));
        sum.personName = sqlText(query.value(QStringLiteral("personName")));
        sum.quantity += query.value(QStringLiteral("sumquantity")).toLongLong();
        sum.price += query.value(QStringLiteral("sumprice")).toDouble();
    }
    return sums;
}

QDebug operator<<(QDebug debug, const PersonOrderSum &sum)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "PersonOrderSum(" << sum.pamId << ", " << sum.personName << ", " << sum.quantity << ", "
                    << sum.price << ')';
    return debug;
}
