#pragma once

#include "report/datasetinfo.h"

#include <QDate>
#include <QIcon>
#include <QModelIndex>
#include <QPointer>
#include <QSqlDatabase>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <optional>

class DayMenuProxyModel;
class MenuDelegate;
class PeopleModel;
struct CardButtons;
struct CardState;

namespace Ui {
class DayMenuWidget;
}

/// One cell of the menu board: the menu of one service slot on one day, its items below the headings of their meal
/// types, with the actions that fit the cell's state.
///
/// A card runs no query to show itself. All cards of a board look at one grid (`FoodRepository::loadMenuWidgetMenu`,
/// columns `MenuColumn`), which is not owned, each through a filter of its own. A card lives as long as its board:
/// set date, branch and person, then `setMenuModel`, which recomputes everything. Whoever changes the database through
/// a card is told by `resetmodel` that the grid has to be loaded anew.
///
/// The decision what is enabled and shown is `cardButtons` (board/cardstate.h). Cards whose day of the month was even
/// at construction carry a style of their own, so that the week shows as alternating columns.
class DayMenuWidget : public QWidget {
    Q_OBJECT

public:
    /// `personID` -1 shows the menu and what everybody ordered, else what that uid ordered. `branchID` 0 stands for
    /// menus without a branch. `model` is only remembered: nothing is shown before `setMenuModel`.
    DayMenuWidget(QDate date, const QString &segmentName, unsigned segmentID, int personID, unsigned adminID,
                  unsigned branchID, const QSqlDatabase &db, QAbstractItemModel *model, QWidget *parent);
    ~DayMenuWidget() override;
    Q_DISABLE_COPY(DayMenuWidget)

    /// Takes effect, but for the date's label, with the next `setMenuModel`, as do the next three.
    void setDate(QDate date);
    void setPerson(int personID);
    void setBranch(unsigned branchID);
    /// Whether the column with the items' order limits is there.
    void setOrderLimitEnabled(bool enabled);
    /// Shows the cell of another grid, or of the same one after a change. The lock starts anew, so that it can leave
    /// even 2. Emits `heightchanged`.
    void setMenuModel(QAbstractItemModel *model);
    /// "~default~" shows the day's name again; any other text takes the place of day and date, centred, until the next
    /// `setDate`. The centring stays.
    void setLabel(const QString &text);
    /// Hides or shows the line with date, day and copy button.
    void setTitleHidden(bool hide);
    /// The height in pixels that the present content needs.
    int preferredHeight() const;

signals:
    /// The content was recomputed and may need another height.
    void heightchanged();
    /// The grid that the cards share is out of date.
    void resetmodel();

public slots:
    void on_toolButEdit_clicked();
    /// Makes the table as high as its rows.
    void setHeight();
    void on_toolButtonLock_clicked();
    /// Recomputes lock, sum, controls and columns from the grid.
    void setButtonState();
    /// 0 open, 1 locked, 2 closed for good. Once it is 2, nothing but `setMenuModel` changes it.
    void setLock(int mylock);
    /// Whether a supplier's report of this cell would be the final one; shown by the report button's image.
    void setReport(bool myreport);
    void on_toolButtonOrder_clicked();
    /// Tells a running printout the number of rows shown.
    void setDSInfo(DataSetInfo &dsInfo);
    /// Gives a running printout its values: `CardReport::setValue` on the rows shown, and "header".
    void setValue(const int recNo, const QString paramName, QVariant &paramValue, const int reportPage);
    /// Prints the rows shown by way of the preview. The card may be gone when that is closed.
    void on_toolButtonPersonReport_clicked();
    void on_toolButtonMenuReport_clicked();
    /// Opens the list of orders of the item in that row; nothing on headings and while a person is selected.
    void on_tableView_doubleClicked(QModelIndex index);
    void on_toolButCopy_clicked();

protected:
    /// Follows a change of the table's font, say by the host's style sheet.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void setUpImages();
    void setUpTable();
    void setUpStyle();
    void fitToFont();
    void readItems(CardState &state) const;
    qint64 shownSum() const;
    void apply(const CardButtons &buttons);
    QString reportHeader();
    QString personName();

    QDate m_date;
    QSqlDatabase m_db;
    unsigned m_segmentID;
    int m_personID;
    unsigned m_adminID;
    unsigned m_branchID;
    bool m_report = false;
    int m_lock = 0;
    QString m_segmentName;
    std::unique_ptr<Ui::DayMenuWidget> m_ui;
    MenuDelegate *m_delegate;
    DayMenuProxyModel *m_proxy;
    PeopleModel *m_peopleModel;
    /// The person's label for the printout, once it was asked for: a print reads it over and over, and reading it from
    /// the database may open a box.
    std::optional<QString> m_personName;
    QPointer<QAbstractItemModel> m_sourceModel;
    bool m_orderLimitEnabled = false;
    QIcon m_lockedImage;
    QIcon m_unlockedImage;
    QIcon m_finalReportImage;
    QIcon m_partialReportImage;
};
