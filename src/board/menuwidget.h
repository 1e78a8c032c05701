#pragma once

#include "report/datasetinfo.h"

#include <QDate>
#include <QMap>
#include <QSqlDatabase>
#include <QVariant>
#include <QWidget>

#include <memory>

class BranchModel;
class CardGrid;
class FoodRepository;
class MonthlyOverviewModel;
class PeopleModel;
class RptFieldObject;
class QAbstractItemModel;
class QStandardItemModel;
class SegmentModel;
class SettingsRepository;
class TypeModel;
class TypeRepository;
struct ControlMonth;
struct WeekArrows;

namespace Ui {
class MenuWidget;
}

/// The menu board, the main page of the module: a week of menus as a grid of day cards (`DayMenuWidget`), one column
/// for each weekday and one row for each service slot.
///
/// In `GS_MENU` no person is selected: the cards show every item and what everybody ordered of it. In `GS_ORDERS` they
/// show only what the person chosen in `comboBoxPeople` ordered; days outside that person's employment are disabled.
/// The user is an operator in both; `adminID` decides which branches and people there are to choose.
///
/// Use: construct, `initData()` once, `filterSetter()` with the saved view; `filter` then tells every change of the
/// selectors. The list of weeks, the slots and the shown weekdays are read in `initData` and stay as they are for the
/// life of the page. A database that is not open leaves an empty board whose controls work.
///
/// GUI thread only. Failed statements are logged and shown by the models and repositories; the page goes on with what
/// they gave.
class MenuWidget : public QWidget {
    Q_OBJECT

public:
    enum GuiState { GS_MENU, GS_ORDERS };
    Q_ENUM(GuiState)

    /// Copies the handle. `adminID` 0 sees all branches and people. Reads nothing from the database.
    MenuWidget(const QSqlDatabase &db, unsigned adminID, QWidget *parent);
    ~MenuWidget() override;
    Q_DISABLE_COPY(MenuWidget)

    /// Loads everything and shows the present week in `GS_MENU`.
    void initData();
    /// Restores a saved view, a map as `filter` gives it. An empty map means the orders view. The week is not restored:
    /// the board returns to the present one. Texts that are in no list change nothing. Emits nothing.
    void filterSetter(QMap<QString, QVariant> filter);

signals:
    /// The selectors changed: `module` is "menuwidget"; `data` has "menu" (bool, whether `GS_MENU`) and the texts
    /// "branch", "person" and "week".
    void filter(QString module, QMap<QString, QVariant> data);
    /// Never emitted; hosts may connect it.
    void checkCurrentTextSignal();

public slots:
    void on_comboBox_currentIndexChanged(int index);
    void on_toolButtonR_clicked();
    void on_toolButtonL_clicked();
    /// Switches the mode, `checked` for `GS_MENU`. Connected to `butMenuSwitch`; the name is older than the form.
    void on_radioButton_toggled(bool checked);
    void on_comboBoxPeople_currentIndexChanged(int index);
    /// Makes the cards of each row equally high.
    void setDayWidgetHeight();
    void on_toolButton_clicked();
    /// Loads the orders of the month of the selected date, those of the person in `GS_ORDERS`, of the branch in
    /// `GS_MENU`, and prints them by way of the preview or, with `actionExportToXLS` checked, exports them. The page
    /// may be gone when the preview closes; so it may for the weekly printout.
    void on_toolButtonMonthly_clicked();
    /// Tells a running printout its number of records: the rows that were loaded for the last one, 0 before the first.
    void setDSInfo(DataSetInfo &dsInfo);
    /// Gives a running printout its values: `BoardReport::setValue` on the rows loaded last, and "header".
    void setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage);
    void on_comboBoxBranches_currentIndexChanged(int index);
    /// Hides the columns of the weekdays that the settings do not show.
    void hidewidgets();
    /// Prints the published menu of the shown week and branch by way of the preview.
    void on_toolButtonWeekly_clicked();
    /// Loads the menu of the selected week, branch and person and shows it on all cards.
    void resetModel();
    /// Emits `filter`, unless the page is just being filled.
    void filterChanged();
    /// Loads the orders of the month of the selected date and, for a branch, of its menus, asks for a file and writes
    /// the control export to it. The slots and meal types are read anew. The page may be gone afterwards, as after the
    /// two below; otherwise it is enabled, also after a cancelled question.
    void on_toolButtonExport_clicked();
    /// Asks for a file and writes the branch's month to it, the rows that were loaded last; without any an empty month.
    void monthlyExportToXLS();
    /// The same for the month of a person, whose name is read anew; a failure of that is logged, and no name written.
    void monthlyExportOrderDelivToXLS(int selUid);
    /// The company name from the host's licence, to fall back on; empty without one. A failure is logged only.
    QString getReserveCompanyName();
    /// The Monday that the selected entry of the list of weeks spells, a year late in a week across new year (see
    /// `WeekList::mondayFromText`); invalid without an entry.
    QDate recreateDateFromComboBoxWeek();
    /// Follows a change of the week: caption, list of people, employment.
    void refreshPeopleWeekChange();
    /// In `GS_ORDERS`: disables the cards of days on which the person is not employed, and the arrows at the edges of
    /// the employment.
    void disableWidgetsForEmployeeOutsideWorkingHours();

