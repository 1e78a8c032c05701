#include "widgets/messages.h"

#include "widgets/longtext.h"

#include <QPointer>

void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text)
{
    const QPointer<QMessageBox> box(new QMessageBox(icon, title, text, QMessageBox::Ok, parent));
    box->setTextFormat(Qt::PlainText);
    keepLongTextInside(box);
    box->exec();
    delete box;
}
