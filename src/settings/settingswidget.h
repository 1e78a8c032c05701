#pragma once

#include <QModelIndex>
#include <QSqlDatabase>
#include <QWidget>

#include <memory>

class QPushButton;
class SegmentModel;
class SettingsRepository;

namespace Ui {
class SettingsWidget;
}

/// The page of the module's general settings: the weekdays and the number of weeks that the board shows, the service
/// slots, the rule that limits ordering, and whether menu items may carry a limit of portions. Every change is written
/// at once; other pages read it when they are built. The session's read-only state is not looked at.
///
/// The form is live while the stored values are put into it, so that showing them writes them again: the order rule and
/// the weeks if they differ from the form's 0, and the day code as it grows box by box, 2, 22, ..., 22222 for Monday to
/// Friday. A day code with no 2 in it writes nothing. A failed write shows the repository's box and leaves the form as
/// it is.
class SettingsWidget : public QWidget {
    Q_OBJECT

public:
    /// Loads and shows the settings. With a handle that is not open the form keeps its defaults. `parent` owns the
    /// page.
    SettingsWidget(const QSqlDatabase &db, QWidget *parent);
    ~SettingsWidget() override;
    Q_DISABLE_COPY(SettingsWidget)

public slots:
    void on_checkBox_1_stateChanged(int arg1);
    void on_checkBox_2_stateChanged(int arg1);
    void on_checkBox_3_stateChanged(int arg1);
    void on_checkBox_4_stateChanged(int arg1);
    void on_checkBox_5_stateChanged(int arg1);
    void on_checkBox_6_stateChanged(int arg1);
    void on_checkBox_7_stateChanged(int arg1);
    /// Takes the day code (store/activedays.h) from the seven boxes and stores it.
    void calculateDays();
    /// Checks the box of each day whose digit of the day code is 2 and unchecks the others.
    void setState();
    /// Stores the number of weeks shown ahead, 0 to 99.
    void on_spinBox_valueChanged(int arg1);
    /// Loads the slots anew, with none selected: only adding is open, and its button marked as the default.
    void resetModel();
    /// Takes the key of the current slot. With one, it can be edited and deleted, and editing is marked as the default.
    void itemSelection();
    void on_pushButtonPridat_2_clicked();
    void on_pushButtonUpravit_2_clicked();
    /// Asks, deletes the selected slot and, only if it is gone, moves the ones behind it up by one place.
    void on_pushButtonZmazat_2_clicked();
    void on_listViewSegments_doubleClicked(QModelIndex index);
    /// Stores the order rule: 0 one piece a day, 1 one a slot, 2 no limit. -1, which a stored value that the box does
    /// not list leads to, is not written over it.
    void on_comboBoxOrderLimit_currentIndexChanged(int index);
    /// Stores whether menu items may carry a limit. Switching it off asks first and takes the limits off all menu
    /// items; the mark comes back when the user declines or that fails.
    void on_cbOrderLimit_clicked(bool checked);

private:
    void openSegment(uint segmentID);
    void makeDefault(QPushButton *button);
    /// Asks, and takes the limits off all menu items. If it gives false the mark is back, or the page has gone.
    bool takeLimitsOff();
    bool removeAllLimits();

    QSqlDatabase m_db;
    std::unique_ptr<Ui::SettingsWidget> m_ui;
    SettingsRepository *m_settings;
    SegmentModel *m_segments;
    uint m_segmentID = 0;
    int m_dayCode = 0;
};
