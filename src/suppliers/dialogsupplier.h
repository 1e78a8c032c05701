#pragma once

#include "store/supplierrepository.h"

#include <QDialog>
#include <QModelIndex>
#include <QSqlDatabase>

#include <memory>

class QListView;
class SupplierModel;

namespace Ui {
class DialogSupplier;
}

/// Edits one supplier, or a new one. `exec()` gives a `Result`.
///
/// The mail addresses are a working copy: they are written, all anew, by the save. The sending times of a supplier are
/// written at once and stay as they are after "Zrušiť"; a new supplier has none yet, so those widgets are hidden. An
/// address that does not look like one is dropped without a word. The save is open while the name has text.
///
/// The deletion of the supplier asks nothing, unlike the other deletions here. A supplier without a deadline is shown
/// with 00:00, which a save then writes. Each statement stands for itself: a failure shows the repository's box, and
/// the rest of the save goes on. Enter in a list edits the current row.
class DialogSupplier : public QDialog {
    Q_OBJECT

public:
    enum Result : int { Cancelled, Saved, Deleted };

    /// `supplier` with the key 0 is a new one, of whose values none is shown. `parent` owns the dialog.
    DialogSupplier(SupplierRecord supplier, const QSqlDatabase &db, QWidget *parent);
    ~DialogSupplier() override;
    Q_DISABLE_COPY(DialogSupplier)

public slots:
    void on_pushButtonPridat_clicked();
    void on_pushButtonUpravit_clicked();
    void on_pushButtonZmazat_clicked();
    /// Opens the buttons that need a current mail.
    void mailSelection();
    /// Opens the buttons that need a current sending time.
    void timeSelection();
    /// Replaces the working copy by the mails as saved.
    void loadSupplierMails();
    void loadSupplierTimes();
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    void on_pushButtonDelete_clicked();
    void on_listViewSupplierMails_doubleClicked(QModelIndex index);
    void on_pushButtonPridatOdosielanie_clicked();
    /// Logs "proEmailDelayID: " and the key.
    void on_pushButtonUpravitOdosielanie_clicked();
    void on_pushButtonZmazatOdosielanie_clicked();

private:
    void showRecord();
    void readRecord();
    void watchName();
    void editTime(uint proMailDelayID);
    void addMails();
    void closeWith(int result);

    SupplierRecord m_supplier;
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogSupplier> m_ui;
    SupplierRepository *m_repository;
    SupplierModel *m_supplierModel;
};
