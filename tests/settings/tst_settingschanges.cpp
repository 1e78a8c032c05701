#include "settings/settingspage.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace {

QString limitsTitle()
{
    return QStringLiteral("Zrušenie limitu počtu objednávok");
}

QString limitsQuestion()
{
    return QStringLiteral("Zakázaním limitu počtu objednávok sa vymažú všetky nastavené limity na jedlách v menu.\n\n"
                          "Naozaj si to prajete?");
}

} // namespace

/// What the user's changes of days, weeks, rule and limits write.
class TestSettingsChanges : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();
    void cleanup() { QVERIFY(!QGuiApplication::overrideCursor()); }

    void days_data();
    void days();
    void daysByKeyboard();
    void weeks();
    void rule();
    void failedWrites();
    void enablingLimitsAsksNothing();
    void decliningKeepsTheMark_data();
    void decliningKeepsTheMark();
    void questionBox();
    void confirmingRemovesAllLimits();
    void confirmingWithoutAnyLimit();
    void failedRemovalKeepsTheMark();
    void failedMarkIsLogged();
    void pageMayDieInTheQuestion();
    void pageMayDieInTheFailure();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SettingsData> m_data;
};

void TestSettingsChanges::init()
{
    m_data = std::make_unique<SettingsData>(*m_database);
    m_data->set("via_activeDays", QStringLiteral("22222"));
    m_data->set("via_shownWeeks", QStringLiteral("3"));
}

void TestSettingsChanges::days_data()
{
    QTest::addColumn<QString>("clicks");
    QTest::addColumn<QString>("writes");
    QTest::newRow("all off") << "12345"
                             << "22220 22200 22000 20000 0";
    QTest::newRow("Monday alone") << "2345"
                                  << "22202 22002 20002 2";
    QTest::newRow("Sunday alone") << "712345"
                                  << "2022222 2022220 2022200 2022000 2020000 2000000";
    QTest::newRow("there and back") << "66"
                                    << "222222 22222";
}

void TestSettingsChanges::days()
{
    QFETCH(QString, clicks);
    const SettingsPage page(m_database->db());
    m_data->takeWrites();
    for (const QChar day : qAsConst(clicks))
        page.day(day.digitValue())->click();
    QTEST(m_data->takeWrites().replaceInStrings(QStringLiteral("via_activeDays="), QString()).join(QLatin1Char(' ')),
          "writes");
}

void TestSettingsChanges::daysByKeyboard()
{
    SettingsPage page(m_database->db());
    activate(page);
    page.day(1)->setFocus();
    m_data->takeWrites();
    QTest::keyClick(page.focusWidget(), Qt::Key_Space);
    QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(page.focusWidget(), Qt::Key_Space);
    QCOMPARE(m_data->takeWrites(), (QStringList{"via_activeDays=22220", "via_activeDays=22200"}));
}

void TestSettingsChanges::weeks()
{
    SettingsPage page(m_database->db());
    activate(page);
    m_data->takeWrites();
    page.weeks()->setFocus();
    QTest::keyClick(page.weeks(), Qt::Key_Up);
    QCOMPARE(m_data->takeWrites(), QStringList{"via_shownWeeks=4"});
    page.weeks()->selectAll();
    QTest::keyClicks(page.weeks(), QStringLiteral("12"));
    QCOMPARE(m_data->takeWrites(), (QStringList{"via_shownWeeks=1", "via_shownWeeks=12"}));
    QTest::keyClicks(page.weeks(), QStringLiteral("9x-")); // three digits and no digits: nothing to write
    QCOMPARE(m_data->takeWrites(), QStringList());
    page.weeks()->setValue(12);
    QCOMPARE(m_data->takeWrites(), QStringList());
}

void TestSettingsChanges::rule()
{
    SettingsPage page(m_database->db());
    activate(page);
    m_data->takeWrites();
    page.rule()->setFocus();
    QTest::keyClick(page.rule(), Qt::Key_Down);
    QTest::keyClick(page.rule(), Qt::Key_Down);
    QTest::keyClick(page.rule(), Qt::Key_Down); // at the end
    QTest::keyClick(page.rule(), Qt::Key_Home);
    QCOMPARE(m_data->takeWrites(), (QStringList{"via_orderLimit=1", "via_orderLimit=2", "via_orderLimit=0"}));
}

