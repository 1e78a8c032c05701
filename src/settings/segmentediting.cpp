#include "settings/segmentediting.h"

#include "models/segmentmodel.h"
#include "store/segmentrepository.h"
#include "widgets/deletionquestion.h"

#include <QCoreApplication>
#include <QDebug>
#include <QListView>

namespace {

constexpr int nameColumn = 1;

} // namespace

void SegmentEditing::showNames(QListView *list, SegmentModel *model)
{
    if (list->model() != model)
        list->setModel(model);
    list->setModelColumn(nameColumn);
}

void SegmentEditing::movePositions(SegmentRepository &repository, const QVector<PositionMove> &moves)
{
    for (const PositionMove &move : moves) {
        if (move.to > move.from)
            qDebug() << "posuvam segment s poziciou" << move.from;
        repository.moveSegment(uint(move.from), uint(move.to));
    }
}

SegmentEditing::Deletion SegmentEditing::askAndDelete(QWidget *parent, const QSqlDatabase &db,
                                                      const SegmentRecord &segment, int count, Renumbering renumbering)
{
    const QString title = QCoreApplication::translate("SegmentEditing", "Zmazanie Segmentu!");
    const QString question = QCoreApplication::translate("SegmentEditing", "Naozaj chcete zmazať segment ");
    if (!confirmDeletion(parent, title, question + segment.name + QLatin1Char('?')))
        return Deletion::Declined;
    SegmentRepository repository(db);
    const bool deleted = repository.deleteSegment(segment.segmentID);
    if ((deleted || renumbering == Renumbering::Always) && segment.position > 0)
        movePositions(repository, Positions::closeGap(int(segment.position), count));
    return deleted ? Deletion::Done : Deletion::Refused;
}
