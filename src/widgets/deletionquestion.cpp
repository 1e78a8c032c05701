#include "widgets/deletionquestion.h"

#include "widgets/messages.h"

bool confirmDeletion(QWidget *parent, const QString &title, const QString &text)
{
    return askMessage(parent, QMessageBox::Question, title, text, QMessageBox::Ok | QMessageBox::Cancel,
                      QMessageBox::Cancel)
        == QMessageBox::Ok;
}
