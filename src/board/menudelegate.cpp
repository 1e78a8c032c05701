#include "board/menudelegate.h"

#include <QPainter>

void MenuDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool heading = index.sibling(index.row(), 0).data(Qt::FontRole).isValid();
    const QColor background = heading ? QColor(0xa5, 0xe5, 0xff) : QColor(Qt::white);
    const QRect inner = option.rect.adjusted(1, 1, -1, -1);
    painter->save();
    painter->fillRect(inner, background);
    painter->setPen(QPen(background, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(inner);
    painter->restore();
    QStyledItemDelegate::paint(painter, option, index);
}
