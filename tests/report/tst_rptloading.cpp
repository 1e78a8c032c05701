#include "report/rptengine.h"
#include "report/rptfieldobject.h"
#include "report/rptvalues.h"
#include "reporttemplate.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const char resource[] = ":/test/loading.xml";

QDomDocument documentOf(const QString &pages)
{
    QDomDocument document;
    document.setContent(QStringLiteral("<Reports>") + pages + QStringLiteral("</Reports>"));
    return document;
}

QList<int> pageNumbers(const RptEngine &engine)
{
    QList<int> numbers;
    for (const RptPageObject *page : engine.pages())
        numbers.append(page->pageNo);
    return numbers;
}

} // namespace

/// Construction, loading of templates, and what a caller can set beforehand.
class TestRptLoading : public QObject {
    Q_OBJECT

private slots:
    void init() { RptValues::instance().clear(); }

    void metaObject();
    void newEngine();
    void resourceIsLoaded();
    void fileIsLoaded();
    void missingFileIsSilent_data();
    void missingFileIsSilent();
    void malformedFileIsToldAndChangesNothing_data();
    void malformedFileIsToldAndChangesNothing();
    void loadingAgainReplaces();
    void documentIsLoaded();
    void loadingClearsTheValues();
    void otherRootAndNoPages();
    void painterAndPrinterAreTakenOnce();
    void painterAndPrinterOutliveTheEngine();
    void connectionRecords();
    void connectionRecordsOutsideTheTemplate();
    void recordCounts();
    void dataSetsOfEachPage();
    void damagedBandNumber();
    void dataSetsComeBeforeValues();
    void changesLastForOnePrint();

private:
    QString write(const QByteArray &contents);

    QTemporaryDir m_folder;
};

