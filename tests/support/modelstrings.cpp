#include "support/modelstrings.h"

#include <QAbstractItemModel>

QString rowText(const QAbstractItemModel &model, int row)
{
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
        cells.append(model.index(row, column).data().toString());
    return cells.join(QLatin1Char('|'));
}

QStringList rowTexts(const QAbstractItemModel &model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row)
        rows.append(rowText(model, row));
    return rows;
}

QStringList columnTexts(const QAbstractItemModel &model, int column)
{
    QStringList cells;
    for (int row = 0; row < model.rowCount(); ++row)
        cells.append(model.index(row, column).data().toString());
    return cells;
}
