#include "program.h"
#include "shell/verinfointerface.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"
#include "support/testdatabase.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QJsonObject>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>

namespace {

QStringList cardTexts(const QWidget *dayCard)
{
    return columnTexts(*child<QAbstractItemView>(dayCard, "tableView")->model(), 0);
}

/// Types a filter in the menu editor and moves the first food that is left to the menu.
void addFood(QDialog *editor, const QString &filter)
{
    auto *line = child<QLineEdit>(editor, "lineEditFilter");
    line->clear();
    QTest::keyClicks(line, filter);
    auto *list = child<QAbstractItemView>(editor, "listViewFood");
    QCOMPARE(list->model()->rowCount(), 1);
    list->setCurrentIndex(list->model()->index(0, 0));
    click(editor, "toolButtonR");
}

/// Row of a text in the first column of a view's model, -1 without one.
int rowOf(const QAbstractItemView *view, const QString &text)
{
    return columnTexts(*view->model(), 0).indexOf(text);
}

/// Types a text into a cell as a user does.
void typeInto(QAbstractItemView *view, int row, int column, const QString &text)
{
    const QModelIndex cell = view->model()->index(row, column);
    view->setCurrentIndex(cell);
    view->edit(cell);
    auto *editor = view->findChild<QLineEdit *>();
    if (!editor)
        qFatal("the cell %d, %d has no editor", row, column);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Tab);
}

} // namespace

class TestPlugin : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void recordIsWhatTheHostReads();
    void exportsTheTwoEntryPointsOnly();
    void interfacesAnswer();
    void plansPublishesAndOrders();
    void closedDatabaseLeavesAnEmptyBoard();
    void readOnlyBoardCannotBeChanged();
    void lostConnectionTellsTheUser();

private:
    void composeMenu(const QWidget *board, const QDate &day);
    void copyMenu(const QWidget *board, const QDate &day);
    void orderWithLimit(const QWidget *board, const QDate &day);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<BoxAnswerer> m_boxes;
};

void TestPlugin::init()
{
    QSettings(QStringLiteral("NORVIK-IT"), QStringLiteral("ZEP")).clear();
    m_database = std::make_unique<TestDatabase>();
    m_boxes = std::make_unique<BoxAnswerer>();
    const QStringList rows{
        QStringLiteral("INSERT INTO branches VALUES (1, 'Sever'), (2, 'Juh')"),
        QStringLiteral("INSERT INTO people (uid, pid, name, surname, begin) VALUES (11, 101, 'Ľubica', 'Ďurišová', 0), "
                       "(12, 102, 'Štefan', 'Chovan', 0)"),
        QStringLiteral(
            "INSERT INTO via_segments VALUES (1, 'Obed', '11:00', '13:00', 1), (2, 'Večera', '17:00', '18:00', 2)"),
        QStringLiteral("INSERT INTO via_types VALUES (1, 'Polievka', 1, 1), (2, 'Hlavné jedlo', 2, 0)"),
        QStringLiteral("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (1, 'Kuchyňa', 'KU')"),
        QStringLiteral("INSERT INTO via_supplierbranch (supplierID, bid) VALUES (1, NULL)"),
        QStringLiteral("INSERT INTO via_foods (foodID, typeID, supplierID, name, price) VALUES (1, 1, 1, 'Šošovicová "
                       "polievka', 1.2), "
                       "(2, 2, 1, 'Bryndzové halušky', 5.5), (3, 2, 1, 'Vyprážaný syr', 4.9)"),
        QStringLiteral("INSERT INTO vars VALUES ('via_orderLimitEnabled', 'true')"),
        // The list of weeks begins with the first menu: without one it would lack the present week from Friday on.
        QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date, locked) VALUES (3, 1, CURDATE() - "
                       "INTERVAL 14 DAY, 1)"),
    };
    for (const QString &row : rows)
        m_database->exec(row);
}

void TestPlugin::cleanup()
{
    BOXES_DONE(*m_boxes);
    m_boxes.reset();
    m_database.reset();
}

void TestPlugin::recordIsWhatTheHostReads()
{
    const QJsonObject record = QPluginLoader(QStringLiteral(VIANDA_PLUGIN)).metaData();
    QCOMPARE(record.value(QStringLiteral("IID")).toString(), QStringLiteral("com.norvik-it.ViandaInterface"));
    QCOMPARE(record.value(QStringLiteral("className")).toString(), QStringLiteral("Viandasystem"));
    QCOMPARE(record.value(QStringLiteral("debug")), QJsonValue(false));
    // Qt 5.15 leaves an empty object out of the record; every reader gets an empty object either way.
    QVERIFY(record.value(QStringLiteral("MetaData")).toObject().isEmpty());
    // Qt stores the major and minor number and leaves the patch level at 0.
    QCOMPARE(record.value(QStringLiteral("version")).toInt() & 0xffff00, QT_VERSION & 0xffff00);
}

