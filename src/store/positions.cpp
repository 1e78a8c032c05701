#include "store/positions.h"

namespace {

/// From `last` down to `first`, each one place back.
QVector<PositionMove> stepsBack(int first, int last)
{
    QVector<PositionMove> moves;
    for (int position = last; position >= first; --position)
        moves.append({position, position + 1});
    return moves;
}

/// From `first` up to `last`, each one place forward.
QVector<PositionMove> stepsForward(int first, int last)
{
    QVector<PositionMove> moves;
    for (int position = first; position <= last; ++position)
        moves.append({position, position - 1});
    return moves;
}

} // namespace

QVector<PositionMove> Positions::makeRoom(int target, int count)
{
    return stepsBack(target, count);
}

QVector<PositionMove> Positions::shift(int from, int target)
{
    return from < target ? stepsForward(from + 1, target) : stepsBack(target, from);
}

QVector<PositionMove> Positions::closeGap(int position, int count)
{
    return stepsForward(position + 1, count);
}
