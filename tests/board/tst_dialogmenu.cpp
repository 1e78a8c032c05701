#include "board/menudelegate.h"
#include "board/menueditor.h"
#include "support/metamethods.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QSignalSpy>
#include <QSortFilterProxyModel>

#include <memory>

/// The menu editor up to the save: what it shows, and the moves.
class TestDialogMenu : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init();

    void metaObject();
    void form();
    void moveButtons_data();
    void moveButtons();
    void titles_data();
    void titles();
    void showsMenuAndFoods();
    void headings();
    void orderedItemsAreMarked();
    void branchHasItsOwnSuppliers();
    void limitColumn_data();
    void limitColumn();
    void nameColumnLeavesRoomForTheLimit();
    void canDieBeforeItIsLaidOut();
    void modelsKeepTheirContract();
    void addPutsTheFoodBelowItsHeading();
    void addWithoutHeadingOrSelectionDoesNothing();
    void removePutsTheFoodAtTheEnd();
    void headingsAndOrderedItemsStay();
    void upAndDown();
    void filterNarrowsTheFoods();
    void filterThatFindsNothingOffersAFood_data();
    void filterThatFindsNothingOffersAFood();
    void hostileNamesStandAsTyped();
    void longNamesKeepTheWindowSmall();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestDialogMenu::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestDialogMenu::init()
{
    m_data = std::make_unique<DayData>(*m_database);
    m_data->item(12, 1);
    m_data->item(22, 2, 0, 20);
    m_data->item(23, 3);
    m_data->item(24, 4);
}

void TestDialogMenu::metaObject()
{
    QCOMPARE(metaMethods(DialogMenu::staticMetaObject),
             (QStringList{"signal void textchanged(QString)", "slot void on_lineEditFilter_textChanged(QString)",
                          "slot void on_pushButton_clicked()", "slot void on_tableViewMenu_doubleClicked(QModelIndex)",
                          "slot void on_listViewFood_doubleClicked(QModelIndex)", "slot void on_toolButtonR_clicked()",
                          "slot void on_toolButtonL_clicked()", "slot void on_toolButtonU_clicked()",
                          "slot void on_toolButtonD_clicked()", "slot void on_pushButtonAddFood_clicked()",
                          "slot void setTableMenuCols()"}));
}

