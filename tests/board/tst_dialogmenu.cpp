#include "board/daydata.h"
#include "board/dialogmenu.h"
#include "board/menudelegate.h"
#include "board/metamethods.h"
#include "session/menucolumns.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

/// The editor with short ways to its widgets.
class Editor : public DialogMenu {
public:
    explicit Editor(const QSqlDatabase &db, const QString &slot = QStringLiteral("Obed"), bool limits = true,
                    unsigned branch = 0)
        : DialogMenu(DayData::day(), 1, branch, slot, db, limits, nullptr)
    {
    }

    template<typename Widget> Widget *find(const char *name) const { return findChild<Widget *>(QLatin1String(name)); }
    QListView *list() const { return find<QListView>("listViewFood"); }
    QTableView *table() const { return find<QTableView>("tableViewMenu"); }
    QLineEdit *filter() const { return find<QLineEdit>("lineEditFilter"); }
    QToolButton *tool(const char *name) const { return find<QToolButton>(name); }
    QStringList foods() const { return columnTexts(*list()->model(), 0); }
    QStringList menu() const { return columnTexts(*table()->model(), 0); }
    void selectFood(const QString &name) const { list()->setCurrentIndex(indexOf(*list()->model(), name)); }
    void selectItem(const QString &name, int column = 0) const
    {
        const QModelIndex index = indexOf(*table()->model(), name);
        table()->setCurrentIndex(index.sibling(index.row(), column));
    }
    QString currentItem() const { return table()->currentIndex().siblingAtColumn(0).data().toString(); }
    QStringList selection() const
    {
        QStringList cells;
        const QModelIndexList selected = table()->selectionModel()->selectedRows();
        for (const QModelIndex &index : selected)
            cells.append(index.data().toString());
        return cells;
    }
    bool offersToAdd() const
    {
        const bool shown = find<QLabel>("labelAddFood")->isVisibleTo(this);
        return shown && find<QPushButton>("pushButtonAddFood")->isVisibleTo(this) == shown;
    }

    static QModelIndex indexOf(const QAbstractItemModel &model, const QString &name)
    {
        return model.index(int(columnTexts(model, 0).indexOf(name)), 0);
    }
};

void doubleClick(const QAbstractItemView *view, const QModelIndex &index)
{
    const QPoint middle = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
}

void show(QWidget &window)
{
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

} // namespace

/// The menu editor up to the save.
class TestDialogMenu : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void metaObject();
    void form();
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
    void selectionFollowsTheMovedRow_data();
    void selectionFollowsTheMovedRow();
    void doubleClicks();
    void doubleClickOnALimitOpensNoEditor();
    void filterNarrowsTheFoods();
    void filterThatFindsNothingOffersAFood_data();
    void filterThatFindsNothingOffersAFood();

    void worksByKeyboard();
    void tabLeadsThroughTheForm();
    void enterOutsideOfButtonsSavesNothing();
    void limitIsDigitsOrNothing_data();
    void limitIsDigitsOrNothing();
    void limitBeingTypedIsNotLostByAMove();
    void hostileNamesStandAsTyped();
    void longNamesKeepTheWindowSmall();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

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
    const Editor editor(m_database->db());
    QCOMPARE(editor.filter()->placeholderText(), QStringLiteral("filter jedla"));
    QCOMPARE(editor.find<QPushButton>("pushButtonAddFood")->text(), QStringLiteral("+ pridať jedlo"));
    QCOMPARE(editor.find<QPushButton>("pushButton")->text(), QStringLiteral("Uložiť"));
    QCOMPARE(editor.tool("toolButtonR")->toolTip(), QStringLiteral("pridať jedlo do menu"));
    QCOMPARE(editor.tool("toolButtonL")->toolTip(), QStringLiteral("odobrať jedlo z menu"));
    QCOMPARE(editor.tool("toolButtonU")->toolTip(), QStringLiteral("posunúť jedlo hore"));
    QCOMPARE(editor.tool("toolButtonD")->toolTip(), QStringLiteral("posunúť jedlo dole"));
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
    QVERIFY(!editor.offersToAdd());
    const auto *foods = qobject_cast<QSortFilterProxyModel *>(editor.list()->model());
    QVERIFY(foods->isSortLocaleAware());
    QVERIFY(foods->dynamicSortFilter());
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
    const Editor editor(m_database->db(), slot);
    QCOMPARE(editor.windowTitle(), QStringLiteral("Upraviť menu - 14. 5. 2031") + suffix);
    QCOMPARE(editor.find<QLabel>("label_2")->text(), QStringLiteral("Menu - 14. 5. 2031") + suffix);
    QCOMPARE(editor.find<QLabel>("label_2")->textFormat(), Qt::PlainText);
}

