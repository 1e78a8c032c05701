#pragma once

#include "board/menudelegate.h"

/// The delegate of the menu editor's table: paints as `MenuDelegate` and lets no more than nine digits be typed as an
/// item's limit, or nothing at all for no limit.
class LimitDelegate : public MenuDelegate {
    Q_OBJECT

public:
    using MenuDelegate::MenuDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
