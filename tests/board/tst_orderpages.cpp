#include "board/daydata.h"
#include "board/dialogfoodorders.h"
#include "board/orderwidget.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"
#include "support/modelstrings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

class Page : public OrderWidget {
public:
    explicit Page(const QSqlDatabase &db)
        : OrderWidget(db, nullptr)
    {
    }

    template<typename Widget> Widget *find(const char *name) const { return findChild<Widget *>(QLatin1String(name)); }
    QDateEdit *from() const { return find<QDateEdit>("dateEditFrom"); }
    QDateEdit *to() const { return find<QDateEdit>("dateEditTo"); }
    QCheckBox *singleDay() const { return find<QCheckBox>("checkBoxSingleDay"); }
    QComboBox *segments() const { return find<QComboBox>("comboBoxSegment"); }
    QAbstractItemModel *orders() const { return find<QTableView>("tableViewZamestnanec")->model(); }
};

QTableView *table(const QDialog &dialog)
{
    return dialog.findChild<QTableView *>(QStringLiteral("tableView"));
}

QString headers(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts.join(QLatin1Char('|'));
}

} // namespace

/// The list of an item's orders and the page of all orders.
class TestOrderPages : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init();

    void foodOrders();
    void foodOrdersOfAnItemWithoutOrders();
    void foodOrdersOfHostileNames();
    void foodOrdersWithALostConnection();
    void foodOrdersWithAClosedDatabase();

    void pageMetaObject();
    void pageForm();
    void pageShowsAllOrders();
    void pageListsTheSlots();
    void pageFromDate();
    void pageSingleDay();
    void pageSegment();
    void pagePerson();
    void pageWithALostConnection();
    void pageWithAClosedDatabase();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestOrderPages::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestOrderPages::init()
{
    m_data = std::make_unique<DayData>(*m_database);
    m_data->item(21, 1);
    m_data->item(22, 2);
}

void TestOrderPages::foodOrders()
{
    m_data->order(21, 7, 2);
    m_data->order(21, 8, 1);
    m_data->order(22, 8, 5);
    const DialogFoodOrders dialog(m_database->db(), 121, nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Zoznam objednávok"));
    QStringList rows = rowTexts(*table(dialog)->model());
    rows.sort();
    QCOMPARE(rows, (QStringList{"77|Žofia Nováková|2", "78|Ján Kráľ|1"}));
    QCOMPARE(headers(*table(dialog)->model()), QStringLiteral("ID|meno|počet"));
    QCOMPARE(table(dialog)->columnWidth(1), 200);
    QVERIFY(!table(dialog)->model()->index(0, 0).flags().testFlag(Qt::ItemIsEditable));
}

void TestOrderPages::foodOrdersOfAnItemWithoutOrders()
{
    const DialogFoodOrders dialog(m_database->db(), 121, nullptr);
    QCOMPARE(rowTexts(*table(dialog)->model()), QStringList());
    QCOMPARE(table(dialog)->columnWidth(1), 200);
}

void TestOrderPages::foodOrdersOfHostileNames()
{
    m_data->order(21, 7, 2);
    m_data->exec("UPDATE people SET name = '<b>\\'\"%1', surname = '\\\\%2'");
    const DialogFoodOrders dialog(m_database->db(), 121, nullptr);
    QCOMPARE(rowTexts(*table(dialog)->model()), QStringList{"77|<b>'\"%1 \\%2|2"});
}

void TestOrderPages::foodOrdersWithALostConnection()
{
    const TestDatabase other(QStringLiteral("lost"));
    other.breakConnection();
    BoxAnswerer boxes;
    LogCatcher log;
    DialogFoodOrders dialog(other.db(), 121, nullptr);
    dialog.show();
    BOXES_DONE(boxes);
    QCOMPARE(table(dialog)->model()->rowCount(), 0);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("OrderModel - orderPeopleList ERROR: [")));
}

void TestOrderPages::foodOrdersWithAClosedDatabase()
{
    BoxAnswerer boxes;
    DialogFoodOrders dialog(m_data->closedConnection(), 121, nullptr);
    dialog.show();
    BOXES_DONE(boxes);
    QCOMPARE(table(dialog)->model()->rowCount(), 0);
}

void TestOrderPages::pageMetaObject()
{
    QCOMPARE(metaMethods(OrderWidget::staticMetaObject),
             (QStringList{"signal void datefromchanged(QDate)", "signal void datetochanged(QDate)",
                          "signal void textchanged(QString)", "signal void segmentchanged(QString)",
                          "slot void on_dateEditFrom_dateChanged(QDate)", "slot void on_checkBoxSingleDay_clicked()",
                          "slot void on_dateEditTo_dateChanged(QDate)",
                          "slot void on_comboBoxSegment_currentIndexChanged(QString)",
                          "slot void on_lineEditPerson_textChanged(QString)"}));
}

