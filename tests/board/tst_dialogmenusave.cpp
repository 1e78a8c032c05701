#include "board/daydata.h"
#include "board/dialogmenu.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

const QString title = QStringLiteral("Chyba databázy");
const QString notDeleted = QStringLiteral(
    "Nepodarilo sa zmazať objednávateľnú položku! Skúste najprv zmazať všetky objednávky tejto položky.");
const QString notUpdated = QStringLiteral("Nepodarilo sa upraviť objednávateľnú položku!");
const QString notAdded = QStringLiteral("Nepodarilo sa pridať objednávateľnú položku!");

class Editor : public DialogMenu {
public:
    explicit Editor(const QSqlDatabase &db, unsigned branch = 0)
        : DialogMenu(DayData::day(), 1, branch, QStringLiteral("Obed"), db, true, nullptr)
    {
    }

    QListView *list() const { return findChild<QListView *>(QStringLiteral("listViewFood")); }
    QTableView *table() const { return findChild<QTableView *>(QStringLiteral("tableViewMenu")); }
    void press(const char *button) const { findChild<QAbstractButton *>(QLatin1String(button))->click(); }
    void add(int food) const
    {
        select(list(), food);
        press("toolButtonR");
    }
    void remove(int food) const
    {
        select(table(), food);
        press("toolButtonL");
    }
    void moveDown(int food) const
    {
        select(table(), food);
        press("toolButtonD");
    }
    void setLimit(int food, const QString &limit) const
    {
        select(table(), food);
        table()->model()->setData(table()->currentIndex().siblingAtColumn(2), limit);
    }
    void save() const { press("pushButton"); }

private:
    static void select(QAbstractItemView *view, int food)
    {
        const QString name = QStringLiteral("DOD jedlo %1").arg(food);
        const QString other = QStringLiteral("IBA jedlo %1").arg(food);
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QModelIndex index = view->model()->index(row, 0);
            if (index.data().toString() == name || index.data().toString() == other) {
                view->setCurrentIndex(index);
                return;
            }
        }
        QFAIL(qPrintable(name));
    }
};

} // namespace

/// What the menu editor writes.
class TestDialogMenuSave : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init() { m_data = std::make_unique<DayData>(*m_database); }

    void newMenu();
    void branchMenu();
    void changedMenu();
    void untouchedMenuIsNumberedAnew();
    void priceOfAnItemStands();
    void limitsAreStored_data();
    void limitsAreStored();
    void orderedItemKeepsItsFood();
    void putBackItemKeepsItsKeyAndOrders();
    void logLines();
    void cancelWritesNothing_data();
    void cancelWritesNothing();
    void menuOfManyItemsKeepsItsOrder();

    void refusedDeleteLetsTheRestGoOn();
    void itemDeletedMeanwhileIsNotWritten();
    void foodDeletedMeanwhileIsNotAdded();
    void itemLockedMeanwhileStaysLocked();
    void limitBeyondTheColumnIsRefused();
    void lostConnectionShowsABoxForEachRow();
    void lostConnectionAtOpening();
    void closedDatabase();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestDialogMenuSave::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestDialogMenuSave::newMenu()
{
    Editor editor(m_database->db());
    editor.add(21);
    editor.add(22);
    editor.add(11);
    editor.save();
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->items(), (QStringList{"new 11 1 1.5 0", "new 22 2 4.5 0", "new 21 3 4.5 0"}));
    QCOMPARE(m_database->rows(QStringLiteral("SELECT DISTINCT date, segmentID, bid, locked FROM via_orderables")),
             QStringList{"2031-05-14|1|NULL|0"});
}

void TestDialogMenuSave::branchMenu()
{
    m_data->item(21, 1);
    Editor editor(m_database->db(), 5);
    editor.add(25);
    editor.save();
    QCOMPARE(m_database->rows(QStringLiteral("SELECT foodID, bid FROM via_orderables ORDER BY foodID")),
             (QStringList{"21|NULL", "25|5"}));
}

void TestDialogMenuSave::changedMenu()
{
    m_data->item(11, 1);
    m_data->item(21, 2, 0, 20);
    m_data->item(22, 3);
    m_data->item(23, 4);
    Editor editor(m_database->db());
    editor.remove(21);
    editor.moveDown(22);
    editor.add(24);
    editor.save();
    QCOMPARE(m_data->items(), (QStringList{"111 11 1 3.5 0", "new 24 2 4.5 0", "123 23 3 3.5 0", "122 22 4 3.5 0"}));
}

