#pragma once

#include <QItemDelegate>

/// Serves the grid of the order dialog, four columns: 0 name, 1 the position in the menu, 2 quantity, 3 money. In place
/// of position and money it paints the buttons "-" and "+", which change the quantity of their row by one; the money is
/// carried by the model and not shown. A row whose position is 0 (a heading, the total) has no buttons, and the two
/// cells stay blank.
///
/// A button reacts to the release of any mouse button within its cell, whether the cell is enabled or not. The quantity
/// is edited as a whole number; clearing it and pressing Enter makes it 0.
class TotalDelegate : public QItemDelegate {
    Q_OBJECT

public:
    /// In a cell of column 1: true gives the row its buttons although its position is 0.
    static constexpr int ButtonsRole = Qt::UserRole + 1;

    using QItemDelegate::QItemDelegate;

    /// A line edit for whole numbers of the whole range of int, negative ones too.
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};
