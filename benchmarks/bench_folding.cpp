// Whether folding the totals of a grid takes time in proportion to its rows: the processor time of a grid of 12,000
// rows and of grids of twice and four times as many. They are longer than any real one, so that none fits the
// processor's caches; what still grows more than in proportion is seen in a plain reading of the cells. Folding may
// grow 1.5 times as much as that reading at the most: a walk over all rows for each row would grow four times as much.
// Needs no database.
#include "session/menucolumns.h"
#include "store/menufolding.h"
#include "support/figures.h"

#include <QStandardItemModel>

#include <functional>
#include <limits>

namespace {

constexpr int types = 6;
constexpr int runs = 9;
constexpr int smallest = 12000;
constexpr double mostGrowth = 1.5;

using Columns = QMap<int, QString>;

void appendRow(QStandardItemModel &grid, int columns, const Columns &cells)
{
    QList<QStandardItem *> row;
    for (int column = 0; column < columns; ++column)
        row.append(new QStandardItem(cells.value(column)));
    grid.appendRow(row);
}

/// A grid in the order of the database: each type's heading, then its foods.
void fill(QStandardItemModel &grid, int columns, int rows, int moneyColumn)
{
    grid.clear();
    for (int type = 1; type <= types; ++type) {
        const QString position = QString::number(type);
        appendRow(grid, columns, {{MenuColumn::FoodId, QStringLiteral("0")}, {MenuColumn::TypeId, position}});
        for (int food = 0; food < rows / types; ++food) {
            Columns cells{{MenuColumn::FoodId, QString::number(1 + food)},
                          {MenuColumn::TypeId, position},
                          {MenuColumn::Total, QString::number(food % 5)}};
            if (moneyColumn >= 0)
                cells.insert(moneyColumn, QString::number(food % 5 * 1.5, 'f', 2));
            appendRow(grid, columns, cells);
        }
    }
}

/// Reads the cells that folding looks at, each once.
void read(const QStandardItemModel &grid)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (const int column : {int(MenuColumn::FoodId), int(MenuColumn::TypeId), int(MenuColumn::Total)})
            grid.index(row, column).data().toString();
    }
}

struct Times {
    double reading = std::numeric_limits<double>::max();
    double folding = std::numeric_limits<double>::max();
};

/// The least times of several runs: what the work takes when nothing disturbs it.
Times leastTimes(int columns, int rows, int moneyColumn, const std::function<void(QStandardItemModel &)> &fold)
{
    Times least;
    for (int run = 0; run < runs; ++run) {
        QStandardItemModel grid;
        fill(grid, columns, rows, moneyColumn);
        const double start = processorMilliseconds();
        read(grid);
        const double middle = processorMilliseconds();
        fold(grid);
        const double end = processorMilliseconds();
        least = {qMin(least.reading, middle - start), qMin(least.folding, end - middle)};
    }
    return least;
}

void measure(const QString &what, int columns, int moneyColumn, const std::function<void(QStandardItemModel &)> &fold)
{
    const Times first = leastTimes(columns, smallest, moneyColumn, fold);
    for (int rows = 2 * smallest; rows <= 4 * smallest; rows *= 2) {
        const Times times = leastTimes(columns, rows, moneyColumn, fold);
        const double reading = times.reading / first.reading;
        const double folding = times.folding / first.folding;
        const QString line = QStringLiteral("%1, %2 rows: %3 ms, %4 times that of %5 rows, reading %6 times; ratio")
                                 .arg(what)
                                 .arg(rows)
                                 .arg(times.folding, 0, 'f', 2)
                                 .arg(folding, 0, 'f', 2)
                                 .arg(smallest)
                                 .arg(reading, 0, 'f', 2);
        printAgainstLimit(line, folding / reading, mostGrowth, QStringLiteral("times"));
    }
}

} // namespace

int main()
{
    measure(QStringLiteral("foldDayMenu"), MenuColumn::Count, -1,
            [](QStandardItemModel &grid) { MenuFolding::foldDayMenu(grid); });
    measure(QStringLiteral("foldPersonMenu"), PersonMenuColumn::Count, PersonMenuColumn::Money,
            [](QStandardItemModel &grid) { MenuFolding::foldPersonMenu(grid, QStringLiteral("€")); });
    return 0;
}
