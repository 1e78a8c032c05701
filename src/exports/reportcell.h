#pragma once

#include <QModelIndex>

class QAbstractItemModel;
class QString;

/// The cell that a template's token names by its column: `name` is one digit, "0" to that of the last of `columns`
/// columns (1 to 10), and `row` counts from 0. Invalid for every other name and for a cell that `rows` does not have.
QModelIndex reportCell(const QAbstractItemModel &rows, int row, const QString &name, int columns);
