#include "settings/dialogmenusetting.h"
#include "settings/settingspage.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"
#include "support/metamethods.h"

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

using MenuSetting = SegmentForm<DialogMenuSetting>;

QString deletionTitle()
{
    return QStringLiteral("Zmazanie Segmentu!");
}

QString deletionText(const QString &name)
{
    return QStringLiteral("Naozaj chcete zmazať segment ") + name + QLatin1Char('?');
}

QString refusedText()
{
    return QStringLiteral("Nepodarilo sa zmazať typ výdaja! Skúste najprv zmazať všetky priradené objednávateľné "
                          "položky ku typu výdaja.");
}

QString error()
{
    return QStringLiteral("Chyba databázy");
}

} // namespace

/// The list of service slots on the page and in its own window.
class TestSegmentLists : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void windowMetaObject();
    void windowForm();
    void names();
    void hostileNames();
    void buttonsFollowTheSelection();
    void arrowKeysSelect();
    void addOpensANewSlot();
    void editOpensTheSelectedSlot();
    void editByKeyboardAndDoubleClick();
    void failedReload();
    void deletionIsDeclined();
    void deletionClosesTheGap_data();
    void deletionClosesTheGap();
    void refusedDeletionOnThePage();
    void refusedDeletionInTheWindow();
    void deletionOfASlotThatIsGone();
    void lostConnection();
    void closedHandle();
    void formsMayDieMeanwhile();

private:
    template<typename Form> void checkDeclined();
    template<typename Form> void checkButtons(const char *after);
    template<typename Form> void checkEdit();
    template<typename Form> void checkDeath(const std::function<void(Form &)> &act);

    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<SettingsData> m_data;
};

void TestSegmentLists::init()
{
    m_data = std::make_unique<SettingsData>(*m_database);
    m_data->set("via_activeDays", QStringLiteral("0"));
    m_data->set("via_shownWeeks", QStringLiteral("0"));
    m_data->fillSlots(3);
}

void TestSegmentLists::windowMetaObject()
{
    QCOMPARE(metaMethods(DialogMenuSetting::staticMetaObject),
             (QStringList{"slot void on_pushButtonPridat_2_clicked()", "slot void on_pushButtonUpravit_2_clicked()",
                          "slot void on_pushButtonZmazat_2_clicked()", "slot void itemSelection()",
                          "slot void resetModel()"}));
}

void TestSegmentLists::windowForm()
{
    const MenuSetting window(m_database->db());
    QCOMPARE(window.size(), QSize(455, 437));
    QCOMPARE(window.windowTitle(), QStringLiteral("Typy výdajov"));
    QCOMPARE(window.add()->text(), QStringLiteral("Pridať"));
    QCOMPARE(window.remove()->text(), QStringLiteral("Zmazať"));
    QCOMPARE(window.edit()->text(), QStringLiteral("Upraviť"));
    QCOMPARE(window.list()->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(!window.list()->accessibleName().isEmpty());
    for (const int percent : {100, 150}) {
        MenuSetting scaled(m_database->db());
        QCOMPARE(cutTexts(scaled, percent), QStringList());
    }
}

void TestSegmentLists::names()
{
    m_database->exec(QStringLiteral("UPDATE via_segments SET position = 4 - position"));
    const QStringList expected{"slot 3", "slot 2", "slot 1"};
    const SettingsPage page(m_database->db());
    const QAbstractItemModelTester tester(page.list()->model());
    QCOMPARE(page.names(), expected);
    QCOMPARE(MenuSetting(m_database->db()).names(), expected);
}

void TestSegmentLists::hostileNames()
{
    const QStringList typed{QStringLiteral("O'Brien \"x\" \\"), QStringLiteral("100% %1 %s"),
                            QStringLiteral("<b>tučné</b> & <img src=x>"),
                            QStringLiteral("\U0001F372 \u05E9\u05DC\u05D5"), QString(10000, QLatin1Char('x'))};
    m_database->exec(QStringLiteral("DELETE FROM via_segments"));
    for (const QString &name : typed) {
        QString quoted = name;
        quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('\''), QLatin1String("''"));
        m_database->exec(QStringLiteral("INSERT INTO via_segments (name, position) SELECT '") + quoted
                         + QStringLiteral("', COUNT(*) + 1 FROM via_segments"));
    }
    SettingsPage page(m_database->db());
    activate(page);
    QCOMPARE(page.names(), typed);
    for (int row = 0; row < typed.size(); ++row) {
        page.select(row);
        BoxAnswerer boxes;
        boxes.expectBox(deletionTitle(), deletionText(typed.at(row)), QMessageBox::Cancel,
                        [](QMessageBox *box) { QCOMPARE(box->textFormat(), Qt::PlainText); });
        page.remove()->click();
        BOXES_DONE(boxes);
    }
}