void TestDialogMenu::form()
{
    const MenuEditor editor(m_database->db());
    QCOMPARE(editor.filter()->placeholderText(), QStringLiteral("filter jedla"));
    QCOMPARE(editor.find<QPushButton>("pushButtonAddFood")->text(), QStringLiteral("+ pridať jedlo"));
    QCOMPARE(editor.find<QPushButton>("pushButton")->text(), QStringLiteral("Uložiť"));
    const QWidget *panel = editor.find<QLabel>("label_2")->parentWidget();
    for (const char *property : {"silverPanel", "title", "titlePanel", "titleText"})
        QCOMPARE(panel->property(property), QVariant(true));
    QCOMPARE(editor.table()->editTriggers(),
             QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    QCOMPARE(editor.table()->horizontalHeader()->minimumSectionSize(), 20);
    const QList<QAbstractItemView *> views{editor.list(), editor.table()};
    for (const QAbstractItemView *view : views) {
        QCOMPARE(view->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(view->selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(qobject_cast<MenuDelegate *>(view->itemDelegate()));
        QVERIFY(!view->accessibleName().isEmpty());
    }
    QCOMPARE(editor.offers(), QString());
    const auto *foods = qobject_cast<QSortFilterProxyModel *>(editor.list()->model());
    QVERIFY(foods->isSortLocaleAware());
    QVERIFY(foods->dynamicSortFilter());
}

void TestDialogMenu::moveButtons_data()
{
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("image");
    QTest::newRow("toolButtonR") << "pridať jedlo do menu"
                                 << ":/images/forward.png";
    QTest::newRow("toolButtonL") << "odobrať jedlo z menu"
                                 << ":/images/back.png";
    QTest::newRow("toolButtonU") << "posunúť jedlo hore"
                                 << ":/images/up.png";
    QTest::newRow("toolButtonD") << "posunúť jedlo dole"
                                 << ":/images/down.png";
}

void TestDialogMenu::moveButtons()
{
    QFETCH(QString, toolTip);
    QFETCH(QString, image);
    const MenuEditor editor(m_database->db());
    const QToolButton *button = editor.tool(QTest::currentDataTag());
    QCOMPARE(button->toolTip(), toolTip);
    QCOMPARE(button->accessibleName(), toolTip);
    QVERIFY(QFile::exists(image));
    QCOMPARE(button->icon().pixmap(24).toImage(), QIcon(image).pixmap(24).toImage());
}

void TestDialogMenu::titles_data()
{
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("named") << "Obed"
                           << " - Obed";
    QTest::newRow("one blank") << " "
                               << "";
    QTest::newRow("two blanks") << "  "
                                << " -   ";
    QTest::newRow("empty") << ""
                           << " - ";
    QTest::newRow("markup") << "<i>%1</i>"
                            << " - <i>%1</i>";
}

void TestDialogMenu::titles()
{
    QFETCH(QString, slot);
    QFETCH(QString, suffix);
    const MenuEditor editor(m_database->db(), slot);
    QCOMPARE(editor.windowTitle(), QStringLiteral("Upraviť menu - 14. 5. 2031") + suffix);
    QCOMPARE(editor.find<QLabel>("label_2")->text(), QStringLiteral("Menu - 14. 5. 2031") + suffix);
    QCOMPARE(editor.find<QLabel>("label_2")->textFormat(), Qt::PlainText);
}

void TestDialogMenu::showsMenuAndFoods()
{
    const MenuEditor editor(m_database->db());
    QCOMPARE(
        editor.menu(),
        (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 23", "DOD jedlo 24"}));
    QStringList foods = editor.foods();
    foods.sort(); // the database leaves the order within a type open
    QCOMPARE(foods, (QStringList{"DOD jedlo 11", "DOD jedlo 13", "DOD jedlo 21", "DOD jedlo 31"}));
    QCOMPARE(editor.foods().constLast(), QStringLiteral("DOD jedlo 31"));
}

void TestDialogMenu::headings()
{
    const MenuEditor editor(m_database->db());
    const QFont font = editor.table()->model()->index(0, 0).data(Qt::FontRole).value<QFont>();
    QCOMPARE(font.weight(), 75);
    QCOMPARE(font.pointSize(), 12);
    QVERIFY(!editor.table()->model()->index(1, 0).data(Qt::FontRole).isValid());
}

void TestDialogMenu::orderedItemsAreMarked()
{
    m_data->order(23, 7, 2);
    const MenuEditor editor(m_database->db());
    const QModelIndex ordered = MenuEditor::indexOf(*editor.table()->model(), QStringLiteral("DOD jedlo 23"));
    QCOMPARE(ordered.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0, 80));
    QCOMPARE(ordered.data(Qt::ToolTipRole).toString(),
             QStringLiteral("Táto položka sa nedá odstániť z menu pretože má existujúce objednávky."));
    const QModelIndex other = ordered.siblingAtRow(ordered.row() + 1);
    QVERIFY(!other.data(Qt::BackgroundRole).isValid());
    QVERIFY(!other.data(Qt::ToolTipRole).isValid());
}

void TestDialogMenu::branchHasItsOwnSuppliers()
{
    const MenuEditor editor(m_database->db(), QStringLiteral("Obed"), true, 5);
    QCOMPARE(editor.menu(), QStringList());
    QCOMPARE(editor.foods(), QStringList{"IBA jedlo 25"});
}

void TestDialogMenu::limitColumn_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("shown");
    QTest::newRow("limits") << true << "jedlo limit";
    QTest::newRow("no limits") << false << "jedlo";
}

void TestDialogMenu::limitColumn()
{
    QFETCH(bool, enabled);
    const MenuEditor editor(m_database->db(), QStringLiteral("Obed"), enabled);
    QStringList shown;
    for (int column = 0; column < editor.table()->model()->columnCount(); ++column) {
        if (!editor.table()->isColumnHidden(column))
            shown.append(editor.table()->model()->headerData(column, Qt::Horizontal).toString());
    }
    QTEST(shown.join(QLatin1Char(' ')), "shown");
}

void TestDialogMenu::nameColumnLeavesRoomForTheLimit()
{
    MenuEditor editor(m_database->db());
    QCOMPARE(editor.table()->columnWidth(0), 59);
    editor.table()->setFixedWidth(400);
    QTRY_COMPARE(editor.table()->columnWidth(0), editor.table()->viewport()->width() - 59); // without being shown
    editor.table()->setFixedWidth(QWIDGETSIZE_MAX);
    editor.table()->setMinimumWidth(0);
    show(editor);
    QTRY_COMPARE(editor.table()->columnWidth(0), editor.table()->viewport()->width() - 59);
    QCOMPARE(editor.table()->columnWidth(2), 59);
    editor.resize(editor.width() + 200, editor.height());
    QTRY_COMPARE(editor.table()->columnWidth(0), editor.table()->viewport()->width() - 59);
    editor.table()->setColumnWidth(0, 77);
    editor.setTableMenuCols();
    QCOMPARE(editor.table()->columnWidth(0), editor.table()->viewport()->width() - 59);
}

void TestDialogMenu::canDieBeforeItIsLaidOut()
{
    delete new MenuEditor(m_database->db());
    QTest::qWait(5);
}

void TestDialogMenu::modelsKeepTheirContract()
{
    m_data->order(23, 7, 2);
    const MenuEditor editor(m_database->db());
    const QAbstractItemModelTester listTester(editor.list()->model());
    const QAbstractItemModelTester tableTester(editor.table()->model());
    editor.selectFood(QStringLiteral("DOD jedlo 31"));
    editor.tool("toolButtonR")->click();
    editor.selectItem(QStringLiteral("DOD jedlo 22"));
    editor.tool("toolButtonD")->click();
    editor.tool("toolButtonL")->click();
    editor.filter()->setText(QStringLiteral("22"));
    QCOMPARE(editor.foods(), QStringList{"DOD jedlo 22"});
}

void TestDialogMenu::addPutsTheFoodBelowItsHeading()
{
    const MenuEditor editor(m_database->db());
    editor.selectFood(QStringLiteral("DOD jedlo 21"));
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu(),
             (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 21", "DOD jedlo 22", "DOD jedlo 23",
                          "DOD jedlo 24"}));
    QVERIFY(!editor.foods().contains(QStringLiteral("DOD jedlo 21")));
    editor.selectFood(QStringLiteral("DOD jedlo 31"));
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu().mid(7), (QStringList{" Dezerty", "DOD jedlo 31"})); // the hidden heading appears
}

