#include "pluginhandle.h"

#include "shell/menuplugininterface.h"
#include "shell/verinfointerface.h"
#include "support/logcatcher.h"

#include <QDir>
#include <QPointer>
#include <QtTest>

class TestPluginHandle : public QObject {
    Q_OBJECT

private slots:
    void loadsAPluginAndLetsItGo();
    void filesThatAreNoSuchPlugin_data();
    void filesThatAreNoSuchPlugin();
    void defaultFileStandsBesideTheProgram();
};

void TestPluginHandle::loadsAPluginAndLetsItGo()
{
    QPointer<QObject> root;
    {
        const PluginHandle plugin(QStringLiteral(FAKE_PLUGIN));
        QCOMPARE(plugin.problem(), QString());
        root = plugin.root();
        QVERIFY(root);
        QCOMPARE(qobject_cast<MenuPluginInterface *>(root.data())->version(), QStringLiteral("0.1"));
        QVERIFY(qobject_cast<VerInfoInterface *>(root.data()));
    }
    QVERIFY(root.isNull());
}

void TestPluginHandle::filesThatAreNoSuchPlugin_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("problem");
    QTest::newRow("missing") << "/nowhere/libvianda.so"
                             << "Zásuvný modul sa nenašiel: /nowhere/libvianda.so";
    QTest::newRow("a folder") << "/usr"
                              << "Zásuvný modul sa nenašiel: /usr";
    QTest::newRow("a program") << VIANDA_HOST << "Súbor " VIANDA_HOST " nie je zásuvný modul.";
    QTest::newRow("of another kind") << OTHER_KIND
                                     << "Súbor " OTHER_KIND " je zásuvný modul iného druhu (org.example.Other).";
    QTest::newRow("without the interfaces")
        << BARREN_PLUGIN << "Zásuvný modul " BARREN_PLUGIN " nemá rozhranie, ktoré tento program potrebuje.";
}

void TestPluginHandle::filesThatAreNoSuchPlugin()
{
    QFETCH(QString, file);
    QFETCH(QString, problem);
    LogCatcher log;
    const PluginHandle plugin(file);
    QVERIFY(!plugin.root());
    QCOMPARE(plugin.problem(), problem);
    QCOMPARE(log.critical(), QStringList{QStringLiteral("Host: ") + problem});
}

void TestPluginHandle::defaultFileStandsBesideTheProgram()
{
    QCOMPARE(PluginHandle::defaultFile(),
             QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../plugins/libvianda.so")));
}

QTEST_GUILESS_MAIN(TestPluginHandle)
#include "tst_pluginhandle.moc"
