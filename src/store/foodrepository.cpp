#include "store/foodrepository.h"

#include "session/sqlfailure.h"
#include "session/sqltext.h"
#include "store/sqloperation.h"

#include <QDebug>
#include <QStandardItemModel>

namespace {

SqlValues valuesOf(const FoodRecord &food)
{
    return {{QStringLiteral(":foodID"), food.foodID},
            {QStringLiteral(":typeID"), food.typeID},
            {QStringLiteral(":supplierID"), sqlKeyOrNull(food.supplierID)},
            {QStringLiteral(":name"), sqlString(food.name)},
            {QStringLiteral(":description"), sqlString(food.description)},
            {QStringLiteral(":picture"), food.picture},
            {QStringLiteral(":price"), food.price}};
}

QString insertStatement(const FoodRecord &food)
{
    if (food.foodID != 0) {
        return QStringLiteral("INSERT INTO via_foods (foodID, typeID, supplierID, name, description, picture, price) "
                              "VALUES (:foodID, :typeID, :supplierID, :name, :description, :picture, :price)");
    }
    if (food.hasPicture) {
        return QStringLiteral("INSERT INTO via_foods (typeID, supplierID, name, description, picture, price) VALUES "
                              "(:typeID, :supplierID, :name, :description, :picture, :price)");
    }
    return QStringLiteral("INSERT INTO via_foods (typeID, supplierID, name, description, price) VALUES (:typeID, "
                          ":supplierID, :name, :description, :price)");
}

QString updateStatement(const FoodRecord &food)
{
    if (food.hasPicture) {
        return QStringLiteral("UPDATE via_foods SET typeID=:typeID, supplierID=:supplierID, name=:name, "
                              "description=:description, picture=:picture, price=:price WHERE foodID=:foodID");
    }
    return QStringLiteral("UPDATE via_foods SET typeID=:typeID, supplierID=:supplierID, name=:name, "
                          "description=:description, price=:price WHERE foodID=:foodID");
}

/// The columns of the whole catalogue. The statement has the shortcut as one more, behind them.
enum CatalogueColumn : int { CatalogueName = 3, CatalogueColumns = 7, CatalogueShortcut = 7 };

QList<QStandardItem *> catalogueRow(const QSqlQuery &row)
{
    QList<QStandardItem *> items;
    items.reserve(CatalogueColumns);
    for (int column = 0; column < CatalogueColumns; ++column)
        items.append(new QStandardItem(sqlText(row.value(column))));
    QStandardItem *name = items.at(CatalogueName);
    name->setText(sqlText(row.value(CatalogueShortcut)) + QLatin1Char(' ') + name->text());
    name->setEditable(false);
    return items;
}

} // namespace

FoodRepository::FoodRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

FoodRepository::~FoodRepository() = default;

SqlOperation FoodRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

FoodRecord FoodRepository::loadFood(uint foodID)
{
    FoodRecord record;
    operation("FoodRepository(loading)", tr("Nepodarilo sa načítať jedlo!"))
        .load(
            QStringLiteral("SELECT foodID, typeID, supplierID, name, description, picture, price FROM via_foods WHERE "
                           "foodID='%1'")
                .arg(foodID),
            [&record](const QSqlQuery &row) {
                record.foodID = row.value(QStringLiteral("foodID")).toUInt();
                record.typeID = row.value(QStringLiteral("typeID")).toUInt();
                record.supplierID = row.value(QStringLiteral("supplierID")).toUInt();
                record.name = row.value(QStringLiteral("name")).toString();
                record.description = row.value(QStringLiteral("description")).toString();
                record.picture = row.value(QStringLiteral("picture")).toByteArray();
                record.price = row.value(QStringLiteral("price")).toDouble();
            });
    return record;
}

QStandardItemModel *FoodRepository::loadAllFood()
{
    auto *model = new QStandardItemModel(0, CatalogueColumns);
    operation("FoodRepository(loading all)", tr("Nepodarilo sa načítať jedlá!"))
        .load(QStringLiteral("SELECT f.foodID, f.typeID, f.supplierID, f.name, f.description, f.picture, f.price, "
                             "s.shortcut FROM via_foods f LEFT JOIN via_suppliers s ON f.supplierID=s.supplierID"),
              [model](const QSqlQuery &row) { model->appendRow(catalogueRow(row)); });
    return model;
}

bool FoodRepository::addFood(FoodRecord food)
{
    if (!m_adding)
        m_adding =
            std::make_unique<SqlOperation>(operation("FoodRepository(adding)", tr("Nepodarilo sa pridať jedlo!")));
    m_adding->run(insertStatement(food), valuesOf(food));
    if (m_adding->failed() && food.foodID != 0) {
        // The key is most likely taken: the food gets a new one. Only a failure of that is told of.
        food.foodID = 0;
        return addFood(food);
    }
    return m_adding->succeededOrReported();
}

bool FoodRepository::updateFood(FoodRecord food)
{
    qDebug() << "id: " << food.foodID << " updating food...";
    if (!m_updating)
        m_updating =
            std::make_unique<SqlOperation>(operation("FoodRepository(updating)", tr("Nepodarilo sa upraviť jedlo!")));
    return m_updating->change(updateStatement(food), valuesOf(food));
}

bool FoodRepository::deleteFood(uint foodID)
{
    qDebug() << "id: " << foodID << " deleting food...";
    return operation("FoodRepository(deleting)",
                     tr("Nepodarilo sa zmazať jedlo! Skúste najprv zmazať všetky objednávateľné položky tohto jedla."))
        .change(QStringLiteral("DELETE FROM via_foods WHERE foodID=:foodID"), {{QStringLiteral(":foodID"), foodID}});
}

uint FoodRepository::loadLastfoodID()
{
    uint foodID = 0;
    operation("FoodRepository(load last foodID)", tr("Nepodarilo sa načítať ID posledného jedla!"))
        .load(QStringLiteral("SELECT MAX(foodID) AS foodID FROM via_foods"),
              [&foodID](const QSqlQuery &row) { foodID = row.value(QStringLiteral("foodID")).toUInt(); });
    return foodID;
}

int FoodRepository::loadBranchID(QString name)
{
    SqlOperation reading(m_db);
    reading.run(QStringLiteral("SELECT bid, name FROM branches WHERE name=:name "),
                {{QStringLiteral(":name"), sqlString(name)}});
    const int bid = reading.query().next() ? reading.query().value(QStringLiteral("bid")).toInt() : 0;
    // The tag names a list model; log watchers know it so.
    if (reading.failed())
        SqlFailure::logWithCode("BranchModel - adminBranches", reading.error());
    return bid;
}
