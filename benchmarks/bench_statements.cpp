// What the statements of menus and orders cost on a large firm: alone, through the C client, and through the class that
// runs them; and which indexes the server reads. Run with --socket and --database of benchmarks/largefirm.sh.
#include "models/monthlyoverviewmodel.h"
#include "models/ordermodel.h"
#include "models/peoplemodel.h"
#include "store/foodrepository.h"
#include "store/orderablerepository.h"
#include "store/orderrepository.h"
#include "support/figures.h"
#include "support/floor.h"
#include "support/largefirm.h"
#include "support/statementlog.h"

#include <QApplication>
#include <QSqlRecord>
#include <QStandardItemModel>

#include <functional>
#include <memory>

namespace {

struct Operation {
    QString name;
    std::function<void()> run;
};

using Grid = std::unique_ptr<QStandardItemModel>;

/// Everything that reads menus, as the pages call it.
QVector<Operation> menuOperations(const LargeFirm &firm)
{
    const QSqlDatabase db = firm.db();
    const QDate thursday = firm.lockedDay().addDays(4 - firm.lockedDay().dayOfWeek());
    const unsigned slot = firm.segment();
    QVector<Operation> operations;
    for (const unsigned branch : {firm.branch(), 0U}) {
        const QString of = branch ? QStringLiteral(", branch") : QStringLiteral(", all branches");
        operations
            << Operation{QStringLiteral("loadMenuWidgetMenu, everybody") + of,
                         [=] { Grid(FoodRepository(db).loadMenuWidgetMenu(thursday, branch)); }}
            << Operation{QStringLiteral("loadMenuWidgetMenu, one person") + of,
                         [=, &firm] { Grid(FoodRepository(db).loadMenuWidgetMenu(thursday, branch, firm.person())); }}
            << Operation{QStringLiteral("loadMenuWidgetMenu, a year ago") + of,
                         [=] { Grid(FoodRepository(db).loadMenuWidgetMenu(thursday.addDays(-364), branch)); }}
            << Operation{QStringLiteral("loadDayMenu") + of,
                         [=, &firm] { Grid(FoodRepository(db).loadDayMenu(firm.openDay(), slot, branch)); }}
            << Operation{QStringLiteral("loadPersonDayMenu") + of,
                         [=, &firm] {
                             Grid(FoodRepository(db).loadPersonDayMenu(firm.lockedDay(), slot, firm.person(), branch));
                         }}
            << Operation{QStringLiteral("loadWeekMenu, one of seven days") + of,
                         [=] { Grid(FoodRepository(db).loadWeekMenu(thursday.addDays(-3), branch)); }}
            << Operation{QStringLiteral("loadLastDate") + of, [=] { OrderableRepository(db).loadLastDate(branch); }}
            << Operation{QStringLiteral("loadOrderablesByDate") + of,
                         [=] { OrderableRepository(db).loadOrderablesByDate(thursday, branch); }}
            << Operation{QStringLiteral("updateLock") + of,
                         [=, &firm] { OrderableRepository(db).updateLock(firm.openDay(), slot, branch, true); }};
    }
    return operations << Operation{QStringLiteral("loadFirstDate"), [=] { OrderableRepository(db).loadFirstDate(); }}
                      << Operation{QStringLiteral("loadFoodIDs"),
                                   [=] { OrderableRepository(db).loadFoodIDs(thursday, slot); }};
}

/// Everything that reads and writes orders.
QVector<Operation> orderOperations(const LargeFirm &firm)
{
    const QSqlDatabase db = firm.db();
    const QDate to = firm.lockedDay().addDays(-firm.lockedDay().day());
    const QDate from = to.addDays(1 - to.daysInMonth());
    OrderRecord order;
    order.orderableID = firm.item();
    order.uid = quint32(firm.person());
    order.quantity = 1;
    order.ordered = QStringLiteral("ZEP-adminID: 1, 1.1.2024, 8:0:0");
    QVector<Operation> operations{
        {QStringLiteral("checkOrderableLimit"),
         [=] {
             int available = 0;
             int limit = 0;
             OrderRepository(db).checkOrderableLimit(order, available, limit);
         }},
        {QStringLiteral("getFoodName"), [=] { OrderRepository(db).getFoodName(order.orderableID); }},
        {QStringLiteral("addOrder"), [=] { OrderRepository(db).addOrder(order); }},
        {QStringLiteral("deleteOrder"), [=] { OrderRepository(db).deleteOrder(order); }},
        {QStringLiteral("orderPeopleList"), [=] { OrderModel(db).orderPeopleList(order.orderableID); }},
        {QStringLiteral("personDateOrders, a month"),
         [=, &firm] { Grid(OrderModel(db).personDateOrders(from, to, firm.person())); }}};
    for (const unsigned branch : {firm.branch(), 0U}) {
        const QString of = branch ? QStringLiteral(", branch") : QStringLiteral(", all branches");
        operations << Operation{QStringLiteral("segmentOrders") + of,
                                [=, &firm] {
                                    Grid(OrderModel(db).segmentOrders(firm.lockedDay(), firm.segment(), branch));
                                }}
                   << Operation{QStringLiteral("branchDateOrders, a month") + of,
                                [=] { Grid(OrderModel(db).branchDateOrders(from, to, branch)); }}
                   << Operation{QStringLiteral("control export, a month") + of,
                                [=] {
                                    MonthlyOverviewModel model(db);
                                    model.setDate(to);
                                    model.setBranch(branch);
                                    model.refresh();
                                }}
                   << Operation{QStringLiteral("people of a week") + of,
                                [=] { PeopleModel(db).tableQuery(1, branch); }};
    }
    return operations;
}

/// The tables of a statement with the indexes they are read by, "crd: week, co: item".
QString indexes(const QSqlDatabase &db, const QByteArray &statement)
{
    QStringList keys;
    QSqlQuery plan = execute(db, QStringLiteral("EXPLAIN ") + QString::fromUtf8(statement));
    while (plan.next()) {
        const QString key = plan.value(QStringLiteral("key")).toString();
        if (!key.isEmpty() && key != QLatin1String("PRIMARY"))
            keys << plan.value(QStringLiteral("table")).toString() + QStringLiteral(": ") + key;
    }
    return keys.join(QStringLiteral(", "));
}

class StatementBenchmark {
public:
    void run();

private:
    void measure(const Operation &operation);

