#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

/// Two pages of 60 x 40 mm: a title, then rows of 24 mm.
const char *const report = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<Reports lib="RptEngine">
  <Report pageWidth="240" pageHeight="160" marginsLeft="8" marginsRight="8" marginsTop="8" marginsBottom="8">
    <ReportBand type="ReportTitle" height="40">
      <TContainerField type="label" value="[title]" left="0" top="0" width="150" height="20" fontSize="9"
          fontFamily="DejaVu Sans"/>
      <TContainerField type="labelImage" value="[logo]" left="150" top="0" width="70" height="36"
          backgroundColor="rgba(255,255,255,255)"/>
    </ReportBand>
    <ReportBand type="MasterData" height="96">
      <TContainerField type="label" value="[name]" left="0" top="0" width="200" height="90" fontSize="9"
          fontFamily="DejaVu Sans"/>
    </ReportBand>
  </Report>
</Reports>)xml";

struct Outcome {
    int exitCode; ///< -1 for a program that crashed or did not end
    QString errors; ///< the program's own lines on its error output
    QString output;
};

} // namespace

/// The program that renders templates, end to end.
class TestRptRender : public QObject {
    Q_OBJECT

private slots:
    void init();
    void pdf();
    void html();
    void png();
    void csv();
    void imagesLieBesideTheRecords();
    void resolution();
    void help();
    void refusedArguments_data();
    void refusedArguments();
    void refusedFiles_data();
    void refusedFiles();
    void unwritable_data();
    void unwritable();
    void outputOfBeforeStays();
    void examples_data();
    void examples();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const;
    QByteArray content(const QString &name) const;
    Outcome run(const QStringList &arguments) const;
    /// Runs the program with the files of these names.
    Outcome render(const QString &records, const QString &output) const;
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestRptRender::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    write("report.xml", report);
    write("records.json", R"({"values": {"title": "Menu"}, "records": [{"name": "Guláš"}, {"name": "Halušky"}]})");
}

void TestRptRender::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(name));
}

QByteArray TestRptRender::content(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Outcome TestRptRender::run(const QStringList &arguments) const
{
    QProcess program;
    program.setWorkingDirectory(m_folder->path());
    program.start(QStringLiteral(RPTRENDER), arguments);
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit)
        return {-1, QString::fromUtf8(program.readAllStandardError()), QString()};
    QStringList errors;
    const QStringList lines = QString::fromUtf8(program.readAllStandardError()).split('\n');
    for (const QString &line : lines) {
        if (line.startsWith(QLatin1String("rptrender: ")))
            errors.append(line.mid(int(qstrlen("rptrender: "))));
    }
    return {program.exitCode(), errors.join('\n'), QString::fromUtf8(program.readAllStandardOutput())};
}

Outcome TestRptRender::render(const QString &records, const QString &output) const
{
    return run({"report.xml", records, output});
}

void TestRptRender::pdf()
{
    const Outcome outcome = render("records.json", "out.pdf");
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QVERIFY(content("out.pdf").startsWith("%PDF-"));
    QVERIFY(content("out.pdf").trimmed().endsWith("%%EOF"));
    QCOMPARE(files(), (QStringList{"out.pdf", "records.json", "report.xml"}));
}

void TestRptRender::html()
{
    QCOMPARE(render("records.json", "out.HTML").exitCode, 0);
    const QString text = QString::fromUtf8(content("out.HTML"));
    QVERIFY(text.startsWith(QLatin1String("<HTML>")));
    QVERIFY(text.endsWith(QLatin1String("</HTML>")));
    for (const char *shown : {">Menu<", ">Guláš<", ">Halušky<"})
        QVERIFY2(text.contains(QString::fromUtf8(shown)), shown);
}

void TestRptRender::png()
{
    const Outcome outcome = render("records.json", "out.png");
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(files(), (QStringList{"out-1.png", "out-2.png", "records.json", "report.xml"}));
    for (const char *name : {"out-1.png", "out-2.png"}) {
        const QImage page(path(name));
        QVERIFY(qAbs(page.width() - 60 * 96 / 25.4) < 2); // 60 mm at 96 dots per inch
        QVERIFY(qAbs(page.height() - 40 * 96 / 25.4) < 2);
    }
}

void TestRptRender::csv()
{
    write("records.csv", "title,name\nMenu,\"Guláš, chlieb\"\nMenu,Halušky\n");
    const Outcome outcome = render("records.csv", "out.html");
    QCOMPARE(outcome.errors, QString());
    const QString text = QString::fromUtf8(content("out.html"));
    QVERIFY(text.contains(QStringLiteral(">Guláš, chlieb<")));
    QCOMPARE(text.count(QLatin1String("<div ")), 3); // the title and two rows
}

void TestRptRender::imagesLieBesideTheRecords()
{
    QVERIFY(QDir(m_folder->path()).mkdir("data"));
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    QVERIFY(red.save(path("data/logo.png")));
    write("data/records.json", R"({"values": {"logo": "logo.png"}})");
    QCOMPARE(render("data/records.json", "out.png").exitCode, 0);
    // The image is as high as its field: 36 units, from 158 units of the left edge and 8 of the top one.
    const QColor middle = QImage(path("out-1.png")).pixelColor((158 + 18) * 96 / 101, (8 + 18) * 96 / 101);
    QVERIFY2(middle.red() > 240 && middle.green() < 10 && middle.blue() < 10, qPrintable(middle.name()));

    write("records.json", R"({"values": {"logo": "none.png"}})");
    const Outcome outcome = render("records.json", "out.png");
    QCOMPARE(outcome.exitCode, 0); // the report goes on without it
    QVERIFY2(outcome.errors.endsWith(QLatin1String("none.png is no image")), qPrintable(outcome.errors));
}