template<typename Form> void TestSegmentLists::checkButtons(const char *after)
{
    const Form form(m_database->db());
    QCOMPARE(form.buttons(), QStringLiteral("*Pridať"));
    form.select(1);
    QCOMPARE(form.buttons(), QString::fromUtf8(after));
    form.select(2);
    QCOMPARE(form.buttons(), QString::fromUtf8(after));
}

void TestSegmentLists::buttonsFollowTheSelection()
{
    checkButtons<SettingsPage>("Pridať Zmazať *Upraviť");
    checkButtons<MenuSetting>("Pridať Zmazať *Upraviť");
    SettingsPage page(m_database->db());
    page.select(1);
    page.resetModel();
    QCOMPARE(page.buttons(), QStringLiteral("*Pridať"));
    page.itemSelection(); // nothing is current any more
    QCOMPARE(page.buttons(), QStringLiteral("*Pridať"));
}

void TestSegmentLists::arrowKeysSelect()
{
    SettingsPage page(m_database->db());
    activate(page);
    page.list()->setFocus();
    QTest::keyClick(page.list(), Qt::Key_Down);
    QTest::keyClick(page.list(), Qt::Key_Down);
    QTest::keyClick(page.list(), Qt::Key_Down);
    BoxAnswerer boxes;
    boxes.expectBox(deletionTitle(), deletionText(QStringLiteral("slot 3")), QMessageBox::Cancel);
    QTest::keyClick(page.remove(), Qt::Key_Space);
    BOXES_DONE(boxes);
}

void TestSegmentLists::addOpensANewSlot()
{
    const SettingsPage page(m_database->db());
    const MenuSetting window(m_database->db());
    page.select(0);
    window.select(0);
    for (QPushButton *button : {page.add(), window.add()}) {
        BoxAnswerer boxes;
        boxes.expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) {
            QCOMPARE(dialog->windowTitle(), QStringLiteral("Pridanie Segmentu"));
            QVERIFY(dialog->isModal());
            QTest::keyClicks(dialog->findChild<QLineEdit *>(), QStringLiteral("novy"));
            dialog->findChild<QPushButton *>(QStringLiteral("pushButtonSave"))->click();
        });
        button->click();
        BOXES_DONE(boxes);
    }
    QCOMPARE(page.names(), slotNames(3) + QStringList{"novy"});
    QCOMPARE(window.names(), slotNames(3) + (QStringList{"novy", "novy"}));
    QCOMPARE(page.buttons(), QStringLiteral("*Pridať"));
    QCOMPARE(window.buttons(), QStringLiteral("*Pridať"));
}

template<typename Form> void TestSegmentLists::checkEdit()
{
    const Form form(m_database->db());
    form.select(1);
    m_database->exec(QStringLiteral("UPDATE via_segments SET name = 'obed' WHERE segmentID = 13"));
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogAddSegment"), [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Úprava Segmentu"));
        QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("lineEditTitle"))->text(), QStringLiteral("slot 2"));
        dialog->reject();
    });
    form.edit()->click();
    BOXES_DONE(boxes);
    QCOMPARE(form.names(), (QStringList{"slot 1", "slot 2", "obed"})); // loaded anew, although nothing was saved
    QCOMPARE(form.buttons(), QStringLiteral("*Pridať"));
}

void TestSegmentLists::editOpensTheSelectedSlot()
{
    checkEdit<SettingsPage>();
    checkEdit<MenuSetting>();
}

