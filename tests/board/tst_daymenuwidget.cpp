#include "board/cardstate.h"
#include "board/cellgrid.h"
#include "board/daymenuwidget.h"
#include "board/menudelegate.h"
#include "board/metamethods.h"
#include "session/session.h"
#include "support/modelstrings.h"

#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTableView>
#include <QToolButton>
#include <QtTest>

/// The card in its window, over grids filled by hand: no database.
class TestDayMenuWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void metaObject();
    void buttonsOfTheForm_data();
    void buttonsOfTheForm();
    void restOfTheForm();
    void constructorShowsDateDayAndSlot();
    void evenDaysHaveTheirOwnStyle_data();
    void evenDaysHaveTheirOwnStyle();
    void setDateWritesTheDateOnly();
    void setLabelTakesThePlaceOfDayAndDate();
    void titleCanBeHidden();
    void setMenuModelShowsTheCell();
    void aPersonsCellShowsOrderedFoodsOnly();
    void sameGridCanBeShownAgainAfterAChange();
    void headerSections();
    void orderLimitColumnComesWithTheNextModel();
    void emptyCell();
    void windowShowsEveryState_data();
    void windowShowsEveryState();
    void sumOfOrders_data();
    void sumOfOrders();
    void lockOfMixedItems_data();
    void lockOfMixedItems();
    void closedForGoodSticksUntilTheNextModel();
    void imagesOfLockAndReport();
    void pastReachesUpToYesterday_data();
    void pastReachesUpToYesterday();
    void tableHeight();
    void preferredHeight();
    void heightFollowsTheFont();
    void printoutCountsTheShownRows();
    void hostileSlotNamesStayOneLineOfPlainText_data();
    void hostileSlotNamesStayOneLineOfPlainText();
    void survivesTheGridsEnd();

private:
    template<typename Widget> static Widget *find(const DayMenuWidget &card, const char *name)
    {
        return card.findChild<Widget *>(QLatin1String(name));
    }
    static QStringList rows(const DayMenuWidget &card)
    {
        return rowTexts(*find<QTableView>(card, "tableView")->model());
    }
};

namespace {

const QDate monday(2020, 3, 16);

/// A card of service slot 7 with nothing in it.
class Card : public DayMenuWidget {
public:
    explicit Card(QDate date = monday, int person = -1)
        : DayMenuWidget(date, QStringLiteral("Obed"), 7, person, 1, 0, QSqlDatabase(), nullptr, nullptr)
    {
    }
};

bool sameImage(const QIcon &icon, const char *file)
{
    const QImage image = icon.pixmap(20, 20).toImage();
    return !image.isNull() && image == QIcon(QLatin1String(file)).pixmap(20, 20).toImage();
}

} // namespace

void TestDayMenuWidget::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestDayMenuWidget::cleanup()
{
    session().readOnly = false;
}

void TestDayMenuWidget::metaObject()
{
    QCOMPARE(
        metaMethods(DayMenuWidget::staticMetaObject),
        (QStringList{"signal void heightchanged()", "signal void resetmodel()", "slot void on_toolButEdit_clicked()",
                     "slot void setHeight()", "slot void on_toolButtonLock_clicked()", "slot void setButtonState()",
                     "slot void setLock(int)", "slot void setReport(bool)", "slot void on_toolButtonOrder_clicked()",
                     "slot void setDSInfo(DataSetInfo&)", "slot void setValue(int,QString,QVariant&,int)",
                     "slot void on_toolButtonPersonReport_clicked()", "slot void on_toolButtonMenuReport_clicked()",
                     "slot void on_tableView_doubleClicked(QModelIndex)", "slot void on_toolButCopy_clicked()"}));
}

