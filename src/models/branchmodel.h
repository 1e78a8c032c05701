#pragma once

#include <QSqlDatabase>
#include <QSqlQueryModel>

class QStandardItemModel;

/// Builds the branch selector of an administrator. The model itself stays empty; its product is what `adminBranches`
/// gives.
class BranchModel : public QSqlQueryModel {
    Q_OBJECT

public:
    /// `adminID` 0 is an administrator without restriction.
    BranchModel(const QSqlDatabase &db, uint adminID, QObject *parent = nullptr);

    /// A new model, owned by the caller, with the columns 0 bid as text and 1 name. The first row stands for all
    /// branches: an empty bid and "- bez strediska -". The others are the host's branches in the order of the
    /// database, not editable, on white; those that the administrator may not manage are disabled, on light grey, with
    /// a tool tip that says so. A failed statement is logged ("BranchModel - adminBranches ERROR: ...") and gives no
    /// rows at all.
    QStandardItemModel *adminBranches();

private:
    QSqlDatabase m_database;
    const uint m_adminID;
};
