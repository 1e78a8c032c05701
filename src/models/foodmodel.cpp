#include "models/foodmodel.h"

#include "session/sqlfailure.h"

#include <QSqlError>
#include <QSqlQuery>

namespace {

const char *const failureTag = "FoodModel - setQuery";

/// The columns of the list; `picture` is the column's name, or what stands in for it.
QString foodsStatement(const QString &picture)
{
    return QStringLiteral("SELECT foodID, typeID, name, description, %1, price, supplierID FROM via_foods")
        .arg(picture);
}

} // namespace

FoodModel::FoodModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

void FoodModel::refresh()
{
    load(foodsStatement(QStringLiteral("NULL AS picture")), failureTag,
         {tr("ID jedla"), tr("ID druhu jedla"), tr("Názov"), tr("Popis"), tr("Obrázok"), tr("Cena"),
          tr("ID dodávateľa")});
}

QVariant FoodModel::data(const QModelIndex &index, int role) const
{
    if (index.column() != Picture || (role != Qt::DisplayRole && role != Qt::EditRole))
        return SqlListModel::data(index, role);
    return picture(SqlListModel::data(index.siblingAtColumn(FoodId)).toUInt());
}

QVariant FoodModel::picture(uint foodID) const
{
    QSqlQuery query(database());
    if (!query.exec(foodsStatement(QStringLiteral("picture")) + QStringLiteral(" WHERE foodID=%1").arg(foodID))) {
        SqlFailure::logWithCode(failureTag, query.lastError());
        return QVariant();
    }
    const QVariant bytes = query.next() ? query.value(Picture) : QVariant();
    return bytes.isNull() ? QVariant() : bytes;
}
