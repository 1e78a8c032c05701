#pragma once

#include "report/datasetinfo.h"
#include "store/segmentrepository.h"
#include "suppliers/ordermail.h"

#include <QDate>
#include <QDialog>
#include <QModelIndex>
#include <QSqlDatabase>
#include <QVariant>

#include <memory>

class MenuProxyModel;
class QStandardItemModel;
class RptEngine;
class SupplierModel;

namespace Ui {
class DialogReport;
}

/// Sends and prints the orders of one service slot on one day, supplier by supplier, and prints who ordered what.
///
/// Sending opens one message for each supplier in the user's own mail program (`OrderMail`); without a mail program
/// nothing happens and nothing is told. A print opens the preview. The menu is the one that stood when the dialog was
/// made; the list of who ordered what is loaded for each print.
///
/// Failed lists are logged and stay empty; a slot that cannot be read shows the repository's box. Over a closed
/// connection the lists are empty and the buttons do nothing. The dialog may go away, with its parent, while a preview
/// of it stands open.
class DialogReport : public QDialog {
    Q_OBJECT

public:
    /// `bid` 0 stands for all branches. Loads everything and shows the mails of all suppliers. `parent` owns the
    /// dialog.
    DialogReport(QDate date, uint segmentID, uint bid, const QSqlDatabase &db, QWidget *parent);
    ~DialogReport() override;
    Q_DISABLE_COPY(DialogReport)

public slots:
    /// The order's values for ":/menureport.xml": "0" to "3" are columns of the printed supplier's rows (0 item, 1
    /// portions, the others have none), "header" is the heading. Any other name leaves the value as it came.
    void setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage);
    void setDSInfo(DataSetInfo &dsInfo);
    /// The same for ":/segmentreport.xml": "0" to "3" are the columns of `OrderModel::segmentOrders`.
    void setValue2(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage);
    void setDSInfo2(DataSetInfo &dsInfo);
    /// Prints the order of the current supplier; for the first row, that of every supplier, one print after the other.
    /// In a list of nothing but the first row, one print of the rows without a supplier.
    void on_pushButtonPrint_clicked();
    /// Shows the mails of a row's supplier, those of all suppliers for the first row.
    void on_listViewSuppliers_clicked(QModelIndex index);
    void on_checkBoxCopyToBranch_stateChanged(int arg1);
    /// Opens a message for each supplier whose mails are shown.
    void on_pushButtonSend_clicked();
    void on_pushButtonPrintOrders_clicked();

protected:
    /// Enter presses the button that has the focus and nothing else.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setUpForm();
    void loadSegment();
    void loadLists();
    void loadMenu();
    void makeEngine();
    void showRowsOf(int supplierID);
    bool printOrder(int row);
    QStringList blindCopies() const;
    QVector<OrderMail::AddressRow> orderMails() const;
    QVector<OrderMail::Item> shownItems() const;

    const QDate m_date;
    const uint m_segmentID;
    const uint m_bid; ///< 0 stands for all branches
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogReport> m_ui;
    // All below are null over a closed connection.
    RptEngine *m_engine = nullptr; ///< for the orders of the suppliers
    MenuProxyModel *m_proxy = nullptr; ///< the rows of one supplier
    SupplierModel *m_supplierModel = nullptr;
    QStandardItemModel *m_suppliers = nullptr;
    QStandardItemModel *m_orderMails = nullptr;
    QStandardItemModel *m_branchMails = nullptr;
    QStandardItemModel *m_menu = nullptr;
    std::unique_ptr<QStandardItemModel> m_orders; ///< null until they are printed
    /// Whether the order is binding. Nothing sets it as yet: when an order counts as final is still to be decided.
    const bool m_isFinalOrder = false;
    QString m_supplierName; ///< that of the print
    SegmentRecord m_segment;
};
