#pragma once

#include "store/alergenrepository.h"

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

class AlergenModel;

namespace Ui {
class DialogAlergen;
}

/// The list of allergens, with the description of the current one, and the way to add, edit and delete them. In a
/// read-only session the list can be browsed and nothing else.
class DialogAlergen : public QDialog {
    Q_OBJECT

public:
    /// Loads the list. `parent` owns the dialog.
    DialogAlergen(const QSqlDatabase &db, QWidget *parent);
    ~DialogAlergen() override;
    Q_DISABLE_COPY(DialogAlergen)

public slots:
    void on_pushButtonPridat_clicked();
    void on_pushButtonUpravit_clicked();
    /// Asks, then deletes the current allergen. The database refuses while foods have it.
    void on_pushButtonZmazat_clicked();
    /// Takes up the selected row: shows its description and opens its actions. Without one there is nothing to show and
    /// only the adding is open.
    void itemSelection();
    /// Reads the list anew, with no row selected and only the adding open.
    void resetModel();

private:
    void edit(unsigned alergenID);
    void showNone();

    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogAlergen> m_ui;
    AlergenRepository m_repository;
    AlergenModel *m_alergens;
    unsigned m_alergenID = 0;
    QString m_title;
};
