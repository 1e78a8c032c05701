#include "widgets/enterkey.h"

#include <QAbstractButton>
#include <QKeyEvent>

bool pressFocusedButton(const QWidget &dialog, const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    if (auto *button = qobject_cast<QAbstractButton *>(dialog.focusWidget()))
        button->click();
    return true;
}