QString TestRptLoading::write(const QByteArray &contents)
{
    QFile file(m_folder.filePath(QStringLiteral("template.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("the template of the test cannot be written");
    return file.fileName();
}

void TestRptLoading::metaObject()
{
    QCOMPARE(metaMethods(RptEngine::staticMetaObject),
             (QStringList{
                 "signal void setValue(int,QString,QVariant&,int)", "signal void setField(RptFieldObject&)",
                 "signal void setValueImage(int,QString,QImage&,int)", "signal void setValueDiagram(GraphDataList&)",
                 "signal void setChart(RptFieldObject&,QtCharts::QChart&)", "signal void newPage(int)",
                 "signal void setDSInfo(DataSetInfo&)", "slot void printPreview(QPrinter*)", "slot void exportTo()"}));
    // The form in which callers connect by name.
    const QMetaObject &meta = RptEngine::staticMetaObject;
    QVERIFY(
        meta.indexOfSignal(
            QMetaObject::normalizedSignature("setValue(const int, const QString, QVariant&, const int)").constData())
        >= 0);
    QVERIFY(meta.indexOfSignal(QMetaObject::normalizedSignature("setDSInfo(DataSetInfo &)").constData()) >= 0);
}

void TestRptLoading::newEngine()
{
    const RptEngine engine;
    QCOMPARE(engine.pages().size(), 0);
    QVERIFY(QMetaType::type("DataSetInfo") != QMetaType::UnknownType);
    QCOMPARE(engine.recordCount(0, 1), 0);
}

void TestRptLoading::resourceIsLoaded()
{
    RptEngine engine;
    LogCatcher log;
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    QCOMPARE(pageNumbers(engine), (QList<int>{7, 8}));
    QVERIFY(engine.pages().at(0)->findFieldByName(QStringLiteral("head")));
    QCOMPARE(engine.pages().at(0)->findFieldByName(QStringLiteral("head"))->value, QStringLiteral("Objednávky <Date>"));
    QCOMPARE(engine.pages().at(0)->report, &engine);
    QCOMPARE(log.lines(), QStringList());
}

void TestRptLoading::fileIsLoaded()
{
    QFile file{QLatin1String(resource)};
    QVERIFY(file.open(QIODevice::ReadOnly));
    RptEngine engine;
    QVERIFY(engine.loadReportFile(write(file.readAll())));
    QCOMPARE(pageNumbers(engine), (QList<int>{7, 8}));
}

void TestRptLoading::missingFileIsSilent_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("no file") << m_folder.filePath(QStringLiteral("missing.xml"));
    QTest::newRow("no resource") << QStringLiteral(":/test/missing.xml");
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("no name") << QString();
}

void TestRptLoading::missingFileIsSilent()
{
    QFETCH(QString, fileName);
    RptEngine engine;
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    RptValues::instance().add(QStringLiteral("[0]"), QStringLiteral("kept"), 0, 0);
    LogCatcher log;
    QVERIFY(!engine.loadReportFile(fileName));
    // Qt itself speaks up for an empty name.
    const QStringList expected =
        fileName.isEmpty() ? QStringList{"QFSFileEngine::open: No file name specified"} : QStringList();
    QCOMPARE(log.lines(), expected);
    QCOMPARE(pageNumbers(engine), (QList<int>{7, 8}));
    QVERIFY(!RptValues::instance().isEmpty());
}

void TestRptLoading::malformedFileIsToldAndChangesNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no template");
    QTest::newRow("cut in a tag") << QByteArray("<Reports><Report pageNo=\"1");
    QTest::newRow("cut between tags") << QByteArray("<Reports><Report/>");
    QTest::newRow("crossed tags") << QByteArray("<Reports><Report></Reports></Report>");
    QTest::newRow("two roots") << QByteArray("<Reports/><Reports/>");
    QTest::newRow("attribute twice") << QByteArray("<Reports><Report pageNo='1' pageNo='2'/></Reports>");
    QTest::newRow("bare ampersand") << QByteArray("<Reports><Report name='a & b'/></Reports>");
}

void TestRptLoading::malformedFileIsToldAndChangesNothing()
{
    QFETCH(QByteArray, contents);
    ReportRun run(page(band(QStringLiteral("ReportTitle"), 20, label(QStringLiteral("[t]")))));
    const QList<RptPageObject *> before = run.engine.pages();
    RptValues::instance().add(QStringLiteral("[0]"), QStringLiteral("gone"), 0, 0);
    LogCatcher log;
    QVERIFY(!run.engine.loadReportFile(write(contents)));
    QCOMPARE(log.lines(), QStringList{"Report file not found"});
    QCOMPARE(log.lines(QtWarningMsg).size(), 1);
    QCOMPARE(run.engine.pages(), before);
    QVERIFY(RptValues::instance().isEmpty());
    // The template is whole, too: it prints.
    int asked = 0;
    connect(&run.engine, &RptEngine::setField, this, [&asked] { ++asked; });
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(m_folder.filePath(QStringLiteral("after.pdf")));
    run.engine.printPreview(&printer);
    QVERIFY(asked > 0);
}

void TestRptLoading::loadingAgainReplaces()
{
    RptEngine engine;
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    engine.setSqlActive(1, true);
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    QCOMPARE(pageNumbers(engine), (QList<int>{7, 8}));
    QVERIFY2(!engine.sqlConnection(1).active, "a connection belongs to the template that it was set for");
    QVERIFY(engine.loadReportFile(write("<Reports/>")));
    QCOMPARE(engine.pages().size(), 0);
}

void TestRptLoading::documentIsLoaded()
{
    RptEngine engine;
    QVERIFY(
        engine.loadReportDocument(documentOf(QStringLiteral("<Script/><Report pageNo='1'/><x/><Report pageNo='2'/>"))));
    QCOMPARE(pageNumbers(engine), (QList<int>{1, 2}));
    QVERIFY(engine.loadReportDocument(QDomDocument()));
    QCOMPARE(engine.pages().size(), 0);
}

void TestRptLoading::loadingClearsTheValues()
{
    const auto fill = [] {
        RptValues::instance().add(QStringLiteral("[0]"), QStringLiteral("1"), 0, 0);
        RptValues::instance().setGroupRecordIndexes({0});
    };
    RptEngine engine;
    fill();
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    QVERIFY(RptValues::instance().isEmpty());
    QCOMPARE(RptValues::instance().groupRecordIndexes(), QList<int>());
    fill();
    QVERIFY(engine.loadReportDocument(documentOf(QString())));
    QVERIFY(RptValues::instance().isEmpty());
    QCOMPARE(RptValues::instance().groupRecordIndexes(), QList<int>());
}

/// Only the children of the root count, whatever it is called.
void TestRptLoading::otherRootAndNoPages()
{
    RptEngine engine;
    QVERIFY(engine.loadReportFile(write("<Anything><Report pageNo='3'><Report pageNo='4'/></Report></Anything>")));
    QCOMPARE(pageNumbers(engine), QList<int>{3});
    QVERIFY(engine.loadReportFile(write("<Report pageNo='5'/>")));
    QCOMPARE(engine.pages().size(), 0);
}

void TestRptLoading::painterAndPrinterAreTakenOnce()
{
    RptEngine engine;
    QPrinter printer;
    QPrinter otherPrinter;
    QPainter painter;
    QPainter otherPainter;
    QVERIFY(engine.setPrinter(&printer));
    QVERIFY(!engine.setPrinter(&otherPrinter));
    QVERIFY(!engine.setPrinter(&printer));
    QVERIFY(engine.setPainter(&painter));
    QVERIFY(!engine.setPainter(&otherPainter));
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    engine.exportToPdf(m_folder.filePath(QStringLiteral("taken.pdf")), true);
    QCOMPARE(printer.outputFileName(), m_folder.filePath(QStringLiteral("taken.pdf")));
    QCOMPARE(otherPrinter.outputFileName(), QString());
}

void TestRptLoading::painterAndPrinterOutliveTheEngine()
{
    QPrinter printer;
    QPainter painter;
    {
        RptEngine engine;
        QVERIFY(engine.setPrinter(&printer));
        QVERIFY(engine.setPainter(&painter));
    }
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(m_folder.filePath(QStringLiteral("own.pdf")));
    QVERIFY(painter.begin(&printer));
    QVERIFY(painter.end());
}

void TestRptLoading::connectionRecords()
{
    RptEngine engine;
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    const QString hostile = QStringLiteral("o'Neill \\ \"%1\" <b>🍲</b>");
    engine.setSqlConnection(1, true, hostile, QStringLiteral("QMYSQL"), QStringLiteral("kitchen"),
                            QStringLiteral("host"), QStringLiteral("user"), QStringLiteral("secret"), 3307,
                            QStringLiteral("connection"), QStringLiteral("SELECT 1"), QStringLiteral("utf8mb4"),
                            QStringLiteral("UTF-8"));
    const RptSqlConnection read = engine.sqlConnection(1);
    QCOMPARE(read.active, true);
    QCOMPARE(read.name, hostile);
    QCOMPARE(read.dbType, QStringLiteral("QMYSQL"));
    QCOMPARE(read.dbName, QStringLiteral("kitchen"));
    QCOMPARE(read.dbHost, QStringLiteral("host"));
    QCOMPARE(read.dbUser, QStringLiteral("user"));
    QCOMPARE(read.dbPassword, QStringLiteral("secret"));
    QCOMPARE(read.dbPort, 3307);
    QCOMPARE(read.dbConnectionName, QStringLiteral("connection"));
    QCOMPARE(read.sqlQuery, QStringLiteral("SELECT 1"));
    QCOMPARE(read.dbCoding, QStringLiteral("utf8mb4"));
    QCOMPARE(read.charsetCoding, QStringLiteral("UTF-8"));
    QCOMPARE(engine.sqlConnection(0).name, QString());
    engine.setSqlActive(1, false);
    QCOMPARE(engine.sqlConnection(1).active, false);
    QCOMPARE(engine.sqlConnection(1).name, hostile);
}

void TestRptLoading::connectionRecordsOutsideTheTemplate()
{
    RptEngine engine;
    QVERIFY(engine.loadReportFile(QLatin1String(resource)));
    for (const int index : {-1, 2, 1000}) {
        engine.setSqlConnection(index, true, QStringLiteral("x"), QString(), QString(), QString(), QString(), QString(),
                                0, QString(), QString(), QString(), QString());
        engine.setSqlActive(index, true);
        QCOMPARE(engine.sqlConnection(index).active, false);
        QCOMPARE(engine.sqlConnection(index).name, QString());
    }
    QCOMPARE(engine.sqlConnection(0).active, false);
    QCOMPARE(engine.sqlConnection(1).active, false);
}

void TestRptLoading::recordCounts()
{
    const QString data = QStringLiteral("MasterData");
    ReportRun run(page(band(data, 10, QString()) + band(data, 10, QString(), QStringLiteral("bandNo='2'")))
                  + page(band(data, 10, QString())));
    run.counts = {{1, 3}, {2, 4}};
    run.engine.exportToHtml(m_folder.filePath(QStringLiteral("counts.html")), false);
    QCOMPARE(run.engine.recordCount(0, 1), 3);
    QCOMPARE(run.engine.recordCount(0, 2), 4);
    QCOMPARE(run.engine.recordCount(1, 1), 3);
    QCOMPARE(run.engine.recordCount(1, 2), 0);
    QCOMPARE(run.engine.recordCount(2, 1), 0);
    run.engine.setRecordCount(0, 1, 9);
    run.engine.setRecordCount(5, 1, 9);
    QCOMPARE(run.engine.recordCount(0, 1), 9);
    QCOMPARE(run.engine.recordCount(1, 1), 3);
    QCOMPARE(run.engine.recordCount(5, 1), 0);
    run.engine.exportToHtml(m_folder.filePath(QStringLiteral("counts.html")), false);
    QCOMPARE(run.engine.recordCount(0, 1), 3);
}

void TestRptLoading::dataSetsOfEachPage()
{
    const QString data = QStringLiteral("MasterData");
    ReportRun run(page(band(data, 10, QString(), QStringLiteral("bandNo='3' dataSourceName='third'"))
                       + band(data, 10, QString(), QStringLiteral("dataSourceName='first'"))
                       + band(data, 10, QString(), QStringLiteral("dataSourceName='first again'"))
                       + band(QStringLiteral("MasterHeader"), 10, QString(), QStringLiteral("bandNo='5'")))
                  + page(QString())
                  + page(band(data, 10, QString(), QStringLiteral("bandNo='6' dataSourceName='sixth'"))));
    QStringList asked;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked](DataSetInfo &info) {
        asked.append(QStringLiteral("%1 %2 '%3' %4")
                         .arg(info.reportPage)
                         .arg(info.dataSetNo)
                         .arg(info.dataSetName)
                         .arg(info.recordCount));
    });
    run.engine.exportToHtml(m_folder.filePath(QStringLiteral("sets.html")), false);
    QCOMPARE(asked,
             (QStringList{"0 1 'first' 0", "0 2 '' 0", "0 3 'third' 0", "2 1 '' 0", "2 2 '' 0", "2 3 '' 0", "2 4 '' 0",
                          "2 5 '' 0", "2 6 'sixth' 0"}));
}

