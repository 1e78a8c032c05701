#include "board/menuarrangement.h"

#include "session/menucolumns.h"
#include "store/foodrepository.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QStandardItemModel>
#include <QString>
#include <QVariant>

#include <algorithm>

namespace {

constexpr int headingWeight = 75;
constexpr int headingPointSize = 12;
const QRgb orderedBackground = qRgba(255, 0, 0, 80);

QString text(const QStandardItemModel &rows, int row, int column)
{
    return rows.index(row, column).data().toString();
}

/// A food that was just put on the menu has an empty position, which is not that of a heading.
bool isHeading(const QStandardItemModel &rows, int row)
{
    return text(rows, row, MenuColumn::Position) == QLatin1String("0");
}

bool isRow(const QStandardItemModel &rows, int row)
{
    return row >= 0 && row < rows.rowCount();
}

void emphasise(QStandardItem &name)
{
    QFont font = name.font();
    font.setWeight(headingWeight);
    font.setPointSize(headingPointSize);
    name.setFont(font);
}

void markOrdered(QStandardItemModel &menu, int row, const QString &toolTip)
{
    QStandardItem *name = menu.item(row, MenuColumn::Name);
    name->setBackground(QColor::fromRgba(orderedBackground));
    name->setToolTip(toolTip);
    menu.item(row, MenuColumn::FoodId)->setText(QStringLiteral("-1"));
}

void prependShortcut(QStandardItem &name, const QStandardItem &shortcut)
{
    name.setText(shortcut.text() + QLatin1Char(' ') + name.text());
}

void dressMenuRow(QStandardItemModel &menu, int row, const QString &orderedToolTip)
{
    prependShortcut(*menu.item(row, MenuColumn::Name), *menu.item(row, MenuColumn::Shortcut));
    if (isHeading(menu, row))
        emphasise(*menu.item(row, MenuColumn::Name));
    if (text(menu, row, MenuColumn::Total).toInt() > 0 && text(menu, row, MenuColumn::FoodId).toInt() > 0)
        markOrdered(menu, row, orderedToolTip);
}

bool exchange(QStandardItemModel &menu, int row, int other)
{
    if (!isRow(menu, row) || !isRow(menu, other) || isHeading(menu, row) || isHeading(menu, other)
        || text(menu, row, MenuColumn::TypeId) != text(menu, other, MenuColumn::TypeId))
        return false;
    menu.insertRow(other, menu.takeRow(row));
    return true;
}

OrderableRecord menuItem(const QStandardItemModel &menu, int row, const OrderableRecord &slot)
{
    OrderableRecord item = slot;
    item.orderableID = text(menu, row, MenuColumn::OrderableId).toUInt();
    item.foodID = text(menu, row, MenuColumn::FoodId).toUInt();
    item.price = text(menu, row, MenuColumn::Price).replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    item.limit = text(menu, row, MenuColumn::Limit).toUInt();
    return item;
}

} // namespace

namespace MenuArrangement {

void split(QStandardItemModel &menu, QStandardItemModel &foods, const QString &orderedToolTip)
{
    // From the last row to the first, so that taking rows out moves none that is still to come. They are gathered
    // backwards and appended at the end: inserting each at row 0 would move all rows of a long catalogue for each food.
    // A food is renamed after it left the grid: within one, the model would first search all rows for the cell.
    QVector<QList<QStandardItem *>> offMenu;
    for (int row = menu.rowCount() - 1; row >= 0; --row) {
        if (!text(menu, row, MenuColumn::Position).isEmpty()) {
            dressMenuRow(menu, row, orderedToolTip);
            continue;
        }
        offMenu.append(menu.takeRow(row));
        prependShortcut(*offMenu.last().at(MenuColumn::Name), *offMenu.last().at(MenuColumn::Shortcut));
    }
    std::for_each(offMenu.crbegin(), offMenu.crend(), [&foods](const auto &row) { foods.appendRow(row); });
}

QList<QStandardItem *> newFoodRow(const FoodRecord &food, uint typePosition)
{
    QList<QStandardItem *> row;
    for (int column = MenuColumn::FoodId; column <= MenuColumn::Total; ++column)
        row.append(new QStandardItem);
    row.at(MenuColumn::FoodId)->setText(QString::number(food.foodID));
    row.at(MenuColumn::TypeId)->setText(QString::number(typePosition));
    row.at(MenuColumn::Name)->setText(food.name);
    row.at(MenuColumn::Price)->setText(QVariant(food.price).toString());
    row.at(MenuColumn::Total)->setText(QStringLiteral("0"));
    return row;
}

bool add(QStandardItemModel &foods, int food, QStandardItemModel &menu)
{
    if (!isRow(foods, food))
        return false;
    const QString type = text(foods, food, MenuColumn::TypeId);
    for (int row = 0; row < menu.rowCount(); ++row) {
        if (text(menu, row, MenuColumn::TypeId) == type) {
            menu.insertRow(row + 1, foods.takeRow(food));
            return true;
        }
    }
    return false;
}

bool remove(QStandardItemModel &menu, int row, QStandardItemModel &foods)
{
    if (!isRow(menu, row) || text(menu, row, MenuColumn::FoodId).toInt() <= 0)
        return false;
    foods.appendRow(menu.takeRow(row));
    return true;
}

bool moveUp(QStandardItemModel &menu, int row)
{
    return exchange(menu, row, row - 1);
}

bool moveDown(QStandardItemModel &menu, int row)
{
    return exchange(menu, row, row + 1);
}

QVector<uint> removedItems(const QStandardItemModel &foods)
{
    QVector<uint> keys;
    for (int row = 0; row < foods.rowCount(); ++row) {
        const uint key = text(foods, row, MenuColumn::OrderableId).toUInt();
        if (key > 0)
            keys.append(key);
    }
    return keys;
}

QVector<OrderableRecord> menuItems(const QStandardItemModel &menu, const OrderableRecord &slot)
{
    QVector<OrderableRecord> items;
    for (int row = 0; row < menu.rowCount(); ++row) {
        if (text(menu, row, MenuColumn::FoodId).toInt() == 0)
            continue;
        items.append(menuItem(menu, row, slot));
        items.last().position = quint32(items.size());
    }
    return items;
}

} // namespace MenuArrangement
