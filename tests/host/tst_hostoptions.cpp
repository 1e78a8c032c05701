#include "hostoptions.h"

#include <QProcessEnvironment>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(QProcessEnvironment)

namespace {

using Pairs = QList<QPair<QString, QString>>;

HostCommandLine::Result parse(const QStringList &arguments, const Pairs &variables = {}, const Pairs &keys = {})
{
    QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    for (const auto &key : keys)
        settings.setValue(QStringLiteral("database/") + key.first, key.second);
    QProcessEnvironment environment;
    for (const auto &variable : variables)
        environment.insert(QStringLiteral("VIANDA_DB_") + variable.first, variable.second);
    return HostCommandLine().parse(QStringList{QStringLiteral("vianda-host")} + arguments, environment, settings);
}

/// "socket|host|port|name|user|password" of the options, or the error.
QString connectionOf(const HostCommandLine::Result &told)
{
    const DatabaseOptions &db = told.options.database;
    return told.error.isEmpty()
        ? QStringList{db.socket, db.host, QString::number(db.port), db.name, db.user, db.password}.join(
            QLatin1Char('|'))
        : told.error;
}

} // namespace

class TestHostOptions : public QObject {
    Q_OBJECT

private slots:
    void connectionComesFromTheNearestSource_data();
    void connectionComesFromTheNearestSource();
    void defaultsOfARun();
    void everyOptionIsRead();
    void nonsenseIsRefused_data();
    void nonsenseIsRefused();
    void helpNamesEveryOption();
};

void TestHostOptions::connectionComesFromTheNearestSource_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<Pairs>("variables");
    QTest::addColumn<Pairs>("keys");
    QTest::addColumn<QString>("connection");

    const Pairs environment{
        {"HOST", "env.example"}, {"PORT", "3307"}, {"NAME", "envdb"}, {"USER", "envuser"}, {"PASSWORD", "envpw"}};
    const Pairs settings{
        {"host", "set.example"}, {"port", "3308"}, {"name", "setdb"}, {"user", "setuser"}, {"password", "setpw"}};
    QTest::newRow("defaults") << QStringList() << Pairs() << Pairs() << "|localhost|3306|vianda|vianda|";
    QTest::newRow("settings") << QStringList() << Pairs() << settings << "|set.example|3308|setdb|setuser|setpw";
    QTest::newRow("environment before settings")
        << QStringList() << environment << settings << "|env.example|3307|envdb|envuser|envpw";
    QTest::newRow("command line before both")
        << QStringList{"--db-host", "cmd.example", "--db-port=3309", "--db-name", "cmddb",
                       "--db-user", "cmduser",     "--db-password",  "cmdpw"}
        << environment << settings << "|cmd.example|3309|cmddb|cmduser|cmdpw";
    QTest::newRow("each word on its own") << QStringList{"--db-user", "cmduser"} << Pairs{{"NAME", "envdb"}} << settings
                                          << "|set.example|3308|envdb|cmduser|setpw";
    QTest::newRow("a socket hides a farther host")
        << QStringList{"--db-socket", "/run/a"} << environment << settings << "/run/a||3307|envdb|envuser|envpw";
    QTest::newRow("a host hides a farther socket") << QStringList() << Pairs{{"HOST", "env.example"}}
                                                   << Pairs{{"socket", "/run/b"}} << "|env.example|3306|vianda|vianda|";
    QTest::newRow("an empty variable is not given")
        << QStringList() << Pairs{{"SOCKET", ""}, {"NAME", ""}} << Pairs{{"socket", "/run/b"}, {"name", "setdb"}}
        << "/run/b||3306|setdb|vianda|";
    QTest::newRow("socket and host on the command line")
        << QStringList{"--db-socket", "/run/a", "--db-host", "h"} << Pairs() << Pairs()
        << "The options name both a socket and a host of the database; give one of them.";
    QTest::newRow("socket and host in the environment")
        << QStringList() << Pairs{{"SOCKET", "/run/a"}, {"HOST", "h"}} << Pairs()
        << "The environment variables name both a socket and a host of the database; give one of them.";
    QTest::newRow("socket and host in the settings")
        << QStringList() << Pairs() << Pairs{{"socket", "/run/a"}, {"host", "h"}}
        << "The settings name both a socket and a host of the database; give one of them.";
    QTest::newRow("both in a farther source do not matter")
        << QStringList{"--db-host", "h"} << Pairs{{"SOCKET", "/run/a"}, {"HOST", "x"}} << Pairs()
        << "|h|3306|vianda|vianda|";
    QTest::newRow("no port") << QStringList{"--db-port", "0"} << Pairs() << Pairs()
                             << "'0' is no port: a number from 1 to 65535 is needed.";
    QTest::newRow("port too great") << QStringList() << Pairs{{"PORT", "65536"}} << Pairs()
                                    << "'65536' is no port: a number from 1 to 65535 is needed.";
    QTest::newRow("port no number") << QStringList() << Pairs() << Pairs{{"port", "tri"}}
                                    << "'tri' is no port: a number from 1 to 65535 is needed.";
}