/// A number of billions is damage, and asking for as many data sets would never end.
void TestRptLoading::damagedBandNumber()
{
    ReportRun run(page(band(QStringLiteral("MasterData"), 10, label(QStringLiteral("[0]")))
                       + band(QStringLiteral("MasterData"), 10, QString(), QStringLiteral("bandNo='2147483647'"))));
    run.counts = {{1, 2}};
    run.values = {{QStringLiteral("0"), QStringLiteral("row %1")}};
    int asked = 0;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&asked] { ++asked; });
    LogCatcher log;
    const QString fileName = m_folder.filePath(QStringLiteral("damaged.html"));
    run.engine.exportToHtml(fileName, false);
    QCOMPARE(asked, 1000);
    QCOMPARE(log.lines(), QStringList{"Too many data sets: 2147483647"});
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("row 1"));
}

void TestRptLoading::dataSetsComeBeforeValues()
{
    ReportRun run(page(band(QStringLiteral("PageHeader"), 10, label(QStringLiteral("[head]")))
                       + band(QStringLiteral("ReportTitle"), 10, label(QStringLiteral("[title]")))
                       + band(QStringLiteral("MasterData"), 10, label(QStringLiteral("[0]")))));
    run.counts = {{1, 1}};
    QStringList calls;
    connect(&run.engine, &RptEngine::setDSInfo, this, [&calls] { calls.append(QStringLiteral("sets")); });
    connect(&run.engine, &RptEngine::setField, this, [&calls] { calls.append(QStringLiteral("field")); });
    connect(&run.engine, &RptEngine::setValue, this,
            [&calls](int, const QString &name, QVariant &, int) { calls.append(name); });
    run.engine.exportToPdf(m_folder.filePath(QStringLiteral("calls.pdf")), true);
    QCOMPARE(calls.first(), QStringLiteral("sets"));
    QCOMPARE(calls.count(QStringLiteral("sets")), 1);
    QVERIFY(calls.count(QStringLiteral("0")) > 1);
    const QStringList once = calls;
    run.engine.exportToPdf(m_folder.filePath(QStringLiteral("calls.pdf")), true);
    QCOMPARE(calls, once + once);
}

void TestRptLoading::changesLastForOnePrint()
{
    ReportRun run(page(band(QStringLiteral("ReportTitle"), 10, label(QStringLiteral("[title]")))));
    QStringList seen;
    connect(&run.engine, &RptEngine::setField, this, [&seen](RptFieldObject &field) {
        seen.append(field.value);
        field.value = QStringLiteral("changed");
    });
    for (int print = 0; print < 2; ++print) {
        seen.clear();
        run.engine.exportToHtml(m_folder.filePath(QStringLiteral("once.html")), false);
        QCOMPARE(seen.first(), QStringLiteral("[title]"));
        QCOMPARE(seen.last(), QStringLiteral("changed"));
    }
}

QTEST_MAIN(TestRptLoading)
#include "tst_rptloading.moc"
