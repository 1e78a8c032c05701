#include "board/exportdata.h"
#include "session/session.h"
#include "support/logcatcher.h"

namespace {

/// Adds a column "kind" with a row for each export.
void addExports()
{
    QTest::addColumn<const Export *>("kind");
    QTest::newRow("branch") << &branchExport;
    QTest::newRow("person") << &personExport;
    QTest::newRow("control") << &controlExport;
}

/// Log lines but for what the test's platform has to say of every dialog.
QStringList ownLines(QStringList lines)
{
    lines.removeAll(QStringLiteral("This plugin does not support propagateSizeHints()"));
    return lines;
}

} // namespace

/// How the board asks for a workbook, writes it and tells of it.
class TestMenuWidgetExports : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_canteen = std::make_unique<ExportData>(); }
    void cleanupTestCase() { m_canteen.reset(); }
    void init() { m_canteen->reset(); }
    void cleanup();

    void question_data();
    void question();
    void cancelled_data();
    void cancelled();
    void written_data();
    void written();
    void failed_data();
    void failed();
    void oldFileIsReplaced_data();
    void oldFileIsReplaced();
    void logs_data();
    void logs();
    void closedDatabase_data();
    void closedDatabase();
    void lostDatabase_data();
    void lostDatabase();
    void boardBeforeItsData_data();
    void boardBeforeItsData();
    void pageGoesWhileTheQuestionStands_data();
    void pageGoesWhileTheQuestionStands();
    void pageGoesWhileTheResultIsTold_data();
    void pageGoesWhileTheResultIsTold();

private:
    std::unique_ptr<ExportData> m_canteen;
};

void TestMenuWidgetExports::cleanup()
{
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!QGuiApplication::overrideCursor());
    session().debugLevel = 0;
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestMenuWidgetExports::question_data()
{
    addExports();
}

void TestMenuWidgetExports::question()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    page.initData();
    m_canteen->answerFile(QString(), QDialogButtonBox::Cancel, [&](QFileDialog *dialog) {
        QCOMPARE(dialog->parentWidget(), &page);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Vytlačiť zostavu do súboru"));
        QCOMPARE(dialog->nameFilters(), (QStringList{QString::fromUtf8(kind->filter), "Všetky súbory (*)"}));
        QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(dialog->fileMode(), QFileDialog::AnyFile);
        QCOMPARE(dialog->directory().absolutePath(), QDir::currentPath());
        QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(), QString::fromUtf8(kind->file));
        QCOMPARE(dialog->defaultSuffix(), QString());
    });
    kind->run(page);
    BOXES_DONE(m_canteen->boxes);
}

void TestMenuWidgetExports::cancelled_data()
{
    addExports();
}

void TestMenuWidgetExports::cancelled()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const int before = m_canteen->boxes.answered();
    m_canteen->answerFile(m_canteen->path(QStringLiteral("x.xls")), QDialogButtonBox::Cancel);
    LogCatcher log;
    kind->run(page);
    BOXES_DONE(m_canteen->boxes);
    QCOMPARE(m_canteen->boxes.answered(), before + 1);
    QCOMPARE(m_canteen->files(), QStringList());
    QVERIFY(page.isEnabled());
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(!page.findChild<QFileDialog *>());
    // No book was begun.
    QVERIFY(!log.has(QStringLiteral("setLocale OK")));
}

// The answer ----------------------------------------------------------------------------------------------------------

void TestMenuWidgetExports::written_data()
{
    QTest::addColumn<const Export *>("kind");
    QTest::addColumn<QString>("name");
    QTest::newRow("branch") << &branchExport << "mesiac.xls";
    QTest::newRow("branch, no extension") << &branchExport << "mesiac";
    QTest::newRow("branch, Slovak name") << &branchExport << "ľščťžýáíé.xls";
    QTest::newRow("branch, placeholder") << &branchExport << "100%1 %2.xls";
    QTest::newRow("person") << &personExport << "mesiac.xls";
    QTest::newRow("person, no extension") << &personExport << "mesiac";
    QTest::newRow("control") << &controlExport << "mesiac.xlsx";
    QTest::newRow("control, no extension") << &controlExport << "mesiac";
    QTest::newRow("control, markup") << &controlExport << "<b>mesiac.xlsx";
}

void TestMenuWidgetExports::written()
{
    QFETCH(const Export *, kind);
    QFETCH(QString, name);
    BoardPage page(m_canteen->database.db());
    page.initData();
    m_canteen->answerFile(m_canteen->path(name));
    m_canteen->expectSuccess(*kind, m_canteen->path(name));
    kind->run(page);
    BOXES_DONE(m_canteen->boxes);
    QCOMPARE(m_canteen->files(), QStringList{name});
    QFile file(m_canteen->path(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray signature = kind == &controlExport ? QByteArray("PK") : QByteArray::fromHex("d0cf11e0");
    QVERIFY(file.read(8).startsWith(signature));
    QVERIFY(page.isEnabled());
}

void TestMenuWidgetExports::failed_data()
{
    addExports();
}

void TestMenuWidgetExports::failed()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const QString fileName = QStringLiteral("/proc/x.xls");
    m_canteen->answerFile(fileName);
    m_canteen->expectFailure(*kind, fileName);
    LogCatcher log;
    kind->run(page);
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!QFile::exists(fileName));
    QVERIFY(page.isEnabled());
    QCOMPARE(log.critical(), QStringList());
    // The reason, for whoever reads the log.
    const QStringList warnings = ownLines(log.lines(QtWarningMsg));
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().startsWith(QLatin1String("MenuWidget::")) && warnings.first().contains(" - "),
             qPrintable(warnings.first()));
    QVERIFY(!warnings.first().endsWith(QLatin1String(" - ")));
}

