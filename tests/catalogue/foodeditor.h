#pragma once

#include "catalogue/dialogdata.h"
#include "catalogue/dialogfood.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>

/// The food dialog with short ways to its widgets.
class FoodEditor : public Opened<DialogFood> {
public:
    /// The food as it is stored; 0 for a new one.
    explicit FoodEditor(const QSqlDatabase &db, uint foodID = 0)
        : Opened(foodID == 0 ? FoodRecord() : FoodRepository(db).loadFood(foodID), db, nullptr)
    {
    }

    QLineEdit *name() const { return find<QLineEdit>("lineEdit"); }
    QLineEdit *price() const { return find<QLineEdit>("lineEditPrice"); }
    QComboBox *type() const { return find<QComboBox>("comboBoxType"); }
    QComboBox *supplier() const { return find<QComboBox>("comboBoxSupplier"); }
    QPlainTextEdit *description() const { return find<QPlainTextEdit>("plainTextEditDesc"); }
    QLabel *picture() const { return find<QLabel>("labelPixmap"); }
    QListView *alergens() const { return find<QListView>("listViewAlergens"); }
    QPushButton *choosePicture() const { return find<QPushButton>("pushButtonChoosePicture"); }
    QPushButton *deleteFood() const { return find<QPushButton>("pushButtonDelete"); }
    QPushButton *cancel() const { return find<QPushButton>("pushButtonCancel"); }
    QPushButton *save() const { return find<QPushButton>("pushButtonSave"); }

    /// "[x] Vajcia" of all allergens.
    QStringList marks() const
    {
        QStringList marks;
        const QAbstractItemModel &model = *alergens()->model();
        for (int row = 0; row < model.rowCount(); ++row)
            marks.append((model.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStringLiteral("[x] ")
                                                                                              : QStringLiteral("[ ] "))
                         + model.index(row, 0).data().toString());
        return marks;
    }
    void mark(int row, Qt::CheckState state) const
    {
        QAbstractItemModel *model = alergens()->model();
        model->setData(model->index(row, 0), state, Qt::CheckStateRole);
    }
};
