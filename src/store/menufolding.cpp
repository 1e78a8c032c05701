#include "store/menufolding.h"

#include "session/menucolumns.h"

#include <QHash>
#include <QStandardItemModel>
#include <QVector>

namespace {

// Both grids that are folded have their headings and types in the same two columns.
static_assert(int(MenuColumn::FoodId) == int(PersonMenuColumn::FoodId), "one test for headings");
static_assert(int(MenuColumn::TypeId) == int(PersonMenuColumn::TypeId), "one key for types");

QString cellText(const QStandardItemModel &menu, int row, int column)
{
    return menu.index(row, column).data().toString();
}

void setCellText(QStandardItemModel &menu, int row, int column, const QString &text)
{
    menu.setData(menu.index(row, column), text, Qt::EditRole);
}

bool isHeading(const QStandardItemModel &menu, int row)
{
    return cellText(menu, row, MenuColumn::FoodId) == QLatin1String("0");
}

QString typeOf(const QStandardItemModel &menu, int row)
{
    return cellText(menu, row, MenuColumn::TypeId);
}

/// For each row the number of headings above it that show its type.
QVector<int> countHeadingsAbove(const QStandardItemModel &menu)
{
    QVector<int> above(menu.rowCount());
    QHash<QString, int> headings;
    for (int row = 0; row < menu.rowCount(); ++row) {
        int &seen = headings[typeOf(menu, row)];
        above[row] = seen;
        if (isHeading(menu, row))
            ++seen;
    }
    return above;
}

/// What the rows of one type that lie below the present one add up to.
struct Below {
    qint64 portions = 0;
    double money = 0; ///< as the first heading of the type reads it
    double markedMoney = 0; ///< as later headings read it, from cells that have a currency symbol already
};

} // namespace

namespace MenuFolding {

QString moneyText(double amount, const QString &currencySymbol)
{
    return QString::number(amount, 'f', 2) + QLatin1Char(' ') + currencySymbol;
}

void foldDayMenu(QStandardItemModel &menu)
{
    QHash<QString, qint64> below;
    for (int row = menu.rowCount() - 1; row >= 0; --row) {
        qint64 &portions = below[typeOf(menu, row)];
        const int own = menu.index(row, MenuColumn::Total).data().toInt();
        if (isHeading(menu, row))
            setCellText(menu, row, MenuColumn::Total, QString::number(portions));
        portions += own;
    }
}

Totals foldPersonMenu(QStandardItemModel &menu, const QString &currencySymbol)
{
    const QString mark = QLatin1Char(' ') + currencySymbol;
    const QVector<int> headingsAbove = countHeadingsAbove(menu);
    QHash<QString, Below> sums;
    Totals totals;
    for (int row = menu.rowCount() - 1; row >= 0; --row) {
        Below &below = sums[typeOf(menu, row)];
        const int portions = menu.index(row, PersonMenuColumn::Total).data().toInt();
        const QString money = cellText(menu, row, PersonMenuColumn::Money);
        if (isHeading(menu, row)) {
            const double sum = headingsAbove[row] == 0 ? below.money : below.markedMoney;
            setCellText(menu, row, PersonMenuColumn::Total, QString::number(below.portions));
            setCellText(menu, row, PersonMenuColumn::Money, moneyText(sum, currencySymbol));
            totals.portions += below.portions;
            totals.money += sum;
        } else if (headingsAbove[row] > 0) {
            setCellText(menu, row, PersonMenuColumn::Money, money + mark.repeated(headingsAbove[row]));
        }
        below.portions += portions;
        below.money += money.toDouble();
        below.markedMoney += QString(money + mark).toDouble();
    }
    return totals;
}

void removeEmptyHeadings(QStandardItemModel &menu)
{
    bool foodFollows = false;
    for (int row = menu.rowCount() - 1; row >= 0; --row) {
        const bool hasFood = !cellText(menu, row, WeekMenuColumn::FoodName).isEmpty();
        if (!hasFood && !foodFollows)
            qDeleteAll(menu.takeRow(row));
        else
            foodFollows = hasFood;
    }
}

} // namespace MenuFolding
