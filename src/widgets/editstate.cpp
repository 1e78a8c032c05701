#include "widgets/editstate.h"

#include <QVariant>
#include <QWidget>

void setEditState(QWidget *dialog, EditState state)
{
    dialog->setProperty("editState", state == EditState::Add ? QStringLiteral("add") : QStringLiteral("edit"));
}
