#include "board/orderentry.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QTextDocument>

#include <memory>

namespace {

const QString failed = QStringLiteral("Chyba databázy");
const QString refused = QStringLiteral("Potvrdenie objednávky");
const QString notChecked = QStringLiteral("Nepodarilo sa skontrolovať limit!");
const QString notDeleted = QStringLiteral("Nepodarilo sa zrušiť objednávku!");
const QString notAdded = QStringLiteral("Nepodarilo sa pridať objednávku!");

QString usedUp(const QString &food)
{
    return QStringLiteral("Jedlo <i>%1</i> nemôže byť objednané (vyčerpaný limit)!").replace("%1", food);
}

QString tooMany(const QString &food, int allowed)
{
    return QStringLiteral("Jedlo <i>%1</i> nemôže byť objednané v požadovanom množstve!\n\nObjednateľné množstvo: %2")
        .replace("%2", QString::number(allowed))
        .replace("%1", food);
}

} // namespace

/// What the order dialog writes and whom it tells.
class TestOrderDialogSave : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init() { m_data = std::make_unique<DayData>(*m_database); }
    void cleanup();

    void everyRowIsRewritten();
    void auditText();
    void quantityZeroRemovesTheOrder_data();
    void quantityZeroRemovesTheOrder();
    void typedQuantities_data();
    void typedQuantities();
    void limits_data();
    void limits();
    void refusedRowStaysAndTheOthersAreSaved();
    void limitCountsWithoutItsSetting();
    void informativeItemIsOrderedByItsButtons();
    void cancelWritesNothing();
    void boxesBelongToTheDialog();
    void refusalShowsHostileNamesAsTyped_data();
    void refusalShowsHostileNamesAsTyped();
    void boxKeepsItsSizeInPeace();

    void itemDeletedMeanwhile();
    void lastPortionsTakenMeanwhile();
    void menuLockedForGoodMeanwhile();
    void lostConnectionShowsABoxForEachRow();
    void refusedStatements_data();
    void refusedStatements();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestOrderDialogSave::cleanup()
{
    m_database->exec(QStringLiteral("DROP TRIGGER IF EXISTS refuse"));
}

void TestOrderDialogSave::everyRowIsRewritten()
{
    m_data->item(12, 1, 1);
    m_data->item(21, 2, 1);
    m_data->item(22, 3, 1);
    m_data->item(23, 4, 0);
    m_data->order(21, 7, 2);
    m_data->order(21, 8, 5);
    m_data->order(23, 7, 1); // not open any more: neither shown nor touched
    m_data->order(22, 7, 1);
    m_data->order(22, 7, 3); // two rows of one item become one
    OrderEntry entry(m_database->db());
    entry.setQuantity(12, QStringLiteral("1"));
    entry.ok()->click();
    QCOMPARE(entry.result(), 1);
    QCOMPARE(m_data->orders(), (QStringList{"112 7 1", "121 7 2", "121 8 5", "122 7 4", "123 7 1"}));
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(*) FROM via_orders WHERE ordered = 'before'")).toInt(), 2);
    QCOMPARE(m_database->value(QStringLiteral("SELECT COUNT(delivered) FROM via_orders")).toInt(), 0);
}

void TestOrderDialogSave::auditText()
{
    m_data->item(21, 2, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("1"));
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    entry.ok()->click();
    const QString text = m_database->value(QStringLiteral("SELECT ordered FROM via_orders")).toString();
    QVERIFY2(text.startsWith(QLatin1String("ZEP-adminID: 5, ")), qPrintable(text));
    const QString moment = text.mid(int(qstrlen("ZEP-adminID: 5, ")));
    const QDateTime written = QDateTime::fromString(moment, QStringLiteral("d.M.yyyy, H:m:s"));
    QVERIFY2(written >= before && written <= QDateTime::currentDateTime(), qPrintable(moment));
    QCOMPARE(moment, written.toString(QStringLiteral("d.M.yyyy, H:m:s"))); // without leading zeros
}

void TestOrderDialogSave::quantityZeroRemovesTheOrder_data()
{
    QTest::addColumn<QString>("quantity");
    QTest::newRow("zero") << "0";
    QTest::newRow("empty") << "";
    QTest::newRow("negative zero") << "-0";
}

