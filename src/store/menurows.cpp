#include "store/menurows.h"

#include "session/menucolumns.h"
#include "session/sqltext.h"
#include "store/menufolding.h"

#include <QFont>
#include <QSqlQuery>
#include <QStandardItem>
#include <QVariant>

namespace {

constexpr int boldWeight = 75;

/// Columns of the person's statement that the grid does not have at the same place.
enum PersonSource : int { PersonShortcut = 10, PersonInformative = 11 };
enum PrintedSource : int { PrintedSlot, PrintedTypeName, PrintedFoodName, PrintedPrice };

QList<QStandardItem *> itemsOf(const QStringList &cells)
{
    QList<QStandardItem *> items;
    items.reserve(cells.size());
    for (const QString &cell : cells)
        items.append(new QStandardItem(cell));
    return items;
}

QStringList texts(const QSqlQuery &row, int columns)
{
    QStringList cells;
    cells.reserve(columns);
    for (int column = 0; column < columns; ++column)
        cells.append(sqlText(row.value(column)));
    return cells;
}

/// The cells that both grids of `MenuColumn` share: a limit of 0, or of a heading, shows as nothing.
QStringList menuCells(const QSqlQuery &row)
{
    QStringList cells = texts(row, MenuColumn::Count);
    if (!row.value(MenuColumn::FoodId).toBool() || !row.value(MenuColumn::Limit).toBool())
        cells[MenuColumn::Limit].clear();
    return cells;
}

bool isHeading(const QStringList &cells)
{
    return cells.at(MenuColumn::FoodId) == QLatin1String("0");
}

void makeBold(QStandardItem *item)
{
    QFont font = item->font();
    font.setWeight(boldWeight);
    item->setFont(font);
}

void makeReadOnly(const QList<QStandardItem *> &items, std::initializer_list<int> columns)
{
    for (const int column : columns)
        items.at(column)->setEditable(false);
}

void makeUnselectable(const QList<QStandardItem *> &items, std::initializer_list<int> columns)
{
    for (const int column : columns)
        items.at(column)->setSelectable(false);
}

void center(const QList<QStandardItem *> &items, std::initializer_list<int> columns)
{
    for (const int column : columns)
        items.at(column)->setTextAlignment(Qt::AlignCenter);
}

} // namespace

namespace MenuRows {

QList<QStandardItem *> day(const QSqlQuery &row)
{
    const QStringList cells = menuCells(row);
    const QList<QStandardItem *> items = itemsOf(cells);
    makeReadOnly(items, {MenuColumn::Name, MenuColumn::Total});
    if (isHeading(cells))
        makeReadOnly(items, {MenuColumn::Limit});
    center(items, {MenuColumn::Total});
    return items;
}

QList<QStandardItem *> week(const QSqlQuery &row, const QString &limitToolTip)
{
    QStringList cells = menuCells(row);
    const bool heading = isHeading(cells);
    if (heading)
        cells[MenuColumn::Total] = QStringLiteral(" ");
    const QList<QStandardItem *> items = itemsOf(cells);
    makeReadOnly(items, {MenuColumn::Name, MenuColumn::Total, MenuColumn::Limit});
    makeUnselectable(items, {MenuColumn::Name, MenuColumn::Total});
    center(items, {MenuColumn::Total, MenuColumn::Limit});
    if (heading)
        makeBold(items.at(MenuColumn::Name));
    items.at(MenuColumn::Limit)->setToolTip(limitToolTip);
    return items;
}

QList<QStandardItem *> personDay(const QSqlQuery &row)
{
    QStringList cells = texts(row, PersonMenuColumn::Money);
    cells[PersonMenuColumn::Name].prepend(sqlText(row.value(PersonShortcut)) + QLatin1Char(' '));
    // What is only shown cannot be ordered: the form takes position 0 for "not on offer".
    if (row.value(PersonInformative).toInt() == 1 && row.value(PersonMenuColumn::Position).toInt() > 0)
        cells[PersonMenuColumn::Position] = QStringLiteral("0");
    const double money = row.value(PersonMenuColumn::Total).toDouble() * row.value(PersonMenuColumn::Price).toDouble();
    cells.append(QString::number(money, 'f', 2));
    cells.append(sqlText(row.value(PersonInformative)));
    const QList<QStandardItem *> items = itemsOf(cells);
    makeReadOnly(items, {PersonMenuColumn::Name, PersonMenuColumn::Total, PersonMenuColumn::Money});
    center(items, {PersonMenuColumn::Total, PersonMenuColumn::Money});
    return items;
}

QList<QStandardItem *> personTotal(const QString &name, const QString &portions, const QString &money)
{
    QList<QStandardItem *> items;
    for (int column = 0; column < PersonMenuColumn::Count; ++column)
        items.append(new QStandardItem);
    items.at(PersonMenuColumn::Name)->setText(name);
    items.at(PersonMenuColumn::Position)->setText(QStringLiteral("0"));
    items.at(PersonMenuColumn::Total)->setText(portions);
    items.at(PersonMenuColumn::Money)->setText(money);
    makeReadOnly(items, {PersonMenuColumn::Name, PersonMenuColumn::Total, PersonMenuColumn::Money});
    center(items, {PersonMenuColumn::Total, PersonMenuColumn::Money});
    for (const int column : {PersonMenuColumn::Name, PersonMenuColumn::Total, PersonMenuColumn::Money})
        makeBold(items.at(column));
    return items;
}

QList<QStandardItem *> printedDay(const QSqlQuery &row, const QString &dayText, const QString &currencySymbol)
{
    const QString slot = sqlText(row.value(PrintedSlot));
    const QString food = sqlText(row.value(PrintedFoodName));
    QStringList cells;
    cells.append(slot.isEmpty() ? QString() : slot + dayText);
    cells.append(sqlText(row.value(PrintedTypeName)));
    cells.append(food);
    cells.append(QString());
    cells.append(food.isEmpty() ? QString()
                                : MenuFolding::moneyText(row.value(PrintedPrice).toDouble(), currencySymbol));
    return itemsOf(cells);
}

} // namespace MenuRows
