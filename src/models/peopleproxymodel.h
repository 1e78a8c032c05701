#pragma once

#include "models/wordfilter.h"

#include <QSortFilterProxyModel>

/// The people whose label holds every typed word, over a `PeopleModel`. Columns 1 (the label) and 2 are searched
/// together, joined with a blank, by the rules of `WordFilter`; case plays no part. Column 2 is a number (the start of
/// employment, or the administrator), so a search may hit that too: kept on purpose, the columns are the statement's.
class PeopleProxyModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// Shows everybody.
    explicit PeopleProxyModel(QObject *parent = nullptr);

public slots:
    /// Sets the search text and filters anew.
    void textCatcher(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    WordFilter m_words;
};
