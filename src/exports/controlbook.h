#pragma once

#include "exports/sheetlook.h"
#include "exports/sizedformats.h"

/// The look of the control export: headings in Cambria, and columns of the days so narrow that the size of their
/// numbers follows from their digits.
class ControlBook {
public:
    using Format = Spreadsheet::Format;

    /// Digits of the default font.
    static constexpr double dayColumnWidth = 1.5;

    /// Adds the formats to `book`, which has its default font already.
    explicit ControlBook(Spreadsheet::Book &book);

    /// For a number in a cell of the body.
    const Format *number(qint64 value) const { return m_numbers.fitting(characterCount(value), dayColumnWidth); }
    /// For a sum in one cell of `columns` columns of the days.
    const Format *sum(qint64 value, int columns) const
    {
        return m_sums.fitting(characterCount(value), columns * dayColumnWidth);
    }

    SheetLook look;
    const Format *narrowHeader; ///< `SheetLook::header` for one letter in a column
    const Format *legend;

private:
    SizedFormats m_numbers;
    SizedFormats m_sums;
};
