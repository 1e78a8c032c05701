#pragma once

#include <QDate>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

/// A database of benchmarks/largefirm.sh, as the command line names it, and what of it the benchmarks look at.
class LargeFirm {
public:
    /// Takes "--socket PATH --database NAME" from the arguments of the application, which must exist, and opens the
    /// module's connection as the default connection, as a host would. Ends the program with a plain message when that
    /// fails. Log lines of the module are dropped from here on.
    LargeFirm();

    /// Whether a step of this name is asked for: all are, unless "--only TEXT" names a part of those that are.
    bool isWanted(const QString &name) const { return name.contains(m_only); }
    /// How often each step is measured: "--runs N", 15 by default.
    int runs() const { return m_runs; }
    QString socket() const { return m_socket; }
    QString database() const { return m_database; }
    /// The module's connection.
    QSqlDatabase db() const { return QSqlDatabase::database(); }
    /// A connection of the server's administrator.
    QSqlDatabase admin() const { return QSqlDatabase::database(QStringLiteral("admin")); }

    /// A branch with a menu of its own, and its name; 0 and nothing for a firm that plans for all branches only.
    unsigned branch() const { return m_branch; }
    QString branchName() const { return m_branchName; }
    /// A person of that branch (of any, for 0) who works without end.
    int person() const { return m_person; }
    /// The slot and the day that the dialogs open: locked for orders, and open for editing.
    unsigned segment() const { return 2; }
    QDate lockedDay() const { return QDate::currentDate(); }
    QDate openDay() const { return QDate::currentDate().addDays(14); }
    /// A menu item of that branch with orders.
    unsigned item() const { return m_item; }

private:
    void choose();

    QString m_only;
    int m_runs = 15;
    QString m_socket;
    QString m_database;
    unsigned m_branch = 0;
    QString m_branchName;
    int m_person = 0;
    unsigned m_item = 0;
};

/// Runs a statement; ends the program with its text and the error when it fails.
QSqlQuery execute(const QSqlDatabase &db, const QString &statement);
/// The first column of the first row; ends the program when there is none.
QVariant firstValue(const QSqlDatabase &db, const QString &statement);