    LargeFirm m_firm;
    Floor m_floor{m_firm.socket(), m_firm.database()};
    StatementLog m_log{m_firm.db(), m_firm.admin()};
};

void StatementBenchmark::run()
{
    printLine(
        QStringLiteral("| operation | rows | statement alone, ms | operation, ms | indexes |\n|---|---|---|---|---|"));
    const QVector<Operation> operations = menuOperations(m_firm) + orderOperations(m_firm);
    for (const Operation &operation : operations) {
        if (m_firm.isWanted(operation.name))
            measure(operation);
    }
}

/// Writing operations are rolled back after each run.
void StatementBenchmark::measure(const Operation &operation)
{
    QSqlDatabase db = m_firm.db();
    QVector<QByteArray> statements;
    db.transaction();
    statements = m_log.during(operation.run);
    db.rollback();
    if (statements.isEmpty())
        qFatal("%s ran no statement", qPrintable(operation.name));

    const int runs = m_floor.once(statements.first()) > 100 ? 3 : m_firm.runs();
    const double floor = m_floor.median(statements.first(), runs);
    StepTimes times;
    for (int run = 0; run < runs; ++run) {
        db.rollback();
        db.transaction();
        times.measure(operation.run);
    }
    db.rollback();
    printLine(QStringLiteral("| %1 | %2 | %3 | %4 | %5 |")
                  .arg(operation.name)
                  .arg(m_floor.rows())
                  .arg(floor, 0, 'f', 1)
                  .arg(median(times.elapsed), 0, 'f', 1)
                  .arg(indexes(m_firm.admin(), statements.first())));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    StatementBenchmark().run();
    return 0;
}
