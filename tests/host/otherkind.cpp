#include "fakeplugin.h"

/// A plug-in for some other program: everything fits but the name of its kind.
class OtherKind : public FakePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.example.Other")
};

#include "otherkind.moc"
