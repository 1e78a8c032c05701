#pragma once

#include <QMetaMethod>
#include <QStringList>

/// The signals, slots and invokable methods of a class itself, in the order of its meta-object: "signal filter(...)".
inline QStringList metaMethods(const QMetaObject &metaObject)
{
    QStringList methods;
    for (int index = metaObject.methodOffset(); index < metaObject.methodCount(); ++index) {
        const QMetaMethod method = metaObject.method(index);
        const bool isSignal = method.methodType() == QMetaMethod::Signal;
        methods.append(QStringLiteral("%1 %2 %3")
                           .arg(isSignal ? QStringLiteral("signal") : QStringLiteral("slot"),
                                QLatin1String(method.typeName()), QLatin1String(method.methodSignature())));
    }
    return methods;
}