void TestDayMenuWidget::buttonsOfTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("image");
    const auto add = [](const char *name, const char *text, const char *toolTip, const char *image) {
        QTest::newRow(name) << QString(name) << QString::fromUtf8(text) << QString::fromUtf8(toolTip)
                            << QStringLiteral(":/images/") + image;
    };
    add("toolButCopy", "kopírovať denné menu", "kopírovať denné menu", "content_copy.png");
    add("toolButtonPersonReport", "Prehľad", "Prehľad objednávok", "personreport.png");
    add("toolButtonMenuReport", "Report pre dodávatela", "Report pre dodávatela", "finalreport.png");
    add("toolButtonOrder", "Objednávka", "Objednávka", "sidebar/orders3.png");
    add("toolButtonLock", "zamknúť", "Odomknúť/Zamknúť menu", "unlocked.png");
    add("toolButEdit", "upraviť", "Upraviť menu", "pencil.png");
}

void TestDayMenuWidget::buttonsOfTheForm()
{
    QFETCH(QString, name);
    QFETCH(QString, image);
    const Card card;
    const auto *button = card.findChild<QToolButton *>(name);
    QVERIFY(button);
    QTEST(button->text(), "text");
    QTEST(button->toolTip(), "toolTip");
    QVERIFY(sameImage(button->icon(), qPrintable(image)));
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QVERIFY(button->focusPolicy() & Qt::TabFocus);
    if (name != QLatin1String("toolButCopy"))
        QCOMPARE(button->iconSize(), QSize(20, 20));
}

void TestDayMenuWidget::restOfTheForm()
{
    const Card card;
    QCOMPARE(card.property("titlePanel"), QVariant(true));
    QCOMPARE(find<QWidget>(card, "widgetDayMenu")->property("whitePanel"), QVariant(true));
    QCOMPARE(find<QWidget>(card, "TitleWidget")->property("titlePanel"), QVariant(true));
    QCOMPARE(find<QWidget>(card, "TitleWidget")->property("silverPanel"), QVariant(true));
    QCOMPARE(find<QLabel>(card, "label")->text(), QStringLiteral("Objednávok spolu:"));
    QCOMPARE(find<QLabel>(card, "label")->parentWidget(), find<QWidget>(card, "sumWidget"));
    QCOMPARE(find<QLabel>(card, "labelSumOrders")->parentWidget(), find<QWidget>(card, "sumWidget"));
    QCOMPARE(find<QLabel>(card, "labeldate")->font().weight(), 75);
    QCOMPARE(find<QLabel>(card, "labelSegment")->font().weight(), 75);
    const auto *table = find<QTableView>(card, "tableView");
    QVERIFY(!table->showGrid());
    QCOMPARE(table->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(qobject_cast<MenuDelegate *>(table->itemDelegate()));
}

void TestDayMenuWidget::constructorShowsDateDayAndSlot()
{
    const Card card;
    QCOMPARE(find<QLabel>(card, "labeldate")->text(), QStringLiteral("16. 3. 2020"));
    QCOMPARE(find<QLabel>(card, "labelday")->text(), QStringLiteral("pondelok "));
    QCOMPARE(find<QLabel>(card, "labelSegment")->text(), QStringLiteral(" Obed"));
    QCOMPARE(rows(card), QStringList());
}

void TestDayMenuWidget::evenDaysHaveTheirOwnStyle_data()
{
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("sheet");
    const QString button =
        QStringLiteral("*{border: 1px solid #292929; border-radius: 2px; background: #464646;} :hover "
                       "{background-color: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 #5a5a5a, stop: 0.49 "
                       "#5a5a5a, stop: 0.51 #464646, stop: 1 #464646);} :disabled {background-color: lightgray; "
                       "border-color: darkgray;}:pressed {background-color: #00b5d5; border-color: "
                       "#0090a9;}QToolButton QToolTip { color: white;}");
    QTest::newRow("slot") << "labelSegment"
                          << "border: 0px;";
    QTest::newRow("title") << "TitleWidget"
                           << "border: 0px;";
    QTest::newRow("table") << "tableView"
                           << "background-color:#DADADA; border: 0px solid #003366;";
    QTest::newRow("body") << "widgetDayMenu"
                          << "QWidget#widgetDayMenu{border: 1px solid #B3D8FF; border-radius: 2px; background: "
                             "#E6F2FF;}";
    for (const char *name :
         {"toolButEdit", "toolButtonLock", "toolButtonOrder", "toolButtonMenuReport", "toolButtonPersonReport"})
        QTest::newRow(name) << name << button;
}

void TestDayMenuWidget::evenDaysHaveTheirOwnStyle()
{
    QFETCH(QString, widget);
    Card even(monday);
    const Card odd(monday.addDays(1));
    QTEST(even.findChild<QWidget *>(widget)->styleSheet(), "sheet");
    QCOMPARE(odd.findChild<QWidget *>(widget)->styleSheet(), QString());
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(find<QLabel>(even, "labelSegment")->palette().color(group, QPalette::WindowText), QColor(0, 51, 102));
        QVERIFY(find<QLabel>(odd, "labelSegment")->palette().color(group, QPalette::WindowText) != QColor(0, 51, 102));
    }
    QCOMPARE(find<QToolButton>(even, "toolButCopy")->styleSheet(), QString());
    // The columns of a board alternate; a change of week does not exchange them.
    even.setDate(monday.addDays(7));
    QTEST(even.findChild<QWidget *>(widget)->styleSheet(), "sheet");
}

