#include "board/boarddata.h"
#include "board/cellgrid.h"
#include "board/daymenuwidget.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QCalendarWidget>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

/// What the card's buttons and its table do to the database, and which dialogs they open.
class TestDayMenuActions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void lockWritesTheWholeCell_data();
    void lockWritesTheWholeCell();
    void lockFailureStillAsksForAReset();
    void closedForGoodWritesNothing();
    void editOpensTheMenuEditor();
    void cancelledEditResetsNothing();
    void orderOpensTheOrderDialog();
    void cancelledOrderResetsNothing();
    void copyOpensTheCopyDialog();
    void reportOpensTheDispatch();
    void doubleClickOpensTheOrdersOfAnItem();
    void enterOpensTheOrdersOfAnItem();
    void doubleClickIsDeafElsewhere_data();
    void doubleClickIsDeafElsewhere();

private:
    std::unique_ptr<DayMenuWidget> makeCard(int person = -1);
    static QToolButton *button(const DayMenuWidget &card, const char *name)
    {
        return card.findChild<QToolButton *>(QLatin1String(name));
    }
    QStringList locks() const
    {
        return m_database.rows(QStringLiteral("SELECT locked FROM via_orderables ORDER BY orderableID"));
    }

    TestDatabase m_database;
    BoardData m_data{m_database};
    CellGrid m_grid;
    QDate m_today;
    uint m_obed = 0;
    uint m_food = 0;
};

void TestDayMenuActions::init()
{
    m_today = QDate::currentDate();
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_food = m_data.food(QStringLiteral("Guláš"), m_data.type(QStringLiteral("Hlavné jedlá"), 1),
                         m_data.supplier(QStringLiteral("GA")));
    m_grid.clear();
    m_grid.addHeading(QStringLiteral("Hlavné jedlá"));
}

void TestDayMenuActions::cleanup()
{
    m_data.clear();
}

/// A card of today's "Obed" that shows `m_grid`.
std::unique_ptr<DayMenuWidget> TestDayMenuActions::makeCard(int person)
{
    auto card = std::make_unique<DayMenuWidget>(m_today, QStringLiteral("Obed"), m_obed, person, 3, 0, m_database.db(),
                                                nullptr, nullptr);
    card->setMenuModel(&m_grid);
    return card;
}

void TestDayMenuActions::lockWritesTheWholeCell_data()
{
    QTest::addColumn<bool>("ofBranch");
    QTest::addColumn<QStringList>("locked");
    QTest::newRow("without a branch") << false << QStringList{"1", "1", "0", "0", "0"};
    QTest::newRow("of a branch") << true << QStringList{"0", "0", "1", "0", "0"};
}

void TestDayMenuActions::lockWritesTheWholeCell()
{
    QFETCH(bool, ofBranch);
    const uint branch = m_data.branch(QStringLiteral("Výroba"));
    m_data.item(m_food, m_obed, m_today);
    m_data.item(m_food, m_obed, m_today);
    m_data.item(m_food, m_obed, m_today, 0, branch);
    m_data.item(m_food, m_obed, m_today.addDays(1));
    m_data.item(m_food, m_data.segment(QStringLiteral("Večera"), 2), m_today);
    m_grid.addFood(1, m_obed, m_today);
    const auto card = makeCard();
    card->setBranch(ofBranch ? branch : 0);
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    QVERIFY(resetModel.isValid());
    button(*card, "toolButtonLock")->click();
    QTEST(locks(), "locked");
    QCOMPARE(resetModel.count(), 1);
    button(*card, "toolButtonLock")->click();
    QCOMPARE(locks(), (QStringList{"0", "0", "0", "0", "0"}));
    QCOMPARE(resetModel.count(), 2);
}

void TestDayMenuActions::lockFailureStillAsksForAReset()
{
    m_data.item(m_food, m_obed, m_today);
    m_grid.addFood(1, m_obed, m_today);
    const auto card = makeCard();
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    m_database.exec(QStringLiteral("RENAME TABLE via_orderables TO hidden_orderables"));
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa uzamknúť objednávateľná položky!"));
    button(*card, "toolButtonLock")->click();
    m_database.exec(QStringLiteral("RENAME TABLE hidden_orderables TO via_orderables"));
    BOXES_DONE(boxes);
    QCOMPARE(resetModel.count(), 1);
    QCOMPARE(locks(), QStringList{"0"});
}

