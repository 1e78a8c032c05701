#include "report/rptcrosstabobject.h"

#include "report/boundedint.h"
#include "report/rptfieldobject.h"
#include "report/rptmembers.h"

#include <QDebug>
#include <QDomElement>

#include <algorithm>

using RptAttributes::Attribute;

namespace {

using Table = RptCrossTabObject;

constexpr Attribute<Table, int> numbers[] = {
    {"rowHeight", &Table::rowHeight, "20"},
    {"colCount", &Table::colCount, "3"},
};

constexpr Attribute<Table, bool> flags[] = {
    {"totalByColVisible", &Table::totalByColVisible, "0"},
    {"totalByRowVisible", &Table::totalByRowVisible, "0"},
    {"subtotalIsVisible", &Table::subtotalIsVisible, ""},
    {"headerIsVisible", &Table::headerIsVisible, ""},
};

constexpr Attribute<Table, QColor> colors[] = {
    {"totalBackgroundColor", &Table::totalBackgroundColor, "rgba(255,255,255,255)"},
    {"headerBackgroundColor", &Table::headerBackgroundColor, "rgba(255,255,255,255)"},
};

/// Far more than a report can show: 1000 pages of 20 columns and 25 rows.
constexpr qint64 mostCells = 500000;

/// The quotient, rounded up; 0 for a divisor that is none.
int dividedUp(int number, int divisor)
{
    return divisor < 1 ? 0 : number / divisor + (number % divisor > 0 ? 1 : 0);
}

} // namespace

RptCrossTabObject::RptCrossTabObject()
{
    qRegisterMetaType<RptCrossTabObject>("RptCrossTabObject");
}

RptCrossTabObject::RptCrossTabObject(const RptCrossTabObject &other)
    : name(other.name)
    , rect(other.rect)
    , parentField(other.parentField)
    , colHeader(other.colHeader)
    , totalBackgroundColor(other.totalBackgroundColor)
    , headerBackgroundColor(other.headerBackgroundColor)
    , colCount(other.colCount)
    , rowCount(other.rowCount)
    , rowHeight(other.rowHeight)
    , processedCount(other.processedCount)
    , totalByRowVisible(other.totalByRowVisible)
    , totalByColVisible(other.totalByColVisible)
    , subtotalIsVisible(other.subtotalIsVisible)
    , headerIsVisible(other.headerIsVisible)
{
    for (const RptFieldObject *cell : other.fieldList) {
        fieldList.append(cell->clone());
        fieldList.last()->parentCrossTab = this;
    }
}

RptCrossTabObject::~RptCrossTabObject()
{
    qDeleteAll(fieldList);
}

void RptCrossTabObject::readCrossTabElement(const QDomElement &element)
{
    RptAttributes::readAll(element, this, numbers);
    RptAttributes::readAll(element, this, flags);
    RptAttributes::readAll(element, this, colors);
}

void RptCrossTabObject::writeCrossTabElement(QDomElement element) const
{
    for (const auto &attribute : numbers)
        element.setAttribute(QLatin1String(attribute.name), static_cast<uint>(this->*attribute.member));
    for (const auto &attribute : flags)
        element.setAttribute(QLatin1String(attribute.name), static_cast<int>(this->*attribute.member));
    for (const auto &attribute : colors)
        element.setAttribute(QLatin1String(attribute.name), RptAttributes::colorText(this->*attribute.member));
}

void RptCrossTabObject::buildCells()
{
    qDeleteAll(fieldList);
    fieldList.clear();
    elements.clear();
    processedCount = 0;
    if (colCount < 1 || rowCount < 1)
        return;
    if (qint64(colCount) * rowCount > mostCells) {
        qWarning() << "Cross table has too many cells, columns" << colCount << "rows" << rowCount;
        return;
    }
    fieldList.reserve(colCount * rowCount);
    for (int row = 0; row < rowCount; ++row) {
        for (int col = 0; col < colCount; ++col)
            fieldList.append(makeCell(row, col));
    }
}

RptFieldObject *RptCrossTabObject::makeCell(int row, int col)
{
    const qint64 width = (qint64(rect.right()) - rect.left() + 1) / colCount;
    const qint64 left = rect.left() + col * width;
    const qint64 top = rect.top() + qint64(row) * rowHeight;
    auto *cell = new RptFieldObject;
    cell->parentCrossTab = this;
    cell->report = parentField ? parentField->report : nullptr;
    cell->name = QStringLiteral("f%1%2").arg(col).arg(row);
    cell->fieldType = Rpt::label;
    cell->rect = QRect(QPoint(boundedInt(left), boundedInt(top)),
                       QPoint(boundedInt(left - 1 + width), boundedInt(top - 1 + rowHeight)));
    cell->aligment = Qt::AlignHCenter | Qt::AlignVCenter;
    if (isTotalAt(row, col))
        cell->setDefaultBackgroundColor(totalBackgroundColor);
    if (isHeaderRow(row))
        cell->setDefaultBackgroundColor(headerBackgroundColor);
    cell->value = colHeader.value(col);
    return cell;
}

