#pragma once

#include <QDate>
#include <QSqlDatabase>
#include <QString>
#include <QWidget>

#include <memory>

class OrderModel;
class OrderProxyModel;
class SegmentModel;

namespace Ui {
class OrderWidget;
}

/// A page for browsing all orders: the list of `OrderModel::allOrders` through `OrderProxyModel`, which shows day,
/// name, price and who entered the order. The selectors report every change by a signal.
///
/// No menu entry opens this page. Not supported, and left to whoever gives it an entry: `OrderProxyModel` does not take
/// the reported day, person and slot as filters (the signals are connected to nothing), and neither "pridať objednávku"
/// nor "export buttony" nor the sum does anything.
class OrderWidget : public QWidget {
    Q_OBJECT

public:
    /// Loads the orders and the slots; both days are today.
    OrderWidget(const QSqlDatabase &db, QWidget *parent);
    ~OrderWidget() override;
    Q_DISABLE_COPY(OrderWidget)

signals:
    void datefromchanged(QDate date);
    void datetochanged(QDate date);
    void textchanged(QString text);
    /// The slot's name, empty for all slots.
    void segmentchanged(QString segment);

public slots:
    void on_dateEditFrom_dateChanged(QDate date);
    /// A single day: the second date follows the first and cannot be edited.
    void on_checkBoxSingleDay_clicked();
    void on_dateEditTo_dateChanged(QDate date);
    void on_comboBoxSegment_currentIndexChanged(QString arg1);
    void on_lineEditPerson_textChanged(QString arg1);

private:
    void fillSegments();

    std::unique_ptr<Ui::OrderWidget> m_ui;
    OrderModel *m_orders;
    OrderProxyModel *m_proxy;
    SegmentModel *m_segments;
};
