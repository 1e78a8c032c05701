#include "suppliers/listcontent.h"

#include <QItemSelectionModel>
#include <QListView>
#include <QStandardItemModel>

void showContent(QListView *view, QStandardItemModel *content, int column)
{
    QAbstractItemModel *old = view->model();
    if (old == content)
        return;
    content->setParent(view);
    view->setModel(content);
    view->setModelColumn(column);
    QItemSelectionModel *selection = view->selectionModel();
    QObject::connect(selection, &QItemSelectionModel::currentChanged, selection,
                     [selection](const QModelIndex &current) {
                         selection->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
                     });
    // Its selection model goes with it: the view has tied the two.
    if (old)
        old->deleteLater();
}
