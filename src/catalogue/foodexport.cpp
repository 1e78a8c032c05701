#include "catalogue/foodexport.h"

#include "session/sqltext.h"

#include <QSaveFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTextCodec>
#include <QVariant>

namespace {

QStringList header()
{
    return {QStringLiteral("id"),    QStringLiteral("dodavatel"), QStringLiteral("typ"),      QStringLiteral("nazov"),
            QStringLiteral("popis"), QStringLiteral("cena"),      QStringLiteral("alergeny"), QStringLiteral("datum"),
            QStringLiteral("vydaj"), QStringLiteral("stredisko")};
}

constexpr int exportedColumns = 7;

QStringList quotedRow(const QSqlQuery &query)
{
    QStringList row;
    for (int column = 0; column < exportedColumns; ++column)
        row.append(QLatin1Char('"') + sqlText(query.value(column)) + QLatin1Char('"'));
    return row;
}

} // namespace

FoodExport::Table FoodExport::loadTable()
{
    Table table;
    table.rows.append(header());
    const QSqlDatabase defaultConnection;
    QSqlQuery query(defaultConnection);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral(
            "SELECT f.foodID id, s.name dodavatel, t.name typ, f.name nazov, f.description popis, f.price cena, "
            "IFNULL(GROUP_CONCAT(fa.alergenID SEPARATOR ', '),' ') alergeny FROM via_foods f LEFT JOIN via_foodalergen "
            "fa ON f.foodID=fa.foodID LEFT JOIN via_types t ON f.typeID=t.typeID LEFT JOIN via_suppliers s ON "
            "f.supplierID=s.supplierID GROUP BY f.foodID"))) {
        table.error = query.lastError();
        return table;
    }
    while (query.next())
        table.rows.append(quotedRow(query));
    return table;
}

bool FoodExport::writeFile(const QString &fileName, const QList<QStringList> &rows)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    const QTextCodec *codec = QTextCodec::codecForLocale();
    for (const QStringList &row : rows) {
        // A text stream would take half a row for a whole one when the disk is full, and committing would not know.
        const QByteArray line = codec->fromUnicode(row.join(QLatin1Char(',')) + QLatin1Char('\n'));
        if (file.write(line) != line.size() || !file.flush() || file.error() != QFileDevice::NoError)
            return false;
    }
    return file.commit();
}
