#include "models/segmentmodel.h"

SegmentModel::SegmentModel(const QSqlDatabase &db, QObject *parent)
    : SqlListModel(db, parent)
{
}

void SegmentModel::refresh()
{
    load(QStringLiteral("SELECT segmentID, name, start, position FROM via_segments ORDER BY position"),
         "SegmentModel - setQuery",
         {tr("ID segmentu"), tr("Názov segmentu"), tr("Začiatok segmentu"), tr("Pozícia segmentu")});
}
