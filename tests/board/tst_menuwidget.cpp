#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/logcatcher.h"

#include <QGridLayout>
#include <QSignalSpy>
#include <QtTest>

#include <algorithm>

/// The board as it stands after it was opened.
class TestMenuWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nothingIsReadBeforeInitData();
    void logOfTheStart();
    void startEmitsNoFilter();
    void presentWeekIsShown();
    void weekListReachesFromTheNewestToTheFirstMenu();
    void weekListWithoutMenus();
    void numberOfWeeksComesFromTheSettings_data();
    void numberOfWeeksComesFromTheSettings();
    void cardsStandInRowsOfSlots();
    void gridKeepsToTheTop_data();
    void gridKeepsToTheTop();
    void rowsOfCardsAreEquallyHigh();
    void shownDaysComeFromTheSettings_data();
    void shownDaysComeFromTheSettings();
    void orderLimitColumn_data();
    void orderLimitColumn();
    void branchSelector_data();
    void branchSelector();
    void menuModeControls();
    void namesAreShownAsTyped_data();
    void namesAreShownAsTyped();
    void reserveCompanyName_data();
    void reserveCompanyName();
    void reserveCompanyNameWithoutARow();
    void openingOftenLeavesNothingBehind();

private:
    TestDatabase m_database;
    BoardData m_data{m_database};
};

void TestMenuWidget::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestMenuWidget::cleanup()
{
    m_data.clear();
}

void TestMenuWidget::nothingIsReadBeforeInitData()
{
    m_data.segment(QStringLiteral("Obed"), 1);
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    LogCatcher log;
    const BoardPage page(m_database.db());
    QCOMPARE(log.lines().filter(QStringLiteral("Repository")), QStringList());
    QCOMPARE(log.lines().filter(QStringLiteral("Model")), QStringList());
    QCOMPARE(page.weeks()->count() + page.people()->count() + page.branches()->count(), 0);
    QVERIFY(page.cards().isEmpty());
}

void TestMenuWidget::logOfTheStart()
{
    LogCatcher log;
    BoardPage page(m_database.db());
    log.clear();
    page.initData();
    const QStringList own = log.lines().filter(QStringLiteral("MenuWidget::"));
    QCOMPARE(own,
             (QStringList{"MenuWidget::initData() ::: curGuiState v initData():  MenuWidget::GS_MENU",
                          "MenuWidget::initData() ::: done loading",
                          "MenuWidget::on_radioButton_toggled() ::: rezim menu aktivny: true",
                          "MenuWidget::filterChanged()"}));
}

void TestMenuWidget::startEmitsNoFilter()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.branch(QStringLiteral("Výroba"));
    BoardPage page(m_database.db());
    const QSignalSpy filter(&page, &MenuWidget::filter);
    QVERIFY(filter.isValid());
    page.initData();
    QCOMPARE(filter.count(), 0);
    page.filterChanged();
    QCOMPARE(filter.count(), 1);
}

void TestMenuWidget::presentWeekIsShown()
{
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint type = m_data.type(QStringLiteral("Polievky"), 1);
    const uint soup = m_data.food(QStringLiteral("Gulášová"), type, m_data.supplier(QStringLiteral("GA")));
    const QDate today = QDate::currentDate();
    const QDate monday = WeekList::thursdayOf(today).addDays(-3);
    m_data.order(m_data.item(soup, obed, monday, 1), 5, 3);
    m_data.item(soup, obed, monday.addDays(6), 1);
    m_data.item(soup, obed, monday.addDays(7), 1);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.weeks()->currentIndex(), 4);
    QCOMPARE(page.weeks()->currentText(), WeekList::text(WeekList::thursdayOf(today)));
    QCOMPARE(page.dates(), weekDates(today));
    QCOMPARE(BoardPage::rowsOf(page.card(0)), (QStringList{"Polievky| ", "GA Gulášová|3"}));
    QCOMPARE(BoardPage::rowsOf(page.card(6)), (QStringList{"Polievky| ", "GA Gulášová|"}));
    QCOMPARE(BoardPage::rowsOf(page.card(1)), QStringList());
    QCOMPARE(page.card(0)->findChild<QLabel *>("labelday")->text(), QStringLiteral("pondelok "));
    QCOMPARE(page.card(6)->findChild<QLabel *>("labelday")->text(), QStringLiteral("nedeľa "));
}

