#include "board/menueditor.h"
#include "support/logcatcher.h"

#include <QLineEdit>

#include <memory>

/// The menu editor under mouse and keyboard: focus, selection, double clicks, Enter and typed limits.
class TestDialogMenuInput : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init();

    void selectionFollowsTheMovedRow_data();
    void selectionFollowsTheMovedRow();
    void doubleClicks();
    void doubleClickOnALimitOpensNoEditor();
    void worksByKeyboard();
    void tabLeadsThroughTheForm();
    void enterOutsideOfButtonsSavesNothing();
    void limitIsDigitsOrNothing_data();
    void limitIsDigitsOrNothing();
    void limitBeingTypedIsNotLostByAMove();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestDialogMenuInput::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestDialogMenuInput::init()
{
    m_data = std::make_unique<DayData>(*m_database);
    m_data->item(12, 1);
    m_data->item(22, 2, 0, 20);
    m_data->item(23, 3);
    m_data->item(24, 4);
}

void TestDialogMenuInput::selectionFollowsTheMovedRow_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("name") << 0;
    QTest::newRow("limit") << 2;
}

void TestDialogMenuInput::selectionFollowsTheMovedRow()
{
    QFETCH(int, column);
    MenuEditor editor(m_database->db());
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

void TestDialogMenuInput::doubleClicks()
{
    MenuEditor editor(m_database->db());
    show(editor);
    doubleClick(editor.list(), MenuEditor::indexOf(*editor.list()->model(), QStringLiteral("DOD jedlo 21")));
    QCOMPARE(editor.menu().at(3), QStringLiteral("DOD jedlo 21"));
    QVERIFY(editor.list()->hasFocus());
    doubleClick(editor.table(), MenuEditor::indexOf(*editor.table()->model(), QStringLiteral("DOD jedlo 12")));
    QCOMPARE(editor.menu().constFirst(), QStringLiteral(" Hlavné jedlá"));
    QCOMPARE(editor.foods().constLast(), QStringLiteral("DOD jedlo 12"));
}

void TestDialogMenuInput::doubleClickOnALimitOpensNoEditor()
{
    MenuEditor editor(m_database->db());
    show(editor);
    LogCatcher log;
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(50);
    for (const char *name : {"DOD jedlo 22", "DOD jedlo 24"}) { // one with a row below it and the last one
        const QModelIndex limit =
            MenuEditor::indexOf(*editor.table()->model(), QString::fromUtf8(name)).siblingAtColumn(2);
        editor.table()->setCurrentIndex(limit);
        doubleClick(editor.table(), limit);
        QVERIFY(!editor.menu().contains(QString::fromUtf8(name)));
        QTest::qWait(100);
        QVERIFY(!editor.table()->findChild<QLineEdit *>());
    }
    QApplication::setDoubleClickInterval(interval);
    QCOMPARE(log.lines(QtWarningMsg), QStringList());
}

void TestDialogMenuInput::worksByKeyboard()
{
    MenuEditor editor(m_database->db());
    show(editor);
    QVERIFY(editor.filter()->hasFocus());
    QTest::keyClicks(editor.filter(), QStringLiteral("31"));
    editor.list()->setFocus();
    QTest::keyClick(editor.list(), Qt::Key_Down);
    QTest::keyClick(editor.list(), Qt::Key_Return);
    QCOMPARE(editor.menu().constLast(), QStringLiteral("DOD jedlo 31"));
    QVERIFY(editor.list()->hasFocus());
    editor.filter()->clear();
    editor.selectFood(QStringLiteral("DOD jedlo 11"));
    editor.tool("toolButtonR")->setFocus();
    QTest::keyClick(editor.tool("toolButtonR"), Qt::Key_Space);
    QCOMPARE(editor.menu().at(1), QStringLiteral("DOD jedlo 11"));
    QVERIFY(editor.list()->hasFocus());
    editor.selectItem(QStringLiteral("DOD jedlo 11"));
    editor.tool("toolButtonL")->setFocus();
    QTest::keyClick(editor.tool("toolButtonL"), Qt::Key_Space);
    QCOMPARE(editor.menu().at(1), QStringLiteral("DOD jedlo 12"));
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

void TestDialogMenuInput::tabLeadsThroughTheForm()
{
    MenuEditor editor(m_database->db());
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

void TestDialogMenuInput::enterOutsideOfButtonsSavesNothing()
{
    const QStringList before = m_data->items();
    MenuEditor editor(m_database->db());
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

void TestDialogMenuInput::limitIsDigitsOrNothing_data()
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

void TestDialogMenuInput::limitIsDigitsOrNothing()
{
    QFETCH(QString, typed);
    MenuEditor editor(m_database->db());
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

void TestDialogMenuInput::limitBeingTypedIsNotLostByAMove()
{
    MenuEditor editor(m_database->db());
    show(editor);
    editor.selectItem(QStringLiteral("DOD jedlo 22"), 2);
    QTest::keyClick(editor.table(), Qt::Key_7);
    QVERIFY(editor.table()->findChild<QLineEdit *>());
    QTest::mouseClick(editor.tool("toolButtonD"), Qt::LeftButton);
    QCOMPARE(editor.currentItem(), QStringLiteral("DOD jedlo 22"));
    QCOMPARE(editor.table()->currentIndex().row(), 4);
    QCOMPARE(editor.table()->currentIndex().data().toString(), QStringLiteral("7"));
}

QTEST_MAIN(TestDialogMenuInput)
#include "tst_dialogmenuinput.moc"