void TestDialogMenu::showsMenuAndFoods()
{
    const Editor editor(m_database->db());
    QCOMPARE(
        editor.menu(),
        (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 23", "DOD jedlo 24"}));
    QStringList foods = editor.foods();
    foods.sort(); // the database leaves the order within a type open
    QCOMPARE(foods, (QStringList{"DOD jedlo 11", "DOD jedlo 13", "DOD jedlo 21", "DOD jedlo 31"}));
    QCOMPARE(editor.foods().last(), QStringLiteral("DOD jedlo 31"));
}

void TestDialogMenu::headings()
{
    const Editor editor(m_database->db());
    const QFont font = editor.table()->model()->index(0, 0).data(Qt::FontRole).value<QFont>();
    QCOMPARE(font.weight(), 75);
    QCOMPARE(font.pointSize(), 12);
    QVERIFY(!editor.table()->model()->index(1, 0).data(Qt::FontRole).isValid());
}

void TestDialogMenu::orderedItemsAreMarked()
{
    m_data->order(23, 7, 2);
    const Editor editor(m_database->db());
    const QModelIndex ordered = Editor::indexOf(*editor.table()->model(), QStringLiteral("DOD jedlo 23"));
    QCOMPARE(ordered.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0, 80));
    QCOMPARE(ordered.data(Qt::ToolTipRole).toString(),
             QStringLiteral("Táto položka sa nedá odstániť z menu pretože má existujúce objednávky."));
    const QModelIndex other = ordered.siblingAtRow(ordered.row() + 1);
    QVERIFY(!other.data(Qt::BackgroundRole).isValid());
    QVERIFY(!other.data(Qt::ToolTipRole).isValid());
}

void TestDialogMenu::branchHasItsOwnSuppliers()
{
    const Editor editor(m_database->db(), QStringLiteral("Obed"), true, 5);
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
    const Editor editor(m_database->db(), QStringLiteral("Obed"), enabled);
    QStringList shown;
    for (int column = 0; column < editor.table()->model()->columnCount(); ++column) {
        if (!editor.table()->isColumnHidden(column))
            shown.append(editor.table()->model()->headerData(column, Qt::Horizontal).toString());
    }
    QTEST(shown.join(QLatin1Char(' ')), "shown");
}

void TestDialogMenu::nameColumnLeavesRoomForTheLimit()
{
    Editor editor(m_database->db());
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
    delete new Editor(m_database->db());
    QTest::qWait(5);
}

void TestDialogMenu::modelsKeepTheirContract()
{
    m_data->order(23, 7, 2);
    const Editor editor(m_database->db());
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
    const Editor editor(m_database->db());
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
    const Editor editor(m_database->db());
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu().size(), 6);
    QCOMPARE(editor.foods().size(), 4);
}

void TestDialogMenu::removePutsTheFoodAtTheEnd()
{
    const Editor editor(m_database->db());
    editor.tool("toolButtonL")->click(); // nothing selected
    QCOMPARE(editor.menu().size(), 6);
    editor.selectItem(QStringLiteral("DOD jedlo 23"));
    editor.tool("toolButtonL")->click();
    QCOMPARE(editor.menu(),
             (QStringList{" Polievky", "DOD jedlo 12", " Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 24"}));
    QCOMPARE(editor.foods().last(), QStringLiteral("DOD jedlo 23"));
    editor.selectItem(QStringLiteral("DOD jedlo 12"));
    editor.tool("toolButtonL")->click();
    QCOMPARE(editor.menu(), (QStringList{" Hlavné jedlá", "DOD jedlo 22", "DOD jedlo 24"})); // its heading goes too
    QCOMPARE(editor.foods().last(), QStringLiteral("DOD jedlo 12"));
}