void TestMenuWidgetExports::oldFileIsReplaced_data()
{
    addExports();
}

void TestMenuWidgetExports::oldFileIsReplaced()
{
    QFETCH(const Export *, kind);
    const QString fileName = m_canteen->path(QStringLiteral("old"));
    QFile old(fileName);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    BoardPage page(m_canteen->database.db());
    page.initData();
    m_canteen->answerFile(fileName);
    // The question itself asks whether to replace a file.
    m_canteen->boxes.expectBox(QStringLiteral("Vytlačiť zostavu do súboru"),
                               QStringLiteral("old already exists.\nDo you want to replace it?"), QMessageBox::Yes);
    m_canteen->expectSuccess(*kind, fileName);
    kind->run(page);
    BOXES_DONE(m_canteen->boxes);
    QCOMPARE(m_canteen->files(), QStringList{"old"});
    QVERIFY(QFileInfo(fileName).size() > 1000);
}

void TestMenuWidgetExports::logs_data()
{
    QTest::addColumn<const Export *>("kind");
    QTest::addColumn<QStringList>("lines");
    const QString monthly = QStringLiteral("*** MenuWidget::monthlyExortToXLS() ***");
    QTest::newRow("branch") << &branchExport << QStringList{monthly, "setLocale OK"};
    QTest::newRow("person") << &personExport << QStringList{monthly, "setLocale OK"};
    QTest::newRow("control") << &controlExport << QStringList{"SELECTED BID v KONTROLNY EXPORT:  0", "setLocale OK"};
}

void TestMenuWidgetExports::logs()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const LogCatcher log;
    m_canteen->write(page, *kind);
    QTEST(ownLines(log.lines()), "lines");
}

// Whatever may happen meanwhile ---------------------------------------------------------------------------------------

void TestMenuWidgetExports::closedDatabase_data()
{
    addExports();
}

void TestMenuWidgetExports::closedDatabase()
{
    QFETCH(const Export *, kind);
    const QSqlDatabase closed = QSqlDatabase::cloneDatabase(m_canteen->database.db(), QStringLiteral("closed"));
    {
        BoardPage page(closed);
        page.initData();
        m_canteen->write(page, *kind);
        QCOMPARE(m_canteen->files().size(), 1);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("closed"));
}

void TestMenuWidgetExports::lostDatabase_data()
{
    addExports();
}

void TestMenuWidgetExports::lostDatabase()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    page.initData();
    m_canteen->database.breakConnection();
    m_canteen->write(page, *kind);
    QCOMPARE(m_canteen->files().size(), 1);
}

void TestMenuWidgetExports::boardBeforeItsData_data()
{
    addExports();
}

void TestMenuWidgetExports::boardBeforeItsData()
{
    QFETCH(const Export *, kind);
    BoardPage page(m_canteen->database.db());
    m_canteen->write(page, *kind);
    QCOMPARE(m_canteen->files().size(), 1);
}

void TestMenuWidgetExports::pageGoesWhileTheQuestionStands_data()
{
    addExports();
}

void TestMenuWidgetExports::pageGoesWhileTheQuestionStands()
{
    QFETCH(const Export *, kind);
    const QPointer<BoardPage> page(new BoardPage(m_canteen->database.db()));
    page->initData();
    QPointer<QDialog> shown;
    m_canteen->boxes.expectDialog(QStringLiteral("QFileDialog"), [&](QDialog *dialog) {
        shown = dialog;
        delete page;
    });
    kind->run(*page);
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!page);
    QVERIFY(!shown);
    QCOMPARE(m_canteen->files(), QStringList());
}

void TestMenuWidgetExports::pageGoesWhileTheResultIsTold_data()
{
    QTest::addColumn<const Export *>("kind");
    QTest::addColumn<bool>("succeeds");
    for (const bool succeeds : {true, false}) {
        const char *result = succeeds ? "success" : "failure";
        QTest::addRow("branch, %s", result) << &branchExport << succeeds;
        QTest::addRow("person, %s", result) << &personExport << succeeds;
        QTest::addRow("control, %s", result) << &controlExport << succeeds;
    }
}

void TestMenuWidgetExports::pageGoesWhileTheResultIsTold()
{
    QFETCH(const Export *, kind);
    QFETCH(bool, succeeds);
    const QPointer<BoardPage> page(new BoardPage(m_canteen->database.db()));
    page->initData();
    const QString fileName = succeeds ? m_canteen->path(QStringLiteral("x")) : QStringLiteral("/proc/x");
    m_canteen->answerFile(fileName);
    m_canteen->boxes.expectBox(QString::fromUtf8(succeeds ? kind->title : kind->failureTitle),
                               QString::fromUtf8(succeeds ? kind->success : kind->failure).arg(fileName),
                               QMessageBox::Ok, [&page](QMessageBox *box) {
                                   // The box still stands while its button goes down.
                                   connect(box->button(QMessageBox::Ok), &QAbstractButton::pressed, box,
                                           [page] { delete page; });
                               });
    kind->run(*page);
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!page);
}

QTEST_MAIN(TestMenuWidgetExports)
#include "tst_menuwidgetexports.moc"
