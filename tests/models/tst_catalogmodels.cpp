#include "models/foodmodel.h"
#include "models/segmentmodel.h"
#include "models/typemodel.h"
#include "support/logcatcher.h"
#include "support/missingtable.h"
#include "support/modelstrings.h"

#include <QAbstractItemModelTester>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

namespace {

QStringList headers(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts.append(model.headerData(column, Qt::Horizontal).toString());
    return texts;
}

} // namespace

/// The lists of foods, meal types and service slots.
class TestCatalogModels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void foodsLoadWhenTold();
    void foodsShowNullAsNothing();
    void picturesAreReadOnDemand();
    void failedPictureIsLoggedAndNothing();
    void foodsAreAllThere();
    void foodsReload();
    void failedFoodsAreLoggedAndEmpty();
    void typesLoadAtOnceByPosition();
    void failedTypesAreLoggedAndEmpty();
    void segmentsLoadWhenToldByPosition();
    void failedSegmentsAreLoggedAndEmpty();
    void lostConnectionIsLoggedWithItsCode();
    void closedHandleGivesAnEmptyList();

private:
    std::unique_ptr<TestDatabase> m_database;
};

void TestCatalogModels::initTestCase()
{
    m_database = std::make_unique<TestDatabase>();
}

void TestCatalogModels::cleanupTestCase()
{
    m_database.reset();
}

void TestCatalogModels::init()
{
    m_database->clear();
    m_database->exec(QStringLiteral("INSERT INTO via_types VALUES (1, 'Polievky', 2, 1), (2, 'Hlavné jedlá', 1, 0)"));
    m_database->exec(
        QStringLiteral("INSERT INTO via_suppliers (supplierID, name, shortcut) VALUES (4, 'Jedáleň', 'J')"));
    m_database->exec(
        QStringLiteral("INSERT INTO via_foods (foodID, typeID, supplierID, name, description, picture, price) "
                       "VALUES (1, 1, 4, 'Šošovicová', 'so smotanou', x'89504e', 1.5), "
                       "(2, 2, NULL, '<b>O''Hara</b> 100%', NULL, NULL, 0)"));
    m_database->exec(QStringLiteral("INSERT INTO via_segments VALUES (1, 'Večera', '17:00:00', '19:00:00', 2), "
                                    "(2, 'Obed', '11:30:00', '13:00:00', 1), (3, 'Navyše', NULL, NULL, 3)"));
}

void TestCatalogModels::foodsLoadWhenTold()
{
    FoodModel foods(m_database->db());
    const QAbstractItemModelTester tester(&foods);
    QCOMPARE(foods.rowCount(), 0);
    foods.refresh();
    QCOMPARE(
        foods.query().lastQuery(),
        QStringLiteral("SELECT foodID, typeID, name, description, NULL AS picture, price, supplierID FROM via_foods"));
    QCOMPARE(headers(foods),
             (QStringList{QStringLiteral("ID jedla"), QStringLiteral("ID druhu jedla"), QStringLiteral("Názov"),
                          QStringLiteral("Popis"), QStringLiteral("Obrázok"), QStringLiteral("Cena"),
                          QStringLiteral("ID dodávateľa")}));
    QCOMPARE(foods.rowCount(), 2);
    QCOMPARE(foods.index(0, 4).data().toByteArray(), QByteArray::fromHex("89504e"));
    QCOMPARE(foods.index(0, 5).data().toDouble(), 1.5);
    QCOMPARE(foods.index(0, 6).data().toUInt(), 4U);
    QCOMPARE(columnTexts(foods, 2), (QStringList{QStringLiteral("Šošovicová"), QStringLiteral("<b>O'Hara</b> 100%")}));
}

void TestCatalogModels::foodsShowNullAsNothing()
{
    FoodModel foods(m_database->db());
    foods.refresh();
    QCOMPARE(rowText(foods, 1), QStringLiteral("2|2|<b>O'Hara</b> 100%|||0|"));
    QVERIFY(!foods.index(1, 6).data().isValid());
    QVERIFY(foods.index(1, 4).data().toByteArray().isNull());
    QVERIFY(foods.record(1).isNull(QStringLiteral("supplierID")));
    QCOMPARE(foods.record(1).value(QStringLiteral("supplierID")).toUInt(), 0U);
}

void TestCatalogModels::picturesAreReadOnDemand()
{
    const auto sent = [this] {
        QSqlQuery query(m_database->db());
        query.exec(QStringLiteral("SHOW SESSION STATUS LIKE 'Bytes_sent'"));
        query.next();
        return query.value(1).toLongLong();
    };
    m_database->exec(QStringLiteral("UPDATE via_foods SET picture = REPEAT('x', 1000000)"));
    FoodModel foods(m_database->db());
    const qint64 before = sent();
    foods.refresh();
    QVERIFY2(sent() - before < 10000, qPrintable(QString::number(sent() - before)));
    QCOMPARE(foods.index(0, FoodModel::Picture).data(Qt::EditRole).toByteArray().size(), 1000000);
    QCOMPARE(foods.index(1, FoodModel::Picture).data().toByteArray().size(), 1000000);
    QVERIFY(!foods.index(1, FoodModel::Picture).data(Qt::DecorationRole).isValid());
    m_database->exec(QStringLiteral("DELETE FROM via_foods WHERE foodID = 2"));
    QVERIFY(!foods.index(1, FoodModel::Picture).data().isValid());
}

void TestCatalogModels::failedPictureIsLoggedAndNothing()
{
    FoodModel foods(m_database->db());
    foods.refresh();
    const MissingTable missing(*m_database, QStringLiteral("via_foods"));
    const LogCatcher log;
    QVERIFY(!foods.index(0, FoodModel::Picture).data().isValid());
    QCOMPARE(log.critical(), QStringList{QStringLiteral("FoodModel - setQuery ERROR: [1146]: ") + missing.error()});
}