void TestDialogMenu::headingsAndOrderedItemsStay()
{
    m_data->order(23, 7, 2);
    Editor editor(m_database->db());
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
    const Editor editor(m_database->db());
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

void TestDialogMenu::selectionFollowsTheMovedRow_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << 0;
    QTest::newRow("limit") << 2;
}

void TestDialogMenu::selectionFollowsTheMovedRow()
{
    QFETCH(int, column);
    Editor editor(m_database->db());
    show(editor);
    editor.selectItem(QStringLiteral("DOD jedlo 23"), column);
    for (const char *button : {"toolButtonD", "toolButtonU", "toolButtonU", "toolButtonU"}) {
        editor.list()->setFocus();
        editor.tool(button)->click();
        QCOMPARE(editor.currentItem(), QStringLiteral("DOD jedlo 23"));
        QCOMPARE(editor.table()->currentIndex().column(), column);
        QCOMPARE(editor.selection(), QStringList{"DOD jedlo 23"});
        QVERIFY(editor.table()->hasFocus());
    }
}

void TestDialogMenu::doubleClicks()
{
    Editor editor(m_database->db());
    show(editor);
    doubleClick(editor.list(), Editor::indexOf(*editor.list()->model(), QStringLiteral("DOD jedlo 21")));
    QCOMPARE(editor.menu().at(3), QStringLiteral("DOD jedlo 21"));
    QVERIFY(editor.list()->hasFocus());
    doubleClick(editor.table(), Editor::indexOf(*editor.table()->model(), QStringLiteral("DOD jedlo 12")));
    QCOMPARE(editor.menu().first(), QStringLiteral(" Hlavné jedlá"));
    QCOMPARE(editor.foods().last(), QStringLiteral("DOD jedlo 12"));
}

void TestDialogMenu::doubleClickOnALimitOpensNoEditor()
{
    Editor editor(m_database->db());
    show(editor);
    LogCatcher log;
    for (const char *name : {"DOD jedlo 22", "DOD jedlo 24"}) { // one with a row below it and the last one
        const QModelIndex limit = Editor::indexOf(*editor.table()->model(), QString::fromUtf8(name)).siblingAtColumn(2);
        editor.table()->setCurrentIndex(limit);
        doubleClick(editor.table(), limit);
        QVERIFY(!editor.menu().contains(QString::fromUtf8(name)));
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        QVERIFY(!editor.table()->findChild<QLineEdit *>());
    }
    QCOMPARE(log.lines(QtWarningMsg), QStringList());
}

