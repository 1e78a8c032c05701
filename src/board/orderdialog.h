#pragma once

#include <QDate>
#include <QDialog>
#include <QSqlDatabase>
#include <QString>

#include <memory>

class FoodRepository;
class OrderProxyModel;
class OrderRepository;
class PeopleModel;
class QStandardItemModel;
class TotalDelegate;
struct OrderRecord;

namespace Ui {
class OrderDialog;
}

/// The entry of what one person orders in one service slot on one day: each item of the day's menu that is open for
/// orders with the buttons "-" and "+" and a quantity that can be typed (`TotalDelegate`), below headings with the sums
/// of their types, above the grand total. Items of informative types can be changed by their buttons only. An old day
/// is warned of and not refused.
///
/// The changes live in the dialog until "Potvrdiť", which can be pressed once something has changed. It rewrites every
/// row on its own, by delete and add, without a transaction; a row that the item's limit refuses, or that fails, shows
/// a box, leaves the other rows alone and the dialog still closes. The limit counts whether or not its column is shown
/// on the board. `exec()` is 1 after a save, else 0. What a typed negative or huge number means is told at
/// `OrderForm::quantity`; a row of that kind is logged as a warning when it is saved.
///
/// Enter ends the typing of a quantity or presses the button that has the focus; there is no default button. With a
/// database that is not open the dialog stays empty.
class OrderDialog : public QDialog {
    Q_OBJECT

public:
    /// Loads the form. `branchID` 0 stands for menus without a branch; `adminID` goes into the audit text of the
    /// orders. `parent` owns the dialog.
    OrderDialog(const QSqlDatabase &db, unsigned segmentID, const QString &segmentName, QDate date, unsigned uid,
                unsigned adminID, unsigned branchID, QWidget *parent);
    ~OrderDialog() override;
    Q_DISABLE_COPY(OrderDialog)

public slots:
    /// Sums the form anew after a change and lets it be confirmed.
    void recalculate();
    void on_pushButtonCancel_clicked();
    /// Saves the orders and closes the dialog.
    void on_pushButtonOk_clicked();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setUpWarning();
    void loadForm(unsigned segmentID);
    void setUpView();
    void goToFirstQuantity();
    void save(OrderRecord order);
    void replace(const OrderRecord &order);
    void showRefusal(const OrderRecord &order, qint64 allowed);
    void showFailure(const QString &text);

    QSqlDatabase m_db;
    const QString m_segmentName;
    const QDate m_date;
    const unsigned m_uid;
    const unsigned m_adminID;
    const unsigned m_branchID;
    std::unique_ptr<Ui::OrderDialog> m_ui;
    PeopleModel *m_peopleModel;
    FoodRepository *m_foodRepository;
    OrderRepository *m_orderRepository;
    OrderProxyModel *m_proxy;
    TotalDelegate *m_delegate;
    QStandardItemModel *m_grid = nullptr;
};
