#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/logcatcher.h"

#include <QSignalSpy>
#include <QtTest>

/// Telling and restoring the saved view.
class TestMenuWidgetFilter : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void changeIsTold();
    void emptyMapOpensTheOrders();
    void menuViewIsRestored();
    void ordersViewIsRestored();
    void weekIsNotRestored();
    void unknownTextsChangeNothing();
    void restoringEmitsNothing();
    void changesAreToldAfterRestoring();
    void otherKeysOfTheMapStay();
    void mapThatComesBackRestoresTheView();
    void hostileTexts_data();
    void hostileTexts();

private:
    static QVariantMap map(bool menu, const QString &branch, const QString &person, const QString &week = QString())
    {
        return {{"menu", menu}, {"branch", branch}, {"person", person}, {"week", week}};
    }

    TestDatabase m_database;
    BoardData m_data{m_database};
    uint m_branch = 0;
};

void TestMenuWidgetFilter::init()
{
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint food = m_data.food(QStringLiteral("Guláš"), m_data.type(QStringLiteral("Hlavné jedlá"), 1),
                                  m_data.supplier(QStringLiteral("GA")));
    m_branch = m_data.branch(QStringLiteral("Výroba"));
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.personInBranch(m_data.person(2, QStringLiteral("Novák"), QStringLiteral("Peter")), m_branch);
    const uint zeman = m_data.person(3, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    m_data.personInBranch(zeman, m_branch);
    const QDate thursday = WeekList::thursdayOf(QDate::currentDate());
    m_data.item(food, obed, thursday.addDays(-21));
    m_data.order(m_data.item(food, obed, thursday, 1, m_branch), zeman, 6);
}

void TestMenuWidgetFilter::cleanup()
{
    m_data.clear();
}

void TestMenuWidgetFilter::changeIsTold()
{
    BoardPage page(m_database.db());
    page.initData();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    QVERIFY(filter.isValid());
    LogCatcher log;
    page.filterChanged();
    QCOMPARE(filter.count(), 1);
    QCOMPARE(filter.at(0).at(0).toString(), QStringLiteral("menuwidget"));
    const QVariantMap told = filter.at(0).at(1).toMap();
    QCOMPARE(told, map(true, "- bez strediska -", "[1] Adamec Ján", page.weeks()->currentText()));
    QCOMPARE(told.value("menu").type(), QVariant::Bool);
    QCOMPARE(log.lines(),
             (QStringList{"MenuWidget::filterChanged()",
                          "MenuWidget::filterChanged() ::: MenuWidget changing filter to:  true \"- bez strediska -\" "
                          "\"[1] Adamec Ján\" \""
                              + page.weeks()->currentText() + "\""}));
}

void TestMenuWidgetFilter::emptyMapOpensTheOrders()
{
    BoardPage page(m_database.db());
    page.initData();
    LogCatcher log;
    page.filterSetter({});
    QVERIFY(page.button("butOrdersSwitch")->isChecked());
    QVERIFY(!page.people()->isHidden());
    QCOMPARE(page.people()->currentText(), QStringLiteral("[1] Adamec Ján"));
    QCOMPARE(page.branches()->currentIndex(), 0);
    QCOMPARE(page.weeks()->currentIndex(), 4);
    QCOMPARE(log.lines().mid(0, 2),
             (QStringList{"MenuWidget::filterSetter()",
                          "MenuWidget::filterSetter() ::: MenuWidget recieving filter :  false \"\" \"\" \"\""}));
}

void TestMenuWidgetFilter::menuViewIsRestored()
{
    BoardPage page(m_database.db());
    page.initData();
    LogCatcher log;
    page.filterSetter(map(true, "Výroba", "[3] Zeman Ivan", "x"));
    QVERIFY(log.has(QStringLiteral("MenuWidget::filterSetter() ::: MenuWidget recieving filter :  true \"Výroba\" "
                                   "\"[3] Zeman Ivan\" \"x\"")));
    QVERIFY(page.button("butMenuSwitch")->isChecked());
    QVERIFY(page.people()->isHidden());
    QCOMPARE(page.branches()->currentText(), QStringLiteral("Výroba"));
    QCOMPARE(page.people()->currentText(), QStringLiteral("[3] Zeman Ivan"));
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Hlavné jedlá| ", "GA Guláš|6"}));
}

void TestMenuWidgetFilter::ordersViewIsRestored()
{
    BoardPage page(m_database.db());
    page.initData();
    page.filterSetter(map(false, "Výroba", "[3] Zeman Ivan"));
    QVERIFY(page.button("butOrdersSwitch")->isChecked());
    QCOMPARE(page.branches()->currentText(), QStringLiteral("Výroba"));
    QCOMPARE(page.people()->count(), 2);
    QCOMPARE(page.people()->currentText(), QStringLiteral("[3] Zeman Ivan"));
    QCOMPARE(BoardPage::rowsOf(page.card(3)), (QStringList{"Hlavné jedlá| ", "GA Guláš|6"}));
}

void TestMenuWidgetFilter::weekIsNotRestored()
{
    BoardPage page(m_database.db());
    page.initData();
    page.weeks()->setCurrentIndex(6);
    page.filterSetter(map(true, "", "", page.weeks()->itemText(1)));
    QCOMPARE(page.weeks()->currentIndex(), 4);
    QCOMPARE(page.dates(), weekDates(QDate::currentDate()));
}

void TestMenuWidgetFilter::unknownTextsChangeNothing()
{
    BoardPage page(m_database.db());
    page.initData();
    page.filterSetter(map(false, "Výroba", "[3] Zeman Ivan"));
    page.filterSetter(map(false, "zrušené stredisko", "[9] Dávno Preč"));
    QCOMPARE(page.branches()->currentText(), QStringLiteral("Výroba"));
    QCOMPARE(page.people()->currentText(), QStringLiteral("[3] Zeman Ivan"));
}

void TestMenuWidgetFilter::restoringEmitsNothing()
{
    BoardPage page(m_database.db());
    page.initData();
    const QSignalSpy filter(&page, &MenuWidget::filter);
    page.filterSetter(map(false, "Výroba", "[3] Zeman Ivan"));
    page.filterSetter(map(true, "- bez strediska -", "[1] Adamec Ján"));
    page.filterSetter({});
    QCOMPARE(filter.count(), 0);
}

void TestMenuWidgetFilter::changesAreToldAfterRestoring()
{
    BoardPage page(m_database.db());
    page.initData();
    page.filterSetter(map(false, "Výroba", "[3] Zeman Ivan"));
    const QSignalSpy filter(&page, &MenuWidget::filter);
    page.people()->setCurrentIndex(0);
    QCOMPARE(filter.count(), 1);
    QCOMPARE(filter.at(0).at(1).toMap(), map(false, "Výroba", "[2] Novák Peter", page.weeks()->currentText()));
    page.showMenu();
    QCOMPARE(filter.last().at(1).toMap().value("menu"), QVariant(true));
}

void TestMenuWidgetFilter::otherKeysOfTheMapStay()
{
    BoardPage page(m_database.db());
    page.initData();
    QVariantMap saved = map(true, "", "");
    saved.insert(QStringLiteral("later"), 5);
    page.filterSetter(saved);
    const QSignalSpy filter(&page, &MenuWidget::filter);
    page.filterChanged();
    QCOMPARE(filter.at(0).at(1).toMap().value("later"), QVariant(5));
}

void TestMenuWidgetFilter::mapThatComesBackRestoresTheView()
{
    QVariantMap saved;
    {
        BoardPage page(m_database.db());
        connect(&page, &MenuWidget::filter, this, [&saved](const QString &, const QVariantMap &told) { saved = told; });
        page.initData();
        page.filterSetter({});
        page.branches()->setCurrentIndex(1);
        page.people()->setCurrentIndex(1);
        page.weeks()->setCurrentIndex(2);
    }
    BoardPage page(m_database.db());
    page.initData();
    page.filterSetter(saved);
    QVERIFY(page.button("butOrdersSwitch")->isChecked());
    QCOMPARE(page.branches()->currentText(), QStringLiteral("Výroba"));
    QCOMPARE(page.people()->currentText(), QStringLiteral("[3] Zeman Ivan"));
    QCOMPARE(page.weeks()->currentIndex(), 4);
}

void TestMenuWidgetFilter::hostileTexts_data()
{
    QTest::addColumn<QVariant>("menu");
    QTest::addColumn<QVariant>("text");
    QTest::newRow("no text") << QVariant("yes") << QVariant(QVariantList{1, 2});
    QTest::newRow("markers") << QVariant(1) << QVariant("%1 %s \\ ' \"");
    QTest::newRow("long") << QVariant() << QVariant(QString(10000, 'x'));
    QTest::newRow("invalid") << QVariant(QStringList()) << QVariant();
}

void TestMenuWidgetFilter::hostileTexts()
{
    QFETCH(QVariant, menu);
    QFETCH(QVariant, text);
    BoardPage page(m_database.db());
    page.initData();
    page.filterSetter({{"menu", menu}, {"branch", text}, {"person", text}, {"week", text}});
    QCOMPARE(page.branches()->currentIndex(), 0);
    QCOMPARE(page.people()->currentIndex(), 0);
    QCOMPARE(page.weeks()->currentIndex(), 4);
    QCOMPARE(page.button("butMenuSwitch")->isChecked(), menu.toBool());
}

QTEST_MAIN(TestMenuWidgetFilter)
#include "tst_menuwidgetfilter.moc"
