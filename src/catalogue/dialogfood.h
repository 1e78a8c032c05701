#pragma once

#include "store/foodrepository.h"

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

class AlergenModel;
class QStandardItemModel;
class SupplierModel;
class TypeModel;

namespace Ui {
class DialogFood;
}

/// The editor of one food: name, type, supplier, picture, description, allergens and price.
///
/// `exec()` is 1 after a save, 2 after a deletion, else 0. A save writes the food and then a link for each allergen,
/// each statement by itself: a failure shows the repository's box, and the save goes on and closes the dialog. Only the
/// deletion is a transaction, over the food and its allergens.
///
/// A picture file is stored as JPEG in its full size. A food whose picture is not chosen anew keeps its stored bytes.
/// A type or supplier that is not listed, say none at all, leaves its selector without a choice, and a save keeps the
/// food's key.
class DialogFood : public QDialog {
    Q_OBJECT

public:
    /// `food` as loaded, or an empty record for a new food. With a handle that is not open there is an empty form only.
    /// `parent` owns the dialog.
    DialogFood(FoodRecord food, const QSqlDatabase &db, QWidget *parent);
    ~DialogFood() override;
    Q_DISABLE_COPY(DialogFood)

public slots:
    /// Asks for a JPEG or PNG file and shows it. A file that cannot be read as a picture changes nothing, without a
    /// word.
    void on_pushButtonChoosePicture_clicked();
    /// Saves the food and closes the dialog with result 1.
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    /// Asks, then deletes the food with its allergens and closes the dialog: with result 2, or with 0 and everything as
    /// it was if the database refuses.
    void on_pushButtonDelete_clicked();
    /// Saving needs a name.
    void on_lineEdit_textChanged(QString arg1);

private:
    void showNewFood();
    void showFood();
    void showPicture();
    void readForm();
    void encodePicture();
    void saveAlergens();
    bool deleteWithAlergens();
    QString caption() const;

    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogFood> m_ui;
    FoodRecord m_food;
    QString m_typeName; ///< as stored, like `m_food` up to the save
    bool m_pictureChosen = false;
    SupplierModel *m_suppliers;
    TypeModel *m_types;
    AlergenModel *m_alergens;
    QStandardItemModel *m_checkableAlergens = nullptr;
};
