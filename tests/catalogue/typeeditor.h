#pragma once

#include "catalogue/dialogdata.h"
#include "catalogue/dialogtype.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

/// The type dialog with short ways to its widgets.
class TypeEditor : public Opened<DialogType> {
public:
    explicit TypeEditor(const QSqlDatabase &db, int typeID = 0)
        : Opened(db, nullptr, typeID)
    {
    }

    QLineEdit *name() const { return find<QLineEdit>("lineEditName"); }
    QComboBox *position() const { return find<QComboBox>("comboBoxPos"); }
    QCheckBox *informative() const { return find<QCheckBox>("checkBoxInformative"); }
    QPushButton *deleteType() const { return find<QPushButton>("pushButtonDelete"); }
    QPushButton *cancel() const { return find<QPushButton>("pushButtonCancel"); }
    QPushButton *save() const { return find<QPushButton>("pushButtonSave"); }

    QStringList positions() const
    {
        QStringList texts;
        for (int index = 0; index < position()->count(); ++index)
            texts.append(position()->itemText(index));
        return texts;
    }
};
