#pragma once

#include "settings/dialogaddsegment.h"
#include "settings/settingspage.h"

#include <QLineEdit>
#include <QTimeEdit>

/// The editor of a slot with short ways to its widgets; 0 for a new slot.
class SegmentEditor : public DialogAddSegment {
public:
    explicit SegmentEditor(const QSqlDatabase &db, uint segmentID = 0, QWidget *parent = nullptr)
        : DialogAddSegment(segmentID, db, parent)
    {
    }

    template<typename Widget> Widget *find(const char *name) const { return findChild<Widget *>(QLatin1String(name)); }
    QLineEdit *name() const { return find<QLineEdit>("lineEditTitle"); }
    QComboBox *place() const { return find<QComboBox>("comboBox"); }
    QTimeEdit *start() const { return find<QTimeEdit>("timeEdit"); }
    QTimeEdit *stop() const { return find<QTimeEdit>("timeEditStop"); }
    QPushButton *save() const { return find<QPushButton>("pushButtonSave"); }
    QPushButton *cancel() const { return find<QPushButton>("pushButtonCancel"); }
    QPushButton *remove() const { return find<QPushButton>("pushButtonDelete"); }
    /// Replaces the name as a user does.
    void type(const QString &text) const
    {
        name()->selectAll();
        if (text.isEmpty())
            QTest::keyClick(name(), Qt::Key_Delete);
        else
            QTest::keyClicks(name(), text);
    }
    QStringList places() const
    {
        QStringList texts;
        for (int index = 0; index < place()->count(); ++index)
            texts.append(place()->itemText(index));
        return texts;
    }
};
