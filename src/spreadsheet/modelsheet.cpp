#include "spreadsheet/modelsheet.h"

#include <algorithm>
#include <cmath>

namespace Spreadsheet {

namespace {

bool overlap(const MergeData &a, const MergeData &b)
{
    return a.rowFirst <= b.rowLast && b.rowFirst <= a.rowLast && a.colFirst <= b.colLast && b.colFirst <= a.colLast;
}

/// False for what is no number, too.
bool isBetween(double value, double least, double most)
{
    return value >= least && value <= most;
}

} // namespace

/// Null when the cell cannot be written.
Cell *ModelSheet::cellAt(int row, int col, const Format *format)
{
    if (!m_state.hasRows(row, row) || !m_state.hasColumns(col, col))
        return nullptr;
    const int index = ModelFormat::indexIn(m_state, format);
    if (index < 0)
        return nullptr;
    Cell &cell = m_data.cells.at(row, col);
    cell.format = quint16(index);
    return &cell;
}

bool ModelSheet::writeStr(int row, int col, const QString &text, const Format *format)
{
    if (text.size() > maxTextLength)
        return m_state.fail(
            QStringLiteral("A text of %1 characters; a cell holds %2").arg(text.size()).arg(maxTextLength));
    Cell *cell = cellAt(row, col, format);
    if (!cell)
        return false;
    cell->text = m_state.data.texts.indexOf(text);
    cell->number = 0;
    return true;
}

bool ModelSheet::writeNum(int row, int col, double value, const Format *format)
{
    if (!std::isfinite(value))
        return m_state.fail(QStringLiteral("A number that is not finite"));
    Cell *cell = cellAt(row, col, format);
    if (!cell)
        return false;
    cell->text = Cell::isNumber;
    cell->number = value;
    return true;
}

double ModelSheet::readNum(int row, int col, const Format **format) const
{
    if (format)
        *format = nullptr;
    if (!m_state.hasRows(row, row) || !m_state.hasColumns(col, col))
        return 0;
    const Cell *cell = m_data.cells.find(row, col);
    if (!cell)
        return 0;
    if (format && cell->format > 0)
        *format = &m_formats[std::size_t(cell->format - 1)];
    return cell->number;
}

bool ModelSheet::setCol(int first, int last, double width, const Format *format, bool hidden)
{
    const int index = ModelFormat::indexIn(m_state, format);
    if (index < 0 || !m_state.hasColumns(first, last))
        return false;
    if (!isBetween(width, 0, maxColumnWidth))
        return m_state.fail(QStringLiteral("A column is 0 to %1 digits wide").arg(maxColumnWidth));
    for (int col = first; col <= last; ++col)
        m_data.columns.insert(col, {width, index, hidden});
    return true;
}

bool ModelSheet::setRow(int row, double height, const Format *format, bool hidden)
{
    const int index = ModelFormat::indexIn(m_state, format);
    if (index < 0 || !m_state.hasRows(row, row))
        return false;
    if (!isBetween(height, 0, maxRowHeight))
        return m_state.fail(QStringLiteral("A row is 0 to %1 points high").arg(maxRowHeight));
    m_data.rows.insert(row, {height, index, hidden});
    return true;
}

bool ModelSheet::setColHidden(int col, bool hidden)
{
    if (!m_state.hasColumns(col, col))
        return false;
    m_data.columns[col].hidden = hidden;
    return true;
}

bool ModelSheet::setMerge(int rowFirst, int rowLast, int colFirst, int colLast)
{
    if (!m_state.hasRows(rowFirst, rowLast) || !m_state.hasColumns(colFirst, colLast))
        return false;
    if (rowFirst == rowLast && colFirst == colLast)
        return m_state.fail(QStringLiteral("One cell alone cannot be merged"));
    const MergeData merge{rowFirst, rowLast, colFirst, colLast};
    if (!isFree(merge))
        return m_state.fail(QStringLiteral("A merged cell lies there already"));
    m_data.merges.append(merge);
    m_lastMergedRow = std::max(m_lastMergedRow, rowLast);
    return true;
}

bool ModelSheet::isFree(const MergeData &place) const
{
    // The usual case: sheets are written downwards.
    if (place.rowFirst > m_lastMergedRow)
        return true;
    return std::none_of(m_data.merges.begin(), m_data.merges.end(),
                        [&](const MergeData &merge) { return overlap(merge, place); });
}

void ModelSheet::setDisplayGridlines(bool show)
{
    m_data.displayGridlines = show;
}

void ModelSheet::setPrintGridlines(bool print)
{
    m_data.printGridlines = print;
}

void ModelSheet::setMargin(double &target, double margin)
{
    if (isBetween(margin, 0, maxMargin))
        target = margin;
    else
        m_state.fail(QStringLiteral("A margin is 0 to %1 inches").arg(maxMargin));
}

void ModelSheet::setMarginLeft(double margin)
{
    setMargin(m_data.marginLeft, margin);
}

void ModelSheet::setMarginRight(double margin)
{
    setMargin(m_data.marginRight, margin);
}

void ModelSheet::setMarginTop(double margin)
{
    setMargin(m_data.marginTop, margin);
}

void ModelSheet::setMarginBottom(double margin)
{
    setMargin(m_data.marginBottom, margin);
}

void ModelSheet::setPrintFit(int wPages, int hPages)
{
    if (wPages < 0 || wPages > maxFitPages || hPages < 0 || hPages > maxFitPages) {
        m_state.fail(QStringLiteral("A print is fitted to 0 to %1 pages").arg(maxFitPages));
        return;
    }
    m_data.fitWidth = wPages;
    m_data.fitHeight = hPages;
}

void ModelSheet::setLandscape(bool landscape)
{
    m_data.landscape = landscape;
}

void ModelSheet::setPaper(Paper paper)
{
    m_data.paper = paper;
}

bool ModelSheet::setPrintRepeatRows(int rowFirst, int rowLast)
{
    if (!m_state.hasRows(rowFirst, rowLast))
        return false;
    m_data.repeatFirst = rowFirst;
    m_data.repeatLast = rowLast;
    return true;
}

bool ModelSheet::setFooter(const QString &footer)
{
    if (footer.size() > maxFooterLength)
        return m_state.fail(QStringLiteral("A footer has at most %1 characters").arg(maxFooterLength));
    if (hasControlCharacters(footer, QStringLiteral("\n")))
        return m_state.fail(QStringLiteral("A footer has no control characters"));
    m_data.footer = footer;
    return true;
}

} // namespace Spreadsheet
