#include "widgets/positionbox.h"

#include <QAbstractItemModel>
#include <QComboBox>

void fillPositions(QComboBox *box, const QAbstractItemModel &model, int column)
{
    for (int row = 0; row < model.rowCount(); ++row)
        box->addItem(model.index(row, column).data().toString());
}

void addLastPosition(QComboBox *box)
{
    box->addItem(QString::number(box->count() + 1));
    box->setCurrentIndex(box->count() - 1);
}

void showPosition(QComboBox *box, unsigned position)
{
    box->setCurrentIndex(box->findText(QString::number(position)));
}
