#include "board/boarddata.h"
#include "board/boardpage.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QListView>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

/// The edges of an employment, and choosing a person in another week than the present one.
class TestMenuWidgetEmployment : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void menuModeComesBack();
    void listWithoutPeopleKeepsTheWholeMenu();
    void employmentEdges_data();
    void employmentEdges();
    void personIsKeptOverTheWeeks();
    void personOutsideTheWeekIsLeft();
    void personsNameIsShownAsTyped_data();
    void personsNameIsShownAsTyped();
    void withoutAPersonOnlyTheListFollows();
    void checksAreLogged();
    void personIsChosenInTheDialog();
    void cancelledDialogTakesTheFirstPerson();
    void dialogListsTheShownWeek();

private:
    BoardPage *openInWeek(QDate thursday);
    int rowOf(QDate thursday) const { return int(m_thisThursday.daysTo(thursday)) / -7 + 8; }
    static int menuLoads(const LogCatcher &log)
    {
        return log.lines().filter(QStringLiteral("MenuWidget menu created")).size();
    }

    TestDatabase m_database;
    BoardData m_data{m_database};
    std::unique_ptr<BoardPage> m_page;
    uint m_obed = 0;
    uint m_soup = 0;
    QDate m_thisThursday;
    /// The Thursday of a week near today that, like both its neighbours, lies in one year: over new year the list of
    /// weeks gives the Monday a year late, which is the subject of another test.
    QDate m_thursday;
    QDate m_monday;
};

void TestMenuWidgetEmployment::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::Slovak, QLocale::Slovakia));
}

void TestMenuWidgetEmployment::init()
{
    const auto inOneYear = [](QDate thursday) { return thursday.addDays(-3).year() == thursday.year(); };
    m_thisThursday = WeekList::thursdayOf(QDate::currentDate());
    m_thursday = m_thisThursday;
    while (!inOneYear(m_thursday.addDays(-7)) || !inOneYear(m_thursday) || !inOneYear(m_thursday.addDays(7)))
        m_thursday = m_thursday.addDays(-7);
    m_monday = m_thursday.addDays(-3);

    m_data.setting(QStringLiteral("via_shownWeeks"), QStringLiteral("8"));
    m_obed = m_data.segment(QStringLiteral("Obed"), 1);
    m_data.segment(QStringLiteral("Večera"), 2);
    m_soup = m_data.food(QStringLiteral("Polievka"), m_data.type(QStringLiteral("Polievky"), 1),
                         m_data.supplier(QStringLiteral("GA")));
    // The oldest week of the list, far enough back for every week that a test may pick.
    m_data.item(m_soup, m_obed, m_thisThursday.addDays(-70));
}

void TestMenuWidgetEmployment::cleanup()
{
    m_page.reset();
    m_data.clear();
}

/// A board in the orders mode with the first person, in the week of `thursday`.
BoardPage *TestMenuWidgetEmployment::openInWeek(QDate thursday)
{
    m_page = std::make_unique<BoardPage>(m_database.db());
    m_page->initData();
    m_page->showOrders();
    m_page->weeks()->setCurrentIndex(rowOf(thursday));
    return m_page.get();
}

void TestMenuWidgetEmployment::menuModeComesBack()
{
    // Left long ago, and so out of employment on every day; listed, as everybody, in the week of the end.
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"), QDate(2000, 1, 3), m_monday);
    m_data.order(m_data.item(m_soup, m_obed, m_thursday, 1), 99, 2);
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    BoardPage *page = openInWeek(m_thursday);
    page->people()->setCurrentIndex(0);
    QCOMPARE(page->enabledDays(), QStringLiteral("1000000"));
    QCOMPARE(BoardPage::rowsOf(page->card(3)), QStringList());

    const QSignalSpy filter(page, &MenuWidget::filter);
    LogCatcher log;
    page->showMenu();
    QCOMPARE(menuLoads(log), 1);
    QCOMPARE(filter.count(), 1);
    QCOMPARE(filter.at(0).at(1).toMap().value("menu"), QVariant(true));
    QCOMPARE(page->enabledDays(), QStringLiteral("1111111"));
    QCOMPARE(page->enabledDays(1), QStringLiteral("1111111"));
    QCOMPARE(page->arrows(), QStringLiteral("<>"));
    QVERIFY(page->button("toolButtonMonthly")->isEnabled());
    QVERIFY(!page->card(3)->findChild<QLabel *>("labelday")->isHidden());
    QCOMPARE(page->dates(), weekDates(m_thursday));
    QCOMPARE(BoardPage::rowsOf(page->card(3)), (QStringList{"Polievky| ", "GA Polievka|2"}));
}

