#include "models/branchmodel.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QStandardItemModel>
#include <QtTest>

class TestBranchModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void unrestrictedAdministratorMayChooseEveryBranch();
    void foreignBranchesAreBarred();
    void administratorWithoutBranches();
    void firstRowStandsForAllBranches();
    void failureGivesNoRowsAtAll();

private:
    std::unique_ptr<QStandardItemModel> branches(uint adminID) const;

    std::unique_ptr<TestDatabase> m_database;
};

void TestBranchModel::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
    m_database->exec(
        QStringLiteral("INSERT INTO branches VALUES (1, 'Výroba'), (2, '<i>Sklad</i> %1'), (30, 'Čerpadlá')"));
    m_database->exec(QStringLiteral("INSERT INTO bradm (aid, bid) VALUES (7, 1), (7, 30), (8, 2)"));
}

void TestBranchModel::cleanupTestCase()
{
    m_database.reset();
}

std::unique_ptr<QStandardItemModel> TestBranchModel::branches(uint adminID) const
{
    BranchModel model(m_database->db(), adminID);
    return std::unique_ptr<QStandardItemModel>(model.adminBranches());
}

void TestBranchModel::unrestrictedAdministratorMayChooseEveryBranch()
{
    const auto list = branches(0);
    const QAbstractItemModelTester tester(list.get());
    QCOMPARE(rowTexts(*list),
             (QStringList{QStringLiteral("|- bez strediska -"), QStringLiteral("1|Výroba"),
                          QStringLiteral("2|<i>Sklad</i> %1"), QStringLiteral("30|Čerpadlá")}));
    QVERIFY(!list->parent());
    for (int row = 0; row < list->rowCount(); ++row) {
        for (int column = 0; column < 2; ++column) {
            const QStandardItem *item = list->item(row, column);
            QVERIFY(item->isEnabled());
            QVERIFY(item->isSelectable());
            QVERIFY(!item->isEditable());
            QCOMPARE(item->background().color(), QColor(Qt::white));
            QCOMPARE(item->background().style(), Qt::SolidPattern);
            QCOMPARE(item->toolTip(), QString());
        }
    }
}

void TestBranchModel::foreignBranchesAreBarred()
{
    const auto list = branches(7);
    QCOMPARE(columnTexts(*list, 0),
             (QStringList{QString(), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("30")}));
    for (int row = 0; row < list->rowCount(); ++row) {
        for (int column = 0; column < 2; ++column) {
            const bool barred = row == 2;
            const QStandardItem *item = list->item(row, column);
            QCOMPARE(item->isEnabled(), !barred);
            QVERIFY(!item->isEditable());
            QCOMPARE(item->background().color(), QColor(barred ? Qt::lightGray : Qt::white));
            QCOMPARE(item->toolTip(),
                     barred ? QStringLiteral("Stredisko nieje priradené administrátorovi.") : QString());
        }
    }
}

void TestBranchModel::administratorWithoutBranches()
{
    const auto list = branches(99);
    QCOMPARE(list->rowCount(), 4);
    QVERIFY(list->item(0, 1)->isEnabled());
    for (int row = 1; row < 4; ++row)
        QVERIFY(!list->item(row, 1)->isEnabled());
}

void TestBranchModel::firstRowStandsForAllBranches()
{
    const auto list = branches(7);
    QCOMPARE(list->index(0, 0).data().toUInt(), 0U);
    QCOMPARE(list->columnCount(), 2);
}

void TestBranchModel::failureGivesNoRowsAtAll()
{
    const MissingTable missing(*m_database, QStringLiteral("branches"));
    for (const uint adminID : {0U, 7U}) {
        LogCatcher log;
        const auto list = branches(adminID);
        QCOMPARE(log.lines(),
                 QStringList{QStringLiteral("BranchModel - adminBranches ERROR: [1146]: ") + missing.error()});
        QCOMPARE(log.critical().size(), 1);
        QCOMPARE(list->rowCount(), 0);
    }
}

QTEST_MAIN(TestBranchModel)
#include "tst_branchmodel.moc"
