#pragma once

#include <QDate>
#include <QDialog>
#include <QModelIndex>
#include <QSqlDatabase>

#include <memory>

class PeopleModel;
class PeopleProxyModel;

namespace Ui {
class PeopleComboboxDialog;
}

/// A small modal search for one person. `exec()` gives the row of the chosen person in the source list, which is a
/// `PeopleModel` of its own with the given scope: the caller reads the person by that row of its own list of the same
/// scope and week. Cancelling gives 0, the same value as the first row; callers live with that.
///
/// The typed words filter the list (see `PeopleProxyModel`). The arrow and page keys move through the list while the
/// line edit keeps the focus; Enter takes the current person, a double click does too.
class PeopleComboboxDialog : public QDialog {
    Q_OBJECT

public:
    /// Lists the people of the present week. `adminID` and `branchID` 0 mean no restriction.
    PeopleComboboxDialog(const QSqlDatabase &db, uint adminID, uint branchID, QWidget *parent = nullptr);
    ~PeopleComboboxDialog() override;
    Q_DISABLE_COPY(PeopleComboboxDialog)

    /// Lists the people of the week of `date` instead. A caller whose list shows another week than the present one
    /// calls this before `exec()`, or else the rows of the two lists differ.
    void setDate(QDate date);

signals:
    /// The typed filter.
    void textchanged(const QString &text);

private slots:
    void on_lineEdit_textChanged(const QString &arg1);
    void on_listView_activated(const QModelIndex &index);
    void on_pushButtonOk_clicked();
    void on_pushButtonCancel_clicked();
    void itemSelection();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void choose(const QModelIndex &index);

    QSqlDatabase m_database;
    const uint m_adminID;
    const uint m_branchID;
    std::unique_ptr<Ui::PeopleComboboxDialog> m_ui;
    PeopleModel *m_people;
    PeopleProxyModel *m_proxy;
};