private:
    /// Columns of the lists behind the selectors and of the service slots.
    enum ListColumn { KeyColumn, NameColumn };

    void loadData();
    void loadSettingsAndMenu();
    void fillWeeks();
    void fillBranches();
    void addCards();
    void buildPrintMenu();

    void showMenu();
    void showOrders();
    void setPersonWidgetsVisible(bool visible);
    /// `ending` follows the month.
    void setMonthlyCaption(const QString &what, const QString &ending);
    void enableArrows(const WeekArrows &arrows);
    /// Loads the people of the week that was set last, and selects nobody. No signal tells of it.
    void loadPeople();
    void loadPeopleOfWeek(QDate monday);
    void loadPeopleAndSelectFirst();
    void refreshPeople();
    void keepPersonInWeek(QDate monday);
    void leavePersonOutOfWeek(QDate monday);
    /// Whether the selected person works on one of `days` days from `day`.
    bool isEmployed(QDate day, int days) const;
    /// The uid in a row of the people, 0 for -1.
    int personInRow(int row) const;

    QString monthlyHeader() const;
    QString exportedPerson(int uid) const;
    void loadMonth(bool ofPerson);
    /// Reads what the control export is made from.
    ControlMonth controlMonth();
    /// Tells how a monthly export went; the page may be gone afterwards. `success` takes the name of the file.
    void tellMonth(bool saved, const QString &title, const QString &success, const QString &fileName);
    /// The file to write, empty when the question was cancelled or when the page has gone.
    QString askWorkbookName(const QString &defaultName, const QString &filter);
    /// The page may be gone afterwards.
    void print(const QString &templateFile);
    /// Makes the letters of a title smaller whose line, with a long name in it, would leave its panel.
    void fitTitle(RptFieldObject &field);

    QMap<QString, QVariant> m_filter;
    bool m_filterReady = false;
    QSqlDatabase m_db;
    PeopleModel *m_peopleModel = nullptr;
    QDate m_peopleWeek; ///< the week that the list of people was last set to
    std::unique_ptr<QAbstractItemModel> m_reportModel; ///< behind the running printout, until the next one
    double m_monthlyTotal = 0; ///< of the monthly printout, in the currency of the prices
    const unsigned m_adminID;
    TypeRepository *m_typeRepository = nullptr;
    SettingsRepository *m_settingsRepository = nullptr;
    FoodRepository *m_foodRepository = nullptr;
    int m_activeDays = 0;
    SegmentModel *m_segmentModel = nullptr;
    TypeModel *m_typeModel = nullptr;
    BranchModel *m_branchModel = nullptr;
    QStandardItemModel *m_branchList = nullptr;
    QStandardItemModel *m_menuModel = nullptr; ///< shared by all cards
    QDate m_today; ///< the day of `initData`: the list of weeks stays as it was built then
    QDate m_selectedDate; ///< the Thursday of the shown week
    int m_personID = -1; ///< -1 in GS_MENU, 0 without a selection
    unsigned m_branchID = 0; ///< 0 for menus without a branch
    int m_shownWeeks = 4;
    MonthlyOverviewModel *m_monthlyOverviewModel = nullptr;
    GuiState m_curGuiState = GS_MENU;
    bool m_orderLimitEnabled = false;
    std::unique_ptr<Ui::MenuWidget> m_ui;
    std::unique_ptr<CardGrid> m_cards; ///< null until the data are loaded
};
