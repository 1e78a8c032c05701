#include "board/cardpage.h"
#include "board/cellgrid.h"
#include "board/menudelegate.h"
#include "support/metamethods.h"

#include <QHeaderView>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

/// The card's form, labels, style and heights: no database.
class TestDayMenuForm : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia)); }

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
    void tableHeight();
    void preferredHeight();
    void heightFollowsTheFont();
    void hostileSlotNamesStayOneLineOfPlainText_data();
    void hostileSlotNamesStayOneLineOfPlainText();
};

void TestDayMenuForm::metaObject()
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

void TestDayMenuForm::buttonsOfTheForm_data()
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

void TestDayMenuForm::buttonsOfTheForm()
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

void TestDayMenuForm::restOfTheForm()
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

void TestDayMenuForm::constructorShowsDateDayAndSlot()
{
    const Card card;
    QCOMPARE(find<QLabel>(card, "labeldate")->text(), QStringLiteral("16. 3. 2020"));
    QCOMPARE(find<QLabel>(card, "labelday")->text(), QStringLiteral("pondelok "));
    QCOMPARE(find<QLabel>(card, "labelSegment")->text(), QStringLiteral(" Obed"));
    QCOMPARE(rows(card), QStringList());
}

void TestDayMenuForm::evenDaysHaveTheirOwnStyle_data()
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

void TestDayMenuForm::evenDaysHaveTheirOwnStyle()
{
    QFETCH(QString, widget);
    Card even(monday());
    const Card odd(monday().addDays(1));
    QTEST(even.findChild<QWidget *>(widget)->styleSheet(), "sheet");
    QCOMPARE(odd.findChild<QWidget *>(widget)->styleSheet(), QString());
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(find<QLabel>(even, "labelSegment")->palette().color(group, QPalette::WindowText), QColor(0, 51, 102));
        QVERIFY(find<QLabel>(odd, "labelSegment")->palette().color(group, QPalette::WindowText) != QColor(0, 51, 102));
    }
    QCOMPARE(find<QToolButton>(even, "toolButCopy")->styleSheet(), QString());
    // The columns of a board alternate; a change of week does not exchange them.
    even.setDate(monday().addDays(7));
    QTEST(even.findChild<QWidget *>(widget)->styleSheet(), "sheet");
}

void TestDayMenuForm::setDateWritesTheDateOnly()
{
    Card card;
    card.setDate(QDate(2021, 1, 3));
    QCOMPARE(find<QLabel>(card, "labeldate")->text(), QStringLiteral("3. 1. 2021"));
    QCOMPARE(find<QLabel>(card, "labelday")->text(), QStringLiteral("pondelok "));
}

void TestDayMenuForm::setLabelTakesThePlaceOfDayAndDate()
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

    card.setDate(monday());
    QCOMPARE(date->text(), QStringLiteral("16. 3. 2020"));
    QVERIFY(date->alignment() & Qt::AlignHCenter);
}

void TestDayMenuForm::titleCanBeHidden()
{
    Card card;
    for (const bool hidden : {true, false}) {
        card.setTitleHidden(hidden);
        for (const char *name : {"labelday", "labeldate", "TitleWidget"})
            QCOMPARE(find<QWidget>(card, name)->isHidden(), hidden);
    }
}

void TestDayMenuForm::tableHeight()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    for (int food = 1; food <= 5; ++food)
        grid.addFood(food, 7, monday());
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

void TestDayMenuForm::preferredHeight()
{
    CellGrid grid;
    grid.addHeading(QStringLiteral("Polievky"));
    grid.addFood(1, 7, monday());
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

void TestDayMenuForm::heightFollowsTheFont()
{
    CellGrid grid;
    for (int food = 1; food <= 3; ++food)
        grid.addFood(food, 7, monday());
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

void TestDayMenuForm::hostileSlotNamesStayOneLineOfPlainText_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << "<b>Obed</b><img src=x>";
    QTest::newRow("markers") << "%1 %2 & \" ' \\";
    QTest::newRow("emoji") << QString::fromUtf8("\xF0\x9F\x8D\xB2 obed");
    QTest::newRow("10,000 characters") << QString(10000, 'W');
}

void TestDayMenuForm::hostileSlotNamesStayOneLineOfPlainText()
{
    QFETCH(QString, name);
    DayMenuWidget card(monday(), name, 7, -1, 1, 0, QSqlDatabase(), nullptr, nullptr);
    const auto *label = find<QLabel>(card, "labelSegment");
    QCOMPARE(label->text(), ' ' + name);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->toolTip(), "<span>" + name.toHtmlEscaped() + "</span>");
    const Card plain;
    QCOMPARE(card.minimumSizeHint(), plain.minimumSizeHint());
}

QTEST_MAIN(TestDayMenuForm)
#include "tst_daymenuform.moc"
