#pragma once

#include "store/alergenrepository.h"
#include "store/foodrepository.h"
#include "store/supplierrepository.h"

#include <QList>
#include <QModelIndex>
#include <QSqlDatabase>
#include <QStringList>
#include <QWidget>

#include <memory>

class AlergenModel;
class FoodModel;
class FoodProxyModel;
class QTextStream;
class SegmentModel;
class SupplierModel;
class TypeModel;

namespace Ui {
class FoodWidget;
}

/// The page of the catalogue: meal types on the left, the foods of the selected type in the middle, narrowed by typed
/// words, and on the right what the current food looks like. All catalogue dialogs open from here, and the foods go out
/// to and come in from comma-separated files.
///
/// A click on the header above the types, or Escape in them, shows the foods of all types again. Enter on a type or a
/// food does what a double click does.
///
/// The lists are loaded when the page is made and after the dialogs that change them; what other workstations change
/// shows at those moments only. With a closed connection the page is disabled and says so.
///
/// In a read-only session the buttons that change the catalogue are off, and double clicks do nothing. Two differences
/// are kept on purpose: the export and the list of allergens stay open, and selecting a food turns its edit button on
/// again, which then opens the editor.
class FoodWidget : public QWidget {
    Q_OBJECT

public:
    /// `db` is copied. `parent` owns the page.
    explicit FoodWidget(const QSqlDatabase &db, QWidget *parent = nullptr);
    ~FoodWidget() override;
    Q_DISABLE_COPY(FoodWidget)

signals:
    /// The type filter changed; 0 stands for all types.
    void typechanged(int typeID = 0);
    /// The typed words changed.
    void textchanged(QString text);

public slots:
    void on_pushButtonAlergens_clicked();
    /// Edits the food of the preview. Logs "result" and the dialog's result.
    void on_pushButtonEdit_clicked();
    /// Adds a food. The new one is previewed without being selected in the list.
    void on_pushButtonFood_clicked();
    void on_searchFilter_textChanged(QString arg1);
    void on_pushButtonType_clicked();
    void on_tableViewType_doubleClicked(QModelIndex index);
    /// Takes the selected type for the filter.
    void tableViewTypeSelection();
    /// Previews the current food, or the first one shown when none is current; only a current one can be edited.
    void tableViewFoodSelection();
    void setFoodPreview(FoodRecord food);
    void on_tableViewFood_doubleClicked(QModelIndex index);
    /// The export: reads the catalogue over the process's default connection and asks where to write it. Logs
    /// "foodwidget::export jedal - SQl ERROR: ..." with a box when reading fails.
    void on_pushButton_clicked();
    /// Asks for a file's name and writes the rows to it (see `FoodExport::writeFile`). False when the user cancels or
    /// the file cannot be written.
    bool write(QList<QStringList> table);
    /// The import: asks for a file and reads it (see `FoodImport`), then tells the counts. A cancelled question and a
    /// file that cannot be read count as a file without records.
    void on_pushButton_2_clicked();
    /// Reads one record, see `Csv::readRow`.
    bool readCSVRow(QTextStream &in, QStringList *row);

private:
    void openCatalogue();
    void setUpViews();
    void connectViews();
    void showNoConnection();
    void editType(int typeID);
    void reloadTypes();
    void reloadFoods();
    void selectFood(uint foodID);

    QSqlDatabase m_db;
    std::unique_ptr<Ui::FoodWidget> m_ui;
    FoodRepository m_foodRepository;
    SupplierRepository m_supplierRepository;
    FoodModel *m_foodModel = nullptr;
    FoodProxyModel *m_foodProxy = nullptr;
    TypeModel *m_typeModel = nullptr;
    SupplierModel *m_supplierModel = nullptr;
    AlergenModel *m_alergenModel = nullptr;
    SegmentModel *m_segmentModel = nullptr;
    uint m_foodID = 0; ///< the food of the preview
};
