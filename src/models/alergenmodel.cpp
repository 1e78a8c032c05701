#include "models/alergenmodel.h"

#include "session/sqlfailure.h"
#include "session/sqltext.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStandardItemModel>

namespace {

const char *const foodTag = "AlergenModel - foodalergen load";
constexpr int titleColumn = 1;

} // namespace

AlergenModel::AlergenModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

void AlergenModel::refresh()
{
    load(QStringLiteral("SELECT alergenID, title, description FROM via_alergens"), "AlergenModel - setQuery",
         headers());
}

QStringList AlergenModel::loadFoodAlergens(uint foodID)
{
    QStringList titles;
    if (!load(QStringLiteral("SELECT via_alergens.alergenID, via_alergens.title, via_alergens.description FROM "
                             "via_alergens JOIN via_foodalergen ON via_alergens.alergenID = via_foodalergen.alergenID "
                             "JOIN via_foods ON via_foodalergen.foodID = via_foods.foodID WHERE "
                             "via_foods.foodID=:foodID"),
              {{QStringLiteral(":foodID"), foodID}}, foodTag, headers()))
        return titles;
    for (int row = 0; row < rowCount(); ++row)
        titles.append(index(row, titleColumn).data().toString());
    return titles;
}

QStandardItemModel *AlergenModel::checkableAlergens(uint foodID)
{
    auto *alergens = new QStandardItemModel(0, 2);
    QSqlQuery query(database());
    query.prepare(QStringLiteral(
        "SELECT via_alergens.alergenID, 0 AS state, title FROM via_alergens WHERE via_alergens.alergenID NOT IN "
        "(SELECT "
        "via_foodalergen.alergenID FROM via_foodalergen WHERE via_foodalergen.foodID=:foodID) UNION SELECT "
        "via_alergens.alergenID, 1 AS state, title FROM via_alergens JOIN via_foodalergen ON via_alergens.alergenID = "
        "via_foodalergen.alergenID WHERE via_foodalergen.foodID=:foodID ORDER BY alergenID"));
    query.bindValue(QStringLiteral(":foodID"), foodID);
    if (!query.exec()) {
        SqlFailure::logWithCode(foodTag, query.lastError());
        return alergens;
    }
    while (query.next()) {
        auto *title = new QStandardItem(sqlText(query.value(QStringLiteral("title"))));
        title->setCheckable(true);
        title->setCheckState(query.value(QStringLiteral("state")).toBool() ? Qt::Checked : Qt::Unchecked);
        alergens->appendRow({title, new QStandardItem(sqlText(query.value(QStringLiteral("alergenID"))))});
    }
    return alergens;
}

QStringList AlergenModel::headers() const
{
    return {tr("ID alergénu"), tr("názov alergénu"), tr("popis alergénu")};
}
