#include "forms.h"
#include "supplierdata.h"
#include "suppliers/supplierwidget.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"

#include <QScrollBar>
#include <QStandardItemModel>

using Page = Form<SupplierWidget>;

/// The check marks of the suppliers.
class TestSupplierChecks : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<SupplierData>(*m_database); }
    void clickLinksAndUnlinks();
    void linksToAllBranches();
    void clickOnTheTextChangesNothing();
    void rowStaysCurrent();
    void spaceBarWritesOnce();
    void quickClicksOnTheBoxAreTwoChanges();
    void severalMarksAreWrittenOneAtATime();
    void changesOfAnotherWorkstationAreShown();
    void listDoesNotJump();
    void refusedLinkTakesTheMarkBack_data();
    void refusedLinkTakesTheMarkBack();
    void refusedLinkByKeyboard();
    void lostConnectionShowsOneBox();
    void listenersAreBackAfterwards();

private:
    void toggle(const Page &page, int row) const;
    QStringList marks(const Page &page) const;

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SupplierData> m_data;
};

void TestSupplierChecks::toggle(const Page &page, int row) const
{
    const QListView *view = page.list("listViewSuppliers");
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, checkBox(view, view->model()->index(row, 1)));
}

QStringList TestSupplierChecks::marks(const Page &page) const
{
    QStringList names;
    const QAbstractItemModel *suppliers = page.list("listViewSuppliers")->model();
    for (int row = 0; row < suppliers->rowCount(); ++row) {
        const QModelIndex index = suppliers->index(row, 1);
        if (index.data(Qt::CheckStateRole) == Qt::Checked)
            names.append(index.data().toString());
    }
    return names;
}

void TestSupplierChecks::clickLinksAndUnlinks()
{
    Page page(m_database->db(), 0U);
    page.select("listViewBranches", 1);
    show(page);
    LogCatcher log;
    toggle(page, 0);
    QCOMPARE(m_data->links(), (QStringList{"1|NULL", "1|1", "2|1", "3|1"}));
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("adding supplier: 1 to branch: 1")});
    QCOMPARE(marks(page),
             (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň"), QStringLiteral("Bistro")}));
    log.clear();
    toggle(page, 2);
    QCOMPARE(m_data->links(), (QStringList{"1|NULL", "1|1", "2|1"}));
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("adding supplier: 3 to branch: 1")});
    QCoreApplication::processEvents(); // nothing is left to be written later
    QCOMPARE(moduleLines(log).size(), 1);
    QCOMPARE(marks(page), (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň")}));
}

void TestSupplierChecks::linksToAllBranches()
{
    Page page(m_database->db(), 0U);
    show(page);
    const LogCatcher log;
    toggle(page, 1);
    QCOMPARE(m_data->links(), (QStringList{"1|NULL", "2|NULL", "2|1", "3|1"}));
    toggle(page, 0);
    QCOMPARE(m_data->links(), (QStringList{"2|NULL", "2|1", "3|1"}));
    QCOMPARE(moduleLines(log),
             (QStringList{QStringLiteral("adding supplier: 2 to branch: 0"),
                          QStringLiteral("adding supplier: 1 to branch: 0")}));
    QCOMPARE(marks(page), QStringList{QStringLiteral("Pekáreň")});
}

void TestSupplierChecks::clickOnTheTextChangesNothing()
{
    Page page(m_database->db(), 0U);
    show(page);
    const QListView *view = page.list("listViewSuppliers");
    const QAbstractItemModel *model = view->model();
    const QStringList links = m_data->links();
    const LogCatcher log;
    for (int row = 0; row < 3; ++row) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          rowText(view, view->model()->index(row, 1)));
        QCOMPARE(page.current("listViewSuppliers"), row);
    }
    page.updateCheck();
    QCOMPARE(m_data->links(), links);
    QCOMPARE(moduleLines(log), QStringList());
    QCOMPARE(view->model(), model);
}

void TestSupplierChecks::rowStaysCurrent()
{
    Page page(m_database->db(), 0U);
    show(page);
    page.select("listViewSuppliers", 2);
    toggle(page, 1); // a click on a check box makes no row current
    QCOMPARE(page.current("listViewSuppliers"), 2);
    QCOMPARE(page.text("labelSupplierName"), QStringLiteral("Bistro"));
    QVERIFY(
        page.list("listViewSuppliers")->selectionModel()->isSelected(page.list("listViewSuppliers")->currentIndex()));
    page.select("listViewBranches", 2);
    QCOMPARE(page.current("listViewSuppliers"), 2);
}

void TestSupplierChecks::spaceBarWritesOnce()
{
    Page page(m_database->db(), 0U);
    show(page);
    QListView *view = page.list("listViewSuppliers");
    view->setFocus();
    LogCatcher log;
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Space);
    QTRY_COMPARE(m_data->links(), (QStringList{"1|NULL", "2|NULL", "2|1", "3|1"}));
    QCoreApplication::processEvents();
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("adding supplier: 2 to branch: 0")});
    QCOMPARE(page.current("listViewSuppliers"), 1);
    QVERIFY(view->hasFocus());
    log.clear();
    QTest::keyClick(view, Qt::Key_Space);
    QTRY_COMPARE(m_data->links(), (QStringList{"1|NULL", "2|1", "3|1"}));
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("adding supplier: 2 to branch: 0")});
}

