#include "models/peopleproxymodel.h"

PeopleProxyModel::PeopleProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

void PeopleProxyModel::textCatcher(const QString &text)
{
    m_words = WordFilter(text);
    invalidate();
}

bool PeopleProxyModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QString label = sourceModel()->index(row, 1, parent).data().toString();
    const QString number = sourceModel()->index(row, 2, parent).data().toString();
    return m_words.accepts((label + QLatin1Char(' ') + number).toLower());
}
