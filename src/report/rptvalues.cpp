#include "report/rptvalues.h"

#include <algorithm>

void RptValues::Totals::use(double value)
{
    ++count;
    sum += value;
    if (value > greatest)
        greatest = value;
    if (value < least)
        least = value;
}

RptValues &RptValues::instance()
{
    static RptValues values;
    return values;
}

void RptValues::clear()
{
    *this = RptValues();
}

bool RptValues::isEmpty() const
{
    return m_all.isEmpty();
}

void RptValues::add(const QString &paramName, const QString &text, int lineIndex, int reportPage)
{
    Column &column = m_columns[paramName];
    PageColumn &page = column.pages[reportPage];
    if (page.records.contains(lineIndex))
        return;
    const int position = m_all.size();
    m_all.append({paramName, text, lineIndex, reportPage});
    page.positions.append(position);
    page.records.insert(lineIndex);
    page.recordsByText[text].append(lineIndex);
    column.positionsByRecord[lineIndex].append(position);
    if (!text.isEmpty())
        column.filled.use(text.toDouble());
    int &lineCount = m_lineCounts[reportPage];
    lineCount = qMax(lineCount, lineIndex + 1);
}

const QVector<RptValue> &RptValues::all() const
{
    return m_all;
}

const RptValues::PageColumn *RptValues::pageColumn(const QString &paramName, int reportPage) const
{
    const auto column = m_columns.constFind(paramName);
    if (column == m_columns.constEnd())
        return nullptr;
    const auto page = column->pages.constFind(reportPage);
    return page == column->pages.constEnd() ? nullptr : &*page;
}

QVector<RptValue> RptValues::of(const QString &paramName, int reportPage) const
{
    QVector<RptValue> values;
    if (const PageColumn *const page = pageColumn(paramName, reportPage)) {
        values.reserve(page->positions.size());
        for (const int position : page->positions)
            values.append(m_all.at(position));
    }
    return values;
}

QList<int> RptValues::recordsOf(const QString &paramName, int reportPage, const QString &text) const
{
    const PageColumn *const page = pageColumn(paramName, reportPage);
    return page ? page->recordsByText.value(text) : QList<int>();
}

int RptValues::lineCount(int reportPage) const
{
    return m_lineCounts.value(reportPage, 1);
}

const QList<int> &RptValues::groupRecordIndexes() const
{
    return m_groupRecordIndexes;
}

void RptValues::setGroupRecordIndexes(const QList<int> &records)
{
    // The set is left for later: a walk over all records sets the group of each, and asks only about the new ones.
    m_groupRecordIndexes = records;
    m_groupRecords.clear();
}

const QSet<int> &RptValues::groupRecords() const
{
    if (m_groupRecords.isEmpty())
        m_groupRecords = QSet<int>(m_groupRecordIndexes.cbegin(), m_groupRecordIndexes.cend());
    return m_groupRecords;
}

bool RptValues::isInGroup(int record) const
{
    return groupRecords().contains(record);
}

RptValues::Totals RptValues::groupTotals(const Column &column) const
{
    QVector<int> positions;
    for (const int record : groupRecords())
        positions += column.positionsByRecord.value(record);
    std::sort(positions.begin(), positions.end());
    Totals totals;
    for (const int position : qAsConst(positions))
        totals.use(m_all.at(position).paramValue.toDouble());
    return totals;
}

double RptValues::aggregate(int mode, const QString &paramName, bool showInGroup) const
{
    Totals totals;
    const auto column = m_columns.constFind(paramName);
    if (column != m_columns.constEnd())
        totals = showInGroup && !m_groupRecordIndexes.isEmpty() ? groupTotals(*column) : column->filled;
    switch (mode) {
    case 0:
        return totals.sum;
    case 1:
        return totals.count == 0 ? 0 : totals.sum / totals.count;
    case 2:
        return totals.count;
    case 3:
        return totals.greatest;
    case 4: {
        const double first = m_all.isEmpty() ? 0 : m_all.first().paramValue.toDouble();
        return totals.least < first ? totals.least : first;
    }
    default:
        return 0;
    }
}
