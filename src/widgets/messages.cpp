#include "widgets/messages.h"

#include "widgets/longtext.h"

#include <QPointer>

QMessageBox::StandardButton askMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title,
                                       const QString &text, QMessageBox::StandardButtons buttons,
                                       QMessageBox::StandardButton defaultButton)
{
    const QPointer<QMessageBox> box(new QMessageBox(icon, title, text, buttons, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    keepLongTextInside(box);
    const auto answer = static_cast<QMessageBox::StandardButton>(box->exec());
    if (!box)
        return QMessageBox::NoButton;
    delete box;
    return answer;
}

void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    askMessage(parent, icon, title, text, QMessageBox::Ok, QMessageBox::Ok);
}