void TestSettingsChanges::failedWrites()
{
    const TestDatabase lost(QStringLiteral("lost"));
    const QString title = QStringLiteral("Chyba databázy");
    const QString text = QStringLiteral("Nepodarilo sa uložiť nastavenie!");
    const SettingsPage page(lost.db());
    lost.breakConnection();
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectBox(title, text);
    page.day(1)->click();
    boxes.expectBox(title, text);
    page.weeks()->setValue(9);
    boxes.expectBox(title, text, QMessageBox::Ok, [](QMessageBox *) {
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    });
    page.rule()->setCurrentIndex(2);
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 3);
    QVERIFY(log.critical().at(0).startsWith(QLatin1String("SettingsRepository(setCheckState) - SQL ERROR: ")));
    QVERIFY(log.critical().at(1).startsWith(QLatin1String("SettingsRepository(setShownWeeks) - SQL ERROR: ")));
    QVERIFY(log.critical().at(2).startsWith(QLatin1String("SettingsRepository(orderLimit) - SQL ERROR: ")));
    // The form stays as the user left it.
    QCOMPARE(page.days(), QStringLiteral("234567"));
    QCOMPARE(page.weeks()->value(), 9);
    QCOMPARE(page.rule()->currentIndex(), 2);
}

void TestSettingsChanges::enablingLimitsAsksNothing()
{
    m_data->fillSlots(1);
    m_data->item(11);
    const SettingsPage page(m_database->db());
    m_data->takeWrites();
    BoxAnswerer boxes;
    page.limits()->click();
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 0);
    QCOMPARE(m_data->takeWrites(), QStringList{"via_orderLimitEnabled=1"});
    QCOMPARE(m_data->limits(), QStringList{"5"});
    QVERIFY(SettingsPage(m_database->db()).limits()->isChecked());
}

void TestSettingsChanges::decliningKeepsTheMark_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("no") << 0;
    QTest::newRow("enter") << int(Qt::Key_Return);
    QTest::newRow("escape") << int(Qt::Key_Escape);
}

void TestSettingsChanges::decliningKeepsTheMark()
{
    QFETCH(int, key);
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    m_data->fillSlots(1);
    m_data->item(11);
    SettingsPage page(m_database->db());
    m_data->takeWrites();
    activate(page);
    page.limits()->setFocus();
    QTimer::singleShot(0, &page, [key] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        if (key == 0) {
            box->button(QMessageBox::No)->click();
            return;
        }
        QApplication::setActiveWindow(box);
        QVERIFY(QTest::qWaitForWindowActive(box));
        QTest::keyClick(box, static_cast<Qt::Key>(key));
    });
    QTest::keyClick(page.limits(), Qt::Key_Space);
    QVERIFY(page.limits()->isChecked());
    QCOMPARE(m_data->takeWrites(), QStringList());
    QCOMPARE(m_data->limits(), QStringList{"5"});
}

void TestSettingsChanges::questionBox()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const SettingsPage page(m_database->db());
    BoxAnswerer boxes;
    boxes.expectBox(limitsTitle(), limitsQuestion(), QMessageBox::No, [](QMessageBox *box) {
        QCOMPARE(box->icon(), QMessageBox::Warning);
        QCOMPARE(box->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box->standardButton(box->defaultButton()), QMessageBox::No);
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QVERIFY(!QGuiApplication::overrideCursor());
        const auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
        QCOMPARE(label->text().count(QLatin1Char('\n')), 2);
        QVERIFY(label->height() >= 3 * label->fontMetrics().lineSpacing());
    });
    page.limits()->click();
    BOXES_DONE(boxes);
}

