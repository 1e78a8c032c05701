#pragma once

#include <QSqlDatabase>
#include <QSqlQueryModel>
#include <QStringList>
#include <QVariantMap>

/// What the lists of this room share: a model over one statement with its own copy of the database handle.
///
/// - All rows are there after a load; nothing is fetched later.
/// - An SQL NULL is shown as nothing (the display role of its cell is an invalid value, so `toString()` is empty and
///   `toInt()` is 0); Qt alone would show the NULL of a numeric column as "0". The edit role, and with it `record()`,
///   keeps the typed NULL.
/// - A failed statement leaves the model without rows and columns. It is logged by the derived class; no box is shown.
///
/// Read-only. Not supported: sorting by the model, and drivers without a result size (rows are counted at once).
class SqlListModel : public QSqlQueryModel {
    Q_OBJECT

public:
    /// The cell's value, with a NULL shown as nothing.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

protected:
    /// `db` is copied; it need not be open before the first load.
    explicit SqlListModel(const QSqlDatabase &db, QObject *parent = nullptr);

    /// The handle of every statement of this model.
    QSqlDatabase database() const { return m_database; }
    /// Sets another handle; takes effect at the next load.
    void setDatabaseHandle(const QSqlDatabase &db) { m_database = db; }

    /// Runs `statement` and takes its rows, with a reset of the model. False when it failed: then `lastError()` tells
    /// why (it holds no text when the handle was not open) and the model is empty.
    bool load(const QString &statement);
    /// As above; sets the horizontal headers from column 0 on after a success, and logs a failure under `logTag` in the
    /// form "FoodModel - setQuery ERROR: [2013]: ...".
    bool load(const QString &statement, const char *logTag, const QStringList &headers);
    /// As above, for a statement with placeholders: `values` by placeholder, for example {":foodID", 7}.
    bool load(const QString &statement, const QVariantMap &values, const char *logTag, const QStringList &headers);

private:
    bool finishLoad(const char *logTag, const QStringList &headers);

    QSqlDatabase m_database;
};
