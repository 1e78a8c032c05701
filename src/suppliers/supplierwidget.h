#pragma once

#include <QModelIndex>
#include <QSqlDatabase>
#include <QWidget>

#include <memory>

class BranchModel;
class QStandardItemModel;
class SupplierModel;
class SupplierRepository;

namespace Ui {
class SupplierWidget;
}

/// The page of the suppliers: which of them deliver to a branch, the control mail addresses of the branch, and the
/// details of the current supplier. Branches that the administrator may not manage are listed but cannot be chosen; the
/// first row, "- bez strediska -", stands for all branches.
///
/// Check marks and control mails are written at once. An address that does not look like one is dropped without a word.
/// In a read-only session the buttons are closed, the suppliers have no check boxes and double clicks do nothing.
///
/// Failed changes show the repository's box, failed lists are logged and stay empty. Over a closed connection the lists
/// are empty. The supplier's row is kept through every rebuild of the list.
class SupplierWidget : public QWidget {
    Q_OBJECT

public:
    /// `adminID` 0 is an administrator without restriction. Loads the lists and makes their first rows current.
    /// `parent` owns the page.
    SupplierWidget(const QSqlDatabase &db, uint adminID, QWidget *parent);
    ~SupplierWidget() override;
    Q_DISABLE_COPY(SupplierWidget)

public slots:
    /// Loads all that hangs on the current branch, and the suppliers with their check marks.
    void listViewBranchesSelection();
    /// Shows the details of the current supplier, nothing when none is current.
    void listViewSuppliersSelection();
    /// Writes what the check marks say differently from the state as saved, and shows the list as it is then. Logs each
    /// change, a taken-off mark too, as "adding supplier:", its key, "to branch:" and the branch. No row has to be
    /// named: a click on the text of a row finds no difference.
    void updateCheck();
    /// Adds a supplier, which is the current one afterwards.
    void on_pushButton_clicked();
    /// Edits the current supplier. Logs its key.
    void on_pushButton_3_clicked();
    /// Add, edit and delete control mails of the branch.
    void on_pushButtonPridat_2_clicked();
    void on_pushButtonUpravit_2_clicked();
    void on_pushButtonZmazat_2_clicked();
    void on_listViewSuppliers_doubleClicked(QModelIndex index);
    void on_listViewBranchMails_doubleClicked(QModelIndex index);

private:
    void loadLists();
    void loadSuppliers();
    void showSuppliers();
    void loadBranchMails();
    bool isCheckChanged(int row) const;
    bool writeChecks();
    void watchClicks();
    void catchKeyboardCheck();

    QSqlDatabase m_db;
    std::unique_ptr<Ui::SupplierWidget> m_ui;
    BranchModel *m_branchModel;
    SupplierModel *m_supplierModel;
    SupplierRepository *m_repository;
    QStandardItemModel *m_suppliers = nullptr; ///< on show, with the check marks as the user set them
    std::unique_ptr<QStandardItemModel> m_savedSuppliers; ///< the same rows with the check marks as saved
    uint m_supplierID = 0; ///< 0 while no supplier is current
    uint m_bid = 0; ///< 0 stands for all branches
    int m_row = 0; ///< the supplier to be current after a rebuild of the list
    QMetaObject::Connection m_clicked; ///< none while check marks are being written
};