int RptCrossTabObject::visibleRowCount() const
{
    if (!parentField || rowHeight < 1)
        return 0;
    const qint64 height = qint64(parentField->rect.bottom()) - parentField->rect.top() + 1;
    return boundedInt(qMax<qint64>(0, height / rowHeight));
}

void RptCrossTabObject::setColCount(int n)
{
    colCount = boundedInt(qint64(n) + (totalByRowVisible ? 1 : 0));
}

void RptCrossTabObject::setRowCount(int n)
{
    // Both ceilings are of the data rows alone, so the added rows may open a page without a header or subtotal counted.
    const qint64 blocks = dividedUp(n, visibleRowCount());
    rowCount =
        boundedInt(n + (subtotalIsVisible ? blocks : 0) + (headerIsVisible ? blocks : 0) + (totalByColVisible ? 1 : 0));
}

int RptCrossTabObject::cellRow(const RptFieldObject *cell, bool withHeaders) const
{
    const int row = positionOf(cell).row;
    if (row < 0 || withHeaders)
        return row;
    const int blocks = blockOf(row);
    return row - blocks - (headerIsVisible ? blocks + 1 : 0);
}

int RptCrossTabObject::cellCol(const RptFieldObject *cell) const
{
    return positionOf(cell).col;
}

bool RptCrossTabObject::isHeaderCell(const RptFieldObject *cell) const
{
    return isHeaderRow(positionOf(cell).row);
}

bool RptCrossTabObject::isTotalCell(const RptFieldObject *cell) const
{
    const Position position = positionOf(cell);
    return isTotalAt(position.row, position.col);
}

void RptCrossTabObject::applyColumnHeader(RptFieldObject *cell) const
{
    const int col = cellCol(cell);
    if (col >= 0 && col < colHeader.size())
        cell->value = colHeader.at(col);
}

void RptCrossTabObject::computeTotalCell(RptFieldObject *cell) const
{
    const Position position = positionOf(cell);
    if (position.row < 0 || isHeaderRow(position.row))
        return;
    const double sum =
        position.col + 1 == colCount ? sumOfRow(position.row, cell) : sumOfColumn(position.row, position.col);
    cell->value = QString::number(sum, 'g', 6);
}

double RptCrossTabObject::sumOfRow(int row, const RptFieldObject *besides) const
{
    double sum = 0;
    const int end = qMin((row + 1) * colCount, fieldList.size());
    for (int index = row * colCount; index < end; ++index) {
        if (fieldList.at(index) != besides)
            sum += fieldList.at(index)->value.toDouble();
    }
    return sum;
}

double RptCrossTabObject::sumOfColumn(int row, int col) const
{
    // Only total cells are left out: a header that is a number counts.
    const bool wholeColumn = row + 1 == rowCount;
    double sum = 0;
    const int rows = dividedUp(fieldList.size() - col, colCount);
    for (int other = 0; other < rows; ++other) {
        if (!isTotalAt(other, col) && (wholeColumn || blockOf(other) == blockOf(row)))
            sum += fieldList.at(other * colCount + col)->value.toDouble();
    }
    return sum;
}

RptCrossTabObject::Position RptCrossTabObject::positionOf(const RptFieldObject *cell) const
{
    // A print asks for the cells one after the other, and several times for each: the search goes on where it ended.
    const auto begin = fieldList.cbegin();
    const auto end = fieldList.cend();
    const auto last = begin + qMin(m_lastIndex, fieldList.size());
    auto found = std::find(last, end, cell);
    if (found == end)
        found = std::find(begin, last, cell);
    if (colCount < 1 || found == end || *found != cell)
        return Position();
    m_lastIndex = static_cast<int>(found - begin);
    return {m_lastIndex / colCount, m_lastIndex % colCount};
}

int RptCrossTabObject::blockOf(int row) const
{
    const int rowsPerPage = visibleRowCount();
    return rowsPerPage < 1 ? 0 : row / rowsPerPage;
}

bool RptCrossTabObject::isHeaderRow(int row) const
{
    const int rowsPerPage = visibleRowCount();
    return headerIsVisible && row >= 0 && rowsPerPage > 0 && row % rowsPerPage == 0;
}

bool RptCrossTabObject::isTotalAt(int row, int col) const
{
    if (row < 0)
        return false;
    const int rowsPerPage = visibleRowCount();
    const bool endsBlock = rowsPerPage > 0 && row % rowsPerPage + 1 == rowsPerPage;
    const int lastRows = totalByColVisible ? 2 : 1; // the last subtotal stands above the row of totals
    return (totalByRowVisible && col + 1 == colCount) || (totalByColVisible && row + 1 == rowCount)
        || (subtotalIsVisible && (endsBlock || row + lastRows == rowCount));
}
