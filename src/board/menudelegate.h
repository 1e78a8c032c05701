#pragma once

#include <QStyledItemDelegate>

/// Paints the rows of the menu tables of the day card and of the menu editor: food rows on white, heading rows, known
/// by the font that their first column carries, on light blue. The colour fills the cell but for one pixel at each
/// edge; selection, text and a background of the item's own come on top, as usual. Without state.
class MenuDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