void TestCatalogModels::foodsAreAllThere()
{
    m_database->exec(QStringLiteral("INSERT INTO via_foods (typeID, name) SELECT 1, seq FROM seq_1_to_1000"));
    FoodModel foods(m_database->db());
    foods.refresh();
    QCOMPARE(foods.rowCount(), 1002);
    QVERIFY(!foods.canFetchMore());
}

void TestCatalogModels::foodsReload()
{
    FoodModel foods(m_database->db());
    const QAbstractItemModelTester tester(&foods);
    foods.refresh();
    m_database->exec(QStringLiteral("DELETE FROM via_foods WHERE foodID = 1"));
    QCOMPARE(foods.rowCount(), 2);
    foods.refresh();
    QCOMPARE(columnTexts(foods, 0), QStringList{QStringLiteral("2")});
}

void TestCatalogModels::failedFoodsAreLoggedAndEmpty()
{
    FoodModel foods(m_database->db());
    foods.refresh();
    {
        const MissingTable missing(*m_database, QStringLiteral("via_foods"));
        LogCatcher log;
        foods.refresh();
        QCOMPARE(log.lines(), QStringList{QStringLiteral("FoodModel - setQuery ERROR: [1146]: ") + missing.error()});
        QCOMPARE(log.critical().size(), 1);
        QCOMPARE(foods.rowCount(), 0);
        QCOMPARE(foods.columnCount(), 0);
    }
    foods.refresh();
    QCOMPARE(foods.rowCount(), 2);
}

void TestCatalogModels::typesLoadAtOnceByPosition()
{
    TypeModel types(m_database->db());
    const QAbstractItemModelTester tester(&types);
    QCOMPARE(types.query().lastQuery(),
             QStringLiteral("SELECT typeID, name, position FROM via_types ORDER BY position"));
    QCOMPARE(rowTexts(types), (QStringList{QStringLiteral("2|Hlavné jedlá|1"), QStringLiteral("1|Polievky|2")}));
    QCOMPARE(headers(types),
             (QStringList{QStringLiteral("ID druhu jedla"), QStringLiteral("Typ jedla"), QStringLiteral("position")}));
    m_database->exec(QStringLiteral("INSERT INTO via_types VALUES (3, 'Múčniky', 3, 0)"));
    types.refresh();
    QCOMPARE(types.rowCount(), 3);
}

void TestCatalogModels::failedTypesAreLoggedAndEmpty()
{
    TypeModel types(m_database->db());
    const MissingTable missing(*m_database, QStringLiteral("via_types"));
    LogCatcher log;
    types.refresh();
    const TypeModel second(m_database->db());
    const QString line = QStringLiteral("TypeModel - setQuery ERROR: [1146]: ") + missing.error();
    QCOMPARE(log.critical(), (QStringList{line, line}));
    QCOMPARE(types.rowCount(), 0);
    QCOMPARE(second.rowCount(), 0);
}

void TestCatalogModels::segmentsLoadWhenToldByPosition()
{
    SegmentModel segments(m_database->db());
    const QAbstractItemModelTester tester(&segments);
    QCOMPARE(segments.rowCount(), 0);
    segments.refresh();
    QCOMPARE(segments.query().lastQuery(),
             QStringLiteral("SELECT segmentID, name, start, position FROM via_segments ORDER BY position"));
    QCOMPARE(headers(segments),
             (QStringList{QStringLiteral("ID segmentu"), QStringLiteral("Názov segmentu"),
                          QStringLiteral("Začiatok segmentu"), QStringLiteral("Pozícia segmentu")}));
    QCOMPARE(columnTexts(segments, 1),
             (QStringList{QStringLiteral("Obed"), QStringLiteral("Večera"), QStringLiteral("Navyše")}));
    QCOMPARE(segments.index(0, 2).data().toTime(), QTime(11, 30));
    QCOMPARE(rowText(segments, 2), QStringLiteral("3|Navyše||3"));
}

void TestCatalogModels::failedSegmentsAreLoggedAndEmpty()
{
    SegmentModel segments(m_database->db());
    const MissingTable missing(*m_database, QStringLiteral("via_segments"));
    LogCatcher log;
    segments.refresh();
    QCOMPARE(log.critical(), QStringList{QStringLiteral("SegmentModel - setQuery ERROR: [1146]: ") + missing.error()});
    QCOMPARE(segments.rowCount(), 0);
}

void TestCatalogModels::lostConnectionIsLoggedWithItsCode()
{
    const TestDatabase other(QStringLiteral("other"));
    SegmentModel segments(other.db());
    other.breakConnection();
    LogCatcher log;
    segments.refresh();
    QCOMPARE(log.critical().size(), 1);
    const QRegularExpression line(
        QStringLiteral("^SegmentModel - setQuery ERROR: \\[(2006|2013|1927|1053)\\]: \\S.+$"));
    QVERIFY2(line.match(log.critical().constFirst()).hasMatch(), qPrintable(log.critical().constFirst()));
    QCOMPARE(segments.rowCount(), 0);
}

void TestCatalogModels::closedHandleGivesAnEmptyList()
{
    LogCatcher log;
    TypeModel types(QSqlDatabase::addDatabase(QStringLiteral("QMYSQL"), QStringLiteral("closed")));
    QCOMPARE(log.critical(), QStringList{QStringLiteral("TypeModel - setQuery ERROR: []: ")});
    QCOMPARE(types.rowCount(), 0);
}

QTEST_MAIN(TestCatalogModels)
#include "tst_catalogmodels.moc"
