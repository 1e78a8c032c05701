#include <QFileInfo>
#include <QLibrary>
#include <QTemporaryDir>
#include <QtTest>

/// A plug-in that writes XLS files may be unloaded and loaded again.
class TestXlsReload : public QObject {
    Q_OBJECT

private slots:
    void reload();
};

void TestXlsReload::reload()
{
    using Save = bool (*)(const char *);
    const QTemporaryDir folder;
    for (const char *name : {"first.xls", "second.xls", "third.xls"}) {
        QLibrary module(XLSMODULE);
        QVERIFY2(module.load(), qPrintable(module.errorString()));
        const auto save = reinterpret_cast<Save>(module.resolve("saveXls"));
        QVERIFY(save);
        QVERIFY(save(folder.filePath(name).toUtf8().constData()));
        QVERIFY(QFileInfo::exists(folder.filePath(name)));
        QVERIFY(module.unload());
    }
}

QTEST_GUILESS_MAIN(TestXlsReload)
#include "tst_xlsreload.moc"
