#pragma once

#include "spreadsheet/workbook.h"

namespace Spreadsheet {

/// The rows of a sheet from top to bottom with their cells as a file has them: those that were written, and those that
/// merged cells cover. These are blank, so that nothing hides, and take the format of the first cell unless they
/// have one of their own, so that borders and fills show all around.
class SheetRows {
public:
    /// Rows and columns with anything in them, up to but without the last. All 0 for an empty sheet.
    struct Range {
        int rowFirst = 0;
        int rowEnd = 0;
        int colFirst = 0;
        int colEnd = 0;
    };

    /// The sheet outlives the rows and does not change meanwhile.
    explicit SheetRows(const SheetData &sheet);

    const Range &range() const { return m_range; }
    /// The cells of a row; no row after one below it. `own` holds them where they differ from those of the sheet.
    const CellGrid::Row &cells(int row, CellGrid::Row &own);

private:
    struct FormattedMerge {
        MergeData place;
        quint16 format; ///< of the first cell, 0 for none
    };

    void include(int row, int colFirst, int colEnd);
    void measure();
    void collectMerges();
    void advance(int row);
    static void cover(CellGrid::Row &cells, int row, const FormattedMerge &merge);

    const SheetData &m_sheet;
    Range m_range;
    QVector<FormattedMerge> m_merges; ///< by first row
    int m_nextMerge = 0;
    QVector<FormattedMerge> m_active; ///< those over the present row
};

} // namespace Spreadsheet
