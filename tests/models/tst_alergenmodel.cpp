#include "models/alergenmodel.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

namespace {

QStringList headers(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts;
}

QStringList alergenHeaders()
{
    return {"ID alergénu", "názov alergénu", "popis alergénu"};
}

} // namespace

/// The list of allergens, that of one food, and that with check boxes.
class TestAlergenModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_database = std::make_unique<TestDatabase>(); }
    void cleanupTestCase() { m_database.reset(); }
    void init();

    void loadsWhenTold();
    void reloads();
    void foodAlergens();
    void foodWithoutAlergens();
    void refreshAfterAFoodGivesAllAgain();
    void checkableAlergens();
    void checkableAlergensByNumber();
    void newFoodHasNoneChecked();
    void bothListsAreInStep();
    void checkableAlergensAreTheCallers();
    void hostileTitlesStandAsTyped();
    void failuresAreLogged();
    void lostConnectionIsLoggedWithItsCode();
    void closedHandleGivesEmptyLists();

private:
    std::unique_ptr<TestDatabase> m_database;
};

void TestAlergenModel::init()
{
    m_database->clear();
    m_database->exec("INSERT INTO via_types VALUES (1, 'Polievky', 1, 0)");
    m_database->exec("INSERT INTO via_foods (foodID, typeID, name) VALUES (5, 1, 'vývar'), (6, 1, 'voda')");
    m_database->exec("INSERT INTO via_alergens VALUES (7, 'Mlieko', 'aj srvátka')");
    m_database->exec("INSERT INTO via_alergens VALUES (1, 'Obilniny', 'lepok'), (3, 'Vajcia', NULL)");
    m_database->exec("INSERT INTO via_foodalergen VALUES (5, 7), (5, 3), (6, 1)");
}

void TestAlergenModel::loadsWhenTold()
{
    AlergenModel alergens(m_database->db());
    const QAbstractItemModelTester tester(&alergens);
    QCOMPARE(alergens.rowCount(), 0);
    alergens.refresh();
    QCOMPARE(alergens.query().lastQuery(), QString("SELECT alergenID, title, description FROM via_alergens"));
    QCOMPARE(headers(alergens), alergenHeaders());
    QCOMPARE(rowTexts(alergens), (QStringList{"1|Obilniny|lepok", "3|Vajcia|", "7|Mlieko|aj srvátka"}));
}

void TestAlergenModel::reloads()
{
    AlergenModel alergens(m_database->db());
    alergens.refresh();
    m_database->exec("UPDATE via_alergens SET title='Vajce' WHERE alergenID=3");
    QCOMPARE(alergens.index(1, 1).data().toString(), QString("Vajcia"));
    alergens.refresh();
    QCOMPARE(alergens.index(1, 1).data().toString(), QString("Vajce"));
}

void TestAlergenModel::foodAlergens()
{
    AlergenModel alergens(m_database->db());
    const QAbstractItemModelTester tester(&alergens);
    QStringList titles = alergens.loadFoodAlergens(5);
    QCOMPARE(columnTexts(alergens, 1), titles);
    titles.sort();
    QCOMPARE(titles, (QStringList{"Mlieko", "Vajcia"}));
    QCOMPARE(headers(alergens), alergenHeaders());
    QCOMPARE(alergens.loadFoodAlergens(6), QStringList{"Obilniny"});
    QCOMPARE(rowTexts(alergens), QStringList{"1|Obilniny|lepok"});
}

void TestAlergenModel::foodWithoutAlergens()
{
    AlergenModel alergens(m_database->db());
    alergens.refresh();
    LogCatcher log;
    for (const uint food : {0U, 99U, 4294967295U}) {
        QCOMPARE(alergens.loadFoodAlergens(food), QStringList());
        QCOMPARE(alergens.rowCount(), 0);
        QCOMPARE(headers(alergens), alergenHeaders());
    }
    QCOMPARE(log.lines(), QStringList());
}

void TestAlergenModel::refreshAfterAFoodGivesAllAgain()
{
    AlergenModel alergens(m_database->db());
    alergens.loadFoodAlergens(6);
    alergens.refresh();
    QCOMPARE(alergens.rowCount(), 3);
    QCOMPARE(headers(alergens), alergenHeaders());
}

void TestAlergenModel::checkableAlergens()
{
    AlergenModel alergens(m_database->db());
    const std::unique_ptr<QStandardItemModel> list(alergens.checkableAlergens(5));
    QCOMPARE(rowTexts(*list), (QStringList{"Obilniny|1", "Vajcia|3", "Mlieko|7"}));
    const QList<Qt::CheckState> states{Qt::Unchecked, Qt::Checked, Qt::Checked};
    for (int row = 0; row < states.size(); ++row) {
        QVERIFY(list->item(row, 0)->isCheckable());
        QCOMPARE(list->item(row, 0)->checkState(), states.at(row));
        QVERIFY(!list->item(row, 1)->isCheckable());
        QCOMPARE(list->item(row, 1)->data(Qt::DisplayRole).type(), QVariant::String);
    }
    QCOMPARE(alergens.rowCount(), 0);
}