void TestDialogMenu::filterNarrowsTheFoods()
{
    Editor editor(m_database->db());
    QSignalSpy texts(&editor, &DialogMenu::textchanged);
    QVERIFY(texts.isValid());
    editor.filter()->setText(QStringLiteral("31 JED"));
    QCOMPARE(texts.takeFirst().first().toString(), QStringLiteral("31 JED"));
    QCOMPARE(editor.foods(), QStringList{"DOD jedlo 31"});
    QVERIFY(!editor.offersToAdd());
    editor.selectFood(QStringLiteral("DOD jedlo 31"));
    editor.tool("toolButtonR")->click();
    QCOMPARE(editor.menu().last(), QStringLiteral("DOD jedlo 31"));
    editor.filter()->clear();
    QCOMPARE(editor.foods().size(), 3);
    QVERIFY(!editor.offersToAdd());
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
    Editor editor(m_database->db());
    show(editor);
    const QSize size = editor.size();
    editor.filter()->setText(typed);
    QVERIFY(editor.offersToAdd());
    const auto *label = editor.find<QLabel>("labelAddFood");
    QCOMPARE(label->text(), QStringLiteral("Žiadne jedlo v databáze neobsahuje '") + typed + QStringLiteral("'"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(editor.size(), size);
    editor.filter()->clear();
    QVERIFY(!editor.offersToAdd());
}

void TestDialogMenu::worksByKeyboard()
{
    Editor editor(m_database->db());
    show(editor);
    QVERIFY(editor.filter()->hasFocus());
    QTest::keyClicks(editor.filter(), QStringLiteral("31"));
    editor.list()->setFocus();
    QTest::keyClick(editor.list(), Qt::Key_Down);
    QTest::keyClick(editor.list(), Qt::Key_Return);
    QCOMPARE(editor.menu().last(), QStringLiteral("DOD jedlo 31"));
    QVERIFY(editor.list()->hasFocus());
    editor.selectItem(QStringLiteral("DOD jedlo 22"));
    editor.tool("toolButtonD")->setFocus();
    QTest::keyClick(editor.tool("toolButtonD"), Qt::Key_Space);
    QCOMPARE(editor.menu().at(3), QStringLiteral("DOD jedlo 23"));
    QVERIFY(editor.table()->hasFocus());
    editor.tool("toolButtonU")->setFocus();
    QTest::keyClick(editor.tool("toolButtonU"), Qt::Key_Return); // Enter presses a button that has the focus
    QCOMPARE(editor.menu().at(3), QStringLiteral("DOD jedlo 22"));
    QVERIFY(editor.isVisible());
}

void TestDialogMenu::tabLeadsThroughTheForm()
{
    Editor editor(m_database->db());
    show(editor);
    QStringList names;
    for (int step = 0; step < 8; ++step) {
        names.append(editor.focusWidget()->objectName());
        QTest::keyClick(editor.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(names,
             (QStringList{"lineEditFilter", "listViewFood", "toolButtonR", "toolButtonL", "tableViewMenu",
                          "toolButtonU", "toolButtonD", "pushButton"}));
    QCOMPARE(editor.focusWidget(), editor.filter());
}

void TestDialogMenu::enterOutsideOfButtonsSavesNothing()
{
    const QStringList before = m_data->items();
    Editor editor(m_database->db());
    show(editor);
    editor.selectItem(QStringLiteral("DOD jedlo 22"));
    const QList<QWidget *> widgets{editor.filter(), editor.table(), editor.list()};
    for (QWidget *widget : widgets) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Return);
        QTest::keyClick(widget, Qt::Key_Enter);
        QVERIFY(editor.isVisible());
    }
    QCOMPARE(m_data->items(), before);
    QTest::keyClick(&editor, Qt::Key_Escape);
    QVERIFY(!editor.isVisible());
    QCOMPARE(editor.result(), 0);
    QCOMPARE(m_data->items(), before);
}

void TestDialogMenu::limitIsDigitsOrNothing_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("limit");
    QTest::newRow("a number") << "35"
                              << "35";
    QTest::newRow("letters and signs are not taken") << "-3x.5,"
                                                     << "35";
    QTest::newRow("nine digits at most") << "12345678901"
                                         << "123456789";
}

void TestDialogMenu::limitIsDigitsOrNothing()
{
    QFETCH(QString, typed);
    Editor editor(m_database->db());
    show(editor);
    editor.selectItem(QStringLiteral("DOD jedlo 22"), 2);
    QTest::keyClick(editor.table(), Qt::Key_F2);
    auto *line = editor.table()->findChild<QLineEdit *>();
    QVERIFY(line);
    QCOMPARE(line->text(), QStringLiteral("20"));
    QTest::keyClicks(line, typed);
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_VERIFY(!editor.table()->findChild<QLineEdit *>());
    QTEST(editor.table()->currentIndex().data().toString(), "limit");
    QTest::keyClick(editor.table(), Qt::Key_F2);
    line = editor.table()->findChild<QLineEdit *>();
    line->clear();
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_VERIFY(!editor.table()->findChild<QLineEdit *>());
    QCOMPARE(editor.table()->currentIndex().data().toString(), QString());
    QVERIFY(editor.isVisible());
}

void TestDialogMenu::limitBeingTypedIsNotLostByAMove()
{
    Editor editor(m_database->db());
    show(editor);
    editor.selectItem(QStringLiteral("DOD jedlo 22"), 2);
    QTest::keyClick(editor.table(), Qt::Key_7);
    QVERIFY(editor.table()->findChild<QLineEdit *>());
    QTest::mouseClick(editor.tool("toolButtonD"), Qt::LeftButton);
    QCOMPARE(editor.currentItem(), QStringLiteral("DOD jedlo 22"));
    QCOMPARE(editor.table()->currentIndex().row(), 4);
    QCOMPARE(editor.table()->currentIndex().data().toString(), QStringLiteral("7"));
}

void TestDialogMenu::hostileNamesStandAsTyped()
{
    const QStringList names = hostileNames();
    for (const QString &name : names) {
        m_data->rename(22, name);
        m_data->rename(31, name);
        Editor editor(m_database->db());
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
        Editor editor(m_database->db(), slotName);
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
