#pragma once

#include <QStandardItemModel>
#include <QStringList>

/// Appends rows of text cells, each written as "a|b|c"; an empty field is an empty text, as a repository writes a NULL.
inline void appendRows(QStandardItemModel &model, const QStringList &rows)
{
    for (const QString &row : rows) {
        QList<QStandardItem *> items;
        const QStringList cells = row.split(QLatin1Char('|'));
        for (const QString &cell : cells)
            items.append(new QStandardItem(cell));
        model.appendRow(items);
    }
}

/// A row of the day's or the week's grid with the cells that the filters read.
inline QString menuRow(const QString &food, const QString &name, const QString &segment = QString(),
                       const QString &date = QString(), const QString &total = QString(),
                       const QString &supplier = QString(), const QString &limit = QString())
{
    const QString none;
    return QStringList{food, none, name, none, segment, date, none, none, none, total, supplier, none, none, limit}
        .join(QLatin1Char('|'));
}
