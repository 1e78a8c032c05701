#pragma once

#include "session/menucolumns.h"

#include <QDate>
#include <QFont>
#include <QStandardItemModel>

/// A grid of a week as the store gives it, filled by hand: headings and foods with the cells that a card reads.
class CellGrid : public QStandardItemModel {
public:
    using QStandardItemModel::QStandardItemModel;

    /// A meal type's heading.
    void addHeading(const QString &name)
    {
        QList<QStandardItem *> row = emptyRow();
        row[MenuColumn::FoodId]->setText(QStringLiteral("0"));
        row[MenuColumn::Position]->setText(QStringLiteral("0"));
        row[MenuColumn::Total]->setText(QStringLiteral(" "));
        row[MenuColumn::Name]->setText(name);
        QFont font = row[MenuColumn::Name]->font();
        font.setWeight(QFont::Bold);
        row[MenuColumn::Name]->setFont(font);
        appendRow(row);
    }

    /// A menu item with the key and the food's key `id`.
    void addFood(int id, unsigned segment, QDate date, int locked = 0, const QString &total = QString())
    {
        QList<QStandardItem *> row = emptyRow();
        row[MenuColumn::FoodId]->setText(QString::number(id));
        row[MenuColumn::OrderableId]->setText(QString::number(id));
        row[MenuColumn::Name]->setText(QStringLiteral("food %1").arg(id));
        row[MenuColumn::SegmentId]->setText(QString::number(segment));
        row[MenuColumn::Date]->setText(date.toString(Qt::ISODate));
        row[MenuColumn::Position]->setText(QStringLiteral("1"));
        row[MenuColumn::Locked]->setText(QString::number(locked));
        row[MenuColumn::Total]->setText(total);
        appendRow(row);
    }

private:
    static QList<QStandardItem *> emptyRow()
    {
        QList<QStandardItem *> row;
        for (int column = 0; column < MenuColumn::Count; ++column)
            row.append(new QStandardItem);
        return row;
    }
};
