#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QVariant>
#include <QVector>

#include <limits>

/// One value that a data token had for a record.
struct RptValue {
    QString paramName; ///< the token with its brackets, "[4]"
    QVariant paramValue; ///< its text
    int lineIndex = 0; ///< the record, from 0
    int reportPage = 0; ///< index of the page definition
};

/// What the first pass of a print has gathered for the aggregates and groups of both. Every question takes time in
/// proportion to the values that its answer is about, not to all, and the sum of a whole column takes none: a report of
/// 100,000 records in 1,000 groups asks for thousands of them. A value that is no number counts as 0.
class RptValues {
public:
    /// The one list of the process: the aggregate function of the scripts is a plain function without an object. Two
    /// prints must therefore never run at the same time. Of the GUI thread only.
    static RptValues &instance();

    /// Forgets the values and the group.
    void clear();
    /// Whether there are no values; the group does not matter.
    bool isEmpty() const;
    /// Adds a value unless the record of that page definition has one for this token.
    void add(const QString &paramName, const QString &text, int lineIndex, int reportPage);
    /// All values in the order of their addition.
    const QVector<RptValue> &all() const;
    /// The values of one token of one page definition, in the order of their addition.
    QVector<RptValue> of(const QString &paramName, int reportPage) const;
    /// The records of that token and page definition whose text is `text`, in the order of their addition.
    QList<int> recordsOf(const QString &paramName, int reportPage, const QString &text) const;
    /// 1 and the greatest record of the page definition's values; 1 without any.
    int lineCount(int reportPage) const;

    /// The records of the group being printed; empty while no group is.
    const QList<int> &groupRecordIndexes() const;
    /// Starts a group, or ends it with an empty list. The values stay.
    void setGroupRecordIndexes(const QList<int> &records);
    /// Whether a record belongs to the group being printed; false while no group is.
    bool isInGroup(int record) const;

    /// The aggregate `Sum(mode, name)` over the values of a token, of all page definitions: mode 0 the sum, 1 the mean,
    /// 2 the count, 3 the greatest, 4 the least, else 0. With `showInGroup` and a group being printed, it is the
    /// group's values, an empty text counting as 0; else all values whose text is not empty. The greatest starts from
    /// 0, and the least from the first value of the whole list, whatever its token: reports rely on it. Values are
    /// added in the order of their addition to the list, so that rounding is that of a plain walk.
    double aggregate(int mode, const QString &paramName, bool showInGroup) const;

private:
    /// What a walk over some values finds.
    struct Totals {
        int count = 0;
        double sum = 0;
        double greatest = 0;
        double least = std::numeric_limits<double>::infinity();

        void use(double value);
    };
    /// One token of one page definition.
    struct PageColumn {
        QVector<int> positions; // in m_all
        QSet<int> records;
        QHash<QString, QList<int>> recordsByText;
    };
    /// One token of all page definitions.
    struct Column {
        QHash<int, PageColumn> pages;
        QHash<int, QVector<int>> positionsByRecord; // in m_all; page definitions share record numbers
        Totals filled; // of all values whose text is not empty
    };

    const PageColumn *pageColumn(const QString &paramName, int reportPage) const;
    const QSet<int> &groupRecords() const;
    Totals groupTotals(const Column &column) const;

    QVector<RptValue> m_all;
    QHash<QString, Column> m_columns;
    QHash<int, int> m_lineCounts; // by page definition
    QList<int> m_groupRecordIndexes;
    mutable QSet<int> m_groupRecords; // the same as a set, made when first asked for
};