void TestMenuWidgetEmployment::listWithoutPeopleKeepsTheWholeMenu()
{
    m_data.order(m_data.item(m_soup, m_obed, m_thursday, 1), 99, 2);
    BoardPage *page = openInWeek(m_thursday);
    QCOMPARE(page->people()->currentIndex(), -1);
    QCOMPARE(BoardPage::rowsOf(page->card(3)), (QStringList{"Polievky| ", "GA Polievka|2"}));
    // A negative person changes nothing when the week does.
    LogCatcher log;
    page->weeks()->setCurrentIndex(rowOf(m_thursday.addDays(7)));
    QCOMPARE(log.lines().filter(QStringLiteral("PeopleModel::tableQuery")), QStringList());
    QCOMPARE(menuLoads(log), 1);
}

void TestMenuWidgetEmployment::employmentEdges_data()
{
    QTest::addColumn<int>("begin"); // days from the shown Monday
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("days");
    QTest::addColumn<QString>("arrows");
    const int open = 1000;
    QTest::newRow("all along") << -1000 << open << "1111111"
                               << "<>";
    QTest::newRow("left on Wednesday") << -1000 << 2 << "1110000"
                                       << "<-";
    QTest::newRow("left on Monday") << -1000 << 0 << "1000000"
                                    << "<-";
    QTest::newRow("left on Sunday") << -1000 << 6 << "1111111"
                                    << "<-";
    QTest::newRow("leaves on the Monday after") << -1000 << 7 << "1111111"
                                                << "<>";
    QTest::newRow("begins on Friday") << 4 << open << "0000111"
                                      << "->";
    QTest::newRow("began on Monday") << 0 << open << "1111111"
                                     << "->";
    QTest::newRow("began on the Sunday before") << -1 << open << "1111111"
                                                << "<>";
    QTest::newRow("Tuesday to Thursday") << 1 << 3 << "0111000"
                                         << "--";
}

void TestMenuWidgetEmployment::employmentEdges()
{
    QFETCH(int, begin);
    QFETCH(int, end);
    QFETCH(QString, days);
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"), m_monday.addDays(begin),
                  end == 1000 ? QDate() : m_monday.addDays(end));
    BoardPage *page = openInWeek(m_thursday);
    QCOMPARE(page->people()->currentText(), QStringLiteral("[1] Adamec Ján"));
    QCOMPARE(page->enabledDays(), QStringLiteral("1111111"));
    page->people()->setCurrentIndex(1);
    QCOMPARE(page->people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
    for (int row = 0; row < 2; ++row)
        QCOMPARE(page->enabledDays(row), days);
    for (int column = 0; column < 7; ++column) {
        const bool employed = days.at(column) == '1';
        QCOMPARE(BoardPage::dateOf(page->card(column)),
                 employed ? m_monday.addDays(column).toString("d. M. yyyy") : QStringLiteral("mimo pracovný pomer"));
        QCOMPARE(page->card(column)->findChild<QLabel *>("labelday")->isHidden(), !employed);
    }
    QTEST(page->arrows(), "arrows");
    QVERIFY(page->button("toolButtonMonthly")->isEnabled());
    // The next person has all days again.
    page->people()->setCurrentIndex(0);
    QCOMPARE(page->enabledDays(), QStringLiteral("1111111"));
    QCOMPARE(page->arrows(), QStringLiteral("<>"));
    QCOMPARE(page->dates(), weekDates(m_thursday));
}

