#pragma once

#include "store/typerepository.h"

#include <QDialog>
#include <QSqlDatabase>
#include <QVector>

#include <memory>

class TypeModel;
struct PositionMove;

namespace Ui {
class DialogType;
}

/// The editor of one meal type and of its place in the order of the menu, which runs from 1 to n without gaps. A save
/// and a deletion shift the other types (rules: store/positions.h). Each statement stands for itself: a failure shows
/// the repository's box and the next one runs; only after a failed deletion nothing is shifted.
class DialogType : public QDialog {
    Q_OBJECT

public:
    /// `typeID` 0, or a type that is not there any more, makes a new type, which goes behind all others unless the user
    /// says otherwise. With a handle that is not open there is an empty form only. `parent` owns the dialog.
    DialogType(const QSqlDatabase &db, QWidget *parent, int typeID);
    ~DialogType() override;
    Q_DISABLE_COPY(DialogType)

public slots:
    /// Makes room, writes the type and closes the dialog. Logs the old and the new position, each step back as "moving
    /// segment, position" with the position left, and "adding segment" or "updating" with key and name.
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    /// Asks, then deletes the type, closes the gap and closes the dialog.
    void on_pushButtonDelete_clicked();
    /// Saving needs a name.
    void on_lineEditName_textChanged(QString arg1);

private:
    void showNewType();
    void showType();
    void makeRoom();
    void move(const QVector<PositionMove> &moves);

    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogType> m_ui;
    TypeRepository m_repository;
    TypeModel *m_types;
    TypeRecord m_type;
};
