#include "store/segmentrepository.h"

#include "store/sqloperation.h"

#include <QDebug>

namespace {

SqlValues valuesOf(const SegmentRecord &segment)
{
    return {{QStringLiteral(":name"), sqlString(segment.name)},
            {QStringLiteral(":start"), segment.start},
            {QStringLiteral(":stop"), segment.stop},
            {QStringLiteral(":position"), segment.position},
            {QStringLiteral(":segmentID"), segment.segmentID}};
}

} // namespace

SegmentRepository::SegmentRepository(QSqlDatabase db, QObject *parent)
    : QObject(parent)
    , m_db(db)
{
}

SqlOperation SegmentRepository::operation(const char *tag, const QString &failureText) const
{
    return SqlOperation(m_db, tag, tr("Chyba databázy"), failureText);
}

SegmentRecord SegmentRepository::loadSegment(uint typeID)
{
    // A missing key leaves the record of the last load on purpose; see the header.
    operation("SegmentRepository(loading)", tr("Nepodarilo sa načítať typ výdaja!"))
        .load(QStringLiteral("SELECT segmentID, name, start, stop, position FROM via_segments WHERE segmentID='%1'")
                  .arg(typeID),
              [this](const QSqlQuery &row) {
                  m_segment.segmentID = row.value(QStringLiteral("segmentID")).toUInt();
                  m_segment.name = row.value(QStringLiteral("name")).toString();
                  m_segment.start = row.value(QStringLiteral("start")).toTime();
                  m_segment.stop = row.value(QStringLiteral("stop")).toTime();
                  m_segment.position = row.value(QStringLiteral("position")).toUInt();
              });
    return m_segment;
}

bool SegmentRepository::addSegment(SegmentRecord type)
{
    return operation("SegmentRepository(adding)", tr("Nepodarilo sa pridať typ výdaja!"))
        .change(QStringLiteral("INSERT INTO via_segments (name, start, stop, position) VALUES (:name, :start, :stop, "
                               ":position)"),
                valuesOf(type));
}

bool SegmentRepository::updateSegment(SegmentRecord type)
{
    return operation("SegmentRepository(updating)", tr("Nepodarilo sa upraviť typ výdaja!"))
        .change(QStringLiteral("UPDATE via_segments SET name=:name, start=:start, stop=:stop, position=:position WHERE "
                               "segmentID=:segmentID"),
                valuesOf(type));
}

bool SegmentRepository::deleteSegment(uint typeID)
{
    qDebug() << "deleting segment with ID:" << typeID;
    return operation("SegmentRepository(deleting)",
                     tr("Nepodarilo sa zmazať typ výdaja! Skúste najprv zmazať všetky priradené objednávateľné položky "
                        "ku typu výdaja."))
        .change(QStringLiteral("DELETE FROM via_segments WHERE segmentID=:segmentID"),
                {{QStringLiteral(":segmentID"), typeID}});
}

bool SegmentRepository::moveSegment(uint pos, uint newpos)
{
    return operation("SegmentRepository(moving segment position)", tr("Nepodarilo sa posunúť typ výdaja!"))
        .change(QStringLiteral("UPDATE via_segments SET position=:newposition WHERE position=:position"),
                {{QStringLiteral(":newposition"), newpos}, {QStringLiteral(":position"), pos}});
}