void TestPlugin::exportsTheTwoEntryPointsOnly()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"),
             {QStringLiteral("-D"), QStringLiteral("--defined-only"), QStringLiteral(VIANDA_PLUGIN)});
    QVERIFY(nm.waitForFinished());
    QStringList names;
    const QStringList lines =
        QString::fromUtf8(nm.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        names.append(line.section(QLatin1Char(' '), -1));
    names.sort();
    QCOMPARE(names, (QStringList{QStringLiteral("qt_plugin_instance"), QStringLiteral("qt_plugin_query_metadata")}));
}

void TestPlugin::interfacesAnswer()
{
    QPluginLoader loader(QStringLiteral(VIANDA_PLUGIN));
    QObject *root = loader.instance();
    QVERIFY2(root, qPrintable(loader.errorString()));
    QCOMPARE(loader.instance(), root);
    QVERIFY(!root->parent());
    auto *plugin = qobject_cast<MenuPluginInterface *>(root);
    auto *versions = qobject_cast<VerInfoInterface *>(root);
    QVERIFY(plugin);
    QVERIFY(versions);
    QCOMPARE(plugin->moduleName(), QStringLiteral("vianda"));
    QCOMPARE(versions->versionInfo().value(QStringLiteral("VER")), plugin->version());
    QVERIFY(versions->versionInfo().contains(QStringLiteral("BUILD")));
    QVERIFY(loader.unload());
}

void TestPlugin::composeMenu(const QWidget *board, const QDate &day)
{
    m_boxes->expectDialog(QStringLiteral("DialogMenu"), [](QDialog *editor) {
        addFood(editor, QStringLiteral("polievka"));
        addFood(editor, QStringLiteral("bryndz halu"));
        auto *menu = child<QAbstractItemView>(editor, "tableViewMenu");
        const int limitColumn = menu->model()->columnCount() - 1;
        typeInto(menu, rowOf(menu, QStringLiteral("KU Bryndzové halušky")), limitColumn, QStringLiteral("3"));
        click(editor, "pushButton");
    });
    click(card(board, 0, day), "toolButEdit");
    BOXES_DONE(*m_boxes);
}