void TestMenuWidget::weekListReachesFromTheNewestToTheFirstMenu()
{
    const QDate today = QDate::currentDate();
    const QDate first = today.addDays(-140);
    const uint food = m_data.food(QStringLiteral("x"), m_data.type(QStringLiteral("t"), 1), m_data.supplier("s"));
    m_data.item(food, m_data.segment(QStringLiteral("Obed"), 1), first);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.weeks()->count(), 25);
    for (int row = 0; row < page.weeks()->count(); ++row)
        QCOMPARE(page.weeks()->itemText(row),
                 WeekList::text(WeekList::thursdayOf(today).addDays(qint64(7) * (4 - row))));
    QCOMPARE(page.weeks()->itemText(24), WeekList::text(WeekList::thursdayOf(first)));
}

void TestMenuWidget::weekListWithoutMenus()
{
    m_data.segment(QStringLiteral("Obed"), 1);
    BoardPage page(m_database.db());
    page.initData();
    const QDate today = QDate::currentDate();
    const bool presentWeekIsThere = today.dayOfWeek() <= Qt::Thursday;
    QCOMPARE(page.weeks()->count(), presentWeekIsThere ? 5 : 4);
    QCOMPARE(page.weeks()->currentIndex(), presentWeekIsThere ? 4 : -1);
    QCOMPARE(page.weeks()->currentText().isEmpty(), !presentWeekIsThere);
    QCOMPARE(page.recreateDateFromComboBoxWeek().isValid(), presentWeekIsThere);
    QCOMPARE(page.dates(), weekDates(today));
}

void TestMenuWidget::numberOfWeeksComesFromTheSettings_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("present");
    QTest::newRow("two") << "2" << 2;
    QTest::newRow("none ahead") << "0" << 0;
    QTest::newRow("no number") << "x" << 0;
    QTest::newRow("damaged") << "2147483647" << 5200;
}

void TestMenuWidget::numberOfWeeksComesFromTheSettings()
{
    QFETCH(QString, setting);
    QFETCH(int, present);
    const QDate today = QDate::currentDate();
    const uint food = m_data.food(QStringLiteral("x"), m_data.type(QStringLiteral("t"), 1), m_data.supplier("s"));
    m_data.item(food, m_data.segment(QStringLiteral("Obed"), 1), today);
    m_data.setting(QStringLiteral("via_shownWeeks"), setting);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.weeks()->count(), present + 1);
    QCOMPARE(page.weeks()->currentIndex(), present);
    QCOMPARE(page.weeks()->currentText(), WeekList::text(WeekList::thursdayOf(today)));
}

void TestMenuWidget::cardsStandInRowsOfSlots()
{
    m_data.segment(QStringLiteral("Večera"), 3);
    m_data.segment(QStringLiteral("Raňajky"), 1);
    m_data.segment(QStringLiteral("Obed"), 2);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.cards().size(), 21);
    const auto *grid = qobject_cast<QGridLayout *>(page.find<QWidget>("widgetCenter")->layout());
    QVERIFY(grid);
    const QStringList slotNames{" Raňajky", " Obed", " Večera"};
    for (int place = 0; place < 21; ++place) {
        const int row = place / 7;
        const DayMenuWidget *card = page.card(place % 7, row);
        QCOMPARE(grid->itemAtPosition(row, place % 7)->widget(), card);
        QVERIFY(grid->itemAtPosition(row, place % 7)->alignment() & Qt::AlignTop);
        QCOMPARE(card->findChild<QLabel *>("labelSegment")->text(), slotNames.at(row));
        QCOMPARE(card->findChild<QWidget *>("TitleWidget")->isHidden(), row > 0);
        QCOMPARE(BoardPage::dateOf(card), BoardPage::dateOf(page.card(place % 7)));
    }
}

void TestMenuWidget::gridKeepsToTheTop_data()
{
    QTest::addColumn<int>("slotCount");
    QTest::addColumn<int>("stretchedRow");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one") << 1 << 0;
    QTest::newRow("three") << 3 << 2;
}

void TestMenuWidget::gridKeepsToTheTop()
{
    QFETCH(int, slotCount);
    QFETCH(int, stretchedRow);
    for (int position = 1; position <= slotCount; ++position)
        m_data.segment(QStringLiteral("Obed"), position);
    BoardPage page(m_database.db());
    page.initData();
    const auto *grid = qobject_cast<QGridLayout *>(page.find<QWidget>("widgetCenter")->layout());
    QCOMPARE(grid->spacing(), 4);
    QCOMPARE(grid->contentsMargins(), QMargins(4, 4, 4, 4));
    for (int row = 0; row < grid->rowCount(); ++row)
        QCOMPARE(grid->rowStretch(row), row == stretchedRow ? 1 : 0);
}

