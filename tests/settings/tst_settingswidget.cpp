#include "session/session.h"
#include "settings/settingspage.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <memory>

namespace {

QStringList activeDays(const QString &codes)
{
    QStringList writes;
    const QStringList sums = codes.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &code : sums)
        writes.append(QStringLiteral("via_activeDays=") + code);
    return writes;
}

} // namespace

/// What the page shows when it opens, and what it writes by that.
class TestSettingsWidget : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void metaObject();
    void form();
    void labels_data();
    void labels();
    void tabOrder();
    void keepsItsWidth();
    void nothingIsCut();
    void readOnlyIsNotLookedAt();
    void daysAreShownAndWrittenBoxByBox_data();
    void daysAreShownAndWrittenBoxByBox();
    void weeksAreShownAndWritten_data();
    void weeksAreShownAndWritten();
    void ruleIsShownAndWritten_data();
    void ruleIsShownAndWritten();
    void limitsMark_data();
    void limitsMark();
    void sequenceOfAllWrites();
    void logsTheDayCode();
    void emptySettings();
    void setStateShowsTheDayCode();
    void closedHandle();
    void closedHandleButtons();
    void lostConnection();

private:
    /// Values that the form shows anyway, so that opening the page writes nothing.
    void quietSettings() const
    {
        m_data->set("via_activeDays", QStringLiteral("0"));
        m_data->set("via_shownWeeks", QStringLiteral("0"));
    }

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SettingsData> m_data;
};

void TestSettingsWidget::init()
{
    m_data = std::make_unique<SettingsData>(*m_database);
}

void TestSettingsWidget::metaObject()
{
    QStringList expected;
    for (int day = 1; day <= 7; ++day)
        expected.append(QStringLiteral("slot void on_checkBox_%1_stateChanged(int)").arg(day));
    expected += QStringList{"slot void calculateDays()",
                            "slot void setState()",
                            "slot void on_spinBox_valueChanged(int)",
                            "slot void resetModel()",
                            "slot void itemSelection()",
                            "slot void on_pushButtonPridat_2_clicked()",
                            "slot void on_pushButtonUpravit_2_clicked()",
                            "slot void on_pushButtonZmazat_2_clicked()",
                            "slot void on_listViewSegments_doubleClicked(QModelIndex)",
                            "slot void on_comboBoxOrderLimit_currentIndexChanged(int)",
                            "slot void on_cbOrderLimit_clicked(bool)"};
    QCOMPARE(metaMethods(SettingsWidget::staticMetaObject), expected);
}

