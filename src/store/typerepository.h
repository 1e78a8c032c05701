#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>

class SqlOperation;

/// One meal type (soup, main course, ...).
struct TypeRecord {
    quint32 typeID = 0; ///< key; 0 while new
    QString name;
    quint32 position = 0; ///< display order, from 1; the menu grids show it in place of the key
    quint32 informative = 0; ///< 1 = stands on the order form only to be shown and cannot be ordered
};

/// Writes and reads single meal types. Lists of types are the list models' affair.
///
/// Every operation that fails writes one critical line "TypeRepository(...) - SQL ERROR: ..." and shows a box titled
/// "Chyba databázy"; a change then gives false.
class TypeRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit TypeRepository(QSqlDatabase db, QObject *parent = nullptr);

public slots:
    /// The type with this key. A missing key and a failure leave the record that this object loaded last, and that is
    /// what comes back (an empty record if there was none): callers rely on the record outliving the call.
    TypeRecord loadType(uint typeID);
    /// Adds a type under a new key; `typeID` is not used.
    bool addType(TypeRecord type);
    /// Rewrites the type with the record's key. True also when no row has that key.
    bool updateType(TypeRecord type);
    /// Deletes a type; logs "Type with typeID  KEY  deleted." on success. The database refuses while foods have it.
    bool deleteType(uint typeID);
    /// Gives position `newpos` to every type at position `pos` and shifts no other: the caller makes the room. The
    /// database does not keep positions unique.
    bool moveType(uint pos, uint newpos);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;

    QSqlDatabase m_db;
    TypeRecord m_type;
};