void TestPlugin::copyMenu(const QWidget *board, const QDate &day)
{
    m_boxes->expectDialog(QStringLiteral("DialogCopyMenuOfDay"), [day](QDialog *dialog) {
        QCOMPARE(child<QCalendarWidget>(dialog, "calendar")->selectedDate(), day.addDays(1));
        QTest::mouseClick(child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    click(card(board, 0, day), "toolButCopy");
    BOXES_DONE(*m_boxes);
}

void TestPlugin::orderWithLimit(const QWidget *board, const QDate &day)
{
    m_boxes->expectDialog(QStringLiteral("OrderDialog"), [day](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(),
                 QStringLiteral("Objednávka - [101] Ďurišová Ľubica - %1 - Obed")
                     .arg(day.toString(QStringLiteral("d. M. yyyy"))));
        auto *table = child<QAbstractItemView>(dialog, "tableViewMenu");
        typeInto(table, rowOf(table, QStringLiteral("KU Bryndzové halušky")), 2, QStringLiteral("4"));
        click(dialog, "pushButtonOk");
    });
    m_boxes->expectBox(
        QStringLiteral("Potvrdenie objednávky"),
        QStringLiteral(
            "Jedlo <i>Bryndzové halušky</i> nemôže byť objednané v požadovanom množstve!\n\nObjednateľné množstvo: 3"));
    click(card(board, 0, day), "toolButtonOrder");
    BOXES_DONE(*m_boxes);

    m_boxes->expectDialog(QStringLiteral("OrderDialog"), [](QDialog *dialog) {
        auto *table = child<QAbstractItemView>(dialog, "tableViewMenu");
        typeInto(table, rowOf(table, QStringLiteral("KU Bryndzové halušky")), 2, QStringLiteral("2"));
        click(dialog, "pushButtonOk");
    });
    click(card(board, 0, day), "toolButtonOrder");
    BOXES_DONE(*m_boxes);
}

void TestPlugin::plansPublishesAndOrders()
{
    const QDate today = QDate::currentDate();
    const QString items = QStringLiteral(
        "SELECT f.name, o.date, o.segmentID, o.bid, o.position, o.price, o.`limit`, o.locked "
        "FROM via_orderables o JOIN via_foods f USING (foodID) WHERE o.date >= CURDATE() ORDER BY o.date, o.position");
    const QString date = today.toString(Qt::ISODate);
    const QString next = today.addDays(1).toString(Qt::ISODate);
    {
        Program program(m_database->db());
        QWidget *board = program.open(QStringLiteral("Menu"));
        QVERIFY(board);
        click(board, "butMenuSwitch");

        composeMenu(board, today);
        QCOMPARE(m_database->rows(items),
                 (QStringList{QStringLiteral("Šošovicová polievka|%1|1|NULL|1|1.2|0|0").arg(date),
                              QStringLiteral("Bryndzové halušky|%1|1|NULL|2|5.5|3|0").arg(date)}));
        QCOMPARE(cardTexts(card(board, 0, today)),
                 (QStringList{QStringLiteral("Polievka"), QStringLiteral("KU Šošovicová polievka"),
                              QStringLiteral("Hlavné jedlo"), QStringLiteral("KU Bryndzové halušky")}));
        QCOMPARE(cardTexts(card(board, 1, today)), QStringList());

        copyMenu(board, today);
        click(card(board, 0, today), "toolButtonLock");
        QCOMPARE(m_database->rows(items),
                 (QStringList{QStringLiteral("Šošovicová polievka|%1|1|NULL|1|1.2|0|1").arg(date),
                              QStringLiteral("Bryndzové halušky|%1|1|NULL|2|5.5|3|1").arg(date),
                              QStringLiteral("Šošovicová polievka|%1|1|NULL|1|1.2|0|0").arg(next),
                              QStringLiteral("Bryndzové halušky|%1|1|NULL|2|5.5|0|0").arg(next)}));
        QVERIFY(!child<QToolButton>(card(board, 0, today), "toolButEdit")->isEnabled());

        click(board, "butOrdersSwitch");
        child<QComboBox>(board, "comboBoxPeople")->setCurrentText(QStringLiteral("[101] Ďurišová Ľubica"));
        orderWithLimit(board, today);
        QCOMPARE(m_database->rows(QStringLiteral("SELECT uid, quantity, delivered FROM via_orders")),
                 QStringList{QStringLiteral("11|2|NULL")});
        QCOMPARE(child<QLabel>(card(board, 0, today), "labelSumOrders")->text(), QStringLiteral("2"));
        QCOMPARE(cardTexts(card(board, 0, today)),
                 (QStringList{QStringLiteral("Hlavné jedlo"), QStringLiteral("KU Bryndzové halušky")}));
        child<QComboBox>(board, "comboBoxPeople")->setCurrentText(QStringLiteral("[102] Chovan Štefan"));
        QCOMPARE(cardTexts(card(board, 0, today)), QStringList());
    }
    Program program(m_database->db());
    QWidget *board = program.open(QStringLiteral("Menu"));
    QVERIFY(child<QAbstractButton>(board, "butOrdersSwitch")->isChecked());
    QCOMPARE(child<QComboBox>(board, "comboBoxPeople")->currentText(), QStringLiteral("[102] Chovan Štefan"));
}

void TestPlugin::closedDatabaseLeavesAnEmptyBoard()
{
    Program program{QSqlDatabase()};
    QWidget *board = program.open(QStringLiteral("Menu"));
    QVERIFY(board);
    QVERIFY(!card(board, 0, QDate::currentDate()));
    click(board, "butMenuSwitch");
    click(board, "butOrdersSwitch");
}

void TestPlugin::readOnlyBoardCannotBeChanged()
{
    m_database->exec(
        QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date, locked) VALUES (2, 1, CURDATE(), 1)"));
    Program program(m_database->db(), {{QStringLiteral("readOnly"), true}});
    QWidget *board = program.open(QStringLiteral("Menu"));
    const QDate today = QDate::currentDate();
    QVERIFY(!child<QToolButton>(card(board, 0, today), "toolButtonOrder")->isEnabled());
    click(board, "butMenuSwitch");
    QVERIFY(!child<QToolButton>(card(board, 0, today), "toolButEdit")->isEnabled());
    QVERIFY(!child<QToolButton>(card(board, 1, today), "toolButEdit")->isEnabled());
    QVERIFY(!child<QToolButton>(card(board, 0, today), "toolButtonLock")->isEnabled());
}

void TestPlugin::lostConnectionTellsTheUser()
{
    m_database->exec(QStringLiteral("INSERT INTO via_orderables (foodID, segmentID, date) VALUES (2, 1, CURDATE())"));
    Program program(m_database->db());
    QWidget *board = program.open(QStringLiteral("Menu"));
    click(board, "butMenuSwitch");
    m_database->breakConnection();
    LogCatcher log;
    const QString title = QStringLiteral("Chyba databázy");
    m_boxes->expectBox(title, QStringLiteral("Nepodarilo sa uzamknúť objednávateľná položky!"));
    m_boxes->expectBox(title, QStringLiteral("Nepodarilo sa načítať menu!"));
    click(card(board, 0, QDate::currentDate()), "toolButtonLock");
    BOXES_DONE(*m_boxes);
    QVERIFY(log.critical().value(0).startsWith(QLatin1String("OrderableRepository(updating lock) - SQL ERROR: ")));
    QVERIFY(log.critical().value(1).startsWith(QLatin1String("FoodRepository(loadMenuWidgetMenu) - SQL ERROR: ")));
    QCOMPARE(m_database->value(QStringLiteral("SELECT locked FROM via_orderables WHERE date = CURDATE()")).toInt(), 0);
}

QTEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