void TestOrderDialogSave::quantityZeroRemovesTheOrder()
{
    QFETCH(QString, quantity);
    m_data->item(21, 2, 1, 5);
    m_data->order(21, 7, 2);
    m_data->order(21, 8, 2);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, quantity);
    entry.ok()->click();
    QCOMPARE(m_data->orders(), QStringList{"121 8 2"});
}

void TestOrderDialogSave::typedQuantities_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("warned");
    QTest::newRow("a number") << "4"
                              << "121 7 4" << false;
    QTest::newRow("negative") << "-3"
                              << "121 7 2147483647" << true;
    QTest::newRow("beyond int") << "99999999999"
                                << "121 7 2147483647" << true;
}

void TestOrderDialogSave::typedQuantities()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    QFETCH(bool, warned);
    m_data->item(21, 2, 1);
    m_data->order(21, 7, 2);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, typed);
    LogCatcher log;
    entry.ok()->click();
    QCOMPARE(m_data->orders(), QStringList{stored});
    QCOMPARE(log.has(QStringLiteral("OrderDialog - quantity out of range taken as 2147483647 for orderableID 121")),
             warned);
}

void TestOrderDialogSave::limits_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("others");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    const QString food = QStringLiteral("jedlo 21");
    QTest::newRow("no limit") << 0 << 50 << "7"
                              << "";
    QTest::newRow("within") << 5 << 2 << "3"
                            << "";
    QTest::newRow("own order does not count") << 3 << 0 << "3"
                                              << "";
    QTest::newRow("one too many") << 5 << 2 << "4" << tooMany(food, 3);
    QTest::newRow("one left") << 5 << 4 << "4" << tooMany(food, 1);
    QTest::newRow("none left") << 5 << 5 << "4" << usedUp(food);
    QTest::newRow("overdrawn") << 5 << 9 << "1" << usedUp(food);
    QTest::newRow("overdrawn, nothing wanted") << 5 << 9 << "0" << usedUp(food);
    QTest::newRow("negative") << 5 << 2 << "-3" << tooMany(food, 3);
    QTest::newRow("negative with none left") << 5 << 5 << "-3" << usedUp(food);
    QTest::newRow("huge") << 5 << 2 << "99999999999" << tooMany(food, 3);
    QTest::newRow("huge, overdrawn") << 5 << 50 << "2147483647" << usedUp(food);
}

void TestOrderDialogSave::limits()
{
    QFETCH(int, limit);
    QFETCH(int, others);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    m_data->item(21, 2, 1, limit);
    m_data->order(21, 7, 2);
    m_data->order(21, 8, others);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, typed);
    BoxAnswerer boxes;
    if (!message.isEmpty())
        boxes.expectBox(refused, message);
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(entry.result(), 1);
    QCOMPARE(m_data->orders().constFirst(),
             QStringLiteral("121 7 ") + (message.isEmpty() ? typed : QStringLiteral("2")));
}

