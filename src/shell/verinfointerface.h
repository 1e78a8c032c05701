#pragma once

#include <QMap>
#include <QString>
#include <QtPlugin>

/// What a host asks for its list of installed parts.
class VerInfoInterface {
public:
    virtual ~VerInfoInterface() = default;

    /// Fresh records of the module's version, by key: "VER" the version, "korvoType" the host's code of the plug-in,
    /// "BUILD" the build moment as yyMMddhhmm (missing when the build's stamps were no valid moment), "ZEPDB" the
    /// database version that the module requires. The host compares; the module never reads a database version.
    virtual QMap<QString, QString> versionInfo() = 0;
};

Q_DECLARE_INTERFACE(VerInfoInterface, "com.norvik-it.VerInfoInterface")
