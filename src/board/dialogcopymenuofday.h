#pragma once

#include <QDate>
#include <QDialog>
#include <QSqlDatabase>

#include <memory>

namespace Ui {
class DialogCopyMenuOfDay;
}

/// Copies all menu items of one day, of all service slots, to a day behind the end of the plan: the calendar starts on
/// the day after the latest one planned for the branch, or on today for a branch without any plan. The items are those
/// of the branch and those for all branches; each copy stays with its branch, comes up open, without orders and without
/// a limit. A failed copy shows the repository's box and the next item goes on.
class DialogCopyMenuOfDay : public QDialog {
    Q_OBJECT

public:
    /// `branchID` 0 stands for menus without a branch. `date` is the day to copy. `parent` owns the dialog.
    DialogCopyMenuOfDay(unsigned branchID, QDate date, const QSqlDatabase &db, QWidget *parent);
    ~DialogCopyMenuOfDay() override;
    Q_DISABLE_COPY(DialogCopyMenuOfDay)

    /// Copies to the selected day and closes. Logs "orderableID" with the key of each item that is copied.
    void accept() override;

private:
    const unsigned m_branchID;
    const QDate m_sourceDate;
    QDate m_targetDate;
    QSqlDatabase m_db;
    std::unique_ptr<Ui::DialogCopyMenuOfDay> m_ui;
};