void TestSettingsChanges::confirmingRemovesAllLimits()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    m_data->fillSlots(2);
    m_data->item(11, 5);
    m_data->item(12, 0);
    m_data->item(12, 20);
    const SettingsPage page(m_database->db());
    m_data->takeWrites();
    BoxAnswerer boxes;
    boxes.expectBox(limitsTitle(), limitsQuestion(), QMessageBox::Yes);
    page.limits()->click();
    BOXES_DONE(boxes);
    QVERIFY(!page.limits()->isChecked());
    QCOMPARE(m_data->limits(), (QStringList{"0", "0", "0"}));
    QCOMPARE(m_data->takeWrites(), QStringList{"via_orderLimitEnabled=0"});
    QVERIFY(!SettingsPage(m_database->db()).limits()->isChecked());
}

void TestSettingsChanges::confirmingWithoutAnyLimit()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const SettingsPage page(m_database->db());
    m_data->takeWrites();
    BoxAnswerer boxes;
    boxes.expectBox(limitsTitle(), limitsQuestion(), QMessageBox::Yes);
    page.limits()->click(); // no row changes, which is no failure
    BOXES_DONE(boxes);
    QCOMPARE(m_data->takeWrites(), QStringList{"via_orderLimitEnabled=0"});
}

void TestSettingsChanges::failedRemovalKeepsTheMark()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const SettingsPage page(m_database->db());
    m_data->takeWrites();
    m_database->exec(QStringLiteral("RENAME TABLE via_orderables TO elsewhere"));
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectBox(limitsTitle(), limitsQuestion(), QMessageBox::Yes);
    boxes.expectBox(limitsTitle(), QStringLiteral("Existujúce limity sa nepodarilo vymazať!"), QMessageBox::Ok,
                    [](QMessageBox *box) {
                        QCOMPARE(box->icon(), QMessageBox::Critical);
                        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
                        QVERIFY(!QGuiApplication::overrideCursor());
                    });
    page.limits()->click();
    m_database->exec(QStringLiteral("RENAME TABLE elsewhere TO via_orderables"));
    BOXES_DONE(boxes);
    QVERIFY(page.limits()->isChecked());
    QCOMPARE(m_data->takeWrites(), QStringList());
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(
        QLatin1String("SettingsRepository(removeAllOrderableLimits) - SQL ERROR: ")));
}

void TestSettingsChanges::failedMarkIsLogged()
{
    const TestDatabase lost(QStringLiteral("lost"));
    const SettingsPage page(lost.db());
    lost.breakConnection();
    BoxAnswerer boxes;
    LogCatcher log;
    page.limits()->click();
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 0);
    QVERIFY(page.limits()->isChecked());
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("SettingsRepository::variableSet ERROR:")));
}

void TestSettingsChanges::pageMayDieInTheQuestion()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const QPointer<SettingsPage> page(new SettingsPage(m_database->db()));
    QTimer::singleShot(0, this, [&page] { delete page; });
    page->on_cbOrderLimit_clicked(false);
    QVERIFY(!page);
    QCOMPARE(m_data->get("via_orderLimitEnabled"), QStringLiteral("1"));
}

void TestSettingsChanges::pageMayDieInTheFailure()
{
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const QPointer<SettingsPage> page(new SettingsPage(m_database->db()));
    m_database->exec(QStringLiteral("RENAME TABLE via_orderables TO elsewhere"));
    QTimer::singleShot(0, this, [this, &page] {
        QTimer::singleShot(0, this, [&page] {
            QTRY_COMPARE(qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->text(),
                         QStringLiteral("Existujúce limity sa nepodarilo vymazať!"));
            delete page;
        });
        qobject_cast<QMessageBox *>(QApplication::activeModalWidget())->button(QMessageBox::Yes)->click();
    });
    page->on_cbOrderLimit_clicked(false);
    m_database->exec(QStringLiteral("RENAME TABLE elsewhere TO via_orderables"));
    QVERIFY(!page);
    QCOMPARE(m_data->get("via_orderLimitEnabled"), QStringLiteral("1"));
}

QTEST_MAIN(TestSettingsChanges)
#include "tst_settingschanges.moc"
