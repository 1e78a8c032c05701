#pragma once

#include "store/alergenrepository.h"

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

namespace Ui {
class DialogAddAlergen;
}

/// The editor of one allergen. A failure shows the repository's box, and the dialog closes all the same.
class DialogAddAlergen : public QDialog {
    Q_OBJECT

public:
    /// `alergenID` 0, or an allergen that is not there any more, makes a new one. `parent` owns the dialog.
    DialogAddAlergen(uint alergenID, const QSqlDatabase &db, QWidget *parent);
    ~DialogAddAlergen() override;
    Q_DISABLE_COPY(DialogAddAlergen)

public slots:
    /// Saving needs a title.
    void on_lineEditTitle_textEdited(QString arg1);
    /// Writes the allergen and closes the dialog; without a title it only closes. Logs "pridavam" or "updatujem" with
    /// key, title and description.
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    /// Asks, then deletes the allergen and closes the dialog. The database refuses while foods have it.
    void on_pushButtonDelete_clicked();

private:
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogAddAlergen> m_ui;
    AlergenRepository m_repository;
    AlergenRecord m_alergen;
};
