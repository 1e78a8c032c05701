#include "fakeplugin.h"

/// The fake as a file that the host loads.
class LoadedFake : public FakePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "com.norvik-it.ViandaInterface")
};

#include "loadedfake.moc"
