#pragma once

#include "shell/menuplugininterface.h"
#include "shell/verinfointerface.h"

#include <QMenu>
#include <QObject>
#include <QStringList>

/// A plug-in without a canteen: it writes down what the host calls, and each entry but "Nastavenia" offers a label that
/// says its title.
class FakePlugin : public QObject, public MenuPluginInterface, public VerInfoInterface {
    Q_OBJECT
    Q_INTERFACES(MenuPluginInterface VerInfoInterface)

public:
    void setDatabase(const QSqlDatabase &database) override;
    void setDebugLevel(quint8 level) override;
    void setOptions(const QVariantMap &options) override;
    QMenu *menu() override;
    QString moduleName() override;
    QString version() override;
    QMap<QString, QString> versionInfo() override;

    /// What was called, in order, with its arguments.
    QStringList calls() const { return m_calls; }

signals:
    void sigSetCurrentWidget(QWidget *widget);

public slots:
    void offerPage();

private:
    void record(const QString &call);

    QStringList m_calls;
    QMenu *m_menu = nullptr;
    bool m_readOnly = false;
};