void TestMenuWidget::rowsOfCardsAreEquallyHigh()
{
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_data.segment(QStringLiteral("Večera"), 2);
    const uint type = m_data.type(QStringLiteral("t"), 1);
    const uint supplier = m_data.supplier(QStringLiteral("s"));
    const QDate today = QDate::currentDate();
    for (int food = 0; food < 6; ++food)
        m_data.item(m_data.food(QStringLiteral("x"), type, supplier), obed, today);
    BoardPage page(m_database.db());
    page.initData();
    const DayMenuWidget *full = page.card(today.dayOfWeek() - 1);
    const DayMenuWidget *empty = page.card(today.dayOfWeek() % 7);
    QVERIFY(full->preferredHeight() > empty->preferredHeight());
    for (int column = 0; column < 7; ++column) {
        QCOMPARE(page.card(column)->minimumHeight(), full->preferredHeight());
        QCOMPARE(page.card(column)->maximumHeight(), full->preferredHeight());
        QCOMPARE(page.card(column, 1)->minimumHeight(), page.card(0, 1)->preferredHeight());
    }
    QCOMPARE(page.card(0)->minimumHeight() - page.card(0, 1)->minimumHeight(),
             62 - 40 + full->findChild<QTableView *>("tableView")->rowHeight(0) * 7);
}

void TestMenuWidget::shownDaysComeFromTheSettings_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("shown");
    QTest::newRow("no setting") << ""
                                << "1111111";
    QTest::newRow("all") << "2222222"
                         << "1111111";
    QTest::newRow("Monday to Friday") << "22222"
                                      << "1111100";
    QTest::newRow("every other day") << "2020202"
                                     << "1010101";
    QTest::newRow("Sunday") << "2000000"
                            << "0000001";
    QTest::newRow("nothing but 2 is shown") << "1101112"
                                            << "1000000";
    QTest::newRow("rounded up by the digit below") << "15"
                                                   << "0100000";
}

void TestMenuWidget::shownDaysComeFromTheSettings()
{
    QFETCH(QString, setting);
    QFETCH(QString, shown);
    m_data.segment(QStringLiteral("Obed"), 1);
    m_data.segment(QStringLiteral("Večera"), 2);
    if (!setting.isEmpty())
        m_data.setting(QStringLiteral("via_activeDays"), setting);
    BoardPage page(m_database.db());
    page.initData();
    for (int place = 0; place < 14; ++place)
        QCOMPARE(page.card(place % 7, place / 7)->isHidden(), shown.at(place % 7) == '0');
    // Hidden cards follow the week, too.
    page.weeks()->setCurrentIndex(0);
    QCOMPARE(page.dates(), weekDates(QDate::currentDate().addDays(28)));
}

void TestMenuWidget::orderLimitColumn_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("columns");
    QTest::newRow("missing") << "" << 2;
    QTest::newRow("false") << "false" << 2;
    QTest::newRow("0") << "0" << 2;
    QTest::newRow("true") << "true" << 3;
    QTest::newRow("1") << "1" << 3;
}

void TestMenuWidget::orderLimitColumn()
{
    QFETCH(QString, setting);
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint food = m_data.food(QStringLiteral("x"), m_data.type(QStringLiteral("t"), 1), m_data.supplier("s"));
    m_data.item(food, obed, QDate::currentDate(), 0, 0, 12);
    if (!setting.isEmpty())
        m_data.setting(QStringLiteral("via_orderLimitEnabled"), setting);
    BoardPage page(m_database.db());
    page.initData();
    const auto *table = page.card(QDate::currentDate().dayOfWeek() - 1)->findChild<QTableView *>("tableView");
    QTEST(table->model()->columnCount(), "columns");
    if (table->model()->columnCount() == 3)
        QCOMPARE(table->model()->index(1, 2).data().toString(), QStringLiteral("12"));
}

void TestMenuWidget::branchSelector_data()
{
    QTest::addColumn<QStringList>("branches");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("none but that for all") << QStringList() << false;
    QTest::newRow("one") << QStringList{"Výroba"} << true;
    QTest::newRow("two") << QStringList{"Výroba", "Sklad"} << true;
}

void TestMenuWidget::branchSelector()
{
    QFETCH(QStringList, branches);
    for (const QString &name : qAsConst(branches))
        m_data.branch(name);
    BoardPage page(m_database.db());
    page.initData();
    QCOMPARE(page.branches()->count(), branches.size() + 1);
    QCOMPARE(page.branches()->currentText(), QStringLiteral("- bez strediska -"));
    for (int i = 0; i < branches.size(); ++i)
        QCOMPARE(page.branches()->itemText(i + 1), branches.at(i));
    QTEST(page.branches()->isEnabled(), "enabled");
}