void TestSettingsWidget::form()
{
    const SettingsPage page(m_database->db());
    QStringList days;
    for (int day = 1; day <= 7; ++day)
        days.append(page.day(day)->text());
    QCOMPARE(days, (QStringList{"Pondelok", "Utorok", "Streda", "Štvrtok", "Piatok", "Sobota", "Nedeľa"}));
    QCOMPARE(page.add()->text(), QStringLiteral("Pridať"));
    QCOMPARE(page.remove()->text(), QStringLiteral("Zmazať"));
    QCOMPARE(page.edit()->text(), QStringLiteral("Upraviť"));
    QStringList rules;
    for (int index = 0; index < page.rule()->count(); ++index)
        rules.append(page.rule()->itemText(index));
    QCOMPARE(rules, (QStringList{"Jeden kus na deň", "Jeden kus na typy výdaja", "Bez obmedzení"}));
    QVERIFY(!page.rule()->isEditable());
    QCOMPARE(page.limits()->text(), QStringLiteral("povoliť limit počtu objednávok"));
    QCOMPARE(page.limits()->toolTip(),
             QStringLiteral("<html><head/><body><p>Povolením limitu počtu objednávok získate možnosť nastaviť pri "
                            "vytváraní denného menu maximálny počet všetkých objednávok na jedlo v daný "
                            "deň.</p></body></html>"));
    QCOMPARE(page.weeks()->minimum(), 0);
    QCOMPARE(page.weeks()->maximum(), 99);
    QCOMPARE(page.list()->styleSheet(), QStringLiteral("background-color: white"));
    QCOMPARE(page.list()->modelColumn(), 1);
    QCOMPARE(page.list()->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(page.list()->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(!page.list()->accessibleName().isEmpty());
}

void TestSettingsWidget::labels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("buddy");
    QTest::newRow("label_2") << "Nastavenia"
                             << "";
    QTest::newRow("label_3") << "Počet týždňov menu zobrazených dopredu"
                             << "spinBox";
    QTest::newRow("label") << "Zobrazené dni v menu"
                           << "";
    QTest::newRow("label_4") << "Typy výdajov"
                             << "listViewSegments";
    QTest::newRow("label_5") << "Obmedzenia objednávania"
                             << "comboBoxOrderLimit";
}

void TestSettingsWidget::labels()
{
    QFETCH(QString, buddy);
    const SettingsPage page(m_database->db());
    const auto *label = page.find<QLabel>(QTest::currentDataTag());
    QVERIFY(label);
    QTEST(label->text(), "text");
    QCOMPARE(label->buddy() ? label->buddy()->objectName() : QString(), buddy);
    QCOMPARE(label->property("titleText").toBool(), label->objectName() == QLatin1String("label_2"));
}

void TestSettingsWidget::tabOrder()
{
    m_data->fillSlots(1);
    SettingsPage page(m_database->db());
    page.select(0); // opens all three buttons
    activate(page);
    page.weeks()->setFocus();
    QStringList order;
    for (int stop = 0; stop < 14; ++stop) {
        order.append(page.focusWidget()->objectName());
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order.join(QLatin1Char(' ')),
             QStringLiteral("spinBox checkBox_1 checkBox_2 checkBox_3 checkBox_4 checkBox_5 checkBox_6 checkBox_7 "
                            "comboBoxOrderLimit cbOrderLimit listViewSegments pushButtonPridat_2 pushButtonZmazat_2 "
                            "pushButtonUpravit_2"));
    QCOMPARE(page.focusWidget()->objectName(), QStringLiteral("spinBox"));
}

void TestSettingsWidget::keepsItsWidth()
{
    SettingsPage page(m_database->db());
    activate(page);
    page.resize(1100, 700);
    QTRY_COMPARE(page.width(), 1100);
    const int fieldWidth = page.rule()->width();
    const int listWidth = page.list()->width();
    QVERIFY(listWidth > 300);
    QVERIFY2(page.list()->height() > 200, qPrintable(QString::number(page.list()->height())));
    page.resize(1650, 984);
    QTRY_COMPARE(page.find<QLabel>("label_2")->width(), 1650 - 2 * 9);
    QCOMPARE(page.rule()->width(), fieldWidth);
    QCOMPARE(page.list()->width(), listWidth);
    QVERIFY(page.minimumSizeHint().width() < 1100);
    QVERIFY(page.minimumSizeHint().height() < 700);
}

void TestSettingsWidget::nothingIsCut()
{
    for (const int percent : {100, 150}) {
        SettingsPage page(m_database->db());
        page.resize(1100, 700);
        QCOMPARE(cutTexts(page, percent), QStringList());
        QCOMPARE(page.width(), 1100);
    }
}

void TestSettingsWidget::readOnlyIsNotLookedAt()
{
    m_data->fillSlots(1);
    session().readOnly = true;
    SettingsPage page(m_database->db());
    session().readOnly = false;
    page.select(0);
    const QList<QWidget *> fields{page.day(1), page.weeks(), page.rule(),  page.limits(),
                                  page.add(),  page.edit(),  page.remove()};
    for (const QWidget *field : fields)
        QVERIFY2(field->isEnabled(), qPrintable(field->objectName()));
    m_data->takeWrites();
    page.day(1)->click();
    QCOMPARE(m_data->takeWrites(), activeDays("2222220"));
}

void TestSettingsWidget::daysAreShownAndWrittenBoxByBox_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("days");
    QTest::addColumn<QString>("writes");
    QTest::addColumn<QString>("kept");
    const auto row = [](const char *stored, const char *days, const char *writes, const char *kept) {
        QTest::newRow(stored) << stored << days << writes << kept;
    };
    row("22222", "12345", "2 22 222 2222 22222", "22222");
    row("2222222", "1234567", "2 22 222 2222 22222 222222 2222222", "2222222");
    row("2020202", "1357", "2 202 20202 2020202", "2020202");
    row("2200000", "67", "200000 2200000", "2200000");
    row("2", "1", "2", "2");
    row("2000000", "7", "2000000", "2000000");
    row("0", "", "", "0");
    row("1111111", "", "", "1111111"); // partly checked counts as off, and nothing is written over it
    row("3456789", "", "", "3456789");
    row("12", "1", "2", "2");
    row("22222222", "1234567", "2 22 222 2222 22222 222222 2222222", "2222222");
    row("-2222222", "", "", "-2222222");
    row("99999999999999999999", "", "", "99999999999999999999"); // beyond an int, which reads as 0
    row("nič", "", "", "nič");
}