void TestAlergenModel::checkableAlergensByNumber()
{
    m_database->exec("INSERT INTO via_alergens (alergenID, title) VALUES (120, 'Lupina'), (14, 'Mäkkýše')");
    m_database->exec("INSERT INTO via_foodalergen VALUES (5, 14)");
    const std::unique_ptr<QStandardItemModel> list(AlergenModel(m_database->db()).checkableAlergens(5));
    QCOMPARE(columnTexts(*list, 1), (QStringList{"1", "3", "7", "14", "120"}));
}

void TestAlergenModel::newFoodHasNoneChecked()
{
    const std::unique_ptr<QStandardItemModel> list(AlergenModel(m_database->db()).checkableAlergens(0));
    QCOMPARE(list->rowCount(), 3);
    for (int row = 0; row < list->rowCount(); ++row)
        QCOMPARE(list->item(row, 0)->checkState(), Qt::Unchecked);
}

void TestAlergenModel::bothListsAreInStep()
{
    m_database->exec("INSERT INTO via_alergens (alergenID, title) SELECT 1000 - seq, seq FROM seq_1_to_300");
    AlergenModel alergens(m_database->db());
    alergens.refresh();
    const std::unique_ptr<QStandardItemModel> list(alergens.checkableAlergens(5));
    QCOMPARE(columnTexts(alergens, 0), columnTexts(*list, 1));
    QCOMPARE(columnTexts(alergens, 1), columnTexts(*list, 0));
}

void TestAlergenModel::checkableAlergensAreTheCallers()
{
    auto alergens = std::make_unique<AlergenModel>(m_database->db());
    const std::unique_ptr<QStandardItemModel> list(alergens->checkableAlergens(5));
    QVERIFY(!list->parent());
    alergens.reset();
    QCOMPARE(list->rowCount(), 3);
}

void TestAlergenModel::hostileTitlesStandAsTyped()
{
    const QStringList titles{"O'Brien \"x\" \\", "100% %1 %s", "<b>tučné</b>", "\U0001F95C", QString(10000, 'x')};
    for (const QString &title : titles) {
        QSqlQuery query(m_database->db());
        query.prepare("UPDATE via_alergens SET title=? WHERE alergenID=3");
        query.addBindValue(title);
        QVERIFY(query.exec());
        AlergenModel alergens(m_database->db());
        const std::unique_ptr<QStandardItemModel> list(alergens.checkableAlergens(5));
        QCOMPARE(list->item(1, 0)->text(), title);
        QVERIFY(alergens.loadFoodAlergens(5).contains(title));
    }
}

void TestAlergenModel::failuresAreLogged()
{
    AlergenModel alergens(m_database->db());
    alergens.refresh();
    LogCatcher log;
    {
        const MissingTable missing(*m_database, "via_foodalergen");
        QCOMPARE(alergens.loadFoodAlergens(5), QStringList());
        QCOMPARE(alergens.rowCount(), 0);
        const std::unique_ptr<QStandardItemModel> list(alergens.checkableAlergens(5));
        QCOMPARE(list->rowCount(), 0);
        const QStringList lines = log.critical();
        QCOMPARE(lines.size(), 2);
        for (const QString &line : lines)
            QVERIFY2(line.startsWith("AlergenModel - foodalergen load ERROR: [1146]: "), qPrintable(line));
    }
    log.clear();
    const MissingTable missing(*m_database, "via_alergens");
    alergens.refresh();
    QCOMPARE(alergens.rowCount(), 0);
    QCOMPARE(log.critical(), QStringList{"AlergenModel - setQuery ERROR: [1146]: " + missing.error()});
}

void TestAlergenModel::lostConnectionIsLoggedWithItsCode()
{
    const TestDatabase database("lost");
    AlergenModel alergens(database.db());
    database.breakConnection();
    LogCatcher log;
    alergens.refresh();
    QCOMPARE(alergens.loadFoodAlergens(5), QStringList());
    delete alergens.checkableAlergens(5);
    const QStringList lines = log.critical();
    QCOMPARE(lines.size(), 3);
    // 2006 or 2013, by the moment at which the server went away.
    QVERIFY2(lines.at(0).startsWith("AlergenModel - setQuery ERROR: [20"), qPrintable(lines.at(0)));
    QVERIFY2(lines.at(1).startsWith("AlergenModel - foodalergen load ERROR: [20"), qPrintable(lines.at(1)));
    QVERIFY2(lines.at(2).startsWith("AlergenModel - foodalergen load ERROR: [20"), qPrintable(lines.at(2)));
}

void TestAlergenModel::closedHandleGivesEmptyLists()
{
    {
        AlergenModel alergens(QSqlDatabase::cloneDatabase(m_database->db(), "closed"));
        LogCatcher log;
        alergens.refresh();
        QCOMPARE(alergens.rowCount(), 0);
        QCOMPARE(alergens.loadFoodAlergens(5), QStringList());
        const std::unique_ptr<QStandardItemModel> list(alergens.checkableAlergens(5));
        QCOMPARE(list->rowCount(), 0);
        QCOMPARE(log.critical().size(), 3);
    }
    QSqlDatabase::removeDatabase("closed");
}

QTEST_MAIN(TestAlergenModel)
#include "tst_alergenmodel.moc"
