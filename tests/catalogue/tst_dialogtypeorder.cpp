#include "catalogue/typeeditor.h"
#include "support/boxanswerer.h"
#include "support/logcatcher.h"

#include <memory>

namespace {

constexpr int typeCount = 6;

/// "1 a", "2 b", ... for the names in their order.
QStringList numbered(const QStringList &names)
{
    QStringList types;
    for (int index = 0; index < names.size(); ++index)
        types.append(QStringLiteral("%1 %2").arg(index + 1).arg(names.at(index)));
    return types;
}

QStringList letters()
{
    return {"a", "b", "c", "d", "e", "f"};
}

} // namespace

/// The order of the meal types stays 1 to n through every insertion, move and deletion.
class TestDialogTypeOrder : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();
    void cleanup() { BOXES_DONE(m_boxes); }

    void insertsAnywhere_data();
    void insertsAnywhere();
    void movesAnywhere_data();
    void movesAnywhere();
    void deletesAnywhere_data();
    void deletesAnywhere();
    void firstTypeOfAll();
    void insertionIsLogged();
    void moveTowardsTheFrontIsLogged();
    void moveTowardsTheEndIsLogged();
    void unchangedPositionIsMovedAndBack();
    void positionThatIsNotListedStays();
    void gapsKeepTheirNumbers();
    void typeAddedMeanwhile();

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<DialogData> m_data;
    BoxAnswerer m_boxes;
};

/// Six types "a" to "f" with the keys 101 to 106, which came in another order.
void TestDialogTypeOrder::init()
{
    m_data = std::make_unique<DialogData>(*m_database);
    m_data->exec("DELETE FROM via_foodalergen");
    m_data->exec("DELETE FROM via_foods");
    m_data->exec("DELETE FROM via_types");
    m_data->exec("INSERT INTO via_types (typeID, name, position) VALUES (104, 'd', 4), (101, 'a', 1), (106, 'f', 6), "
                 "(103, 'c', 3), (102, 'b', 2), (105, 'e', 5)");
    QCOMPARE(m_data->types(), numbered(letters()));
}

void TestDialogTypeOrder::insertsAnywhere_data()
{
    QTest::addColumn<int>("target");
    for (int target = 1; target <= typeCount + 1; ++target)
        QTest::addRow("at %d", target) << target;
}

void TestDialogTypeOrder::insertsAnywhere()
{
    QFETCH(int, target);
    TypeEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("new"));
    editor.position()->setCurrentIndex(target - 1);
    editor.save()->click();
    QStringList expected = letters();
    expected.insert(target - 1, QStringLiteral("new"));
    QCOMPARE(m_data->types(), numbered(expected));
}

void TestDialogTypeOrder::movesAnywhere_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("target");
    for (int from = 1; from <= typeCount; ++from) {
        for (int target = 1; target <= typeCount; ++target)
            QTest::addRow("%d to %d", from, target) << from << target;
    }
}

void TestDialogTypeOrder::movesAnywhere()
{
    QFETCH(int, from);
    QFETCH(int, target);
    TypeEditor editor(m_database->db(), 100 + from);
    QCOMPARE(editor.position()->currentIndex(), from - 1);
    editor.position()->setCurrentIndex(target - 1);
    editor.save()->click();
    QStringList expected = letters();
    expected.move(from - 1, target - 1);
    QCOMPARE(m_data->types(), numbered(expected));
}

void TestDialogTypeOrder::deletesAnywhere_data()
{
    QTest::addColumn<int>("position");
    for (int position = 1; position <= typeCount; ++position)
        QTest::addRow("%d", position) << position;
}

void TestDialogTypeOrder::deletesAnywhere()
{
    QFETCH(int, position);
    TypeEditor editor(m_database->db(), 100 + position);
    QStringList expected = letters();
    m_boxes.expectBox("Zmazanie typu výdaja!",
                      QString("Naozaj chcete zmazať typ výdaja %1?").arg(expected.takeAt(position - 1)));
    LogCatcher log;
    editor.deleteType()->click();
    QCOMPARE(m_data->types(), numbered(expected));
    QCOMPARE(log.lines(QtDebugMsg), QStringList{QString("Type with typeID  %1  deleted.").arg(100 + position)});
}

void TestDialogTypeOrder::firstTypeOfAll()
{
    m_data->exec("DELETE FROM via_types");
    TypeEditor editor(m_database->db());
    QCOMPARE(editor.positions(), QStringList{"1"});
    editor.name()->setText(QStringLiteral("new"));
    editor.save()->click();
    QCOMPARE(m_data->types(), QStringList{"1 new"});
}

void TestDialogTypeOrder::insertionIsLogged()
{
    TypeEditor editor(m_database->db());
    editor.name()->setText(QStringLiteral("nový \"typ\""));
    editor.position()->setCurrentIndex(3);
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(),
             (QStringList{"0 4", "moving segment, position 6", "moving segment, position 5",
                          "moving segment, position 4", "adding segment 0 \"nový \\\"typ\\\"\""}));
}

void TestDialogTypeOrder::moveTowardsTheFrontIsLogged()
{
    TypeEditor editor(m_database->db(), 104);
    editor.position()->setCurrentIndex(1);
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(),
             (QStringList{"4 2", "moving segment, position 4", "moving segment, position 3",
                          "moving segment, position 2", "updating 104 \"d\""}));
}

void TestDialogTypeOrder::moveTowardsTheEndIsLogged()
{
    TypeEditor editor(m_database->db(), 102);
    editor.position()->setCurrentIndex(4);
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(), (QStringList{"2 5", "updating 102 \"b\""}));
}

void TestDialogTypeOrder::unchangedPositionIsMovedAndBack()
{
    TypeEditor editor(m_database->db(), 103);
    LogCatcher log;
    editor.save()->click();
    QCOMPARE(log.lines(), (QStringList{"3 3", "moving segment, position 3", "updating 103 \"c\""}));
    QCOMPARE(m_data->types(), numbered(letters()));
}

void TestDialogTypeOrder::positionThatIsNotListedStays()
{
    TypeEditor editor(m_database->db(), 103);
    editor.position()->setCurrentIndex(-1);
    editor.name()->setText(QStringLiteral("C"));
    editor.save()->click();
    QCOMPARE(m_data->types().at(2), QString("3 C"));
    QCOMPARE(m_data->types().size(), typeCount);
}

void TestDialogTypeOrder::gapsKeepTheirNumbers()
{
    m_data->exec("DELETE FROM via_types WHERE typeID IN (102, 104, 105)");
    const TypeEditor editor(m_database->db(), 106);
    QCOMPARE(editor.positions(), (QStringList{"1", "3", "6"}));
    QCOMPARE(editor.position()->currentText(), QString("6"));
}

void TestDialogTypeOrder::typeAddedMeanwhile()
{
    TypeEditor editor(m_database->db(), 102);
    m_data->exec("INSERT INTO via_types (name, position) VALUES ('g', 7)"); // on another workstation
    editor.position()->setCurrentIndex(5);
    editor.save()->click();
    QCOMPARE(m_data->types(), numbered({"a", "c", "d", "e", "f", "b", "g"}));
}

QTEST_MAIN(TestDialogTypeOrder)
#include "tst_dialogtypeorder.moc"