void TestSettingsWidget::daysAreShownAndWrittenBoxByBox()
{
    QFETCH(QString, stored);
    QFETCH(QString, writes);
    quietSettings();
    m_data->set("via_activeDays", stored);
    const SettingsPage page(m_database->db());
    QTEST(page.days(), "days");
    QCOMPARE(m_data->takeWrites(), activeDays(writes));
    QTEST(m_data->get("via_activeDays"), "kept");
}

void TestSettingsWidget::weeksAreShownAndWritten_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("write");
    QTest::newRow("6") << 6 << "6";
    QTest::newRow("0") << 0 << "";
    QTest::newRow("99") << 99 << "99";
    QTest::newRow("150") << 99 << "99"; // above what the form can show
    QTest::newRow("-3") << 0 << "";
    QTest::newRow("veľa") << 0 << "";
}

void TestSettingsWidget::weeksAreShownAndWritten()
{
    QFETCH(QString, write);
    quietSettings();
    m_data->set("via_shownWeeks", QString::fromUtf8(QTest::currentDataTag()));
    const SettingsPage page(m_database->db());
    QTEST(page.weeks()->value(), "shown");
    QCOMPARE(m_data->takeWrites(),
             write.isEmpty() ? QStringList() : QStringList{QStringLiteral("via_shownWeeks=") + write});
}

void TestSettingsWidget::ruleIsShownAndWritten_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<QString>("write");
    QTest::newRow("0") << 0 << "";
    QTest::newRow("1") << 1 << "1";
    QTest::newRow("2") << 2 << "2";
    QTest::newRow("7") << -1 << "";
    QTest::newRow("-1") << -1 << "";
}

void TestSettingsWidget::ruleIsShownAndWritten()
{
    QFETCH(QString, write);
    quietSettings();
    m_data->set("via_orderLimit", QLatin1String(QTest::currentDataTag()));
    const SettingsPage page(m_database->db());
    QTEST(page.rule()->currentIndex(), "shown");
    QCOMPARE(m_data->takeWrites(),
             write.isEmpty() ? QStringList() : QStringList{QStringLiteral("via_orderLimit=") + write});
    QCOMPARE(m_data->get("via_orderLimit"), QLatin1String(QTest::currentDataTag()));
    QVERIFY(!QGuiApplication::overrideCursor());
}

void TestSettingsWidget::limitsMark_data()
{
    QTest::addColumn<bool>("checked");
    QTest::newRow("1") << true;
    QTest::newRow("true") << true;
    QTest::newRow("0") << false;
    QTest::newRow("false") << false;
    QTest::newRow("") << false;
}

void TestSettingsWidget::limitsMark()
{
    quietSettings();
    m_data->set("via_orderLimitEnabled", QLatin1String(QTest::currentDataTag()));
    const SettingsPage page(m_database->db());
    QTEST(page.limits()->isChecked(), "checked");
    QCOMPARE(m_data->takeWrites(), QStringList());
}