void TestDialogMenu::addWithoutHeadingOrSelectionDoesNothing()
{
    const MenuEditor editor(m_database->db());
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu().size(), 6);
    QCOMPARE(editor.foods().size(), 4);
}

void TestDialogMenu::removePutsTheFoodAtTheEnd()
{
    const MenuEditor editor(m_database->db());
    editor.tool("toolButtonL")->click(); // nothing selected
    QCOMPARE(editor.menu().size(), 6);
    editor.selectItem(QStringLiteral("DOD jedlo 23"));
    editor.tool("toolButtonL")->click();
    QCOMPARE(editor.menu(),
             (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 24"}));
    QCOMPARE(editor.foods().constLast(), QStringLiteral("DOD jedlo 23"));
    editor.selectItem(QStringLiteral("DOD jedlo 12"));
    editor.tool("toolButtonL")->click();
    QCOMPARE(editor.menu(), (QStringList{" Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 24"})); // its heading goes too
    QCOMPARE(editor.foods().constLast(), QStringLiteral("DOD jedlo 12"));
}

void TestDialogMenu::headingsAndOrderedItemsStay()
{
    m_data->order(23, 7, 2);
    MenuEditor editor(m_database->db());
    show(editor);
    const QStringList before = editor.menu();
    for (const char *name : {" Hlavné jedlá", "DOD jedlo 23"}) {
        editor.selectItem(QString::fromUtf8(name));
        editor.tool("toolButtonL")->click();
        QCOMPARE(editor.menu(), before);
        doubleClick(editor.table(), editor.table()->currentIndex());
        QCOMPARE(editor.menu(), before);
    }
    editor.selectItem(QStringLiteral("DOD jedlo 23"));
    editor.tool("toolButtonU")->click();
    QCOMPARE(editor.menu().mid(3), (QStringList{"DOD jedlo 23", "DOD jedlo 22", "DOD jedlo 24"}));
    const QModelIndex limit = editor.table()->currentIndex().siblingAtColumn(2);
    QVERIFY(limit.flags().testFlag(Qt::ItemIsEditable));
}

void TestDialogMenu::upAndDown()
{
    const MenuEditor editor(m_database->db());
    const auto mainDishes = [&editor] { return editor.menu().mid(3).join(QLatin1Char('|')).remove("DOD jedlo "); };
    editor.selectItem(QStringLiteral("DOD jedlo 22"));
    editor.tool("toolButtonU")->click(); // below its heading
    QCOMPARE(mainDishes(), QStringLiteral("22|23|24"));
    editor.tool("toolButtonD")->click();
    QCOMPARE(mainDishes(), QStringLiteral("23|22|24"));
    editor.tool("toolButtonD")->click();
    editor.tool("toolButtonD")->click(); // at the end
    QCOMPARE(mainDishes(), QStringLiteral("23|24|22"));
    editor.tool("toolButtonU")->click();
    QCOMPARE(mainDishes(), QStringLiteral("23|22|24"));
    editor.selectItem(QStringLiteral("DOD jedlo 12"));
    editor.tool("toolButtonD")->click(); // the next type
    editor.selectItem(QStringLiteral(" Hlavné jedlá"));
    editor.tool("toolButtonD")->click();
    editor.tool("toolButtonU")->click();
    QCOMPARE(editor.menu().mid(0, 3), (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá"}));
}

void TestDialogMenu::filterNarrowsTheFoods()
{
    MenuEditor editor(m_database->db());
    QSignalSpy texts(&editor, &DialogMenu::textchanged);
    QVERIFY(texts.isValid());
    editor.filter()->setText(QStringLiteral("31 JED"));
    QCOMPARE(texts.takeFirst().constFirst().toString(), QStringLiteral("31 JED"));
    QCOMPARE(editor.foods(), QStringList{"DOD jedlo 31"});
    QCOMPARE(editor.offers(), QString());
    editor.selectFood(QStringLiteral("DOD jedlo 31"));
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu().constLast(), QStringLiteral("DOD jedlo 31"));
    editor.filter()->clear();
    QCOMPARE(editor.foods().size(), 3);
    QCOMPARE(editor.offers(), QString());
}

void TestDialogMenu::filterThatFindsNothingOffersAFood_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("a word") << "sushi";
    const QStringList names = hostileNames();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name.left(20))) << name;
}