void TestMenuWidgetEmployment::personIsKeptOverTheWeeks()
{
    const uint adamec = m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    const uint zeman = m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    // Only in last week's list, and in front of the others: the row of the person changes, the person does not.
    m_data.person(3, QStringLiteral("Abel"), QStringLiteral("Emil"), QDate(2000, 1, 3), m_monday.addDays(-5));
    const uint item = m_data.item(m_soup, m_obed, m_thursday.addDays(-7), 1);
    m_data.order(item, adamec, 8);
    m_data.order(item, zeman, 9);
    BoardPage *page = openInWeek(m_thursday);
    page->people()->setCurrentIndex(page->people()->findText(QStringLiteral("[2] Zeman Ivan")));
    QCOMPARE(page->people()->count(), 2);
    page->button("toolButtonMonthly")->setEnabled(false);

    page->weeks()->setCurrentIndex(rowOf(m_thursday.addDays(-7)));
    QCOMPARE(page->people()->count(), 3);
    QCOMPARE(page->people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
    QCOMPARE(page->people()->currentIndex(), 2);
    QCOMPARE(BoardPage::rowsOf(page->card(3)), (QStringList{"Polievky| ", "GA Polievka|9"}));
    QVERIFY(page->button("toolButtonMonthly")->isEnabled());
}

void TestMenuWidgetEmployment::personOutsideTheWeekIsLeft()
{
    const uint zeman =
        m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"), QDate(2020, 2, 1), m_monday.addDays(1));
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.order(m_data.item(m_soup, m_obed, m_thursday.addDays(7), 1), zeman, 2);
    BoardPage *page = openInWeek(m_thursday);
    page->people()->setCurrentIndex(1);

    const QSignalSpy filter(page, &MenuWidget::filter);
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Objednávky stravy"),
                    QStringLiteral("Zamestnanec \"[2] Zeman Ivan\" je mimo pracovného pomeru.\nVyberte prosím iného "
                                   "zamestnanca, alebo týždeň \nv rozsahu pracovného pomeru: 01.02.2020 - %1")
                        .arg(m_monday.addDays(1).toString("dd.MM.yyyy")),
                    QMessageBox::Ok, [page](QMessageBox *box) {
                        QCOMPARE(box->icon(), QMessageBox::Information);
                        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                        QCOMPARE(box->textFormat(), Qt::PlainText);
                        // The person and the old list still stand; nothing can be ordered any more.
                        QCOMPARE(page->people()->currentText(), QStringLiteral("[2] Zeman Ivan"));
                        QCOMPARE(page->enabledDays(), QStringLiteral("0000000"));
                        QVERIFY(!page->button("toolButtonMonthly")->isEnabled());
                    });
    page->weeks()->setCurrentIndex(rowOf(m_thursday.addDays(7)));
    BOXES_DONE(boxes);
    QCOMPARE(page->people()->currentIndex(), -1);
    QCOMPARE(page->people()->count(), 1);
    QCOMPARE(page->people()->itemText(0), QStringLiteral("[1] Adamec Ján"));
    QCOMPARE(page->enabledDays(), QStringLiteral("0000000"));
    QCOMPARE(page->arrows(), QStringLiteral("--"));
    QVERIFY(!page->button("toolButtonMonthly")->isEnabled());
    QCOMPARE(BoardPage::rowsOf(page->card(3)), QStringList());
    // Once for the person who is gone, once for the week.
    QCOMPARE(filter.count(), 2);
    QCOMPARE(filter.last().at(1).toMap().value("person"), QVariant(QString()));
}

void TestMenuWidgetEmployment::personsNameIsShownAsTyped_data()
{
    QTest::addColumn<QString>("surname");
    QTest::newRow("markup") << QStringLiteral("<b>Zeman</b>");
    QTest::newRow("markers") << QStringLiteral("Zeman %1 %2");
    QTest::newRow("quotes") << QStringLiteral("Ze\"m'an\\ & Co");
    QTest::newRow("long") << QString(200, 'z');
}

