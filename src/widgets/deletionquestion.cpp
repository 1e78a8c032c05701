#include "widgets/deletionquestion.h"

#include "widgets/longtext.h"

#include <QMessageBox>
#include <QPointer>

bool confirmDeletion(QWidget *parent, const QString &title, const QString &text)
{
    const QPointer<QMessageBox> box(
        new QMessageBox(QMessageBox::Question, title, text, QMessageBox::Ok | QMessageBox::Cancel, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(QMessageBox::Cancel);
    keepLongTextInside(box);
    const int answer = box->exec();
    if (!box)
        return false;
    delete box;
    return answer == QMessageBox::Ok;
}