void TestDialogMenuSave::untouchedMenuIsNumberedAnew()
{
    m_data->item(11, 4);
    m_data->item(21, 7, 0, 20);
    Editor editor(m_database->db());
    editor.save();
    QCOMPARE(m_data->items(), (QStringList{"111 11 1 3.5 0", "121 21 2 3.5 20"}));
}

void TestDialogMenuSave::priceOfAnItemStands()
{
    m_data->item(21, 1, 0, 0, 3.25);
    Editor editor(m_database->db());
    m_data->exec("UPDATE via_foods SET price = 9");
    m_data->exec("UPDATE via_orderables SET price = 3.75");
    editor.add(22); // the price it had when the editor opened
    editor.save();
    QCOMPARE(m_data->items(), (QStringList{"new 22 1 4.5 0", "121 21 2 3.75 0"}));
}

void TestDialogMenuSave::limitsAreStored_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a number") << "15"
                              << "15";
    QTest::newRow("emptied") << ""
                             << "0";
    QTest::newRow("nonsense") << "veľa"
                              << "0";
}

void TestDialogMenuSave::limitsAreStored()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    m_data->item(21, 1, 0, 20);
    m_data->order(21, 7, 1); // an item with orders can still be limited
    Editor editor(m_database->db());
    editor.setLimit(21, typed);
    editor.add(22);
    editor.setLimit(22, typed);
    editor.save();
    QCOMPARE(m_data->items(), (QStringList{"new 22 1 4.5 " + stored, "121 21 2 3.5 " + stored}));
}

void TestDialogMenuSave::orderedItemKeepsItsFood()
{
    m_data->item(21, 1);
    m_data->item(22, 2);
    m_data->order(21, 7, 3);
    Editor editor(m_database->db());
    editor.remove(21);
    editor.moveDown(21);
    editor.save();
    QCOMPARE(m_data->items(), (QStringList{"122 22 1 3.5 0", "121 21 2 3.5 0"}));
    QCOMPARE(m_data->orders(), QStringList{"121 7 3"});
}

void TestDialogMenuSave::putBackItemKeepsItsKeyAndOrders()
{
    m_data->item(21, 1);
    Editor editor(m_database->db());
    m_data->order(21, 7, 3);
    editor.remove(21);
    editor.add(21);
    editor.save();
    QCOMPARE(m_data->items(), QStringList{"121 21 1 3.5 0"});
    QCOMPARE(m_data->orders(), QStringList{"121 7 3"});
}

void TestDialogMenuSave::logLines()
{
    m_data->item(11, 1);
    m_data->item(21, 2, 0, 20);
    Editor editor(m_database->db());
    editor.remove(11);
    editor.add(31);
    LogCatcher log;
    editor.save();
    QCOMPARE(log.lines(),
             (QStringList{"deleting all previous orderables", "id:  111  deleting orderable...",
                          "121 21 0 1 QDate(\"2031-05-14\") 1 3.5 20  adding/updating orderable",
                          "id:  121  updating orderable...",
                          "0 31 0 1 QDate(\"2031-05-14\") 2 2 0  adding/updating orderable"}));
}

void TestDialogMenuSave::cancelWritesNothing_data()
{
    QTest::addColumn<bool>("close");
    QTest::newRow("rejected") << false;
    QTest::newRow("closed") << true;
}

void TestDialogMenuSave::cancelWritesNothing()
{
    QFETCH(bool, close);
    m_data->item(21, 1);
    const QStringList before = m_data->items();
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogMenu"), [close](QDialog *dialog) {
        const auto *editor = static_cast<Editor *>(dialog);
        editor->remove(21);
        editor->add(22);
        if (close)
            dialog->close();
        else
            dialog->reject();
    });
    Editor editor(m_database->db());
    QCOMPARE(editor.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->items(), before);
}

void TestDialogMenuSave::menuOfManyItemsKeepsItsOrder()
{
    for (const int food : {11, 12, 13, 21, 22, 23, 24, 31})
        m_data->item(food, food % 10);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogMenu"), [](QDialog *dialog) { static_cast<Editor *>(dialog)->save(); });
    Editor editor(m_database->db());
    QCOMPARE(editor.exec(), 1);
    BOXES_DONE(boxes);
    QCOMPARE(m_database->value(QStringLiteral("SELECT GROUP_CONCAT(foodID ORDER BY position) FROM via_orderables"))
                 .toString(),
             QStringLiteral("11,12,13,21,22,23,24,31"));
}

