#include <QtPlugin>

#include <QObject>

/// Says that it is of the right kind and has none of its interfaces.
class Barren : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.norvik-it.ViandaInterface")
};

#include "barren.moc"
