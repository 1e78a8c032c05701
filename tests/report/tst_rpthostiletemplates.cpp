#include "report/rptbandobject.h"
#include "report/rptengine.h"
#include "report/rptfieldobject.h"
#include "reporttemplate.h"
#include "support/logcatcher.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int pictureMegabytes = 16;
#else
constexpr int pictureMegabytes = 100;
#endif

/// Resident memory of the process at its highest so far, in megabytes.
qint64 peakMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArrayList lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() / 1024;
    }
    return -1;
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray inReports(const QByteArray &inner, const QByteArray &before = QByteArray())
{
    return before + "<Reports><Report>" + inner + "</Report></Reports>";
}

} // namespace

/// Templates made to hurt: none crashes, hangs or costs the template that is loaded.
class TestRptHostileTemplates : public QObject {
    Q_OBJECT

private slots:
    void refused_data();
    void refused();
    void accepted_data();
    void accepted();
    void externalEntitiesStayOutside();
    void hugePicture();
    void manyFields();

private:
    QString write(const QByteArray &contents);

    QTemporaryDir m_folder;
};

QString TestRptHostileTemplates::write(const QByteArray &contents)
{
    QFile file(m_folder.filePath(QStringLiteral("hostile.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("the template of the test cannot be written");
    return file.fileName();
}

void TestRptHostileTemplates::refused_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("100,000 deep") << inReports(nested(100000));
    QTest::newRow("100,000 deep and never closed") << QByteArray("<Reports>") + QByteArray("<a>").repeated(100000);
    QTest::newRow("deep behind another fault") << inReports("&nbsp;" + nested(100000));
    QTest::newRow("one too deep") << inReports(nested(99));
    QByteArray laughs("<!DOCTYPE Reports [<!ENTITY l0 'ha'>");
    for (char level = '1'; level <= '9'; ++level) {
        const QByteArray below = QByteArray("&l") + char(level - 1) + ';';
        laughs += QByteArray("<!ENTITY l") + level + " '" + below.repeated(10) + "'>";
    }
    laughs += "]>";
    QTest::newRow("billion laughs in a text") << inReports("&l9;", laughs);
    QTest::newRow("billion laughs in an attribute") << inReports("<ReportBand name='&l9;'/>", laughs);
    const QByteArray longEntity = "<!DOCTYPE Reports [<!ENTITY a '" + QByteArray(4000, 'a') + "'>]>";
    QTest::newRow("quadratic blow-up") << inReports(QByteArray("&a;").repeated(100000), longEntity);
    QTest::newRow("entity of itself") << inReports("&a;", "<!DOCTYPE Reports [<!ENTITY a '&a;'>]>");
    QTest::newRow("entity of its own") << inReports(QByteArray(), "<!DOCTYPE Reports [<!ENTITY a 'b'>]>");
    QTest::newRow("unclosed attribute") << inReports("<ReportBand name='" + QByteArray(1000000, 'x'));
    QTest::newRow("zeros") << QByteArray(1000000, '\0');
    QTest::newRow("zero in a text") << inReports(QByteArray("a\0b", 3));
    QTest::newRow("control character") << inReports("\x01");
    QTest::newRow("no UTF-8") << inReports("<ReportBand name='\xff\xfe'/>");
    QTest::newRow("a picture") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    QTest::newRow("unknown encoding") << inReports(QByteArray(), "<?xml version='1.0' encoding='nonsense'?>");
}

void TestRptHostileTemplates::refused()
{
    QFETCH(QByteArray, contents);
    ReportRun run(page(QString()));
    const QList<RptPageObject *> before = run.engine.pages();
    const QString fileName = write(contents);
    LogCatcher log;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!run.engine.loadReportFile(fileName));
    QVERIFY2(timer.elapsed() < 10000, "takes too long to refuse");
    QCOMPARE(log.lines(QtWarningMsg), QStringList{"Report file not found"});
    QCOMPARE(run.engine.pages(), before);
}

void TestRptHostileTemplates::accepted_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("as deep as allowed") << inReports(nested(98));
    QTest::newRow("undeclared prefixes") << inReports("<x:y z:w='1'/>");
    QTest::newRow("predefined entities") << inReports("<ReportBand name='&lt;&amp;&#x1F372;&quot;'/>");
    QTest::newRow("byte order mark") << inReports(QByteArray(), "\xef\xbb\xbf");
    QTest::newRow("another encoding") << inReports("<ReportBand name='\xe8'/>",
                                                   "<?xml version='1.0' encoding='windows-1250'?>");
    QTest::newRow("document type elsewhere") << inReports(QByteArray(), "<!DOCTYPE Reports SYSTEM 'nowhere.dtd'>");
    QTest::newRow("numbers that are none") << inReports(
        "<ReportBand type='MasterData' height='99999999999999' bandNo='-7'><f width='x' height='-2147483648' "
        "left='2147483647' fontSize='-5' type='no such' picture='%%%' borderWidth='px'/></ReportBand>");
}