void TestOrderPages::pageForm()
{
    const Page page(m_database->db());
    QStringList texts;
    for (const char *label : {"label_7", "label_8", "label_5", "label_6"})
        texts.append(page.find<QLabel>(label)->text());
    QCOMPARE(texts, (QStringList{" Od : ", " Do : ", "Suma cien zobrazenia : ", "eur"}));
    QCOMPARE(page.singleDay()->text(), QStringLiteral("jeden deň"));
    QCOMPARE(page.find<QLineEdit>("lineEditPerson")->placeholderText(), QStringLiteral("Filter - zamestnanec"));
    QCOMPARE(page.find<QToolButton>("toolButton")->text(), QStringLiteral("pridať objednávku"));
    QCOMPARE(page.find<QPushButton>("pushButton")->text(), QStringLiteral("export buttony"));
    QCOMPARE(page.from()->date(), QDate::currentDate());
    QCOMPARE(page.to()->date(), QDate::currentDate());
    QVERIFY(page.to()->isEnabled());
}

void TestOrderPages::pageShowsAllOrders()
{
    m_data->order(21, 7, 2);
    m_data->order(22, 8, 1);
    const Page page(m_database->db());
    QCOMPARE(headers(*page.orders()), QStringLiteral("Dátum|Meno|Cena/kus|Objednané"));
    QCOMPARE(columnTexts(*page.orders(), 1), (QStringList{"Ján", "Žofia"})); // by surname
    QCOMPARE(columnTexts(*page.orders(), 3), (QStringList{"before", "before"}));
}

void TestOrderPages::pageListsTheSlots()
{
    m_data->exec("INSERT INTO via_segments (name, position) VALUES ('<b>Večera</b>', 3), ('Desiata', 0)");
    const Page page(m_database->db());
    QStringList entries;
    for (int entry = 0; entry < page.segments()->count(); ++entry)
        entries.append(page.segments()->itemText(entry));
    QCOMPARE(entries, (QStringList{"- všetky segmenty -", "Desiata", "Obed", "<b>Večera</b>"}));
    QCOMPARE(page.segments()->currentIndex(), 0);
}

void TestOrderPages::pageFromDate()
{
    const Page page(m_database->db());
    QSignalSpy fromDates(&page, &OrderWidget::datefromchanged);
    QSignalSpy toDates(&page, &OrderWidget::datetochanged);
    QVERIFY(fromDates.isValid() && toDates.isValid());
    page.from()->setDate(QDate(2031, 5, 1));
    QCOMPARE(fromDates.takeFirst().constFirst().toDate(), QDate(2031, 5, 1));
    QCOMPARE(toDates.count(), 0);
    QCOMPARE(page.to()->date(), QDate::currentDate());
    page.to()->setDate(QDate(2031, 5, 3));
    QCOMPARE(toDates.takeFirst().constFirst().toDate(), QDate(2031, 5, 3));
    QCOMPARE(fromDates.count(), 0);
}

void TestOrderPages::pageSingleDay()
{
    const Page page(m_database->db());
    page.from()->setDate(QDate(2031, 5, 1));
    page.singleDay()->click();
    QCOMPARE(page.to()->date(), QDate(2031, 5, 1));
    QVERIFY(!page.to()->isEnabled());
    QStringList order;
    connect(&page, &OrderWidget::datefromchanged, this, [&order] { order.append(QStringLiteral("from")); });
    connect(&page, &OrderWidget::datetochanged, this, [&order] { order.append(QStringLiteral("to")); });
    page.from()->setDate(QDate(2031, 5, 9));
    QCOMPARE(page.to()->date(), QDate(2031, 5, 9));
    QCOMPARE(order, (QStringList{"to", "from"}));
    page.singleDay()->click();
    QVERIFY(page.to()->isEnabled());
    page.from()->setDate(QDate(2031, 5, 11));
    QCOMPARE(page.to()->date(), QDate(2031, 5, 9));
}

void TestOrderPages::pageSegment()
{
    const Page page(m_database->db());
    QSignalSpy segments(&page, &OrderWidget::segmentchanged);
    QVERIFY(segments.isValid());
    page.segments()->setCurrentIndex(1);
    QCOMPARE(segments.takeFirst().constFirst().toString(), QStringLiteral("Obed"));
    page.segments()->setCurrentIndex(0);
    QCOMPARE(segments.takeFirst().constFirst().toString(), QString());
    QCOMPARE(segments.count(), 0);
}

void TestOrderPages::pagePerson()
{
    const Page page(m_database->db());
    QSignalSpy texts(&page, &OrderWidget::textchanged);
    QVERIFY(texts.isValid());
    page.find<QLineEdit>("lineEditPerson")->setText(QStringLiteral("Nov%1"));
    QCOMPARE(texts.takeFirst().constFirst().toString(), QStringLiteral("Nov%1"));
}

void TestOrderPages::pageWithALostConnection()
{
    const TestDatabase other(QStringLiteral("lost"));
    other.breakConnection();
    BoxAnswerer boxes;
    LogCatcher log;
    Page page(other.db());
    page.show();
    BOXES_DONE(boxes);
    QCOMPARE(page.orders()->rowCount(), 0);
    QCOMPARE(page.segments()->count(), 1);
    QCOMPARE(log.critical().size(), 2);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("OrderModel - setQuery ERROR: [")));
}

void TestOrderPages::pageWithAClosedDatabase()
{
    BoxAnswerer boxes;
    Page page(m_data->closedConnection());
    page.show();
    BOXES_DONE(boxes);
    QCOMPARE(page.orders()->rowCount(), 0);
    page.from()->setDate(QDate(2031, 5, 1));
    QCOMPARE(page.from()->date(), QDate(2031, 5, 1));
}

QTEST_MAIN(TestOrderPages)
#include "tst_orderpages.moc"