void TestDayMenuWidget::setDateWritesTheDateOnly()
{
    Card card;
    card.setDate(QDate(2021, 1, 3));
    QCOMPARE(find<QLabel>(card, "labeldate")->text(), QStringLiteral("3. 1. 2021"));
    QCOMPARE(find<QLabel>(card, "labelday")->text(), QStringLiteral("pondelok "));
}

void TestDayMenuWidget::setLabelTakesThePlaceOfDayAndDate()
{
    Card card;
    const auto *date = find<QLabel>(card, "labeldate");
    const auto *day = find<QLabel>(card, "labelday");
    QVERIFY(!(date->alignment() & Qt::AlignHCenter));

    card.setLabel(QStringLiteral("mimo pracovný pomer"));
    QVERIFY(day->isHidden());
    QCOMPARE(date->text(), QStringLiteral("mimo pracovný pomer"));
    QVERIFY(date->alignment() & Qt::AlignHCenter);

    card.setLabel(QStringLiteral("~default~"));
    QVERIFY(!day->isHidden());
    QCOMPARE(date->text(), QStringLiteral("mimo pracovný pomer"));

    card.setDate(monday);
    QCOMPARE(date->text(), QStringLiteral("16. 3. 2020"));
    QVERIFY(date->alignment() & Qt::AlignHCenter);
}

void TestDayMenuWidget::titleCanBeHidden()
{
    Card card;
    for (const bool hidden : {true, false}) {
        card.setTitleHidden(hidden);
        for (const char *name : {"labelday", "labeldate", "TitleWidget"})
            QCOMPARE(find<QWidget>(card, name)->isHidden(), hidden);
    }
}

void TestDayMenuWidget::setMenuModelShowsTheCell()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday, 1, QStringLiteral("4"));
    grid.addFood(2, 7, monday.addDays(1), 1);
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    grid.addFood(3, 8, monday, 1);
    grid.addHeading(QStringLiteral("Dezerty"));
    grid.addFood(4, 7, monday, 1);
    Card card;
    const QSignalSpy heightChanged(&card, &DayMenuWidget::heightchanged);
    const QSignalSpy resetModel(&card, &DayMenuWidget::resetmodel);
    QVERIFY(heightChanged.isValid() && resetModel.isValid());
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 1|4", "Dezerty| ", "food 4|"}));
    QCOMPARE(heightChanged.count(), 1);
    QCOMPARE(resetModel.count(), 0);

    card.setDate(monday.addDays(1));
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 2|"}));
    QCOMPARE(heightChanged.count(), 2);
}

