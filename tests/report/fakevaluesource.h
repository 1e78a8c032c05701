#pragma once

#include "report/rpttext.h"

#include <QHash>
#include <QStringList>

/// Values of tokens from a list, as the engine would give them without and with an SQL source.
class FakeValueSource : public RptValueSource {
public:
    RptTokenValue tokenValue(const QString &token) override
    {
        asked.append(token);
        if (!isSql)
            return {values.value(token), false, true};
        const bool isNamed = token.contains(QLatin1String("customers"));
        return {isNamed ? values.value(token) : QString(), true, isNamed};
    }

    QHash<QString, QString> values;
    bool isSql = false; ///< then only tokens with "customers" have values
    QStringList asked; ///< tokens in the order of the questions
};
