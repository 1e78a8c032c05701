#include "models/foodproxymodel.h"

namespace {

enum Column : int { Type = 1, Name = 2, Description = 3 };

} // namespace

FoodProxyModel::FoodProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

void FoodProxyModel::textCatcher(const QString &text)
{
    m_words = WordFilter(text);
    invalidate();
}

void FoodProxyModel::typeCatcher(int typeID)
{
    if (m_type == typeID)
        return; // a page that opens on all foods would go through its ten thousand twice
    m_type = typeID;
    invalidate();
}

bool FoodProxyModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto text = [this, row, &parent](int column) {
        return sourceModel()->index(row, column, parent).data().toString();
    };
    // The type is asked first: it is a number, and a row of another type is refused whatever its text.
    if (m_type != 0 && sourceModel()->index(row, Type, parent).data().toInt() != m_type)
        return false;
    return m_words.isEmpty() || m_words.accepts((text(Name) + QLatin1Char(' ') + text(Description)).toLower());
}

bool FoodProxyModel::filterAcceptsColumn(int column, const QModelIndex & /*parent*/) const
{
    return column == Name;
}