void TestDayMenuWidget::aPersonsCellShowsOrderedFoodsOnly()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday, 1);
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    grid.addFood(2, 7, monday, 1, QStringLiteral("2"));
    Card card;
    card.setPerson(5);
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Hlavné jedlá| ", "food 2|2"}));
    card.setPerson(-1);
    card.setMenuModel(&grid);
    QCOMPARE(rows(card).size(), 4);
}

void TestDayMenuWidget::sameGridCanBeShownAgainAfterAChange()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    Card card;
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), QStringList());
    grid.addFood(1, 7, monday);
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), (QStringList{"Polievky| ", "food 1|"}));
}

void TestDayMenuWidget::headerSections()
{
    CellGrid grid;
    grid.addFood(1, 7, monday, 1);
    Card card;
    card.setOrderLimitEnabled(true);
    card.resize(300, 200);
    card.setMenuModel(&grid);
    card.show();
    const auto *table = find<QTableView>(card, "tableView");
    QCOMPARE(table->model()->columnCount(), 3);
    QCOMPARE(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(table->columnWidth(1), 30);
    QCOMPARE(table->columnWidth(2), 30);
    QCOMPARE(table->columnWidth(0), table->viewport()->width() - 60);

    // A grid that was cleared in between takes the header's sections along.
    grid.clear();
    CellGrid next;
    next.addFood(1, 7, monday, 1);
    card.setMenuModel(&next);
    QCOMPARE(table->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(table->columnWidth(1), 30);
    QCOMPARE(table->columnWidth(2), 30);
}

void TestDayMenuWidget::orderLimitColumnComesWithTheNextModel()
{
    CellGrid grid;
    grid.addFood(1, 7, monday);
    Card card;
    card.setMenuModel(&grid);
    const auto *table = find<QTableView>(card, "tableView");
    QCOMPARE(table->model()->columnCount(), 2);
    card.setOrderLimitEnabled(true);
    QCOMPARE(table->model()->columnCount(), 2);
    card.setMenuModel(&grid);
    QCOMPARE(table->model()->columnCount(), 3);
    QVERIFY(!table->isColumnHidden(2));
    card.setPerson(3);
    card.setMenuModel(&grid);
    QVERIFY(table->isColumnHidden(2));
}

void TestDayMenuWidget::emptyCell()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addHeading(QStringLiteral("Hlavné jedlá"));
    Card card(QDate::currentDate());
    card.setMenuModel(&grid);
    QCOMPARE(rows(card), QStringList());
    QCOMPARE(find<QTableView>(card, "tableView")->minimumHeight(), 25);
    QStringList active;
    const auto buttons = card.findChildren<QToolButton *>();
    for (const QToolButton *button : buttons) {
        if (button->isEnabled() && !button->isHidden())
            active.append(button->objectName());
    }
    // The report button takes no part in the states.
    active.removeOne(QStringLiteral("toolButtonMenuReport"));
    QCOMPARE(active, QStringList{"toolButEdit"});
}

void TestDayMenuWidget::windowShowsEveryState_data()
{
    QTest::addColumn<int>("bits");
    for (int bits = 0; bits < 96; ++bits) {
        const int rest = bits / 3;
        if (!(rest & 1) && (bits % 3 != 0 || rest & 2))
            continue; // neither lock nor orders without an item
        QTest::addRow("lock %d%s%s%s%s%s", bits % 3, rest & 1 ? " items" : "", rest & 2 ? " orders" : "",
                      rest & 4 ? " past" : "", rest & 8 ? " person" : "", rest & 16 ? " readOnly" : "")
            << bits;
    }
}

void TestDayMenuWidget::windowShowsEveryState()
{
    QFETCH(int, bits);
    CardState state;
    state.lock = bits % 3;
    const int rest = bits / 3;
    state.hasItems = rest & 1;
    state.hasOrders = rest & 2;
    state.past = rest & 4;
    state.personSelected = rest & 8;
    state.readOnly = rest & 16;
    const CardButtons expected = cardButtons(state);

    const QDate today = QDate::currentDate();
    const QDate date = state.past ? today.addDays(-1) : today;
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    if (state.hasItems)
        grid.addFood(1, 7, date, state.lock, state.hasOrders ? QStringLiteral("3") : QString());
    Card card(date, state.personSelected ? 5 : -1);
    card.setOrderLimitEnabled(true);
    session().readOnly = state.readOnly;
    card.setMenuModel(&grid);

    const auto *table = find<QTableView>(card, "tableView");
    const auto button = [&card](const char *name) { return find<QToolButton>(card, name); };
    QCOMPARE(button("toolButEdit")->isEnabled(), expected.editEnabled);
    QCOMPARE(button("toolButtonLock")->isEnabled(), expected.lockEnabled);
    QCOMPARE(button("toolButCopy")->isEnabled(), expected.copyEnabled);
    QCOMPARE(button("toolButtonOrder")->isEnabled(), expected.orderEnabled);
    for (const char *name : {"toolButEdit", "toolButtonLock", "toolButtonMenuReport", "toolButCopy"})
        QCOMPARE(!button(name)->isHidden(), expected.menuActionsShown);
    for (const char *name : {"toolButtonOrder", "toolButtonPersonReport"})
        QCOMPARE(button(name)->isHidden(), expected.menuActionsShown);
    QCOMPARE(!table->isColumnHidden(1), expected.totalShown);
    QCOMPARE(!find<QWidget>(card, "sumWidget")->isHidden(), expected.totalShown);
    QCOMPARE(!table->isColumnHidden(2), expected.limitShown);
    QVERIFY(sameImage(button("toolButtonMenuReport")->icon(),
                      expected.finalReport ? ":/images/finalreport.png" : ":/images/partialreport.png"));
    QVERIFY(
        sameImage(button("toolButtonLock")->icon(), state.lock > 0 ? ":/images/locked2.png" : ":/images/unlocked.png"));
}

void TestDayMenuWidget::sumOfOrders_data()
{
    QTest::addColumn<QStringList>("totals");
    QTest::addColumn<QString>("sum");
    QTest::newRow("none") << QStringList{"", ""} << "0";
    QTest::newRow("several") << QStringList{"2", "", "40"} << "42";
    QTest::newRow("negative ones do not count") << QStringList{"2", "-1"} << "2";
    QTest::newRow("large ones") << QStringList{"2147483647", "2147483647"} << "4294967294";
}

void TestDayMenuWidget::sumOfOrders()
{
    QFETCH(QStringList, totals);
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    for (int i = 0; i < totals.size(); ++i)
        grid.addFood(i + 1, 7, monday, 1, totals.at(i));
    grid.addFood(99, 8, monday, 1, QStringLiteral("1000"));
    Card card;
    card.setMenuModel(&grid);
    QTEST(find<QLabel>(card, "labelSumOrders")->text(), "sum");
}

void TestDayMenuWidget::lockOfMixedItems_data()
{
    QTest::addColumn<QVector<int>>("items");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("forGood");
    QTest::newRow("one locked among open ones") << QVector<int>{0, 1, 0} << true << false;
    QTest::newRow("2 sticks once seen") << QVector<int>{0, 2, 1, 0} << true << true;
    QTest::newRow("all open") << QVector<int>{0, 0} << false << false;
}

void TestDayMenuWidget::lockOfMixedItems()
{
    QFETCH(QVector<int>, items);
    QFETCH(bool, locked);
    QFETCH(bool, forGood);
    const QDate today = QDate::currentDate();
    CellGrid grid;
    for (int i = 0; i < items.size(); ++i)
        grid.addFood(i + 1, 7, today, items.at(i));
    // Another slot and another day play no part.
    grid.addFood(50, 8, today, 2);
    grid.addFood(51, 7, today.addDays(1), 2);
    Card card(today);
    card.setMenuModel(&grid);
    QCOMPARE(find<QToolButton>(card, "toolButEdit")->isEnabled(), !locked);
    QCOMPARE(find<QToolButton>(card, "toolButtonOrder")->isEnabled(), locked);
    QCOMPARE(find<QToolButton>(card, "toolButtonLock")->isEnabled(), !forGood);
}

void TestDayMenuWidget::closedForGoodSticksUntilTheNextModel()
{
    const QDate today = QDate::currentDate();
    CellGrid grid;
    grid.addFood(1, 7, today, 2);
    Card card(today);
    card.setMenuModel(&grid);
    const auto *edit = find<QToolButton>(card, "toolButEdit");
    const auto *lock = find<QToolButton>(card, "toolButtonLock");
    grid.item(0, MenuColumn::Locked)->setText(QStringLiteral("0"));
    card.setLock(0);
    card.setButtonState();
    QVERIFY(!edit->isEnabled());
    QVERIFY(!lock->isEnabled());
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
    const QSignalSpy resetModel(&card, &DayMenuWidget::resetmodel);
    card.on_toolButtonLock_clicked();
    QCOMPARE(resetModel.count(), 0);

    card.setMenuModel(&grid);
    QVERIFY(edit->isEnabled());
    QVERIFY(lock->isEnabled());
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
}

void TestDayMenuWidget::imagesOfLockAndReport()
{
    Card card;
    const auto *lock = find<QToolButton>(card, "toolButtonLock");
    const auto *report = find<QToolButton>(card, "toolButtonMenuReport");
    QVERIFY(!sameImage(QIcon(":/images/locked2.png"), ":/images/unlocked.png"));
    QVERIFY(!sameImage(QIcon(":/images/finalreport.png"), ":/images/partialreport.png"));
    card.setLock(1);
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
    card.setLock(0);
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
    card.setLock(-3);
    QVERIFY(sameImage(lock->icon(), ":/images/unlocked.png"));
    card.setReport(false);
    QVERIFY(sameImage(report->icon(), ":/images/partialreport.png"));
    card.setReport(true);
    QVERIFY(sameImage(report->icon(), ":/images/finalreport.png"));
    card.setLock(2);
    card.setLock(0);
    QVERIFY(sameImage(lock->icon(), ":/images/locked2.png"));
}

void TestDayMenuWidget::pastReachesUpToYesterday_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("editable");
    QTest::newRow("yesterday") << -1 << false;
    QTest::newRow("today") << 0 << true;
    QTest::newRow("tomorrow") << 1 << true;
}