void TestDialogMenuSave::refusedDeleteLetsTheRestGoOn()
{
    m_data->item(11, 1);
    m_data->item(12, 2);
    m_data->item(21, 3);
    Editor editor(m_database->db());
    editor.remove(11);
    editor.remove(12);
    editor.add(22);
    m_data->order(11, 7, 1); // a colleague orders meanwhile
    BoxAnswerer boxes;
    boxes.expectBox(title, notDeleted);
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(editor.result(), 1);
    QStringList items = m_data->items();
    items.sort();
    QCOMPARE(items, (QStringList{"111 11 1 3.5 0", "121 21 2 3.5 0", "new 22 1 4.5 0"}));
}

void TestDialogMenuSave::itemDeletedMeanwhileIsNotWritten()
{
    m_data->item(11, 1);
    m_data->item(21, 2);
    Editor editor(m_database->db());
    editor.setLimit(11, QStringLiteral("9"));
    m_data->exec("DELETE FROM via_orderables WHERE orderableID = 111");
    BoxAnswerer boxes;
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->items(), QStringList{"121 21 2 3.5 0"});
}

void TestDialogMenuSave::foodDeletedMeanwhileIsNotAdded()
{
    Editor editor(m_database->db());
    editor.add(11);
    editor.add(21);
    m_data->exec("DELETE FROM via_foods WHERE foodID = 11");
    BoxAnswerer boxes;
    boxes.expectBox(title, notAdded);
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(editor.result(), 1);
    QCOMPARE(
        m_database->value(QStringLiteral("SELECT GROUP_CONCAT(foodID, ' ', position) FROM via_orderables")).toString(),
        QStringLiteral("21 2"));
}

void TestDialogMenuSave::itemLockedMeanwhileStaysLocked()
{
    m_data->item(11, 3);
    Editor editor(m_database->db());
    m_data->exec("UPDATE via_orderables SET locked = 1");
    editor.save();
    QCOMPARE(m_database->rows(QStringLiteral("SELECT position, locked FROM via_orderables")), QStringList{"1|1"});
}

void TestDialogMenuSave::limitBeyondTheColumnIsRefused()
{
    m_data->item(11, 3, 0, 20);
    Editor editor(m_database->db());
    editor.setLimit(11, QStringLiteral("4294967295"));
    BoxAnswerer boxes;
    boxes.expectBox(title, notUpdated);
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->items(), QStringList{"111 11 3 3.5 20"});
}

void TestDialogMenuSave::lostConnectionShowsABoxForEachRow()
{
    const TestDatabase other(QStringLiteral("lost"));
    const DayData data(other);
    data.item(11, 1);
    data.item(21, 2);
    Editor editor(other.db());
    editor.remove(11);
    editor.add(12);
    const QStringList before = data.items();
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(title, notDeleted);
    boxes.expectBox(title, notAdded);
    boxes.expectBox(title, notUpdated);
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(editor.result(), 1);
    QCOMPARE(data.items(), before);
}

void TestDialogMenuSave::lostConnectionAtOpening()
{
    const TestDatabase other(QStringLiteral("lost"));
    const DayData data(other);
    data.item(11, 1);
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať menu!"));
    Editor editor(other.db());
    BOXES_DONE(boxes);
    editor.show();
    QTest::qWait(2);
    for (const char *button : {"toolButtonR", "toolButtonL", "toolButtonU", "toolButtonD", "pushButton"})
        editor.press(button);
    BOXES_DONE(boxes);
    QCOMPARE(data.items(), QStringList{"111 11 1 3.5 0"});
}

void TestDialogMenuSave::closedDatabase()
{
    BoxAnswerer boxes;
    boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať menu!"));
    Editor editor(m_data->closedConnection());
    BOXES_DONE(boxes);
    editor.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"))->setText(QStringLiteral("x"));
    editor.save();
    BOXES_DONE(boxes);
    QCOMPARE(editor.result(), 1);
}

QTEST_MAIN(TestDialogMenuSave)
#include "tst_dialogmenusave.moc"
