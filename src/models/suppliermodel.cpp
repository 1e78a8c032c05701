#include "models/suppliermodel.h"

#include "session/session.h"
#include "session/sqlfailure.h"
#include "session/sqltext.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardItemModel>
#include <QTime>

#include <functional>

namespace {

const char *const suppliersTag = "SupplierModel - checkableSuppliers load";
const char *const branchMailsTag = "SupplierModel - loadBranchMails load";
const char *const supplierMailsTag = "SupplierModel - loadSupplierMails load";

using Row = QList<QStandardItem *>;
using RowMaker = std::function<Row(const QSqlQuery &)>;

/// Role under which a cell keeps its key as a number, to sort by.
constexpr int keyRole = Qt::UserRole + 1;

/// The row as it came, one text cell a column.
Row textRow(const QSqlQuery &query)
{
    Row row;
    const int columns = query.record().count();
    for (int column = 0; column < columns; ++column)
        row.append(new QStandardItem(sqlText(query.value(column))));
    return row;
}

Row supplierRow(const QSqlQuery &query)
{
    Row row = textRow(query);
    row.at(SupplierModel::Deadline)
        ->setText(query.value(SupplierModel::Deadline).toTime().toString(QStringLiteral("hh:mm:ss")));
    QStandardItem *name = row.at(SupplierModel::Name);
    name->setEditable(false);
    // A view draws a check box for any state that is set, so a read-only row has none.
    if (session().readOnly)
        return row;
    const bool delivers = query.value(SupplierModel::BranchId).toUInt() > 0;
    name->setCheckable(true);
    name->setCheckState(delivers ? Qt::Checked : Qt::Unchecked);
    return row;
}

/// Values of a statement by placeholder.
using Keys = QVector<QPair<QString, uint>>;

/// Appends the rows of the statement to `list`; a failure is logged under `tag`. Each of `keys` is bound, if the
/// statement has its placeholder.
bool appendRows(QStandardItemModel *list, const QSqlDatabase &db, const char *tag, const QString &statement,
                const Keys &keys, const RowMaker &rowOf = textRow)
{
    QSqlQuery query(db);
    query.prepare(statement);
    for (const auto &key : keys) {
        if (statement.contains(key.first))
            query.bindValue(key.first, key.second);
    }
    if (!query.exec()) {
        SqlFailure::logWithCode(tag, query.lastError());
        return false;
    }
    while (query.next())
        list->appendRow(rowOf(query));
    return true;
}

QString bidPlaceholder()
{
    return QStringLiteral(":bid");
}

QString supplierPlaceholder()
{
    return QStringLiteral(":supplierID");
}

} // namespace

SupplierModel::SupplierModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

bool SupplierModel::loadAllSuppliers()
{
    return load(QStringLiteral("SELECT supplierID, name FROM via_suppliers"), "SupplierModel - loadAllSuppliers", {});
}

QStandardItemModel *SupplierModel::checkableSuppliers(uint bid)
{
    auto *suppliers = new QStandardItemModel(0, CheckableCount);
    const QString statement = bid != 0
        ? QStringLiteral("SELECT sup.supplierID, sup.name, sup.description, sup.deadline, csb.bid, sup.shortcut, "
                         "sup.daysto FROM via_suppliers AS sup LEFT JOIN via_supplierbranch AS csb ON "
                         "csb.supplierID=sup.supplierID AND csb.bid=:bid")
        : QStringLiteral("SELECT sup.supplierID, sup.name, sup.description, sup.deadline, csb.supplierID AS bid, "
                         "sup.shortcut, sup.daysto FROM via_suppliers AS sup LEFT JOIN via_supplierbranch AS csb ON "
                         "csb.supplierID=sup.supplierID AND csb.bid IS NULL");
    appendRows(suppliers, database(), suppliersTag, statement, {{bidPlaceholder(), bid}}, supplierRow);
    return suppliers;
}

