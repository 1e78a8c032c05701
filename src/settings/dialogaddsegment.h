#pragma once

#include "store/segmentrepository.h"

#include <QDialog>
#include <QSqlDatabase>
#include <QTime>

#include <memory>

class SegmentModel;

namespace Ui {
class DialogAddSegment;
}

/// The editor of one service slot: its name, its place in the order of slots, and its start and stop.
///
/// `exec()` is 1 after a save, 2 after a deletion, else 0. A save moves the other slots first, one statement each, so
/// that the positions stay 1 to n. A statement that fails shows the repository's box and the next goes on; the dialog
/// closes all the same.
///
/// The save button follows the last event, the name or a time, and no other: a change of a time opens it while the name
/// is empty, and a change of the name while the stop lies before the start. That is kept on purpose.
class DialogAddSegment : public QDialog {
    Q_OBJECT

public:
    /// `segmentID` 0 makes a new slot, which goes behind all others unless the user says otherwise. `parent` owns the
    /// dialog.
    DialogAddSegment(uint segmentID, const QSqlDatabase &db, QWidget *parent);
    ~DialogAddSegment() override;
    Q_DISABLE_COPY(DialogAddSegment)

public slots:
    /// Opens the save with a text, and closes it without one.
    void on_lineEditTitle_textEdited(QString arg1);
    /// Stores the slot and closes. Logs the old position and the target, each slot that moves towards the end, and
    /// "pridavam" or "updatujem" with the key (0 for a new slot) and the name.
    void on_pushButtonSave_clicked();
    void on_pushButtonCancel_clicked();
    /// Asks, deletes the slot and, if it is gone, moves the ones behind it up by one place; closes unless declined.
    void on_pushButtonDelete_clicked();
    /// Opens the save unless the stop lies before the start. Equal times pass.
    void on_timeEditStop_userTimeChanged(QTime time);
    /// Opens the save unless the start lies behind the stop.
    void on_timeEdit_userTimeChanged(QTime time);

private:
    void startNew();
    void startEditing();
    void makeRoom(SegmentRepository &repository) const;

    const uint m_segmentID;
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogAddSegment> m_ui;
    SegmentModel *m_segments;
    SegmentRecord m_segment;
};
