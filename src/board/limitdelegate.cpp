#include "board/limitdelegate.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

QWidget *LimitDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                     const QModelIndex &index) const
{
    QWidget *editor = MenuDelegate::createEditor(parent, option, index);
    if (auto *line = qobject_cast<QLineEdit *>(editor))
        line->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), line));
    return editor;
}
