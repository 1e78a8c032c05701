#pragma once

#include <QDate>
#include <QDialog>
#include <QModelIndex>
#include <QSqlDatabase>

#include <memory>

class FoodProxyModel;
class FoodRepository;
class MenuProxyModel;
class QStandardItemModel;

namespace Ui {
class DialogMenu;
}

/// The editor of the menu of one service slot on one day for one branch. The left list has the foods of the branch's
/// suppliers, narrowed by typed words; the right one becomes the slot's menu items, below the headings of their types.
/// Foods move between the lists, and up and down within their type (rules: board/menuarrangement.h). An item that has
/// orders is red and stays on the menu; it can be moved and its limit can be edited.
///
/// Nothing is written before "Uložiť". `exec()` is 1 after a save, else 0. A save deletes the items that were taken
/// off, then adds and updates the others in their order; an existing item keeps its price. Each statement stands for
/// itself: a failure shows the repository's box, the next row goes on, and the menu can be left half saved.
///
/// Enter presses the button that has the focus and adds a food from the list; there is no default button.
class DialogMenu : public QDialog {
    Q_OBJECT

public:
    /// Loads the menu. `branchID` 0 stands for menus without a branch. A `segmentName` of one blank stays out of the
    /// titles. `orderLimitEnabled` shows the limit column. `parent` owns the dialog.
    DialogMenu(QDate date, unsigned segmentID, unsigned branchID, const QString &segmentName, const QSqlDatabase &db,
               bool orderLimitEnabled, QWidget *parent);
    ~DialogMenu() override;
    Q_DISABLE_COPY(DialogMenu)

signals:
    /// The typed filter.
    void textchanged(QString text);

public slots:
    void on_lineEditFilter_textChanged(QString arg1);
    /// Saves the menu and closes the dialog. Logs "deleting all previous orderables", and for each item key, food,
    /// branch, slot, day, position, price and limit and " adding/updating orderable".
    void on_pushButton_clicked();
    void on_tableViewMenu_doubleClicked(QModelIndex index);
    void on_listViewFood_doubleClicked(QModelIndex index);
    /// Puts the current food of the list on the menu.
    void on_toolButtonR_clicked();
    /// Takes the current item off the menu.
    void on_toolButtonL_clicked();
    void on_toolButtonU_clicked();
    void on_toolButtonD_clicked();
    /// Offers the editor for a new food, which stores it itself; the food then joins the list, without its supplier's
    /// mark. Logs "saving new and refreshing".
    void on_pushButtonAddFood_clicked();
    /// Gives the name column the table's width but for the limit's 59 pixels.
    void setTableMenuCols();

protected:
    /// Lets the name column follow the table's width.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setTitles(const QString &segmentName);
    void setUpViews();
    void showAddFood(bool show);
    void moveMenuRow(bool (*exchange)(QStandardItemModel &, int), int rows);

    const QDate m_date;
    const unsigned m_segmentID;
    const unsigned m_branchID;
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogMenu> m_ui;
    FoodRepository *m_foodRepository;
    FoodProxyModel *m_foodProxy;
    MenuProxyModel *m_menuProxy;
    QStandardItemModel *m_menuRows;
    QStandardItemModel *m_foodRows;
};
