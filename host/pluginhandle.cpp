#include "pluginhandle.h"

#include "shell/menuplugininterface.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

namespace {

const QLatin1String interfaceId("com.norvik-it.ViandaInterface");

QString tr(const char *text)
{
    return QCoreApplication::translate("PluginHandle", text);
}

} // namespace

PluginHandle::PluginHandle(const QString &fileName)
    : m_file(QFileInfo(fileName.isEmpty() ? defaultFile() : fileName).absoluteFilePath())
    , m_loader(m_file)
{
    m_problem = load();
    if (m_problem.isEmpty())
        return;
    m_root = nullptr;
    qCritical().noquote() << "Host:" << m_problem;
}

PluginHandle::~PluginHandle()
{
    if (m_loader.isLoaded())
        m_loader.unload();
}

QString PluginHandle::defaultFile()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../plugins/libvianda.so"));
}

QString PluginHandle::load()
{
    if (!QFileInfo(m_file).isFile())
        return tr("Zásuvný modul sa nenašiel: %1").arg(m_file);
    const QString id = m_loader.metaData().value(QStringLiteral("IID")).toString();
    if (id.isEmpty())
        return tr("Súbor %1 nie je zásuvný modul.").arg(m_file);
    if (id != interfaceId)
        return tr("Súbor %1 je zásuvný modul iného druhu (%2).").arg(m_file, id);
    m_root = m_loader.instance();
    if (!m_root)
        return tr("Zásuvný modul %1 sa nedá načítať: %2").arg(m_file, m_loader.errorString());
    if (!qobject_cast<MenuPluginInterface *>(m_root)
        || m_root->metaObject()->indexOfSignal("sigSetCurrentWidget(QWidget*)") < 0)
        return tr("Zásuvný modul %1 nemá rozhranie, ktoré tento program potrebuje.").arg(m_file);
    return {};
}