void TestOrderDialogSave::refusedRowStaysAndTheOthersAreSaved()
{
    m_data->item(12, 1, 1, 1);
    m_data->item(21, 2, 1, 1);
    m_data->item(22, 3, 1);
    m_data->order(12, 7, 1);
    m_data->order(21, 8, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(12, QStringLiteral("2"));
    entry.setQuantity(21, QStringLiteral("1"));
    entry.setQuantity(22, QStringLiteral("3"));
    BoxAnswerer boxes;
    boxes.expectBox(refused, tooMany(QStringLiteral("jedlo 12"), 1));
    boxes.expectBox(refused, usedUp(QStringLiteral("jedlo 21")));
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(entry.result(), 1);
    QCOMPARE(m_data->orders(), (QStringList{"112 7 1", "121 8 1", "122 7 3"}));
}

void TestOrderDialogSave::limitCountsWithoutItsSetting()
{
    m_data->exec("REPLACE INTO vars VALUES ('via_orderLimitEnabled', '0')");
    m_data->item(21, 2, 1, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("2"));
    BoxAnswerer boxes;
    boxes.expectBox(refused, tooMany(QStringLiteral("jedlo 21"), 1));
    entry.ok()->click();
    BOXES_DONE(boxes);
    QVERIFY(m_data->orders().isEmpty());
}

void TestOrderDialogSave::informativeItemIsOrderedByItsButtons()
{
    m_data->exec("UPDATE via_types SET informative = 1 WHERE typeID = 91");
    m_data->item(12, 1, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    entry.click(entry.cell(12, OrderEntry::PlusColumn));
    entry.ok()->click();
    QCOMPARE(m_data->orders(), QStringList{"112 7 1"});
    QCOMPARE(m_database->value(QStringLiteral("SELECT position FROM via_orderables")).toInt(), 1);
}

void TestOrderDialogSave::cancelWritesNothing()
{
    m_data->item(21, 2, 1);
    m_data->order(21, 7, 2);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("OrderDialog"), [](QDialog *dialog) {
        const auto *entry = static_cast<OrderEntry *>(dialog);
        entry->setQuantity(21, QStringLiteral("5"));
        entry->cancel()->click();
    });
    OrderEntry entry(m_database->db());
    QCOMPARE(entry.exec(), 0);
    BOXES_DONE(boxes);
    QCOMPARE(m_data->orders(), QStringList{"121 7 2"});
    QCOMPARE(m_database->value(QStringLiteral("SELECT ordered FROM via_orders")).toString(), QStringLiteral("before"));
}

void TestOrderDialogSave::boxesBelongToTheDialog()
{
    m_data->item(21, 2, 1, 1);
    m_data->item(22, 3, 1);
    OrderEntry entry(m_database->db());
    entry.show();
    entry.setQuantity(21, QStringLiteral("2"));
    entry.setQuantity(22, QStringLiteral("2"));
    m_data->exec("DELETE FROM via_orderables WHERE orderableID = 122");
    BoxAnswerer boxes;
    const auto inspect = [&entry](QMessageBox::Icon icon, Qt::TextFormat format) {
        return [&entry, icon, format](QMessageBox *box) {
            QCOMPARE(box->parent(), &entry);
            QCOMPARE(box->size(), QSize(500, 200));
            QCOMPARE(box->minimumSize(), QSize(500, 200));
            QCOMPARE(box->maximumSize(), QSize(500, 200));
            QCOMPARE(box->icon(), icon);
            QCOMPARE(box->textFormat(), format);
            QCOMPARE(box->standardButtons(), QMessageBox::Ok);
        };
    };
    boxes.expectBox(refused, tooMany(QStringLiteral("jedlo 21"), 1), QMessageBox::Ok,
                    inspect(QMessageBox::Warning, Qt::RichText));
    boxes.expectBox(failed, notAdded, QMessageBox::Ok, inspect(QMessageBox::Critical, Qt::PlainText));
    entry.ok()->click();
    BOXES_DONE(boxes);
}

void TestOrderDialogSave::refusalShowsHostileNamesAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("others");
    const QStringList names = hostileNames();
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name.left(12) + QStringLiteral(" some left"))) << name << 0;
        QTest::newRow(qPrintable(name.left(12) + QStringLiteral(" none left"))) << name << 3;
    }
}

void TestOrderDialogSave::refusalShowsHostileNamesAsTyped()
{
    QFETCH(QString, name);
    QFETCH(int, others);
    m_data->item(21, 2, 1, 3);
    m_data->order(21, 8, others);
    m_data->rename(21, name);
    OrderEntry entry(m_database->db());
    entry.model()->setData(entry.cell(QStringLiteral("DOD ") + name), QStringLiteral("9"));
    BoxAnswerer boxes;
    const QString escaped = name.toHtmlEscaped();
    boxes.expectBox(refused, others == 0 ? tooMany(escaped, 3) : usedUp(escaped), QMessageBox::Ok,
                    [&name](QMessageBox *box) {
                        QTextDocument shown;
                        shown.setHtml(box->text());
                        QVERIFY(shown.toPlainText().contains(name));
                        QCOMPARE(box->size(), QSize(500, 200));
                    });
    entry.ok()->click();
    BOXES_DONE(boxes);
}

