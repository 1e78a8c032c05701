#include "board/orderform.h"

#include "board/totaldelegate.h"
#include "session/menucolumns.h"

#include <QFont>
#include <QHash>
#include <QStandardItemModel>

#include <limits>

namespace {

constexpr int headingWeight = 75;

struct Sum {
    qint64 quantity = 0;
    double money = 0;

    Sum &operator+=(const Sum &other)
    {
        quantity += other.quantity;
        money += other.money;
        return *this;
    }
};

QString text(const QStandardItemModel &grid, int row, int column)
{
    return grid.index(row, column).data().toString();
}

bool isHeading(const QStandardItemModel &grid, int row)
{
    return text(grid, row, PersonMenuColumn::FoodId) == QLatin1String("0");
}

bool isTotal(const QStandardItemModel &grid, int row)
{
    return row == grid.rowCount() - 1;
}

bool isFood(const QStandardItemModel &grid, int row)
{
    return !isTotal(grid, row) && text(grid, row, PersonMenuColumn::FoodId).toInt() != 0;
}

bool isInformative(const QStandardItemModel &grid, int row)
{
    return text(grid, row, PersonMenuColumn::Informative).toInt() == 1;
}

bool isOpenForOrders(const QStandardItemModel &grid, int row)
{
    return !text(grid, row, PersonMenuColumn::Position).isEmpty()
        && text(grid, row, PersonMenuColumn::Locked).toInt() == 1;
}

void openQuantity(QStandardItem &cell)
{
    cell.setFlags(cell.flags() | Qt::ItemIsEditable | Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    cell.setBackground(Qt::white);
}

/// The grid tells nobody of a text that stays the same.
void write(QStandardItemModel &grid, int row, int column, const QString &value)
{
    grid.setData(grid.index(row, column), value);
}

void writeMoney(QStandardItemModel &grid, int row, double money, const QString &currencySymbol)
{
    write(grid, row, PersonMenuColumn::Money, QString::number(money, 'f', 2) + QLatin1Char(' ') + currencySymbol);
}

void writeSum(QStandardItemModel &grid, int row, const Sum &sum, const QString &currencySymbol)
{
    write(grid, row, PersonMenuColumn::Total, QString::number(sum.quantity));
    writeMoney(grid, row, sum.money, currencySymbol);
}

Sum foodSum(const QStandardItemModel &grid, int row)
{
    const int quantity = text(grid, row, PersonMenuColumn::Total).toInt();
    return {quantity, quantity * text(grid, row, PersonMenuColumn::Price).toDouble()};
}

} // namespace

namespace OrderForm {

void removeUnorderable(QStandardItemModel &grid)
{
    // From the last row to the first: what is taken out then moves only the few rows that stay. Most of the catalogue
    // is not on the menu, so neighbours go together.
    int run = 0;
    for (int row = grid.rowCount() - 2; row >= -1; --row) {
        if (row >= 0 && !isHeading(grid, row) && !isOpenForOrders(grid, row)) {
            ++run;
        } else if (run > 0) {
            grid.removeRows(row + 1, run);
            run = 0;
        }
    }
}

void emphasiseHeadings(QStandardItemModel &grid)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (text(grid, row, PersonMenuColumn::Position) != QLatin1String("0") || isInformative(grid, row))
            continue;
        QStandardItem *name = grid.item(row, PersonMenuColumn::Name);
        QFont font = name->font();
        font.setWeight(headingWeight);
        name->setFont(font);
    }
}

void addToolTips(QStandardItemModel &grid)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (isFood(grid, row))
            grid.item(row, PersonMenuColumn::Name)
                ->setToolTip(
                    QStringLiteral("<span>%1</span>").arg(text(grid, row, PersonMenuColumn::Name).toHtmlEscaped()));
    }
}

void openQuantities(QStandardItemModel &grid)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column)
            grid.item(row, column)->setEnabled(false);
        if (!isFood(grid, row))
            continue;
        if (isInformative(grid, row))
            grid.item(row, PersonMenuColumn::Position)->setData(true, TotalDelegate::ButtonsRole);
        else
            openQuantity(*grid.item(row, PersonMenuColumn::Total));
    }
}

int firstQuantityRow(const QStandardItemModel &grid)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (grid.index(row, PersonMenuColumn::Total).flags().testFlag(Qt::ItemIsEnabled))
            return row;
    }
    return -1;
}

int quantity(const QString &cell)
{
    constexpr int veryLarge = std::numeric_limits<int>::max();
    bool isNumber = false;
    const qlonglong value = cell.toLongLong(&isNumber);
    if (!isNumber)
        return 0;
    return value < 0 || value > veryLarge ? veryLarge : int(value);
}

QVector<OrderRecord> orders(const QStandardItemModel &grid, unsigned uid)
{
    QVector<OrderRecord> result;
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (!isFood(grid, row))
            continue;
        OrderRecord order;
        order.orderableID = text(grid, row, PersonMenuColumn::OrderableId).toUInt();
        order.uid = uid;
        order.quantity = quantity(text(grid, row, PersonMenuColumn::Total));
        result.append(order);
    }
    return result;
}

void recalculate(QStandardItemModel &grid, const QString &currencySymbol)
{
    const int total = grid.rowCount() - 1;
    if (total < 0)
        return;
    // One pass from the end: when a heading comes, the sum of its type holds exactly the foods below it.
    QHash<QString, Sum> types;
    Sum grand;
    for (int row = total - 1; row >= 0; --row) {
        Sum &type = types[text(grid, row, PersonMenuColumn::TypeId)];
        if (isHeading(grid, row)) {
            writeSum(grid, row, type, currencySymbol);
            grand += type;
        } else {
            const Sum food = foodSum(grid, row);
            writeMoney(grid, row, food.money, currencySymbol);
            type += food;
        }
    }
    writeSum(grid, total, grand, currencySymbol);
}

} // namespace OrderForm
