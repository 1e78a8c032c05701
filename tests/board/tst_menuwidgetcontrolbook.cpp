#include "board/exportdata.h"
#include "session/session.h"
#include "spreadsheet/xlsxreader.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"

/// Which orders, slots and types the control export of the board holds; what its cells look like is the subject of
/// tests/exports.
class TestMenuWidgetControlBook : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_canteen = std::make_unique<ExportData>(); }
    void cleanupTestCase() { m_canteen.reset(); }
    void init() { m_canteen->reset(); }
    void cleanup();

    void controlWorkbook();
    void controlWorkbookOfABranch();
    void controlWorkbookFollowsTheSlots();
    void controlWorkbookOfAMissingTable();
    void debugLogs();

private:
    std::unique_ptr<ExportData> m_canteen;
};

void TestMenuWidgetControlBook::cleanup()
{
    BOXES_DONE(m_canteen->boxes);
    QVERIFY(!QGuiApplication::overrideCursor());
    session().debugLevel = 0;
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestMenuWidgetControlBook::controlWorkbook()
{
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 3, m_canteen->branch);
    BoardPage page(m_canteen->database.db());
    page.initData();
    const QString fileName = m_canteen->path(QStringLiteral("mesiac.xlsx"));
    m_canteen->answerFile(fileName);
    m_canteen->expectSuccess(controlExport, fileName);
    page.button("toolButtonExport")->click();
    BOXES_DONE(m_canteen->boxes);
    const XlsxFile file(fileName);
    QCOMPARE(file.text(0, 0), "Kontrolný export stravy - " + ExportData::month());
    QCOMPARE(file.text(3, 1), page.branches()->currentText());
    QCOMPARE(file.text(6, 0), QStringLiteral("LEGENDA: Ob-Obed, Ve-Večera, H-Hlavné jedlá"));
    QCOMPARE(file.text(12, 0), QStringLiteral("17"));
    QCOMPARE(file.text(12, 1), QStringLiteral("Adamec Ján Ing. "));
    // Two slots and one type; without a branch the menus of all count.
    QCOMPARE(file.value(12, 2 + (ExportData::thursday().day() - 1) * 2).toDouble(), 5.0);
    QCOMPARE(file.value(12, 2 + ExportData::thursday().daysInMonth() * 2).toDouble(), 5.0);
}

void TestMenuWidgetControlBook::controlWorkbookOfABranch()
{
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 3, m_canteen->branch);
    BoardPage page(m_canteen->database.db());
    page.initData();
    page.branches()->setCurrentIndex(1);
    LogCatcher log;
    const XlsxFile file(m_canteen->write(page, controlExport));
    QVERIFY(log.has(QStringLiteral("SELECTED BID v KONTROLNY EXPORT:  %1").arg(m_canteen->branch)));
    QCOMPARE(file.text(3, 1), QStringLiteral("Výroba"));
    QCOMPARE(file.value(12, 2 + (ExportData::thursday().day() - 1) * 2).toDouble(), 3.0);
}

/// Slots and types that another operator moved or added since the board opened have their present columns.
void TestMenuWidgetControlBook::controlWorkbookFollowsTheSlots()
{
    BoardPage page(m_canteen->database.db());
    page.initData();
    m_canteen->database.exec(QStringLiteral("UPDATE via_segments SET position = 3 - position ORDER BY position"));
    m_canteen->data.type(QStringLiteral("Polievky"), 2);
    m_canteen->order(m_canteen->adamec, ExportData::thursday(), 2);
    const XlsxFile file(m_canteen->write(page, controlExport));
    QCOMPARE(file.text(6, 0), QStringLiteral("LEGENDA: Ve-Večera, Ob-Obed, H-Hlavné jedlá, P-Polievky"));
    QCOMPARE(file.value(12, 2 + (ExportData::thursday().day() - 1) * 4 + 2).toDouble(), 2.0);
}

/// A failed query leaves a table without people, with its headings.
void TestMenuWidgetControlBook::controlWorkbookOfAMissingTable()
{
    BoardPage page(m_canteen->database.db());
    page.initData();
    LogCatcher log;
    QString fileName;
    {
        const MissingTable orders(m_canteen->database, QStringLiteral("via_orders"));
        fileName = m_canteen->write(page, controlExport);
        QCOMPARE(log.critical(), QStringList{"MonthlyOverviewModel - SQL ERROR: " + orders.error()});
    }
    const XlsxFile file(fileName);
    QCOMPARE(file.text(9, 0), QStringLiteral("ID"));
    QCOMPARE(file.text(9, 2), QStringLiteral("1."));
    QCOMPARE(file.text(10, 2), QStringLiteral("Ob"));
    QCOMPARE(file.text(12, 0), QStringLiteral("    Súčet za deň a segment - -Obed :"));
}

void TestMenuWidgetControlBook::debugLogs()
{
    BoardPage page(m_canteen->database.db());
    page.initData();
    session().debugLevel = 2;
    const LogCatcher log;
    m_canteen->write(page, controlExport);
    QVERIFY(log.has(QStringLiteral("default font: \"MS Shell Dlg 2\" 10")));
    QVERIFY(!log.lines().filter(QStringLiteral("hiding i-th col ")).isEmpty());
}

QTEST_MAIN(TestMenuWidgetControlBook)
#include "tst_menuwidgetcontrolbook.moc"
