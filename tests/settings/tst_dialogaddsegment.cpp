#include "settings/segmenteditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <memory>

/// The editor of a slot: its form, its save button and its input. What it writes about positions has a test of its own.
class TestDialogAddSegment : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void metaObject();
    void form();
    void nothingIsCut();
    void newSlot();
    void newSlotInAnEmptyList();
    void existingSlot();
    void slotWithoutTimes();
    void slotWithCrossedTimes();
    void nameOpensAndClosesTheSave();
    void timesOpenAndCloseTheSave_data();
    void timesOpenAndCloseTheSave();
    void laterEventWins();
    void textsAreStoredAsTyped_data();
    void textsAreStoredAsTyped();
    void keyboard();
    void escapeWritesNothing();
    void closedHandle();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SettingsData> m_data;
};

void TestDialogAddSegment::init()
{
    m_data = std::make_unique<SettingsData>(*m_database);
    m_data->fillSlots(3);
}

void TestDialogAddSegment::metaObject()
{
    QCOMPARE(metaMethods(DialogAddSegment::staticMetaObject),
             (QStringList{"slot void on_lineEditTitle_textEdited(QString)", "slot void on_pushButtonSave_clicked()",
                          "slot void on_pushButtonCancel_clicked()", "slot void on_pushButtonDelete_clicked()",
                          "slot void on_timeEditStop_userTimeChanged(QTime)",
                          "slot void on_timeEdit_userTimeChanged(QTime)"}));
}

void TestDialogAddSegment::form()
{
    const SegmentEditor editor(m_database->db());
    QCOMPARE(editor.name()->placeholderText(), QStringLiteral("Názov"));
    QCOMPARE(editor.remove()->text(), QStringLiteral("Zmazať"));
    QCOMPARE(editor.cancel()->text(), QStringLiteral("Zrušiť"));
    QCOMPARE(editor.save()->text(), QStringLiteral("Uložiť"));
    QStringList labels;
    const QList<QLabel *> all = editor.findChildren<QLabel *>();
    for (const QLabel *label : all)
        labels.append(label->text() + QLatin1Char(' ') + label->buddy()->objectName());
    labels.sort();
    QCOMPARE(labels,
             (QStringList{"Koniec výdaju: timeEditStop", "Názov Výdaju: lineEditTitle", "Poradie v menu: comboBox",
                          "Začiatok výdaju: timeEdit"}));
}

void TestDialogAddSegment::nothingIsCut()
{
    for (const int percent : {100, 150}) {
        SegmentEditor editor(m_database->db(), 12);
        QCOMPARE(cutTexts(editor, percent), QStringList());
    }
}

void TestDialogAddSegment::newSlot()
{
    const SegmentEditor editor(m_database->db());
    QCOMPARE(editor.windowTitle(), QStringLiteral("Pridanie Segmentu"));
    QCOMPARE(editor.property("editState").toString(), QStringLiteral("add"));
    QCOMPARE(editor.places(), (QStringList{"1", "2", "3", "4"}));
    QCOMPARE(editor.place()->currentText(), QStringLiteral("4"));
    QCOMPARE(editor.name()->text(), QString());
    QVERIFY(editor.cancel()->isDefault());
    QVERIFY(!editor.save()->isDefault());
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(!editor.remove()->isEnabled());
}

void TestDialogAddSegment::newSlotInAnEmptyList()
{
    m_database->exec(QStringLiteral("DELETE FROM via_segments"));
    SegmentEditor editor(m_database->db());
    QCOMPARE(editor.places(), QStringList{"1"});
    editor.type(QStringLiteral("Obed"));
    editor.save()->click();
    QCOMPARE(m_data->order(), QStringList{"1 Obed"});
    QCOMPARE(editor.result(), 1);
}

void TestDialogAddSegment::existingSlot()
{
    const SegmentEditor editor(m_database->db(), 12);
    QCOMPARE(editor.windowTitle(), QStringLiteral("Úprava Segmentu"));
    QCOMPARE(editor.property("editState").toString(), QStringLiteral("edit"));
    QCOMPARE(editor.places(), (QStringList{"1", "2", "3"}));
    QCOMPARE(editor.place()->currentText(), QStringLiteral("2"));
    QCOMPARE(editor.name()->text(), QStringLiteral("slot 2"));
    QCOMPARE(editor.start()->time(), QTime(2, 0));
    QCOMPARE(editor.stop()->time(), QTime(2, 30));
    QVERIFY(editor.save()->isDefault());
    QVERIFY(editor.save()->isEnabled());
    QVERIFY(editor.remove()->isEnabled());
}

