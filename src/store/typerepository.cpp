#include "store/typerepository.h"

#include "store/sqloperation.h"

#include <QDebug>

namespace {

SqlValues valuesOf(const TypeRecord &type)
{
    return {{QStringLiteral(":name"), sqlString(type.name)},
            {QStringLiteral(":position"), type.position},
            {QStringLiteral(":informative"), type.informative},
            {QStringLiteral(":typeID"), type.typeID}};
}

} // namespace

TypeRepository::TypeRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation TypeRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

TypeRecord TypeRepository::loadType(uint typeID)
{
    // A missing key leaves the record of the last load on purpose; see the header.
    operation("TypeRepository(loading)", tr("Nepodarilo sa načítať typ jedla !"))
        .load(QStringLiteral("SELECT typeID, name, position, informative FROM via_types WHERE typeID='%1'").arg(typeID),
              [this](const QSqlQuery &row) {
                  m_type.typeID = row.value(QStringLiteral("typeID")).toUInt();
                  m_type.name = row.value(QStringLiteral("name")).toString();
                  m_type.position = row.value(QStringLiteral("position")).toUInt();
                  m_type.informative = row.value(QStringLiteral("informative")).toUInt();
              });
    return m_type;
}

bool TypeRepository::addType(TypeRecord type)
{
    return operation("TypeRepository(adding)", tr("Nepodarilo sa pridať typ jedla !"))
        .change(QStringLiteral("INSERT INTO via_types (name, position, informative) VALUES (:name, :position, "
                               ":informative)"),
                valuesOf(type));
}

bool TypeRepository::updateType(TypeRecord type)
{
    return operation("TypeRepository(updating)", tr("Nepodarilo sa upraviť typ jedla !"))
        .change(QStringLiteral("UPDATE via_types SET name=:name, position=:position, informative=:informative WHERE "
                               "typeID=:typeID"),
                valuesOf(type));
}

bool TypeRepository::deleteType(uint typeID)
{
    const bool deleted = operation("TypeRepository(deleting)",
                                   tr("Nepodarilo sa zmazať typ jedla ! Skúste pred zmazaním typu jedla najprv zmazať "
                                      "všetky jedlá tohoto typu."))
                             .change(QStringLiteral("DELETE FROM via_types WHERE typeID=:typeID"),
                                     {{QStringLiteral(":typeID"), typeID}});
    if (deleted)
        qDebug() << "Type with typeID " << typeID << " deleted.";
    return deleted;
}

bool TypeRepository::moveType(uint pos, uint newpos)
{
    return operation("TypeRepository(moving type position)", tr("Nepodarilo sa upraviť typ jedla !"))
        .change(QStringLiteral("UPDATE via_types SET position=:newposition WHERE position=:position"),
                {{QStringLiteral(":newposition"), newpos}, {QStringLiteral(":position"), pos}});
}