void TestHostOptions::connectionComesFromTheNearestSource()
{
    QFETCH(QStringList, arguments);
    QFETCH(Pairs, variables);
    QFETCH(Pairs, keys);
    QTEST(connectionOf(parse(arguments, variables, keys)), "connection");
}

void TestHostOptions::defaultsOfARun()
{
    const HostCommandLine::Result told = parse({});
    QCOMPARE(told.error, QString());
    QVERIFY(!told.helpWanted);
    QCOMPARE(told.options.pluginFile, QString());
    QCOMPARE(told.options.adminID, 0U);
    QVERIFY(!told.options.readOnly);
    QCOMPARE(told.options.companyName, QString());
    QCOMPARE(told.options.debugLevel, quint8(0));
    QCOMPARE(told.options.page, QString());
    QCOMPARE(told.options.screenshotFile, QString());
    QVERIFY(!told.options.size.isValid());
    QCOMPARE(told.options.scale, 1.0);
    QVERIFY(told.options.script.isEmpty());
}

void TestHostOptions::everyOptionIsRead()
{
    const HostOptions options =
        parse({"--plugin",      "p.so",          "--admin",
               "4294967295",    "--read-only",   "--company",
               "Pekáreň Žito",  "--debug-level", "255",
               "--style-sheet", "s.qss",         "--page",
               "Jedlá",         "--screenshot",  "s.png",
               "--size",        "1650x984",      "--scale",
               "1.5",           "--script",      "click:butOrdersSwitch;select:comboBoxPeople=3"})
            .options;
    QCOMPARE(options.pluginFile, QStringLiteral("p.so"));
    QCOMPARE(options.adminID, 4294967295U);
    QVERIFY(options.readOnly);
    QCOMPARE(options.companyName, QStringLiteral("Pekáreň Žito"));
    QCOMPARE(options.debugLevel, quint8(255));
    QCOMPARE(options.styleSheetFile, QStringLiteral("s.qss"));
    QCOMPARE(options.page, QStringLiteral("Jedlá"));
    QCOMPARE(options.screenshotFile, QStringLiteral("s.png"));
    QCOMPARE(options.size, QSize(1650, 984));
    QCOMPARE(options.scale, 1.5);
    QCOMPARE(options.script.size(), 2);
    QVERIFY(parse({"--help"}).helpWanted);
}

void TestHostOptions::nonsenseIsRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");

    QTest::newRow("unknown option") << QStringList{"--frobnicate"} << "Unknown option 'frobnicate'.";
    QTest::newRow("stray word") << QStringList{"menu"} << "Unexpected argument 'menu'.";
    QTest::newRow("negative administrator")
        << QStringList{"--admin=-1"} << "--admin: '-1' is no number from 0 to 4294967295.";
    QTest::newRow("administrator too great")
        << QStringList{"--admin", "4294967296"} << "--admin: '4294967296' is no number from 0 to 4294967295.";
    QTest::newRow("level too great") << QStringList{"--debug-level", "256"}
                                     << "--debug-level: '256' is no number from 0 to 255.";
    QTest::newRow("the first of two") << QStringList{"--admin", "a", "--size", "b"}
                                      << "--admin: 'a' is no number from 0 to 4294967295.";
    for (const char *size : {"1650", "1650x", "0x984", "1650*984", "16500x984", "-5x984", "1650x984x1"})
        QTest::newRow(size) << QStringList{"--size", size}
                            << QStringLiteral("--size: '%1' is no size such as 1650x984.").arg(size);
    for (const char *scale : {"0.4", "4.1", "two", "nan", ""})
        QTest::newRow(qPrintable(QStringLiteral("scale %1").arg(scale)))
            << QStringList{QStringLiteral("--scale=%1").arg(scale)}
            << QStringLiteral("--scale: '%1' is no number from 0.5 to 4.").arg(scale);
    QTest::newRow("script") << QStringList{"--script", "jump:x"}
                            << "--script: 'jump' is no verb; there are click, doubleclick, select and type.";
}

void TestHostOptions::nonsenseIsRefused()
{
    QFETCH(QStringList, arguments);
    QTEST(parse(arguments).error, "error");
}

void TestHostOptions::helpNamesEveryOption()
{
    const QString help = HostCommandLine().helpText();
    for (const char *word :
         {"--plugin",      "--db-socket",       "--db-host",      "--db-port",  "--db-name",     "--db-user",
          "--db-password", "--admin",           "--read-only",    "--company",  "--debug-level", "--style-sheet",
          "--page",        "--screenshot",      "--size",         "--scale",    "--script",      "VIANDA_DB_SOCKET",
          "click:NAME",    "select:NAME=ENTRY", "type:NAME=TEXT", "doubleclick"})
        QVERIFY2(help.contains(QLatin1String(word)), word);
}

QTEST_MAIN(TestHostOptions)
#include "tst_hostoptions.moc"
