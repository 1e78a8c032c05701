#pragma once

#include <QDialog>
#include <QSqlDatabase>

#include <memory>

class SegmentModel;

namespace Ui {
class DialogMenuSetting;
}

/// The list of service slots in a window of its own, with the slots and rules of the settings page's list. Its deletion
/// differs: the slots behind the deleted one move up even if the database refused to delete it, so that afterwards the
/// slot and the next one share a position. That is kept on purpose.
///
/// Nothing opens this dialog at present; it stays available.
class DialogMenuSetting : public QDialog {
    Q_OBJECT

public:
    /// Loads the slots; a failure is logged by the model and leaves the list empty. `parent` owns the dialog.
    DialogMenuSetting(const QSqlDatabase &db, QWidget *parent);
    ~DialogMenuSetting() override;
    Q_DISABLE_COPY(DialogMenuSetting)

public slots:
    void on_pushButtonPridat_2_clicked();
    void on_pushButtonUpravit_2_clicked();
    /// Asks and deletes the selected slot; see the class for what moves.
    void on_pushButtonZmazat_2_clicked();
    /// Takes the key of the current slot. With one, it can be edited and deleted, and editing is the default.
    void itemSelection();
    /// Loads the slots anew, with none selected: only adding is open, and the default.
    void resetModel();

private:
    void openSegment(uint segmentID);

    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogMenuSetting> m_ui;
    SegmentModel *m_segments;
    uint m_segmentID = 0;
};