QStandardItemModel *SupplierModel::branchSuppliers(uint bid)
{
    auto *suppliers = new QStandardItemModel(0, 2);
    const QString condition = bid != 0 ? QStringLiteral("csb.bid=:bid") : QStringLiteral("csb.bid IS NULL");
    const QString statement = QStringLiteral("SELECT sup.supplierID, sup.name FROM via_suppliers AS sup LEFT JOIN "
                                             "via_supplierbranch AS csb ON csb.supplierID=sup.supplierID WHERE ")
        + condition;
    if (appendRows(suppliers, database(), suppliersTag, statement, {{bidPlaceholder(), bid}}))
        suppliers->insertRow(0,
                             {new QStandardItem(QStringLiteral("0")), new QStandardItem(tr("- všetci dodávatelia -"))});
    return suppliers;
}

QStandardItemModel *SupplierModel::loadBranchMails(uint bid)
{
    auto *mails = new QStandardItemModel(0, 3);
    const QString statement = bid != 0
        ? QStringLiteral("SELECT branchMailID, mail, bid FROM via_branchmails WHERE bid=:bid")
        : QStringLiteral("SELECT branchMailID, mail, bid FROM via_branchmails WHERE bid IS NULL");
    appendRows(mails, database(), branchMailsTag, statement, {{bidPlaceholder(), bid}});
    return mails;
}

QStandardItemModel *SupplierModel::loadSupplierTimes(uint supplierID)
{
    auto *times = new QStandardItemModel(0, 3);
    appendRows(
        times, database(), supplierMailsTag,
        QStringLiteral("SELECT proMailDelayID, supplierID, sendtime, daysto FROM via_promailsdelay WHERE "
                       "supplierID=:supplierID ORDER BY daysto, sendtime"),
        {{supplierPlaceholder(), supplierID}}, [](const QSqlQuery &query) {
            const QString text = query.value(QStringLiteral("sendtime")).toTime().toString(QStringLiteral("hh:mm"))
                + QStringLiteral(" - ") + sqlText(query.value(QStringLiteral("daysto"))) + tr(" dní pred výdajom.");
            return Row{new QStandardItem(sqlText(query.value(QStringLiteral("proMailDelayID")))),
                       new QStandardItem(text), new QStandardItem(sqlText(query.value(QStringLiteral("supplierID"))))};
        });
    return times;
}

QStandardItemModel *SupplierModel::loadSupplierMails(uint supplierID)
{
    auto *mails = new QStandardItemModel(0, 3);
    appendRows(
        mails, database(), supplierMailsTag,
        QStringLiteral("SELECT supplierMailID, mail, supplierID FROM via_suppliermails WHERE supplierID=:supplierID"),
        {{supplierPlaceholder(), supplierID}});
    return mails;
}

QStandardItemModel *SupplierModel::loadOrderMails(uint supplierID, uint bid)
{
    auto *mails = new QStandardItemModel(0, 2);
    QString statement = QStringLiteral(
        "SELECT sup.supplierID, csm.mail FROM via_suppliers AS sup LEFT JOIN via_supplierbranch AS csb ON "
        "csb.supplierID=sup.supplierID LEFT JOIN via_suppliermails AS csm ON sup.supplierID=csm.supplierID ");
    statement += bid != 0 ? QStringLiteral("WHERE csb.bid=:bid") : QStringLiteral("WHERE csb.bid IS NULL");
    if (supplierID != 0)
        statement += QStringLiteral(" AND sup.supplierID=:supplierID");
    appendRows(mails, database(), supplierMailsTag, statement,
               {{bidPlaceholder(), bid}, {supplierPlaceholder(), supplierID}}, [](const QSqlQuery &query) {
                   const Row row = textRow(query);
                   row.first()->setData(query.value(0).toUInt(), keyRole);
                   return row;
               });
    // The server may join the mails in the order of their own keys, so that suppliers alternate; whoever writes to them
    // goes by rows side by side. Rows of one supplier keep their order.
    mails->setSortRole(keyRole);
    mails->sort(0);
    return mails;
}
