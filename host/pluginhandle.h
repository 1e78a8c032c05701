#pragma once

#include <QMap>
#include <QPluginLoader>
#include <QString>

class MenuPluginInterface;

/// The plug-in, loaded while this lives. Everything that came from it (its menu, its pages) must be gone before.
class PluginHandle {
public:
    /// Loads the file; an empty name stands for `defaultFile`. A file that is no plug-in for this program is not run:
    /// its record is checked first.
    explicit PluginHandle(const QString &fileName);
    /// Unloads, which destroys the root object.
    ~PluginHandle();
    Q_DISABLE_COPY(PluginHandle)

    /// ../plugins/libvianda.so beside the program's own file.
    static QString defaultFile();

    /// The root object; null with a problem. It answers to `MenuPluginInterface` and has the signal
    /// sigSetCurrentWidget(QWidget*).
    QObject *root() const { return m_root; }
    /// Why there is no plug-in, in Slovak and logged before; empty when all is well.
    QString problem() const { return m_problem; }

private:
    QString load();

    QString m_file;
    QPluginLoader m_loader;
    QObject *m_root = nullptr;
    QString m_problem;
};
