#include "models/typemodel.h"

TypeModel::TypeModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
    refresh();
}

void TypeModel::refresh()
{
    load(QStringLiteral("SELECT typeID, name, position FROM via_types ORDER BY position"), "TypeModel - setQuery",
         {tr("ID druhu jedla"), tr("Typ jedla")});
}
