#pragma once

#include "exports/sheetlook.h"

#include <array>

/// The look of the control export: headings in Cambria, and columns of the days so narrow that the size of their
/// numbers follows from their digits.
class ControlBook {
public:
    using Format = Spreadsheet::Format;

    /// Digits of the default font.
    static constexpr double dayColumnWidth = 1.5;

    /// Adds the formats to `book`, which has its default font already.
    explicit ControlBook(Spreadsheet::Book &book);

    /// For a number in the body that stands in one cell of `columns` columns of the days.
    const Format *number(qint64 value, int columns) const { return m_numbers[fittingSize(value, columns)]; }
    /// The same for a sum.
    const Format *sum(qint64 value, int columns) const { return m_sums[fittingSize(value, columns)]; }

    /// The size in points, 3 to 10, at which the digits of a number fit: programs show "##" instead of a number that
    /// does not.
    static std::size_t fittingSize(qint64 value, int columns);

    SheetLook look;
    const Format *narrowHeader; ///< `SheetLook::header` for one letter in a column
    const Format *legend;

private:
    static constexpr std::size_t leastSize = 3;
    static constexpr std::size_t greatestSize = 10;
    using Sizes = std::array<const Format *, greatestSize + 1>;

    static Sizes inAllSizes(Spreadsheet::Book &book, const Format *format, const Spreadsheet::Font *font);

    Sizes m_numbers; ///< by size
    Sizes m_sums; ///< by size
};