void TestSegmentLists::editByKeyboardAndDoubleClick()
{
    SettingsPage page(m_database->db());
    activate(page);
    const auto expectSlot = [](BoxAnswerer *boxes, const char *name) {
        const QString expected = QString::fromUtf8(name);
        boxes->expectDialog(QStringLiteral("DialogAddSegment"), [expected](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("lineEditTitle"))->text(), expected);
            dialog->reject();
        });
    };
    BoxAnswerer boxes;
    page.list()->setFocus();
    QTest::keyClick(page.list(), Qt::Key_Return); // nothing selected: nothing opens
    page.select(2);
    expectSlot(&boxes, "slot 3");
    QTest::keyClick(page.list(), Qt::Key_Return);
    const QPoint middle = page.list()->visualRect(page.list()->model()->index(1, 1)).center();
    expectSlot(&boxes, "slot 2");
    QTest::mouseClick(page.list()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseDClick(page.list()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    BOXES_DONE(boxes);
    QCOMPARE(boxes.answered(), 2);
}

void TestSegmentLists::failedReload()
{
    SettingsPage page(m_database->db());
    m_database->exec(QStringLiteral("RENAME TABLE via_segments TO elsewhere"));
    LogCatcher log;
    BoxAnswerer boxes;
    page.resetModel();
    m_database->exec(QStringLiteral("RENAME TABLE elsewhere TO via_segments"));
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().size(), 1);
    QVERIFY(log.critical().constFirst().startsWith(QLatin1String("SegmentModel - setQuery ERROR: [1146]: ")));
    QCOMPARE(page.names(), QStringList());
    page.resetModel();
    QCOMPARE(page.names(), slotNames(3)); // the names again, not the keys
}

template<typename Form> void TestSegmentLists::checkDeclined()
{
    const Form form(m_database->db());
    form.select(1);
    BoxAnswerer boxes;
    boxes.expectBox(deletionTitle(), deletionText(QStringLiteral("slot 2")), QMessageBox::Cancel, [](QMessageBox *box) {
        QCOMPARE(box->standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        QCOMPARE(box->standardButton(box->defaultButton()), QMessageBox::Cancel);
    });
    form.remove()->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->order(), inOrder(slotNames(3)));
    QCOMPARE(form.list()->currentIndex().row(), 1); // not loaded anew
    QCOMPARE(form.buttons(), QStringLiteral("Pridať Zmazať *Upraviť"));
}

void TestSegmentLists::deletionIsDeclined()
{
    checkDeclined<SettingsPage>();
    checkDeclined<MenuSetting>();
}

void TestSegmentLists::deletionClosesTheGap_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("position");
    for (int count = 1; count <= 6; ++count) {
        for (int position = 1; position <= count; ++position)
            QTest::newRow(qPrintable(QStringLiteral("%1 of %2").arg(position).arg(count))) << count << position;
    }
}

void TestSegmentLists::deletionClosesTheGap()
{
    QFETCH(int, count);
    QFETCH(int, position);
    SettingsPage page(m_database->db());
    MenuSetting window(m_database->db());
    const auto check = [&](auto &form) {
        m_database->exec(QStringLiteral("DELETE FROM via_segments"));
        m_data->fillSlots(count);
        form.resetModel();
        form.select(position - 1);
        QStringList left = slotNames(count);
        const QString name = left.takeAt(position - 1);
        BoxAnswerer boxes;
        LogCatcher log;
        boxes.expectBox(deletionTitle(), deletionText(name), QMessageBox::Ok);
        form.remove()->click();
        BOXES_DONE(boxes);
        QCOMPARE(log.lines(QtDebugMsg), QStringList{QStringLiteral("deleting segment with ID: 1%1").arg(position)});
        QCOMPARE(m_data->order(), inOrder(left));
        QCOMPARE(form.names(), left);
        QCOMPARE(form.buttons(), QStringLiteral("*Pridať"));
    };
    check(page);
    check(window);
}

void TestSegmentLists::refusedDeletionOnThePage()
{
    m_data->item(12);
    const SettingsPage page(m_database->db());
    page.select(1);
    BoxAnswerer boxes;
    boxes.expectBox(deletionTitle(), deletionText(QStringLiteral("slot 2")), QMessageBox::Ok);
    boxes.expectBox(error(), refusedText());
    page.remove()->click();
    BOXES_DONE(boxes);
    QCOMPARE(m_data->order(), inOrder(slotNames(3)));
    QCOMPARE(page.buttons(), QStringLiteral("*Pridať"));
}