void TestMenuWidgetEmployment::personsNameIsShownAsTyped()
{
    QFETCH(QString, surname);
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, surname, QStringLiteral("Ivan"), QDate(2020, 2, 1), m_monday.addDays(1));
    BoardPage *page = openInWeek(m_thursday);
    const QString label = QStringLiteral("[2] ") + surname + QStringLiteral(" Ivan");
    page->people()->setCurrentText(label);
    QCOMPARE(page->people()->currentText(), label);
    BoxAnswerer boxes;
    boxes.expectBox(QStringLiteral("Objednávky stravy"),
                    QStringLiteral("Zamestnanec \"") + label
                        + QStringLiteral("\" je mimo pracovného pomeru.\nVyberte prosím iného zamestnanca, alebo "
                                         "týždeň \nv rozsahu pracovného pomeru: 01.02.2020 - ")
                        + m_monday.addDays(1).toString("dd.MM.yyyy"));
    page->weeks()->setCurrentIndex(rowOf(m_thursday.addDays(7)));
    BOXES_DONE(boxes);
}

void TestMenuWidgetEmployment::withoutAPersonOnlyTheListFollows()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Zeman"), QStringLiteral("Ivan"), m_monday.addDays(8));
    BoardPage *page = openInWeek(m_thursday);
    page->people()->setCurrentIndex(-1);
    QCOMPARE(page->enabledDays(), QStringLiteral("0000000"));
    const QSignalSpy filter(page, &MenuWidget::filter);
    LogCatcher log;
    page->weeks()->setCurrentIndex(rowOf(m_thursday.addDays(7)));
    QCOMPARE(page->people()->count(), 2);
    QCOMPARE(page->people()->currentIndex(), -1);
    QCOMPARE(menuLoads(log), 1);
    QCOMPARE(filter.count(), 1);
    QVERIFY(!log.has(QStringLiteral("MenuWidget::disableWidgetsForEmployeeOutsideWorkingHours()")));
}

void TestMenuWidgetEmployment::checksAreLogged()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    BoardPage *page = openInWeek(m_thursday);
    LogCatcher log;
    page->disableWidgetsForEmployeeOutsideWorkingHours();
    QCOMPARE(log.lines(), QStringList{"MenuWidget::disableWidgetsForEmployeeOutsideWorkingHours()"});
    page->showMenu();
    log.clear();
    page->disableWidgetsForEmployeeOutsideWorkingHours();
    QCOMPARE(log.lines(), QStringList());
}

void TestMenuWidgetEmployment::personIsChosenInTheDialog()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Novák"), QStringLiteral("Peter"));
    m_data.person(3, QStringLiteral("Zeman"), QStringLiteral("Ivan"));
    BoardPage *page = openInWeek(m_thursday);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("PeopleComboboxDialog"), [page](QDialog *dialog) {
        QCOMPARE(dialog->parent(), page);
        auto *list = dialog->findChild<QListView *>();
        list->setCurrentIndex(list->model()->index(1, list->modelColumn()));
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonOk"))->click();
    });
    page->button("toolButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page->people()->currentText(), QStringLiteral("[2] Novák Peter"));
    QVERIFY(page->findChildren<QDialog *>().isEmpty());
}

void TestMenuWidgetEmployment::cancelledDialogTakesTheFirstPerson()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Novák"), QStringLiteral("Peter"));
    BoardPage *page = openInWeek(m_thursday);
    page->people()->setCurrentIndex(1);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("PeopleComboboxDialog"), [](QDialog *dialog) { dialog->reject(); });
    page->button("toolButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page->people()->currentIndex(), 0);
}

void TestMenuWidgetEmployment::dialogListsTheShownWeek()
{
    m_data.person(1, QStringLiteral("Adamec"), QStringLiteral("Ján"));
    m_data.person(2, QStringLiteral("Abel"), QStringLiteral("Emil"), QDate(2000, 1, 3), m_monday.addDays(-6));
    BoardPage *page = openInWeek(m_thursday.addDays(-7));
    QCOMPARE(page->people()->count(), 2);
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("PeopleComboboxDialog"), [](QDialog *dialog) {
        auto *list = dialog->findChild<QListView *>();
        QCOMPARE(list->model()->rowCount(), 2);
        list->setCurrentIndex(list->model()->index(0, list->modelColumn()));
        dialog->findChild<QPushButton *>(QStringLiteral("pushButtonOk"))->click();
    });
    page->button("toolButton")->click();
    BOXES_DONE(boxes);
    QCOMPARE(page->people()->currentText(), QStringLiteral("[2] Abel Emil"));
}

QTEST_MAIN(TestMenuWidgetEmployment)
#include "tst_menuwidgetemployment.moc"