void TestSupplierChecks::quickClicksOnTheBoxAreTwoChanges()
{
    Page page(m_database->db(), 0U);
    show(page);
    const QListView *view = page.list("listViewSuppliers");
    const QPoint box = checkBox(view, view->model()->index(1, 1));
    const QStringList links = m_data->links();
    BoxAnswerer boxes; // the second click is a click, not a double click that opens the editor
    const LogCatcher log;
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, box);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, box);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, box);
    QTest::qWait(20);
    BOXES_DONE(boxes);
    const QString line = QStringLiteral("adding supplier: 2 to branch: 0");
    QCOMPARE(moduleLines(log), (QStringList{line, line}));
    QCOMPARE(m_data->links(), links);
    QCOMPARE(marks(page), QStringList{QStringLiteral("Jedáleň")});
}

void TestSupplierChecks::severalMarksAreWrittenOneAtATime()
{
    Page page(m_database->db(), 0U);
    auto *suppliers = qobject_cast<QStandardItemModel *>(page.list("listViewSuppliers")->model());
    suppliers->item(1, 1)->setCheckState(Qt::Checked);
    suppliers->item(2, 1)->setCheckState(Qt::Checked);
    const LogCatcher log;
    page.updateCheck();
    // After the first change the walk goes on against the fresh state, which knows nothing of the second.
    QCOMPARE(moduleLines(log), QStringList{QStringLiteral("adding supplier: 2 to branch: 0")});
    QCOMPARE(m_data->links(), (QStringList{"1|NULL", "2|NULL", "2|1", "3|1"}));
    QCOMPARE(marks(page), (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň")}));
}

void TestSupplierChecks::changesOfAnotherWorkstationAreShown()
{
    Page page(m_database->db(), 0U);
    show(page);
    m_data->exec("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (3, NULL)");
    toggle(page, 1);
    QCOMPARE(marks(page),
             (QStringList{QStringLiteral("Jedáleň"), QStringLiteral("Pekáreň"), QStringLiteral("Bistro")}));
    // Taking off a mark that is off already changes nothing.
    m_data->exec("DELETE FROM via_supplierbranch WHERE supplierID = 1");
    toggle(page, 0);
    QCOMPARE(m_data->links(), (QStringList{"2|NULL", "2|1", "3|NULL", "3|1"}));
}

void TestSupplierChecks::listDoesNotJump()
{
    m_data->exec("INSERT INTO via_suppliers (name) SELECT CONCAT('Dodávateľ ', seq) FROM seq_1_to_200");
    Page page(m_database->db(), 0U);
    show(page);
    QListView *view = page.list("listViewSuppliers");
    view->scrollTo(view->model()->index(100, 1), QAbstractItemView::PositionAtTop);
    const int scrolled = view->verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    toggle(page, 102);
    QCOMPARE(marks(page).size(), 2);
    QCOMPARE(view->verticalScrollBar()->value(), scrolled);
    QCOMPARE(page.current("listViewSuppliers"), 0);
}

void TestSupplierChecks::refusedLinkTakesTheMarkBack_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tag");
    QTest::newRow("add") << 1 << "Nepodarilo sa priradiť dodávateľa k stredisku!"
                         << "SupplierRepository(adding - supplierBranch)";
    QTest::newRow("delete") << 0 << "Nepodarilo sa zrušiť priradenie dodávateľa k stredisku!"
                            << "SupplierRepository(deleting - supplierBranch)";
}

void TestSupplierChecks::refusedLinkTakesTheMarkBack()
{
    QFETCH(int, row);
    QFETCH(QString, text);
    QFETCH(QString, tag);
    const Refusal adding(*m_database, QStringLiteral("INSERT"), QStringLiteral("via_supplierbranch"));
    const Refusal deleting(*m_database, QStringLiteral("DELETE"), QStringLiteral("via_supplierbranch"));
    Page page(m_database->db(), 0U);
    show(page);
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), text);
    const LogCatcher log;
    toggle(page, row);
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(tag + QStringLiteral(" - SQL ERROR: refused")));
    QCOMPARE(marks(page), QStringList{QStringLiteral("Jedáleň")});
    QCOMPARE(page.current("listViewSuppliers"), 0);
}

void TestSupplierChecks::refusedLinkByKeyboard()
{
    const Refusal adding(*m_database, QStringLiteral("INSERT"), QStringLiteral("via_supplierbranch"));
    Page page(m_database->db(), 0U);
    show(page);
    page.select("listViewSuppliers", 2);
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa priradiť dodávateľa k stredisku!"));
    QTest::keyClick(page.list("listViewSuppliers"), Qt::Key_Space);
    QTRY_COMPARE(boxes.answered(), 1);
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(marks(page), QStringList{QStringLiteral("Jedáleň")});
    QCOMPARE(page.current("listViewSuppliers"), 2);
}

void TestSupplierChecks::lostConnectionShowsOneBox()
{
    const TestDatabase other(QStringLiteral("other"));
    const SupplierData data(other);
    Page page(other.db(), 0U);
    show(page);
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa priradiť dodávateľa k stredisku!"));
    toggle(page, 2);
    QTest::qWait(20);
    BOXES_DONE(boxes);
    QCOMPARE(page.texts("listViewSuppliers"), QStringList());
    QCOMPARE(page.text("labelSupplierName"), QString());
    QCOMPARE(data.links(), (QStringList{"1|NULL", "2|1", "3|1"}));
}

void TestSupplierChecks::listenersAreBackAfterwards()
{
    Page page(m_database->db(), 0U);
    show(page);
    const LogCatcher log;
    for (int round = 0; round < 3; ++round)
        toggle(page, 1);
    QCOMPARE(moduleLines(log).size(), 3);
    QCOMPARE(m_data->links(), (QStringList{"1|NULL", "2|NULL", "2|1", "3|1"}));
}

QTEST_MAIN(TestSupplierChecks)
#include "tst_supplierchecks.moc"
