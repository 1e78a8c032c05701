#include "support/testdatabase.h"

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

/// One run of the built program to its end.
struct Run {
    int exitCode = -1;
    QString output;
    QString errors;
};

QString part(const QString &text, const QString &after, const QString &before)
{
    const int begin = text.indexOf(after);
    return begin < 0 ? QString() : text.mid(begin, text.indexOf(before, begin) - begin);
}

} // namespace

/// The program as its users and scripts run it, with a fake plug-in.
class TestProgram : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void helpIsPrinted();
    void wrongUseIsRefused();
    void pictureOfAPage();
    void pictureWithoutADisplay();
    void pictureInDoubleSize();
    void pictureOfTheDialogThatStandsOpen();
    void pluginGetsTheOptionsInOrder();
    void nothingIsPictured_data();
    void nothingIsPictured();
    void runWithoutADisplaySaysSo();
    void runWithAUserBearsEverythingMissing();
    void foreignSettingsStay();

private:
    Run run(const QStringList &arguments, bool display = true);
    QStringList complete() const;
    QString picture() const { return m_folder->filePath(QStringLiteral("obrázok.png")); }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProgram::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestProgram::cleanupTestCase()
{
    m_database.reset();
}

void TestProgram::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

Run TestProgram::run(const QStringList &arguments, bool display)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder->path());
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(variable));
    if (display)
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(VIANDA_HOST), arguments);
    if (!program.waitForFinished()) {
        program.kill();
        program.waitForFinished();
        return {-1, {}, QStringLiteral("the program did not end")};
    }
    return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
            QString::fromUtf8(program.readAllStandardOutput()), QString::fromUtf8(program.readAllStandardError())};
}

/// Arguments with which everything is there.
QStringList TestProgram::complete() const
{
    return {QStringLiteral("--plugin"), QStringLiteral(FAKE_PLUGIN),    QStringLiteral("--db-socket"),
            TestDatabase::socket(),     QStringLiteral("--db-name"),    m_database->name(),
            QStringLiteral("--page"),   QStringLiteral("menu"),         QStringLiteral("--size"),
            QStringLiteral("640x480"),  QStringLiteral("--screenshot"), picture()};
}

void TestProgram::helpIsPrinted()
{
    const Run help = run({QStringLiteral("--help")}, false);
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.output.contains(QLatin1String("--screenshot")));
    QCOMPARE(help.errors, QString());
}

void TestProgram::wrongUseIsRefused()
{
    const Run wrong = run({QStringLiteral("--admin"), QStringLiteral("všetci")}, false);
    QCOMPARE(wrong.exitCode, 2);
    QCOMPARE(wrong.errors,
             QStringLiteral("--admin: 'všetci' is no number from 0 to 4294967295.\n"
                            "vianda-host --help lists the options.\n"));
}

void TestProgram::pictureOfAPage()
{
    const Run taken = run(complete());
    QVERIFY2(taken.exitCode == 0, qPrintable(taken.errors));
    QCOMPARE(QImage(picture()).size(), QSize(640, 480));
    QVERIFY(taken.errors.contains(QLatin1String("FakePlugin setDatabase open\n")));
}

void TestProgram::pictureWithoutADisplay()
{
    const Run taken = run(complete(), false);
    QVERIFY2(taken.exitCode == 0, qPrintable(taken.errors));
    QCOMPARE(QImage(picture()).size(), QSize(640, 480));
}

void TestProgram::pictureInDoubleSize()
{
    const Run taken = run(complete() + QStringList{QStringLiteral("--scale"), QStringLiteral("2")}, false);
    QVERIFY2(taken.exitCode == 0, qPrintable(taken.errors));
    QCOMPARE(QImage(picture()).size(), QSize(1280, 960));
}

void TestProgram::pictureOfTheDialogThatStandsOpen()
{
    const Run taken = run(
        complete() + QStringList{QStringLiteral("--script"), QStringLiteral("click:butDialog;type:line=kôň")}, false);
    QVERIFY2(taken.exitCode == 0, qPrintable(taken.errors));
    QCOMPARE(QImage(picture()).size(), QSize(200, 100));
}

void TestProgram::pluginGetsTheOptionsInOrder()
{
    const Run taken = run(complete()
                          + QStringList{QStringLiteral("--admin"), QStringLiteral("3"), QStringLiteral("--read-only"),
                                        QStringLiteral("--company"), QStringLiteral("Žito"),
                                        QStringLiteral("--debug-level"), QStringLiteral("2")});
    QCOMPARE(taken.exitCode, 0);
    QCOMPARE(part(taken.errors, QStringLiteral("FakePlugin setDatabase"), QStringLiteral("FakePlugin menu")),
             QStringLiteral("FakePlugin setDatabase open\nFakePlugin setDebugLevel 2\n"
                            "FakePlugin setOptions adminID=3 companyName=Žito debugLevel=2 readOnly=true\n"));
    QVERIFY(taken.errors.contains(QLatin1String("FakePlugin menu connected\n")));
}

