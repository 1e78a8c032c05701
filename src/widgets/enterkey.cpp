#include "widgets/enterkey.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QShortcut>

void onEnter(QWidget *widget, const std::function<void()> &action)
{
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, widget);
        shortcut->setContext(Qt::WidgetShortcut);
        QObject::connect(shortcut, &QShortcut::activated, widget, action);
    }
}

bool pressFocusedButton(const QWidget &dialog, const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    if (auto *button = qobject_cast<QAbstractButton *>(dialog.focusWidget()))
        button->click();
    return true;
}