void TestDayMenuActions::closedForGoodWritesNothing()
{
    m_data.item(m_food, m_obed, m_today, 2);
    m_grid.addFood(1, m_obed, m_today, 2);
    const auto card = makeCard();
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    QVERIFY(!button(*card, "toolButtonLock")->isEnabled());
    card->on_toolButtonLock_clicked();
    QCOMPARE(locks(), QStringList{"2"});
    QCOMPARE(resetModel.count(), 0);
}

void TestDayMenuActions::editOpensTheMenuEditor()
{
    m_data.item(m_food, m_obed, m_today);
    const auto card = makeCard();
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogMenu"), [this, &card](QDialog *dialog) {
        QCOMPARE(dialog->parent(), card.get());
        QCOMPARE(dialog->windowTitle(), "Upraviť menu - " + m_today.toString(QStringLiteral("d. M. yyyy")) + " - Obed");
        QCOMPARE(dialog->findChild<QTableView *>(QStringLiteral("tableViewMenu"))->model()->rowCount(), 2);
        dialog->findChild<QPushButton *>(QStringLiteral("pushButton"))->click();
    });
    button(*card, "toolButEdit")->click();
    BOXES_DONE(boxes);
    QCOMPARE(resetModel.count(), 1);
    QVERIFY(card->findChildren<QDialog *>().isEmpty());
}

void TestDayMenuActions::cancelledEditResetsNothing()
{
    const auto card = makeCard();
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogMenu"), [](QDialog *dialog) { dialog->reject(); });
    button(*card, "toolButEdit")->click();
    BOXES_DONE(boxes);
    QCOMPARE(resetModel.count(), 0);
}

void TestDayMenuActions::orderOpensTheOrderDialog()
{
    const uint person = m_data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    const uint item = m_data.item(m_food, m_obed, m_today, 1);
    m_grid.addFood(int(item), m_obed, m_today, 1);
    const auto card = makeCard(int(person));
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("OrderDialog"), [this, &card](QDialog *dialog) {
        QCOMPARE(dialog->parent(), card.get());
        QCOMPARE(dialog->windowTitle(),
                 "Objednávka - [17] Adamec Ján - " + m_today.toString(QStringLiteral("d. M. yyyy")) + " - Obed");
        QAbstractItemModel *rows = dialog->findChild<QTableView *>(QStringLiteral("tableViewMenu"))->model();
        QVERIFY(rows->setData(rows->index(1, 2), 2));
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonOk"))->click();
    });
    button(*card, "toolButtonOrder")->click();
    BOXES_DONE(boxes);
    QCOMPARE(resetModel.count(), 1);
    QCOMPARE(m_database.rows(QStringLiteral("SELECT orderableID, uid, quantity, LEFT(ordered, 14) FROM via_orders")),
             QStringList{QStringLiteral("%1|%2|2|ZEP-adminID: 3").arg(item).arg(person)});
    QVERIFY(card->findChildren<QDialog *>().isEmpty());
}

void TestDayMenuActions::cancelledOrderResetsNothing()
{
    m_data.item(m_food, m_obed, m_today, 1);
    m_grid.addFood(1, m_obed, m_today, 1);
    const auto card = makeCard(int(m_data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján"))));
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("OrderDialog"), [](QDialog *dialog) {
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonCancel"))->click();
    });
    button(*card, "toolButtonOrder")->click();
    BOXES_DONE(boxes);
    QCOMPARE(resetModel.count(), 0);
}

void TestDayMenuActions::copyOpensTheCopyDialog()
{
    m_data.item(m_food, m_obed, m_today, 1);
    m_grid.addFood(1, m_obed, m_today, 1);
    const auto card = makeCard();
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogCopyMenuOfDay"), [this, &card](QDialog *dialog) {
        QCOMPARE(dialog->parent(), card.get());
        QCOMPARE(dialog->findChild<QCalendarWidget *>()->selectedDate(), m_today.addDays(1));
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    button(*card, "toolButCopy")->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_database.rows(QStringLiteral("SELECT date, locked FROM via_orderables ORDER BY orderableID")),
             (QStringList{m_today.toString(Qt::ISODate) + "|1", m_today.addDays(1).toString(Qt::ISODate) + "|0"}));
}

