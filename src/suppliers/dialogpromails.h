#pragma once

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

class SupplierRepository;
struct SupplierTime;

namespace Ui {
class DialogProMails;
}

/// Edits one sending time of a supplier's order mails, or a new one. Writes at once; a deletion asks nothing. Failures
/// show the repository's boxes. `exec()` is always 0: the caller loads its list anew in any case.
class DialogProMails : public QDialog {
    Q_OBJECT

public:
    /// `time` stays the caller's, must outlive the dialog and is not null. With the key 0 it is a new one for its
    /// supplier; else it is replaced by the one that is saved under its key, or left alone when there is none.
    /// `parent` owns the dialog.
    DialogProMails(const QSqlDatabase &db, SupplierTime *time, QWidget *parent);
    ~DialogProMails() override;
    Q_DISABLE_COPY(DialogProMails)

public slots:
    /// Takes the fields over into the caller's record, too.
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    void on_pushButtonDelete_clicked();

private:
    void offerNew();
    void showSaved();

    QSqlDatabase m_db;
    SupplierTime *const m_time;
    std::unique_ptr<Ui::DialogProMails> m_ui;
    SupplierRepository *m_repository;
};