namespace {

/// Counts what a window is told.
class EventCounter : public QObject {
public:
    int layoutRequests = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        layoutRequests += event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void TestOrderDialogSave::boxKeepsItsSizeInPeace()
{
    m_data->item(21, 2, 1, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("2"));
    BoxAnswerer boxes;
    EventCounter counter;
    boxes.expectBox(refused, tooMany(QStringLiteral("jedlo 21"), 1), QMessageBox::Ok, [&counter](QMessageBox *box) {
        box->installEventFilter(&counter);
        box->setFont(QFont(box->font().family(), 30));
        for (int turn = 0; turn < 50; ++turn)
            QCoreApplication::processEvents();
        QCOMPARE(box->size(), QSize(500, 200));
    });
    entry.ok()->click();
    BOXES_DONE(boxes);
    QVERIFY2(counter.layoutRequests < 20, qPrintable(QString::number(counter.layoutRequests)));
}

void TestOrderDialogSave::itemDeletedMeanwhile()
{
    m_data->item(21, 2, 1);
    m_data->item(22, 3, 1);
    m_data->item(23, 4, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("1"));
    entry.setQuantity(23, QStringLiteral("1"));
    m_data->exec("DELETE FROM via_orderables WHERE orderableID IN (121, 122)"); // 122 is not wanted
    BoxAnswerer boxes;
    boxes.expectBox(failed, notAdded);
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->orders(), QStringList{"123 7 1"});
}

void TestOrderDialogSave::lastPortionsTakenMeanwhile()
{
    m_data->item(21, 2, 1, 5);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("2"));
    m_data->order(21, 8, 4);
    BoxAnswerer boxes;
    boxes.expectBox(refused, tooMany(QStringLiteral("jedlo 21"), 1));
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->orders(), QStringList{"121 8 4"});
}

void TestOrderDialogSave::menuLockedForGoodMeanwhile()
{
    m_data->item(21, 2, 1);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("2"));
    m_data->exec("UPDATE via_orderables SET locked = 2");
    entry.ok()->click(); // what the form offered when it was opened is still taken
    QCOMPARE(m_data->orders(), QStringList{"121 7 2"});
}

void TestOrderDialogSave::lostConnectionShowsABoxForEachRow()
{
    const TestDatabase other(QStringLiteral("lost"));
    const DayData data(other);
    data.item(21, 2, 1);
    data.item(22, 3, 1);
    data.order(21, 7, 2);
    OrderEntry entry(other.db());
    entry.setQuantity(22, QStringLiteral("1"));
    other.breakConnection();
    BoxAnswerer boxes;
    boxes.expectBox(failed, notChecked);
    boxes.expectBox(failed, notChecked);
    LogCatcher log;
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(entry.result(), 1);
    QCOMPARE(data.orders(), QStringList{"121 7 2"});
    QCOMPARE(log.critical().size(), 2);
    QVERIFY(
        log.critical().constFirst().startsWith(QLatin1String("OrderRepository(checkOrderableLimit) - SQL ERROR: ")));
}

void TestOrderDialogSave::refusedStatements_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("log");
    QTest::addColumn<QStringList>("orders");
    QTest::newRow("delete") << "DELETE" << notDeleted
                            << "OrderRepository(deleting) - SQL ERROR: " << QStringList{"121 7 2", "122 7 1"};
    QTest::newRow("insert") << "INSERT" << notAdded
                            << "OrderRepository(adding) - SQL ERROR: " << QStringList{"122 7 1"};
}

void TestOrderDialogSave::refusedStatements()
{
    QFETCH(QString, event);
    QFETCH(QString, message);
    QFETCH(QString, log);
    m_data->item(21, 2, 1);
    m_data->item(22, 3, 1);
    m_data->order(21, 7, 2);
    OrderEntry entry(m_database->db());
    entry.setQuantity(21, QStringLiteral("3"));
    entry.setQuantity(22, QStringLiteral("1"));
    m_database->exec(
        QStringLiteral("CREATE TRIGGER refuse BEFORE %1 ON via_orders FOR EACH ROW IF %2.orderableID = 121 "
                       "THEN SIGNAL SQLSTATE '45000'; END IF")
            .arg(event, event == QLatin1String("DELETE") ? QStringLiteral("OLD") : QStringLiteral("NEW")));
    BoxAnswerer boxes;
    boxes.expectBox(failed, message);
    LogCatcher lines;
    entry.ok()->click();
    BOXES_DONE(boxes);
    QCOMPARE(entry.result(), 1);
    QTEST(m_data->orders(), "orders");
    QCOMPARE(lines.critical().size(), 1);
    QVERIFY(lines.critical().constFirst().startsWith(log));
}

QTEST_MAIN(TestOrderDialogSave)
#include "tst_orderdialogsave.moc"
