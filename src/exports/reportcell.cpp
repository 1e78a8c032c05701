#include "exports/reportcell.h"

#include <QAbstractItemModel>
#include <QString>

QModelIndex reportCell(const QAbstractItemModel &rows, int row, const QString &name, int columns)
{
    // Not every digit of Unicode is a column's.
    const int column = name.size() == 1 ? name.at(0).unicode() - '0' : -1;
    return column >= 0 && column < columns ? rows.index(row, column) : QModelIndex();
}
