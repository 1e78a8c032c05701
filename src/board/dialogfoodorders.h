#pragma once

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

namespace Ui {
class DialogFoodOrders;
}

/// Shows who ordered one menu item: personal number, name and portions (`OrderModel::orderPeopleList`). Read-only. A
/// failure is logged by the model and leaves the list empty.
class DialogFoodOrders : public QDialog {
    Q_OBJECT

public:
    /// Loads the list. `parent` owns the dialog.
    DialogFoodOrders(const QSqlDatabase &db, unsigned orderableID, QWidget *parent);
    ~DialogFoodOrders() override;
    Q_DISABLE_COPY(DialogFoodOrders)

private:
    std::unique_ptr<Ui::DialogFoodOrders> m_ui;
};
