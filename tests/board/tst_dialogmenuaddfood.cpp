#include "board/menueditor.h"
#include "session/menucolumns.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <QComboBox>
#include <QSortFilterProxyModel>
#include <QTimer>

#include <memory>

namespace {

const char *const logLine = "saving new and refreshing";

template<typename Widget> Widget *in(QDialog *dialog, const char *name)
{
    return dialog->findChild<Widget *>(QLatin1String(name));
}

/// The catalogue's editor, answered with a food of this name and price of the second type.
void expectFood(BoxAnswerer &boxes, const QString &name, const QString &price)
{
    boxes.expectDialog(QStringLiteral("DialogFood"), [=](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Pridať jedlo"));
        in<QLineEdit>(dialog, "lineEdit")->setText(name);
        in<QLineEdit>(dialog, "lineEditPrice")->setText(price);
        in<QComboBox>(dialog, "comboBoxType")->setCurrentIndex(1);
        in<QPushButton>(dialog, "pushButtonSave")->click();
    });
}

const QAbstractItemModel &sourceOf(const MenuEditor &editor)
{
    return *qobject_cast<QSortFilterProxyModel *>(editor.list()->model())->sourceModel();
}

} // namespace

/// The menu editor's way to a food that the catalogue lacks.
class TestDialogMenuAddFood : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase();
    void init() { m_data = std::make_unique<DayData>(*m_database); }

    void newFoodJoinsTheList();
    void newFoodGoesOnTheMenu();
    void newFoodThatTheFilterHides();
    void cancelledEditorChangesNothing();
    void editorDiesWhileTheFoodIsMade();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DayData> m_data;
};

void TestDialogMenuAddFood::cleanupTestCase()
{
    m_database.reset();
    QTest::qWait(50); // a clear button that died while it faded in leaves its animation to the event loop
}

void TestDialogMenuAddFood::newFoodJoinsTheList()
{
    const MenuEditor editor(m_database->db());
    const int before = sourceOf(editor).rowCount();
    editor.filter()->setText(QStringLiteral("boršč"));
    QCOMPARE(editor.offers(), QStringLiteral("label button"));
    BoxAnswerer boxes;
    expectFood(boxes, QStringLiteral("Boršč <b>%1</b>"), QStringLiteral("2,75"));
    const LogCatcher log;
    editor.find<QPushButton>("pushButtonAddFood")->click();
    BOXES_DONE(boxes);
    QVERIFY(log.has(QLatin1String(logLine)));
    QCOMPARE(sourceOf(editor).rowCount(), before + 1);
    const uint foodID = m_database->value(QStringLiteral("SELECT MAX(foodID) FROM via_foods")).toUInt();
    const uint position =
        m_database
            ->value(QStringLiteral("SELECT t.position FROM via_foods JOIN via_types t USING (typeID) WHERE foodID=%1")
                        .arg(foodID))
            .toUInt();
    QVERIFY(position > 0);
    QCOMPARE(rowText(sourceOf(editor), before),
             QStringLiteral("%1|%2|").arg(foodID).arg(position) + QStringLiteral("Boršč <b>%1</b>||||||2.75|0||||"));
    QCOMPARE(editor.foods(), QStringList{QStringLiteral("Boršč <b>%1</b>")}); // the filter stands, and finds it
    QCOMPARE(editor.offers(), QString());
}

void TestDialogMenuAddFood::newFoodGoesOnTheMenu()
{
    MenuEditor editor(m_database->db());
    editor.filter()->setText(QStringLiteral("boršč"));
    BoxAnswerer boxes;
    expectFood(boxes, QStringLiteral("Boršč"), QStringLiteral("2.75"));
    editor.find<QPushButton>("pushButtonAddFood")->click();
    BOXES_DONE(boxes);
    editor.selectFood(QStringLiteral("Boršč"));
    editor.tool("toolButtonR")->click();
    QVERIFY(editor.menu().contains(QStringLiteral("Boršč")));
    editor.selectItem(QStringLiteral("Boršč"));
    editor.tool("toolButtonL")->click();
    QCOMPARE(editor.foods(), QStringList{QStringLiteral("Boršč")});
    editor.selectFood(QStringLiteral("Boršč"));
    editor.tool("toolButtonR")->click();
    editor.on_pushButton_clicked();
    QCOMPARE(
        m_database->rows(QStringLiteral(
            "SELECT f.name, o.position, o.price, o.`limit` FROM via_orderables o JOIN via_foods f USING (foodID)")),
        QStringList{QStringLiteral("Boršč|1|2.75|0")});
}

void TestDialogMenuAddFood::newFoodThatTheFilterHides()
{
    const MenuEditor editor(m_database->db());
    editor.filter()->setText(QStringLiteral("boršč"));
    BoxAnswerer boxes;
    expectFood(boxes, QStringLiteral("Kapustnica"), QStringLiteral("1"));
    editor.find<QPushButton>("pushButtonAddFood")->click();
    BOXES_DONE(boxes);
    QCOMPARE(editor.foods(), QStringList());
    QCOMPARE(editor.offers(), QStringLiteral("label button"));
    editor.filter()->clear();
    QCOMPARE(editor.foods().constLast(), QStringLiteral("Kapustnica"));
}

void TestDialogMenuAddFood::cancelledEditorChangesNothing()
{
    const MenuEditor editor(m_database->db());
    const int before = sourceOf(editor).rowCount();
    BoxAnswerer boxes;
    boxes.expectDialog(QStringLiteral("DialogFood"),
                       [](QDialog *dialog) { in<QPushButton>(dialog, "pushButtonCancel")->click(); });
    const LogCatcher log;
    editor.find<QPushButton>("pushButtonAddFood")->click();
    BOXES_DONE(boxes);
    QVERIFY(!log.has(QLatin1String(logLine)));
    QCOMPARE(sourceOf(editor).rowCount(), before);
}

void TestDialogMenuAddFood::editorDiesWhileTheFoodIsMade()
{
    auto *editor = new MenuEditor(m_database->db());
    QTimer::singleShot(50, editor, [editor] {
        QVERIFY(QApplication::activeModalWidget());
        delete editor;
    });
    editor->find<QPushButton>("pushButtonAddFood")->click();
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestDialogMenuAddFood)
#include "tst_dialogmenuaddfood.moc"