void TestRptHostileTemplates::accepted()
{
    QFETCH(QByteArray, contents);
    RptEngine engine;
    LogCatcher log;
    QVERIFY(engine.loadReportFile(write(contents)));
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(engine.pages().size(), 1);
}

/// An entity that names a file of the machine would bring it into the print.
void TestRptHostileTemplates::externalEntitiesStayOutside()
{
    QFile secret(m_folder.filePath(QStringLiteral("secret.txt")));
    QVERIFY(secret.open(QIODevice::WriteOnly));
    secret.write("secret");
    secret.close();
    const QByteArray declaration =
        "<!DOCTYPE Reports [<!ENTITY s SYSTEM 'file://" + secret.fileName().toUtf8() + "'>]>";
    RptEngine engine;
    LogCatcher log;
    QVERIFY(!engine.loadReportFile(write(inReports("<ReportBand>&s;</ReportBand>", declaration))));
    QCOMPARE(log.lines(), QStringList{"Report file not found"});
}

/// A picture of 100 megabytes of base64 (16 under the address sanitizer, which keeps freed memory) takes a few times
/// its size and no more.
void TestRptHostileTemplates::hugePicture()
{
    const QString fileName = m_folder.filePath(QStringLiteral("huge.xml"));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<Reports><Report><ReportBand><TContainerField name='p' type='image' picture='");
    const QByteArray megabyte(1 << 20, 'A');
    for (int part = 0; part < pictureMegabytes; ++part)
        QCOMPARE(file.write(megabyte), qint64(megabyte.size()));
    file.write("'/></ReportBand></Report></Reports>");
    file.close();
    RptEngine engine;
    const qint64 before = peakMegabytes();
    QVERIFY(before > 0);
    QVERIFY(engine.loadReportFile(fileName));
    QCOMPARE(engine.pages().at(0)->findFieldByName(QStringLiteral("p"))->picture.size(),
             pictureMegabytes * (1 << 20) / 4 * 3);
#if !defined(__SANITIZE_ADDRESS__)
    QVERIFY2(peakMegabytes() - before < 5 * pictureMegabytes,
             qPrintable(QStringLiteral("%1 megabytes").arg(peakMegabytes() - before)));
#endif
}

void TestRptHostileTemplates::manyFields()
{
    const QByteArray fields = QByteArray("<TContainerField type='label' value='x'/>").repeated(20000);
    RptEngine engine;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(engine.loadReportFile(write(inReports("<ReportBand type='ReportTitle'>" + fields + "</ReportBand>"))));
    QVERIFY(timer.elapsed() < 20000);
    QCOMPARE(engine.pages().at(0)->bandList.at(0)->fieldList.size(), 20000);
}

QTEST_MAIN(TestRptHostileTemplates)
#include "tst_rpthostiletemplates.moc"
