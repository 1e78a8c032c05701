#pragma once

#include "board/daydata.h"
#include "board/orderdialog.h"
#include "support/modelstrings.h"

#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest>

/// The order dialog of person 7 with short ways to its widgets.
class OrderEntry : public OrderDialog {
public:
    enum Column { NameColumn, MinusColumn, QuantityColumn, PlusColumn };

    explicit OrderEntry(const QSqlDatabase &db, QDate date = DayData::day(), unsigned branch = 0, unsigned person = 7)
        : OrderDialog(db, 1, QStringLiteral("Obed"), date, person, 5, branch, nullptr)
    {
    }

    QTableView *table() const { return findChild<QTableView *>(QStringLiteral("tableViewMenu")); }
    QAbstractItemModel *model() const { return table()->model(); }
    QLabel *warning() const { return findChild<QLabel *>(QStringLiteral("labelwarning")); }
    QPushButton *ok() const { return findChild<QPushButton *>(QStringLiteral("pushButtonOk")); }
    QPushButton *cancel() const { return findChild<QPushButton *>(QStringLiteral("pushButtonCancel")); }

    /// "name: quantity, money" of each row.
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < model()->rowCount(); ++row)
            texts.append(QStringLiteral("%1: %2, %3")
                             .arg(text(row, NameColumn), text(row, QuantityColumn), text(row, PlusColumn)));
        return texts;
    }
    QString text(int row, int column) const { return model()->index(row, column).data().toString(); }
    QModelIndex cell(const QString &name, int column = QuantityColumn) const
    {
        return model()->index(int(columnTexts(*model(), NameColumn).indexOf(name)), column);
    }
    QModelIndex cell(int food, int column = QuantityColumn) const
    {
        return cell(QStringLiteral("DOD jedlo %1").arg(food), column);
    }
    void setQuantity(int food, const QString &quantity) const { model()->setData(cell(food), quantity); }
    void click(const QModelIndex &index) const
    {
        table()->scrollTo(index);
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, table()->visualRect(index).center());
    }
};
