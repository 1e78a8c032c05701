#pragma once

#include "models/sqllistmodel.h"

#include <QDate>

/// Every order of one calendar month by an active person, sorted by shown id, date and slot: what the control export
/// spreads over its table.
///
/// Columns: 0 pid (the payroll number, or the personal number where there is none: NULL, empty or "0"), 1 personName
/// (surname, name, both titles, joined with blanks), 2 position, 3 date, 4 quantity, 5 segment (the slot's position),
/// 6 segname, 7 foodID, 8 typename, 9 typeID. Column 0 holds text and sorts as text.
class MonthlyOverviewModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `refresh()`; the month of today, all branches.
    explicit MonthlyOverviewModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Sets another handle for the next `refresh()`.
    void setDatabase(const QSqlDatabase &db);
    /// Any day of the month to show.
    void setDate(QDate date);
    /// Shows the menu items of this branch only; 0 shows those of every branch and those without one.
    void setBranch(uint branchID);

    /// Runs the query. A failure is logged ("MonthlyOverviewModel - SQL ERROR: ...") and leaves the model empty.
    void refresh();

private:
    QDate m_date;
    uint m_branch = 0;
};
