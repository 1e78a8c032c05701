#include "board/totaldelegate.h"

#include <QApplication>
#include <QIntValidator>
#include <QLineEdit>
#include <QMouseEvent>

#include <limits>

namespace {

enum Column { MinusColumn = 1, QuantityColumn, PlusColumn };

/// In the C locale without group separators: what it lets pass is read back as the same number.
class QuantityValidator : public QIntValidator {
public:
    explicit QuantityValidator(QObject *parent)
        : QIntValidator(parent)
    {
        QLocale plain = QLocale::c();
        plain.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
        setLocale(plain);
    }

    void fixup(QString &input) const override
    {
        if (input.isEmpty())
            input = QStringLiteral("0");
    }
};

bool isButtonColumn(const QModelIndex &index)
{
    return index.column() == MinusColumn || index.column() == PlusColumn;
}

bool hasButtons(const QModelIndex &index)
{
    const QModelIndex position = index.sibling(index.row(), MinusColumn);
    return position.data().toInt() != 0 || position.data(TotalDelegate::ButtonsRole).toBool();
}

bool isReleaseWithin(const QEvent &event, const QRect &cell)
{
    return event.type() == QEvent::MouseButtonRelease && cell.contains(static_cast<const QMouseEvent &>(event).pos());
}

/// A quantity of 0 is not lowered, and none is taken beyond the range of int.
void step(QAbstractItemModel *model, const QModelIndex &button)
{
    const QModelIndex cell = button.sibling(button.row(), QuantityColumn);
    const int quantity = cell.data(Qt::EditRole).toInt();
    const bool lower = button.column() == MinusColumn;
    if (lower ? quantity == 0 || quantity == std::numeric_limits<int>::min()
              : quantity == std::numeric_limits<int>::max())
        return;
    model->setData(cell, QString::number(lower ? quantity - 1 : quantity + 1), Qt::EditRole);
}

} // namespace

QWidget *TotalDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                     const QModelIndex & /*index*/) const
{
    auto *editor = new QLineEdit(parent);
    editor->setValidator(new QuantityValidator(editor));
    return editor;
}

void TotalDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    static_cast<QLineEdit *>(editor)->setText(index.data(Qt::EditRole).toString());
}

void TotalDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    model->setData(index, static_cast<QLineEdit *>(editor)->text(), Qt::EditRole);
}

void TotalDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!isButtonColumn(index)) {
        QItemDelegate::paint(painter, option, index);
        return;
    }
    if (!hasButtons(index))
        return;
    QStyleOptionButton button;
    button.rect = option.rect;
    button.direction = option.direction;
    button.fontMetrics = option.fontMetrics;
    button.state = QStyle::State_Enabled | QStyle::State_Raised;
    button.text = index.column() == MinusColumn ? QStringLiteral("-") : QStringLiteral("+");
    QApplication::style()->drawControl(QStyle::CE_PushButton, &button, painter);
}

bool TotalDelegate::editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                                const QModelIndex &index)
{
    if (isButtonColumn(index) && isReleaseWithin(*event, option.rect) && hasButtons(index))
        step(model, index);
    return QItemDelegate::editorEvent(event, model, option, index);
}