void TestMenuWidget::menuModeControls()
{
    m_data.segment(QStringLiteral("Obed"), 1);
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    BoardPage page(m_database.db());
    page.initData();
    for (const char *name : {"comboBoxPeople", "linePeople", "personIconLabel", "toolButton"})
        QVERIFY2(page.find<QWidget>(name)->isHidden(), name);
    for (const char *name : {"toolButtonExport", "toolButtonWeekly", "toolButtonMonthly"})
        QVERIFY2(!page.find<QWidget>(name)->isHidden(), name);
    QCOMPARE(page.arrows(), QStringLiteral("<>"));
    QVERIFY(page.button("toolButtonMonthly")->isEnabled());
    QCOMPARE(page.enabledDays(), QStringLiteral("1111111"));
    QCOMPARE(page.monthlyCaption(),
             "Mesačný výpis objednávok: "
                 + QLocale().toString(WeekList::thursdayOf(QDate::currentDate()), QStringLiteral("MMMM yyyy ")));
}

void TestMenuWidget::namesAreShownAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("O'Brien \"x\" \\");
    QTest::newRow("markers") << QStringLiteral("%1 %2 %n & _");
    QTest::newRow("markup") << QStringLiteral("<b>x</b><script>");
    QTest::newRow("emoji") << QString::fromUtf8("\xF0\x9F\x8D\xB2");
    QTest::newRow("long") << QString(190, 'W');
}

void TestMenuWidget::namesAreShownAsTyped()
{
    QFETCH(QString, name);
    const uint obed = m_data.segment(name, 1);
    const uint food = m_data.food(name, m_data.type(name, 1), m_data.supplier(name));
    m_data.item(food, obed, QDate::currentDate());
    m_data.branch(name);
    // The host's people hold three-byte characters only.
    const bool fourBytes = std::any_of(name.begin(), name.end(), [](QChar unit) { return unit.isSurrogate(); });
    const QString personName = fourBytes ? QStringLiteral("x") : name;
    m_data.person(1, personName, personName);
    BoardPage page(m_database.db());
    const QSize plain = page.minimumSizeHint();
    page.initData();
    const DayMenuWidget *card = page.card(QDate::currentDate().dayOfWeek() - 1);
    QCOMPARE(card->findChild<QLabel *>("labelSegment")->text(), ' ' + name);
    QCOMPARE(BoardPage::rowsOf(card).at(0).section('|', 0, 0), name);
    QCOMPARE(BoardPage::rowsOf(card).at(1).section('|', 0, 0), name + ' ' + name);
    page.branches()->setCurrentText(name);
    QCOMPARE(page.branches()->currentText(), name);
    page.branches()->setCurrentIndex(0);
    page.showOrders();
    QCOMPARE(page.people()->currentText(), "[1] " + personName + ' ' + personName);
    // No name widens the page.
    page.showMenu();
    QVERIFY(page.minimumSizeHint().width() < plain.width() + 250);
}

void TestMenuWidget::reserveCompanyName_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QByteArray("Firma s.r.o.").toBase64() << "Firma s.r.o.";
    QTest::newRow("UTF-8") << QByteArray("Jedáleň Žilina").toBase64() << "Jedáleň Žilina";
    QTest::newRow("cut at the zero byte") << QByteArray("Firma\0licence", 13).toBase64() << "Firma";
    QTest::newRow("zero byte first") << QByteArray("\0x", 2).toBase64() << "";
    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("no base64") << QByteArray("!!!") << "";
}

void TestMenuWidget::reserveCompanyName()
{
    QFETCH(QByteArray, value);
    m_data.setting(QStringLiteral("LCNSN"), QString::fromLatin1(value));
    BoardPage page(m_database.db());
    QString result;
    QVERIFY(QMetaObject::invokeMethod(&page, "getReserveCompanyName", Q_RETURN_ARG(QString, result)));
    QTEST(result, "name");
}

void TestMenuWidget::reserveCompanyNameWithoutARow()
{
    m_data.setting(QStringLiteral("LCNSN2"), QStringLiteral("eA=="));
    LogCatcher log;
    BoardPage page(m_database.db());
    QCOMPARE(page.getReserveCompanyName(), QString());
    m_database.exec(QStringLiteral("INSERT INTO vars VALUES ('LCNSN', NULL)"));
    QCOMPARE(page.getReserveCompanyName(), QString());
    QCOMPARE(log.critical(), QStringList());
}

void TestMenuWidget::openingOftenLeavesNothingBehind()
{
    const uint obed = m_data.segment(QStringLiteral("Obed"), 1);
    const uint food = m_data.food(QStringLiteral("x"), m_data.type(QStringLiteral("t"), 1), m_data.supplier("s"));
    m_data.item(food, obed, QDate::currentDate(), 1);
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    for (int time = 0; time < 10; ++time) {
        BoardPage page(m_database.db());
        page.initData();
        page.filterSetter({});
        page.show();
        page.weeks()->setCurrentIndex(0);
    }
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

QTEST_MAIN(TestMenuWidget)
#include "tst_menuwidget.moc"