void TestDialogAddSegment::slotWithoutTimes()
{
    m_database->exec(QStringLiteral("UPDATE via_segments SET start = NULL, stop = NULL WHERE segmentID = 12"));
    const SegmentEditor editor(m_database->db(), 12);
    QCOMPARE(editor.start()->time(), QTime(0, 0));
    QCOMPARE(editor.stop()->time(), QTime(0, 0));
    QVERIFY(editor.save()->isEnabled());
}

void TestDialogAddSegment::slotWithCrossedTimes()
{
    m_database->exec(QStringLiteral("UPDATE via_segments SET start = '13:00', stop = '11:00' WHERE segmentID = 12"));
    const SegmentEditor editor(m_database->db(), 12);
    QVERIFY(!editor.save()->isEnabled());
    editor.type(QStringLiteral("Obed"));
    QVERIFY(editor.save()->isEnabled());
    editor.save()->click();
    QCOMPARE(m_data->records().at(1), QStringLiteral("12|Obed|13:00|11:00|2"));
}

void TestDialogAddSegment::nameOpensAndClosesTheSave()
{
    const SegmentEditor editor(m_database->db(), 12);
    editor.type(QString());
    QVERIFY(!editor.save()->isEnabled());
    QVERIFY(editor.cancel()->isDefault());
    editor.type(QStringLiteral(" ")); // a blank is a text
    QVERIFY(editor.save()->isEnabled());
    QVERIFY(editor.save()->isDefault());
    QVERIFY(!editor.cancel()->isDefault());
}

void TestDialogAddSegment::timesOpenAndCloseTheSave_data()
{
    QTest::addColumn<QTime>("start");
    QTest::addColumn<QTime>("stop");
    QTest::addColumn<bool>("open");
    QTest::newRow("apart") << QTime(11, 0) << QTime(13, 0) << true;
    QTest::newRow("equal") << QTime(11, 0) << QTime(11, 0) << true;
    QTest::newRow("a minute short") << QTime(11, 1) << QTime(11, 0) << false;
    QTest::newRow("over midnight") << QTime(22, 0) << QTime(2, 0) << false;
    QTest::newRow("whole day") << QTime(0, 0) << QTime(23, 59) << true;
}

void TestDialogAddSegment::timesOpenAndCloseTheSave()
{
    QFETCH(QTime, start);
    QFETCH(QTime, stop);
    SegmentEditor editor(m_database->db(), 12);
    editor.start()->setTime(start);
    editor.save()->setEnabled(false);
    editor.on_timeEdit_userTimeChanged(start);
    editor.stop()->setTime(stop);
    QTEST(editor.save()->isEnabled(), "open");
    SegmentEditor other(m_database->db(), 12);
    other.stop()->setTime(stop);
    other.start()->setTime(start);
    QTEST(other.save()->isEnabled(), "open");
}

void TestDialogAddSegment::laterEventWins()
{
    const SegmentEditor editor(m_database->db());
    editor.stop()->setTime(QTime(12, 0));
    QVERIFY(editor.save()->isEnabled()); // without a name
    editor.start()->setTime(QTime(13, 0));
    QVERIFY(!editor.save()->isEnabled());
    editor.type(QStringLiteral("Obed"));
    QVERIFY(editor.save()->isEnabled()); // with the times crossed
    editor.stop()->setTime(QTime(12, 30));
    QVERIFY(!editor.save()->isEnabled());
    editor.stop()->setTime(QTime(13, 0));
    QVERIFY(editor.save()->isEnabled());
    editor.type(QString());
    QVERIFY(!editor.save()->isEnabled());
    editor.stop()->setTime(QTime(14, 0));
    QVERIFY(editor.save()->isEnabled());
    editor.save()->click();
    QCOMPARE(m_data->records().constLast().section(QLatin1Char('|'), 1), QStringLiteral("|13:00|14:00|4"));
}

