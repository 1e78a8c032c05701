#include "models/foodmodel.h"

FoodModel::FoodModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

void FoodModel::refresh()
{
    load(QStringLiteral("SELECT foodID, typeID, name, description, picture, price, supplierID FROM via_foods"),
         "FoodModel - setQuery",
         {tr("ID jedla"), tr("ID druhu jedla"), tr("Názov"), tr("Popis"), tr("Obrázok"), tr("Cena"),
          tr("ID dodávateľa")});
}