void TestDayMenuWidget::pastReachesUpToYesterday()
{
    QFETCH(int, offset);
    QFETCH(bool, editable);
    const QDate date = QDate::currentDate().addDays(offset);
    CellGrid grid;
    grid.addFood(1, 7, date);
    Card card(date);
    card.setMenuModel(&grid);
    QCOMPARE(find<QToolButton>(card, "toolButEdit")->isEnabled(), editable);
    QCOMPARE(find<QToolButton>(card, "toolButtonLock")->isEnabled(), editable);
    QCOMPARE(find<QTableView>(card, "tableView")->isColumnHidden(1), editable);
}

void TestDayMenuWidget::tableHeight()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    for (int food = 1; food <= 5; ++food)
        grid.addFood(food, 7, monday);
    Card card;
    card.setMenuModel(&grid);
    const auto *table = find<QTableView>(card, "tableView");
    int height = 25;
    for (int row = 0; row < 6; ++row)
        height += table->rowHeight(row);
    QCOMPARE(table->minimumHeight(), height);
    QCOMPARE(table->maximumHeight(), height);

    card.show();
    QCOMPARE(table->viewport()->height(), height - 25);
}

void TestDayMenuWidget::preferredHeight()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday);
    Card card;
    const auto *table = find<QTableView>(card, "tableView");
    const int rest = table->horizontalHeader()->minimumSectionSize() + 4 + find<QWidget>(card, "sumWidget")->height();
    QCOMPARE(card.preferredHeight(), 62 + rest);
    card.setMenuModel(&grid);
    const int rowsHeight = table->rowHeight(0) + table->rowHeight(1);
    QVERIFY(rowsHeight > 0);
    QCOMPARE(card.preferredHeight(), 62 + rowsHeight + rest);
    card.setTitleHidden(true);
    QCOMPARE(card.preferredHeight(), 40 + rowsHeight + rest);
    card.setPerson(5);
    card.setMenuModel(&grid);
    QCOMPARE(card.preferredHeight(), 40 + rest);

    // Shown at that height, nothing is squeezed.
    card.setTitleHidden(false);
    card.setPerson(-1);
    card.setMenuModel(&grid);
    QVERIFY2(card.minimumSizeHint().height() <= card.preferredHeight(),
             qPrintable(QStringLiteral("%1 > %2").arg(card.minimumSizeHint().height()).arg(card.preferredHeight())));
}