void TestDialogAddSegment::textsAreStoredAsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("quotes") << QStringLiteral("O'Brien \"x\" \\ \\n `y`");
    QTest::newRow("placeholders") << QStringLiteral("100% %1 %2 %s :name ?");
    QTest::newRow("markup") << QStringLiteral("<b>tučné</b> &amp; <img src=x>");
    QTest::newRow("emoji") << QStringLiteral("\U0001F372 obed");
    QTest::newRow("right to left") << QStringLiteral("\u05E9\u05DC\u05D5\u05DD \u202Eobed");
    QTest::newRow("blanks") << QStringLiteral("  obed  ");
    QTest::newRow("10,000 characters") << QString(10000, QLatin1Char('x'));
}

void TestDialogAddSegment::textsAreStoredAsTyped()
{
    QFETCH(QString, name);
    SegmentEditor adding(m_database->db());
    adding.name()->setText(name);
    adding.on_lineEditTitle_textEdited(name);
    adding.save()->click();
    const QString stored = QStringLiteral("SELECT name FROM via_segments WHERE segmentID = %1");
    const int key = m_database->value(QStringLiteral("SELECT MAX(segmentID) FROM via_segments")).toInt();
    QCOMPARE(m_database->value(stored.arg(key)).toString(), name);
    SegmentEditor editing(m_database->db(), uint(key));
    QCOMPARE(editing.name()->text(), name);
    activate(editing);
    QVERIFY(editing.width() < 800);
    editing.save()->click();
    QCOMPARE(m_database->value(stored.arg(key)).toString(), name);
    QCOMPARE(m_data->order().size(), 4);
}

void TestDialogAddSegment::keyboard()
{
    SegmentEditor editor(m_database->db());
    activate(editor);
    QCOMPARE(editor.focusWidget(), editor.name());
    QTest::keyClicks(editor.name(), QStringLiteral("Obed"));
    QTest::keyClick(editor.name(), Qt::Key_Tab);
    QCOMPARE(editor.focusWidget(), editor.place());
    QTest::keyClick(editor.place(), Qt::Key_Home);
    QTest::keyClick(editor.place(), Qt::Key_Tab);
    QCOMPARE(editor.focusWidget(), editor.start());
    QTest::keyClicks(editor.start(), QStringLiteral("1130"));
    QTest::keyClick(editor.start(), Qt::Key_Tab); // to the minutes, or on
    if (editor.focusWidget() == editor.start())
        QTest::keyClick(editor.start(), Qt::Key_Tab);
    QCOMPARE(editor.focusWidget(), editor.stop());
    QVERIFY(!editor.save()->isEnabled()); // 11:30 to 0:00 so far
    QTest::keyClicks(editor.stop(), QStringLiteral("1300"));
    QVERIFY(editor.save()->isEnabled());
    QTest::keyClick(editor.stop(), Qt::Key_Return);
    QCOMPARE(editor.result(), 1);
    QCOMPARE(m_data->records().constLast().section(QLatin1Char('|'), 1), QStringLiteral("Obed|11:30|13:00|1"));
}

void TestDialogAddSegment::escapeWritesNothing()
{
    const QStringList before = m_data->records();
    for (const int key : {Qt::Key_Escape, Qt::Key_Return}) { // without a name, Enter cancels too
        SegmentEditor editor(m_database->db());
        activate(editor);
        QTest::keyClick(editor.name(), static_cast<Qt::Key>(key));
        QTRY_VERIFY(!editor.isVisible());
        QCOMPARE(editor.result(), 0);
    }
    SegmentEditor editor(m_database->db(), 12);
    editor.type(QStringLiteral("Obed"));
    editor.cancel()->click();
    QCOMPARE(editor.result(), 0);
    QCOMPARE(m_data->records(), before);
}

void TestDialogAddSegment::closedHandle()
{
    LogCatcher log;
    BoxAnswerer boxes;
    SegmentEditor editor(closedConnection(*m_database));
    QCOMPARE(editor.places(), QStringList{"1"});
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentModel - setQuery ERROR: [")).size(), 1);
    editor.type(QStringLiteral("Obed"));
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa pridať typ výdaja!"));
    editor.save()->click();
    boxes.expectBox(QStringLiteral("Chyba databázy"), QStringLiteral("Nepodarilo sa načítať typ výdaja!"));
    const SegmentEditor existing(closedConnection(*m_database), 12);
    BOXES_DONE(boxes);
    QCOMPARE(existing.places(), QStringList());
    QCOMPARE(existing.place()->currentIndex(), -1);
}

QTEST_MAIN(TestDialogAddSegment)
#include "tst_dialogaddsegment.moc"