void TestDialogMenu::filterThatFindsNothingOffersAFood()
{
    QFETCH(QString, typed);
    MenuEditor editor(m_database->db());
    show(editor);
    const QSize size = editor.size();
    editor.filter()->setText(typed);
    QCOMPARE(editor.offers(), QStringLiteral("label button"));
    const auto *label = editor.find<QLabel>("labelAddFood");
    QCOMPARE(label->text(), QStringLiteral("Žiadne jedlo v databáze neobsahuje '") + typed + QStringLiteral("'"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(editor.size(), size);
    editor.filter()->clear();
    QCOMPARE(editor.offers(), QString());
}

void TestDialogMenu::hostileNamesStandAsTyped()
{
    const QStringList names = hostileNames();
    for (const QString &name : names) {
        m_data->rename(22, name);
        m_data->rename(31, name);
        MenuEditor editor(m_database->db());
        show(editor);
        QVERIFY(editor.menu().contains(QStringLiteral("DOD ") + name));
        QVERIFY(editor.foods().contains(QStringLiteral("DOD ") + name));
    }
}

void TestDialogMenu::longNamesKeepTheWindowSmall()
{
    const QString words = QStringLiteral("dlhý názov ").repeated(1000);
    const QStringList slotNames{words, QString(10000, QLatin1Char('x'))};
    for (const QString &slotName : slotNames) {
        MenuEditor editor(m_database->db(), slotName);
        const QSize size = editor.size();
        show(editor);
        QCOMPARE(editor.size(), size);
        editor.filter()->setText(words);
        QTest::qWait(1);
        QCOMPARE(editor.size(), size);
    }
}

QTEST_MAIN(TestDialogMenu)
#include "tst_dialogmenu.moc"