void TestDayMenuWidget::heightFollowsTheFont()
{
    CellGrid grid;
    for (int food = 1; food <= 3; ++food)
        grid.addFood(food, 7, monday);
    Card card;
    card.setMenuModel(&grid);
    auto *table = find<QTableView>(card, "tableView");
    const int before = card.preferredHeight();
    const QSignalSpy heightChanged(&card, &DayMenuWidget::heightchanged);
    QFont large = table->font();
    large.setPointSize(24);
    table->setFont(large);
    QVERIFY(heightChanged.count() > 0);
    QVERIFY(card.preferredHeight() > before);
    QVERIFY(table->rowHeight(0) >= QFontMetrics(large).height());
    QCOMPARE(table->minimumHeight(), 3 * table->rowHeight(0) + 25);
}

void TestDayMenuWidget::printoutCountsTheShownRows()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday);
    grid.addFood(2, 8, monday);
    Card card;
    card.setMenuModel(&grid);
    DataSetInfo info;
    card.setDSInfo(info);
    QCOMPARE(info.recordCount, 2);
}

void TestDayMenuWidget::hostileSlotNamesStayOneLineOfPlainText_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << "<b>Obed</b><img src=x>";
    QTest::newRow("markers") << "%1 %2 & \" ' \\";
    QTest::newRow("emoji") << QString::fromUtf8("\xF0\x9F\x8D\xB2 obed");
    QTest::newRow("10,000 characters") << QString(10000, 'W');
}

