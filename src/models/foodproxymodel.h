#pragma once

#include "models/wordfilter.h"

#include <QSortFilterProxyModel>

/// The foods of one meal type, narrowed by typed words. The source has the food's type in column 1, its name in
/// column 2 and its description in column 3; only the name is shown, as column 0.
///
/// A food is accepted when every word is found in its name and description together (rules: `WordFilter`; case plays
/// no part) and it is of the filter type.
class FoodProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// Shows all foods: no text, all types.
    explicit FoodProxyModel(QObject *parent = nullptr);

public slots:
    /// Sets the search text and filters anew.
    void textCatcher(const QString &text);
    /// Sets the type to show, 0 for all, and filters anew if it is another than before.
    void typeCatcher(int typeID);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex &parent) const override;

private:
    WordFilter m_words;
    int m_type = 0;
};