void TestDayMenuActions::reportOpensTheDispatch()
{
    m_data.item(m_food, m_obed, m_today, 1);
    m_grid.addFood(1, m_obed, m_today, 1);
    const auto card = makeCard();
    const QSignalSpy resetModel(card.get(), &DayMenuWidget::resetmodel);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogReport"), [this, &card](QDialog *dialog) {
        QCOMPARE(dialog->parent(), card.get());
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Odoslanie / tlač objednávky"));
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("labelTitle"))->text(),
                 m_today.toString(QStringLiteral("d.M.yyyy")) + QStringLiteral(" Obed"));
        dialog->reject();
    });
    button(*card, "toolButtonMenuReport")->click();
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 1);
    QCOMPARE(resetModel.count(), 0);
    QVERIFY(card->findChildren<QDialog *>().isEmpty());
}

void TestDayMenuActions::doubleClickOpensTheOrdersOfAnItem()
{
    const uint item = m_data.item(m_food, m_obed, m_today, 1);
    m_data.order(item, m_data.person(17, QStringLiteral("Adamec"), QStringLiteral("Ján")), 4);
    m_grid.addFood(int(item), m_obed, m_today, 1, QStringLiteral("4"));
    const auto card = makeCard();
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectDialog(QStringLiteral("DialogFoodOrders"), [&card](QDialog *dialog) {
        QCOMPARE(dialog->parent(), card.get());
        const auto *orders = dialog->findChild<QTableView *>(QStringLiteral("tableView"))->model();
        QCOMPARE(orders->rowCount(), 1);
        QCOMPARE(orders->index(0, 0).data().toInt(), 17);
        dialog->reject();
    });
    auto *table = card->findChild<QTableView *>(QStringLiteral("tableView"));
    emit table->doubleClicked(table->model()->index(1, 1));
    BOXES_DONE(boxes);
    QVERIFY(log.has(QStringLiteral("Creating DialogFoodOrders of orderableID: %1").arg(item)));
}

void TestDayMenuActions::enterOpensTheOrdersOfAnItem()
{
    const uint item = m_data.item(m_food, m_obed, m_today, 1);
    m_grid.addFood(int(item), m_obed, m_today, 1);
    const auto card = makeCard();
    card->show();
    auto *table = card->findChild<QTableView *>(QStringLiteral("tableView"));
    BoxAnswerer boxes;
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        QApplication::setActiveWindow(card.get());
        table->setFocus();
        table->setCurrentIndex(table->model()->index(1, 0));
        boxes.expectDialog(QStringLiteral("DialogFoodOrders"), [](QDialog *dialog) { dialog->reject(); });
        QTest::keyClick(table, Qt::Key(key), key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
    }
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 2);
}

void TestDayMenuActions::doubleClickIsDeafElsewhere_data()
{
    QTest::addColumn<int>("person");
    QTest::addColumn<int>("row");
    QTest::newRow("heading") << -1 << 0;
    QTest::newRow("person") << 5 << 1;
    QTest::newRow("nobody") << 0 << 1;
    QTest::newRow("no row") << -1 << 9;
}

void TestDayMenuActions::doubleClickIsDeafElsewhere()
{
    QFETCH(int, person);
    QFETCH(int, row);
    m_grid.addFood(1, m_obed, m_today, 1, QStringLiteral("4"));
    const auto card = makeCard(person);
    BoxAnswerer boxes;
    LogCatcher log;
    auto *table = card->findChild<QTableView *>(QStringLiteral("tableView"));
    QCOMPARE(table->model()->rowCount(), 2);
    emit table->doubleClicked(table->model()->index(row, 0));
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(log.lines(), QStringList());
}

QTEST_MAIN(TestDayMenuActions)
#include "tst_daymenuactions.moc"
