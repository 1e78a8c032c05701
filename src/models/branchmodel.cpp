#include "models/branchmodel.h"

#include "session/sqlfailure.h"
#include "session/sqltext.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStandardItemModel>

namespace {

constexpr int notAssigned = -1;

QStandardItem *selectorItem(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setBackground(Qt::white);
    item->setEditable(false);
    return item;
}

QList<QStandardItem *> selectorRow(const QString &bid, const QString &name)
{
    return {selectorItem(bid), selectorItem(name)};
}

void bar(QStandardItem *item, const QString &reason)
{
    item->setEnabled(false);
    item->setBackground(Qt::lightGray);
    item->setToolTip(reason);
}

QString branchesStatement(uint adminID)
{
    if (adminID == 0)
        return QStringLiteral("SELECT 0 aid, bid, name FROM branches ");
    return QStringLiteral("SELECT b.bid, b.name, IF(bm.aid>0,1, -1) aid FROM branches b LEFT JOIN bradm bm ON "
                          "b.bid=bm.bid AND bm.aid=%1")
        .arg(adminID);
}

} // namespace

BranchModel::BranchModel(const QSqlDatabase &db, uint adminID, QObject *parent)
    : QSqlQueryModel(parent)
    , m_database(db)
    , m_adminID(adminID)
{
}

QStandardItemModel *BranchModel::adminBranches()
{
    auto *branches = new QStandardItemModel(0, 2);
    QSqlQuery query(m_database);
    query.prepare(branchesStatement(m_adminID));
    query.bindValue(QStringLiteral(":aid"), m_adminID);
    if (!query.exec()) {
        SqlFailure::logWithCode("BranchModel - adminBranches", query.lastError());
        return branches;
    }
    branches->appendRow(selectorRow(QString(), tr("- bez strediska -")));
    while (query.next()) {
        const QList<QStandardItem *> row =
            selectorRow(sqlText(query.value(QStringLiteral("bid"))), sqlText(query.value(QStringLiteral("name"))));
        if (query.value(QStringLiteral("aid")).toInt() == notAssigned) {
            for (QStandardItem *item : row)
                bar(item, tr("Stredisko nieje priradené administrátorovi."));
        }
        branches->appendRow(row);
    }
    return branches;
}
