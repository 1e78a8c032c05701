#include "forms.h"
#include "session/session.h"
#include "supplierdata.h"
#include "suppliers/supplierwidget.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"

#include <QPointer>
#include <QStandardItemModel>

using Page = Form<SupplierWidget>;

/// What the page shows for a branch and a supplier, and which rows are current.
class TestSupplierWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void startsWithTheFirstRows();
    void branchBringsItsLists();
    void barredBranchesCannotBeChosen();
    void detailsOfASupplier();
    void keyboardMovesThroughSuppliers();
    void mouseMovesThroughSuppliers();
    void rowIsKeptAcrossBranches();
    void noBranches();
    void noSuppliers();
    void deadlineWithoutLeadingZero();
    void hostileTextsStandAsStored();
    void eachListIsLoadedOnceForABranch();
    void failedListsAreLoggedAndEmpty();
    void lostConnectionEmptiesTheLists();
    void oldModelsGo();

private:
    QStringList details(const Page &page) const;

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

namespace {

QStringList threeSuppliers()
{
    return {QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň"), QStringLiteral("Bistro")};
}

} // namespace

QStringList TestSupplierWidget::details(const Page &page) const
{
    return {page.text("labelSupplierName"), page.find<QPlainTextEdit>("plainTextEditDescription")->toPlainText(),
            page.text("labelShortcut"), page.text("labelDeadline"), page.text("labelDaysto")};
}

void TestSupplierWidget::startsWithTheFirstRows()
{
    const LogCatcher log;
    const Page page(m_database->db(), 0U);
    QCOMPARE(page.texts("listViewBranches"),
             (QStringList{QStringLiteral("- bez strediska -"), QStringLiteral("Výroba"), QStringLiteral("Sklad"),
                          QStringLiteral("Čerpadlá")}));
    QCOMPARE(page.current("listViewBranches"), 0);
    QCOMPARE(page.list("listViewBranches")->currentIndex().column(), 1);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("- bez strediska -"));
    QCOMPARE(page.texts("listViewBranchMails"), QStringList{QStringLiteral("vsetci@firma.sk")});
    QCOMPARE(page.texts("listViewSuppliers"), threeSuppliers());
    QCOMPARE(page.current("listViewSuppliers"), 0);
    QCOMPARE(page.list("listViewSuppliers")->currentIndex().column(), 1);
    QCOMPARE(details(page),
             (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("teplé jedlá"), QStringLiteral("JED"),
                          QStringLiteral("9:05"), QStringLiteral("2")}));
    QCOMPARE(moduleLines(log), QStringList());
}