void TestRptRender::resolution()
{
    QCOMPARE(run({"--dpi", "48", "report.xml", "records.json", "out.png"}).exitCode, 0);
    QVERIFY(qAbs(QImage(path("out-1.png")).width() - 60 * 48 / 25.4) < 2);
}

void TestRptRender::help()
{
    const Outcome outcome = run({"--help"});
    QCOMPARE(outcome.exitCode, 0);
    for (const char *word : {"template", "records", "output", "--dpi"})
        QVERIFY2(outcome.output.contains(QLatin1String(word)), word);
}

void TestRptRender::refusedArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const QString wanted = QStringLiteral("template, records and output are wanted; see --help");
    const QString dpi = QStringLiteral("--dpi is a number from 1 to 1200");
    QTest::newRow("none") << QStringList{} << wanted;
    QTest::newRow("two") << QStringList{"report.xml", "records.json"} << wanted;
    QTest::newRow("four") << QStringList{"report.xml", "records.json", "out.pdf", "x"} << wanted;
    for (const char *number : {"0", "-1", "x", "", "1201", "96.5", "99999999999"})
        QTest::newRow(qPrintable(QStringLiteral("dpi ") + number))
            << QStringList{QStringLiteral("--dpi=") + number, "report.xml", "records.json", "out.png"} << dpi;
    for (const char *output : {"out", "out.txt", "out.pdf.gz", "outpdf"})
        QTest::newRow(output) << QStringList{"report.xml", "records.json", output}
                              << QString(output) + " does not end with .pdf, .html or .png";
}

void TestRptRender::refusedArguments()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.errors, error);
    QCOMPARE(outcome.exitCode, 1);
    QCOMPARE(files(), (QStringList{"records.json", "report.xml"}));
}

void TestRptRender::refusedFiles_data()
{
    QTest::addColumn<QByteArray>("xml"); // null for none
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    const QByteArray good = "{}";
    const QString unread = QStringLiteral("report.xml cannot be read as a template");
    QTest::newRow("no template") << QByteArray() << good << unread;
    QTest::newRow("empty template") << QByteArray("") << good << unread;
    QTest::newRow("no XML") << QByteArray("%PDF-1.4") << good << unread;
    QTest::newRow("cut off") << QByteArray(report).left(300) << good << unread;
    QTest::newRow("no pages") << QByteArray("<Reports/>") << good << "report.xml has no Report element";
    QTest::newRow("no records") << QByteArray(report) << QByteArray() << "records.json: No such file or directory";
    QTest::newRow("bad records") << QByteArray(report) << QByteArray("{")
                                 << "records.json: unterminated object at byte 1";
    QTest::newRow("not UTF-8") << QByteArray(report) << QByteArray("\xFF") << "records.json: the text is not UTF-8";
}

void TestRptRender::refusedFiles()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QVERIFY(QFile::remove(path("report.xml")) && QFile::remove(path("records.json")));
    if (!xml.isNull())
        write("report.xml", xml);
    if (!json.isNull())
        write("records.json", json);
    const QStringList before = files();
    for (const char *output : {"out.pdf", "out.html", "out.png"}) {
        const Outcome outcome = render("records.json", output);
        QCOMPARE(outcome.errors, error);
        QCOMPARE(outcome.exitCode, 1);
        QCOMPARE(files(), before);
    }
}

void TestRptRender::unwritable_data()
{
    QTest::addColumn<QString>("output");
    for (const char *output : {"none/out.pdf", "none/out.html", "none/out.png"})
        QTest::newRow(output) << output;
}

void TestRptRender::unwritable()
{
    QFETCH(QString, output);
    const Outcome outcome = render("records.json", output);
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.errors.contains(QLatin1String("cannot be written")), qPrintable(outcome.errors));
    QVERIFY(outcome.errors.startsWith(QLatin1String("none/out")));
}

void TestRptRender::outputOfBeforeStays()
{
    write("out.pdf", "kept");
    write("bad.json", "{");
    QCOMPARE(render("bad.json", "out.pdf").exitCode, 1);
    QCOMPARE(content("out.pdf"), QByteArray("kept"));
    QVERIFY(QDir(m_folder->path()).mkdir("folder.pdf"));
    QCOMPARE(render("records.json", "folder.pdf").exitCode, 1);
    QVERIFY(QFileInfo(path("folder.pdf")).isDir());
    QCOMPARE(render("records.json", "out.pdf").exitCode, 0);
    QVERIFY(content("out.pdf").startsWith("%PDF-"));
}

void TestRptRender::examples_data()
{
    QTest::addColumn<QString>("base");
    const QFileInfoList templates =
        QFileInfo(QFINDTESTDATA("../../docs/reports/menu.xml")).dir().entryInfoList({"*.xml"});
    QVERIFY(templates.size() > 4);
    for (const QFileInfo &file : templates)
        QTest::newRow(qPrintable(file.baseName())) << file.dir().filePath(file.baseName());
}

/// Those of the templates' reference.
void TestRptRender::examples()
{
    QFETCH(QString, base);
    const QString records = base + (QFile::exists(base + ".csv") ? ".csv" : ".json");
    for (const char *output : {"out.pdf", "out.html"}) {
        const Outcome outcome = run({base + ".xml", records, output});
        QCOMPARE(outcome.errors, QString());
        QCOMPARE(outcome.exitCode, 0);
    }
    // One example shows what a formula that fails prints, and that is all.
    QCOMPARE(content("out.html").count("Error"), base.endsWith(QLatin1String("formulas")) ? 1 : 0);
}

QTEST_MAIN(TestRptRender)
#include "tst_rptrender.moc"
