#include "board/exportdata.h"
#include "session/session.h"
#include "spreadsheet/xlsreader.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"

#include <QAction>

/// Which rows the monthly workbooks of the board hold; what their cells look like is the subject of tests/exports.
class TestMenuWidgetMonthBooks : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_canteen = std::make_unique<ExportData>(); }
    void cleanupTestCase() { m_canteen.reset(); }
    void init() { m_canteen->reset(); }
    void cleanup();

    void workbookOfABranch();
    void workbookOfAPerson();
    void workbookWithoutLoadedRows_data();
    void workbookWithoutLoadedRows();
    void unknownPerson_data();
    void unknownPerson();
    void personQueryFails();

private:
    std::unique_ptr<ExportData> m_canteen;
};

void TestMenuWidgetMonthBooks::cleanup()
{
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!QGuiApplication::overrideCursor());
    session().debugLevel = 0;
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestMenuWidgetMonthBooks::workbookOfABranch()
{
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 3, m_canteen->branch);
    BoardPage page(m_canteen->database.db());
    page.initData();
    page.find<QAction>("actionExportToXLS")->trigger();
    const QString fileName = m_canteen->path(QStringLiteral("mesiac.xls"));
    m_canteen->answerFile(fileName);
    m_canteen->expectSuccess(branchExport, fileName);
    page.button("toolButtonMonthly")->click();
    BOXES_DONE(m_canteen->boxes);
    const XlsFile file(fileName);
    QCOMPARE(file.text(0, 0), " Mesačný výpis objednávok zamestnancov - " + ExportData::month());
    QCOMPARE(file.text(3, 1), page.branches()->currentText());
    QCOMPARE(file.text(10, 0), QStringLiteral("17"));
    QCOMPARE(file.text(10, 2), QStringLiteral("Adamec Ján"));
    QCOMPARE(file.number(10, 3), 5.0);
    QCOMPARE(file.number(10, 4), 22.5);
    QCOMPARE(file.number(13, 3), 5.0);
    QCOMPARE(file.number(13, 4), 22.5);
    const QDateTime made = QDateTime::fromString(file.text(19, 3), QStringLiteral("dd.MM.yyyy hh:mm:ss"));
    QVERIFY(qAbs(made.secsTo(QDateTime::currentDateTime())) < 60);
}

void TestMenuWidgetMonthBooks::workbookOfAPerson()
{
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    m_canteen->order(m_canteen->data.person(18, QStringLiteral("Zeman"), QStringLiteral("Ivan")),
                     ExportData::thursday(), 9);
    BoardPage page(m_canteen->database.db());
    page.initData();
    page.showOrders();
    page.find<QAction>("actionExportToXLS")->trigger();
    const QString fileName = m_canteen->path(QStringLiteral("mesiac.xls"));
    m_canteen->answerFile(fileName);
    m_canteen->expectSuccess(personExport, fileName);
    page.button("toolButtonMonthly")->click();
    BOXES_DONE(m_canteen->boxes);
    const XlsFile file(fileName);
    QCOMPARE(file.text(0, 0), " Mesačný výpis objednanej stravy - " + ExportData::month() + ", ID: [17] Adamec Ján");
    QCOMPARE(file.text(4, 0), ExportData::thursday().toString(QStringLiteral("dd. MM. yyyy")));
    QCOMPARE(file.text(4, 1), QStringLiteral("Obed"));
    QCOMPARE(file.text(4, 2), QStringLiteral("Guláš"));
    QCOMPARE(file.number(4, 3), 4.5);
    QCOMPARE(file.text(4, 4), QStringLiteral("2"));
    QCOMPARE(file.number(4, 5), 9.0);
    QCOMPARE(file.text(7, 0), QStringLiteral("Cena celkom:"));
    QCOMPARE(file.number(7, 5), 9.0);
}

void TestMenuWidgetMonthBooks::workbookWithoutLoadedRows_data()
{
    QTest::addColumn<const Export *>("kind");
    QTest::addColumn<int>("totalRow");
    QTest::addColumn<int>("totalColumn");
    QTest::newRow("branch") << &branchExport << 12 << 4;
    QTest::newRow("person") << &personExport << 6 << 5;
}

/// Called by itself, an export finds no rows of a month.
void TestMenuWidgetMonthBooks::workbookWithoutLoadedRows()
{
    QFETCH(const Export *, kind);
    QFETCH(int, totalRow);
    QFETCH(int, totalColumn);
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const XlsFile file(m_canteen->write(page, *kind));
    QCOMPARE(file.type(totalRow, totalColumn), QStringLiteral("number"));
    QCOMPARE(file.number(totalRow, totalColumn), 0.0);
}

void TestMenuWidgetMonthBooks::unknownPerson_data()
{
    QTest::addColumn<int>("uid");
    QTest::newRow("nobody selected") << 0;
    QTest::newRow("menu view") << -1;
    QTest::newRow("deleted") << 999999;
}

void TestMenuWidgetMonthBooks::unknownPerson()
{
    QFETCH(int, uid);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const QString fileName = m_canteen->path(QStringLiteral("x.xls"));
    m_canteen->answerFile(fileName);
    m_canteen->expectSuccess(personExport, fileName);
    LogCatcher log;
    page.monthlyExportOrderDelivToXLS(uid);
    BOXES_DONE(m_canteen->boxes);
    QCOMPARE(log.critical(), QStringList());
    QVERIFY(XlsFile(fileName).text(0, 0).endsWith(", ID: "));
}

void TestMenuWidgetMonthBooks::personQueryFails()
{
    BoardPage page(m_canteen->database.db());
    page.initData();
    LogCatcher log;
    QString fileName;
    {
        const MissingTable people(m_canteen->database, QStringLiteral("people"));
        fileName = m_canteen->write(page, personExport);
        QCOMPARE(log.critical(),
                 QStringList{"MenuWidget::monthlyExportOrderDelivToXLS() - SQL ERROR: " + people.error()});
    }
    QVERIFY(XlsFile(fileName).text(0, 0).endsWith(", ID: "));
}

QTEST_MAIN(TestMenuWidgetMonthBooks)
#include "tst_menuwidgetmonthbooks.moc"