void TestProgram::nothingIsPictured_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no plug-in") << QStringList{"--plugin", "/nowhere.so"}
                                << "Host: Zásuvný modul sa nenašiel: /nowhere.so";
    QTest::newRow("another plug-in") << QStringList{"--plugin", OTHER_KIND} << "je zásuvný modul iného druhu";
    QTest::newRow("refused account") << QStringList{"--db-user", "nobody"}
                                     << "Host: no connection to the database - Access denied";
    QTest::newRow("no such database") << QStringList{"--db-name", "nodb"} << "Host: no connection to the database - ";
    QTest::newRow("no such page") << QStringList{"--page", "orders"} << "Host: Stránka „orders“ neexistuje.";
    QTest::newRow("closed page") << QStringList{"--page", "settings", "--read-only"}
                                 << "Host: Stránka „Nastavenia“ je zatvorená.";
    QTest::newRow("entry without a page")
        << QStringList{"--page", "settings"} << "Host: Položka „Nastavenia“ zatiaľ nemá stránku.";
    QTest::newRow("step that fails") << QStringList{"--script", "click:nobody"}
                                     << "Host: nobody#1: there is no such visible widget";
    QTest::newRow("folder that is not there")
        << QStringList{"--screenshot", "/nowhere/a.png"} << "Host: /nowhere/a.png: ";
    QTest::newRow("format that is none") << QStringList{"--screenshot", "SUFFIX"} << ".doc: Unsupported image format";
}

void TestProgram::nothingIsPictured()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const QString document = m_folder->filePath(QStringLiteral("a.doc"));
    arguments.replaceInStrings(QStringLiteral("SUFFIX"), document);
    // A later option of the same name wins.
    const Run taken = run(complete() + arguments, false);
    QCOMPARE(taken.exitCode, 1);
    QVERIFY2(taken.errors.contains(reason), qPrintable(taken.errors));
    QVERIFY(!QFileInfo::exists(picture()));
    QVERIFY(!QFileInfo::exists(document));
}

void TestProgram::runWithoutADisplaySaysSo()
{
    const Run refused = run({}, false);
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(refused.errors,
             QStringLiteral("There is no display to open the window on; --screenshot FILE draws it without one.\n"));
}

void TestProgram::runWithAUserBearsEverythingMissing()
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder->path());
    environment.insert(QStringLiteral("VIANDA_DB_SOCKET"), QStringLiteral("/nowhere/socket"));
    program.setProcessEnvironment(environment);
    program.setReadChannel(QProcess::StandardError);
    program.start(QStringLiteral(VIANDA_HOST), {QStringLiteral("--plugin"), QStringLiteral(FAKE_PLUGIN)});
    QByteArray errors;
    // The window stands, with a plug-in that has got a closed handle.
    QVERIFY(QTest::qWaitFor(
        [&] {
            program.waitForReadyRead(50);
            errors += program.readAllStandardError();
            return errors.contains("FakePlugin menu connected");
        },
        20000));
    QVERIFY(errors.contains("FakePlugin setDatabase closed"));
    QVERIFY(!program.waitForFinished(500));
    program.kill();
    program.waitForFinished();
}

void TestProgram::foreignSettingsStay()
{
    const QString file = m_folder->filePath(QStringLiteral("NORVIK-IT/ZEP.conf"));
    {
        QSettings settings(file, QSettings::IniFormat);
        settings.setValue(QStringLiteral("filters"), QVariantMap{{QStringLiteral("menuwidget"), 1}});
        settings.setValue(QStringLiteral("database/socket"), TestDatabase::socket());
        settings.setValue(QStringLiteral("database/name"), m_database->name());
    }
    const Run taken =
        run({QStringLiteral("--plugin"), QStringLiteral(FAKE_PLUGIN), QStringLiteral("--screenshot"), picture()});
    QVERIFY2(taken.exitCode == 0, qPrintable(taken.errors));
    QVERIFY(taken.errors.contains(QLatin1String("FakePlugin setDatabase open")));
    QSettings settings(file, QSettings::IniFormat);
    QCOMPARE(
        settings.allKeys(),
        (QStringList{QStringLiteral("database/name"), QStringLiteral("database/socket"), QStringLiteral("filters")}));
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