void TestSegmentLists::refusedDeletionInTheWindow()
{
    m_data->item(12);
    const MenuSetting window(m_database->db());
    window.select(1);
    BoxAnswerer boxes;
    boxes.expectBox(deletionTitle(), deletionText(QStringLiteral("slot 2")), QMessageBox::Ok);
    boxes.expectBox(error(), refusedText());
    window.remove()->click();
    BOXES_DONE(boxes);
    // Unlike on the page, what is behind moves up all the same.
    QCOMPARE(m_data->order(), (QStringList{"1 slot 1", "2 slot 2", "2 slot 3"}));
    QCOMPARE(window.buttons(), QStringLiteral("*Pridať"));
}

void TestSegmentLists::deletionOfASlotThatIsGone()
{
    const SettingsPage page(m_database->db());
    page.select(0);
    m_database->exec(QStringLiteral("DELETE FROM via_segments WHERE segmentID = 11"));
    m_database->exec(QStringLiteral("UPDATE via_segments SET position = position - 1"));
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectBox(deletionTitle(), deletionText(QString()), QMessageBox::Ok);
    page.remove()->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.lines(QtDebugMsg), QStringList{"deleting segment with ID: 11"});
    QCOMPARE(m_data->order(), (QStringList{"1 slot 2", "2 slot 3"}));
    QCOMPARE(page.names(), (QStringList{"slot 2", "slot 3"}));
}

void TestSegmentLists::lostConnection()
{
    const TestDatabase lost(QStringLiteral("lost"));
    SettingsData(lost).fillSlots(3);
    const SettingsPage page(lost.db());
    page.select(0);
    BoxAnswerer boxes;
    LogCatcher log;
    boxes.expectBox(deletionTitle(), deletionText(QStringLiteral("slot 1")), QMessageBox::Ok,
                    [&lost](QMessageBox *) { lost.breakConnection(); });
    boxes.expectBox(error(), refusedText());
    page.remove()->click();
    BOXES_DONE(boxes);
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentRepository(deleting) - SQL ERROR: ")).size(), 1);
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentModel - setQuery ERROR: [")).size(), 1);
    QCOMPARE(page.names(), QStringList());
    QCOMPARE(lost.rows(QStringLiteral("SELECT position FROM via_segments ORDER BY segmentID")),
             (QStringList{"1", "2", "3"}));
}

void TestSegmentLists::closedHandle()
{
    LogCatcher log;
    const MenuSetting window(closedConnection(*m_database));
    QCOMPARE(window.names(), QStringList());
    QCOMPARE(window.buttons(), QStringLiteral("*Pridať"));
    QCOMPARE(log.critical().filter(QStringLiteral("SegmentModel - setQuery ERROR: [")).size(), 1);
}

template<typename Form> void TestSegmentLists::checkDeath(const std::function<void(Form &)> &act)
{
    const QPointer<Form> form(new Form(m_database->db()));
    form->select(0);
    QTimer::singleShot(0, this, [&form] {
        QVERIFY(QApplication::activeModalWidget());
        delete form;
    });
    act(*form);
    QVERIFY(!form);
    QCOMPARE(m_data->order(), inOrder(slotNames(3)));
}

void TestSegmentLists::formsMayDieMeanwhile()
{
    checkDeath<SettingsPage>([](SettingsPage &page) { page.on_pushButtonPridat_2_clicked(); });
    checkDeath<SettingsPage>([](SettingsPage &page) { page.on_pushButtonUpravit_2_clicked(); });
    checkDeath<SettingsPage>([](SettingsPage &page) { page.on_pushButtonZmazat_2_clicked(); });
    checkDeath<MenuSetting>([](MenuSetting &window) { window.on_pushButtonPridat_2_clicked(); });
    checkDeath<MenuSetting>([](MenuSetting &window) { window.on_pushButtonUpravit_2_clicked(); });
    checkDeath<MenuSetting>([](MenuSetting &window) { window.on_pushButtonZmazat_2_clicked(); });
}

QTEST_MAIN(TestSegmentLists)
#include "tst_segmentlists.moc"