void TestSettingsWidget::sequenceOfAllWrites()
{
    m_data->set("via_activeDays", QStringLiteral("22"));
    m_data->set("via_shownWeeks", QStringLiteral("6"));
    m_data->set("via_orderLimit", QStringLiteral("2"));
    m_data->set("via_orderLimitEnabled", QStringLiteral("1"));
    const SettingsPage page(m_database->db());
    QCOMPARE(m_data->takeWrites(),
             (QStringList{"via_orderLimit=2", "via_shownWeeks=6", "via_activeDays=2", "via_activeDays=22"}));
}

void TestSettingsWidget::logsTheDayCode()
{
    m_data->set("via_activeDays", QStringLiteral("2020202"));
    LogCatcher log;
    const SettingsPage page(m_database->db());
    QCOMPARE(log.lines(), QStringList{"2020202"});
}

void TestSettingsWidget::emptySettings()
{
    const SettingsPage page(m_database->db());
    QCOMPARE(page.days(), QStringLiteral("1234567"));
    QCOMPARE(page.weeks()->value(), 4);
    QCOMPARE(page.rule()->currentIndex(), 0);
    QVERIFY(!page.limits()->isChecked());
    QCOMPARE(m_data->takeWrites(), QStringList{"via_shownWeeks=4"} + activeDays("2 22 222 2222 22222 222222 2222222"));
}

void TestSettingsWidget::setStateShowsTheDayCode()
{
    m_data->set("via_activeDays", QStringLiteral("2020202"));
    SettingsPage page(m_database->db());
    m_data->takeWrites();
    page.setState(); // as the boxes stand
    QCOMPARE(page.days(), QStringLiteral("1357"));
    QCOMPARE(m_data->takeWrites(), QStringList());
    page.calculateDays();
    QCOMPARE(m_data->takeWrites(), activeDays("2020202"));
}

void TestSettingsWidget::closedHandle()
{
    BoxAnswerer boxes;
    LogCatcher log;
    const SettingsPage page(closedConnection(*m_database));
    BOXES_DONE(boxes);
    QCOMPARE(log.lines(), QStringList());
    QCOMPARE(page.days(), QString());
    QCOMPARE(page.weeks()->value(), 0);
    QCOMPARE(page.rule()->currentIndex(), 0);
    QVERIFY(!page.limits()->isChecked());
    QCOMPARE(page.names(), QStringList());
    QVERIFY(!page.edit()->isEnabled());
    QVERIFY(!page.remove()->isEnabled());
}

void TestSettingsWidget::closedHandleButtons()
{
    const QString title = QStringLiteral("Chyba databázy");
    const QString text = QStringLiteral("Nepodarilo sa uložiť nastavenie!");
    SettingsPage page(closedConnection(*m_database));
    BoxAnswerer boxes;
    boxes.expectBox(title, text);
    page.day(3)->click();
    boxes.expectBox(title, text);
    page.weeks()->setValue(5);
    boxes.expectBox(title, text);
    page.rule()->setCurrentIndex(1);
    page.limits()->click(); // asks nothing, and only logs that it failed
    boxes.expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) { dialog->reject(); });
    page.add()->click();
    BOXES_DONE(boxes);
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(page.names(), QStringList());
}

void TestSettingsWidget::lostConnection()
{
    const TestDatabase lost(QStringLiteral("lost"));
    const QSqlDatabase db = lost.db();
    lost.breakConnection();
    const QString title = QStringLiteral("Chyba databázy");
    BoxAnswerer boxes;
    for (int setting = 0; setting < 3; ++setting)
        boxes.expectBox(title, QStringLiteral("Nepodarilo sa načítať nastavenie!"));
    for (int write = 0; write < 1 + 7; ++write) // the defaults: 4 weeks, and all days box by box
        boxes.expectBox(title, QStringLiteral("Nepodarilo sa uložiť nastavenie!"));
    LogCatcher log;
    const SettingsPage page(db);
    BOXES_DONE(boxes);
    QCOMPARE(page.days(), QStringLiteral("1234567"));
    QCOMPARE(page.weeks()->value(), 4);
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentModel - setQuery ERROR: [")).size(), 1);
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(TestSettingsWidget)
#include "tst_settingswidget.moc"
