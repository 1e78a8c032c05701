#pragma once

#include <QObject>
#include <QSqlDatabase>
#include <QString>
#include <QTime>

class SqlOperation;

/// One service slot of a day: a meal service with a start and a stop time.
struct SegmentRecord {
    quint32 segmentID = 0; ///< key; 0 while new
    QString name;
    QTime start; ///< invalid when the slot has none
    QTime stop; ///< invalid when the slot has none
    quint32 position = 0; ///< display order, from 1
};

/// Writes and reads single service slots. The arguments are called after meal types, from which this class was made.
///
/// Every operation that fails writes one critical line "SegmentRepository(...) - SQL ERROR: ..." and shows a box titled
/// "Chyba databázy"; a change then gives false.
class SegmentRepository : public QObject {
    Q_OBJECT

public:
    /// Works on a copy of the handle; the connection must be open when an operation is called.
    explicit SegmentRepository(QSqlDatabase db, QObject *parent = nullptr);

public slots:
    /// The slot with this key. A missing key and a failure leave the record that this object loaded last, and that is
    /// what comes back (an empty record if there was none): callers rely on the record outliving the call.
    SegmentRecord loadSegment(uint typeID);
    /// Adds a slot under a new key; `segmentID` is not used. An invalid time is stored as NULL.
    bool addSegment(SegmentRecord type);
    /// Rewrites the slot with the record's key. True also when no row has that key.
    bool updateSegment(SegmentRecord type);
    /// Logs "deleting segment with ID: KEY" and deletes the slot. The database refuses while menu items stand on it.
    bool deleteSegment(uint typeID);
    /// Gives position `newpos` to every slot at position `pos` and shifts no other: the caller makes the room.
    bool moveSegment(uint pos, uint newpos);

private:
    SqlOperation operation(const char *tag, const QString &failureText) const;

    QSqlDatabase m_db;
    SegmentRecord m_segment;
};
