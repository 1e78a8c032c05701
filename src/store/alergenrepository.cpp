#include "store/alergenrepository.h"

#include "store/sqloperation.h"

AlergenRepository::AlergenRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation AlergenRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

AlergenRecord AlergenRepository::loadAlergen(uint alergenID)
{
    // A missing key leaves the record of the last load on purpose; see the header.
    operation("AlergenRepository(loading)", tr("Nepodarilo sa načítať alergén!"))
        .load(QStringLiteral("SELECT alergenID, title, description FROM via_alergens WHERE alergenID='%1'")
                  .arg(alergenID),
              [this](const QSqlQuery &row) {
                  m_alergen.alergenID = row.value(QStringLiteral("alergenID")).toUInt();
                  m_alergen.title = row.value(QStringLiteral("title")).toString();
                  m_alergen.description = row.value(QStringLiteral("description")).toString();
              });
    return m_alergen;
}

bool AlergenRepository::addAlergen(AlergenRecord alergen)
{
    return operation("AlergenRepository(adding)", tr("Nepodarilo sa pridať alergén!"))
        .change(QStringLiteral("INSERT INTO via_alergens (title, description) VALUES (:title, :description)"),
                {{QStringLiteral(":title"), sqlString(alergen.title)},
                 {QStringLiteral(":description"), sqlString(alergen.description)}});
}

bool AlergenRepository::updateAlergen(AlergenRecord alergen)
{
    return operation("AlergenRepository(updating)", tr("Nepodarilo sa upraviť alergén!"))
        .change(QStringLiteral("UPDATE via_alergens SET title=:title, description=:description WHERE "
                               "alergenID=:alergenID"),
                {{QStringLiteral(":title"), sqlString(alergen.title)},
                 {QStringLiteral(":description"), sqlString(alergen.description)},
                 {QStringLiteral(":alergenID"), alergen.alergenID}});
}

bool AlergenRepository::deleteAlergen(uint alergenID)
{
    return operation("AlergenRepository(deleting)",
                     tr("Nepodarilo sa zmazať alergén! Skúste najprv zmazať všetky jedlá s daným alergénom."))
        .change(QStringLiteral("DELETE FROM via_alergens WHERE alergenID=:alergenID"),
                {{QStringLiteral(":alergenID"), alergenID}});
}

bool AlergenRepository::addFoodAlergen(uint foodID, uint alergenID)
{
    return operation("AlergenRepository(adding - foodalergen)", tr("Nepodarilo sa priradiť alergén!"))
        .change(QStringLiteral("INSERT IGNORE INTO via_foodalergen (foodID, alergenID) VALUES (:foodID,:alergenID)"),
                {{QStringLiteral(":foodID"), foodID}, {QStringLiteral(":alergenID"), alergenID}});
}

bool AlergenRepository::deleteFoodAlergen(uint foodID, uint alergenID)
{
    return operation("AlergenRepository(deleting - foodalergen)", tr("Nepodarilo sa zrušiť priradenie alergénu!"))
        .change(QStringLiteral("DELETE FROM via_foodalergen WHERE foodID=:foodID AND alergenID=:alergenID"),
                {{QStringLiteral(":foodID"), foodID}, {QStringLiteral(":alergenID"), alergenID}});
}

bool AlergenRepository::deleteAllFoodAlergen(uint foodID)
{
    return operation("AlergenRepository(deleting all - foodalergen)", tr("Nepodarilo sa zrušiť priradenie alergénov!"))
        .change(QStringLiteral("DELETE FROM via_foodalergen WHERE foodID=:foodID"),
                {{QStringLiteral(":foodID"), foodID}});
}