void TestDayMenuWidget::hostileSlotNamesStayOneLineOfPlainText()
{
    QFETCH(QString, name);
    DayMenuWidget card(monday, name, 7, -1, 1, 0, QSqlDatabase(), nullptr, nullptr);
    const auto *label = find<QLabel>(card, "labelSegment");
    QCOMPARE(label->text(), ' ' + name);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->toolTip(), "<span>" + name.toHtmlEscaped() + "</span>");
    const Card plain;
    QCOMPARE(card.minimumSizeHint(), plain.minimumSizeHint());
}

void TestDayMenuWidget::survivesTheGridsEnd()
{
    auto grid = std::make_unique<CellGrid>();
    grid->addFood(1, 7, monday, 1, QStringLiteral("2"));
    Card card;
    card.setMenuModel(grid.get());
    const QModelIndex food = find<QTableView>(card, "tableView")->model()->index(0, 0);
    QVERIFY(food.isValid());
    grid.reset();
    card.setButtonState();
    card.setHeight();
    card.on_tableView_doubleClicked(QModelIndex());
    QCOMPARE(rows(card), QStringList());
    card.setMenuModel(nullptr);
    QCOMPARE(find<QLabel>(card, "labelSumOrders")->text(), QStringLiteral("0"));
}

QTEST_MAIN(TestDayMenuWidget)
#include "tst_daymenuwidget.moc"
