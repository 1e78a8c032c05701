#pragma once

#include "models/sqllistmodel.h"

#include <QDate>
#include <QHash>

/// The employees within the scope of an administrator and a branch who work at least partly in one week, by surname.
///
/// Columns: 0 uid, 1 name ("[pid] surname name"), then the rest of the statement: begin and end of employment in Unix
/// seconds (end is NULL or 0 when open), with the administrator and the branch ahead of them when both are restricted.
/// Their numbers differ, so read them by name: `record(row).value("begin")`.
class PeopleModel : public SqlListModel {
    Q_OBJECT

public:
    /// Empty until the first `tableQuery`; the week is that of today.
    explicit PeopleModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// Runs the query for the stored week (Monday 00:00 to the next Monday 00:00, local time): the active people who
    /// began before the week's end and have no end or one not before the week's start. `adminID` and `bid` 0 mean no
    /// restriction. Logs its arguments. A failure is logged ("PeopleModel - setQuery ERROR: ...") and leaves the model
    /// empty.
    void tableQuery(uint adminID, uint bid);
    /// Any day of the week to list; takes effect at the next `tableQuery`.
    void setDate(QDate date);

    /// The label of any person of the database, in the form of column 1; empty for an unknown `uid`. A failure is
    /// logged
    /// ("PeopleModel(loadPerson) - SQL ERROR: ...") and shown in a box.
    QString personName(int uid);
    /// Whether the person, who must be in the model, works at 00:00 of `date` or begins within the `days` days from it.
    /// False for a `uid` that is not in the model.
    bool isInWorkingPeriod(int uid, QDate date, int days) const;
    /// Begin and end of employment, "01.02.2020 - 31.12.2026" or "01.02.2020 - neurčito"; empty for a `uid` that is not
    /// in the model.
    QString workingPeriodText(int uid) const;

private:
    struct Employment {
        qint64 begin = 0;
        qint64 end = 0; ///< below 1: open
    };

    void indexEmployments();

    QDate m_date;
    QHash<int, Employment> m_employments; ///< by uid; the board asks for seven days and a row walk costs a fetch a cell
};
