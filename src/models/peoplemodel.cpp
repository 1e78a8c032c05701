#include "models/peoplemodel.h"

#include "models/unixperiod.h"
#include "session/sqlfailure.h"
#include "session/sqltext.h"

#include <QDateTime>
#include <QDebug>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

QString everybody(const UnixPeriod &week)
{
    return QStringLiteral("SELECT p.uid, CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) AS name, p.begin, p.end FROM "
                          "people p WHERE p.status AND (p.begin < %2 AND (p.end IS NULL OR p.end = 0 OR p.end >= %1)) "
                          "GROUP BY p.uid ORDER BY p.surname")
        .arg(week.start)
        .arg(week.end);
}

QString ofBranch(uint bid, const UnixPeriod &week)
{
    return QStringLiteral("SELECT p.uid, CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) AS name, p.begin, p.end FROM "
                          "people p LEFT JOIN brape bp ON p.uid=bp.uid WHERE p.status AND bp.bid=%1 AND (p.begin < %3 "
                          "AND (p.end IS NULL OR p.end = 0 OR p.end >= %2)) GROUP BY p.uid ORDER BY p.surname")
        .arg(bid)
        .arg(week.start)
        .arg(week.end);
}

QString ofAdministrator(uint adminID, const UnixPeriod &week)
{
    return QStringLiteral(
               "SELECT p.uid, CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) AS name, p.begin, p.end FROM "
               "people p LEFT JOIN admins_people ap ON p.uid=ap.uid WHERE p.status AND ap.aid=%1 AND (p.begin "
               "< %3 AND (p.end IS NULL OR p.end = 0 OR p.end >= %2)) GROUP BY p.uid ORDER BY p.surname")
        .arg(adminID)
        .arg(week.start)
        .arg(week.end);
}

QString ofBoth(uint bid, uint adminID, const UnixPeriod &week)
{
    return QStringLiteral(
               "SELECT p.uid, CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) AS name, ap.aid, bp.bid, "
               "p.begin, p.end FROM people p LEFT JOIN admins_people ap ON p.uid=ap.uid LEFT JOIN brape bp ON "
               "p.uid=bp.uid WHERE p.status AND bp.bid=%1 AND ap.aid=%2 AND (p.begin < %4 AND (p.end IS NULL "
               "OR p.end = 0 OR p.end >= %3)) GROUP BY p.uid ORDER BY p.surname")
        .arg(bid)
        .arg(adminID)
        .arg(week.start)
        .arg(week.end);
}

QString peopleStatement(uint adminID, uint bid, const UnixPeriod &week)
{
    if (adminID == 0)
        return bid == 0 ? everybody(week) : ofBranch(bid, week);
    return bid == 0 ? ofAdministrator(adminID, week) : ofBoth(bid, adminID, week);
}

QString dayText(qint64 unixSeconds)
{
    return QDateTime::fromSecsSinceEpoch(unixSeconds).toString(QStringLiteral("dd.MM.yyyy"));
}

} // namespace

PeopleModel::PeopleModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
    , m_date(QDate::currentDate())
{
}

void PeopleModel::tableQuery(uint adminID, uint bid)
{
    qDebug() << "PeopleModel::tableQuery() ::: People model query with admin ID: " << adminID << "branch ID: " << bid;
    m_employments.clear();
    if (load(peopleStatement(adminID, bid, weekOf(m_date)), "PeopleModel - setQuery", {tr("uid"), tr("name")}))
        indexEmployments();
}

void PeopleModel::setDate(QDate date)
{
    m_date = date;
}

QString PeopleModel::personName(int uid)
{
    QSqlQuery query(database());
    query.exec(
        QStringLiteral("SELECT CONCAT('[', p.pid, '] ', p.surname, ' ',p.name) name FROM people p WHERE p.uid=%1")
            .arg(uid));
    if (!query.isActive()) {
        SqlFailure::log("PeopleModel(loadPerson)", query.lastError());
        SqlFailure::show(tr("Chyba databázy"), tr("Nepodarilo sa načítať zamestnanca!"));
        return {};
    }
    return query.next() ? sqlText(query.value(QStringLiteral("name"))) : QString();
}

bool PeopleModel::isInWorkingPeriod(int uid, QDate date, int days) const
{
    const auto found = m_employments.constFind(uid);
    if (found == m_employments.constEnd())
        return false;
    const UnixPeriod asked = daysFrom(date, days);
    const bool worksAtStart = asked.start >= found->begin && (found->end == 0 || asked.start <= found->end);
    const bool beginsWithin = asked.start <= found->begin && asked.end > found->begin;
    return worksAtStart || beginsWithin;
}

QString PeopleModel::workingPeriodText(int uid) const
{
    const auto found = m_employments.constFind(uid);
    if (found == m_employments.constEnd())
        return {};
    return dayText(found->begin) + QStringLiteral(" - ") + (found->end < 1 ? tr("neurčito") : dayText(found->end));
}

void PeopleModel::indexEmployments()
{
    const QSqlRecord fields = record();
    const int uid = fields.indexOf(QStringLiteral("uid"));
    const int begin = fields.indexOf(QStringLiteral("begin"));
    const int end = fields.indexOf(QStringLiteral("end"));
    for (int row = 0; row < rowCount(); ++row) {
        m_employments.insert(index(row, uid).data().toInt(),
                             {index(row, begin).data().toLongLong(), index(row, end).data().toLongLong()});
    }
}
