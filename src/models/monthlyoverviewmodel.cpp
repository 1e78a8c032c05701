#include "models/monthlyoverviewmodel.h"

#include "session/sqlfailure.h"

#include <QSqlError>

MonthlyOverviewModel::MonthlyOverviewModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
    , m_date(QDate::currentDate())
{
}

void MonthlyOverviewModel::setDatabase(const QSqlDatabase &db)
{
    setDatabaseHandle(db);
}

void MonthlyOverviewModel::setDate(QDate date)
{
    m_date = date;
}

void MonthlyOverviewModel::setBranch(uint branchID)
{
    m_branch = branchID;
}

void MonthlyOverviewModel::refresh()
{
    const QString branch = m_branch == 0 ? QString() : QStringLiteral(" AND o.bid = %1 ").arg(m_branch);
    // Every month ends on its 31st here: as a bound of a comparison the server takes a day that does not exist.
    const bool loaded = load(
        QStringLiteral(
            "SELECT IF(p.pamId IS NULL OR p.pamId = '' OR p.pamId = '0', p.pid, p.pamId) pid, CONCAT(p.surname, ' ', "
            "p.name,' ',p.title, ' ', p.title2) personName, o.position, o.date, r.quantity, s.position segment, s.name "
            "segname, f.foodID, t.name typename, t.typeID FROM via_orders r LEFT JOIN people p ON p.uid=r.uid LEFT "
            "JOIN "
            "via_orderables o ON o.orderableID=r.orderableID LEFT JOIN via_segments s ON o.segmentID=s.segmentID LEFT "
            "JOIN via_foods f ON o.foodID=f.foodID LEFT JOIN via_types t ON f.typeID=t.typeID WHERE  p.`status`!=0 AND "
            "o.date>= '%2' AND o.date<= '%3' %1 ORDER BY pid, date, segment")
            .arg(branch, m_date.toString(QStringLiteral("yyyy-MM-01")), m_date.toString(QStringLiteral("yyyy-MM-31"))));
    if (!loaded)
        SqlFailure::log("MonthlyOverviewModel", lastError());
}