void TestSupplierWidget::branchBringsItsLists()
{
    const Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Výroba"));
    QCOMPARE(page.texts("listViewBranchMails"),
             (QStringList{QStringLiteral("vyroba@firma.sk"), QStringLiteral("sef@firma.sk")}));
    QCOMPARE(page.texts("listViewSuppliers"), threeSuppliers());
    const QAbstractItemModel *suppliers = page.list("listViewSuppliers")->model();
    QCOMPARE(suppliers->index(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(suppliers->index(1, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    page.select("listViewBranches", 3);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Čerpadlá"));
    QCOMPARE(page.texts("listViewBranchMails"), QStringList());
}

void TestSupplierWidget::barredBranchesCannotBeChosen()
{
    Page page(m_database->db(), 7U);
    show(page);
    QListView *branches = page.list("listViewBranches");
    const QModelIndex barred = branches->model()->index(2, 1);
    QCOMPARE(barred.data(Qt::ToolTipRole).toString(), QStringLiteral("Stredisko nieje priradené administrátorovi."));
    QVERIFY(!barred.flags().testFlag(Qt::ItemIsEnabled));
    QTest::mouseClick(branches->viewport(), Qt::LeftButton, Qt::NoModifier, rowText(branches, barred));
    QCOMPARE(page.current("listViewBranches"), 0);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("- bez strediska -"));
    QTest::keyClick(branches, Qt::Key_Down);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Výroba"));
    QTest::keyClick(branches, Qt::Key_Down); // steps over the barred one
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Čerpadlá"));
}

void TestSupplierWidget::detailsOfASupplier()
{
    const Page page(m_database->db(), 0U);
    QCOMPARE(page.texts("listViewSupplierEmails"),
             (QStringList{QStringLiteral("objednavky@jedalen.sk"), QStringLiteral("kuchyna@jedalen.sk")}));
    QCOMPARE(
        page.texts("listViewSupplierTimes"),
        (QStringList{QStringLiteral("08:30 - 0 dní pred výdajom."), QStringLiteral("16:00 - 1 dní pred výdajom.")}));
    page.select("listViewSuppliers", 1);
    QCOMPARE(details(page),
             (QStringList{QStringLiteral("Pekáreň"), QString(), QString(), QString(), QStringLiteral("0")}));
    QCOMPARE(page.texts("listViewSupplierEmails"), QStringList{QStringLiteral("pec@pekaren.sk")});
    QCOMPARE(page.texts("listViewSupplierTimes"), QStringList());
}

void TestSupplierWidget::keyboardMovesThroughSuppliers()
{
    Page page(m_database->db(), 0U);
    show(page);
    QListView *suppliers = page.list("listViewSuppliers");
    suppliers->setFocus();
    QTest::keyClick(suppliers, Qt::Key_Down);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Pekáreň"));
    QTest::keyClick(suppliers, Qt::Key_End);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Bistro"));
}

void TestSupplierWidget::mouseMovesThroughSuppliers()
{
    Page page(m_database->db(), 0U);
    show(page);
    QListView *suppliers = page.list("listViewSuppliers");
    const QPointer<QAbstractItemModel> model = suppliers->model();
    QTest::mouseClick(suppliers->viewport(), Qt::LeftButton, Qt::NoModifier, rowText(suppliers, model->index(2, 1)));
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Bistro"));
    QCOMPARE(suppliers->model(), model.data()); // a click on the text builds nothing anew
    QTest::mouseClick(suppliers->viewport(), Qt::LeftButton, Qt::NoModifier,
                      suppliers->viewport()->rect().bottomRight() - QPoint(3, 3)); // below the rows
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Bistro"));
}

void TestSupplierWidget::rowIsKeptAcrossBranches()
{
    const Page page(m_database->db(), 0U);
    page.select("listViewSuppliers", 2);
    page.select("listViewBranches", 1);
    QCOMPARE(page.current("listViewSuppliers"), 2);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Bistro"));
    page.select("listViewSuppliers", 1);
    page.select("listViewBranches", 0);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Pekáreň"));
    // Another workstation has deleted the last two: no row fits, so none is current.
    m_data->exec("DELETE FROM via_supplierbranch WHERE supplierID > 1");
    m_data->exec("DELETE FROM via_suppliers WHERE supplierID > 1");
    page.select("listViewBranches", 2);
    QCOMPARE(page.current("listViewSuppliers"), -1);
    QCOMPARE(details(page), (QStringList{QString(), QString(), QString(), QString(), QString()}));
    QCOMPARE(page.texts("listViewSupplierEmails"), QStringList());
}

void TestSupplierWidget::noBranches()
{
    m_data->exec("DELETE FROM branches");
    const Page page(m_database->db(), 0U);
    QCOMPARE(page.texts("listViewBranches"), QStringList{QStringLiteral("- bez strediska -")});
    QCOMPARE(page.texts("listViewSuppliers"), threeSuppliers());
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Jedáleň"));
}

void TestSupplierWidget::noSuppliers()
{
    m_data->exec("DELETE FROM via_supplierbranch");
    m_data->exec("DELETE FROM via_suppliers");
    Page page(m_database->db(), 0U);
    QCOMPARE(page.texts("listViewSuppliers"), QStringList());
    QCOMPARE(page.current("listViewSuppliers"), -1);
    QCOMPARE(details(page), (QStringList{QString(), QString(), QString(), QString(), QString()}));
    const BoxAnswerer boxes;
    const LogCatcher log;
    page.button("pushButton_3")->click();
    page.updateCheck();
    QTest::qWait(20);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(moduleLines(log), QStringList());
}

void TestSupplierWidget::deadlineWithoutLeadingZero()
{
    const std::pair<const char *, const char *> deadlines[] = {
        {"'00:00:00'", "0:00"}, {"'10:30:59'", "10:30"}, {"'23:59:00'", "23:59"}, {"NULL", ""}};
    for (const auto &deadline : deadlines) {
        m_database->exec(QStringLiteral("UPDATE via_suppliers SET deadline = %1").arg(QLatin1String(deadline.first)));
        QCOMPARE(Page(m_database->db(), 0U).text("labelDeadline"), QLatin1String(deadline.second));
    }
}

void TestSupplierWidget::hostileTextsStandAsStored()
{
    const QString hostile = QStringLiteral("<b>O'Hara</b> \"\\%1\" &x \u202e\U0001f600");
    m_data->exec(
        "UPDATE via_suppliers SET name = _utf8mb4'<b>O\\'Hara</b> \"\\\\%1\" &x \xe2\x80\xae\xf0\x9f\x98\x80', "
        "description = name, shortcut = name");
    m_data->exec("UPDATE branches SET name = '<i>%1</i> & \"x\"'");
    const Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("<i>%1</i> & \"x\""));
    QCOMPARE(details(page), (QStringList{hostile, hostile, hostile, QStringLiteral("9:05"), QStringLiteral("2")}));
}

void TestSupplierWidget::eachListIsLoadedOnceForABranch()
{
    Page page(m_database->db(), 0U);
    show(page);
    const MissingTable mails(*m_database, QStringLiteral("via_branchmails"));
    const MissingTable times(*m_database, QStringLiteral("via_promailsdelay"));
    const QString mailsLine = QStringLiteral("SupplierModel - loadBranchMails load ERROR: [1146]: ") + mails.error();
    const QString timesLine = QStringLiteral("SupplierModel - loadSupplierMails load ERROR: [1146]: ") + times.error();
    QListView *branches = page.list("listViewBranches");
    LogCatcher log;
    QTest::mouseClick(branches->viewport(), Qt::LeftButton, Qt::NoModifier,
                      rowText(branches, branches->model()->index(1, 1)));
    QCOMPARE(moduleLines(log), (QStringList{mailsLine, timesLine}));
    log.clear();
    QTest::keyClick(branches, Qt::Key_Down);
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Sklad"));
    QCOMPARE(moduleLines(log), (QStringList{mailsLine, timesLine}));
}

void TestSupplierWidget::failedListsAreLoggedAndEmpty()
{
    const MissingTable missing(*m_database, QStringLiteral("branches"));
    const LogCatcher log;
    const Page page(m_database->db(), 0U);
    QCOMPARE(moduleLines(log),
             QStringList{QStringLiteral("BranchModel - adminBranches ERROR: [1146]: ") + missing.error()});
    QCOMPARE(page.texts("listViewBranches"), QStringList());
    QCOMPARE(page.texts("listViewSuppliers"), QStringList());
    QCOMPARE(page.list("listViewSuppliers")->modelColumn(), 1);
}

void TestSupplierWidget::lostConnectionEmptiesTheLists()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    const Page page(other.db(), 0U);
    other.breakConnection();
    const LogCatcher log;
    page.select("listViewBranches", 1); // lists tell the log only
    QCOMPARE(page.text("labelBranch"), QStringLiteral("Výroba"));
    QCOMPARE(page.texts("listViewSuppliers"), QStringList());
    QCOMPARE(page.texts("listViewBranchMails"), QStringList());
    QCOMPARE(page.text("labelSupplierName"), QString());
    QCOMPARE(log.critical().size(), 5);
}

void TestSupplierWidget::oldModelsGo()
{
    const Page page(m_database->db(), 0U);
    const auto models = [&page] { return page.findChildren<QStandardItemModel *>().size(); };
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const int before = models();
    for (int round = 0; round < 3; ++round) {
        for (int row = 0; row < 4; ++row)
            page.select("listViewBranches", row);
        page.select("listViewSuppliers", round);
    }
    QTRY_COMPARE(models(), before);
}

QTEST_MAIN(TestSupplierWidget)
#include "tst_supplierwidget.moc"
